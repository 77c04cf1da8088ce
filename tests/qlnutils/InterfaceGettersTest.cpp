#include "InterfaceGetters.h"

#include "Assert.h"
#include "HostInterfaces.h"
#include "RefApplication.h"
#include "RefComponent.h"
#include "RefDesign.h"
#include "RefDesignInstance.h"
#include "RefManagers.h"
#include "RefProject.h"

#include <gtest/gtest.h>

#include <vector>

using namespace refhost;
using namespace qln;

namespace
{
// One project of the reference host with every kind of object the getters start from.
class InterfaceGettersTest : public ::testing::Test
{
protected:
    InterfaceGettersTest()
    {
        m3DComponent->SetExtensionKind(RefExtensionKind::k3D);
        mSableComponent->SetExtensionKind(RefExtensionKind::kSable);
        m3DInst->SetExtensionKind(RefExtensionKind::k3D);
        mSableInst->SetExtensionKind(RefExtensionKind::kSable);
        mSableComponent->SetDynamicNportPorts(4);
    }

    RefApplication mApplication;
    RefProject& mProject = mApplication.AddProject(AString(L"P"), AString(L"D:\\P"));
    RefDesignMgr& mRefDmgr = mProject.GetDesignMgr();
    RefDefinitionMgr& mRefDefMgr = mRefDmgr.GetRefDefinitionMgr();
    IDesignMgr* mDmgr = &mRefDmgr;
    ICircuitMgr* mCmgr = &mRefDmgr.GetRefCircuitMgr();
    IDefinitionMgr* mDefMgr = &mRefDefMgr;
    ICircuitDefinitionMgr* mCdefMgr = &mRefDefMgr;
    IDefCreationMgr* mCreationMgr = &mRefDefMgr.GetRefDefCreationMgr();
    ICircuitDefCreationMgr* mCcreationMgr = &mRefDefMgr.GetRefDefCreationMgr();
    ICircuitLibraryMgr* mLibraryMgr = &mRefDefMgr.GetRefCircuitLibraryMgr();
    RefDesign& mDesign = mProject.AddDesign(AString(L"amp"));
    RefDesignEditor& mEditor = mDesign.GetEditor();
    RefDesignInstance* mInstance = mDesign.AddInstance(AString(L"I1"));
    RefComponent* m3DComponent = mProject.AddComponent(AString(L"R"), &mDesign);
    RefComponent* mSableComponent = mProject.AddComponent(AString(L"S"), &mDesign);
    RefComponent* mLoneComponent = mProject.AddComponent(AString(L"L"));
    RefCompInst* m3DInst = mDesign.AddCompInst(AString(L"R1"), *m3DComponent);
    RefCompInst* mSableInst = mDesign.AddCompInst(AString(L"S1"), *mSableComponent);
};

struct Reached
{
    const char* name;
    const void* reached;
    const void* expected;
};

void ExpectAll(std::initializer_list<Reached> cases)
{
    for (const Reached& c : cases)
    {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(c.reached, c.expected);
    }
}
} // namespace

