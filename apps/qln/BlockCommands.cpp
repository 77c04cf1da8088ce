#include "BlockCommands.h"

#include "BlockFile.h"
#include "BlockReader.h"
#include "BlockStats.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>
#include <vector>

namespace qln::tool
{

namespace
{

struct BlockOptions
{
    std::vector<std::string> files;
    bool inPlace = false;
};

void RunCheck(const BlockOptions& options, CommandContext& context)
{
    CommandResult result("block check");
    Json items = Json::array();
    for (const std::string& file : options.files)
    {
        io::BlockTextError error;
        const bool good = io::CheckBlockFile(AString::FromUTF8(file), &error);
        Json item = {{"file", file}, {"good", good}};
        if (good)
        {
            result.AddLine(file + ": good");
        }
        else
        {
            item["line"] = error.line;
            item["column"] = error.column;
            item["reason"] = Utf8(error.reason);
            context.Error(Utf8(error.Describe(AString::FromUTF8(file))));
            context.Report(kExitProblem);
        }
        items.push_back(std::move(item));
    }
    result.Data()["results"] = std::move(items);
    context.Emit(result);
}

void RunFormat(const BlockOptions& options, CommandContext& context)
{
    for (const std::string& file : options.files)
    {
        const AString path = AString::FromUTF8(file);
        io::BlockTextError error;
        CommandResult result("block fmt");
        result.Data()["file"] = file;
        if (options.inPlace)
        {
            bool changed = false;
            if (!io::ReformatBlockFile(path, &changed, &error))
            {
                throw InputError(Utf8(error.Describe(path)));
            }
            result.Data()["changed"] = changed;
            result.AddLine(file + (changed ? ": re-written" : ": already canonical"));
        }
        else
        {
            std::string text;
            if (!io::FormatBlockFile(path, text, &error))
            {
                throw InputError(Utf8(error.Describe(path)));
            }
            result.Data()["text"] = text;
            if (!text.empty() && text.back() == '\n')
            {
                text.pop_back();
            }
            result.AddLine(text);
        }
        context.Emit(result);
    }
}

void RunStats(const BlockOptions& options, CommandContext& context)
{
    for (const std::string& file : options.files)
    {
        const AString path = AString::FromUTF8(file);
        io::BlockStats stats;
        io::BlockTextError error;
        if (!io::GetBlockFileStats(path, stats, &error))
        {
            throw InputError(Utf8(error.Describe(path)));
        }
        CommandResult result("block stats");
        Json names = Json::object();
        for (const auto& [name, count] : stats.names)
        {
            names[Utf8(name)] = count;
        }
        result.Data()["file"] = file;
        result.Data()["items"] = stats.Items();
        result.Data()["blocks"] = stats.blocks;
        result.Data()["values"] = stats.values;
        result.Data()["namedValues"] = stats.namedValues;
        result.Data()["depth"] = stats.depth;
        result.Data()["memoryBytes"] = stats.memoryBytes;
        result.Data()["names"] = std::move(names);
        result.AddLine(file + ": " + std::to_string(stats.Items()) + " items (" +
                       std::to_string(stats.blocks) + " blocks, " + std::to_string(stats.values) +
                       " values, " + std::to_string(stats.namedValues) + " named values), depth " +
                       std::to_string(stats.depth) + ", " + std::to_string(stats.memoryBytes) +
                       " bytes in memory");
        for (const auto& [name, count] : stats.names)
        {
            result.AddLine("  " + Utf8(name) + ": " + std::to_string(count));
        }
        context.Emit(result);
    }
}

} // namespace

void AddBlockCommands(CLI::App& app, CommandContext& context)
{
    CLI::App* block =
        app.add_subcommand("block", "Project files in the block text format: check, fmt, stats");
    block->require_subcommand(1);

    auto options = std::make_shared<BlockOptions>();
    CLI::App* check = block->add_subcommand(
        "check", "Whether files read as block files; exit 1 and file:line:column: reason if not");
    check->add_option("FILE", options->files, "Files")->required()->allow_extra_args();
    check->callback([options, &context] { RunCheck(*options, context); });

    CLI::App* format = block->add_subcommand(
        "fmt", "The canonical text of a file, on standard output or written back atomically");
    format->add_option("FILE", options->files, "Files")->required()->allow_extra_args();
    format->add_flag("--in-place", options->inPlace,
                     "Re-write each file in place (atomically; canonical files are left alone)");
    format->callback([options, &context] { RunFormat(*options, context); });

    CLI::App* stats =
        block->add_subcommand("stats", "Items, depth, memory and the names used in files");
    stats->add_option("FILE", options->files, "Files")->required()->allow_extra_args();
    stats->callback([options, &context] { RunStats(*options, context); });
}

} // namespace qln::tool
