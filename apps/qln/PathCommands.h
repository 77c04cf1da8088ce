// The "path" family of qln: stored paths with library variables converted, parsed, tidied,
// normalised and checked against the reference host's library roots and project folder.
#pragma once

#include "CommandContext.h"

namespace CLI
{
class App;
}

namespace qln::tool
{
// Adds "path" and its commands (to-full, to-vars, to-vars-anywhere, parse, tidy, normalize,
// env-of, libdir, exists) to `app`.
void AddPathCommands(CLI::App& app, CommandContext& context);
} // namespace qln::tool
