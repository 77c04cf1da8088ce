#include "VHDLTokenData.h"

#include "Assert.h"

#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace
{
using Pairs = std::map<wchar_t, wchar_t>;
using Texts = std::vector<std::wstring>;

std::string Utf8(std::wstring_view text)
{
    return AString::ToUTF8(text);
}

Texts Tokens(const VHDLTokenData& data)
{
    Texts tokens;
    for (int i = 0; i < data.Count(); ++i)
    {
        tokens.emplace_back(data[static_cast<unsigned>(i)]);
    }
    return tokens;
}

std::vector<bool> ExtendedFlags(const VHDLTokenData& data)
{
    std::vector<bool> flags;
    for (int i = 0; i < data.Count(); ++i)
    {
        flags.push_back(data.IsExtended(static_cast<unsigned>(i)));
    }
    return flags;
}

struct SplitCase
{
    const wchar_t* text;
    const wchar_t* delimiters;
    int collapse;
    Texts expected;
};

TEST(VHDLTokenData, SplitsAtDelimiters)
{
    const SplitCase cases[] = {
        {L"a, b", L", ", 1, {L"a", L"b"}},
        {L"a, b", L", ", 0, {L"a", L"", L"b"}}, // two delimiters enclose an empty token
        {L", a,, b ,", L", ", 1, {L"a", L"b"}}, // leading and trailing runs skipped
        {L", a", L",", 0, {L"", L" a"}},        // a leading delimiter opens an empty token
        {L"a,", L",", 0, {L"a", L""}},          // so does a trailing one
        {L",", L",", 0, {L"", L""}},
        {L",,,", L",", 1, {}},
        {L"", L",", 0, {}},
        {L"", L",", 1, {}},
        {L"abc", L",", 1, {L"abc"}},
        {L"abc", L"", 1, {}},             // no delimiters: no scan at all
        {L"a,,b", L",", 2, {L"a", L"b"}}, // any nonzero collapse value collapses
        {L"a,,b", L",", -1, {L"a", L"b"}},
        {L"top.sub[3]", L".[<>]", 1, {L"top", L"sub", L"3"}},
        {L"bus<7>.x", L".[<>]", 0, {L"bus", L"7", L"", L"x"}},
        {L"a\tb c", L" ", 1, {L"a\tb", L"c"}},
        {L"(a b)", L" ", 1, {L"(a", L"b)"}}, // brackets mean nothing without pairs
    };
    for (const SplitCase& c : cases)
    {
        SCOPED_TRACE(Utf8(c.text) + " at [" + Utf8(c.delimiters) + "] collapse " +
                     std::to_string(c.collapse));
        const VHDLTokenData data(c.text, c.delimiters, c.collapse, nullptr);
        EXPECT_EQ(data.Count(), static_cast<int>(c.expected.size()));
        EXPECT_EQ(Tokens(data), c.expected);
        const Pairs none;
        EXPECT_EQ(Tokens(VHDLTokenData(c.text, c.delimiters, c.collapse, &none)), c.expected);
    }
}

TEST(VHDLTokenData, KeepsPairedStretchesWhole)
{
    const Pairs brackets = {{L'(', L')'}, {L'[', L']'}};
    const Pairs quotes = {{L'"', L'"'}};
    struct Case
    {
        const wchar_t* text;
        const Pairs* pairs;
        Texts expected;
    };
    const Case cases[] = {
        {L"f(a, b) c", &brackets, {L"f(a, b)", L"c"}},
        {L"f(a(b, c), d) e", &brackets, {L"f(a(b, c), d)", L"e"}}, // nesting
        {L"(a b)(c d) e", &brackets, {L"(a b)(c d)", L"e"}},
        {L"a[(] b", &brackets, {L"a[(]", L"b"}}, // only the open pair's characters count
        {L"a[b) c] d", &brackets, {L"a[b) c]", L"d"}},
        {L"f(a b", &brackets, {L"f(a b"}},             // unclosed: the end closes the token
        {L"a) b", &brackets, {L"a)", L"b"}},           // a closing character alone is ordinary
        {L"\"a, b\" c", &quotes, {L"\"a, b\"", L"c"}}, // a quote closes itself
        {L"\"a\"\"b c\" d", &quotes, {L"\"a\"\"b c\"", L"d"}},
        {L"x \"y", &quotes, {L"x", L"\"y"}},
        {L"(\\a b\\) c", &brackets, {L"(\\a b\\)", L"c"}}, // backslashes inside stay as typed
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Utf8(c.text));
        const VHDLTokenData data(c.text, L", ", 1, c.pairs);
        EXPECT_EQ(Tokens(data), c.expected);
        EXPECT_EQ(ExtendedFlags(data), std::vector<bool>(c.expected.size(), false));
    }
    // Without collapsing a delimiter right after a stretch still breaks once.
    EXPECT_EQ(Tokens(VHDLTokenData(L"(a,b),,c", L",", 0, &brackets)), (Texts{L"(a,b)", L"", L"c"}));
}

