// io::CBlock_value: one typed value of the block text format (text, integer, real or bool),
// and io::CBlock_named_value, a value with its key. Both are light views: a text value
// refers to characters that it does not own, so it lives only as long as the string or the
// block it came from (and, for a block, until that block changes).
//
// Values built from C++ values are what the block's writing operations take:
//   block.AddValue(L"d[3]");   block.AddValue(42);   block.AddValue(2.5);   block.AddValue(true);
// Values read from a block convert with Get, which fails (and leaves the target untouched)
// when the conversion would lose meaning:
//   integer 7   => Get(unsigned&) 7, Get(double&) 7.0, Get(bool&) fails, Get(AString&) fails
//   integer -1  => Get(int&) -1, Get(unsigned&) fails
//   real 2.5    => Get(double&) 2.5, Get(int&) fails (no silent truncation)
#pragma once

#include "AString.h"
#include "PlinthExport.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>

namespace io
{

// The integer types that convert to and from an integer value (not bool, not characters).
template <typename T>
concept BlockInteger =
    std::integral<T> && !std::same_as<T, bool> && !std::same_as<T, char> &&
    !std::same_as<T, signed char> && !std::same_as<T, unsigned char> && !std::same_as<T, wchar_t> &&
    !std::same_as<T, char8_t> && !std::same_as<T, char16_t> && !std::same_as<T, char32_t>;

class PLINTH_API CBlock_value
{
public:
    enum class Kind : std::uint8_t
    {
        kText,
        kInteger, // signed 64-bit
        kReal,    // double
        kBool
    };

    // The empty text.
    CBlock_value() noexcept : mKind(Kind::kText), mEncoding(Encoding::kUtf8), mText{"", 0} {}
    // Texts: wide, or UTF-8 (char). Narrow literals are UTF-8 texts, never bools.
    CBlock_value(const wchar_t* text) noexcept : CBlock_value(std::wstring_view(text)) {}
    CBlock_value(std::wstring_view text) noexcept
        : mKind(Kind::kText), mEncoding(Encoding::kWide), mWide{text.data(), text.size()}
    {
    }
    CBlock_value(const std::wstring& text) noexcept : CBlock_value(std::wstring_view(text)) {}
    CBlock_value(const char* utf8) noexcept : CBlock_value(std::string_view(utf8)) {}
    CBlock_value(std::string_view utf8) noexcept
        : mKind(Kind::kText), mEncoding(Encoding::kUtf8), mText{utf8.data(), utf8.size()}
    {
    }
    CBlock_value(const std::string& utf8) noexcept : CBlock_value(std::string_view(utf8)) {}
    // Integers of any width; an unsigned value above the signed 64-bit range makes a value
    // that the block refuses (IsInRange false).
    template <BlockInteger T>
    CBlock_value(T value) noexcept : mKind(Kind::kInteger), mEncoding(Encoding::kUtf8)
    {
        if constexpr (std::is_unsigned_v<T>)
        {
            mInRange = static_cast<unsigned long long>(value) <=
                       static_cast<unsigned long long>(std::numeric_limits<std::int64_t>::max());
        }
        mInteger = static_cast<std::int64_t>(value);
    }
    // Enumerations are stored as their integer value.
    template <typename E>
    requires std::is_enum_v<E> CBlock_value(E value)
    noexcept : CBlock_value(static_cast<std::underlying_type_t<E>>(value)) {}
    CBlock_value(double value) noexcept
        : mKind(Kind::kReal), mEncoding(Encoding::kUtf8), mReal(value)
    {
    }
    CBlock_value(bool value) noexcept : mKind(Kind::kBool), mEncoding(Encoding::kUtf8), mBool(value)
    {
    }
    // Guards against a pointer silently becoming a bool.
    CBlock_value(const void*) = delete;
    CBlock_value(std::nullptr_t) = delete;

