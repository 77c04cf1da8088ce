#include "NumberProp.h"

#include "PropertyBlockTesting.h"
#include "ScriptArgInfo.h"

#include <gtest/gtest.h>

#include <limits>

TEST(NumberPropTest, ReadsTextsInItsUnitAndConverts)
{
    struct Case
    {
        const wchar_t* text;
        Units::FullUnitType written;
        bool accepted;
        double number;
    };
    const Case cases[] = {
        {L"30", Units::kDegreeCelsius, true, 30},
        {L"300kelvin", Units::kDegreeCelsius, true, 26.85},
        {L"300K", Units::kDegreeCelsius, true, 300000}, // "K" is kilo
        {L"300", Units::kKelvin, true, 26.85},
        {L"1k", Units::kDegreeCelsius, true, 1000},
        {L"3V", Units::kDegreeCelsius, false, 25},
        {L"3", Units::kVolt, false, 25},
        {L"warm", Units::kDegreeCelsius, false, 25},
    };
    for (const Case& c : cases)
    {
        NumberProp prop(L"T", 25, true, Units::kDegreeCelsius, {});
        EXPECT_EQ(prop.SetNumber(c.text, c.written), c.accepted) << AString(c.text).ToUTF8();
        EXPECT_NEAR(prop.GetNumber(), c.number, 1e-9);
    }
    NumberProp prop(L"N", 0, false, Units::kNoUnit, {});
    EXPECT_EQ(prop.PropertyValue(), L"");
    EXPECT_TRUE(prop.ChangeValue(L"2.9"));
    EXPECT_TRUE(prop.IsSet());
    EXPECT_EQ(prop.PropertyValue(), L"2.9");
    EXPECT_FALSE(prop.SetNumber(std::numeric_limits<double>::infinity()));
    EXPECT_TRUE(prop.ChangeValue(L"  "));
    EXPECT_FALSE(prop.IsSet());
    EXPECT_EQ(prop.GetNumber(), 2.9); // kept while unset
    NumberProp length(L"L", 1e-3, true, Units::kMetre, {});
    EXPECT_EQ(length.PropertyValue(), L"1mm");
    EXPECT_TRUE(length.HasUnits());
    EXPECT_EQ(length.GetUnitType(), Units::kLength);
}

TEST(NumberPropTest, ScriptValueIsANumber)
{
    NumberProp prop(L"N", 1, true, Units::kNoUnit, {});
    ScriptArgInfo out;
    prop.GetScriptArguments(out, PropChange{PropChange::kValue});
    double value = 0;
    ASSERT_TRUE(out.GetDouble(L"Value", value));
    EXPECT_EQ(value, 1.0);
    ScriptArgInfo in;
    in.SetInt(L"Value", 4);
    PropChange change;
    EXPECT_TRUE(prop.AssignFromScriptArguments(in, change));
    EXPECT_EQ(prop.GetNumber(), 4.0);
    EXPECT_TRUE(change.Has(PropChange::kValue));
    in.SetString(L"Value", L"x");
    EXPECT_FALSE(prop.AssignFromScriptArguments(in, change));
}

TEST(NumberPropTest, BlockFormRoundTripsSetAndUnset)
{
    NumberProp set(L"T", 26.85, true, Units::kDegreeCelsius, {});
    EXPECT_EQ(proptest::BlockText(set), "Prop { \"T\" 0 26.85 true 1009 }\n");
    NumberProp fresh;
    proptest::ExpectRoundTrip(set, fresh);
    NumberProp unset(L"U", -0.5, false, Units::kMetre, {kPropFlagHidden});
    NumberProp fresh2;
    proptest::ExpectRoundTrip(unset, fresh2);
    EXPECT_FALSE(fresh2.IsSet());
    EXPECT_EQ(fresh2.GetNumber(), -0.5);
    NumberProp neutral;
    proptest::ExpectNeutralRoundTrip(set, neutral);
    EXPECT_EQ(neutral.GetUnit(), Units::kDegreeCelsius);
    EXPECT_NEAR(neutral.GetNumber(), 26.85, 1e-12);
    NumberProp neutralUnset(L"y", 2, true, Units::kVolt, {});
    proptest::ExpectNeutralRoundTrip(unset, neutralUnset);
    EXPECT_FALSE(neutralUnset.IsSet());
    NumberProp target(L"X", 1, true, Units::kVolt, {});
    EXPECT_GT(proptest::ExpectDamageLeavesPropertyAlone(set, target), 0);
    io::CBlock_func notFinite(L"Prop");
    notFinite.AddValue(L"T");
    notFinite.AddValue(0);
    notFinite.AddValue(std::numeric_limits<double>::quiet_NaN());
    notFinite.AddValue(true);
    notFinite.AddValue(90);
    EXPECT_EQ(target.Read(notFinite, nullptr), io::kReadFailed);
    EXPECT_EQ(target.GetNumber(), 1.0);
}
