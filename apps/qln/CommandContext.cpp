#include "CommandContext.h"

#include <algorithm>

namespace qln::tool
{

CommandContext::CommandContext(Output& output, std::istream& input, bool nested)
    : mOutput(output), mInput(input), mNested(nested)
{
}

void CommandContext::Emit(const CommandResult& result)
{
    mOutput.Write(result, mJson);
}

void CommandContext::Error(const std::string& message)
{
    mOutput.Error(message);
}

void CommandContext::Report(int exitCode)
{
    mExitCode = std::max(mExitCode, exitCode);
}

} // namespace qln::tool
