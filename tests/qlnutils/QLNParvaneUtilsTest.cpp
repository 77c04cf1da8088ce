#include "QLNParvaneUtils.h"

#include "Assert.h"
#include "BlockReader.h"
#include "BlockWriter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

using merrowstruct::DataTypeInfo;
using merrowstruct::DataTypeLeaf;
using Texts = std::vector<std::string>;

namespace
{

// The block text of a record, as WriteDataTypeInfo writes it into a block named Info.
std::string Written(const DataTypeInfo& dti)
{
    io::CBlock_func root(L"Info");
    WriteDataTypeInfo(root, dti);
    return io::WriteBlockText(root);
}

io::CBlock_func Parse(std::string_view text)
{
    io::CBlock_func root;
    io::BlockTextError error;
    EXPECT_TRUE(io::ReadBlockText(text, root, &error)) << error.Describe(L"test").ToUTF8();
    return root;
}

struct ReadResult
{
    bool ok;
    DataTypeInfo dti;
    Texts asserts;
};

ReadResult ReadText(std::string_view text)
{
    io::CBlock_func root = Parse(text);
    ReadResult result{false, {}, {}};
    AssertCapture capture;
    result.ok = ReadDataTypeInfo(root, result.dti);
    result.asserts = capture.Texts();
    return result;
}

DataTypeInfo Scalar(const wchar_t* name, std::int32_t type = merrowenum::kREALType)
{
    DataTypeInfo dti;
    dti.mName = name;
    dti.mType = type;
    return dti;
}

DataTypeInfo Array(const wchar_t* name, const DataTypeInfo& element,
                   std::vector<std::uint32_t> indices)
{
    DataTypeInfo dti = Scalar(name, merrowenum::kARRAYType);
    dti.mSubElements.push_back(element);
    dti.mIndices = std::move(indices);
    return dti;
}

DataTypeInfo Record(const wchar_t* name, std::vector<DataTypeInfo> members)
{
    DataTypeInfo dti = Scalar(name, merrowenum::kRecordType);
    dti.mSubElements = std::move(members);
    return dti;
}

Texts LeafNames(const std::vector<DataTypeLeaf>& leaves)
{
    Texts names;
    for (const DataTypeLeaf& leaf : leaves)
    {
        names.push_back(leaf.first.ToUTF8());
    }
    return names;
}

} // namespace

namespace merrowstruct
{
// Failing comparisons show records as their block text.
void PrintTo(const DataTypeInfo& dti, std::ostream* os)
{
    *os << '\n' << Written(dti);
}
} // namespace merrowstruct

TEST(QLNParvaneUtils, WritesTheBlockFormInItsOrder)
{
    DataTypeInfo full = Scalar(L"mode", merrowenum::kENUMType);
    full.mTypeName = L"mode_t";
    full.mPhyTypes = {L"voltage", L"current"};
    full.mPkgNames = {L"work.pkg"};
    full.mEnumItems = {{1, L"'1'"}, {0, L"'0'"}, {-3, L"z"}};
    full.mIndices = {4, 0};
    full.mIsUnconstrained = true;
    full.mIsBusPort = true;
    full.mSubElements = {Scalar(L"a"), Scalar(L"b", merrowenum::kTIMEType)};

    struct Case
    {
        const char* name;
        DataTypeInfo dti;
        std::string expected;
    };
    const Case cases[] = {
        {"default", DataTypeInfo(), "Info { \"\" 0 \"\" IsUnconstrained=false }\n"},
        {"bus port only when set", Record(L"b", {}),
         "Info { \"b\" 8 \"\" IsUnconstrained=false }\n"},
        {"every field", full,
         "Info {\n"
         "    \"mode\"\n"
         "    9\n"
         "    \"mode_t\"\n"
         "    PhyTypes { \"voltage\" \"current\" }\n"
         "    PkgNames { \"work.pkg\" }\n"
         "    EnumItems {\n"
         "        z { -3 }\n"
         "        \"'0'\" { 0 }\n"
         "        \"'1'\" { 1 }\n"
         "    }\n"
         "    SubElements {\n"
         "        Info { \"a\" 0 \"\" IsUnconstrained=false }\n"
         "        Info { \"b\" 14 \"\" IsUnconstrained=false }\n"
         "    }\n"
         "    Indices { 4 0 }\n"
         "    IsUnconstrained=true\n"
         "    IsBusPort=true\n"
         "}\n"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.name);
        AssertCapture capture;
        io::CBlock_func root(L"Info");
        EXPECT_TRUE(WriteDataTypeInfo(root, c.dti));
        EXPECT_EQ(io::WriteBlockText(root), c.expected);
        EXPECT_FALSE(root.HasError());
        EXPECT_EQ(capture.Count(), 0u);
    }
}

