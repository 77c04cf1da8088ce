#include "BatchCommands.h"

#include "CommandLine.h"
#include "ShellWords.h"

#include <CLI/CLI.hpp>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string_view>
#include <vector>

namespace qln::tool
{

namespace
{

struct BatchOptions
{
    std::vector<std::string> files;
};

std::string_view TrimBlanks(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t\r\n\v\f";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    const std::size_t last = text.find_last_not_of(kBlanks);
    return text.substr(first, last - first + 1);
}

// Runs one command line of a batch file and passes on its results, errors and exit code.
void RunLine(const std::string& path, int number, std::string_view line, CommandContext& context)
{
    CaptureOutput captured;
    int exitCode = kExitUsage;
    const ShellWordsResult split = SplitShellWords(line);
    if (!split.error.empty())
    {
        captured.Error(split.error);
    }
    else
    {
        CommandContext lineContext(captured, context.Input(), /*nested=*/true);
        exitCode = RunCommandLine(split.words, lineContext);
    }

    CommandResult result("batch");
    result.Data()["file"] = path;
    result.Data()["line"] = number;
    result.Data()["input"] = std::string(line);
    result.AddLine("$ qln " + std::string(line));
    Json results = Json::array();
    for (const CommandResult& lineResult : captured.Results())
    {
        results.push_back(lineResult.ToJson());
        for (const std::string& text : lineResult.Lines())
            result.AddLine(text);
    }
    result.Data()["exit"] = exitCode;
    result.Data()["results"] = std::move(results);
    result.Data()["errors"] = captured.Errors();
    context.Emit(result);

    const std::string where = path + ":" + std::to_string(number) + ": ";
    for (const std::string& error : captured.Errors())
        context.Error(where + error);
    context.Report(exitCode);
}

} // namespace

void RunBatchFile(const std::string& path, CommandContext& context)
{
    std::error_code error;
    if (std::filesystem::is_directory(path, error))
    {
        context.Error("batch: cannot read '" + path + "': it is a directory");
        context.Report(kExitUsage);
        return;
    }
    std::ifstream file(path, std::ios::binary);
    if (!file)
    {
        context.Error("batch: cannot read '" + path + "': " + std::strerror(errno));
        context.Report(kExitUsage);
        return;
    }

    std::string line;
    int number = 0;
    while (std::getline(file, line))
    {
        ++number;
        std::string_view text = line;
        // A byte order mark may start a file saved by a Windows editor.
        if (number == 1 && text.starts_with("\xEF\xBB\xBF"))
            text.remove_prefix(3);
        text = TrimBlanks(text);
        if (text.empty() || text.front() == '#')
            continue;
        RunLine(path, number, text, context);
    }
    if (file.bad())
    {
        context.Error("batch: error reading '" + path + "' after line " + std::to_string(number));
        context.Report(kExitUsage);
    }
}

void AddBatchCommands(CLI::App& app, CommandContext& context)
{
    auto options = std::make_shared<BatchOptions>();
    CLI::App* batch = app.add_subcommand("batch", "Run qln command lines from files");
    batch->footer("One command line per line; blank lines and lines starting with \"#\" are "
                  "skipped, and quotes work as in a shell.\nEchoes \"$ qln <line>\" before "
                  "the output of each line. Exits with the worst exit code of all lines.");
    batch->add_option("FILE", options->files, "Files of command lines")
        ->required()
        ->allow_extra_args();
    batch->callback(
        [options, &context]
        {
            if (context.IsNested())
                throw InputError("a batch file cannot run batch");
            for (const std::string& path : options->files)
                RunBatchFile(path, context);
        });
}

} // namespace qln::tool
