#include "QLNFileUtility.h"

#include "Assert.h"
#include "FileUtilities.h"
#include "RefApplication.h"
#include "RefManagers.h"
#include "RefProject.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

using namespace refhost;

namespace
{
const std::string kNeedDesignMgr = "Need DesignMgr to get Project path";
const std::string kNoDesignMgr =
    "Converting path without setting IDesignMgr, won't convert $projectdir";

std::string Utf8(const AString& text)
{
    return text.ToUTF8();
}

// An application with the four roots set apart from one another.
class QLNFileUtilityTest : public ::testing::Test
{
protected:
    QLNFileUtilityTest()
    {
        mApplication.SetSysLibDirectory(AString(LR"(C:/Lib\)"));
        mApplication.SetUserLibDirectory(AString(LR"(C:\Shared\Lib)"));
        mApplication.SetPersonalLibDirectory(AString(LR"(\\home\me\lib\\)"));
    }

    RefApplication mApplication;
    RefProject& mProject = mApplication.AddProject(AString(L"P"), AString(LR"(D:\P)"));
    RefDesignMgr* mDmgr = &mProject.GetDesignMgr();
};
} // namespace

TEST(PathSeparator, OnlyBothSlashes)
{
    EXPECT_TRUE(IsPathSeparator(L'\\'));
    EXPECT_TRUE(IsPathSeparator(L'/'));
    for (const wchar_t c : {L':', L'|', L'\0', L' ', L'\u00A5', L'\u2215', L'\uFF0F'})
    {
        SCOPED_TRACE(static_cast<int>(c));
        EXPECT_FALSE(IsPathSeparator(c));
    }
}

TEST(ParseFilePathVariables, SplitsVariableAndRest)
{
    struct Case
    {
        const wchar_t* path;
        bool result;
        LibraryLocation loc;
        const wchar_t* rest;
    };
    const Case cases[] = {
        {LR"($syslib\a.lib)", true, kSysLib, L"a.lib"},
        {L"$USERLIB", true, kUserLib, L""},
        {LR"($PROJECTDIR//sub/f.ckt)", true, kProjectDir, L"sub/f.ckt"},
        {LR"($PersonalLib\/x\Y/)", true, kPersonalLib, LR"(x\Y/)"},
        {LR"($SYSLIB\)", true, kSysLib, L""},
        // A longer name is taken as the first variable it starts with, and then fails.
        {L"$USERLIBX", false, kUserLib, L""},
        {LR"($SYSLIBX\a)", false, kSysLib, L""},
        {L"$PROJECTDIRS/x", false, kProjectDir, L""},
        {L"$SYS", false, kNoLibLocation, L""},
        {L"$SYSLI", false, kNoLibLocation, L""},
        {L"$OTHER\\x", false, kNoLibLocation, L""},
        {LR"( $SYSLIB\x)", false, kNoLibLocation, L""},
        {LR"(C:\Lib\x.lib)", false, kNoLibLocation, L""},
        {L"", false, kNoLibLocation, L""},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Utf8(AString(c.path)));
        AString rest(L"stale");
        LibraryLocation loc = kPersonalLib;
        EXPECT_EQ(ParseFilePathVariables(AString(c.path), rest, loc), c.result);
        EXPECT_EQ(loc, c.loc);
        EXPECT_EQ(rest, c.rest);
    }
}

TEST(ParseFilePathVariables, RestMayBeThePathItself)
{
    AString text(LR"($USERLIB\\a\b)");
    LibraryLocation loc = kNoLibLocation;
    EXPECT_TRUE(ParseFilePathVariables(text, text, loc));
    EXPECT_EQ(text, LR"(a\b)");
}

