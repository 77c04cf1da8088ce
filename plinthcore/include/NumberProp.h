// NumberProp: a property holding one number in a fixed unit (a count, a size, a temperature),
// which may be unset (shown empty). Texts are read as Units::TextToFloat reads them; a text
// that names a unit is converted into the property's unit.
//   NumberProp t(L"T", 25, true, Units::kDegreeCelsius, {});
//   t.SetNumber(L"300K", Units::kDegreeCelsius) => true, GetNumber() 26.85
//   t.SetNumber(L"3V", Units::kDegreeCelsius)   => false (not a temperature)
#pragma once

#include "AString.h"
#include "PlinthExport.h"
#include "Property.h"
#include "Units.h"

class PLINTH_API NumberProp : public Property
{
public:
    NumberProp() = default;
    // A property holding `number` in `unit`; with `isSet` false it starts unset.
    NumberProp(const AString& name, double number, bool isSet, Units::FullUnitType unit,
               const PropFlags& flags);
    NumberProp(const NumberProp& other) = default;
    NumberProp& operator=(const NumberProp& other) = default;
    ~NumberProp() override;

    // The number in the property's unit (the last one set, 0 at first, also while unset).
    double GetNumber() const { return mNumber; }
    // The number, also while unset.
    double GetValue() const override { return mNumber; }
    bool IsSet() const { return mIsSet; }
    Units::FullUnitType GetUnit() const { return mUnit; }
    // Sets the number from `text`, written in `unit` unless it names its own, and converts it
    // into the property's unit. False, nothing changed, when the text is no number or its unit
    // does not convert.
    bool SetNumber(const AString& text, Units::FullUnitType unit);
    // Sets the number, in the property's unit; false for a number that is not finite.
    bool SetNumber(double number);
    // Makes the number unset.
    void ClearNumber() { mIsSet = false; }

    int GetPropType() const override { return kNumberPropType; }
    // The number with its unit (Units::FloatToText); "" while unset.
    AString PropertyValue() const override;
    using Property::ChangeValue;
    // SetNumber(text, the property's unit); an empty text unsets the number.
    bool ChangeValue(const AString& text) override;
    bool ChangeValue(const double& value) override;
    bool HasUnits() const override { return mUnit != Units::kNoUnit; }
    Units::UnitType GetUnitType() const override;

    Property* CloneProp() const override;
    void Accept(PropVisitor& visitor) override;
    void Accept(ConstPropVisitor& visitor) const override;
    // Adds "Value" (the number, a double) when `change` asks for the value and it is set.
    void GetScriptArguments(IScriptArgInfo& args, const PropChange& change) const override;
    // Takes "Value" as a number or a text.
    bool AssignFromScriptArguments(const IScriptArgInfo& args, PropChange& change) override;

    // Block form: the framework's part, the number (real), whether it is set, and the unit
    // (integer code).
    //   Prop { "T" 0 25.0 true 1009 }
    bool Write(io::CBlock_func& block) const override;
    io::ReadError Read(const io::CBlock_func& block, IPropClientFactory* factory) override;
    // The neutral form, followed by the unit (integer code), so that a number property reads
    // it back in its unit; other properties take the text with its unit.
    bool WriteNeutral(io::CBlock_func& block) const override;
    // Takes the unit when the block has it, then the text ("" unsets the number).
    io::ReadError ReadNeutral(const io::CBlock_func& block) override;

private:
    double mNumber = 0.0;
    bool mIsSet = false;
    Units::FullUnitType mUnit = Units::kNoUnit;
};