TEST_F(InterfaceGettersTest, ManagerChainsReachTheProjectsManagers)
{
    ExpectAll({
        {"design mgr of circuit mgr", GetIDesignMgr(mCmgr), mDmgr},
        {"design mgr of definition mgr", GetIDesignMgr(mDefMgr), mDmgr},
        {"design mgr of circuit definition mgr", GetIDesignMgr(mCdefMgr), mDmgr},
        {"definition mgr of design mgr", GetIDefinitionMgr(mDmgr), mDefMgr},
        {"definition mgr of circuit mgr", GetIDefinitionMgr(mCmgr), mDefMgr},
        {"definition mgr of circuit definition mgr", GetIDefinitionMgr(mCdefMgr), mDefMgr},
        {"definition mgr of circuit creation mgr", GetIDefinitionMgr(mCcreationMgr), mDefMgr},
        {"creation mgr of design mgr", GetIDefCreationMgr(mDmgr), mCreationMgr},
        {"creation mgr of circuit mgr", GetIDefCreationMgr(mCmgr), mCreationMgr},
        {"creation mgr of circuit creation mgr", GetIDefCreationMgr(mCcreationMgr), mCreationMgr},
        {"circuit mgr of design mgr (by query)", GetICircuitMgr(mDmgr), mCmgr},
        {"circuit mgr of definition mgr", GetICircuitMgr(mDefMgr), mCmgr},
        {"circuit mgr of circuit definition mgr", GetICircuitMgr(mCdefMgr), mCmgr},
        {"circuit definition mgr of design mgr", GetICircuitDefinitionMgr(mDmgr), mCdefMgr},
        {"circuit definition mgr of definition mgr (by cast)", GetICircuitDefinitionMgr(mDefMgr),
         mCdefMgr},
        {"circuit definition mgr of circuit mgr", GetICircuitDefinitionMgr(mCmgr), mCdefMgr},
        {"circuit definition mgr of circuit creation mgr", GetICircuitDefinitionMgr(mCcreationMgr),
         mCdefMgr},
        {"circuit creation mgr of design mgr", GetICircuitDefCreationMgr(mDmgr), mCcreationMgr},
        {"circuit creation mgr of definition mgr", GetICircuitDefCreationMgr(mDefMgr),
         mCcreationMgr},
        {"circuit creation mgr of circuit mgr", GetICircuitDefCreationMgr(mCmgr), mCcreationMgr},
        {"circuit creation mgr of circuit definition mgr", GetICircuitDefCreationMgr(mCdefMgr),
         mCcreationMgr},
        {"library mgr of design mgr", GetICircuitLibraryMgr(mDmgr), mLibraryMgr},
        {"library mgr of circuit definition mgr", GetICircuitLibraryMgr(mCdefMgr), mLibraryMgr},
    });
    const IDesignMgr* constDmgr = mDmgr;
    const IDefinitionMgr* constDefMgr = mDefMgr;
    const ICircuitDefinitionMgr* constCdefMgr = mCdefMgr;
    ExpectAll({
        {"const design mgr", GetICircuitMgr(constDmgr), mCmgr},
        {"const definition mgr", GetICircuitMgr(constDefMgr), mCmgr},
        {"const circuit definition mgr", GetICircuitMgr(constCdefMgr), mCmgr},
    });
}

TEST_F(InterfaceGettersTest, DesignChainsReachEditorsAndViews)
{
    IDesign* design = &mDesign;
    const IDesign* constDesign = design;
    IDesignEditor* editor = &mEditor;
    ICircuit* circuit = &mEditor;
    IDesignInstance* instance = mInstance;
    const IDesignInstance* constInstance = instance;
    IDesignEditorInstance* editorInstance = &mInstance->GetRefEditorInstance();
    const ICircuitInstance* circuitInstance = editorInstance->Query<ICircuitInstance>();
    ASSERT_NE(circuitInstance, nullptr);
    ExpectAll({
        {"design of component", GetIDesign(m3DComponent), design},
        {"editor of circuit (cast)", GetIDesignEditor(circuit), editor},
        {"editor of component", GetIDesignEditor(static_cast<IComponent*>(m3DComponent)), editor},
        {"circuit of design", GetICircuit(design), circuit},
        {"circuit of editor", GetICircuit(editor), circuit},
        {"circuit instance of instance", GetICircuitInstance(instance), circuitInstance},
        {"circuit instance of const instance", GetICircuitInstance(constInstance), circuitInstance},
        {"circuit instance of editor instance", GetICircuitInstance(editorInstance),
         circuitInstance},
        {"circuit instance of const editor instance",
         GetICircuitInstance(static_cast<const IDesignEditorInstance*>(editorInstance)),
         circuitInstance},
        {"hierarchy design", GetIHierarchyDesign(design), static_cast<IHierarchyDesign*>(&mDesign)},
        {"const hierarchy design", GetIHierarchyDesign(constDesign),
         static_cast<IHierarchyDesign*>(&mDesign)},
        {"hierarchy instance", GetIHierarchyDesignInstance(instance),
         static_cast<IHierarchyDesignInstance*>(mInstance)},
        {"const hierarchy instance", GetIHierarchyDesignInstance(constInstance),
         static_cast<IHierarchyDesignInstance*>(mInstance)},
        {"hierarchical editor", GetIHierarchicalDesignEditor(editor),
         static_cast<IHierarchicalDesignEditor*>(&mEditor)},
        {"const hierarchical editor",
         GetIHierarchicalDesignEditor(static_cast<const IDesignEditor*>(editor)),
         static_cast<IHierarchicalDesignEditor*>(&mEditor)},
        {"hierarchical editor of circuit", GetIHierarchicalDesignEditor(circuit),
         static_cast<IHierarchicalDesignEditor*>(&mEditor)},
        {"schematic design", GetIDesignForSchematic(design),
         static_cast<IDesignForSchematic*>(&mDesign)},
        {"const schematic design", GetIDesignForSchematic(constDesign),
         static_cast<IDesignForSchematic*>(&mDesign)},
        {"schematic instance", GetIDesignInstanceForSchematic(instance),
         static_cast<IDesignInstanceForSchematic*>(mInstance)},
    });
}

