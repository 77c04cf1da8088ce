#include "Value.h"

#include "Expression.h"
#include "ExpressionParser.h"
#include "FloatValue.h"
#include "MessageManager.h"
#include "StringValue.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>

namespace
{
std::string Narrow(std::wstring_view text)
{
    return AString::ToUTF8(text);
}

// Drains the global message manager around each test.
class ValueTest : public ::testing::Test
{
protected:
    void SetUp() override { GetGlobalIMessageManager()->ClearMessages(); }
    void TearDown() override { GetGlobalIMessageManager()->ClearMessages(); }

    static std::vector<Message> Messages() { return GetGlobalIMessageManager()->TakeMessages(); }

    static std::unique_ptr<ValueBase, void (*)(ValueBase*)>
    Make(const wchar_t* text, Units::FullUnitType unit = Units::kNoUnit)
    {
        return {Value::CreateValueBase(text, unit), [](ValueBase* v) { delete v; }};
    }
};
} // namespace

TEST_F(ValueTest, ReadsNumbersWithCircuitSuffixesAndUnits)
{
    struct Case
    {
        const wchar_t* text;
        double value;
        Units::FullUnitType unit;
    };
    const Case cases[] = {
        {L"10k", 1e4, Units::kNoUnit},      {L"10K", 1e4, Units::kNoUnit},
        {L"4.7u", 4.7e-6, Units::kNoUnit},  {L"1meg", 1e6, Units::kNoUnit},
        {L"1MEG", 1e6, Units::kNoUnit},     {L"2.2n", 2.2e-9, Units::kNoUnit},
        {L"100m", 0.1, Units::kNoUnit},     {L"100M", 0.1, Units::kNoUnit},
        {L"1.5pF", 1.5e-12, Units::kFarad}, {L"3 ohm", 3, Units::kOhm},
        {L"10kOhm", 1e4, Units::kOhm},      {L"-2.5e-3", -2.5e-3, Units::kNoUnit},
        {L"  .5  ", 0.5, Units::kNoUnit},   {L"1e3k", 1e6, Units::kNoUnit},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Narrow(c.text));
        EXPECT_TRUE(Value::IsValidText(c.text));
        auto value = Make(c.text);
        ASSERT_NE(value, nullptr);
        EXPECT_NE(dynamic_cast<FloatValue*>(value.get()), nullptr);
        EXPECT_DOUBLE_EQ(value->GetValue(), c.value);
        EXPECT_EQ(value->GetUnits(), c.unit);
        EXPECT_EQ(value->GetParameterType(), val::kParamReal);
        EXPECT_TRUE(value->CanTakePartInExperiment());
    }
    EXPECT_TRUE(Messages().empty());
}

TEST_F(ValueTest, GivenUnitAppliesOnlyWhereTheTextNamesNone)
{
    auto plain = Make(L"10k", Units::kOhm);
    EXPECT_EQ(plain->GetUnits(), Units::kOhm);
    EXPECT_EQ(plain->GetExplicitUnits(), Units::kNoUnit);
    auto written = Make(L"2nF", Units::kOhm);
    EXPECT_EQ(written->GetUnits(), Units::kFarad);
    EXPECT_EQ(written->GetExplicitUnits(), Units::kFarad);
}

TEST_F(ValueTest, QuotedTextsAreTextValues)
{
    auto text = Make(L"  \"Low \"\"and\"\" high\" ");
    auto* string = dynamic_cast<StringValue*>(text.get());
    ASSERT_NE(string, nullptr);
    EXPECT_EQ(string->GetText(), L"Low \"and\" high");
    EXPECT_EQ(string->GetValueText(), L"\"Low \"\"and\"\" high\"");
    EXPECT_EQ(string->GetParameterType(), val::kParamText);
    EXPECT_FALSE(string->CanTakePartInExperiment());
    auto again = Make(string->GetValueText().c_str());
    EXPECT_TRUE(again->IsEqual(*text));
}

TEST_F(ValueTest, EvaluatesPrecedenceAndAssociativity)
{
    struct Case
    {
        const wchar_t* text;
        double value;
    };
    const Case cases[] = {
        {L"1+2*3", 7},        {L"(1+2)*3", 9},
        {L"2^3^2", 512},      {L"-2^2", -4},
        {L"2^-1", 0.5},       {L"8/4/2", 1},
        {L"10-4-3", 3},       {L"2**3", 8},
        {L"--3", 3},          {L"+4-+2", 2},
        {L"2*10k", 2e4},      {L"1.5pF*2", 3e-12},
        {L"max(1, 7, 3)", 7}, {L"min(4,2)", 2},
        {L"abs(-3)", 3},      {L"sqrt(16)+pow(2,10)", 1028},
        {L"log(e)", 1},       {L"cos(0)+sin(0)", 1},
        {L"exp(0)", 1},       {L"PI", std::acos(-1.0)},
        {L"if(0, 1, 2)", 2},  {L"mod(7, 3)", 1},
        {L"int(-2.7)", -2},   {L"db(10)", 20},
        {L" ( 1 ) ", 1},      {L"hypot(3,4)", 5},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Narrow(c.text));
        ASSERT_TRUE(Value::IsValidText(c.text));
        auto value = Make(c.text);
        ASSERT_NE(value, nullptr);
        EXPECT_NEAR(value->GetValue(), c.value, 1e-12 * std::max(1.0, std::fabs(c.value)));
    }
    EXPECT_TRUE(Messages().empty());
}

