// What the commands of one qln command line share: where results go, standard input, the
// global options and the exit code so far.
#pragma once

#include "ExitCode.h"
#include "Output.h"

#include <istream>
#include <string>

namespace qln::tool
{

class CommandContext
{
public:
    // `nested` marks a command line run from a batch file.
    CommandContext(Output& output, std::istream& input, bool nested = false);

    Output& GetOutput() { return mOutput; }
    std::istream& Input() { return mInput; }
    bool IsNested() const { return mNested; }

    // The global --json option, bound by the command line.
    bool& Json() { return mJson; }
    bool IsJson() const { return mJson; }

    // Writes a result in the chosen form.
    void Emit(const CommandResult& result);
    // Reports one problem (one line, without the "qln: " prefix).
    void Error(const std::string& message);
    // Records an exit code; the worst one wins.
    void Report(int exitCode);
    int GetExitCode() const { return mExitCode; }

private:
    Output& mOutput;
    std::istream& mInput;
    bool mNested;
    bool mJson = false;
    int mExitCode = kExitOk;
};

} // namespace qln::tool