TEST_F(InterfaceGettersTest, ComponentExtensionsAreFoundByKind)
{
    IComponent* r = m3DComponent;
    IComponent* s = mSableComponent;
    ICompInst* r1 = m3DInst;
    ICompInst* s1 = mSableInst;
    const void* rExtension = dynamic_cast<I3DCompExtension*>(r->GetExtension());
    const void* sExtension = dynamic_cast<ISableCompExtension*>(s->GetExtension());
    const void* r1Extension = dynamic_cast<I3DCompInstExtension*>(r1->GetExtension());
    const void* s1Extension = dynamic_cast<ISableCompInstExtension*>(s1->GetExtension());
    ASSERT_NE(rExtension, nullptr);
    ASSERT_NE(s1Extension, nullptr);
    ExpectAll({
        {"3D of component", GetI3DCompExtension(r), rExtension},
        {"3D of const component", GetI3DCompExtension(static_cast<const IComponent*>(r)),
         rExtension},
        {"3D of instance's component", GetI3DCompExtension(r1), rExtension},
        {"Sable of component", GetISableCompExtension(s), sExtension},
        {"Sable of const component", GetISableCompExtension(static_cast<const IComponent*>(s)),
         sExtension},
        {"Sable of instance's component", GetISableCompExtension(s1), sExtension},
        {"Sable of const instance's component",
         GetISableCompExtension(static_cast<const ICompInst*>(s1)), sExtension},
        {"3D of instance", GetI3DCompInstExtension(r1), r1Extension},
        {"3D of const instance", GetI3DCompInstExtension(static_cast<const ICompInst*>(r1)),
         r1Extension},
        {"Sable of instance", GetISableCompInstExtension(s1), s1Extension},
        {"Sable of const instance", GetISableCompInstExtension(static_cast<const ICompInst*>(s1)),
         s1Extension},
        // The other editor's kind is not found.
        {"Sable of 3D component", GetISableCompExtension(r), nullptr},
        {"3D of Sable instance's component", GetI3DCompExtension(s1), nullptr},
        {"Sable of 3D instance", GetISableCompInstExtension(r1), nullptr},
        {"3D of Sable instance", GetI3DCompInstExtension(s1), nullptr},
        {"3D of component without extension",
         GetI3DCompExtension(static_cast<IComponent*>(mLoneComponent)), nullptr},
        // The dynamic n-port model comes by query only.
        {"n-port model", GetIDynamicNportModel(s), s->Query<IDynamicNportModel>()},
        {"no n-port model", GetIDynamicNportModel(r), nullptr},
    });
    EXPECT_NE(GetIDynamicNportModel(s), nullptr);
}

