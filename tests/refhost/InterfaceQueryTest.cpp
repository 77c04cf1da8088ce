#include "HostInterfaces.h"
#include "RefApplication.h"
#include "RefComponent.h"
#include "RefDesign.h"
#include "RefDesignInstance.h"
#include "RefManagers.h"
#include "RefProject.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>

using namespace refhost;

namespace
{
class InterfaceQueryTest : public ::testing::Test
{
protected:
    RefApplication mApplication;
    RefProject& mProject = mApplication.AddProject(AString(L"P"), AString(L"C:\\P"));
    RefDesignMgr& mDesignMgr = mProject.GetDesignMgr();
    RefDesign& mDesign = mProject.AddDesign(AString(L"top"));
    RefDesignInstance* mInstance = mDesign.AddInstance(AString(L"I1"));
    RefDesignInstance* mPlainInstance =
        mDesign.AddInstance(AString(L"I2"), nullptr, /*circuitView=*/false);
    RefComponent* mComponent = mProject.AddComponent(AString(L"R"), &mDesign);
    RefCompInst* mCompInst = mDesign.AddCompInst(AString(L"R1"), *mComponent);
};
} // namespace

TEST(InterfaceIdentifiers, FixedNumbersAreKept)
{
    struct Case
    {
        const char* name;
        int id;
        int expected;
    };
    const Case cases[] = {
        {"ICircuit", ICircuit::kInterfaceId, 10},
        {"ICircuitInstance", ICircuitInstance::kInterfaceId, 40502},
        {"IHierarchyDesign", IHierarchyDesign::kInterfaceId, 35510},
        {"IHierarchyDesignInstance", IHierarchyDesignInstance::kInterfaceId, 35511},
        {"IDesignForSchematic", IDesignForSchematic::kInterfaceId, 40508},
        {"IDesignInstanceForSchematic", IDesignInstanceForSchematic::kInterfaceId, 40509},
        {"property server owner", kPropServerOwnerId, 40503},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(c.id, c.expected);
    }
}

TEST(InterfaceIdentifiers, EveryInterfaceHasItsOwnNumber)
{
    const int ids[] = {
        IMerrowApplication::kInterfaceId,
        ICircuitEnvironment::kInterfaceId,
        IAppBase::kInterfaceId,
        INetworkDataExplorer::kInterfaceId,
        IProject::kInterfaceId,
        IDesignMgr::kInterfaceId,
        IDefinitionMgr::kInterfaceId,
        IDefCreationMgr::kInterfaceId,
        ICircuitMgr::kInterfaceId,
        ICircuitDefinitionMgr::kInterfaceId,
        ICircuitDefCreationMgr::kInterfaceId,
        ICircuitLibraryMgr::kInterfaceId,
        IDesign::kInterfaceId,
        IDesignEditor::kInterfaceId,
        IHierarchicalDesignEditor::kInterfaceId,
        IDesignInstance::kInterfaceId,
        IDesignEditorInstance::kInterfaceId,
        IComponent::kInterfaceId,
        IComponentOwner::kInterfaceId,
        ICompInst::kInterfaceId,
        ICompExtension::kInterfaceId,
        I3DCompExtension::kInterfaceId,
        ISableCompExtension::kInterfaceId,
        ICompInstExtension::kInterfaceId,
        I3DCompInstExtension::kInterfaceId,
        ISableCompInstExtension::kInterfaceId,
        IDynamicNportModel::kInterfaceId,
        IModelCompiler::kInterfaceId,
        INatureMgr::kInterfaceId,
        ICircuit::kInterfaceId,
        ICircuitInstance::kInterfaceId,
        IHierarchyDesign::kInterfaceId,
        IHierarchyDesignInstance::kInterfaceId,
        IDesignForSchematic::kInterfaceId,
        IDesignInstanceForSchematic::kInterfaceId,
        kPropServerOwnerId,
    };
    const std::set<int> distinct(std::begin(ids), std::end(ids));
    EXPECT_EQ(distinct.size(), std::size(ids));
}

