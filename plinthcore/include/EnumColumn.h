// EnumColumn: the framework's registry of enumeration literals for result columns. A column
// whose values are codes of an enumeration shows each code as its literal; the mappings are
// registered per enumeration name and column (id::invalidID: for every column).
//   EnumColumn::RegisterEnumStringMappings(L"state", {{0, L"off"}, {1, L"on"}}, 7);
//   EnumColumn::GetEnumString(L"STATE", 1, 7, text) => true, text = "on"
#pragma once

#include "AString.h"
#include "Id.h"
#include "PlinthExport.h"

#include <map>

class PLINTH_API EnumColumn
{
public:
    using Mappings = std::map<int, AString>;

    EnumColumn() = delete;

    // Registers (or replaces) the literals of enumeration `name` for column `columnID`. False,
    // nothing registered, for an empty name.
    static bool RegisterEnumStringMappings(const AString& name, const Mappings& mappings,
                                           int columnID);
    // Forgets the literals of `name` for `columnID`; false when none were registered.
    static bool UnregisterEnumStringMappings(const AString& name, int columnID);
    // The literals of `name` (ignoring case) for `columnID`, else those registered for every
    // column (id::invalidID); null when neither exists.
    static const Mappings* GetEnumStringMappings(const AString& name, int columnID);
    // The literal of `code`, found as GetEnumStringMappings finds the mappings.
    static bool GetEnumString(const AString& name, int code, int columnID, AString& literal);
    // The code of `literal` (ignoring case; the smallest code when literals repeat).
    static bool GetEnumCode(const AString& name, const AString& literal, int columnID, int& code);
    // Forgets everything (for tests and for closing a project).
    static void UnregisterAll();
};
