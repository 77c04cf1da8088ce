// ExpressionParser: reads an arithmetic expression of the value-text language into a tree of
// ExpressionNode, or says where and why the text is not one. No evaluation, no look-up.
//   operands   numbers with circuit-style scale suffixes and units ("10k", "4.7u", "1meg",
//              "100m" is milli, "1.5pF", "10kOhm"); names of variables ("R1", "$vdd" for a
//              project variable) and constants ("pi", "e"); instance parameters ("R1.R");
//              function calls ("max(a, 2)"); parenthesised expressions
//   operators  "^" (also "**"; right-associative, binds tighter than a sign: -2^2 is -4),
//              then "*" and "/", then "+" and "-", all left-associative; signs "-" and "+"
// Blanks may stand between tokens, not inside them ("10 k" is no number in an expression).
//   "2*(R1+10k)" => ok;  "2*(3" => kMissingCloseParen at 4;  "3x" => kBadSuffix at 1
#pragma once

#include "AString.h"
#include "ExpressionNode.h"
#include "PlinthExport.h"
#include "ValueError.h"

#include <cstddef>
#include <memory>
#include <string_view>

class PLINTH_API ExpressionParser
{
public:
    // How deeply parentheses, signs, powers and calls may nest.
    static constexpr std::size_t kMaxNesting = 128;

    ExpressionParser() = delete;

    // The tree of `text`; null, with `error` set, when the text is no expression. Instance
    // nodes are left unresolved (mReference null).
    static std::unique_ptr<ExpressionNode> Parse(std::wstring_view text, ValueError& error);
};
