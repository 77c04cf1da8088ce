#include "FileUtilities.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <span>
#include <vector>

namespace fs = std::filesystem;

namespace
{
using Names = std::vector<AString>;

TEST(FileUtilities, RewritesAndJoinsSeparators)
{
    AString path = L"C:/lib//x\\a.lib/";
    CFileUtilities::SetToBackSlashes(path);
    EXPECT_EQ(path, L"C:\\lib\\\\x\\a.lib\\");
    EXPECT_EQ(CFileUtilities::JoinPath(L"C:\\lib", L"a.lib"), L"C:\\lib\\a.lib");
    EXPECT_EQ(CFileUtilities::JoinPath(L"C:/lib/", L"a"), L"C:/lib/a");
    EXPECT_EQ(CFileUtilities::JoinPath(L"", L"a"), L"a");
}

// {input, first part, second part} of SplitPath and SplitName.
struct SplitCase
{
    const wchar_t* input;
    const wchar_t* first;
    const wchar_t* second;
};

TEST(FileUtilities, SplitsPathsAndNames)
{
    const SplitCase paths[] = {
        {L"C:\\lib\\x.lib", L"C:\\lib", L"x.lib"},
        {L"lib/sub\\x", L"lib/sub", L"x"},
        {L"x.lib", L"", L"x.lib"},
        {L"C:\\lib\\", L"C:\\lib", L""},
        {L"a//b", L"a", L"b"},
        {L"\\x", L"\\", L"x"},
        {L"//x", L"/", L"x"},
        {L"", L"", L""},
    };
    const SplitCase names[] = {
        {L"a.b.lib", L"a.b", L"lib"}, {L".profile", L".profile", L""}, {L"..", L"..", L""},
        {L"a.", L"a", L""},           {L"d.x\\f", L"d.x\\f", L""},     {L"d.x/f.c", L"d.x/f", L"c"},
    };
    for (const auto& [table, split] :
         {std::pair{std::span<const SplitCase>(paths), &CFileUtilities::SplitPath},
          std::pair{std::span<const SplitCase>(names), &CFileUtilities::SplitName}})
    {
        for (const SplitCase& c : table)
        {
            SCOPED_TRACE(AString(c.input).ToUTF8());
            AString first = L"old";
            AString second = L"old";
            split(AString(c.input), first, second);
            EXPECT_EQ(first, c.first);
            EXPECT_EQ(second, c.second);
            AString same(c.input);
            split(same, same, second);
            EXPECT_EQ(same, c.first) << "output may be the input";
        }
    }
}

TEST(FileUtilities, MatchFileNameIgnoresCase)
{
    struct Case
    {
        const wchar_t* name;
        const wchar_t* pattern;
        bool matches;
    };
    const Case cases[] = {
        {L"a.s2p", L"*.S2P", true},      {L"A.S4P", L"*.s*p", true},  {L"a.sp", L"*.s*p", true},
        {L"a.s2p.bak", L"*.s*p", false}, {L"a.ts", L"*.ts", true},    {L"a.tsx", L"*.ts", false},
        {L"README", L"*.*", true},       {L"x", L"x.*", true},        {L"xy", L"x.*", false},
        {L"a.b", L"?.?", true},          {L"ab.b", L"?.?", false},    {L"a\\b", L"a\\b", true},
        {L"ab", L"a\\b", false},         {L"Ärger.lib", L"ä*", true}, {L"", L"*", true},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(AString(c.name).ToUTF8() + " ~ " + AString(c.pattern).ToUTF8());
        EXPECT_EQ(CFileUtilities::MatchFileName(AString(c.name), AString(c.pattern)), c.matches);
    }
}

TEST(FileUtilities, FileSystemPathUsesForwardSlashesAndUtf8)
{
    const fs::path path = CFileUtilities::ToFileSystemPath(L"\\lib\\Ärger/x.s2p");
    EXPECT_EQ(path.string(), "/lib/\xC3\x84rger/x.s2p");
    EXPECT_EQ(CFileUtilities::FromFileSystemPath(path), L"/lib/Ärger/x.s2p");
    EXPECT_EQ(CFileUtilities::FromFileSystemPath(fs::path("bad\xff")), L"bad\uFFFD");
}

// A vendor-library-like tree in a unique temporary folder, removed after each test:
//   Comp1/Acme.Inc/S1/{a.s2p, B.TS, c.txt}   Comp1/Zeta/   Comp2/   top.lib
class FileUtilitiesDisk : public ::testing::Test
{
protected:
    void SetUp() override
    {
        mRoot = fs::temp_directory_path() /
                ("fu-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) + "-" +
                 std::to_string(std::chrono::steady_clock::now().time_since_epoch().count()));
        for (const char* file : {"Comp1/Acme.Inc/S1/a.s2p", "Comp1/Acme.Inc/S1/B.TS",
                                 "Comp1/Acme.Inc/S1/c.txt", "top.lib"})
        {
            fs::create_directories((mRoot / file).parent_path());
            std::ofstream(mRoot / file) << "x";
        }
        fs::create_directories(mRoot / "Comp1" / "Zeta");
        fs::create_directories(mRoot / "Comp2");
    }
    void TearDown() override
    {
        std::error_code ec;
        fs::permissions(mRoot / "locked", fs::perms::owner_all, ec);
        fs::remove_all(mRoot, ec);
    }
    // The root as this system writes it: back slashes, no trailing separator.
    AString Root() const
    {
        AString text = AString::FromUTF8(mRoot.string());
        CFileUtilities::SetToBackSlashes(text);
        return text;
    }
    // Found paths relative to the root, with forward slashes.
    Names Relative(const std::vector<LongFileName>& found) const
    {
        Names names;
        for (const LongFileName& entry : found)
        {
            AString path = entry.FilePath().Mid(Root().size() + 1);
            std::replace(path.begin(), path.end(), L'\\', L'/');
            names.push_back(path);
        }
        return names;
    }
    Names Find(const AString& pattern, int levels, CFileUtilities::FindKind what) const
    {
        std::vector<LongFileName> found;
        CFileUtilities::RecursiveFind(Root(), pattern, found, levels, what);
        return Relative(found);
    }

