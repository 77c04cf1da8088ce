// RefModelCompiler: the reference host's model compiler: a table of declared types and their
// units. It starts with the physical types of the standard natures and accepts more.
#pragma once

#include "IModelCompiler.h"
#include "RefHostExport.h"

#include <cstddef>
#include <vector>

namespace refhost
{
class REFHOST_API RefModelCompiler final : public IModelCompiler
{
public:
    // The standard types, in every library, with their units:
    //   voltage V 68, current A 666, displacement m 37, velocity m/s 138, force N 200,
    //   angle rad 52, angular_velocity rad/s 148, torque N*m 216, pressure Pa 192,
    //   volumetric_flow m^3/s 520, temperature K 79, luminous_intensity cd 448,
    //   magnetomotive_force At 816
    RefModelCompiler();

    // Answers IModelCompiler.
    void* QueryInterface(int id) override;
    // Looks the names up in the table, ignoring case; `component` does not narrow the search.
    // A named library prefers its own declaration of a type to one made for every library; "0"
    // or an empty library name prefers the declaration for every library, else takes the first
    // made for a particular one.
    bool GetUnitOfType(const IComponent* component, const AString& libraryName,
                       const AString& typeName, const AString& baseTypeName,
                       const AString& physicalTypeName, AString& unitName,
                       Units::FullUnitType& unit) override;

    // Declares `typeName` in `libraryName` (empty: in every library) with its unit; replaces
    // an earlier declaration of the same type in the same library.
    void AddType(const AString& typeName, const AString& unitName, Units::FullUnitType unit,
                 const AString& libraryName = AString());
    // Adds the standard types that have no declaration for every library.
    void AddStandardTypes();
    void Clear() { mTypes.clear(); }
    std::size_t GetTypeCount() const { return mTypes.size(); }

private:
    struct DeclaredType
    {
        AString mLibrary;
        AString mType;
        AString mUnitName;
        Units::FullUnitType mUnit;
    };
    const DeclaredType* Find(const AString& typeName, const AString& libraryName) const;

    std::vector<DeclaredType> mTypes;
};
} // namespace refhost
