#include "Units.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace
{
using U = Units;

std::string Narrow(std::wstring_view text)
{
    return AString::ToUTF8(text);
}

// Bit-for-bit equality, so that -0.0 and 0.0 differ and NaN equals itself.
bool SameDouble(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}
} // namespace

TEST(UnitsTest, FixedCodesMeanTheirUnits)
{
    struct Case
    {
        int code;
        const wchar_t* text;
        U::UnitType type;
    };
    const Case cases[] = {
        {90, L"", U::kDimensionless},
        {68, L"V", U::kVoltage},
        {666, L"A", U::kCurrent},
        {37, L"m", U::kLength},
        {138, L"m/s", U::kVelocity},
        {200, L"N", U::kForce},
        {52, L"rad", U::kAngle},
        {148, L"rad/s", U::kAngularVelocity},
        {216, L"N*m", U::kTorque},
        {192, L"Pa", U::kPressure},
        {520, L"m^3/s", U::kVolumeFlowRate},
        {79, L"K", U::kTemperature},
        {448, L"cd", U::kLuminousIntensity},
        {816, L"At", U::kMagnetomotiveForce},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.code);
        const auto unit = static_cast<U::FullUnitType>(c.code);
        ASSERT_TRUE(U::IsKnownUnit(unit));
        const UnitDefinition& def = U::GetUnitDef(unit);
        EXPECT_EQ(def.GetFullUnitType(), c.code);
        EXPECT_EQ(def.GetUnitString(), c.text);
        EXPECT_EQ(def.GetUnitType(), c.type);
        EXPECT_EQ(U::GetSIUnit(c.type), c.code); // each fixed code is its kind's SI unit
    }
}

TEST(UnitsTest, EveryUnitReadsBackFromEverySpelling)
{
    std::map<std::wstring, int> owner;
    for (U::FullUnitType unit : U::GetAllUnits())
    {
        const UnitDefinition& def = U::GetUnitDef(unit);
        SCOPED_TRACE(Narrow(def.GetName()));
        EXPECT_EQ(def.GetFullUnitType(), unit);
        EXPECT_EQ(U::GetFullUnitType(def.GetUnitString()), unit);
        EXPECT_EQ(U::GetFullUnitType(def.GetName()), unit);
        std::vector<AString> spellings = def.GetAliases();
        spellings.push_back(def.GetUnitString());
        spellings.push_back(def.GetName());
        for (const AString& spelling : spellings)
        {
            EXPECT_EQ(U::GetFullUnitType(spelling), unit) << Narrow(spelling);
            if (!spelling.empty())
            {
                // No spelling belongs to two units.
                const auto [it, inserted] = owner.emplace(spelling, unit);
                EXPECT_TRUE(inserted || it->second == unit) << Narrow(spelling);
            }
        }
        EXPECT_GT(def.GetScale(), 0.0);
        // Every unit belongs to one kind, and that kind lists it.
        const std::vector<U::FullUnitType> ofType = U::GetUnitsOfType(def.GetUnitType());
        EXPECT_NE(std::find(ofType.begin(), ofType.end(), unit), ofType.end());
    }
}

TEST(UnitsTest, LooksUpUnitTextsExactlyThenIgnoringCase)
{
    struct Case
    {
        const wchar_t* text;
        U::FullUnitType expected;
    };
    const Case cases[] = {
        {L"V", U::kVolt},
        {L"v", U::kVolt},
        {L"volts", U::kVolt},
        {L" V ", U::kVolt},
        {L"OHM", U::kOhm},
        {L"\u03A9", U::kOhm},
        {L"hz", U::kHertz},
        {L"s", U::kSecond},
        {L"S", U::kSiemens},
        {L"sec", U::kSecond},
        {L"SEC", U::kSecond},
        {L"Meter", U::kMetre},
        {L"degC", U::kDegreeCelsius},
        {L"\u00B0C", U::kDegreeCelsius},
        {L"m3/s", U::kCubicMetrePerSecond},
        {L"Nm", U::kNewtonMetre},
        // Unknown, prefixed or malformed texts fall back to no unit.
        {L"", U::kNoUnit},
        {L"xyz", U::kNoUnit},
        {L"mV", U::kNoUnit},
        {L"V2", U::kNoUnit},
        {L"q", U::kNoUnit},
        {L"\u00E9", U::kNoUnit},
        {L"V V", U::kNoUnit},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Narrow(c.text));
        EXPECT_EQ(U::GetFullUnitType(c.text), c.expected);
    }
}

