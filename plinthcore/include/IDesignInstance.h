// IDesignInstance: one placement of a design in the project's hierarchy. Its editor-side
// counterpart (IDesignEditorInstance) carries the circuit view of the placement.
#pragma once

#include "AString.h"
#include "IInterfaceQueriable.h"

class IDesign;
class IDesignEditorInstance;

class PLINTH_API IDesignInstance : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kIDesignInstanceId;

    // The instance's name.
    virtual AString GetName() const = 0;
    // The design this is an instance of.
    virtual IDesign* GetDesign() const = 0;
    // The editor-side counterpart of the instance; null when the host keeps none.
    virtual IDesignEditorInstance* GetEditorInstance() const = 0;
};
