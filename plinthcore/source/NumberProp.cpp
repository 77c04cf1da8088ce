#include "NumberProp.h"

#include "IScriptArgInfo.h"
#include "PropVisitor.h"

#include <cmath>

NumberProp::NumberProp(const AString& name, double number, bool isSet, Units::FullUnitType unit,
                       const PropFlags& flags)
    : Property(name, flags), mNumber(number), mIsSet(isSet), mUnit(unit)
{
}

NumberProp::~NumberProp() = default;

bool NumberProp::SetNumber(const AString& text, Units::FullUnitType unit)
{
    double number = 0.0;
    Units::FullUnitType written = Units::kNoUnit;
    if (!Units::TextToFloat(text, number, written))
    {
        return false;
    }
    const Units::FullUnitType from = written != Units::kNoUnit ? written : unit;
    double converted = number;
    if (from != mUnit && !Units::Convert(number, from, mUnit, converted))
    {
        return false;
    }
    return SetNumber(converted);
}

bool NumberProp::SetNumber(double number)
{
    if (!std::isfinite(number))
    {
        return false;
    }
    mNumber = number;
    mIsSet = true;
    return true;
}

AString NumberProp::PropertyValue() const
{
    return mIsSet ? Units::FloatToText(mNumber, mUnit) : AString();
}

bool NumberProp::ChangeValue(const AString& text)
{
    AString trimmed = text;
    if (trimmed.Trim().empty())
    {
        ClearNumber();
        return true;
    }
    return SetNumber(text, mUnit);
}

bool NumberProp::ChangeValue(const double& value)
{
    return SetNumber(value);
}

Units::UnitType NumberProp::GetUnitType() const
{
    return Units::GetUnitDef(mUnit).GetUnitType();
}

Property* NumberProp::CloneProp() const
{
    return new NumberProp(*this);
}

void NumberProp::Accept(PropVisitor& visitor)
{
    visitor.VisitNumberProp(*this);
}

void NumberProp::Accept(ConstPropVisitor& visitor) const
{
    visitor.VisitNumberProp(*this);
}

bool NumberProp::Write(io::CBlock_func& block) const
{
    InternalWriteProp(block);
    block.AddValue(mNumber);
    block.AddValue(mIsSet);
    block.AddValue(static_cast<int>(mUnit));
    return true;
}

io::ReadError NumberProp::Read(const io::CBlock_func& block, IPropClientFactory* /*factory*/)
{
    AString name;
    PropFlags flags;
    double number = 0.0;
    bool isSet = false;
    int unit = 0;
    if (ReadPropHeader(block, name, flags) != io::kNoError || !block.ReadValue(number) ||
        !block.ReadValue(isSet) || !block.ReadValue(unit) || !std::isfinite(number) ||
        !Units::IsKnownUnit(static_cast<Units::FullUnitType>(unit)))
    {
        return io::kReadFailed;
    }
    SetReadHeader(std::move(name), flags);
    mNumber = number;
    mIsSet = isSet;
    mUnit = static_cast<Units::FullUnitType>(unit);
    return io::kNoError;
}

bool NumberProp::WriteNeutral(io::CBlock_func& block) const
{
    Property::WriteNeutral(block);
    block.AddValue(static_cast<int>(mUnit));
    return true;
}

io::ReadError NumberProp::ReadNeutral(const io::CBlock_func& block)
{
    AString name;
    int type = 0;
    PropFlags flags;
    AString text;
    if (ReadNeutralPropHeader(block, name, type, flags, text) != io::kNoError)
    {
        return io::kReadFailed;
    }
    NumberProp read(*this);
    int unit = 0;
    if (block.ReadValue(unit))
    {
        if (!Units::IsKnownUnit(static_cast<Units::FullUnitType>(unit)))
        {
            return io::kReadFailed;
        }
        read.mUnit = static_cast<Units::FullUnitType>(unit);
    }
    if (!read.ChangeValue(text))
    {
        return io::kReadFailed;
    }
    SetReadHeader(std::move(name), flags);
    mNumber = read.mNumber;
    mIsSet = read.mIsSet;
    mUnit = read.mUnit;
    return io::kNoError;
}

void NumberProp::GetScriptArguments(IScriptArgInfo& args, const PropChange& change) const
{
    Property::GetScriptArguments(args, change);
    if (change.HasValue() && mIsSet)
    {
        args.SetDouble(L"Value", mNumber);
    }
}

bool NumberProp::AssignFromScriptArguments(const IScriptArgInfo& args, PropChange& change)
{
    bool ok = Property::AssignFromScriptArguments(args, change);
    const double before = mNumber;
    const bool wasSet = mIsSet;
    double number = 0.0;
    AString text;
    if (args.GetDouble(L"Value", number))
    {
        ok = SetNumber(number) && ok;
    }
    else if (args.GetString(L"Value", text))
    {
        ok = ChangeValue(text) && ok;
    }
    else if (args.HasArgument(L"Value"))
    {
        ok = false;
    }
    if (mIsSet != wasSet || mNumber != before)
    {
        change.Add(PropChange::kValue);
    }
    return ok;
}