TEST(QLNParvaneUtils, WritesOlderArrayCodesAsArrays)
{
    for (const std::int32_t type : {11, 12, 13, 5})
    {
        SCOPED_TRACE(type);
        const DataTypeInfo dti = Array(L"v", Scalar(L"e"), {0});
        DataTypeInfo older = dti;
        older.mType = type;
        AssertCapture capture;
        EXPECT_EQ(Written(older), Written(dti));
        EXPECT_EQ(capture.Texts(),
                  type == 5 ? Texts{} : Texts{"dti.mType == merrowenum::kARRAYType"});
    }
}

TEST(QLNParvaneUtils, ReadingToleratesMissingAndStrayItems)
{
    struct Case
    {
        const char* name;
        const char* text;
        bool ok;
        DataTypeInfo expected;
        Texts asserts;
    };
    DataTypeInfo enums = Scalar(L"e", merrowenum::kENUMType);
    enums.mEnumItems = {{0, L"second"}, {2, L"c"}};
    DataTypeInfo lists = Scalar(L"l");
    lists.mPhyTypes = {L"a"};
    lists.mIndices = {1, 2};
    const Case cases[] = {
        {"empty block: defaults", "Info { }", true, DataTypeInfo(), {}},
        {"name missing: the type is the first value",
         "Info { 14 \"t\" }",
         true,
         []
         {
             DataTypeInfo dti = Scalar(L"", merrowenum::kTIMEType);
             dti.mTypeName = L"t";
             return dti;
         }(),
         {}},
        {"enumeration: non-blocks skipped, value-less literal asserts, later value wins",
         "Info { \"e\" 9 \"\" EnumItems { 5 \"x\" first { 0 } c { 2 } bad { \"no\" } "
         "second { 0 } } IsUnconstrained=false }",
         true,
         enums,
         {"found"}},
        {"lists stop at a value of another kind",
         "Info { \"l\" 0 \"\" PhyTypes { \"a\" 3 \"b\" } Indices { 1 2 -1 3 } "
         "IsUnconstrained=false }",
         true,
         lists,
         {}},
        {"bus-port flag of another kind is not read",
         "Info { \"b\" 0 \"\" IsUnconstrained=false IsBusPort=1 }",
         true,
         Scalar(L"b"),
         {}},
        {"record with no members",
         "Info { \"r\" 8 \"\" IsUnconstrained=false }",
         false,
         Scalar(L"r", merrowenum::kRecordType),
         {"!dti.mSubElements.empty()"}},
        {"array with no element",
         "Info { \"a\" 5 \"\" IsUnconstrained=true }",
         false,
         []
         {
             DataTypeInfo dti = Scalar(L"a", merrowenum::kARRAYType);
             dti.mIsUnconstrained = true;
             return dti;
         }(),
         {"!dti.mSubElements.empty()"}},
        {"members that do not read are dropped; stray items skipped",
         "Info { \"r\" 8 \"\" SubElements { \"x\" Info { \"bad\" 8 \"\" IsUnconstrained=false } "
         "Other { \"ok\" 0 \"\" IsUnconstrained=false } } IsUnconstrained=false }",
         true,
         Record(L"r", {Scalar(L"ok")}),
         {"!dti.mSubElements.empty()"}},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.name);
        const ReadResult read = ReadText(c.text);
        EXPECT_EQ(read.ok, c.ok);
        EXPECT_EQ(read.dti, c.expected);
        EXPECT_EQ(read.asserts, c.asserts);
    }
}

