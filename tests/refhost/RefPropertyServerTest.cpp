#include "RefComponent.h"

#include "ButtonProp.h"
#include "HostInterfaces.h"
#include "IPropClientFactory.h"
#include "RefApplication.h"
#include "RefButtonPropClient.h"
#include "RefDesign.h"
#include "RefManagers.h"
#include "RefProject.h"
#include "TextProp.h"
#include "ValueProp.h"
#include "VariableProp.h"

#include <gtest/gtest.h>

#include <memory>

using namespace refhost;

namespace
{
class RefPropertyServerTest : public ::testing::Test
{
protected:
    RefApplication mApplication;
    RefProject& mProject = mApplication.AddProject(AString(L"Amp"), AString(L"C:\\Work\\Amp"));
    RefDesign& mDesign = mProject.AddDesign(AString(L"Top"));
    RefComponent& mComponent = *mProject.AddComponent(AString(L"RES"), &mDesign);
};
} // namespace

TEST_F(RefPropertyServerTest, InstancesServeThreeListsAndComponentsOne)
{
    RefCompInst& r1 = *mDesign.AddCompInst(AString(L"R1"), mComponent);
    IPropServer& server = r1;
    ASSERT_EQ(server.GetPropListCount(), 3);
    EXPECT_EQ(server.GetServedPropList(0), r1.GetPropList());
    EXPECT_EQ(server.GetServedPropList(1), r1.GetParameterPropList());
    EXPECT_EQ(server.GetServedPropList(2), r1.GetExtraPropList());
    EXPECT_EQ(server.GetServedPropList(3), nullptr);
    EXPECT_EQ(server.GetServedPropList(-1), nullptr);
    EXPECT_NE(r1.GetPropList(), r1.GetParameterPropList());
    IPropServer& definition = mComponent;
    EXPECT_EQ(definition.GetPropListCount(), 1);
    EXPECT_EQ(definition.GetServedPropList(0), mComponent.GetPropList());

    auto* label = new TextProp(L"Label", L"R1", {});
    r1.GetPropList()->AddProp(label);
    server.PropChanged(*label, PropChange{PropChange::kValue});
    ASSERT_EQ(r1.GetPropChanges().size(), 1u);
    EXPECT_EQ(r1.GetPropChanges()[0].mName, L"Label");
    EXPECT_TRUE(r1.GetPropChanges()[0].mChange.Has(PropChange::kValue));
}

TEST_F(RefPropertyServerTest, ParametersSeeTheDesignVariablesAndTheirSiblings)
{
    mDesign.AddVariable(L"scale", L"2");
    RefCompInst& r1 = *mDesign.AddCompInst(AString(L"R1"), mComponent);
    PropList& params = *r1.GetParameterPropList();
    params.AddProp(new VariableProp(L"W", Value(L"3", Units::kNoUnit), {}));
    auto* r = new ValueProp(L"R", {});
    r->ChangeValue(L"scale*W*1k");
    params.AddProp(r);
    EXPECT_EQ(r->GetValue(), 6000.0); // no active design needed: the list's own scope
}

TEST_F(RefPropertyServerTest, CircuitManagerProvidesButtonClientsByNumber)
{
    RefDesignMgr& designMgr = mProject.GetDesignMgr();
    RefButtonPropClient& dialog = designMgr.AddButtonPropClient(1, 625);
    designMgr.AddButtonPropClient(3, 521);
    ICircuitMgr* circuitMgr = designMgr.Query<ICircuitMgr>();
    ASSERT_NE(circuitMgr, nullptr);
    IPropClientFactory* clients = InterfaceQuery<IPropClientFactory>(circuitMgr);
    ASSERT_NE(clients, nullptr);
    EXPECT_EQ(circuitMgr->Query<IPropClientFactory>(), clients);
    EXPECT_EQ(clients->GetButtonPropClient(1), &dialog);
    EXPECT_EQ(clients->GetButtonPropClient(3)->GetDialogKind(), 521);
    EXPECT_EQ(clients->GetButtonPropClient(2), nullptr);

    // A "CompDlg" button on an instance, as the component dialogs are reached.
    RefCompInst& r1 = *mDesign.AddCompInst(AString(L"R1"), mComponent);
    ButtonProp* button = ButtonProp::CreateButtonProp();
    button->SetPropertyName(L"CompDlg");
    button->SetButtonPropClientID(1);
    button->SetIButtonPropClient(clients->GetButtonPropClient(1));
    r1.GetPropList()->AddProp(button);
    auto* found = dynamic_cast<ButtonProp*>(r1.GetPropList()->FindProp(L"compdlg"));
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->GetIButtonPropClient()->GetDialogKind(), 625);
    dialog.SetAction([](ButtonProp& prop) { return prop.ChangeValue(L"opened"); });
    EXPECT_TRUE(found->Press());
    EXPECT_EQ(dialog.GetPressCount(), 1);
    EXPECT_EQ(found->GetLabel(), L"opened");
}

TEST_F(RefPropertyServerTest, ProjectsHaveDistinctEnumerationColumns)
{
    RefProject& other = mApplication.AddProject(AString(L"Other"), AString(L"C:\\Other"));
    EXPECT_GT(mProject.GetEnumColumnID(), 0);
    EXPECT_NE(other.GetEnumColumnID(), mProject.GetEnumColumnID());
    other.SetEnumColumnID(42);
    EXPECT_EQ(other.GetEnumColumnID(), 42);
}
