#include "TerminalManager.h"

#include "Assert.h"
#include "BlockReader.h"
#include "BlockWriter.h"
#include "BusNameParsing.h"
#include "MessageManager.h"
#include "PropAttributes.h"
#include "PropList.h"
#include "RefApplication.h"
#include "RefComponent.h"
#include "RefManagers.h"
#include "RefProject.h"
#include "TextProp.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

using namespace refhost;

namespace
{
using Names = std::vector<AString>;

Names N(std::initializer_list<const wchar_t*> names)
{
    Names result;
    for (const wchar_t* name : names)
    {
        result.emplace_back(name);
    }
    return result;
}

class TerminalManagerTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        Terminal::ResetEquivNumber();
        GetGlobalIMessageManager()->ClearMessages();
    }
    void TearDown() override { GetGlobalIMessageManager()->ClearMessages(); }

    IComponent::AddTerminalReturn Add(const wchar_t* sch, const wchar_t* lay = L"",
                                      const wchar_t* gate = L"A", bool shared = false,
                                      AString* error = nullptr)
    {
        return mTerms.AddTerminal(mComp, AString(sch), AString(lay), AString(gate), shared,
                                  TerminalAttributes(), error);
    }
    Names SchNames() const
    {
        Names names;
        mTerms.GetPortNameVector(names, TerminalManager::kSymbolLibType);
        return names;
    }
    Names LayNames() const
    {
        Names names;
        mTerms.GetPortNameVector(names, TerminalManager::kFootprintLibType);
        return names;
    }
    std::vector<int> EquivNumbers() const
    {
        std::vector<int> numbers;
        for (std::size_t i = 0; i < mTerms.GetTerminalCount(); ++i)
        {
            numbers.push_back(mTerms.GetTerminal(i)->GetEquivNumber());
        }
        return numbers;
    }
    // Reads the manager from block text such as "C { Terminal { ... } }".
    io::ReadError ReadText(const char* text)
    {
        io::CBlock_func block;
        io::BlockTextError error;
        EXPECT_TRUE(io::ReadBlockText(text, block, &error)) << error.reason.ToUTF8();
        return mTerms.Read(block, *mComp);
    }

    RefApplication mApplication;
    RefProject& mProject = mApplication.AddProject(AString(L"P"), AString(L"/work/P"));
    RefComponent* mComp = mProject.AddComponent(AString(L"X"));
    TerminalManager mTerms;
};
} // namespace