TEST(QLNParvaneUtils, ReadingNormalisesOlderCodesAndTheMisspeltKey)
{
    struct Case
    {
        int type;
        const char* keys;
        int expectedType;
        bool unconstrained;
    };
    const Case cases[] = {
        {11, "IsUnconstrained=false", 5, false},
        {12, "IsUnconstrained=false", 5, false},
        {13, "IsUnconstrained=true", 5, true},
        {5, "InUnconstrained=true", 5, true},
        {5, "IsUnconstrained=false InUnconstrained=true", 5, false}, // the right key wins
        {0, "InUnconstrained=true", 0, true},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(std::to_string(c.type) + " " + c.keys);
        const ReadResult read =
            ReadText("Info { \"v\" " + std::to_string(c.type) +
                     " \"\" SubElements { Info { \"e\" 0 \"\" } } " + c.keys + " }");
        EXPECT_TRUE(read.ok);
        EXPECT_TRUE(read.asserts.empty());
        EXPECT_EQ(read.dti.mType, c.expectedType);
        EXPECT_EQ(read.dti.mIsUnconstrained, c.unconstrained);
        // A key was there, so the element was not taken for an older array element.
        EXPECT_EQ(read.dti.mSubElements, std::vector<DataTypeInfo>{Scalar(L"e")});
        EXPECT_TRUE(read.dti.mIndices.empty());
    }
}

TEST(QLNParvaneUtils, ConvertsTheOlderArrayForm)
{
    struct Case
    {
        const char* name;
        std::int32_t type;
        std::vector<const char*> elements;
        std::int32_t expectedType;
        std::vector<std::uint32_t> indices;
        bool unconstrained;
        Texts members; // names of the sub-elements kept
        Texts asserts;
    };
    const Case cases[] = {
        {"indices in order, base ignoring case",
         5,
         {"d[0]", "d[1]", "D[2]"},
         5,
         {0, 1, 2},
         false,
         {"d[0]"},
         {}},
        {"older code", 12, {"d[3]", "d[2]"}, 5, {3, 2}, false, {"d[3]"}, {}},
        {"two bases make a record", 5, {"a[0]", "b[1]"}, 8, {}, false, {"a[0]", "b[1]"}, {"0"}},
        {"failure after good indices clears them",
         5,
         {"d[0]", "d[1]", "x"},
         8,
         {},
         false,
         {"d[0]", "d[1]", "x"},
         {"0"}},
        {"-1 is unconstrained", 5, {"v[-1]"}, 5, {}, true, {"v[-1]"}, {}},
        {"unconstrained stops the conversion", 5, {"v[-1]", "garbage"}, 5, {}, true, {"v[-1]"}, {}},
        {"-1 is not checked against the base", 5, {"v[0]", "w[-1]"}, 5, {}, true, {"v[0]"}, {}},
        {"other negative index", 5, {"v[-2]"}, 8, {}, false, {"v[-2]"}, {"0"}},
        {"empty index", 5, {"v[]"}, 8, {}, false, {"v[]"}, {"0"}},
        {"text index", 5, {"v[x]"}, 8, {}, false, {"v[x]"}, {"0"}},
        {"no brackets", 5, {"v"}, 8, {}, false, {"v"}, {"0"}},
        {"text after the bracket", 5, {"v[1]x"}, 8, {}, false, {"v[1]x"}, {"0"}},
        {"angle brackets are only skipped", 5, {"v<3>"}, 8, {}, false, {"v<3>"}, {"0"}},
        {"a square opening with any closing", 5, {"v[3>", "v[4]]"}, 5, {3, 4}, false, {"v[3>"}, {}},
        {"the last index counts", 5, {"m[1][2]"}, 5, {2}, false, {"m[1][2]"}, {}},
        {"an empty base does not fix the base",
         5,
         {"[4]", "x[5]", "X[6]"},
         5,
         {4, 5, 6},
         false,
         {"[4]"},
         {}},
        {"string code converts as well", 7, {"s[0]", "s[1]"}, 7, {0, 1}, false, {"s[0]"}, {}},
        {"no elements: one default element", 5, {}, 5, {}, false, {""}, {}},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.name);
        // The older form: no unconstrained key at all.
        io::CBlock_func older(L"Info");
        older.AddValue(L"d");
        older.AddValue(c.type);
        older.AddValue(L"");
        io::CBlock_func& elements = older.AddBlock(L"SubElements");
        for (const char* element : c.elements)
        {
            WriteDataTypeInfo(elements.AddBlock(L"Info"),
                              Scalar(AString::FromUTF8(element).c_str()));
        }
        older.AddNamedValue(L"Unrelated", true);

        DataTypeInfo dti;
        AssertCapture capture;
        const bool ok = ReadDataTypeInfo(older, dti);
        EXPECT_EQ(capture.Texts(), c.asserts);
        EXPECT_TRUE(ok);
        EXPECT_EQ(dti.mType, c.expectedType);
        EXPECT_EQ(dti.mIndices, c.indices);
        EXPECT_EQ(dti.mIsUnconstrained, c.unconstrained);
        Texts members;
        for (const DataTypeInfo& member : dti.mSubElements)
        {
            members.push_back(member.mName.ToUTF8());
        }
        EXPECT_EQ(members, c.members);
    }
}

