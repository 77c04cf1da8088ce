#include "ValueError.h"

#include "Message.h"
#include "MessageManager.h"

#include <utility>

ValueError::ValueError(Kind kind, std::size_t position, AString subject)
    : mKind(kind), mPosition(position), mSubject(std::move(subject))
{
}

AString ValueError::Describe() const
{
    const AString& s = mSubject;
    switch (mKind)
    {
    case kNone:
        return AString(L"no error");
    case kEmpty:
        return AString(L"the value is empty");
    case kUnexpectedCharacter:
        return AString::Formatted(L"unexpected character '%s'", s);
    case kUnexpectedEnd:
        return AString(L"the value ends too early");
    case kOperandExpected:
        return AString::Formatted(L"a number, name or '(' expected before '%s'", s);
    case kOperatorExpected:
        return AString::Formatted(L"an operator expected before '%s'", s);
    case kMissingCloseParen:
        return AString(L"')' expected");
    case kUnmatchedCloseParen:
        return AString(L"')' without '('");
    case kUnknownFunction:
        return AString::Formatted(L"unknown function '%s'", s);
    case kArgumentCount:
        return AString::Formatted(L"wrong number of arguments for '%s'", s);
    case kBadSuffix:
        return AString::Formatted(L"'%s' is not a scale or unit", s);
    case kNumberTooLarge:
        return AString::Formatted(L"the number '%s' is too large", s);
    case kUnterminatedString:
        return AString(L"the quoted text is not closed");
    case kMisplacedString:
        return AString(L"a quoted text must be the whole value");
    case kNestedTooDeep:
        return AString(L"the expression is nested too deeply");
    case kUnresolvedName:
        return AString::Formatted(L"'%s' is not a variable or constant", s);
    case kUnresolvedInstance:
        return AString::Formatted(L"the instance parameter '%s' cannot be resolved", s);
    case kDivisionByZero:
        return AString(L"division by zero");
    case kDomain:
        return AString::Formatted(L"'%s' is undefined for its argument", s);
    case kOverflow:
        return AString::Formatted(L"the result of '%s' is too large", s);
    case kCircularReference:
        return AString::Formatted(L"the value of '%s' depends on itself", s);
    case kTextNotNumber:
        return AString::Formatted(L"'%s' holds a text, not a number", s);
    case kReferencesTooDeep:
        return AString::Formatted(L"variables refer to variables too many levels deep at '%s'", s);
    case kUnitMismatch:
        return AString::Formatted(L"the unit does not fit a value of kind %s", s);
    }
    return AString(L"unknown error");
}

int ValueError::GetMessageNumber() const
{
    switch (mKind)
    {
    case kUnresolvedName:
        return kMsgUnresolvedName;
    case kUnresolvedInstance:
        return kMsgUnresolvedInstance;
    case kDivisionByZero:
        return kMsgDivisionByZero;
    case kDomain:
        return kMsgDomain;
    case kOverflow:
        return kMsgOverflow;
    case kCircularReference:
        return kMsgCircularReference;
    case kTextNotNumber:
        return kMsgTextNotNumber;
    case kReferencesTooDeep:
        return kMsgReferencesTooDeep;
    case kUnitMismatch:
        return kMsgUnitMismatch;
    default:
        return kMsgBadValueText;
    }
}

AString ValueError::GetMessageText(const AString& valueText) const
{
    if (IsSyntaxError())
    {
        return AString::Formatted(L"Bad value '%s': %s at character %u", valueText, Describe(),
                                  static_cast<unsigned>(mPosition + 1));
    }
    if (mKind == kUnitMismatch)
    {
        return AString::Formatted(L"Value '%s' refused: %s", valueText, Describe());
    }
    return AString::Formatted(L"Cannot evaluate '%s': %s", valueText, Describe());
}

void ValueError::Post(const AString& valueText) const noexcept
{
    try
    {
        MessageRecord record;
        record.mSeverity =
            mKind == kUnitMismatch ? MessageSeverity::kWarning : MessageSeverity::kError;
        Message message(GetMessageNumber(), record);
        message.SetFormat(L"%s");
        message.AddParam(GetMessageText(valueText));
        GetGlobalIMessageManager()->Post(message);
    }
    catch (...)
    {
        // Out of memory while reporting: the message is lost, the caller goes on.
    }
}