TEST_F(TerminalManagerTest, AddingByNamesRefusesTakenPinNamesWithMessages)
{
    AString error;
    EXPECT_EQ(Add(L"IN", L"1", L"A", false, &error), IComponent::kTerminalAdded);
    EXPECT_TRUE(error.empty());
    struct Case
    {
        const wchar_t* sch;
        const wchar_t* lay;
        IComponent::AddTerminalReturn result;
        const wchar_t* message;
    };
    const Case cases[] = {
        {L"IN", L"9", IComponent::kSymbolPinNameTaken,
         L"Symbol pin name 'IN' already is a terminal for component X"},
        {L"in", L"9", IComponent::kSymbolPinNameTaken,
         L"Symbol pin name 'in' already is a terminal for component X"},
        {L"OUT", L"1", IComponent::kFootprintPinNameTaken,
         L"Footprint pin name '1' already is a terminal for component X"},
        {L"IN", L"1", IComponent::kSymbolPinNameTaken,
         L"Symbol pin name 'IN' already is a terminal for component X"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(AString(c.sch).ToUTF8() + "/" + AString(c.lay).ToUTF8());
        AString message;
        EXPECT_EQ(Add(c.sch, c.lay, L"B", false, &message), c.result);
        EXPECT_EQ(message, c.message);
        EXPECT_EQ(mTerms.GetTerminalCount(), 1u) << "the refused terminal is not kept";
        EXPECT_EQ(Add(c.sch, c.lay), c.result) << "no error text asked for";
    }
    EXPECT_TRUE(mTerms.NameSetsHold());
}

TEST_F(TerminalManagerTest, UnnamedTerminalsAndSignalTerminals)
{
    EXPECT_EQ(Add(L""), IComponent::kTerminalAdded);
    EXPECT_EQ(Add(L""), IComponent::kTerminalAdded);
    EXPECT_EQ(mTerms.GetTerminalCount(), 2u) << "two terminals with empty pin names";

    for (const int domain : {1, 2, 3})
    {
        SCOPED_TRACE(domain);
        TerminalAttributes attrs;
        attrs.mDomain = domain;
        AString error(L"untouched");
        EXPECT_EQ(mTerms.AddTerminal(mComp, AString(L"S"), AString(L"S"), AString(L"A"), false,
                                     attrs, &error),
                  IComponent::kTerminalAdded);
        EXPECT_EQ(mTerms.GetTerminalCount(), 2u) << "reported as done, nothing added";
        EXPECT_EQ(error, L"untouched");
    }
}

TEST_F(TerminalManagerTest, AddingByNamesSetsGateSharingAttributesAndAction)
{
    mProject.SetUnconnectedTerminalCheck(0);
    TerminalAttributes attrs;
    attrs.mNature = -9;
    attrs.mDescription = L"case";
    EXPECT_EQ(mTerms.AddTerminal(mComp, AString(L"T"), AString(L"9"), AString(L"C"), true, attrs,
                                 nullptr),
              IComponent::kTerminalAdded);
    const Terminal* term = mTerms.GetTerminal(0);
    ASSERT_NE(term, nullptr);
    EXPECT_EQ(term->GetGate(), L"C");
    EXPECT_TRUE(term->GetShared());
    EXPECT_EQ(term->GetTerminalAttrs(), attrs);
    EXPECT_EQ(term->GetParent(), mComp);
    EXPECT_EQ(term->GetUnconnectedAction(), Terminal::kUniqueNet);

    AssertCapture capture;
    EXPECT_EQ(Add(L"U", L"", L""), IComponent::kTerminalAdded);
    EXPECT_EQ(capture.Texts(), std::vector<std::string>{"!gate.empty()"});
    EXPECT_EQ(mTerms.GetTerminal(1)->GetGate(), L"A");

    capture.Clear();
    AString error;
    EXPECT_EQ(mTerms.AddTerminal(nullptr, AString(L"V"), AString(), AString(L"A"), false,
                                 TerminalAttributes(), &error),
              IComponent::kTerminalNotAdded);
    EXPECT_EQ(capture.Texts(), std::vector<std::string>{"comp"});
    EXPECT_EQ(error, L"Terminal error");
    EXPECT_EQ(mTerms.GetTerminalCount(), 2u);
}

TEST_F(TerminalManagerTest, AddingAnObjectKeepsTheCallersOwnershipWhenRefused)
{
    auto* first = new Terminal(nullptr, AString(L"IN"), AString(L"1"), AString(L"A"));
    EXPECT_EQ(mTerms.AddTerminal(mComp, first), IComponent::kTerminalAdded);
    EXPECT_EQ(first->GetParent(), mComp) << "parented on adding";

    Terminal sameSch(nullptr, AString(L"IN"), AString(L"2"), AString(L"A"));
    Terminal sameLay(nullptr, AString(L"OUT"), AString(L"1"), AString(L"A"));
    EXPECT_EQ(mTerms.AddTerminal(mComp, &sameSch), IComponent::kSymbolPinNameTaken);
    EXPECT_EQ(mTerms.AddTerminal(mComp, &sameLay), IComponent::kFootprintPinNameTaken);
    EXPECT_EQ(sameSch.GetParent(), nullptr) << "a refused terminal is not touched";

    AssertCapture capture;
    EXPECT_EQ(mTerms.AddTerminal(mComp, nullptr), IComponent::kTerminalNotAdded);
    EXPECT_EQ(mTerms.AddTerminal(nullptr, &sameLay), IComponent::kTerminalNotAdded);
    EXPECT_EQ(capture.Texts(), (std::vector<std::string>{"comp && term", "comp && term"}));
    EXPECT_EQ(mTerms.GetTerminalCount(), 1u);
}

TEST_F(TerminalManagerTest, RemovingFreesTheNamesAndShiftsLaterTerminals)
{
    for (const wchar_t* name : {L"A", L"B", L"C", L"D"})
    {
        Add(name, name);
    }
    mTerms.RemoveTerminal(7u);
    EXPECT_EQ(SchNames(), N({L"A", L"B", L"C", L"D"})) << "an index past the end is ignored";

    mTerms.RemoveTerminal(1u);
    EXPECT_EQ(SchNames(), N({L"A", L"C", L"D"}));
    EXPECT_EQ(
        mTerms.GetTerminalIndex(mTerms.GetTerminalFromSchPinName(AString(L"C"), AString(L"A"))), 1);
    EXPECT_FALSE(mTerms.IsSchPinNameInUse(AString(L"B")));
    EXPECT_FALSE(mTerms.IsLayPinNameInUse(AString(L"b")));
    EXPECT_EQ(Add(L"B", L"B"), IComponent::kTerminalAdded);

    Terminal* d = mTerms.GetTerminalFromSchPinName(AString(L"d"), AString(L"a"));
    ASSERT_NE(d, nullptr);
    mTerms.RemoveTerminal(d);
    EXPECT_EQ(SchNames(), N({L"A", L"C", L"B"}));
    Terminal stranger(mComp, AString(L"A"), AString(), AString(L"A"));
    mTerms.RemoveTerminal(&stranger);
    mTerms.RemoveTerminal(static_cast<Terminal*>(nullptr));
    EXPECT_EQ(mTerms.GetTerminalCount(), 3u) << "terminals not in the list are ignored";
    EXPECT_TRUE(mTerms.NameSetsHold());
}

TEST_F(TerminalManagerTest, NamesSharingTheirHashStayDistinct)
{
    // "PIN34306" and "pin63010" have the same 32-bit look-up hash, ignoring case: only the
    // comparison of the texts tells them apart.
    EXPECT_EQ(Add(L"PIN34306", L"PIN34306"), IComponent::kTerminalAdded);
    EXPECT_FALSE(mTerms.IsSchPinNameInUse(AString(L"pin63010")));
    EXPECT_FALSE(mTerms.IsLayPinNameInUse(AString(L"pin63010")));
    EXPECT_EQ(mTerms.GetTerminalFromLayPinName(AString(L"pin63010")), nullptr);
    EXPECT_EQ(Add(L"pin63010", L"pin63010"), IComponent::kTerminalAdded);
    EXPECT_EQ(mTerms.GetTerminalFromLayPinName(AString(L"PIN63010")), mTerms.GetTerminal(1));
    EXPECT_EQ(mTerms.GetTerminalFromSchPinName(AString(L"pin34306"), AString(L"A")),
              mTerms.GetTerminal(0));

    mTerms.RemoveTerminal(0u);
    EXPECT_FALSE(mTerms.IsSchPinNameInUse(AString(L"PIN34306")));
    EXPECT_TRUE(mTerms.IsSchPinNameInUse(AString(L"PIN63010")));
    EXPECT_EQ(mTerms.GetTerminalFromLayPinName(AString(L"PIN34306")), nullptr);
    EXPECT_EQ(mTerms.GetTerminalFromLayPinName(AString(L"PIN63010")), mTerms.GetTerminal(0));
    EXPECT_TRUE(mTerms.NameSetsHold());
}

TEST_F(TerminalManagerTest, NameSetsHoldThroughManyRemovalsAndRenames)
{
    // Names whose last use went keep their place in the name tables until they are rebuilt;
    // churn far past the first table sizes must neither lose names in use nor keep gone ones.
    for (int round = 0; round < 40; ++round)
    {
        for (int k = 0; k < 50; ++k)
        {
            Add(AString::Formatted(L"R%d_%d", round, k).c_str(),
                AString::Formatted(L"L%d", round * 50 + k).c_str());
        }
        while (mTerms.GetTerminalCount() > 30)
        {
            mTerms.RemoveTerminal(0u);
        }
    }
    ASSERT_EQ(mTerms.GetTerminalCount(), 30u);
    EXPECT_TRUE(mTerms.NameSetsHold());
    EXPECT_TRUE(mTerms.IsSchPinNameInUse(AString(L"r39_49")));
    EXPECT_TRUE(mTerms.IsSchPinNameInUse(AString(L"R39_20")));
    EXPECT_FALSE(mTerms.IsSchPinNameInUse(AString(L"R39_19")));
    EXPECT_FALSE(mTerms.IsLayPinNameInUse(AString(L"L0")));
    EXPECT_EQ(mTerms.GetTerminalFromLayPinName(AString(L"l1999")), mTerms.GetTerminal(29));
    EXPECT_EQ(Add(L"R0_0", L"L0"), IComponent::kTerminalAdded) << "a gone name is free again";
    EXPECT_EQ(Add(L"r39_49", L""), IComponent::kSymbolPinNameTaken);
}

TEST_F(TerminalManagerTest, SharedNamesReadFromAFileStayInUseUntilTheLastGoes)
{
    ASSERT_EQ(ReadText("C { Terminal { \"IN\" \"1\" \"A\" false 0 } "
                       "Terminal { \"in\" \"1\" \"B\" false 1 } }"),
              io::kNoError);
    mTerms.RemoveTerminal(0u);
    EXPECT_TRUE(mTerms.NameSetsHold());
    EXPECT_TRUE(mTerms.IsSchPinNameInUse(AString(L"IN")));
    EXPECT_EQ(Add(L"IN"), IComponent::kSymbolPinNameTaken);
    mTerms.RemoveTerminal(0u);
    EXPECT_EQ(Add(L"IN", L"1"), IComponent::kTerminalAdded);
}

TEST_F(TerminalManagerTest, ResizingAddsNumberedTerminalsAndRemovesFromTheEnd)
{
    Add(L"A");
    Add(L"B");
    Add(L"C");
    Terminal::ResetEquivNumber(); // the new terminals are numbered by position all the same
    mTerms.SetNumberOfTerminals(5, *mComp);
    ASSERT_EQ(mTerms.GetTerminalCount(), 5u);
    EXPECT_EQ(EquivNumbers(), (std::vector<int>{0, 1, 2, 3, 4}));
    EXPECT_EQ(SchNames(), N({L"A", L"B", L"C", L"", L""}));
    EXPECT_EQ(mTerms.GetTerminal(4)->GetGate(), L"A");
    EXPECT_FALSE(mTerms.GetTerminal(4)->GetShared());

    mTerms.SetNumberOfTerminals(1, *mComp);
    EXPECT_EQ(SchNames(), N({L"A"}));
    EXPECT_EQ(Add(L"B"), IComponent::kTerminalAdded);

    AssertCapture capture;
    mTerms.SetNumberOfTerminals(-1, *mComp);
    EXPECT_EQ(mTerms.GetTerminalCount(), 0u);
    EXPECT_EQ(capture.Texts(), std::vector<std::string>{"term"});
}

TEST_F(TerminalManagerTest, ReadNumbersFromZeroAndKeepsFileNumbers)
{
    const Terminal first(mComp);
    const Terminal second(mComp);
    ASSERT_EQ(Terminal::GetNextEquivNumber(), 2);
    Add(L"OLD");
    ASSERT_EQ(ReadText("C { \"name\" Note=1 Terminal { \"IN\" \"1\" \"A\" false 0 } Other { } "
                       "Terminal { \"OUT\" \"2\" \"B\" true 1 1 \"0\" } }"),
              io::kNoError);
    EXPECT_EQ(SchNames(), N({L"IN", L"OUT"})) << "the old list is replaced";
    EXPECT_EQ(EquivNumbers(), (std::vector<int>{0, 1}));
    EXPECT_EQ(mTerms.GetTerminal(0)->GetParent(), mComp);
    EXPECT_EQ(mTerms.GetTerminal(1)->GetUnconnectedAction(), 1);
    EXPECT_EQ(Terminal::GetNextEquivNumber(), 2) << "the next new terminal follows the file's";
    EXPECT_EQ(Add(L"OUT"), IComponent::kSymbolPinNameTaken);
    EXPECT_EQ(Add(L"X", L"2"), IComponent::kFootprintPinNameTaken);

    EXPECT_EQ(ReadText("C { }"), io::kNoError);
    EXPECT_EQ(mTerms.GetTerminalCount(), 0u);
}

TEST_F(TerminalManagerTest, ReadOfAnItemThatIsNotABlockPostsMessage61544)
{
    const RefCircuitMgr& circuitMgr = mProject.GetDesignMgr().GetRefCircuitMgr();
    AssertCapture capture;
    EXPECT_EQ(ReadText("C { Terminal { \"IN\" \"1\" \"A\" false 0 } Terminal=3 "
                       "Terminal { \"OUT\" \"2\" \"A\" false 1 } }"),
              io::kReadFailed);
    EXPECT_EQ(capture.Texts(), std::vector<std::string>{"0"});
    EXPECT_EQ(SchNames(), N({L"IN"})) << "terminals read before stay";
    EXPECT_EQ(circuitMgr.GetPostedMessageCount(), 1u);
    const std::vector<Message> messages = GetGlobalIMessageManager()->GetMessages();
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0].GetNumber(), 61544);
    EXPECT_EQ(messages[0].GetRecord(), (MessageRecord{MessageSeverity::kError, 1, 1012, 6}));
    EXPECT_EQ(messages[0].GetText(), L"Message 61544: Terminal");

    // Without a circuit manager the message still reaches the message manager.
    mProject.GetDesignMgr().GetRefDefinitionMgr().SetCircuitMgrLinked(false);
    EXPECT_EQ(ReadText("C { Terminal=\"x\" }"), io::kReadFailed);
    EXPECT_EQ(GetGlobalIMessageManager()->GetMessageCount(), 2u);
    EXPECT_EQ(circuitMgr.GetPostedMessageCount(), 1u);
}

