// The "net" family of qln: net and bus names expanded, counted, composed, sliced, merged,
// checked and compared, in a chosen circuit environment.
#pragma once

#include "CommandContext.h"

namespace CLI
{
class App;
}

namespace qln::tool
{
// Adds "net" and its commands (expand, count, unique, index, compose, add-slice,
// remove-slice, merge, check, compare) to `app`.
void AddNetCommands(CLI::App& app, CommandContext& context);
} // namespace qln::tool
