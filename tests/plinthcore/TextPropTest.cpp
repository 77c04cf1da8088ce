#include "TextProp.h"

#include "PropertyBlockTesting.h"
#include "ScriptArgInfo.h"

#include <gtest/gtest.h>

TEST(TextPropTest, TakesAnyTextAndNumbersAsText)
{
    TextProp prop(L"Label", L"R1", {});
    EXPECT_TRUE(prop.ChangeValue(L"  any \"text\", even 2*( "));
    EXPECT_EQ(prop.GetText(), L"  any \"text\", even 2*( ");
    EXPECT_TRUE(prop.ChangeValue(0.25));
    EXPECT_EQ(prop.PropertyValue(), L"0.25");
    EXPECT_FALSE(prop.HasUnits());
    EXPECT_EQ(prop.GetUnitType(), Units::kDimensionless);
    ScriptArgInfo args;
    args.SetString(L"Value", L"new");
    PropChange change;
    EXPECT_TRUE(prop.AssignFromScriptArguments(args, change));
    EXPECT_EQ(prop.GetText(), L"new");
    EXPECT_TRUE(change.Has(PropChange::kValue));
    args.SetInt(L"Value", 3); // a number is no text for a script
    EXPECT_FALSE(prop.AssignFromScriptArguments(args, change));
}

TEST(TextPropTest, BlockFormRoundTrips)
{
    TextProp prop(L"Note", L"line 1\nline 2 \u00E4", {kPropFlagUserDefined});
    TextProp fresh;
    proptest::ExpectRoundTrip(prop, fresh);
    EXPECT_EQ(fresh.GetText(), prop.GetText());
    TextProp neutral;
    proptest::ExpectNeutralRoundTrip(prop, neutral);
    TextProp target(L"T", L"keep", {});
    EXPECT_GT(proptest::ExpectDamageLeavesPropertyAlone(prop, target), 0);
}
