#include "Terminal.h"

#include "Assert.h"
#include "BlockWriter.h"
#include "RefApplication.h"
#include "RefComponent.h"
#include "RefManagers.h"
#include "RefNatureMgr.h"
#include "RefProject.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace refhost;

namespace
{
class TerminalTest : public ::testing::Test
{
protected:
    void SetUp() override { Terminal::ResetEquivNumber(); }

    RefDesignMgr& DesignMgr() { return mProject.GetDesignMgr(); }
    RefNatureMgr& Natures() { return DesignMgr().GetRefNatureMgr(); }

    // The one-line text of the block that `write` appends.
    template <typename Write> std::string Written(Write write)
    {
        io::CBlock_func root(L"Root");
        EXPECT_TRUE(write(root));
        EXPECT_EQ(root.GetItemCount(), 1u);
        std::string text = io::WriteBlockText(*root.GetItem(0).GetBlock());
        if (!text.empty() && text.back() == '\n')
        {
            text.pop_back();
        }
        return text;
    }

    // A terminal of the component read from `values` (a "Terminal" block's contents).
    io::ReadError ReadInto(Terminal& term, const std::vector<io::CBlock_value>& values)
    {
        io::CBlock_func block(L"Terminal");
        for (const io::CBlock_value& value : values)
        {
            block.AddValue(value);
        }
        return term.Read(block);
    }

    RefApplication mApplication;
    RefProject& mProject = mApplication.AddProject(AString(L"P"), AString(L"/work/P"));
    RefComponent* mComp = mProject.AddComponent(AString(L"X"));
};

// A copy of `term` read back from its own project block.
Terminal ReadBack(const Terminal& term, IComponent* parent)
{
    io::CBlock_func root(L"Root");
    EXPECT_TRUE(term.Write(root));
    Terminal read(parent);
    EXPECT_EQ(read.Read(*root.GetItem(0).GetBlock()), io::kNoError);
    return read;
}
} // namespace

TEST_F(TerminalTest, ConstructorsTakeDefaultsAndConsecutiveEquivalenceNumbers)
{
    Terminal first(mComp);
    Terminal second(mComp, AString(L"IN"), AString(L"1"), AString(L"B"));
    EXPECT_EQ(first.GetEquivNumber(), 0);
    EXPECT_EQ(second.GetEquivNumber(), 1);
    EXPECT_EQ(Terminal::GetNextEquivNumber(), 2);

    EXPECT_EQ(first.GetGate(), L"A");
    EXPECT_TRUE(first.GetSchPinName().empty());
    EXPECT_TRUE(first.GetLayPinName().empty());
    EXPECT_EQ(first.GetUnconnectedActionRToGround(), L"0");
    EXPECT_EQ(first.GetTerminalAttrs(), TerminalAttributes());
    EXPECT_EQ(first.GetTerminalAttrs().mNature, -1);
    EXPECT_EQ(first.GetTerminalAttrs().mDirection, 2);
    EXPECT_FALSE(first.GetShared());
    EXPECT_EQ(first.GetParent(), mComp);
    EXPECT_EQ(second.GetPinName(), L"IN");
    EXPECT_EQ(second.GetPinNumber(), L"1");
    EXPECT_EQ(second.GetGate(), L"B");

    const Terminal copy(second);
    EXPECT_EQ(copy.GetEquivNumber(), 1) << "a copy keeps the number of its source";
    EXPECT_EQ(Terminal::GetNextEquivNumber(), 2) << "and draws none";

    Terminal::ResetEquivNumber();
    EXPECT_EQ(Terminal(nullptr).GetEquivNumber(), 0);
    second.SetEquivNumber(40);
    EXPECT_EQ(Terminal(nullptr).GetEquivNumber(), 1) << "SetEquivNumber leaves the counter";
}

