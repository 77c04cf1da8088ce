#include "PropAttributes.h"

#include "Assert.h"
#include "BlockReader.h"
#include "BlockWriter.h"
#include "IModelCompiler.h"
#include "QLNParvaneUtils.h"
#include "RefModelCompiler.h"
#include "VariableAttributes.h"
#include "VariableProp.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

using merrowstruct::DataTypeInfo;
using merrowstruct::TerminalData;
using Texts = std::vector<std::string>;

void PrintTo(const AString& text, std::ostream* os)
{
    *os << '"' << text.ToUTF8() << '"';
}

namespace
{

// The smallest property a record of attributes can belong to: a generic one that takes the
// signal types.
class TestAttributes final : public PropAttributes
{
public:
    TestAttributes() = default;
    TestAttributes(const TestAttributes&) = default;
    TestAttributes& operator=(const TestAttributes&) = default;

    merrowenum::TerminalDomain GetDomain() const override { return merrowenum::kGeneric; }
    Units::UnitType GetUnitType() const override { return Units::kDimensionless; }
    bool SetType(int type) override
    {
        if ((type < merrowenum::kMinSignalType || type > merrowenum::kMaxSignalType) &&
            type != merrowenum::kTIMEType)
        {
            return false;
        }
        DataTypeInfo dti = GetDataTypeInfo();
        dti.mType = type;
        SetDataTypeInfo(dti);
        return true;
    }
    using PropAttributes::SetTextFromScriptArgInfo;
};

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

// Attributes with every field away from its default.
TestAttributes Filled()
{
    TestAttributes attrs;
    DataTypeInfo dti = Array(L"v", Scalar(L"e", merrowenum::kTIMEType), {1, 0});
    dti.mTypeName = L"time_vector";
    attrs.SetDataTypeInfo(dti);
    attrs.SetDirection(merrowenum::kDirectionInOut);
    attrs.SetHasPin(true);
    attrs.SetShowPin(true);
    attrs.SetDisplay(true);
    attrs.SetSweep(true);
    attrs.SetDefaultSimOutput(true);
    attrs.SetInstSDB(true);
    attrs.SetCalculationSequence(merrowenum::kAfterStateGraph);
    attrs.SetTextFromScriptArgInfo(AString(L"from a script"));
    return attrs;
}

void ExpectSameFields(const PropAttributes& actual, const PropAttributes& expected)
{
    EXPECT_EQ(actual.GetDataTypeInfo(), expected.GetDataTypeInfo());
    EXPECT_EQ(actual.GetDirection(), expected.GetDirection());
    EXPECT_EQ(actual.GetHasPin(), expected.GetHasPin());
    EXPECT_EQ(actual.GetShowPin(), expected.GetShowPin());
    EXPECT_EQ(actual.GetDisplay(), expected.GetDisplay());
    EXPECT_EQ(actual.GetSweep(), expected.GetSweep());
    EXPECT_EQ(actual.GetDefaultSimOutput(), expected.GetDefaultSimOutput());
    EXPECT_EQ(actual.GetInstSDB(), expected.GetInstSDB());
    EXPECT_EQ(actual.GetCalculationSequence(), expected.GetCalculationSequence());
    EXPECT_EQ(actual.GetTextFromScriptArgInfo(), expected.GetTextFromScriptArgInfo());
}

// The fields that reading sets, in block order, as one line.
std::string ReadFields(const PropAttributes& attrs)
{
    return std::to_string(attrs.GetDirection()) + " " +
           std::to_string(attrs.GetCalculationSequence()) + " " +
           (attrs.GetHasPin() ? "pin " : "- ") + (attrs.GetShowPin() ? "show " : "- ") +
           (attrs.GetDefaultSimOutput() ? "out " : "- ") + "'" +
           attrs.GetTextFromScriptArgInfo().ToUTF8() + "' " +
           (attrs.GetDisplay() ? "display " : "- ") + (attrs.GetSweep() ? "sweep" : "-");
}

io::CBlock_func Parse(std::string_view text)
{
    io::CBlock_func root;
    io::BlockTextError error;
    EXPECT_TRUE(io::ReadBlockText(text, root, &error)) << error.Describe(L"test").ToUTF8();
    return root;
}

} // namespace

namespace merrowstruct
{
void PrintTo(const DataTypeInfo& dti, std::ostream* os)
{
    io::CBlock_func root(L"Info");
    WriteDataTypeInfo(root, dti);
    *os << '\n' << io::WriteBlockText(root);
}
} // namespace merrowstruct

TEST(PropAttributes, StartsAsAnInputOfTypeReal)
{
    const TestAttributes attrs;
    EXPECT_EQ(attrs.GetDataTypeInfo(), DataTypeInfo());
    EXPECT_EQ(ReadFields(attrs), "0 0 - - - '' - -");
    EXPECT_FALSE(attrs.GetInstSDB());
    EXPECT_EQ(attrs.GetDomain(), merrowenum::kGeneric);
    // Real types are the codes 0 and 14 only.
    for (int type = -2; type <= 16; ++type)
    {
        SCOPED_TRACE(type);
        TestAttributes typed;
        DataTypeInfo dti;
        dti.mType = type;
        typed.SetDataTypeInfo(dti);
        EXPECT_EQ(typed.GetType(), type);
        EXPECT_EQ(typed.IsRealType(), type == 0 || type == 14);
    }
}