TEST(UnitsTest, UnknownCodesFallBackToNoUnit)
{
    for (int code : {0, -1, 89, 91, 999, 1018, 123456})
    {
        SCOPED_TRACE(code);
        const auto unit = static_cast<U::FullUnitType>(code);
        EXPECT_FALSE(U::IsKnownUnit(unit));
        EXPECT_EQ(U::GetUnitDef(unit).GetFullUnitType(), U::kNoUnit);
        EXPECT_EQ(U::GetUnitDef(unit).GetUnitString(), L"");
        EXPECT_EQ(U::FloatToText(2.5, unit), L"2.5");
        double result = 0;
        EXPECT_FALSE(U::Convert(1.0, unit, U::kNoUnit, result));
    }
    for (int type : {-1, static_cast<int>(U::kUnitTypeCount), 1000})
    {
        const auto unitType = static_cast<U::UnitType>(type);
        EXPECT_TRUE(U::GetUnitsOfType(unitType).empty());
        EXPECT_EQ(U::GetSIUnit(unitType), U::kNoUnit);
        EXPECT_EQ(U::GetUnitTypeName(unitType), L"Unknown");
    }
}

TEST(UnitsTest, UnitsOfAKindStartWithItsSIUnit)
{
    EXPECT_EQ(U::GetUnitsOfType(U::kLength),
              (std::vector<U::FullUnitType>{U::kMetre, U::kInch, U::kMil}));
    EXPECT_EQ(U::GetUnitsOfType(U::kTemperature),
              (std::vector<U::FullUnitType>{U::kKelvin, U::kDegreeCelsius}));
    EXPECT_EQ(U::GetUnitsOfType(U::kDimensionless),
              (std::vector<U::FullUnitType>{U::kNoUnit, U::kPercent}));
    EXPECT_EQ(U::GetUnitTypeName(U::kAngularVelocity), L"Angular velocity");
    for (int type = 0; type < U::kUnitTypeCount; ++type)
    {
        const auto unitType = static_cast<U::UnitType>(type);
        SCOPED_TRACE(Narrow(U::GetUnitTypeName(unitType)));
        EXPECT_NE(U::GetUnitTypeName(unitType), L"Unknown");
        EXPECT_EQ(U::GetUnitDef(U::GetSIUnit(unitType)).GetUnitType(), unitType);
    }
}

TEST(UnitsTest, PrefixTableIsCircuitStyle)
{
    std::wstring symbols;
    std::vector<int> exponents;
    for (const U::Prefix& prefix : U::GetPrefixes())
    {
        symbols += prefix.symbol;
        symbols += L' ';
        exponents.push_back(prefix.exponent);
        EXPECT_EQ(prefix.scale, std::pow(10.0, prefix.exponent));
    }
    EXPECT_EQ(symbols, L"f p n u m k meg G T ");
    EXPECT_EQ(exponents, (std::vector<int>{-15, -12, -9, -6, -3, 3, 6, 9, 12}));

    struct Case
    {
        const wchar_t* text;
        int exponent; // 99: not a prefix
    };
    const Case cases[] = {
        {L"f", -15},  {L"F", -15},     {L"p", -12},     {L"n", -9},     {L"u", -6},
        {L"U", -6},   {L"\u00B5", -6}, {L"\u03BC", -6}, {L"m", -3},     {L"M", -3},
        {L"k", 3},    {L"K", 3},       {L"meg", 6},     {L"MEG", 6},    {L"Meg", 6},
        {L"g", 9},    {L"G", 9},       {L"t", 12},      {L"T", 12},     {L"", 99},
        {L"mega", 6}, {L"Kilo", 3},    {L"milli", -3},  {L"micro", -6}, {L"femto", -15},
        {L"x", 99},   {L"me", 99},     {L"megaa", 99},  {L"kk", 99},    {L"a", 99},
        {L"mil", 99}, {L"kilo ", 99},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Narrow(c.text));
        const U::Prefix* prefix = U::FindPrefix(c.text);
        if (c.exponent == 99)
        {
            EXPECT_EQ(prefix, nullptr);
        }
        else
        {
            ASSERT_NE(prefix, nullptr);
            EXPECT_EQ(prefix->exponent, c.exponent);
        }
    }
}