TEST_F(TerminalTest, InitialUnconnectedActionFollowsTheOwnersSetting)
{
    struct Case
    {
        int check;
        bool hasOwner;
        int expected;
    };
    const Case cases[] = {
        {0, true, Terminal::kUniqueNet},    {1, true, Terminal::kFlagAsError},
        {-3, true, Terminal::kFlagAsError}, {7, true, Terminal::kFlagAsError},
        {0, false, Terminal::kFlagAsError},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(testing::Message() << c.check << " owner " << c.hasOwner);
        mProject.SetUnconnectedTerminalCheck(c.check);
        mComp->SetHasOwner(c.hasOwner);
        EXPECT_EQ(Terminal(mComp).GetUnconnectedAction(), c.expected);
        EXPECT_EQ(Terminal(mComp, AString(L"a"), AString(), AString(L"A")).GetUnconnectedAction(),
                  c.expected);
    }
    EXPECT_EQ(Terminal(nullptr).GetUnconnectedAction(), Terminal::kFlagAsError);
}

TEST_F(TerminalTest, EqualityComparesPinsGateSharingAndAttributes)
{
    struct Case
    {
        const char* what;
        void (*change)(Terminal&);
        bool equal;
    };
    const Case cases[] = {
        {"nothing", [](Terminal&) {}, true},
        {"gate case", [](Terminal& t) { t.SetGate(AString(L"a")); }, true},
        {"gate", [](Terminal& t) { t.SetGate(AString(L"B")); }, false},
        {"shared", [](Terminal& t) { t.SetShared(true); }, false},
        {"schematic pin as bus members",
         [](Terminal& t) { t.SetSchPinName(AString(L"D<0>,d<1>")); }, true},
        {"schematic pin", [](Terminal& t) { t.SetSchPinName(AString(L"d[0:2]")); }, false},
        {"layout pin case", [](Terminal& t) { t.SetLayPinName(AString(L"p1")); }, true},
        {"layout pin", [](Terminal& t) { t.SetLayPinName(AString(L"P2")); }, false},
        {"direction of a conservative terminal",
         [](Terminal& t)
         {
             TerminalAttributes attrs = t.GetTerminalAttrs();
             attrs.mDirection = 0;
             t.SetTerminalAttrs(attrs);
         },
         true},
        {"nature",
         [](Terminal& t)
         {
             TerminalAttributes attrs = t.GetTerminalAttrs();
             attrs.mNature = -9;
             t.SetTerminalAttrs(attrs);
         },
         false},
        {"domain",
         [](Terminal& t)
         {
             TerminalAttributes attrs = t.GetTerminalAttrs();
             attrs.mDomain = merrowenum::kSignal;
             t.SetTerminalAttrs(attrs);
         },
         false},
        {"what does not count",
         [](Terminal& t)
         {
             t.SetTerminalName(AString(L"other"));
             t.SetEquivNumber(99);
             t.SetUnconnectedAction(Terminal::kGrounded);
             t.SetUnconnectedActionRToGround(AString(L"50"));
             t.SetDescription(AString(L"text"));
             t.SetParent(nullptr);
         },
         true},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.what);
        const Terminal base(mComp, AString(L"d[0:1]"), AString(L"P1"), AString(L"A"));
        Terminal other(base);
        c.change(other);
        EXPECT_EQ(base == other, c.equal);
        EXPECT_EQ(base != other, !c.equal);
    }
}

TEST_F(TerminalTest, DirectionCountsOnlyForTerminalsThatAreNotConservative)
{
    for (const int domain : {0, 1, 2, 3})
    {
        SCOPED_TRACE(domain);
        Terminal a(mComp, AString(L"S"), AString(), AString(L"A"));
        TerminalAttributes attrs;
        attrs.mDomain = domain;
        attrs.mDirection = 0;
        a.SetTerminalAttrs(attrs);
        Terminal b(a);
        attrs.mDirection = 1;
        b.SetTerminalAttrs(attrs);
        EXPECT_EQ(a == b, domain == merrowenum::kConservative);
    }
}

