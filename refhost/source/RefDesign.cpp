#include "RefDesign.h"

#include "Assert.h"
#include "RefApplication.h"
#include "RefComponent.h"
#include "RefDesignInstance.h"
#include "RefProject.h"
#include "RefVariables.h"
#include "Variable.h"

namespace refhost
{
// RefDesignEditor -----------------------------------------------------------------------------

void* RefDesignEditor::QueryInterface(int id)
{
    switch (id)
    {
    case IDesignEditor::kInterfaceId:
        return static_cast<IDesignEditor*>(this);
    case ICircuit::kInterfaceId:
        return static_cast<ICircuit*>(this);
    case IHierarchicalDesignEditor::kInterfaceId:
        return static_cast<IHierarchicalDesignEditor*>(this);
    default:
        return nullptr;
    }
}

IDesign* RefDesignEditor::GetDesign() const
{
    return &mDesign;
}

IDesignEditor* RefDesignEditor::GetDesignEditor() const
{
    return const_cast<RefDesignEditor*>(this);
}

// RefDesign -----------------------------------------------------------------------------------

RefDesign::RefDesign(RefProject& project, const AString& name, CircuitEnvironment environment)
    : mProject(project), mName(name), mEnvironment(environment), mEditor(new RefDesignEditor(*this))
{
    mVariables.SetParentScope(&project.GetVariables());
}

RefDesign::~RefDesign()
{
    RefApplication& application = mProject.GetApplication();
    if (application.GetActiveDesign() == this)
    {
        application.SetActiveDesign(nullptr);
    }
    // The instances' parameter lists see the variables: they go first.
    mCompInsts.clear();
}

VariableProp* RefDesign::AddVariable(const AString& name, const AString& text)
{
    if (!name.empty() && name.front() == Variable::kProjectPrefix)
    {
        return nullptr;
    }
    return AddVariableTo(mVariables, name, text);
}

void* RefDesign::QueryInterface(int id)
{
    switch (id)
    {
    case IDesign::kInterfaceId:
        return static_cast<IDesign*>(this);
    case IHierarchyDesign::kInterfaceId:
        return static_cast<IHierarchyDesign*>(this);
    case IDesignForSchematic::kInterfaceId:
        return static_cast<IDesignForSchematic*>(this);
    default:
        return nullptr;
    }
}

IDesignEditor* RefDesign::GetDesignEditor() const
{
    return mEditor.get();
}

void RefDesign::GetInstances(std::vector<IDesignInstance*>& instances) const
{
    for (const auto& instance : mInstances)
    {
        instances.push_back(instance.get());
    }
}

IDesign* RefDesign::GetDesign() const
{
    return const_cast<RefDesign*>(this);
}

RefDesignInstance* RefDesign::AddInstance(const AString& name, RefDesignInstance* parent,
                                          bool circuitView)
{
    if (!PLINTH_ASSERT(parent == nullptr || &parent->GetRefDesign().GetProject() == &mProject))
    {
        return nullptr;
    }
    mInstances.push_back(std::unique_ptr<RefDesignInstance>(
        new RefDesignInstance(*this, name, parent, circuitView)));
    return mInstances.back().get();
}

RefDesignInstance* RefDesign::GetInstance(std::size_t index) const
{
    return index < mInstances.size() ? mInstances[index].get() : nullptr;
}

RefCompInst* RefDesign::AddCompInst(const AString& name, RefComponent& component)
{
    if (!PLINTH_ASSERT(&component.GetProject() == &mProject))
    {
        return nullptr;
    }
    mCompInsts.push_back(std::unique_ptr<RefCompInst>(new RefCompInst(*this, name, component)));
    return mCompInsts.back().get();
}

RefCompInst* RefDesign::GetCompInst(std::size_t index) const
{
    return index < mCompInsts.size() ? mCompInsts[index].get() : nullptr;
}

RefCompInst* RefDesign::FindCompInst(const AString& name) const
{
    for (const auto& compInst : mCompInsts)
    {
        if (AString::EqualNoCase(compInst->GetName(), name))
        {
            return compInst.get();
        }
    }
    return nullptr;
}
} // namespace refhost
