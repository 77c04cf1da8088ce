// RefProject: an open project of the reference host. It owns its design manager (with the
// project's other managers), its designs and its component definitions, and is the owning
// object of those components (IComponentOwner), holding the setting that applies to them. It
// also holds the project variables (names beginning with "$") and the identifier of the
// project's enumeration column.
#pragma once

#include "CircuitEnvironment.h"
#include "IComponentOwner.h"
#include "IProject.h"
#include "PropList.h"
#include "RefHostExport.h"

#include <cstddef>
#include <memory>
#include <vector>

class VariableProp;

namespace refhost
{
class RefApplication;
class RefComponent;
class RefDesign;
class RefDesignMgr;

class REFHOST_API RefProject final : public IProject, public IComponentOwner
{
public:
    ~RefProject() override;
    RefProject(const RefProject&) = delete;
    RefProject& operator=(const RefProject&) = delete;

    // Answers IProject and IComponentOwner.
    void* QueryInterface(int id) override;
    AString GetName() const override { return mName; }
    AString GetDirectory() const override { return mDirectory; }
    // 1 by default: new terminals left unconnected are reported as errors.
    int GetUnconnectedTerminalCheck() const override { return mUnconnectedTerminalCheck; }

    RefApplication& GetApplication() const { return mApplication; }
    void SetDirectory(const AString& directory) { mDirectory = directory; }
    void SetUnconnectedTerminalCheck(int check) { mUnconnectedTerminalCheck = check; }
    // The project's design manager (its open project is this one).
    RefDesignMgr& GetDesignMgr() const { return *mDesignMgr; }

    // A new design of the project in `environment`; the project owns it.
    RefDesign& AddDesign(const AString& name, CircuitEnvironment environment = kEnvBrennaCircuit);
    std::size_t GetDesignCount() const { return mDesigns.size(); }
    // The design at `index` in creation order; null past the end.
    RefDesign* GetDesign(std::size_t index) const;
    // The first design of that name, ignoring case; null when none.
    RefDesign* FindDesign(const AString& name) const;

    // A new component definition that lives in `design` (null: in none); the project owns it.
    // Null, after the assertion "design == nullptr || &design->GetProject() == this", when
    // `design` belongs to another project.
    RefComponent* AddComponent(const AString& name, RefDesign* design = nullptr);
    std::size_t GetComponentCount() const { return mComponents.size(); }
    RefComponent* GetComponent(std::size_t index) const;
    RefComponent* FindComponent(const AString& name) const;

    // The project variables, as variable properties.
    PropList& GetVariables() { return mVariables; }
    const PropList& GetVariables() const { return mVariables; }
    // Adds a project variable holding `text` ("$" is put in front of a name without it); null
    // when the name is no identifier, the text is no value, or the name is taken.
    VariableProp* AddVariable(const AString& name, const AString& text);

    // The identifier of the project's enumeration column (distinct per project, from 1 on).
    int GetEnumColumnID() const override { return mEnumColumnID; }
    void SetEnumColumnID(int columnID) { mEnumColumnID = columnID; }

private:
    friend class RefApplication;
    RefProject(RefApplication& application, const AString& name, const AString& directory);

    RefApplication& mApplication;
    AString mName;
    AString mDirectory;
    int mUnconnectedTerminalCheck = 1;
    std::unique_ptr<RefDesignMgr> mDesignMgr;
    std::vector<std::unique_ptr<RefDesign>> mDesigns;
    std::vector<std::unique_ptr<RefComponent>> mComponents;
    PropList mVariables;
    int mEnumColumnID;
};
} // namespace refhost
