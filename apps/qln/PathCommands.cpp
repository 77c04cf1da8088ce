#include "PathCommands.h"

#include "CurrentCircuitEnvironment.h"
#include "QLNFileUtility.h"
#include "RefApplication.h"
#include "RefManagers.h"
#include "RefProject.h"
#include "TextInput.h"

#include <CLI/CLI.hpp>

#include <array>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace qln::tool
{

namespace
{

struct PathOptions
{
    std::string project;
    std::string sysLib;
    std::string userLib;
    std::string personalLib;
    bool sysLibGiven = false;
    bool userLibGiven = false;
    bool personalLibGiven = false;
    std::string location;
    std::vector<std::string> paths;
};

constexpr std::array<const char*, 4> kLocationNames = {"$SYSLIB", "$USERLIB", "$PERSONALLIB",
                                                       "$PROJECTDIR"};

std::string LocationName(LibraryLocation location)
{
    return location >= kSysLib && location <= kProjectDir ? kLocationNames[location] : "none";
}

// The design manager the path functions resolve $PROJECTDIR through: a project of the
// reference host in the --project folder, or one with no project open.
IDesignMgr* DesignManager(const PathOptions& options)
{
    auto* host = dynamic_cast<refhost::RefApplication*>(GetIMerrowApplication());
    if (host == nullptr)
    {
        return nullptr;
    }
    if (options.sysLibGiven)
    {
        host->SetSysLibDirectory(AString::FromUTF8(options.sysLib));
    }
    if (options.userLibGiven)
    {
        host->SetUserLibDirectory(AString::FromUTF8(options.userLib));
    }
    if (options.personalLibGiven)
    {
        host->SetPersonalLibDirectory(AString::FromUTF8(options.personalLib));
    }
    const AString folder = AString::FromUTF8(options.project);
    // A batch file runs its lines in one host: the tool's project is made anew for each.
    host->CloseProject(host->FindProject(L"qln"));
    refhost::RefProject& project = host->AddProject(L"qln", folder);
    refhost::RefDesignMgr& manager = project.GetDesignMgr();
    manager.SetProjectOpen(!folder.empty());
    return &manager;
}

// LOCATION as a number (0 to 3) or a variable name with or without "$", any case.
LibraryLocation ParseLocation(const std::string& text)
{
    const AString word = AString::FromUTF8(text);
    int number = 0;
    if (word.IsNumber(number, 10))
    {
        return static_cast<LibraryLocation>(number);
    }
    for (int i = 0; i < static_cast<int>(kLocationNames.size()); ++i)
    {
        const AString name = AString::FromUTF8(kLocationNames[static_cast<std::size_t>(i)]);
        if (name.CompareNoCase(word) == 0 || name.Mid(1).CompareNoCase(word) == 0)
        {
            return static_cast<LibraryLocation>(i);
        }
    }
    throw InputError("unknown library location '" + text +
                     "' (0 to 3, or SYSLIB, USERLIB, PERSONALLIB, PROJECTDIR)");
}

using Conversion = AString (*)(const AString& path, IDesignMgr* manager);

// Runs a text-to-text conversion on every path: one line per path, "input => output".
void RunConversion(const PathOptions& options, CommandContext& context, const char* name,
                   Conversion convert)
{
    IDesignMgr* manager = DesignManager(options);
    TextInput input(context.Input());
    CommandResult result(std::string("path ") + name);
    Json items = Json::array();
    for (const AString& path : input.Many(options.paths))
    {
        const AString converted = convert(path, manager);
        items.push_back(
            {{"path", Utf8(path)}, {"result", Utf8(converted)}, {"changed", converted != path}});
        result.AddLine(Utf8(path) + " => " + Utf8(converted));
    }
    result.Data()["results"] = std::move(items);
    context.Emit(result);
}

void RunParse(const PathOptions& options, CommandContext& context)
{
    IDesignMgr* manager = DesignManager(options);
    TextInput input(context.Input());
    CommandResult result("path parse");
    Json items = Json::array();
    bool allParsed = true;
    for (const AString& path : input.Many(options.paths))
    {
        AString rest;
        LibraryLocation location = kNoLibLocation;
        const bool parsed = ParseFilePathWithoutVariables(path, rest, location, manager);
        allParsed = allParsed && parsed;
        items.push_back({{"path", Utf8(path)},
                         {"parsed", parsed},
                         {"location", static_cast<int>(location)},
                         {"variable", LocationName(location)},
                         {"rest", Utf8(rest)}});
        result.AddLine(Utf8(path) + ": " +
                       (parsed ? LocationName(location) + " " + Utf8(rest)
                               : "no library root (location " +
                                     std::to_string(static_cast<int>(location)) + ")"));
    }
    result.Data()["results"] = std::move(items);
    context.Emit(result);
    if (!allParsed)
    {
        context.Report(kExitProblem);
    }
}

void RunEnvironmentOf(const PathOptions& options, CommandContext& context)
{
    TextInput input(context.Input());
    CommandResult result("path env-of");
    Json items = Json::array();
    for (const AString& path : input.Many(options.paths))
    {
        AString rest;
        LibraryLocation location = kNoLibLocation;
        if (!ParseFilePathVariables(path, rest, location))
        {
            location = kNoLibLocation;
        }
        const CircuitEnvironment environment =
            qln::GetCircuitEnvironmentFromFilePath(location, rest);
        items.push_back({{"path", Utf8(path)}, {"environment", static_cast<int>(environment)}});
        result.AddLine(Utf8(path) + ": " + std::to_string(static_cast<int>(environment)));
    }
    result.Data()["results"] = std::move(items);
    context.Emit(result);
}

void RunLibraryDirectory(const PathOptions& options, CommandContext& context)
{
    const LibraryLocation location = ParseLocation(options.location);
    IDesignMgr* manager = DesignManager(options);
    const AString directory = GetLibraryDirectory(location, manager);
    CommandResult result("path libdir");
    result.Data()["location"] = static_cast<int>(location);
    result.Data()["directory"] = Utf8(directory);
    result.AddLine(Utf8(directory));
    context.Emit(result);
    if (directory.empty())
    {
        context.Error("path libdir: no directory is known for " + LocationName(location));
        context.Report(kExitProblem);
    }
}

void RunExists(const PathOptions& options, CommandContext& context)
{
    IDesignMgr* manager = DesignManager(options);
    TextInput input(context.Input());
    CommandResult result("path exists");
    Json items = Json::array();
    bool allExist = true;
    for (const AString& path : input.Many(options.paths))
    {
        AString full;
        const bool exists = merrowutility::VerifyFileExistence(manager, path, &full);
        allExist = allExist && exists;
        items.push_back({{"path", Utf8(path)}, {"full", Utf8(full)}, {"exists", exists}});
        result.AddLine(Utf8(path) + ": " + (exists ? "exists " : "missing ") + Utf8(full));
    }
    result.Data()["results"] = std::move(items);
    context.Emit(result);
    if (!allExist)
    {
        context.Report(kExitProblem);
    }
}

void AddPaths(CLI::App* command, PathOptions& options)
{
    command->add_option("PATH", options.paths, "Paths")->required()->allow_extra_args();
}

} // namespace

void AddPathCommands(CLI::App& app, CommandContext& context)
{
    CLI::App* path = app.add_subcommand(
        "path", "Paths with library variables: convert, parse, tidy, normalise, check");
    path->require_subcommand(1);
    path->footer(
        "The library roots come from --syslib, --userlib and --personallib (or QLN_SYSLIB, "
        "QLN_USERLIB and QLN_PERSONALLIB), the project folder from --project (or "
        "QLN_PROJECTDIR).\nPaths are one per "
        "argument, or one per line on standard input for \"-\". A path that cannot be "
        "converted comes back unchanged.");
    auto options = std::make_shared<PathOptions>();
    if (const char* project = std::getenv("QLN_PROJECTDIR"))
    {
        options->project = project;
    }
    path->add_option("--project", options->project, "Folder of the open project ($PROJECTDIR)");
    path->add_option_function<std::string>(
        "--syslib",
        [options](const std::string& folder)
        {
            options->sysLib = folder;
            options->sysLibGiven = true;
        },
        "System library folder ($SYSLIB), instead of QLN_SYSLIB");
    path->add_option_function<std::string>(
        "--userlib",
        [options](const std::string& folder)
        {
            options->userLib = folder;
            options->userLibGiven = true;
        },
        "User library folder ($USERLIB), instead of QLN_USERLIB");
    path->add_option_function<std::string>(
        "--personallib",
        [options](const std::string& folder)
        {
            options->personalLib = folder;
            options->personalLibGiven = true;
        },
        "Personal library folder ($PERSONALLIB), instead of QLN_PERSONALLIB");

    struct Converter
    {
        const char* name;
        const char* description;
        Conversion convert;
    };
    const Converter converters[] = {
        {"to-full", "Stored form to full path: the variable replaced by its folder",
         [](const AString& p, IDesignMgr* m) { return ConvertFilePathVariablesToFullPath(p, m); }},
        {"to-vars", "Full path to stored form when it begins with a library root",
         [](const AString& p, IDesignMgr* m) { return ConvertFullPathToPathVariables(p, m); }},
        {"to-vars-anywhere", "Replace the first library root found anywhere in the text",
         [](const AString& p, IDesignMgr* m)
         { return merrowutility::ConvertPathToVariables(m, p); }},
        {"tidy", "Back slashes, single separators, no trailing separator",
         [](const AString& p, IDesignMgr*) { return TidyFilePath(p); }},
        {"normalize", "Back slashes, with \"\\..\" steps folded",
         [](const AString& p, IDesignMgr*) { return NormalizeFilePath(p); }},
    };
    for (const Converter& converter : converters)
    {
        CLI::App* command = path->add_subcommand(converter.name, converter.description);
        const Converter copy = converter;
        command->callback([options, &context, copy]
                          { RunConversion(*options, context, copy.name, copy.convert); });
        AddPaths(command, *options);
    }

    CLI::App* parse = path->add_subcommand(
        "parse", "Library root (location) and rest of stored or full paths; exit 1 for none");
    parse->callback([options, &context] { RunParse(*options, context); });
    AddPaths(parse, *options);

    CLI::App* environment = path->add_subcommand(
        "env-of", "Circuit environment of a system-library path (6 when unknown)");
    environment->callback([options, &context] { RunEnvironmentOf(*options, context); });
    AddPaths(environment, *options);

    CLI::App* libdir =
        path->add_subcommand("libdir", "The folder a library location stands for; exit 1 if none");
    libdir
        ->add_option("LOCATION", options->location,
                     "0 to 3, or SYSLIB, USERLIB, PERSONALLIB, PROJECTDIR")
        ->required();
    libdir->callback([options, &context] { RunLibraryDirectory(*options, context); });

    CLI::App* exists =
        path->add_subcommand("exists", "Whether files exist (paths may hold variables); exit 1 "
                                       "when one is missing");
    exists->callback([options, &context] { RunExists(*options, context); });
    AddPaths(exists, *options);
}

} // namespace qln::tool
