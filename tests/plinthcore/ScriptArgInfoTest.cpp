#include "ScriptArgInfo.h"

#include <gtest/gtest.h>

TEST(ScriptArgInfoTest, ConvertsOnlyWithoutLosingMeaning)
{
    ScriptArgInfo args;
    args.SetBool(L"b", true);
    args.SetInt(L"i", -3);
    args.SetDouble(L"whole", 4.0);
    args.SetDouble(L"half", 2.5);
    args.SetDouble(L"huge", 1e12);
    args.SetString(L"s", L"text");
    struct Case
    {
        const wchar_t* name;
        bool asBool, asInt, asDouble, asString;
    };
    const Case cases[] = {
        {L"b", true, true, false, false},         {L"i", true, true, true, false},
        {L"WHOLE", false, true, true, false},     {L"half", false, false, true, false},
        {L"huge", false, false, true, false},     {L"s", false, false, false, true},
        {L"missing", false, false, false, false},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(AString(c.name).ToUTF8());
        bool b = false;
        int i = 99;
        double d = 99;
        AString s = L"untouched";
        EXPECT_EQ(args.GetBool(c.name, b), c.asBool);
        EXPECT_EQ(args.GetInt(c.name, i), c.asInt);
        EXPECT_EQ(args.GetDouble(c.name, d), c.asDouble);
        EXPECT_EQ(args.GetString(c.name, s), c.asString);
        if (!c.asInt)
        {
            EXPECT_EQ(i, 99);
        }
        if (!c.asString)
        {
            EXPECT_EQ(s, L"untouched");
        }
    }
    int i = 0;
    args.GetInt(L"b", i);
    EXPECT_EQ(i, 1);
    bool b = true;
    args.SetInt(L"zero", 0);
    args.GetBool(L"zero", b);
    EXPECT_FALSE(b);
}

TEST(ScriptArgInfoTest, KeepsFirstSetOrderAndReplacesByNameIgnoringCase)
{
    ScriptArgInfo args;
    args.SetString(L"Value", L"1");
    args.SetBool(L"HasPin", true);
    args.SetString(L"VALUE", L"2"); // replaces in place, keeps its first spelling
    EXPECT_EQ(args.GetNames(), (std::vector<AString>{L"Value", L"HasPin"}));
    AString value;
    args.GetString(L"value", value);
    EXPECT_EQ(value, L"2");
    EXPECT_TRUE(args.Remove(L"hASpIN"));
    EXPECT_FALSE(args.Remove(L"HasPin"));
    EXPECT_EQ(args.GetCount(), 1u);
    EXPECT_TRUE(args.HasArgument(L"value"));
}
