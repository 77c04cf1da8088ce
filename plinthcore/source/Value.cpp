#include "Value.h"

#include "Expression.h"
#include "ExpressionParser.h"
#include "FloatValue.h"
#include "InstanceReference.h"
#include "Msg.h"
#include "StringValue.h"

#include <string_view>
#include <utility>

namespace
{
bool IsBlank(wchar_t c)
{
    return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n';
}

std::wstring_view TrimBlanks(std::wstring_view text, std::size_t& offset)
{
    offset = 0;
    while (!text.empty() && IsBlank(text.front()))
    {
        text.remove_prefix(1);
        ++offset;
    }
    while (!text.empty() && IsBlank(text.back()))
    {
        text.remove_suffix(1);
    }
    return text;
}

// A number with an optional suffix, as the whole text: it starts with a digit or a point
// after an optional sign, so that names such as "inf" stay names.
bool ReadWholeNumber(std::wstring_view text, double& value, Units::FullUnitType& unit)
{
    std::size_t first = 0;
    if (!text.empty() && (text[0] == L'+' || text[0] == L'-'))
    {
        first = 1;
    }
    if (first >= text.size() ||
        !((text[first] >= L'0' && text[first] <= L'9') || text[first] == L'.'))
    {
        return false;
    }
    return Units::TextToFloat(text, value, unit);
}

enum class TextKind
{
    kInvalid,
    kNumber,
    kString,
    kExpression
};

// Sorts `text` into its kind; for an expression also gives its tree.
TextKind Classify(const AString& text, ValueError& error, std::unique_ptr<ExpressionNode>* tree)
{
    std::size_t offset = 0;
    const std::wstring_view trimmed = TrimBlanks(text, offset);
    if (trimmed.empty())
    {
        error = ValueError(ValueError::kEmpty, 0);
        return TextKind::kInvalid;
    }
    if (trimmed.front() == L'"')
    {
        AString content;
        std::size_t length = 0;
        if (!StringValue::ReadQuoted(trimmed, content, length))
        {
            error = ValueError(ValueError::kUnterminatedString, offset);
            return TextKind::kInvalid;
        }
        if (length != trimmed.size())
        {
            error = ValueError(ValueError::kMisplacedString, offset);
            return TextKind::kInvalid;
        }
        return TextKind::kString;
    }
    double number = 0.0;
    Units::FullUnitType unit = Units::kNoUnit;
    if (ReadWholeNumber(trimmed, number, unit))
    {
        return TextKind::kNumber;
    }
    std::unique_ptr<ExpressionNode> root = ExpressionParser::Parse(text, error);
    if (root == nullptr)
    {
        return TextKind::kInvalid;
    }
    if (tree != nullptr)
    {
        *tree = std::move(root);
    }
    return TextKind::kExpression;
}
} // namespace

Value::Value(double number, Units::FullUnitType unit) : Value(new FloatValue(number, unit)) {}

Value::Value(const AString& text, Units::FullUnitType unit) : Value(CreateValueBase(text, unit)) {}

Value::Value(ValueBase* value) : mBase(value)
{
    if (mBase != nullptr)
    {
        mBase->AddRef(this);
    }
}

Value::Value(const Value& other) : IReceiver(other), mBase(other.mBase)
{
    if (mBase != nullptr)
    {
        mBase->AddRef(this);
    }
}

Value::Value(Value&& other) : Value(other)
{
    other.Clear();
}

Value& Value::operator=(const Value& other)
{
    if (this != &other)
    {
        if (other.mBase != nullptr)
        {
            other.mBase->AddRef(this); // first, in case both hold the same object
        }
        ValueBase* old = mBase;
        mBase = other.mBase;
        if (old != nullptr)
        {
            old->Release(this);
        }
    }
    return *this;
}

Value& Value::operator=(Value&& other)
{
    if (this != &other)
    {
        *this = static_cast<const Value&>(other);
        other.Clear();
    }
    return *this;
}

Value::~Value()
{
    Clear();
}

void Value::ReceiveMsg(Msg& msg)
{
    if (msg.MarkVisited(this))
    {
        msg.Forward(*this);
    }
}

void Value::GetMsgTargets(std::vector<IReceiver*>& targets) const
{
    if (mBase != nullptr)
    {
        targets.push_back(mBase);
    }
}

void Value::SetValueBase(ValueBase* value)
{
    if (value == mBase)
    {
        return;
    }
    ValueBase* old = mBase;
    mBase = value;
    if (mBase != nullptr)
    {
        mBase->AddRef(this);
    }
    if (old != nullptr)
    {
        old->Release(this);
    }
}

double Value::GetValue() const
{
    return mBase != nullptr ? mBase->GetValue() : 0.0;
}

AString Value::GetValueText() const
{
    return mBase != nullptr ? mBase->GetValueText() : AString();
}

Units::FullUnitType Value::GetUnits() const
{
    return mBase != nullptr ? mBase->GetUnits() : Units::kNoUnit;
}

val::ParameterType Value::GetParameterType() const
{
    return mBase != nullptr ? mBase->GetParameterType() : val::kParamUnknown;
}

bool Value::IsConstant() const
{
    return mBase == nullptr || mBase->IsConstant();
}

bool Value::CanTakePartInExperiment() const
{
    return mBase != nullptr && mBase->CanTakePartInExperiment();
}

bool Value::IsEqual(const Value& other) const
{
    if (mBase == nullptr || other.mBase == nullptr)
    {
        return mBase == other.mBase;
    }
    return mBase == other.mBase || mBase->IsEqual(*other.mBase);
}

bool Value::IsValidText(const AString& text)
{
    ValueError error;
    return CheckText(text, error);
}

bool Value::CheckText(const AString& text, ValueError& error)
{
    error = ValueError();
    try
    {
        return Classify(text, error, nullptr) != TextKind::kInvalid;
    }
    catch (...)
    {
        error = ValueError(ValueError::kNestedTooDeep, 0);
        return false;
    }
}

ValueBase* Value::CreateValueBase(const AString& text, Units::FullUnitType unit)
{
    ValueError error;
    ValueBase* value = CreateValueBase(text, unit, error);
    if (value == nullptr)
    {
        error.Post(text);
    }
    return value;
}

ValueBase* Value::CreateValueBase(const AString& text, Units::FullUnitType unit, ValueError& error)
{
    error = ValueError();
    try
    {
        std::unique_ptr<ExpressionNode> tree;
        switch (Classify(text, error, &tree))
        {
        case TextKind::kInvalid:
            return nullptr;
        case TextKind::kNumber:
            return new FloatValue(text, unit);
        case TextKind::kString:
            return StringValue::Parse(text);
        case TextKind::kExpression:
            break;
        }
        if (tree->GetKind() == ExpressionNode::Kind::kInstance)
        {
            if (ValueBase* reference = InstanceReference::Resolve(tree->mText, tree->mParameter))
            {
                return reference;
            }
        }
        return Expression::FromTree(std::move(tree), text, unit);
    }
    catch (...)
    {
        error = ValueError(ValueError::kNestedTooDeep, 0);
        return nullptr;
    }
}
