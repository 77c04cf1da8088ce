#include "ValueCommands.h"

#include "CommandResult.h"
#include "IMerrowApplication.h"
#include "RefApplication.h"
#include "RefDesign.h"
#include "RefProject.h"
#include "ToolRunner.h"

#include <gtest/gtest.h>

namespace
{

using Args = std::vector<std::string>;
using qln::tool::Json;

Args Value(std::initializer_list<std::string> rest)
{
    Args args = {"value"};
    args.insert(args.end(), rest.begin(), rest.end());
    return args;
}

TEST(ValueCommands, EvalPrintsValueUnitAndType)
{
    const struct
    {
        Args args;
        const char* out;
        int exitCode;
    } cases[] = {
        {Value({"eval", "1.5pF"}), "\"1.5pF\": 1.5e-12 F, real\n", 0},
        {Value({"eval", "2*R1", "--var", "R1=10k"}), "\"2*R1\": 20000, real\n", 0},
        {Value({"eval", "$vdd/2", "--var", "$vdd=3.3V"}), "\"$vdd/2\": 1.65 V, real\n", 0},
        {Value({"eval", "10k", "--unit", "ohm"}), "\"10k\": 10000 ohm, real\n", 0},
        {Value({"eval", "\"Low\""}), "\"\\\"Low\\\"\": \"Low\", text\n", 0},
        {Value({"eval", "1/0", "2"}),
         "\"1/0\": cannot evaluate: division by zero\n\"2\": 2, real\n", 1},
        {Value({"eval", "2*(", "R9"}),
         "\"2*(\": invalid at character 4: the value ends too early\n\"R9\": cannot evaluate: "
         "'R9' is not a variable or constant\n",
         1},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(testing::PrintToString(c.args));
        const ToolRun run = RunQln(c.args);
        EXPECT_EQ(run.out, c.out);
        EXPECT_EQ(run.exitCode, c.exitCode);
        EXPECT_EQ(run.err, "");
    }
}

TEST(ValueCommands, BadVariablesAndUnitsAreUsageErrors)
{
    const struct
    {
        Args args;
        const char* err;
    } cases[] = {
        {Value({"eval", "x", "--var", "x"}), "qln: value eval: --var x: write NAME=TEXT\n"},
        {Value({"eval", "x", "--var", "x=2*("}),
         "qln: value eval: --var x=2*(: the value ends too early at character 4\n"},
        {Value({"eval", "x", "--var", "x=1", "--var", "X=2"}),
         "qln: value eval: --var X=2: 'X' is no variable name or is given twice\n"},
        {Value({"eval", "1", "--unit", "furlong"}),
         "qln: value eval: unknown unit 'furlong'; see 'qln value units'\n"},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(testing::PrintToString(c.args));
        const ToolRun run = RunQln(c.args);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, c.err);
        EXPECT_EQ(run.exitCode, 2);
    }
}

TEST(ValueCommands, EvalLeavesTheHostAsItWas)
{
    refhost::RefApplication host;
    refhost::RefProject& project = host.AddProject(AString(L"P"), AString(L"C:\\P"));
    refhost::RefDesign& design = project.AddDesign(AString(L"D"));
    design.AddVariable(L"k", L"4");
    host.SetActiveDesign(&design);
    const ToolRun run = RunQln(Value({"eval", "k*x", "--var", "x=2"}));
    // The command's own design is active while it runs: the host's variables are not seen.
    EXPECT_EQ(run.out, "\"k*x\": cannot evaluate: 'k' is not a variable or constant\n");
    EXPECT_EQ(host.GetActiveDesign(), &design);
    EXPECT_EQ(host.GetProjectCount(), 1u);
    RunQln(Value({"eval", "1", "--var", "bad=("})); // a usage error restores it too
    EXPECT_EQ(host.GetActiveDesign(), &design);
    EXPECT_EQ(host.GetProjectCount(), 1u);
}

TEST(ValueCommands, CheckSaysKindOrWhereAndWhy)
{
    const ToolRun run =
        RunQln(Value({"check", "10k", "\"a\"\"b\"", "2*w", "sin(pi)", "2*(3", "3x", "-"}), "1 2\n");
    EXPECT_EQ(run.out, "\"10k\": valid number\n"
                       "\"\\\"a\\\"\\\"b\\\"\": valid text\n"
                       "\"2*w\": valid expression\n"
                       "\"sin(pi)\": valid constant expression\n"
                       "\"2*(3\": invalid at character 5: ')' expected\n"
                       "\"3x\": invalid at character 2: 'x' is not a scale or unit\n"
                       "\"1 2\": invalid at character 3: an operator expected before '2'\n");
    EXPECT_EQ(run.exitCode, 1);
    const ToolRun json = RunQln({"--json", "value", "check", "2*(3"});
    const Json parsed = Json::parse(json.out);
    EXPECT_EQ(parsed["results"][0]["valid"], false);
    EXPECT_EQ(parsed["results"][0]["position"], 5);
    EXPECT_EQ(parsed["results"][0]["reason"], "')' expected");
}

TEST(ValueCommands, UnitsListsEveryUnitAndThePrefixes)
{
    const ToolRun run = RunQln({"--json", "value", "units"});
    EXPECT_EQ(run.exitCode, 0);
    const Json parsed = Json::parse(run.out);
    EXPECT_EQ(parsed["units"].size(), Units::GetAllUnits().size());
    bool farad = false;
    for (const Json& unit : parsed["units"])
    {
        farad = farad || (unit["code"] == 1002 && unit["symbol"] == "F" && unit["prefixes"]);
    }
    EXPECT_TRUE(farad);
    EXPECT_EQ(parsed["prefixes"].size(), Units::GetPrefixes().size());
    const ToolRun plain = RunQln({"value", "units"});
    EXPECT_NE(plain.out.find("1002 \"F\" farad, Capacitance, takes prefixes; also farads\n"),
              std::string::npos);
    EXPECT_NE(plain.out.find("prefixes: f=1e-15 p=1e-12"), std::string::npos);
}

} // namespace
