#include "Expression.h"

#include "FloatValue.h"
#include "InstanceReference.h"
#include "MessageManager.h"
#include "StringValue.h"
#include "Value.h"
#include "Variable.h"
#include "VariableScope.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <memory>
#include <string>

namespace
{
std::string Narrow(std::wstring_view text)
{
    return AString::ToUTF8(text);
}

// Variables made from texts, found by name ignoring case.
class TestScope : public IVariableScope
{
public:
    Variable& Add(const wchar_t* name, const wchar_t* text,
                  Units::FullUnitType unit = Units::kNoUnit)
    {
        auto [it, added] = mVariables.insert_or_assign(AString(name), Variable(name));
        it->second.SetValueBase(Value::CreateValueBase(text, unit));
        return it->second;
    }
    const Variable* FindVariable(std::wstring_view name) const override
    {
        const auto found = mVariables.find(name);
        return found == mVariables.end() ? nullptr : &found->second;
    }

private:
    std::map<AString, Variable, AString::NoCaseLess> mVariables;
};

using ExpressionPtr = std::unique_ptr<Expression>;

ExpressionPtr Make(const wchar_t* text, Units::FullUnitType unit = Units::kNoUnit)
{
    ValueError error;
    ExpressionPtr expression(Expression::Create(text, unit, &error));
    EXPECT_NE(expression, nullptr) << Narrow(error.Describe());
    return expression;
}

// A shared value object that counts how many of its kind are alive.
class CountedValue : public FloatValue
{
public:
    explicit CountedValue(double value, AString text)
        : FloatValue(value, Units::kOhm), mText(std::move(text))
    {
        ++sAlive;
    }
    CountedValue(const CountedValue& other)
        : IReceiver(other), FloatValue(other), mText(other.mText)
    {
        ++sAlive;
    }
    ~CountedValue() override { --sAlive; }
    AString GetValueText() const override { return mText; }
    ValueBase* CloneValueBase() const override { return new CountedValue(*this); }

    static inline int sAlive = 0;
    AString mText;
};

class ExpressionTest : public ::testing::Test
{
protected:
    void SetUp() override { GetGlobalIMessageManager()->ClearMessages(); }
    void TearDown() override { GetGlobalIMessageManager()->ClearMessages(); }

    static std::vector<Message> Messages() { return GetGlobalIMessageManager()->TakeMessages(); }

    TestScope mScope;
};
} // namespace

TEST_F(ExpressionTest, EvaluatesAgainstTheVariablesInScope)
{
    mScope.Add(L"R1", L"10k");
    mScope.Add(L"$vdd", L"3.3");
    mScope.Add(L"gain", L"2*R1/1k");
    auto twice = Make(L"2*R1");
    auto supply = Make(L"$VDD/2");
    auto chained = Make(L"gain+1");
    {
        VariableScopeGuard guard(&mScope);
        EXPECT_DOUBLE_EQ(twice->GetValue(), 20000);
        EXPECT_DOUBLE_EQ(supply->GetValue(), 1.65);
        EXPECT_DOUBLE_EQ(chained->GetValue(), 21);
        mScope.Add(L"R1", L"1k"); // evaluated when asked: follows the change
        EXPECT_DOUBLE_EQ(twice->GetValue(), 2000);
        EXPECT_DOUBLE_EQ(chained->GetValue(), 3);
    }
    EXPECT_TRUE(Messages().empty());
    // Out of scope the name is unknown: a message and the documented 0.
    EXPECT_EQ(twice->GetValue(), 0.0);
    const std::vector<Message> messages = Messages();
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0].GetNumber(), ValueError::kMsgUnresolvedName);
    EXPECT_EQ(messages[0].GetText(), L"Cannot evaluate '2*R1': 'R1' is not a variable or constant");
}

