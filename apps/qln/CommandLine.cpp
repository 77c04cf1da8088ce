#include "CommandLine.h"

#include "BatchCommands.h"
#include "BlockCommands.h"
#include "ComponentCommands.h"
#include "DataTypeCommands.h"
#include "NetCommands.h"
#include "PathCommands.h"
#include "Profiler.h"
#include "QuillonVersion.h"
#include "RefApplication.h"
#include "TextCommands.h"
#include "ValueCommands.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <exception>
#include <new>
#include <optional>
#include <sstream>

namespace qln::tool
{

namespace
{

constexpr const char* kExitCodesFooter =
    "Exit codes: 0 ok, 1 a check found a problem, 2 bad usage or unreadable input.\n"
    "A text argument given as \"-\" is read from standard input, one text per line.";

// The deepest sub-command that the parse reached, and the path of names to it
// ("text match").
const CLI::App& SelectedCommand(const CLI::App& app, std::string& path)
{
    const CLI::App* current = &app;
    while (true)
    {
        const std::vector<CLI::App*> selected = current->get_subcommands();
        if (selected.empty())
            return *current;
        current = selected.front();
        if (!path.empty())
            path += ' ';
        path += current->get_name();
    }
}

// The one-line message of a parse error. CLI11 only says that a sub-command is required
// when the word given is not one; name that word instead.
std::string ParseErrorMessage(const CLI::App& app, const CLI::ParseError& error)
{
    std::string path;
    const CLI::App& selected = SelectedCommand(app, path);
    std::string message = path.empty() ? "" : path + ": ";
    const bool wantsCommand = dynamic_cast<const CLI::RequiredError*>(&error) != nullptr &&
                              !selected.get_subcommands({}).empty();
    // Words that nothing took are left over at the top, where the global options live.
    const std::vector<std::string> leftOver = app.remaining();
    if (wantsCommand && !leftOver.empty())
        message += "unknown command '" + leftOver.front() + "'";
    else if (wantsCommand)
        message += "a command is required";
    else
        message += error.what();
    return message + "; see 'qln " + (path.empty() ? "" : path + " ") + "--help'";
}

// Emits the text that CLI11 printed for --help or --version as a result.
void EmitText(CommandContext& context, const std::string& command, const std::string& text)
{
    CommandResult result(command);
    result.Data()["text"] = text;
    std::istringstream lines(text);
    std::string line;
    while (std::getline(lines, line))
        result.AddLine(line);
    context.Emit(result);
}

// Emits the profiler's table (rows sorted by total time) as a result.
void EmitProfile(CommandContext& context)
{
    CommandResult result("profile");
    Json rows = Json::array();
    for (const ProfileRow& row : Profiler::GetRows())
    {
        rows.push_back({{"name", row.name},
                        {"calls", row.calls},
                        {"total_ns", row.total.count()},
                        {"mean_ns", row.Mean().count()}});
    }
    result.Data()["rows"] = rows;
    std::ostringstream table;
    Profiler::Print(table);
    std::istringstream lines(table.str());
    std::string line;
    while (std::getline(lines, line))
        result.AddLine(line);
    context.Emit(result);
}

// Whether the global --profile flag is among the words (it may stand anywhere).
bool WantsProfile(const std::vector<std::string>& args)
{
    return std::find(args.begin(), args.end(), "--profile") != args.end();
}

void AddFamilies(CLI::App& app, CommandContext& context)
{
    AddTextCommands(app, context);
    AddNetCommands(app, context);
    AddValueCommands(app, context);
    AddPathCommands(app, context);
    AddBlockCommands(app, context);
    AddComponentCommands(app, context);
    AddDataTypeCommands(app, context);
    AddBatchCommands(app, context);
}

} // namespace

int RunCommandLine(const std::vector<std::string>& args, CommandContext& context)
{
    // Commands run while the line is parsed, so profiling starts before the parse.
    const bool profile = WantsProfile(args) && !Profiler::IsEnabled();
    if (profile)
    {
        Profiler::Reset();
        Profiler::Enable();
    }
    struct ProfileReport
    {
        bool active;
        CommandContext& context;
        ~ProfileReport()
        {
            if (active)
            {
                Profiler::Disable();
                try
                {
                    EmitProfile(context);
                }
                catch (...)
                {
                    context.Error("profile: could not print the table");
                }
            }
        }
    } report{profile, context};
    // The library asks its host for the environment and the library roots: the tool's host is
    // the reference host, unless one is installed already (a batch line runs in its caller's).
    std::optional<refhost::RefApplication> host;
    if (GetIMerrowApplication() == nullptr)
    {
        host.emplace();
    }
    try
    {
        CLI::App app("Circuit-design name and text services from the command line.", "qln");
        app.footer(kExitCodesFooter);
        app.require_subcommand(1);
        // Global options may also follow the sub-command.
        app.fallthrough();
        app.add_flag("--json", context.Json(),
                     "Print each result as one JSON object per line, for scripts");
        app.add_flag("--profile")
            ->description(
                "Count calls and time of the library's hot paths and print a table at the end");
        app.set_version_flag("--version", std::string("qln ") + GetQuillonVersion(),
                             "Print the version and exit");
        AddFamilies(app, context);

        std::vector<std::string> reversed(args.rbegin(), args.rend());
        try
        {
            app.parse(reversed);
        }
        catch (const CLI::CallForHelp&)
        {
            EmitText(context, "help", app.help());
            return context.GetExitCode();
        }
        catch (const CLI::CallForAllHelp&)
        {
            EmitText(context, "help", app.help("", CLI::AppFormatMode::All));
            return context.GetExitCode();
        }
        catch (const CLI::CallForVersion& version)
        {
            CommandResult result("version");
            result.Data()["version"] = GetQuillonVersion();
            result.AddLine(version.what());
            context.Emit(result);
            return context.GetExitCode();
        }
        catch (const CLI::Success&)
        {
            return context.GetExitCode();
        }
        catch (const CLI::ParseError& error)
        {
            context.Error(ParseErrorMessage(app, error));
            context.Report(kExitUsage);
            return context.GetExitCode();
        }
        catch (const InputError& error)
        {
            std::string command;
            SelectedCommand(app, command);
            context.Error(command.empty() ? error.what() : command + ": " + error.what());
            context.Report(kExitUsage);
            return context.GetExitCode();
        }
        return context.GetExitCode();
    }
    catch (const std::bad_alloc&)
    {
        context.Error("out of memory");
    }
    catch (const std::exception& error)
    {
        context.Error(std::string("internal error: ") + error.what());
    }
    catch (...)
    {
        context.Error("internal error");
    }
    context.Report(kExitUsage);
    return context.GetExitCode();
}

} // namespace qln::tool
