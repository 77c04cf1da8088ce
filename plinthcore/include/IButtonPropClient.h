// IButtonPropClient: what a button property (ButtonProp) does: the host's object behind the
// button, which opens a dialog of a given kind.
#pragma once

#include "PlinthExport.h"

class ButtonProp;

class PLINTH_API IButtonPropClient
{
public:
    virtual ~IButtonPropClient() = default;

    // The kind of dialog the button opens (the host's dialog numbers).
    virtual int GetDialogKind() const = 0;
    // Runs the button's action for `prop`; true when it changed something.
    virtual bool ButtonPressed(ButtonProp& prop) = 0;

protected:
    IButtonPropClient() = default;
    IButtonPropClient(const IButtonPropClient&) = default;
    IButtonPropClient& operator=(const IButtonPropClient&) = default;
};