TEST(CreateFilePathWithVariables, JoinsVariableAndRest)
{
    struct Case
    {
        const wchar_t* rest;
        int loc;
        const wchar_t* expected;
    };
    const Case cases[] = {
        {L"a/b.lib", kSysLib, LR"($SYSLIB\a/b.lib)"},
        {L"x", kUserLib, LR"($USERLIB\x)"},
        {L"x", kPersonalLib, LR"($PERSONALLIB\x)"},
        {L"", kProjectDir, L"$PROJECTDIR"},
        {LR"(\x)", kProjectDir, LR"($PROJECTDIR\\x)"},
        {L"x", kNoLibLocation, L"x"},
        {L"x", 4, L"x"},
        {L"", -2, L""},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.loc);
        EXPECT_EQ(CreateFilePathWithVariables(AString(c.rest), static_cast<LibraryLocation>(c.loc)),
                  c.expected);
    }
}

TEST_F(QLNFileUtilityTest, CreateFullFilePathJoinsRootAndRest)
{
    struct Case
    {
        const wchar_t* rest;
        int loc;
        const wchar_t* expected;
    };
    const Case cases[] = {
        {L"x.lib", kSysLib, LR"(C:\Lib\x.lib)"},
        {L"", kSysLib, LR"(C:\Lib)"},
        {L"a/b", kSysLib, LR"(C:\Lib\a/b)"}, // the rest is not touched
        {L"x", kUserLib, LR"(C:\Shared\Lib\x)"},
        {L"x", kPersonalLib, LR"(\\home\me\lib\x)"},
        {L"sub/f.ckt", kProjectDir, LR"(D:\P\sub/f.ckt)"},
        {L"x", kNoLibLocation, L"x"},
        {L"x", 4, L"x"},
    };
    AssertCapture capture;
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.loc);
        EXPECT_EQ(CreateFullFilePath(AString(c.rest), static_cast<LibraryLocation>(c.loc), mDmgr),
                  c.expected);
    }
    EXPECT_EQ(capture.Count(), 0u);
}

TEST_F(QLNFileUtilityTest, CreateFullFilePathWithoutRoot)
{
    AssertCapture capture;
    EXPECT_EQ(CreateFullFilePath(AString(L"x"), kProjectDir, nullptr), L"");
    EXPECT_EQ(capture.Texts(), std::vector<std::string>{kNeedDesignMgr});
    // The library roots do not need the design manager.
    EXPECT_EQ(CreateFullFilePath(AString(L"x"), kSysLib, nullptr), LR"(C:\Lib\x)");
    // An unknown root gives no path rather than one from the top of the drive.
    mApplication.SetSysLibDirectory(AString());
    EXPECT_EQ(CreateFullFilePath(AString(L"x"), kSysLib, mDmgr), L"");
    mDmgr->SetProjectOpen(false);
    EXPECT_EQ(CreateFullFilePath(AString(L"x"), kProjectDir, mDmgr), L"");
    EXPECT_EQ(capture.Count(), 1u);
}

TEST_F(QLNFileUtilityTest, ParseFilePathWithoutVariablesFindsTheRoot)
{
    mProject.SetDirectory(AString(LR"(C:\PROJ)"));
    struct Case
    {
        const wchar_t* path;
        bool result;
        LibraryLocation loc;
        const wchar_t* rest;
    };
    const Case cases[] = {
        {L"c:/lib/Parvane Elements/x.lib", true, kSysLib, L"Parvane Elements/x.lib"},
        {LR"(C:\LIB\\/x)", true, kSysLib, L"x"},
        {LR"(C:\Lib\)", true, kSysLib, L""},
        {LR"("C:\Lib\q x.lib")", true, kSysLib, L"q x.lib"}, // one pair of quotes goes
        {LR"(c:\shared\lib\a\B)", true, kUserLib, LR"(a\B)"},
        {L"//HOME/me/lib/p", true, kPersonalLib, L"p"},
        {LR"(C:\PROJ\sub\f.ckt)", true, kProjectDir, LR"(sub\f.ckt)"},
        {LR"(C:\proj)", true, kProjectDir, L""},
        // The project root matches a longer sibling folder; the library roots do not.
        {LR"(C:\PROJECTS\x)", true, kProjectDir, LR"(ECTS\x)"},
        {LR"(C:\LibExtra\x)", false, kNoLibLocation, L"keep"},
        {LR"(C:\Lib)", false, kNoLibLocation, L"keep"},
        {LR"(E:\Lib\x)", false, kNoLibLocation, L"keep"},
        {LR"(x\C:\Lib\y)", false, kNoLibLocation, L"keep"},
        // Stored paths are parsed as such.
        {L"$userlib/x", true, kUserLib, L"x"},
        {L"\"$PROJECTDIR\\a\"", true, kProjectDir, L"a"},
    };
    AssertCapture capture;
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Utf8(AString(c.path)));
        AString rest(L"keep");
        LibraryLocation loc = kPersonalLib;
        EXPECT_EQ(ParseFilePathWithoutVariables(AString(c.path), rest, loc, mDmgr), c.result);
        EXPECT_EQ(loc, c.loc);
        EXPECT_EQ(rest, c.rest);
    }
    EXPECT_EQ(capture.Count(), 0u);
}

