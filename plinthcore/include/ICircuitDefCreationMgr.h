// ICircuitDefCreationMgr: creates circuit component definitions.
#pragma once

#include "IInterfaceQueriable.h"

class ICircuitDefinitionMgr;

class PLINTH_API ICircuitDefCreationMgr : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kICircuitDefCreationMgrId;

    // The circuit definition manager whose definitions this manager creates.
    virtual ICircuitDefinitionMgr* GetCircuitDefinitionMgr() const = 0;
};