    fs::path mRoot;
};

TEST_F(FileUtilitiesDisk, RecursiveFindHonoursLevelsAndKind)
{
    using CF = CFileUtilities;
    struct Case
    {
        const wchar_t* pattern;
        int levels;
        CF::FindKind what;
        Names expected;
    };
    const Case cases[] = {
        {L"*", 1, CF::kFindFolders, {L"Comp1", L"Comp2"}},
        {L"*", 1, CF::kFindFiles, {L"top.lib"}},
        {L"*", 2, CF::kFindFolders, {L"Comp1", L"Comp1/Acme.Inc", L"Comp1/Zeta", L"Comp2"}},
        {L"*",
         CF::kAllLevels,
         CF::kFindBoth,
         {L"Comp1", L"Comp1/Acme.Inc", L"Comp1/Acme.Inc/S1", L"Comp1/Acme.Inc/S1/a.s2p",
          L"Comp1/Acme.Inc/S1/B.TS", L"Comp1/Acme.Inc/S1/c.txt", L"Comp1/Zeta", L"Comp2",
          L"top.lib"}},
        {L"*.S*P", CF::kAllLevels, CF::kFindFiles, {L"Comp1/Acme.Inc/S1/a.s2p"}},
        {L"*.s*p", 3, CF::kFindFiles, {}},
        {L"*.s*p", 4, CF::kFindFiles, {L"Comp1/Acme.Inc/S1/a.s2p"}},
        {L"s1", -5, CF::kFindBoth, {L"Comp1/Acme.Inc/S1"}},
        {L"Comp1\\*", 1, CF::kFindFolders, {L"Comp1/Acme.Inc", L"Comp1/Zeta"}},
        {L"*", 0, CF::kFindBoth, {}},
        {L"", CF::kAllLevels, CF::kFindBoth, {}},
        {L"missing\\*", CF::kAllLevels, CF::kFindBoth, {}},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(AString(c.pattern).ToUTF8() + " levels " + std::to_string(c.levels));
        EXPECT_EQ(Find(c.pattern, c.levels, c.what), c.expected);
    }
}

TEST_F(FileUtilitiesDisk, SimpleFindListsMatchingFilesOnly)
{
    const AString series = Root() + L"/Comp1\\Acme.Inc/S1";
    const std::pair<const wchar_t*, Names> cases[] = {
        {L"*.s*p", {L"a.s2p"}}, {L"*.ts", {L"B.TS"}},
        {L"*.sss", {}},         {L"*", {L"a.s2p", L"B.TS", L"c.txt"}},
        {L"*.S2P", {L"a.s2p"}},
    };
    for (const auto& [pattern, expected] : cases)
    {
        SCOPED_TRACE(AString(pattern).ToUTF8());
        std::vector<LongFileName> found{LongFileName(L"kept")};
        EXPECT_EQ(CFileUtilities::SimpleFindWithWildCard(series, pattern, found),
                  expected.size() + 1);
        Names names;
        for (std::size_t i = 1; i < found.size(); ++i)
        {
            names.push_back(found[i].NameWithExt());
            EXPECT_EQ(found[i].DirPath(), series + L"\\");
        }
        EXPECT_EQ(names, expected);
        EXPECT_EQ(found.front().FilePath(), L"kept") << "appends, never clears";
    }
    std::vector<LongFileName> found;
    EXPECT_EQ(CFileUtilities::SimpleFindWithWildCard(Root() + L"/", L"*", found), 1u)
        << "folders are not files";
    EXPECT_EQ(CFileUtilities::SimpleFindWithWildCard(Root() + L"\\missing", L"*", found), 1u);
}

TEST_F(FileUtilitiesDisk, FollowsLinksButNotBackIntoItsOwnPath)
{
    std::error_code ec;
    fs::create_directory_symlink(mRoot, mRoot / "Comp1" / "Acme.Inc" / "up", ec);
    ASSERT_FALSE(ec) << ec.message();
    fs::create_directory_symlink(mRoot / "Comp1" / "Acme.Inc" / "S1", mRoot / "Comp2" / "S1link");
    fs::create_directory_symlink(mRoot / "Comp2" / "self", mRoot / "Comp2" / "self");

    EXPECT_EQ(Find(L"*.s2p", CFileUtilities::kAllLevels, CFileUtilities::kFindFiles),
              (Names{L"Comp1/Acme.Inc/S1/a.s2p", L"Comp2/S1link/a.s2p"}));
    EXPECT_EQ(Find(L"*", CFileUtilities::kAllLevels, CFileUtilities::kFindFolders),
              (Names{L"Comp1", L"Comp1/Acme.Inc", L"Comp1/Acme.Inc/S1", L"Comp1/Acme.Inc/up",
                     L"Comp1/Zeta", L"Comp2", L"Comp2/S1link"}));
    // Starting inside the loop: the link back up is entered once, never again.
    std::vector<LongFileName> found;
    CFileUtilities::RecursiveFind(Root() + L"\\Comp1\\Acme.Inc", L"top.lib", found,
                                  CFileUtilities::kAllLevels, CFileUtilities::kFindFiles);
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].FilePath(), Root() + L"\\Comp1\\Acme.Inc\\up\\top.lib");
}

TEST_F(FileUtilitiesDisk, SkipsUnreadableFolders)
{
    fs::create_directories(mRoot / "locked" / "inner");
    std::ofstream(mRoot / "locked" / "hidden.s2p") << "x";
    fs::permissions(mRoot / "locked", fs::perms::none);
    std::error_code probe;
    fs::directory_iterator(mRoot / "locked", probe);
    if (!probe)
    {
        GTEST_SKIP() << "permissions do not restrict this user";
    }
    EXPECT_EQ(Find(L"*.s2p", CFileUtilities::kAllLevels, CFileUtilities::kFindFiles),
              Names{L"Comp1/Acme.Inc/S1/a.s2p"});
    EXPECT_EQ(Find(L"*", 1, CFileUtilities::kFindFolders), (Names{L"Comp1", L"Comp2", L"locked"}));
    std::vector<LongFileName> found;
    EXPECT_EQ(CFileUtilities::SimpleFindWithWildCard(Root() + L"\\locked", L"*", found), 0u);
}
} // namespace
