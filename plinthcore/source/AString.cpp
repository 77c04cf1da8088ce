#include "AString.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <functional>
#include <limits>
#include <optional>

namespace
{
// Reads the code point at `i` of a wide text and advances `i`. wchar_t is UTF-32 on this
// platform and UTF-16 on Windows; unpaired surrogates come back as they are.
inline char32_t NextCodePoint(std::wstring_view text, std::size_t& i) noexcept
{
    if constexpr (sizeof(wchar_t) == 2)
    {
        char32_t c = static_cast<char16_t>(text[i++]);
        if (U16_IS_LEAD(c) && i < text.size() && U16_IS_TRAIL(text[i]))
        {
            c = U16_GET_SUPPLEMENTARY(c, static_cast<char16_t>(text[i]));
            ++i;
        }
        return c;
    }
    else
    {
        return static_cast<char32_t>(text[i++]);
    }
}

inline void AppendCodePoint(std::wstring& out, char32_t c)
{
    if constexpr (sizeof(wchar_t) == 2)
    {
        if (c > 0xFFFF && c <= 0x10FFFF)
        {
            out.push_back(static_cast<wchar_t>(U16_LEAD(c)));
            out.push_back(static_cast<wchar_t>(U16_TRAIL(c)));
            return;
        }
    }
    out.push_back(static_cast<wchar_t>(c));
}

inline char32_t Fold(char32_t c) noexcept
{
    if (c < 0x80)
    {
        return (c >= U'A' && c <= U'Z') ? c + 32 : c;
    }
    if (c > 0x10FFFF)
    {
        return c; // not a code point (a negative or oversized wchar_t): compares as itself
    }
    return static_cast<char32_t>(u_foldCase(static_cast<UChar32>(c), U_FOLD_CASE_DEFAULT));
}

// Whether `p` points into the buffer of `s` (its terminating null included).
bool PointsInto(const wchar_t* p, const std::wstring& s) noexcept
{
    const std::less<const wchar_t*> less;
    return p != nullptr && !less(p, s.data()) && less(p, s.data() + s.capacity() + 1);
}

// Narrows an ASCII-only text into `buffer` for std::from_chars; false for anything else.
template <std::size_t N>
bool NarrowAscii(std::wstring_view text, std::array<char, N>& buffer, std::string& spill,
                 std::string_view& out) noexcept
{
    char* dest = buffer.data();
    if (text.size() > N)
    {
        try
        {
            spill.resize(text.size());
        }
        catch (...)
        {
            return false;
        }
        dest = spill.data();
    }
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        const wchar_t c = text[i];
        if (c <= 0 || c >= 0x80)
        {
            return false;
        }
        dest[i] = static_cast<char>(c);
    }
    out = std::string_view(dest, text.size());
    return true;
}

template <typename T> bool ParseInteger(std::wstring_view text, T& value, int base) noexcept
{
    if (base < 2 || base > 36 || text.empty())
    {
        return false;
    }
    std::array<char, 80> buffer{};
    std::string spill;
    std::string_view narrow;
    if (!NarrowAscii(text, buffer, spill, narrow))
    {
        return false;
    }
    if (narrow.front() == '+')
    {
        narrow.remove_prefix(1);
        if (narrow.empty() || narrow.front() == '-' || narrow.front() == '+')
        {
            return false;
        }
    }
    if constexpr (std::is_unsigned_v<T>)
    {
        if (!narrow.empty() && narrow.front() == '-')
        {
            return false;
        }
    }
    T parsed{};
    const auto result = std::from_chars(narrow.data(), narrow.data() + narrow.size(), parsed, base);
    if (result.ec != std::errc() || result.ptr != narrow.data() + narrow.size())
    {
        return false;
    }
    value = parsed;
    return true;
}

