// ICircuitMgr: the circuit side of a project's design manager: the circuit definitions and the
// natures that the project's circuit designs use. Reached from an IDesignMgr by interface query.
#pragma once

#include "IInterfaceQueriable.h"
#include "MessageManager.h"

class ICircuitDefinitionMgr;
class IDesignMgr;
class INatureMgr;

class PLINTH_API ICircuitMgr : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kICircuitMgrId;

    // The design manager this circuit manager serves.
    virtual IDesignMgr* GetDesignMgr() const = 0;
    // The manager of the project's circuit definitions.
    virtual ICircuitDefinitionMgr* GetCircuitDefinitionMgr() const = 0;
    // The nature manager of the project's designs; null when the host has none.
    virtual INatureMgr* GetNatureMgr() const = 0;
    // Posts a user-facing message about the project's circuit data (a reader that met an item of
    // the wrong kind, ...). By default it goes to the framework's message manager. False only
    // when it could not be stored.
    virtual bool PostUserMessage(const Message& message) const
    {
        return GetGlobalIMessageManager()->Post(message);
    }
};
