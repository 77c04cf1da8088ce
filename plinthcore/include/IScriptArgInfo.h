// IScriptArgInfo: the named arguments through which scripts read and set a property
// (Property::GetScriptArguments fills them, AssignFromScriptArguments takes them). Names
// compare ignoring case. A getter answers false, and leaves its output alone, when the
// argument is missing or of a kind that does not convert (see ScriptArgInfo).
#pragma once

#include "AString.h"
#include "PlinthExport.h"

#include <string_view>

class PLINTH_API IScriptArgInfo
{
public:
    virtual ~IScriptArgInfo() = default;

    virtual bool HasArgument(std::wstring_view name) const = 0;
    virtual bool GetBool(std::wstring_view name, bool& value) const = 0;
    virtual bool GetInt(std::wstring_view name, int& value) const = 0;
    virtual bool GetDouble(std::wstring_view name, double& value) const = 0;
    virtual bool GetString(std::wstring_view name, AString& value) const = 0;

    // Add the argument, or replace the one of that name.
    virtual void SetBool(std::wstring_view name, bool value) = 0;
    virtual void SetInt(std::wstring_view name, int value) = 0;
    virtual void SetDouble(std::wstring_view name, double value) = 0;
    virtual void SetString(std::wstring_view name, const AString& value) = 0;

protected:
    IScriptArgInfo() = default;
    IScriptArgInfo(const IScriptArgInfo&) = default;
    IScriptArgInfo& operator=(const IScriptArgInfo&) = default;
};
