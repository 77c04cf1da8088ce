// AString: the framework's wide-character string. Every name, path and message text of the
// system is an AString. It is a std::wstring with the text operations the host's modules
// share: printf-style formatting, locale-independent case-insensitive comparison, whole-text
// wildcard matching with captures, strict number parsing, tokenising and UTF-8 conversion.
#pragma once

#include "PlinthExport.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

class AString;

// One argument of AString::Format. Built implicitly from integers, characters, floating
// point numbers, wide and narrow (UTF-8) texts and pointers; it refers to, and does not
// copy, texts, so it lives only for the duration of the Format call.
class PLINTH_API FormatArg
{
public:
    enum class Kind
    {
        kSigned,
        kUnsigned,
        kDouble,
        kChar,
        kWideText,
        kNarrowText,
        kPointer
    };

    template <typename T>
    requires(std::is_integral_v<T> && !std::is_same_v<T, bool> && !std::is_same_v<T, char> &&
             !std::is_same_v<T, wchar_t> && !std::is_same_v<T, char8_t> &&
             !std::is_same_v<T, char16_t> && !std::is_same_v<T, char32_t>) FormatArg(T value)
    noexcept : mBytes(static_cast<std::uint8_t>(sizeof(T)))
    {
        if constexpr (std::is_signed_v<T>)
        {
            mKind = Kind::kSigned;
            mSigned = value;
        }
        else
        {
            mKind = Kind::kUnsigned;
            mUnsigned = value;
        }
    }
    template <typename T>
    requires std::is_enum_v<T> FormatArg(T value)
    noexcept : FormatArg(static_cast<std::underlying_type_t<T>>(value)) {}
    FormatArg(bool value) noexcept : mKind(Kind::kSigned), mBytes(4), mSigned(value ? 1 : 0) {}
    FormatArg(char value) noexcept
        : mKind(Kind::kChar), mBytes(1), mChar(static_cast<unsigned char>(value))
    {
    }
    FormatArg(wchar_t value) noexcept
        : mKind(Kind::kChar), mBytes(sizeof(wchar_t)), mChar(static_cast<char32_t>(value))
    {
    }
    FormatArg(char32_t value) noexcept : mKind(Kind::kChar), mBytes(4), mChar(value) {}
    FormatArg(double value) noexcept : mKind(Kind::kDouble), mBytes(8), mDouble(value) {}
    FormatArg(float value) noexcept : FormatArg(static_cast<double>(value)) {}
    FormatArg(long double value) noexcept : FormatArg(static_cast<double>(value)) {}
    FormatArg(const wchar_t* text) noexcept;
    FormatArg(const std::wstring& text) noexcept;
    FormatArg(std::wstring_view text) noexcept;
    FormatArg(const char* utf8) noexcept;
    FormatArg(const std::string& utf8) noexcept;
    FormatArg(std::string_view utf8) noexcept;
    FormatArg(const void* pointer) noexcept
        : mKind(Kind::kPointer), mBytes(sizeof(void*)),
          mUnsigned(reinterpret_cast<std::uintptr_t>(pointer))
    {
    }
    FormatArg(std::nullptr_t) noexcept : FormatArg(static_cast<const void*>(nullptr)) {}

    Kind GetKind() const { return mKind; }
    // Size in bytes of the original argument; %u and %x of a negative int show its 32-bit form.
    unsigned GetBytes() const { return mBytes; }
    long long GetSigned() const { return mSigned; }
    unsigned long long GetUnsigned() const { return mUnsigned; }
    double GetDouble() const { return mDouble; }
    char32_t GetChar() const { return mChar; }
    // Texts: the wide view for kWideText, the UTF-8 view for kNarrowText; null data marks a
    // null pointer argument.
    std::wstring_view GetWide() const { return {mWideData, mLength}; }
    std::string_view GetNarrow() const { return {mNarrowData, mLength}; }
    bool IsNullText() const;

private:
    Kind mKind;
    std::uint8_t mBytes;
    union
    {
        long long mSigned;
        unsigned long long mUnsigned;
        double mDouble;
        char32_t mChar;
        const wchar_t* mWideData;
        const char* mNarrowData;
    };
    std::size_t mLength = 0;
};