TEST_F(InterfaceQueryTest, CastAndFallbackPathsFindTheRightObject)
{
    struct Case
    {
        const char* name;
        IInterfaceQueriable* source;
        std::function<void*(IInterfaceQueriable*)> byInterfaceQuery;
        std::function<void*(IInterfaceQueriable*)> byCastOnly;
        void* expected;
        bool foundByCast;
    };
    RefDefinitionMgr& definitionMgr = mDesignMgr.GetRefDefinitionMgr();
    const Case cases[] = {
        // The circuit manager is a companion: the cast fails, the query finds it.
        {"design manager to circuit manager", static_cast<IDesignMgr*>(&mDesignMgr),
         [](IInterfaceQueriable* s) { return static_cast<void*>(InterfaceQuery<ICircuitMgr>(s)); },
         [](IInterfaceQueriable* s) { return static_cast<void*>(dynamic_cast<ICircuitMgr*>(s)); },
         static_cast<ICircuitMgr*>(&mDesignMgr.GetRefCircuitMgr()), false},
        // The definition manager is its own circuit side: found by the cast.
        {"definition manager to circuit definition manager",
         static_cast<IDefinitionMgr*>(&definitionMgr),
         [](IInterfaceQueriable* s)
         { return static_cast<void*>(InterfaceQuery<ICircuitDefinitionMgr>(s)); },
         [](IInterfaceQueriable* s)
         { return static_cast<void*>(dynamic_cast<ICircuitDefinitionMgr*>(s)); },
         static_cast<ICircuitDefinitionMgr*>(&definitionMgr), true},
        // The environment service is a companion of the application.
        {"application to circuit environment", static_cast<IMerrowApplication*>(&mApplication),
         [](IInterfaceQueriable* s)
         { return static_cast<void*>(InterfaceQuery<ICircuitEnvironment>(s)); },
         [](IInterfaceQueriable* s)
         { return static_cast<void*>(dynamic_cast<ICircuitEnvironment*>(s)); },
         mApplication.QueryInterface(ICircuitEnvironment::kInterfaceId), false},
        // The project owns components itself.
        {"project to component owner", static_cast<IProject*>(&mProject),
         [](IInterfaceQueriable* s)
         { return static_cast<void*>(InterfaceQuery<IComponentOwner>(s)); },
         [](IInterfaceQueriable* s)
         { return static_cast<void*>(dynamic_cast<IComponentOwner*>(s)); },
         static_cast<IComponentOwner*>(&mProject), true},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.name);
        ASSERT_NE(c.expected, nullptr);
        EXPECT_EQ(c.byInterfaceQuery(c.source), c.expected);
        EXPECT_EQ(c.byCastOnly(c.source) != nullptr, c.foundByCast);
    }
}

TEST_F(InterfaceQueryTest, NullSourceAndMissingInterfaceGiveNull)
{
    EXPECT_EQ(InterfaceQuery<ICircuitMgr>(static_cast<IInterfaceQueriable*>(nullptr)), nullptr);
    EXPECT_EQ(InterfaceQuery<ICircuitMgr>(static_cast<const IInterfaceQueriable*>(nullptr)),
              nullptr);
    // Neither implemented nor handed out.
    EXPECT_EQ(InterfaceQuery<INatureMgr>(static_cast<IDesignMgr*>(&mDesignMgr)), nullptr);
    EXPECT_EQ(InterfaceQuery<IDynamicNportModel>(static_cast<IComponent*>(mComponent)), nullptr);
    EXPECT_EQ(InterfaceQuery<ICircuitMgr>(static_cast<IProject*>(&mProject)), nullptr);
}

TEST_F(InterfaceQueryTest, CompanionComesAndGoesWithTheComponentsState)
{
    IComponent* component = mComponent;
    mComponent->SetDynamicNportPorts(4);
    IDynamicNportModel* model = InterfaceQuery<IDynamicNportModel>(component);
    ASSERT_NE(model, nullptr);
    EXPECT_EQ(dynamic_cast<IDynamicNportModel*>(component), nullptr);
    EXPECT_EQ(model->GetPortCount(), 4);
    EXPECT_EQ(model->GetComponent(), component);

    mComponent->SetDynamicNportPorts(0);
    ASSERT_NE(InterfaceQuery<IDynamicNportModel>(component), nullptr);
    EXPECT_EQ(InterfaceQuery<IDynamicNportModel>(component)->GetPortCount(), 0);
    mComponent->SetDynamicNportPorts(-1);
    EXPECT_EQ(InterfaceQuery<IDynamicNportModel>(component), nullptr);
}

TEST_F(InterfaceQueryTest, ConstSourcesAnswerLikeMutableOnes)
{
    const IDesignMgr* constDesignMgr = &mDesignMgr;
    EXPECT_EQ(InterfaceQuery<ICircuitMgr>(constDesignMgr), &mDesignMgr.GetRefCircuitMgr());
    const IDesign* constDesign = &mDesign;
    EXPECT_EQ(constDesign->Query<IHierarchyDesign>(), static_cast<IHierarchyDesign*>(&mDesign));
    const IDesignInstance* constInstance = mInstance;
    EXPECT_EQ(constInstance->Query<IDesignInstanceForSchematic>(),
              static_cast<IDesignInstanceForSchematic*>(mInstance));
}

