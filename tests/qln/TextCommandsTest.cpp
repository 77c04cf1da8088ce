#include "TextCommands.h"

#include "CommandResult.h"
#include "ToolRunner.h"

#include <gtest/gtest.h>

namespace
{

using Args = std::vector<std::string>;
using qln::tool::Json;

TEST(TextCommands, MatchPrintsCapturesOfEachStar)
{
    const struct
    {
        Args args;
        const char* out;
        int exitCode;
    } cases[] = {
        {{"*[*]", "a[1][2]"}, "\"a[1][2]\": yes \"a\" \"1][2\"\n", 0},
        {{"*", ""}, "\"\": yes \"\"\n", 0},
        {{"a?c", "abc", "ac"}, "\"abc\": yes\n\"ac\": no\n", 1},
        {{"\\*", "*", "x"}, "\"*\": yes\n\"x\": no\n", 1},
        {{"ABC", "abc"}, "\"abc\": no\n", 1},
        {{"-i", "A*", "abc"}, "\"abc\": yes \"bc\"\n", 0},
        {{"--ignore-case", "\xC3\x84*", "\xC3\xA4x"}, "\"\xC3\xA4x\": yes \"x\"\n", 0},
        {{"say *", "say \"hi\"\t"}, "\"say \\\"hi\\\"\\t\": yes \"\\\"hi\\\"\\t\"\n", 0},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(testing::PrintToString(c.args));
        Args args = {"text", "match"};
        args.insert(args.end(), c.args.begin(), c.args.end());
        const ToolRun run = RunQln(args);
        EXPECT_EQ(run.out, c.out);
        EXPECT_EQ(run.exitCode, c.exitCode);
        EXPECT_EQ(run.err, "");
    }
}

TEST(TextCommands, MatchJsonHasCapturesOnlyForMatches)
{
    const ToolRun run = RunQln({"--json", "text", "match", "-", "-"}, "*.*\nnet.v\nnet\n");
    EXPECT_EQ(run.exitCode, 1);
    const Json json = Json::parse(run.out);
    EXPECT_EQ(json["command"], "text match");
    EXPECT_EQ(json["pattern"], "*.*");
    EXPECT_EQ(json["caseSensitive"], true);
    ASSERT_EQ(json["results"].size(), 2u);
    EXPECT_EQ(json["results"][0]["captures"], Json::array({"net", "v"}));
    EXPECT_EQ(json["results"][1]["match"], false);
    EXPECT_FALSE(json["results"][1].contains("captures"));
}

TEST(TextCommands, CompareIgnoresCaseAndNormalisesTheSign)
{
    const struct
    {
        const char* a;
        const char* b;
        const char* order;
        int result;
    } cases[] = {
        {"Net1", "NET1", "equal", 0},
        {"a", "B", "less", -1},
        {"B", "a", "greater", 1},
        {"\xC3\x84"
         "BC",
         "\xC3\xA4"
         "bc",
         "equal", 0},
        {"Stra\xC3\x9F"
         "e",
         "STRASSE", "greater", 1},
        {"bus[10]", "bus[2]", "less", -1},
        {"", "a", "less", -1},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(std::string(c.a) + " vs " + c.b);
        const ToolRun text = RunQln({"text", "compare", c.a, c.b});
        EXPECT_EQ(text.exitCode, 0);
        EXPECT_EQ(text.out, std::string(c.order) + "\n");
        const Json json = Json::parse(RunQln({"--json", "text", "compare", c.a, c.b}).out);
        EXPECT_EQ(json["result"], c.result);
        EXPECT_EQ(json["order"], c.order);
    }
}

TEST(TextCommands, NumberShowsEveryFormTheWholeTextIs)
{
    const struct
    {
        Args args;
        const char* out;
    } cases[] = {
        {{"42"}, "\"42\": int 42, unsigned 42, double 42\n"},
        {{"-1"}, "\"-1\": int -1, double -1\n"},
        {{"+5"}, "\"+5\": int 5, unsigned 5, double 5\n"},
        {{"2147483648"}, "\"2147483648\": unsigned 2147483648, double 2147483648\n"},
        {{"4294967296"}, "\"4294967296\": double 4294967296\n"},
        {{"-2147483648"}, "\"-2147483648\": int -2147483648, double -2147483648\n"},
        {{"1e3", ".5"}, "\"1e3\": double 1000\n\".5\": double 0.5\n"},
        {{"0.1"}, "\"0.1\": double 0.1\n"},
        {{"--base", "16", "ff", "-10"}, "\"ff\": int 255, unsigned 255\n\"-10\": int -16\n"},
        {{"-b", "36", "z"}, "\"z\": int 35, unsigned 35\n"},
        {{"-b", "2", "101"}, "\"101\": int 5, unsigned 5\n"},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(testing::PrintToString(c.args));
        Args args = {"text", "number"};
        args.insert(args.end(), c.args.begin(), c.args.end());
        const ToolRun run = RunQln(args);
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_EQ(run.out, c.out);
    }
}

TEST(TextCommands, NumberExitsOneForTextsThatAreNoNumber)
{
    const ToolRun run = RunQln({"text", "number", "7", "-"}, " 1\n0x10\n\n1e\n");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.out, "\"7\": int 7, unsigned 7, double 7\n\" 1\": not a number\n"
                       "\"0x10\": not a number\n\"\": not a number\n\"1e\": not a number\n");

    const Json json = Json::parse(RunQln({"--json", "text", "number", "-3", "x"}).out);
    EXPECT_EQ(json["base"], 10);
    EXPECT_EQ(json["results"][0]["int"], -3);
    EXPECT_TRUE(json["results"][0]["unsigned"].is_null());
    EXPECT_EQ(json["results"][0]["double"], -3.0);
    EXPECT_TRUE(json["results"][1]["int"].is_null());
    EXPECT_TRUE(json["results"][1]["double"].is_null());
}

TEST(TextCommands, FoldShowsUpperLowerAndFoldedForms)
{
    const ToolRun run = RunQln({"text", "fold",
                                "\xC3\x84"
                                "b",
                                "\xCE\xA3\xCF\x82", "-"},
                               "Stra\xC3\x9F"
                               "e\n");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out,
              "upper: \xC3\x84"
              "B\nlower: \xC3\xA4"
              "b\nfolded: \xC3\xA4"
              "b\n"
              "\n"
              "upper: \xCE\xA3\xCE\xA3\nlower: \xCF\x83\xCF\x82\nfolded: \xCF\x83\xCF\x83\n"
              "\n"
              // Simple mappings keep the sharp s.
              "upper: STRA\xC3\x9F"
              "E\nlower: stra\xC3\x9F"
              "e\nfolded: stra\xC3\x9F"
              "e\n");
}

} // namespace