TEST_F(InterfaceGettersTest, NullSourcesGiveNull)
{
    IDesignMgr* dmgr = nullptr;
    IDefinitionMgr* defMgr = nullptr;
    ICircuitMgr* cmgr = nullptr;
    ICircuitDefinitionMgr* cdefMgr = nullptr;
    ICircuitDefCreationMgr* ccreationMgr = nullptr;
    IComponent* component = nullptr;
    ICompInst* compInst = nullptr;
    IDesign* design = nullptr;
    IDesignEditor* editor = nullptr;
    ICircuit* circuit = nullptr;
    IDesignInstance* instance = nullptr;
    IDesignEditorInstance* editorInstance = nullptr;
    ExpectAll({
        {"GetIDesignMgr(ICircuitMgr)", GetIDesignMgr(cmgr), nullptr},
        {"GetIDesignMgr(IDefinitionMgr)", GetIDesignMgr(defMgr), nullptr},
        {"GetIDesignMgr(ICircuitDefinitionMgr)", GetIDesignMgr(cdefMgr), nullptr},
        {"GetIDefinitionMgr(IDesignMgr)", GetIDefinitionMgr(dmgr), nullptr},
        {"GetIDefinitionMgr(ICircuitMgr)", GetIDefinitionMgr(cmgr), nullptr},
        {"GetIDefinitionMgr(ICircuitDefinitionMgr)", GetIDefinitionMgr(cdefMgr), nullptr},
        {"GetIDefinitionMgr(ICircuitDefCreationMgr)", GetIDefinitionMgr(ccreationMgr), nullptr},
        {"GetIDefCreationMgr(IDesignMgr)", GetIDefCreationMgr(dmgr), nullptr},
        {"GetIDefCreationMgr(ICircuitMgr)", GetIDefCreationMgr(cmgr), nullptr},
        {"GetIDefCreationMgr(ICircuitDefCreationMgr)", GetIDefCreationMgr(ccreationMgr), nullptr},
        {"GetIDesign", GetIDesign(component), nullptr},
        {"GetIDesignEditor(ICircuit)", GetIDesignEditor(circuit), nullptr},
        {"GetIDesignEditor(IComponent)", GetIDesignEditor(component), nullptr},
        {"GetICircuitMgr(IDesignMgr)", GetICircuitMgr(dmgr), nullptr},
        {"GetICircuitMgr(const IDesignMgr)", GetICircuitMgr(static_cast<const IDesignMgr*>(dmgr)),
         nullptr},
        {"GetICircuitMgr(IDefinitionMgr)", GetICircuitMgr(defMgr), nullptr},
        {"GetICircuitMgr(const IDefinitionMgr)",
         GetICircuitMgr(static_cast<const IDefinitionMgr*>(defMgr)), nullptr},
        {"GetICircuitMgr(ICircuitDefinitionMgr)", GetICircuitMgr(cdefMgr), nullptr},
        {"GetICircuitMgr(const ICircuitDefinitionMgr)",
         GetICircuitMgr(static_cast<const ICircuitDefinitionMgr*>(cdefMgr)), nullptr},
        {"GetICircuitDefinitionMgr(IDesignMgr)", GetICircuitDefinitionMgr(dmgr), nullptr},
        {"GetICircuitDefinitionMgr(IDefinitionMgr)", GetICircuitDefinitionMgr(defMgr), nullptr},
        {"GetICircuitDefinitionMgr(ICircuitMgr)", GetICircuitDefinitionMgr(cmgr), nullptr},
        {"GetICircuitDefinitionMgr(ICircuitDefCreationMgr)", GetICircuitDefinitionMgr(ccreationMgr),
         nullptr},
        {"GetICircuitDefCreationMgr(IDesignMgr)", GetICircuitDefCreationMgr(dmgr), nullptr},
        {"GetICircuitDefCreationMgr(IDefinitionMgr)", GetICircuitDefCreationMgr(defMgr), nullptr},
        {"GetICircuitDefCreationMgr(ICircuitMgr)", GetICircuitDefCreationMgr(cmgr), nullptr},
        {"GetICircuitDefCreationMgr(ICircuitDefinitionMgr)", GetICircuitDefCreationMgr(cdefMgr),
         nullptr},
        {"GetICircuitLibraryMgr(IDesignMgr)", GetICircuitLibraryMgr(dmgr), nullptr},
        {"GetICircuitLibraryMgr(ICircuitDefinitionMgr)", GetICircuitLibraryMgr(cdefMgr), nullptr},
        {"GetICircuit(IDesign)", GetICircuit(design), nullptr},
        {"GetICircuit(IDesignEditor)", GetICircuit(editor), nullptr},
        {"GetICircuitInstance(IDesignInstance)", GetICircuitInstance(instance), nullptr},
        {"GetICircuitInstance(const IDesignInstance)",
         GetICircuitInstance(static_cast<const IDesignInstance*>(instance)), nullptr},
        {"GetICircuitInstance(IDesignEditorInstance)", GetICircuitInstance(editorInstance),
         nullptr},
        {"GetIHierarchyDesign", GetIHierarchyDesign(design), nullptr},
        {"GetIHierarchyDesignInstance", GetIHierarchyDesignInstance(instance), nullptr},
        {"GetIHierarchicalDesignEditor(IDesignEditor)", GetIHierarchicalDesignEditor(editor),
         nullptr},
        {"GetIHierarchicalDesignEditor(ICircuit)", GetIHierarchicalDesignEditor(circuit), nullptr},
        {"GetIDesignForSchematic", GetIDesignForSchematic(design), nullptr},
        {"GetIDesignInstanceForSchematic", GetIDesignInstanceForSchematic(instance), nullptr},
        {"GetI3DCompExtension(ICompInst)", GetI3DCompExtension(compInst), nullptr},
        {"GetI3DCompExtension(IComponent)", GetI3DCompExtension(component), nullptr},
        {"GetI3DCompInstExtension", GetI3DCompInstExtension(compInst), nullptr},
        {"GetISableCompExtension(ICompInst)", GetISableCompExtension(compInst), nullptr},
        {"GetISableCompExtension(IComponent)", GetISableCompExtension(component), nullptr},
        {"GetISableCompInstExtension", GetISableCompInstExtension(compInst), nullptr},
    });
}

