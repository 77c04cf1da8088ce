#include "AString.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <climits>
#include <cmath>
#include <cstdint>
#include <limits>
#include <set>
#include <string>
#include <vector>

// Readable failure messages: texts as UTF-8 instead of lists of characters.
void PrintTo(const AString& text, std::ostream* os)
{
    *os << '"' << text.ToUTF8() << '"';
}

namespace
{
int Sign(int value)
{
    return (value > 0) - (value < 0);
}

std::string Utf8(std::wstring_view text)
{
    return AString::ToUTF8(text);
}

// ---------------------------------------------------------------------------------------
// Case-insensitive comparison

struct CompareCase
{
    const wchar_t* a;
    const wchar_t* b;
    int sign;
};

TEST(AString, CompareNoCaseFoldsCodePointByCodePoint)
{
    const CompareCase cases[] = {
        {L"abc", L"ABC", 0},
        {L"ÄBC", L"äbc", 0},
        {L"Straße", L"STRASSE", 1}, // simple folding keeps ß: 'ß' > 'S'
        {L"ΣΑΣ", L"σας", 0},        // final sigma folds to sigma
        {L"\u212A", L"k", 0},       // KELVIN SIGN folds to ASCII k
        {L"\u017F", L"S", 0},       // LONG S folds to ASCII s
        {L"\u01C5", L"\u01C6", 0},  // title case dz folds to small dz
        {L"\u0130", L"i", 1},       // dotted capital I has no simple folding
        {L"a[10]", L"a[2]", -1},    // character order, not numeric
        {L"_", L"A", -1},           // folds to lower case: '_' < 'a'
        {L"[", L"a", -1},
        {L"abc", L"abd", -1},
        {L"", L"", 0},
        {L"", L"a", -1},
        {L"abc", L"abcé", -1}, // a prefix sorts first, across the ASCII boundary
        {L"é", L"e", 1},
        {L"ÉCOLE", L"école", 0},
    };
    for (const CompareCase& c : cases)
    {
        SCOPED_TRACE(Utf8(c.a) + " vs " + Utf8(c.b));
        EXPECT_EQ(Sign(AString::CompareNoCase(c.a, c.b)), c.sign);
        EXPECT_EQ(Sign(AString::CompareNoCase(c.b, c.a)), -c.sign);
        EXPECT_EQ(Sign(AString(c.a).CompareNoCase(c.b)), c.sign);
        EXPECT_EQ(AString::EqualNoCase(c.a, c.b), c.sign == 0);
    }
}

TEST(AString, CompareNoCaseToleratesValuesThatAreNotCodePoints)
{
    const std::wstring odd{static_cast<wchar_t>(-1), static_cast<wchar_t>(0x110000), L'A'};
    const std::wstring same{static_cast<wchar_t>(-1), static_cast<wchar_t>(0x110000), L'a'};
    EXPECT_EQ(AString::CompareNoCase(odd, same), 0);
    EXPECT_GT(AString::CompareNoCase(odd, L"z"), 0); // compares as a value above every letter
    const std::wstring lone{static_cast<wchar_t>(0xD800)};
    EXPECT_EQ(AString::CompareNoCase(lone, lone), 0);
}

TEST(AString, NoCaseLessIsAStrictWeakOrder)
{
    std::vector<AString> names = {L"a[2]",   L"A[10]", L"b", L"B",    L"ä",   L"Ä",
                                  L"_x",     L"",      L"a", L"a[1]", L"ΣΑΣ", L"σας",
                                  L"\u212A", L"k",     L"z", L"Z1",   L"z0"};
    const AString::NoCaseLess less;
    std::sort(names.begin(), names.end(), less);
    for (std::size_t i = 0; i < names.size(); ++i)
    {
        EXPECT_FALSE(less(names[i], names[i])) << Utf8(names[i]);
        for (std::size_t j = i + 1; j < names.size(); ++j)
        {
            SCOPED_TRACE(Utf8(names[i]) + " / " + Utf8(names[j]));
            EXPECT_FALSE(less(names[j], names[i])); // sorted stays sorted: order is consistent
            EXPECT_EQ(!less(names[i], names[j]), AString::EqualNoCase(names[i], names[j]));
        }
    }
    EXPECT_EQ(names.front(), L"");
    EXPECT_LT(std::find(names.begin(), names.end(), L"A[10]"),
              std::find(names.begin(), names.end(), L"a[2]"));
}

TEST(AString, NoCaseSetMergesCaseVariantsAndFindsByView)
{
    std::set<AString, AString::NoCaseLess> set;
    EXPECT_TRUE(set.insert(L"Net1").second);
    EXPECT_FALSE(set.insert(L"NET1").second);
    EXPECT_TRUE(set.insert(L"net10").second);
    EXPECT_EQ(set.size(), 2u);
    const auto found = set.find(std::wstring_view(L"nEt1"));
    ASSERT_NE(found, set.end());
    EXPECT_EQ(*found, L"Net1"); // the first spelling stays
}

// ---------------------------------------------------------------------------------------
// Wildcards

struct MatchCase
{
    const wchar_t* text;
    const wchar_t* pattern;
    bool caseSensitive;
    bool matches;
    std::vector<AString> captures; // when it matches
};

TEST(AString, MatchesWholeTextAndCapturesShortestStars)
{
    const MatchCase cases[] = {
        {L"a[3]", L"*[*]", true, true, {L"a", L"3"}},
        {L"a[1][2]", L"*[*]", true, true, {L"a", L"1][2"}},
        {L"d<7:0>", L"*<*>", true, true, {L"d", L"7:0"}},
        {L"d<7:0>", L"*[*]", true, false, {}},
        {L"d[0]x", L"*[*]", true, false, {}}, // the closing bracket must end the text
        {L"[]", L"*[*]", true, true, {L"", L""}},
        {L"abc", L"abc", true, true, {}},
        {L"abc", L"ab", true, false, {}},
        {L"abc", L"bc", true, false, {}},
        {L"", L"", true, true, {}},
        {L"", L"*", true, true, {L""}},
        {L"", L"?", true, false, {}},
        {L"a", L"", true, false, {}},
        {L"abc", L"a?c", true, true, {}},
        {L"ac", L"a?c", true, false, {}},
        {L"abc", L"***", true, true, {L"", L"", L"abc"}},
        {L"xaaay", L"*a*", true, true, {L"x", L"aay"}},
        {L"abcabc", L"*bc", true, true, {L"abca"}},
        {L"a.b.c", L"*.*", true, true, {L"a", L"b.c"}},
        {L"abc", L"*?", true, true, {L"ab"}},
        {L"a*b", L"*\\**", true, true, {L"a", L"b"}},
        {L"ab", L"*\\**", true, false, {}},
        {L"a?c", L"a\\?c", true, true, {}},
        {L"abc", L"a\\?c", true, false, {}},
        {L"a\\", L"a\\", true, true, {}}, // a trailing back slash is literal
        {L"a\\b", L"a\\\\b", true, true, {}},
        {L"ABC", L"a*", true, false, {}},
        {L"ABC", L"a*", false, true, {L"BC"}},
        {L"ÄBC", L"ä?c", false, true, {}},
        {L"ÄBC", L"ä?c", true, false, {}},
        {L"x ΣΑΣ", L"* σας", false, true, {L"x"}},
    };
    for (const MatchCase& c : cases)
    {
        SCOPED_TRACE(Utf8(c.text) + " ~ " + Utf8(c.pattern) +
                     (c.caseSensitive ? "" : " (no case)"));
        const AString text(c.text);
        std::vector<AString> captures;
        EXPECT_EQ(text.Match(c.pattern, captures, c.caseSensitive), c.matches);
        if (c.matches)
        {
            EXPECT_EQ(captures, c.captures);
        }
        // The overloads without captures agree.
        EXPECT_EQ(c.caseSensitive ? text.Match(c.pattern) : text.MatchNoCase(c.pattern), c.matches);
        EXPECT_EQ(AString::MatchText(c.text, c.pattern, c.caseSensitive, nullptr), c.matches);
    }
}

TEST(AString, MatchLeavesCapturesUntouchedOnFailureAndReplacesThemOnSuccess)
{
    std::vector<AString> captures = {L"keep", L"these", L"three"};
    EXPECT_FALSE(AString(L"plain").Match(L"*[*]", captures, true));
    EXPECT_EQ(captures, (std::vector<AString>{L"keep", L"these", L"three"}));

    EXPECT_TRUE(AString(L"b<4>").Match(L"*<*>", captures, true));
    EXPECT_EQ(captures, (std::vector<AString>{L"b", L"4"}));

    EXPECT_TRUE(AString(L"long-base-name-here[31:0]").Match(L"*[*]", captures, true));
    EXPECT_EQ(captures, (std::vector<AString>{L"long-base-name-here", L"31:0"}));

    EXPECT_TRUE(AString(L"x").Match(L"x", captures, true));
    EXPECT_TRUE(captures.empty());
}

TEST(AString, MatchTextMayBeOneOfTheCaptures)
{
    std::vector<AString> captures = {L"first-element-long-enough[12]", L"other"};
    EXPECT_TRUE(captures[0].Match(L"*[*]", captures, true));
    EXPECT_EQ(captures, (std::vector<AString>{L"first-element-long-enough", L"12"}));

    captures = {L"q", L"d[3]"};
    EXPECT_TRUE(captures[1].Match(L"*[*]", captures, true));
    EXPECT_EQ(captures, (std::vector<AString>{L"d", L"3"}));
}

TEST(AString, MatchCapturesManyStars)
{
    // More stars than fit the matcher's inline storage.
    std::wstring pattern;
    std::wstring text;
    std::vector<AString> expected;
    for (int i = 0; i < 40; ++i)
    {
        pattern += L"*-";
        text += std::to_wstring(i) + L"-";
        expected.emplace_back(std::to_wstring(i));
    }
    std::vector<AString> captures;
    ASSERT_TRUE(AString(text).Match(pattern, captures, true));
    EXPECT_EQ(captures, expected);
}

TEST(AString, MatchStaysLinearOnLongBracketRuns)
{
    const auto start = std::chrono::steady_clock::now();
    const AString brackets(20000, L'[');
    std::vector<AString> captures = {L"untouched"};
    EXPECT_FALSE(brackets.Match(L"*[*]", captures, true));
    EXPECT_FALSE(brackets.Match(L"*[*[*[*]"));
    EXPECT_FALSE(brackets.MatchNoCase(L"*[*<*>"));
    EXPECT_EQ(captures, std::vector<AString>{L"untouched"});

    const AString closed = brackets + L"]";
    ASSERT_TRUE(closed.Match(L"*[*]", captures, true));
    ASSERT_EQ(captures.size(), 2u);
    EXPECT_EQ(captures[0], L"");
    EXPECT_EQ(captures[1].size(), 19999u);

    const AString as(20000, L'a');
    EXPECT_FALSE(as.Match(L"*a*a*a*a*a*a*a*b"));
    EXPECT_TRUE(as.MatchNoCase(L"*A*A*A*A*A*A*A*"));

    const auto elapsed = std::chrono::steady_clock::now() - start;
    EXPECT_LT(elapsed, std::chrono::seconds(5)); // exponential backtracking would never end
}

// ---------------------------------------------------------------------------------------
// Formatting

enum class Colour
{
    kRed = 2
};

TEST(AString, FormatFollowsPrintf)
{
    struct Case
    {
        AString actual;
        AString expected;
    };
    const std::wstring wide = L"wide";
    const std::string narrow = "n\xC3\xA4rrow"; // UTF-8 "närrow"
    const Case cases[] = {
        {AString::Formatted(L"%s[%d]", L"d", 3), L"d[3]"},
        {AString::Formatted(L"%s[%d]", AString(L"bus"), 31), L"bus[31]"},
        {AString::Formatted(L"%#010x", 255), L"0x000000ff"},
        {AString::Formatted(L"%#X|%o|%#o", 255, 8, 8), L"0XFF|10|010"},
        {AString::Formatted(L"%u|%x", -1, -1), L"4294967295|ffffffff"},
        {AString::Formatted(L"%x", static_cast<short>(-1)), L"ffff"},
        {AString::Formatted(L"%x", -1LL), L"ffffffffffffffff"},
        {AString::Formatted(L"%d", 4294967295u), L"-1"},
        {AString::Formatted(L"%u", 4294967295u), L"4294967295"},
        {AString::Formatted(L"%d", LLONG_MIN), L"-9223372036854775808"},
        {AString::Formatted(L"%llu", ULLONG_MAX), L"18446744073709551615"},
        {AString::Formatted(L"%5d|%-5d|%05d|%+d|% d", 42, 42, 42, 42, 42),
         L"   42|42   |00042|+42| 42"},
        {AString::Formatted(L"%.3d|%3.2d", 7, -7), L"007|-07"},
        {AString::Formatted(L"%*d|%-*d|%*d|", 5, 42, 4, 1, -4, 1), L"   42|1   |1   |"},
        {AString::Formatted(L"%ld|%lld|%I64d|%I32d|%hd|%zu", 1L, 2LL, 3LL, 4, short{5},
                            std::size_t{6}),
         L"1|2|3|4|5|6"},
        {AString::Formatted(L"%c%c%C", L'x', 'y', L'z'), L"xyz"},
        {AString::Formatted(L"%c|%3c|%-3c|", 0x263A, L'a', L'b'), L"\u263A|  a|b  |"},
        {AString::Formatted(L"%s|%ls|%S|%hs", wide, L"l", narrow, "h"), L"wide|l|närrow|h"},
        {AString::Formatted(L"%.2s|%-4s|%4s", L"abcdef", L"ab", L"ab"), L"ab|ab  |  ab"},
        {AString::Formatted(L"%.*s|", 3, L"abcdef"), L"abc|"},
        {AString::Formatted(L"%.*s|", -1, L"abc"), L"abc|"}, // negative precision: none
        {AString::Formatted(L"%s", static_cast<const wchar_t*>(nullptr)), L"(null)"},
        {AString::Formatted(L"%s", static_cast<const char*>(nullptr)), L"(null)"},
        {AString::Formatted(L"%.3f|%5.1f|%-6.2f|", 3.14159, 2.25, 1.0), L"3.142|  2.2|1.00  |"},
        {AString::Formatted(L"%g|%g|%e", 1e-9, 0.5, 1500.0), L"1e-09|0.5|1.500000e+03"},
        {AString::Formatted(L"%d|%s|%d", true, 7, Colour::kRed), L"1|7|2"},
        {AString::Formatted(L"%p", reinterpret_cast<const void*>(0x1f)), L"0x1f"},
        {AString::Formatted(L"100%% sure"), L"100% sure"},
    };
    for (const Case& c : cases)
    {
        EXPECT_EQ(c.actual, c.expected);
    }
}

TEST(AString, FormatSurvivesMissingAndMismatchedArguments)
{
    struct Case
    {
        AString actual;
        AString expected;
    };
    const Case cases[] = {
        {AString::Formatted(L"%d and %d", 1), L"1 and "},
        {AString::Formatted(L"%s|%c|%f|%*d"), L"|||"},
        {AString::Formatted(L"%d", L"text"), L"0"},
        {AString::Formatted(L"%s", 2.5), L"2.5"},
        {AString::Formatted(L"%c", L"text"), L""},
        {AString::Formatted(L"%x|%d|%u", 1e300, -1e300, -5.0),
         L"ffffffffffffffff|-9223372036854775808|0"},
        {AString::Formatted(L"%d", std::numeric_limits<double>::quiet_NaN()), L"0"},
        {AString::Formatted(L"%c", 0x7FFFFFFF), L"\uFFFD"},
        {AString::Formatted(L"%n%d", 1, 2), L"2"}, // %n consumes its argument, writes nothing
        {AString::Formatted(L"%y|%", 1), L"%y|%"},
        {AString::Formatted(L"%-08.3", 1), L"%-08.3"},
        {AString::Formatted(L"no directives", 1, 2), L"no directives"},
    };
    for (const Case& c : cases)
    {
        EXPECT_EQ(c.actual, c.expected);
    }
    EXPECT_EQ(AString::Formatted(L"%99999d", 1).size(), 4096u); // widths are bounded
    EXPECT_EQ(AString::Formatted(L"%.99999f", 1.0).size(), 4098u);
    AString text(L"old");
    EXPECT_EQ(text.Format(nullptr), L"");
}

TEST(AString, FormatReadsArgumentsThatViewItsOwnText)
{
    AString text(L"a text long enough not to fit in the small-string buffer");
    const AString original = text;
    text.Format(L"%s|%s", text, std::wstring_view(text).substr(0, 6));
    EXPECT_EQ(text, original + L"|a text");

    AString grow(L"abcdefghijklmnopqrstuvwxyz");
    const FormatArg args[] = {FormatArg(grow), FormatArg(grow.size())};
    grow.AppendFormatList(L"+%s(%u)", args);
    EXPECT_EQ(grow, L"abcdefghijklmnopqrstuvwxyz+abcdefghijklmnopqrstuvwxyz(26)");

    AString format(L"[%d]");
    format.Format(format.c_str(), 5);
    EXPECT_EQ(format, L"[5]");
}

TEST(AString, FormatReplacesAndAppendFormatAppends)
{
    AString text(L"previous content that is rather long");
    text.Format(L"%s[%d]", L"d", 0);
    EXPECT_EQ(text, L"d[0]");
    const FormatArg args[] = {FormatArg(1), FormatArg(L"x")};
    text.AppendFormatList(L",%d%s", args);
    EXPECT_EQ(text, L"d[0],1x");
    std::wstring plain = L">";
    AppendFormatted(plain, L"%s", args); // a number read by %s
    EXPECT_EQ(plain, L">1");
}

// ---------------------------------------------------------------------------------------
// Numbers

struct IntCase
{
    const wchar_t* text;
    int base;
    bool ok;
    long long value;
};

TEST(AString, IsNumberReadsWholeSignedIntegers)
{
    const IntCase cases[] = {
        {L"42", 10, true, 42},
        {L"+42", 10, true, 42},
        {L"-42", 10, true, -42},
        {L"0", 10, true, 0},
        {L"-0", 10, true, 0},
        {L"007", 10, true, 7},
        {L"2147483647", 10, true, INT_MAX},
        {L"-2147483648", 10, true, INT_MIN},
        {L"2147483648", 10, false, 0},
        {L"-2147483649", 10, false, 0},
        {L"99999999999999999999", 10, false, 0},
        {L"", 10, false, 0},
        {L"+", 10, false, 0},
        {L"-", 10, false, 0},
        {L" 1", 10, false, 0},
        {L"1 ", 10, false, 0},
        {L"4x", 10, false, 0},
        {L"+-1", 10, false, 0},
        {L"--1", 10, false, 0},
        {L"++1", 10, false, 0},
        {L"1e3", 10, false, 0},
        {L"1.0", 10, false, 0},
        {L"0x10", 10, false, 0},
        {L"0x10", 16, false, 0},
        {L"\u0661", 10, false, 0}, // ARABIC-INDIC ONE
        {L"\uFF11", 10, false, 0}, // FULLWIDTH ONE
        {L"ff", 16, true, 255},
        {L"FF", 16, true, 255},
        {L"-ff", 16, true, -255},
        {L"7fffffff", 16, true, INT_MAX},
        {L"80000000", 16, false, 0},
        {L"g", 16, false, 0},
        {L"101", 2, true, 5},
        {L"102", 2, false, 0},
        {L"z", 36, true, 35},
        {L"1", 1, false, 0},
        {L"1", 37, false, 0},
        {L"1", 0, false, 0},
    };
    for (const IntCase& c : cases)
    {
        SCOPED_TRACE(Utf8(c.text) + " base " + std::to_string(c.base));
        int value = 77;
        EXPECT_EQ(AString(c.text).IsNumber(value, c.base), c.ok);
        EXPECT_EQ(value, c.ok ? c.value : 77); // untouched on failure
    }
    int value = 0;
    EXPECT_FALSE(AString(std::wstring(L"1\0", 2)).IsNumber(value)); // embedded null
    EXPECT_FALSE(AString(std::wstring(200, L'0') + L"x").IsNumber(value));
    EXPECT_TRUE(AString(std::wstring(200, L'0') + L"1").IsNumber(value));
    EXPECT_EQ(value, 1);
}

TEST(AString, IsNumberReadsWholeUnsignedAndWideIntegers)
{
    unsigned u = 9;
    EXPECT_FALSE(AString(L"-1").IsNumber(u));
    EXPECT_FALSE(AString(L"-0").IsNumber(u));
    EXPECT_EQ(u, 9u);
    EXPECT_TRUE(AString(L"+5").IsNumber(u));
    EXPECT_EQ(u, 5u);
    EXPECT_TRUE(AString(L"4294967295").IsNumber(u));
    EXPECT_EQ(u, UINT_MAX);
    EXPECT_FALSE(AString(L"4294967296").IsNumber(u));
    EXPECT_TRUE(AString(L"ffffffff").IsNumber(u, 16));
    EXPECT_EQ(u, UINT_MAX);

    long long ll = 0;
    EXPECT_TRUE(AString(L"-9223372036854775808").IsNumber(ll));
    EXPECT_EQ(ll, LLONG_MIN);
    EXPECT_FALSE(AString(L"9223372036854775808").IsNumber(ll));

    unsigned long long ull = 0;
    EXPECT_TRUE(AString(L"18446744073709551615").IsNumber(ull));
    EXPECT_EQ(ull, ULLONG_MAX);
    EXPECT_FALSE(AString(L"18446744073709551616").IsNumber(ull));
    EXPECT_FALSE(AString(L"-1").IsNumber(ull));
}

TEST(AString, IsNumberReadsDecimalAndExponentForms)
{
    struct Case
    {
        std::wstring text;
        bool ok;
        double value;
    };
    const Case cases[] = {
        {L"1", true, 1.0},
        {L"-2.5", true, -2.5},
        {L"+1", true, 1.0},
        {L".5", true, 0.5},
        {L"-.5", true, -0.5},
        {L"5.", true, 5.0},
        {L"1e-3", true, 1e-3},
        {L"1.E+4", true, 1e4},
        {L"2E3", true, 2e3},
        {L"00012", true, 12.0},
        {L"1e308", true, 1e308},
        {L"1e-400", true, 0.0}, // too small to represent: zero
        {L"0." + std::wstring(400, L'0') + L"1", true, 0.0},
        {L"1" + std::wstring(400, L'0') + L"e-390", true, 1e10},
        {L"1e400", false, 0},
        {L"-1e400", false, 0},
        {L"0.1e310", false, 0},                               // 1e309
        {L"1" + std::wstring(400, L'0') + L"e-10", false, 0}, // 1e390 despite the minus
        {L"1000e-330", true, 0.0},                            // 1e-327 despite the digits
        {L"1" + std::wstring(400, L'0'), false, 0},
        {L"", false, 0},
        {L".", false, 0},
        {L"-", false, 0},
        {L"e5", false, 0},
        {L"1e", false, 0},
        {L"1e+", false, 0},
        {L"1.5.2", false, 0},
        {L"1,5", false, 0},
        {L" 1", false, 0},
        {L"1 ", false, 0},
        {L"inf", false, 0},
        {L"-nan", false, 0},
        {L"0x1p3", false, 0},
        {L"--1", false, 0},
        {L"+-1", false, 0},
        {L"1d", false, 0},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Utf8(c.text.substr(0, 40)));
        double value = 77.0;
        EXPECT_EQ(AString(c.text).IsNumber(value), c.ok);
        EXPECT_DOUBLE_EQ(value, c.ok ? c.value : 77.0);
        EXPECT_EQ(AString(c.text).IsNumber(), c.ok);
    }
    double value = 0;
    EXPECT_TRUE(AString(L"0.00001e309").IsNumber(value));
    EXPECT_DOUBLE_EQ(value, 1e304);
    EXPECT_TRUE(AString(L"-1e-400").IsNumber(value));
    EXPECT_TRUE(std::signbit(value));
}