TEST_F(TerminalTest, OrderingIsTheDeliberatelyWeakOne)
{
    const AString a(L"a");
    const AString b(L"b");
    struct Case
    {
        const char* what;
        Terminal left;
        Terminal right;
        bool less;
    };
    auto make = [](IComponent* parent, const wchar_t* sch, const wchar_t* gate, bool shared)
    {
        Terminal term(parent, AString(sch), AString(), AString(gate));
        term.SetShared(shared);
        return term;
    };
    const Case cases[] = {
        {"both have a parent", make(mComp, L"a", L"A", false), make(mComp, L"b", L"B", false),
         false},
        {"both have a parent, reversed", make(mComp, L"b", L"B", false),
         make(mComp, L"a", L"A", false), false},
        {"no parent before a parent", make(nullptr, L"a", L"A", false),
         make(mComp, L"a", L"A", false), true},
        {"no parent, smaller names", make(nullptr, L"a", L"A", false),
         make(mComp, L"b", L"B", false), true},
        {"neither has a parent", make(nullptr, L"a", L"A", false), make(nullptr, L"b", L"B", false),
         false},
        {"parent before none", make(mComp, L"a", L"A", false), make(nullptr, L"a", L"A", false),
         false},
        {"shared against not shared", make(nullptr, L"a", L"A", true),
         make(mComp, L"a", L"A", false), false},
        {"not shared against shared", make(nullptr, L"a", L"A", false),
         make(mComp, L"a", L"A", true), true},
        {"greater gate", make(nullptr, L"a", L"B", false), make(mComp, L"a", L"A", false), false},
        {"gate order is case-sensitive", make(nullptr, L"a", L"a", false),
         make(mComp, L"a", L"B", false), false},
        {"greater schematic pin", make(nullptr, L"b", L"A", false), make(mComp, L"a", L"A", false),
         false},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(c.left < c.right, c.less);
    }
    Terminal lay(nullptr, a, b, AString(L"A"));
    const Terminal other(mComp, a, a, AString(L"A"));
    EXPECT_FALSE(lay < other) << "greater layout pin";
    lay.SetLayPinName(a);
    EXPECT_TRUE(lay < other);
}

TEST_F(TerminalTest, NeutralFormHoldsExactlyFourValues)
{
    Terminal term(mComp, AString(L"IN"), AString(L"1"), AString(L"B"));
    term.SetShared(true);
    term.SetDescription(AString(L"not written"));
    EXPECT_EQ(Written([&](io::CBlock& root) { return term.WriteNeutral(root); }),
              "Terminal { \"IN\" \"1\" \"B\" true }");
    EXPECT_EQ(Written([&](io::CBlock& root) { return Terminal(nullptr).WriteNeutral(root); }),
              "Terminal { \"\" \"\" \"A\" false }");
}

TEST_F(TerminalTest, ProjectFormFollowsWhatTheNatureManagerAllows)
{
    auto attrs = [](int domain, int nature, int direction, const wchar_t* description)
    {
        TerminalAttributes a;
        a.mDomain = domain;
        a.mNature = nature;
        a.mDirection = direction;
        a.mDescription = description;
        return a;
    };
    struct Case
    {
        const char* what;
        TerminalAttributes attrs;
        const char* expected;
    };
    const Case cases[] = {
        {"default nature, known to the manager", TerminalAttributes(),
         "Terminal { \"IN\" \"1\" \"A\" false 0 1 \"\" \"Electrical(IEEE.electrical)\" \"50\" }"},
        {"named nature", attrs(0, -9, 2, L"hot"),
         "Terminal { \"IN\" \"1\" \"A\" false 0 1 \"hot\" \"Thermal(IEEE.thermal)\" \"50\" }"},
        {"nature without a name", attrs(0, 42, 2, L""),
         "Terminal { \"IN\" \"1\" \"A\" false 0 1 \"50\" 0 2 \"42\" }"},
        {"conservative with a direction", attrs(0, -1, 0, L"d"),
         "Terminal { \"IN\" \"1\" \"A\" false 0 1 \"50\" 0 0 \"Electrical(IEEE.electrical)\" "
         "\"d\" }"},
        {"signal terminal", attrs(1, 12, 1, L""),
         "Terminal { \"IN\" \"1\" \"A\" false 0 1 \"50\" 1 1 \"12\" }"},
        {"signal terminal with the default nature", attrs(1, -1, 2, L"clock"),
         "Terminal { \"IN\" \"1\" \"A\" false 0 1 \"50\" 1 2 \"-1\" \"clock\" }"},
    };
    mProject.SetUnconnectedTerminalCheck(0);
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.what);
        Terminal::ResetEquivNumber();
        Terminal term(mComp, AString(L"IN"), AString(L"1"), AString(L"A"));
        term.SetUnconnectedActionRToGround(AString(L"50"));
        term.SetTerminalAttrs(c.attrs);
        AssertCapture capture;
        EXPECT_EQ(Written([&](io::CBlock& root) { return term.Write(root); }), c.expected);
        EXPECT_EQ(capture.Count(), 0u);
    }

    Terminal::ResetEquivNumber();
    const Terminal term(mComp, AString(L"IN"), AString(L"1"), AString(L"A"));
    Natures().Clear();
    EXPECT_EQ(Written([&](io::CBlock& root) { return term.Write(root); }),
              "Terminal { \"IN\" \"1\" \"A\" false 0 1 \"\" \"0\" }")
        << "a manager that does not know -1 names no nature";
    DesignMgr().SetNatureMgrAvailable(false);
    EXPECT_EQ(Written([&](io::CBlock& root) { return term.Write(root); }),
              "Terminal { \"IN\" \"1\" \"A\" false 0 1 \"0\" }");
}

