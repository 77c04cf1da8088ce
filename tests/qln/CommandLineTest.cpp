#include "CommandLine.h"

#include "ToolRunner.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

using Args = std::vector<std::string>;

TEST(CommandLine, BadUsageExitsTwoWithOneLine)
{
    const struct
    {
        Args args;
        const char* error;
    } cases[] = {
        {{}, "qln: a command is required; see 'qln --help'\n"},
        {{"nope", "x"}, "qln: unknown command 'nope'; see 'qln --help'\n"},
        {{"text"}, "qln: text: a command is required; see 'qln text --help'\n"},
        {{"text", "frob"}, "qln: text: unknown command 'frob'; see 'qln text --help'\n"},
        {{"text", "match", "a", "b", "--", "-x"},
         "qln: text match: The following argument was not expected: -x; see 'qln text match "
         "--help'\n"},
        {{"text", "match", "*"},
         "qln: text match: TEXT is required; see 'qln text match --help'\n"},
        {{"text", "number", "--base", "1", "5"},
         "qln: text number: --base: Value 1 not in range 2 to 36; see 'qln text number "
         "--help'\n"},
        {{"text", "fold", "--bogus", "x"},
         "qln: text fold: The following argument was not expected: --bogus; see 'qln text "
         "fold --help'\n"},
        {{"--json=maybe", "--version"},
         "qln: Could not convert: --json = maybe; see 'qln --help'\n"},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(testing::PrintToString(c.args));
        const ToolRun run = RunQln(c.args);
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, c.error);
    }
}

TEST(CommandLine, VersionAndHelpExitZero)
{
    EXPECT_EQ(RunQln({"--version"}).out, "qln " QLN_TEST_VERSION "\n");
    EXPECT_EQ(RunQln({"--json", "--version"}).out,
              "{\"command\":\"version\",\"version\":\"" QLN_TEST_VERSION "\"}\n");

    const struct
    {
        Args args;
        const char* usage;
    } cases[] = {
        {{"--help"}, "Usage: qln [OPTIONS] SUBCOMMAND"},
        {{"text", "--help"}, "Usage: qln text [OPTIONS] SUBCOMMAND"},
        {{"text", "match", "-h"}, "Usage: qln text match [OPTIONS] PATTERN TEXT..."},
        {{"text", "number", "--help", "x"}, "Usage: qln text number [OPTIONS] TEXT..."},
        {{"batch", "--help"}, "Usage: qln batch [OPTIONS] FILE..."},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(testing::PrintToString(c.args));
        const ToolRun run = RunQln(c.args);
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_NE(run.out.find(c.usage), std::string::npos) << run.out;
        EXPECT_EQ(run.err, "");
    }
}

TEST(CommandLine, GlobalOptionsMayFollowTheCommand)
{
    const ToolRun run = RunQln({"text", "compare", "a", "A", "--json"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out, "{\"command\":\"text compare\",\"a\":\"a\",\"b\":\"A\",\"result\":0,"
                       "\"order\":\"equal\"}\n");
}

// Words that name other commands are plain texts once a command was chosen.
TEST(CommandLine, CommandNamesAreTextsAfterTheCommand)
{
    const ToolRun run = RunQln({"text", "match", "--", "*", "batch", "text", "fold", "-x"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out, "\"batch\": yes \"batch\"\n\"text\": yes \"text\"\n\"fold\": yes "
                       "\"fold\"\n\"-x\": yes \"-x\"\n");
}

TEST(CommandLine, StandardInputEndingEarlyIsBadInput)
{
    const ToolRun run = RunQln({"text", "compare", "-", "-"}, "only\n");
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "qln: text compare: standard input has no line left for B\n");
}

} // namespace
