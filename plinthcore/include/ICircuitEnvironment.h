// ICircuitEnvironment: the application's answer to "which product environment is running".
// Reached from the application object by interface query.
#pragma once

#include "CircuitEnvironment.h"
#include "IInterfaceQueriable.h"

class PLINTH_API ICircuitEnvironment : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kICircuitEnvironmentId;

    // The environment the application currently runs in.
    virtual CircuitEnvironment GetCircuitEnvironment() const = 0;
};
