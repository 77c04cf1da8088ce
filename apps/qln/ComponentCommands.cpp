#include "ComponentCommands.h"

#include "BlockFile.h"
#include "BlockWriter.h"
#include "BusNameParsing.h"
#include "RefApplication.h"
#include "RefComponent.h"
#include "RefManagers.h"
#include "RefNatureMgr.h"
#include "RefProject.h"
#include "TerminalManager.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace qln::tool
{

namespace
{

constexpr const wchar_t* kComponentBlock = L"Component";
constexpr const wchar_t* kComponentClass = L"CircuitDef";

struct ComponentOptions
{
    std::string file;
    std::string output;
    std::string name;
    std::string gate;
    std::string description;
    std::string nature;
    std::string option;
    std::vector<std::string> pins;
    std::vector<std::string> layout;
    int numberFrom = -1;
    int count = 0;
    bool shared = false;
    bool force = false;
    bool failOnUnnamed = false;
    bool remove = false;
};

// A component definition read from its file into a component of the tool's host.
struct ComponentFile
{
    AString path;
    io::CBlock_func root;
    IComponent* component = nullptr;
    refhost::RefNatureMgr* natures = nullptr;
    TerminalManager terminals;
};

refhost::RefProject& ToolProject()
{
    auto* host = dynamic_cast<refhost::RefApplication*>(GetIMerrowApplication());
    if (host == nullptr)
    {
        throw InputError("the tool runs without its reference host");
    }
    if (refhost::RefProject* project = host->FindProject(AString(L"qln")))
    {
        return *project;
    }
    return host->AddProject(AString(L"qln"), AString());
}

// The component of that name in the tool's project (made on first use).
IComponent& ToolComponent(const AString& name)
{
    refhost::RefProject& project = ToolProject();
    refhost::RefComponent* component = project.FindComponent(name);
    return component != nullptr ? *component : *project.AddComponent(name);
}

AString NameOf(const io::CBlock& root, const std::string& file)
{
    root.ResetReadPosition();
    AString name;
    if (!root.ReadValue(name) || name.empty())
    {
        name = AString::FromUTF8(std::filesystem::path(file).stem().string());
    }
    return name;
}

void Load(const std::string& file, ComponentFile& loaded)
{
    loaded.path = AString::FromUTF8(file);
    io::BlockTextError error;
    if (!io::ReadBlockFile(loaded.path, loaded.root, &error))
    {
        throw InputError(Utf8(error.Describe(loaded.path)));
    }
    loaded.component = &ToolComponent(NameOf(loaded.root, file));
    loaded.natures = &ToolProject().GetDesignMgr().GetRefNatureMgr();
    if (loaded.terminals.Read(loaded.root, *loaded.component) != io::kNoError)
    {
        throw InputError(file + ": the terminal list does not read");
    }
}

// The file's block with the terminal list in place of the old one (where its first "Terminal"
// item stood, else at the end); every other item is kept.
io::CBlock_func Rebuilt(const ComponentFile& loaded)
{
    io::CBlock_func root(loaded.root.GetName());
    root.SetClassWord(loaded.root.GetClassWord());
    bool written = false;
    for (const io::CBlock_item item : loaded.root.Items())
    {
        if (item.HasName(std::string_view("Terminal")))
        {
            if (!written)
            {
                loaded.terminals.Write(root);
                written = true;
            }
        }
        else if (item.IsBlock())
        {
            root.AddBlockCopy(*item.GetBlock());
        }
        else if (item.IsNamedValue())
        {
            root.AddNamedValue(item.GetNameUtf8(), item.GetValue());
        }
        else
        {
            root.AddValue(item.GetValue());
        }
    }
    if (!written)
    {
        loaded.terminals.Write(root);
    }
    return root;
}

// Saves atomically to the file (or --output; "-" prints the text instead).
void Save(const io::CBlock& root, const std::string& file, const std::string& output,
          CommandResult& result)
{
    const std::string target = output.empty() ? file : output;
    result.Data()["saved"] = target;
    if (target == "-")
    {
        std::string text = io::WriteBlockText(root);
        result.Data()["text"] = text;
        if (!text.empty() && text.back() == '\n')
        {
            text.pop_back();
        }
        result.AddLine(text);
        return;
    }
    AString error;
    if (!io::WriteBlockFile(AString::FromUTF8(target), root, &error))
    {
        throw InputError(Utf8(error));
    }
}

const char* DomainWord(int domain)
{
    switch (domain)
    {
    case merrowenum::kConservative:
        return "conservative";
    case merrowenum::kSignal:
        return "signal";
    case merrowenum::kQuantity:
        return "quantity";
    case merrowenum::kGeneric:
        return "generic";
    default:
        return "unknown";
    }
}

std::string NatureText(const TerminalAttributes& attrs, const INatureMgr& natures)
{
    if (attrs.mDomain == merrowenum::kConservative)
    {
        const NatureRecord* record = natures.GetNature(attrs.mNature);
        if (record != nullptr && !record->mNames.empty())
        {
            return Utf8(record->mNames.front());
        }
    }
    return std::to_string(attrs.mNature);
}

// "1 terminal", "3 terminals".
std::string Terminals(std::size_t count)
{
    return std::to_string(count) + (count == 1 ? " terminal" : " terminals");
}

std::string Padded(std::string text, std::size_t width)
{
    // Widths count UTF-8 bytes; pin names are mostly ASCII.
    if (text.size() < width)
    {
        text.append(width - text.size(), ' ');
    }
    return text;
}

void RunShow(const ComponentOptions& options, CommandContext& context)
{
    ComponentFile loaded;
    Load(options.file, loaded);
    CommandResult result("component show");
    result.Data()["file"] = options.file;
    result.Data()["component"] = Utf8(loaded.component->GetName());
    const std::vector<std::string> header = {"#",     "schematic",   "layout", "gate",  "shared",
                                             "equiv", "unconnected", "domain", "nature"};
    std::vector<std::vector<std::string>> rows;
    Json terminals = Json::array();
    for (std::size_t i = 0; i < loaded.terminals.GetTerminalCount(); ++i)
    {
        const Terminal& term = *loaded.terminals.GetTerminal(i);
        const TerminalAttributes attrs = term.GetTerminalAttrs();
        std::vector<std::string> row = {std::to_string(i),
                                        Utf8(term.GetSchPinName()),
                                        Utf8(term.GetLayPinName()),
                                        Utf8(term.GetGate()),
                                        term.GetShared() ? "yes" : "no",
                                        std::to_string(term.GetEquivNumber()),
                                        Utf8(term.GetUnconnectedActionString()),
                                        DomainWord(attrs.mDomain),
                                        NatureText(attrs, *loaded.natures)};
        terminals.push_back({{"index", i},
                             {"schematic", row[1]},
                             {"layout", row[2]},
                             {"gate", row[3]},
                             {"shared", term.GetShared()},
                             {"equiv", term.GetEquivNumber()},
                             {"unconnected", row[6]},
                             {"domain", attrs.mDomain},
                             {"nature", attrs.mNature},
                             {"natureName", row[8]},
                             {"direction", attrs.mDirection},
                             {"description", Utf8(attrs.mDescription)}});
        rows.push_back(std::move(row));
    }
    result.Data()["terminals"] = std::move(terminals);
    result.AddLine(Utf8(loaded.component->GetName()) + ": " +
                   Terminals(loaded.terminals.GetTerminalCount()));
    if (!rows.empty())
    {
        std::vector<std::size_t> widths(header.size());
        for (std::size_t c = 0; c < header.size(); ++c)
        {
            widths[c] = header[c].size();
            for (const auto& row : rows)
            {
                widths[c] = std::max(widths[c], row[c].size());
            }
        }
        auto line = [&](const std::vector<std::string>& cells)
        {
            std::string text;
            for (std::size_t c = 0; c < cells.size(); ++c)
            {
                text += c + 1 < cells.size() ? Padded(cells[c], widths[c] + 2) : cells[c];
            }
            return text;
        };
        result.AddLine(line(header));
        for (const auto& row : rows)
        {
            result.AddLine(line(row));
        }
    }
    context.Emit(result);
}

std::vector<AString> Texts(const std::vector<std::string>& arguments)
{
    std::vector<AString> texts;
    for (const std::string& argument : arguments)
    {
        texts.push_back(AString::FromUTF8(argument));
    }
    return texts;
}

// The items joined by ", ", the first ten only when there are more.
std::string Joined(const std::vector<std::string>& items)
{
    constexpr std::size_t kShown = 10;
    std::string text;
    for (std::size_t i = 0; i < items.size() && i < kShown; ++i)
    {
        text += (text.empty() ? "" : ", ") + items[i];
    }
    if (items.size() > kShown)
    {
        text += " and " + std::to_string(items.size() - kShown) + " more";
    }
    return text;
}

std::vector<AString> Expanded(const std::vector<std::string>& arguments, const char* what);

void RunCheckPins(const ComponentOptions& options, CommandContext& context)
{
    ComponentFile loaded;
    Load(options.file, loaded);
    const AString gate = AString::FromUTF8(options.gate);
    const std::vector<AString> pins = Expanded(options.pins, "pin");
    const bool match = loaded.terminals.MatchSignalPins(pins, gate, options.failOnUnnamed);
    CommandResult result("component check-pins");
    result.Data()["file"] = options.file;
    result.Data()["gate"] = options.gate;
    result.Data()["match"] = match;
    if (match)
    {
        result.AddLine("the pins of gate " + options.gate + " match");
        context.Emit(result);
        return;
    }
    // Say which: the terminals of the gate (or shared) that the list lacks, the pins that are
    // no such terminal, and the unnamed terminals when they count.
    std::vector<std::string> missing;
    std::vector<std::string> unnamed;
    std::vector<const Terminal*> considered;
    for (std::size_t i = 0; i < loaded.terminals.GetTerminalCount(); ++i)
    {
        const Terminal* term = loaded.terminals.GetTerminal(i);
        if (!term->GetShared() && !AString::EqualNoCase(term->GetGate(), gate))
        {
            continue;
        }
        if (term->GetSchPinName().empty())
        {
            unnamed.push_back("#" + std::to_string(i));
            continue;
        }
        considered.push_back(term);
        const bool found = std::any_of(
            pins.begin(), pins.end(),
            [&](const AString& pin) { return PortNameCompare(term->GetSchPinName(), pin) == 0; });
        if (!found)
        {
            missing.push_back(Utf8(term->GetSchPinName()));
        }
    }
    std::vector<std::string> unknown;
    for (const AString& pin : pins)
    {
        const bool found = std::any_of(considered.begin(), considered.end(),
                                       [&](const Terminal* t)
                                       { return PortNameCompare(t->GetSchPinName(), pin) == 0; });
        if (!found)
        {
            unknown.push_back(Quoted(Utf8(pin)));
        }
    }
    result.Data()["missing"] = missing;
    result.Data()["unknown"] = unknown;
    result.Data()["unnamed"] = options.failOnUnnamed ? unnamed : std::vector<std::string>();
    std::string line = "the pins of gate " + options.gate + " do not match:";
    if (!missing.empty())
    {
        line += " terminals not listed: " + Joined(missing) + ";";
    }
    if (!unknown.empty())
    {
        line += " pins that are no terminal of the gate: " + Joined(unknown) + ";";
    }
    if (options.failOnUnnamed && !unnamed.empty())
    {
        line += " unnamed terminals: " + Joined(unnamed) + ";";
    }
    if (missing.empty() && unknown.empty() && !(options.failOnUnnamed && !unnamed.empty()))
    {
        line += " " + std::to_string(pins.size()) + " pins for " +
                std::to_string(considered.size()) + " terminals;";
    }
    line.pop_back();
    result.AddLine(line);
    context.Emit(result);
    context.Report(kExitProblem);
}

// The members of each argument: a bus name stands for its members, a list for its elements.
std::vector<AString> Expanded(const std::vector<std::string>& arguments, const char* what)
{
    std::vector<AString> names;
    for (const std::string& argument : arguments)
    {
        const AString text = AString::FromUTF8(argument);
        if (text.empty())
        {
            names.push_back(text);
        }
        else if (GetAllSignals(text, names) == 0)
        {
            throw InputError(std::string(what) + " '" + argument + "' is no valid name or bus");
        }
    }
    return names;
}

void RunNew(const ComponentOptions& options, CommandContext& context)
{
    const AString path = AString::FromUTF8(options.file);
    std::error_code error;
    if (!options.force && std::filesystem::exists(options.file, error))
    {
        throw InputError(options.file + " exists already (--force replaces it)");
    }
    io::CBlock_func root(kComponentBlock);
    root.SetClassWord(kComponentClass);
    root.AddValue(AString::FromUTF8(options.name));
    CommandResult result("component new");
    result.Data()["file"] = options.file;
    result.Data()["component"] = options.name;
    Save(root, options.file, options.output, result);
    result.AddLine(options.file + ": component " + options.name + " without terminals");
    context.Emit(result);
}

void RunAdd(const ComponentOptions& options, CommandContext& context)
{
    ComponentFile loaded;
    Load(options.file, loaded);
    const std::vector<AString> pins = Expanded(options.pins, "pin");
    std::vector<AString> layout = Expanded(options.layout, "layout pin");
    if (options.numberFrom >= 0)
    {
        if (!layout.empty())
        {
            throw InputError("--layout and --number-from exclude one another");
        }
        for (std::size_t i = 0; i < pins.size(); ++i)
        {
            layout.push_back(AString::Formatted(L"%d", options.numberFrom + static_cast<int>(i)));
        }
    }
    if (!layout.empty() && layout.size() != pins.size())
    {
        throw InputError(std::to_string(pins.size()) + " pins but " +
                         std::to_string(layout.size()) + " layout pins");
    }
    TerminalAttributes attrs;
    attrs.mDescription = AString::FromUTF8(options.description);
    if (!options.nature.empty())
    {
        std::vector<AString> parts;
        if (!AString::FromUTF8(options.nature).Match(L"*(*.*)", parts, true) ||
            !loaded.natures->ResolveNature(parts[0], parts[1], parts[2], attrs.mNature))
        {
            throw InputError("unknown nature '" + options.nature +
                             "' (natures are named discipline(library.nature))");
        }
    }
    const AString gate = AString::FromUTF8(options.gate.empty() ? "A" : options.gate);
    CommandResult result("component add");
    result.Data()["file"] = options.file;
    Json added = Json::array();
    std::vector<std::string> refused;
    for (std::size_t i = 0; i < pins.size(); ++i)
    {
        const AString lay = layout.empty() ? AString() : layout[i];
        AString error;
        const auto outcome = loaded.terminals.AddTerminal(loaded.component, pins[i], lay, gate,
                                                          options.shared, attrs, &error);
        if (outcome != IComponent::kTerminalAdded)
        {
            refused.push_back(Utf8(error));
            continue;
        }
        added.push_back({{"schematic", Utf8(pins[i])}, {"layout", Utf8(lay)}});
    }
    result.Data()["added"] = added;
    result.Data()["refused"] = refused;
    if (!refused.empty())
    {
        for (const std::string& message : refused)
        {
            result.AddLine(message);
        }
        result.AddLine(options.file + ": not changed");
        context.Emit(result);
        context.Report(kExitProblem);
        return;
    }
    Save(Rebuilt(loaded), options.file, options.output, result);
    result.AddLine(options.file + ": added " + Terminals(pins.size()) + " of gate " + Utf8(gate) +
                   ", " + std::to_string(loaded.terminals.GetTerminalCount()) + " in all");
    context.Emit(result);
}

// The position of the terminal of schematic pin `pin` (in gate `gate`, or any gate when it
// is empty), or -1.
int FindPin(const TerminalManager& terminals, const AString& pin, const std::string& gate)
{
    if (!gate.empty())
    {
        const Terminal* term = terminals.GetTerminalFromSchPinName(pin, AString::FromUTF8(gate));
        return term != nullptr ? terminals.GetTerminalIndex(term) : -1;
    }
    for (std::size_t i = 0; i < terminals.GetTerminalCount(); ++i)
    {
        if (Terminal::PinNameSchCompare(pin, terminals.GetTerminal(i)->GetSchPinName()) == 0)
        {
            return static_cast<int>(i);
        }
    }
    return -1;
}

void RunRemove(const ComponentOptions& options, CommandContext& context)
{
    ComponentFile loaded;
    Load(options.file, loaded);
    CommandResult result("component remove");
    result.Data()["file"] = options.file;
    std::vector<std::string> unknown;
    for (const AString& pin : Texts(options.pins))
    {
        const int position = pin.empty() ? -1 : FindPin(loaded.terminals, pin, options.gate);
        if (position < 0)
        {
            unknown.push_back(Quoted(Utf8(pin)));
            continue;
        }
        loaded.terminals.RemoveTerminal(static_cast<unsigned int>(position));
    }
    result.Data()["unknown"] = unknown;
    if (!unknown.empty())
    {
        result.AddLine("no terminal " + Joined(unknown) +
                       (options.gate.empty() ? "" : " in gate " + options.gate) + "; " +
                       options.file + ": not changed");
        context.Emit(result);
        context.Report(kExitProblem);
        return;
    }
    Save(Rebuilt(loaded), options.file, options.output, result);
    result.AddLine(options.file + ": removed " + std::to_string(options.pins.size()) +
                   " terminals, " + std::to_string(loaded.terminals.GetTerminalCount()) + " left");
    context.Emit(result);
}

void RunRename(const ComponentOptions& options, CommandContext& context)
{
    ComponentFile loaded;
    Load(options.file, loaded);
    const AString from = AString::FromUTF8(options.pins.at(0));
    const AString to = AString::FromUTF8(options.pins.at(1));
    CommandResult result("component rename");
    result.Data()["file"] = options.file;
    result.Data()["from"] = Utf8(from);
    result.Data()["to"] = Utf8(to);
    const int position = from.empty() ? -1 : FindPin(loaded.terminals, from, options.gate);
    std::string problem;
    if (position < 0)
    {
        problem = "no terminal " + Quoted(Utf8(from));
    }
    else if (to.empty())
    {
        problem = "the new name is empty";
    }
    else if (loaded.terminals.IsSchPinNameInUse(to) && !AString::EqualNoCase(from, to))
    {
        problem = "schematic pin name " + Quoted(Utf8(to)) + " is in use";
    }
    if (!problem.empty())
    {
        result.AddLine(problem + "; " + options.file + ": not changed");
        context.Emit(result);
        context.Report(kExitProblem);
        return;
    }
    std::vector<TerminalInfo> info;
    loaded.terminals.GetTerminalInformation(info);
    info[static_cast<std::size_t>(position)].mPinName = to;
    loaded.terminals.SetTerminalData(info);
    Save(Rebuilt(loaded), options.file, options.output, result);
    result.AddLine(options.file + ": terminal " + std::to_string(position) + " " +
                   Quoted(Utf8(from)) + " is now " + Quoted(Utf8(to)));
    context.Emit(result);
}

// Saves a list whose number of terminals was `before` and reports both numbers.
void SaveCountChange(const ComponentOptions& options, const ComponentFile& loaded,
                     std::size_t before, CommandResult& result, CommandContext& context)
{
    result.Data()["before"] = before;
    result.Data()["after"] = loaded.terminals.GetTerminalCount();
    Save(Rebuilt(loaded), options.file, options.output, result);
    result.AddLine(options.file + ": " + Terminals(before) + ", now " +
                   std::to_string(loaded.terminals.GetTerminalCount()));
    context.Emit(result);
}

void RunSetCount(const ComponentOptions& options, CommandContext& context)
{
    if (options.count < 0)
    {
        throw InputError("the count must not be negative");
    }
    ComponentFile loaded;
    Load(options.file, loaded);
    const std::size_t before = loaded.terminals.GetTerminalCount();
    loaded.terminals.SetNumberOfTerminals(options.count, *loaded.component);
    CommandResult result("component set-count");
    result.Data()["file"] = options.file;
    SaveCountChange(options, loaded, before, result, context);
}

RefPinOption ParseRefPinOption(const std::string& text)
{
    struct Word
    {
        const char* word;
        RefPinOption option;
    };
    constexpr Word kWords[] = {{"per-pin", kRefPinPerPin},
                               {"common", kRefPinCommon},
                               {"none", kRefPinNone},
                               {"per-pin-alt", kRefPinPerPinAlt}};
    for (const Word& word : kWords)
    {
        if (text == word.word || text == std::to_string(static_cast<int>(word.option)))
        {
            return word.option;
        }
    }
    throw InputError("unknown reference option '" + text +
                     "' (0 per-pin, 1 common, 2 none, 3 per-pin-alt)");
}

void RunRefPins(const ComponentOptions& options, CommandContext& context)
{
    const RefPinOption option = ParseRefPinOption(options.option);
    ComponentFile loaded;
    Load(options.file, loaded);
    const std::size_t before = loaded.terminals.GetTerminalCount();
    if (options.remove)
    {
        loaded.terminals.RemoveRefTerminals(option);
    }
    else
    {
        loaded.terminals.AddRefTerminals(loaded.component, option);
    }
    CommandResult result("component ref-pins");
    result.Data()["file"] = options.file;
    result.Data()["option"] = static_cast<int>(option);
    result.Data()["removed"] = options.remove;
    SaveCountChange(options, loaded, before, result, context);
}

using Runner = void (*)(const ComponentOptions&, CommandContext&);

CLI::App* AddCommand(CLI::App& family, const std::shared_ptr<ComponentOptions>& options,
                     CommandContext& context, const char* name, const char* description, Runner run)
{
    CLI::App* command = family.add_subcommand(name, description);
    command->add_option("FILE", options->file, "Component file")->required();
    command->callback([options, &context, run] { run(*options, context); });
    return command;
}

void AddOutput(CLI::App* command, ComponentOptions& options)
{
    command->add_option("-o,--output", options.output,
                        "Save to this file instead (atomically); \"-\" prints the new text");
}

} // namespace

void AddComponentCommands(CLI::App& app, CommandContext& context)
{
    CLI::App* family = app.add_subcommand(
        "component", "Component definitions: the terminal table, pin checks and edits");
    family->require_subcommand(1);
    family->footer("A component file is a block file \"Component : CircuitDef { NAME Terminal "
                   "{...} ... }\".\nEdits save the file atomically; a refused edit leaves it as it "
                   "was and exits 1.");
    auto options = std::make_shared<ComponentOptions>();

    CLI::App* create = AddCommand(*family, options, context, "new",
                                  "A new component file without terminals", &RunNew);
    create->add_option("NAME", options->name, "Component name")->required();
    create->add_flag("--force", options->force, "Replace an existing file");
    AddOutput(create, *options);

    AddCommand(*family, options, context, "show",
               "The terminal table: index, pins, gate, sharing, equivalence number, unconnected "
               "action, domain and nature",
               &RunShow);

    CLI::App* check = AddCommand(*family, options, context, "check-pins",
                                 "Whether PINs (buses stand for their members) are exactly the "
                                 "signal pins of a gate (its own and "
                                 "the shared ones); exit 1 and which differ if not",
                                 &RunCheckPins);
    check->add_option("--gate", options->gate, "Gate")->required();
    check->add_flag("--fail-on-unnamed", options->failOnUnnamed,
                    "An unnamed terminal of the gate makes the check fail");
    check->add_option("PIN", options->pins, "Schematic pin names")->allow_extra_args();

    CLI::App* add = AddCommand(*family, options, context, "add",
                               "Add terminals; a bus name adds one per member", &RunAdd);
    add->add_option("PIN", options->pins, "Schematic pin names")->required()->allow_extra_args();
    add->add_option("--layout", options->layout,
                    "Layout pin names, one per pin (lists and buses expand)")
        ->allow_extra_args(false);
    add->add_option("--number-from", options->numberFrom,
                    "Number the layout pins from this number on")
        ->check(CLI::NonNegativeNumber);
    add->add_option("--gate", options->gate, "Gate (default A)");
    add->add_flag("--shared", options->shared, "Pins shared by all gates");
    add->add_option("--description", options->description, "Description");
    add->add_option("--nature", options->nature, "Nature, e.g. Thermal(IEEE.thermal)");
    AddOutput(add, *options);

    CLI::App* remove = AddCommand(*family, options, context, "remove",
                                  "Remove the terminals of these schematic pins", &RunRemove);
    remove->add_option("PIN", options->pins, "Schematic pin names")->required()->allow_extra_args();
    remove->add_option("--gate", options->gate, "Only in this gate (default: any)");
    AddOutput(remove, *options);

    CLI::App* rename = AddCommand(*family, options, context, "rename",
                                  "Give a terminal another schematic pin name", &RunRename);
    rename->add_option("PIN", options->pins, "Old and new name")->required()->expected(2);
    rename->add_option("--gate", options->gate, "Only in this gate (default: any)");
    AddOutput(rename, *options);

    CLI::App* setCount =
        AddCommand(*family, options, context, "set-count",
                   "Grow (unnamed terminals of gate A) or shrink (from the end) to COUNT terminals",
                   &RunSetCount);
    setCount->add_option("COUNT", options->count, "Number of terminals")->required();
    AddOutput(setCount, *options);

    CLI::App* refPins = AddCommand(*family, options, context, "ref-pins",
                                   "Add (or --remove) reference terminals: per-pin (0) puts "
                                   "PIN_ref behind each pin, common (1) adds \"ref\", none (2)",
                                   &RunRefPins);
    refPins->add_option("OPTION", options->option, "0 per-pin, 1 common, 2 none, 3 per-pin-alt")
        ->required();
    refPins->add_flag("--remove", options->remove, "Remove them instead");
    AddOutput(refPins, *options);
}

} // namespace qln::tool
