#include "RefNatureMgr.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

using refhost::RefNatureMgr;

namespace
{
const AString kElectrical(L"Electrical");
const AString kIeee(L"IEEE");
} // namespace

TEST(RefNatureMgr, StartsWithTheStandardNatures)
{
    struct Case
    {
        int id;
        const wchar_t* fullName;
    };
    const Case cases[] = {
        {-1, L"Electrical(IEEE.electrical)"},
        {-2, L"Magnetic(IEEE.magnetic)"},
        {-3, L"Fluidic(IEEE.fluidic)"},
        {-4, L"Translational(IEEE.translational)"},
        {-5, L"Translational(IEEE.translational_v)"},
        {-6, L"Rotational(IEEE.rotational)"},
        {-7, L"Rotational(IEEE.rotational_v)"},
        {-8, L"Radiant(IEEE.radiant)"},
        {-9, L"Thermal(IEEE.thermal)"},
        {-10, L"Hydraulic(IEEE.hydraulic)"},
    };
    RefNatureMgr natures;
    EXPECT_EQ(natures.GetNatureCount(), std::size(cases));
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.id);
        const NatureRecord* record = natures.GetNature(c.id);
        ASSERT_NE(record, nullptr);
        EXPECT_EQ(record->mId, c.id);
        ASSERT_EQ(record->mNames.size(), 1u);
        EXPECT_EQ(record->mNames.front(), c.fullName);
        EXPECT_EQ(record->mLibrary, L"IEEE");
    }
    for (int unknown : {0, 1, -11, 1000})
    {
        SCOPED_TRACE(unknown);
        EXPECT_EQ(natures.GetNature(unknown), nullptr);
    }
}

TEST(RefNatureMgr, ResolvesThePartsIgnoringCase)
{
    struct Case
    {
        const wchar_t* discipline;
        const wchar_t* library;
        const wchar_t* nature;
        std::optional<int> expected;
    };
    const Case cases[] = {
        {L"Electrical", L"IEEE", L"electrical", -1},
        {L"ELECTRICAL", L"ieee", L"Electrical", -1},
        // One discipline, two natures: the nature part decides.
        {L"translational", L"IEEE", L"translational_v", -5},
        {L"Translational", L"IEEE", L"translational", -4},
        // Parts of different natures do not combine.
        {L"Rotational", L"IEEE", L"translational", std::nullopt},
        {L"Electrical", L"OTHER", L"electrical", std::nullopt},
        {L"Electrical", L"IEEE", L"elec", std::nullopt},
        {L"Electrical", L"IEEE", L"electrical ", std::nullopt},
        {L"", L"", L"", std::nullopt},
    };
    RefNatureMgr natures;
    for (const Case& c : cases)
    {
        SCOPED_TRACE(testing::Message()
                     << AString(c.discipline).ToUTF8() << "(" << AString(c.library).ToUTF8() << "."
                     << AString(c.nature).ToUTF8() << ")");
        int id = 4242;
        const bool found =
            natures.ResolveNature(AString(c.discipline), AString(c.library), AString(c.nature), id);
        EXPECT_EQ(found, c.expected.has_value());
        // A failed lookup leaves the identifier alone.
        EXPECT_EQ(id, c.expected.value_or(4242));
    }
}

TEST(RefNatureMgr, FullNamesReadBackThroughTheStoredPattern)
{
    // Project files store the first name and split it with "*(*.*)"; every nature the manager
    // accepts must come back to its own identifier that way.
    RefNatureMgr natures;
    ASSERT_TRUE(natures.AddNature(3, AString(L"Acoustic"), AString(L"work"), AString(L"sound"),
                                  {AString(L"sound")}));
    std::vector<int> ids;
    natures.GetNatureIds(ids);
    ASSERT_EQ(ids.size(), 11u);
    for (int id : ids)
    {
        SCOPED_TRACE(id);
        const NatureRecord* record = natures.GetNature(id);
        ASSERT_NE(record, nullptr);
        std::vector<AString> parts;
        ASSERT_TRUE(record->mNames.front().Match(L"*(*.*)", parts, true));
        ASSERT_EQ(parts.size(), 3u);
        int resolved = 0;
        ASSERT_TRUE(natures.ResolveNature(parts[0], parts[1], parts[2], resolved));
        EXPECT_EQ(resolved, id);
    }
}