TEST_F(TerminalManagerTest, ReadOfABadTerminalFailsKeepingTheEarlierOnes)
{
    AssertCapture capture;
    EXPECT_EQ(ReadText("C { Terminal { \"IN\" \"1\" \"A\" false 0 } Terminal { \"OUT\" 2 } "
                       "Terminal { \"X\" \"3\" \"A\" false 2 } }"),
              io::kReadFailed);
    EXPECT_EQ(capture.Count(), 0u) << "a plain read failure is not kDeleteObject";
    EXPECT_EQ(SchNames(), N({L"IN"}));
    EXPECT_TRUE(mTerms.NameSetsHold());
}

TEST_F(TerminalManagerTest, WrittenListsReadBackEqual)
{
    Add(L"IN", L"1");
    Add(L"d[0:3]", L"2", L"B", true);
    Add(L"", L"");
    TerminalAttributes thermal;
    thermal.mNature = -9;
    mTerms.AddTerminal(mComp, AString(L"T"), AString(L"4"), AString(L"A"), false, thermal, nullptr);
    io::CBlock_func block(L"Component");
    ASSERT_TRUE(mTerms.Write(block));
    EXPECT_EQ(block.GetItemCount(), 4u);

    TerminalManager read;
    ASSERT_EQ(read.Read(block, *mComp), io::kNoError);
    EXPECT_TRUE(read == mTerms);
    EXPECT_EQ(read.GetTerminal(3)->GetTerminalAttrs().mNature, -9);

    io::CBlock_func again(L"Component");
    ASSERT_TRUE(read.Write(again));
    EXPECT_EQ(io::WriteBlockText(again), io::WriteBlockText(block)) << "a fixed point";

    io::CBlock_func neutral(L"Component");
    ASSERT_TRUE(mTerms.WriteInNeutralFormat(neutral));
    EXPECT_EQ(
        io::WriteBlockText(neutral),
        "Component {\n    Terminal { \"IN\" \"1\" \"A\" false }\n"
        "    Terminal { \"d[0:3]\" \"2\" \"B\" true }\n    Terminal { \"\" \"\" \"A\" false }\n"
        "    Terminal { \"T\" \"4\" \"A\" false }\n}\n");

    read.RemoveTerminal(1u);
    EXPECT_FALSE(read == mTerms);
    EXPECT_TRUE(read != mTerms);

    io::CBlock_func broken(L"Component");
    broken.AddValue(static_cast<unsigned long long>(-1));
    EXPECT_FALSE(mTerms.Write(broken));
    EXPECT_FALSE(mTerms.WriteInNeutralFormat(broken));
}

