// VariableProp: a property over a design variable (Variable) that it owns: a parameter of a
// component definition, a design or project variable. Expressions elsewhere refer to it by the
// variable's name, which is the property's name; it can take part in experiments
// (OptiVariable). Its text is a value text, as for ValueProp, and expressions are evaluated in
// the scope of the list that owns the property.
//   VariableProp r(L"R", {}, Units::kOhm);  r.ChangeValue(L"10k");  r.GetValue() => 10000
#pragma once

#include "AString.h"
#include "OptiVariable.h"
#include "PlinthExport.h"
#include "SingleVisitReceiver.h"
#include "Units.h"
#include "Value.h"

#include <memory>

class Variable;

class PLINTH_API VariableProp : public OptiVariable, public SingleVisitReceiver<VariableProp>
{
public:
    // A property over a new, unnamed variable without a value (ready to be read).
    VariableProp();
    // A property over a new variable called `name`, without a value.
    VariableProp(const AString& name, const PropFlags& flags,
                 Units::FullUnitType unit = Units::kNoUnit);
    // A property over a new variable called `name` holding `value` (shared).
    VariableProp(const AString& name, const Value& value, const PropFlags& flags);
    // A property over `variable`, which it takes over (made with new). A null variable is
    // replaced by a new unnamed one (assertion "variable").
    VariableProp(Variable* variable, const PropFlags& flags);
    // Copies own a copy of the variable (sharing its value object) and the experiment data.
    VariableProp(const VariableProp& other);
    VariableProp& operator=(const VariableProp& other);
    ~VariableProp() override;

    Variable* GetVariable() const override { return mVariable.get(); }

    int GetPropType() const override { return kVariablePropType; }
    // Renames the property and its variable; false, nothing changed, for a name that is no
    // variable name (Variable::IsValidName).
    bool SetPropertyName(const AString& name) override;
    // The variable's value text; "" without a value.
    AString PropertyValue() const override;
    using Property::ChangeValue;
    // As ValueProp::ChangeValue, on the variable.
    bool ChangeValue(const AString& text) override;
    bool ChangeValue(const double& value) override;
    // The variable's numeric value, evaluated in the scope of the owning list.
    double GetValue() const override;
    // The variable's value object, or null.
    ValueBase* GetValueBase() const override;

    Units::FullUnitType GetDefaultUnits() const { return mUnit; }
    void SetDefaultUnits(Units::FullUnitType unit) { mUnit = unit; }
    // The unit of the variable's value, else the property's.
    Units::FullUnitType GetUnits() const;
    bool HasUnits() const override { return true; }
    Units::UnitType GetUnitType() const override;

    Property* CloneProp() const override;
    // A value property (ValueProp) over this variable: what a component instance gets.
    Property* CopyToInstance() const override;
    // A copy whose variable holds what the value evaluates to now (owned by the caller).
    virtual Property* CreateEvaluatedProperty() const;
    void Accept(PropVisitor& visitor) override;
    void Accept(ConstPropVisitor& visitor) const override;
    // From another variable property: its variable's value (shared), unit and experiment data.
    void CopyProp(const Property& other) override;
    void GetScriptArguments(IScriptArgInfo& args, const PropChange& change) const override;
    bool AssignFromScriptArguments(const IScriptArgInfo& args, PropChange& change) override;

    // Block form: the framework's part (the name is the variable's), the value text, the
    // property's own unit (integer code), and the experiment settings when there are any: a
    // sub-block "Opti" holding one "Experiment" block per kind {kind, include, lower, upper,
    // step}.
    //   Prop { "R" 0 "10k" 1000 Opti { Experiment { 2 true 1000.0 20000.0 0.0 } } }
    bool Write(io::CBlock_func& block) const override;
    io::ReadError Read(const io::CBlock_func& block, IPropClientFactory* factory) override;

    // Messages go on to the variable's value object.
    void GetMsgTargets(std::vector<IReceiver*>& targets) const override;

private:
    std::unique_ptr<Variable> mVariable;
    Units::FullUnitType mUnit = Units::kNoUnit;
};
