#include "StringValue.h"

#include "Units.h"

#include <utility>

namespace
{
std::wstring_view TrimBlanks(std::wstring_view text)
{
    const auto blank = [](wchar_t c)
    { return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n'; };
    while (!text.empty() && blank(text.front()))
    {
        text.remove_prefix(1);
    }
    while (!text.empty() && blank(text.back()))
    {
        text.remove_suffix(1);
    }
    return text;
}
} // namespace

StringValue::StringValue(AString text) : mText(std::move(text)) {}

StringValue::StringValue(const StringValue& other)
    : IReceiver(other), SharedValueBase(other), mText(other.mText)
{
}

StringValue& StringValue::operator=(const StringValue& other)
{
    SharedValueBase::operator=(other);
    mText = other.mText;
    return *this;
}

StringValue::~StringValue() = default;

StringValue* StringValue::Parse(const AString& text)
{
    const std::wstring_view trimmed = TrimBlanks(text);
    AString content;
    std::size_t length = 0;
    if (ReadQuoted(trimmed, content, length) && length == trimmed.size())
    {
        return new StringValue(std::move(content));
    }
    return new StringValue(text);
}

bool StringValue::ReadQuoted(std::wstring_view text, AString& content, std::size_t& length)
{
    if (text.empty() || text.front() != L'"')
    {
        return false;
    }
    AString inner;
    for (std::size_t i = 1; i < text.size(); ++i)
    {
        if (text[i] != L'"')
        {
            inner.push_back(text[i]);
        }
        else if (i + 1 < text.size() && text[i + 1] == L'"')
        {
            inner.push_back(L'"');
            ++i;
        }
        else
        {
            content = std::move(inner);
            length = i + 1;
            return true;
        }
    }
    return false;
}

AString StringValue::Quote(std::wstring_view text)
{
    AString quoted(L"\"");
    for (wchar_t c : text)
    {
        quoted.push_back(c);
        if (c == L'"')
        {
            quoted.push_back(L'"');
        }
    }
    quoted.push_back(L'"');
    return quoted;
}

bool StringValue::IsQuoted(std::wstring_view text)
{
    text = TrimBlanks(text);
    AString content;
    std::size_t length = 0;
    return ReadQuoted(text, content, length) && length == text.size();
}

double StringValue::GetValue() const
{
    double value = 0.0;
    Units::FullUnitType unit = Units::kNoUnit;
    return Units::TextToFloat(mText, value, unit) ? value : 0.0;
}

AString StringValue::GetValueText() const
{
    return Quote(mText);
}

ValueBase* StringValue::CloneValueBase() const
{
    return new StringValue(*this);
}

bool StringValue::IsEqual(const ValueBase& other) const
{
    const auto* text = dynamic_cast<const StringValue*>(&other);
    return text != nullptr && text->mText == mText;
}