    Kind GetKind() const noexcept { return mKind; }
    bool IsText() const noexcept { return mKind == Kind::kText; }
    bool IsInteger() const noexcept { return mKind == Kind::kInteger; }
    bool IsReal() const noexcept { return mKind == Kind::kReal; }
    bool IsBool() const noexcept { return mKind == Kind::kBool; }
    // False only for an unsigned integer too large for the signed 64-bit range.
    bool IsInRange() const noexcept { return mInRange; }

    // Typed getters: true and `target` set when the value converts, else false and `target`
    // untouched. Texts give texts only; integers give integers of a type that holds them, and
    // reals; reals give reals only; bools give bools only.
    bool Get(AString& target) const;
    bool Get(std::string& utf8) const;
    bool Get(double& target) const noexcept;
    bool Get(bool& target) const noexcept;
    template <BlockInteger T> bool Get(T& target) const noexcept
    {
        if (mKind != Kind::kInteger || !mInRange)
        {
            return false;
        }
        if constexpr (std::is_signed_v<T>)
        {
            if (mInteger < static_cast<std::int64_t>(std::numeric_limits<T>::min()) ||
                mInteger > static_cast<std::int64_t>(std::numeric_limits<T>::max()))
            {
                return false;
            }
        }
        else
        {
            if (mInteger < 0 || static_cast<std::uint64_t>(mInteger) >
                                    static_cast<std::uint64_t>(std::numeric_limits<T>::max()))
            {
                return false;
            }
        }
        target = static_cast<T>(mInteger);
        return true;
    }
    template <typename E>
    requires std::is_enum_v<E>
    bool Get(E& target) const noexcept
    {
        std::underlying_type_t<E> raw{};
        if (!Get(raw))
        {
            return false;
        }
        target = static_cast<E>(raw);
        return true;
    }

    // The text as a wide string (empty for other kinds).
    AString GetText() const;
    // Raw payloads, meaningful for the matching kind only.
    std::int64_t GetInteger() const noexcept { return mKind == Kind::kInteger ? mInteger : 0; }
    double GetReal() const noexcept { return mKind == Kind::kReal ? mReal : 0.0; }
    bool GetBool() const noexcept { return mKind == Kind::kBool && mBool; }
    // Whether the text is held as UTF-8 (always so for values read from a block), and that
    // UTF-8 view; empty for wide texts and other kinds.
    bool HasUtf8Text() const noexcept
    {
        return mKind == Kind::kText && mEncoding == Encoding::kUtf8;
    }
    std::string_view GetUtf8View() const noexcept
    {
        return HasUtf8Text() ? std::string_view(mText.data, mText.size) : std::string_view();
    }
    // The wide view of a text given as wide, else empty.
    std::wstring_view GetWideView() const noexcept
    {
        return mKind == Kind::kText && mEncoding == Encoding::kWide
                   ? std::wstring_view(mWide.data, mWide.size)
                   : std::wstring_view();
    }

    // Same kind and same value; texts compare by characters whatever their encoding; any NaN
    // equals any NaN, and 0.0 differs from -0.0 (a value reads back exactly as written).
    friend PLINTH_API bool operator==(const CBlock_value& a, const CBlock_value& b);

private:
    enum class Encoding : std::uint8_t
    {
        kUtf8,
        kWide
    };
    struct Utf8Text
    {
        const char* data;
        std::size_t size;
    };
    struct WideText
    {
        const wchar_t* data;
        std::size_t size;
    };

    Kind mKind;
    Encoding mEncoding;
    bool mInRange = true;
    union
    {
        Utf8Text mText;
        WideText mWide;
        std::int64_t mInteger;
        double mReal;
        bool mBool;
    };
};

// A value with its key, as a block's named item:  block.AddNamedValue({L"IsBusPort", true})
class PLINTH_API CBlock_named_value
{
public:
    CBlock_named_value(std::wstring_view name, const CBlock_value& value) noexcept
        : mName(name), mValue(value)
    {
    }
    std::wstring_view GetName() const noexcept { return mName; }
    const CBlock_value& GetValue() const noexcept { return mValue; }

private:
    std::wstring_view mName;
    CBlock_value mValue;
};

} // namespace io
