// ICircuitInstance: the circuit view of a design editor instance, reached by the numbered query
// kICircuitInstanceId. It knows where the instance sits in the circuit hierarchy.
#pragma once

#include "AString.h"
#include "IInterfaceQueriable.h"

class PLINTH_API ICircuitInstance : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kICircuitInstanceId;

    // The instance's name in the circuit hierarchy.
    virtual AString GetName() const = 0;
    // The circuit instance this one is placed in; null for a top-level instance.
    virtual ICircuitInstance* GetParentInstance() const = 0;
};
