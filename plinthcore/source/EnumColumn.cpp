#include "EnumColumn.h"

#include <utility>

namespace
{
using Key = std::pair<AString, int>;

struct KeyLess
{
    bool operator()(const Key& a, const Key& b) const
    {
        const int order = AString::CompareNoCase(a.first, b.first);
        return order != 0 ? order < 0 : a.second < b.second;
    }
};

std::map<Key, EnumColumn::Mappings, KeyLess>& Registry()
{
    static std::map<Key, EnumColumn::Mappings, KeyLess> registry;
    return registry;
}
} // namespace

bool EnumColumn::RegisterEnumStringMappings(const AString& name, const Mappings& mappings,
                                            int columnID)
{
    if (name.empty())
    {
        return false;
    }
    Registry()[Key(name, columnID)] = mappings;
    return true;
}

bool EnumColumn::UnregisterEnumStringMappings(const AString& name, int columnID)
{
    return Registry().erase(Key(name, columnID)) != 0;
}

const EnumColumn::Mappings* EnumColumn::GetEnumStringMappings(const AString& name, int columnID)
{
    const auto& registry = Registry();
    auto found = registry.find(Key(name, columnID));
    if (found == registry.end() && columnID != id::invalidID)
    {
        found = registry.find(Key(name, id::invalidID));
    }
    return found == registry.end() ? nullptr : &found->second;
}

bool EnumColumn::GetEnumString(const AString& name, int code, int columnID, AString& literal)
{
    const Mappings* mappings = GetEnumStringMappings(name, columnID);
    if (mappings == nullptr)
    {
        return false;
    }
    const auto found = mappings->find(code);
    if (found == mappings->end())
    {
        return false;
    }
    literal = found->second;
    return true;
}

bool EnumColumn::GetEnumCode(const AString& name, const AString& literal, int columnID, int& code)
{
    const Mappings* mappings = GetEnumStringMappings(name, columnID);
    if (mappings == nullptr)
    {
        return false;
    }
    for (const auto& [value, text] : *mappings)
    {
        if (text.CompareNoCase(literal) == 0)
        {
            code = value;
            return true;
        }
    }
    return false;
}

void EnumColumn::UnregisterAll()
{
    Registry().clear();
}