TEST(QLNParvaneUtils, OlderArrayElementTypeIsACopyOfTheFirst)
{
    DataTypeInfo first = Scalar(L"d[0]", merrowenum::kENUMType);
    first.mTypeName = L"std_logic";
    first.mEnumItems = {{0, L"'0'"}, {1, L"'1'"}};
    DataTypeInfo second = Scalar(L"d[1]", merrowenum::kBITType);
    DataTypeInfo stored = Record(L"d", {first, second});
    stored.mType = merrowenum::kARRAYType;
    io::CBlock_func block(L"Info");
    WriteDataTypeInfo(block, stored);
    std::string text = io::WriteBlockText(block);
    // The record's own key is its last item.
    text.replace(text.rfind("IsUnconstrained=false"), 21, "");
    const ReadResult read = ReadText(text);
    EXPECT_TRUE(read.ok);
    ASSERT_EQ(read.dti.mSubElements.size(), 1u);
    EXPECT_EQ(read.dti.mSubElements[0], first);
    EXPECT_EQ(read.dti.mIndices, (std::vector<std::uint32_t>{0, 1}));
}

namespace
{

// Random records: every kind, nested arrays of records of arrays, awkward texts.
class RecordMaker
{
public:
    explicit RecordMaker(unsigned seed) : mRandom(seed) {}

