// Writing the block text format in its one canonical form, so that the same tree always
// gives the same bytes (items in their order, nothing in hash order) and reading the text
// gives the tree back exactly:
//
//   Component : CircuitDef {
//       "R1"
//       Terminal { "IN" "1" "A" false }
//       Info {
//           "r"
//           8
//           SubElements {
//               Info { "a" 0 IsUnconstrained=false }
//           }
//           IsUnconstrained=false
//       }
//       Empty {}
//       Scale=1.5
//   }
//
// Four spaces indent each level. A block without sub-blocks whose items, joined by single
// spaces, take at most 80 bytes stays on one line; any other block puts each item on a line
// of its own. Names are bare identifiers when they can be, else quoted. Texts escape quotes,
// back slashes and control characters (\n, \v, \u{1B}, ...) and keep every other character
// as UTF-8, apart from invisible line and direction marks, which are escaped so that a diff
// shows them. Reals are written in the shortest form that reads back to the same double,
// always with a "." or an exponent ("1.0", "1e+300", "-0.0", "inf", "nan"). The text ends
// with a line feed. The grammar is in BlockReader.h and docs/BlockFormat.md.
#pragma once

#include "Block.h"
#include "PlinthExport.h"

#include <string>

namespace io
{

// Appends the text of `block` (as the outermost block) to `out`.
PLINTH_API void AppendBlockText(std::string& out, const CBlock& block);

// The text of `block` as the outermost block.
PLINTH_API std::string WriteBlockText(const CBlock& block);

} // namespace io
