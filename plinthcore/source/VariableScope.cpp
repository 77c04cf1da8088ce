#include "VariableScope.h"

#include <vector>

namespace
{
struct ScopeState
{
    const IVariableScope* host = nullptr;
    std::vector<const IVariableScope*> pushed;
};

ScopeState& State()
{
    static ScopeState state;
    return state;
}
} // namespace

const IVariableScope* VariableScope::SetHostScope(const IVariableScope* scope)
{
    const IVariableScope* previous = State().host;
    State().host = scope;
    return previous;
}

const IVariableScope* VariableScope::GetHostScope()
{
    return State().host;
}

const Variable* VariableScope::Find(std::wstring_view name)
{
    const ScopeState& state = State();
    for (auto scope = state.pushed.rbegin(); scope != state.pushed.rend(); ++scope)
    {
        if (const Variable* variable = (*scope)->FindVariable(name))
        {
            return variable;
        }
    }
    return state.host != nullptr ? state.host->FindVariable(name) : nullptr;
}

VariableScopeGuard::VariableScopeGuard(const IVariableScope* scope)
{
    if (scope != nullptr)
    {
        try
        {
            State().pushed.push_back(scope);
            mPushed = true;
        }
        catch (...)
        {
            // Out of memory: the scope is not searched; lookups fall back to the outer ones.
        }
    }
}

VariableScopeGuard::~VariableScopeGuard()
{
    if (mPushed)
    {
        State().pushed.pop_back();
    }
}
