// Physical units of the framework: the kind of quantity (Units::UnitType), the unit itself
// (Units::FullUnitType) with its written form, the circuit-style table of scale prefixes, and
// the conversions between numbers and texts such as "1.5pF", "10k" or "3 ohm".
//
// Reading a suffix (the text after a number), first rule that fits wins:
//   1. ""                          => no scale, no unit
//   2. a lone prefix, any case     => that prefix, no unit ("m" and "M" are milli, "meg" mega,
//      "K" kilo, "mega" mega), except "F" exactly, which is the farad ("f" stays femto)
//   3. a unit spelled exactly      => that unit ("Pa", "s", "S", "mil", "F")
//   4. prefix + exactly spelled unit taking prefixes => "mF", "pA", "kK", "MEGohm", "mS", "ms"
//   5. a unit in another case      => "OHM", "hz", "v", "Volt", "pa" (pascal)
//   6. prefix + unit in another case => "kOhm", "pf", "MEGOHM", "kiloOhm"
// Longer prefix spellings are tried first ("megohm" is mega-ohm, "microfarad" micro-farad).
// So "MHz" is millihertz (write "megHz" or "GHz"); "mm" is a millimetre; "1K" is a thousand;
// "megA" is mega (the prefix name); one kelvin reads "1kelvin" and a mega-ampere "1megampere".
// FloatToText only writes texts that read back this way.
#pragma once

#include "AString.h"
#include "PlinthExport.h"

#include <span>
#include <string_view>
#include <vector>

class UnitDefinition;

class PLINTH_API Units
{
public:
    Units() = delete;

    // The kind of quantity a unit measures.
    enum UnitType : int
    {
        kDimensionless = 0, // no unit, percent
        kVoltage,
        kCurrent,
        kResistance,
        kConductance,
        kCapacitance,
        kInductance,
        kFrequency,
        kTime,
        kPower,
        kEnergy,
        kCharge,
        kTemperature,
        kLength,
        kVelocity,
        kForce,
        kAngle,
        kAngularVelocity,
        kTorque,
        kPressure,
        kVolumeFlowRate,
        kLuminousIntensity,
        kMagnetomotiveForce,
        kMagneticFlux,
        kMagneticFluxDensity,
        kLevel, // logarithmic ratios (decibel)
        kUnitTypeCount
    };

    // A unit. The codes below 1000 are fixed by the host's files and interfaces.
    enum FullUnitType : int
    {
        kNoUnit = 90, // the fallback for anything unknown
        kVolt = 68,
        kAmpere = 666,
        kMetre = 37,
        kMetrePerSecond = 138,
        kNewton = 200,
        kRadian = 52,
        kRadianPerSecond = 148,
        kNewtonMetre = 216,
        kPascal = 192,
        kCubicMetrePerSecond = 520,
        kKelvin = 79,
        kCandela = 448,
        kAmpereTurn = 816,
        kOhm = 1000,
        kSiemens = 1001,
        kFarad = 1002,
        kHenry = 1003,
        kHertz = 1004,
        kSecond = 1005,
        kWatt = 1006,
        kJoule = 1007,
        kCoulomb = 1008,
        kDegreeCelsius = 1009,
        kDecibel = 1010,
        kPercent = 1011,
        kDegree = 1012,
        kInch = 1013,
        kMil = 1014,
        kWeber = 1015,
        kTesla = 1016,
        kRevolutionPerMinute = 1017
    };

    // A scale prefix: "k" stands for 10^3. `symbol` is the written form.
    struct Prefix
    {
        const wchar_t* symbol;
        int exponent;
        double scale;
    };

    // What a suffix stands for: the power of ten of its prefix (0 for none) and its unit
    // (kNoUnit for none).
    struct Suffix
    {
        int exponent = 0;
        double scale = 1.0;
        FullUnitType unit = kNoUnit;
    };

    // The definition of `unit`; that of kNoUnit for a code that is not a unit.
    static const UnitDefinition& GetUnitDef(FullUnitType unit);
    static bool IsKnownUnit(FullUnitType unit);
    // Every unit, ordered by code.
    static std::vector<FullUnitType> GetAllUnits();
    // The units of one kind, its SI unit first; none for an unknown kind.
    static std::vector<FullUnitType> GetUnitsOfType(UnitType type);
    // The SI (or, for kLevel and kDimensionless, the plain) unit of a kind; kNoUnit if unknown.
    static FullUnitType GetSIUnit(UnitType type);
    // "Voltage", "Angular velocity", ...; "Unknown" for a code that is not a kind.
    static AString GetUnitTypeName(UnitType type);

