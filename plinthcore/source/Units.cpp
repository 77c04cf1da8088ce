#include "Units.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <map>
#include <numbers>
#include <string>
#include <system_error>

namespace
{
using FUT = Units::FullUnitType;

constexpr double kPi = std::numbers::pi;

constexpr std::array<Units::Prefix, 9> kPrefixes{{
    {L"f", -15, 1e-15},
    {L"p", -12, 1e-12},
    {L"n", -9, 1e-9},
    {L"u", -6, 1e-6},
    {L"m", -3, 1e-3},
    {L"k", 3, 1e3},
    {L"meg", 6, 1e6},
    {L"G", 9, 1e9},
    {L"T", 12, 1e12},
}};
constexpr std::size_t kMicroIndex = 3;
// The prefixes spelled out, in the order of kPrefixes: "1mega" is a million, not mega-amperes.
constexpr std::array<const wchar_t*, 9> kPrefixNames{L"femto", L"pico", L"nano", L"micro", L"milli",
                                                     L"kilo",  L"mega", L"giga", L"tera"};
constexpr int kSmallestExponent = -15;
constexpr int kLargestExponent = 12;

// All units, their spellings and the lookups over them, built on first use.
class UnitTable
{
public:
    UnitTable()
    {
        auto add = [this](FUT unit, Units::UnitType type, std::wstring_view symbol,
                          std::wstring_view name, double scale, double offset, bool prefixes,
                          std::vector<AString> aliases) {
            mUnits.emplace_back(unit, type, symbol, name, scale, offset, prefixes,
                                std::move(aliases));
        };
        using U = Units;
        add(U::kNoUnit, U::kDimensionless, L"", L"no unit", 1, 0, false, {});
        add(U::kPercent, U::kDimensionless, L"%", L"percent", 0.01, 0, false, {});
        add(U::kVolt, U::kVoltage, L"V", L"volt", 1, 0, true, {L"volts"});
        add(U::kAmpere, U::kCurrent, L"A", L"ampere", 1, 0, true, {L"amperes", L"amp", L"amps"});
        add(U::kOhm, U::kResistance, L"ohm", L"ohm", 1, 0, true, {L"ohms", L"\u03A9", L"\u2126"});
        add(U::kSiemens, U::kConductance, L"S", L"siemens", 1, 0, true, {L"mho"});
        add(U::kFarad, U::kCapacitance, L"F", L"farad", 1, 0, true, {L"farads"});
        add(U::kHenry, U::kInductance, L"H", L"henry", 1, 0, true, {L"henries", L"henrys"});
        add(U::kHertz, U::kFrequency, L"Hz", L"hertz", 1, 0, true, {});
        add(U::kSecond, U::kTime, L"s", L"second", 1, 0, true, {L"seconds", L"sec"});
        add(U::kWatt, U::kPower, L"W", L"watt", 1, 0, true, {L"watts"});
        add(U::kJoule, U::kEnergy, L"J", L"joule", 1, 0, true, {L"joules"});
        add(U::kCoulomb, U::kCharge, L"C", L"coulomb", 1, 0, true, {L"coulombs"});
        add(U::kKelvin, U::kTemperature, L"K", L"kelvin", 1, 0, true, {L"kelvins"});
        add(U::kDegreeCelsius, U::kTemperature, L"degC", L"degree Celsius", 1, 273.15, false,
            {L"\u00B0C", L"celsius", L"degrees Celsius"});
        add(U::kMetre, U::kLength, L"m", L"metre", 1, 0, true, {L"metres", L"meter", L"meters"});
        add(U::kInch, U::kLength, L"in", L"inch", 0.0254, 0, false, {L"inches"});
        add(U::kMil, U::kLength, L"mil", L"mil", 0.0254e-3, 0, false, {L"mils", L"thou"});
        add(U::kMetrePerSecond, U::kVelocity, L"m/s", L"metre per second", 1, 0, true,
            {L"metres per second", L"meter per second", L"meters per second"});
        add(U::kNewton, U::kForce, L"N", L"newton", 1, 0, true, {L"newtons"});
        add(U::kRadian, U::kAngle, L"rad", L"radian", 1, 0, true, {L"radians"});
        add(U::kDegree, U::kAngle, L"deg", L"degree", kPi / 180, 0, false, {L"degrees", L"\u00B0"});
        add(U::kRadianPerSecond, U::kAngularVelocity, L"rad/s", L"radian per second", 1, 0, true,
            {L"radians per second"});
        add(U::kRevolutionPerMinute, U::kAngularVelocity, L"rpm", L"revolution per minute",
            2 * kPi / 60, 0, false, {L"revolutions per minute"});
        add(U::kNewtonMetre, U::kTorque, L"N*m", L"newton metre", 1, 0, true,
            {L"Nm", L"N.m", L"newton metres", L"newton meter", L"newton meters"});
        add(U::kPascal, U::kPressure, L"Pa", L"pascal", 1, 0, true, {L"pascals"});
        // A prefix before a cubed unit would scale it once, not cubed: none allowed.
        add(U::kCubicMetrePerSecond, U::kVolumeFlowRate, L"m^3/s", L"cubic metre per second", 1, 0,
            false, {L"m3/s", L"cubic metres per second", L"cubic meters per second"});
        add(U::kCandela, U::kLuminousIntensity, L"cd", L"candela", 1, 0, true, {L"candelas"});
        add(U::kAmpereTurn, U::kMagnetomotiveForce, L"At", L"ampere-turn", 1, 0, true,
            {L"ampere-turns", L"A*t"});
        add(U::kWeber, U::kMagneticFlux, L"Wb", L"weber", 1, 0, true, {L"webers"});
        add(U::kTesla, U::kMagneticFluxDensity, L"T", L"tesla", 1, 0, true, {L"teslas"});
        add(U::kDecibel, U::kLevel, L"dB", L"decibel", 1, 0, false, {L"decibels"});

        std::sort(mUnits.begin(), mUnits.end(),
                  [](const auto& a, const auto& b)
                  { return a.GetFullUnitType() < b.GetFullUnitType(); });
        for (const UnitDefinition& def : mUnits)
        {
            Index(def.GetUnitString(), def);
            Index(def.GetName(), def);
            for (const AString& alias : def.GetAliases())
            {
                Index(alias, def);
            }
        }
    }

