// The tool's exit codes, and the error that stops a command on bad input.
#pragma once

#include <stdexcept>
#include <string>

namespace qln::tool
{

enum ExitCode : int
{
    kExitOk = 0,      // the command ran and every check passed
    kExitProblem = 1, // a check found a problem (a text that does not match, ...)
    kExitUsage = 2    // bad usage or unreadable input
};

// Bad input met while a command runs (an unreadable file, standard input ending early). The
// command stops; the tool reports the message on one line and exits with kExitUsage.
class InputError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace qln::tool
