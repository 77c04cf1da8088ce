#include "VariableProp.h"

#include "Assert.h"
#include "FloatValue.h"
#include "MessageManager.h"
#include "PropList.h"
#include "PropertyBlockTesting.h"
#include "ScriptArgInfo.h"
#include "StringValue.h"
#include "ValueProp.h"
#include "Variable.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{
class VariablePropTest : public ::testing::Test
{
protected:
    void TearDown() override { GetGlobalIMessageManager()->ClearMessages(); }
};
} // namespace

TEST_F(VariablePropTest, NameIsTheVariablesName)
{
    VariableProp prop(L"R1", {}, Units::kOhm);
    Variable* variable = prop.GetVariable();
    ASSERT_NE(variable, nullptr);
    EXPECT_EQ(variable->GetName(), L"R1");
    EXPECT_TRUE(prop.SetPropertyName(L"$Rload"));
    EXPECT_EQ(variable->GetName(), L"$Rload");
    EXPECT_TRUE(variable->IsProjectVariable());
    for (const wchar_t* bad : {L"", L"a b", L"x$y", L"$"})
    {
        EXPECT_FALSE(prop.SetPropertyName(bad));
    }
    EXPECT_EQ(prop.PropertyName(), L"$Rload");
    EXPECT_EQ(variable->GetName(), L"$Rload");

    VariableProp adopted(new Variable(L"gain", new FloatValue(3.0)), {kPropFlagTunable});
    EXPECT_EQ(adopted.PropertyName(), L"gain");
    EXPECT_EQ(adopted.GetValue(), 3.0);
    AssertCapture capture;
    VariableProp none(nullptr, {});
    EXPECT_EQ(capture.Texts(), (std::vector<std::string>{"variable"}));
    EXPECT_NE(none.GetVariable(), nullptr);
}

TEST_F(VariablePropTest, EligibilityForExperimentsFollowsTheValue)
{
    struct Case
    {
        const wchar_t* text; // null: no value
        bool eligible;
    };
    const Case cases[] = {
        {L"10k", true}, {L"2*w", true}, {L"\"text\"", false}, {nullptr, false}, {L"1e-3", true},
    };
    for (const Case& c : cases)
    {
        VariableProp prop(L"x", {});
        if (c.text != nullptr)
        {
            ASSERT_TRUE(prop.ChangeValue(c.text));
        }
        EXPECT_EQ(prop.CanTakePartInExperiment(), c.eligible) << (c.text ? "value" : "none");
    }
}

TEST_F(VariablePropTest, ExperimentAttributesPerKind)
{
    VariableProp prop(L"R", {});
    EXPECT_EQ(prop.GetAttributes(id::kParametric), nullptr);
    ASSERT_TRUE(prop.GetOptiData().SetAttributes(id::kParametric, {true, 1, 10, 1}));
    const VariableProp& constProp = prop;
    ASSERT_NE(constProp.GetAttributes(id::kParametric), nullptr);
    EXPECT_TRUE(constProp.GetAttributes(id::kParametric)->IsInclude());
    EXPECT_EQ(prop.GetAttributes(id::kStatistical), nullptr);

    VariableProp other(L"S", {});
    EXPECT_TRUE(other.GetOptiData().ChangeOptiData(prop.GetOptiData()));
    EXPECT_FALSE(other.GetOptiData().ChangeOptiData(prop.GetOptiData())); // nothing new
    EXPECT_EQ(other.GetAttributes(id::kParametric)->GetUpper(), 10);
    VariableProp copy(prop); // copies carry the settings
    EXPECT_TRUE(copy.GetOptiData() == prop.GetOptiData());
}

TEST_F(VariablePropTest, InstanceSideAndEvaluatedCopies)
{
    PropList params;
    params.AddProp(new VariableProp(L"W", Value(L"2u", Units::kNoUnit), {}));
    auto* length = new VariableProp(L"L", {kPropFlagDisplayed}, Units::kMetre);
    ASSERT_TRUE(length->ChangeValue(L"W*5"));
    params.AddProp(length);
    EXPECT_DOUBLE_EQ(length->GetValue(), 1e-5);
    EXPECT_EQ(length->GetUnits(), Units::kMetre);
    EXPECT_EQ(length->GetUnitType(), Units::kLength);

    std::unique_ptr<Property> instance(length->CopyToInstance());
    auto* valueProp = dynamic_cast<ValueProp*>(instance.get());
    ASSERT_NE(valueProp, nullptr);
    EXPECT_EQ(valueProp->GetVariable(), length->GetVariable());
    EXPECT_EQ(valueProp->PropertyValue(), L"W*5");
    EXPECT_TRUE(valueProp->HasFlag(kPropFlagDisplayed));

    std::unique_ptr<Property> evaluated(length->CreateEvaluatedProperty());
    auto* fixed = dynamic_cast<VariableProp*>(evaluated.get());
    ASSERT_NE(fixed, nullptr);
    EXPECT_NE(dynamic_cast<FloatValue*>(fixed->GetVariable()->GetValueObject().GetValueBase()),
              nullptr);
    EXPECT_DOUBLE_EQ(fixed->GetValue(), 1e-5); // out of the list, still the number
    EXPECT_NE(fixed->GetVariable(), length->GetVariable());
}