TEST(VHDLTokenData, RecognisesExtendedIdentifiers)
{
    struct Case
    {
        const wchar_t* text;
        Texts tokens;
        std::vector<bool> extended;
        bool okay;
    };
    const Case cases[] = {
        {L"\\bus\\ x", {L"\\bus\\", L"x"}, {true, false}, true},
        {L"a\\b", {L"a\\b"}, {true}, false},                                // never closed
        {L"\\a\\\\b\\ y", {L"\\a\\\\b\\", L"y"}, {true, false}, true},      // escaped backslash
        {L"\\\\\\\\", {L"\\\\\\\\"}, {true}, true},                         // just a backslash
        {L"\\a b\\ c", {L"\\a", L"b\\", L"c"}, {true, true, false}, false}, // break while open
        {L"x\\y\\ z", {L"x\\y\\", L"z"}, {true, false}, true}, // characters before the opening
        {L"\\a\\\\", {L"\\a\\\\"}, {true}, false}, // the escape swallows the closing one
        {L"\\", {L"\\"}, {true}, false},
        {L"\\a\\b\\", {L"\\a\\b\\"}, {true}, true}, // a backslash escapes any character
        {L"x \\A\\", {L"x", L"\\A\\"}, {false, true}, true},
        {L"\\9\\ \\a-b\\", {L"\\9\\", L"\\a-b\\"}, {true, true}, true},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Utf8(c.text));
        VHDLTokenData data(c.text, L" ", 1, nullptr);
        EXPECT_EQ(Tokens(data), c.tokens);
        EXPECT_EQ(ExtendedFlags(data), c.extended);
        EXPECT_EQ(data.IsOkayVHDL(), c.okay);
    }
}

TEST(VHDLTokenData, IsOkayVHDLAllowsOnlyIdentifierCharacters)
{
    const std::pair<const wchar_t*, bool> cases[] = {
        {L"abc_9 X1", true}, {L"9lives", true}, // the first character is not treated apart
        {L"_a", true},       {L"", true},
        {L"my-net", false},  {L"a b-c", false},     // any one token fails the text
        {L"a$b", false},     {L"caf\u00e9", false}, // letters outside A-Z do not count
        {L"a(1)", false},
    };
    for (const auto& [text, okay] : cases)
    {
        SCOPED_TRACE(Utf8(text));
        VHDLTokenData data(text, L" ", 1, nullptr);
        EXPECT_EQ(data.IsOkayVHDL(), okay);
        EXPECT_EQ(data.IsOkayVHDL(), okay); // the result is kept
    }
    // Empty tokens between delimiters hold nothing illegal.
    EXPECT_TRUE(VHDLTokenData(L"a,,b", L",", 0, nullptr).IsOkayVHDL());
}

// A pair whose closing character is a backslash can hide an escape from the scan; the check
// still refuses a lone backslash right before the closing one.
TEST(VHDLTokenData, IsOkayVHDLRefusesALoneBackslashBeforeTheClosingOne)
{
    const Pairs toBackslash = {{L'(', L'\\'}};
    VHDLTokenData hidden(L"\\a(\\\\", L" ", 1, &toBackslash);
    ASSERT_EQ(Tokens(hidden), Texts{L"\\a(\\\\"});
    EXPECT_TRUE(hidden.IsExtended(0));
    EXPECT_FALSE(hidden.IsOkayVHDL());

    VHDLTokenData fine(L"\\a(b\\c\\", L" ", 1, &toBackslash);
    EXPECT_TRUE(fine.IsOkayVHDL());
}

