// RefButtonPropClient: a button client of the reference host (what a ButtonProp runs): it
// opens a dialog of a set kind, which here means counting the presses and running an optional
// action that stands for the user's edits in the dialog.
#pragma once

#include "IButtonPropClient.h"
#include "RefHostExport.h"

#include <functional>

namespace refhost
{
class REFHOST_API RefButtonPropClient final : public IButtonPropClient
{
public:
    using Action = std::function<bool(ButtonProp&)>;

    explicit RefButtonPropClient(int dialogKind) : mDialogKind(dialogKind) {}

    int GetDialogKind() const override { return mDialogKind; }
    void SetDialogKind(int kind) { mDialogKind = kind; }
    // Counts the press and runs the action (false without one).
    bool ButtonPressed(ButtonProp& prop) override;

    void SetAction(Action action) { mAction = std::move(action); }
    int GetPressCount() const { return mPressCount; }

private:
    int mDialogKind;
    int mPressCount = 0;
    Action mAction;
};
} // namespace refhost
