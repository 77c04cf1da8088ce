#include "RefModelCompiler.h"

#include <gtest/gtest.h>

using refhost::RefModelCompiler;

namespace
{
// A unit code outside the framework's named ones, as a host may declare.
Units::FullUnitType Unit(int code)
{
    return static_cast<Units::FullUnitType>(code);
}
} // namespace

namespace
{
struct Answer
{
    bool found;
    AString unitName;
    Units::FullUnitType unit;
};

// Asks the way the data-type code does: no component, library "0", the type name twice and
// the first physical type name.
Answer Ask(IModelCompiler& compiler, const wchar_t* type, const wchar_t* physical = L"",
           const wchar_t* library = L"0", const wchar_t* baseType = nullptr)
{
    Answer answer{false, AString(L"untouched"), Units::kNoUnit};
    answer.found = compiler.GetUnitOfType(nullptr, AString(library), AString(type),
                                          AString(baseType != nullptr ? baseType : type),
                                          AString(physical), answer.unitName, answer.unit);
    return answer;
}
} // namespace

TEST(RefModelCompiler, KnowsTheStandardPhysicalTypes)
{
    struct Case
    {
        const wchar_t* type;
        const wchar_t* unitName;
        int unit;
    };
    const Case cases[] = {
        {L"voltage", L"V", 68},
        {L"CURRENT", L"A", 666},
        {L"displacement", L"m", 37},
        {L"velocity", L"m/s", 138},
        {L"force", L"N", 200},
        {L"angle", L"rad", 52},
        {L"Angular_Velocity", L"rad/s", 148},
        {L"torque", L"N*m", 216},
        {L"pressure", L"Pa", 192},
        {L"volumetric_flow", L"m^3/s", 520},
        {L"temperature", L"K", 79},
        {L"luminous_intensity", L"cd", 448},
        {L"magnetomotive_force", L"At", 816},
    };
    RefModelCompiler compiler;
    EXPECT_EQ(compiler.GetTypeCount(), std::size(cases));
    for (const Case& c : cases)
    {
        SCOPED_TRACE(AString(c.type).ToUTF8());
        const Answer answer = Ask(compiler, c.type);
        EXPECT_TRUE(answer.found);
        EXPECT_EQ(answer.unitName, c.unitName);
        EXPECT_EQ(answer.unit, c.unit);
    }
}

TEST(RefModelCompiler, ConsultsPhysicalThenDeclaredThenBaseType)
{
    struct Case
    {
        const char* name;
        const wchar_t* type;
        const wchar_t* physical;
        const wchar_t* baseType;
        bool found;
        int unit;
    };
    const Case cases[] = {
        {"physical type wins", L"voltage", L"current", L"voltage", true, 666},
        {"unknown physical type falls back", L"voltage", L"nothing", L"voltage", true, 68},
        {"base type last", L"my_type", L"", L"force", true, 200},
        {"nothing known", L"my_type", L"", L"my_base", false, 90},
        {"all empty", L"", L"", L"", false, 90},
    };
    RefModelCompiler compiler;
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.name);
        const Answer answer = Ask(compiler, c.type, c.physical, L"0", c.baseType);
        EXPECT_EQ(answer.found, c.found);
        EXPECT_EQ(answer.unit, c.unit);
        if (!c.found)
        {
            // A failed query leaves both outputs as they were.
            EXPECT_EQ(answer.unitName, L"untouched");
        }
    }
}

TEST(RefModelCompiler, LibraryDeclarationsNarrowTheSearch)
{
    RefModelCompiler compiler;
    compiler.AddType(AString(L"voltage"), AString(L"kV"), Unit(1068), AString(L"POWER"));
    compiler.AddType(AString(L"flux"), AString(L"Wb"), Unit(500), AString(L"MAG"));
    struct Case
    {
        const char* name;
        const wchar_t* type;
        const wchar_t* library;
        bool found;
        int unit;
    };
    const Case cases[] = {
        {"own library first", L"voltage", L"power", true, 1068},
        {"any library prefers the general declaration", L"voltage", L"0", true, 68},
        {"empty library is any library", L"voltage", L"", true, 68},
        {"other library gets the general declaration", L"voltage", L"MAG", true, 68},
        {"only in one library, asked there", L"flux", L"mag", true, 500},
        {"only in one library, asked anywhere", L"flux", L"0", true, 500},
        {"only in one library, asked elsewhere", L"flux", L"POWER", false, 90},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.name);
        const Answer answer = Ask(compiler, c.type, L"", c.library);
        EXPECT_EQ(answer.found, c.found);
        EXPECT_EQ(answer.unit, c.unit);
    }
}

TEST(RefModelCompiler, RedeclaringReplacesAndStandardTypesAreNotDuplicated)
{
    RefModelCompiler compiler;
    const std::size_t standard = compiler.GetTypeCount();
    compiler.AddType(AString(L"VOLTAGE"), AString(L"mV"), Unit(1), AString());
    EXPECT_EQ(compiler.GetTypeCount(), standard);
    EXPECT_EQ(Ask(compiler, L"voltage").unitName, L"mV");

    compiler.AddStandardTypes();
    EXPECT_EQ(compiler.GetTypeCount(), standard);
    EXPECT_EQ(Ask(compiler, L"voltage").unit, 1);

    compiler.Clear();
    EXPECT_EQ(compiler.GetTypeCount(), 0u);
    EXPECT_FALSE(Ask(compiler, L"voltage").found);
    // A declaration in one library does not stand in for the general one.
    compiler.AddType(AString(L"current"), AString(L"mA"), Unit(2), AString(L"LIB"));
    compiler.AddStandardTypes();
    EXPECT_EQ(compiler.GetTypeCount(), standard + 1);
    EXPECT_EQ(Ask(compiler, L"current").unit, 666);
}
