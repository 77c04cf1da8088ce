#include "BusNameParsing.h"

#include "Assert.h"
#include "RefApplication.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
using Signals = std::vector<AString>;
using SignalSet = std::set<AString, AString::NoCaseLess>;

std::string Narrow(const AString& text)
{
    return text.ToUTF8();
}

std::string Joined(const Signals& signals)
{
    std::string text;
    for (const AString& signal : signals)
    {
        text += (text.empty() ? "" : "|") + signal.ToUTF8();
    }
    return text;
}

std::string Joined(const SignalSet& signals)
{
    return Joined(Signals(signals.begin(), signals.end()));
}

// Every test runs against a reference host application whose circuit environment it chooses;
// the worked examples assume an environment other than 0 unless they say so.
class BusNameParsingTest : public ::testing::Test
{
protected:
    void SetEnvironment(CircuitEnvironment environment)
    {
        mApplication.SetCircuitEnvironment(environment);
    }
    void SetUp() override { SetEnvironment(kEnvParvane); }

    refhost::RefApplication mApplication;
};

struct ExpandCase
{
    const wchar_t* name;
    const char* expected; // members joined with "|"
    int result;
};

TEST_F(BusNameParsingTest, ExpandsWorkedExamples)
{
    const ExpandCase cases[] = {
        {L"clk", "clk", 1},
        {L"d[0:3]", "d[0]|d[1]|d[2]|d[3]", 4},
        {L"d<3-1>", "d<3>|d<2>|d<1>", 3},
        {L"a[1,3],b,c<0:1>", "a[1]|a[3]|b|c<0>|c<1>", 5},
        {L"a[x]", "", 0},
        {L"a,,b", "a", 0},
        {L"a[[1]]", "", 0},
        {L"a[1", "", 0},
        {L"a]", "a]", 1},
        {L"a,b,", "a|b", 0},
        {L",a", "", 0},
        {L"a[1]b[2]", "", 0},     // two bracket groups: index text "1]b[2" is refused
        {L"a[1>", "a[1>", 1},     // mixed brackets fit neither shape: passed through
        {L"[2:3]", "[2]|[3]", 2}, // an empty base is still a base
        {L"a[0:3],x[y],b", "a[0]|a[1]|a[2]|a[3]|b", 5}, // bad index: element skipped
        {L"a[2],b<5>,c[1]", "a[2]|b<5>|c[1]", 3},
        {L"a<2>,b[5],c", "a<2>|b[5]|c", 3},
    };
    for (const ExpandCase& c : cases)
    {
        SCOPED_TRACE(AString(c.name).ToUTF8());
        Signals signals;
        const int result = GetAllSignals(c.name, signals);
        EXPECT_EQ(Joined(signals), c.expected);
        EXPECT_EQ(result, c.result == 0 ? 0 : static_cast<int>(signals.size()));
        EXPECT_EQ(result, c.result);
    }
}

TEST_F(BusNameParsingTest, PassesMixedBracketElementsThrough)
{
    // An element whose opening and closing brackets differ fits neither shape.
    Signals signals;
    EXPECT_EQ(GetAllSignals(L"a<1>,b[2>", signals), 2);
    EXPECT_EQ(Joined(signals), "a<1>|b[2>");
    signals.clear();
    EXPECT_EQ(GetAllSignals(L"x[1>,y<2]", signals), 2);
    EXPECT_EQ(Joined(signals), "x[1>|y<2]");
    signals.clear();
    // A simple element after a bus element is passed through; the next bus keeps the style.
    EXPECT_EQ(GetAllSignals(L"a<1>,n,b<2:3>", signals), 4);
    EXPECT_EQ(Joined(signals), "a<1>|n|b<2>|b<3>");
}

TEST_F(BusNameParsingTest, CanonicalExpansionUsesSquareBrackets)
{
    Signals signals;
    EXPECT_EQ(GetAllSignalsCanonical(L"d<3-1>", signals), 3);
    EXPECT_EQ(Joined(signals), "d[3]|d[2]|d[1]");
    signals.clear();
    EXPECT_EQ(GetAllSignalsCanonical(L"a[1>", signals), 1);
    EXPECT_EQ(Joined(signals), "a[1>");
}