TEST_F(VariablePropTest, RefusesTextsAndUnitsAndKeepsItsValue)
{
    VariableProp prop(L"C", {}, Units::kFarad);
    ASSERT_TRUE(prop.ChangeValue(L"1n"));
    EXPECT_FALSE(prop.ChangeValue(L"1+"));
    EXPECT_FALSE(prop.ChangeValue(L"5 V"));
    EXPECT_EQ(prop.PropertyValue(), L"1n");
    EXPECT_TRUE(prop.ChangeValue(2e-9));
    EXPECT_EQ(prop.PropertyValue(), L"2nF");
    EXPECT_EQ(GetGlobalIMessageManager()->GetMessageCount(), 2u);
}

TEST_F(VariablePropTest, ScriptArgumentsAndCopies)
{
    VariableProp prop(L"gain", {});
    prop.ChangeValue(L"2");
    ScriptArgInfo args;
    args.SetString(L"Value", L"gain0*3");
    args.SetString(L"Name", L"g");
    PropChange change;
    EXPECT_TRUE(prop.AssignFromScriptArguments(args, change));
    EXPECT_TRUE(change.Has(PropChange::kValue));
    EXPECT_TRUE(change.Has(PropChange::kName));
    EXPECT_EQ(prop.GetVariable()->GetName(), L"g");
    ScriptArgInfo out;
    prop.GetScriptArguments(out, PropChange{PropChange::kValue});
    AString value;
    ASSERT_TRUE(out.GetString(L"Value", value));
    EXPECT_EQ(value, L"gain0*3");

    VariableProp target(L"t", {});
    target.CopyProp(prop);
    EXPECT_EQ(target.PropertyName(), L"g");
    EXPECT_EQ(target.GetVariable()->GetName(), L"g");
    EXPECT_EQ(target.GetVariable()->GetValueObject().GetValueBase(),
              prop.GetVariable()->GetValueObject().GetValueBase());
    ValueProp source(L"v", {});
    source.ChangeValue(L"7");
    target.CopyProp(source);
    EXPECT_EQ(target.PropertyValue(), L"7");
}

TEST_F(VariablePropTest, BlockFormRoundTripsWithExperimentSettings)
{
    VariableProp prop(L"R", {kPropFlagOptimizable}, Units::kOhm);
    prop.ChangeValue(L"10k");
    prop.GetOptiData().SetAttributes(id::kOptimization, {true, 1000, 20000, 0});
    prop.GetOptiData().SetAttributes(id::kStatistical, {false, -1, 1, 0.5});
    EXPECT_EQ(proptest::BlockText(prop), "Prop {\n"
                                         "    \"R\"\n"
                                         "    512\n"
                                         "    \"10k\"\n"
                                         "    1000\n"
                                         "    Opti {\n"
                                         "        Experiment { 3 true 1000.0 20000.0 0.0 }\n"
                                         "        Experiment { 6 false -1.0 1.0 0.5 }\n"
                                         "    }\n"
                                         "}\n");
    VariableProp fresh;
    proptest::ExpectRoundTrip(prop, fresh);
    EXPECT_EQ(fresh.GetVariable()->GetName(), L"R");
    EXPECT_TRUE(fresh.GetOptiData() == prop.GetOptiData());

    VariableProp unnamed; // an empty property writes and reads back too
    VariableProp again(L"x", {});
    proptest::ExpectRoundTrip(unnamed, again);
    VariableProp neutral;
    proptest::ExpectNeutralRoundTrip(prop, neutral);

    VariableProp target(L"T", {}, Units::kVolt);
    target.ChangeValue(L"1");
    target.GetOptiData().SetAttributes(id::kTuning, {true, 0, 2, 0});
    EXPECT_GT(proptest::ExpectDamageLeavesPropertyAlone(prop, target), 0);
}
