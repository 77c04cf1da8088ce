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
    Units::FullUnitType unit;
};

// The physical types of the standard natures; the codes are the framework's unit types.
constexpr StandardType kStandardTypes[] = {
    {L"voltage", L"V", Units::kVolt},
    {L"current", L"A", Units::kAmpere},
    {L"displacement", L"m", Units::kMetre},
    {L"velocity", L"m/s", Units::kMetrePerSecond},
    {L"force", L"N", Units::kNewton},
    {L"angle", L"rad", Units::kRadian},
    {L"angular_velocity", L"rad/s", Units::kRadianPerSecond},
    {L"torque", L"N*m", Units::kNewtonMetre},
    {L"pressure", L"Pa", Units::kPascal},
    {L"volumetric_flow", L"m^3/s", Units::kCubicMetrePerSecond},
    {L"temperature", L"K", Units::kKelvin},
    {L"luminous_intensity", L"cd", Units::kCandela},
    {L"magnetomotive_force", L"At", Units::kAmpereTurn},
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
                                     const AString& physicalTypeName, AString& unitName,
                                     Units::FullUnitType& unit)
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

void RefModelCompiler::AddType(const AString& typeName, const AString& unitName,
                               Units::FullUnitType unit, const AString& libraryName)
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