TEST(PropAttributes, SetsOnlyTheThreeDirections)
{
    const char* const kAssertion =
        "(dir >= merrowenum::kDirectionIn) && (dir <= merrowenum::kDirectionInOut)";
    struct Case
    {
        int dir;
        int stored;
        bool asserts;
    };
    const Case cases[] = {
        {1, 1, false}, {2, 2, false}, {0, 0, false}, {3, 2, true}, {-1, 2, true}, {99, 2, true},
    };
    TestAttributes attrs;
    attrs.SetDirection(merrowenum::kDirectionInOut);
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.dir);
        attrs.SetDirection(merrowenum::kDirectionInOut);
        AssertCapture capture;
        attrs.SetDirection(c.dir);
        EXPECT_EQ(attrs.GetDirection(), c.stored);
        EXPECT_EQ(capture.Texts(), c.asserts ? Texts{kAssertion} : Texts{});
    }
}

TEST(PropAttributes, InitializeNeedsTheTypeAndTheDirection)
{
    struct Case
    {
        int type;
        int dir;
        bool result;
        int storedType;
        int storedDir;
        std::size_t asserts;
    };
    const Case cases[] = {
        {14, 2, true, 14, 2, 0}, {9, 0, true, 9, 0, 0},
        {11, 1, false, 0, 1, 0}, // type refused, direction still set
        {4, 3, false, 4, 0, 1},  // "DontCare" is not a direction one can set
        {4, -1, false, 4, 0, 1}, {15, 7, false, 0, 0, 1},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(std::to_string(c.type) + " " + std::to_string(c.dir));
        TestAttributes attrs;
        AssertCapture capture;
        EXPECT_EQ(attrs.Initialize(c.type, c.dir), c.result);
        EXPECT_EQ(attrs.GetType(), c.storedType);
        EXPECT_EQ(attrs.GetDirection(), c.storedDir);
        EXPECT_EQ(capture.Count(), c.asserts);
    }
}

TEST(PropAttributes, CopiesEveryField)
{
    const TestAttributes source = Filled();

    TestAttributes copied;
    copied.CopyAttributes(source);
    ExpectSameFields(copied, source);

    const TestAttributes constructed(source);
    ExpectSameFields(constructed, source);

    TestAttributes assigned;
    assigned.SetDirection(merrowenum::kDirectionOut);
    assigned = source;
    ExpectSameFields(assigned, source);

    TestAttributes self = Filled();
    self.CopyAttributes(self);
    ExpectSameFields(self, source);
    TestAttributes& alias = self;
    self = alias;
    ExpectSameFields(self, source);
}

TEST(PropAttributes, NamesTheTypes)
{
    const char* const kAssertion = "((type >= merrowenum::kMinSignalType) && (type <= "
                                   "merrowenum::kMaxSignalType)) || (type == "
                                   "merrowenum::kTIMEType)";
    struct Case
    {
        int type;
        const wchar_t* word;
    };
    const Case cases[] = {
        {0, L"Real"},          {1, L"Boolean"},       {2, L"Bit"},           {3, L"Char"},
        {4, L"Integer"},       {5, L"Array"},         {6, L"File"},          {7, L"String"},
        {8, L"Record"},        {9, L"Enum"},          {10, L"Std_Logic"},    {14, L"Time"},
        {11, L"Unknown type"}, {12, L"Unknown type"}, {13, L"Unknown type"}, {15, L"Unknown type"},
        {-1, L"Unknown type"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.type);
        AssertCapture capture;
        EXPECT_EQ(PropAttributes::GetPropDataTypeString(c.type), c.word);
        const bool known = AString(c.word) != L"Unknown type";
        EXPECT_EQ(capture.Texts(), known ? Texts{} : Texts{kAssertion});
    }
}

TEST(PropAttributes, ReadsTypeWords)
{
    struct Case
    {
        const wchar_t* word;
        int type;
        bool asserts;
    };
    const Case cases[] = {
        {L"Real", 0, false},   {L"time", 14, false}, {L"STD_LOGIC", 10, false},
        {L"record", 8, false}, {L"Enum", 9, false},  {L"boolean", 1, false},
        {L"", 11, false}, // the first of the three empty words
        {L"Vector", 0, true},  {L"Real ", 0, true},  {L"Unknown type", 0, true},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(AString(c.word).ToUTF8());
        AssertCapture capture;
        EXPECT_EQ(PropAttributes::GetPropStringType(AString(c.word)), c.type);
        EXPECT_EQ(capture.Texts(), c.asserts ? Texts{"0"} : Texts{});
    }
    // Every word of a signal type reads back as its code.
    for (int type = 0; type <= 14; ++type)
    {
        if (type < 11 || type > 13)
        {
            EXPECT_EQ(
                PropAttributes::GetPropStringType(PropAttributes::GetPropDataTypeString(type)),
                type);
        }
    }
}

TEST(PropAttributes, NamesAndReadsDirections)
{
    struct WordCase
    {
        int dir;
        const wchar_t* word;
        bool asserts;
    };
    const WordCase words[] = {
        {0, L"In", false},       {1, L"Out", false},  {2, L"InOut", false},
        {3, L"DontCare", false}, {4, L"InOut", true}, {-1, L"InOut", true},
    };
    for (const WordCase& c : words)
    {
        SCOPED_TRACE(c.dir);
        AssertCapture capture;
        EXPECT_EQ(PropAttributes::GetPropDirString(c.dir), c.word);
        EXPECT_EQ(capture.Texts(), c.asserts ? Texts{"0"} : Texts{});
    }
    struct ReadCase
    {
        const wchar_t* word;
        int dir;
        bool asserts;
    };
    const ReadCase reads[] = {
        {L"in", 0, false},  {L"OUT", 1, false}, {L"inout", 2, false}, {L"dontcare", 3, false},
        {L"Both", 2, true}, {L"", 2, true},     {L"In ", 2, true},
    };
    for (const ReadCase& c : reads)
    {
        SCOPED_TRACE(AString(c.word).ToUTF8());
        AssertCapture capture;
        EXPECT_EQ(PropAttributes::GetPropStringDir(AString(c.word)), c.dir);
        EXPECT_EQ(capture.Texts(), c.asserts ? Texts{"0"} : Texts{});
    }
}

