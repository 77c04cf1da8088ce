#include "BlockValue.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

namespace
{
using io::CBlock_value;

// What each typed getter makes of one value: whether it converts, and to what.
struct ConversionCase
{
    const char* label;
    CBlock_value value;
    bool toInt;
    int intValue;
    bool toUnsigned;
    unsigned unsignedValue;
    bool toInt64;
    bool toDouble;
    double doubleValue;
    bool toBool;
    bool toText;
};

TEST(BlockValue, TypedGettersConvertOnlyWithoutLoss)
{
    const std::int64_t big = std::int64_t{1} << 40;
    const ConversionCase cases[] = {
        {"zero", CBlock_value(0), true, 0, true, 0u, true, true, 0.0, false, false},
        {"positive", CBlock_value(7), true, 7, true, 7u, true, true, 7.0, false, false},
        {"negative", CBlock_value(-1), true, -1, false, 0u, true, true, -1.0, false, false},
        {"beyond int", CBlock_value(big), false, 0, false, 0u, true, true, 1099511627776.0, false,
         false},
        {"int max", CBlock_value(std::numeric_limits<int>::max()), true,
         std::numeric_limits<int>::max(), true, 2147483647u, true, true, 2147483647.0, false,
         false},
        {"unsigned max", CBlock_value(std::numeric_limits<unsigned>::max()), false, 0, true,
         4294967295u, true, true, 4294967295.0, false, false},
        {"real", CBlock_value(2.5), false, 0, false, 0u, false, true, 2.5, false, false},
        {"whole real", CBlock_value(3.0), false, 0, false, 0u, false, true, 3.0, false, false},
        {"bool", CBlock_value(true), false, 0, false, 0u, false, false, 0.0, true, false},
        {"digit text", CBlock_value(L"12"), false, 0, false, 0u, false, false, 0.0, false, true},
        {"utf8 text", CBlock_value("x"), false, 0, false, 0u, false, false, 0.0, false, true},
    };
    for (const ConversionCase& c : cases)
    {
        SCOPED_TRACE(c.label);
        int asInt = -99;
        EXPECT_EQ(c.value.Get(asInt), c.toInt);
        EXPECT_EQ(asInt, c.toInt ? c.intValue : -99) << "a failed get leaves the target";
        unsigned asUnsigned = 99;
        EXPECT_EQ(c.value.Get(asUnsigned), c.toUnsigned);
        EXPECT_EQ(asUnsigned, c.toUnsigned ? c.unsignedValue : 99u);
        long long asInt64 = 0;
        EXPECT_EQ(c.value.Get(asInt64), c.toInt64);
        double asDouble = -99.0;
        EXPECT_EQ(c.value.Get(asDouble), c.toDouble);
        EXPECT_EQ(asDouble, c.toDouble ? c.doubleValue : -99.0);
        bool asBool = false;
        EXPECT_EQ(c.value.Get(asBool), c.toBool);
        AString asText = L"untouched";
        EXPECT_EQ(c.value.Get(asText), c.toText);
        if (!c.toText)
        {
            EXPECT_EQ(asText, L"untouched");
        }
    }
}

TEST(BlockValue, NarrowIntegerTypesCheckTheirOwnRange)
{
    const CBlock_value value(300);
    short asShort = 0;
    EXPECT_TRUE(value.Get(asShort));
    EXPECT_EQ(asShort, 300);
    unsigned short asUnsignedShort = 0;
    EXPECT_TRUE(value.Get(asUnsignedShort));
    // Character types are not numbers here: a char could be either.
    static_assert(!io::BlockInteger<std::int8_t> && !io::BlockInteger<char>);
    const CBlock_value huge(std::int64_t{70000});
    EXPECT_FALSE(huge.Get(asShort));
    EXPECT_EQ(asShort, 300);
    EXPECT_FALSE(CBlock_value(-1).Get(asUnsignedShort));
}

TEST(BlockValue, UnsignedBeyondSignedRangeIsMarkedOutOfRange)
{
    const CBlock_value fits(std::uint64_t{9223372036854775807ull});
    EXPECT_TRUE(fits.IsInRange());
    const CBlock_value beyond(std::numeric_limits<std::uint64_t>::max());
    EXPECT_FALSE(beyond.IsInRange());
    std::uint64_t out = 1;
    EXPECT_FALSE(beyond.Get(out)) << "an out-of-range value must not read back as a number";
    double real = 0;
    EXPECT_FALSE(beyond.Get(real));
}

enum class Direction
{
    kIn,
    kOut,
    kInOut
};

TEST(BlockValue, EnumerationsTravelAsIntegers)
{
    const CBlock_value value(Direction::kInOut);
    EXPECT_TRUE(value.IsInteger());
    EXPECT_EQ(value.GetInteger(), 2);
    Direction read = Direction::kIn;
    EXPECT_TRUE(CBlock_value(1).Get(read));
    EXPECT_EQ(read, Direction::kOut);
    EXPECT_FALSE(CBlock_value(L"Out").Get(read));
}

TEST(BlockValue, LiteralsPickTheKindTheyLookLike)
{
    EXPECT_TRUE(CBlock_value("text").IsText()) << "a narrow literal must not become a bool";
    EXPECT_TRUE(CBlock_value(L"text").IsText());
    EXPECT_TRUE(CBlock_value(std::string("t")).IsText());
    EXPECT_TRUE(CBlock_value(AString(L"t")).IsText());
    EXPECT_TRUE(CBlock_value(1.5f).IsReal());
    EXPECT_TRUE(CBlock_value(false).IsBool());
    EXPECT_TRUE(CBlock_value(7u).IsInteger());
    EXPECT_TRUE(CBlock_value().IsText());
    EXPECT_TRUE(CBlock_value().GetText().empty());
}

TEST(BlockValue, TextsConvertBetweenEncodings)
{
    const std::wstring wide = L"Gr\u00FC\u00DFe \U0001F600 \u2126";
    std::string utf8;
    ASSERT_TRUE(CBlock_value(std::wstring_view(wide)).Get(utf8));
    EXPECT_EQ(utf8, "Gr\xC3\xBC\xC3\x9F"
                    "e \xF0\x9F\x98\x80 \xE2\x84\xA6");
    AString back;
    ASSERT_TRUE(CBlock_value(utf8).Get(back));
    EXPECT_EQ(back, wide);
    EXPECT_EQ(CBlock_value(utf8).GetUtf8View(), utf8);
    EXPECT_TRUE(CBlock_value(std::wstring_view(wide)).GetUtf8View().empty());
    EXPECT_EQ(CBlock_value(std::wstring_view(wide)).GetWideView(), wide);
}

TEST(BlockValue, TextHoldsNulAndControlCharacters)
{
    const std::wstring wide(L"a\0b\r\n\v\a", 7);
    AString back;
    std::string utf8;
    ASSERT_TRUE(CBlock_value(std::wstring_view(wide)).Get(utf8));
    EXPECT_EQ(utf8.size(), 7u);
    ASSERT_TRUE(CBlock_value(utf8).Get(back));
    EXPECT_EQ(back, wide);
}

TEST(BlockValue, EqualityComparesKindAndValueAcrossEncodings)
{
    EXPECT_EQ(CBlock_value(L"\u00E9t\u00E9"), CBlock_value("\xC3\xA9t\xC3\xA9"));
    EXPECT_NE(CBlock_value(L"\u00E9t\u00E9"), CBlock_value("ete"));
    EXPECT_NE(CBlock_value(L"ab"), CBlock_value("abc"));
    EXPECT_NE(CBlock_value(1), CBlock_value(1.0)) << "kinds differ";
    EXPECT_NE(CBlock_value(1), CBlock_value(true));
    EXPECT_EQ(CBlock_value(std::nan("")), CBlock_value(-std::nan("1")));
    EXPECT_NE(CBlock_value(0.0), CBlock_value(-0.0)) << "the sign of zero survives a file";
    EXPECT_NE(CBlock_value(std::numeric_limits<std::uint64_t>::max()), CBlock_value(-1));
}

TEST(BlockValue, NamedValueKeepsItsParts)
{
    const io::CBlock_named_value named(L"IsBusPort", true);
    EXPECT_EQ(named.GetName(), L"IsBusPort");
    EXPECT_TRUE(named.GetValue().GetBool());
}
} // namespace
