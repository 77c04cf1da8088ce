// ICompInst: one placement (instance) of a component definition in a design.
#pragma once

#include "AString.h"
#include "IInterfaceQueriable.h"

class ICompInstExtension;
class IComponent;
class PropList;

class PLINTH_API ICompInst : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kICompInstId;

    // The instance's name as it stands now (instances can be renamed).
    virtual AString GetName() const = 0;
    // The component definition this is an instance of.
    virtual IComponent* GetComponent() const = 0;
    // The extension that another editor attached to the instance; null when none.
    virtual ICompInstExtension* GetExtension() const = 0;
    // The instance's three property lists, in this order: its own properties (among them the
    // "CompDlg" button of its dialog), its parameters, and the properties other editors keep.
    virtual PropList* GetPropList() const = 0;
    virtual PropList* GetParameterPropList() const = 0;
    virtual PropList* GetExtraPropList() const = 0;
};