// Decimal exponent of the leading significant digit of an unsigned decimal number text
// ("123" => 2, "0.05" => -2, "1e-5" => -5); nothing when the mantissa is zero. Tells an
// overflow from an underflow when std::from_chars reports either as out of range.
std::optional<long long> LeadingExponent(std::string_view s) noexcept
{
    auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    std::size_t i = 0;
    bool seen = false;
    long long magnitude = 0;
    for (; i < s.size() && isDigit(s[i]); ++i)
    {
        if (seen)
        {
            ++magnitude;
        }
        else if (s[i] != '0')
        {
            seen = true;
        }
    }
    if (i < s.size() && s[i] == '.')
    {
        long long position = -1;
        for (++i; i < s.size() && isDigit(s[i]); ++i, --position)
        {
            if (!seen && s[i] != '0')
            {
                seen = true;
                magnitude = position;
            }
        }
    }
    if (!seen)
    {
        return std::nullopt;
    }
    if (i < s.size() && (s[i] == 'e' || s[i] == 'E'))
    {
        ++i;
        const bool negative = i < s.size() && s[i] == '-';
        if (i < s.size() && (s[i] == '-' || s[i] == '+'))
        {
            ++i;
        }
        long long exponent = 0;
        for (; i < s.size() && isDigit(s[i]); ++i)
        {
            exponent = std::min(exponent * 10 + (s[i] - '0'), 1'000'000'000LL);
        }
        magnitude += negative ? -exponent : exponent;
    }
    return magnitude;
}

// Wildcard matcher shared by every Match overload. Classic single-backtrack algorithm:
// each "*" first takes nothing; on a mismatch only the most recent "*" grows by one. Taking
// the leftmost fit of every segment between stars is what makes each capture the shortest
// that lets the rest fit, and it bounds the work by text length times pattern length.
struct StarSpan
{
    std::size_t begin;
    std::size_t length;
};

inline bool CharsEqual(wchar_t a, wchar_t b, bool caseSensitive) noexcept
{
    if (a == b)
    {
        return true;
    }
    return !caseSensitive && Fold(static_cast<char32_t>(a)) == Fold(static_cast<char32_t>(b));
}

template <typename SpanSink>
bool MatchCore(std::wstring_view text, std::wstring_view pattern, bool caseSensitive,
               SpanSink& spans) noexcept
{
    std::size_t t = 0;
    std::size_t p = 0;
    std::size_t starCount = 0;
    bool haveStar = false;
    std::size_t lastStarP = 0;   // pattern position just after the most recent "*"
    std::size_t lastStarIdx = 0; // its ordinal
    while (t < text.size())
    {
        if (p < pattern.size())
        {
            const wchar_t pc = pattern[p];
            if (pc == L'*')
            {
                spans.Set(starCount, StarSpan{t, 0});
                haveStar = true;
                lastStarIdx = starCount++;
                lastStarP = ++p;
                continue;
            }
            if (pc == L'?')
            {
                ++p;
                ++t;
                continue;
            }
            std::size_t step = 1;
            wchar_t literal = pc;
            if (pc == L'\\' && p + 1 < pattern.size())
            {
                literal = pattern[p + 1];
                step = 2;
            }
            if (CharsEqual(literal, text[t], caseSensitive))
            {
                p += step;
                ++t;
                continue;
            }
        }
        if (!haveStar)
        {
            return false;
        }
        StarSpan& span = spans.Get(lastStarIdx);
        ++span.length;
        t = span.begin + span.length;
        p = lastStarP;
        starCount = lastStarIdx + 1;
    }
    while (p < pattern.size() && pattern[p] == L'*')
    {
        spans.Set(starCount++, StarSpan{t, 0});
        ++p;
    }
    return p == pattern.size();
}

// Number of wildcard (unescaped) stars in a pattern.
std::size_t CountStars(std::wstring_view pattern) noexcept
{
    std::size_t count = 0;
    for (std::size_t p = 0; p < pattern.size(); ++p)
    {
        if (pattern[p] == L'\\')
        {
            ++p;
        }
        else if (pattern[p] == L'*')
        {
            ++count;
        }
    }
    return count;
}

// Span storage sized before the match: on the stack for the usual few stars, on the heap
// beyond, so that the matcher itself never allocates.
class SpanStore
{
public:
    bool Reserve(std::size_t count) noexcept
    {
        if (count > mLocal.size())
        {
            try
            {
                mHeap.resize(count);
            }
            catch (...)
            {
                return false;
            }
            mData = mHeap.data();
        }
        return true;
    }
    void Set(std::size_t index, StarSpan span) noexcept { mData[index] = span; }
    StarSpan& Get(std::size_t index) noexcept { return mData[index]; }

private:
    std::array<StarSpan, 8> mLocal{};
    std::vector<StarSpan> mHeap;
    StarSpan* mData = mLocal.data();
};

// Used when nobody wants the captures: only the most recent span matters.
struct NoSpans
{
    StarSpan last{};
    void Set(std::size_t, StarSpan span) noexcept { last = span; }
    StarSpan& Get(std::size_t) noexcept { return last; }
};

bool IsWhite(char32_t c) noexcept
{
    if (c < 0x80)
    {
        return c == U' ' || (c >= U'\t' && c <= U'\r');
    }
    return u_isUWhiteSpace(static_cast<UChar32>(c)) != 0;
}

} // namespace

// ---------------------------------------------------------------------------------------
// FormatArg

