#include "NetCommands.h"

#include "BusNameParsing.h"
#include "RefApplication.h"
#include "TextInput.h"

#include <CLI/CLI.hpp>

#include <cstdlib>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace qln::tool
{

namespace
{

struct NetOptions
{
    int environment = 0;
    bool canonical = false;
    std::string kind;
    std::string first;
    std::string second;
    std::vector<std::string> names;
};

// The circuit environment the family works in: --env, else QLN_ENV, else 0.
int DefaultEnvironment()
{
    const char* value = std::getenv("QLN_ENV");
    if (value == nullptr)
    {
        return kEnvBrennaCircuit;
    }
    int environment = 0;
    const AString text = AString::FromUTF8(value);
    return text.IsNumber(environment, 10) && environment >= 0 && environment <= kEnvNone
               ? environment
               : kEnvBrennaCircuit;
}

// Sets the reference host's environment for the command; the name functions ask it.
void UseEnvironment(int environment)
{
    if (auto* host = dynamic_cast<refhost::RefApplication*>(GetIMerrowApplication()))
    {
        host->SetCircuitEnvironment(static_cast<CircuitEnvironment>(environment));
    }
}

Json ToJson(const std::vector<AString>& texts)
{
    Json list = Json::array();
    for (const AString& text : texts)
    {
        list.push_back(Utf8(text));
    }
    return list;
}

std::string Listed(const std::vector<AString>& texts)
{
    std::string line;
    for (const AString& text : texts)
    {
        line += (line.empty() ? "" : " ") + Utf8(text);
    }
    return line;
}

void RunExpand(const NetOptions& options, CommandContext& context, bool unique)
{
    UseEnvironment(options.environment);
    TextInput input(context.Input());
    const std::vector<AString> names = input.Many(options.names);
    const char* command = unique ? "net unique" : "net expand";
    CommandResult result(command);
    result.Data()["environment"] = options.environment;
    Json items = Json::array();
    bool allValid = true;
    for (const AString& name : names)
    {
        std::vector<AString> members;
        int count = 0;
        if (unique)
        {
            std::set<AString, AString::NoCaseLess> set;
            count = GetUniqueSignals(name, set);
            members.assign(set.begin(), set.end());
        }
        else
        {
            count = options.canonical ? GetAllSignalsCanonical(name, members)
                                      : GetAllSignals(name, members);
        }
        allValid = allValid && count > 0;
        items.push_back({{"name", Utf8(name)}, {"result", count}, {"signals", ToJson(members)}});
        result.AddLine(Quoted(Utf8(name)) + ": " + std::to_string(count) +
                       (members.empty() ? "" : " " + Listed(members)));
    }
    result.Data()["results"] = std::move(items);
    context.Emit(result);
    if (!allValid)
    {
        context.Report(kExitProblem);
    }
}

void RunCount(const NetOptions& options, CommandContext& context)
{
    UseEnvironment(options.environment);
    TextInput input(context.Input());
    CommandResult result("net count");
    result.Data()["environment"] = options.environment;
    Json items = Json::array();
    bool allValid = true;
    for (const AString& name : input.Many(options.names))
    {
        const int count = GetSignalCount(name);
        const int unique = GetUniqueSignalCount(name);
        allValid = allValid && count > 0;
        items.push_back({{"name", Utf8(name)}, {"count", count}, {"unique", unique}});
        result.AddLine(Quoted(Utf8(name)) + ": " + std::to_string(count) + " signals, " +
                       std::to_string(unique) + " unique");
    }
    result.Data()["results"] = std::move(items);
    context.Emit(result);
    if (!allValid)
    {
        context.Report(kExitProblem);
    }
}

void RunIndex(const NetOptions& options, CommandContext& context)
{
    UseEnvironment(options.environment);
    TextInput input(context.Input());
    const AString bus = input.One(options.first, "BUS");
    CommandResult result("net index");
    result.Data()["bus"] = Utf8(bus);
    Json items = Json::array();
    bool allFound = true;
    for (const AString& signal : input.Many(options.names))
    {
        const int index = GetSignalIndex(bus, signal);
        allFound = allFound && index >= 0;
        items.push_back({{"signal", Utf8(signal)}, {"index", index}});
        result.AddLine(Quoted(Utf8(signal)) + ": " + std::to_string(index));
    }
    result.Data()["results"] = std::move(items);
    context.Emit(result);
    if (!allFound)
    {
        context.Report(kExitProblem);
    }
}

void RunCompose(const NetOptions& options, CommandContext& context)
{
    UseEnvironment(options.environment);
    TextInput input(context.Input());
    const std::vector<AString> signals = input.Many(options.names);
    const AString name = CreateNetName(signals);
    CommandResult result("net compose");
    result.Data()["signals"] = ToJson(signals);
    result.Data()["name"] = Utf8(name);
    result.AddLine(Utf8(name));
    context.Emit(result);
}

void RunSlice(const NetOptions& options, CommandContext& context, bool add)
{
    UseEnvironment(options.environment);
    TextInput input(context.Input());
    const AString bus = input.One(options.first, "BUS");
    const AString slice = input.One(options.second, "SLICE");
    const AString name = add ? AddSliceToBusName(bus, slice) : RemoveSliceFromBusName(bus, slice);
    CommandResult result(add ? "net add-slice" : "net remove-slice");
    result.Data()["bus"] = Utf8(bus);
    result.Data()["slice"] = Utf8(slice);
    result.Data()["name"] = Utf8(name);
    result.AddLine(Utf8(name));
    context.Emit(result);
}

void RunMerge(const NetOptions& options, CommandContext& context)
{
    UseEnvironment(options.environment);
    TextInput input(context.Input());
    AString first = input.One(options.first, "FIRST");
    AString second = input.One(options.second, "SECOND");
    const bool merged = MergeAnyBusNames(first, second);
    CommandResult result("net merge");
    result.Data()["merged"] = merged;
    result.Data()["first"] = Utf8(first);
    result.Data()["second"] = Utf8(second);
    result.AddLine(merged ? "merged: " + Quoted(Utf8(first))
                          : "not merged: " + Quoted(Utf8(first)) + " " + Quoted(Utf8(second)));
    context.Emit(result);
    if (!merged)
    {
        context.Report(kExitProblem);
    }
}

// The plain-words reason of a check's answer.
std::string Reason(const std::string& kind, int code)
{
    if (code == 0)
    {
        return "good";
    }
    if (kind == "simple" || kind == "bus-base")
    {
        return "holds one of . , : ; & * < > [ ] - or a space";
    }
    switch (code)
    {
    case 15:
        return "holds a space, \"&\" or \"*\"";
    case 16:
        return "an element has a bad bus part: unbalanced brackets, an index text that is not a "
               "list of numbers and ranges, or a base with blanks";
    case 21:
        return "the name or one of its comma-separated elements is empty";
    case 308:
        return "the name is empty";
    case 309:
        return "holds white space or a character not allowed in an instance name";
    case 310:
        return "begins with a digit";
    default:
        return "unknown problem";
    }
}

void RunCheck(const NetOptions& options, CommandContext& context)
{
    UseEnvironment(options.environment);
    TextInput input(context.Input());
    CommandResult result("net check");
    result.Data()["kind"] = options.kind;
    Json items = Json::array();
    bool allGood = true;
    for (const AString& name : input.Many(options.names))
    {
        int code = 0;
        if (options.kind == "wire")
        {
            code = IsGoodWireName(name);
        }
        else if (options.kind == "instance")
        {
            code = IsGoodInstanceName(name);
        }
        else if (options.kind == "simple")
        {
            code = IsGoodSimpleWireName(name) ? 0 : 1;
        }
        else
        {
            code = IsGoodBusBaseName(name) ? 0 : 1;
        }
        allGood = allGood && code == 0;
        const std::string reason = Reason(options.kind, code);
        Json item = {{"name", Utf8(name)}, {"good", code == 0}, {"reason", reason}};
        if (options.kind == "wire" || options.kind == "instance")
        {
            item["code"] = code;
        }
        items.push_back(std::move(item));
        const bool numbered = options.kind == "wire" || options.kind == "instance";
        result.AddLine(Quoted(Utf8(name)) + ": " + (numbered ? std::to_string(code) + " " : "") +
                       reason);
    }
    result.Data()["results"] = std::move(items);
    context.Emit(result);
    if (!allGood)
    {
        context.Report(kExitProblem);
    }
}

void RunCompare(const NetOptions& options, CommandContext& context)
{
    UseEnvironment(options.environment);
    TextInput input(context.Input());
    const AString a = input.One(options.first, "A");
    const AString b = input.One(options.second, "B");
    const int order = NetNameCompare(a, b);
    CommandResult result("net compare");
    result.Data()["a"] = Utf8(a);
    result.Data()["b"] = Utf8(b);
    result.Data()["result"] = order;
    result.AddLine(std::to_string(order) + (order == 0  ? " (equal)"
                                            : order < 0 ? " (less)"
                                                        : " (greater or different)"));
    context.Emit(result);
}

using Runner = void (*)(const NetOptions&, CommandContext&);

CLI::App* AddCommand(CLI::App& net, const std::shared_ptr<NetOptions>& options,
                     CommandContext& context, const char* name, const char* description, Runner run)
{
    CLI::App* command = net.add_subcommand(name, description);
    command->callback([options, &context, run] { run(*options, context); });
    return command;
}

void AddNames(CLI::App* command, NetOptions& options, const char* what, const char* description)
{
    command->add_option(what, options.names, description)->required()->allow_extra_args();
}

} // namespace

void AddNetCommands(CLI::App& app, CommandContext& context)
{
    CLI::App* net = app.add_subcommand("net", "Net and bus names: expand, count, compose, check");
    net->require_subcommand(1);
    net->footer("Names are one per argument, or one per line on standard input for \"-\".\n"
                "Exit 1 when a function reports an invalid name (0 signals, index -1, a failed "
                "check, no merge).");
    auto options = std::make_shared<NetOptions>();
    options->environment = DefaultEnvironment();
    net->add_option("--env", options->environment,
                    "Circuit environment 0 to 6 (default 0, or QLN_ENV); in 0 brackets around "
                    "something other than an index list are part of a simple name")
        ->check(CLI::Range(0, 6));

    CLI::App* expand = AddCommand(
        *net, options, context, "expand", "Member signals of each name, in written order",
        [](const NetOptions& o, CommandContext& c) { RunExpand(o, c, false); });
    expand->add_flag("--canonical", options->canonical, "Write every member with [ ]");
    AddNames(expand, *options, "NAME", "Net or bus names");

    AddNames(AddCommand(*net, options, context, "count",
                        "Number of signals (duplicates counted) and of distinct signals",
                        &RunCount),
             *options, "NAME", "Net or bus names");
    AddNames(AddCommand(*net, options, context, "unique", "Distinct signals of each name",
                        [](const NetOptions& o, CommandContext& c) { RunExpand(o, c, true); }),
             *options, "NAME", "Net or bus names");

    CLI::App* index =
        AddCommand(*net, options, context, "index",
                   "Position of each signal among the members of BUS, or -1", &RunIndex);
    index->add_option("BUS", options->first, "Bus name")->required();
    AddNames(index, *options, "SIGNAL", "Signals to find");

    AddNames(AddCommand(*net, options, context, "compose",
                        "The compact net name of a list of signals", &RunCompose),
             *options, "SIGNAL", "Signals in order");

    for (const bool add : {true, false})
    {
        CLI::App* slice = AddCommand(
            *net, options, context, add ? "add-slice" : "remove-slice",
            add ? "Add the members of SLICE to BUS" : "Remove the members of SLICE from BUS",
            add ? Runner([](const NetOptions& o, CommandContext& c) { RunSlice(o, c, true); })
                : Runner([](const NetOptions& o, CommandContext& c) { RunSlice(o, c, false); }));
        slice->add_option("BUS", options->first, "Bus name")->required();
        slice->add_option("SLICE", options->second, "Slice")->required();
    }

    CLI::App* merge = AddCommand(*net, options, context, "merge",
                                 "Merge two bus names of one base into the first", &RunMerge);
    merge->add_option("FIRST", options->first, "First bus name")->required();
    merge->add_option("SECOND", options->second, "Second bus name")->required();

    CLI::App* check = AddCommand(*net, options, context, "check",
                                 "Check names: wire (codes 15, 16, 21), instance (308, 309, "
                                 "310), simple or bus-base",
                                 &RunCheck);
    check->add_option("KIND", options->kind, "wire, instance, simple or bus-base")
        ->required()
        ->check(CLI::IsMember({"wire", "instance", "simple", "bus-base"}));
    AddNames(check, *options, "NAME", "Names to check");

    CLI::App* compare =
        AddCommand(*net, options, context, "compare",
                   "Compare two net names member by member (0 when equal)", &RunCompare);
    compare->add_option("A", options->first, "First name")->required();
    compare->add_option("B", options->second, "Second name")->required();
}

} // namespace qln::tool