// ---------------------------------------------------------------------------------------
// Pieces

TEST(AString, TokenizeSplitsAtAnyDelimiter)
{
    struct Case
    {
        const wchar_t* text;
        const wchar_t* delimiters;
        bool keepEmpty;
        std::vector<AString> tokens;
    };
    const Case cases[] = {
        {L"a,,b", L",", false, {L"a", L"b"}},
        {L"a,,b", L",", true, {L"a", L"", L"b"}},
        {L",a,", L",", false, {L"a"}},
        {L",a,", L",", true, {L"", L"a", L""}},
        {L",,,", L",", false, {}},
        {L",,,", L",", true, {L"", L"", L"", L""}},
        {L"", L",", true, {}},
        {L"", L",", false, {}},
        {L"a/b\\c,d", L"/,\\", false, {L"a", L"b", L"c", L"d"}},
        {L"lib;design", L";", false, {L"lib", L"design"}},
        {L"abc", L"", true, {L"abc"}},
        {L"a b", L" ", false, {L"a", L"b"}},
        {L"a  b ", L" ", false, {L"a", L"b"}},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Utf8(c.text) + " at " + Utf8(c.delimiters));
        std::vector<AString> tokens = {L"kept"};
        const std::size_t added = AString(c.text).TokenizeString(tokens, c.delimiters, c.keepEmpty);
        EXPECT_EQ(added, c.tokens.size());
        ASSERT_FALSE(tokens.empty());
        EXPECT_EQ(tokens.front(), L"kept"); // appended, never cleared
        EXPECT_EQ(std::vector<AString>(tokens.begin() + 1, tokens.end()), c.tokens);
    }
}

