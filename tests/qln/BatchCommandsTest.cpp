#include "BatchCommands.h"

#include "CommandResult.h"
#include "ToolRunner.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace
{

namespace fs = std::filesystem;
using qln::tool::Json;

// A fresh folder for the batch files of one test, removed afterwards.
class BatchCommands : public testing::Test
{
protected:
    void SetUp() override
    {
        const auto* info = testing::UnitTest::GetInstance()->current_test_info();
        mFolder = fs::temp_directory_path() /
                  (std::string("qln-batch-") + info->name() + "-" + std::to_string(::getpid()));
        fs::remove_all(mFolder);
        fs::create_directories(mFolder);
    }
    void TearDown() override { fs::remove_all(mFolder); }

    // Writes `content` to the file `name` of the folder and returns its path.
    std::string Write(const std::string& name, const std::string& content)
    {
        const fs::path path = mFolder / name;
        std::ofstream(path, std::ios::binary) << content;
        return path.string();
    }

    fs::path mFolder;
};

TEST_F(BatchCommands, SkipsCommentsAndBlankLinesAndEchoesEachLine)
{
    const std::string path =
        Write("a.qln", "\xEF\xBB\xBF# comment\r\n\r\n   \n  text compare a A  \r\n"
                       "\t# indented comment\ntext match \"x *\" 'x  y'\n");
    const ToolRun run = RunQln({"batch", path});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out, "$ qln text compare a A\nequal\n"
                       "$ qln text match \"x *\" 'x  y'\n\"x  y\": yes \" y\"\n");
    EXPECT_EQ(run.err, "");
}

TEST_F(BatchCommands, RunsEveryLineAndExitsWithTheWorstCode)
{
    const std::string path = Write("mixed.qln", "text match a b\n"
                                                "text nonsense\n"
                                                "text match 'open\n"
                                                "text number 1\n");
    const ToolRun run = RunQln({"batch", path});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.out, "$ qln text match a b\n\"b\": no\n"
                       "$ qln text nonsense\n"
                       "$ qln text match 'open\n"
                       "$ qln text number 1\n\"1\": int 1, unsigned 1, double 1\n");
    EXPECT_EQ(run.err, "qln: " + path +
                           ":2: text: unknown command 'nonsense'; see 'qln text --help'\n"
                           "qln: " +
                           path + ":3: unterminated single quote\n");

    const std::string failed = Write("failed.qln", "text number 2\ntext number x\n");
    EXPECT_EQ(RunQln({"batch", failed}).exitCode, 1);
}

TEST_F(BatchCommands, UnreadableFilesAreReportedAndTheOthersStillRun)
{
    const std::string good = Write("good.qln", "text compare b a\n");
    const std::string missing = (mFolder / "missing.qln").string();
    const ToolRun run = RunQln({"batch", missing, mFolder.string(), good});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.out, "$ qln text compare b a\ngreater\n");
    EXPECT_EQ(run.err, "qln: batch: cannot read '" + missing +
                           "': No such file or directory\n"
                           "qln: batch: cannot read '" +
                           mFolder.string() + "': it is a directory\n");
}

TEST_F(BatchCommands, BatchFilesCannotRunBatch)
{
    // A file that runs itself must not recurse.
    const std::string self = (mFolder / "self.qln").string();
    Write("self.qln", "batch " + self + "\ntext compare a a\n");
    const ToolRun run = RunQln({"batch", self});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.out, "$ qln batch " + self + "\n$ qln text compare a a\nequal\n");
    EXPECT_EQ(run.err, "qln: " + self + ":1: batch: a batch file cannot run batch\n");
}

TEST_F(BatchCommands, LinesShareStandardInputAndSeeHelpAndVersion)
{
    const std::string path =
        Write("input.qln", "text compare - -\ntext fold -\n--version\ntext --help\n");
    const ToolRun run = RunQln({"batch", path}, "abc\nABD\n");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(
        run.out.substr(0, run.out.find("$ qln text --help")),
        "$ qln text compare - -\nless\n$ qln text fold -\n$ qln --version\nqln " QLN_TEST_VERSION
        "\n");
    EXPECT_NE(run.out.find("Usage: qln text [OPTIONS] SUBCOMMAND"), std::string::npos);
}

TEST_F(BatchCommands, JsonHasOneObjectPerLine)
{
    const std::string path = Write("json.qln", "# skipped\ntext match 'a*' ab\ntext bad\n");
    const ToolRun run = RunQln({"--json", "batch", path});
    EXPECT_EQ(run.exitCode, 2);

    std::istringstream lines(run.out);
    std::string line;
    std::vector<Json> objects;
    while (std::getline(lines, line))
        objects.push_back(Json::parse(line));
    ASSERT_EQ(objects.size(), 2u);

    EXPECT_EQ(objects[0]["command"], "batch");
    EXPECT_EQ(objects[0]["file"], path);
    EXPECT_EQ(objects[0]["line"], 2);
    EXPECT_EQ(objects[0]["input"], "text match 'a*' ab");
    EXPECT_EQ(objects[0]["exit"], 0);
    EXPECT_EQ(objects[0]["results"][0]["command"], "text match");
    EXPECT_EQ(objects[0]["results"][0]["results"][0]["captures"], Json::array({"b"}));
    EXPECT_EQ(objects[0]["errors"], Json::array());

    EXPECT_EQ(objects[1]["line"], 3);
    EXPECT_EQ(objects[1]["exit"], 2);
    EXPECT_EQ(objects[1]["results"], Json::array());
    ASSERT_EQ(objects[1]["errors"].size(), 1u);
    EXPECT_NE(run.err.find(path + ":3: text: "), std::string::npos);
}

} // namespace