TEST_F(TerminalManagerTest, LookUpsByName)
{
    Add(L"IN", L"1", L"A");
    Add(L"d[0:1]", L"2", L"B");
    Add(L"CLK", L"pad<3>", L"B");
    mTerms.SetTerminalNames(N({L"first", L"bus", L"clock"}));
    struct Case
    {
        const wchar_t* name;
        const wchar_t* gate;
        int position; // -1: none
    };
    const Case schematic[] = {
        {L"in", L"a", 0},      {L"IN", L"B", -1}, {L"D<0>,d<1>", L"B", 1}, {L"d[0],d[1]", L"b", 1},
        {L"d[1:0]", L"B", -1}, {L"clk", L"B", 2}, {L"", L"A", -1},         {L"IN ", L"A", -1},
    };
    for (const Case& c : schematic)
    {
        SCOPED_TRACE(AString(c.name).ToUTF8() + " gate " + AString(c.gate).ToUTF8());
        EXPECT_EQ(mTerms.GetTerminalFromSchPinName(AString(c.name), AString(c.gate)),
                  mTerms.GetTerminal(static_cast<std::size_t>(c.position)));
    }
    EXPECT_EQ(mTerms.GetTerminalFromLayPinName(AString(L"PAD[3]")), mTerms.GetTerminal(2));
    EXPECT_EQ(mTerms.GetTerminalFromLayPinName(AString(L"2")), mTerms.GetTerminal(1));
    EXPECT_EQ(mTerms.GetTerminalFromLayPinName(AString(L"3")), nullptr);
    EXPECT_EQ(mTerms.GetTerminalFromTerminalName(AString(L"BUS")), mTerms.GetTerminal(1));
    EXPECT_EQ(mTerms.GetTerminalFromTerminalName(AString(L"bus ")), nullptr);

    // The first in port order wins; unnamed terminals are found by the empty name.
    Add(L"", L"", L"B");
    Add(L"", L"", L"C");
    EXPECT_EQ(mTerms.GetTerminalFromSchPinName(AString(), AString(L"c")), mTerms.GetTerminal(4));
    mTerms.GetTerminal(4)->SetTerminalName(AString(L"clock"));
    EXPECT_EQ(mTerms.GetTerminalFromTerminalName(AString(L"CLOCK")), mTerms.GetTerminal(2));
}

TEST_F(TerminalManagerTest, LookUpsFollowRenamesAndTheEnvironment)
{
    Add(L"A", L"1");
    Add(L"x[y]", L"2");
    Add(L"B", L"3");
    Terminal* b = mTerms.GetTerminalFromSchPinName(AString(L"B"), AString(L"A"));
    ASSERT_NE(b, nullptr);
    // Renamed behind the manager's back: the look-ups see it all the same.
    mTerms.GetTerminal(0)->SetSchPinName(AString(L"B"));
    EXPECT_EQ(mTerms.GetTerminalFromSchPinName(AString(L"B"), AString(L"A")),
              mTerms.GetTerminal(0));
    mTerms.GetTerminal(2)->SetPinNumber(AString(L"9"));
    EXPECT_EQ(mTerms.GetTerminalFromLayPinName(AString(L"9")), b);
    EXPECT_EQ(mTerms.GetTerminalFromLayPinName(AString(L"3")), nullptr);

    // "x[y]" is one simple name in environment 0 and no valid name elsewhere, where it has no
    // members; every other name without members then compares equal to it.
    mApplication.SetCircuitEnvironment(kEnvBrennaCircuit);
    EXPECT_EQ(mTerms.GetTerminalFromSchPinName(AString(L"X[Y]"), AString(L"A")),
              mTerms.GetTerminal(1));
    EXPECT_EQ(mTerms.GetTerminalFromSchPinName(AString(L"q[z]"), AString(L"A")), nullptr);
    mApplication.SetCircuitEnvironment(kEnvParvane);
    EXPECT_EQ(mTerms.GetTerminalFromSchPinName(AString(L"q[z]"), AString(L"A")),
              mTerms.GetTerminal(1));
    EXPECT_EQ(PortNameCompare(AString(L"q[z]"), AString(L"x[y]")), 0);
    mApplication.SetCircuitEnvironment(kEnvBrennaCircuit);
    EXPECT_EQ(mTerms.GetTerminalFromSchPinName(AString(L"q[z]"), AString(L"A")), nullptr);
}