TEST_F(ValueTest, SyntaxErrorsSayWhereAndWhy)
{
    struct Case
    {
        const wchar_t* text;
        ValueError::Kind kind;
        std::size_t position;
    };
    const Case cases[] = {
        {L"", ValueError::kEmpty, 0},
        {L"   ", ValueError::kEmpty, 0},
        {L"2*(3", ValueError::kMissingCloseParen, 4},
        {L"2*3)", ValueError::kUnmatchedCloseParen, 3},
        {L"2*", ValueError::kUnexpectedEnd, 2},
        {L"2**", ValueError::kUnexpectedEnd, 3},
        {L"*2", ValueError::kOperandExpected, 0},
        {L"2 3", ValueError::kOperatorExpected, 2},
        {L"(1 2)", ValueError::kOperatorExpected, 3},
        {L"3x", ValueError::kBadSuffix, 1},
        {L"2*3xyz", ValueError::kBadSuffix, 3},
        {L"foo(1)", ValueError::kUnknownFunction, 0},
        {L"sin(1,2)", ValueError::kArgumentCount, 0},
        {L"max()", ValueError::kArgumentCount, 0},
        {L"1e999", ValueError::kNumberTooLarge, 0},
        {L"\"open", ValueError::kUnterminatedString, 0},
        {L"\"a\" b", ValueError::kMisplacedString, 0},
        {L"1+\"a\"", ValueError::kMisplacedString, 2},
        {L"2#3", ValueError::kUnexpectedCharacter, 1},
        {L"$", ValueError::kUnexpectedCharacter, 0},
        {L"1+$2", ValueError::kUnexpectedCharacter, 2},
        {L"f(1,", ValueError::kUnknownFunction, 0},
        {L"max(1,", ValueError::kUnexpectedEnd, 6},
        {L"max(1 2", ValueError::kOperatorExpected, 6},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Narrow(c.text));
        ValueError error;
        EXPECT_FALSE(Value::CheckText(c.text, error));
        EXPECT_FALSE(Value::IsValidText(c.text));
        EXPECT_EQ(error.GetKind(), c.kind) << Narrow(error.Describe());
        EXPECT_EQ(error.GetPosition(), c.position);
        EXPECT_TRUE(error.IsSyntaxError());
        ValueError created;
        EXPECT_EQ(Value::CreateValueBase(c.text, Units::kNoUnit, created), nullptr);
        EXPECT_EQ(created.GetKind(), c.kind);
    }
    EXPECT_TRUE(Messages().empty()); // the quiet forms post nothing
}

TEST_F(ValueTest, InvalidTextPostsOneMessageNamingTheProblem)
{
    EXPECT_EQ(Value::CreateValueBase(L"2*(3", Units::kNoUnit), nullptr);
    const std::vector<Message> messages = Messages();
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0].GetNumber(), ValueError::kMsgBadValueText);
    EXPECT_EQ(messages[0].GetText(), L"Bad value '2*(3': ')' expected at character 5");

    Value empty(AString(L"1+"), Units::kNoUnit);
    EXPECT_TRUE(empty.IsEmpty());
    EXPECT_EQ(Messages().size(), 1u);
}

TEST_F(ValueTest, NestingIsLimitedNotFatal)
{
    const std::size_t deep = ExpressionParser::kMaxNesting + 5;
    AString open(deep, L'(');
    AString text = open + L"1" + AString(deep, L')');
    ValueError error;
    EXPECT_FALSE(Value::CheckText(text, error));
    EXPECT_EQ(error.GetKind(), ValueError::kNestedTooDeep);
    AString signs(100000, L'-');
    EXPECT_FALSE(Value::IsValidText(signs + L"1"));
    AString shallow = AString(ExpressionParser::kMaxNesting, L'(') + L"2" +
                      AString(ExpressionParser::kMaxNesting, L')');
    EXPECT_TRUE(Value::IsValidText(shallow));

    // Long flat sums are no nesting.
    AString sum = L"1";
    for (int i = 0; i < 100000; ++i)
    {
        sum += L"+1";
    }
    auto value = Make(sum.c_str());
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->GetValue(), 100001.0);
}
