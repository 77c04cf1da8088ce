// INetworkDataExplorer: the application's explorer of thermal network data (nodes and links of
// thermal designs). Only its identity is needed so far: it is found through IAppBase, and the
// thermal-network modules that read data from it add its operations.
#pragma once

#include "IInterfaceQueriable.h"

class PLINTH_API INetworkDataExplorer : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kINetworkDataExplorerId;
};
