#include "RefProject.h"

#include "Assert.h"
#include "HostInterfaces.h"
#include "RefApplication.h"
#include "RefComponent.h"
#include "RefDesign.h"
#include "RefDesignInstance.h"
#include "RefManagers.h"
#include "RefNatureMgr.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace refhost;

namespace
{
class RefProjectTest : public ::testing::Test
{
protected:
    RefApplication mApplication;
    RefProject& mProject = mApplication.AddProject(AString(L"Amp"), AString(L"C:\\Work\\Amp"));
};

// The circuit view of an instance, as the library reaches it (numbered query).
ICircuitInstance* CircuitOf(IDesignInstance* instance)
{
    IDesignEditorInstance* editorInstance = instance->GetEditorInstance();
    return editorInstance != nullptr ? editorInstance->Query<ICircuitInstance>() : nullptr;
}
} // namespace

TEST_F(RefProjectTest, ManagerChainsLeadBackToWhereTheyStarted)
{
    IDesignMgr* designMgr = &mProject.GetDesignMgr();
    IDefinitionMgr* definitionMgr = designMgr->GetDefinitionMgr();
    ASSERT_NE(definitionMgr, nullptr);
    ICircuitMgr* circuitMgr = InterfaceQuery<ICircuitMgr>(designMgr);
    ICircuitDefinitionMgr* circuitDefinitionMgr =
        InterfaceQuery<ICircuitDefinitionMgr>(definitionMgr);
    ASSERT_NE(circuitMgr, nullptr);
    ASSERT_NE(circuitDefinitionMgr, nullptr);
    ICircuitDefCreationMgr* circuitCreation = circuitDefinitionMgr->GetCircuitDefCreationMgr();
    IDefCreationMgr* creation = definitionMgr->GetDefCreationMgr();
    ICircuitLibraryMgr* libraryMgr = circuitDefinitionMgr->GetCircuitLibraryMgr();
    ASSERT_NE(circuitCreation, nullptr);
    ASSERT_NE(creation, nullptr);
    ASSERT_NE(libraryMgr, nullptr);

    struct Case
    {
        const char* name;
        const void* reached;
        const void* expected;
    };
    const Case cases[] = {
        {"definition -> design", definitionMgr->GetDesignMgr(), designMgr},
        {"circuit -> design", circuitMgr->GetDesignMgr(), designMgr},
        {"circuit -> circuit definition", circuitMgr->GetCircuitDefinitionMgr(),
         circuitDefinitionMgr},
        {"circuit definition -> circuit", circuitDefinitionMgr->GetCircuitMgr(), circuitMgr},
        {"circuit definition -> definition", circuitDefinitionMgr->GetDefinitionMgr(),
         definitionMgr},
        {"creation -> definition", creation->GetDefinitionMgr(), definitionMgr},
        {"circuit creation -> circuit definition", circuitCreation->GetCircuitDefinitionMgr(),
         circuitDefinitionMgr},
        {"library -> circuit definition", libraryMgr->GetCircuitDefinitionMgr(),
         circuitDefinitionMgr},
        {"design -> project", designMgr->GetProject(), static_cast<IProject*>(&mProject)},
        // One object serves both creation interfaces.
        {"creation by cast", dynamic_cast<ICircuitDefCreationMgr*>(creation), circuitCreation},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(c.reached, c.expected);
    }
}

TEST_F(RefProjectTest, DesignManagerReportsTheProjectDirectory)
{
    AString directory(L"stale");
    ASSERT_TRUE(mProject.GetDesignMgr().GetProjectDirectory(directory));
    EXPECT_EQ(directory, L"C:\\Work\\Amp");
    mProject.SetDirectory(AString(L"D:/moved/"));
    ASSERT_TRUE(mProject.GetDesignMgr().GetProjectDirectory(directory));
    EXPECT_EQ(directory, L"D:/moved/");
    EXPECT_EQ(mProject.GetDesignMgr().GetProject()->GetDirectory(), L"D:/moved/");
}