FormatArg::FormatArg(const wchar_t* text) noexcept
    : mKind(Kind::kWideText), mBytes(0), mWideData(text), mLength(text ? std::wcslen(text) : 0)
{
}
FormatArg::FormatArg(const std::wstring& text) noexcept
    : mKind(Kind::kWideText), mBytes(0), mWideData(text.data()), mLength(text.size())
{
}
FormatArg::FormatArg(std::wstring_view text) noexcept
    : mKind(Kind::kWideText), mBytes(0), mWideData(text.data() ? text.data() : L""),
      mLength(text.size())
{
}
FormatArg::FormatArg(const char* utf8) noexcept
    : mKind(Kind::kNarrowText), mBytes(0), mNarrowData(utf8), mLength(utf8 ? std::strlen(utf8) : 0)
{
}
FormatArg::FormatArg(const std::string& utf8) noexcept
    : mKind(Kind::kNarrowText), mBytes(0), mNarrowData(utf8.data()), mLength(utf8.size())
{
}
FormatArg::FormatArg(std::string_view utf8) noexcept
    : mKind(Kind::kNarrowText), mBytes(0), mNarrowData(utf8.data() ? utf8.data() : ""),
      mLength(utf8.size())
{
}

bool FormatArg::IsNullText() const
{
    return (mKind == Kind::kWideText && mWideData == nullptr) ||
           (mKind == Kind::kNarrowText && mNarrowData == nullptr);
}

// ---------------------------------------------------------------------------------------
// Formatting

namespace
{
struct Directive
{
    bool left = false;
    bool plus = false;
    bool space = false;
    bool alt = false;
    bool zero = false;
    int width = -1;
    int precision = -1;
    wchar_t conversion = 0;

