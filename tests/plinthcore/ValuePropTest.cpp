#include "ValueProp.h"

#include "Expression.h"
#include "MessageManager.h"
#include "PropList.h"
#include "PropVisitor.h"
#include "PropertyBlockTesting.h"
#include "ScriptArgInfo.h"
#include "StringValue.h"
#include "ValueBase.h"
#include "Variable.h"
#include "VariableProp.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>

namespace
{
std::string Narrow(std::wstring_view text)
{
    return AString::ToUTF8(text);
}

class ValuePropTest : public ::testing::Test
{
protected:
    void SetUp() override { GetGlobalIMessageManager()->ClearMessages(); }
    void TearDown() override { GetGlobalIMessageManager()->ClearMessages(); }
    static std::vector<Message> Messages() { return GetGlobalIMessageManager()->TakeMessages(); }
};
} // namespace

TEST_F(ValuePropTest, ChangesValueFromTextsInItsUnit)
{
    struct Case
    {
        const wchar_t* text;
        bool accepted;
        double value;
        Units::FullUnitType unit;
        int message; // 0: none
    };
    const Case cases[] = {
        {L"2.2n", true, 2.2e-9, Units::kFarad, 0},
        {L"2.2nF", true, 2.2e-9, Units::kFarad, 0},
        {L"1 farad", true, 1, Units::kFarad, 0},
        {L"2*(1n+1.2nF)", true, 4.4e-9, Units::kFarad, 0},
        {L"\"text\"", true, 0, Units::kFarad, 0},
        {L"3 ohm", false, 0, Units::kFarad, ValueError::kMsgUnitMismatch},
        {L"1nF+2V", true, 2.000000001, Units::kFarad, 0}, // mixed units name none
        {L"2*(", false, 0, Units::kFarad, ValueError::kMsgBadValueText},
        {L"", false, 0, Units::kFarad, ValueError::kMsgBadValueText},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Narrow(c.text));
        ValueProp prop(L"C", {}, Units::kFarad);
        ASSERT_TRUE(prop.ChangeValue(L"1p"));
        EXPECT_EQ(prop.ChangeValue(c.text), c.accepted);
        const std::vector<Message> messages = Messages();
        if (c.accepted)
        {
            EXPECT_NEAR(prop.GetValue(), c.value, 1e-15 * std::max(1.0, c.value));
            EXPECT_EQ(prop.PropertyValue(), AString(c.text));
            EXPECT_EQ(prop.GetUnits(), c.unit);
            EXPECT_TRUE(messages.empty());
        }
        else
        {
            EXPECT_EQ(prop.PropertyValue(), L"1p"); // unchanged
            ASSERT_EQ(messages.size(), 1u);
            EXPECT_EQ(messages[0].GetNumber(), c.message);
        }
    }
    ValueProp prop(L"C", {}, Units::kFarad);
    EXPECT_EQ(prop.PropertyValue(), L"");
    EXPECT_EQ(prop.GetValue(), 0.0);
    EXPECT_TRUE(prop.ChangeValue(1.5e-12));
    EXPECT_EQ(prop.PropertyValue(), L"1.5pF");
    EXPECT_TRUE(prop.ChangeValue(AComplex<double>(2e-12, 0)));
    EXPECT_FALSE(prop.ChangeValue(AComplex<double>(2e-12, 1)));
    EXPECT_EQ(prop.PropertyValue(), L"2pF");
    EXPECT_EQ(prop.GetUnitType(), Units::kCapacitance);
}

TEST_F(ValuePropTest, EvaluatesInTheScopeOfItsList)
{
    PropList params;
    params.AddProp(new VariableProp(L"W", Value(L"2u", Units::kNoUnit), {}));
    auto* area = new ValueProp(L"A", {});
    ASSERT_TRUE(area->ChangeValue(L"w*3u"));
    params.AddProp(area);
    EXPECT_DOUBLE_EQ(area->GetValue(), 6e-12);
    EXPECT_TRUE(Messages().empty());
    // Taken out of the list, the name is unknown.
    std::unique_ptr<Property> loose(params.DetachProp(area));
    EXPECT_EQ(static_cast<ValueProp*>(loose.get())->GetValue(), 0.0);
    EXPECT_EQ(Messages().size(), 1u);
}

TEST_F(ValuePropTest, InstanceSideSharesTheDefinitionsValue)
{
    VariableProp definition(L"R", {kPropFlagDisplayed}, Units::kOhm);
    ASSERT_TRUE(definition.ChangeValue(L"10k"));
    ValueProp instance(definition, *definition.GetVariable());
    EXPECT_EQ(instance.PropertyName(), L"R");
    EXPECT_TRUE(instance.HasFlag(kPropFlagDisplayed));
    EXPECT_EQ(instance.GetVariable(), definition.GetVariable());
    EXPECT_EQ(instance.GetValueBase(), definition.GetVariable()->GetValueObject().GetValueBase());
    EXPECT_EQ(instance.GetDefaultUnits(), Units::kOhm);
    // Changing the instance gives it a value of its own.
    ASSERT_TRUE(instance.ChangeValue(L"22k"));
    EXPECT_EQ(definition.PropertyValue(), L"10k");
    EXPECT_FALSE(instance.ChangeValue(L"1nF"));
    Messages();
}

