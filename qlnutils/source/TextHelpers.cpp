#include "TextHelpers.h"

#include "Assert.h"
#include "I18n.h"

#include <cwctype>

namespace
{
constexpr wchar_t kBel = L'\a';
constexpr wchar_t kVerticalTab = L'\v';
constexpr wchar_t kFormFeed = L'\f';
constexpr wchar_t kCarriageReturn = L'\r';
constexpr wchar_t kLineFeed = L'\n';

// The typed text backslash-n that the editor shows at the end of a real netlist line, and
// the escaped form backslash-backslash-n that stands for itself.
constexpr const wchar_t* kTypedNewLine = L"\\n";
constexpr const wchar_t* kEscapedTypedNewLine = L"\\\\n";

AString Char(wchar_t c)
{
    return AString(1, c);
}
} // namespace

wchar_t GetMatchingFirstAndLastChars(const AString& text)
{
    return i18n::GetMatchingFirstAndLastChars(text);
}

AString AddDoubleQuotes(const AString& text)
{
    return i18n::AddDoubleQuotes(text);
}

AString RemoveDoubleQuotes(const AString& text)
{
    return i18n::RemoveDoubleQuotes(text);
}

AString AddSingleQuotes(const AString& text)
{
    return i18n::AddSingleQuotes(text);
}

AString RemoveSingleQuotes(const AString& text)
{
    return i18n::RemoveSingleQuotes(text);
}

AString GetCommaDelimitedString(const std::vector<AString>& items, bool quoteItems)
{
    return i18n::GetCommaDelimitedString(items, quoteItems, false);
}

AString GetCommaDelimitedString(const std::vector<double>& values, const AString& units)
{
    return i18n::GetCommaDelimitedString(values, units, false);
}

AString IncrementName(const AString& name)
{
    return i18n::IncrementName(name);
}

AString ReplaceAllText(const AString& text, const AString& find, const AString& replacement)
{
    AString result(text);
    // An empty search text would be found again right after each (empty) replacement.
    if (!PLINTH_ASSERT(!find.empty()))
    {
        return result;
    }
    std::size_t position = result.find(find);
    while (position != AString::npos)
    {
        result.replace(position, find.size(), replacement);
        position = result.find(find, position + replacement.size());
    }
    return result;
}

AString GetDelimitedString(const std::vector<AString>& items, wchar_t delimiter, bool quote)
{
    AString result;
    for (std::size_t i = 0; i < items.size(); ++i)
    {
        if (i > 0)
        {
            result.push_back(delimiter);
        }
        result += quote ? AddDoubleQuotes(items[i]) : items[i];
    }
    return result;
}

bool BeginsWithVariablePrefix(const AString& text)
{
    return !text.empty() && text.front() == L'+';
}

namespace qln
{
AString ModifyLibraryTypeName(const AString& name, bool dropLastChar, bool toLower)
{
    // Left() of a size that wrapped below zero keeps the (empty) name whole.
    AString result = dropLastChar ? name.Left(name.size() - 1) : name;
    if (toLower)
    {
        result.MakeLower();
    }
    return result;
}
} // namespace qln

namespace merrowutility
{
bool IsLabelWithBrackets(const AString& label)
{
    if (label.empty())
    {
        return false;
    }
    const wchar_t first = label.front();
    if (!std::iswalpha(static_cast<std::wint_t>(first)) && !i18n::ACharIsUnderscore(first))
    {
        return false;
    }
    std::size_t openings = 0;
    std::size_t closings = 0;
    for (std::size_t i = 1; i < label.size(); ++i)
    {
        const wchar_t c = label[i];
        if (std::iswalnum(static_cast<std::wint_t>(c)) || i18n::ACharIsUnderscore(c))
        {
            continue;
        }
        if (c == L'[' || c == L'<')
        {
            ++openings;
        }
        else if (c == L']' || c == L'>')
        {
            ++closings;
        }
        else
        {
            return false;
        }
    }
    return openings == closings;
}

AString ProcessNetlistStringBeforeEditing(const AString& text)
{
    AString result = ReplaceAllText(text, Char(kCarriageReturn), AString());
    result = ReplaceAllText(result, Char(kLineFeed), AString(kTypedNewLine) + kLineFeed);
    result = ReplaceAllText(result, Char(kVerticalTab), Char(kLineFeed));
    return i18n::ConvertNLtoNLCR(result);
}

AString ProcessNetlistStringAfterEditing(const AString& text)
{
    AString result = ReplaceAllText(text, Char(kCarriageReturn), AString());
    // An escaped backslash-n is put aside as BEL so that the next steps leave it alone.
    result = ReplaceAllText(result, kEscapedTypedNewLine, Char(kBel));
    // Real breaks go through FF so that the step turning editor breaks into VT misses them.
    result = ReplaceAllText(result, AString(kTypedNewLine) + kLineFeed, Char(kFormFeed));
    result = ReplaceAllText(result, kTypedNewLine, Char(kFormFeed));
    result = ReplaceAllText(result, Char(kLineFeed), Char(kVerticalTab));
    result = ReplaceAllText(result, Char(kFormFeed), Char(kLineFeed));
    return ReplaceAllText(result, Char(kBel), kEscapedTypedNewLine);
}

AString ProcessNetlistStringBeforeNetlisting(const AString& text)
{
    AString result = ReplaceAllText(text, Char(kCarriageReturn), AString());
    return ReplaceAllText(result, Char(kVerticalTab), AString());
}
} // namespace merrowutility
