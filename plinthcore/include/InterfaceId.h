// InterfaceId: the identifiers of the host's interfaces for the numbered query
// (IInterfaceQueriable::QueryInterface). The first group is fixed by the host: its modules pass
// these numbers directly, so they never change. The second group is the framework's own; those
// numbers only have to be distinct from every other identifier.
#pragma once

enum InterfaceId : int
{
    // Fixed by the host.
    kICircuitId = 10,                       // ICircuit of a design editor
    kIHierarchyDesignId = 35510,            // IHierarchyDesign of a design
    kIHierarchyDesignInstanceId = 35511,    // IHierarchyDesignInstance of a design instance
    kICircuitInstanceId = 40502,            // ICircuitInstance of a design editor instance
    kPropServerOwnerId = 40503,             // the object that owns a property server
    kIDesignForSchematicId = 40508,         // IDesignForSchematic of a design
    kIDesignInstanceForSchematicId = 40509, // IDesignInstanceForSchematic of a design instance

    // The framework's own.
    kIMerrowApplicationId = 41000,
    kICircuitEnvironmentId,
    kIAppBaseId,
    kINetworkDataExplorerId,
    kIProjectId,
    kIDesignMgrId,
    kIDefinitionMgrId,
    kIDefCreationMgrId,
    kICircuitMgrId,
    kICircuitDefinitionMgrId,
    kICircuitDefCreationMgrId,
    kICircuitLibraryMgrId,
    kIDesignId,
    kIDesignEditorId,
    kIHierarchicalDesignEditorId,
    kIDesignInstanceId,
    kIDesignEditorInstanceId,
    kIComponentId,
    kIComponentOwnerId,
    kICompInstId,
    kICompExtensionId,
    kI3DCompExtensionId,
    kISableCompExtensionId,
    kICompInstExtensionId,
    kI3DCompInstExtensionId,
    kISableCompInstExtensionId,
    kIDynamicNportModelId,
    kIModelCompilerId,
    kINatureMgrId,
    kIPropClientFactoryId = 41400
};
