#include "I18n.h"

#include <array>
#include <charconv>
#include <utility>

namespace i18n
{
namespace
{
constexpr std::array<std::pair<wchar_t, wchar_t>, 9> kPairs = {{
    {L'"', L'"'},
    {L'\'', L'\''},
    {L'(', L')'},
    {L'[', L']'},
    {L'{', L'}'},
    {L'<', L'>'},
    {L'\u201C', L'\u201D'}, // “ ”
    {L'\u2018', L'\u2019'}, // ‘ ’
    {L'\u00AB', L'\u00BB'}, // « »
}};

bool IsWrappedIn(const AString& text, wchar_t quote)
{
    return text.size() >= 2 && text.front() == quote && text.back() == quote;
}

AString AddQuotes(const AString& text, wchar_t quote)
{
    if (IsWrappedIn(text, quote))
    {
        return text;
    }
    AString quoted;
    quoted.reserve(text.size() + 2);
    quoted.push_back(quote);
    quoted.append(text);
    quoted.push_back(quote);
    return quoted;
}

AString RemoveQuotes(const AString& text, wchar_t quote)
{
    if (!IsWrappedIn(text, quote))
    {
        return text;
    }
    return text.Mid(1, text.size() - 2);
}

void AppendSeparator(AString& out, bool spaceAfterComma)
{
    out.push_back(L',');
    if (spaceAfterComma)
    {
        out.push_back(L' ');
    }
}
} // namespace

wchar_t GetMatchingFirstAndLastChars(const AString& text)
{
    if (text.size() < 2)
    {
        return 0;
    }
    for (const auto& [open, close] : kPairs)
    {
        if (text.front() == open && text.back() == close)
        {
            return open;
        }
    }
    return 0;
}

AString AddDoubleQuotes(const AString& text)
{
    return AddQuotes(text, L'"');
}

AString RemoveDoubleQuotes(const AString& text)
{
    return RemoveQuotes(text, L'"');
}

AString AddSingleQuotes(const AString& text)
{
    return AddQuotes(text, L'\'');
}

AString RemoveSingleQuotes(const AString& text)
{
    return RemoveQuotes(text, L'\'');
}

AString GetCommaDelimitedString(const std::vector<AString>& items, bool quoteItems,
                                bool spaceAfterComma)
{
    AString out;
    for (std::size_t i = 0; i < items.size(); ++i)
    {
        if (i > 0)
        {
            AppendSeparator(out, spaceAfterComma);
        }
        out.append(quoteItems ? AddDoubleQuotes(items[i]) : items[i]);
    }
    return out;
}

AString GetCommaDelimitedString(const std::vector<double>& values, const AString& units,
                                bool spaceAfterComma)
{
    AString out;
    for (std::size_t i = 0; i < values.size(); ++i)
    {
        if (i > 0)
        {
            AppendSeparator(out, spaceAfterComma);
        }
        // std::to_chars gives the shortest exact form and, unlike printf, ignores the locale.
        char buffer[32];
        const std::to_chars_result result =
            std::to_chars(buffer, buffer + sizeof buffer, values[i]);
        out.append(buffer, result.ptr);
        out.append(units);
    }
    return out;
}

AString IncrementName(const AString& name)
{
    std::size_t start = name.size();
    while (start > 0 && name[start - 1] >= L'0' && name[start - 1] <= L'9')
    {
        --start;
    }
    if (start == name.size())
    {
        return name + L"1";
    }
    // Add one to the digit run in place, carrying leftwards; numbers of any length work.
    AString next(name);
    std::size_t i = next.size();
    while (i > start)
    {
        --i;
        if (next[i] != L'9')
        {
            ++next[i];
            return next;
        }
        next[i] = L'0';
    }
    next.insert(start, 1, L'1'); // all nines: one digit more
    return next;
}

AString ConvertNLtoNLCR(const AString& text)
{
    AString out;
    out.reserve(text.size() + text.size() / 8);
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        if (text[i] == L'\n' && (i == 0 || text[i - 1] != L'\r'))
        {
            out.push_back(L'\r');
        }
        out.push_back(text[i]);
    }
    return out;
}

bool ACharIsUnderscore(wchar_t c)
{
    return c == L'_';
}

int ACharStrNICmp(const wchar_t* a, const wchar_t* b, std::size_t n)
{
    const wchar_t* const empty = L"";
    a = a != nullptr ? a : empty;
    b = b != nullptr ? b : empty;
    for (std::size_t i = 0; i < n; ++i)
    {
        const char32_t fa = AString::FoldCase(static_cast<char32_t>(a[i]));
        const char32_t fb = AString::FoldCase(static_cast<char32_t>(b[i]));
        if (fa != fb)
        {
            return fa < fb ? -1 : 1;
        }
        if (a[i] == 0)
        {
            break;
        }
    }
    return 0;
}
} // namespace i18n
