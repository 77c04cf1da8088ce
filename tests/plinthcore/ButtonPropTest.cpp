#include "ButtonProp.h"

#include "IButtonPropClient.h"
#include "IPropClientFactory.h"
#include "PropertyBlockTesting.h"

#include <gtest/gtest.h>

#include <map>

namespace
{
class DialogClient : public IButtonPropClient
{
public:
    explicit DialogClient(int kind) : mKind(kind) {}
    int GetDialogKind() const override { return mKind; }
    bool ButtonPressed(ButtonProp& prop) override
    {
        ++mPressed;
        prop.SetLabel(L"pressed");
        return true;
    }
    int mKind;
    int mPressed = 0;
};

class Clients : public IPropClientFactory
{
public:
    IButtonPropClient* GetButtonPropClient(int clientID) const override
    {
        const auto found = mClients.find(clientID);
        return found == mClients.end() ? nullptr : found->second;
    }
    std::map<int, IButtonPropClient*> mClients;
};
} // namespace

TEST(ButtonPropTest, ClientIsFoundByItsIdentifierAndRunsOnPress)
{
    DialogClient dialog(625);
    Clients clients;
    clients.mClients[1] = &dialog;
    std::unique_ptr<ButtonProp> button(ButtonProp::CreateButtonProp());
    EXPECT_EQ(button->GetButtonPropClientID(), id::invalidID);
    EXPECT_FALSE(button->Press());
    button->SetButtonPropClientID(1);
    EXPECT_TRUE(button->ConnectClient(&clients));
    ASSERT_EQ(button->GetIButtonPropClient(), &dialog);
    EXPECT_EQ(button->GetIButtonPropClient()->GetDialogKind(), 625);
    EXPECT_TRUE(button->Press());
    EXPECT_EQ(dialog.mPressed, 1);
    EXPECT_EQ(button->PropertyValue(), L"pressed");
    button->SetButtonPropClientID(3);
    EXPECT_FALSE(button->ConnectClient(&clients));
    EXPECT_EQ(button->GetIButtonPropClient(), nullptr);
    EXPECT_FALSE(button->ConnectClient(nullptr));

    EXPECT_TRUE(button->MatchPropType(kButtonPropType));
    EXPECT_TRUE(button->MatchPropType(kActionButtonPropType));
    EXPECT_FALSE(button->MatchPropType(kTextPropType));
    EXPECT_FALSE(button->ChangeValue(1.0));
    EXPECT_TRUE(button->ChangeValue(L"Edit..."));
    EXPECT_EQ(button->GetLabel(), L"Edit...");
}

TEST(ButtonPropTest, ReadingReconnectsTheClient)
{
    DialogClient dialog(521);
    Clients clients;
    clients.mClients[3] = &dialog;
    ButtonProp button(L"CompDlg", {kPropFlagHidden});
    button.SetLabel(L"Edit...");
    button.SetButtonPropClientID(3);
    EXPECT_EQ(proptest::BlockText(button), "Prop { \"CompDlg\" 2 \"Edit...\" 3 }\n");
    ButtonProp fresh;
    proptest::ExpectRoundTrip(button, fresh, &clients);
    EXPECT_EQ(fresh.GetIButtonPropClient(), &dialog);
    ButtonProp unconnected;
    proptest::ExpectRoundTrip(button, unconnected);
    EXPECT_EQ(unconnected.GetIButtonPropClient(), nullptr);
    ButtonProp neutral;
    proptest::ExpectNeutralRoundTrip(button, neutral);
    EXPECT_EQ(neutral.GetLabel(), L"Edit...");
    ButtonProp target(L"T", {});
    EXPECT_GT(proptest::ExpectDamageLeavesPropertyAlone(button, target, &clients), 0);
}