    bool IsPlain() const
    {
        return !left && !plus && !space && !alt && !zero && width < 0 && precision < 0;
    }
};

constexpr int kMaxWidth = 4096; // bounds widths and precisions so a typo cannot exhaust memory

void Pad(std::wstring& out, const Directive& directive, std::wstring_view body)
{
    const std::size_t width = directive.width > 0 ? static_cast<std::size_t>(directive.width) : 0;
    const std::size_t fill = width > body.size() ? width - body.size() : 0;
    if (!directive.left)
    {
        out.append(fill, L' ');
    }
    out.append(body);
    if (directive.left)
    {
        out.append(fill, L' ');
    }
}

void AppendText(std::wstring& out, const FormatArg& arg, const Directive& directive)
{
    std::wstring converted;
    std::wstring_view body;
    if (arg.IsNullText())
    {
        body = L"(null)";
    }
    else if (arg.GetKind() == FormatArg::Kind::kWideText)
    {
        body = arg.GetWide();
    }
    else
    {
        converted = AString::FromUTF8(arg.GetNarrow());
        body = converted;
    }
    if (directive.precision >= 0 && static_cast<std::size_t>(directive.precision) < body.size())
    {
        body = body.substr(0, static_cast<std::size_t>(directive.precision));
    }
    Pad(out, directive, body);
}

// Double to integer without the undefined behaviour of an out-of-range cast: saturates,
// and NaN reads as 0.
long long SaturatingSigned(double d) noexcept
{
    if (std::isnan(d))
    {
        return 0;
    }
    if (d >= 0x1p63)
    {
        return std::numeric_limits<long long>::max();
    }
    if (d < -0x1p63)
    {
        return std::numeric_limits<long long>::min();
    }
    return static_cast<long long>(d);
}

unsigned long long SaturatingUnsigned(double d) noexcept
{
    if (std::isnan(d) || d <= 0)
    {
        return 0;
    }
    if (d >= 0x1p64)
    {
        return std::numeric_limits<unsigned long long>::max();
    }
    return static_cast<unsigned long long>(d);
}

// The value printf would show for an argument read by a signed conversion ("%d"): an
// unsigned argument shows the signed value of its own width.
long long SignedValue(const FormatArg& arg) noexcept
{
    switch (arg.GetKind())
    {
    case FormatArg::Kind::kSigned:
        return arg.GetSigned();
    case FormatArg::Kind::kUnsigned:
        if (arg.GetBytes() == 4)
        {
            return static_cast<std::int32_t>(static_cast<std::uint32_t>(arg.GetUnsigned()));
        }
        return static_cast<long long>(arg.GetUnsigned());
    case FormatArg::Kind::kPointer:
        return static_cast<long long>(arg.GetUnsigned());
    case FormatArg::Kind::kDouble:
        return SaturatingSigned(arg.GetDouble());
    case FormatArg::Kind::kChar:
        return static_cast<long long>(arg.GetChar());
    default:
        return 0;
    }
}

// The value printf would show for an argument read by an unsigned conversion ("%u", "%x"):
// a negative argument shows the two's complement of its own width.
unsigned long long UnsignedValue(const FormatArg& arg) noexcept
{
    switch (arg.GetKind())
    {
    case FormatArg::Kind::kSigned:
        if (arg.GetBytes() >= 8)
        {
            return static_cast<unsigned long long>(arg.GetSigned());
        }
        return static_cast<unsigned long long>(arg.GetSigned()) &
               ((1ULL << (8 * arg.GetBytes())) - 1);
    case FormatArg::Kind::kUnsigned:
    case FormatArg::Kind::kPointer:
        return arg.GetUnsigned();
    case FormatArg::Kind::kDouble:
        return SaturatingUnsigned(arg.GetDouble());
    case FormatArg::Kind::kChar:
        return arg.GetChar();
    default:
        return 0;
    }
}

double DoubleValue(const FormatArg& arg) noexcept
{
    switch (arg.GetKind())
    {
    case FormatArg::Kind::kDouble:
        return arg.GetDouble();
    case FormatArg::Kind::kSigned:
        return static_cast<double>(arg.GetSigned());
    case FormatArg::Kind::kUnsigned:
        return static_cast<double>(arg.GetUnsigned());
    case FormatArg::Kind::kChar:
        return static_cast<double>(arg.GetChar());
    default:
        return 0.0;
    }
}

// Renders numbers through the C library with a format rebuilt from the parsed directive, so that
// every flag combination behaves exactly as printf does.
void AppendNumber(std::wstring& out, const FormatArg& arg, const Directive& directive,
                  wchar_t conversion)
{
    char format[32];
    std::size_t n = 0;
    format[n++] = '%';
    if (directive.left)
        format[n++] = '-';
    if (directive.plus)
        format[n++] = '+';
    if (directive.space)
        format[n++] = ' ';
    if (directive.alt)
        format[n++] = '#';
    if (directive.zero)
        format[n++] = '0';
    format[n++] = '*';
    format[n++] = '.';
    format[n++] = '*';

    const int width = std::clamp(directive.width, -1, kMaxWidth);
    const int precision = std::clamp(directive.precision, -1, kMaxWidth);
    char stack[128];
    std::string heap;
    int written = 0;
    auto print = [&](auto value, const char* length)
    {
        std::size_t m = n;
        for (const char* l = length; *l; ++l)
            format[m++] = *l;
        format[m++] = static_cast<char>(conversion);
        format[m] = '\0';
        written = std::snprintf(stack, sizeof stack, format, width, precision, value);
        if (written >= static_cast<int>(sizeof stack))
        {
            heap.resize(static_cast<std::size_t>(written) + 1);
            std::snprintf(heap.data(), heap.size(), format, width, precision, value);
        }
    };

    switch (conversion)
    {
    case L'f':
    case L'F':
    case L'e':
    case L'E':
    case L'g':
    case L'G':
    case L'a':
    case L'A':
        print(DoubleValue(arg), "");
        break;
    case L'd':
    case L'i':
        print(SignedValue(arg), "ll");
        break;
    default:
        print(UnsignedValue(arg), "ll");
        break;
    }
    const char* text = heap.empty() ? stack : heap.c_str();
    for (int i = 0; i < written; ++i)
    {
        out.push_back(static_cast<wchar_t>(static_cast<unsigned char>(text[i])));
    }
}

template <typename T> void AppendPlainInteger(std::wstring& out, T value)
{
    char buffer[24];
    const std::to_chars_result result = std::to_chars(buffer, buffer + sizeof buffer, value);
    for (const char* c = buffer; c != result.ptr; ++c)
    {
        out.push_back(static_cast<wchar_t>(*c));
    }
}

void AppendArgument(std::wstring& out, const FormatArg* arg, const Directive& directive)
{
    if (arg == nullptr)
    {
        return;
    }
    const wchar_t conversion = directive.conversion;
    switch (conversion)
    {
    case L's':
    case L'S':
        if (arg->GetKind() == FormatArg::Kind::kWideText ||
            arg->GetKind() == FormatArg::Kind::kNarrowText)
        {
            AppendText(out, *arg, directive);
        }
        else if (arg->GetKind() == FormatArg::Kind::kChar)
        {
            std::wstring one;
            AppendCodePoint(one, arg->GetChar());
            Pad(out, directive, one);
        }
        else
        {
            Directive numeric = directive;
            numeric.precision = -1;
            AppendNumber(out, *arg, numeric,
                         arg->GetKind() == FormatArg::Kind::kDouble   ? L'g'
                         : arg->GetKind() == FormatArg::Kind::kSigned ? L'd'
                                                                      : L'u');
        }
        return;
    case L'c':
    case L'C':
    {
        std::wstring one;
        if (arg->GetKind() == FormatArg::Kind::kChar)
        {
            AppendCodePoint(one, arg->GetChar());
        }
        else if (arg->GetKind() == FormatArg::Kind::kSigned ||
                 arg->GetKind() == FormatArg::Kind::kUnsigned)
        {
            const unsigned long long code = arg->GetUnsigned();
            AppendCodePoint(one, code <= 0x10FFFF ? static_cast<char32_t>(code) : U'\uFFFD');
        }
        Pad(out, directive, one);
        return;
    }
    case L'p':
    {
        Directive hex = directive;
        hex.alt = true;
        AppendNumber(out, *arg, hex, L'x');
        return;
    }
    case L'd':
    case L'i':
        if (directive.IsPlain())
        {
            AppendPlainInteger(out, SignedValue(*arg));
            return;
        }
        AppendNumber(out, *arg, directive, conversion);
        return;
    case L'u':
        if (directive.IsPlain())
        {
            AppendPlainInteger(out, UnsignedValue(*arg));
            return;
        }
        AppendNumber(out, *arg, directive, conversion);
        return;
    default:
        AppendNumber(out, *arg, directive, conversion);
        return;
    }
}

// Whether any text argument or the format itself lives in `s`, so that `s` cannot be
// written while they are read.
bool AliasesAny(const std::wstring& s, const wchar_t* format, std::span<const FormatArg> args)
{
    if (PointsInto(format, s))
    {
        return true;
    }
    return std::any_of(args.begin(), args.end(),
                       [&](const FormatArg& arg) {
                           return arg.GetKind() == FormatArg::Kind::kWideText &&
                                  PointsInto(arg.GetWide().data(), s);
                       });
}

} // namespace

