// qln: the command-line tool of the Quillon library. See "qln --help".
#include "CommandLine.h"

#include <cstdio>
#include <iostream>
#include <string>
#include <vector>

int main(int argc, char** argv)
{
    try
    {
        const std::vector<std::string> args(argv + 1, argv + argc);
        qln::tool::StreamOutput output(std::cout, std::cerr);
        qln::tool::CommandContext context(output, std::cin);
        const int exitCode = qln::tool::RunCommandLine(args, context);
        std::cout.flush();
        return exitCode;
    }
    catch (...)
    {
        std::fputs("qln: internal error\n", stderr);
        return qln::tool::kExitUsage;
    }
}
