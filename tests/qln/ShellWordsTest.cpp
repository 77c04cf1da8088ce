#include "ShellWords.h"

#include <gtest/gtest.h>

using qln::tool::SplitShellWords;

namespace
{

using Words = std::vector<std::string>;

TEST(ShellWords, SplitsLikeAShell)
{
    const struct
    {
        const char* line;
        Words words;
    } cases[] = {
        {"", {}},
        {" \t ", {}},
        {"a b\tc", {"a", "b", "c"}},
        {"  lead  and  trail  ", {"lead", "and", "trail"}},
        {"'a b' c", {"a b", "c"}},
        {"\"a b\"", {"a b"}},
        {"a\\ b", {"a b"}},
        {"a\\*", {"a*"}},
        {"'' x", {"", "x"}},
        {"\"\"", {""}},
        {"a'b'\"c\"d", {"abcd"}},
        {"\"x\\\"y\"", {"x\"y"}},
        {"\"\\\\ \\$ \\`\"", {"\\ $ `"}},
        // Inside double quotes a back slash before any other character stays.
        {"\"a\\*\"", {"a\\*"}},
        {"'a\\b'", {"a\\b"}},
        {"'say \"hi\"' \"it's\"", {"say \"hi\"", "it's"}},
        {"#not-a-comment x", {"#not-a-comment", "x"}},
        {"\"\xC3\x84 b\"", {"\xC3\x84 b"}},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.line);
        const auto result = SplitShellWords(c.line);
        EXPECT_EQ(result.error, "");
        EXPECT_EQ(result.words, c.words);
    }
}

TEST(ShellWords, RejectsUnfinishedQuotingAndEscapes)
{
    const struct
    {
        const char* line;
        const char* error;
    } cases[] = {
        {"text 'abc", "unterminated single quote"},
        {"'", "unterminated single quote"},
        {"a \"b", "unterminated double quote"},
        {"\"abc\\\"", "unterminated double quote"},
        {"abc\\", "back slash at the end of the line"},
        {"'ok' \"ok\" \\", "back slash at the end of the line"},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.line);
        const auto result = SplitShellWords(c.line);
        EXPECT_EQ(result.error, c.error);
        EXPECT_TRUE(result.words.empty());
    }
}

} // namespace
