// IDefCreationMgr: creates component definitions for a definition manager.
#pragma once

#include "IInterfaceQueriable.h"

class IDefinitionMgr;

class PLINTH_API IDefCreationMgr : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kIDefCreationMgrId;

    // The definition manager whose definitions this manager creates.
    virtual IDefinitionMgr* GetDefinitionMgr() const = 0;
};
