// Conversions between the host's interfaces, collected so that every caller converts the same
// way, and two design helpers. Each getter reaches the related object by one of four means:
// an accessor of the source; an interface query (run-time cast, else the source's typed query);
// a numbered query with the host's fixed identifier; or a run-time cast between interfaces of
// one object. Every getter answers null for a null source, and null when a step on the way
// answers null, except where a line below says that a step is not checked: there the host
// guarantees the step, and the caller must not pass an object that lacks it.
#pragma once

#include "AString.h"
#include "QuillonExport.h"

#include <vector>

class I3DCompExtension;
class I3DCompInstExtension;
class IAppBase;
class ICircuit;
class ICircuitDefCreationMgr;
class ICircuitDefinitionMgr;
class ICircuitInstance;
class ICircuitLibraryMgr;
class ICircuitMgr;
class ICompInst;
class IComponent;
class IDefCreationMgr;
class IDefinitionMgr;
class IDesign;
class IDesignEditor;
class IDesignEditorInstance;
class IDesignForSchematic;
class IDesignInstance;
class IDesignInstanceForSchematic;
class IDesignMgr;
class IDynamicNportModel;
class IHierarchicalDesignEditor;
class IHierarchyDesign;
class IHierarchyDesignInstance;
class INetworkDataExplorer;
class ISableCompExtension;
class ISableCompInstExtension;

