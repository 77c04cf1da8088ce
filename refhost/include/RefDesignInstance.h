// RefDesignInstance: a placement of a reference-host design, owned by the design it places. It
// serves its hierarchy and schematic views itself (numbered queries); its editor instance hands
// out the circuit instance, a companion object, by numbered query only.
#pragma once

#include "DesignViews.h"
#include "ICircuitInstance.h"
#include "IDesignEditorInstance.h"
#include "IDesignInstance.h"
#include "RefHostExport.h"

#include <memory>

namespace refhost
{
class RefDesign;
class RefDesignInstance;

class REFHOST_API RefDesignEditorInstance final : public IDesignEditorInstance
{
public:
    ~RefDesignEditorInstance() override;
    RefDesignEditorInstance(const RefDesignEditorInstance&) = delete;
    RefDesignEditorInstance& operator=(const RefDesignEditorInstance&) = delete;

    // Answers IDesignEditorInstance, and ICircuitInstance (kICircuitInstanceId) when the
    // instance has a circuit view.
    void* QueryInterface(int id) override;
    IDesignInstance* GetDesignInstance() const override;

    // The circuit view of the instance; null when it has none.
    ICircuitInstance* GetCircuitInstance() const { return mCircuitInstance.get(); }

private:
    friend class RefDesignInstance;
    RefDesignEditorInstance(RefDesignInstance& instance, bool circuitView);

    RefDesignInstance& mInstance;
    std::unique_ptr<ICircuitInstance> mCircuitInstance;
};

class REFHOST_API RefDesignInstance final : public IDesignInstance,
                                            public IHierarchyDesignInstance,
                                            public IDesignInstanceForSchematic
{
public:
    ~RefDesignInstance() override;
    RefDesignInstance(const RefDesignInstance&) = delete;
    RefDesignInstance& operator=(const RefDesignInstance&) = delete;

    // Answers IDesignInstance, IHierarchyDesignInstance (kIHierarchyDesignInstanceId) and
    // IDesignInstanceForSchematic (kIDesignInstanceForSchematicId).
    void* QueryInterface(int id) override;
    AString GetName() const override { return mName; }
    IDesign* GetDesign() const override;
    IDesignEditorInstance* GetEditorInstance() const override;
    // The instance itself, for its views.
    IDesignInstance* GetDesignInstance() const override;

    RefDesign& GetRefDesign() const { return mDesign; }
    RefDesignEditorInstance& GetRefEditorInstance() const { return *mEditorInstance; }
    // The instance this one is placed in; null at the top level.
    RefDesignInstance* GetParent() const { return mParent; }

private:
    friend class RefDesign;
    RefDesignInstance(RefDesign& design, const AString& name, RefDesignInstance* parent,
                      bool circuitView);

    RefDesign& mDesign;
    AString mName;
    RefDesignInstance* mParent;
    std::unique_ptr<RefDesignEditorInstance> mEditorInstance;
};
} // namespace refhost
