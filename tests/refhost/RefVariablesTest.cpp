#include "RefVariables.h"

#include "Expression.h"
#include "FloatValue.h"
#include "InstanceReference.h"
#include "MessageManager.h"
#include "RefApplication.h"
#include "RefComponent.h"
#include "RefDesign.h"
#include "RefProject.h"
#include "Value.h"
#include "ValueProp.h"
#include "Variable.h"
#include "VariableProp.h"
#include "VariableScope.h"

#include <gtest/gtest.h>

#include <memory>

using namespace refhost;

namespace
{
double Evaluate(const wchar_t* text)
{
    std::unique_ptr<ValueBase> value(Value::CreateValueBase(text, Units::kNoUnit));
    return value != nullptr ? value->GetValue() : -1.0;
}

class RefVariablesTest : public ::testing::Test
{
protected:
    void TearDown() override { GetGlobalIMessageManager()->ClearMessages(); }

    RefApplication mApplication;
    RefProject& mProject = mApplication.AddProject(AString(L"Amp"), AString(L"C:\\Work\\Amp"));
    RefDesign& mDesign = mProject.AddDesign(AString(L"Top"));
};
} // namespace

TEST_F(RefVariablesTest, ExpressionsSeeTheActiveDesignAndItsProject)
{
    ASSERT_NE(mProject.AddVariable(L"vdd", L"3.3"), nullptr); // "$" put in front
    ASSERT_NE(mDesign.AddVariable(L"R1", L"10k"), nullptr);
    ASSERT_NE(mDesign.AddVariable(L"gain", L"R1/1k"), nullptr);
    RefDesign& other = mProject.AddDesign(AString(L"Other"));
    other.AddVariable(L"R1", L"1");

    EXPECT_EQ(Evaluate(L"2*R1"), 0.0); // nothing active yet
    mApplication.SetActiveDesign(&mDesign);
    EXPECT_EQ(Evaluate(L"2*R1"), 20000.0);
    EXPECT_DOUBLE_EQ(Evaluate(L"$VDD*gain"), 33.0);
    mApplication.SetActiveDesign(&other);
    EXPECT_EQ(Evaluate(L"2*r1"), 2.0);
    EXPECT_DOUBLE_EQ(Evaluate(L"$vdd"), 3.3); // the same project's variables

    std::unique_ptr<Expression> expression(Expression::Create(L"2 * r1 + $VDD", Units::kNoUnit));
    EXPECT_EQ(expression->RegenerateText(), L"2*R1+$vdd");
}

TEST_F(RefVariablesTest, VariablesAreRefusedWhenTheirNameOrTextIsBad)
{
    EXPECT_EQ(mProject.AddVariable(L"1x", L"1"), nullptr);
    EXPECT_NE(mProject.AddVariable(L"$v", L"1"), nullptr);
    EXPECT_EQ(mProject.AddVariable(L"V", L"2"), nullptr); // "$V" is taken (ignoring case)
    EXPECT_EQ(mDesign.AddVariable(L"$w", L"1"), nullptr); // a project variable's name
    EXPECT_EQ(mDesign.AddVariable(L"w", L"2*("), nullptr);
    EXPECT_EQ(mDesign.AddVariable(L"a b", L"1"), nullptr);
    EXPECT_NE(mDesign.AddVariable(L"w", L"\"text\""), nullptr);
    EXPECT_EQ(mDesign.AddVariable(L"W", L"1"), nullptr);
    EXPECT_EQ(mDesign.GetVariables().GetCount(), 1u);
}

TEST_F(RefVariablesTest, AnEndingDesignStopsBeingActive)
{
    RefDesign& temporary = mProject.AddDesign(AString(L"Temp"));
    temporary.AddVariable(L"x", L"5");
    mApplication.SetActiveDesign(&temporary);
    EXPECT_EQ(Evaluate(L"x"), 5.0);
    RefApplication* app = &mApplication;
    {
        RefApplication inner; // another application: its own, empty, view
        EXPECT_EQ(Evaluate(L"x"), 0.0);
    }
    EXPECT_EQ(GetIMerrowApplication(), app);
    EXPECT_EQ(Evaluate(L"x"), 5.0);
    ASSERT_TRUE(mApplication.CloseProject(&mProject));
    EXPECT_EQ(mApplication.GetActiveDesign(), nullptr);
}

TEST_F(RefVariablesTest, InstanceReferencesResolveThroughTheFactoryOnTheActiveDesign)
{
    RefComponent* resistor = mProject.AddComponent(AString(L"RES"), &mDesign);
    ASSERT_NE(resistor, nullptr);
    RefCompInst* r1 = mDesign.AddCompInst(AString(L"R1"), *resistor);
    auto* parameter = new ValueProp(L"R", {}, Units::kOhm);
    parameter->ChangeValue(L"47");
    r1->GetParameterPropList()->AddProp(parameter);
    mApplication.SetActiveDesign(&mDesign);

    std::unique_ptr<ValueBase> unresolved(Value::CreateValueBase(L"R1.R", Units::kNoUnit));
    EXPECT_NE(dynamic_cast<Expression*>(unresolved.get()), nullptr); // no factory: nothing

    std::vector<AString> asked;
    mApplication.SetInstanceParameterFactory(
        [&asked](RefCompInst& instance, const AString& name) -> ValueBase*
        {
            asked.push_back(instance.GetName() + L"." + name);
            Property* prop = instance.GetParameterPropList()->FindProp(name);
            return prop != nullptr ? new FloatValue(prop->GetValue(), Units::kOhm) : nullptr;
        });
    std::unique_ptr<ValueBase> resolved(Value::CreateValueBase(L"r1.R", Units::kNoUnit));
    ASSERT_NE(dynamic_cast<FloatValue*>(resolved.get()), nullptr);
    EXPECT_EQ(resolved->GetValue(), 47.0);
    EXPECT_EQ(Evaluate(L"2*R1.R + R9.R*0"), 0.0); // R9 is no instance: evaluation fails
    EXPECT_EQ(asked, (std::vector<AString>{L"R1.R", L"R1.R"}));
    EXPECT_EQ(Evaluate(L"2*R1.R"), 94.0);
}

TEST(RefVariablesHooksTest, HooksComeAndGoWithTheApplications)
{
    const IVariableScope* before = VariableScope::GetHostScope();
    {
        RefApplication first;
        const IVariableScope* installed = VariableScope::GetHostScope();
        EXPECT_NE(installed, before);
        EXPECT_TRUE(InstanceReference::HasResolver());
        {
            RefApplication second;
            EXPECT_EQ(VariableScope::GetHostScope(), installed);
        }
        EXPECT_EQ(VariableScope::GetHostScope(), installed);
    }
    EXPECT_EQ(VariableScope::GetHostScope(), before);
}
