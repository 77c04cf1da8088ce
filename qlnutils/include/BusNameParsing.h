// Net and bus names: expansion into member signals, counting, de-duplication, slicing and
// composing, the legality checks of wire, bus and instance names, and the ordering of net and
// port names.
//
// A net name is a comma-separated list of elements; an element is a simple wire name, or a
// base followed by "[" or "<", index text and the closing "]" or ">". Index text is decimal
// integers joined by "," (list) and ":" or "-" (inclusive range, direction kept):
//   "d[3:0]"          => d[3], d[2], d[1], d[0]
//   "a[1,3],b,c<0:1>" => a[1], a[3], b, c<0>, c<1>
// Names compare case-insensitively throughout. Output containers are appended to, never
// cleared; counting functions return the container's total size.
#pragma once

#include "AString.h"
#include "QuillonExport.h"

#include <set>
#include <vector>

// Largest number of members one name may stand for. An index text beyond it (such as
// "a[0:2147483647]") is invalid, and a name whose elements together go beyond it is refused
// like a structural error (result 0), instead of exhausting memory.
inline constexpr int kMaxBusMembers = 1 << 20;

// Expansion and counting --------------------------------------------------------------

// Appends the member signals of `name` in written order, each bus member in the bracket
// style last seen in the name (carried over between elements). Returns the size of
// `signals`, 1 for a simple wire name (appended whole), or 0 for an invalid name (members
// appended before the error stay).
//   "d<3-1>"  => d<3>, d<2>, d<1>
//   "a,,b"    => a (appended), result 0
QLN_API int GetAllSignals(const AString& name, std::vector<AString>& signals);
// As GetAllSignals, with every bus member written with square brackets.
//   "d<3-1>"  => d[3], d[2], d[1]
QLN_API int GetAllSignalsCanonical(const AString& name, std::vector<AString>& signals);
// The number of signals of `name`, duplicates counted; 1 for a simple wire name.
QLN_API int GetSignalCount(const AString& name);
// Inserts the distinct members of `name` (ascending within each element, each element in
// its own bracket style). Returns the size of the set, 1 for a simple wire name, or 0 for an
// invalid name.
//   "d[3:1],D[2],e<0>" => {d[1], d[2], d[3], e<0>}
QLN_API int GetUniqueSignals(const AString& name, std::set<AString, AString::NoCaseLess>& signals);
// The number of distinct signals of `name`; 1 for a simple wire name.
QLN_API int GetUniqueSignalCount(const AString& name);
// Appends baseName[i] for every i from one below the smallest index of `busName` (never
// below 0) to one above the largest, gaps filled. Returns the size of `signals`; 0 when
// refused (baseName not simple, busName not a bus, more than kMaxBusMembers to fill).
//   ("n", "d[3:5]") => n[2] ... n[6]
QLN_API int GetUniqueAdjacentBusSignals(const AString& baseName, const AString& busName,
                                        std::vector<AString>& signals);
// Whether every signal of `first` is a signal of `second` (an empty or invalid `first` never
// is). When `second` is a single signal the two texts must be equal ignoring case.
QLN_API bool IsFirstSubsetOfSecond(const AString& first, const AString& second);
// The 0-based position of `signal` among the members of `busName` (written order,
// duplicates kept), or -1.
//   ("d[7:0]", "D[5]") => 2
QLN_API int GetSignalIndex(const AString& busName, const AString& signal);

// Composing -------------------------------------------------------------------------

// The compact net name of a list of signals; consecutive members of one base merge. The
// first bus member decides the bracket style of the whole result.
//   [a[0], a[1], a[2], b, A[3]] => "a[0:2],b,A[3]"
//   [d<3>, d<2>, x[1]]          => "d<3:2>,x<1>"
QLN_API AString CreateNetName(const std::vector<AString>& signals);
// Adds the members of `slice` to the bus `bus`; a valid slice decides base and style.
//   ("a[0:3]", "a[5]") => "a[0:3,5]";  ("a[3:0]", "a[5]") => "a[5,3:0]"
QLN_API AString AddSliceToBusName(const AString& bus, const AString& slice);
// The bus `bus` without the members of `slice`, in case-insensitive text order.
//   ("a[0:3]", "a[1]") => "a[0,2:3]";  ("a[0:11]", "a[5]") => "a[0,10:11,1:4,6:9]"
QLN_API AString RemoveSliceFromBusName(const AString& bus, const AString& slice);
// When both are bus members of the same base (ignoring case): `first` receives the merged
// bus, `second` becomes empty, true. Otherwise both stay and the result is false.
//   ("b[0:1]", "B[4]") => true, first "B[0:1,4]", second ""
QLN_API bool MergeAnyBusNames(AString& first, AString& second);

