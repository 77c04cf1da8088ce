// Reading the block text format: UTF-8 text (a leading byte-order mark is skipped) holding
// exactly one block. Any input gives either the tree or an error with the line, the column
// and the reason in plain words; depth, text sizes and the input size are limited, so no
// input can exhaust the stack or memory. The full grammar is in docs/BlockFormat.md; in
// short:
//
//   file   = block                          one block, with blanks and comments around it
//   block  = name [":" name] "{" item* "}"  name, optional class word, items
//   item   = value | name "=" value | block
//   value  = text | integer | real | "true" | "false"
//   name   = identifier | text              identifier: [A-Za-z_][A-Za-z0-9_]*, not a keyword
//   text   = '"' (character | escape)* '"'  escapes: \" \\ \n \r \t \v \a \b \f \0 \u{hex}
//   integer= -?[0-9]+                       signed 64-bit
//   real   = -?[0-9]+(.[0-9]+)?([eE][+-]?[0-9]+)? with a "." or an exponent, or inf, -inf, nan
//   comment= "#" to the end of the line
//
//   Terminal { "IN" "1" "A" false }                  => block "Terminal", four values
//   P : GenericProp { Attrs { "In" } Count=3 }       => class word "GenericProp"
//   "0" { 0 }                                        => a block named "0"
//   Terminal { "IN }                                 => 1:12: the text has no closing quote
#pragma once

#include "AString.h"
#include "Block.h"
#include "PlinthExport.h"

#include <cstddef>
#include <string_view>

namespace io
{

// The largest input read by default.
inline constexpr std::size_t kMaxBlockInputBytes = std::size_t{1} << 30;

// Limits of one read; values above the limits of every tree (Block.h) act as those.
struct BlockReadLimits
{
    std::size_t maxDepth = kMaxBlockDepth;         // levels of blocks, the outermost included
    std::size_t maxTextBytes = kMaxBlockTextBytes; // one text value
    std::size_t maxInputBytes = kMaxBlockInputBytes;
};

// Where and why a read failed.
struct PLINTH_API BlockTextError
{
    std::size_t line = 0;   // 1-based; 0 when the problem is not at a place in the text
    std::size_t column = 0; // 1-based, in characters
    AString reason;

    // "file:line:column: reason", or "file: reason" without a place.
    AString Describe(std::wstring_view file) const;
};

// Reads `utf8` into `root`. On success `root` holds the block of the text in place of its
// old content, whose sub-blocks go with it (a root takes the name of the text's block too; a
// sub-block keeps its own name), and the result is true. On failure the result is false,
// `root` is unchanged and `error`, when given, says where and why.
PLINTH_API bool ReadBlockText(std::string_view utf8, CBlock_func& root,
                              BlockTextError* error = nullptr,
                              const BlockReadLimits& limits = BlockReadLimits());

} // namespace io
