// FloatValue: a real number with a unit, made from a number or read from a text such as
// "10k", "1.5pF" or "3 ohm" (Units::TextToFloat: circuit-style scale suffixes, case-insensitive,
// then an optional unit). The unit the value is made with applies when the text names none.
//   FloatValue(L"1.5pF", Units::kNoUnit): GetValue() 1.5e-12, GetUnits() kFarad
//   FloatValue(L"10k", Units::kOhm):      GetValue() 10000,   GetUnits() kOhm, explicit none
//   FloatValue(2.2e-9, Units::kFarad):    GetValueText() "2.2nF"
#pragma once

#include "AString.h"
#include "PlinthExport.h"
#include "SharedValueBase.h"
#include "Units.h"

class PLINTH_API FloatValue : public SharedValueBase
{
public:
    explicit FloatValue(double value, Units::FullUnitType unit = Units::kNoUnit);
    // Reads `text`; a text that is no number gives the value 0, IsValid() false, and keeps the
    // text as written.
    FloatValue(const AString& text, Units::FullUnitType unit);
    FloatValue(const wchar_t* text, Units::FullUnitType unit);
    FloatValue(const FloatValue& other);
    FloatValue& operator=(const FloatValue& other);
    ~FloatValue() override;

    // Whether the value was made from a number or from a text that reads as one.
    bool IsValid() const { return mValid; }

    double GetValue() const override { return mValue; }
    // The text it was read from (blanks around it removed), or the number written with its
    // unit (Units::FloatToText).
    AString GetValueText() const override;
    ValueBase* CloneValueBase() const override;
    // Same number (NaN equals NaN) and same unit.
    bool IsEqual(const ValueBase& other) const override;
    Units::FullUnitType GetUnits() const override;
    Units::FullUnitType GetExplicitUnits() const override { return mExplicitUnit; }
    val::ParameterType GetParameterType() const override { return val::kParamReal; }

private:
    double mValue = 0.0;
    AString mText; // empty when made from a number
    Units::FullUnitType mUnit = Units::kNoUnit;
    Units::FullUnitType mExplicitUnit = Units::kNoUnit;
    bool mValid = true;
};
