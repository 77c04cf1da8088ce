// Runs qln command lines in-process for the tool's tests.
#pragma once

#include "CommandLine.h"

#include <sstream>
#include <string>
#include <vector>

struct ToolRun
{
    int exitCode;
    std::string out;
    std::string err;
};

// The exit code and both output streams of `args` run with `input` as standard input.
inline ToolRun RunQln(const std::vector<std::string>& args, const std::string& input = "")
{
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream err;
    qln::tool::StreamOutput output(out, err);
    qln::tool::CommandContext context(output, in);
    const int exitCode = qln::tool::RunCommandLine(args, context);
    return {exitCode, out.str(), err.str()};
}
