// PropChange: the kinds of change made to, or asked of, a property. Script exchange uses it
// both ways: the caller says which parts it wants (GetScriptArguments) and the property says
// which parts it changed (AssignFromScriptArguments).
//   PropChange change{PropChange::kValue};  change.Has(PropChange::kValue) => true
#pragma once

#include "EnumSet.h"
#include "PlinthExport.h"

#include <initializer_list>

class PLINTH_API PropChange
{
public:
    // The host's change codes.
    enum Kind : int
    {
        kName = 1,     // the property's name
        kFlags = 2,    // its flags
        kUnits = 3,    // the unit it shows or writes its value in
        kChoices = 4,  // the choice list of a menu
        kOptiData = 5, // optimisation and experiment settings
        kValue = 16,   // its value or its settings
        kAll = 22      // everything about it
    };

    PropChange() = default;
    PropChange(std::initializer_list<Kind> kinds);

    void Add(Kind kind) { mKinds.Add(kind); }
    void Remove(Kind kind) { mKinds.Remove(kind); }
    bool Has(Kind kind) const { return mKinds.Contains(kind); }
    // Whether the change holds any of `kinds`.
    bool HasAny(std::initializer_list<Kind> kinds) const;
    // Whether the value is asked for or changed: kValue or kAll.
    bool HasValue() const { return Has(kValue) || Has(kAll); }
    bool IsEmpty() const { return mKinds.IsEmpty(); }
    void Clear() { mKinds.Clear(); }
    PropChange& operator|=(const PropChange& other);

    friend bool operator==(const PropChange& a, const PropChange& b)
    {
        return a.mKinds == b.mKinds;
    }

private:
    base::EnumSet_T<Kind, 32> mKinds;
};