TEST_F(TerminalManagerTest, TerminalIndex)
{
    Add(L"A", L"1");
    Add(L"B", L"");
    Add(L"", L"3");
    Add(L"", L"");
    Terminal* unnamed = mTerms.GetTerminal(3);
    unnamed->SetEquivNumber(42);
    EXPECT_EQ(mTerms.GetTerminalIndex(nullptr), -1);
    EXPECT_EQ(mTerms.GetTerminalIndex(mTerms.GetTerminal(1)), 1);
    EXPECT_EQ(mTerms.GetTerminalIndex(mTerms.GetTerminal(2)), 2);
    EXPECT_EQ(mTerms.GetTerminalIndex(unnamed), 42) << "an unnamed terminal gives its number";
    Terminal outside(mComp, AString(L"A"), AString(), AString(L"A"));
    EXPECT_EQ(mTerms.GetTerminalIndex(&outside), -1);
    Terminal outsideUnnamed(mComp);
    EXPECT_EQ(mTerms.GetTerminalIndex(&outsideUnnamed), outsideUnnamed.GetEquivNumber());
    std::set<Terminal*> all;
    mTerms.GetTerminals(all);
    EXPECT_EQ(all.size(), 4u);
    EXPECT_EQ(all.count(unnamed), 1u);
}

TEST_F(TerminalManagerTest, MatchingSignalPins)
{
    Add(L"A", L"", L"G2", true);
    Add(L"B", L"", L"G2", true);
    Add(L"C", L"", L"G1");
    Add(L"d[0:1]", L"", L"G1");
    Add(L"", L"", L"G3");
    struct Case
    {
        Names pins;
        const wchar_t* gate;
        bool failOnUnnamed;
        bool match;
    };
    const Case cases[] = {
        {N({L"A", L"B"}), L"G2", false, true},
        {N({L"b", L"a"}), L"g2", true, true},
        {N({L"A", L"B"}), L"Other", false, true},
        {N({L"A"}), L"G2", false, false},
        {N({L"A", L"B", L"X"}), L"G2", false, false},
        {N({L"A", L"B", L"C", L"D<0>,D<1>"}), L"G1", false, true},
        {N({L"A", L"B", L"C", L"d[0]", L"d[1]"}), L"G1", false, false},
        {N({L"A", L"B", L"C"}), L"G1", false, false},
        {N({L"A", L"B"}), L"G3", false, true},
        {N({L"A", L"B"}), L"G3", true, false},
        {N({L"A", L"B", L""}), L"G2", false, false},
        {N({L"A", L"A"}), L"G2", false, false},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(testing::Message() << AString(c.gate).ToUTF8() << " " << c.pins.size());
        EXPECT_EQ(mTerms.MatchSignalPins(c.pins, AString(c.gate), c.failOnUnnamed), c.match);
    }
}

TEST_F(TerminalManagerTest, PortsAndLayoutPinNames)
{
    TerminalAttributes signal;
    signal.mDomain = merrowenum::kSignal;
    TerminalAttributes thermal;
    thermal.mNature = -9;
    const std::vector<std::pair<AString, TerminalAttributes>> ports = {
        {AString(L"P"), TerminalAttributes()},
        {AString(L"S"), signal},
        {AString(L"T"), thermal},
        {AString(L"p"), TerminalAttributes()}};
    Names added;
    AssertCapture capture;
    mTerms.SetPortsAndDirections(ports, added, mComp);
    EXPECT_EQ(capture.Texts(), std::vector<std::string>{"0"});
    EXPECT_EQ(added, N({L"P", L"T", L"p"})) << "a refused duplicate is still listed";
    EXPECT_EQ(SchNames(), N({L"P", L"T"}));
    EXPECT_EQ(LayNames(), N({L"P", L"T"}));
    EXPECT_EQ(mTerms.GetTerminal(1)->GetTerminalAttrs(), thermal);

    mTerms.GetTerminal(1)->SetGate(AString(L"B"));
    std::vector<std::pair<AString, TerminalAttributes>> multipart = {
        {AString(L"kept"), TerminalAttributes()}};
    mTerms.SetLayPinNamesForMultipartComponent(multipart);
    EXPECT_EQ(LayNames(), N({L"P_A", L"T_B"}));
    ASSERT_EQ(multipart.size(), 3u);
    EXPECT_EQ(multipart[2].first, L"T_B");
    EXPECT_EQ(multipart[2].second, thermal);
    EXPECT_FALSE(mTerms.IsLayPinNameInUse(AString(L"P")));
    EXPECT_TRUE(mTerms.IsLayPinNameInUse(AString(L"p_a")));
    EXPECT_TRUE(mTerms.NameSetsHold());

    mTerms.ClearAllLayPinNames();
    EXPECT_EQ(LayNames(), N({L"", L""}));
    EXPECT_FALSE(mTerms.IsLayPinNameInUse(AString(L"P_A")));
    Add(L"Q", L"7");
    mTerms.SetLayPinNamesFromSymPinNames();
    EXPECT_EQ(LayNames(), N({L"P", L"T", L"7"}));
    EXPECT_FALSE(mTerms.IsLayPinNameInUse(AString(L"P"))) << "the set is left as it is";
    EXPECT_TRUE(mTerms.IsLayPinNameInUse(AString(L"7")));
}

TEST_F(TerminalManagerTest, CommonReferenceTerminal)
{
    Add(L"A", L"1");
    mTerms.AddRefTerminals(mComp, kRefPinCommon);
    EXPECT_EQ(SchNames(), N({L"A", L"ref"}));
    mTerms.AddRefTerminals(mComp, kRefPinCommon);
    EXPECT_EQ(mTerms.GetTerminalCount(), 2u) << "a second one is refused by name";
    mTerms.RemoveRefTerminals(kRefPinCommon);
    EXPECT_EQ(SchNames(), N({L"A"}));
    mTerms.RemoveRefTerminals(kRefPinCommon);
    AssertCapture capture;
    mTerms.RemoveRefTerminals(kRefPinCommon);
    EXPECT_EQ(capture.Texts(), std::vector<std::string>{"ref"});

    mTerms.AddRefTerminals(mComp, kRefPinNone);
    mTerms.RemoveRefTerminals(kRefPinNone);
    EXPECT_EQ(mTerms.GetTerminalCount(), 0u);
}

