// ICircuit: the circuit view of a design editor, reached by the numbered query kICircuitId. It
// is served by the editor object itself, so a run-time cast leads back to the editor.
#pragma once

#include "IInterfaceQueriable.h"

class IDesignEditor;

class PLINTH_API ICircuit : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kICircuitId;

    // The design editor this is the circuit view of.
    virtual IDesignEditor* GetDesignEditor() const = 0;
};
