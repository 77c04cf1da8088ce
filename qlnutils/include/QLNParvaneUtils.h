// Services of merrowstruct::DataTypeInfo: its block form in project files, the node kind a type
// maps to, and the questions the schematic and the netlister ask (is it an array, a bus, what
// are its leaves).
//
// Block form, written into the block given (usually one named "Info"):
//   "d" 5 "bit_vector"                   name, type code, declared type name
//   PhyTypes { "voltage" }               only when there are any; so PkgNames
//   EnumItems { "'0'" { 0 } "'1'" { 1 } }  literal blocks named by the literal, by value
//   SubElements { Info { ... } }         each member or the element type, recursively
//   Indices { 3 2 1 0 }
//   IsUnconstrained=false                always
//   IsBusPort=true                       only when set
// Reading also accepts what older files hold: codes 11 to 13 (read as 5), the key
// "InUnconstrained", and arrays stored with one sub-element per index named like "d[3]".
#pragma once

#include "Block.h"
#include "DataTypeInfo.h"
#include "QuillonExport.h"

#include <vector>

// The kind of simulation node a data type maps to.
enum ECHDataTypes : int
{
    kECHReal = 1, // real and time
    kECHInteger = 3,
    kECHEnum = 4,
    kECHChar = 5,
    kECHBoolean = 6,
    kECHBit = 7,
    kECHStdLogic = 8,
    kECHArray = 9,
    kECHRecord = 10,
    kECHString = 11
};

// Appends the block form of `dti` to `block`; codes 11 to 13 are written as 5, after the
// assertion "dti.mType == merrowenum::kARRAYType". Always returns true. A type nested deeper
// than the block tree allows (some 127 levels of members below `block`'s level) is cut at that
// depth, and the tree's error state says so (io::CBlock::HasError).
QLN_API bool WriteDataTypeInfo(io::CBlock_func& block, const merrowstruct::DataTypeInfo& dti);

// Reads the block form from `block` into `dti`, which should be a default record: lists are
// appended to and fields whose items are absent are left alone. A member or element that does
// not read is dropped. Codes 11 to 13 become 5; an older array form is converted, and when its
// element names do not fit (different bases, no index) the assertion "0" is raised and the
// type becomes a record of those elements. Returns false only for an array or record left
// with no sub-elements (assertion "!dti.mSubElements.empty()").
//   Info { "d" 5 "" SubElements { Info { "d[0]" 0 "" } Info { "d[1]" 0 "" } } }
//     => code 5, indices 0 1, one sub-element (named "d[0]")
//   Info { "v" 5 "" SubElements { Info { "v[-1]" 0 "" } } } => unconstrained, no indices
QLN_API bool ReadDataTypeInfo(io::CBlock_func& block, merrowstruct::DataTypeInfo& dti);

// The node kind of a type code: 0 and 14 real, 1 Boolean, 2 bit, 3 char, 4 integer, 5 and 11
// to 13 array, 7 string, 8 record, 9 enumeration, 10 std_logic. Any other code (6, the nature
// codes) asserts "unknown type - ??" and gives kECHReal.
QLN_API ECHDataTypes GetNodeDataType(const merrowstruct::DataTypeInfo& dti);

namespace parvaneutils
{

// True for the array-like codes 5, 7 (string), 11, 12 and 13.
QLN_API bool IsDataTypeInfoAnArray(const merrowstruct::DataTypeInfo& dti);

// True for a record (code 8) of a bus port.
QLN_API bool IsDataTypeInfoASchematicBus(const merrowstruct::DataTypeInfo& dti);

// Appends the leaves of `dti`, named under `name`, in walk order:
// - a record: each member as name.member; a member record is walked, any other member (an
//   array too) is one leaf;
// - a bus-port record: each member with no sub-elements as member[index], pairing members
//   with mIndices as far as both go, `name` not used; a member with sub-elements is skipped
//   with the assertion "Composite elements are not supported in bus-ports";
// - an array (5, 11 to 13): name[k] for each index k, walked when the element is an array or
//   a record (a default real element when there is none, after "!dti.mSubElements.empty()");
// - anything else, string (7) included: the one leaf (name, dti).
//   array x, indices 2 5, real elements      => x[2], x[5]
//   record r { a: real, b: record { c } }    => r.a, r.b.c
//   record r { a: array }                    => r.a
//   bus-port record { a, b }, indices 3 4    => a[3], b[4]
QLN_API void GetDataTypeInfoLeafNames(const merrowstruct::DataTypeInfo& dti, const AString& name,
                                      std::vector<merrowstruct::DataTypeLeaf>& leaves);

} // namespace parvaneutils
