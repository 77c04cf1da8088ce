// IComponent: a component definition of a project (a circuit element that designs place as
// component instances). It lives in a design, is managed by the project's definition manager,
// and belongs to an owning object whose settings apply to it.
#pragma once

#include "AString.h"
#include "IInterfaceQueriable.h"

class ICompExtension;
class IComponentOwner;
class IDefinitionMgr;
class IDesign;
class INatureMgr;

class PLINTH_API IComponent : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kIComponentId;

    // Result of adding a terminal to a component's terminal list.
    enum AddTerminalReturn : int
    {
        kSymbolPinNameTaken = 0,    // the schematic pin name is a terminal of the component already
        kFootprintPinNameTaken = 1, // the layout (footprint) pin name is one already
        kTerminalNotAdded = 2,      // nothing was added: no component or no terminal given
        kTerminalAdded = 3          // done
    };

    // The definition's name.
    virtual AString GetName() const = 0;
    // The design the definition lives in; null when it has none.
    virtual IDesign* GetDesign() const = 0;
    // The definition manager that manages the component.
    virtual IDefinitionMgr* GetDefinitionMgr() const = 0;
    // The object that owns the component; null when it has none.
    virtual IComponentOwner* GetOwner() const = 0;
    // The nature manager of the component's project; null when the host has none.
    virtual INatureMgr* GetNatureMgr() const = 0;
    // The extension that another editor attached to the component; null when none.
    virtual ICompExtension* GetExtension() const = 0;
};