TEST_F(BusNameParsingTest, AppendsToOutputAndCountsTotal)
{
    Signals signals{L"keep"};
    EXPECT_EQ(GetAllSignals(L"d[0:1]", signals), 3);
    EXPECT_EQ(Joined(signals), "keep|d[0]|d[1]");
    // A simple wire name answers 1, like the de-duplicating form.
    EXPECT_EQ(GetAllSignals(L"clk", signals), 1);
    EXPECT_EQ(signals.size(), 4u);
    SignalSet set{L"zz"};
    EXPECT_EQ(GetUniqueSignals(L"a[0:1]", set), 3);
    // A simple wire name answers 1 whatever the set held before.
    EXPECT_EQ(GetUniqueSignals(L"q", set), 1);
    EXPECT_EQ(set.size(), 4u);
}

TEST_F(BusNameParsingTest, ReadsSecondSeparatorAsMoreRangeDigits)
{
    Signals signals;
    EXPECT_EQ(GetAllSignals(L"a[1:2:3]", signals), 23);
    EXPECT_EQ(signals.front(), L"a[1]");
    EXPECT_EQ(signals.back(), L"a[23]");
    std::vector<int> list;
    EXPECT_TRUE(ParseIndexList(L"5-1:0", list)); // 5 to 10
    EXPECT_EQ(list.size(), 6u);
    EXPECT_EQ(list.back(), 10);
}

TEST_F(BusNameParsingTest, EmptyNameAssertsAndYieldsZero)
{
    AssertCapture capture;
    Signals signals;
    SignalSet set;
    EXPECT_EQ(GetAllSignals(L"", signals), 0);
    EXPECT_EQ(GetAllSignalsCanonical(L"", signals), 0);
    EXPECT_EQ(GetUniqueSignals(L"", set), 0);
    EXPECT_EQ(capture.Texts(),
              (std::vector<std::string>{"!name.empty()", "!name.empty()", "!name.empty()"}));
    capture.Clear();
    // The empty name is simple, so the counts answer 1 without asserting.
    EXPECT_EQ(GetSignalCount(L""), 1);
    EXPECT_EQ(GetUniqueSignalCount(L""), 1);
    EXPECT_EQ(capture.Count(), 0u);
}

TEST_F(BusNameParsingTest, SimpleWireNameDependsOnEnvironment)
{
    struct Case
    {
        const wchar_t* name;
        bool inEnvironment0;
        bool elsewhere;
    };
    const Case cases[] = {
        {L"clk", true, true},      {L"", true, true},
        {L"a]", true, true},       {L"x[y]", true, false},
        {L"x[1]", false, false},   {L"x[1:3,5]", false, false},
        {L"x[1-3]", false, false}, {L"[1]", true, false},
        {L"a<1>", false, false},   {L"a,b", false, false},
        {L"x[1]y", true, false},   {L"X[1]", false, false},
        {L"x[1::2]", true, false}, {L"n\u00e9t[3]", false, false},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(AString(c.name).ToUTF8());
        SetEnvironment(kEnvBrennaCircuit);
        EXPECT_EQ(IsSimpleWireName(c.name), c.inEnvironment0);
        SetEnvironment(kEnvCalder);
        EXPECT_EQ(IsSimpleWireName(c.name), c.elsewhere);
    }
}

TEST_F(BusNameParsingTest, AsksEnvironmentOnEveryCall)
{
    SetEnvironment(kEnvBrennaCircuit);
    EXPECT_TRUE(IsSimpleWireName(L"x[y]"));
    SetEnvironment(kEnvOrrin);
    EXPECT_FALSE(IsSimpleWireName(L"x[y]"));
    SetEnvironment(kEnvBrennaCircuit);
    Signals signals;
    EXPECT_EQ(GetAllSignals(L"x[y]", signals), 1);
    EXPECT_EQ(Joined(signals), "x[y]");
}

TEST(BusNameParsingWithoutApplication, UsesEnvironmentNone)
{
    ASSERT_EQ(GetIMerrowApplication(), nullptr);
    EXPECT_FALSE(IsSimpleWireName(L"x[y]"));
    EXPECT_TRUE(IsSimpleWireName(L"xy"));
}