TEST(PropAttributes, NamesAndReadsCalculationSequences)
{
    const wchar_t* const words[] = {L"BeforeAnalogSolver", L"BeforeStateGraph", L"AfterStateGraph",
                                    L"DontCareWhen"};
    for (int code = 0; code < 4; ++code)
    {
        SCOPED_TRACE(code);
        const auto sequence = static_cast<merrowenum::CalculationSequence>(code);
        EXPECT_EQ(PropAttributes::GetCalcWhenString(sequence), words[code]);
        AssertCapture capture;
        EXPECT_EQ(PropAttributes::GetCalcWhenType(AString(words[code]).ToUpper()), sequence);
        EXPECT_EQ(capture.Count(), 0u);
    }
    EXPECT_EQ(PropAttributes::GetCalcWhenString(static_cast<merrowenum::CalculationSequence>(4)),
              L"");
    EXPECT_EQ(PropAttributes::GetCalcWhenString(static_cast<merrowenum::CalculationSequence>(-1)),
              L"");
    for (const wchar_t* unknown : {L"", L"Never", L"BeforeAnalog"})
    {
        SCOPED_TRACE(AString(unknown).ToUTF8());
        AssertCapture capture;
        EXPECT_EQ(PropAttributes::GetCalcWhenType(AString(unknown)), merrowenum::kDontCareWhen);
        EXPECT_EQ(capture.Texts(), Texts{"0"});
    }
    EXPECT_EQ(PropAttributes::GetCalcWhenStrings(),
              (std::set<AString>{L"AfterStateGraph", L"BeforeAnalogSolver", L"BeforeStateGraph",
                                 L"DontCareWhen"}));
}

TEST(PropAttributes, WritesTheBlockFormInItsOrder)
{
    io::CBlock_func block(L"Attrs");
    EXPECT_TRUE(Filled().Write(block));
    EXPECT_EQ(io::WriteBlockText(block),
              "Attrs {\n"
              "    Info {\n"
              "        \"v\"\n"
              "        5\n"
              "        \"time_vector\"\n"
              "        SubElements {\n"
              "            Info { \"e\" 14 \"\" IsUnconstrained=false }\n"
              "        }\n"
              "        Indices { 1 0 }\n"
              "        IsUnconstrained=false\n"
              "    }\n"
              "    \"InOut\"\n"
              "    \"AfterStateGraph\"\n"
              "    true\n"
              "    true\n"
              "    true\n"
              "    \"from a script\"\n"
              "    true\n"
              "    true\n"
              "}\n");

    io::CBlock_func plain(L"Attrs");
    TestAttributes().Write(plain);
    EXPECT_EQ(io::WriteBlockText(plain), "Attrs {\n"
                                         "    Info { \"\" 0 \"\" IsUnconstrained=false }\n"
                                         "    \"In\"\n"
                                         "    \"BeforeAnalogSolver\"\n"
                                         "    false\n"
                                         "    false\n"
                                         "    false\n"
                                         "    \"\"\n"
                                         "    false\n"
                                         "    false\n"
                                         "}\n");
}

TEST(PropAttributes, ReadsWhatItWroteButTheInstFlagAndSweepOffInput)
{
    for (const int dir : {0, 1, 2})
    {
        SCOPED_TRACE(dir);
        TestAttributes written = Filled();
        written.SetDirection(dir);
        io::CBlock_func block(L"Attrs");
        written.Write(block);
        io::CBlock_func reread = Parse(io::WriteBlockText(block));

        TestAttributes read;
        AssertCapture capture;
        EXPECT_EQ(read.Read(reread, nullptr), io::kNoError);
        EXPECT_EQ(capture.Count(), 0u);
        TestAttributes expected = written;
        expected.SetInstSDB(false);
        expected.SetSweep(dir == merrowenum::kDirectionIn);
        ExpectSameFields(read, expected);

        // Reading again replaces the data type rather than adding to its lists.
        EXPECT_EQ(read.Read(reread, nullptr), io::kNoError);
        EXPECT_EQ(read.GetDataTypeInfo(), written.GetDataTypeInfo());
    }
}

