// IAppBase: the application-wide services of the host that do not belong to one project.
// Reached from the application object by interface query.
#pragma once

#include "IInterfaceQueriable.h"

class INetworkDataExplorer;

class PLINTH_API IAppBase : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kIAppBaseId;

    // The explorer of thermal network data; null when the application has none.
    virtual INetworkDataExplorer* GetNetworkDataExplorer() const = 0;
};