TEST_F(TerminalManagerTest, IndividualReferenceTerminalsInterleave)
{
    for (const RefPinOption option : {kRefPinPerPin, kRefPinPerPinAlt})
    {
        SCOPED_TRACE(static_cast<int>(option));
        mTerms.clear();
        Add(L"A", L"1");
        Add(L"B", L"2", L"B");
        Terminal::ResetEquivNumber();
        mTerms.AddRefTerminals(mComp, option);
        EXPECT_EQ(SchNames(), N({L"A", L"A_ref", L"B", L"B_ref"}));
        EXPECT_EQ(LayNames(), N({L"1", L"", L"2", L""}));
        EXPECT_EQ(mTerms.GetTerminal(3)->GetGate(), L"A");
        EXPECT_EQ(mTerms.GetTerminal(1)->GetEquivNumber(), 0);
        EXPECT_EQ(mTerms.GetTerminal(3)->GetEquivNumber(), 1);
        EXPECT_EQ(mTerms.GetTerminalFromSchPinName(AString(L"b_ref"), AString(L"A")),
                  mTerms.GetTerminal(3));
        EXPECT_EQ(Add(L"A_ref"), IComponent::kSymbolPinNameTaken);
        EXPECT_TRUE(mTerms.NameSetsHold());

        mTerms.RemoveRefTerminals(option);
        EXPECT_EQ(SchNames(), N({L"A", L"B"}));
        EXPECT_EQ(Add(L"A_ref"), IComponent::kTerminalAdded);
        mTerms.RemoveRefTerminals(option);
        EXPECT_EQ(SchNames(), N({L"A", L"A_ref"})) << "odd positions go, whatever their names";
    }
}

TEST_F(TerminalManagerTest, RenamingFromTerminalData)
{
    Add(L"A", L"1");
    Add(L"B", L"2");
    std::vector<TerminalInfo> info;
    mTerms.GetTerminalInformation(info);
    ASSERT_EQ(info.size(), 2u);
    EXPECT_EQ(info[1].mPinName, L"B");
    EXPECT_EQ(info[1].mLayPinName, L"2");
    EXPECT_EQ(info[1].mEquivNumber, 1);
    info[0].mPinName = L"X";
    info[1].mPinName = L"Y";
    mTerms.SetTerminalData(info);
    EXPECT_EQ(SchNames(), N({L"X", L"Y"}));
    EXPECT_EQ(LayNames(), N({L"1", L"2"}));
    EXPECT_FALSE(mTerms.IsSchPinNameInUse(AString(L"A")));
    EXPECT_EQ(Add(L"x"), IComponent::kSymbolPinNameTaken);
    EXPECT_EQ(mTerms.GetTerminalFromSchPinName(AString(L"y"), AString(L"A")),
              mTerms.GetTerminal(1));

    info.resize(1);
    info[0].mPinName = L"Z";
    AssertCapture capture;
    mTerms.SetTerminalData(info);
    EXPECT_EQ(capture.Texts(),
              std::vector<std::string>{"terminalInfo.size() == mTerminals.size()"});
    EXPECT_EQ(SchNames(), N({L"Z", L"Y"}));
}

TEST_F(TerminalManagerTest, TerminalNames)
{
    Names names{AString(L"kept")};
    EXPECT_FALSE(mTerms.GetTerminalNames(names));
    EXPECT_TRUE(names.empty()) << "emptied when no terminal has a name";
    Add(L"A");
    Add(L"B");
    names = {AString(L"kept")};
    EXPECT_FALSE(mTerms.GetTerminalNames(names));
    EXPECT_TRUE(names.empty());

    AssertCapture capture;
    mTerms.SetTerminalNames(N({L"t1"}));
    EXPECT_EQ(capture.Texts(), std::vector<std::string>{"names.size() == mTerminals.size()"});
    names = {AString(L"kept")};
    EXPECT_TRUE(mTerms.GetTerminalNames(names));
    EXPECT_EQ(names, N({L"kept", L"t1", L""}));
    capture.Clear();
    mTerms.SetTerminalNames(N({L"u1", L"u2", L"u3"}));
    EXPECT_EQ(capture.Count(), 1u);
    EXPECT_EQ(mTerms.GetTerminalFromTerminalName(AString(L"U2")), mTerms.GetTerminal(1));
}

TEST_F(TerminalManagerTest, CopiesAndTakeOvers)
{
    Add(L"A", L"1");
    Add(L"B", L"2", L"B", true);
    mTerms.GetTerminal(1)->SetEquivNumber(9);
    RefComponent* other = mProject.AddComponent(AString(L"Y"));
    TerminalManager copy;
    copy.DeepCopy(mTerms, other);
    EXPECT_TRUE(copy == mTerms);
    EXPECT_EQ(copy.GetTerminal(1)->GetEquivNumber(), 9);
    EXPECT_EQ(copy.GetTerminal(1)->GetParent(), other);
    EXPECT_NE(copy.GetTerminal(1), mTerms.GetTerminal(1));
    EXPECT_TRUE(copy.IsSchPinNameInUse(AString(L"B")));
    copy.GetTerminal(0)->SetSchPinName(AString(L"Q"));
    EXPECT_EQ(mTerms.GetTerminal(0)->GetSchPinName(), L"A") << "copies are deep";
    EXPECT_EQ(copy.GetTerminalFromSchPinName(AString(L"q"), AString(L"A")), copy.GetTerminal(0));

    // Take over a new order: kept terminals live on, the rest are deleted.
    std::vector<Terminal*> order{mTerms.GetTerminal(1), nullptr, mTerms.GetTerminal(1),
                                 new Terminal(mComp, AString(L"C"), AString(L"3"), AString(L"A"))};
    Terminal* b = mTerms.GetTerminal(1);
    mTerms.SetAndClear(order);
    EXPECT_TRUE(order.empty());
    EXPECT_EQ(SchNames(), N({L"B", L"C"}));
    EXPECT_EQ(mTerms.GetTerminal(0), b);
    EXPECT_FALSE(mTerms.IsSchPinNameInUse(AString(L"A")));
    EXPECT_TRUE(mTerms.NameSetsHold());
    EXPECT_EQ(mTerms.GetTerminalIndex(b), 0);
}

