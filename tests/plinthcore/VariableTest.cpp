#include "Variable.h"

#include "MessageManager.h"

#include <gtest/gtest.h>

TEST(VariableTest, NamesAndProjectPrefix)
{
    struct Case
    {
        const wchar_t* name;
        bool valid;
        bool prefixed;       // CreateNameWithPrefix succeeds
        const wchar_t* with; // its result
    };
    const Case cases[] = {
        {L"R1", true, true, L"$R1"},     {L"$vdd", true, true, L"$vdd"},
        {L"a[3]", true, false, nullptr}, {L"_x9", true, true, L"$_x9"},
        {L"", false, false, nullptr},    {L"a b", false, false, nullptr},
        {L"$", false, false, nullptr},   {L"a$b", false, false, nullptr},
        {L"$$x", false, false, nullptr}, {L"1a", true, false, nullptr},
        {L"q\"", false, false, nullptr}, {L"\u00E9t\u00E9", true, true, L"$\u00E9t\u00E9"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(AString(c.name).ToUTF8());
        EXPECT_EQ(Variable::IsValidName(c.name), c.valid);
        AString name = c.name;
        EXPECT_EQ(Variable::CreateNameWithPrefix(name, L'$'), c.prefixed);
        EXPECT_EQ(name, c.prefixed ? AString(c.with) : AString(c.name));
        Variable variable(L"old");
        EXPECT_EQ(variable.ChangeName(c.name), c.valid);
        EXPECT_EQ(variable.GetName(), c.valid ? AString(c.name) : AString(L"old"));
    }
    EXPECT_TRUE(Variable(L"$v").IsProjectVariable());
    EXPECT_FALSE(Variable(L"v").IsProjectVariable());
}

TEST(VariableTest, ValuesAreSharedByCopiesUntilChanged)
{
    Variable a(L"a", Value(L"10k", Units::kOhm));
    EXPECT_EQ(a.GetValue(), 10000.0);
    EXPECT_EQ(a.GetValueObject().GetUnits(), Units::kOhm);
    Variable b = a;
    EXPECT_EQ(b.GetValueObject().GetValueBase(), a.GetValueObject().GetValueBase());
    EXPECT_TRUE(b.ChangeValue(L"2*3"));
    EXPECT_EQ(b.GetValue(), 6.0);
    EXPECT_EQ(a.GetValue(), 10000.0);
    GetGlobalIMessageManager()->ClearMessages();
    EXPECT_FALSE(b.ChangeValue(L"2*"));
    EXPECT_EQ(b.GetValueText(), L"2*3");
    EXPECT_EQ(GetGlobalIMessageManager()->TakeMessages().size(), 1u);
    Variable empty(L"e");
    EXPECT_EQ(empty.GetValueText(), L"");
    EXPECT_EQ(empty.GetValue(), 0.0);
}
