#include "ScriptArgInfo.h"

#include <cmath>
#include <limits>
#include <utility>

bool ScriptArgInfo::HasArgument(std::wstring_view name) const
{
    return Find(name) != nullptr;
}

const ScriptArgInfo::ArgValue* ScriptArgInfo::Find(std::wstring_view name) const
{
    for (const auto& [argName, value] : mArguments)
    {
        if (AString::EqualNoCase(argName, name))
        {
            return &value;
        }
    }
    return nullptr;
}

bool ScriptArgInfo::GetBool(std::wstring_view name, bool& value) const
{
    const ArgValue* found = Find(name);
    if (found == nullptr)
    {
        return false;
    }
    if (const bool* b = std::get_if<bool>(found))
    {
        value = *b;
        return true;
    }
    if (const int* n = std::get_if<int>(found))
    {
        value = *n != 0;
        return true;
    }
    return false;
}

bool ScriptArgInfo::GetInt(std::wstring_view name, int& value) const
{
    const ArgValue* found = Find(name);
    if (found == nullptr)
    {
        return false;
    }
    if (const int* n = std::get_if<int>(found))
    {
        value = *n;
        return true;
    }
    if (const bool* b = std::get_if<bool>(found))
    {
        value = *b ? 1 : 0;
        return true;
    }
    if (const double* d = std::get_if<double>(found))
    {
        if (std::trunc(*d) == *d && *d >= std::numeric_limits<int>::min() &&
            *d <= std::numeric_limits<int>::max())
        {
            value = static_cast<int>(*d);
            return true;
        }
    }
    return false;
}

bool ScriptArgInfo::GetDouble(std::wstring_view name, double& value) const
{
    const ArgValue* found = Find(name);
    if (found == nullptr)
    {
        return false;
    }
    if (const double* d = std::get_if<double>(found))
    {
        value = *d;
        return true;
    }
    if (const int* n = std::get_if<int>(found))
    {
        value = *n;
        return true;
    }
    return false;
}

bool ScriptArgInfo::GetString(std::wstring_view name, AString& value) const
{
    const ArgValue* found = Find(name);
    if (found == nullptr)
    {
        return false;
    }
    if (const AString* text = std::get_if<AString>(found))
    {
        value = *text;
        return true;
    }
    return false;
}

void ScriptArgInfo::SetBool(std::wstring_view name, bool value)
{
    Set(name, value);
}

void ScriptArgInfo::SetInt(std::wstring_view name, int value)
{
    Set(name, value);
}

void ScriptArgInfo::SetDouble(std::wstring_view name, double value)
{
    Set(name, value);
}

void ScriptArgInfo::SetString(std::wstring_view name, const AString& value)
{
    Set(name, value);
}

void ScriptArgInfo::Set(std::wstring_view name, ArgValue value)
{
    for (auto& [argName, argValue] : mArguments)
    {
        if (AString::EqualNoCase(argName, name))
        {
            argValue = std::move(value);
            return;
        }
    }
    mArguments.emplace_back(AString(name), std::move(value));
}

bool ScriptArgInfo::Remove(std::wstring_view name)
{
    for (auto it = mArguments.begin(); it != mArguments.end(); ++it)
    {
        if (AString::EqualNoCase(it->first, name))
        {
            mArguments.erase(it);
            return true;
        }
    }
    return false;
}

std::vector<AString> ScriptArgInfo::GetNames() const
{
    std::vector<AString> names;
    names.reserve(mArguments.size());
    for (const auto& [name, value] : mArguments)
    {
        names.push_back(name);
    }
    return names;
}