// A delimiter that also opens a pair lets text follow a closed extended identifier in the
// same token; a further backslash there is illegal.
TEST(VHDLTokenData, BackslashAfterAClosedIdentifierIsIllegal)
{
    const Pairs brackets = {{L'(', L')'}};
    VHDLTokenData data(L"\\a\\(x)\\", L" (", 1, &brackets);
    EXPECT_EQ(Tokens(data), Texts{L"\\a\\(x)\\"});
    EXPECT_FALSE(data.IsOkayVHDL());

    // The same token is legal when "(" is no delimiter: the backslash before it escapes it.
    VHDLTokenData escaped(L"\\a\\(x)\\", L" ", 1, &brackets);
    EXPECT_EQ(Tokens(escaped), Texts{L"\\a\\(x)\\"});
    EXPECT_TRUE(escaped.IsOkayVHDL());
}

// The scan judges what the token check cannot see afterwards: an escape that swallowed the
// opening of a pair, or an identifier left open by a pair that closes on a backslash.
TEST(VHDLTokenData, ScanVerdictCoversWhatTheTokensNoLongerShow)
{
    const Pairs brackets = {{L'(', L')'}};
    VHDLTokenData escapedOpening(L"\\a\\(b c)\\", L" ", 1, &brackets);
    EXPECT_EQ(Tokens(escapedOpening), (Texts{L"\\a\\(b", L"c)\\"}));
    EXPECT_FALSE(escapedOpening.IsOkayVHDL());
    VHDLTokenData plainOpening(L"\\a(b c)\\", L" ", 1, &brackets);
    EXPECT_EQ(Tokens(plainOpening), Texts{L"\\a(b c)\\"});
    EXPECT_TRUE(plainOpening.IsOkayVHDL());

    const Pairs toBackslash = {{L'(', L'\\'}};
    VHDLTokenData leftOpen(L"\\(x\\", L" ", 1, &toBackslash);
    EXPECT_EQ(Tokens(leftOpen), Texts{L"\\(x\\"});
    EXPECT_TRUE(leftOpen.IsExtended(0));
    EXPECT_FALSE(leftOpen.IsOkayVHDL());
}

TEST(VHDLTokenData, DropsATrailingCarriageReturnThatIsADelimiter)
{
    struct Case
    {
        const wchar_t* text;
        const wchar_t* delimiters;
        Texts tokens;
        const wchar_t* rest;
    };
    const Case cases[] = {
        {L"a b\r", L" \r", {L"a", L"b"}, L"a b"},
        {L"a b\r", L" ", {L"a", L"b\r"}, L"a b\r"}, // CR not a delimiter: kept
        {L"a\r\r", L"\r", {L"a", L""}, L"a\r"},     // only the last one goes
        {L"a\rb", L"\r", {L"a", L"b"}, L"a\rb"},    // not at the end: an ordinary delimiter
        {L"\r", L"\r", {}, L""},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Utf8(c.text) + " at [" + Utf8(c.delimiters) + "]");
        const VHDLTokenData data(c.text, c.delimiters, 0, nullptr);
        EXPECT_EQ(Tokens(data), c.tokens);
        EXPECT_STREQ(data.RestOfString(0), c.rest);
    }
}

TEST(VHDLTokenData, OutOfRangeIndexAssertsOnTheBound)
{
    const VHDLTokenData data(L"a b", L" ", 1, nullptr);
    const VHDLTokenData empty(L"", L" ", 1, nullptr);
    AssertCapture capture;
    EXPECT_STREQ(data[1], L"b");
    EXPECT_EQ(capture.Count(), 0u);
    EXPECT_EQ(data[2], nullptr);
    EXPECT_EQ(data[UINT_MAX], nullptr);
    EXPECT_EQ(empty[0], nullptr);
    const std::string bound = "idx < static_cast<unsigned>(mSize)";
    EXPECT_EQ(capture.Texts(), (std::vector<std::string>{bound, bound, bound}));

    capture.Clear();
    EXPECT_TRUE(VHDLTokenData(L"\\a\\", L" ", 1, nullptr).IsExtended(0));
    EXPECT_FALSE(data.IsExtended(2));
    EXPECT_FALSE(data.IsExtended(UINT_MAX));
    EXPECT_FALSE(empty.IsExtended(0));
    EXPECT_EQ(capture.Count(), 0u);
}