class PLINTH_API AString : public std::wstring
{
public:
    // Narrow code pages of the host. On this platform every one of them is UTF-8.
    enum CodePage
    {
        OEM,
        ANS_ANSI,
        UTF8
    };

    // Case-insensitive strict weak order (CompareNoCase(a, b) < 0), character by character:
    // "a[10]" sorts before "a[2]". Transparent, so sets can be searched with wide views.
    struct PLINTH_API NoCaseLess
    {
        using is_transparent = void;
        bool operator()(std::wstring_view a, std::wstring_view b) const noexcept;
    };

    using std::wstring::wstring;
    AString() noexcept = default;
    AString(const std::wstring& other) : std::wstring(other) {}
    AString(std::wstring&& other) noexcept : std::wstring(std::move(other)) {}
    explicit AString(std::wstring_view view) : std::wstring(view) {}

    // Formatting ----------------------------------------------------------------------

    // Replaces the text with `format` filled printf-style, wide conventions: "%s" takes a
    // wide text (or a UTF-8 one), "%c" a character; flags "-+ #0", width and precision
    // (also "*") as printf; length modifiers (h, l, ll, I64, z, ...) are accepted and
    // ignored, since every argument knows its type. "%u" and "%x" of a negative integer show
    // the two's complement of its own width. A missing argument prints nothing, a mismatched
    // one is converted (a text read by "%d" is 0, a number read by "%s" prints as a number),
    // an unknown or unfinished directive is shown as written. The arguments may be views of
    // this text. Never throws, never reads past the arguments.
    //   Format(L"%s[%d]", L"d", 3)          => "d[3]"
    //   Format(L"%#010x", 255)              => "0x000000ff"
    //   Format(L"%u|%x", -1, -1)            => "4294967295|ffffffff"
    //   Format(L"%5.1f|%-3c|", 2.25, L'x')  => "  2.2|x  |"
    //   Format(L"%d%%|%y|%d", 5)            => "5%|%y|"
    template <typename... Args> AString& Format(const wchar_t* format, const Args&... args)
    {
        const FormatArg list[] = {FormatArg(args)..., FormatArg(0)};
        return FormatList(format, std::span<const FormatArg>(list, sizeof...(Args)));
    }
    AString& FormatList(const wchar_t* format, std::span<const FormatArg> args);
    // Appends `format` filled as Format does.
    AString& AppendFormatList(const wchar_t* format, std::span<const FormatArg> args);
    // A new text filled as Format does.
    template <typename... Args> static AString Formatted(const wchar_t* format, const Args&... args)
    {
        AString text;
        text.Format(format, args...);
        return text;
    }

    // Comparison ----------------------------------------------------------------------

    // Case-insensitive comparison, code point by code point after Unicode simple case
    // folding, independent of the process locale: negative, zero or positive.
    //   "ÄBC" vs "äbc" => 0;  "Straße" vs "STRASSE" => nonzero (simple folding keeps ß)
    int CompareNoCase(std::wstring_view other) const noexcept;
    static int CompareNoCase(std::wstring_view a, std::wstring_view b) noexcept;
    // Whether the two texts are equal ignoring case.
    static bool EqualNoCase(std::wstring_view a, std::wstring_view b) noexcept;
    // The simple case folding of one code point (ASCII fast path).
    static char32_t FoldCase(char32_t c) noexcept;

    // Wildcard matching ---------------------------------------------------------------
    // Always on the whole text. "*" matches any run of characters (possibly empty), "?"
    // exactly one, and a back slash makes the next pattern character literal (a back slash
    // that ends the pattern matches a back slash). Runs in O(text * pattern) time at worst
    // and allocates nothing without captures.
    //   "a[3]".Match("*[*]")     => true
    //   "a*b".Match("*\\**")     => true (contains an asterisk)
    //   "ab".Match("a")          => false (whole text)