TEST_F(ValuePropTest, MatchesCopiesAndChangesFromOtherProperties)
{
    ValueProp a(L"R", {}, Units::kOhm);
    a.ChangeValue(L"10k");
    ValueProp b(L"r", {}, Units::kOhm);
    b.ChangeValue(L"10k");
    EXPECT_EQ(a.MatchProp(b), kPropExactMatch); // names ignore case
    b.SetFlag(kPropFlagHidden, true);
    EXPECT_EQ(a.MatchProp(b), kPropValueMatch);
    b.ChangeValue(L"1k");
    EXPECT_EQ(a.MatchProp(b), kPropNameMatch);
    b.SetPropertyName(L"other");
    EXPECT_EQ(a.MatchProp(b), kPropTypeMatch);
    VariableProp variable(L"R", {}, Units::kOhm);
    EXPECT_EQ(a.MatchProp(variable), kPropNoMatch);

    a.CopyProp(b);
    EXPECT_EQ(a.PropertyName(), L"other");
    EXPECT_EQ(a.GetValueBase(), b.GetValueBase()); // shared
    EXPECT_TRUE(a.HasFlag(kPropFlagHidden));

    variable.ChangeValue(L"47");
    EXPECT_TRUE(a.ChangeProp(variable, {kPropFlagReadOnly}));
    EXPECT_EQ(a.PropertyValue(), L"47");
    EXPECT_TRUE(a.HasFlag(kPropFlagReadOnly));
    EXPECT_FALSE(a.HasFlag(kPropFlagHidden));
    variable.SetDefaultUnits(Units::kNoUnit);
    variable.ChangeValue(L"3nF");
    EXPECT_FALSE(a.ChangeProp(variable, {})); // refused: value and flags stay
    EXPECT_EQ(a.PropertyValue(), L"47");
    EXPECT_TRUE(a.HasFlag(kPropFlagReadOnly));
    Messages();
}

TEST_F(ValuePropTest, ExchangesScriptArguments)
{
    ValueProp prop(L"V", {}, Units::kVolt);
    prop.ChangeValue(L"5");
    ScriptArgInfo out;
    prop.GetScriptArguments(out, PropChange{});
    EXPECT_EQ(out.GetCount(), 0u);
    prop.GetScriptArguments(out, PropChange{PropChange::kValue});
    EXPECT_EQ(out.GetNames(), (std::vector<AString>{L"Value"}));
    prop.GetScriptArguments(out, PropChange{PropChange::kAll});
    EXPECT_EQ(out.GetNames(), (std::vector<AString>{L"Value", L"Name", L"Flags"}));

    struct Case
    {
        std::function<void(ScriptArgInfo&)> fill;
        bool ok;
        const wchar_t* value;
        bool changed;
    };
    const Case cases[] = {
        {[](ScriptArgInfo& a) { a.SetString(L"value", L"3.3"); }, true, L"3.3", true},
        {[](ScriptArgInfo& a) { a.SetDouble(L"Value", 1.5); }, true, L"1.5V", true},
        {[](ScriptArgInfo& a) { a.SetString(L"Value", L"5"); }, true, L"5", false},
        {[](ScriptArgInfo& a) { a.SetString(L"Value", L"2A"); }, false, L"5", false},
        {[](ScriptArgInfo& a) { a.SetBool(L"Value", true); }, false, L"5", false},
        {[](ScriptArgInfo&) {}, true, L"5", false},
    };
    for (const Case& c : cases)
    {
        ValueProp target(L"V", {}, Units::kVolt);
        target.ChangeValue(L"5");
        ScriptArgInfo in;
        c.fill(in);
        PropChange change;
        EXPECT_EQ(target.AssignFromScriptArguments(in, change), c.ok);
        EXPECT_EQ(target.PropertyValue(), c.value);
        EXPECT_EQ(change.Has(PropChange::kValue), c.changed);
    }
    Messages();
}

TEST_F(ValuePropTest, BlockFormRoundTripsAndRefusesDamage)
{
    ValueProp prop(L"C", {kPropFlagDisplayed, kPropFlagShowName}, Units::kFarad);
    prop.ChangeValue(L"2*(1n + C0)");
    EXPECT_EQ(proptest::BlockText(prop), "Prop { \"C\" 132 \"2*(1n + C0)\" 1002 }\n");
    ValueProp fresh;
    proptest::ExpectRoundTrip(prop, fresh);
    EXPECT_NE(dynamic_cast<Expression*>(fresh.GetValueBase()), nullptr);
    ValueProp empty(L"E", {});
    ValueProp freshEmpty(L"x", {});
    freshEmpty.ChangeValue(L"1");
    proptest::ExpectRoundTrip(empty, freshEmpty);
    EXPECT_TRUE(freshEmpty.GetValueObject().IsEmpty());

    ValueProp neutral(L"other", {});
    proptest::ExpectNeutralRoundTrip(prop, neutral);
    EXPECT_EQ(proptest::BlockText(prop, true), "Prop { \"C\" 2 132 \"2*(1n + C0)\" }\n");

    ValueProp target(L"T", {kPropFlagHidden}, Units::kVolt);
    target.ChangeValue(L"3");
    EXPECT_GT(proptest::ExpectDamageLeavesPropertyAlone(prop, target), 0);
    // A value text that is no value fails the read too.
    io::CBlock_func bad(L"Prop");
    bad.AddValue(L"C");
    bad.AddValue(0);
    bad.AddValue(L"2*(");
    bad.AddValue(90);
    EXPECT_EQ(target.Read(bad, nullptr), io::kReadFailed);
    EXPECT_EQ(target.PropertyValue(), L"3");
    EXPECT_TRUE(Messages().empty()); // reading is quiet
}
