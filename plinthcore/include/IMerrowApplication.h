// IMerrowApplication: the host's application object, one per process, and the registry through
// which the host installs it. It knows the three library roots; further services (the circuit
// environment, IAppBase) are reached from it by interface query.
#pragma once

#include "AString.h"
#include "IInterfaceQueriable.h"

class PLINTH_API IMerrowApplication : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kIMerrowApplicationId;

    // Each writes the directory into `directory`, replacing its text (empty when unknown).
    // The system library directory: the element libraries installed with the application.
    virtual void GetSysLibDirectory(AString& directory) const = 0;
    // The user library directory: libraries shared by the users of one installation.
    virtual void GetUserLibDirectory(AString& directory) const = 0;
    // The personal library directory: the libraries of the current user.
    virtual void GetPersonalLibDirectory(AString& directory) const = 0;
};

// The application object of the process; null while none is installed.
PLINTH_API IMerrowApplication* GetIMerrowApplication();
// Installs `application` (null uninstalls) and returns the one installed before. The caller
// keeps ownership and must reinstall the previous one before `application` goes away.
PLINTH_API IMerrowApplication* SetIMerrowApplication(IMerrowApplication* application);
