// The "component" family of qln: component definitions in block files (a "Component" block
// holding the name and the terminal list): the terminal table, checks of a gate's signal pins,
// and edits (new, add, remove, rename, set-count, ref-pins) that save the file atomically.
#pragma once

#include "CommandContext.h"

namespace CLI
{
class App;
}

namespace qln::tool
{
// Adds "component" and its commands to `app`.
void AddComponentCommands(CLI::App& app, CommandContext& context);
} // namespace qln::tool