TEST_F(TerminalTest, WriteWithoutCircuitManagerAssertsDsm)
{
    const Terminal term(mComp, AString(L"IN"), AString(L"1"), AString(L"A"));
    const Terminal orphan(nullptr, AString(L"IN"), AString(L"1"), AString(L"A"));
    DesignMgr().GetRefDefinitionMgr().SetCircuitMgrLinked(false);
    const std::pair<const Terminal*, const char*> cases[] = {
        {&term, "Terminal { \"IN\" \"1\" \"A\" false 0 0 \"0\" }"},
        {&orphan, "Terminal { \"IN\" \"1\" \"A\" false 1 0 \"0\" }"}};
    for (const auto& c : cases)
    {
        const Terminal* t = c.first;
        AssertCapture capture;
        EXPECT_EQ(Written([&](io::CBlock& root) { return t->Write(root); }), c.second);
        EXPECT_EQ(capture.Texts(), std::vector<std::string>{"dsm"});
    }
}

TEST_F(TerminalTest, WriteReportsTheBlocksErrorState)
{
    io::CBlock_func root(L"Root");
    root.AddValue(static_cast<unsigned long long>(-1)); // refused: sets the error state
    ASSERT_TRUE(root.HasError());
    const Terminal term(mComp);
    EXPECT_FALSE(term.Write(root));
    EXPECT_FALSE(term.WriteNeutral(root));
}

TEST_F(TerminalTest, EveryTerminalWrittenReadsBackEqual)
{
    ASSERT_TRUE(Natures().AddNature(5, AString(L"Optical"), AString(L"LIB"), AString(L"light")));
    struct Case
    {
        const char* what;
        int domain;
        int nature;
        int direction;
        const wchar_t* description;
    };
    const Case cases[] = {
        {"default", 0, -1, 2, L""},
        {"thermal", 0, -9, 2, L"case"},
        {"added nature", 0, 5, 2, L""},
        {"unknown nature", 0, 77, 2, L"x"},
        {"conservative, direction in", 0, -2, 0, L""},
        {"signal out", 1, 12, 1, L""},
        {"quantity", 2, 0, 0, L"flow"},
        {"generic, nature -1", 3, -1, 2, L""},
        {"signal with a nature's identifier", 1, -9, 2, L""},
    };
    for (const bool knowsDefault : {true, false})
    {
        if (!knowsDefault)
        {
            Natures().Clear();
            ASSERT_TRUE(Natures().AddNature(-9, AString(L"Thermal"), AString(L"IEEE"),
                                            AString(L"thermal")));
        }
        for (const Case& c : cases)
        {
            SCOPED_TRACE(testing::Message() << c.what << (knowsDefault ? "" : ", no -1"));
            Terminal term(mComp, AString(L"d[3]"), AString(L"B7"), AString(L"B"));
            term.SetShared(true);
            term.SetEquivNumber(17);
            term.SetUnconnectedAction(Terminal::kGrounded);
            term.SetUnconnectedActionRToGround(AString(L"1k"));
            term.SetTerminalAttrs({c.domain, c.nature, c.direction, AString(c.description)});
            AssertCapture capture;
            const Terminal read = ReadBack(term, mComp);
            EXPECT_EQ(capture.Count(), 0u);
            EXPECT_EQ(read, term);
            EXPECT_EQ(read.GetTerminalAttrs(), term.GetTerminalAttrs());
            EXPECT_EQ(read.GetEquivNumber(), 17);
            EXPECT_EQ(read.GetUnconnectedAction(), Terminal::kGrounded);
            EXPECT_EQ(read.GetUnconnectedActionRToGround(), L"1k");
            EXPECT_TRUE(read.GetShared());
        }
    }
}