TEST(PropAttributes, ReadsShorterAndOddBlocks)
{
    struct Case
    {
        const char* name;
        const char* text;
        io::ReadError result;
        const char* fields; // direction, calculation sequence, then as ReadFields writes them
        Texts asserts;
    };
    // Every case starts from Filled(): "2 2 pin show out 'from a script' display sweep".
    const Case cases[] = {
        {"direction only",
         "A { \"In\" }",
         io::kNoError,
         "0 2 pin show out 'from a script' display -",
         {}},
        {"no direction",
         "A { Info { \"x\" 0 \"\" } }",
         io::kReadFailed,
         "2 2 pin show out 'from a script' display sweep",
         {}},
        {"direction of another kind",
         "A { 1 \"In\" }",
         io::kReadFailed,
         "2 2 pin show out 'from a script' display sweep",
         {}},
        {"DontCare reads as 3",
         "A { \"DontCare\" \"DontCareWhen\" }",
         io::kNoError,
         "3 3 pin show out 'from a script' display -",
         {}},
        {"unknown words",
         "A { \"Sideways\" \"Later\" }",
         io::kNoError,
         "2 3 pin show out 'from a script' display -",
         {"0", "0"}},
        {"all fields",
         "A { \"in\" \"beforestategraph\" false true false \"n\" false true }",
         io::kNoError,
         "0 1 - show - 'n' - sweep",
         {}},
        {"sweep missing: the last bool read stands in",
         "A { \"In\" \"BeforeAnalogSolver\" false false false \"\" true }",
         io::kNoError,
         "0 0 - - - '' display sweep",
         {}},
        {"sweep missing after false",
         "A { \"In\" \"BeforeAnalogSolver\" true false }",
         io::kNoError,
         "0 0 pin - out 'from a script' display -",
         {}},
        {"sweep set on an output",
         "A { \"Out\" \"BeforeAnalogSolver\" false false false \"\" false true }",
         io::kNoError,
         "1 0 - - - '' - -",
         {}},
        {"a text where a bool belongs: reads go on from it",
         "A { \"In\" \"BeforeAnalogSolver\" \"note\" true false }",
         io::kNoError,
         "0 0 pin show out 'note' display -",
         {}},
        {"named values and late blocks are stepped over",
         "A { Flag=true \"In\" Info { \"late\" 14 \"\" } \"AfterStateGraph\" true }",
         io::kNoError,
         "0 2 pin show out 'from a script' display sweep",
         {}},
    };
    const DataTypeInfo original = Filled().GetDataTypeInfo();
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.name);
        TestAttributes attrs = Filled();
        io::CBlock_func block = Parse(c.text);
        AssertCapture capture;
        EXPECT_EQ(attrs.Read(block, nullptr), c.result);
        EXPECT_EQ(capture.Texts(), c.asserts);
        EXPECT_EQ(ReadFields(attrs), c.fields);
        EXPECT_TRUE(attrs.GetInstSDB());
        // Only a first item that is a block is the data type.
        if (c.result == io::kNoError)
        {
            EXPECT_EQ(attrs.GetDataTypeInfo(), original);
        }
    }
    // A leading block is read as the data type even when the rest fails.
    TestAttributes attrs = Filled();
    io::CBlock_func block = Parse("A { Info { \"x\" 9 \"e_t\" } }");
    EXPECT_EQ(attrs.Read(block, nullptr), io::kReadFailed);
    DataTypeInfo expected = Scalar(L"x", merrowenum::kENUMType);
    expected.mTypeName = L"e_t";
    EXPECT_EQ(attrs.GetDataTypeInfo(), expected);
}

TEST(PropAttributes, MapsDataTypesToTerminalTypes)
{
    const auto enumArray = [](const wchar_t* typeName)
    {
        DataTypeInfo element = Scalar(L"e", merrowenum::kENUMType);
        element.mTypeName = typeName;
        return Array(L"a", element, {0, 1});
    };
    DataTypeInfo emptyString = Scalar(L"s", merrowenum::kSTRINGType);
    DataTypeInfo olderArray = Array(L"a", Scalar(L"e", merrowenum::kINTEGERType), {0});
    olderArray.mType = merrowenum::kBITVECTORType;
    DataTypeInfo stringOfChars = Array(L"s", Scalar(L"c", merrowenum::kCHARType), {0});
    stringOfChars.mType = merrowenum::kSTRINGType;

    const char* const kNoElements = "Bad array property - no subelements!!";
    const char* const kUnsupported = "Bad array property - subelement type not supported!!";
    struct Case
    {
        const char* name;
        DataTypeInfo dti;
        int type;
        Texts asserts;
    };
    const Case cases[] = {
        {"scalar", Scalar(L"x", merrowenum::kTIMEType), 14, {}},
        {"record", Record(L"r", {Scalar(L"a")}), 8, {}},
        {"nature code", Scalar(L"p", -1), -1, {}},
        {"real array", Array(L"a", Scalar(L"e"), {0}), 12, {}},
        {"time array", Array(L"a", Scalar(L"e", merrowenum::kTIMEType), {0}), 12, {}},
        {"bit array", Array(L"a", Scalar(L"e", merrowenum::kBITType), {0}), 13, {}},
        {"char array", Array(L"a", Scalar(L"e", merrowenum::kCHARType), {0}), 7, {}},
        {"integer array keeps its code",
         Array(L"a", Scalar(L"e", merrowenum::kINTEGERType), {0}),
         5,
         {}},
        {"integer array of an older code", olderArray, 13, {}},
        {"std_logic array", Array(L"a", Scalar(L"e", merrowenum::kSTDLOGICType), {0}), 11, {}},
        {"string of chars", stringOfChars, 7, {}},
        {"enum std_ulogic", enumArray(L"std_ulogic"), 11, {}},
        {"enum STD_LOGIC", enumArray(L"STD_LOGIC"), 11, {}},
        {"enum boolean", enumArray(L"boolean"), 5, {}},
        {"enum bit", enumArray(L"Bit"), 13, {}},
        {"enum character", enumArray(L"character"), 7, {}},
        {"other enum", enumArray(L"state_t"), 5, {}},
        {"string with no elements", emptyString, 7, {}},
        {"array with no elements", Scalar(L"a", merrowenum::kARRAYType), 5, {kNoElements}},
        {"boolean elements",
         Array(L"a", Scalar(L"e", merrowenum::kBOOLEANType), {0}),
         5,
         {kUnsupported}},
        {"array elements", Array(L"a", Array(L"e", Scalar(L"x"), {0}), {0}), 5, {kUnsupported}},
        {"file elements", Array(L"a", Scalar(L"e", merrowenum::kFILEType), {0}), 5, {kUnsupported}},
        {"record elements", Array(L"a", Record(L"e", {Scalar(L"x")}), {0}), 5, {kUnsupported}},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.name);
        AssertCapture capture;
        EXPECT_EQ(PropAttributes::GetTypeForTermAttrsFromInfo(c.dti), c.type);
        EXPECT_EQ(capture.Texts(), c.asserts);
        TestAttributes attrs;
        attrs.SetDataTypeInfo(c.dti);
        EXPECT_EQ(attrs.GetTypeForTermAttrs(), c.type);
    }
}

