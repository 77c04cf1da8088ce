#include "BlockUnicode.h"

namespace io::detail
{
namespace
{
constexpr char32_t kReplacement = 0xFFFD;

bool IsScalarValue(char32_t c) noexcept
{
    return c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF);
}

// The next code point of a wide text; on 16-bit wchar_t platforms surrogate pairs are joined
// and a lone surrogate is returned as it stands (the caller replaces it).
char32_t NextWide(std::wstring_view text, std::size_t& i) noexcept
{
    char32_t c = static_cast<char32_t>(text[i++]);
    if constexpr (sizeof(wchar_t) == 2)
    {
        if (c >= 0xD800 && c <= 0xDBFF && i < text.size())
        {
            const auto low = static_cast<char32_t>(text[i]);
            if (low >= 0xDC00 && low <= 0xDFFF)
            {
                ++i;
                c = 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
            }
        }
    }
    return c;
}

void AppendWideCodePoint(std::wstring& out, char32_t c)
{
    if constexpr (sizeof(wchar_t) == 2)
    {
        if (c >= 0x10000)
        {
            c -= 0x10000;
            out.push_back(static_cast<wchar_t>(0xD800 + (c >> 10)));
            out.push_back(static_cast<wchar_t>(0xDC00 + (c & 0x3FF)));
            return;
        }
    }
    out.push_back(static_cast<wchar_t>(c));
}
} // namespace

std::size_t DecodeUtf8(const unsigned char* p, const unsigned char* end, char32_t& codePoint)
{
    const unsigned char lead = p[0];
    if (lead < 0x80)
    {
        codePoint = lead;
        return 1;
    }
    std::size_t length = 0;
    char32_t c = 0;
    char32_t minimum = 0;
    if (lead >= 0xC2 && lead <= 0xDF)
    {
        length = 2;
        c = lead & 0x1F;
        minimum = 0x80;
    }
    else if (lead >= 0xE0 && lead <= 0xEF)
    {
        length = 3;
        c = lead & 0x0F;
        minimum = 0x800;
    }
    else if (lead >= 0xF0 && lead <= 0xF4)
    {
        length = 4;
        c = lead & 0x07;
        minimum = 0x10000;
    }
    else
    {
        return 0;
    }
    if (static_cast<std::size_t>(end - p) < length)
    {
        return 0;
    }
    for (std::size_t k = 1; k < length; ++k)
    {
        if ((p[k] & 0xC0) != 0x80)
        {
            return 0;
        }
        c = (c << 6) | (p[k] & 0x3F);
    }
    if (c < minimum || !IsScalarValue(c))
    {
        return 0;
    }
    codePoint = c;
    return length;
}

void AppendUtf8(std::string& out, char32_t c)
{
    if (c < 0x80)
    {
        out.push_back(static_cast<char>(c));
    }
    else if (c < 0x800)
    {
        const char bytes[] = {static_cast<char>(0xC0 | (c >> 6)),
                              static_cast<char>(0x80 | (c & 0x3F))};
        out.append(bytes, 2);
    }
    else if (c < 0x10000)
    {
        const char bytes[] = {static_cast<char>(0xE0 | (c >> 12)),
                              static_cast<char>(0x80 | ((c >> 6) & 0x3F)),
                              static_cast<char>(0x80 | (c & 0x3F))};
        out.append(bytes, 3);
    }
    else
    {
        const char bytes[] = {
            static_cast<char>(0xF0 | (c >> 18)), static_cast<char>(0x80 | ((c >> 12) & 0x3F)),
            static_cast<char>(0x80 | ((c >> 6) & 0x3F)), static_cast<char>(0x80 | (c & 0x3F))};
        out.append(bytes, 4);
    }
}

bool IsValidUtf8(std::string_view text) noexcept
{
    const auto* p = reinterpret_cast<const unsigned char*>(text.data());
    const auto* end = p + text.size();
    while (p < end)
    {
        if (*p < 0x80)
        {
            ++p;
            continue;
        }
        char32_t c = 0;
        const std::size_t n = DecodeUtf8(p, end, c);
        if (n == 0)
        {
            return false;
        }
        p += n;
    }
    return true;
}

void AppendSanitizedUtf8(std::string& out, std::string_view text)
{
    const auto* begin = reinterpret_cast<const unsigned char*>(text.data());
    const auto* p = begin;
    const auto* end = p + text.size();
    const auto* runStart = p;
    while (p < end)
    {
        if (*p < 0x80)
        {
            ++p;
            continue;
        }
        char32_t c = 0;
        const std::size_t n = DecodeUtf8(p, end, c);
        if (n != 0)
        {
            p += n;
            continue;
        }
        out.append(text.data() + (runStart - begin), static_cast<std::size_t>(p - runStart));
        AppendUtf8(out, kReplacement);
        ++p;
        runStart = p;
    }
    out.append(text.data() + (runStart - begin), static_cast<std::size_t>(p - runStart));
}

void AppendWideAsUtf8(std::string& out, std::wstring_view text)
{
    out.reserve(out.size() + text.size());
    for (std::size_t i = 0; i < text.size();)
    {
        const auto unit = static_cast<char32_t>(text[i]);
        if (unit < 0x80)
        {
            out.push_back(static_cast<char>(unit));
            ++i;
            continue;
        }
        char32_t c = NextWide(text, i);
        AppendUtf8(out, IsScalarValue(c) ? c : kReplacement);
    }
}

void AppendUtf8AsWide(std::wstring& out, std::string_view utf8)
{
    out.reserve(out.size() + utf8.size());
    const auto* p = reinterpret_cast<const unsigned char*>(utf8.data());
    const auto* end = p + utf8.size();
    while (p < end)
    {
        if (*p < 0x80)
        {
            out.push_back(static_cast<wchar_t>(*p++));
            continue;
        }
        char32_t c = 0;
        const std::size_t n = DecodeUtf8(p, end, c);
        AppendWideCodePoint(out, n == 0 ? kReplacement : c);
        p += n == 0 ? 1 : n;
    }
}

bool SameText(std::string_view utf8, std::wstring_view wide)
{
    const auto* p = reinterpret_cast<const unsigned char*>(utf8.data());
    const auto* end = p + utf8.size();
    std::size_t i = 0;
    while (p < end && i < wide.size())
    {
        char32_t c = 0;
        std::size_t n = DecodeUtf8(p, end, c);
        if (n == 0)
        {
            c = kReplacement;
            n = 1;
        }
        p += n;
        char32_t w = NextWide(wide, i);
        if (!IsScalarValue(w))
        {
            w = kReplacement;
        }
        if (c != w)
        {
            return false;
        }
    }
    return p == end && i == wide.size();
}

} // namespace io::detail