TEST_F(BusNameParsingTest, CollectsUniqueSignals)
{
    SignalSet set;
    EXPECT_EQ(GetUniqueSignals(L"d[3:1],D[2],e<0>", set), 4);
    EXPECT_EQ(Joined(set), "d[1]|d[2]|d[3]|e<0>");
    // Members come out ascending without repeats whatever the range direction.
    set.clear();
    EXPECT_EQ(GetUniqueSignals(L"a[5:3,4,3]", set), 3);
    EXPECT_EQ(Joined(set), "a[3]|a[4]|a[5]");
    // Each element keeps its own bracket kind.
    set.clear();
    EXPECT_EQ(GetUniqueSignals(L"a<1>,b[1]", set), 2);
    EXPECT_EQ(Joined(set), "a<1>|b[1]");
    EXPECT_EQ(GetUniqueSignalCount(L"a[0:3],A[2:5]"), 6);
    EXPECT_EQ(GetSignalCount(L"a[0:3],A[2:5]"), 8);
    EXPECT_EQ(GetUniqueSignalCount(L"a,,b"), 0);
}

TEST_F(BusNameParsingTest, CountsLikeExpansion)
{
    const wchar_t* names[] = {L"clk",  L"d[7:0]", L"a[1,3],b,c<0:1>",
                              L"a,,b", L"a[x],b", L"a[1:2:3]",
                              L"x[",   L"[1]",    L"a[99999999999],b"};
    for (const wchar_t* name : names)
    {
        SCOPED_TRACE(AString(name).ToUTF8());
        Signals signals;
        EXPECT_EQ(GetSignalCount(name), GetAllSignals(name, signals));
    }
}

TEST_F(BusNameParsingTest, RefusesHugeRanges)
{
    Signals signals;
    EXPECT_EQ(GetAllSignals(L"a[0:2147483647],b", signals), 1);
    EXPECT_EQ(Joined(signals), "b");
    EXPECT_EQ(GetSignalCount(L"a[0:2147483647]"), 0);
    std::vector<int> list;
    EXPECT_FALSE(ParseIndexList(L"0:2000000", list));
    EXPECT_TRUE(list.empty());
    // Elements within the limit each, beyond it together: the name is refused as a whole.
    const AString half = AString::Formatted(L"a[1:%d]", kMaxBusMembers / 2 + 1);
    const AString twoHalves = half + L"," + half;
    EXPECT_EQ(GetSignalCount(twoHalves), 0);
    EXPECT_EQ(GetSignalCount(half), kMaxBusMembers / 2 + 1);
    signals.clear();
    EXPECT_EQ(GetAllSignals(twoHalves, signals), 0);
    EXPECT_EQ(signals.size(), static_cast<std::size_t>(kMaxBusMembers / 2 + 1));
    SignalSet set;
    EXPECT_EQ(GetUniqueSignals(twoHalves + L",b", set), 0);
}

TEST_F(BusNameParsingTest, FindsAdjacentBusSignals)
{
    Signals signals;
    EXPECT_EQ(GetUniqueAdjacentBusSignals(L"n", L"d[3:5]", signals), 5);
    EXPECT_EQ(Joined(signals), "n[2]|n[3]|n[4]|n[5]|n[6]");
    signals.clear();
    EXPECT_EQ(GetUniqueAdjacentBusSignals(L"n", L"d<0,2>", signals), 4);
    EXPECT_EQ(Joined(signals), "n[0]|n[1]|n[2]|n[3]");
    signals.clear();
    EXPECT_EQ(GetUniqueAdjacentBusSignals(L"n[1]", L"d[0]", signals), 0);
    EXPECT_EQ(GetUniqueAdjacentBusSignals(L"n", L"d", signals), 0);
    EXPECT_EQ(GetUniqueAdjacentBusSignals(L"n", L"d[0,2147483646]", signals), 0);
    EXPECT_TRUE(signals.empty());
    AssertCapture capture;
    EXPECT_EQ(GetUniqueAdjacentBusSignals(L"", L"d[0]", signals), 0);
    EXPECT_EQ(capture.Texts(), std::vector<std::string>{"!basename.empty()"});
}

