#include "TextHelpers.h"

#include "Assert.h"
#include "I18n.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

void PrintTo(const AString& text, std::ostream* os)
{
    *os << '"' << text.ToUTF8() << '"';
}

namespace
{
// Control characters spelled out, so that a failing trace is readable.
std::string Visible(std::wstring_view text)
{
    std::string out;
    for (const wchar_t c : text)
    {
        switch (c)
        {
        case L'\n':
            out += "<LF>";
            break;
        case L'\r':
            out += "<CR>";
            break;
        case L'\v':
            out += "<VT>";
            break;
        case L'\f':
            out += "<FF>";
            break;
        case L'\a':
            out += "<BEL>";
            break;
        default:
            out += AString::ToUTF8(std::wstring_view(&c, 1));
        }
    }
    return out;
}

TEST(TextHelpers, ForwardersAnswerAsTheFramework)
{
    const std::vector<AString> texts = {L"",      L"abc",   L"\"abc\"", L"'abc'", L"\"abc",
                                        L"(a)",   L"(a]",   L"\"",      L"R9",    L"U099",
                                        L"net_a", L"<7:0>", L"a'b",     L"«q»"};
    for (const AString& text : texts)
    {
        SCOPED_TRACE(text.ToUTF8());
        EXPECT_EQ(GetMatchingFirstAndLastChars(text), i18n::GetMatchingFirstAndLastChars(text));
        EXPECT_EQ(AddDoubleQuotes(text), i18n::AddDoubleQuotes(text));
        EXPECT_EQ(RemoveDoubleQuotes(text), i18n::RemoveDoubleQuotes(text));
        EXPECT_EQ(AddSingleQuotes(text), i18n::AddSingleQuotes(text));
        EXPECT_EQ(RemoveSingleQuotes(text), i18n::RemoveSingleQuotes(text));
        EXPECT_EQ(IncrementName(text), i18n::IncrementName(text));
    }
    EXPECT_EQ(AddDoubleQuotes(L"abc"), L"\"abc\"");
    EXPECT_EQ(RemoveSingleQuotes(L"'abc'"), L"abc");
    EXPECT_EQ(IncrementName(L"R9"), L"R10");
    EXPECT_EQ(GetMatchingFirstAndLastChars(L"(a)"), L'(');
}

TEST(TextHelpers, CommaListsHaveNoBlankAfterTheComma)
{
    const std::vector<AString> items = {L"a", L"\"b\"", L""};
    for (const bool quote : {false, true})
    {
        SCOPED_TRACE(quote ? "quoted" : "plain");
        EXPECT_EQ(GetCommaDelimitedString(items, quote),
                  i18n::GetCommaDelimitedString(items, quote, false));
    }
    EXPECT_EQ(GetCommaDelimitedString(items, false), L"a,\"b\",");
    EXPECT_EQ(GetCommaDelimitedString(items, true), L"\"a\",\"b\",\"\"");
    EXPECT_EQ(GetCommaDelimitedString(std::vector<AString>{}, true), L"");

    const std::vector<double> values = {1.0, 2.5, -0.25};
    EXPECT_EQ(GetCommaDelimitedString(values, L"V"), L"1V,2.5V,-0.25V");
    EXPECT_EQ(GetCommaDelimitedString(values, L""),
              i18n::GetCommaDelimitedString(values, L"", false));
}

TEST(TextHelpers, ReplaceAllTextNeverSearchesInsertedText)
{
    struct Case
    {
        const wchar_t* text;
        const wchar_t* find;
        const wchar_t* replacement;
        const wchar_t* expected;
    };
    const Case cases[] = {
        {L"aaa", L"a", L"aa", L"aaaaaa"}, // replacement holds the search text
        {L"abc", L"x", L"y", L"abc"},     // nothing found
        {L"a.b.c", L".", L"::", L"a::b::c"},
        {L"aaa", L"aa", L"b", L"ba"},  // matches do not overlap
        {L"aaaa", L"aa", L"a", L"aa"}, // the shorter result is not searched again
        {L"abab", L"ab", L"", L""},    // removal
        {L"ab", L"a", L"ba", L"bab"},  // inserted text ends in the search text's start
        {L"Abc", L"a", L"x", L"Abc"},  // case-sensitive
        {L"", L"a", L"b", L""},
        {L"xyz", L"xyz", L"", L""},
        {L"xy", L"xyz", L"q", L"xy"}, // search text longer than the text
        {L"a\nb\n", L"\n", L"\r\n", L"a\r\nb\r\n"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Visible(c.text) + " / " + Visible(c.find) + " / " + Visible(c.replacement));
        EXPECT_EQ(ReplaceAllText(c.text, c.find, c.replacement), c.expected);
    }
}

TEST(TextHelpers, ReplaceAllTextRefusesAnEmptySearchText)
{
    for (const wchar_t* replacement : {L"", L"x"})
    {
        SCOPED_TRACE(Visible(replacement));
        AssertCapture capture;
        EXPECT_EQ(ReplaceAllText(L"abc", L"", replacement), L"abc");
        EXPECT_EQ(capture.Texts(), std::vector<std::string>{"!find.empty()"});
    }
}

TEST(TextHelpers, GetDelimitedStringJoinsWithTheGivenCharacter)
{
    struct Case
    {
        std::vector<AString> items;
        wchar_t delimiter;
        bool quote;
        const wchar_t* expected;
    };
    const Case cases[] = {
        {{}, L';', false, L""},
        {{}, L';', true, L""},
        {{L"a"}, L';', true, L"\"a\""},
        {{L"a", L"b"}, L';', false, L"a;b"},
        {{L"a", L"b"}, L';', true, L"\"a\";\"b\""},
        {{L"a b", L"c"}, L' ', false, L"a b c"},
        {{L"", L""}, L',', false, L","},
        {{L"", L"x"}, L',', true, L"\"\",\"x\""},
        {{L"\"a\"", L"b"}, L'|', true, L"\"a\"|\"b\""}, // quoted once only
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.expected);
        EXPECT_EQ(GetDelimitedString(c.items, c.delimiter, c.quote), c.expected);
    }
    // Quoting is AddDoubleQuotes applied to each item.
    const std::vector<AString> items = {L"a", L"\"b", L""};
    EXPECT_EQ(GetDelimitedString(items, L';', true),
              AddDoubleQuotes(L"a") + L";" + AddDoubleQuotes(L"\"b") + L";" + AddDoubleQuotes(L""));
}