namespace
{

// A model compiler that records what it was asked and answers one fixed unit.
class RecordingCompiler final : public IModelCompiler
{
public:
    void* QueryInterface(int id) override
    {
        return id == kInterfaceId ? static_cast<IModelCompiler*>(this) : nullptr;
    }
    bool GetUnitOfType(const IComponent* component, const AString& libraryName,
                       const AString& typeName, const AString& baseTypeName,
                       const AString& physicalTypeName, AString& unitName,
                       Units::FullUnitType& unit) override
    {
        mComponent = component;
        mArguments = {libraryName, typeName, baseTypeName, physicalTypeName};
        mUnitIn = unit;
        if (!mAnswer)
        {
            return false;
        }
        unitName = L"s";
        unit = Units::kSecond;
        return true;
    }

    bool mAnswer = true;
    const IComponent* mComponent = reinterpret_cast<const IComponent*>(1);
    std::vector<AString> mArguments;
    Units::FullUnitType mUnitIn = Units::kOhm;
};

} // namespace

TEST(PropAttributes, AsksTheModelCompilerForTheUnit)
{
    RecordingCompiler compiler;
    DataTypeInfo dti = Scalar(L"q");
    dti.mTypeName = L"my_time";
    dti.mPhyTypes = {L"first", L"second"};
    EXPECT_EQ(GetFutFromDti(&compiler, dti), Units::kSecond);
    EXPECT_EQ(compiler.mComponent, nullptr);
    EXPECT_EQ(compiler.mArguments, (std::vector<AString>{L"0", L"my_time", L"my_time", L"first"}));
    EXPECT_EQ(compiler.mUnitIn, Units::kNoUnit);

    dti.mPhyTypes.clear();
    compiler.mAnswer = false;
    EXPECT_EQ(GetFutFromDti(&compiler, dti), Units::kNoUnit);
    EXPECT_EQ(compiler.mArguments, (std::vector<AString>{L"0", L"my_time", L"my_time", L""}));

    EXPECT_EQ(GetFutFromDti(nullptr, dti), Units::kNoUnit);
}

TEST(PropAttributes, ReferenceCompilerAnswersDeclaredTypes)
{
    refhost::RefModelCompiler compiler;
    compiler.AddType(AString(L"bus_voltage"), AString(L"V"), Units::kVolt, AString(L"power"));
    // {declared type name, first physical type, unit}: the physical type is asked first, a
    // type declared in one library is found in any.
    const std::tuple<const wchar_t*, const wchar_t*, Units::FullUnitType> cases[] = {
        {L"VELOCITY", L"", Units::kMetrePerSecond},
        {L"my_type", L"current", Units::kAmpere},
        {L"voltage", L"temperature", Units::kKelvin},
        {L"bus_voltage", L"", Units::kVolt},
        {L"real", L"", Units::kNoUnit},
        {L"", L"", Units::kNoUnit}};
    for (const auto& [typeName, physical, unit] : cases)
    {
        SCOPED_TRACE(AString(typeName).ToUTF8());
        DataTypeInfo dti;
        dti.mTypeName = typeName;
        dti.mPhyTypes = {physical, L"voltage"};
        EXPECT_EQ(GetFutFromDti(&compiler, dti), unit);
    }
}

namespace
{

struct Lookup
{
    bool ok;
    DataTypeInfo dti;
    Units::FullUnitType unit;
    Texts asserts;
};

const Units::FullUnitType kCallerUnit = Units::kOhm;

Lookup Find(const std::vector<TerminalData>& terminals, const wchar_t* terminal,
            const wchar_t* path)
{
    Lookup result{false, Scalar(L"caller's", 3), kCallerUnit, {}};
    AssertCapture capture;
    result.ok = GetModelNodeInfoForOutputFromTerminals(AString(terminal), AString(path), terminals,
                                                       result.dti, result.unit);
    result.asserts = capture.Texts();
    return result;
}

std::vector<TerminalData> ModelTerminals()
{
    DataTypeInfo bundle = Record(L"bundle", {Scalar(L"pos", -4), Scalar(L"\\Rot\\", -6),
                                             Array(L"pins", Scalar(L"pin", -1), {0, 3, 10}),
                                             Scalar(L"Flag", merrowenum::kBOOLEANType)});
    DataTypeInfo noElement = Scalar(L"broken", merrowenum::kARRAYType);
    noElement.mIndices = {1};
    return {
        {AString(L"p"), Scalar(L"p", -1)},
        {AString(L"P"), Scalar(L"shadowed", -5)}, // the first match ignoring case wins
        {AString(L"bundle"), bundle},
        {AString(L"vec"), Array(L"vec", Scalar(L"e", -3), {2, 7})},
        {AString(L"grid"), Array(L"grid", Array(L"row", Scalar(L"e", -9), {0, 1}), {0, 1})},
        {AString(L"broken"), noElement},
        {AString(L"\\Ext\\"), Record(L"ext", {Scalar(L"A", -1), Scalar(L"a", -2)})},
        {AString(L"s"), Scalar(L"s", merrowenum::kSTRINGType)},
        {AString(L"t"), Scalar(L"t", merrowenum::kTIMEType)},
    };
}

} // namespace

