#include "Variable.h"

#include "ValueBase.h"

#include <unicode/uchar.h>
#include <utility>

namespace
{
bool IsIdentifierStart(wchar_t c)
{
    return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || c == L'_' ||
           (c >= 0x80 && u_isalpha(static_cast<UChar32>(c)) != 0);
}

bool IsIdentifierPart(wchar_t c)
{
    return IsIdentifierStart(c) || (c >= L'0' && c <= L'9');
}
} // namespace

Variable::Variable(AString name) : mName(std::move(name)) {}

Variable::Variable(AString name, const Value& value) : mName(std::move(name)), mValue(value) {}

Variable::Variable(AString name, ValueBase* value) : mName(std::move(name)), mValue(value) {}

Variable::~Variable() = default;

bool Variable::ChangeName(const AString& name)
{
    if (!IsValidName(name))
    {
        return false;
    }
    mName = name;
    return true;
}

bool Variable::IsProjectVariable() const
{
    return !mName.empty() && mName.front() == kProjectPrefix;
}

bool Variable::IsValidName(std::wstring_view name)
{
    if (name.empty() || name == L"$")
    {
        return false;
    }
    for (std::size_t i = 0; i < name.size(); ++i)
    {
        const wchar_t c = name[i];
        if (c == L'"' || (c == L'$' && i != 0) || u_isUWhiteSpace(static_cast<UChar32>(c)) != 0 ||
            u_iscntrl(static_cast<UChar32>(c)) != 0)
        {
            return false;
        }
    }
    return true;
}

bool Variable::CreateNameWithPrefix(AString& name, wchar_t prefix)
{
    std::wstring_view rest = name;
    if (!rest.empty() && rest.front() == prefix)
    {
        rest.remove_prefix(1);
    }
    if (rest.empty() || !IsIdentifierStart(rest.front()))
    {
        return false;
    }
    for (wchar_t c : rest)
    {
        if (!IsIdentifierPart(c))
        {
            return false;
        }
    }
    AString result(1, prefix);
    result.append(rest);
    name = std::move(result);
    return true;
}

bool Variable::ChangeValue(const AString& text, Units::FullUnitType unit)
{
    ValueBase* value = Value::CreateValueBase(text, unit);
    if (value == nullptr)
    {
        return false;
    }
    mValue.SetValueBase(value);
    return true;
}
