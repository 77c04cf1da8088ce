#include "I18n.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

void PrintTo(const AString& text, std::ostream* os)
{
    *os << '"' << text.ToUTF8() << '"';
}

namespace
{
std::string Utf8(std::wstring_view text)
{
    return AString::ToUTF8(text);
}

TEST(I18n, MatchingFirstAndLastCharsNeedsAPairAroundTheText)
{
    struct Case
    {
        const wchar_t* text;
        wchar_t open;
    };
    const Case cases[] = {
        {L"(a)", L'('},   {L"\"x\"", L'"'}, {L"'x'", L'\''}, {L"[]", L'['},   {L"{a b}", L'{'},
        {L"<7:0>", L'<'}, {L"“q”", L'“'},   {L"‘q’", L'‘'},  {L"«q»", L'«'},  {L"(a]", 0},
        {L")a(", 0},      {L"\"", 0},       {L"(", 0},       {L"", 0},        {L"a", 0},
        {L"”q“", 0},      {L"\"a'", 0},     {L"(a)b", 0},    {L"\"\"", L'"'}, {L"((a)", L'('},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Utf8(c.text));
        EXPECT_EQ(i18n::GetMatchingFirstAndLastChars(c.text), c.open);
    }
}

TEST(I18n, QuotesAreAddedOnceAndRemovedOnlyInPairs)
{
    struct Case
    {
        const wchar_t* text;
        const wchar_t* added;
        const wchar_t* removed;
    };
    // Written with single quotes; the double-quote variant is derived below.
    const Case cases[] = {
        {L"abc", L"'abc'", L"abc"},
        {L"'abc'", L"'abc'", L"abc"},
        {L"", L"''", L""},
        {L"'", L"'''", L"'"},
        {L"''", L"''", L""},
        {L"'abc", L"''abc'", L"'abc"},
        {L"abc'", L"'abc''", L"abc'"},
        {L"''abc''", L"''abc''", L"'abc'"},
        {L"a'b", L"'a'b'", L"a'b"},
        {L"\"abc\"", L"'\"abc\"'", L"\"abc\""}, // the other kind of quote is plain text
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Utf8(c.text));
        EXPECT_EQ(i18n::AddSingleQuotes(c.text), c.added);
        EXPECT_EQ(i18n::RemoveSingleQuotes(c.text), c.removed);

        AString text(c.text), added(c.added), removed(c.removed);
        for (AString* s : {&text, &added, &removed})
        {
            for (wchar_t& ch : *s)
            {
                ch = ch == L'\'' ? L'"' : ch == L'"' ? L'\'' : ch;
            }
        }
        EXPECT_EQ(i18n::AddDoubleQuotes(text), added);
        EXPECT_EQ(i18n::RemoveDoubleQuotes(text), removed);
        // Adding then removing gives the text back unless it was already quoted.
        if (i18n::GetMatchingFirstAndLastChars(text) != L'"')
        {
            EXPECT_EQ(i18n::RemoveDoubleQuotes(i18n::AddDoubleQuotes(text)), text);
        }
    }
}

TEST(I18n, CommaDelimitedItems)
{
    const std::vector<AString> items = {L"a", L"\"b\"", L"", L"c d"};
    EXPECT_EQ(i18n::GetCommaDelimitedString(items, false, false), L"a,\"b\",,c d");
    EXPECT_EQ(i18n::GetCommaDelimitedString(items, true, false), L"\"a\",\"b\",\"\",\"c d\"");
    EXPECT_EQ(i18n::GetCommaDelimitedString(items, false, true), L"a, \"b\", , c d");
    EXPECT_EQ(i18n::GetCommaDelimitedString(std::vector<AString>{}, true, true), L"");
    EXPECT_EQ(i18n::GetCommaDelimitedString(std::vector<AString>{L"x"}, false, true), L"x");
}

TEST(I18n, CommaDelimitedValuesReadBackExactly)
{
    const std::vector<double> values = {1.0, 2.5, 1e-9, -0.25, 0.1, 1e21, 123456789.0};
    EXPECT_EQ(i18n::GetCommaDelimitedString(values, L"", false),
              L"1,2.5,1e-09,-0.25,0.1,1e+21,123456789");
    EXPECT_EQ(i18n::GetCommaDelimitedString(std::vector<double>{1, 2}, L"V", true), L"1V, 2V");
    EXPECT_EQ(i18n::GetCommaDelimitedString(std::vector<double>{}, L"V", false), L"");

    // Every value survives the round trip through its text.
    const std::vector<double> awkward = {
        1.0 / 3.0, 2.0 / 3.0, 1e-300, 5e-324, std::numeric_limits<double>::max(), -1e100};
    std::vector<AString> pieces;
    AString(i18n::GetCommaDelimitedString(awkward, L"", false)).TokenizeString(pieces, L",", true);
    ASSERT_EQ(pieces.size(), awkward.size());
    for (std::size_t i = 0; i < awkward.size(); ++i)
    {
        double back = 0;
        EXPECT_TRUE(pieces[i].IsNumber(back)) << Utf8(pieces[i]);
        EXPECT_EQ(back, awkward[i]);
    }
    EXPECT_EQ(
        i18n::GetCommaDelimitedString(
            std::vector<double>{std::numeric_limits<double>::infinity(), std::nan("")}, L"", false),
        L"inf,nan");
}