TEST_F(QLNFileUtilityTest, ParseFilePathWithoutVariablesTriesRootsInOrder)
{
    // The user library inside the system library: the system library wins.
    mApplication.SetUserLibDirectory(AString(LR"(C:\Lib\User)"));
    AString rest;
    LibraryLocation loc = kNoLibLocation;
    ASSERT_TRUE(ParseFilePathWithoutVariables(AString(LR"(C:\Lib\User\x)"), rest, loc, mDmgr));
    EXPECT_EQ(loc, kSysLib);
    EXPECT_EQ(rest, LR"(User\x)");
}

TEST_F(QLNFileUtilityTest, ParseFilePathWithoutVariablesEdgeInputs)
{
    AssertCapture capture;
    AString rest(L"keep");
    LibraryLocation loc = kUserLib;
    // Empty: nothing is touched, nothing asserted.
    EXPECT_FALSE(ParseFilePathWithoutVariables(AString(), rest, loc, nullptr));
    EXPECT_EQ(rest, L"keep");
    EXPECT_EQ(loc, kUserLib);
    EXPECT_EQ(capture.Count(), 0u);

    // Without a design manager the library roots still match ...
    EXPECT_TRUE(ParseFilePathWithoutVariables(AString(LR"(C:\Lib\a)"), rest, loc, nullptr));
    EXPECT_EQ(loc, kSysLib);
    EXPECT_EQ(capture.Count(), 0u);
    // ... but a failure says why the project was not tried.
    EXPECT_FALSE(ParseFilePathWithoutVariables(AString(LR"(D:\P\a)"), rest, loc, nullptr));
    EXPECT_EQ(loc, kNoLibLocation);
    EXPECT_EQ(capture.Texts(), std::vector<std::string>{kNoDesignMgr});

    // Unknown roots match nothing, not every path.
    capture.Clear();
    mApplication.SetSysLibDirectory(AString());
    mApplication.SetPersonalLibDirectory(AString(L"/"));
    mDmgr->SetProjectOpen(false);
    EXPECT_FALSE(ParseFilePathWithoutVariables(AString(LR"(\\srv\x)"), rest, loc, mDmgr));
    EXPECT_FALSE(ParseFilePathWithoutVariables(AString(LR"(D:\P\x)"), rest, loc, mDmgr));
    EXPECT_EQ(capture.Count(), 0u);
}

TEST_F(QLNFileUtilityTest, ConvertsBetweenStoredAndFullPaths)
{
    struct Case
    {
        const wchar_t* stored;
        const wchar_t* full;
    };
    const Case cases[] = {
        {LR"($SYSLIB\Parvane Elements\x.lib)", LR"(C:\Lib\Parvane Elements\x.lib)"},
        {LR"($USERLIB\a/b)", LR"(C:\Shared\Lib\a/b)"},
        {LR"($PERSONALLIB\m)", LR"(\\home\me\lib\m)"},
        {LR"($PROJECTDIR\sub\f.ckt)", LR"(D:\P\sub\f.ckt)"},
        {L"$PROJECTDIR", LR"(D:\P)"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Utf8(AString(c.stored)));
        EXPECT_EQ(ConvertFilePathVariablesToFullPath(AString(c.stored), mDmgr), c.full);
        EXPECT_EQ(ConvertFullPathToPathVariables(AString(c.full), mDmgr), c.stored);
    }
}

