// ValueProp: a property that holds a value (Value) without a variable of its own: what a
// component instance carries for a parameter of its definition. Its text is a value text
// (Value::CreateValueBase: a number with scale and unit, a quoted text, an expression, an
// instance parameter); expressions are evaluated in the scope of the list that owns the
// property. A property may have a unit: texts that name none are in it, and texts that name a
// unit of another kind are refused.
//   ValueProp c(L"C", {}, Units::kFarad);  c.ChangeValue(L"2.2n") => true, GetValue() 2.2e-9
//   c.ChangeValue(L"3 ohm") => false (warning posted)
#pragma once

#include "AString.h"
#include "PlinthExport.h"
#include "Property.h"
#include "SingleVisitReceiver.h"
#include "Units.h"
#include "Value.h"

class Variable;
class VariableProp;

class PLINTH_API ValueProp : public Property, public SingleVisitReceiver<ValueProp>
{
public:
    ValueProp() = default;
    ValueProp(const AString& name, const PropFlags& flags,
              Units::FullUnitType unit = Units::kNoUnit);
    ValueProp(const AString& name, const Value& value, const PropFlags& flags);
    // The instance side of `definition`: its name, flags and unit, and the value of
    // `variable` (shared), which the property remembers (GetVariable; not owned).
    ValueProp(const VariableProp& definition, Variable& variable);
    ValueProp(const ValueProp& other);
    ValueProp& operator=(const ValueProp& other);
    ~ValueProp() override;

    int GetPropType() const override { return kValuePropType; }
    // The value text; "" without a value.
    AString PropertyValue() const override;
    using Property::ChangeValue;
    // Parses `text` with the property's unit (Value::CreateValueBase): false, value unchanged
    // and the problem posted, for an invalid text or a unit of another kind.
    bool ChangeValue(const AString& text) override;
    // A number in the property's unit.
    bool ChangeValue(const double& value) override;
    // The numeric value, evaluated in the scope of the owning list (0 without a value).
    double GetValue() const override;

    const Value& GetValueObject() const { return mValue; }
    // Holds `value` (shared) without checks.
    void SetValue(const Value& value) { mValue = value; }
    ValueBase* GetValueBase() const override { return mValue.GetValueBase(); }
    // Takes `value` over (made with new; null empties) without checks.
    void SetValueBase(ValueBase* value) { mValue.SetValueBase(value); }

    // The property's own unit (for texts that name none), and the unit of its value (the
    // value's, else the property's).
    Units::FullUnitType GetDefaultUnits() const { return mUnit; }
    void SetDefaultUnits(Units::FullUnitType unit) { mUnit = unit; }
    Units::FullUnitType GetUnits() const;
    bool HasUnits() const override { return true; }
    // The kind of GetUnits().
    Units::UnitType GetUnitType() const override;

    // The definition's variable this value was made from, or null (not owned).
    Variable* GetVariable() const { return mVariable; }

    Property* CloneProp() const override;
    void Accept(PropVisitor& visitor) override;
    void Accept(ConstPropVisitor& visitor) const override;
    // From another value property: its value (shared), unit and variable.
    void CopyProp(const Property& other) override;
    // Adds "Value" (text) when `change` asks for the value (kValue or kAll).
    void GetScriptArguments(IScriptArgInfo& args, const PropChange& change) const override;
    // Takes "Value" as a text or a number (kValue when it changed the value).
    bool AssignFromScriptArguments(const IScriptArgInfo& args, PropChange& change) override;

    // Block form: the framework's part, the value text ("" without a value) and the
    // property's own unit (integer code).
    //   Prop { "C" 0 "2.2n" 1002 }
    bool Write(io::CBlock_func& block) const override;
    io::ReadError Read(const io::CBlock_func& block, IPropClientFactory* factory) override;

    // Messages go on to the value object.
    void GetMsgTargets(std::vector<IReceiver*>& targets) const override;

    // Whether `value`, read from `text`, suits a property of `unit`: true when either names no
    // unit or both units are of one kind; otherwise the warning is posted.
    static bool UnitsFit(Units::FullUnitType unit, const ValueBase& value, const AString& text);

private:
    Value mValue;
    Units::FullUnitType mUnit = Units::kNoUnit;
    Variable* mVariable = nullptr;
};
