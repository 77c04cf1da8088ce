// IDynamicNportModel: the model of a component whose ports come from a data file (an n-port
// described by measured or simulated data) rather than from a fixed definition. Reached from
// the component by interface query.
#pragma once

#include "IInterfaceQueriable.h"

class IComponent;

class PLINTH_API IDynamicNportModel : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kIDynamicNportModelId;

    // The component this is the model of.
    virtual IComponent* GetComponent() const = 0;
    // The number of ports the data file describes.
    virtual int GetPortCount() const = 0;
};
