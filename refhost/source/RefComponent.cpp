#include "RefComponent.h"

#include "ComponentExtensions.h"
#include "IDynamicNportModel.h"
#include "Property.h"
#include "RefDesign.h"
#include "RefManagers.h"
#include "RefProject.h"

namespace refhost
{
namespace
{
// A component extension of the editor whose interface is `Kind`.
template <class Kind> class RefCompExtension final : public ICompExtension, public Kind
{
public:
    explicit RefCompExtension(IComponent& component) : mComponent(component) {}
    void* QueryInterface(int id) override
    {
        if (id == ICompExtension::kInterfaceId)
        {
            return static_cast<ICompExtension*>(this);
        }
        return id == Kind::kInterfaceId ? static_cast<Kind*>(this) : nullptr;
    }
    IComponent* GetComponent() const override { return &mComponent; }

private:
    IComponent& mComponent;
};

// A component-instance extension of the editor whose interface is `Kind`.
template <class Kind> class RefCompInstExtension final : public ICompInstExtension, public Kind
{
public:
    explicit RefCompInstExtension(ICompInst& compInst) : mCompInst(compInst) {}
    void* QueryInterface(int id) override
    {
        if (id == ICompInstExtension::kInterfaceId)
        {
            return static_cast<ICompInstExtension*>(this);
        }
        return id == Kind::kInterfaceId ? static_cast<Kind*>(this) : nullptr;
    }
    ICompInst* GetCompInst() const override { return &mCompInst; }

private:
    ICompInst& mCompInst;
};

class RefDynamicNportModel final : public IDynamicNportModel
{
public:
    RefDynamicNportModel(IComponent& component, int portCount)
        : mComponent(component), mPortCount(portCount)
    {
    }
    void* QueryInterface(int id) override
    {
        return id == kInterfaceId ? static_cast<IDynamicNportModel*>(this) : nullptr;
    }
    IComponent* GetComponent() const override { return &mComponent; }
    int GetPortCount() const override { return mPortCount; }

private:
    IComponent& mComponent;
    int mPortCount;
};
} // namespace

// RefComponent --------------------------------------------------------------------------------

RefComponent::RefComponent(RefProject& project, const AString& name, RefDesign* design)
    : mProject(project), mName(name), mDesign(design), mProps(std::make_unique<PropList>())
{
}

RefComponent::~RefComponent() = default;

void* RefComponent::QueryInterface(int id)
{
    switch (id)
    {
    case IComponent::kInterfaceId:
        return static_cast<IComponent*>(this);
    case IDynamicNportModel::kInterfaceId:
        return mNportModel.get();
    default:
        return nullptr;
    }
}

IDesign* RefComponent::GetDesign() const
{
    return mDesign;
}

IDefinitionMgr* RefComponent::GetDefinitionMgr() const
{
    return &mProject.GetDesignMgr().GetRefDefinitionMgr();
}

IComponentOwner* RefComponent::GetOwner() const
{
    return mHasOwner ? &mProject : nullptr;
}

INatureMgr* RefComponent::GetNatureMgr() const
{
    return mProject.GetDesignMgr().GetRefCircuitMgr().GetNatureMgr();
}

PropList* RefComponent::GetServedPropList(int index) const
{
    return index == 0 ? mProps.get() : nullptr;
}

void RefComponent::PropChanged(const Property& prop, const PropChange& change)
{
    mPropChanges.push_back({prop.PropertyName(), change});
}

void RefComponent::SetExtensionKind(RefExtensionKind kind)
{
    switch (kind)
    {
    case RefExtensionKind::k3D:
        mExtension = std::make_unique<RefCompExtension<I3DCompExtension>>(*this);
        break;
    case RefExtensionKind::kSable:
        mExtension = std::make_unique<RefCompExtension<ISableCompExtension>>(*this);
        break;
    case RefExtensionKind::kNone:
        mExtension.reset();
        break;
    }
}

void RefComponent::SetDynamicNportPorts(int portCount)
{
    if (portCount < 0)
    {
        mNportModel.reset();
    }
    else
    {
        mNportModel = std::make_unique<RefDynamicNportModel>(*this, portCount);
    }
}

// RefCompInst ---------------------------------------------------------------------------------

RefCompInst::RefCompInst(RefDesign& design, const AString& name, RefComponent& component)
    : mDesign(design), mName(name), mComponent(component)
{
    for (auto& list : mLists)
    {
        list = std::make_unique<PropList>();
    }
    mLists[1]->SetParentScope(&design.GetVariables());
}

PropList* RefCompInst::GetServedPropList(int index) const
{
    return index >= 0 && index < 3 ? mLists[index].get() : nullptr;
}

void RefCompInst::PropChanged(const Property& prop, const PropChange& change)
{
    mPropChanges.push_back({prop.PropertyName(), change});
}

RefCompInst::~RefCompInst() = default;

void* RefCompInst::QueryInterface(int id)
{
    return id == kInterfaceId ? static_cast<ICompInst*>(this) : nullptr;
}

IComponent* RefCompInst::GetComponent() const
{
    return &mComponent;
}

void RefCompInst::SetExtensionKind(RefExtensionKind kind)
{
    switch (kind)
    {
    case RefExtensionKind::k3D:
        mExtension = std::make_unique<RefCompInstExtension<I3DCompInstExtension>>(*this);
        break;
    case RefExtensionKind::kSable:
        mExtension = std::make_unique<RefCompInstExtension<ISableCompInstExtension>>(*this);
        break;
    case RefExtensionKind::kNone:
        mExtension.reset();
        break;
    }
}
} // namespace refhost