TEST(VHDLTokenData, NullDelimitersAssertAndGiveNoTokens)
{
    AssertCapture capture;
    const VHDLTokenData data(L"a b", nullptr, 1, nullptr);
    EXPECT_EQ(capture.Texts(), std::vector<std::string>{"delim"});
    EXPECT_EQ(data.Count(), 0);
    EXPECT_STREQ(data.RestOfString(0), L"a b");

    capture.Clear();
    const VHDLTokenData none(static_cast<const wchar_t*>(nullptr), L" ", 1, nullptr);
    EXPECT_EQ(capture.Count(), 0u);
    EXPECT_EQ(none.Count(), 0);
    EXPECT_STREQ(none.RestOfString(0), L"");
    EXPECT_STREQ(none.RestOfString(1), L"");
}

TEST(VHDLTokenData, TextEndsAtItsFirstNullCharacter)
{
    const AString text(L"a b\0c d", 7);
    const VHDLTokenData data(text, L" ", 1, nullptr);
    EXPECT_EQ(Tokens(data), (Texts{L"a", L"b"}));
    EXPECT_STREQ(data.RestOfString(0), L"a b");
}

TEST(VHDLTokenData, RestOfStringWalksTokensAndDelimiters)
{
    const Pairs brackets = {{L'(', L')'}};
    struct Case
    {
        const wchar_t* text;
        int collapse;
        const Pairs* pairs;
        int n;
        const wchar_t* rest;
    };
    const Case cases[] = {
        {L"a b  c", 1, nullptr, 0, L"a b  c"},
        {L"a b  c", 1, nullptr, 1, L"b  c"},
        {L"a b  c", 1, nullptr, 2, L"c"},
        {L"a b  c", 1, nullptr, 3, L""},
        {L"a b  c", 1, nullptr, 99, L""},
        {L"a b  c", 1, nullptr, -1, L"a b  c"},
        {L"  a b", 1, nullptr, 0, L"  a b"}, // the whole text, leading delimiters too
        {L"  a b", 1, nullptr, 1, L"b"},
        {L"  a b", 1, nullptr, -2, L"  a b"},
        {L"f(a b) c d", 1, &brackets, 1, L"c d"},
        {L"\\x y\\ z", 1, nullptr, 1, L"y\\ z"},
        // Without collapsing the walk still skips every delimiter run, so it runs ahead of
        // empty tokens, and stops at the end of the text.
        {L"a  b c", 0, nullptr, 1, L"b c"},
        {L"a  b c", 0, nullptr, 2, L"c"},
        {L"a  b c", 0, nullptr, 3, L""},
        {L"  a", 0, nullptr, 2, L""},
        {L" a", 0, nullptr, 1, L""},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Utf8(c.text) + " collapse " + std::to_string(c.collapse) + " n " +
                     std::to_string(c.n));
        const VHDLTokenData data(c.text, L" ", c.collapse, c.pairs);
        EXPECT_STREQ(data.RestOfString(c.n), c.rest);
    }
}

void ExpectSame(const VHDLTokenData& a, const VHDLTokenData& b)
{
    ASSERT_EQ(a.Count(), b.Count());
    EXPECT_EQ(Tokens(a), Tokens(b));
    EXPECT_EQ(ExtendedFlags(a), ExtendedFlags(b));
    for (int n = 0; n <= a.Count(); ++n)
    {
        EXPECT_STREQ(a.RestOfString(n), b.RestOfString(n));
    }
    for (int i = 0; i < a.Count(); ++i)
    {
        EXPECT_NE(a[static_cast<unsigned>(i)], b[static_cast<unsigned>(i)]); // own copies
    }
    if (a.Count() > 0)
    {
        EXPECT_NE(a.RestOfString(0), b.RestOfString(0));
    }
}