TEST(I18n, IncrementNameCountsUpTheTrailingNumber)
{
    struct Case
    {
        std::wstring name;
        std::wstring next;
    };
    const Case cases[] = {
        {L"R9", L"R10"},
        {L"net", L"net1"},
        {L"U007", L"U008"},
        {L"U099", L"U100"},
        {L"U009", L"U010"},
        {L"U999", L"U1000"},
        {L"C0", L"C1"},
        {L"00", L"01"},
        {L"9", L"10"},
        {L"", L"1"},
        {L"a1b", L"a1b1"},
        {L"x-9", L"x-10"}, // the minus is part of the name, not a sign
        {L"R9 ", L"R9 1"},
        {L"d[7]", L"d[7]1"},
        {L"\u0661", L"\u06611"}, // only ASCII digits count
        {L"n" + std::wstring(40, L'9'), L"n1" + std::wstring(40, L'0')},
        {L"n18446744073709551615", L"n18446744073709551616"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Utf8(c.name));
        EXPECT_EQ(i18n::IncrementName(c.name), c.next);
    }
}

TEST(I18n, ConvertNLtoNLCRNeverDoublesCarriageReturns)
{
    struct Case
    {
        const wchar_t* text;
        const wchar_t* converted;
    };
    const Case cases[] = {
        {L"a\nb", L"a\r\nb"},
        {L"a\r\nb", L"a\r\nb"},
        {L"a\rb", L"a\rb"},
        {L"\n", L"\r\n"},
        {L"\n\n", L"\r\n\r\n"},
        {L"\r\n\n\r", L"\r\n\r\n\r"},
        {L"x\\n\ny\vz", L"x\\n\r\ny\vz"},
        {L"", L""},
        {L"no breaks", L"no breaks"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Utf8(c.text));
        const AString once = i18n::ConvertNLtoNLCR(c.text);
        EXPECT_EQ(once, c.converted);
        EXPECT_EQ(i18n::ConvertNLtoNLCR(once), once); // idempotent
    }
}

TEST(I18n, UnderscoreIsOnlyTheAsciiLowLine)
{
    EXPECT_TRUE(i18n::ACharIsUnderscore(L'_'));
    for (wchar_t c : {L'-', L' ', L'\0', L'a', L'\uFF3F', L'\u2017', L'\u203F'})
    {
        EXPECT_FALSE(i18n::ACharIsUnderscore(c)) << static_cast<int>(c);
    }
}

TEST(I18n, StrNICmpComparesAPrefixIgnoringCase)
{
    struct Case
    {
        const wchar_t* a;
        const wchar_t* b;
        std::size_t n;
        int result;
    };
    const Case cases[] = {
        {L"Hello", L"HELP", 3, 0},
        {L"Hello", L"HELP", 4, -1},
        {L"abc", L"ABD", 3, -1},
        {L"abd", L"ABC", 3, 1},
        {L"ab", L"abc", 5, -1}, // the end of a text sorts first
        {L"abc", L"ab", 5, 1},
        {L"abc", L"ABC", 100, 0},
        {L"x", L"y", 0, 0},
        {L"", L"", 3, 0},
        {L"$SYSLIB\\a", L"$syslib", 7, 0},
        {L"ÄRGER", L"ärger", 5, 0},
        {L"_", L"A", 1, -1},        // folds to lower case, as CompareNoCase
        {L"ab\0x", L"ab\0y", 4, 0}, // stops at the end of the texts
        {nullptr, L"", 3, 0},
        {nullptr, L"a", 3, -1},
        {L"a", nullptr, 3, 1},
        {nullptr, nullptr, 3, 0},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Utf8(c.a ? c.a : L"(null)") + " / " + Utf8(c.b ? c.b : L"(null)") + " / " +
                     std::to_string(c.n));
        EXPECT_EQ(i18n::ACharStrNICmp(c.a, c.b, c.n), c.result);
        EXPECT_EQ(i18n::ACharStrNICmp(c.b, c.a, c.n), -c.result);
    }
    // Agrees with the full comparison when n covers both texts.
    EXPECT_EQ(i18n::ACharStrNICmp(L"a[10]", L"A[2]", 10),
              AString::CompareNoCase(L"a[10]", L"A[2]") < 0 ? -1 : 1);
}
} // namespace