TEST(AString, LeftMidRightClampToTheText)
{
    const AString text(L"abcdef");
    EXPECT_EQ(text.Left(0), L"");
    EXPECT_EQ(text.Left(2), L"ab");
    EXPECT_EQ(text.Left(99), L"abcdef");
    EXPECT_EQ(text.Right(0), L"");
    EXPECT_EQ(text.Right(2), L"ef");
    EXPECT_EQ(text.Right(99), L"abcdef");
    EXPECT_EQ(text.Mid(0), L"abcdef");
    EXPECT_EQ(text.Mid(4), L"ef");
    EXPECT_EQ(text.Mid(6), L"");
    EXPECT_EQ(text.Mid(AString::npos), L"");
    EXPECT_EQ(text.Mid(1, 2), L"bc");
    EXPECT_EQ(text.Mid(4, 99), L"ef");
    EXPECT_EQ(text.Mid(7, 1), L"");
    EXPECT_EQ(AString().Left(3), L"");
    EXPECT_EQ(AString().Right(3), L"");
}

TEST(AString, TrimRemovesUnicodeWhiteSpace)
{
    struct Case
    {
        const wchar_t* text;
        const wchar_t* both;
        const wchar_t* left;
        const wchar_t* right;
    };
    const Case cases[] = {
        {L"  a b \t\n", L"a b", L"a b \t\n", L"  a b"},
        {L"\u00A0x\u3000", L"x", L"x\u3000", L"\u00A0x"},
        {L"\u2003\r\v\f", L"", L"", L""},
        {L"", L"", L"", L""},
        {L"x", L"x", L"x", L"x"},
        {L"\u200Bx", L"\u200Bx", L"\u200Bx", L"\u200Bx"}, // zero width space is not white
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Utf8(c.text));
        EXPECT_EQ(AString(c.text).Trim(), c.both);
        EXPECT_EQ(AString(c.text).TrimLeft(), c.left);
        EXPECT_EQ(AString(c.text).TrimRight(), c.right);
    }
}