TEST_F(ExpressionTest, InnerScopesHideOuterOnesAndTheHostScopeComesLast)
{
    TestScope host;
    host.Add(L"w", L"1");
    host.Add(L"l", L"5");
    mScope.Add(L"w", L"2");
    const IVariableScope* previous = VariableScope::SetHostScope(&host);
    auto area = Make(L"w*l");
    EXPECT_DOUBLE_EQ(area->GetValue(), 5);
    {
        VariableScopeGuard guard(&mScope);
        EXPECT_DOUBLE_EQ(area->GetValue(), 10);
        VariableScopeGuard none(nullptr); // pushes nothing
        EXPECT_DOUBLE_EQ(area->GetValue(), 10);
    }
    EXPECT_DOUBLE_EQ(area->GetValue(), 5);
    EXPECT_EQ(VariableScope::SetHostScope(previous), &host);
}

TEST_F(ExpressionTest, EvaluationFailuresPostTheirMessageAndGiveZero)
{
    mScope.Add(L"name", L"\"text\"");
    mScope.Add(L"a", L"b+1");
    mScope.Add(L"b", L"a*2");
    mScope.Add(L"zero", L"0");
    struct Case
    {
        const wchar_t* text;
        ValueError::Kind kind;
        int number;
        const wchar_t* message;
    };
    const Case cases[] = {
        {L"1/0", ValueError::kDivisionByZero, ValueError::kMsgDivisionByZero,
         L"Cannot evaluate '1/0': division by zero"},
        {L"1/zero", ValueError::kDivisionByZero, ValueError::kMsgDivisionByZero, nullptr},
        {L"0^-1", ValueError::kDivisionByZero, ValueError::kMsgDivisionByZero, nullptr},
        {L"mod(1,0)", ValueError::kDomain, ValueError::kMsgDomain, nullptr},
        {L"sqrt(-1)", ValueError::kDomain, ValueError::kMsgDomain,
         L"Cannot evaluate 'sqrt(-1)': 'sqrt' is undefined for its argument"},
        {L"log(0)", ValueError::kDomain, ValueError::kMsgDomain, nullptr},
        {L"(-8)^(1/3)", ValueError::kDomain, ValueError::kMsgDomain, nullptr},
        {L"1e300*1e300", ValueError::kOverflow, ValueError::kMsgOverflow, nullptr},
        {L"exp(1000)", ValueError::kOverflow, ValueError::kMsgOverflow, nullptr},
        {L"a", ValueError::kCircularReference, ValueError::kMsgCircularReference, nullptr},
        {L"name*2", ValueError::kTextNotNumber, ValueError::kMsgTextNotNumber,
         L"Cannot evaluate 'name*2': 'name' holds a text, not a number"},
        {L"missing+1", ValueError::kUnresolvedName, ValueError::kMsgUnresolvedName, nullptr},
        {L"X1.R", ValueError::kUnresolvedInstance, ValueError::kMsgUnresolvedInstance,
         L"Cannot evaluate 'X1.R': the instance parameter 'X1.R' cannot be resolved"},
    };
    VariableScopeGuard guard(&mScope);
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Narrow(c.text));
        auto expression = Make(c.text);
        ASSERT_NE(expression, nullptr);
        double value = -1;
        ValueError error;
        EXPECT_FALSE(expression->Evaluate(value, error));
        EXPECT_EQ(error.GetKind(), c.kind);
        EXPECT_TRUE(Messages().empty()); // Evaluate is quiet
        EXPECT_EQ(expression->GetValue(), 0.0);
        const std::vector<Message> messages = Messages();
        ASSERT_EQ(messages.size(), 1u);
        EXPECT_EQ(messages[0].GetNumber(), c.number);
        EXPECT_EQ(messages[0].GetSeverity(), MessageSeverity::kError);
        if (c.message != nullptr)
        {
            EXPECT_EQ(messages[0].GetText(), c.message);
        }
    }
}

TEST_F(ExpressionTest, DeepChainsOfVariablesStopInsteadOfOverflowing)
{
    mScope.Add(L"v0", L"1");
    for (int i = 1; i <= 1000; ++i)
    {
        const std::wstring name = L"v" + std::to_wstring(i);
        const std::wstring text = L"v" + std::to_wstring(i - 1) + L"+1";
        mScope.Add(name.c_str(), text.c_str());
    }
    VariableScopeGuard guard(&mScope);
    double value = 0;
    ValueError error;
    EXPECT_TRUE(Make(L"v200")->Evaluate(value, error));
    EXPECT_EQ(value, 201.0);
    EXPECT_FALSE(Make(L"v1000")->Evaluate(value, error));
    EXPECT_EQ(error.GetKind(), ValueError::kReferencesTooDeep);
}