TEST(PropAttributes, PicksTheUnitByNatureAndQuantity)
{
    struct Case
    {
        std::int32_t nature;
        const wchar_t* quantity;
        Units::FullUnitType unit;
    };
    const auto U = [](int code) { return static_cast<Units::FullUnitType>(code); };
    const Case cases[] = {
        {-10, L"p", U(192)},
        {-10, L"q", U(520)},
        {-9, L"t", U(79)},
        {-9, L"x", kCallerUnit},
        {-8, L"LUMINOUS_INTENSITY", U(448)},
        {-8, L"lum", kCallerUnit},
        {-7, L"omega", U(148)},
        {-7, L"tau", U(216)},
        {-6, L"phi", U(52)},
        {-6, L"tau", U(148)},
        {-5, L"v", U(138)},
        {-5, L"f", U(200)},
        {-4, L"S", U(37)},
        {-4, L"f", U(138)},
        {-3, L"P", U(192)},
        {-3, L"q", U(520)},
        {-2, L"mv", U(816)},
        {-2, L"x", kCallerUnit},
        {-1, L"v", U(68)},
        {-1, L"i", U(666)},
        {-1, L"V", U(68)},
        {-11, L"v", kCallerUnit},
        {0, L"v", kCallerUnit},
        {14, L"t", kCallerUnit},
        {7, L"v", kCallerUnit},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(std::to_string(c.nature) + " " + AString(c.quantity).ToUTF8());
        const std::vector<TerminalData> terminals = {{AString(L"n"), Scalar(L"n", c.nature)}};
        const Lookup found = Find(terminals, L"N", c.quantity);
        EXPECT_TRUE(found.ok);
        EXPECT_EQ(found.unit, c.unit);
        EXPECT_EQ(found.dti.mType, merrowenum::kREALType);
        EXPECT_EQ(found.dti.mName, L"n");
        EXPECT_TRUE(found.asserts.empty());
    }
}

TEST(PropAttributes, WalksOutputPathsThroughRecordsAndArrays)
{
    const std::vector<TerminalData> terminals = ModelTerminals();
    struct Case
    {
        const char* name;
        const wchar_t* terminal;
        const wchar_t* path;
        bool ok;
        const wchar_t* reached; // name of the type reached
        Units::FullUnitType unit;
        Texts asserts;
    };
    const auto U = [](int code) { return static_cast<Units::FullUnitType>(code); };
    const Case cases[] = {
        {"one token, voltage", L"p", L"v", true, L"p", U(68), {}},
        {"one token, anything else", L"p", L"i", true, L"p", U(666), {}},
        {"terminal name ignores case, first match", L"P", L"V", true, L"p", U(68), {}},
        {"no path", L"p", L"", true, L"p", U(666), {}},
        {"record member", L"bundle", L"pos.s", true, L"pos", U(37), {}},
        {"record member ignoring case", L"bundle", L"POS.f", true, L"pos", U(138), {}},
        {"unknown member is passed over", L"bundle", L"nothing.pos.s", true, L"pos", U(37), {}},
        {"array in a record", L"bundle", L"pins[3].v", true, L"pin", U(68), {}},
        {"angle brackets", L"bundle", L"pins<10>.i", true, L"pin", U(666), {}},
        {"leading index", L"vec", L"[7].p", true, L"e", U(192), {}},
        {"index not there changes nothing", L"vec", L"[5].7.q", false, L"vec", kCallerUnit, {"0"}},
        {"member not there: the next token is looked for",
         L"bundle",
         L"x.pins.3.v",
         true,
         L"pin",
         U(68),
         {}},
        {"indices are decimal text", L"vec", L"[07].p", false, L"vec", kCallerUnit, {"0"}},
        {"array of arrays", L"grid", L"[1][0].t", true, L"e", U(79), {}},
        {"path ends on an array", L"bundle", L"pins", false, L"bundle", kCallerUnit, {"0"}},
        {"path ends on an array member", L"bundle", L"pins.v", false, L"pins", kCallerUnit, {"0"}},
        {"path ends on the record", L"bundle", L"x", false, L"bundle", kCallerUnit, {"0"}},
        {"path goes on past a scalar",
         L"bundle",
         L"pos.s.x.y",
         false,
         L"pos",
         kCallerUnit,
         {"(i + 1) == td.Count()"}},
        {"one token after a scalar is allowed, and not used", L"p", L"x.v", true, L"p", U(666), {}},
        {"so is one after a member scalar", L"bundle", L"pos.s.x", true, L"pos", U(37), {}},
        {"boolean member, no unit", L"bundle", L"flag.v", true, L"Flag", kCallerUnit, {}},
        {"string terminal is walked as an array",
         L"s",
         L"0.v",
         true,
         L"s",
         kCallerUnit,
         {"dti.mSubElements.size() == 1"}},
        {"array without its element",
         L"broken",
         L"[1].v",
         true,
         L"",
         kCallerUnit,
         {"dti.mSubElements.size() == 1"}},
        {"time terminal", L"t", L"t", true, L"t", kCallerUnit, {}},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.name);
        const Lookup found = Find(terminals, c.terminal, c.path);
        EXPECT_EQ(found.ok, c.ok);
        EXPECT_EQ(found.dti.mName, c.reached);
        EXPECT_EQ(found.unit, c.unit);
        EXPECT_EQ(found.asserts, c.asserts);
        if (c.ok)
        {
            EXPECT_EQ(found.dti.mType, merrowenum::kREALType);
        }
    }
}

TEST(PropAttributes, ExtendedFirstTokenMakesMemberNamesCaseSensitive)
{
    const std::vector<TerminalData> terminals = ModelTerminals();
    struct Case
    {
        const wchar_t* path;
        const wchar_t* reached;
        Units::FullUnitType unit;
    };
    const Case cases[] = {
        {L"A.v", L"A", Units::kVolt},              // ignoring case: the first member
        {L"a.v", L"A", Units::kVolt},              // still the first one, "A"
        {L"\\x\\.a.mv", L"a", Units::kAmpereTurn}, // no "\x\"; then "a" exactly, not "A"
        {L"\\Rot\\.phi", L"ext", Units::kOhm},     // no such member: ends on the record
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(AString(c.path).ToUTF8());
        const Lookup found = Find(terminals, L"\\ext\\", c.path);
        EXPECT_EQ(found.dti.mName, c.reached);
        EXPECT_EQ(found.unit, c.unit);
    }
    // In a record whose member names are extended identifiers, the case must match.
    const Lookup exact = Find(terminals, L"bundle", L"\\Rot\\.phi");
    EXPECT_TRUE(exact.ok);
    EXPECT_EQ(exact.dti.mName, L"\\Rot\\");
    EXPECT_EQ(exact.unit, Units::kRadian);
    const Lookup other = Find(terminals, L"bundle", L"\\ROT\\.phi");
    EXPECT_FALSE(other.ok); // stays on the record
    EXPECT_EQ(other.asserts, Texts{"0"});
    const Lookup ordinary = Find(terminals, L"bundle", L"\\rot\\x.phi");
    EXPECT_FALSE(ordinary.ok);
}

