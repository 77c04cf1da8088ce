#include "PropertyFactory.h"

#include "ButtonProp.h"
#include "MenuProp.h"
#include "MessageManager.h"
#include "NumberProp.h"
#include "TextProp.h"
#include "ValueProp.h"
#include "Variable.h"
#include "VariableProp.h"

#include <gtest/gtest.h>

#include <memory>

TEST(PropertyFactoryTest, MakesEachFrameworkClassByItsCode)
{
    PropertyFactory factory;
    struct Case
    {
        int type;
        const wchar_t* value;
        bool made;
        const wchar_t* shown;
    };
    const Case cases[] = {
        {kMenuPropType, L"Low, High", true, L"Low"},
        {kValuePropType, L"2*10k", true, L"2*10k"},
        {kValuePropType, L"2*(", false, nullptr},
        {kVariablePropType, L"1.5pF", true, L"1.5pF"},
        {kVariablePropType, L"", false, nullptr},
        {kTextPropType, L"2*(", true, L"2*("},
        {kNumberPropType, L"3 ohm", true, L"3ohm"},
        {kNumberPropType, L"", true, L""},
        {kNumberPropType, L"three", false, nullptr},
        {kButtonPropType, L"Edit...", true, L"Edit..."},
        {kActionButtonPropType, L"Run", true, L"Run"},
        {0, L"1", false, nullptr},
        {39506, L"1", false, nullptr},
    };
    GetGlobalIMessageManager()->ClearMessages();
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.type);
        std::unique_ptr<Property> named(
            factory.CreateProperty(c.type, L"P", c.value, PropFlags{kPropFlagHidden}));
        ASSERT_EQ(named != nullptr, c.made);
        std::unique_ptr<Property> empty(factory.CreateProperty(c.type));
        EXPECT_EQ(empty != nullptr, c.type != 0 && c.type != 39506);
        if (named)
        {
            EXPECT_TRUE(named->MatchPropType(c.type));
            EXPECT_EQ(named->PropertyName(), L"P");
            EXPECT_TRUE(named->HasFlag(kPropFlagHidden));
            EXPECT_EQ(named->PropertyValue(), c.shown);
            EXPECT_EQ(empty->GetPropType(), named->GetPropType());
        }
    }
    EXPECT_EQ(GetGlobalIMessageManager()->GetMessageCount(), 0u); // trials are quiet
    std::unique_ptr<Property> variable(factory.CreateProperty(kVariablePropType, L"g", L"3", {}));
    EXPECT_EQ(static_cast<VariableProp*>(variable.get())->GetVariable()->GetName(), L"g");
    EXPECT_TRUE(factory.DoesPropTypeSupportPhysicalTypeSelection(kValuePropType));
    EXPECT_TRUE(factory.DoesPropTypeSupportPhysicalTypeSelection(kVariablePropType));
    EXPECT_FALSE(factory.DoesPropTypeSupportPhysicalTypeSelection(kTextPropType));
}
