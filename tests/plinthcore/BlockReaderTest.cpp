#include "BlockReader.h"

#include "BlockWriter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

namespace
{
using io::BlockReadLimits;
using io::BlockTextError;
using io::CBlock_func;
using io::CBlock_value;

CBlock_func Read(std::string_view text)
{
    CBlock_func root;
    BlockTextError error;
    EXPECT_TRUE(io::ReadBlockText(text, root, &error))
        << error.line << ":" << error.column << ": " << error.reason.ToUTF8();
    return root;
}

TEST(BlockReader, ReadsNamesClassWordsAndEveryKindOfItem)
{
    const CBlock_func root = Read("# a project file\n"
                                  "Component : CircuitDef {\n"
                                  "    \"R1\" -12 2.5 true false\n"
                                  "    Terminal { \"IN\" \"1\" }\n"
                                  "    Scale = 1e3  Name=\"x\"\n"
                                  "    \"0\" { 0 }   # enumeration literal as a name\n"
                                  "    \"odd key\"=nan\n"
                                  "    Empty:\"class word\"{}\n"
                                  "}\n");
    EXPECT_EQ(root.GetName(), L"Component");
    EXPECT_EQ(root.GetClassWord(), L"CircuitDef");
    ASSERT_EQ(root.GetItemCount(), 11u);
    EXPECT_EQ(root.GetItem(0).GetValue(), CBlock_value(L"R1"));
    EXPECT_EQ(root.GetItem(1).GetValue(), CBlock_value(-12));
    EXPECT_EQ(root.GetItem(2).GetValue(), CBlock_value(2.5));
    EXPECT_EQ(root.GetItem(3).GetValue(), CBlock_value(true));
    EXPECT_EQ(root.GetItem(4).GetValue(), CBlock_value(false));
    ASSERT_TRUE(root.GetItem(5).IsBlock());
    EXPECT_EQ(root.GetItem(5).GetBlock()->GetItemCount(), 2u);
    EXPECT_EQ(*root.FindNamedValue(L"Scale"), CBlock_value(1000.0)) << "an exponent makes a real";
    EXPECT_EQ(*root.FindNamedValue(L"Name"), CBlock_value(L"x"));
    ASSERT_NE(root.FindBlock(L"0"), nullptr);
    EXPECT_TRUE(std::isnan(root.FindNamedValue(L"odd key")->GetReal()));
    ASSERT_NE(root.FindBlock(L"Empty"), nullptr);
    EXPECT_EQ(root.FindBlock(L"Empty")->GetClassWord(), L"class word");
    EXPECT_TRUE(root.FindBlock(L"Empty")->IsEmpty());
    EXPECT_EQ(root.FindBlock(L"Terminal")->GetDepth(), 2u);
}

// {escaped text as written, the characters it stands for}
struct EscapeCase
{
    const char* written;
    std::wstring text;
};

TEST(BlockReader, DecodesEveryEscape)
{
    const EscapeCase cases[] = {
        {R"("\"")", L"\""},
        {R"("\\")", L"\\"},
        {R"("a\nb\rc")", L"a\nb\rc"},
        {R"("\t\v\a\b\f")", L"\t\v\a\b\f"},
        {R"("\0")", std::wstring(1, L'\0')},
        {R"("\u{1B}\u{7f}")", L"\x1B\x7F"},
        {R"("\u{0}")", std::wstring(1, L'\0')},
        {R"("\u{10FFFF}")", L"\U0010FFFF"},
        {R"("\u{e9}t\u{E9}")", L"\u00E9t\u00E9"},
        {"\"\xC3\xA9t\xC3\xA9 \xF0\x9F\x98\x80\"", L"\u00E9t\u00E9 \U0001F600"},
        {R"("")", L""},
        {R"("# not a comment")", L"# not a comment"},
    };
    for (const EscapeCase& c : cases)
    {
        SCOPED_TRACE(c.written);
        const CBlock_func root = Read(std::string("B { ") + c.written + " }");
        AString text;
        ASSERT_TRUE(root.GetItem(0).GetValue().Get(text));
        EXPECT_EQ(text, c.text);
    }
}

// {number as written, whether it is a real, its value}
struct NumberCase
{
    const char* written;
    bool real;
    double realValue;
    std::int64_t integer;
};

TEST(BlockReader, ReadsIntegersAndRealsAtTheirLimits)
{
    const double max = std::numeric_limits<double>::max();
    const NumberCase cases[] = {
        {"0", false, 0, 0},
        {"-0", false, 0, 0},
        {"007", false, 0, 7},
        {"9223372036854775807", false, 0, std::numeric_limits<std::int64_t>::max()},
        {"-9223372036854775808", false, 0, std::numeric_limits<std::int64_t>::min()},
        {"0.5", true, 0.5, 0},
        {"-0.0", true, -0.0, 0},
        {"1e+300", true, 1e300, 0},
        {"1E-3", true, 1e-3, 0},
        {"5e-324", true, 5e-324, 0},
        {"1.7976931348623157e+308", true, max, 0},
        {"0.1", true, 0.1, 0},
        {"inf", true, std::numeric_limits<double>::infinity(), 0},
        {"-inf", true, -std::numeric_limits<double>::infinity(), 0},
    };
    for (const NumberCase& c : cases)
    {
        SCOPED_TRACE(c.written);
        const CBlock_func root = Read(std::string("B { ") + c.written + " }");
        const CBlock_value value = root.GetItem(0).GetValue();
        ASSERT_EQ(value.IsReal(), c.real);
        if (c.real)
        {
            EXPECT_EQ(value.GetReal(), c.realValue);
            EXPECT_EQ(std::signbit(value.GetReal()), std::signbit(c.realValue));
        }
        else
        {
            EXPECT_EQ(value.GetInteger(), c.integer);
        }
    }
}

TEST(BlockReader, AcceptsByteOrderMarkCrLfTabsAndComments)
{
    const CBlock_func root = Read("\xEF\xBB\xBF#c\r\nB\t{\r\n\t1 # one\r\n#}\r\n\t2}# end");
    EXPECT_EQ(root.GetName(), L"B");
    EXPECT_EQ(root.GetItemCount(), 2u);
}

// {input, line, column, words the reason holds}
struct ErrorCase
{
    const char* input;
    std::size_t line;
    std::size_t column;
    const char* reason;
};

TEST(BlockReader, ReportsWhereAndWhyTextIsBad)
{
    const ErrorCase cases[] = {
        {"", 1, 1, "holds no block"},
        {"  # only a comment\n", 2, 1, "holds no block"},
        {"{ }", 1, 1, "must start with the name"},
        {"B", 1, 1, "expected '{' after the block name 'B'"},
        {"B {", 1, 4, "ends inside the block 'B' opened on line 1"},
        {"B {\n  C {\n  }\n", 4, 1, "ends inside the block 'B'"},
        {"B { } C { }", 1, 7, "unexpected text after the end of the block 'B'"},
        {"B { \"abc }", 1, 5, "no closing quote"},
        {"B { \"abc\n\" }", 1, 5, "no closing quote on its line"},
        {"B { \"a\tb\" }", 1, 7, "U+0009 must be written as an escape"},
        {"B { \"\\q\" }", 1, 6, "unknown escape '\\q'"},
        {"B { \"\\u{D800}\" }", 1, 6, "U+D800 is not a Unicode character"},
        {"B { \"\\u{110000}\" }", 1, 6, "U+110000 is not a Unicode character"},
        {"B { \"\\u{1234567}\" }", 1, 6, "1 to 6 hexadecimal digits"},
        {"B { \"\\u{}\" }", 1, 6, "1 to 6 hexadecimal digits"},
        {"B { \"\\u41\" }", 1, 6, "followed by a code point in braces"},
        {"B { \"\xC3\" }", 1, 6, "not valid UTF-8"},
        {"B { \"\xED\xA0\x80\" }", 1, 6, "not valid UTF-8"},
        {"B { \"\xC0\xAF\" }", 1, 6, "not valid UTF-8"},
        {"B { 1. }", 1, 5, "'1.' is not a number"},
        {"B { .5 }", 1, 5, "unexpected character '.'"},
        {"B { 12ab }", 1, 5, "'12ab' is not a number"},
        {"B { - }", 1, 5, "'-' is not a number"},
        {"B { 9223372036854775808 }", 1, 5, "beyond the signed 64-bit range"},
        {"B { 1e999 }", 1, 5, "beyond the range of a double"},
        {"B { -nan }", 1, 5, "'-nan' is not a number"},
        {"B { word }", 1, 10, "expected '=' or '{' after the name 'word'"},
        {"B { k= }", 1, 8, "expected a value after '='"},
        {"B { k=C { } }", 1, 7, "'C' is not a value"},
        {"B { = 1 }", 1, 5, "needs a name before '='"},
        {"B { { } }", 1, 5, "a block needs a name before '{'"},
        {"B { true=1 }", 1, 5, "'true' is a value; as a name it is written in quotes"},
        {"nan { }", 1, 1, "'nan' is a value"},
        {"B : { }", 1, 5, "expected a class word after ':'"},
        {"B { @ }", 1, 5, "unexpected character '@'"},
        {"B { \xC3\xA9 }", 1, 5, "written in double quotes"},
        {"B {\n\x01 }", 2, 1, "unexpected control character U+0001"},
        {"B {\n  x\xC3\xA9\xC3\xA9\"\" }", 2, 4, "expected '=' or '{' after the name 'x'"},
    };
    for (const ErrorCase& c : cases)
    {
        SCOPED_TRACE(c.input);
        CBlock_func root(L"Kept");
        root.AddValue(1);
        BlockTextError error;
        EXPECT_FALSE(io::ReadBlockText(c.input, root, &error));
        EXPECT_EQ(error.line, c.line);
        EXPECT_EQ(error.column, c.column);
        EXPECT_NE(error.reason.ToUTF8().find(c.reason), std::string::npos) << error.reason.ToUTF8();
        EXPECT_EQ(root.GetName(), L"Kept") << "a failed read leaves the tree alone";
        EXPECT_EQ(root.GetItemCount(), 1u);
    }
}

TEST(BlockReader, ColumnsCountCharactersNotBytes)
{
    BlockTextError error;
    CBlock_func root;
    // The byte-order mark is not a column either.
    EXPECT_FALSE(io::ReadBlockText("\xEF\xBB\xBF\"\xC3\xA9\xC3\xA9\" { @ }", root, &error));
    EXPECT_EQ(error.line, 1u);
    EXPECT_EQ(error.column, 8u);
    EXPECT_EQ(error.Describe(L"a.qb"), L"a.qb:1:8: unexpected character '@'");
    BlockTextError unplaced;
    unplaced.reason = L"cannot open";
    EXPECT_EQ(unplaced.Describe(L"a.qb"), L"a.qb: cannot open");
}

TEST(BlockReader, NestingDepthIsLimited)
{
    BlockReadLimits limits;
    limits.maxDepth = 3;
    CBlock_func root;
    EXPECT_TRUE(io::ReadBlockText("A { B { C { } } }", root, nullptr, limits));
    BlockTextError error;
    EXPECT_FALSE(io::ReadBlockText("A { B { C { D { } } } }", root, &error, limits));
    EXPECT_EQ(error.column, 13u);
    EXPECT_NE(error.reason.find(L"deeper than 3 levels"), AString::npos);

    // Far more levels than the default allows: an error, not a stack overflow.
    std::string deep;
    for (int i = 0; i < 100000; ++i)
    {
        deep += "a{";
    }
    EXPECT_FALSE(io::ReadBlockText(deep, root, &error));
    EXPECT_NE(error.reason.find(L"deeper than 256 levels"), AString::npos);
    std::string deepest;
    for (std::size_t i = 0; i < io::kMaxBlockDepth; ++i)
    {
        deepest += "a{";
    }
    deepest += std::string(io::kMaxBlockDepth, '}');
    EXPECT_TRUE(io::ReadBlockText(deepest, root, &error));
}

TEST(BlockReader, TextAndInputSizesAreLimited)
{
    BlockReadLimits limits;
    limits.maxTextBytes = 4;
    CBlock_func root;
    BlockTextError error;
    EXPECT_TRUE(io::ReadBlockText("B { \"abcd\" \"\\n\\n\\n\\n\" }", root, &error, limits))
        << "the limit counts decoded bytes";
    EXPECT_FALSE(io::ReadBlockText("B { \"abcde\" }", root, &error, limits));
    EXPECT_NE(error.reason.find(L"text of 5 bytes"), AString::npos);
    EXPECT_TRUE(io::ReadBlockText("B { \"longer name\"=1 }", root, &error, limits))
        << "names have their own limit";

    limits = BlockReadLimits();
    limits.maxInputBytes = 8;
    EXPECT_TRUE(io::ReadBlockText("B { 12 }", root, &error, limits));
    EXPECT_FALSE(io::ReadBlockText("B { 123 }", root, &error, limits));
    EXPECT_EQ(error.line, 0u);
    EXPECT_NE(error.reason.find(L"limit of 8 bytes"), AString::npos);
}

TEST(BlockReader, NamesAreLimitedWhetherBareOrQuoted)
{
    const std::string longest(io::kMaxBlockNameBytes, 'n');
    const std::string tooLong = longest + "n";
    const std::string inputs[] = {longest + " { }", "B { " + longest + "=1 }",
                                  "B { \"" + longest + "\" { } }", "B : " + longest + " { }"};
    const std::string refused[] = {tooLong + " { }", "B { " + tooLong + "=1 }",
                                   "B { \"" + tooLong + "\" { } }", "B : " + tooLong + " { }"};
    CBlock_func root;
    BlockTextError error;
    for (std::size_t i = 0; i < std::size(inputs); ++i)
    {
        SCOPED_TRACE(i);
        EXPECT_TRUE(io::ReadBlockText(inputs[i], root, &error));
        EXPECT_FALSE(io::ReadBlockText(refused[i], root, &error));
        EXPECT_NE(error.reason.find(L"name of 65537 bytes"), AString::npos)
            << error.reason.ToUTF8();
    }
}

TEST(BlockReader, ReadingIntoSubBlockKeepsItsName)
{
    CBlock_func root(L"R");
    CBlock_func& sub = root.AddBlock(L"Attrs");
    ASSERT_TRUE(io::ReadBlockText("Other : W { 1 Deep { 2 } }", sub));
    EXPECT_EQ(sub.GetName(), L"Attrs");
    EXPECT_EQ(sub.GetClassWord(), L"W");
    EXPECT_EQ(sub.GetItemCount(), 2u);
    EXPECT_EQ(sub.FindBlock(L"Deep")->GetDepth(), 3u);
    EXPECT_EQ(root.GetItemCount(), 1u);
}

TEST(BlockReader, ReadTreeAcceptsFurtherWrites)
{
    CBlock_func root = Read("R { A { 1 } }");
    root.FindBlock(L"A")->AddValue(2);
    root.AddBlock(L"A").AddValue(L"new");
    EXPECT_EQ(io::WriteBlockText(root), "R {\n    A { 1 2 }\n    A { \"new\" }\n}\n");
}
} // namespace
