// The "datatype" family of qln: stored data types expanded into their leaves, composite value
// texts checked against them, and output paths resolved inside model terminals.
//
// A data type file is a block file whose outermost block holds one data type in its block
// form (what WriteDataTypeInfo writes). A terminals file is a block file whose outermost block
// holds one block "Terminal" per model terminal: the terminal's name, then a sub-block "Info"
// with its data type:
//   Terminals { Terminal { "p" Info { "p" -1 "voltage" IsUnconstrained=false } } }
#pragma once

#include "CommandContext.h"

namespace CLI
{
class App;
}

namespace qln::tool
{
// Adds "datatype" and its commands (leaves, check-value, output) to `app`.
void AddDataTypeCommands(CLI::App& app, CommandContext& context);
} // namespace qln::tool