    const std::vector<UnitDefinition>& All() const { return mUnits; }

    const UnitDefinition* Find(FUT unit) const
    {
        const auto found = std::lower_bound(mUnits.begin(), mUnits.end(), unit,
                                            [](const UnitDefinition& d, FUT u)
                                            { return d.GetFullUnitType() < u; });
        return found != mUnits.end() && found->GetFullUnitType() == unit ? &*found : nullptr;
    }

    const UnitDefinition* FindExact(std::wstring_view text) const
    {
        const auto found = mExact.find(text);
        return found == mExact.end() ? nullptr : found->second;
    }

    const UnitDefinition* FindNoCase(std::wstring_view text) const
    {
        const auto found = mNoCase.find(text);
        return found == mNoCase.end() ? nullptr : found->second;
    }

    const UnitDefinition& NoUnit() const { return *Find(Units::kNoUnit); }

private:
    void Index(const AString& spelling, const UnitDefinition& def)
    {
        if (spelling.empty())
        {
            return;
        }
        mExact.emplace(spelling, &def);
        // Spellings that differ only in case ("s", "S") are told apart by the exact lookup,
        // which runs first; the first one indexed keeps the case-insensitive entry.
        mNoCase.emplace(spelling, &def);
    }

    std::vector<UnitDefinition> mUnits;
    std::map<AString, const UnitDefinition*, std::less<>> mExact;
    std::map<AString, const UnitDefinition*, AString::NoCaseLess> mNoCase;
};

const UnitTable& Table()
{
    static const UnitTable table;
    return table;
}

bool IsBlank(wchar_t c)
{
    return c == L' ' || c == L'\t' || c == L'\n' || c == L'\r' || c == L'\f' || c == L'\v';
}

std::wstring_view TrimBlanks(std::wstring_view text)
{
    while (!text.empty() && IsBlank(text.front()))
    {
        text.remove_prefix(1);
    }
    while (!text.empty() && IsBlank(text.back()))
    {
        text.remove_suffix(1);
    }
    return text;
}

// A unit after a prefix: spelled exactly (or in any case) and taking prefixes.
const UnitDefinition* FindPrefixable(std::wstring_view text, bool exact)
{
    if (text.empty())
    {
        return nullptr;
    }
    const UnitDefinition* def = exact ? Table().FindExact(text) : Table().FindNoCase(text);
    return def != nullptr && def->TakesPrefixes() ? def : nullptr;
}

// Prefix (any case) followed by a unit, the longer prefix spellings first.
bool SplitPrefixAndUnit(std::wstring_view suffix, bool exact, Units::Suffix& result)
{
    for (std::size_t length : {std::size_t(5), std::size_t(4), std::size_t(3), std::size_t(1)})
    {
        if (suffix.size() <= length)
        {
            continue;
        }
        const Units::Prefix* prefix = Units::FindPrefix(suffix.substr(0, length));
        if (prefix == nullptr)
        {
            continue;
        }
        if (const UnitDefinition* def = FindPrefixable(suffix.substr(length), exact))
        {
            result = Units::Suffix{prefix->exponent, prefix->scale, def->GetFullUnitType()};
            return true;
        }
    }
    return false;
}

std::string ToChars(double value, std::chars_format format, bool useFormat)
{
    std::array<char, 64> buffer{};
    const auto result =
        useFormat ? std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format)
                  : std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return std::string(buffer.data(), result.ec == std::errc() ? result.ptr : buffer.data());
}

