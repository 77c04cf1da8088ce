#include "RefDesignInstance.h"

#include "RefDesign.h"

namespace refhost
{
namespace
{
// The circuit view of a design instance: its place in the circuit hierarchy follows the
// instance's parent.
class RefCircuitInstance final : public ICircuitInstance
{
public:
    explicit RefCircuitInstance(const RefDesignInstance& instance) : mInstance(instance) {}
    void* QueryInterface(int id) override
    {
        return id == kInterfaceId ? static_cast<ICircuitInstance*>(this) : nullptr;
    }
    AString GetName() const override { return mInstance.GetName(); }
    // A parent without a circuit view leaves this instance at the top of the circuit hierarchy.
    ICircuitInstance* GetParentInstance() const override
    {
        const RefDesignInstance* parent = mInstance.GetParent();
        return parent != nullptr ? parent->GetRefEditorInstance().GetCircuitInstance() : nullptr;
    }

private:
    const RefDesignInstance& mInstance;
};
} // namespace

// RefDesignEditorInstance ---------------------------------------------------------------------

RefDesignEditorInstance::RefDesignEditorInstance(RefDesignInstance& instance, bool circuitView)
    : mInstance(instance)
{
    if (circuitView)
    {
        mCircuitInstance = std::make_unique<RefCircuitInstance>(instance);
    }
}

RefDesignEditorInstance::~RefDesignEditorInstance() = default;

void* RefDesignEditorInstance::QueryInterface(int id)
{
    switch (id)
    {
    case IDesignEditorInstance::kInterfaceId:
        return static_cast<IDesignEditorInstance*>(this);
    case ICircuitInstance::kInterfaceId:
        return mCircuitInstance.get();
    default:
        return nullptr;
    }
}

IDesignInstance* RefDesignEditorInstance::GetDesignInstance() const
{
    return &mInstance;
}

// RefDesignInstance ---------------------------------------------------------------------------

RefDesignInstance::RefDesignInstance(RefDesign& design, const AString& name,
                                     RefDesignInstance* parent, bool circuitView)
    : mDesign(design), mName(name), mParent(parent),
      mEditorInstance(new RefDesignEditorInstance(*this, circuitView))
{
}

RefDesignInstance::~RefDesignInstance() = default;

void* RefDesignInstance::QueryInterface(int id)
{
    switch (id)
    {
    case IDesignInstance::kInterfaceId:
        return static_cast<IDesignInstance*>(this);
    case IHierarchyDesignInstance::kInterfaceId:
        return static_cast<IHierarchyDesignInstance*>(this);
    case IDesignInstanceForSchematic::kInterfaceId:
        return static_cast<IDesignInstanceForSchematic*>(this);
    default:
        return nullptr;
    }
}

IDesign* RefDesignInstance::GetDesign() const
{
    return &mDesign;
}

IDesignEditorInstance* RefDesignInstance::GetEditorInstance() const
{
    return mEditorInstance.get();
}

IDesignInstance* RefDesignInstance::GetDesignInstance() const
{
    return const_cast<RefDesignInstance*>(this);
}
} // namespace refhost
