// ICircuitDefinitionMgr: the circuit side of a definition manager. Reached from an
// IDefinitionMgr by interface query; links the circuit manager, the creation manager and the
// circuit libraries of a project.
#pragma once

#include "IInterfaceQueriable.h"

class ICircuitDefCreationMgr;
class ICircuitLibraryMgr;
class ICircuitMgr;
class IDefinitionMgr;

class PLINTH_API ICircuitDefinitionMgr : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kICircuitDefinitionMgrId;

    // The circuit manager of the project.
    virtual ICircuitMgr* GetCircuitMgr() const = 0;
    // The general definition manager this is the circuit side of.
    virtual IDefinitionMgr* GetDefinitionMgr() const = 0;
    // The manager that creates circuit definitions.
    virtual ICircuitDefCreationMgr* GetCircuitDefCreationMgr() const = 0;
    // The manager of the circuit libraries the definitions come from.
    virtual ICircuitLibraryMgr* GetCircuitLibraryMgr() const = 0;
};