    // Case-sensitive match.
    bool Match(std::wstring_view pattern) const noexcept;
    // Case-insensitive match (simple case folding).
    bool MatchNoCase(std::wstring_view pattern) const noexcept;
    // Match with captures: on success `captures` is replaced by one text per "*", in order,
    // each the shortest that lets the rest of the pattern fit; on failure it is untouched
    // (out of memory empties it). Reusing one vector reuses its strings' buffers.
    //   "a[1][2]".Match("*[*]", caps, true) => true, caps = {"a", "1][2"}
    //   "x".Match("*[*]", caps, true)       => false, caps unchanged
    bool Match(std::wstring_view pattern, std::vector<AString>& captures, bool caseSensitive) const;
    static bool MatchText(std::wstring_view text, std::wstring_view pattern, bool caseSensitive,
                          std::vector<AString>* captures);

    // Numbers -------------------------------------------------------------------------
    // The whole text must be the number: no blanks, no trailing characters; overflow fails.
    // A leading "+" is accepted, a "-" only for signed targets. Bases 2 to 36.
    //   "42".IsNumber(i) => true;  "4x" => false;  "-1".IsNumber(u) => false
    //   "2147483648".IsNumber(i) => false (overflow);  "ff".IsNumber(i, 16) => 255
    bool IsNumber(int& value, int base = 10) const noexcept;
    bool IsNumber(unsigned& value, int base = 10) const noexcept;
    bool IsNumber(long long& value, int base = 10) const noexcept;
    bool IsNumber(unsigned long long& value, int base = 10) const noexcept;
    // Decimal and exponent forms ("1", "-2.5", ".5", "1e-3", "1.E+4"); no inf, nan or hex.
    // A value too large for a double fails; one too small to represent reads as zero.
    bool IsNumber(double& value) const noexcept;
    // Whether the text is a number in any of the forms above.
    bool IsNumber() const noexcept;

    // Pieces --------------------------------------------------------------------------
    // Splits at any one of the `delimiters` characters and appends the pieces to `tokens`;
    // with `keepEmpty` false empty pieces are dropped. Returns the number appended.
    //   "a,,b" with "," keepEmpty false => {"a","b"};  true => {"a","","b"};  "" => {}
    std::size_t TokenizeString(std::vector<AString>& tokens, std::wstring_view delimiters,
                               bool keepEmpty) const;
    // The first `count` characters (all when fewer).
    AString Left(std::size_t count) const;
    // The last `count` characters (all when fewer).
    AString Right(std::size_t count) const;
    // From `first` to the end, or `count` characters from `first`; empty past the end.
    AString Mid(std::size_t first) const;
    AString Mid(std::size_t first, std::size_t count) const;
    // Removes leading and trailing white space in place (Unicode White_Space).
    AString& Trim();
    AString& TrimLeft();
    AString& TrimRight();
    // Upper and lower case in place (Unicode simple mappings), and as copies.
    AString& MakeUpper();
    AString& MakeLower();
    AString ToUpper() const;
    AString ToLower() const;
    // Replaces every occurrence of `find` (not empty) by `replacement`, left to right, never
    // searching inserted text again. Returns the number of replacements.
    std::size_t Replace(std::wstring_view find, std::wstring_view replacement);

    bool IsEmpty() const noexcept { return empty(); }
    int GetLength() const noexcept { return static_cast<int>(size()); }

    // Conversions ---------------------------------------------------------------------
    // UTF-8 in and out. Invalid input sequences become U+FFFD; nothing is dropped silently.
    std::string ToUTF8() const;
    static AString FromUTF8(std::string_view utf8);
    static std::string ToUTF8(std::wstring_view text);
    // The narrow form in a host code page (UTF-8 for every code page on this platform).
    std::string ToNarrow(CodePage codePage = UTF8) const;
    static AString FromNarrow(std::string_view text, CodePage codePage = UTF8);
};

// Appends `text` filled as AString::Format does to `out`.
PLINTH_API void AppendFormatted(std::wstring& out, const wchar_t* format,
                                std::span<const FormatArg> args);
