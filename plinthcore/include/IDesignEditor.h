// IDesignEditor: the editor of one design. Its circuit view (ICircuit) is reached by the
// numbered query kICircuitId.
#pragma once

#include "IInterfaceQueriable.h"

class IDesign;

class PLINTH_API IDesignEditor : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kIDesignEditorId;

    // The design being edited.
    virtual IDesign* GetDesign() const = 0;
};