TEST_F(TerminalTest, ReadTakesTheFirstFiveItemsOfEveryLayout)
{
    using V = io::CBlock_value;
    struct Case
    {
        const char* what;
        std::vector<V> values;
        int action;
        const wchar_t* rToGround;
        const wchar_t* description;
    };
    const Case cases[] = {
        {"five items", {V(L"IN"), V(L"1"), V(L"B"), V(true), V(4)}, 0, L"0", L""},
        {"six items", {V(L"IN"), V(L"1"), V(L"B"), V(true), V(4), V(3)}, 0, L"0", L""},
        {"seven items", {V(L"IN"), V(L"1"), V(L"B"), V(true), V(4), V(2), V(L"50")}, 2, L"50", L""},
        {"eight items",
         {V(L"IN"), V(L"1"), V(L"B"), V(true), V(4), V(1), V(L"desc"), V(L"7")},
         1,
         L"7",
         L"desc"},
        {"twelve items",
         {V(L"IN"), V(L"1"), V(L"B"), V(true), V(4), V(3), V(L""), V(L""), V(L""), V(L""), V(L""),
          V(L"")},
         0,
         L"0",
         L""},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.what);
        Terminal term(mComp);
        AssertCapture capture;
        EXPECT_EQ(ReadInto(term, c.values), io::kNoError);
        EXPECT_EQ(capture.Count(), 0u);
        EXPECT_EQ(term.GetSchPinName(), L"IN");
        EXPECT_EQ(term.GetLayPinName(), L"1");
        EXPECT_EQ(term.GetGate(), L"B");
        EXPECT_TRUE(term.GetShared());
        EXPECT_EQ(term.GetEquivNumber(), 4);
        EXPECT_EQ(term.GetUnconnectedAction(), c.action);
        EXPECT_EQ(term.GetUnconnectedActionRToGround(), c.rToGround);
        EXPECT_EQ(term.GetDescription(), c.description);
    }
}

TEST_F(TerminalTest, FailedConversionStopsTheReadKeepingWhatWasRead)
{
    using V = io::CBlock_value;
    struct Case
    {
        const char* what;
        std::vector<V> values;
        const wchar_t* gate;
    };
    const Case cases[] = {
        {"too few items", {V(L"IN"), V(L"1"), V(L"B"), V(true)}, L"B"},
        {"gate not a text", {V(L"IN"), V(L"1"), V(3), V(true), V(0)}, L"A"},
        {"shared not a bool", {V(L"IN"), V(L"1"), V(L"B"), V(1), V(0)}, L"B"},
        {"number not an integer", {V(L"IN"), V(L"1"), V(L"B"), V(true), V(L"0")}, L"B"},
        {"action not an integer",
         {V(L"IN"), V(L"1"), V(L"B"), V(true), V(0), V(L"Grounded"), V(L"0")},
         L"B"},
        {"resistance not a text", {V(L"IN"), V(L"1"), V(L"B"), V(true), V(0), V(2), V(50)}, L"B"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.what);
        Terminal term(mComp);
        EXPECT_EQ(ReadInto(term, c.values), io::kReadFailed);
        EXPECT_EQ(term.GetSchPinName(), L"IN") << "fields read before the failure stay";
        EXPECT_EQ(term.GetGate(), c.gate);
    }
    Terminal empty(mComp);
    EXPECT_EQ(ReadInto(empty, {}), io::kReadFailed);
}