TEST(AString, CaseMappingUsesSimpleMappings)
{
    EXPECT_EQ(AString(L"abcÄé1[x]").ToUpper(), L"ABCÄÉ1[X]");
    EXPECT_EQ(AString(L"ABCÄÉ1[X]").ToLower(), L"abcäé1[x]");
    EXPECT_EQ(AString(L"straße").ToUpper(), L"STRAßE"); // no one-to-many mapping
    EXPECT_EQ(AString(L"ΣΑΣ").ToLower(), L"σασ");
    AString text(L"MiXeD");
    EXPECT_EQ(&text.MakeLower(), &text);
    EXPECT_EQ(text, L"mixed");
    EXPECT_EQ(text.MakeUpper(), L"MIXED");
    const std::wstring odd{static_cast<wchar_t>(-5), static_cast<wchar_t>(0x110000)};
    EXPECT_EQ(AString(odd).ToUpper(), odd);
}

TEST(AString, ReplaceNeverRescansInsertedText)
{
    struct Case
    {
        const wchar_t* text;
        const wchar_t* find;
        const wchar_t* replacement;
        const wchar_t* result;
        std::size_t count;
    };
    const Case cases[] = {
        {L"aaa", L"a", L"aa", L"aaaaaa", 3},
        {L"abc", L"x", L"y", L"abc", 0},
        {L"abab", L"ab", L"", L"", 2},
        {L"aaaa", L"aa", L"a", L"aa", 2},
        {L"x\ny", L"\n", L"\\n\n", L"x\\n\ny", 1},
        {L"abc", L"", L"z", L"abc", 0},
        {L"", L"a", L"b", L"", 0},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Utf8(c.text) + ": " + Utf8(c.find) + " -> " + Utf8(c.replacement));
        AString text(c.text);
        EXPECT_EQ(text.Replace(c.find, c.replacement), c.count);
        EXPECT_EQ(text, c.result);
    }
}