    DataTypeInfo Make(int depth)
    {
        DataTypeInfo dti;
        dti.mName = Text();
        dti.mTypeName = Pick(4) == 0 ? AString() : Text();
        const int kind = depth <= 0 ? 0 : Pick(4);
        if (kind == 0)
        {
            static const std::int32_t kScalars[] = {0, 1, 2, 3, 4, 6, 7, 9, 10, 14, -1, -7};
            dti.mType = kScalars[Pick(std::size(kScalars))];
        }
        else
        {
            static const std::int32_t kCompound[] = {5, 8, 11, 12, 13};
            dti.mType = kCompound[Pick(std::size(kCompound))];
            // Now and then none, which the reader drops from the parent.
            const int count = dti.mType == 8 ? Pick(5) : Pick(8) == 0 ? 0 : 1;
            for (int i = 0; i < count; ++i)
            {
                dti.mSubElements.push_back(Make(depth - 1));
            }
        }
        for (int i = Pick(3); i > 0; --i)
        {
            dti.mPhyTypes.push_back(Text());
        }
        for (int i = Pick(2); i > 0; --i)
        {
            dti.mPkgNames.push_back(Text());
        }
        if (dti.mType == merrowenum::kENUMType || Pick(10) == 0)
        {
            for (int i = Pick(4); i > 0; --i)
            {
                dti.mEnumItems[static_cast<std::int32_t>(Pick(7)) - 3] = Text();
            }
        }
        for (int i = Pick(5); i > 0; --i)
        {
            dti.mIndices.push_back(Pick(3) == 0 ? 4294967295u
                                                : static_cast<std::uint32_t>(Pick(64)));
        }
        dti.mIsUnconstrained = Pick(2) == 0;
        dti.mIsBusPort = Pick(4) == 0;
        return dti;
    }

private:
    int Pick(std::size_t count)
    {
        return static_cast<int>(std::uniform_int_distribution<std::size_t>(0, count - 1)(mRandom));
    }
    AString Text()
    {
        static const wchar_t* const kTexts[] = {L"",
                                                L"a",
                                                L"d[3]",
                                                L"v[-1]",
                                                L"\"q\"",
                                                L"back\\slash",
                                                L"line\nbreak",
                                                L"'0'",
                                                L"\u00e9t\u00e9",
                                                L"\U0001F600",
                                                L"tab\tx",
                                                L"Info",
                                                L"SubElements",
                                                L"{}"};
        return AString(kTexts[Pick(std::size(kTexts))]);
    }

    std::mt19937 mRandom;
};

// What a written record reads back as: older codes become arrays, and arrays and records left
// without sub-elements are dropped from their parents.
DataTypeInfo Normalised(const DataTypeInfo& dti)
{
    DataTypeInfo result = dti;
    if (result.mType >= 11 && result.mType <= 13)
    {
        result.mType = merrowenum::kARRAYType;
    }
    result.mSubElements.clear();
    for (const DataTypeInfo& element : dti.mSubElements)
    {
        DataTypeInfo normal = Normalised(element);
        const bool compound =
            normal.mType == merrowenum::kARRAYType || normal.mType == merrowenum::kRecordType;
        if (!compound || !normal.mSubElements.empty())
        {
            result.mSubElements.push_back(std::move(normal));
        }
    }
    return result;
}

} // namespace

TEST(QLNParvaneUtils, WrittenRecordsReadBackEqual)
{
    for (unsigned seed = 1; seed <= 400; ++seed)
    {
        SCOPED_TRACE(seed);
        RecordMaker maker(seed);
        const DataTypeInfo original = maker.Make(static_cast<int>(seed % 5));
        const DataTypeInfo expected = Normalised(original);
        const bool expectedOk = !(expected.mType == merrowenum::kARRAYType ||
                                  expected.mType == merrowenum::kRecordType) ||
                                !expected.mSubElements.empty();

        io::CBlock_func block(L"Info");
        {
            AssertCapture quiet; // older codes assert on writing
            WriteDataTypeInfo(block, original);
        }
        // Through the text too, as a file would carry it.
        io::CBlock_func reread = Parse(io::WriteBlockText(block));
        for (io::CBlock_func* source : {&block, &reread})
        {
            DataTypeInfo dti;
            AssertCapture capture;
            EXPECT_EQ(ReadDataTypeInfo(*source, dti), expectedOk);
            EXPECT_EQ(dti, expected);
        }
        // And what was read writes the same text again.
        DataTypeInfo once;
        AssertCapture quiet;
        ReadDataTypeInfo(block, once);
        EXPECT_EQ(Written(once), Written(expected));
    }
}