TEST(RefNatureMgr, AddedNaturesCarryTheirOtherNames)
{
    RefNatureMgr natures;
    ASSERT_TRUE(natures.AddNature(12, AString(L"Chemical"), AString(L"LAB"), AString(L"mol"),
                                  {AString(L"molar"), AString(L"chem")}));
    const NatureRecord* record = natures.GetNature(12);
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->mNames, (std::vector<AString>{AString(L"Chemical(LAB.mol)"),
                                                    AString(L"molar"), AString(L"chem")}));
    EXPECT_EQ(record->mDiscipline, L"Chemical");
    EXPECT_EQ(record->mNature, L"mol");
    EXPECT_EQ(RefNatureMgr::FullName(AString(L"a"), AString(L"b"), AString(L"c")), L"a(b.c)");
}

TEST(RefNatureMgr, RefusesNaturesThatWouldClashOrNotReadBack)
{
    struct Case
    {
        const char* name;
        int id;
        const wchar_t* discipline;
        const wchar_t* library;
        const wchar_t* nature;
    };
    const Case cases[] = {
        {"identifier taken", -1, L"New", L"LIB", L"new"},
        {"parts taken, other case", 50, L"electrical", L"ieee", L"ELECTRICAL"},
        {"empty discipline", 51, L"", L"LIB", L"n"},
        {"empty library", 52, L"D", L"", L"n"},
        {"empty nature", 53, L"D", L"LIB", L""},
        {"parenthesis in discipline", 54, L"D(x", L"LIB", L"n"},
        {"dot in library", 55, L"D", L"L.IB", L"n"},
        {"closing parenthesis in nature", 56, L"D", L"LIB", L"n)"},
        {"dot in nature", 57, L"D", L"LIB", L"a.b"},
    };
    RefNatureMgr natures;
    const std::size_t count = natures.GetNatureCount();
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.name);
        EXPECT_FALSE(
            natures.AddNature(c.id, AString(c.discipline), AString(c.library), AString(c.nature)));
        EXPECT_EQ(natures.GetNatureCount(), count);
    }
    // The refused nature under a taken identifier did not replace the one there.
    EXPECT_EQ(natures.GetNature(-1)->mDiscipline, kElectrical);
}

TEST(RefNatureMgr, ClearAndStandardNaturesKeepCustomOnes)
{
    RefNatureMgr natures;
    natures.Clear();
    EXPECT_EQ(natures.GetNatureCount(), 0u);
    EXPECT_EQ(natures.GetNature(-1), nullptr);
    int id = 0;
    EXPECT_FALSE(natures.ResolveNature(kElectrical, kIeee, AString(L"electrical"), id));

    // A custom nature under a standard identifier stays; the standard one is then left out.
    ASSERT_TRUE(natures.AddNature(-1, AString(L"Custom"), AString(L"MINE"), AString(L"c")));
    natures.AddStandardNatures();
    EXPECT_EQ(natures.GetNatureCount(), 10u);
    EXPECT_EQ(natures.GetNature(-1)->mDiscipline, L"Custom");
    EXPECT_FALSE(natures.ResolveNature(kElectrical, kIeee, AString(L"electrical"), id));
    natures.AddStandardNatures();
    EXPECT_EQ(natures.GetNatureCount(), 10u);

    std::vector<int> ids{99};
    natures.GetNatureIds(ids);
    ASSERT_EQ(ids.size(), 11u);
    EXPECT_EQ(ids.front(), 99);
    EXPECT_EQ(ids[1], -10);
    EXPECT_EQ(ids.back(), -1);
}
