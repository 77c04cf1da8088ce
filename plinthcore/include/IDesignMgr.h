// IDesignMgr: the manager of the designs of one open project. The other managers of the project
// hang off it: the definition manager by accessor, the circuit manager by interface query.
#pragma once

#include "AString.h"
#include "IInterfaceQueriable.h"

class IDefinitionMgr;
class IProject;

class PLINTH_API IDesignMgr : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kIDesignMgrId;

    // The open project; null when none is open.
    virtual IProject* GetProject() const = 0;
    // Writes the open project's directory into `directory` (replacing its text) and returns
    // true; returns false and leaves `directory` alone when no project is open.
    virtual bool GetProjectDirectory(AString& directory) const = 0;
    // The manager of the project's component definitions.
    virtual IDefinitionMgr* GetDefinitionMgr() const = 0;
};
