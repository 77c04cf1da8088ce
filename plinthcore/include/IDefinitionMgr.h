// IDefinitionMgr: the manager of a project's component definitions, whatever the design kind.
// Its circuit side (ICircuitDefinitionMgr) is reached by interface query.
#pragma once

#include "IInterfaceQueriable.h"

class IDefCreationMgr;
class IDesignMgr;

class PLINTH_API IDefinitionMgr : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kIDefinitionMgrId;

    // The design manager this definition manager belongs to.
    virtual IDesignMgr* GetDesignMgr() const = 0;
    // The manager that creates new definitions.
    virtual IDefCreationMgr* GetDefCreationMgr() const = 0;
};