void AppendFormatted(std::wstring& out, const wchar_t* format, std::span<const FormatArg> args)
{
    if (format == nullptr)
    {
        return;
    }
    std::size_t next = 0;
    auto take = [&]() -> const FormatArg* { return next < args.size() ? &args[next++] : nullptr; };
    // A "*" width or precision; nothing when the argument is missing or not an integer.
    auto takeInt = [&]() -> std::optional<int>
    {
        const FormatArg* a = take();
        if (a == nullptr)
            return std::nullopt;
        if (a->GetKind() == FormatArg::Kind::kSigned)
            return static_cast<int>(std::clamp<long long>(a->GetSigned(), -kMaxWidth, kMaxWidth));
        if (a->GetKind() == FormatArg::Kind::kUnsigned)
            return static_cast<int>(std::min<unsigned long long>(a->GetUnsigned(), kMaxWidth));
        return std::nullopt;
    };

    const wchar_t* c = format;
    while (*c)
    {
        const wchar_t* run = c;
        while (*c && *c != L'%')
        {
            ++c;
        }
        out.append(run, static_cast<std::size_t>(c - run));
        if (!*c)
        {
            break;
        }
        const wchar_t* directiveStart = c;
        ++c; // the '%'
        if (*c == L'%')
        {
            out.push_back(L'%');
            ++c;
            continue;
        }
        Directive directive;
        for (;; ++c)
        {
            if (*c == L'-')
                directive.left = true;
            else if (*c == L'+')
                directive.plus = true;
            else if (*c == L' ')
                directive.space = true;
            else if (*c == L'#')
                directive.alt = true;
            else if (*c == L'0')
                directive.zero = true;
            else
                break;
        }
        if (*c == L'*')
        {
            if (const std::optional<int> width = takeInt())
            {
                // A negative "*" width means left-justified, as in printf.
                directive.left = directive.left || *width < 0;
                directive.width = *width < 0 ? -*width : *width;
            }
            ++c;
        }
        else
        {
            int width = -1;
            while (*c >= L'0' && *c <= L'9')
            {
                width = std::min((width < 0 ? 0 : width) * 10 + (*c - L'0'), kMaxWidth);
                ++c;
            }
            directive.width = width;
        }
        if (*c == L'.')
        {
            ++c;
            if (*c == L'*')
            {
                // A negative "*" precision counts as none.
                directive.precision = takeInt().value_or(-1);
                ++c;
            }
            else
            {
                int precision = 0;
                while (*c >= L'0' && *c <= L'9')
                {
                    precision = std::min(precision * 10 + (*c - L'0'), kMaxWidth);
                    ++c;
                }
                directive.precision = precision;
            }
        }
        // Length modifiers carry no information here: arguments know their own type.
        for (;;)
        {
            if (*c == L'h' || *c == L'l' || *c == L'L' || *c == L'z' || *c == L'j' || *c == L't' ||
                *c == L'q' || *c == L'w')
            {
                ++c;
            }
            else if (*c == L'I')
            {
                ++c;
                if ((c[0] == L'6' && c[1] == L'4') || (c[0] == L'3' && c[1] == L'2'))
                {
                    c += 2;
                }
            }
            else
            {
                break;
            }
        }
        if (!*c)
        {
            // A directiveStart cut off by the end of the format is shown as written.
            out.append(directiveStart, static_cast<std::size_t>(c - directiveStart));
            break;
        }
        directive.conversion = *c++;
        switch (directive.conversion)
        {
        case L's':
        case L'S':
        case L'c':
        case L'C':
        case L'd':
        case L'i':
        case L'u':
        case L'x':
        case L'X':
        case L'o':
        case L'f':
        case L'F':
        case L'e':
        case L'E':
        case L'g':
        case L'G':
        case L'a':
        case L'A':
        case L'p':
            AppendArgument(out, take(), directive);
            break;
        case L'n':
            take(); // never written through
            break;
        default:
            // Unknown conversion: shown as written, so the mistake is visible.
            out.append(directiveStart, static_cast<std::size_t>(c - directiveStart));
            break;
        }
    }
}

