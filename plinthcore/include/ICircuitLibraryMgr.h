// ICircuitLibraryMgr: the circuit component libraries (system, user, personal and project
// libraries) that a project's circuit definitions come from.
#pragma once

#include "IInterfaceQueriable.h"

class ICircuitDefinitionMgr;

class PLINTH_API ICircuitLibraryMgr : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kICircuitLibraryMgrId;

    // The circuit definition manager these libraries serve.
    virtual ICircuitDefinitionMgr* GetCircuitDefinitionMgr() const = 0;
};