TEST_F(RefProjectTest, ClosedProjectGivesNoDirectoryAndComesBack)
{
    RefDesignMgr& designMgr = mProject.GetDesignMgr();
    mProject.AddDesign(AString(L"top"));
    designMgr.SetProjectOpen(false);
    AString directory(L"untouched");
    EXPECT_FALSE(designMgr.GetProjectDirectory(directory));
    EXPECT_EQ(directory, L"untouched");
    EXPECT_EQ(designMgr.GetProject(), nullptr);
    // The project keeps what it owns while it is closed.
    EXPECT_EQ(mProject.GetDesignCount(), 1u);

    designMgr.SetProjectOpen(true);
    ASSERT_TRUE(designMgr.GetProjectDirectory(directory));
    EXPECT_EQ(directory, L"C:\\Work\\Amp");
    EXPECT_EQ(designMgr.GetProject(), static_cast<IProject*>(&mProject));
}

TEST_F(RefProjectTest, CircuitManagerCanBeWithheldFromTheQuery)
{
    RefDesignMgr& designMgr = mProject.GetDesignMgr();
    designMgr.SetCircuitMgrAvailable(false);
    EXPECT_EQ(designMgr.Query<ICircuitMgr>(), nullptr);
    EXPECT_EQ(InterfaceQuery<ICircuitMgr>(static_cast<IDesignMgr*>(&designMgr)), nullptr);
    // The other managers still lead to it by accessor.
    EXPECT_EQ(designMgr.GetRefDefinitionMgr().GetCircuitMgr(), &designMgr.GetRefCircuitMgr());
    designMgr.SetCircuitMgrAvailable(true);
    EXPECT_EQ(designMgr.Query<ICircuitMgr>(), &designMgr.GetRefCircuitMgr());
}

TEST_F(RefProjectTest, ProjectsHaveSeparateManagers)
{
    RefProject& other = mApplication.AddProject(AString(L"Other"), AString(L"/other"));
    EXPECT_NE(&other.GetDesignMgr(), &mProject.GetDesignMgr());
    EXPECT_NE(&other.GetDesignMgr().GetRefNatureMgr(), &mProject.GetDesignMgr().GetRefNatureMgr());
    other.GetDesignMgr().SetNatureMgrAvailable(false);
    EXPECT_EQ(other.GetDesignMgr().GetRefCircuitMgr().GetNatureMgr(), nullptr);
    EXPECT_NE(mProject.GetDesignMgr().GetRefCircuitMgr().GetNatureMgr(), nullptr);
}

TEST_F(RefProjectTest, NatureManagerCanBeWithdrawnWithoutLosingNatures)
{
    RefComponent* component = mProject.AddComponent(AString(L"D1"));
    ASSERT_NE(component, nullptr);
    RefDesignMgr& designMgr = mProject.GetDesignMgr();
    RefNatureMgr& natures = designMgr.GetRefNatureMgr();
    ASSERT_TRUE(natures.AddNature(7, AString(L"Acoustic"), AString(L"LIB"), AString(L"sound")));

    EXPECT_EQ(component->GetNatureMgr(), &natures);
    EXPECT_EQ(designMgr.GetRefCircuitMgr().GetNatureMgr(), &natures);
    designMgr.SetNatureMgrAvailable(false);
    EXPECT_EQ(component->GetNatureMgr(), nullptr);
    EXPECT_EQ(designMgr.GetRefCircuitMgr().GetNatureMgr(), nullptr);
    designMgr.SetNatureMgrAvailable(true);
    ASSERT_EQ(component->GetNatureMgr(), &natures);
    EXPECT_NE(component->GetNatureMgr()->GetNature(7), nullptr);
}

TEST_F(RefProjectTest, DesignsKeepTheirEnvironmentAndEditor)
{
    RefDesign& circuit = mProject.AddDesign(AString(L"Circuit"));
    RefDesign& system = mProject.AddDesign(AString(L"System"), kEnvParvane);
    EXPECT_EQ(circuit.GetCircuitEnvironment(), kEnvBrennaCircuit);
    EXPECT_EQ(system.GetCircuitEnvironment(), kEnvParvane);
    system.SetCircuitEnvironment(kEnvCalder);
    EXPECT_EQ(system.GetCircuitEnvironment(), kEnvCalder);
    EXPECT_EQ(circuit.GetDesignEditor()->GetDesign(), static_cast<IDesign*>(&circuit));
    EXPECT_NE(circuit.GetDesignEditor(), system.GetDesignEditor());

    EXPECT_EQ(mProject.FindDesign(AString(L"SYSTEM")), &system);
    EXPECT_EQ(mProject.FindDesign(AString(L"Sys")), nullptr);
    EXPECT_EQ(mProject.GetDesign(0), &circuit);
    EXPECT_EQ(mProject.GetDesign(2), nullptr);
}