TEST_F(QLNFileUtilityTest, ConversionsKeepWhatTheyCannotConvert)
{
    AssertCapture capture;
    struct Case
    {
        const wchar_t* path;
        const wchar_t* full;
        const wchar_t* stored;
    };
    const Case cases[] = {
        {L"c:/lib/Parvane Elements/x.lib", L"c:/lib/Parvane Elements/x.lib",
         LR"($SYSLIB\Parvane Elements/x.lib)"},
        {L"$syslib//x", LR"(C:\Lib\x)", LR"($SYSLIB\x)"},
        {LR"(C:\LibExtra\x)", LR"(C:\LibExtra\x)", LR"(C:\LibExtra\x)"},
        // The library root itself has no separator after it, so it stays full.
        {LR"(C:\Lib)", LR"(C:\Lib)", LR"(C:\Lib)"},
        {L"$SYSLIB", LR"(C:\Lib)", L"$SYSLIB"},
        {L"$USERLIBX", L"$USERLIBX", L"$USERLIBX"},
        {L"relative\\x", L"relative\\x", L"relative\\x"},
        {L"", L"", L""},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Utf8(AString(c.path)));
        EXPECT_EQ(ConvertFilePathVariablesToFullPath(AString(c.path), mDmgr), c.full);
        EXPECT_EQ(ConvertFullPathToPathVariables(AString(c.path), mDmgr), c.stored);
    }
    EXPECT_EQ(capture.Count(), 0u);

    // A root that cannot be resolved leaves the stored path as it is.
    EXPECT_EQ(ConvertFilePathVariablesToFullPath(AString(LR"($PROJECTDIR\x)"), nullptr),
              LR"($PROJECTDIR\x)");
    EXPECT_EQ(capture.Texts(), std::vector<std::string>{kNeedDesignMgr});
    mApplication.SetUserLibDirectory(AString());
    EXPECT_EQ(ConvertFilePathVariablesToFullPath(AString(LR"($USERLIB\x)"), mDmgr),
              LR"($USERLIB\x)");
}

TEST_F(QLNFileUtilityTest, ConvertPathToVariablesReplacesTheFirstRootAnywhere)
{
    struct Case
    {
        const wchar_t* path;
        const wchar_t* expected;
    };
    const Case cases[] = {
        {LR"(-model D:\P\m.lib)", LR"(-model $PROJECTDIR\m.lib)"},
        {L"-lib c:/lib/x.lib -model d:/p/m", L"-lib $SYSLIB/x.lib -model d:/p/m"},
        {L"-model d:/p/m -lib c:/lib/x.lib", L"-model d:/p/m -lib $SYSLIB/x.lib"},
        {LR"(C:\LibExtra\x)", LR"($SYSLIBExtra\x)"}, // no separator needed
        {LR"(\\HOME\ME\LIB)", L"$PERSONALLIB"},
        {LR"(x C:\Shared\Lib)", L"x $USERLIB"},
        {LR"(E:\other\x)", LR"(E:\other\x)"},
        {L"", L""},
    };
    AssertCapture capture;
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Utf8(AString(c.path)));
        EXPECT_EQ(merrowutility::ConvertPathToVariables(mDmgr, AString(c.path)), c.expected);
    }
    EXPECT_EQ(capture.Count(), 0u);
}