TEST(UnitsTest, SplitsSuffixesByTheAmbiguityRules)
{
    struct Case
    {
        const wchar_t* suffix;
        bool ok;
        int exponent;
        U::FullUnitType unit;
    };
    const Case cases[] = {
        {L"", true, 0, U::kNoUnit},
        // Lone prefixes, any case; "F" alone is the farad, "f" femto.
        {L"m", true, -3, U::kNoUnit},
        {L"M", true, -3, U::kNoUnit},
        {L"meg", true, 6, U::kNoUnit},
        {L"K", true, 3, U::kNoUnit},
        {L"N", true, -9, U::kNoUnit},
        {L"T", true, 12, U::kNoUnit},
        {L"F", true, 0, U::kFarad},
        {L"f", true, -15, U::kNoUnit},
        // Whole units spelled exactly.
        {L"Pa", true, 0, U::kPascal},
        {L"s", true, 0, U::kSecond},
        {L"S", true, 0, U::kSiemens},
        {L"mil", true, 0, U::kMil},
        {L"Nm", true, 0, U::kNewtonMetre},
        {L"ohm", true, 0, U::kOhm},
        {L"degC", true, 0, U::kDegreeCelsius},
        // Prefix and exactly spelled unit.
        {L"pF", true, -12, U::kFarad},
        {L"mF", true, -3, U::kFarad},
        {L"pA", true, -12, U::kAmpere},
        {L"PA", true, -12, U::kAmpere},
        {L"mm", true, -3, U::kMetre},
        {L"nm", true, -9, U::kMetre},
        {L"kK", true, 3, U::kKelvin},
        {L"ms", true, -3, U::kSecond},
        {L"mS", true, -3, U::kSiemens},
        {L"MHz", true, -3, U::kHertz},
        {L"megHz", true, 6, U::kHertz},
        {L"GHz", true, 9, U::kHertz},
        {L"MEGohm", true, 6, U::kOhm},
        {L"\u00B5F", true, -6, U::kFarad},
        {L"uF", true, -6, U::kFarad},
        {L"UF", true, -6, U::kFarad},
        {L"mAt", true, -3, U::kAmpereTurn},
        {L"krad/s", true, 3, U::kRadianPerSecond},
        // Whole units in another case.
        {L"OHM", true, 0, U::kOhm},
        {L"v", true, 0, U::kVolt},
        {L"hz", true, 0, U::kHertz},
        {L"pa", true, 0, U::kPascal},
        {L"NM", true, 0, U::kNewtonMetre},
        {L"Volt", true, 0, U::kVolt},
        {L"kelvin", true, 0, U::kKelvin},
        // Prefix and unit in another case.
        {L"kOhm", true, 3, U::kOhm},
        {L"pf", true, -12, U::kFarad},
        {L"MEGOHM", true, 6, U::kOhm},
        {L"kvolts", true, 3, U::kVolt},
        {L"kk", true, 3, U::kKelvin},
        // Units without prefixes, and things that are neither.
        {L"mdB", false, 0, U::kNoUnit},
        {L"kdegC", false, 0, U::kNoUnit},
        {L"mm^3/s", false, 0, U::kNoUnit},
        {L"min", false, 0, U::kNoUnit},
        {L"x", false, 0, U::kNoUnit},
        {L"kx", false, 0, U::kNoUnit},
        {L"k V", false, 0, U::kNoUnit},
        {L"Vk", false, 0, U::kNoUnit},
        {L"mega", true, 6, U::kNoUnit},
        {L"megaohm", true, 6, U::kOhm},
        {L"kiloOhm", true, 3, U::kOhm},
        {L"microfarad", true, -6, U::kFarad},
        {L"kilometre", true, 3, U::kMetre},
        {L"nanos", true, -9, U::kSecond},
        {L"megA", true, 6, U::kNoUnit}, // the spelled-out prefix wins
        {L"megampere", true, 6, U::kAmpere},
        {L"megaa", true, 6, U::kAmpere},
        {L"mils", true, 0, U::kMil},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Narrow(c.suffix));
        U::Suffix result{77, 7.0, U::kWatt};
        ASSERT_EQ(U::SplitUnitSuffix(c.suffix, result), c.ok);
        if (c.ok)
        {
            EXPECT_EQ(result.exponent, c.exponent);
            EXPECT_EQ(result.scale, std::pow(10.0, c.exponent));
            EXPECT_EQ(result.unit, c.unit);
        }
        else
        {
            EXPECT_EQ(result.exponent, 77); // untouched
            EXPECT_EQ(result.unit, U::kWatt);
        }
    }
}