TEST(VHDLTokenData, CopiesOwnTheirData)
{
    const Pairs brackets = {{L'(', L')'}};
    const wchar_t* texts[] = {L"f(a, b) \\x\\ y", L"", L",,", L"a\\b"};
    for (const wchar_t* text : texts)
    {
        SCOPED_TRACE(Utf8(text));
        auto* original = new VHDLTokenData(text, L", ", 1, &brackets);
        const bool okay = original->IsOkayVHDL();
        VHDLTokenData copy(*original);
        VHDLTokenData copyOfCopy(copy);
        ExpectSame(*original, copy);
        ExpectSame(copy, copyOfCopy);
        delete original; // the copies must not share anything with it
        EXPECT_EQ(copyOfCopy.IsOkayVHDL(), okay);
        EXPECT_EQ(Tokens(copyOfCopy), Tokens(copy));
    }
}

TEST(VHDLTokenData, AssignmentReplacesAndSurvivesSelfAssignment)
{
    VHDLTokenData full(L"\\a\\ b c", L" ", 1, nullptr);
    const VHDLTokenData reference(full);
    VHDLTokenData empty(L"", L" ", 1, nullptr);
    VHDLTokenData bad(L"my-net", L" ", 1, nullptr);
    ASSERT_FALSE(bad.IsOkayVHDL());
    // Tokens that would pass the check, in a text whose scan was not okay.
    const Pairs toBackslash = {{L'(', L'\\'}};
    const VHDLTokenData scannedBad(L"\\(x\\", L" ", 1, &toBackslash);

    VHDLTokenData& self = full;
    full = self;
    ExpectSame(full, reference);

    VHDLTokenData target(L"x", L",", 0, nullptr);
    target = full;
    ExpectSame(target, full);
    EXPECT_TRUE(target.IsOkayVHDL());

    target = empty; // full to empty
    EXPECT_EQ(target.Count(), 0);
    EXPECT_STREQ(target.RestOfString(0), L"");

    target = bad; // the kept verdict goes along
    EXPECT_FALSE(target.IsOkayVHDL());
    EXPECT_EQ(Tokens(target), Texts{L"my-net"});
    VHDLTokenData fresh(L"ok", L" ", 1, nullptr);
    fresh = scannedBad;
    EXPECT_FALSE(fresh.IsOkayVHDL());
    VHDLTokenData copied(scannedBad);
    EXPECT_FALSE(copied.IsOkayVHDL());

    {
        const VHDLTokenData temporary(L"p q", L" ", 1, nullptr);
        target = temporary;
    }
    EXPECT_EQ(Tokens(target), (Texts{L"p", L"q"}));
}

// Backslashes never change where a token ends, so without pairs the scan splits as the
// framework's tokenizer does: every delimiter breaks, or runs of them with collapsing.
TEST(VHDLTokenData, SplitsLikeTheFrameworkTokenizerWithoutPairs)
{
    const wchar_t alphabet[] = {L'a', L'b', L'\\', L'\\', L',', L' ', L'(', L'_', L'\u00e9'};
    std::mt19937 random(7u);
    std::uniform_int_distribution<std::size_t> pick(0, std::size(alphabet) - 1);
    std::uniform_int_distribution<std::size_t> length(0, 12);
    for (int round = 0; round < 5000; ++round)
    {
        AString text;
        for (std::size_t n = length(random); n > 0; --n)
        {
            text.push_back(alphabet[pick(random)]);
        }
        SCOPED_TRACE(Utf8(text));
        for (const int collapse : {0, 1})
        {
            std::vector<AString> expected;
            if (!text.empty())
            {
                text.TokenizeString(expected, L", ", collapse == 0);
            }
            const VHDLTokenData data(text, L", ", collapse, nullptr);
            ASSERT_EQ(Tokens(data), Texts(expected.begin(), expected.end()));
            for (int i = 0; i < data.Count(); ++i)
            {
                const std::wstring token = data[static_cast<unsigned>(i)];
                EXPECT_EQ(data.IsExtended(static_cast<unsigned>(i)),
                          token.find(L'\\') != std::wstring::npos);
                // With collapsing every later token starts where the walk lands.
                if (collapse != 0 && i > 0)
                {
                    EXPECT_EQ(std::wstring(data.RestOfString(i)).rfind(token, 0), 0u);
                }
            }
        }
    }
}
} // namespace