// The shortest text that reads back to `value` ("inf", "-inf", "nan" for the others).
std::string Shortest(double value)
{
    if (std::isnan(value))
    {
        return "nan";
    }
    return ToChars(value, std::chars_format::general, false);
}

int FloorDiv3(int n)
{
    return n >= 0 ? n / 3 : -((-n + 2) / 3);
}

// Engineering form of a positive finite `value` by moving the decimal point of its shortest
// digits, so that no rounding happens: the text and the prefix exponent give back the value.
// False when the value lies outside the prefix range.
bool Engineering(double value, std::string& mantissa, int& exponent3)
{
    const std::string scientific = ToChars(value, std::chars_format::scientific, true);
    const std::size_t e = scientific.find('e');
    if (e == std::string::npos)
    {
        return false;
    }
    std::string digits;
    for (std::size_t i = 0; i < e; ++i)
    {
        if (scientific[i] != '.')
        {
            digits.push_back(scientific[i]);
        }
    }
    int exponent = 0;
    const char* first = scientific.data() + e + 1;
    if (*first == '+')
    {
        ++first;
    }
    std::from_chars(first, scientific.data() + scientific.size(), exponent);
    exponent3 = FloorDiv3(exponent) * 3;
    if (exponent3 < kSmallestExponent || exponent3 > kLargestExponent)
    {
        return false;
    }
    const std::size_t whole = static_cast<std::size_t>(exponent - exponent3 + 1); // 1 to 3
    if (digits.size() <= whole)
    {
        mantissa = digits + std::string(whole - digits.size(), '0');
    }
    else
    {
        mantissa = digits.substr(0, whole) + "." + digits.substr(whole);
    }
    return true;
}