TEST(UnitsTest, FloatToTextWritesTheShortestPlainNumberWithoutUnit)
{
    struct Case
    {
        double value;
        const wchar_t* expected;
    };
    const Case cases[] = {
        {0.0, L"0"},
        {-0.0, L"-0"},
        {0.1, L"0.1"},
        {-2.5, L"-2.5"},
        {123456.0, L"123456"},
        {1e20, L"1e+20"},
        {1.0 / 3.0, L"0.3333333333333333"},
        {5e-324, L"5e-324"},
        {std::numeric_limits<double>::max(), L"1.7976931348623157e+308"},
        {std::numeric_limits<double>::infinity(), L"inf"},
        {-std::numeric_limits<double>::infinity(), L"-inf"},
        {std::numeric_limits<double>::quiet_NaN(), L"nan"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.value);
        EXPECT_EQ(U::FloatToText(c.value, U::kNoUnit), c.expected);
    }
}

TEST(UnitsTest, FloatToTextWritesWhatADesignerReads)
{
    struct Case
    {
        double value;
        U::FullUnitType unit;
        const wchar_t* expected;
    };
    const Case cases[] = {
        {1.5e-12, U::kFarad, L"1.5pF"},
        {1e-15, U::kFarad, L"1fF"},
        {999e12, U::kHertz, L"999THz"},
        {1e6, U::kOhm, L"1megohm"},
        {4700, U::kOhm, L"4.7kohm"},
        {1e9, U::kHertz, L"1GHz"},
        {123456, U::kHertz, L"123.456kHz"},
        {0.1, U::kVolt, L"100mV"},
        {-0.000999, U::kAmpere, L"-999uA"},
        {1, U::kFarad, L"1F"},
        {3, U::kSiemens, L"3S"},
        {2, U::kSecond, L"2s"},
        {0, U::kVolt, L"0V"},
        {-0.0, U::kVolt, L"-0V"},
        // Outside the prefix range: plain number and unit.
        {1e-20, U::kFarad, L"1e-20F"},
        {1e15, U::kVolt, L"1e+15V"},
        {5e-324, U::kVolt, L"5e-324V"},
        // Units that take no prefix.
        {-3, U::kDecibel, L"-3dB"},
        {0.001, U::kDecibel, L"0.001dB"},
        {25, U::kDegreeCelsius, L"25degC"},
        {1500, U::kCubicMetrePerSecond, L"1500m^3/s"},
        {50, U::kPercent, L"50%"},
        // A unit whose symbol alone reads as a prefix is written by name.
        {1, U::kKelvin, L"1kelvin"},
        {300, U::kKelvin, L"300kelvin"},
        {1000, U::kKelvin, L"1kK"},
        {1, U::kMetre, L"1metre"},
        {0.001, U::kMetre, L"1mm"},
        {2, U::kNewton, L"2newton"},
        {1, U::kTesla, L"1tesla"},
        {1e6, U::kAmpere, L"1megampere"},
        {2e6, U::kVolt, L"2megV"},
        {std::numeric_limits<double>::infinity(), U::kVolt, L"infV"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Narrow(c.expected));
        EXPECT_EQ(U::FloatToText(c.value, c.unit), c.expected);
    }
}