TEST(QLNParvaneUtils, AnswersTheArrayAndBusQuestions)
{
    struct Case
    {
        std::int32_t type;
        bool busPort;
        bool array;
        bool bus;
    };
    const Case cases[] = {
        {0, false, false, false}, {5, false, true, false},   {7, false, true, false},
        {8, false, false, false}, {8, true, false, true},    {11, false, true, false},
        {12, true, true, false},  {13, false, true, false},  {14, false, false, false},
        {9, true, false, false},  {-1, false, false, false}, {15, false, false, false},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(std::to_string(c.type) + (c.busPort ? " bus port" : ""));
        DataTypeInfo dti = Scalar(L"x", c.type);
        dti.mIsBusPort = c.busPort;
        EXPECT_EQ(parvaneutils::IsDataTypeInfoAnArray(dti), c.array);
        EXPECT_EQ(parvaneutils::IsDataTypeInfoASchematicBus(dti), c.bus);
    }
}

TEST(QLNParvaneUtils, MapsTypesToNodeKinds)
{
    // {type code, node kind}; the codes without a kind assert and give 1.
    const int cases[][2] = {{0, 1}, {14, 1}, {1, 6},  {2, 7},   {3, 5},  {4, 3},
                            {5, 9}, {11, 9}, {12, 9}, {13, 9},  {7, 11}, {8, 10},
                            {9, 4}, {10, 8}, {6, -1}, {15, -1}, {-1, -1}};
    for (const auto& [type, kind] : cases)
    {
        SCOPED_TRACE(type);
        AssertCapture capture;
        EXPECT_EQ(static_cast<int>(GetNodeDataType(Scalar(L"x", type))), kind < 0 ? 1 : kind);
        EXPECT_EQ(capture.Texts(), kind < 0 ? Texts{"unknown type - ??"} : Texts{});
    }
}

TEST(QLNParvaneUtils, NamesTheLeaves)
{
    DataTypeInfo bus = Record(L"ignored", {Scalar(L"a", 2), Scalar(L"b", 2), Scalar(L"c", 2)});
    bus.mIsBusPort = true;
    bus.mIndices = {3, 4};
    DataTypeInfo shortBus = bus;
    shortBus.mIndices = {7, 8, 9, 10};
    shortBus.mSubElements.pop_back();
    DataTypeInfo compositeBus = bus;
    compositeBus.mSubElements[0] = Record(L"r", {Scalar(L"x")});
    DataTypeInfo noElement = Scalar(L"x", merrowenum::kARRAYType);
    noElement.mIndices = {1};
    DataTypeInfo olderArray = Array(L"x", Scalar(L"e"), {0, 1});
    olderArray.mType = merrowenum::kBITVECTORType;
    DataTypeInfo stringType = Array(L"s", Scalar(L"c", merrowenum::kCHARType), {0, 1});
    stringType.mType = merrowenum::kSTRINGType;
    const DataTypeInfo stringArray = Array(L"x", stringType, {0, 1});

    struct Case
    {
        const char* name;
        DataTypeInfo dti;
        Texts leaves;
        Texts asserts;
    };
    const Case cases[] = {
        {"scalar", Scalar(L"s"), {"n"}, {}},
        {"string is one leaf", stringType, {"n"}, {}},
        {"array", Array(L"x", Scalar(L"e"), {2, 5}), {"n[2]", "n[5]"}, {}},
        {"array keeps its index order",
         Array(L"x", Scalar(L"e"), {3, 0, 3}),
         {"n[3]", "n[0]", "n[3]"},
         {}},
        {"older array code", olderArray, {"n[0]", "n[1]"}, {}},
        {"array of arrays",
         Array(L"x", Array(L"y", Scalar(L"e"), {0, 1}), {7, 6}),
         {"n[7][0]", "n[7][1]", "n[6][0]", "n[6][1]"},
         {}},
        {"array of strings walks into each string", stringArray, {"n[0]", "n[1]"}, {}},
        {"array of records of arrays",
         Array(L"x", Record(L"r", {Array(L"a", Scalar(L"e"), {0, 1}), Scalar(L"b")}), {1, 2}),
         {"n[1].a", "n[1].b", "n[2].a", "n[2].b"},
         {}},
        {"record",
         Record(L"r", {Scalar(L"a"), Record(L"b", {Scalar(L"c"), Scalar(L"d")})}),
         {"n.a", "n.b.c", "n.b.d"},
         {}},
        {"array member of a record is one leaf",
         Record(L"r", {Array(L"a", Scalar(L"e"), {0, 1, 2})}),
         {"n.a"},
         {}},
        {"empty record", Record(L"r", {}), {}, {}},
        {"bus port: member[index], name unused", bus, {"a[3]", "b[4]"}, {}},
        {"bus port: fewer members than indices", shortBus, {"a[7]", "b[8]"}, {}},
        {"bus port: composite members skipped",
         compositeBus,
         {"b[4]"},
         {"Composite elements are not supported in bus-ports"}},
        {"bus port member of a record", Record(L"r", {bus}), {"a[3]", "b[4]"}, {}},
        {"bus port with no members",
         []
         {
             DataTypeInfo dti = Record(L"b", {});
             dti.mIsBusPort = true;
             dti.mIndices = {1};
             return dti;
         }(),
         {},
         {"!dti.mSubElements.empty()"}},
        {"array with no element: real leaves", noElement, {"n[1]"}, {"!dti.mSubElements.empty()"}},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.name);
        std::vector<DataTypeLeaf> leaves;
        AssertCapture capture;
        parvaneutils::GetDataTypeInfoLeafNames(c.dti, AString(L"n"), leaves);
        EXPECT_EQ(LeafNames(leaves), c.leaves);
        EXPECT_EQ(capture.Texts(), c.asserts);
    }
}

