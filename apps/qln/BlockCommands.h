// The "block" family of qln: project files in the block text format checked, re-written in
// their canonical form and summarised.
#pragma once

#include "CommandContext.h"

namespace CLI
{
class App;
}

namespace qln::tool
{
// Adds "block" and its commands (check, fmt, stats) to `app`.
void AddBlockCommands(CLI::App& app, CommandContext& context);
} // namespace qln::tool