TEST(TextHelpers, VariablePrefixIsALeadingPlus)
{
    const std::pair<const wchar_t*, bool> cases[] = {
        {L"", false},    {L"+x", true},  {L"+", true},  {L"x+", false},
        {L" +x", false}, {L"-x", false}, {L"++", true},
    };
    for (const auto& [text, expected] : cases)
    {
        SCOPED_TRACE(Visible(text));
        EXPECT_EQ(BeginsWithVariablePrefix(text), expected);
    }
}

TEST(TextHelpers, ModifyLibraryTypeNameDropsThenLowers)
{
    struct Case
    {
        const wchar_t* name;
        bool dropLastChar;
        bool toLower;
        const wchar_t* expected;
    };
    const Case cases[] = {
        {L"AbC1", true, true, L"abc"},  {L"AbC1", false, true, L"abc1"},
        {L"AbC1", true, false, L"AbC"}, {L"AbC1", false, false, L"AbC1"},
        {L"X", true, true, L""},        {L"", true, true, L""},
        {L"", false, true, L""},        {L"ÄÖ2", true, true, L"äö"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Visible(c.name) + (c.dropLastChar ? " drop" : "") +
                     (c.toLower ? " lower" : ""));
        EXPECT_EQ(qln::ModifyLibraryTypeName(c.name, c.dropLastChar, c.toLower), c.expected);
    }
}

