// merrowstruct::ModelConflict: one difference found between a component's terminals and the
// terminals of its simulation model (TerminalManager::MatchModelTerminalAttributes).
#pragma once

#include "AString.h"

namespace merrowstruct
{
struct ModelConflict
{
    // The property type code that stands for a terminal on either side.
    static constexpr int kTerminalType = 39499;
    // The severity of a conflict that the model update must not ignore.
    static constexpr int kError = 1;

    // What differs, in plain words.
    AString mText;
    int mSeverity = kError;
    // The type codes of the component's and the model's side.
    int mComponentType = kTerminalType;
    int mModelType = kTerminalType;
    // The component's pin concerned; empty when the conflict is about the whole list.
    AString mName;

    friend bool operator==(const ModelConflict&, const ModelConflict&) = default;
};
} // namespace merrowstruct
