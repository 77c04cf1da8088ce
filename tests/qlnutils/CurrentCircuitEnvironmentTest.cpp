#include "CurrentCircuitEnvironment.h"

#include "Assert.h"
#include "IMerrowApplication.h"
#include "RefApplication.h"
#include "RefDesign.h"
#include "RefManagers.h"
#include "RefProject.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using namespace refhost;

namespace
{
class CurrentCircuitEnvironmentTest : public ::testing::Test
{
protected:
    RefApplication mApplication;
    RefProject& mProject = mApplication.AddProject(AString(L"P"), AString(L"D:\\Work\\P\\"));
    RefDesign& mParvane = mProject.AddDesign(AString(L"sys"), kEnvParvane);
    RefDesign& mCalder = mProject.AddDesign(AString(L"thermal"), kEnvCalder);
};

bool ReadCurrent(CircuitEnvironment& env)
{
    return CurrentCircuitEnvironment::GetCurrentCircuitEnvironment(env);
}
} // namespace

TEST_F(CurrentCircuitEnvironmentTest, GuardSetsTheDesignsEnvironmentForItsLifetime)
{
    const CircuitEnvironment environments[] = {kEnvBrennaCircuit, kEnvParvane,   kEnvHalvardCircuit,
                                               kEnvOrrin,         kEnvReserved4, kEnvCalder};
    for (const CircuitEnvironment environment : environments)
    {
        SCOPED_TRACE(static_cast<int>(environment));
        mParvane.SetCircuitEnvironment(environment);
        CircuitEnvironment env = kEnvNone;
        {
            AssertCapture capture;
            CurrentCircuitEnvironment guard(mParvane);
            ASSERT_TRUE(ReadCurrent(env));
            EXPECT_EQ(env, environment);
            EXPECT_TRUE(CurrentCircuitEnvironment::mIsSet);
            EXPECT_EQ(capture.Count(), 0u);
        }
        env = kEnvOrrin;
        EXPECT_FALSE(ReadCurrent(env));
        EXPECT_EQ(env, kEnvOrrin) << "left untouched without a guard";
        EXPECT_FALSE(CurrentCircuitEnvironment::mIsSet);
        EXPECT_EQ(CurrentCircuitEnvironment::mCurrentEnvironment, kEnvNone);
    }
}

TEST_F(CurrentCircuitEnvironmentTest, NestedGuardAssertsTakesOverAndEndsWithTheFirst)
{
    AssertCapture capture;
    CircuitEnvironment env = kEnvNone;
    auto outer = std::make_unique<CurrentCircuitEnvironment>(mParvane);
    {
        CurrentCircuitEnvironment inner(mCalder);
        EXPECT_EQ(capture.Texts(), std::vector<std::string>{"mIsSet == false"});
        ASSERT_TRUE(ReadCurrent(env));
        EXPECT_EQ(env, kEnvCalder);

        // Single level: the first guard's end clears the state while the second lives.
        outer.reset();
        EXPECT_FALSE(ReadCurrent(env));
        EXPECT_EQ(CurrentCircuitEnvironment::mCurrentEnvironment, kEnvNone);
    }
    EXPECT_FALSE(CurrentCircuitEnvironment::mIsSet);
    EXPECT_EQ(capture.Count(), 1u) << "only the construction asserts";
}

TEST_F(CurrentCircuitEnvironmentTest, AssignmentChangesNothing)
{
    AssertCapture capture;
    CurrentCircuitEnvironment guard(mParvane);
    CurrentCircuitEnvironment other(mCalder);
    CurrentCircuitEnvironment& same = (guard = other);
    EXPECT_EQ(&same, &guard);
    CircuitEnvironment env = kEnvNone;
    ASSERT_TRUE(ReadCurrent(env));
    EXPECT_EQ(env, kEnvCalder) << "the environment stays the one set last";

    {
        CurrentCircuitEnvironment third(mParvane);
    } // its end clears the shared state while the other two live
    other = guard;
    env = kEnvBrennaCircuit;
    EXPECT_FALSE(ReadCurrent(env)) << "assignment does not set the state again";
    EXPECT_EQ(env, kEnvBrennaCircuit);
}

