#include "InterfaceGetters.h"

#include "HostInterfaces.h"
#include "MerrowNameServer.h"

#include <algorithm>

namespace
{
// The numbered query `id` of `source` as a T; null for a null source.
template <class T> T* NumberedQuery(const IInterfaceQueriable* source, int id)
{
    if (source == nullptr)
    {
        return nullptr;
    }
    return static_cast<T*>(const_cast<IInterfaceQueriable*>(source)->QueryInterface(id));
}

// A run-time cast between interfaces of one object; null for a null source.
template <class T, class S> T* Cast(S* source)
{
    return dynamic_cast<T*>(source);
}

template <class T> T* CompExtensionAs(const IComponent* component)
{
    return component != nullptr ? Cast<T>(component->GetExtension()) : nullptr;
}

template <class T> T* CompInstComponentExtensionAs(const ICompInst* compInst)
{
    return compInst != nullptr ? CompExtensionAs<T>(compInst->GetComponent()) : nullptr;
}

template <class T> T* CompInstExtensionAs(const ICompInst* compInst)
{
    return compInst != nullptr ? Cast<T>(compInst->GetExtension()) : nullptr;
}
} // namespace

namespace qln
{
// Design managers ----------------------------------------------------------------------------

IDesignMgr* GetIDesignMgr(ICircuitMgr* cmgr)
{
    return cmgr != nullptr ? cmgr->GetDesignMgr() : nullptr;
}

IDesignMgr* GetIDesignMgr(IDefinitionMgr* defMgr)
{
    return defMgr != nullptr ? defMgr->GetDesignMgr() : nullptr;
}

IDesignMgr* GetIDesignMgr(ICircuitDefinitionMgr* cdefMgr)
{
    return cdefMgr != nullptr ? GetIDesignMgr(cdefMgr->GetCircuitMgr()) : nullptr;
}

// Definition managers ------------------------------------------------------------------------

IDefinitionMgr* GetIDefinitionMgr(IDesignMgr* dmgr)
{
    return dmgr != nullptr ? dmgr->GetDefinitionMgr() : nullptr;
}

IDefinitionMgr* GetIDefinitionMgr(ICircuitMgr* cmgr)
{
    ICircuitDefinitionMgr* cdefMgr = GetICircuitDefinitionMgr(cmgr);
    return cdefMgr != nullptr ? cdefMgr->GetDefinitionMgr() : nullptr;
}

IDefinitionMgr* GetIDefinitionMgr(ICircuitDefinitionMgr* cdefMgr)
{
    return cdefMgr != nullptr ? cdefMgr->GetDefinitionMgr() : nullptr;
}

IDefinitionMgr* GetIDefinitionMgr(ICircuitDefCreationMgr* ccreationMgr)
{
    ICircuitDefinitionMgr* cdefMgr = GetICircuitDefinitionMgr(ccreationMgr);
    return cdefMgr != nullptr ? cdefMgr->GetDefinitionMgr() : nullptr;
}

// Definition creation managers ---------------------------------------------------------------

IDefCreationMgr* GetIDefCreationMgr(IDesignMgr* dmgr)
{
    // The host gives every design manager a definition manager.
    return dmgr != nullptr ? dmgr->GetDefinitionMgr()->GetDefCreationMgr() : nullptr;
}

IDefCreationMgr* GetIDefCreationMgr(ICircuitMgr* cmgr)
{
    return GetIDefCreationMgr(GetIDesignMgr(cmgr));
}

IDefCreationMgr* GetIDefCreationMgr(ICircuitDefCreationMgr* ccreationMgr)
{
    IDefinitionMgr* defMgr = GetIDefinitionMgr(ccreationMgr);
    return defMgr != nullptr ? defMgr->GetDefCreationMgr() : nullptr;
}

// Designs and editors ------------------------------------------------------------------------

IDesign* GetIDesign(IComponent* component)
{
    return component != nullptr ? component->GetDesign() : nullptr;
}

IDesignEditor* GetIDesignEditor(ICircuit* circuit)
{
    return Cast<IDesignEditor>(circuit);
}

IDesignEditor* GetIDesignEditor(IComponent* component)
{
    IDesign* design = GetIDesign(component);
    return design != nullptr ? design->GetDesignEditor() : nullptr;
}

// Circuit managers ---------------------------------------------------------------------------

ICircuitMgr* GetICircuitMgr(IDesignMgr* dmgr)
{
    return InterfaceQuery<ICircuitMgr>(dmgr);
}

const ICircuitMgr* GetICircuitMgr(const IDesignMgr* dmgr)
{
    return InterfaceQuery<ICircuitMgr>(dmgr);
}

ICircuitMgr* GetICircuitMgr(IDefinitionMgr* defMgr)
{
    // The host gives every definition manager a circuit side.
    return defMgr != nullptr ? GetICircuitDefinitionMgr(defMgr)->GetCircuitMgr() : nullptr;
}

const ICircuitMgr* GetICircuitMgr(const IDefinitionMgr* defMgr)
{
    return GetICircuitMgr(const_cast<IDefinitionMgr*>(defMgr));
}

ICircuitMgr* GetICircuitMgr(ICircuitDefinitionMgr* cdefMgr)
{
    return cdefMgr != nullptr ? cdefMgr->GetCircuitMgr() : nullptr;
}

const ICircuitMgr* GetICircuitMgr(const ICircuitDefinitionMgr* cdefMgr)
{
    return cdefMgr != nullptr ? cdefMgr->GetCircuitMgr() : nullptr;
}

// Circuit definition managers ----------------------------------------------------------------

ICircuitDefinitionMgr* GetICircuitDefinitionMgr(IDesignMgr* dmgr)
{
    return dmgr != nullptr ? GetICircuitDefinitionMgr(dmgr->GetDefinitionMgr()) : nullptr;
}

ICircuitDefinitionMgr* GetICircuitDefinitionMgr(IDefinitionMgr* defMgr)
{
    return InterfaceQuery<ICircuitDefinitionMgr>(defMgr);
}

ICircuitDefinitionMgr* GetICircuitDefinitionMgr(ICircuitMgr* cmgr)
{
    return cmgr != nullptr ? cmgr->GetCircuitDefinitionMgr() : nullptr;
}

ICircuitDefinitionMgr* GetICircuitDefinitionMgr(ICircuitDefCreationMgr* ccreationMgr)
{
    return ccreationMgr != nullptr ? ccreationMgr->GetCircuitDefinitionMgr() : nullptr;
}

// Circuit definition creation managers -------------------------------------------------------

ICircuitDefCreationMgr* GetICircuitDefCreationMgr(IDesignMgr* dmgr)
{
    ICircuitDefinitionMgr* cdefMgr = GetICircuitDefinitionMgr(GetICircuitMgr(dmgr));
    return cdefMgr != nullptr ? cdefMgr->GetCircuitDefCreationMgr() : nullptr;
}

ICircuitDefCreationMgr* GetICircuitDefCreationMgr(IDefinitionMgr* defMgr)
{
    ICircuitDefinitionMgr* cdefMgr = GetICircuitDefinitionMgr(defMgr);
    return cdefMgr != nullptr ? cdefMgr->GetCircuitDefCreationMgr() : nullptr;
}

ICircuitDefCreationMgr* GetICircuitDefCreationMgr(ICircuitMgr* cmgr)
{
    ICircuitDefinitionMgr* cdefMgr = GetICircuitDefinitionMgr(cmgr);
    return cdefMgr != nullptr ? cdefMgr->GetCircuitDefCreationMgr() : nullptr;
}

ICircuitDefCreationMgr* GetICircuitDefCreationMgr(ICircuitDefinitionMgr* cdefMgr)
{
    return cdefMgr != nullptr ? cdefMgr->GetCircuitDefCreationMgr() : nullptr;
}

// Circuit library managers -------------------------------------------------------------------

ICircuitLibraryMgr* GetICircuitLibraryMgr(IDesignMgr* dmgr)
{
    return GetICircuitLibraryMgr(GetICircuitDefinitionMgr(dmgr));
}

ICircuitLibraryMgr* GetICircuitLibraryMgr(ICircuitDefinitionMgr* cdefMgr)
{
    return cdefMgr != nullptr ? cdefMgr->GetCircuitLibraryMgr() : nullptr;
}

// Circuit views ------------------------------------------------------------------------------

ICircuit* GetICircuit(IDesign* design)
{
    // The host gives every design an editor.
    return design != nullptr ? GetICircuit(design->GetDesignEditor()) : nullptr;
}

ICircuit* GetICircuit(IDesignEditor* editor)
{
    return NumberedQuery<ICircuit>(editor, kICircuitId);
}

ICircuitInstance* GetICircuitInstance(IDesignInstance* instance)
{
    return instance != nullptr ? GetICircuitInstance(instance->GetEditorInstance()) : nullptr;
}

const ICircuitInstance* GetICircuitInstance(const IDesignInstance* instance)
{
    return instance != nullptr ? GetICircuitInstance(instance->GetEditorInstance()) : nullptr;
}

ICircuitInstance* GetICircuitInstance(IDesignEditorInstance* editorInstance)
{
    return NumberedQuery<ICircuitInstance>(editorInstance, kICircuitInstanceId);
}

const ICircuitInstance* GetICircuitInstance(const IDesignEditorInstance* editorInstance)
{
    return NumberedQuery<ICircuitInstance>(editorInstance, kICircuitInstanceId);
}

// Hierarchy and schematic views --------------------------------------------------------------

IHierarchyDesign* GetIHierarchyDesign(IDesign* design)
{
    return NumberedQuery<IHierarchyDesign>(design, kIHierarchyDesignId);
}

const IHierarchyDesign* GetIHierarchyDesign(const IDesign* design)
{
    return NumberedQuery<IHierarchyDesign>(design, kIHierarchyDesignId);
}

IHierarchyDesignInstance* GetIHierarchyDesignInstance(IDesignInstance* instance)
{
    return NumberedQuery<IHierarchyDesignInstance>(instance, kIHierarchyDesignInstanceId);
}

const IHierarchyDesignInstance* GetIHierarchyDesignInstance(const IDesignInstance* instance)
{
    return NumberedQuery<IHierarchyDesignInstance>(instance, kIHierarchyDesignInstanceId);
}

IHierarchicalDesignEditor* GetIHierarchicalDesignEditor(IDesignEditor* editor)
{
    return Cast<IHierarchicalDesignEditor>(editor);
}

const IHierarchicalDesignEditor* GetIHierarchicalDesignEditor(const IDesignEditor* editor)
{
    return Cast<const IHierarchicalDesignEditor>(editor);
}

IHierarchicalDesignEditor* GetIHierarchicalDesignEditor(ICircuit* circuit)
{
    return circuit != nullptr ? GetIHierarchicalDesignEditor(circuit->GetDesignEditor()) : nullptr;
}

IDesignForSchematic* GetIDesignForSchematic(IDesign* design)
{
    return NumberedQuery<IDesignForSchematic>(design, kIDesignForSchematicId);
}

const IDesignForSchematic* GetIDesignForSchematic(const IDesign* design)
{
    return NumberedQuery<IDesignForSchematic>(design, kIDesignForSchematicId);
}

IDesignInstanceForSchematic* GetIDesignInstanceForSchematic(IDesignInstance* instance)
{
    return NumberedQuery<IDesignInstanceForSchematic>(instance, kIDesignInstanceForSchematicId);
}

// Component models and extensions ------------------------------------------------------------

IDynamicNportModel* GetIDynamicNportModel(IComponent* component)
{
    if (IDynamicNportModel* model = dynamic_cast<IDynamicNportModel*>(component))
    {
        return model;
    }
    return component->Query<IDynamicNportModel>();
}

I3DCompExtension* GetI3DCompExtension(ICompInst* compInst)
{
    return CompInstComponentExtensionAs<I3DCompExtension>(compInst);
}

I3DCompExtension* GetI3DCompExtension(IComponent* component)
{
    return CompExtensionAs<I3DCompExtension>(component);
}

const I3DCompExtension* GetI3DCompExtension(const IComponent* component)
{
    return CompExtensionAs<I3DCompExtension>(component);
}

I3DCompInstExtension* GetI3DCompInstExtension(ICompInst* compInst)
{
    return CompInstExtensionAs<I3DCompInstExtension>(compInst);
}

const I3DCompInstExtension* GetI3DCompInstExtension(const ICompInst* compInst)
{
    return CompInstExtensionAs<I3DCompInstExtension>(compInst);
}

ISableCompExtension* GetISableCompExtension(ICompInst* compInst)
{
    return CompInstComponentExtensionAs<ISableCompExtension>(compInst);
}

const ISableCompExtension* GetISableCompExtension(const ICompInst* compInst)
{
    return CompInstComponentExtensionAs<ISableCompExtension>(compInst);
}

ISableCompExtension* GetISableCompExtension(IComponent* component)
{
    return CompExtensionAs<ISableCompExtension>(component);
}

const ISableCompExtension* GetISableCompExtension(const IComponent* component)
{
    return CompExtensionAs<ISableCompExtension>(component);
}

ISableCompInstExtension* GetISableCompInstExtension(ICompInst* compInst)
{
    return CompInstExtensionAs<ISableCompInstExtension>(compInst);
}

const ISableCompInstExtension* GetISableCompInstExtension(const ICompInst* compInst)
{
    return CompInstExtensionAs<ISableCompInstExtension>(compInst);
}

// Application services -----------------------------------------------------------------------

IAppBase* GetIAppBase()
{
    return InterfaceQuery<IAppBase>(GetIMerrowApplication());
}

INetworkDataExplorer* GetINetworkDataExplorer()
{
    IAppBase* appBase = GetIAppBase();
    return appBase != nullptr ? appBase->GetNetworkDataExplorer() : nullptr;
}

// Design helpers -----------------------------------------------------------------------------

IDesignInstance* GetTopLevelDesignInstance(const IDesign& design)
{
    std::vector<IDesignInstance*> instances;
    design.GetInstances(instances);
    for (IDesignInstance* instance : instances)
    {
        const ICircuitInstance* circuitInstance = GetICircuitInstance(instance);
        if (circuitInstance != nullptr && circuitInstance->GetParentInstance() == nullptr)
        {
            return instance;
        }
    }
    return nullptr;
}

void ConvertDesignInstanceNamesToDesignNames(const std::vector<AString>& instanceNames,
                                             std::vector<AString>& designNames)
{
    if (instanceNames.empty())
    {
        return;
    }
    // A copy: the output may be the input.
    std::vector<AString> sorted(instanceNames);
    std::sort(sorted.begin(), sorted.end(),
              [](const AString& a, const AString& b)
              { return MerrowNameServer::CompareNames(a, b) < 0; });
    std::vector<AString> pieces;
    for (const AString& name : sorted)
    {
        pieces.clear();
        name.TokenizeString(pieces, L";", false);
        designNames.push_back(pieces.size() > 1 ? pieces.back() : name);
    }
}
} // namespace qln

void InitQuillonDLL() {}