TEST_F(ExpressionTest, VariablesNamedManyTimesAreWorkedOutOnce)
{
    // v(i) = v(i-1) + v(i-1): 2^100 paths through 100 variables.
    mScope.Add(L"v0", L"1V");
    for (int i = 1; i <= 100; ++i)
    {
        const std::wstring previous = L"v" + std::to_wstring(i - 1);
        const std::wstring text = previous + L"+" + previous;
        mScope.Add((L"v" + std::to_wstring(i)).c_str(), text.c_str());
    }
    VariableScopeGuard guard(&mScope);
    auto top = Make(L"v100/v99");
    double value = 0;
    ValueError error;
    ASSERT_TRUE(top->Evaluate(value, error));
    EXPECT_EQ(value, 2.0);
    EXPECT_EQ(Make(L"v100")->GetUnits(), Units::kVolt);
    // What one evaluation learnt is forgotten before the next: changes show.
    auto sum = Make(L"v100+v99");
    EXPECT_EQ(sum->GetValue(), 3 * std::ldexp(1.0, 99));
    mScope.Add(L"v99", L"1");
    EXPECT_EQ(sum->GetValue(), 3.0);
}

TEST_F(ExpressionTest, RegeneratesNamesInTheSpellingOfTheirDefinitions)
{
    mScope.Add(L"R1", L"10k");
    mScope.Add(L"$Vdd", L"5");
    VariableScopeGuard guard(&mScope);
    struct Case
    {
        const wchar_t* text;
        const wchar_t* regenerated;
    };
    const Case cases[] = {
        {L"2*r1", L"2*R1"},
        {L"2 * R1", L"2*R1"},
        {L"( $VDD - 1 ) / r1", L"($Vdd-1)/R1"},
        {L"MAX( Pi , E ,2)", L"max(pi,e,2)"},
        {L"-unknown ^ 2", L"-unknown^2"},
        {L"10K + 1.5pF ** 2", L"10K+1.5pF^2"},
        {L"X1.Rload", L"X1.Rload"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Narrow(c.text));
        auto expression = Make(c.text);
        EXPECT_EQ(expression->GetValueText(), AString(c.text).Trim());
        EXPECT_EQ(expression->GetRegeneratedText(), c.regenerated);
        EXPECT_EQ(expression->GetValueText(), AString(c.text).Trim()); // only a look
        EXPECT_EQ(expression->RegenerateText(), c.regenerated);
        EXPECT_EQ(expression->GetValueText(), c.regenerated);
        auto again = Make(c.regenerated); // the re-spelled text means the same
        EXPECT_TRUE(again->IsEqual(*expression));
    }
    // Two spellings of one expression are equal, other expressions are not.
    EXPECT_TRUE(Make(L"2*r1")->IsEqual(*Make(L"2 * R1")));
    EXPECT_FALSE(Make(L"2*R1")->IsEqual(*Make(L"R1*2")));
    EXPECT_FALSE(Make(L"2")->IsEqual(FloatValue(2.0)));
}

