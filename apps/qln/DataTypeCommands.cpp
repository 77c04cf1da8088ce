#include "DataTypeCommands.h"

#include "Assert.h"
#include "BlockFile.h"
#include "PropAttributes.h"
#include "QLNParvaneUtils.h"
#include "TextInput.h"
#include "Units.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

using merrowstruct::DataTypeInfo;

namespace qln::tool
{

namespace
{

struct DataTypeOptions
{
    std::string file;
    std::string name;
    bool useName = false;
    std::string terminal;
    std::vector<std::string> texts;
};

io::CBlock_func ReadFile(const std::string& file)
{
    const AString path = AString::FromUTF8(file);
    io::CBlock_func root;
    io::BlockTextError error;
    if (!io::ReadBlockFile(path, root, &error))
    {
        throw InputError(Utf8(error.Describe(path)));
    }
    return root;
}

// The word of a type code: the block-form words, older array codes and nature codes.
std::string TypeWord(std::int32_t type)
{
    if ((type >= merrowenum::kMinSignalType && type <= merrowenum::kMaxSignalType) ||
        type == merrowenum::kTIMEType)
    {
        return Utf8(PropAttributes::GetPropDataTypeString(type));
    }
    if (type >= merrowenum::kLOGICVECTORType && type <= merrowenum::kBITVECTORType)
    {
        return "Array (older code " + std::to_string(type) + ")";
    }
    return (type < 0 ? "nature " : "code ") + std::to_string(type);
}

// The node kind of a type, or nothing for the codes that have none (file, natures).
std::string NodeKind(const DataTypeInfo& dti, Json& item)
{
    const bool hasKind = dti.mType >= merrowenum::kREALType && dti.mType <= merrowenum::kTIMEType &&
                         dti.mType != merrowenum::kFILEType;
    if (!hasKind)
    {
        item["node"] = nullptr;
        return "";
    }
    const ECHDataTypes kind = GetNodeDataType(dti);
    const char* word = "";
    switch (kind)
    {
    case kECHReal:
        word = "real";
        break;
    case kECHInteger:
        word = "integer";
        break;
    case kECHEnum:
        word = "enumeration";
        break;
    case kECHChar:
        word = "char";
        break;
    case kECHBoolean:
        word = "boolean";
        break;
    case kECHBit:
        word = "bit";
        break;
    case kECHStdLogic:
        word = "std_logic";
        break;
    case kECHArray:
        word = "array";
        break;
    case kECHRecord:
        word = "record";
        break;
    case kECHString:
        word = "string";
        break;
    }
    item["node"] = static_cast<int>(kind);
    item["nodeKind"] = word;
    return ", node " + std::to_string(static_cast<int>(kind)) + " " + word;
}

// The library's diagnostics raised during a command, shown with its result.
void AddAssertions(CommandResult& result, const AssertCapture& capture)
{
    Json texts = Json::array();
    for (const std::string& text : capture.Texts())
    {
        texts.push_back(text);
        result.AddLine("  assertion: " + text);
    }
    result.Data()["assertions"] = std::move(texts);
}

// The assertion texts raised since entry `before` of the capture, each also added to `line`.
Json AssertionsSince(const AssertCapture& capture, std::size_t before, std::string& line)
{
    Json texts = Json::array();
    for (std::size_t i = before; i < capture.Count(); ++i)
    {
        texts.push_back(capture.Entries()[i].text);
        line += "; assertion: " + capture.Entries()[i].text;
    }
    return texts;
}

void RunLeaves(const DataTypeOptions& options, CommandContext& context)
{
    io::CBlock_func root = ReadFile(options.file);
    AssertCapture capture;
    DataTypeInfo dti;
    const bool readOk = ReadDataTypeInfo(root, dti);
    const AString name = options.useName ? AString::FromUTF8(options.name) : dti.mName;
    std::vector<merrowstruct::DataTypeLeaf> leaves;
    parvaneutils::GetDataTypeInfoLeafNames(dti, name, leaves);

    CommandResult result("datatype leaves");
    result.Data()["file"] = options.file;
    result.Data()["name"] = Utf8(name);
    result.Data()["type"] = dti.mType;
    result.Data()["read"] = readOk;
    result.AddLine(options.file + ": " + Quoted(Utf8(name)) + " " + TypeWord(dti.mType) + ", " +
                   std::to_string(leaves.size()) + (leaves.size() == 1 ? " leaf" : " leaves") +
                   (readOk ? "" : " (does not read: an array or record without elements)"));
    Json items = Json::array();
    for (const merrowstruct::DataTypeLeaf& leaf : leaves)
    {
        Json item = {{"name", Utf8(leaf.first)}, {"type", leaf.second.mType}};
        const std::string kind = NodeKind(leaf.second, item);
        result.AddLine("  " + Utf8(leaf.first) + ": " + TypeWord(leaf.second.mType) + kind);
        items.push_back(std::move(item));
    }
    result.Data()["leaves"] = std::move(items);
    AddAssertions(result, capture);
    context.Emit(result);
    if (!readOk)
    {
        context.Report(kExitProblem);
    }
}

void RunCheckValue(const DataTypeOptions& options, CommandContext& context)
{
    io::CBlock_func root = ReadFile(options.file);
    AssertCapture capture;
    DataTypeInfo dti;
    ReadDataTypeInfo(root, dti);
    TextInput input(context.Input());
    CommandResult result("datatype check-value");
    result.Data()["file"] = options.file;
    result.Data()["type"] = dti.mType;
    // What reading the type raised comes first.
    AddAssertions(result, capture);
    capture.Clear();
    const bool composite =
        parvaneutils::IsDataTypeInfoAnArray(dti) || dti.mType == merrowenum::kRecordType;
    if (!composite)
    {
        result.AddLine(options.file + ": " + TypeWord(dti.mType) + " is no array or record");
    }
    Json items = Json::array();
    bool allValid = true;
    for (const AString& text : input.Many(options.texts))
    {
        const std::size_t before = capture.Count();
        AString normalized;
        const bool valid = ValidateComposite(dti, text, &normalized);
        allValid = allValid && valid;
        Json item = {{"text", Utf8(text)}, {"valid", valid}, {"normalized", Utf8(normalized)}};
        std::string line =
            Quoted(Utf8(text)) + ": " + (valid ? "valid " : "not valid ") + Utf8(normalized);
        item["assertions"] = AssertionsSince(capture, before, line);
        result.AddLine(line);
        items.push_back(std::move(item));
    }
    result.Data()["results"] = std::move(items);
    context.Emit(result);
    if (!allValid)
    {
        context.Report(kExitProblem);
    }
}

// The terminals of a terminals file, in order.
std::vector<merrowstruct::TerminalData> ReadTerminals(const std::string& file)
{
    const io::CBlock_func root = ReadFile(file);
    std::vector<merrowstruct::TerminalData> terminals;
    for (const io::CBlock_item item : root.Items())
    {
        io::CBlock_func* block = item.GetBlock();
        if (block == nullptr || !item.HasName(L"Terminal"))
        {
            continue;
        }
        merrowstruct::TerminalData terminal;
        block->ResetReadPosition();
        io::CBlock_func* info = block->FindBlock(L"Info");
        if (!block->ReadValue(terminal.mName) || info == nullptr)
        {
            throw InputError(file + ": terminal " + std::to_string(terminals.size() + 1) +
                             " needs a name and an Info block");
        }
        ReadDataTypeInfo(*info, terminal.mDataTypeInfo);
        terminals.push_back(std::move(terminal));
    }
    return terminals;
}

std::string UnitText(Units::FullUnitType unit)
{
    const AString symbol = Units::GetUnitDef(unit).GetUnitString();
    return std::to_string(static_cast<int>(unit)) + " (" +
           (symbol.empty() ? "none" : Utf8(symbol)) + ")";
}

void RunOutput(const DataTypeOptions& options, CommandContext& context)
{
    AssertCapture capture;
    const std::vector<merrowstruct::TerminalData> terminals = ReadTerminals(options.file);
    TextInput input(context.Input());
    const AString terminal = input.One(options.terminal, "TERMINAL");
    const bool known = std::any_of(terminals.begin(), terminals.end(),
                                   [&terminal](const merrowstruct::TerminalData& candidate)
                                   { return AString::EqualNoCase(candidate.mName, terminal); });
    CommandResult result("datatype output");
    result.Data()["file"] = options.file;
    result.Data()["terminal"] = Utf8(terminal);
    result.Data()["known"] = known;
    if (!known)
    {
        result.AddLine("no terminal " + Quoted(Utf8(terminal)) + " in " + options.file);
    }
    // What reading the terminals' types raised comes first.
    AddAssertions(result, capture);
    capture.Clear();
    Json items = Json::array();
    bool allResolved = true;
    for (const AString& path : input.Many(options.texts))
    {
        DataTypeInfo dti;
        Units::FullUnitType unit = Units::kNoUnit;
        const std::size_t before = capture.Count();
        const bool resolved =
            GetModelNodeInfoForOutputFromTerminals(terminal, path, terminals, dti, unit);
        allResolved = allResolved && resolved;
        Json item = {{"path", Utf8(path)}, {"resolved", resolved}};
        std::string line = Quoted(Utf8(path)) + ": ";
        if (resolved)
        {
            item["reached"] = Utf8(dti.mName);
            item["unit"] = static_cast<int>(unit);
            item["unitSymbol"] = Utf8(Units::GetUnitDef(unit).GetUnitString());
            line += "unit " + UnitText(unit) + ", reached " + Quoted(Utf8(dti.mName));
        }
        else
        {
            line += "not resolved";
        }
        item["assertions"] = AssertionsSince(capture, before, line);
        result.AddLine(line);
        items.push_back(std::move(item));
    }
    result.Data()["results"] = std::move(items);
    context.Emit(result);
    if (!allResolved)
    {
        context.Report(kExitProblem);
    }
}

} // namespace

void AddDataTypeCommands(CLI::App& app, CommandContext& context)
{
    CLI::App* family = app.add_subcommand(
        "datatype", "Stored data types: leaves, composite value checks, output node lookup");
    family->require_subcommand(1);
    family->footer("A data type file holds one data type in its block form as its outermost "
                   "block; a terminals file holds\nTerminal { \"name\" Info { ... } } blocks. "
                   "Texts are one per argument, or one per line on standard input\nfor \"-\". "
                   "Exit 1 when a type does not read, a value is not valid or a path is not "
                   "resolved.");
    auto options = std::make_shared<DataTypeOptions>();

    CLI::App* leaves = family->add_subcommand(
        "leaves", "The leaf names of a stored data type with their types and node kinds");
    leaves->add_option("FILE", options->file, "Data type file")->required();
    leaves->add_option("--name", options->name, "Name the leaves under NAME, not the type's own")
        ->each([options](const std::string&) { options->useName = true; });
    leaves->callback([options, &context] { RunLeaves(*options, context); });

    CLI::App* check = family->add_subcommand(
        "check-value", "Check composite value texts against a stored array or record type and "
                       "give their normalised texts");
    check->add_option("FILE", options->file, "Data type file")->required();
    check->add_option("TEXT", options->texts, "Value texts such as {1,2,3}")
        ->required()
        ->allow_extra_args();
    check->callback([options, &context] { RunCheckValue(*options, context); });

    CLI::App* output = family->add_subcommand(
        "output", "Resolve output paths inside a model terminal: the type reached and its unit");
    output->add_option("TERMINALS-FILE", options->file, "Terminals file")->required();
    output->add_option("TERMINAL", options->terminal, "Terminal name")->required();
    output->add_option("PATH", options->texts, "Paths such as pins[3].v")
        ->required()
        ->allow_extra_args();
    output->callback([options, &context] { RunOutput(*options, context); });
}

} // namespace qln::tool
