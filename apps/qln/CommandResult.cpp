#include "CommandResult.h"

#include <cstdio>
#include <utility>

namespace qln::tool
{

CommandResult::CommandResult(std::string command) : mCommand(std::move(command)) {}

void CommandResult::AddLine(std::string line)
{
    mLines.push_back(std::move(line));
}

Json CommandResult::ToJson() const
{
    Json json = Json::object();
    json["command"] = mCommand;
    for (const auto& [key, value] : mData.items())
        json[key] = value;
    return json;
}

std::string CommandResult::ToJsonText() const
{
    return ToJson().dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string Utf8(std::wstring_view text)
{
    return AString::ToUTF8(text);
}

std::string Quoted(std::string_view text)
{
    std::string quoted = "\"";
    for (const char c : text)
    {
        switch (c)
        {
        case '"':
            quoted += "\\\"";
            break;
        case '\\':
            quoted += "\\\\";
            break;
        case '\n':
            quoted += "\\n";
            break;
        case '\r':
            quoted += "\\r";
            break;
        case '\t':
            quoted += "\\t";
            break;
        default:
            if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f)
            {
                char escape[8];
                std::snprintf(escape, sizeof escape, "\\x%02x", static_cast<unsigned char>(c));
                quoted += escape;
            }
            else
            {
                quoted += c;
            }
        }
    }
    quoted += '"';
    return quoted;
}

} // namespace qln::tool