TEST_F(RefProjectTest, InstancesAreAppendedInOrder)
{
    RefDesign& design = mProject.AddDesign(AString(L"cell"));
    RefDesignInstance* first = design.AddInstance(AString(L"u1"));
    RefDesignInstance* second = design.AddInstance(AString(L"u2"), first);
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);

    RefDesign& unrelated = mProject.AddDesign(AString(L"other"));
    RefDesignInstance* keep = unrelated.AddInstance(AString(L"x"));
    std::vector<IDesignInstance*> instances{keep};
    design.GetInstances(instances);
    ASSERT_EQ(instances.size(), 3u);
    EXPECT_EQ(instances[0], keep);
    EXPECT_EQ(instances[1], first);
    EXPECT_EQ(instances[2], second);
    EXPECT_EQ(instances[1]->GetDesign(), static_cast<IDesign*>(&design));
    EXPECT_EQ(instances[2]->GetName(), L"u2");
}

TEST_F(RefProjectTest, CircuitInstancesFollowTheHierarchy)
{
    RefDesign& top = mProject.AddDesign(AString(L"top"));
    RefDesign& cell = mProject.AddDesign(AString(L"cell"));
    RefDesignInstance* root = top.AddInstance(AString(L"top"));
    RefDesignInstance* child = cell.AddInstance(AString(L"x1"), root);
    RefDesignInstance* hidden = cell.AddInstance(AString(L"x2"), root, /*circuitView=*/false);
    RefDesignInstance* belowHidden = cell.AddInstance(AString(L"x3"), hidden);
    ASSERT_NE(belowHidden, nullptr);

    ICircuitInstance* rootCircuit = CircuitOf(root);
    ICircuitInstance* childCircuit = CircuitOf(child);
    ASSERT_NE(rootCircuit, nullptr);
    ASSERT_NE(childCircuit, nullptr);
    EXPECT_EQ(rootCircuit->GetParentInstance(), nullptr);
    EXPECT_EQ(childCircuit->GetParentInstance(), rootCircuit);
    EXPECT_EQ(CircuitOf(hidden), nullptr);
    // A parent without a circuit view leaves the instance at the top of the circuit hierarchy.
    ASSERT_NE(CircuitOf(belowHidden), nullptr);
    EXPECT_EQ(CircuitOf(belowHidden)->GetParentInstance(), nullptr);
    EXPECT_EQ(belowHidden->GetParent(), hidden);
    EXPECT_EQ(child->GetEditorInstance()->GetDesignInstance(),
              static_cast<IDesignInstance*>(child));
}

TEST_F(RefProjectTest, ComponentsAnswerTheirProjectsManagersAndOwner)
{
    RefDesign& design = mProject.AddDesign(AString(L"lib"));
    RefComponent* placed = mProject.AddComponent(AString(L"Opamp"), &design);
    RefComponent* loose = mProject.AddComponent(AString(L"R"));
    ASSERT_NE(placed, nullptr);
    ASSERT_NE(loose, nullptr);
    EXPECT_EQ(placed->GetDesign(), static_cast<IDesign*>(&design));
    EXPECT_EQ(loose->GetDesign(), nullptr);
    EXPECT_EQ(placed->GetDefinitionMgr(), mProject.GetDesignMgr().GetDefinitionMgr());

    IComponentOwner* owner = placed->GetOwner();
    ASSERT_EQ(owner, static_cast<IComponentOwner*>(&mProject));
    EXPECT_EQ(owner->GetUnconnectedTerminalCheck(), 1);
    mProject.SetUnconnectedTerminalCheck(0);
    EXPECT_EQ(loose->GetOwner()->GetUnconnectedTerminalCheck(), 0);
    loose->SetHasOwner(false);
    EXPECT_EQ(loose->GetOwner(), nullptr);
    EXPECT_EQ(placed->GetOwner(), owner);

    EXPECT_EQ(mProject.FindComponent(AString(L"OPAMP")), placed);
    EXPECT_EQ(mProject.GetComponent(1), loose);
    EXPECT_EQ(mProject.GetComponent(2), nullptr);
}

