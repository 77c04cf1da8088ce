// Further views of designs, design instances and design editors that other editors of the host
// add: the hierarchy views and the schematic views, each reached from the object it views by a
// fixed numbered query (or by cast, for the hierarchical editor). Each view leads back to the
// object it views; the editors that use the views add their other operations.
#pragma once

#include "IInterfaceQueriable.h"

class IDesign;
class IDesignEditor;
class IDesignInstance;

// The hierarchy view of a design (numbered query kIHierarchyDesignId).
class PLINTH_API IHierarchyDesign : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kIHierarchyDesignId;

    // The design this is a view of.
    virtual IDesign* GetDesign() const = 0;
};

// The hierarchy view of a design instance (numbered query kIHierarchyDesignInstanceId).
class PLINTH_API IHierarchyDesignInstance : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kIHierarchyDesignInstanceId;

    // The design instance this is a view of.
    virtual IDesignInstance* GetDesignInstance() const = 0;
};

// The schematic view of a design (numbered query kIDesignForSchematicId).
class PLINTH_API IDesignForSchematic : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kIDesignForSchematicId;

    // The design this is a view of.
    virtual IDesign* GetDesign() const = 0;
};

// The schematic view of a design instance (numbered query kIDesignInstanceForSchematicId).
class PLINTH_API IDesignInstanceForSchematic : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kIDesignInstanceForSchematicId;

    // The design instance this is a view of.
    virtual IDesignInstance* GetDesignInstance() const = 0;
};

// A design editor that edits a hierarchy of designs; implemented by the editor object itself,
// so it is found by a run-time cast.
class PLINTH_API IHierarchicalDesignEditor : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kIHierarchicalDesignEditorId;

    // The design editor this is the hierarchical side of.
    virtual IDesignEditor* GetDesignEditor() const = 0;
};