TEST(PropAttributes, UnknownTerminalLeavesTheOutputsAlone)
{
    const std::vector<TerminalData> terminals = ModelTerminals();
    for (const wchar_t* name : {L"q", L"", L"bundle.pos", L"pp"})
    {
        SCOPED_TRACE(AString(name).ToUTF8());
        const Lookup found = Find(terminals, name, L"v");
        EXPECT_FALSE(found.ok);
        EXPECT_EQ(found.dti, Scalar(L"caller's", 3));
        EXPECT_EQ(found.unit, kCallerUnit);
        EXPECT_TRUE(found.asserts.empty());
    }
    EXPECT_FALSE(Find({}, L"p", L"v").ok);
}

TEST(PropAttributes, ValidatesCompositeValueTexts)
{
    const DataTypeInfo reals = Array(L"a", Scalar(L"e"), {0, 1, 2});
    const DataTypeInfo times = Array(L"t", Scalar(L"e", merrowenum::kTIMEType), {4, 5});
    DataTypeInfo modes = Array(L"m", Scalar(L"e", merrowenum::kENUMType), {0, 1});
    DataTypeInfo text = Array(L"s", Scalar(L"c", merrowenum::kCHARType), {0, 1});
    text.mType = merrowenum::kSTRINGType;
    DataTypeInfo olderReals = reals;
    olderReals.mType = merrowenum::kREALVECTORType;
    const DataTypeInfo nested =
        Record(L"r", {Scalar(L"gain"), Array(L"pair", Scalar(L"e"), {0, 1}),
                      Record(L"inner", {Scalar(L"x", merrowenum::kINTEGERType), Scalar(L"y")})});
    DataTypeInfo noElement = Scalar(L"a", merrowenum::kARRAYType);
    noElement.mIndices = {0, 1};
    DataTypeInfo bus = Record(L"b", {Scalar(L"a", 2), Scalar(L"b", 2)});
    bus.mIsBusPort = true;
    bus.mIndices = {1, 0, 7};

    struct Case
    {
        const char* name;
        DataTypeInfo dti;
        const wchar_t* value;
        bool valid;
        const wchar_t* normalized;
    };
    const Case cases[] = {
        {"missing elements are _Empty", reals, L"{1,2}", true, L"{1,2,_Empty}"},
        {"an invalid real is replaced", reals, L"{1,2*,3}", false, L"{1,_Empty,3}"},
        {"a parenthesis keeps the rest together", reals, L"{1,2*(,3}", false, L"{1,_Empty,_Empty}"},
        {"names are valid value text", reals, L"{1,x,3}", true, L"{1,x,3}"},
        {"empty positions", reals, L"{,1,}", true, L"{_Empty,1,_Empty}"},
        {"extra elements are dropped", reals, L"{1,2,3,4,5}", true, L"{1,2,3}"},
        {"no braces", reals, L"1, 2k ,3", true, L"{1, 2k ,3}"},
        {"only an opening brace", reals, L"{1,2", true, L"{1,2,_Empty}"},
        {"only a closing brace", reals, L"1,2}", true, L"{1,2,_Empty}"},
        {"a lone brace", reals, L"{", true, L"{_Empty,_Empty,_Empty}"},
        {"the braces' whole content", reals, L"{{1,2},3}", false, L"{_Empty,3,_Empty}"},
        {"commas in parentheses do not split", reals, L"{max(1,2),3,4}", true, L"{max(1,2),3,4}"},
        {"a written _Empty is not checked", reals, L"{_Empty,1,2}", true, L"{_Empty,1,2}"},
        {"time elements are checked", times, L"{1ns,(}", false, L"{1ns,_Empty}"},
        {"other scalars are taken as written", modes, L"{idle,((}", true, L"{idle,((}"},
        {"string counts by its indices", text, L"{'a','b','c'}", true, L"{'a','b'}"},
        {"older array code", olderReals, L"{1,2,3}", true, L"{1,2,3}"},
        {"array without its element: real elements", noElement, L"{1,+}", false, L"{1,_Empty}"},
        {"bus port counts its members", bus, L"{0,1,1}", true, L"{0,1}"},
        {"nested", nested, L"{1.5,{2,3},{4,5}}", true, L"{1.5,{2,3},{4,5}}"},
        {"nested missing", nested, L"{1}", true, L"{1,{_Empty,_Empty},{_Empty,_Empty}}"},
        {"nested element given plainly", nested, L"{1,2,3}", true, L"{1,{2,_Empty},{3,_Empty}}"},
        {"nested failure spreads", nested, L"{1,{2,*},{x,-}}", false, L"{1,{2,_Empty},{x,_Empty}}"},
        {"empty record", Record(L"r", {}), L"{1}", true, L"{}"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.name);
        AString normalized;
        AssertCapture capture;
        EXPECT_EQ(ValidateComposite(c.dti, AString(c.value), &normalized), c.valid);
        EXPECT_EQ(normalized, c.normalized);
        EXPECT_EQ(ValidateComposite(c.dti, AString(c.value), nullptr), c.valid);
        EXPECT_EQ(capture.Count(), 0u);
    }
}