AString& AString::FormatList(const wchar_t* format, std::span<const FormatArg> args)
{
    if (AliasesAny(*this, format, args))
    {
        std::wstring result;
        AppendFormatted(result, format, args);
        assign(std::move(result));
        return *this;
    }
    // Reuses the buffer: formatting into a text that is used again costs no allocation.
    clear();
    AppendFormatted(*this, format, args);
    return *this;
}

AString& AString::AppendFormatList(const wchar_t* format, std::span<const FormatArg> args)
{
    if (AliasesAny(*this, format, args))
    {
        std::wstring result;
        AppendFormatted(result, format, args);
        append(result);
        return *this;
    }
    AppendFormatted(*this, format, args);
    return *this;
}

// ---------------------------------------------------------------------------------------
// Comparison

char32_t AString::FoldCase(char32_t c) noexcept
{
    return Fold(c);
}

int AString::CompareNoCase(std::wstring_view a, std::wstring_view b) noexcept
{
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() && j < b.size())
    {
        const wchar_t ca = a[i];
        const wchar_t cb = b[j];
        if (ca < 0x80 && cb < 0x80 && ca >= 0 && cb >= 0)
        {
            // ASCII fast path.
            const wchar_t la = (ca >= L'A' && ca <= L'Z') ? ca + 32 : ca;
            const wchar_t lb = (cb >= L'A' && cb <= L'Z') ? cb + 32 : cb;
            if (la != lb)
            {
                return la < lb ? -1 : 1;
            }
            ++i;
            ++j;
            continue;
        }
        const char32_t fa = Fold(NextCodePoint(a, i));
        const char32_t fb = Fold(NextCodePoint(b, j));
        if (fa != fb)
        {
            return fa < fb ? -1 : 1;
        }
    }
    if (i < a.size())
    {
        return 1;
    }
    if (j < b.size())
    {
        return -1;
    }
    return 0;
}

int AString::CompareNoCase(std::wstring_view other) const noexcept
{
    return CompareNoCase(std::wstring_view(*this), other);
}

bool AString::EqualNoCase(std::wstring_view a, std::wstring_view b) noexcept
{
    // Simple folding maps one code point to one, so UTF-32 texts of different lengths differ.
    if (sizeof(wchar_t) == 4 && a.size() != b.size())
    {
        return false;
    }
    return CompareNoCase(a, b) == 0;
}

bool AString::NoCaseLess::operator()(std::wstring_view a, std::wstring_view b) const noexcept
{
    return AString::CompareNoCase(a, b) < 0;
}

// ---------------------------------------------------------------------------------------
// Wildcards