TEST(UnitsTest, FloatToTextReadsBackExactly)
{
    const double values[] = {
        0.0,
        -0.0,
        1.0,
        -1.0,
        0.1,
        1.5e-12,
        999.5,
        999.9999999999999,
        1000.0,
        0.001,
        0.000999,
        1e-15,
        9.99e-16,
        1e6,
        1e12,
        999e12,
        1e15,
        3.141592653589793,
        -2.718281828459045e-7,
        5e-324,                             // smallest denormal
        2.2250738585072009e-308,            // largest denormal
        std::numeric_limits<double>::min(), // smallest normal
        std::numeric_limits<double>::max(),
        -std::numeric_limits<double>::max(),
        std::numeric_limits<double>::infinity(),
        -std::numeric_limits<double>::infinity(),
        std::numeric_limits<double>::quiet_NaN(),
    };
    const U::FullUnitType units[] = {U::kNoUnit,
                                     U::kVolt,
                                     U::kFarad,
                                     U::kOhm,
                                     U::kAmpere,
                                     U::kKelvin,
                                     U::kMetre,
                                     U::kNewton,
                                     U::kTesla,
                                     U::kHertz,
                                     U::kDecibel,
                                     U::kDegreeCelsius,
                                     U::kCubicMetrePerSecond,
                                     U::kSiemens,
                                     U::kSecond};
    for (U::FullUnitType unit : units)
    {
        for (double value : values)
        {
            const AString text = U::FloatToText(value, unit);
            SCOPED_TRACE(Narrow(text));
            double back = 1234.5;
            U::FullUnitType backUnit = U::kWatt;
            ASSERT_TRUE(U::TextToFloat(text, back, backUnit));
            EXPECT_TRUE(SameDouble(back, value) || (std::isnan(back) && std::isnan(value)));
            EXPECT_EQ(backUnit, unit);
        }
    }
}

TEST(UnitsTest, EveryUnitAtEveryPrefixReadsBack)
{
    for (U::FullUnitType unit : U::GetAllUnits())
    {
        for (int exponent = -18; exponent <= 15; ++exponent)
        {
            const double value = 1.25 * std::pow(10.0, exponent);
            const AString text = U::FloatToText(value, unit);
            SCOPED_TRACE(Narrow(text));
            double back = 0;
            U::FullUnitType backUnit = U::kWatt;
            ASSERT_TRUE(U::TextToFloat(text, back, backUnit));
            EXPECT_TRUE(SameDouble(back, value));
            EXPECT_EQ(backUnit, unit);
        }
    }
}

TEST(UnitsTest, RandomDoublesReadBackExactly)
{
    std::mt19937_64 random(20261121);
    int checked = 0;
    while (checked < 3000)
    {
        const double value = std::bit_cast<double>(random());
        if (!std::isfinite(value))
        {
            continue;
        }
        ++checked;
        for (U::FullUnitType unit : {U::kNoUnit, U::kFarad, U::kMetre})
        {
            const AString text = U::FloatToText(value, unit);
            double back = 0;
            U::FullUnitType backUnit = U::kWatt;
            ASSERT_TRUE(U::TextToFloat(text, back, backUnit)) << Narrow(text);
            ASSERT_TRUE(SameDouble(back, value)) << Narrow(text);
            ASSERT_EQ(backUnit, unit);
        }
        // Without a unit the text is also an ordinary number of the framework.
        double plain = 0;
        ASSERT_TRUE(U::FloatToText(value, U::kNoUnit).IsNumber(plain));
        ASSERT_TRUE(SameDouble(plain, value));
    }
}