    // The unit whose written form, name or alias `text` is, exactly or else ignoring case,
    // blanks around it ignored; kNoUnit for anything else (prefixed forms included).
    //   "V" => kVolt;  "OHM" => kOhm;  "s" => kSecond;  "S" => kSiemens;  "mV" => kNoUnit
    static FullUnitType GetFullUnitType(std::wstring_view text);

    // The prefix table, smallest first: f p n u m k meg G T.
    static std::span<const Prefix> GetPrefixes();
    // The prefix that `text` is, by symbol or name, ignoring case ("u", "µ", "μ" and "micro"
    // are micro); null otherwise.
    //   "k" => 10^3;  "M" => 10^-3;  "MEG" => 10^6;  "Mega" => 10^6;  "x" => null
    static const Prefix* FindPrefix(std::wstring_view text);
    // Reads a suffix by the rules above; false (and `result` untouched) when it is neither a
    // prefix, a unit nor a prefix followed by a unit that takes prefixes.
    //   "pF" => 10^-12 farad;  "k" => 10^3;  "Hz" => hertz;  "mdB" => false
    static bool SplitUnitSuffix(std::wstring_view suffix, Suffix& result);

    // A number as text. kNoUnit (or an unknown code): the shortest text that reads back to
    // exactly the same double. Otherwise engineering form with a prefix from the table where
    // the unit takes prefixes and the value is within its range, and the unit's written form:
    //   (1.5e-12, kFarad) => "1.5pF";  (1e6, kOhm) => "1megohm";  (-3, kDecibel) => "-3dB";
    //   (1e-20, kFarad) => "1e-20F";   (1, kKelvin) => "1kelvin";  (0.1, kNoUnit) => "0.1"
    // Infinities and NaN give "inf", "-inf", "nan" before the unit.
    static AString FloatToText(double value, FullUnitType unit);
    // Reads a number with an optional suffix, blanks allowed around and between them:
    //   "10k" => 10000;  "1.5pF" => 1.5e-12 F;  "3 ohm" => 3 ohm;  "10kOhm" => 10000 ohm
    // The prefix shifts the decimal exponent, so FloatToText's texts read back exactly. False
    // (outputs untouched) for anything else and for numbers too large for a double; numbers
    // too small to represent read as zero, as AString::IsNumber does.
    static bool TextToFloat(std::wstring_view text, double& value, FullUnitType& unit);

    // `value` in unit `from` expressed in unit `to` of the same kind; false otherwise.
    //   (25, kDegreeCelsius, kKelvin) => 298.15;  (50, kPercent, kNoUnit) => 0.5
    static bool Convert(double value, FullUnitType from, FullUnitType to, double& result);
};

// What the framework knows about one unit.
class PLINTH_API UnitDefinition
{
public:
    UnitDefinition(Units::FullUnitType unit, Units::UnitType type, std::wstring_view symbol,
                   std::wstring_view name, double scale, double offset, bool takesPrefixes,
                   std::vector<AString> aliases);

    Units::FullUnitType GetFullUnitType() const { return mUnit; }
    Units::UnitType GetUnitType() const { return mType; }
    // The written form, as stored in files: "V", "ohm", "m/s"; empty for kNoUnit.
    const AString& GetUnitString() const { return mSymbol; }
    // The unit's name: "volt", "degree Celsius".
    const AString& GetName() const { return mName; }
    // Other accepted spellings: "volts", "meter", "\u03A9".
    const std::vector<AString>& GetAliases() const { return mAliases; }
    // Whether a scale prefix may stand before it ("mV" yes, "mdB" no).
    bool TakesPrefixes() const { return mTakesPrefixes; }
    // SI value = value * scale + offset (degree Celsius: offset 273.15; inch: scale 0.0254).
    double GetScale() const { return mScale; }
    double GetOffset() const { return mOffset; }
    double ToSI(double value) const { return value * mScale + mOffset; }
    double FromSI(double value) const { return (value - mOffset) / mScale; }

private:
    Units::FullUnitType mUnit;
    Units::UnitType mType;
    AString mSymbol;
    AString mName;
    double mScale;
    double mOffset;
    bool mTakesPrefixes;
    std::vector<AString> mAliases;
};
