// RefNatureMgr: the nature manager of a reference-host project. It starts with the standard
// natures of physical domains, whose identifiers are the nature codes that model data types
// carry (-1 to -10), and accepts more.
#pragma once

#include "INatureMgr.h"
#include "RefHostExport.h"

#include <cstddef>
#include <map>
#include <vector>

namespace refhost
{
class REFHOST_API RefNatureMgr final : public INatureMgr
{
public:
    // The standard natures, all in the library "IEEE":
    //   -1 Electrical(IEEE.electrical)         -6 Rotational(IEEE.rotational)
    //   -2 Magnetic(IEEE.magnetic)             -7 Rotational(IEEE.rotational_v)
    //   -3 Fluidic(IEEE.fluidic)               -8 Radiant(IEEE.radiant)
    //   -4 Translational(IEEE.translational)   -9 Thermal(IEEE.thermal)
    //   -5 Translational(IEEE.translational_v) -10 Hydraulic(IEEE.hydraulic)
    RefNatureMgr();

    // Answers INatureMgr.
    void* QueryInterface(int id) override;
    const NatureRecord* GetNature(int id) const override;
    bool ResolveNature(const AString& discipline, const AString& library, const AString& nature,
                       int& id) const override;

    // Adds a nature whose names are its full name followed by `otherNames`. Refused (false,
    // nothing added) when the identifier or the three parts (ignoring case) are taken, or when
    // a part is empty or holds "(", ")" or "." (its full name would not read back).
    bool AddNature(int id, const AString& discipline, const AString& library, const AString& nature,
                   const std::vector<AString>& otherNames = {});
    // Adds the standard natures that are missing.
    void AddStandardNatures();
    // Forgets every nature.
    void Clear() { mNatures.clear(); }
    std::size_t GetNatureCount() const { return mNatures.size(); }
    // Appends the identifiers, ascending.
    void GetNatureIds(std::vector<int>& ids) const;

    // The full name "discipline(library.nature)".
    //   ("Electrical", "IEEE", "electrical") => "Electrical(IEEE.electrical)"
    static AString FullName(const AString& discipline, const AString& library,
                            const AString& nature);

private:
    std::map<int, NatureRecord> mNatures;
};
} // namespace refhost
