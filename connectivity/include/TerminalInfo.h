// TerminalInfo: what one terminal of a component is, as a plain value that callers fill or
// read without touching the terminal objects (TerminalManager::GetTerminalInformation and
// SetTerminalData).
#pragma once

#include "AString.h"
#include "TerminalAttributes.h"

struct TerminalInfo
{
    AString mPinName;    // schematic pin name
    AString mLayPinName; // layout (footprint) pin name
    AString mGate;
    AString mTerminalName;
    bool mShared = false;
    int mEquivNumber = 0;
    TerminalAttributes mAttrs;

    friend bool operator==(const TerminalInfo&, const TerminalInfo&) = default;
};
