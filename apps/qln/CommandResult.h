// What one command produced: plain-text lines for people and a JSON object for scripts.
// Commands fill both; the output layer prints one or the other.
#pragma once

#include "AString.h"

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace qln::tool
{

using Json = nlohmann::ordered_json;

class CommandResult
{
public:
    // `command` names the command, e.g. "text match"; it leads the JSON object.
    explicit CommandResult(std::string command);

    const std::string& Command() const { return mCommand; }
    // The fields of the JSON object after "command" (an object; starts empty).
    Json& Data() { return mData; }
    const Json& Data() const { return mData; }
    // The plain-text form, one line at a time, without line ends.
    void AddLine(std::string line);
    const std::vector<std::string>& Lines() const { return mLines; }

    // {"command": ..., the fields of Data()...}
    Json ToJson() const;
    // ToJson() on one line; invalid UTF-8 in texts becomes U+FFFD rather than failing.
    std::string ToJsonText() const;

private:
    std::string mCommand;
    Json mData = Json::object();
    std::vector<std::string> mLines;
};

// The UTF-8 form of a framework text, for output.
std::string Utf8(std::wstring_view text);

// `text` in double quotes with C-style escapes for quotes, back slashes and control
// characters, so that empty texts and blanks show in plain output.
//   a b   => "a b"
//   say "x" => "say \"x\""
//   (empty) => ""
std::string Quoted(std::string_view text);

} // namespace qln::tool