TEST_F(TerminalTest, NatureTextsAndAttributeChecksRaiseTheirAssertions)
{
    using V = io::CBlock_value;
    auto values = [](int domain, const wchar_t* nature)
    {
        return std::vector<V>{V(L"IN"), V(L"1"), V(L"A"),   V(false), V(0),
                              V(0),     V(L"0"), V(domain), V(1),     V(nature)};
    };
    struct Case
    {
        const char* what;
        std::vector<V> values;
        std::vector<std::string> asserted;
        int domain;
        int nature;
    };
    const Case cases[] = {
        {"name", values(0, L"thermal(ieee.THERMAL)"), {}, 0, -9},
        {"identifier", values(1, L"14"), {}, 1, 14},
        {"name without parentheses",
         values(0, L"thermal"),
         {"Nature readin problem for terminal"},
         0,
         -1},
        {"empty text", values(0, L""), {"Nature readin problem for terminal"}, 0, -1},
        {"unknown name", values(0, L"Sound(LIB.air)"), {}, 0, -1},
        {"named nature on a signal terminal",
         values(1, L"Thermal(IEEE.thermal)"),
         {"mTermAttrs.mDomain == merrowenum::kConservative"},
         1,
         -9},
        {"domain out of range", values(4, L"3"), {"0"}, 0, 3},
        {"negative domain", values(-1, L"3"), {"0"}, 0, 3},
        {"nine items, name",
         {V(L"IN"), V(L"1"), V(L"A"), V(false), V(0), V(0), V(L"d"), V(L"Magnetic(IEEE.magnetic)"),
          V(L"0")},
         {},
         0,
         -2},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.what);
        Terminal term(mComp);
        AssertCapture capture;
        EXPECT_EQ(ReadInto(term, c.values), io::kNoError);
        EXPECT_EQ(capture.Texts(), c.asserted);
        EXPECT_EQ(term.GetTerminalAttrs().mDomain, c.domain);
        EXPECT_EQ(term.GetTerminalAttrs().mNature, c.nature);
    }
}

TEST_F(TerminalTest, AttributesNeedAParentWithANatureManager)
{
    using V = io::CBlock_value;
    const std::vector<V> values = {V(L"IN"), V(L"1"), V(L"A"), V(false), V(0),      V(2),
                                   V(L"5"),  V(1),    V(0),    V(L"12"), V(L"text")};
    {
        Terminal orphan(nullptr);
        AssertCapture capture;
        EXPECT_EQ(ReadInto(orphan, values), io::kNoError);
        EXPECT_EQ(capture.Count(), 0u) << "no parent: skipped quietly";
        EXPECT_EQ(orphan.GetTerminalAttrs(), TerminalAttributes());
        EXPECT_EQ(orphan.GetUnconnectedActionRToGround(), L"5");
    }
    DesignMgr().SetNatureMgrAvailable(false);
    {
        Terminal term(mComp);
        AssertCapture capture;
        EXPECT_EQ(ReadInto(term, values), io::kNoError);
        EXPECT_EQ(capture.Texts(), std::vector<std::string>{"dsm"});
        EXPECT_EQ(term.GetTerminalAttrs(), TerminalAttributes());
        EXPECT_EQ(term.GetUnconnectedAction(), Terminal::kGrounded);
    }
    DesignMgr().SetNatureMgrAvailable(true);
    Terminal term(mComp);
    EXPECT_EQ(ReadInto(term, values), io::kNoError);
    const TerminalAttributes expected{1, 12, 0, AString(L"text")};
    EXPECT_EQ(term.GetTerminalAttrs(), expected);
}

TEST_F(TerminalTest, UnconnectedActionTexts)
{
    struct Case
    {
        int action;
        const wchar_t* expected;
    };
    const Case cases[] = {{0, L"Flag as error"}, {1, L"Unique net"}, {2, L"Grounded, 50"},
                          {3, L"No net"},        {4, L""},           {-1, L""}};
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.action);
        Terminal term(mComp);
        term.SetUnconnectedAction(c.action);
        term.SetUnconnectedActionRToGround(AString(L"50"));
        EXPECT_EQ(term.GetUnconnectedActionString(), c.expected);
        AString label(L"kept");
        EXPECT_EQ(Terminal::GetUnconnectedActionFromId(c.action, label), *c.expected != L'\0');
        if (*c.expected == L'\0')
        {
            EXPECT_EQ(label, L"kept");
        }
    }
}