TEST(TextHelpers, LabelWithBracketsCountsButDoesNotPairBrackets)
{
    const std::pair<const wchar_t*, bool> cases[] = {
        {L"_a[1]", true},   {L"abc", true}, // no bracket at all
        {L"a", true},       {L"_", true},    {L"a_9", true},
        {L"a<3>", true},    {L"a]b[", true}, // order not checked
        {L"a[b>", true},                     // kinds not checked
        {L"a[[1]]", true},  {L"", false},    {L"1a", false},
        {L"[a]", false}, // a bracket cannot come first
        {L"a[1", false},    {L"a1]", false}, {L"a.b", false},
        {L"a b", false},    {L"a-b", false}, {L"a(1)", false},
        {L"a[1:0]", false}, // range separators are not label characters
        {L"a,b", false},
    };
    for (const auto& [label, expected] : cases)
    {
        SCOPED_TRACE(Visible(label));
        EXPECT_EQ(merrowutility::IsLabelWithBrackets(label), expected);
    }
}

// Stored text: LF is a real netlist break, VT a break for the editor only.
TEST(TextHelpers, NetlistTextMovesBetweenStoredEditorAndNetlistForms)
{
    const AString stored = L"x\ny\vz";
    const AString editor = merrowutility::ProcessNetlistStringBeforeEditing(stored);
    EXPECT_EQ(editor, L"x\\n\r\ny\r\nz");
    EXPECT_EQ(merrowutility::ProcessNetlistStringAfterEditing(editor), stored);
    EXPECT_EQ(merrowutility::ProcessNetlistStringBeforeNetlisting(stored), L"x\nyz");
}

TEST(TextHelpers, BeforeEditingShowsRealBreaksAsTypedBackslashN)
{
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"", L""},
        {L"abc", L"abc"},
        {L"\n", L"\\n\r\n"},
        {L"\v", L"\r\n"},
        {L"a\r\nb", L"a\\n\r\nb"}, // stored CR is dropped, not doubled
        {L"a\rb", L"ab"},
        {L"a\n\nb", L"a\\n\r\n\\n\r\nb"},
        {L"a\v\nb", L"a\r\n\\n\r\nb"},
        {L"a\\nb", L"a\\nb"}, // a typed backslash-n is shown as it is
    };
    for (const auto& [input, expected] : cases)
    {
        SCOPED_TRACE(Visible(input));
        EXPECT_EQ(merrowutility::ProcessNetlistStringBeforeEditing(input), expected);
    }
}

TEST(TextHelpers, AfterEditingTurnsTypedBackslashNIntoRealBreaks)
{
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"", L""},
        {L"a\\n\r\nb", L"a\nb"}, // at the end of a line
        {L"a\\n\nb", L"a\nb"},   // without CR
        {L"a\\nb", L"a\nb"},     // alone in the middle of a line
        {L"a\r\nb", L"a\vb"},    // plain editor break
        {L"a\nb", L"a\vb"},
        {L"a\\n\\n\r\nb", L"a\n\nb"},   // the first becomes a break, the second one with its LF
        {L"a\\\\nb", L"a\\\\nb"},       // escaped escape survives
        {L"a\\\\n\r\nb", L"a\\\\n\vb"}, // and its line break stays an editor break
        {L"a\\\\\\nb", L"a\\\\\\nb"},   // three backslashes: the last two are the escape
        {L"a\\\r\nb", L"a\\\vb"},       // a backslash alone at the end of a line
        {L"a\ab", L"a\\\\nb"},          // BEL comes out as an escaped backslash-n
        {L"a\fb", L"a\nb"},             // FF stands for a real break
        {L"\r\r", L""},
    };
    for (const auto& [input, expected] : cases)
    {
        SCOPED_TRACE(Visible(input));
        EXPECT_EQ(merrowutility::ProcessNetlistStringAfterEditing(input), expected);
    }
}