namespace qln
{
// Design managers ----------------------------------------------------------------------------
// Accessor.
QLN_API IDesignMgr* GetIDesignMgr(ICircuitMgr* cmgr);
// Accessor.
QLN_API IDesignMgr* GetIDesignMgr(IDefinitionMgr* defMgr);
// Its circuit manager, then that one's design manager.
QLN_API IDesignMgr* GetIDesignMgr(ICircuitDefinitionMgr* cdefMgr);

// Definition managers ------------------------------------------------------------------------
// Accessor.
QLN_API IDefinitionMgr* GetIDefinitionMgr(IDesignMgr* dmgr);
// Its circuit definition manager, then that one's definition manager.
QLN_API IDefinitionMgr* GetIDefinitionMgr(ICircuitMgr* cmgr);
// Accessor.
QLN_API IDefinitionMgr* GetIDefinitionMgr(ICircuitDefinitionMgr* cdefMgr);
// Its circuit definition manager, then that one's definition manager.
QLN_API IDefinitionMgr* GetIDefinitionMgr(ICircuitDefCreationMgr* ccreationMgr);

// Definition creation managers ---------------------------------------------------------------
// Its definition manager (not checked), then that one's creation manager.
QLN_API IDefCreationMgr* GetIDefCreationMgr(IDesignMgr* dmgr);
// Through its design manager.
QLN_API IDefCreationMgr* GetIDefCreationMgr(ICircuitMgr* cmgr);
// Its circuit definition manager, that one's definition manager, then its creation manager.
QLN_API IDefCreationMgr* GetIDefCreationMgr(ICircuitDefCreationMgr* ccreationMgr);

// Designs and editors ------------------------------------------------------------------------
// Accessor.
QLN_API IDesign* GetIDesign(IComponent* component);
// Cast: the circuit view is served by the editor itself.
QLN_API IDesignEditor* GetIDesignEditor(ICircuit* circuit);
// The component's design, then its editor.
QLN_API IDesignEditor* GetIDesignEditor(IComponent* component);

// Circuit managers ---------------------------------------------------------------------------
// Interface query.
QLN_API ICircuitMgr* GetICircuitMgr(IDesignMgr* dmgr);
QLN_API const ICircuitMgr* GetICircuitMgr(const IDesignMgr* dmgr);
// Its circuit definition manager (not checked: the definition manager must have a circuit
// side), then that one's circuit manager.
QLN_API ICircuitMgr* GetICircuitMgr(IDefinitionMgr* defMgr);
QLN_API const ICircuitMgr* GetICircuitMgr(const IDefinitionMgr* defMgr);
// Accessor.
QLN_API ICircuitMgr* GetICircuitMgr(ICircuitDefinitionMgr* cdefMgr);
QLN_API const ICircuitMgr* GetICircuitMgr(const ICircuitDefinitionMgr* cdefMgr);

// Circuit definition managers ----------------------------------------------------------------
// Its definition manager, then that one's circuit side.
QLN_API ICircuitDefinitionMgr* GetICircuitDefinitionMgr(IDesignMgr* dmgr);
// Interface query.
QLN_API ICircuitDefinitionMgr* GetICircuitDefinitionMgr(IDefinitionMgr* defMgr);
// Accessor.
QLN_API ICircuitDefinitionMgr* GetICircuitDefinitionMgr(ICircuitMgr* cmgr);
// Accessor.
QLN_API ICircuitDefinitionMgr* GetICircuitDefinitionMgr(ICircuitDefCreationMgr* ccreationMgr);

// Circuit definition creation managers -------------------------------------------------------
// Its circuit manager, that one's circuit definition manager, then its creation manager.
QLN_API ICircuitDefCreationMgr* GetICircuitDefCreationMgr(IDesignMgr* dmgr);
// Its circuit side, then that one's creation manager.
QLN_API ICircuitDefCreationMgr* GetICircuitDefCreationMgr(IDefinitionMgr* defMgr);
// Its circuit definition manager, then that one's creation manager.
QLN_API ICircuitDefCreationMgr* GetICircuitDefCreationMgr(ICircuitMgr* cmgr);
// Accessor.
QLN_API ICircuitDefCreationMgr* GetICircuitDefCreationMgr(ICircuitDefinitionMgr* cdefMgr);

// Circuit library managers -------------------------------------------------------------------
// Its circuit definition manager, then that one's library manager.
QLN_API ICircuitLibraryMgr* GetICircuitLibraryMgr(IDesignMgr* dmgr);
// Accessor.
QLN_API ICircuitLibraryMgr* GetICircuitLibraryMgr(ICircuitDefinitionMgr* cdefMgr);

// Circuit views ------------------------------------------------------------------------------
// The design's editor (not checked), then the numbered query 10.
QLN_API ICircuit* GetICircuit(IDesign* design);
// Numbered query 10.
QLN_API ICircuit* GetICircuit(IDesignEditor* editor);
// Its editor instance, then the numbered query 40502.
QLN_API ICircuitInstance* GetICircuitInstance(IDesignInstance* instance);
QLN_API const ICircuitInstance* GetICircuitInstance(const IDesignInstance* instance);
// Numbered query 40502.
QLN_API ICircuitInstance* GetICircuitInstance(IDesignEditorInstance* editorInstance);
QLN_API const ICircuitInstance* GetICircuitInstance(const IDesignEditorInstance* editorInstance);

// Hierarchy and schematic views --------------------------------------------------------------
// Numbered query 35510.
QLN_API IHierarchyDesign* GetIHierarchyDesign(IDesign* design);
QLN_API const IHierarchyDesign* GetIHierarchyDesign(const IDesign* design);
// Numbered query 35511.
QLN_API IHierarchyDesignInstance* GetIHierarchyDesignInstance(IDesignInstance* instance);
QLN_API const IHierarchyDesignInstance*
GetIHierarchyDesignInstance(const IDesignInstance* instance);
// Cast.
QLN_API IHierarchicalDesignEditor* GetIHierarchicalDesignEditor(IDesignEditor* editor);
QLN_API const IHierarchicalDesignEditor* GetIHierarchicalDesignEditor(const IDesignEditor* editor);
// Its design editor, then cast.
QLN_API IHierarchicalDesignEditor* GetIHierarchicalDesignEditor(ICircuit* circuit);
// Numbered query 40508.
QLN_API IDesignForSchematic* GetIDesignForSchematic(IDesign* design);
QLN_API const IDesignForSchematic* GetIDesignForSchematic(const IDesign* design);
// Numbered query 40509.
QLN_API IDesignInstanceForSchematic* GetIDesignInstanceForSchematic(IDesignInstance* instance);

// Component models and extensions ------------------------------------------------------------
// Interface query; `component` must not be null.
QLN_API IDynamicNportModel* GetIDynamicNportModel(IComponent* component);
// The instance's component, its extension, then cast.
QLN_API I3DCompExtension* GetI3DCompExtension(ICompInst* compInst);
// The component's extension, then cast.
QLN_API I3DCompExtension* GetI3DCompExtension(IComponent* component);
QLN_API const I3DCompExtension* GetI3DCompExtension(const IComponent* component);
// The instance's extension, then cast.
QLN_API I3DCompInstExtension* GetI3DCompInstExtension(ICompInst* compInst);
QLN_API const I3DCompInstExtension* GetI3DCompInstExtension(const ICompInst* compInst);
// The instance's component, its extension, then cast.
QLN_API ISableCompExtension* GetISableCompExtension(ICompInst* compInst);
QLN_API const ISableCompExtension* GetISableCompExtension(const ICompInst* compInst);
// The component's extension, then cast.
QLN_API ISableCompExtension* GetISableCompExtension(IComponent* component);
QLN_API const ISableCompExtension* GetISableCompExtension(const IComponent* component);
// The instance's extension, then cast.
QLN_API ISableCompInstExtension* GetISableCompInstExtension(ICompInst* compInst);
QLN_API const ISableCompInstExtension* GetISableCompInstExtension(const ICompInst* compInst);

// Application services -----------------------------------------------------------------------
// Interface query on the application object; null without one.
QLN_API IAppBase* GetIAppBase();
// The network data explorer of GetIAppBase(); null without an IAppBase.
QLN_API INetworkDataExplorer* GetINetworkDataExplorer();

// Design helpers -----------------------------------------------------------------------------
// The first of the design's instances, in the design's order, whose circuit view has no
// parent instance; instances without a circuit view are skipped. Null when there is none.
QLN_API IDesignInstance* GetTopLevelDesignInstance(const IDesign& design);

// Appends to `designNames` (not cleared; duplicates kept) the design name of each instance
// name: the last ";"-separated piece of a name with several pieces, else the name itself.
// The names are taken in the host's natural name order (MerrowNameServer::CompareNames). An
// empty input leaves the output untouched.
//   {"b;X", "a;Y", "c"} => {"Y", "X", "c"};  {"top;mid;leaf"} => {"leaf"}
QLN_API void ConvertDesignInstanceNamesToDesignNames(const std::vector<AString>& instanceNames,
                                                     std::vector<AString>& designNames);
} // namespace qln

// Does nothing. Host modules call it to make sure that the library is loaded; loading runs
// static initialisation of constants only and touches no host object.
QLN_API void InitQuillonDLL();
