// IDesign: one design of a project (a schematic with its hierarchy). It belongs to one product
// environment, is edited through its design editor and is placed as design instances.
#pragma once

#include "AString.h"
#include "CircuitEnvironment.h"
#include "IInterfaceQueriable.h"

#include <vector>

class IDesignEditor;
class IDesignInstance;

class PLINTH_API IDesign : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kIDesignId;

    // The design's name.
    virtual AString GetName() const = 0;
    // The product environment the design belongs to.
    virtual CircuitEnvironment GetCircuitEnvironment() const = 0;
    // The editor of the design.
    virtual IDesignEditor* GetDesignEditor() const = 0;
    // Appends the design's instances to `instances`, in the design's order.
    virtual void GetInstances(std::vector<IDesignInstance*>& instances) const = 0;
};
