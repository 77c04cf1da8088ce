#include "AtomicFile.h"

#include "FileUtilities.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <sys/resource.h>
#include <sys/stat.h>

namespace
{
namespace fs = std::filesystem;

class AtomicFile : public ::testing::Test
{
protected:
    void SetUp() override
    {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        mFolder = fs::temp_directory_path() /
                  (std::string("qln-atomic-") + info->name() + "-" + std::to_string(::getpid()));
        fs::remove_all(mFolder);
        fs::create_directories(mFolder);
    }
    void TearDown() override { fs::remove_all(mFolder); }

    static AString Path(const fs::path& path) { return CFileUtilities::FromFileSystemPath(path); }
    static std::string Content(const fs::path& path)
    {
        std::ifstream in(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }
    static void Put(const fs::path& path, const std::string& content)
    {
        std::ofstream(path, std::ios::binary) << content;
    }
    // Everything in the folder: a failed save must leave no temporary file behind.
    std::size_t Entries() const
    {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(mFolder), fs::directory_iterator()));
    }

    fs::path mFolder;
};

TEST_F(AtomicFile, CreatesAndReplacesFiles)
{
    const fs::path file = mFolder / "project.qb";
    AString error;
    ASSERT_TRUE(io::WriteFileAtomically(Path(file), "first", &error)) << error.ToUTF8();
    EXPECT_EQ(Content(file), "first");
    ASSERT_TRUE(io::WriteFileAtomically(Path(file), std::string("se\0cond", 7), &error));
    EXPECT_EQ(Content(file), std::string("se\0cond", 7));
    ASSERT_TRUE(io::WriteFileAtomically(Path(file), "", &error));
    EXPECT_EQ(Content(file), "");
    EXPECT_EQ(Entries(), 1u);
}

TEST_F(AtomicFile, AcceptsBackSlashPaths)
{
    AString path = Path(mFolder / "sub" / "x.qb");
    fs::create_directories(mFolder / "sub");
    CFileUtilities::SetToBackSlashes(path);
    ASSERT_TRUE(io::WriteFileAtomically(path, "x"));
    EXPECT_EQ(Content(mFolder / "sub" / "x.qb"), "x");
}

TEST_F(AtomicFile, ReplacedFileKeepsItsPermissions)
{
    const fs::path file = mFolder / "kept.qb";
    Put(file, "old");
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    ASSERT_TRUE(io::WriteFileAtomically(Path(file), "new"));
    EXPECT_EQ(fs::status(file).permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
}

TEST_F(AtomicFile, NewFileGetsTheUsualPermissions)
{
    const mode_t mask = ::umask(022);
    const fs::path file = mFolder / "new.qb";
    ASSERT_TRUE(io::WriteFileAtomically(Path(file), "x"));
    ::umask(mask);
    struct stat info = {};
    ASSERT_EQ(::stat(file.c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0644u) << "not the private mode of a temporary file";
}

TEST_F(AtomicFile, FollowsASymbolicLinkToItsFile)
{
    const fs::path real = mFolder / "real.qb";
    const fs::path link = mFolder / "link.qb";
    Put(real, "old");
    fs::create_symlink("real.qb", link);
    ASSERT_TRUE(io::WriteFileAtomically(Path(link), "new"));
    EXPECT_TRUE(fs::is_symlink(link)) << "the link stays a link";
    EXPECT_EQ(Content(real), "new");
}

// {what the path is, the words the reason holds}
TEST_F(AtomicFile, FailedSaveSaysWhyAndLeavesNothingBehind)
{
    Put(mFolder / "plain", "a file, not a folder");
    fs::create_directories(mFolder / "folder");
    struct Case
    {
        fs::path path;
        const char* reason;
    };
    const Case cases[] = {
        {mFolder / "missing" / "x.qb", "cannot create a temporary file in"},
        {mFolder / "plain" / "x.qb", "Not a directory"},
        {mFolder / "folder", "it is a folder"},
        {mFolder / "missing" / "", "names no file"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.path.string());
        AString error;
        EXPECT_FALSE(io::WriteFileAtomically(Path(c.path), "data", &error));
        EXPECT_NE(error.ToUTF8().find(c.reason), std::string::npos) << error.ToUTF8();
        EXPECT_EQ(Entries(), 2u);
    }
    EXPECT_EQ(Content(mFolder / "plain"), "a file, not a folder");
}

TEST_F(AtomicFile, WriteFailingHalfWayKeepsTheOldFile)
{
    // A file-size limit makes the write fail part-way, as a full disk would.
    const fs::path file = mFolder / "project.qb";
    Put(file, "the old content");
    struct rlimit old = {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &old), 0);
    const auto previousHandler = std::signal(SIGXFSZ, SIG_IGN);
    struct rlimit small = old;
    small.rlim_cur = 4096;
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    AString error;
    const bool saved = io::WriteFileAtomically(Path(file), std::string(100000, 'x'), &error);
    ::setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, previousHandler);

    EXPECT_FALSE(saved);
    EXPECT_NE(error.ToUTF8().find("cannot write"), std::string::npos) << error.ToUTF8();
    EXPECT_NE(error.ToUTF8().find("File too large"), std::string::npos) << error.ToUTF8();
    EXPECT_EQ(Content(file), "the old content");
    EXPECT_EQ(Entries(), 1u) << "the temporary file is removed";
}
} // namespace
