#include "RefVariables.h"

#include "IMerrowApplication.h"
#include "InstanceReference.h"
#include "PropList.h"
#include "RefApplication.h"
#include "RefComponent.h"
#include "RefDesign.h"
#include "Value.h"
#include "ValueBase.h"
#include "Variable.h"
#include "VariableProp.h"
#include "VariableScope.h"

namespace refhost
{
namespace
{
RefApplication* CurrentApplication()
{
    return dynamic_cast<RefApplication*>(GetIMerrowApplication());
}

// The host scope: the variables of the current application's active design, which sees its
// project's variables too.
class ActiveDesignScope final : public IVariableScope
{
public:
    const Variable* FindVariable(std::wstring_view name) const override
    {
        const RefApplication* application = CurrentApplication();
        const RefDesign* design = application != nullptr ? application->GetActiveDesign() : nullptr;
        return design != nullptr ? design->GetVariables().FindVariable(name) : nullptr;
    }
};

ValueBase* ResolveInstanceParameter(const AString& instance, const AString& parameter)
{
    RefApplication* application = CurrentApplication();
    if (application == nullptr)
    {
        return nullptr;
    }
    RefDesign* design = application->GetActiveDesign();
    RefCompInst* compInst = design != nullptr ? design->FindCompInst(instance) : nullptr;
    const RefApplication::InstanceParameterFactory& factory =
        application->GetInstanceParameterFactory();
    return compInst != nullptr && factory ? factory(*compInst, parameter) : nullptr;
}

struct Hooks
{
    int users = 0;
    ActiveDesignScope scope;
    const IVariableScope* previousScope = nullptr;
    InstanceReferenceResolver previousResolver;
};

Hooks& TheHooks()
{
    static Hooks hooks;
    return hooks;
}
} // namespace

VariableProp* AddVariableTo(PropList& list, const AString& name, const AString& text)
{
    if (!Variable::IsValidName(name) || list.FindVariable(name) != nullptr)
    {
        return nullptr;
    }
    ValueBase* value = Value::CreateValueBase(text, Units::kNoUnit);
    if (value == nullptr)
    {
        return nullptr;
    }
    auto* prop = new VariableProp(new Variable(name, value), {});
    list.AddProp(prop);
    return prop;
}

void AcquireValueHooks()
{
    Hooks& hooks = TheHooks();
    if (hooks.users++ == 0)
    {
        hooks.previousScope = VariableScope::SetHostScope(&hooks.scope);
        hooks.previousResolver = InstanceReference::SetResolver(ResolveInstanceParameter);
    }
}

void ReleaseValueHooks()
{
    Hooks& hooks = TheHooks();
    if (hooks.users > 0 && --hooks.users == 0)
    {
        VariableScope::SetHostScope(hooks.previousScope);
        InstanceReference::SetResolver(std::move(hooks.previousResolver));
    }
}
} // namespace refhost
