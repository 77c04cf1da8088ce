// The codes that data types, property attributes and terminals share: data type codes (the
// type code of a DataTypeInfo), pin directions, calculation sequences and terminal domains.
// Their words in project files are PropAttributes' tables.
#pragma once

namespace merrowenum
{

// The type code of a data type. Signal types are kMinSignalType to kMaxSignalType and
// kTIMEType; "real" types are kREALType and kTIMEType. The three vector codes are older array
// codes (and the array codes of terminal attributes): records read or written turn them into
// kARRAYType.
enum DataTypeCode : int
{
    kREALType = 0,
    kBOOLEANType = 1,
    kBITType = 2,
    kCHARType = 3,
    kINTEGERType = 4,
    kARRAYType = 5,
    kFILEType = 6,
    kSTRINGType = 7, // counts as an array, but is one leaf
    kRecordType = 8,
    kENUMType = 9,
    kSTDLOGICType = 10,
    kLOGICVECTORType = 11,
    kREALVECTORType = 12,
    kBITVECTORType = 13,
    kTIMEType = 14,

    kMinSignalType = kREALType,
    kMaxSignalType = kSTDLOGICType
};

// Pin directions. Only kDirectionIn to kDirectionInOut are directions a property can be set
// to; kDirectionDontCare has a word and can be read from a file.
enum Direction : int
{
    kDirectionIn = 0,
    kDirectionOut = 1,
    kDirectionInOut = 2,
    kDirectionDontCare = 3
};

// When a value is calculated, relative to the analog solver and the state graph.
enum CalculationSequence : int
{
    kBeforeAnalogSolver = 0,
    kBeforeStateGraph = 1,
    kAfterStateGraph = 2,
    kDontCareWhen = 3
};

// What a terminal or a property's pin connects to: a conservative (physical) node, or a
// signal, quantity or generic value.
enum TerminalDomain : int
{
    kConservative = 0,
    kSignal = 1,
    kQuantity = 2,
    kGeneric = 3
};

} // namespace merrowenum
