#include "ShellWords.h"

namespace qln::tool
{

namespace
{

bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f';
}

// Characters that a back slash escapes inside double quotes.
bool IsEscapableInDoubleQuotes(char c)
{
    return c == '"' || c == '\\' || c == '$' || c == '`';
}

} // namespace

ShellWordsResult SplitShellWords(std::string_view line)
{
    ShellWordsResult result;
    std::string word;
    // A word exists once any part of it was read, so that '' yields an empty word.
    bool inWord = false;
    std::size_t i = 0;
    const auto fail = [&result](const char* message)
    {
        result.words.clear();
        result.error = message;
        return result;
    };

    while (i < line.size())
    {
        const char c = line[i];
        if (IsBlank(c))
        {
            if (inWord)
            {
                result.words.push_back(std::move(word));
                word.clear();
                inWord = false;
            }
            ++i;
        }
        else if (c == '\'')
        {
            const std::size_t close = line.find('\'', i + 1);
            if (close == std::string_view::npos)
                return fail("unterminated single quote");
            word.append(line.substr(i + 1, close - i - 1));
            inWord = true;
            i = close + 1;
        }
        else if (c == '"')
        {
            ++i;
            bool closed = false;
            while (i < line.size())
            {
                const char q = line[i];
                if (q == '"')
                {
                    closed = true;
                    ++i;
                    break;
                }
                if (q == '\\' && i + 1 < line.size() && IsEscapableInDoubleQuotes(line[i + 1]))
                {
                    word += line[i + 1];
                    i += 2;
                    continue;
                }
                word += q;
                ++i;
            }
            if (!closed)
                return fail("unterminated double quote");
            inWord = true;
        }
        else if (c == '\\')
        {
            if (i + 1 >= line.size())
                return fail("back slash at the end of the line");
            word += line[i + 1];
            inWord = true;
            i += 2;
        }
        else
        {
            word += c;
            inWord = true;
            ++i;
        }
    }
    if (inWord)
        result.words.push_back(std::move(word));
    return result;
}

} // namespace qln::tool