TEST(CircuitEnvironmentFromPath, ClassifiesSystemLibraryPaths)
{
    struct Case
    {
        LibraryLocation location;
        const wchar_t* path;
        CircuitEnvironment expected;
    };
    const Case cases[] = {
        {kSysLib, L"Parvane Elements/x.lib", kEnvParvane},
        {kSysLib, L"parvane elements/x", kEnvParvane},
        {kSysLib, L"Brenna Circuit Elements\\r.ckt", kEnvBrennaCircuit},
        {kSysLib, L"ORRIN ELEMENTS/a/b", kEnvOrrin},
        {kSysLib, L"Halvard Circuit Elements/h", kEnvHalvardCircuit},
        {kSysLib, L"Calder Elements\\sub\\file", kEnvCalder},
        {kSysLib, L"Orrin Elements/x", kEnvOrrin},    // the shortest path that can match
        {kSysLib, L"Orrin Elements,x", kEnvOrrin},    // a comma separates too
        {kSysLib, L"//Orrin Elements//x", kEnvOrrin}, // empty pieces are dropped
        {kSysLib, L"Parvane Elements", kEnvNone},     // a label alone holds no file
        {kSysLib, L"Parvane Elements/", kEnvNone},
        {kSysLib, L"Orrin Elem/x", kEnvNone}, // 12 characters
        {kSysLib, L"Other Elements/x", kEnvNone},
        {kSysLib, L"x/Parvane Elements/y", kEnvNone}, // only the first folder counts
        {kSysLib, L" Parvane Elements/x", kEnvNone},
        {kSysLib, L"", kEnvNone},
        {kUserLib, L"Parvane Elements/x.lib", kEnvNone},
        {kPersonalLib, L"Calder Elements/x.lib", kEnvNone},
        {kProjectDir, L"Calder Elements/x.lib", kEnvNone},
        {kNoLibLocation, L"Calder Elements/x.lib", kEnvNone},
        {static_cast<LibraryLocation>(7), L"Calder Elements/x.lib", kEnvNone},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(AString(c.path).ToUTF8() + " at " + std::to_string(c.location));
        EXPECT_EQ(qln::GetCircuitEnvironmentFromFilePath(c.location, AString(c.path)), c.expected);
    }
}

TEST_F(CurrentCircuitEnvironmentTest, LibraryDirectoriesComeBackSlashedWithoutTrailingSeparators)
{
    struct Case
    {
        const wchar_t* reported;
        const wchar_t* expected;
    };
    const Case cases[] = {
        {L"C:/Lib//", L"C:\\Lib"},
        {L"C:\\Lib", L"C:\\Lib"},
        {L"\\\\srv\\share\\/", L"\\\\srv\\share"},
        {L"D:\\a/b\\\\c", L"D:\\a\\b\\\\c"}, // inner runs stay
        {L"/", L""},
        {L"", L""},
    };
    RefDesignMgr* dmgr = &mProject.GetDesignMgr();
    for (const Case& c : cases)
    {
        SCOPED_TRACE(AString(c.reported).ToUTF8());
        mApplication.SetSysLibDirectory(AString(c.reported));
        mApplication.SetUserLibDirectory(AString(L"U:") + c.reported);
        mApplication.SetPersonalLibDirectory(AString(L"M:") + c.reported);
        EXPECT_EQ(GetLibraryDirectory(kSysLib, dmgr), c.expected);
        EXPECT_EQ(GetLibraryDirectory(kUserLib, nullptr), AString(L"U:") + c.expected);
        EXPECT_EQ(GetLibraryDirectory(kPersonalLib, dmgr), AString(L"M:") + c.expected);
    }
}

TEST_F(CurrentCircuitEnvironmentTest, ProjectDirectoryNeedsADesignManagerWithAnOpenProject)
{
    AssertCapture capture;
    RefDesignMgr& dmgr = mProject.GetDesignMgr();
    EXPECT_EQ(GetLibraryDirectory(kProjectDir, &dmgr), L"D:\\Work\\P");
    EXPECT_EQ(GetLibraryDirectory(kProjectDir, nullptr), L"");
    dmgr.SetProjectOpen(false);
    EXPECT_EQ(GetLibraryDirectory(kProjectDir, &dmgr), L"");
    dmgr.SetProjectOpen(true);
    mApplication.SetSysLibDirectory(AString(L"C:\\Lib"));
    EXPECT_EQ(GetLibraryDirectory(kNoLibLocation, &dmgr), L"");
    EXPECT_EQ(GetLibraryDirectory(static_cast<LibraryLocation>(7), &dmgr), L"");
    EXPECT_EQ(GetLibraryDirectory(static_cast<LibraryLocation>(4), &dmgr), L"");
    EXPECT_EQ(capture.Count(), 0u);
}

TEST(LibraryDirectory, EmptyWithoutAnApplication)
{
    ASSERT_EQ(GetIMerrowApplication(), nullptr);
    EXPECT_EQ(GetLibraryDirectory(kSysLib, nullptr), L"");
    EXPECT_EQ(GetLibraryDirectory(kPersonalLib, nullptr), L"");
}

TEST(CompHelpSubDir, EachEnvironmentHasItsFolder)
{
    struct Case
    {
        int env;
        const wchar_t* expected;
    };
    const Case cases[] = {
        {kEnvBrennaCircuit, L"/Circuit"},
        {kEnvParvane, L"/Pellwick"},
        {kEnvHalvardCircuit, L"/Halvard"},
        {kEnvOrrin, L"/Orrin"},
        {kEnvReserved4, L"/Circuit"},
        {kEnvCalder, L"/Calder"},
        {kEnvNone, L"/Circuit"},
        {7, L"/Circuit"},
        {-1, L"/Circuit"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.env);
        EXPECT_EQ(merrowutility::GetCompHelpSubDir(static_cast<CircuitEnvironment>(c.env)),
                  c.expected);
    }
}
