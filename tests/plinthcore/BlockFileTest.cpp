#include "BlockFile.h"

#include "BlockWriter.h"
#include "FileUtilities.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <map>
#include <string>

#include <unistd.h>

namespace
{
namespace fs = std::filesystem;
using io::BlockTextError;
using io::CBlock_func;

class BlockFile : public ::testing::Test
{
protected:
    void SetUp() override
    {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        mFolder = fs::temp_directory_path() /
                  (std::string("qln-blockfile-") + info->name() + "-" + std::to_string(::getpid()));
        fs::remove_all(mFolder);
        fs::create_directories(mFolder);
    }
    void TearDown() override { fs::remove_all(mFolder); }

    AString Path(const std::string& name) const
    {
        return CFileUtilities::FromFileSystemPath(mFolder / name);
    }
    void Put(const std::string& name, const std::string& content) const
    {
        std::ofstream(mFolder / name, std::ios::binary) << content;
    }
    std::string Content(const std::string& name) const
    {
        std::ifstream in(mFolder / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }

    fs::path mFolder;
};

TEST_F(BlockFile, SavesAndReadsBackATree)
{
    CBlock_func root(L"Project");
    CBlock_func& terminal = root.AddBlock(L"Terminal");
    terminal.AddValue(L"IN");
    terminal.AddValue(3);
    AString error;
    ASSERT_TRUE(io::WriteBlockFile(Path("p.qb"), root, &error)) << error.ToUTF8();
    EXPECT_EQ(Content("p.qb"), io::WriteBlockText(root));
    CBlock_func back;
    BlockTextError readError;
    ASSERT_TRUE(io::ReadBlockFile(Path("p.qb"), back, &readError));
    EXPECT_EQ(back, root);
}

TEST_F(BlockFile, TreeWithLostItemsIsNotSaved)
{
    Put("p.qb", "Old { }\n");
    CBlock_func root(L"Project");
    root.AddValue(std::numeric_limits<unsigned long long>::max());
    AString error;
    EXPECT_FALSE(io::WriteBlockFile(Path("p.qb"), root, &error));
    EXPECT_NE(error.find(L"lost items"), AString::npos);
    EXPECT_NE(error.find(L"signed 64-bit range"), AString::npos);
    EXPECT_EQ(Content("p.qb"), "Old { }\n");
}

// {file content (none: no such file), whether it reads, line, column, reason words}
TEST_F(BlockFile, ChecksFilesAndPlacesTheirErrors)
{
    struct Case
    {
        const char* name;
        const char* content;
        bool good;
        std::size_t line;
        std::size_t column;
        const char* reason;
    };
    const Case cases[] = {
        {"good.qb", "A { 1 }\n", true, 0, 0, ""},
        {"bad.qb", "A {\n  \"x\n}\n", false, 2, 3, "no closing quote"},
        {"empty.qb", "", false, 1, 1, "holds no block"},
        {"absent.qb", nullptr, false, 0, 0, "cannot open the file: No such file or directory"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.name);
        if (c.content != nullptr)
        {
            Put(c.name, c.content);
        }
        BlockTextError error;
        EXPECT_EQ(io::CheckBlockFile(Path(c.name), &error), c.good);
        EXPECT_EQ(error.line, c.line);
        EXPECT_EQ(error.column, c.column);
        EXPECT_NE(error.reason.ToUTF8().find(c.reason), std::string::npos) << error.reason.ToUTF8();
    }
    BlockTextError error;
    EXPECT_FALSE(io::CheckBlockFile(CFileUtilities::FromFileSystemPath(mFolder), &error))
        << "a folder is no block file";
    EXPECT_EQ(error.line, 0u);
    EXPECT_NE(error.reason.find(L"Is a directory"), AString::npos) << error.reason.ToUTF8();
}

TEST_F(BlockFile, FileOverTheInputLimitIsRefusedWithoutReadingItAll)
{
    Put("big.qb", "A { \"" + std::string(100, 'x') + "\" }");
    io::BlockReadLimits limits;
    limits.maxInputBytes = 64;
    CBlock_func root;
    BlockTextError error;
    EXPECT_FALSE(io::ReadBlockFile(Path("big.qb"), root, &error, limits));
    EXPECT_EQ(error.line, 0u);
    EXPECT_NE(error.reason.find(L"limit of 64 bytes"), AString::npos);
}

TEST_F(BlockFile, FormatsAndReformatsInPlace)
{
    const std::string messy = "\xEF\xBB\xBF# hand edited\nA:W{ 1   k = \"v\" B{}}";
    const std::string canonical = "A : W {\n    1\n    k=\"v\"\n    B {}\n}\n";
    Put("a.qb", messy);
    std::string text;
    ASSERT_TRUE(io::FormatBlockFile(Path("a.qb"), text));
    EXPECT_EQ(text, canonical);
    EXPECT_EQ(Content("a.qb"), messy) << "formatting alone does not write";

    bool changed = false;
    ASSERT_TRUE(io::ReformatBlockFile(Path("a.qb"), &changed));
    EXPECT_TRUE(changed);
    EXPECT_EQ(Content("a.qb"), canonical);
    ASSERT_TRUE(io::ReformatBlockFile(Path("a.qb"), &changed));
    EXPECT_FALSE(changed) << "a canonical file is left alone";

    Put("bad.qb", "A { ");
    BlockTextError error;
    EXPECT_FALSE(io::ReformatBlockFile(Path("bad.qb"), &changed, &error));
    EXPECT_FALSE(changed);
    EXPECT_EQ(Content("bad.qb"), "A { ") << "a bad file is never rewritten";
    EXPECT_EQ(error.line, 1u);
}

TEST_F(BlockFile, StatsOfAFile)
{
    Put("s.qb", "Root { Terminal { \"a\" } Terminal { \"b\" X=1 } Deep { In { 1 2 } } }");
    io::BlockStats stats;
    ASSERT_TRUE(io::GetBlockFileStats(Path("s.qb"), stats));
    EXPECT_EQ(stats.blocks, 5u);
    EXPECT_EQ(stats.values, 4u);
    EXPECT_EQ(stats.namedValues, 1u);
    EXPECT_EQ(stats.Items(), 9u);
    EXPECT_EQ(stats.depth, 3u);
    EXPECT_GT(stats.memoryBytes, 0u);
    const std::map<AString, std::size_t> names = {
        {L"Deep", 1}, {L"In", 1}, {L"Terminal", 2}, {L"X", 1}};
    EXPECT_EQ(stats.names, names);
    EXPECT_FALSE(io::GetBlockFileStats(Path("none.qb"), stats));
}
} // namespace
