// ValueBase: a value object: a number, a text, an expression, or a reference that stands for a
// value held elsewhere. Values are shared: every holder registers itself (AddRef) and lets go
// (Release); a value made with new and registered at least once deletes itself when its last
// holder lets go. Until it is registered, whoever made it owns it. A value is also a message
// receiver (IReceiver is a virtual base), so messages reach the values a design holds.
#pragma once

#include "AString.h"
#include "IReceiver.h"
#include "ParameterType.h"
#include "PlinthExport.h"
#include "Units.h"

class PLINTH_API ValueBase : public virtual IReceiver
{
public:
    ~ValueBase() override;

    // The numeric value (evaluated for expressions); see each class for what a failure gives.
    virtual double GetValue() const = 0;
    // The value as text, in a form that Value::CreateValueBase reads back.
    virtual AString GetValueText() const = 0;
    // A new copy, owned by the caller, with no holders.
    virtual ValueBase* CloneValueBase() const = 0;
    // A new value, owned by the caller, holding what this one evaluates to now (a number for
    // an expression); a copy for values that need no evaluation.
    virtual ValueBase* CreateEvaluatedValueBase() const;
    // Whether `other` stands for the same value.
    virtual bool IsEqual(const ValueBase& other) const = 0;
    // Whether the value can never change (no reference to anything else). True by default.
    virtual bool IsConstant() const;
    // The unit of the value: the one written in its text, else the one it was made with.
    virtual Units::FullUnitType GetUnits() const;
    // The unit written in the value's own text; Units::kNoUnit when none was written.
    virtual Units::FullUnitType GetExplicitUnits() const;
    // The unit in which the value is written to a netlist; GetUnits() by default.
    virtual Units::FullUnitType GetNetlistUnits() const;
    // What kind of data the value holds.
    virtual val::ParameterType GetParameterType() const = 0;
    // Registers one more hold of `receiver`.
    virtual void AddRef(IReceiver* receiver) = 0;
    // Removes one hold of `receiver`; the value deletes itself when no hold is left.
    virtual void Release(IReceiver* receiver) = 0;
    // Whether `receiver` holds the value.
    virtual bool HasRef(IReceiver* receiver) const = 0;

    // Whether the value can take part in an experiment (sweep, optimisation, statistics):
    // real numbers and expressions can; texts, choices and unresolved references cannot.
    bool CanTakePartInExperiment() const;

protected:
    ValueBase() = default;
    ValueBase(const ValueBase&) = default;
    ValueBase& operator=(const ValueBase&) = default;
};
