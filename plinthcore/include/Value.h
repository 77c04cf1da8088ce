// Value: a holder of a value object (ValueBase), the form in which variables and properties
// keep their values. Copies share the value object: each holder registers itself with it and
// lets go when it changes or ends. Also the entry point of value texts:
//   Value::IsValidText(L"10k")           => true    (syntax only; nothing is evaluated)
//   Value::IsValidText(L"2*(R1+1")       => false   (CheckText says where and why)
//   Value::CreateValueBase(L"1.5pF", u)  => FloatValue 1.5e-12, farad
//   Value::CreateValueBase(L"\"Low\"", u) => StringValue Low
//   Value::CreateValueBase(L"2*R1", u)   => Expression
//   Value::CreateValueBase(L"R1.R", u)   => the host resolver's object for R1.R (else an
//                                           Expression that reports R1.R unresolved)
#pragma once

#include "AString.h"
#include "IReceiver.h"
#include "ParameterType.h"
#include "PlinthExport.h"
#include "Units.h"
#include "ValueError.h"

#include <vector>

class ValueBase;

class PLINTH_API Value : public IReceiver
{
public:
    // An empty value (no value object).
    Value() = default;
    // A number (FloatValue).
    explicit Value(double number, Units::FullUnitType unit = Units::kNoUnit);
    // The value of `text` (CreateValueBase); empty, with the problem posted, when the text is
    // no value.
    Value(const AString& text, Units::FullUnitType unit);
    // Takes `value` over (null: empty); it must have been made with new.
    explicit Value(ValueBase* value);
    Value(const Value& other);
    Value(Value&& other);
    Value& operator=(const Value& other);
    Value& operator=(Value&& other);
    ~Value() override;

    // Messages go on to the value object.
    void ReceiveMsg(Msg& msg) override;
    void GetMsgTargets(std::vector<IReceiver*>& targets) const override;

    bool IsEmpty() const { return mBase == nullptr; }
    ValueBase* GetValueBase() const { return mBase; }
    // Holds `value` instead (made with new; null empties), letting go of the old one.
    void SetValueBase(ValueBase* value);
    void Clear() { SetValueBase(nullptr); }

    // The value object's answers; for an empty value 0, "", Units::kNoUnit,
    // val::kParamUnknown, true (constant) and false (eligible).
    double GetValue() const;
    AString GetValueText() const;
    Units::FullUnitType GetUnits() const;
    val::ParameterType GetParameterType() const;
    bool IsConstant() const;
    // Whether the value can take part in an experiment (ValueBase::CanTakePartInExperiment).
    bool CanTakePartInExperiment() const;
    // Both empty, or value objects that are equal (ValueBase::IsEqual).
    bool IsEqual(const Value& other) const;

    // Whether `text` is a value text: a number with optional scale and unit, one quoted text,
    // or an expression. A syntax check only: unknown names and bad arithmetic pass.
    static bool IsValidText(const AString& text);
    // IsValidText, with the problem of an invalid text in `error`.
    static bool CheckText(const AString& text, ValueError& error);
    // The value object of `text`, owned by the caller: a FloatValue for a number, a
    // StringValue for a quoted text, the resolver's object for a lone instance parameter, an
    // Expression otherwise; `unit` applies where the text names none. Null for an invalid
    // text, whose problem is posted (first form) or returned (second form).
    static ValueBase* CreateValueBase(const AString& text, Units::FullUnitType unit);
    static ValueBase* CreateValueBase(const AString& text, Units::FullUnitType unit,
                                      ValueError& error);

private:
    ValueBase* mBase = nullptr;
};
