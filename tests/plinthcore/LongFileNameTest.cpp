#include "LongFileName.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <vector>

namespace fs = std::filesystem;

namespace
{
struct PartsCase
{
    const wchar_t* path;
    const wchar_t* dir;
    const wchar_t* nameWithExt;
    const wchar_t* nameWOExt;
    const wchar_t* ext;
};

TEST(LongFileName, SplitsIntoFolderNameAndExtension)
{
    const PartsCase cases[] = {
        {L"C:\\lib\\a.s2p", L"C:\\lib\\", L"a.s2p", L"a", L"s2p"},
        {L"lib/sub/A.S2P", L"lib/sub/", L"A.S2P", L"A", L"S2P"},
        {L"x\\Acme.Inc", L"x\\", L"Acme.Inc", L"Acme", L"Inc"},
        {L"mixed/a\\b.c.lib", L"mixed/a\\", L"b.c.lib", L"b.c", L"lib"},
        {L"d.x\\Makefile", L"d.x\\", L"Makefile", L"Makefile", L""},
        {L"x/.profile", L"x/", L".profile", L".profile", L""},
        {L"x/..x", L"x/", L"..x", L".", L"x"},
        {L"x/..", L"x/", L"..", L"..", L""},
        {L"a.", L"", L"a.", L"a", L""},
        {L"C:\\lib\\", L"C:\\lib\\", L"", L"", L""},
        {L"\\", L"\\", L"", L"", L""},
        {L"", L"", L"", L"", L""},
    };
    for (const PartsCase& c : cases)
    {
        SCOPED_TRACE(AString(c.path).ToUTF8());
        const LongFileName name{AString(c.path)};
        EXPECT_EQ(name.FilePath(), c.path);
        EXPECT_EQ(name.DirPath(), c.dir);
        EXPECT_EQ(name.NameWithExt(), c.nameWithExt);
        EXPECT_EQ(name.NameWOExt(), c.nameWOExt);
        EXPECT_EQ(name.Ext(), c.ext);
    }
}

TEST(LongFileName, MakeItDirectoryMakesWholePathTheFolder)
{
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"C:\\lib", L"C:\\lib\\"},
        {L"C:/lib/", L"C:/lib/"},
        {L"Acme.Inc", L"Acme.Inc\\"},
        {L"", L""},
    };
    for (const auto& [input, expected] : cases)
    {
        SCOPED_TRACE(AString(input).ToUTF8());
        LongFileName name{AString(input)};
        name.MakeItDirectory();
        EXPECT_EQ(name.FilePath(), expected);
        EXPECT_EQ(name.DirPath(), expected);
        EXPECT_EQ(name.NameWithExt(), L"");
    }
}

// A unique temporary folder, removed with everything below it at the end of each test.
class LongFileNameDisk : public ::testing::Test
{
protected:
    void SetUp() override
    {
        mRoot = fs::temp_directory_path() /
                ("lfn-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) + "-" +
                 std::to_string(std::chrono::steady_clock::now().time_since_epoch().count()));
        ASSERT_TRUE(fs::create_directory(mRoot));
    }
    void TearDown() override
    {
        std::error_code ec;
        fs::remove_all(mRoot, ec);
    }
    void File(const std::string& relative)
    {
        fs::create_directories((mRoot / relative).parent_path());
        std::ofstream(mRoot / relative) << "x";
    }
    // The root written as this system writes paths: back slashes, ending in one.
    AString Root() const
    {
        AString text = AString::FromUTF8(mRoot.string() + "/");
        std::replace(text.begin(), text.end(), L'/', L'\\');
        return text;
    }
    static std::vector<AString> FindAll(const AString& pattern)
    {
        LongFileName search(pattern);
        LongFileName found;
        std::vector<AString> names;
        for (bool ok = search.FindFirst(found); ok; ok = search.FindNext(found))
        {
            names.push_back(found.NameWithExt());
        }
        search.FindClose();
        return names;
    }

    fs::path mRoot;
};

using Names = std::vector<AString>;