TEST_F(TerminalManagerTest, PinNameListsAndAttributes)
{
    Add(L"B", L"2");
    Add(L"", L"");
    Add(L"a", L"1", L"G");
    std::set<AString, AString::NoCaseLess> sch{AString(L"A")};
    mTerms.GetTerminalSchPinNames(sch);
    EXPECT_EQ(sch, (std::set<AString, AString::NoCaseLess>{AString(L"A"), AString(L"B")}));
    Names schList{AString(L"x")};
    mTerms.GetTerminalSchPinNames(schList);
    EXPECT_EQ(schList, N({L"x", L"B", L"a"}));
    std::set<AString, AString::NoCaseLess> lay;
    mTerms.GetTerminalLayPinNames(lay);
    EXPECT_EQ(lay,
              (std::set<AString, AString::NoCaseLess>{AString(), AString(L"1"), AString(L"2")}));
    Names ports{AString(L"x")};
    AssertCapture capture;
    mTerms.GetPortNameVector(ports, 7);
    EXPECT_EQ(ports, N({L"x"}));
    EXPECT_EQ(
        capture.Texts(),
        std::vector<std::string>{"(libType == kSymbolLibType) || (libType == kFootprintLibType)"});

    TerminalAttributes attrs;
    attrs.mDescription = L"untouched";
    EXPECT_TRUE(mTerms.GetTerminalAttributes(attrs, AString(L"A"), AString(L"g")));
    EXPECT_EQ(attrs, TerminalAttributes());
    attrs.mDescription = L"untouched";
    EXPECT_FALSE(mTerms.GetTerminalAttributes(attrs, AString(L"A"), AString(L"A")));
    EXPECT_EQ(attrs.mDescription, L"untouched");
    mTerms.clear();
    EXPECT_FALSE(mTerms.GetTerminalAttributes(attrs, AString(L"B"), AString(L"A")));
}

namespace
{
merrowstruct::DataTypeInfo Type(int code, const wchar_t* name = L"")
{
    merrowstruct::DataTypeInfo type;
    type.mName = name;
    type.mType = code;
    return type;
}

merrowstruct::TerminalData Model(const wchar_t* name, const merrowstruct::DataTypeInfo& type)
{
    return {AString(name), type};
}

// A record of a real "a" and an integer "b".
merrowstruct::DataTypeInfo Record()
{
    merrowstruct::DataTypeInfo record = Type(merrowenum::kRecordType);
    record.mSubElements = {Type(merrowenum::kREALType, L"a"), Type(merrowenum::kINTEGERType, L"b")};
    return record;
}

std::vector<std::string> Texts(const std::vector<merrowstruct::ModelConflict>& conflicts)
{
    std::vector<std::string> texts;
    for (const merrowstruct::ModelConflict& conflict : conflicts)
    {
        texts.push_back(conflict.mText.ToUTF8() + "|" + conflict.mName.ToUTF8());
    }
    return texts;
}
} // namespace

TEST_F(TerminalManagerTest, MatchingModelTerminals)
{
    Add(L"p", L"1");
    Add(L"n", L"2");
    TerminalAttributes thermal;
    thermal.mNature = -9;
    mTerms.AddTerminal(mComp, AString(L"t"), AString(L"3"), AString(L"A"), false, thermal, nullptr);
    struct Case
    {
        const char* what;
        std::vector<merrowstruct::TerminalData> model;
        bool stopAtFirst;
        std::vector<std::string> conflicts;
    };
    const Case cases[] = {
        {"same natures",
         {Model(L"p", Type(-1)), Model(L"n", Type(-1)), Model(L"t", Type(-9))},
         false,
         {}},
        {"one nature differs",
         {Model(L"p", Type(-1)), Model(L"n", Type(-2)), Model(L"t", Type(-9))},
         false,
         {"Component terminal n(1) has different nature|n"}},
        {"fewer leaves",
         {Model(L"p", Type(-2)), Model(L"n", Type(-1))},
         false,
         {"Number of terminals is not the same|",
          "Component terminal p(0) has different nature|p"}},
        {"stop at the count",
         {Model(L"p", Type(-2))},
         true,
         {"Number of terminals is not the same|"}},
        {"stop at the first nature",
         {Model(L"p", Type(-2)), Model(L"n", Type(-2)), Model(L"t", Type(-2))},
         true,
         {"Component terminal p(0) has different nature|p"}},
        {"a record gives its leaves",
         {Model(L"p", Type(-1)), Model(L"q", Record())},
         false,
         {"Component terminal n(1) has different nature|n",
          "Component terminal t(2) has different nature|t"}},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.what);
        std::vector<merrowstruct::ModelConflict> conflicts(1); // appended to
        EXPECT_EQ(mTerms.MatchModelTerminalAttributes(c.model, conflicts, c.stopAtFirst),
                  !c.conflicts.empty());
        conflicts.erase(conflicts.begin());
        EXPECT_EQ(Texts(conflicts), c.conflicts);
        for (const merrowstruct::ModelConflict& conflict : conflicts)
        {
            EXPECT_EQ(conflict.mSeverity, 1);
            EXPECT_EQ(conflict.mComponentType, 39499);
            EXPECT_EQ(conflict.mModelType, 39499);
        }
    }
}

TEST_F(TerminalManagerTest, DeletingConservativePinsKeepsUnnamedSignalTerminals)
{
    Add(L"P", L"1");
    TerminalAttributes signal;
    signal.mDomain = merrowenum::kSignal;
    for (const wchar_t* name : {L"S1", L"S2", L"d[0:1]", L"Q"})
    {
        mTerms.AddTerminal(mComp, new Terminal(mComp, AString(name), AString(name), AString(L"A")));
        mTerms.GetTerminal(mTerms.GetTerminalCount() - 1)->SetTerminalAttrs(signal);
    }
    std::vector<merrowstruct::TerminalData> data = {
        Model(L"s1", Type(0)), Model(L"D<0>,d<1>", Type(0)), Model(L"P", Type(-1))};
    const std::vector<merrowstruct::TerminalData> before = data;
    mTerms.DeleteConservativePins(data);
    EXPECT_EQ(SchNames(), N({L"S2", L"Q"}));
    EXPECT_EQ(data, before);
    EXPECT_FALSE(mTerms.IsSchPinNameInUse(AString(L"P")));
    EXPECT_FALSE(mTerms.IsLayPinNameInUse(AString(L"S1")));
    EXPECT_TRUE(mTerms.NameSetsHold());
    EXPECT_EQ(mTerms.GetTerminalFromSchPinName(AString(L"q"), AString(L"A")),
              mTerms.GetTerminal(1));
}