TEST_F(BusNameParsingTest, DecidesSubsets)
{
    struct Case
    {
        const wchar_t* first;
        const wchar_t* second;
        bool expected;
    };
    const Case cases[] = {
        {L"x", L"X", true},
        {L"a[1]", L"a<1>", false},
        {L"a[1]", L"a[0:3]", true},
        {L"a[0:4]", L"a[0:3]", false},
        {L"a[1],b", L"b,a[0:1]", true},
        {L"a[x]", L"a[0]", false},
        {L"a[1]", L"A[1]", true},
        {L"y", L"x", false},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Narrow(c.first) + " in " + Narrow(c.second));
        EXPECT_EQ(IsFirstSubsetOfSecond(c.first, c.second), c.expected);
    }
}

TEST_F(BusNameParsingTest, FindsSignalIndex)
{
    EXPECT_EQ(GetSignalIndex(L"d[7:0]", L"D[5]"), 2);
    EXPECT_EQ(GetSignalIndex(L"d[7:0]", L"d<5>"), -1);
    EXPECT_EQ(GetSignalIndex(L"a,b,a", L"A"), 0);
    EXPECT_EQ(GetSignalIndex(L"a,b,a", L"b"), 1);
    EXPECT_EQ(GetSignalIndex(L"a,,b", L"a"), -1);
}

TEST_F(BusNameParsingTest, CreatesNetNames)
{
    struct Case
    {
        Signals signals;
        const wchar_t* expected;
    };
    const Case cases[] = {
        {{L"a[0]", L"a[1]", L"a[2]", L"b", L"A[3]"}, L"a[0:2],b,A[3]"},
        {{L"d<3>", L"d<2>", L"x[1]"}, L"d<3:2>,x<1>"},
        {{L"a[3]", L"a[2]", L"a[1]", L"a[5]", L"a[6]", L"a[7]"}, L"a[3:1,5:6,7]"},
        {{}, L""},
        {{L"a[0]", L"b", L"a[1]"}, L"a[0],b,a[1]"},
        {{L"a[1:3]"}, L"a[0]"},
        {{L"a[x]", L"a[1]"}, L"a[x],a[1]"},
        {{L"n", L"m"}, L"n,m"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Joined(c.signals));
        EXPECT_EQ(CreateNetName(c.signals), c.expected);
    }
}

TEST_F(BusNameParsingTest, FormatsIndexLists)
{
    struct Case
    {
        std::vector<int> list;
        const wchar_t* expected;
    };
    const Case cases[] = {
        {{}, L""},
        {{4}, L"4"},
        {{0, 1, 2, 3, 5}, L"0:3,5"},
        {{1, 2, 3, 2, 1}, L"1:3,2:1"},
        {{3, 2, 1, 5, 6, 7}, L"3:1,5:6,7"},
        {{3, 2, 1, 5, 6, 7, 8, 9}, L"3:1,5:6,7:8,9"},
        {{1, 1}, L"1,1"},
        {{2147483647, 2147483646}, L"2147483647:2147483646"},
    };
    for (const Case& c : cases)
    {
        EXPECT_EQ(FormatIndexList(c.list), c.expected);
    }
    EXPECT_EQ(ComposeBusName(L"b", {}, true), L"b[]");
    EXPECT_EQ(ComposeBusName(L"b", {2, 3}, false), L"b<2:3>");
}

TEST_F(BusNameParsingTest, ChecksIndexTexts)
{
    struct Case
    {
        const wchar_t* text;
        bool index;
        bool multi;
    };
    const Case cases[] = {
        {L"0:7", true, true},     {L"7-0", true, true},     {L"1,3,5", true, true},
        {L"", false, false},      {L",1", false, false},    {L"1,", false, false},
        {L"1,,2", false, false},  {L"1:-2", false, false},  {L"a", false, false},
        {L"0:3][5", false, true}, {L"0:3><5", false, true}, {L"0:3]<5", false, false},
        {L"0:3]", false, false},  {L"0[3", false, false},   {L",][5", false, false},
        {L"1 2", false, false},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Narrow(c.text));
        EXPECT_EQ(IsIndexList(c.text), c.index);
        EXPECT_EQ(IsMultiIndexList(c.text), c.multi);
    }
}