TEST_F(TerminalTest, NoNetIsOfferedInTheSystemEnvironmentOnly)
{
    for (int env = kEnvBrennaCircuit; env <= kEnvNone; ++env)
    {
        SCOPED_TRACE(env);
        std::vector<AString> labels{AString(L"first")};
        Terminal::GetUnconnectedActions(labels, static_cast<CircuitEnvironment>(env));
        std::vector<AString> expected{AString(L"first"), AString(L"Flag as error"),
                                      AString(L"Unique net"), AString(L"Grounded")};
        if (env == kEnvParvane)
        {
            expected.emplace_back(L"No net");
        }
        EXPECT_EQ(labels, expected) << "appended in index order";
    }
}

TEST_F(TerminalTest, ActionsAndResistancesFromTexts)
{
    struct Case
    {
        const wchar_t* text;
        int id;           // -1: no label matches
        const wchar_t* r; // nullptr: no resistance
    };
    const Case cases[] = {
        {L"grounded, 10", 2, L"10"}, {L"Grounded, 50", 2, L"50"},
        {L"Unique net", 1, nullptr}, {L"FLAG AS ERROR", 0, nullptr},
        {L"no net", 3, nullptr},     {L"  No net , x", 3, L"x"},
        {L"Grounded,", 2, L""},      {L"Grounded, 1k, extra", 2, L"1k"},
        {L" Grounded", -1, nullptr}, {L"Unknown", -1, nullptr},
        {L"", -1, nullptr},          {L",5", -1, L"5"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(AString(c.text).ToUTF8());
        int id = 42;
        EXPECT_EQ(Terminal::GetUnconnectedActionFromString(AString(c.text), id), c.id >= 0);
        EXPECT_EQ(id, c.id >= 0 ? c.id : 42);
        AString r(L"kept");
        EXPECT_EQ(Terminal::GetUnconnectedActionRToGround(AString(c.text), r), c.r != nullptr);
        EXPECT_EQ(r, c.r != nullptr ? c.r : L"kept");
    }
}

TEST_F(TerminalTest, GroundedTextRoundTrips)
{
    Terminal term(mComp);
    term.SetUnconnectedAction(Terminal::kGrounded);
    term.SetUnconnectedActionRToGround(AString(L"50"));
    const AString text = term.GetUnconnectedActionString();
    int id = -1;
    AString r;
    ASSERT_TRUE(Terminal::GetUnconnectedActionFromString(text, id));
    ASSERT_TRUE(Terminal::GetUnconnectedActionRToGround(text, r));
    EXPECT_EQ(id, Terminal::kGrounded);
    EXPECT_EQ(r, L"50");
}

TEST_F(TerminalTest, PinNameOrderingsArePortNameCompare)
{
    struct Case
    {
        const wchar_t* a;
        const wchar_t* b;
        int sign;
    };
    const Case cases[] = {{L"d[0:1]", L"D<0>,d<1>", 0},
                          {L"IN", L"in", 0},
                          {L"a", L"b", -1},
                          {L"d[0:1]", L"d[0:2]", 1},
                          {L"d[0:2]", L"d[0:1]", 1},
                          {L"", L"x", 1},
                          {L"", L"", 0}};
    for (const Case& c : cases)
    {
        SCOPED_TRACE(AString(c.a).ToUTF8() + " " + AString(c.b).ToUTF8());
        const int sch = Terminal::PinNameSchCompare(AString(c.a), AString(c.b));
        const int lay = Terminal::PinNameLayCompare(AString(c.a), AString(c.b));
        EXPECT_EQ((sch > 0) - (sch < 0), c.sign);
        EXPECT_EQ((lay > 0) - (lay < 0), c.sign);
    }
}