TEST_F(ExpressionTest, ConstantsUnitsAndEvaluatedCopies)
{
    mScope.Add(L"C1", L"1nF");
    mScope.Add(L"R1", L"1k", Units::kOhm);
    VariableScopeGuard guard(&mScope);
    struct Case
    {
        const wchar_t* text;
        bool constant;
        Units::FullUnitType unit;
    };
    const Case cases[] = {
        {L"2*pi", true, Units::kNoUnit},           {L"1nF+2nF", true, Units::kFarad},
        {L"2*C1", false, Units::kFarad},           {L"C1/2", false, Units::kFarad},
        {L"R1*C1", false, Units::kNoUnit},         {L"C1/C1", false, Units::kNoUnit},
        {L"1V+1A", true, Units::kNoUnit},          {L"max(R1, 2k)", false, Units::kOhm},
        {L"if(1, 2pF, C1)", false, Units::kFarad}, {L"sqrt(C1)", false, Units::kNoUnit},
        {L"C1^2", false, Units::kNoUnit},          {L"-C1", false, Units::kFarad},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Narrow(c.text));
        auto expression = Make(c.text, Units::kVolt);
        EXPECT_EQ(expression->IsConstant(), c.constant);
        EXPECT_EQ(expression->GetExplicitUnits(), c.unit);
        EXPECT_EQ(expression->GetUnits(), c.unit == Units::kNoUnit ? Units::kVolt : c.unit);
    }
    auto expression = Make(L"2*C1");
    std::unique_ptr<ValueBase> evaluated(expression->CreateEvaluatedValueBase());
    ASSERT_NE(dynamic_cast<FloatValue*>(evaluated.get()), nullptr);
    EXPECT_DOUBLE_EQ(evaluated->GetValue(), 2e-9);
    EXPECT_EQ(evaluated->GetUnits(), Units::kFarad);
    mScope.Add(L"C1", L"5nF"); // the copy keeps what it was given
    EXPECT_DOUBLE_EQ(evaluated->GetValue(), 2e-9);
    EXPECT_DOUBLE_EQ(expression->GetValue(), 1e-8);
    EXPECT_EQ(expression->GetReferencedNames(), (std::vector<AString>{L"C1"}));
}

TEST_F(ExpressionTest, InstanceParametersGoToTheHostResolverAndAreHeld)
{
    std::vector<std::pair<AString, AString>> asked;
    InstanceReferenceResolverGuard resolver(
        [&asked](const AString& instance, const AString& parameter) -> ValueBase*
        {
            asked.emplace_back(instance, parameter);
            if (instance == L"X9")
            {
                return nullptr;
            }
            return new CountedValue(instance == L"R1" ? 100.0 : 7.0, instance + L"." + parameter);
        });
    ASSERT_EQ(CountedValue::sAlive, 0);
    {
        auto expression = Make(L"2*R1.R + R2.R - X9.R*0");
        EXPECT_EQ(asked.size(), 3u);
        EXPECT_EQ(CountedValue::sAlive, 2);
        const std::vector<ValueBase*> references = expression->GetInstanceReferences();
        ASSERT_EQ(references.size(), 3u);
        EXPECT_TRUE(references[0]->HasRef(expression.get()));
        EXPECT_EQ(references[2], nullptr);
        ValueError error;
        double value = 0;
        EXPECT_FALSE(expression->Evaluate(value, error)); // X9.R resolves to nothing
        EXPECT_EQ(error.GetSubject(), L"X9.R");

        std::unique_ptr<ValueBase> copy(expression->CloneValueBase()); // shares the objects
        EXPECT_EQ(CountedValue::sAlive, 2);
        EXPECT_TRUE(references[0]->HasRef(copy.get()));
        EXPECT_EQ(copy->GetValueText(), expression->GetValueText());
    }
    EXPECT_EQ(CountedValue::sAlive, 0); // the last holder let go

    // A lone reference is the resolver's object itself.
    ValueBase* lone = Value::CreateValueBase(L" R1.R ", Units::kNoUnit);
    ASSERT_NE(dynamic_cast<CountedValue*>(lone), nullptr);
    Value holder(lone);
    EXPECT_EQ(holder.GetValue(), 100.0);
    holder.Clear();
    EXPECT_EQ(CountedValue::sAlive, 0);
    // One the host cannot resolve stays an expression that says so when evaluated.
    std::unique_ptr<ValueBase> unresolved(Value::CreateValueBase(L"X9.R", Units::kNoUnit));
    ASSERT_NE(dynamic_cast<Expression*>(unresolved.get()), nullptr);
    EXPECT_EQ(unresolved->GetValueText(), L"X9.R");
    // The syntax check asks no resolver.
    asked.clear();
    EXPECT_TRUE(Value::IsValidText(L"2*R1.R"));
    EXPECT_TRUE(asked.empty());
}

TEST_F(ExpressionTest, ResolverThatThrowsCountsAsNone)
{
    InstanceReferenceResolverGuard resolver([](const AString&, const AString&) -> ValueBase*
                                            { throw std::runtime_error("host"); });
    std::unique_ptr<ValueBase> value(Value::CreateValueBase(L"R1.R+1", Units::kNoUnit));
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(static_cast<Expression*>(value.get())->GetInstanceReferences()[0], nullptr);
}