TEST(QLNParvaneUtils, LeavesCarryTheirTypesAndAreAppended)
{
    DataTypeInfo element = Scalar(L"e", merrowenum::kSTDLOGICType);
    element.mTypeName = L"std_logic";
    const DataTypeInfo member = Array(L"a", Scalar(L"e"), {0});
    const DataTypeInfo record = Record(L"r", {member, element});
    std::vector<DataTypeLeaf> leaves = {{AString(L"kept"), DataTypeInfo()}};
    parvaneutils::GetDataTypeInfoLeafNames(record, AString(L"r"), leaves);
    ASSERT_EQ(leaves.size(), 3u);
    EXPECT_EQ(leaves[0].first, L"kept");
    EXPECT_EQ(leaves[1].second, member);
    EXPECT_EQ(leaves[2].second, element);

    const DataTypeInfo scalar = Scalar(L"s", merrowenum::kTIMEType);
    parvaneutils::GetDataTypeInfoLeafNames(scalar, AString(), leaves);
    ASSERT_EQ(leaves.size(), 4u);
    EXPECT_EQ(leaves[3].first, L"");
    EXPECT_EQ(leaves[3].second, scalar);
}

namespace
{

// A chain of `depth` records, each holding the next, ending in a real member.
DataTypeInfo Chain(int depth)
{
    DataTypeInfo dti = Scalar(L"leaf");
    for (int level = 0; level < depth; ++level)
    {
        DataTypeInfo outer = Scalar(L"m", merrowenum::kRecordType);
        outer.mSubElements.push_back(std::move(dti));
        dti = std::move(outer);
    }
    return dti;
}

// An array of two records of `width` members each: arrays, which stay one leaf, and enums.
DataTypeInfo Wide(int width)
{
    DataTypeInfo enumeration = Scalar(L"e", merrowenum::kENUMType);
    enumeration.mEnumItems = {{0, L"'0'"}, {1, L"'1'"}};
    std::vector<DataTypeInfo> members;
    members.reserve(static_cast<std::size_t>(width));
    for (int i = 0; i < width; ++i)
    {
        members.push_back(i % 2 == 0 ? Array(L"a", Scalar(L"e"), {0, 1}) : enumeration);
    }
    return Array(L"top", Record(L"r", std::move(members)), {0, 1});
}

// Write, read and expand the leaves of a type; the time of the fastest of three runs.
std::chrono::nanoseconds TimeRoundTrip(const DataTypeInfo& dti, std::size_t expectedLeaves)
{
    std::chrono::nanoseconds best = std::chrono::nanoseconds::max();
    for (int run = 0; run < 3; ++run)
    {
        const auto start = std::chrono::steady_clock::now();
        io::CBlock_func block(L"Info");
        WriteDataTypeInfo(block, dti);
        DataTypeInfo back;
        const bool ok = ReadDataTypeInfo(block, back);
        std::vector<DataTypeLeaf> leaves;
        parvaneutils::GetDataTypeInfoLeafNames(back, AString(L"t"), leaves);
        best = std::min(best, std::chrono::steady_clock::now() - start);
        EXPECT_TRUE(ok);
        EXPECT_EQ(leaves.size(), expectedLeaves);
    }
    return best;
}

} // namespace