TEST_F(InterfaceGettersTest, NullStepsOnTheWayGiveNull)
{
    // A component outside any design has no editor; an instance without a circuit view has no
    // circuit instance.
    RefDesignInstance* plain = mDesign.AddInstance(AString(L"I2"), nullptr, false);
    EXPECT_EQ(GetIDesignEditor(static_cast<IComponent*>(mLoneComponent)), nullptr);
    EXPECT_EQ(GetICircuitInstance(static_cast<IDesignInstance*>(plain)), nullptr);

    // A design manager that does not hand out its circuit manager (neither by cast nor by
    // query) breaks the chains that start with it.
    mRefDmgr.SetCircuitMgrAvailable(false);
    EXPECT_EQ(GetICircuitMgr(mDmgr), nullptr);
    EXPECT_EQ(GetICircuitMgr(static_cast<const IDesignMgr*>(mDmgr)), nullptr);
    EXPECT_EQ(GetICircuitDefCreationMgr(mDmgr), nullptr);
    // The chains through the definition manager do not need it.
    EXPECT_EQ(GetICircuitDefinitionMgr(mDmgr), mCdefMgr);
    EXPECT_EQ(GetICircuitLibraryMgr(mDmgr), mLibraryMgr);
}

TEST_F(InterfaceGettersTest, ApplicationServices)
{
    IAppBase* appBase = GetIAppBase();
    ASSERT_NE(appBase, nullptr);
    EXPECT_EQ(appBase, mApplication.Query<IAppBase>());
    INetworkDataExplorer* explorer = GetINetworkDataExplorer();
    ASSERT_NE(explorer, nullptr);
    EXPECT_EQ(explorer, appBase->GetNetworkDataExplorer());

    mApplication.SetHasNetworkDataExplorer(false);
    EXPECT_EQ(GetINetworkDataExplorer(), nullptr);
    mApplication.SetHasNetworkDataExplorer(true);
    mApplication.SetHasAppBase(false);
    EXPECT_EQ(GetIAppBase(), nullptr);
    EXPECT_EQ(GetINetworkDataExplorer(), nullptr);
}