TEST_F(TerminalManagerTest, AddingModelTerminalsNamesThemUniquely)
{
    Add(L"A", L"in");
    mTerms.SetTerminalNames(N({L"in"}));
    Add(L"B");
    mTerms.GetTerminal(1)->SetTerminalName(AString(L"IN_0"));
    std::vector<AString> added;
    mTerms.AddTerminals(
        mComp, {Model(L"in", Type(-1)), Model(L"q", Record()), Model(L"a", Type(-9))}, &added);
    EXPECT_EQ(added, N({L"in", L"q.a", L"q.b"})) << "\"a\" is a pin already";
    EXPECT_EQ(SchNames(), N({L"A", L"B", L"in", L"q.a", L"q.b"}));
    EXPECT_EQ(LayNames(), N({L"in", L"", L"", L"q.a", L"q.b"})) << "layout name \"in\" is taken";
    Names terminalNames;
    EXPECT_TRUE(mTerms.GetTerminalNames(terminalNames));
    EXPECT_EQ(terminalNames, N({L"in", L"IN_0", L"in_1", L"q.a", L"q.b"}));
    const TerminalAttributes in = mTerms.GetTerminal(2)->GetTerminalAttrs();
    EXPECT_EQ(in.mDomain, merrowenum::kConservative);
    EXPECT_EQ(in.mNature, -1);
    const TerminalAttributes b = mTerms.GetTerminal(4)->GetTerminalAttrs();
    EXPECT_EQ(b.mDomain, merrowenum::kSignal);
    EXPECT_EQ(b.mNature, merrowenum::kINTEGERType);
    EXPECT_TRUE(mTerms.NameSetsHold());
    std::set<int> numbers;
    for (const int number : EquivNumbers())
    {
        numbers.insert(number);
    }
    EXPECT_EQ(numbers.size(), 5u) << "equivalence numbers stay distinct";

    // Adjusting to a new model: conservative pins go, the model's pins come.
    std::vector<merrowstruct::TerminalData> model = {Model(L"x", Type(-1)), Model(L"q", Record())};
    added.clear();
    mTerms.AdjustTerminals(mComp, model, &added);
    EXPECT_EQ(SchNames(), N({L"x", L"q.a", L"q.b"})) << "in the model's order";
    EXPECT_EQ(added, N({L"x"})) << "the signal terminals of the record stay";
    std::vector<merrowstruct::ModelConflict> conflicts;
    EXPECT_FALSE(mTerms.MatchModelTerminalAttributes(model, conflicts, false));

    // A signal terminal that the model does not name stays, behind the model's; one whose type
    // changed takes the new one.
    mTerms.AddTerminal(mComp, new Terminal(mComp, AString(L"extra"), AString(), AString(L"A")));
    TerminalAttributes signal;
    signal.mDomain = merrowenum::kSignal;
    mTerms.GetTerminal(3)->SetTerminalAttrs(signal);
    model[1].mDataTypeInfo.mSubElements[1].mType = merrowenum::kREALType;
    mTerms.AdjustTerminals(mComp, model, nullptr);
    EXPECT_EQ(SchNames(), N({L"x", L"q.a", L"q.b", L"extra"}));
    EXPECT_EQ(mTerms.GetTerminal(2)->GetTerminalAttrs().mNature, merrowenum::kREALType);
    conflicts.clear();
    EXPECT_TRUE(mTerms.MatchModelTerminalAttributes(model, conflicts, false));
    EXPECT_EQ(Texts(conflicts), std::vector<std::string>{"Number of terminals is not the same|"});
    EXPECT_TRUE(mTerms.NameSetsHold());
}

namespace
{
// A property with pin attributes, as the circuit property classes have them.
class PinProp final : public TextProp, public PropAttributes
{
public:
    PinProp(const wchar_t* name, merrowenum::TerminalDomain domain, const wchar_t* text)
        : TextProp(AString(name), AString(), {}), mDomain(domain)
    {
        SetTextFromScriptArgInfo(AString(text));
    }
    merrowenum::TerminalDomain GetDomain() const override { return mDomain; }
    Units::UnitType GetUnitType() const override { return Units::UnitType{}; }
    bool SetType(int type) override
    {
        merrowstruct::DataTypeInfo dti = GetDataTypeInfo();
        dti.mType = type;
        SetDataTypeInfo(dti);
        return true;
    }
    Property* CloneProp() const override { return new PinProp(*this); }

private:
    merrowenum::TerminalDomain mDomain;
};
} // namespace

TEST_F(TerminalManagerTest, AttributesOfAPinWithoutTerminalComeFromItsProperty)
{
    auto* clock = new PinProp(L"CLK", merrowenum::kSignal, L"clock input");
    clock->Initialize(merrowenum::kBITType, merrowenum::kDirectionIn);
    mComp->GetPropList()->AddProp(clock);
    mComp->GetPropList()->AddProp(new TextProp(AString(L"Label"), AString(L"U1"), {}));
    Add(L"IN");

    TerminalAttributes attrs;
    ASSERT_TRUE(mTerms.GetTerminalAttributes(attrs, AString(L"clk"), AString(L"A")));
    const TerminalAttributes expected{merrowenum::kSignal, merrowenum::kBITType,
                                      merrowenum::kDirectionIn, AString(L"clock input")};
    EXPECT_EQ(attrs, expected);
    attrs = TerminalAttributes();
    attrs.mDescription = L"untouched";
    EXPECT_FALSE(mTerms.GetTerminalAttributes(attrs, AString(L"Label"), AString(L"A")))
        << "a property without pin attributes";
    EXPECT_FALSE(mTerms.GetTerminalAttributes(attrs, AString(L"none"), AString(L"A")));
    EXPECT_EQ(attrs.mDescription, L"untouched");

    // A terminal of that name comes first.
    mTerms.AddTerminal(mComp, AString(L"CLK"), AString(), AString(L"A"), false,
                       TerminalAttributes(), nullptr);
    ASSERT_TRUE(mTerms.GetTerminalAttributes(attrs, AString(L"CLK"), AString(L"A")));
    EXPECT_EQ(attrs, TerminalAttributes());
    // Without terminals nothing is looked up.
    mTerms.clear();
    EXPECT_FALSE(mTerms.GetTerminalAttributes(attrs, AString(L"CLK"), AString(L"A")));
}