// Predicates ------------------------------------------------------------------------

// Whether `name` fits "*[*]" or "*<*>" with a valid index list; then `base` receives the
// base and `indexPart` the bracketed rest. Otherwise the outputs are untouched.
//   "d[0:3]" => true, base "d", indexPart "[0:3]"
QLN_API bool IsBusMember(const AString& name, AString& base, AString& indexPart);
// As IsBusMember, allowing several bracket groups: "m[0:3][5]" => base "m", "[0:3][5]".
QLN_API bool IsMultiBusMember(const AString& name, AString& base, AString& indexPart);
// Whether `name` is one plain signal. Any "[", "<" or "," makes it a bus or list, except in
// the circuit-simulation environment (0), where brackets around something other than an
// index list are part of the name: "x[y]" is simple there.
QLN_API bool IsSimpleWireName(const AString& name);

// Checks ------------------------------------------------------------------------------

// 0 for a good wire (net) name; 15 when it holds a space, "&" or "*"; 16 for a bad bus
// part; 21 when the name or one of its elements is empty.
//   "a[0:3],b<1>" => 0;  "a b" => 15;  "a[x]" => 16;  "a,,b" => 21
QLN_API int IsGoodWireName(const AString& name);
// 0 for a good instance name; 308 when empty; 309 when it holds white space or one of
// - + * / @ ! ~ # $ % ^ & = ` " | < > . , ? ' ; : ; 310 when it begins with a digit.
//   "U1" => 0;  "U.1" => 309;  "1U" => 310
QLN_API int IsGoodInstanceName(const AString& name);
// Whether `name` holds none of . , : ; & * space < > [ ] - (the empty name is good).
QLN_API bool IsGoodSimpleWireName(const AString& name);
// The same test as IsGoodSimpleWireName, applied to the base of a bus name.
QLN_API bool IsGoodBusBaseName(const AString& name);

// Ordering ----------------------------------------------------------------------------

// Compares net names: when `a` is a bus, member by member after canonical expansion (square
// and angle brackets compare equal); otherwise as texts ignoring case. Different member
// counts give 1 whatever the order; exactly one empty name gives 1.
//   ("d[0:1]", "D<0>,d<1>") => 0;  ("d[0:1]", "d[0:2]") => 1;  ("d[0:2]", "d[0:1]") => 1
QLN_API int NetNameCompare(const AString& a, const AString& b);
// The ordering of port and pin names: NetNameCompare.
QLN_API int PortNameCompare(const AString& a, const AString& b);

// Orders sets and maps of connection names: NetNameCompare(a, b) < 0.
struct QLN_API ConnNoCaseLess
{
    bool operator()(const AString& a, const AString& b) const;
};

// Building blocks -------------------------------------------------------------------
// Shared by the functions above, exported for host modules that handle index texts.

// Whether `text` is index text: digits joined by ",", "-" or ":", ending with a digit.
//   "0:3,8" => true;  "1,,2" => false;  "3:" => false;  "" => false
QLN_API bool IsIndexList(std::wstring_view text);
// As IsIndexList, also allowing "][" and "><" between groups: "0:3][5" => true.
QLN_API bool IsMultiIndexList(std::wstring_view text);
// Appends the integers of index text in written order (ranges inclusive, direction kept);
// false, nothing appended, for invalid text. A second separator only joins more digits to
// the range end: "1:2:3" is the range 1 to 23.
QLN_API bool ParseIndexList(std::wstring_view text, std::vector<int>& list);
// Inserts the integers of index text into an ascending set.
QLN_API bool ParseIndexSet(std::wstring_view text, std::set<int>& set);
// Compact index text of a list: runs of consecutive integers become "s:e". Once a
// descending run has been seen, later ascending runs are cut into pieces of two.
//   [0, 1, 2, 3, 5] => "0:3,5";  [3, 2, 1, 5, 6, 7] => "3:1,5:6,7";  [] => ""
QLN_API AString FormatIndexList(const std::vector<int>& list);
// base + "[" or "<" + FormatIndexList(list) + "]" or ">".
QLN_API AString ComposeBusName(const AString& base, const std::vector<int>& list, bool square);
// Splits a bus name into base and index text; `square` tells whether it fits "*[*]" and is
// set in any case; base and index text are set only when the result is true.
QLN_API bool SplitBusName(const AString& name, AString& base, AString& indexText, bool& square);
// `a` becomes the union of `a` and `b` in the direction of `a` when `a` holds two or more
// integers; otherwise `b` is appended to `a` as it is.
QLN_API void MergeIndexLists(std::vector<int>& a, const std::vector<int>& b);
