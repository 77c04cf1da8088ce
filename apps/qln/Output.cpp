#include "Output.h"

namespace qln::tool
{

namespace
{

// Messages are one line each, whatever the text that they quote.
std::string OneLine(std::string text)
{
    for (char& c : text)
    {
        if (c == '\n' || c == '\r')
            c = ' ';
    }
    while (!text.empty() && text.back() == ' ')
        text.pop_back();
    return text;
}

} // namespace

StreamOutput::StreamOutput(std::ostream& out, std::ostream& err) : mOut(out), mErr(err) {}

void StreamOutput::Write(const CommandResult& result, bool json)
{
    if (json)
    {
        mOut << result.ToJsonText() << '\n';
        return;
    }
    for (const std::string& line : result.Lines())
        mOut << line << '\n';
}

void StreamOutput::Error(const std::string& message)
{
    mOut.flush();
    mErr << "qln: " << OneLine(message) << '\n';
    mErr.flush();
}

void CaptureOutput::Write(const CommandResult& result, bool)
{
    mResults.push_back(result);
}

void CaptureOutput::Error(const std::string& message)
{
    mErrors.push_back(OneLine(message));
}

} // namespace qln::tool