TEST(InterfaceGetters, NoApplicationNoServices)
{
    ASSERT_EQ(GetIMerrowApplication(), nullptr);
    EXPECT_EQ(GetIAppBase(), nullptr);
    EXPECT_EQ(GetINetworkDataExplorer(), nullptr);
    // Callable before any host object exists, and it does nothing.
    AssertCapture capture;
    InitQuillonDLL();
    EXPECT_EQ(GetIMerrowApplication(), nullptr);
    EXPECT_EQ(capture.Count(), 0u);
}

TEST_F(InterfaceGettersTest, TopLevelInstanceIsTheFirstWithoutParent)
{
    RefDesign& top = mProject.AddDesign(AString(L"top"));
    RefDesign& sub = mProject.AddDesign(AString(L"sub"));
    RefDesignInstance* topInstance = top.AddInstance(AString(L"T"));
    EXPECT_EQ(GetTopLevelDesignInstance(sub), nullptr) << "a design without instances";

    sub.AddInstance(AString(L"noview"), nullptr, false); // skipped: no circuit view
    sub.AddInstance(AString(L"child"), topInstance);     // has a parent
    EXPECT_EQ(GetTopLevelDesignInstance(sub), nullptr);
    RefDesignInstance* first = sub.AddInstance(AString(L"first"));
    sub.AddInstance(AString(L"second"));
    EXPECT_EQ(GetTopLevelDesignInstance(sub), static_cast<IDesignInstance*>(first));
    EXPECT_EQ(GetTopLevelDesignInstance(top), static_cast<IDesignInstance*>(topInstance));
}

TEST(DesignInstanceNames, ConvertInTheHostsNameOrder)
{
    struct Case
    {
        const char* name;
        std::vector<AString> input;
        std::vector<AString> expected;
    };
    auto list = [](std::initializer_list<const wchar_t*> texts)
    {
        std::vector<AString> out;
        for (const wchar_t* text : texts)
        {
            out.emplace_back(text);
        }
        return out;
    };
    const Case cases[] = {
        {"last pieces in name order", list({L"b;X", L"a;Y", L"c"}), list({L"Y", L"X", L"c"})},
        {"deep name", list({L"top;mid;leaf"}), list({L"leaf"})},
        // Digits compare as numbers: U2 before U10, which plain text order reverses.
        {"natural order", list({L"U10;A", L"U2;B", L"u1;C"}), list({L"C", L"B", L"A"})},
        {"case ignored", list({L"B;1", L"a;2"}), list({L"2", L"1"})},
        {"duplicates kept", list({L"b;X", L"a;X", L"X"}), list({L"X", L"X", L"X"})},
        {"empty pieces dropped", list({L"a;;b"}), list({L"b"})},
        {"one piece is the name", list({L"x;", L";y"}), list({L";y", L"x;"})},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.name);
        std::vector<AString> out = {AString(L"kept")};
        ConvertDesignInstanceNamesToDesignNames(c.input, out);
        std::vector<AString> expected = {AString(L"kept")};
        expected.insert(expected.end(), c.expected.begin(), c.expected.end());
        EXPECT_EQ(out, expected);
    }
    std::vector<AString> out = {AString(L"kept")};
    ConvertDesignInstanceNamesToDesignNames({}, out);
    EXPECT_EQ(out, std::vector<AString>{AString(L"kept")});
}
