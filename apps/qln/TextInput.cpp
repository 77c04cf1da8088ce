#include "TextInput.h"

#include "ExitCode.h"

namespace qln::tool
{

namespace
{

constexpr std::string_view kStandardInput = "-";

} // namespace

TextInput::TextInput(std::istream& input) : mInput(input) {}

AString TextInput::One(const std::string& argument, std::string_view what)
{
    if (argument != kStandardInput)
        return AString::FromUTF8(argument);
    std::optional<std::string> line = NextLine();
    if (!line)
        throw InputError("standard input has no line left for " + std::string(what));
    return AString::FromUTF8(*line);
}

std::vector<AString> TextInput::Many(const std::vector<std::string>& arguments)
{
    std::vector<AString> texts;
    for (const std::string& argument : arguments)
    {
        if (argument != kStandardInput)
        {
            texts.push_back(AString::FromUTF8(argument));
            continue;
        }
        while (std::optional<std::string> line = NextLine())
            texts.push_back(AString::FromUTF8(*line));
    }
    return texts;
}

std::optional<std::string> TextInput::NextLine()
{
    std::string line;
    if (!std::getline(mInput, line))
    {
        if (mInput.bad())
            throw InputError("cannot read standard input");
        return std::nullopt;
    }
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return line;
}

} // namespace qln::tool
