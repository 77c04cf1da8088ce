// merrowstruct::TerminalData: one terminal (port) of a simulation model as its compiler
// reports it: the terminal's name and its data type. The output node lookup walks these
// types, and a component's terminals are matched against them.
#pragma once

#include "AString.h"
#include "DataTypeInfo.h"

namespace merrowstruct
{

struct TerminalData
{
    // The terminal's name as the model declares it.
    AString mName;
    // Its type; for a conservative terminal the type code is the nature code (below 0).
    DataTypeInfo mDataTypeInfo;

    friend bool operator==(const TerminalData&, const TerminalData&) = default;
};

} // namespace merrowstruct
