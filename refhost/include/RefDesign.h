// RefDesign: a design of a reference-host project, with its editor, the instances that place it
// and the component instances placed in it. The design serves its hierarchy and schematic views
// itself (numbered queries); its editor serves the editor's circuit view and hierarchical side.
// It holds the design variables, which see the project variables.
#pragma once

#include "DesignViews.h"
#include "ICircuit.h"
#include "IDesign.h"
#include "IDesignEditor.h"
#include "PropList.h"
#include "RefHostExport.h"

#include <cstddef>
#include <memory>
#include <vector>

class VariableProp;

namespace refhost
{
class RefCompInst;
class RefComponent;
class RefDesign;
class RefDesignInstance;
class RefProject;

class REFHOST_API RefDesignEditor final : public IDesignEditor,
                                          public ICircuit,
                                          public IHierarchicalDesignEditor
{
public:
    // Answers IDesignEditor, ICircuit (kICircuitId) and IHierarchicalDesignEditor.
    void* QueryInterface(int id) override;
    IDesign* GetDesign() const override;
    IDesignEditor* GetDesignEditor() const override;

    RefDesign& GetRefDesign() const { return mDesign; }

private:
    friend class RefDesign;
    explicit RefDesignEditor(RefDesign& design) : mDesign(design) {}

    RefDesign& mDesign;
};

class REFHOST_API RefDesign final : public IDesign,
                                    public IHierarchyDesign,
                                    public IDesignForSchematic
{
public:
    ~RefDesign() override;
    RefDesign(const RefDesign&) = delete;
    RefDesign& operator=(const RefDesign&) = delete;

    // Answers IDesign, IHierarchyDesign (kIHierarchyDesignId) and IDesignForSchematic
    // (kIDesignForSchematicId).
    void* QueryInterface(int id) override;
    AString GetName() const override { return mName; }
    CircuitEnvironment GetCircuitEnvironment() const override { return mEnvironment; }
    IDesignEditor* GetDesignEditor() const override;
    void GetInstances(std::vector<IDesignInstance*>& instances) const override;
    // The design itself, for its views.
    IDesign* GetDesign() const override;

    RefProject& GetProject() const { return mProject; }
    void SetCircuitEnvironment(CircuitEnvironment environment) { mEnvironment = environment; }
    RefDesignEditor& GetEditor() const { return *mEditor; }

    // A new instance of this design placed in `parent` (null: at the top level); the design
    // owns it. With `circuitView` false its editor instance offers no circuit instance. Null,
    // after the assertion "parent == nullptr || &parent->GetRefDesign().GetProject() ==
    // &mProject", when `parent` belongs to another project.
    RefDesignInstance* AddInstance(const AString& name, RefDesignInstance* parent = nullptr,
                                   bool circuitView = true);
    std::size_t GetInstanceCount() const { return mInstances.size(); }
    RefDesignInstance* GetInstance(std::size_t index) const;

    // A new instance of `component` placed in this design; the design owns it. Null, after the
    // assertion "&component.GetProject() == &mProject", when the component belongs to another
    // project.
    RefCompInst* AddCompInst(const AString& name, RefComponent& component);
    std::size_t GetCompInstCount() const { return mCompInsts.size(); }
    RefCompInst* GetCompInst(std::size_t index) const;
    // The first component instance of that name, ignoring case; null when none.
    RefCompInst* FindCompInst(const AString& name) const;

    // The design variables, as variable properties; their parent scope is the project's.
    PropList& GetVariables() { return mVariables; }
    const PropList& GetVariables() const { return mVariables; }
    // Adds a design variable holding `text`; null when the name is no variable name or begins
    // with "$" (a project variable's), is taken, or the text is no value.
    VariableProp* AddVariable(const AString& name, const AString& text);

private:
    friend class RefProject;
    RefDesign(RefProject& project, const AString& name, CircuitEnvironment environment);

    RefProject& mProject;
    AString mName;
    CircuitEnvironment mEnvironment;
    std::unique_ptr<RefDesignEditor> mEditor;
    std::vector<std::unique_ptr<RefDesignInstance>> mInstances;
    std::vector<std::unique_ptr<RefCompInst>> mCompInsts;
    PropList mVariables;
};
} // namespace refhost
