// The "batch" command: runs qln command lines read from files, one per line, as if each were
// given on the command line. Blank lines and lines starting with "#" are skipped; words are
// split as a shell does for simple quoting. Plain output echoes "$ qln <line>" before each
// line's output; JSON output has one object per line with its results, errors and exit code.
// The exit code is the worst of all lines (an unreadable file counts as bad input).
//   qln batch examples/text.qln
#pragma once

#include "CommandContext.h"

#include <string>

namespace CLI
{
class App;
} // namespace CLI

namespace qln::tool
{

// Adds "batch" to `app`; it runs in `context`.
void AddBatchCommands(CLI::App& app, CommandContext& context);

// Runs the command lines of the file `path` in `context`.
void RunBatchFile(const std::string& path, CommandContext& context);

} // namespace qln::tool
