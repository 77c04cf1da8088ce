// IDesignEditorInstance: the editor-side counterpart of a design instance. Its circuit view
// (ICircuitInstance) is reached by the numbered query kICircuitInstanceId.
#pragma once

#include "IInterfaceQueriable.h"

class IDesignInstance;

class PLINTH_API IDesignEditorInstance : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kIDesignEditorInstanceId;

    // The design instance this is the counterpart of.
    virtual IDesignInstance* GetDesignInstance() const = 0;
};