TEST_F(RefProjectTest, ComponentInstancesCanBeRenamed)
{
    RefDesign& design = mProject.AddDesign(AString(L"top"));
    RefComponent* resistor = mProject.AddComponent(AString(L"R"));
    RefCompInst* r1 = design.AddCompInst(AString(L"R1"), *resistor);
    RefCompInst* r2 = design.AddCompInst(AString(L"R2"), *resistor);
    ASSERT_NE(r1, nullptr);
    ASSERT_NE(r2, nullptr);
    EXPECT_EQ(r1->GetComponent(), static_cast<IComponent*>(resistor));
    EXPECT_EQ(&r2->GetRefDesign(), &design);

    ICompInst* asHost = r1;
    r1->SetName(AString(L"Rload"));
    EXPECT_EQ(asHost->GetName(), L"Rload");
    EXPECT_EQ(design.FindCompInst(AString(L"rload")), r1);
    EXPECT_EQ(design.FindCompInst(AString(L"R1")), nullptr);
    EXPECT_EQ(design.GetCompInstCount(), 2u);
}

TEST_F(RefProjectTest, RefusesObjectsOfAnotherProject)
{
    RefProject& other = mApplication.AddProject(AString(L"Other"), AString(L"/other"));
    RefDesign& foreignDesign = other.AddDesign(AString(L"d"));
    RefDesignInstance* foreignInstance = foreignDesign.AddInstance(AString(L"i"));
    RefComponent* foreignComponent = other.AddComponent(AString(L"c"));
    RefDesign& design = mProject.AddDesign(AString(L"mine"));

    AssertCapture capture;
    EXPECT_EQ(mProject.AddComponent(AString(L"x"), &foreignDesign), nullptr);
    EXPECT_EQ(design.AddInstance(AString(L"y"), foreignInstance), nullptr);
    EXPECT_EQ(design.AddCompInst(AString(L"z"), *foreignComponent), nullptr);
    EXPECT_EQ(capture.Texts(),
              (std::vector<std::string>{
                  "design == nullptr || &design->GetProject() == this",
                  "parent == nullptr || &parent->GetRefDesign().GetProject() == &mProject",
                  "&component.GetProject() == &mProject"}));
    EXPECT_EQ(mProject.GetComponentCount(), 0u);
    EXPECT_EQ(design.GetInstanceCount(), 0u);
    EXPECT_EQ(design.GetCompInstCount(), 0u);
}

TEST_F(RefProjectTest, ClosingAProjectLeavesOthersIntact)
{
    // A full tree: closing must free all of it (the sanitizer build checks) and touch nothing
    // of the other project.
    RefProject& doomed = mApplication.AddProject(AString(L"Doomed"), AString(L"/tmp/d"));
    RefDesign& top = doomed.AddDesign(AString(L"top"));
    RefDesign& cell = doomed.AddDesign(AString(L"cell"));
    RefDesignInstance* root = top.AddInstance(AString(L"top"));
    cell.AddInstance(AString(L"x1"), root);
    RefComponent* component = doomed.AddComponent(AString(L"Q"), &cell);
    component->SetExtensionKind(RefExtensionKind::k3D);
    component->SetDynamicNportPorts(2);
    RefCompInst* compInst = top.AddCompInst(AString(L"Q1"), *component);
    compInst->SetExtensionKind(RefExtensionKind::kSable);

    RefDesign& kept = mProject.AddDesign(AString(L"kept"));
    RefComponent* keptComponent = mProject.AddComponent(AString(L"K"), &kept);

    ASSERT_TRUE(mApplication.CloseProject(&doomed));
    EXPECT_EQ(mApplication.GetProjectCount(), 1u);
    EXPECT_EQ(mApplication.FindProject(AString(L"Doomed")), nullptr);
    EXPECT_EQ(keptComponent->GetDesign(), static_cast<IDesign*>(&kept));
    EXPECT_EQ(InterfaceQuery<ICircuitMgr>(static_cast<IDesignMgr*>(&mProject.GetDesignMgr()))
                  ->GetDesignMgr(),
              &mProject.GetDesignMgr());
}
