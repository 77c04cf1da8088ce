// IPropClientFactory: the host's provider of the objects that properties work with but do not
// own, found by number: the clients of button properties. A property that is read from a
// project file reconnects through it; the host's circuit manager offers one by interface query.
#pragma once

#include "InterfaceId.h"
#include "PlinthExport.h"

class IButtonPropClient;

class PLINTH_API IPropClientFactory
{
public:
    // The framework's identifier for the interface query (distinct from those of
    // InterfaceId.h).
    static constexpr int kInterfaceId = kIPropClientFactoryId;

    virtual ~IPropClientFactory() = default;

    // The button client with identifier `clientID`, or null when the host has none.
    virtual IButtonPropClient* GetButtonPropClient(int clientID) const = 0;

protected:
    IPropClientFactory() = default;
    IPropClientFactory(const IPropClientFactory&) = default;
    IPropClientFactory& operator=(const IPropClientFactory&) = default;
};