TEST(PropAttributes, ValidationOfOtherTypesAndEmptyTexts)
{
    for (const std::int32_t type : {0, 1, 4, 9, 14, -1})
    {
        SCOPED_TRACE(type);
        AString normalized(L"before");
        EXPECT_FALSE(ValidateComposite(Scalar(L"s", type), AString(L"{1,2}"), &normalized));
        EXPECT_EQ(normalized, L"{1,2}"); // copied, not appended
        EXPECT_FALSE(ValidateComposite(Scalar(L"s", type), AString(L"{1,2}"), nullptr));
    }
    // The normalised text of a composite is appended.
    AString normalized(L"v=");
    EXPECT_TRUE(ValidateComposite(Array(L"a", Scalar(L"e"), {0}), AString(L"7"), &normalized));
    EXPECT_EQ(normalized, L"v={7}");

    AssertCapture capture;
    normalized = L"kept";
    EXPECT_FALSE(ValidateComposite(Array(L"a", Scalar(L"e"), {0}), AString(), &normalized));
    EXPECT_EQ(normalized, L"kept");
    EXPECT_EQ(capture.Texts(), Texts{"!strValue.empty()"});
}

namespace
{

// The experiment settings of a variable: for each kind, not set up, set up but excluded, or
// included.
enum class Inclusion
{
    kNone,
    kExcluded,
    kIncluded
};

struct Experiments
{
    Inclusion parametric = Inclusion::kNone;
    Inclusion optimization = Inclusion::kNone;
    Inclusion tuning = Inclusion::kNone;
    Inclusion statistical = Inclusion::kNone;
    Inclusion other = Inclusion::kNone; // sensitivity and design of experiments count for nothing
};

std::unique_ptr<VariableProp> MakeVariable(const wchar_t* value, const Experiments& experiments)
{
    auto var = std::make_unique<VariableProp>(AString(L"x"), PropFlags());
    if (value != nullptr)
    {
        EXPECT_TRUE(var->ChangeValue(AString(value)));
    }
    const auto setUp = [&var](id::Experiment kind, Inclusion inclusion)
    {
        if (inclusion != Inclusion::kNone)
        {
            var->GetOptiData().SetAttributes(
                kind, VariableAttributes(inclusion == Inclusion::kIncluded, 1.0, 2.0));
        }
    };
    setUp(id::kParametric, experiments.parametric);
    setUp(id::kOptimization, experiments.optimization);
    setUp(id::kTuning, experiments.tuning);
    setUp(id::kStatistical, experiments.statistical);
    setUp(id::kSensitivity, experiments.other);
    setUp(id::kDesignOfExperiments, experiments.other);
    return var;
}

} // namespace

TEST(PropAttributes, DecidesWhetherASweepIsOfferedAndRequired)
{
    const Inclusion N = Inclusion::kNone;
    const Inclusion E = Inclusion::kExcluded;
    const Inclusion I = Inclusion::kIncluded;
    struct Case
    {
        const char* name;
        int dir;
        int type;
        bool sweepFlag;
        const wchar_t* value;
        Experiments experiments;
        bool enable;
        bool required;
    };
    const Case cases[] = {
        {"input, nothing set up", 0, 0, false, L"1k", {}, true, false},
        {"input of type time", 0, 14, false, L"1n", {}, true, false},
        {"input, all set up but excluded", 0, 0, false, L"1", {E, E, E, E, E}, true, false},
        {"input in a parametric sweep", 0, 0, false, L"1", {I, N, N, N, N}, false, true},
        {"input being optimised", 0, 0, false, L"1", {N, I, N, N, N}, false, true},
        {"input being tuned", 0, 0, false, L"1", {N, N, I, N, N}, false, true},
        {"input in a statistical run", 0, 0, false, L"1", {N, N, N, I, N}, false, true},
        {"other experiments do not count", 0, 0, false, L"1", {E, E, E, E, I}, true, false},
        {"an expression can take part", 0, 0, false, L"2*y+1", {I, N, N, N, N}, false, true},
        {"a text cannot", 0, 0, false, L"\"Low\"", {I, N, N, N, N}, false, false},
        {"no value cannot", 0, 0, true, nullptr, {I, N, N, N, N}, false, false},
        {"input of another type", 0, 4, false, L"1", {}, false, false},
        {"required whatever the type", 0, 9, false, L"1", {N, N, N, I, N}, false, true},
        {"output", 1, 0, true, L"1", {}, false, false},
        {"output included", 1, 0, true, L"1", {I, N, N, N, N}, false, false},
        {"in-out follows its flag", 2, 0, true, L"1", {I, I, I, I, N}, true, false},
        {"in-out without the flag", 2, 0, false, L"1", {}, false, false},
        {"in-out of another type", 2, 1, true, L"1", {}, false, false},
        {"in-out that cannot take part", 2, 0, true, L"\"a\"", {}, false, false},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.name);
        TestAttributes attrs;
        ASSERT_TRUE(attrs.Initialize(c.type, c.dir));
        attrs.SetSweep(c.sweepFlag);
        const std::unique_ptr<VariableProp> var = MakeVariable(c.value, c.experiments);
        EXPECT_EQ(EnableSweep(attrs, *var), c.enable);
        EXPECT_EQ(IsSweepRequired(attrs, *var), c.required);
    }
    // "DontCare", which only reading sets, is no input: never required, and offered as for
    // an input.
    TestAttributes dontCare;
    io::CBlock_func block = Parse("A { \"DontCare\" }");
    ASSERT_EQ(dontCare.Read(block, nullptr), io::kNoError);
    EXPECT_TRUE(EnableSweep(dontCare, *MakeVariable(L"1", {})));
    EXPECT_FALSE(EnableSweep(dontCare, *MakeVariable(L"1", {N, N, I, N, N})));
    EXPECT_FALSE(IsSweepRequired(dontCare, *MakeVariable(L"1", {I, N, N, N, N})));
}
