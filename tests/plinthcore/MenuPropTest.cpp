#include "MenuProp.h"

#include "PropertyBlockTesting.h"
#include "ScriptArgInfo.h"
#include "TextProp.h"

#include <gtest/gtest.h>

TEST(MenuPropTest, ChoicesSplitAtCommasAndSelectIgnoringCase)
{
    EXPECT_EQ(MenuProp::SplitChoices(L" Low , High,,  Mid "),
              (std::vector<AString>{L"Low", L"High", L"Mid"}));
    EXPECT_TRUE(MenuProp::SplitChoices(L" , ").empty());
    MenuProp menu(L"Model", {}, L"Low, High", 1);
    EXPECT_EQ(menu.PropertyValue(), L"High");
    struct Case
    {
        const wchar_t* text;
        bool accepted;
        const wchar_t* current;
    };
    const Case cases[] = {
        {L"low", true, L"Low"},  {L"\"HIGH\"", true, L"High"}, {L" Low ", true, L"Low"},
        {L"Mid", false, L"Low"}, {L"\"Mid\"", false, L"Low"},  {L"", false, L"Low"},
    };
    for (const Case& c : cases)
    {
        EXPECT_EQ(menu.ChangeValue(c.text), c.accepted) << AString(c.text).ToUTF8();
        EXPECT_EQ(menu.PropertyValue(), c.current);
    }
    EXPECT_TRUE(menu.ChangeValue(1.0));
    EXPECT_FALSE(menu.ChangeValue(2.0));
    EXPECT_FALSE(menu.ChangeValue(0.5));
    EXPECT_FALSE(menu.ChangeValue(-1.0));
    EXPECT_EQ(menu.GetCurrentIndex(), 1u);
    EXPECT_FALSE(menu.SetCurrentIndex(2));

    // New choices keep the current one when they still have it.
    menu.SetChoices({L"Mid", L"HIGH"});
    EXPECT_EQ(menu.GetCurrentIndex(), 1u);
    menu.SetChoices({L"A", L"B"});
    EXPECT_EQ(menu.GetCurrentIndex(), 0u);
    MenuProp empty(L"E", {});
    EXPECT_EQ(empty.PropertyValue(), L"");
    MenuProp outOfRange(L"O", {}, L"a,b", 5); // an index past the choices selects the first
    EXPECT_EQ(outOfRange.PropertyValue(), L"a");
}

TEST(MenuPropTest, ScriptArgumentsCarryChoicesBeforeTheValue)
{
    MenuProp menu(L"Model", {}, L"Low,High", 0);
    ScriptArgInfo args;
    args.SetString(L"Value", L"Mid");
    args.SetString(L"Choices", L"Low, Mid");
    PropChange change;
    EXPECT_TRUE(menu.AssignFromScriptArguments(args, change));
    EXPECT_EQ(menu.PropertyValue(), L"Mid");
    EXPECT_TRUE(change.Has(PropChange::kChoices));
    EXPECT_TRUE(change.Has(PropChange::kValue));
    ScriptArgInfo out;
    menu.GetScriptArguments(out, PropChange{PropChange::kAll});
    AString choices;
    ASSERT_TRUE(out.GetString(L"Choices", choices));
    EXPECT_EQ(choices, L"Low,Mid");
    ScriptArgInfo bad;
    bad.SetString(L"Value", L"none");
    PropChange none;
    EXPECT_FALSE(menu.AssignFromScriptArguments(bad, none));
    EXPECT_TRUE(none.IsEmpty());
}

TEST(MenuPropTest, BlockFormKeepsEveryChoiceExactly)
{
    MenuProp menu(L"Model", {kPropFlagDisplayed}, L"", 0);
    menu.SetChoices({L"a, b", L" spaced ", L"\"quoted\""});
    menu.SetCurrentIndex(2);
    EXPECT_EQ(proptest::BlockText(menu),
              "Prop {\n"
              "    \"Model\"\n"
              "    4\n"
              "    2\n"
              "    Choices { \"a, b\" \" spaced \" \"\\\"quoted\\\"\" }\n"
              "}\n");
    MenuProp fresh;
    proptest::ExpectRoundTrip(menu, fresh);
    EXPECT_EQ(fresh.GetChoices(), menu.GetChoices());
    MenuProp empty;
    MenuProp fresh2(L"x", {}, L"p,q", 1);
    proptest::ExpectRoundTrip(empty, fresh2);
    MenuProp target(L"T", {}, L"one,two", 1);
    EXPECT_GT(proptest::ExpectDamageLeavesPropertyAlone(menu, target), 0);
    MenuProp neutral;
    proptest::ExpectNeutralRoundTrip(menu, neutral);
    EXPECT_EQ(neutral.GetChoices(), menu.GetChoices());
    EXPECT_EQ(neutral.GetCurrentIndex(), 2u);
    MenuProp emptyNeutral(L"x", {}, L"p", 0);
    proptest::ExpectNeutralRoundTrip(empty, emptyNeutral);
    // A text that names no choice fails and changes nothing.
    io::CBlock_func unknown(L"Prop");
    unknown.AddValue(L"Model");
    unknown.AddValue(kMenuPropType);
    unknown.AddValue(0);
    unknown.AddValue(L"nothing");
    EXPECT_EQ(neutral.ReadNeutral(unknown), io::kReadFailed);
    EXPECT_EQ(neutral.GetCurrentIndex(), 2u);
    // Neutral form: any property takes the choice as its text.
    TextProp text;
    EXPECT_EQ(text.ReadNeutral(proptest::ParseBlock(proptest::BlockText(menu, true))),
              io::kNoError);
    EXPECT_EQ(text.GetText(), L"\"quoted\"");
}
