// Variable: a named value that expressions refer to by name: a parameter of a component
// definition, a design variable, or a project variable (whose name begins with "$").
//   Variable v(L"R1", Value(L"10k", Units::kOhm));  v.GetValue() => 10000
//   AString n = L"vdd";  Variable::CreateNameWithPrefix(n, L'$') => true, n = "$vdd"
#pragma once

#include "AString.h"
#include "PlinthExport.h"
#include "Units.h"
#include "Value.h"

#include <string_view>

class ValueBase;

class PLINTH_API Variable
{
public:
    // The character that begins the names of project variables.
    static constexpr wchar_t kProjectPrefix = L'$';

    // A variable without a value. The name is taken as given (see ChangeName for checks).
    explicit Variable(AString name = AString());
    Variable(AString name, const Value& value);
    // Takes `value` over (made with new; null: no value).
    Variable(AString name, ValueBase* value);
    // Copies share the value object.
    Variable(const Variable& other) = default;
    Variable& operator=(const Variable& other) = default;
    virtual ~Variable();

    const AString& GetName() const { return mName; }
    // Renames the variable; false, name unchanged, when `name` is no valid name (IsValidName).
    bool ChangeName(const AString& name);
    // Sets the name without checks, for readers that restore a stored name.
    void SetName(const AString& name) { mName = name; }
    // Whether it is a project variable: its name begins with "$".
    bool IsProjectVariable() const;

    // A name a variable may have: not empty, without blanks, control characters or double
    // quotes, "$" only in front and followed by more.
    //   "R1" yes;  "a[3]" yes;  "$vdd" yes;  "" no;  "a b" no;  "$" no;  "a$b" no
    static bool IsValidName(std::wstring_view name);
    // Makes `name` a name that begins with `prefix` and then is an identifier (a letter or "_",
    // then letters, digits and "_"): the prefix is put in front when missing. False, and
    // `name` unchanged, when the rest is no identifier.
    //   "vdd" => "$vdd";  "$vdd" => "$vdd";  "$$x" false;  "1a" false;  "" false
    static bool CreateNameWithPrefix(AString& name, wchar_t prefix);

    const Value& GetValueObject() const { return mValue; }
    Value& GetValueObject() { return mValue; }
    void SetValue(const Value& value) { mValue = value; }
    // Takes `value` over (made with new; null clears the value).
    void SetValueBase(ValueBase* value) { mValue.SetValueBase(value); }
    // Gives the variable the value of `text` (Value::CreateValueBase with `unit`); false, value
    // unchanged and the problem posted, when the text is no value.
    bool ChangeValue(const AString& text, Units::FullUnitType unit = Units::kNoUnit);
    // The numeric value (0 without a value) and the value text ("" without a value).
    double GetValue() const { return mValue.GetValue(); }
    AString GetValueText() const { return mValue.GetValueText(); }

private:
    AString mName;
    Value mValue;
};
