// ScriptArgInfo: the framework's list of script arguments, in the order they were first set.
// Conversions on reading: a bool from a bool or an int (non-zero is true); an int from an int,
// a bool, or a double that is a whole number in range; a double from a double or an int; a
// text from a text only.
//   args.SetInt(L"Count", 3);  args.GetDouble(L"count", d) => true, d = 3
//   args.SetDouble(L"x", 2.5); args.GetInt(L"x", n)        => false
#pragma once

#include "IScriptArgInfo.h"
#include "PlinthExport.h"

#include <cstddef>
#include <variant>
#include <vector>

class PLINTH_API ScriptArgInfo : public IScriptArgInfo
{
public:
    using ArgValue = std::variant<bool, int, double, AString>;

    bool HasArgument(std::wstring_view name) const override;
    bool GetBool(std::wstring_view name, bool& value) const override;
    bool GetInt(std::wstring_view name, int& value) const override;
    bool GetDouble(std::wstring_view name, double& value) const override;
    bool GetString(std::wstring_view name, AString& value) const override;
    void SetBool(std::wstring_view name, bool value) override;
    void SetInt(std::wstring_view name, int value) override;
    void SetDouble(std::wstring_view name, double value) override;
    void SetString(std::wstring_view name, const AString& value) override;

    // Removes the argument; false when there was none.
    bool Remove(std::wstring_view name);
    std::size_t GetCount() const { return mArguments.size(); }
    // The names in the order they were first set.
    std::vector<AString> GetNames() const;
    // The argument of that name, or null.
    const ArgValue* Find(std::wstring_view name) const;

private:
    void Set(std::wstring_view name, ArgValue value);

    std::vector<std::pair<AString, ArgValue>> mArguments;
};