// The spelling of `def` after a prefix of `exponent` that reads back as that prefix and unit:
// the written form when it does, else the first name or alias that does.
AString UnitSpelling(const UnitDefinition& def, int exponent)
{
    const Units::Prefix* prefix = nullptr;
    for (const Units::Prefix& p : kPrefixes)
    {
        if (p.exponent == exponent)
        {
            prefix = &p;
        }
    }
    auto readsBack = [&](const AString& spelling)
    {
        AString text = prefix != nullptr ? AString(prefix->symbol) : AString();
        text += spelling;
        Units::Suffix suffix;
        return Units::SplitUnitSuffix(text, suffix) && suffix.exponent == exponent &&
               suffix.unit == def.GetFullUnitType();
    };
    AString prefixText = prefix != nullptr ? AString(prefix->symbol) : AString();
    if (readsBack(def.GetUnitString()))
    {
        return prefixText + def.GetUnitString();
    }
    if (readsBack(def.GetName()))
    {
        return prefixText + def.GetName();
    }
    for (const AString& alias : def.GetAliases())
    {
        if (readsBack(alias))
        {
            return prefixText + alias;
        }
    }
    return prefixText + def.GetUnitString();
}

// Whether mantissa * 10^exponent, out of the range of a double, is too large (rather than too
// small): the power of ten of its first significant digit decides.
bool IsTooLarge(const std::string& mantissa, long long exponent)
{
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_not_of("0.");
    if (first == std::string::npos)
    {
        return false;
    }
    const long long position = first < point ? static_cast<long long>(point - first - 1)
                                             : -static_cast<long long>(first - point);
    return position + exponent >= 0;
}

bool IsDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

// Reads the number at the start of `text` as mantissa digits (with their point) and a decimal
// exponent. The exponent saturates far beyond the range of a double.
bool ReadNumber(std::wstring_view text, std::size_t& used, std::string& mantissa,
                long long& exponent, bool& special)
{
    std::size_t i = 0;
    special = false;
    for (std::wstring_view word :
         {std::wstring_view(L"infinity"), std::wstring_view(L"inf"), std::wstring_view(L"nan")})
    {
        if (text.size() >= word.size() && AString::EqualNoCase(text.substr(0, word.size()), word))
        {
            mantissa = word == L"nan" ? "nan" : "inf";
            exponent = 0;
            used = word.size();
            special = true;
            return true;
        }
    }
    std::size_t digitCount = 0;
    while (i < text.size() && IsDigit(text[i]))
    {
        mantissa.push_back(static_cast<char>(text[i++]));
        ++digitCount;
    }
    if (i < text.size() && text[i] == L'.')
    {
        mantissa.push_back('.');
        ++i;
        while (i < text.size() && IsDigit(text[i]))
        {
            mantissa.push_back(static_cast<char>(text[i++]));
            ++digitCount;
        }
    }
    if (digitCount == 0)
    {
        return false;
    }
    exponent = 0;
    // An exponent only when digits follow: in "2e" the letter is left to the suffix.
    if (i < text.size() && (text[i] == L'e' || text[i] == L'E'))
    {
        std::size_t j = i + 1;
        bool negative = false;
        if (j < text.size() && (text[j] == L'+' || text[j] == L'-'))
        {
            negative = text[j] == L'-';
            ++j;
        }
        if (j < text.size() && IsDigit(text[j]))
        {
            long long value = 0;
            while (j < text.size() && IsDigit(text[j]))
            {
                value = std::min<long long>(value * 10 + (text[j] - L'0'), 1000000);
                ++j;
            }
            exponent = negative ? -value : value;
            i = j;
        }
    }
    used = i;
    return true;
}
} // namespace

// ---------------------------------------------------------------------------------------
// UnitDefinition

UnitDefinition::UnitDefinition(Units::FullUnitType unit, Units::UnitType type,
                               std::wstring_view symbol, std::wstring_view name, double scale,
                               double offset, bool takesPrefixes, std::vector<AString> aliases)
    : mUnit(unit), mType(type), mSymbol(symbol), mName(name), mScale(scale), mOffset(offset),
      mTakesPrefixes(takesPrefixes), mAliases(std::move(aliases))
{
}

// ---------------------------------------------------------------------------------------
// Units