TEST_F(QLNFileUtilityTest, ConvertPathToVariablesWithoutDesignManager)
{
    AssertCapture capture;
    EXPECT_EQ(merrowutility::ConvertPathToVariables(nullptr, AString(LR"(-m D:\P\m)")),
              LR"(-m D:\P\m)");
    EXPECT_EQ(capture.Texts(), std::vector<std::string>{kNoDesignMgr});
    // It goes on: the library roots and the variable's own spelling are still found.
    EXPECT_EQ(merrowutility::ConvertPathToVariables(nullptr, AString(L"c:/lib/x")), L"$SYSLIB/x");
    EXPECT_EQ(merrowutility::ConvertPathToVariables(nullptr, AString(L"$projectdir/x")),
              L"$PROJECTDIR/x");
    EXPECT_EQ(capture.Count(), 3u);

    // Unknown roots are found nowhere.
    capture.Clear();
    mApplication.SetSysLibDirectory(AString());
    mDmgr->SetProjectOpen(false);
    EXPECT_EQ(merrowutility::ConvertPathToVariables(mDmgr, AString(L"abc")), L"abc");
    EXPECT_EQ(capture.Count(), 0u);
}

TEST(TidyFilePath, BackSlashesAndSingleSeparators)
{
    struct Case
    {
        const wchar_t* path;
        const wchar_t* expected;
    };
    const Case cases[] = {
        {LR"(a//b\\\\c/)", LR"(a\b\c)"},
        {LR"(\\\\srv\\x)", LR"(\\srv\x)"},
        {LR"(\x)", LR"(\\x)"},
        {L"//srv//share/", LR"(\\srv\share)"},
        {L"a/b", LR"(a\b)"},
        {LR"(a\\\)", LR"(a\\)"}, // a trailing run loses one character only
        {LR"(a\\\\)", LR"(a\\\)"},
        {L"/", L""},
        {L"//", LR"(\\)"},
        {L"abc", L"abc"},
        {L"", L""},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Utf8(AString(c.path)));
        EXPECT_EQ(TidyFilePath(AString(c.path)), c.expected);
    }
}

TEST(NormalizeFilePath, FoldsParentSteps)
{
    struct Case
    {
        const wchar_t* path;
        const wchar_t* expected;
    };
    const Case cases[] = {
        {L"a/b/../c", LR"(a\c)"},
        {LR"(..\c)", LR"(..\c)"},
        {LR"(a\b\..c)", L"ac"}, // three characters, not a whole folder name
        {LR"(a\.\b)", LR"(a\.\b)"},
        {L"a/b/c/../../d", LR"(a\d)"},
        {L"C:/x/y/..", LR"(C:\x)"},
        {LR"(\..)", LR"(\..)"},
        {LR"(x\..\..\y)", LR"(x\..\..\y)"}, // stops where the first step has no folder
        {LR"(a\b\c\..\..\..\d)", LR"(a\..\d)"},
        {L"", L""},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Utf8(AString(c.path)));
        EXPECT_EQ(NormalizeFilePath(AString(c.path)), c.expected);
    }
}

TEST(ConvertBackSlashesToForwardSlashes, OneSlashPerRun)
{
    struct Case
    {
        const wchar_t* path;
        const wchar_t* expected;
    };
    const Case cases[] = {
        {LR"(a\\\\b\)", L"a/b/"}, {LR"(\\srv\x)", L"/srv/x"}, {LR"(a/\/b)", L"a/b"},
        {LR"(\)", L"/"},          {L"abc", L"abc"},           {L"", L""},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Utf8(AString(c.path)));
        AString path(c.path);
        ConvertBackSlashesToForwardSlashes(path);
        EXPECT_EQ(path, c.expected);
    }
}

TEST(DirectoryAndBaseFileName, SplitsFolderAndName)
{
    struct Case
    {
        const wchar_t* path;
        const wchar_t* dir;
        const wchar_t* base;
    };
    const Case cases[] = {
        {L"C:/lib/x.b.lib", LR"(C:\lib\)", L"x.b"},   {L"x.lib", L"", L"x"},
        {LR"(C:\lib\)", LR"(C:\lib\)", L""},          {LR"(\x.lib)", LR"(\)", L"x"},
        {L"a//b/.profile", LR"(a\\b\)", L".profile"}, {L"", L"", L""},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Utf8(AString(c.path)));
        AString dir(L"stale");
        AString base(L"stale");
        merrowutility::GetDirectoryAndBaseFileNameFromPath(AString(c.path), dir, base);
        EXPECT_EQ(dir, c.dir);
        EXPECT_EQ(base, c.base);
    }
}

