// Variable scopes: where the names in expressions are looked up. A scope answers the variable
// of a name (IVariableScope). While an expression is evaluated or re-spelled, names are looked
// up in the scopes pushed with VariableScopeGuard, innermost first, and then in the host's
// scope (its design and project variables: project variables begin with "$"). Only the
// host's main thread evaluates expressions.
//   PropList params;  ...  VariableScopeGuard guard(&params);  value.GetValue();
#pragma once

#include "PlinthExport.h"

#include <string_view>

class Variable;

class PLINTH_API IVariableScope
{
public:
    virtual ~IVariableScope() = default;

    // The variable called `name` (compared ignoring case), or null.
    virtual const Variable* FindVariable(std::wstring_view name) const = 0;

protected:
    IVariableScope() = default;
    IVariableScope(const IVariableScope&) = default;
    IVariableScope& operator=(const IVariableScope&) = default;
};

class PLINTH_API VariableScope
{
public:
    VariableScope() = delete;

    // Installs the host's scope (null removes it) and returns the one installed before.
    static const IVariableScope* SetHostScope(const IVariableScope* scope);
    static const IVariableScope* GetHostScope();
    // The variable called `name` in the pushed scopes, innermost first, then in the host's
    // scope; null when none has it.
    static const Variable* Find(std::wstring_view name);
};

// Pushes a scope for its lifetime (a null scope pushes nothing). Guards nest.
class PLINTH_API VariableScopeGuard
{
public:
    explicit VariableScopeGuard(const IVariableScope* scope);
    ~VariableScopeGuard();
    VariableScopeGuard(const VariableScopeGuard&) = delete;
    VariableScopeGuard& operator=(const VariableScopeGuard&) = delete;

private:
    bool mPushed = false;
};