TEST(QLNParvaneUtils, StoresNestingUpToTheTreeDepth)
{
    // The root block holds level 0 and every member two levels further in; 256 levels of
    // blocks leave room for 127 levels of members.
    const DataTypeInfo deepest = Chain(127);
    io::CBlock_func block(L"Info");
    WriteDataTypeInfo(block, deepest);
    EXPECT_FALSE(block.HasError());
    io::CBlock_func reread = Parse(io::WriteBlockText(block));
    DataTypeInfo back;
    EXPECT_TRUE(ReadDataTypeInfo(reread, back));
    EXPECT_EQ(back, deepest);
    std::vector<DataTypeLeaf> leaves;
    parvaneutils::GetDataTypeInfoLeafNames(back, AString(L"t"), leaves);
    ASSERT_EQ(leaves.size(), 1u);
    EXPECT_EQ(leaves[0].first.size(), 1 + 126 * 2 + 5u); // t, .m per inner level, .leaf

    // A file nested one level deeper does not read at all: the block reader stops at the
    // depth limit and says where.
    std::string deeper = io::WriteBlockText(block);
    const std::size_t leaf = deeper.find("Info { \"leaf\"");
    ASSERT_NE(leaf, std::string::npos);
    deeper.replace(leaf, 6, "Info { \"m\" 8 \"\" SubElements { Info { } } } Info {");
    io::CBlock_func root;
    io::BlockTextError error;
    EXPECT_FALSE(io::ReadBlockText(deeper, root, &error));
    EXPECT_EQ(error.reason, L"blocks nest deeper than 256 levels");
    EXPECT_GT(error.line, 127u);
}

TEST(QLNParvaneUtils, CutsDeeperTypesAndSaysSo)
{
    for (const int depth : {128, 600})
    {
        SCOPED_TRACE(depth);
        io::CBlock_func block(L"Info");
        WriteDataTypeInfo(block, Chain(depth));
        EXPECT_TRUE(block.HasError());
        EXPECT_EQ(block.GetError(), L"blocks nest deeper than 256 levels");
        // What was kept still reads: the innermost record kept has lost its member, so it
        // does not read, and each record around it loses its only member in turn.
        DataTypeInfo back;
        AssertCapture capture;
        EXPECT_FALSE(ReadDataTypeInfo(block, back));
        EXPECT_TRUE(back.mSubElements.empty());
        EXPECT_EQ(capture.Count(), 128u);
    }
    // In memory the leaves of a deep type are named at any depth.
    std::vector<DataTypeLeaf> leaves;
    parvaneutils::GetDataTypeInfoLeafNames(Chain(2000), AString(L"t"), leaves);
    ASSERT_EQ(leaves.size(), 1u);
    EXPECT_EQ(leaves[0].first.size(), 1 + 1999 * 2 + 5u);
}

TEST(QLNParvaneUtils, WideTypesTakeTimeInProportionToTheirSize)
{
    // 4 000 and 32 000 leaves: linear work grows eightfold, quadratic work 64-fold.
    const auto small = TimeRoundTrip(Wide(2000), 4000);
    const auto large = TimeRoundTrip(Wide(16000), 32000);
    EXPECT_LT(large.count(), small.count() * 24)
        << "small " << small.count() << " ns, large " << large.count() << " ns";
}