// The disk functions, on a temporary tree that is the project directory:
//   lib/.s2p  lib/a.s2p  lib/B.S2P  lib/c.txt  lib/noext  lib/x.s2px  lib/sub1/  lib/Sub2/
//   libExtra/
class QLNFileUtilityDiskTest : public QLNFileUtilityTest
{
protected:
    void SetUp() override
    {
        namespace fs = std::filesystem;
        mRoot = fs::temp_directory_path() /
                ("qln-paths-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) +
                 "-" + ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(mRoot);
        fs::create_directories(mRoot / "lib" / "sub1");
        fs::create_directories(mRoot / "lib" / "Sub2");
        fs::create_directories(mRoot / "libExtra");
        for (const char* name : {".s2p", "a.s2p", "B.S2P", "c.txt", "noext", "x.s2px"})
        {
            std::ofstream(mRoot / "lib" / name) << "x";
        }
        mProject.SetDirectory(Native(mRoot));
    }
    void TearDown() override { std::filesystem::remove_all(mRoot); }

    // The tree's path as this system writes it, with back slashes.
    static AString Native(const std::filesystem::path& path)
    {
        AString text = AString::FromUTF8(path.generic_string());
        CFileUtilities::SetToBackSlashes(text);
        return text;
    }

    std::filesystem::path mRoot;
};

TEST_F(QLNFileUtilityDiskTest, VerifyFileExistenceResolvesStoredPaths)
{
    struct Case
    {
        const wchar_t* path;
        bool exists;
        const wchar_t* fullTail;
    };
    const Case cases[] = {
        {LR"($PROJECTDIR\lib\a.s2p)", true, LR"(\lib\a.s2p)"},
        {L"$projectdir/lib\\c.txt", true, LR"(\lib\c.txt)"},
        {LR"($PROJECTDIR\lib\missing.s2p)", false, LR"(\lib\missing.s2p)"},
        {LR"($PROJECTDIR\lib)", true, LR"(\lib)"},
    };
    AssertCapture capture;
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Utf8(AString(c.path)));
        AString full(L"stale");
        EXPECT_EQ(merrowutility::VerifyFileExistence(mDmgr, AString(c.path), &full), c.exists);
        EXPECT_EQ(full, Native(mRoot) + c.fullTail);
        EXPECT_EQ(merrowutility::VerifyFileExistence(mDmgr, AString(c.path)), c.exists);
    }
    // A full path with forward slashes works as well.
    EXPECT_TRUE(merrowutility::VerifyFileExistence(
        mDmgr, AString::FromUTF8((mRoot / "lib" / "B.S2P").generic_string())));
    EXPECT_EQ(capture.Count(), 0u);

    AString full(L"untouched");
    EXPECT_FALSE(
        merrowutility::VerifyFileExistence(nullptr, AString(L"$PROJECTDIR\\lib\\a.s2p"), &full));
    EXPECT_EQ(full, L"untouched");
    EXPECT_EQ(capture.Texts(), std::vector<std::string>{"dmgr != 0"});
}

