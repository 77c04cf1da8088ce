#include "RefNatureMgr.h"

namespace refhost
{
namespace
{
struct StandardNature
{
    int id;
    const wchar_t* discipline;
    const wchar_t* nature;
};

// The identifiers are the nature codes of model data types.
constexpr StandardNature kStandardNatures[] = {
    {-1, L"Electrical", L"electrical"},
    {-2, L"Magnetic", L"magnetic"},
    {-3, L"Fluidic", L"fluidic"},
    {-4, L"Translational", L"translational"},
    {-5, L"Translational", L"translational_v"},
    {-6, L"Rotational", L"rotational"},
    {-7, L"Rotational", L"rotational_v"},
    {-8, L"Radiant", L"radiant"},
    {-9, L"Thermal", L"thermal"},
    {-10, L"Hydraulic", L"hydraulic"},
};

constexpr const wchar_t* kStandardLibrary = L"IEEE";

// A part of a full name must not be empty nor hold the characters that delimit the parts.
bool IsGoodPart(const AString& part)
{
    return !part.empty() && part.find_first_of(L"(.)") == AString::npos;
}

bool SameParts(const NatureRecord& record, const AString& discipline, const AString& library,
               const AString& nature)
{
    return AString::EqualNoCase(record.mDiscipline, discipline) &&
           AString::EqualNoCase(record.mLibrary, library) &&
           AString::EqualNoCase(record.mNature, nature);
}
} // namespace

RefNatureMgr::RefNatureMgr()
{
    AddStandardNatures();
}

void* RefNatureMgr::QueryInterface(int id)
{
    return id == kInterfaceId ? static_cast<INatureMgr*>(this) : nullptr;
}

const NatureRecord* RefNatureMgr::GetNature(int id) const
{
    auto found = mNatures.find(id);
    return found != mNatures.end() ? &found->second : nullptr;
}

bool RefNatureMgr::ResolveNature(const AString& discipline, const AString& library,
                                 const AString& nature, int& id) const
{
    for (const auto& [natureId, record] : mNatures)
    {
        if (SameParts(record, discipline, library, nature))
        {
            id = natureId;
            return true;
        }
    }
    return false;
}

bool RefNatureMgr::AddNature(int id, const AString& discipline, const AString& library,
                             const AString& nature, const std::vector<AString>& otherNames)
{
    int known = 0;
    if (!IsGoodPart(discipline) || !IsGoodPart(library) || !IsGoodPart(nature) ||
        mNatures.count(id) != 0 || ResolveNature(discipline, library, nature, known))
    {
        return false;
    }
    NatureRecord record;
    record.mId = id;
    record.mDiscipline = discipline;
    record.mLibrary = library;
    record.mNature = nature;
    record.mNames.push_back(FullName(discipline, library, nature));
    record.mNames.insert(record.mNames.end(), otherNames.begin(), otherNames.end());
    mNatures.emplace(id, std::move(record));
    return true;
}

void RefNatureMgr::AddStandardNatures()
{
    for (const StandardNature& standard : kStandardNatures)
    {
        AddNature(standard.id, AString(standard.discipline), AString(kStandardLibrary),
                  AString(standard.nature));
    }
}

void RefNatureMgr::GetNatureIds(std::vector<int>& ids) const
{
    for (const auto& entry : mNatures)
    {
        ids.push_back(entry.first);
    }
}

AString RefNatureMgr::FullName(const AString& discipline, const AString& library,
                               const AString& nature)
{
    AString name = discipline;
    name += L'(';
    name += library;
    name += L'.';
    name += nature;
    name += L')';
    return name;
}
} // namespace refhost
