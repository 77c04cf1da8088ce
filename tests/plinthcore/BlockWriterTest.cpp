#include "BlockWriter.h"

#include "BlockReader.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

namespace
{
using io::CBlock;
using io::CBlock_func;

// Reads `text` back, requires the same tree, and requires the same text when written again.
void ExpectFixedPoint(const CBlock& tree, const std::string& text)
{
    CBlock_func back;
    io::BlockTextError error;
    ASSERT_TRUE(io::ReadBlockText(text, back, &error))
        << error.line << ":" << error.column << ": " << error.reason.ToUTF8() << "\n"
        << text;
    EXPECT_EQ(back, tree) << text;
    EXPECT_EQ(io::WriteBlockText(back), text);
}

TEST(BlockWriter, WritesTheCanonicalLayout)
{
    CBlock_func root(L"Component");
    root.SetClassWord(L"CircuitDef");
    root.AddValue(L"R1");
    CBlock_func& terminal = root.AddBlock(L"Terminal");
    terminal.AddValue(L"IN");
    terminal.AddValue(L"1");
    terminal.AddValue(L"A");
    terminal.AddValue(false);
    CBlock_func& info = root.AddBlock(L"Info");
    info.AddValue(L"r");
    info.AddValue(8);
    CBlock_func& member = info.AddBlock(L"SubElements").AddBlock(L"Info");
    member.AddValue(L"a");
    member.AddValue(0);
    member.AddNamedValue(L"IsUnconstrained", false);
    info.AddNamedValue(L"IsUnconstrained", false);
    root.AddBlock(L"Empty");
    root.AddNamedValue(L"Scale", 1.5);

    const std::string expected = "Component : CircuitDef {\n"
                                 "    \"R1\"\n"
                                 "    Terminal { \"IN\" \"1\" \"A\" false }\n"
                                 "    Info {\n"
                                 "        \"r\"\n"
                                 "        8\n"
                                 "        SubElements {\n"
                                 "            Info { \"a\" 0 IsUnconstrained=false }\n"
                                 "        }\n"
                                 "        IsUnconstrained=false\n"
                                 "    }\n"
                                 "    Empty {}\n"
                                 "    Scale=1.5\n"
                                 "}\n";
    const std::string text = io::WriteBlockText(root);
    EXPECT_EQ(text, expected);
    ExpectFixedPoint(root, text);
    std::string appended = "prefix";
    io::AppendBlockText(appended, root);
    EXPECT_EQ(appended, "prefix" + expected);
}

TEST(BlockWriter, KeepsABlockOnOneLineOnlyWhileItFits)
{
    // Items of exactly 80 characters (with their separating spaces) stay on one line.
    CBlock_func fits(L"B");
    fits.AddValue(std::string(78, 'x'));
    EXPECT_EQ(io::WriteBlockText(fits), "B { \"" + std::string(78, 'x') + "\" }\n");
    CBlock_func wide(L"B");
    wide.AddValue(std::string(79, 'x'));
    EXPECT_EQ(io::WriteBlockText(wide), "B {\n    \"" + std::string(79, 'x') + "\"\n}\n");
    CBlock_func many(L"B");
    for (int i = 0; i < 40; ++i)
    {
        many.AddValue(i);
    }
    const std::string text = io::WriteBlockText(many);
    EXPECT_EQ(text.substr(0, 12), "B {\n    0\n  ");
    ExpectFixedPoint(many, text);
}

// {characters, how they are written}
struct QuoteCase
{
    std::wstring text;
    const char* written;
};

TEST(BlockWriter, EscapesWhatWouldHideOrBreakALine)
{
    const QuoteCase cases[] = {
        {L"plain", "\"plain\""},
        {L"", "\"\""},
        {L"say \"hi\"", R"("say \"hi\"")"},
        {L"C:\\lib", R"("C:\\lib")"},
        {L"a\nb\r\tc", R"("a\nb\r\tc")"},
        {L"line\vbreak\a\b\f", R"("line\vbreak\a\b\f")"},
        {std::wstring(L"nul\0end", 7), R"("nul\0end")"},
        {L"\x1B[0m\x7F", R"("\u{1B}[0m\u{7F}")"},
        {L"\u0085 next line", R"("\u{85} next line")"},
        {L"\u2028\u2029", R"("\u{2028}\u{2029}")"},
        {L"abc\u202Edef", R"("abc\u{202E}def")"},
        {L"\uFEFFbom", R"("\u{FEFF}bom")"},
        {L"\u00E9t\u00E9 \u03A9 \U0001F600", "\"\xC3\xA9t\xC3\xA9 \xCE\xA9 \xF0\x9F\x98\x80\""},
        {L"# not a comment", "\"# not a comment\""},
    };
    for (const QuoteCase& c : cases)
    {
        SCOPED_TRACE(c.written);
        CBlock_func block(L"B");
        block.AddValue(c.text);
        const std::string text = io::WriteBlockText(block);
        EXPECT_EQ(text, std::string("B { ") + c.written + " }\n");
        ExpectFixedPoint(block, text);
    }
}

// {name, how it is written}
struct NameCase
{
    const char* name;
    const char* written;
};

TEST(BlockWriter, QuotesNamesThatAreNotPlainIdentifiers)
{
    const NameCase cases[] = {
        {"Terminal", "Terminal"},     {"_x9", "_x9"},       {"9x", "\"9x\""},
        {"'0'", "\"'0'\""},           {"", "\"\""},         {"a b", "\"a b\""},
        {"a-b", "\"a-b\""},           {"true", "\"true\""}, {"nan", "\"nan\""},
        {"inf", "\"inf\""},           {"True", "True"},     {"x\"y", R"("x\"y")"},
        {"\xC3\xA9", "\"\xC3\xA9\""},
    };
    for (const NameCase& c : cases)
    {
        SCOPED_TRACE(c.name);
        CBlock_func root(c.name);
        root.SetClassWordUtf8(c.name);
        root.AddNamedValue(std::string_view(c.name), 1);
        root.AddBlock(std::string_view(c.name));
        const std::string text = io::WriteBlockText(root);
        const std::string name = c.written;
        // An empty class word means none, so it is not written.
        const std::string header = name + (*c.name != '\0' ? " : " + name : std::string());
        EXPECT_EQ(text, header + " {\n    " + name + "=1\n    " + name + " {}\n}\n");
        ExpectFixedPoint(root, text);
    }
}

// {value, how it is written}
struct RealCase
{
    double value;
    const char* written;
};

TEST(BlockWriter, WritesRealsShortestAndAlwaysAsReals)
{
    const RealCase cases[] = {
        {1.0, "1.0"},
        {-0.0, "-0.0"},
        {0.0, "0.0"},
        {0.1, "0.1"},
        {100.0, "100.0"},
        {1e300, "1e+300"},
        {1e21, "1e+21"},
        {123456789012.0, "123456789012.0"},
        {5e-324, "5e-324"},
        {std::numeric_limits<double>::max(), "1.7976931348623157e+308"},
        {std::numeric_limits<double>::infinity(), "inf"},
        {-std::numeric_limits<double>::infinity(), "-inf"},
        {std::numeric_limits<double>::quiet_NaN(), "nan"},
        {-std::numeric_limits<double>::quiet_NaN(), "nan"},
    };
    for (const RealCase& c : cases)
    {
        SCOPED_TRACE(c.written);
        CBlock_func block(L"B");
        block.AddValue(c.value);
        const std::string text = io::WriteBlockText(block);
        EXPECT_EQ(text, std::string("B { ") + c.written + " }\n");
        ExpectFixedPoint(block, text);
    }
}

TEST(BlockWriter, RandomRealsAndIntegersRoundTripExactly)
{
    std::mt19937_64 random(12345);
    CBlock_func block(L"Numbers");
    for (int i = 0; i < 2000; ++i)
    {
        const std::uint64_t bits = random();
        block.AddValue(std::bit_cast<double>(bits));
        block.AddValue(static_cast<std::int64_t>(bits));
    }
    block.AddValue(std::numeric_limits<std::int64_t>::min());
    block.AddValue(std::numeric_limits<double>::denorm_min());
    ExpectFixedPoint(block, io::WriteBlockText(block));
}

// Random trees with every kind of item, name and character the format carries.
void Grow(std::mt19937& random, CBlock& block, int depth)
{
    static const std::wstring kPieces[] = {L"Terminal",
                                           L"",
                                           L"a b",
                                           L"true",
                                           L"\"",
                                           L"\\",
                                           L"\n\v",
                                           L"\u00E9",
                                           L"\U0001F600",
                                           L"\u202E",
                                           std::wstring(1, L'\0'),
                                           L"#",
                                           L"0",
                                           L"x=y",
                                           L"{}"};
    auto pick = [&]()
    {
        std::wstring text;
        for (int n = static_cast<int>(random() % 4); n > 0; --n)
        {
            text += kPieces[random() % std::size(kPieces)];
        }
        return text;
    };
    if (random() % 5 == 0)
    {
        block.SetClassWord(pick());
    }
    for (int n = static_cast<int>(random() % 8); n > 0; --n)
    {
        switch (random() % 7)
        {
        case 0:
            block.AddValue(pick());
            break;
        case 1:
            block.AddValue(static_cast<std::int64_t>(random()) - 1000);
            break;
        case 2:
            block.AddValue(static_cast<double>(random()) / 7.0);
            break;
        case 3:
            block.AddValue(random() % 2 == 0);
            break;
        case 4:
            block.AddNamedValue(pick(), pick());
            break;
        default:
            if (depth < 6)
            {
                Grow(random, block.AddBlock(pick()), depth + 1);
            }
            break;
        }
    }
}

TEST(BlockWriter, RandomTreesAreFixedPointsOfWriteAndRead)
{
    std::mt19937 random(2024);
    for (int i = 0; i < 300; ++i)
    {
        SCOPED_TRACE(i);
        CBlock_func root(L"Root");
        Grow(random, root, 1);
        ASSERT_FALSE(root.HasError());
        ExpectFixedPoint(root, io::WriteBlockText(root));
    }
}

TEST(BlockWriter, OutputFollowsItemOrderNotNameStorage)
{
    CBlock_func a(L"R");
    a.AddNamedValue(L"Alpha", 1);
    a.AddBlock(L"Mid").AddValue(L"m");
    a.AddNamedValue(L"Zeta", 2);
    // The same content after the names were first met in the opposite order.
    CBlock_func b(L"R");
    b.AddNamedValue(L"Zeta", 0);
    b.AddBlock(L"Mid");
    b.AddNamedValue(L"Alpha", 0);
    b.Clear();
    b.AddNamedValue(L"Alpha", 1);
    b.AddBlock(L"Mid").AddValue(L"m");
    b.AddNamedValue(L"Zeta", 2);
    const std::string text = io::WriteBlockText(a);
    EXPECT_EQ(io::WriteBlockText(b), text);
    EXPECT_EQ(io::WriteBlockText(CBlock_func(a)), text);
    EXPECT_EQ(text, "R {\n    Alpha=1\n    Mid { \"m\" }\n    Zeta=2\n}\n");
}
} // namespace