TEST_F(BusNameParsingTest, SplitsBusMembers)
{
    AString base = L"old";
    AString index = L"old";
    EXPECT_TRUE(IsBusMember(L"d[0:3]", base, index));
    EXPECT_EQ(base, L"d");
    EXPECT_EQ(index, L"[0:3]");
    EXPECT_FALSE(IsBusMember(L"m[0:3][5]", base, index));
    EXPECT_EQ(base, L"d"); // untouched
    EXPECT_TRUE(IsMultiBusMember(L"m[0:3][5]", base, index));
    EXPECT_EQ(base, L"m");
    EXPECT_EQ(index, L"[0:3][5]");
    EXPECT_TRUE(IsMultiBusMember(L"q<1><2>", base, index));
    EXPECT_EQ(index, L"<1><2>");
    EXPECT_FALSE(IsBusMember(L"clk", base, index));
    EXPECT_FALSE(IsBusMember(L"a[x]", base, index));
    EXPECT_EQ(base, L"q");
}

TEST_F(BusNameParsingTest, AddsAndRemovesSlices)
{
    EXPECT_EQ(AddSliceToBusName(L"a[0:3]", L"a[5]"), L"a[0:3,5]");
    EXPECT_EQ(AddSliceToBusName(L"a[3:0]", L"a[5]"), L"a[5,3:0]");
    EXPECT_EQ(AddSliceToBusName(L"a[2]", L"a[0:1]"), L"a[2,0:1]");
    EXPECT_EQ(AddSliceToBusName(L"a[0:1]", L"B<3>"), L"B<0:1,3>");
    // An invalid slice still sets the style: it does not fit "*[*]".
    EXPECT_EQ(AddSliceToBusName(L"a[0:1]", L"x"), L"a<0:1>");
    EXPECT_EQ(RemoveSliceFromBusName(L"a[0:3]", L"a[1]"), L"a[0,2:3]");
    EXPECT_EQ(RemoveSliceFromBusName(L"a[0:11]", L"a[5]"), L"a[0,10:11,1:4,6:9]");
    EXPECT_EQ(RemoveSliceFromBusName(L"a[0:1]", L"A[0:1]"), L"");
}

TEST_F(BusNameParsingTest, MergesBusNamesOfOneBase)
{
    AString first = L"b[0:1]";
    AString second = L"B[4]";
    EXPECT_TRUE(MergeAnyBusNames(first, second));
    EXPECT_EQ(first, L"B[0:1,4]");
    EXPECT_EQ(second, L"");
    first = L"b[0:1]";
    second = L"c[4]";
    EXPECT_FALSE(MergeAnyBusNames(first, second));
    EXPECT_EQ(first, L"b[0:1]");
    EXPECT_EQ(second, L"c[4]");
    second = L"b";
    EXPECT_FALSE(MergeAnyBusNames(first, second));
}

TEST_F(BusNameParsingTest, MergesIndexListsInDirectionOfFirst)
{
    std::vector<int> a{5, 3};
    MergeIndexLists(a, {4, 9, 3});
    EXPECT_EQ(a, (std::vector<int>{9, 5, 4, 3}));
    std::vector<int> one{7};
    MergeIndexLists(one, {7, 1});
    EXPECT_EQ(one, (std::vector<int>{7, 7, 1}));
}

// Name checks ---------------------------------------------------------------------------

TEST_F(BusNameParsingTest, ChecksWireNames)
{
    struct Case
    {
        const wchar_t* name;
        int code;
    };
    const Case cases[] = {
        {L"", 21},     {L"a,,b", 21},    {L"a b", 15},        {L"a[0:3]", 0}, {L"a b[0:3]", 15},
        {L"a[x]", 16}, {L"a[0", 16},     {L"a[0:3],b<1>", 0}, {L"a&b", 15},   {L"a*", 15},
        {L",a", 21},   {L"a,", 21},      {L"[1]", 16},        {L"a]b", 0},    {L"a]", 16},
        {L"a>", 16},   {L"a[1,2],b", 0}, {L"a[1],b[y]", 16},  {L"a<1:2>", 0}, {L"x[1][2]", 16},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Narrow(c.name));
        EXPECT_EQ(IsGoodWireName(c.name), c.code);
    }
}

