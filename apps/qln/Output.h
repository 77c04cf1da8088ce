// Where command results and error messages go: printed to streams (the tool's standard output
// and error) or kept for a caller that prints them itself (the batch command).
#pragma once

#include "CommandResult.h"

#include <ostream>
#include <string>
#include <vector>

namespace qln::tool
{

class Output
{
public:
    virtual ~Output() = default;
    // One command's result, in JSON form when `json` is set.
    virtual void Write(const CommandResult& result, bool json) = 0;
    // One problem, as a single line without the "qln: " prefix.
    virtual void Error(const std::string& message) = 0;
};

// Plain text: the result's lines. JSON: one object per line (JSON Lines). Errors go to the
// error stream as "qln: message" after the results so far are flushed, so that a terminal
// shows them in order.
class StreamOutput final : public Output
{
public:
    StreamOutput(std::ostream& out, std::ostream& err);
    void Write(const CommandResult& result, bool json) override;
    void Error(const std::string& message) override;

private:
    std::ostream& mOut;
    std::ostream& mErr;
};

// Keeps everything, in order.
class CaptureOutput final : public Output
{
public:
    void Write(const CommandResult& result, bool json) override;
    void Error(const std::string& message) override;

    const std::vector<CommandResult>& Results() const { return mResults; }
    const std::vector<std::string>& Errors() const { return mErrors; }

private:
    std::vector<CommandResult> mResults;
    std::vector<std::string> mErrors;
};

} // namespace qln::tool
