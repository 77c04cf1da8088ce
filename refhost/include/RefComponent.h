// RefComponent and RefCompInst: component definitions of a reference-host project (owned by the
// project) and their instances (owned by the design they are placed in). Either can carry an
// extension of one of the host's other editors; a component can be made a dynamic n-port, whose
// model it then hands out by query only. Both serve property lists (IPropServer): a component
// its definition's properties, an instance three lists: its own properties (where the dialog
// button "CompDlg" lives), its parameters, and the extra properties other editors add.
#pragma once

#include "ICompInst.h"
#include "IComponent.h"
#include "IPropServer.h"
#include "PropChange.h"
#include "PropList.h"
#include "RefHostExport.h"

#include <memory>
#include <utility>
#include <vector>

class IDynamicNportModel;

namespace refhost
{
class RefDesign;
class RefProject;

// Which extension a component or an instance carries.
enum class RefExtensionKind
{
    kNone,
    k3D,   // I3DCompExtension / I3DCompInstExtension
    kSable // ISableCompExtension / ISableCompInstExtension
};

// A change that a property server was told of: the property's name and what changed.
struct RefPropChangeRecord
{
    AString mName;
    PropChange mChange;
};

class REFHOST_API RefComponent final : public IComponent, public IPropServer
{
public:
    ~RefComponent() override;
    RefComponent(const RefComponent&) = delete;
    RefComponent& operator=(const RefComponent&) = delete;

    // Answers IComponent, and IDynamicNportModel by query only while the component is a
    // dynamic n-port.
    void* QueryInterface(int id) override;
    AString GetName() const override { return mName; }
    IDesign* GetDesign() const override;
    IDefinitionMgr* GetDefinitionMgr() const override;
    // The project, unless SetHasOwner(false).
    IComponentOwner* GetOwner() const override;
    // The project's nature manager while the design manager offers it.
    INatureMgr* GetNatureMgr() const override;
    ICompExtension* GetExtension() const override { return mExtension.get(); }

    RefProject& GetProject() const { return mProject; }
    RefDesign* GetRefDesign() const { return mDesign; }
    void SetHasOwner(bool has) { mHasOwner = has; }
    // Replaces the extension by a new one of `kind` (kNone removes it).
    void SetExtensionKind(RefExtensionKind kind);
    // Makes the component a dynamic n-port with `portCount` ports; a negative count makes it
    // an ordinary component again.
    void SetDynamicNportPorts(int portCount);

    // The definition's properties (parameters as variable properties); their variables are a
    // scope for one another's expressions.
    PropList* GetPropList() const { return mProps.get(); }
    // IPropServer: one list, the definition's properties; changes are recorded.
    int GetPropListCount() const override { return 1; }
    PropList* GetServedPropList(int index) const override;
    void PropChanged(const Property& prop, const PropChange& change) override;
    const std::vector<RefPropChangeRecord>& GetPropChanges() const { return mPropChanges; }

private:
    friend class RefProject;
    RefComponent(RefProject& project, const AString& name, RefDesign* design);

    RefProject& mProject;
    AString mName;
    RefDesign* mDesign;
    bool mHasOwner = true;
    std::unique_ptr<ICompExtension> mExtension;
    std::unique_ptr<IDynamicNportModel> mNportModel;
    std::unique_ptr<PropList> mProps;
    std::vector<RefPropChangeRecord> mPropChanges;
};

class REFHOST_API RefCompInst final : public ICompInst, public IPropServer
{
public:
    ~RefCompInst() override;
    RefCompInst(const RefCompInst&) = delete;
    RefCompInst& operator=(const RefCompInst&) = delete;

    // Answers ICompInst.
    void* QueryInterface(int id) override;
    AString GetName() const override { return mName; }
    IComponent* GetComponent() const override;
    ICompInstExtension* GetExtension() const override { return mExtension.get(); }

    RefDesign& GetRefDesign() const { return mDesign; }
    RefComponent& GetRefComponent() const { return mComponent; }
    // Renames the instance, as the user does in the schematic.
    void SetName(const AString& name) { mName = name; }
    // Replaces the extension by a new one of `kind` (kNone removes it).
    void SetExtensionKind(RefExtensionKind kind);

    // The instance's three property lists: its own properties, its parameters, and the extra
    // properties of other editors. The parameters see the design's variables.
    PropList* GetPropList() const override { return mLists[0].get(); }
    PropList* GetParameterPropList() const override { return mLists[1].get(); }
    PropList* GetExtraPropList() const override { return mLists[2].get(); }
    // IPropServer: the three lists in that order; changes are recorded.
    int GetPropListCount() const override { return 3; }
    PropList* GetServedPropList(int index) const override;
    void PropChanged(const Property& prop, const PropChange& change) override;
    const std::vector<RefPropChangeRecord>& GetPropChanges() const { return mPropChanges; }

private:
    friend class RefDesign;
    RefCompInst(RefDesign& design, const AString& name, RefComponent& component);

    RefDesign& mDesign;
    AString mName;
    RefComponent& mComponent;
    std::unique_ptr<ICompInstExtension> mExtension;
    std::unique_ptr<PropList> mLists[3];
    std::vector<RefPropChangeRecord> mPropChanges;
};
} // namespace refhost
