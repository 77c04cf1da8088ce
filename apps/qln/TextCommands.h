// The "text" family: the framework's text operations (whole-text wildcard matching with
// captures, case-insensitive comparison, strict number parsing, case mapping) for scripts and
// examples.
//   qln text match '*[*]' 'a[3]'   => "a[3]": yes "a" "3"
//   qln text compare Net1 NET1     => equal
//   qln text number 42 -1 x        => "42": int 42, unsigned 42, double 42 ... (exit 1: x)
//   qln text fold Äb               => upper: ÄB / lower: äb / folded: äb
#pragma once

#include "CommandContext.h"

namespace CLI
{
class App;
} // namespace CLI

namespace qln::tool
{

// Adds "text" and its sub-commands to `app`; they run in `context`.
void AddTextCommands(CLI::App& app, CommandContext& context);

} // namespace qln::tool
