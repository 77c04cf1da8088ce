#include "RefModelCompiler.h"

#include <algorithm>

namespace refhost
{
namespace
{
struct StandardType
{
    const wchar_t* type;
    const wchar_t* unitName;
    int unit;
};

// The physical types of the standard natures; the codes are the framework's unit types.
constexpr StandardType kStandardTypes[] = {
    {L"voltage", L"V", 68},
    {L"current", L"A", 666},
    {L"displacement", L"m", 37},
    {L"velocity", L"m/s", 138},
    {L"force", L"N", 200},
    {L"angle", L"rad", 52},
    {L"angular_velocity", L"rad/s", 148},
    {L"torque", L"N*m", 216},
    {L"pressure", L"Pa", 192},
    {L"volumetric_flow", L"m^3/s", 520},
    {L"temperature", L"K", 79},
    {L"luminous_intensity", L"cd", 448},
    {L"magnetomotive_force", L"At", 816},
};

// "0" and an empty text ask for any library.
bool IsAnyLibrary(const AString& libraryName)
{
    return libraryName.empty() || libraryName == L"0";
}
} // namespace

RefModelCompiler::RefModelCompiler()
{
    AddStandardTypes();
}

void* RefModelCompiler::QueryInterface(int id)
{
    return id == kInterfaceId ? static_cast<IModelCompiler*>(this) : nullptr;
}

bool RefModelCompiler::GetUnitOfType(const IComponent* /*component*/, const AString& libraryName,
                                     const AString& typeName, const AString& baseTypeName,
                                     const AString& physicalTypeName, AString& unitName, int& unit)
{
    for (const AString* name : {&physicalTypeName, &typeName, &baseTypeName})
    {
        if (name->empty())
        {
            continue;
        }
        if (const DeclaredType* found = Find(*name, libraryName))
        {
            unitName = found->mUnitName;
            unit = found->mUnit;
            return true;
        }
    }
    return false;
}

void RefModelCompiler::AddType(const AString& typeName, const AString& unitName, int unit,
                               const AString& libraryName)
{
    for (DeclaredType& declared : mTypes)
    {
        if (AString::EqualNoCase(declared.mType, typeName) &&
            AString::EqualNoCase(declared.mLibrary, libraryName))
        {
            declared.mUnitName = unitName;
            declared.mUnit = unit;
            return;
        }
    }
    mTypes.push_back({libraryName, typeName, unitName, unit});
}

void RefModelCompiler::AddStandardTypes()
{
    for (const StandardType& standard : kStandardTypes)
    {
        const AString type(standard.type);
        const bool declared = std::any_of(mTypes.begin(), mTypes.end(),
                                          [&type](const auto& known) {
                                              return known.mLibrary.empty() &&
                                                     AString::EqualNoCase(known.mType, type);
                                          });
        if (!declared)
        {
            AddType(type, AString(standard.unitName), standard.unit);
        }
    }
}

const RefModelCompiler::DeclaredType* RefModelCompiler::Find(const AString& typeName,
                                                             const AString& libraryName) const
{
    const bool anyLibrary = IsAnyLibrary(libraryName);
    const DeclaredType* general = nullptr;
    const DeclaredType* specific = nullptr;
    for (const DeclaredType& declared : mTypes)
    {
        if (!AString::EqualNoCase(declared.mType, typeName))
        {
            continue;
        }
        if (declared.mLibrary.empty())
        {
            general = general != nullptr ? general : &declared;
        }
        else if (specific == nullptr &&
                 (anyLibrary || AString::EqualNoCase(declared.mLibrary, libraryName)))
        {
            specific = &declared;
        }
    }
    if (anyLibrary)
    {
        return general != nullptr ? general : specific;
    }
    return specific != nullptr ? specific : general;
}
} // namespace refhost