TEST(AString, ReplaceAcceptsViewsOfItself)
{
    AString text(L"abcabcabcabcabcabcabcabc");
    EXPECT_EQ(text.Replace(std::wstring_view(text).substr(0, 3), L"x"), 8u);
    EXPECT_EQ(text, L"xxxxxxxx");
    AString other(L"ab-ab-ab-ab-ab-ab-ab");
    EXPECT_EQ(other.Replace(L"-", std::wstring_view(other)), 6u);
    EXPECT_EQ(other.size(), 7u * 2 + 6u * 20);
}

// ---------------------------------------------------------------------------------------
// Conversions

TEST(AString, Utf8RoundTripsEveryPlane)
{
    const std::wstring texts[] = {
        L"", L"abc", L"Ä", L"€ 20", L"\U0001F600", L"a\u0000b", std::wstring(L"x\0y", 3)};
    for (const std::wstring& text : texts)
    {
        SCOPED_TRACE(Utf8(text));
        EXPECT_EQ(AString::FromUTF8(AString(text).ToUTF8()), text);
    }
    EXPECT_EQ(AString(L"€").ToUTF8(), "\xE2\x82\xAC");
    EXPECT_EQ(AString(L"\U0001F600").ToUTF8(), "\xF0\x9F\x98\x80");
}

