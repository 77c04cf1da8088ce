#include "ValueProp.h"

#include "FloatValue.h"
#include "IScriptArgInfo.h"
#include "PropList.h"
#include "PropVisitor.h"
#include "ValueBase.h"
#include "ValueError.h"
#include "Variable.h"
#include "VariableProp.h"

ValueProp::ValueProp(const AString& name, const PropFlags& flags, Units::FullUnitType unit)
    : Property(name, flags), mUnit(unit)
{
}

ValueProp::ValueProp(const AString& name, const Value& value, const PropFlags& flags)
    : Property(name, flags), mValue(value)
{
}

ValueProp::ValueProp(const VariableProp& definition, Variable& variable)
    : Property(definition.PropertyName(), definition.GetFlags()), mValue(variable.GetValueObject()),
      mUnit(definition.GetDefaultUnits()), mVariable(&variable)
{
}

ValueProp::ValueProp(const ValueProp& other)
    : IReceiver(other), Property(other), SingleVisitReceiver<ValueProp>(other),
      mValue(other.mValue), mUnit(other.mUnit), mVariable(other.mVariable)
{
}

ValueProp& ValueProp::operator=(const ValueProp& other)
{
    Property::operator=(other);
    mValue = other.mValue;
    mUnit = other.mUnit;
    mVariable = other.mVariable;
    return *this;
}

ValueProp::~ValueProp() = default;

AString ValueProp::PropertyValue() const
{
    return mValue.GetValueText();
}

bool ValueProp::UnitsFit(Units::FullUnitType unit, const ValueBase& value, const AString& text)
{
    const Units::FullUnitType written = value.GetExplicitUnits();
    if (unit == Units::kNoUnit || written == Units::kNoUnit)
    {
        return true;
    }
    const Units::UnitType expected = Units::GetUnitDef(unit).GetUnitType();
    if (Units::GetUnitDef(written).GetUnitType() == expected)
    {
        return true;
    }
    ValueError(ValueError::kUnitMismatch, 0, Units::GetUnitTypeName(expected)).Post(text);
    return false;
}

bool ValueProp::ChangeValue(const AString& text)
{
    ValueBase* value = Value::CreateValueBase(text, mUnit);
    if (value == nullptr)
    {
        return false;
    }
    if (!UnitsFit(mUnit, *value, text))
    {
        delete value;
        return false;
    }
    mValue.SetValueBase(value);
    return true;
}

bool ValueProp::ChangeValue(const double& value)
{
    mValue.SetValueBase(new FloatValue(value, mUnit));
    return true;
}

double ValueProp::GetValue() const
{
    VariableScopeGuard scope(GetPropList());
    return mValue.GetValue();
}

Units::FullUnitType ValueProp::GetUnits() const
{
    const Units::FullUnitType unit = mValue.GetUnits();
    return unit != Units::kNoUnit ? unit : mUnit;
}

Units::UnitType ValueProp::GetUnitType() const
{
    return Units::GetUnitDef(GetUnits()).GetUnitType();
}

Property* ValueProp::CloneProp() const
{
    return new ValueProp(*this);
}

void ValueProp::Accept(PropVisitor& visitor)
{
    visitor.VisitValueProp(*this);
}

void ValueProp::Accept(ConstPropVisitor& visitor) const
{
    visitor.VisitValueProp(*this);
}

void ValueProp::CopyProp(const Property& other)
{
    if (&other == this)
    {
        return;
    }
    Property::CopyProp(other);
    if (const auto* valueProp = dynamic_cast<const ValueProp*>(&other))
    {
        mValue = valueProp->mValue;
        mUnit = valueProp->mUnit;
        mVariable = valueProp->mVariable;
    }
    else
    {
        ChangeValue(other.PropertyValue());
    }
}

void ValueProp::GetScriptArguments(IScriptArgInfo& args, const PropChange& change) const
{
    Property::GetScriptArguments(args, change);
    PutValueArgument(args, change, PropertyValue());
}

bool ValueProp::AssignFromScriptArguments(const IScriptArgInfo& args, PropChange& change)
{
    const bool ok = Property::AssignFromScriptArguments(args, change);
    return AssignValueArgument(args, change) && ok;
}

bool ValueProp::Write(io::CBlock_func& block) const
{
    InternalWriteProp(block);
    block.AddValue(PropertyValue());
    block.AddValue(static_cast<int>(mUnit));
    return true;
}

io::ReadError ValueProp::Read(const io::CBlock_func& block, IPropClientFactory* /*factory*/)
{
    AString name;
    PropFlags flags;
    AString text;
    int unit = 0;
    if (ReadPropHeader(block, name, flags) != io::kNoError || !block.ReadValue(text) ||
        !block.ReadValue(unit) || !Units::IsKnownUnit(static_cast<Units::FullUnitType>(unit)))
    {
        return io::kReadFailed;
    }
    ValueBase* value = nullptr;
    if (!text.empty())
    {
        ValueError error;
        value = Value::CreateValueBase(text, static_cast<Units::FullUnitType>(unit), error);
        if (value == nullptr)
        {
            return io::kReadFailed;
        }
    }
    SetReadHeader(std::move(name), flags);
    mUnit = static_cast<Units::FullUnitType>(unit);
    mValue.SetValueBase(value);
    return io::kNoError;
}

void ValueProp::GetMsgTargets(std::vector<IReceiver*>& targets) const
{
    if (ValueBase* value = mValue.GetValueBase())
    {
        targets.push_back(value);
    }
}