TEST_F(InterfaceQueryTest, NumberedQueriesAnswerTheExactInterfaceType)
{
    // A pointer that was not converted to exactly the named type would call the wrong
    // function here, so each answer is used through its interface.
    IDesignEditor* editor = mDesign.GetDesignEditor();
    auto* circuit = static_cast<ICircuit*>(editor->QueryInterface(10));
    ASSERT_NE(circuit, nullptr);
    EXPECT_EQ(circuit->GetDesignEditor(), editor);
    // The circuit view is served by the editor itself, so a cast leads back.
    EXPECT_EQ(dynamic_cast<IDesignEditor*>(circuit), editor);
    auto* hierarchical = dynamic_cast<IHierarchicalDesignEditor*>(editor);
    ASSERT_NE(hierarchical, nullptr);
    EXPECT_EQ(hierarchical->GetDesignEditor(), editor);

    IDesign* design = &mDesign;
    auto* hierarchy = static_cast<IHierarchyDesign*>(design->QueryInterface(35510));
    auto* schematic = static_cast<IDesignForSchematic*>(design->QueryInterface(40508));
    ASSERT_NE(hierarchy, nullptr);
    ASSERT_NE(schematic, nullptr);
    EXPECT_EQ(hierarchy->GetDesign(), design);
    EXPECT_EQ(schematic->GetDesign(), design);

    IDesignInstance* instance = mInstance;
    auto* hierarchyInstance =
        static_cast<IHierarchyDesignInstance*>(instance->QueryInterface(35511));
    auto* schematicInstance =
        static_cast<IDesignInstanceForSchematic*>(instance->QueryInterface(40509));
    ASSERT_NE(hierarchyInstance, nullptr);
    ASSERT_NE(schematicInstance, nullptr);
    EXPECT_EQ(hierarchyInstance->GetDesignInstance(), instance);
    EXPECT_EQ(schematicInstance->GetDesignInstance(), instance);

    auto* circuitInstance =
        static_cast<ICircuitInstance*>(instance->GetEditorInstance()->QueryInterface(40502));
    ASSERT_NE(circuitInstance, nullptr);
    EXPECT_EQ(circuitInstance->GetName(), L"I1");
    // A companion: the editor instance does not implement it.
    EXPECT_EQ(dynamic_cast<ICircuitInstance*>(instance->GetEditorInstance()), nullptr);
    EXPECT_EQ(mPlainInstance->GetEditorInstance()->QueryInterface(40502), nullptr);
}

TEST_F(InterfaceQueryTest, ObjectsRefuseIdentifiersTheyDoNotServe)
{
    struct Case
    {
        const char* name;
        IInterfaceQueriable* object;
        int ownId;
    };
    const Case cases[] = {
        {"application", static_cast<IMerrowApplication*>(&mApplication),
         IMerrowApplication::kInterfaceId},
        {"project", static_cast<IProject*>(&mProject), IProject::kInterfaceId},
        {"design manager", static_cast<IDesignMgr*>(&mDesignMgr), IDesignMgr::kInterfaceId},
        {"definition manager", static_cast<IDefinitionMgr*>(&mDesignMgr.GetRefDefinitionMgr()),
         IDefinitionMgr::kInterfaceId},
        {"circuit manager", static_cast<ICircuitMgr*>(&mDesignMgr.GetRefCircuitMgr()),
         ICircuitMgr::kInterfaceId},
        {"design", static_cast<IDesign*>(&mDesign), IDesign::kInterfaceId},
        {"editor", mDesign.GetDesignEditor(), IDesignEditor::kInterfaceId},
        {"instance", static_cast<IDesignInstance*>(mInstance), IDesignInstance::kInterfaceId},
        {"component", static_cast<IComponent*>(mComponent), IComponent::kInterfaceId},
        {"component instance", static_cast<ICompInst*>(mCompInst), ICompInst::kInterfaceId},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.name);
        EXPECT_NE(c.object->QueryInterface(c.ownId), nullptr);
        for (int id : {0, -1, 11, 40501, 40504, 99999})
        {
            SCOPED_TRACE(id);
            EXPECT_EQ(c.object->QueryInterface(id), nullptr);
        }
    }
}

TEST_F(InterfaceQueryTest, ExtensionsAreFoundByCastFromTheGeneralInterface)
{
    struct Case
    {
        RefExtensionKind kind;
        bool is3D;
        bool isSable;
    };
    const Case cases[] = {
        {RefExtensionKind::kNone, false, false},
        {RefExtensionKind::k3D, true, false},
        {RefExtensionKind::kSable, false, true},
        {RefExtensionKind::kNone, false, false},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(static_cast<int>(c.kind));
        mComponent->SetExtensionKind(c.kind);
        mCompInst->SetExtensionKind(c.kind);
        ICompExtension* extension = mComponent->GetExtension();
        ICompInstExtension* instExtension = mCompInst->GetExtension();
        const bool any = c.is3D || c.isSable;
        ASSERT_EQ(extension != nullptr, any);
        ASSERT_EQ(instExtension != nullptr, any);
        if (!any)
        {
            continue;
        }
        EXPECT_EQ(extension->GetComponent(), static_cast<IComponent*>(mComponent));
        EXPECT_EQ(instExtension->GetCompInst(), static_cast<ICompInst*>(mCompInst));
        EXPECT_EQ(dynamic_cast<I3DCompExtension*>(extension) != nullptr, c.is3D);
        EXPECT_EQ(dynamic_cast<ISableCompExtension*>(extension) != nullptr, c.isSable);
        EXPECT_EQ(dynamic_cast<I3DCompInstExtension*>(instExtension) != nullptr, c.is3D);
        EXPECT_EQ(dynamic_cast<ISableCompInstExtension*>(instExtension) != nullptr, c.isSable);
        // The extensions answer their own numbered queries as well.
        EXPECT_EQ(extension->Query<I3DCompExtension>() != nullptr, c.is3D);
        EXPECT_EQ(instExtension->Query<ISableCompInstExtension>() != nullptr, c.isSable);
    }
}