TEST_F(BusNameParsingTest, ChecksInstanceNames)
{
    struct Case
    {
        const wchar_t* name;
        int code;
    };
    const Case cases[] = {
        {L"U1", 0},    {L"1U", 310},   {L"U.1", 309}, {L"U 1", 309}, {L"1.U", 309}, {L"", 308},
        {L"U_1", 0},   {L"U[1]", 0},   {L"U(1)", 0},  {L"U{1}", 0},  {L"U-1", 309}, {L"U\t1", 309},
        {L"a'b", 309}, {L"a\"b", 309}, {L"9", 310},   {L"_9", 0},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Narrow(c.name));
        EXPECT_EQ(IsGoodInstanceName(c.name), c.code);
    }
}

TEST_F(BusNameParsingTest, ChecksLongInstanceNamesLikeShortOnes)
{
    // Long names are decided without the regular expressions; padding a name with letters
    // after its first character must not change the verdict either way.
    const wchar_t* names[] = {L"U1",      L"1U",  L"U.1",  L"U 1",      L"U\n",
                              L"U\nx\ny", L"1\n", L"1\nx", L"U\r-",     L"a\nb\n-",
                              L"\n\n",    L"U-",  L"9a",   L"U\u00e91", L"1\r\n"};
    const AString padding(5000, L'a');
    for (const wchar_t* name : names)
    {
        SCOPED_TRACE(Narrow(name));
        const AString shortName(name);
        const AString longName = shortName.Left(1) + padding + shortName.Mid(1);
        EXPECT_EQ(IsGoodInstanceName(longName), IsGoodInstanceName(shortName));
    }
    EXPECT_EQ(IsGoodInstanceName(AString(200000, L'x')), 0);
    EXPECT_EQ(IsGoodInstanceName(AString(200000, L'7')), 310);
    EXPECT_EQ(IsGoodInstanceName(AString(200000, L'x') + L"-"), 309);
}

TEST_F(BusNameParsingTest, ChecksSimpleWireAndBusBaseNames)
{
    struct Case
    {
        const wchar_t* name;
        bool good;
    };
    const Case cases[] = {
        {L"", true},     {L"a-b", false}, {L"a_b", true}, {L"a.b", false}, {L"a:b", false},
        {L"a;b", false}, {L"a<b", false}, {L"a]", false}, {L"A", true},    {L"n\u00e9t", true},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Narrow(c.name));
        EXPECT_EQ(IsGoodSimpleWireName(c.name), c.good);
        EXPECT_EQ(IsGoodBusBaseName(c.name), c.good);
    }
}

// Ordering ------------------------------------------------------------------------------

TEST_F(BusNameParsingTest, ComparesNetNames)
{
    EXPECT_EQ(NetNameCompare(L"d[0:1]", L"D<0>,d<1>"), 0);
    EXPECT_EQ(NetNameCompare(L"d[0:1]", L"d[0:2]"), 1);
    EXPECT_EQ(NetNameCompare(L"d[0:2]", L"d[0:1]"), 1);
    EXPECT_EQ(NetNameCompare(L"", L"x"), 1);
    EXPECT_EQ(NetNameCompare(L"x", L""), 1);
    EXPECT_EQ(NetNameCompare(L"", L""), 0);
    EXPECT_LT(NetNameCompare(L"a[0]", L"a[1]"), 0);
    EXPECT_GT(NetNameCompare(L"b", L"A"), 0);
    // Only the first name decides: a plain name against a bus compares the texts.
    EXPECT_NE(NetNameCompare(L"d0", L"d[0]"), 0);
    EXPECT_EQ(PortNameCompare(L"IN", L"in"), 0);
    const ConnNoCaseLess less;
    EXPECT_TRUE(less(L"a", L"B"));
    EXPECT_FALSE(less(L"d[0:1]", L"d[0:2]"));
    EXPECT_FALSE(less(L"d[0:2]", L"d[0:1]"));
}

} // namespace