TEST(AString, Utf8ReplacesInvalidInputWithReplacementCharacter)
{
    struct Case
    {
        std::string utf8;
        std::wstring wide;
    };
    const Case cases[] = {
        {"\xFF", L"\uFFFD"},
        {"a\xC3", L"a\uFFFD"},                             // cut off at the end
        {"\xE2\x82x", L"\uFFFDx"},                         // cut off before an ASCII byte
        {"\xC0\xAF", L"\uFFFD\uFFFD"},                     // overlong
        {"\xED\xA0\x80", L"\uFFFD\uFFFD\uFFFD"},           // encoded surrogate
        {"\xF4\x90\x80\x80", L"\uFFFD\uFFFD\uFFFD\uFFFD"}, // above U+10FFFF
        {"\x80z", L"\uFFFDz"},                             // stray continuation byte
        {std::string("a\0b", 3), std::wstring(L"a\0b", 3)},
    };
    for (const Case& c : cases)
    {
        EXPECT_EQ(AString::FromUTF8(c.utf8), c.wide);
    }
    const std::wstring invalid{static_cast<wchar_t>(0xD800), static_cast<wchar_t>(0x110000),
                               static_cast<wchar_t>(-1), L'a'};
    EXPECT_EQ(AString(invalid).ToUTF8(), "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"
                                         "a");
}

TEST(AString, NarrowCodePagesAreUtf8)
{
    const AString text(L"Wärme \u2126");
    const std::string utf8 = text.ToUTF8();
    EXPECT_EQ(text.ToNarrow(AString::OEM), utf8);
    EXPECT_EQ(text.ToNarrow(AString::ANS_ANSI), utf8);
    EXPECT_EQ(text.ToNarrow(), utf8);
    EXPECT_EQ(AString::FromNarrow(utf8, AString::OEM), text);
    EXPECT_EQ(AString::FromNarrow("\xFF", AString::ANS_ANSI), L"\uFFFD");
}

} // namespace