TEST_F(QLNFileUtilityDiskTest, VerifyDirectoryCreatesTheMissingFolders)
{
    AssertCapture capture;
    AString dirPart;
    AString fileName;
    EXPECT_TRUE(merrowutility::VerifyDirectoryInFilePathExistence(
        mDmgr, AString(LR"($PROJECTDIR\out/deep\r.csv)"), &dirPart, &fileName));
    EXPECT_TRUE(std::filesystem::is_directory(mRoot / "out" / "deep"));
    EXPECT_EQ(dirPart, LR"($PROJECTDIR\out/deep\)");
    EXPECT_EQ(fileName, L"r.csv");

    // An existing folder is fine; the outputs are optional.
    EXPECT_TRUE(merrowutility::VerifyDirectoryInFilePathExistence(
        mDmgr, AString(LR"($PROJECTDIR\lib\new.txt)")));
    EXPECT_FALSE(std::filesystem::exists(mRoot / "lib" / "new.txt"));
    // A file in the way, and a path without a folder part, give false.
    EXPECT_FALSE(merrowutility::VerifyDirectoryInFilePathExistence(
        mDmgr, AString(LR"($PROJECTDIR\lib\c.txt\r.csv)"), &dirPart, &fileName));
    EXPECT_EQ(fileName, L"r.csv");
    EXPECT_FALSE(merrowutility::VerifyDirectoryInFilePathExistence(mDmgr, AString(L"r.csv"),
                                                                   &dirPart, &fileName));
    EXPECT_EQ(dirPart, L"");
    EXPECT_EQ(capture.Count(), 0u);

    dirPart = AString(L"untouched");
    EXPECT_FALSE(merrowutility::VerifyDirectoryInFilePathExistence(
        nullptr, AString(LR"($PROJECTDIR\x\y.z)"), &dirPart, nullptr));
    EXPECT_EQ(dirPart, L"untouched");
    EXPECT_FALSE(std::filesystem::exists(mRoot / "x"));
    EXPECT_EQ(capture.Texts(), std::vector<std::string>{"dmgr != 0"});
}

TEST_F(QLNFileUtilityDiskTest, GetFilesInFolderListsFilesByExtension)
{
    const AString lib = Native(mRoot / "lib");
    AString forward = AString::FromUTF8((mRoot / "lib").generic_string()) + L"/";
    struct Case
    {
        AString folder;
        const wchar_t* ext;
        std::vector<AString> expected;
    };
    const std::vector<Case> cases = {
        {lib,
         L"",
         {AString(L".s2p"), AString(L"a.s2p"), AString(L"B.S2P"), AString(L"c.txt"),
          AString(L"noext"), AString(L"x.s2px")}},
        // ".s2p" fits the pattern "*.s2p" but has no extension: it is left out.
        {lib + L"\\", L"s2p", {AString(L"a.s2p"), AString(L"B.S2P")}},
        {forward, L"S2P", {AString(L"a.s2p"), AString(L"B.S2P")}},
        {lib, L"txt", {AString(L"c.txt")}},
        {lib, L"lib", {}},
        {lib + L"\\missing", L"", {}},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Utf8(c.folder) + " ext " + Utf8(AString(c.ext)));
        std::vector<AString> names = {AString(L"kept")};
        EXPECT_EQ(merrowutility::GetFilesInFolder(c.folder, names, AString(c.ext)),
                  c.expected.size() + 1);
        std::vector<AString> expected = {AString(L"kept")};
        expected.insert(expected.end(), c.expected.begin(), c.expected.end());
        EXPECT_EQ(names, expected);
    }
}

TEST_F(QLNFileUtilityDiskTest, GetFoldersInFolderListsSubFolders)
{
    const std::vector<AString> subFolders = {AString(L"sub1"), AString(L"Sub2")};
    // Without a trailing separator the folder's own sub-folders are listed, not its siblings.
    const std::vector<AString> folders = {
        Native(mRoot / "lib"), AString(Native(mRoot / "lib") + L"\\"),
        AString::FromUTF8((mRoot / "lib").generic_string() + "/")};
    for (const AString& folder : folders)
    {
        SCOPED_TRACE(Utf8(folder));
        std::vector<AString> names;
        EXPECT_EQ(merrowutility::GetFoldersInFolder(folder, names), 2u);
        EXPECT_EQ(names, subFolders);
    }
    std::vector<AString> names = {AString(L"kept")};
    EXPECT_EQ(merrowutility::GetFoldersInFolder(Native(mRoot), names), 3u);
    EXPECT_EQ(names,
              (std::vector<AString>{AString(L"kept"), AString(L"lib"), AString(L"libExtra")}));
    EXPECT_EQ(merrowutility::GetFoldersInFolder(Native(mRoot / "lib" / "sub1"), names), 3u);
    EXPECT_EQ(merrowutility::GetFoldersInFolder(Native(mRoot / "nothing"), names), 3u);
}