bool AString::MatchText(std::wstring_view text, std::wstring_view pattern, bool caseSensitive,
                        std::vector<AString>* captures)
{
    if (captures == nullptr)
    {
        NoSpans spans;
        return MatchCore(text, pattern, caseSensitive, spans);
    }
    const std::size_t stars = CountStars(pattern);
    SpanStore spans;
    if (!spans.Reserve(stars) || !MatchCore(text, pattern, caseSensitive, spans))
    {
        return false;
    }
    try
    {
        const bool aliased =
            std::any_of(captures->begin(), captures->end(),
                        [&](const AString& c) { return PointsInto(text.data(), c); });
        if (aliased)
        {
            // The text is one of the captures being replaced: build aside, then swap in.
            std::vector<AString> result;
            result.reserve(stars);
            for (std::size_t k = 0; k < stars; ++k)
            {
                result.emplace_back(text.substr(spans.Get(k).begin, spans.Get(k).length));
            }
            captures->swap(result);
            return true;
        }
        // Assigning into the existing strings keeps their buffers: a caller that reuses one
        // vector for many matches allocates only when a capture outgrows its predecessor.
        captures->resize(stars);
        for (std::size_t k = 0; k < stars; ++k)
        {
            (*captures)[k].assign(text.data() + spans.Get(k).begin, spans.Get(k).length);
        }
        return true;
    }
    catch (...)
    {
        captures->clear(); // out of memory: no half-filled result
        return false;
    }
}

bool AString::Match(std::wstring_view pattern) const noexcept
{
    NoSpans spans;
    return MatchCore(*this, pattern, true, spans);
}

bool AString::MatchNoCase(std::wstring_view pattern) const noexcept
{
    NoSpans spans;
    return MatchCore(*this, pattern, false, spans);
}

bool AString::Match(std::wstring_view pattern, std::vector<AString>& captures,
                    bool caseSensitive) const
{
    return MatchText(*this, pattern, caseSensitive, &captures);
}

// ---------------------------------------------------------------------------------------
// Numbers

bool AString::IsNumber(int& value, int base) const noexcept
{
    return ParseInteger(*this, value, base);
}
bool AString::IsNumber(unsigned& value, int base) const noexcept
{
    return ParseInteger(*this, value, base);
}
bool AString::IsNumber(long long& value, int base) const noexcept
{
    return ParseInteger(*this, value, base);
}
bool AString::IsNumber(unsigned long long& value, int base) const noexcept
{
    return ParseInteger(*this, value, base);
}

bool AString::IsNumber(double& value) const noexcept
{
    std::array<char, 80> buffer{};
    std::string spill;
    std::string_view narrow;
    if (empty() || !NarrowAscii(*this, buffer, spill, narrow))
    {
        return false;
    }
    bool negative = false;
    if (narrow.front() == '+' || narrow.front() == '-')
    {
        negative = narrow.front() == '-';
        narrow.remove_prefix(1);
    }
    // Only decimal forms: a digit, or a point followed by a digit, must come first. This
    // also keeps out "inf", "nan" and hexadecimal floating point.
    if (narrow.empty() ||
        !((narrow[0] >= '0' && narrow[0] <= '9') ||
          (narrow[0] == '.' && narrow.size() > 1 && narrow[1] >= '0' && narrow[1] <= '9')))
    {
        return false;
    }
    double parsed = 0.0;
    const auto result = std::from_chars(narrow.data(), narrow.data() + narrow.size(), parsed,
                                        std::chars_format::general);
    if (result.ptr != narrow.data() + narrow.size())
    {
        return false;
    }
    if (result.ec == std::errc::result_out_of_range)
    {
        // Too small to represent is zero; too large is a failure.
        const std::optional<long long> exponent = LeadingExponent(narrow);
        if (exponent && *exponent >= 0)
        {
            return false;
        }
        parsed = 0.0;
    }
    else if (result.ec != std::errc())
    {
        return false;
    }
    value = negative ? -parsed : parsed;
    return true;
}

bool AString::IsNumber() const noexcept
{
    double d = 0.0;
    return IsNumber(d);
}

// ---------------------------------------------------------------------------------------
// Pieces

std::size_t AString::TokenizeString(std::vector<AString>& tokens, std::wstring_view delimiters,
                                    bool keepEmpty) const
{
    const std::size_t before = tokens.size();
    if (empty())
    {
        return 0;
    }
    std::size_t start = 0;
    for (;;)
    {
        const std::size_t end = delimiters.empty() ? npos : find_first_of(delimiters, start);
        const std::size_t stop = end == npos ? size() : end;
        if (stop > start || keepEmpty)
        {
            tokens.emplace_back(std::wstring_view(*this).substr(start, stop - start));
        }
        if (end == npos)
        {
            break;
        }
        start = end + 1;
    }
    return tokens.size() - before;
}

AString AString::Left(std::size_t count) const
{
    return AString(std::wstring_view(*this).substr(0, std::min(count, size())));
}

AString AString::Right(std::size_t count) const
{
    const std::size_t n = std::min(count, size());
    return AString(std::wstring_view(*this).substr(size() - n));
}

AString AString::Mid(std::size_t first) const
{
    if (first >= size())
    {
        return AString();
    }
    return AString(std::wstring_view(*this).substr(first));
}

