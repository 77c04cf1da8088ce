#include "FloatValue.h"

#include <cmath>

FloatValue::FloatValue(double value, Units::FullUnitType unit)
    : mValue(value), mUnit(unit), mExplicitUnit(unit)
{
}

FloatValue::FloatValue(const AString& text, Units::FullUnitType unit) : mUnit(unit)
{
    mText = text;
    mText.Trim();
    double value = 0.0;
    Units::FullUnitType written = Units::kNoUnit;
    mValid = Units::TextToFloat(mText, value, written);
    if (mValid)
    {
        mValue = value;
        mExplicitUnit = written;
    }
}

FloatValue::FloatValue(const wchar_t* text, Units::FullUnitType unit)
    : FloatValue(AString(text != nullptr ? text : L""), unit)
{
}

FloatValue::FloatValue(const FloatValue& other)
    : IReceiver(other), SharedValueBase(other), mValue(other.mValue), mText(other.mText),
      mUnit(other.mUnit), mExplicitUnit(other.mExplicitUnit), mValid(other.mValid)
{
}

FloatValue& FloatValue::operator=(const FloatValue& other)
{
    SharedValueBase::operator=(other);
    mValue = other.mValue;
    mText = other.mText;
    mUnit = other.mUnit;
    mExplicitUnit = other.mExplicitUnit;
    mValid = other.mValid;
    return *this;
}

FloatValue::~FloatValue() = default;

AString FloatValue::GetValueText() const
{
    if (!mText.empty() || !mValid)
    {
        return mText;
    }
    return Units::FloatToText(mValue, mExplicitUnit);
}

ValueBase* FloatValue::CloneValueBase() const
{
    return new FloatValue(*this);
}

bool FloatValue::IsEqual(const ValueBase& other) const
{
    const auto* number = dynamic_cast<const FloatValue*>(&other);
    if (number == nullptr || number->GetUnits() != GetUnits())
    {
        return false;
    }
    return number->mValue == mValue || (std::isnan(number->mValue) && std::isnan(mValue));
}

Units::FullUnitType FloatValue::GetUnits() const
{
    return mExplicitUnit != Units::kNoUnit ? mExplicitUnit : mUnit;
}