TEST(UnitsTest, TextToFloatReadsNumbersWithSuffixes)
{
    struct Case
    {
        const wchar_t* text;
        double value;
        U::FullUnitType unit;
    };
    const Case cases[] = {
        {L"10k", 1e4, U::kNoUnit},
        {L"10K", 1e4, U::kNoUnit},
        {L"1.5pF", 1.5e-12, U::kFarad},
        {L"3 ohm", 3, U::kOhm},
        {L"10kOhm", 1e4, U::kOhm},
        {L"  -2.2 uF  ", -2.2e-6, U::kFarad},
        {L"+4.7meg", 4.7e6, U::kNoUnit},
        {L"1e3k", 1e6, U::kNoUnit},
        {L"2.5E-3m", 2.5e-6, U::kNoUnit},
        {L".5V", 0.5, U::kVolt},
        {L"5.V", 5, U::kVolt},
        {L"100MHz", 0.1, U::kHertz},
        {L"0.1", 0.1, U::kNoUnit},
        {L"1e-7", 1e-7, U::kNoUnit},
        {L"25 degC", 25, U::kDegreeCelsius},
        {L"1mil", 1, U::kMil},
        {L"Inf V", std::numeric_limits<double>::infinity(), U::kVolt},
        {L"-infinity", -std::numeric_limits<double>::infinity(), U::kNoUnit},
        // Too small to represent: zero, keeping the sign.
        {L"1e-400", 0.0, U::kNoUnit},
        {L"-1e-320f", -0.0, U::kNoUnit},
        {L"1000e-327", 0.0, U::kNoUnit},
        {L"1e-99999999999999999999 V", 0.0, U::kVolt},
        {L"1e-320p", 0.0, U::kNoUnit},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Narrow(c.text));
        double value = 0;
        U::FullUnitType unit = U::kWatt;
        ASSERT_TRUE(U::TextToFloat(c.text, value, unit));
        EXPECT_TRUE(SameDouble(value, c.value)) << value;
        EXPECT_EQ(unit, c.unit);
    }
}

TEST(UnitsTest, TextToFloatRefusesMalformedTextsAndLeavesOutputs)
{
    for (const wchar_t* text :
         {L"",      L"   ",    L"k",       L"V",          L"abc",
          L"1.2.3", L"--1",    L"+-1",     L"1 2",        L"10x",
          L"2e",    L"1e+",    L".",       L"-",          L"1,5",
          L"1e400", L"-1e400", L"1e306k",  L"0.001e309k", L"1e99999999999999999999",
          L"1mdB",  L"1 k V",  L"nan nan", L"0x10",       L"1\u00A0V"})
    {
        SCOPED_TRACE(Narrow(text));
        double value = 42;
        U::FullUnitType unit = U::kWatt;
        EXPECT_FALSE(U::TextToFloat(text, value, unit));
        EXPECT_EQ(value, 42);
        EXPECT_EQ(unit, U::kWatt);
    }
}

TEST(UnitsTest, ConvertsWithinOneKindOnly)
{
    struct Case
    {
        double value;
        U::FullUnitType from;
        U::FullUnitType to;
        bool ok;
        double expected;
    };
    const Case cases[] = {
        {25, U::kDegreeCelsius, U::kKelvin, true, 298.15},
        {0, U::kKelvin, U::kDegreeCelsius, true, -273.15},
        {50, U::kPercent, U::kNoUnit, true, 0.5},
        {1, U::kInch, U::kMil, true, 1000},
        {180, U::kDegree, U::kRadian, true, 3.141592653589793},
        {60, U::kRevolutionPerMinute, U::kRadianPerSecond, true, 6.283185307179586},
        {1.1, U::kVolt, U::kVolt, true, 1.1},
        {-3, U::kDecibel, U::kDecibel, true, -3},
        {1, U::kVolt, U::kAmpere, false, 0},
        {1, U::kDecibel, U::kNoUnit, false, 0},
        {1, U::kMetre, U::kMetrePerSecond, false, 0},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(testing::Message() << c.from << " to " << c.to);
        double result = -99;
        ASSERT_EQ(U::Convert(c.value, c.from, c.to, result), c.ok);
        if (c.ok)
        {
            EXPECT_NEAR(result, c.expected, 1e-12 * std::max(1.0, std::fabs(c.expected)));
        }
        else
        {
            EXPECT_EQ(result, -99);
        }
    }
}