TEST_F(LongFileNameDisk, FindsWildcardsIgnoringCaseInStableOrder)
{
    for (const char* name :
         {"b.s2p", "a.S4P", "A.s2p", "c.sp", "d.ts", "e.tsx", "f.s2p.bak", "README", ".hidden"})
    {
        File(name);
    }
    fs::create_directory(mRoot / "Acme.Inc");
    fs::create_directory_symlink(mRoot / "loop", mRoot / "loop");
    const std::pair<const wchar_t*, Names> cases[] = {
        {L"*.s*p", {L"A.s2p", L"a.S4P", L"b.s2p", L"c.sp"}},
        {L"*.S2P", {L"A.s2p", L"b.s2p"}},
        {L"*.ts", {L"d.ts"}},
        {L"?.TS?", {L"e.tsx"}},
        {L"readme", {L"README"}},
        {L"*.*",
         {L".hidden", L"A.s2p", L"a.S4P", L"Acme.Inc", L"b.s2p", L"c.sp", L"d.ts", L"e.tsx",
          L"f.s2p.bak", L"loop", L"README"}},
        {L".*", {L".hidden"}},
        {L"*.lib", {}},
        {L"", {}},
        {L"missing\\*", {}},
        {L"README\\*", {}},
        {L"loop/*", {}},
    };
    for (const auto& [pattern, expected] : cases)
    {
        SCOPED_TRACE(AString(pattern).ToUTF8());
        EXPECT_EQ(FindAll(Root() + pattern), expected);
    }
}

TEST_F(LongFileNameDisk, FoundEntriesCarryFullPathAndKind)
{
    File("Acme.Inc/x.lib");
    File("b.lib");
    // The folder written with forward or back slashes, given without its separator.
    for (const AString& base :
         Names{AString::FromUTF8(mRoot.string()), Root().Left(Root().size() - 1)})
    {
        LongFileName dir(base);
        dir.MakeItDirectory();
        LongFileName search(dir.FilePath() + L"*");
        LongFileName found;
        EXPECT_FALSE(search.FindNext(found)) << "no search open yet";
        ASSERT_TRUE(search.FindFirst(found));
        EXPECT_EQ(found.FilePath(), dir.FilePath() + L"Acme.Inc");
        EXPECT_EQ(found.NameWOExt(), L"Acme");
        EXPECT_TRUE(found.IsDirectory());
        LongFileName copy = search;
        EXPECT_FALSE(copy.FindNext(found)) << "a copy does not share the search";
        ASSERT_TRUE(search.FindNext(found));
        EXPECT_EQ(found.FilePath(), dir.FilePath() + L"b.lib");
        EXPECT_FALSE(found.IsDirectory());
        EXPECT_FALSE(search.FindNext(found));
        EXPECT_FALSE(search.FindNext(found)) << "stays at the end";
        ASSERT_TRUE(search.FindFirst(found)) << "restarts";
        EXPECT_EQ(found.NameWithExt(), L"Acme.Inc");
        search.FindClose();
        EXPECT_FALSE(search.FindNext(found));
    }
}

TEST_F(LongFileNameDisk, ReportsExistenceAndFolders)
{
    File("dir/a.txt");
    fs::create_directory_symlink(mRoot / "loop", mRoot / "loop");
    struct Case
    {
        AString path;
        bool exists;
        bool isFolder;
    };
    const Case cases[] = {
        {Root() + L"dir\\a.txt", true, false},
        {Root() + L"dir", true, true},
        {Root() + L"dir/", true, true},
        {Root() + L"dir\\a.txt\\", false, false},
        {Root() + L"nothing", false, false},
        {Root() + L"loop", false, false},
        {AString(), false, false},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.path.ToUTF8());
        const LongFileName name(c.path);
        EXPECT_EQ(name.Exists(), c.exists);
        EXPECT_EQ(name.IsExistingDirectory(), c.isFolder);
        EXPECT_EQ(name.IsDirectory(), c.isFolder);
    }
}

TEST_F(LongFileNameDisk, CreatesNestedFolders)
{
    const LongFileName nested(Root() + L"n1/n.2\\n3\\");
    EXPECT_TRUE(nested.CreateDirectories());
    EXPECT_TRUE(fs::is_directory(mRoot / "n1" / "n.2" / "n3"));
    EXPECT_TRUE(nested.CreateDirectories()) << "an existing folder is success";

    File("file");
    EXPECT_FALSE(LongFileName(Root() + L"file\\sub").CreateDirectories());
    EXPECT_FALSE(LongFileName(Root() + L"file").CreateDirectories());
    EXPECT_FALSE(LongFileName().CreateDirectories());
}
} // namespace