const UnitDefinition& Units::GetUnitDef(FullUnitType unit)
{
    const UnitDefinition* def = Table().Find(unit);
    return def != nullptr ? *def : Table().NoUnit();
}

bool Units::IsKnownUnit(FullUnitType unit)
{
    return Table().Find(unit) != nullptr;
}

std::vector<Units::FullUnitType> Units::GetAllUnits()
{
    std::vector<FullUnitType> units;
    for (const UnitDefinition& def : Table().All())
    {
        units.push_back(def.GetFullUnitType());
    }
    return units;
}

std::vector<Units::FullUnitType> Units::GetUnitsOfType(UnitType type)
{
    std::vector<FullUnitType> units;
    const FullUnitType si = GetSIUnit(type);
    if (si == kNoUnit && type != kDimensionless)
    {
        return units;
    }
    units.push_back(si);
    for (const UnitDefinition& def : Table().All())
    {
        if (def.GetUnitType() == type && def.GetFullUnitType() != si)
        {
            units.push_back(def.GetFullUnitType());
        }
    }
    return units;
}

Units::FullUnitType Units::GetSIUnit(UnitType type)
{
    switch (type)
    {
    case kDimensionless:
        return kNoUnit;
    case kVoltage:
        return kVolt;
    case kCurrent:
        return kAmpere;
    case kResistance:
        return kOhm;
    case kConductance:
        return kSiemens;
    case kCapacitance:
        return kFarad;
    case kInductance:
        return kHenry;
    case kFrequency:
        return kHertz;
    case kTime:
        return kSecond;
    case kPower:
        return kWatt;
    case kEnergy:
        return kJoule;
    case kCharge:
        return kCoulomb;
    case kTemperature:
        return kKelvin;
    case kLength:
        return kMetre;
    case kVelocity:
        return kMetrePerSecond;
    case kForce:
        return kNewton;
    case kAngle:
        return kRadian;
    case kAngularVelocity:
        return kRadianPerSecond;
    case kTorque:
        return kNewtonMetre;
    case kPressure:
        return kPascal;
    case kVolumeFlowRate:
        return kCubicMetrePerSecond;
    case kLuminousIntensity:
        return kCandela;
    case kMagnetomotiveForce:
        return kAmpereTurn;
    case kMagneticFlux:
        return kWeber;
    case kMagneticFluxDensity:
        return kTesla;
    case kLevel:
        return kDecibel;
    case kUnitTypeCount:
        break;
    }
    return kNoUnit;
}

AString Units::GetUnitTypeName(UnitType type)
{
    static constexpr std::array<const wchar_t*, kUnitTypeCount> kNames{
        L"Dimensionless",
        L"Voltage",
        L"Current",
        L"Resistance",
        L"Conductance",
        L"Capacitance",
        L"Inductance",
        L"Frequency",
        L"Time",
        L"Power",
        L"Energy",
        L"Charge",
        L"Temperature",
        L"Length",
        L"Velocity",
        L"Force",
        L"Angle",
        L"Angular velocity",
        L"Torque",
        L"Pressure",
        L"Volume flow rate",
        L"Luminous intensity",
        L"Magnetomotive force",
        L"Magnetic flux",
        L"Magnetic flux density",
        L"Level",
    };
    if (type < 0 || type >= kUnitTypeCount)
    {
        return AString(L"Unknown");
    }
    return AString(kNames[static_cast<std::size_t>(type)]);
}

Units::FullUnitType Units::GetFullUnitType(std::wstring_view text)
{
    text = TrimBlanks(text);
    if (const UnitDefinition* def = Table().FindExact(text))
    {
        return def->GetFullUnitType();
    }
    if (const UnitDefinition* def = Table().FindNoCase(text))
    {
        return def->GetFullUnitType();
    }
    return kNoUnit;
}

std::span<const Units::Prefix> Units::GetPrefixes()
{
    return kPrefixes;
}