AString AString::Mid(std::size_t first, std::size_t count) const
{
    if (first >= size())
    {
        return AString();
    }
    return AString(std::wstring_view(*this).substr(first, count));
}

AString& AString::TrimLeft()
{
    std::size_t i = 0;
    while (i < size())
    {
        std::size_t next = i;
        if (!IsWhite(NextCodePoint(*this, next)))
        {
            break;
        }
        i = next;
    }
    erase(0, i);
    return *this;
}

AString& AString::TrimRight()
{
    // Scan forward so that surrogate pairs are read whole; remember the last non-blank end.
    std::size_t keep = 0;
    std::size_t i = 0;
    while (i < size())
    {
        const char32_t c = NextCodePoint(*this, i);
        if (!IsWhite(c))
        {
            keep = i;
        }
    }
    erase(keep);
    return *this;
}

AString& AString::Trim()
{
    TrimRight();
    return TrimLeft();
}

AString& AString::MakeUpper()
{
    std::wstring out;
    out.reserve(size());
    for (std::size_t i = 0; i < size();)
    {
        const char32_t c = NextCodePoint(*this, i);
        const char32_t u = c < 0x80 ? ((c >= U'a' && c <= U'z') ? c - 32 : c)
                           : c > 0x10FFFF
                               ? c
                               : static_cast<char32_t>(u_toupper(static_cast<UChar32>(c)));
        AppendCodePoint(out, u);
    }
    assign(std::move(out));
    return *this;
}

AString& AString::MakeLower()
{
    std::wstring out;
    out.reserve(size());
    for (std::size_t i = 0; i < size();)
    {
        const char32_t c = NextCodePoint(*this, i);
        const char32_t l = c < 0x80 ? ((c >= U'A' && c <= U'Z') ? c + 32 : c)
                           : c > 0x10FFFF
                               ? c
                               : static_cast<char32_t>(u_tolower(static_cast<UChar32>(c)));
        AppendCodePoint(out, l);
    }
    assign(std::move(out));
    return *this;
}

AString AString::ToUpper() const
{
    AString copy(*this);
    return copy.MakeUpper();
}

AString AString::ToLower() const
{
    AString copy(*this);
    return copy.MakeLower();
}

std::size_t AString::Replace(std::wstring_view find, std::wstring_view replacement)
{
    if (find.empty())
    {
        return 0;
    }
    // Either text may be a view of this one, which the replacements change under it.
    std::wstring findCopy;
    std::wstring replacementCopy;
    if (PointsInto(find.data(), *this))
    {
        findCopy.assign(find);
        find = findCopy;
    }
    if (PointsInto(replacement.data(), *this))
    {
        replacementCopy.assign(replacement);
        replacement = replacementCopy;
    }
    std::size_t count = 0;
    std::size_t pos = std::wstring::find(find.data(), 0, find.size());
    while (pos != npos)
    {
        replace(pos, find.size(), replacement.data(), replacement.size());
        ++count;
        pos = std::wstring::find(find.data(), pos + replacement.size(), find.size());
    }
    return count;
}

// ---------------------------------------------------------------------------------------
// Conversions

std::string AString::ToUTF8(std::wstring_view text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size();)
    {
        char32_t c = NextCodePoint(text, i);
        if (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF))
        {
            c = 0xFFFD;
        }
        if (c < 0x80)
        {
            out.push_back(static_cast<char>(c));
            continue;
        }
        char bytes[4];
        int32_t n = 0;
        U8_APPEND_UNSAFE(bytes, n, static_cast<UChar32>(c));
        out.append(bytes, static_cast<std::size_t>(n));
    }
    return out;
}

std::string AString::ToUTF8() const
{
    return ToUTF8(std::wstring_view(*this));
}

AString AString::FromUTF8(std::string_view utf8)
{
    AString out;
    out.reserve(utf8.size());
    const auto* bytes = reinterpret_cast<const uint8_t*>(utf8.data());
    const std::size_t length = utf8.size();
    std::size_t i = 0;
    while (i < length)
    {
        if (bytes[i] < 0x80)
        {
            out.push_back(static_cast<wchar_t>(bytes[i++]));
            continue;
        }
        // Each maximal ill-formed subsequence becomes one U+FFFD.
        UChar32 c = 0;
        U8_NEXT(bytes, i, length, c);
        AppendCodePoint(out, c < 0 ? char32_t{0xFFFD} : static_cast<char32_t>(c));
    }
    return out;
}

std::string AString::ToNarrow(CodePage /*codePage*/) const
{
    return ToUTF8();
}

AString AString::FromNarrow(std::string_view text, CodePage /*codePage*/)
{
    return FromUTF8(text);
}