TEST(TextHelpers, BeforeNetlistingJoinsEditorOnlyBreaks)
{
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"", L""},
        {L"a\vb", L"ab"},
        {L"a\r\nb", L"a\nb"},
        {L"\v\v\r", L""},
        {L"a\\nb\\\\n", L"a\\nb\\\\n"},
        {L"a\n\vb\n", L"a\nb\n"},
    };
    for (const auto& [input, expected] : cases)
    {
        SCOPED_TRACE(Visible(input));
        EXPECT_EQ(merrowutility::ProcessNetlistStringBeforeNetlisting(input), expected);
    }
}

// Stored texts that the editor form cannot tell apart from others, so they come back changed.
TEST(TextHelpers, RoundTripChangesOnlyTextsTheEditorFormCannotShow)
{
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"a\rb", L"ab"},          // CR is never kept
        {L"a\fb", L"a\nb"},        // FF reads as a real break
        {L"a\ab", L"a\\\\nb"},     // BEL side effect
        {L"a\\nb", L"a\nb"},       // a stored backslash-n reads as typed in the editor
        {L"a\\\nb", L"a\\\\n\vb"}, // a backslash before a real break shows as an escape
    };
    for (const auto& [stored, expected] : cases)
    {
        SCOPED_TRACE(Visible(stored));
        EXPECT_EQ(merrowutility::ProcessNetlistStringAfterEditing(
                      merrowutility::ProcessNetlistStringBeforeEditing(stored)),
                  expected);
    }
}

// Whether the editor form of a stored text is unambiguous: no CR, FF or BEL, no backslash right
// before a real break, and "n" after a backslash only as the escaped form (two or more).
bool ShowsUnambiguously(const AString& stored)
{
    for (std::size_t i = 0; i < stored.size(); ++i)
    {
        const wchar_t c = stored[i];
        if (c == L'\r' || c == L'\f' || c == L'\a')
        {
            return false;
        }
        if (c != L'\\' || i + 1 == stored.size())
        {
            continue;
        }
        const wchar_t next = stored[i + 1];
        const bool escaped = i > 0 && stored[i - 1] == L'\\';
        if (next == L'\n' || (next == L'n' && !escaped))
        {
            return false;
        }
    }
    return true;
}

TEST(TextHelpers, StoredTextSurvivesTheEditorRoundTrip)
{
    const wchar_t alphabet[] = {L'a',  L'n',  L'\\', L'\\', L' ',  L'\n',     L'\n', L'\v',
                                L'\v', L'\t', L'\r', L'\f', L'\a', L'\u00e9', L'N'};
    std::mt19937 random(20240611u);
    std::uniform_int_distribution<std::size_t> pick(0, std::size(alphabet) - 1);
    std::uniform_int_distribution<std::size_t> length(0, 14);
    int checked = 0;
    for (int round = 0; round < 20000; ++round)
    {
        AString stored;
        for (std::size_t n = length(random); n > 0; --n)
        {
            stored.push_back(alphabet[pick(random)]);
        }
        SCOPED_TRACE(Visible(stored));
        const AString editor = merrowutility::ProcessNetlistStringBeforeEditing(stored);
        const AString back = merrowutility::ProcessNetlistStringAfterEditing(editor);
        // Whatever the input, the stored form holds no CR, FF or BEL, and the editor form
        // breaks lines with CR LF only.
        EXPECT_EQ(back.find_first_of(L"\r\f\a"), AString::npos);
        EXPECT_EQ(editor.find(L'\v'), AString::npos);
        for (std::size_t i = 0; i < editor.size(); ++i)
        {
            if (editor[i] == L'\n')
            {
                ASSERT_TRUE(i > 0 && editor[i - 1] == L'\r');
            }
        }
        if (ShowsUnambiguously(stored))
        {
            ++checked;
            ASSERT_EQ(back, stored);
            EXPECT_EQ(merrowutility::ProcessNetlistStringBeforeNetlisting(back),
                      merrowutility::ProcessNetlistStringBeforeNetlisting(stored));
        }
    }
    EXPECT_GT(checked, 2000); // the generator must reach the property often enough
}
} // namespace
