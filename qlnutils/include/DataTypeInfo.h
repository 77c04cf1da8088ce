// merrowstruct::DataTypeInfo: the data type of a port, quantity or signal of a component: a
// scalar (real, time, integer-like, enumeration), an array of one element type, or a record of
// named members, possibly the record of a bus port. A plain value type; copies are deep.
// Its block form and the questions asked about it are in QLNParvaneUtils.h.
#pragma once

#include "AString.h"
#include "MerrowEnums.h"

#include <cstdint>
#include <map>
#include <utility>
#include <vector>

namespace merrowstruct
{

struct DataTypeInfo
{
    // The item's own name; for a member of a record, the member name.
    AString mName;
    // A merrowenum::DataTypeCode; below 0 the nature code of a physical quantity.
    std::int32_t mType = merrowenum::kREALType;
    // The type belongs to a bus port (a record whose members are the bus's bits).
    bool mIsBusPort = false;
    // Physical type names; the first one is the one consulted.
    std::vector<AString> mPhyTypes;
    // Packages that declare the type.
    std::vector<AString> mPkgNames;
    // The declared type's name, which the model compiler knows the unit of.
    AString mTypeName;
    // Enumeration literals by value, in ascending value.
    std::map<std::int32_t, AString> mEnumItems;
    // An array with no fixed index set.
    bool mIsUnconstrained = false;
    // An array's indices in order; for a bus-port record one index per member, in order.
    std::vector<std::uint32_t> mIndices;
    // A record's members in order; an array's single element type.
    std::vector<DataTypeInfo> mSubElements;

    friend bool operator==(const DataTypeInfo&, const DataTypeInfo&) = default;
};

// One leaf of a data type: its full name and its type.
using DataTypeLeaf = std::pair<AString, DataTypeInfo>;

} // namespace merrowstruct
