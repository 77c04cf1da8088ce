// The "value" family of qln: value texts as circuit designers type them (numbers with scale
// suffixes and units, quoted texts, expressions over variables), checked, evaluated, and the
// unit table they use.
//   qln value check '2*(3'                    => "2*(3": invalid at character 5: ')' expected
//   qln value eval 1.5pF                      => "1.5pF": 1.5e-12 F, real
//   qln value eval '2*R1' --var R1=10k        => "2*R1": 20000, real
//   qln value units                           => one line per unit: code, symbol, name, kind
#pragma once

#include "CommandContext.h"

namespace CLI
{
class App;
}

namespace qln::tool
{
// Adds "value" and its commands (check, eval, units) to `app`.
void AddValueCommands(CLI::App& app, CommandContext& context);
} // namespace qln::tool
