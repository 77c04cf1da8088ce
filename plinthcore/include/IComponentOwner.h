// IComponentOwner: the object that owns component definitions (a project or a library) and
// holds the settings that apply to all of them.
#pragma once

#include "IInterfaceQueriable.h"

class PLINTH_API IComponentOwner : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kIComponentOwnerId;

    // How a new terminal that is left unconnected is treated: 0 gives it a net of its own, any
    // other value reports it as an error.
    virtual int GetUnconnectedTerminalCheck() const = 0;
};