const Units::Prefix* Units::FindPrefix(std::wstring_view text)
{
    if (text == L"\u00B5" || text == L"\u03BC")
    {
        return &kPrefixes[kMicroIndex];
    }
    for (std::size_t i = 0; i < kPrefixes.size(); ++i)
    {
        if (AString::EqualNoCase(text, kPrefixes[i].symbol) ||
            AString::EqualNoCase(text, kPrefixNames[i]))
        {
            return &kPrefixes[i];
        }
    }
    return nullptr;
}

bool Units::SplitUnitSuffix(std::wstring_view suffix, Suffix& result)
{
    if (suffix.empty())
    {
        result = Suffix{};
        return true;
    }
    if (suffix != L"F")
    {
        if (const Prefix* prefix = FindPrefix(suffix))
        {
            result = Suffix{prefix->exponent, prefix->scale, kNoUnit};
            return true;
        }
    }
    if (const UnitDefinition* def = Table().FindExact(suffix))
    {
        result = Suffix{0, 1.0, def->GetFullUnitType()};
        return true;
    }
    if (SplitPrefixAndUnit(suffix, true, result))
    {
        return true;
    }
    if (const UnitDefinition* def = Table().FindNoCase(suffix))
    {
        result = Suffix{0, 1.0, def->GetFullUnitType()};
        return true;
    }
    return SplitPrefixAndUnit(suffix, false, result);
}

AString Units::FloatToText(double value, FullUnitType unit)
{
    const UnitDefinition& def = GetUnitDef(unit);
    if (def.GetFullUnitType() == kNoUnit)
    {
        return AString::FromUTF8(Shortest(value));
    }
    std::string mantissa;
    int exponent3 = 0;
    if (def.TakesPrefixes() && std::isfinite(value) && value != 0.0 &&
        Engineering(std::fabs(value), mantissa, exponent3))
    {
        AString text = AString::FromUTF8(std::signbit(value) ? "-" + mantissa : mantissa);
        return text + UnitSpelling(def, exponent3);
    }
    return AString::FromUTF8(Shortest(value)) + UnitSpelling(def, 0);
}

bool Units::TextToFloat(std::wstring_view text, double& value, FullUnitType& unit)
{
    text = TrimBlanks(text);
    bool negative = false;
    if (!text.empty() && (text.front() == L'+' || text.front() == L'-'))
    {
        negative = text.front() == L'-';
        text.remove_prefix(1);
    }
    std::string mantissa;
    long long exponent = 0;
    std::size_t used = 0;
    bool special = false;
    try
    {
        if (!ReadNumber(text, used, mantissa, exponent, special))
        {
            return false;
        }
    }
    catch (...)
    {
        return false;
    }
    Suffix suffix;
    if (!SplitUnitSuffix(TrimBlanks(text.substr(used)), suffix))
    {
        return false;
    }
    double parsed = 0.0;
    if (special)
    {
        parsed = mantissa == "nan" ? std::numeric_limits<double>::quiet_NaN()
                                   : std::numeric_limits<double>::infinity();
    }
    else
    {
        // Joining the exponents in the text lets the conversion round only once.
        const long long joined = exponent + suffix.exponent;
        const std::string number = mantissa + "e" + std::to_string(joined);
        const auto result = std::from_chars(number.data(), number.data() + number.size(), parsed);
        if (result.ec == std::errc::result_out_of_range && !IsTooLarge(mantissa, joined))
        {
            parsed = 0.0; // too small to represent: zero, as AString::IsNumber reads it
        }
        else if (result.ec != std::errc() || result.ptr != number.data() + number.size())
        {
            return false;
        }
    }
    value = negative ? -parsed : parsed;
    unit = suffix.unit;
    return true;
}

bool Units::Convert(double value, FullUnitType from, FullUnitType to, double& result)
{
    const UnitDefinition* source = Table().Find(from);
    const UnitDefinition* target = Table().Find(to);
    if (source == nullptr || target == nullptr || source->GetUnitType() != target->GetUnitType())
    {
        return false;
    }
    result = from == to ? value : target->FromSI(source->ToSI(value));
    return true;
}
