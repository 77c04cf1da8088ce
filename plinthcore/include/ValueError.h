// ValueError: what is wrong with a value text (a syntax error, found without evaluating) or
// with its evaluation (an unknown name, a division by zero, ...): the kind, the place in the
// text, the name or word concerned, the reason in words and the message that reports it.
//   "2*(3"  => kMissingCloseParen at 4: "')' expected"
//   "1/0"   => kDivisionByZero: "division by zero"
#pragma once

#include "AString.h"
#include "PlinthExport.h"

#include <cstddef>

class PLINTH_API ValueError
{
public:
    enum Kind : int
    {
        kNone = 0,
        // Syntax (Value::CheckText)
        kEmpty,               // nothing but blanks
        kUnexpectedCharacter, // a character that no value text holds
        kUnexpectedEnd,       // the text ends where an operand is needed
        kOperandExpected,     // an operator or ")" where an operand is needed
        kOperatorExpected,    // two operands in a row
        kMissingCloseParen,   // "(" without ")"
        kUnmatchedCloseParen, // ")" without "("
        kUnknownFunction,     // a call of a name that is no function
        kArgumentCount,       // a function called with the wrong number of arguments
        kBadSuffix,           // letters after a number that are no scale or unit
        kNumberTooLarge,      // a number beyond the range of a double
        kUnterminatedString,  // a double quote that is not closed
        kMisplacedString,     // a quoted text inside an expression
        kNestedTooDeep,       // more nesting than an expression may have
        // Evaluation
        kUnresolvedName,     // a name that is no variable in scope and no constant
        kUnresolvedInstance, // an instance parameter that the host cannot resolve
        kDivisionByZero,
        kDomain,            // a function outside its domain: sqrt(-1), log(0)
        kOverflow,          // a result beyond the range of a double
        kCircularReference, // a variable whose value depends on itself
        kTextNotNumber,     // a variable that holds a text, used as a number
        kReferencesTooDeep, // variables referring to variables, too many levels deep
        // Properties
        kUnitMismatch // a unit of another kind than the property's
    };

    // Message numbers: one for every syntax error, one per kind of evaluation error.
    static constexpr int kMsgBadValueText = 62001;
    static constexpr int kMsgUnresolvedName = 62002;
    static constexpr int kMsgUnresolvedInstance = 62003;
    static constexpr int kMsgDivisionByZero = 62004;
    static constexpr int kMsgDomain = 62005;
    static constexpr int kMsgOverflow = 62006;
    static constexpr int kMsgCircularReference = 62007;
    static constexpr int kMsgTextNotNumber = 62008;
    static constexpr int kMsgUnitMismatch = 62009;
    static constexpr int kMsgReferencesTooDeep = 62010;

    ValueError() = default;
    ValueError(Kind kind, std::size_t position, AString subject = AString());

    Kind GetKind() const { return mKind; }
    bool IsError() const { return mKind != kNone; }
    bool IsSyntaxError() const { return mKind >= kEmpty && mKind <= kNestedTooDeep; }
    // Index of the character where the problem lies (0-based; the text's length at its end).
    std::size_t GetPosition() const { return mPosition; }
    // The name, word or function concerned; may be empty.
    const AString& GetSubject() const { return mSubject; }

    // The reason in words: "')' expected", "unknown function 'foo'", "division by zero".
    AString Describe() const;
    // The message number of the kind.
    int GetMessageNumber() const;
    // The user-facing text about `valueText`:
    //   syntax:     Bad value '2*(3': ')' expected at character 5
    //   evaluation: Cannot evaluate '1/x': division by zero
    AString GetMessageText(const AString& valueText) const;
    // Posts that text to the global message manager (a warning for unit mismatches, an error
    // otherwise). Never throws.
    void Post(const AString& valueText) const noexcept;

private:
    Kind mKind = kNone;
    std::size_t mPosition = 0;
    AString mSubject;
};
