#include "TextInput.h"

#include "ExitCode.h"

#include <gtest/gtest.h>

#include <sstream>
#include <streambuf>

using qln::tool::InputError;
using qln::tool::TextInput;

namespace
{

using Texts = std::vector<AString>;

TEST(TextInput, OneTakesTheNextLineForDash)
{
    std::istringstream stream("first\r\nsecond\n");
    TextInput input(stream);
    EXPECT_EQ(input.One("-", "A"), L"first");
    EXPECT_EQ(input.One("literal", "B"), L"literal");
    EXPECT_EQ(input.One("-", "C"), L"second");
    try
    {
        input.One("-", "PATTERN");
        FAIL() << "no line was left";
    }
    catch (const InputError& error)
    {
        EXPECT_STREQ(error.what(), "standard input has no line left for PATTERN");
    }
}

TEST(TextInput, ManyReplacesDashByTheRemainingLines)
{
    const struct
    {
        const char* input;
        std::vector<std::string> arguments;
        Texts texts;
    } cases[] = {
        {"x\ny\n", {"a", "-", "b"}, {L"a", L"x", L"y", L"b"}},
        {"x\ny", {"-"}, {L"x", L"y"}},
        {"x\n\ny\n", {"-"}, {L"x", L"", L"y"}},
        {"x\r\n", {"-", "-"}, {L"x"}},
        {"", {"-"}, {}},
        {"", {"a", "b"}, {L"a", L"b"}},
        {"\xC3\x84\n\xFF\n", {"-"}, {L"\u00C4", L"\uFFFD"}},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.input);
        std::istringstream stream(c.input);
        TextInput input(stream);
        EXPECT_EQ(input.Many(c.arguments), c.texts);
    }
}

// A stream whose reading fails, as a broken pipe or a read error would.
class FailingBuffer : public std::streambuf
{
protected:
    int_type underflow() override { throw std::ios_base::failure("device error"); }
};

TEST(TextInput, ReadErrorsAreInputErrors)
{
    FailingBuffer buffer;
    std::istream stream(&buffer);
    TextInput input(stream);
    EXPECT_THROW(input.Many({"-"}), InputError);
    EXPECT_EQ(input.Many({"not read"}), Texts{L"not read"});
}

} // namespace
