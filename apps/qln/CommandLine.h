// The qln command line: builds the command tree (one family of sub-commands per service) and
// runs one command line in a context. Nothing throws out of it: every failure becomes an
// error message and an exit code.
#pragma once

#include "CommandContext.h"

#include <string>
#include <vector>

namespace qln::tool
{

// Runs the command line `args` (without the program name) and returns its exit code: the
// worst that its commands reported, kExitUsage on bad usage or unreadable input.
//   {"text", "compare", "a", "A"} => writes "equal", returns 0
//   {"text", "frobnicate"}        => error "text: unknown command 'frobnicate'; see
//                                    'qln text --help'", returns 2
int RunCommandLine(const std::vector<std::string>& args, CommandContext& context);

} // namespace qln::tool
