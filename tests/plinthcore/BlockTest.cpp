#include "Block.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace
{
using io::CBlock;
using io::CBlock_func;
using io::CBlock_item;
using io::CBlock_value;

// A record written and read the way the circuit records do: unnamed values in a fixed
// order, optional sub-blocks left out when empty, flags as named values.
struct TypeRecord
{
    AString name;
    int type = 0;
    AString typeName;
    std::vector<AString> phyTypes;
    std::map<int, AString> enumItems;
    std::vector<TypeRecord> subElements;
    bool isUnconstrained = false;
    bool isBusPort = false;
};

void WriteRecord(CBlock& block, const TypeRecord& record)
{
    block.AddValue(record.name);
    block.AddValue(record.type);
    block.AddValue(record.typeName);
    if (!record.phyTypes.empty())
    {
        CBlock_func& list = block.AddBlock(L"PhyTypes");
        for (const AString& phyType : record.phyTypes)
        {
            list.AddValue(phyType);
        }
    }
    if (!record.enumItems.empty())
    {
        CBlock_func& items = block.AddBlock(L"EnumItems");
        for (const auto& [value, literal] : record.enumItems)
        {
            items.AddBlock(literal).AddValue(value);
        }
    }
    if (!record.subElements.empty())
    {
        CBlock_func& list = block.AddBlock(L"SubElements");
        for (const TypeRecord& element : record.subElements)
        {
            WriteRecord(list.AddBlock(L"Info"), element);
        }
    }
    block.AddNamedValue(L"IsUnconstrained", record.isUnconstrained);
    if (record.isBusPort)
    {
        block.AddNamedValue(L"IsBusPort", true);
    }
}

bool ReadRecord(CBlock_func& block, TypeRecord& record)
{
    block.ResetReadPosition();
    if (!block.ReadValue(record.name) || !block.ReadValue(record.type) ||
        !block.ReadValue(record.typeName))
    {
        return false;
    }
    if (CBlock_func* list = block.FindBlock(L"PhyTypes"))
    {
        AString phyType;
        for (std::size_t i = 0; i < list->GetItemCount() && list->ReadValue(phyType); ++i)
        {
            record.phyTypes.push_back(phyType);
        }
    }
    if (CBlock_func* items = block.FindBlock(L"EnumItems"))
    {
        for (const CBlock_item item : items->Items())
        {
            if (CBlock_func* literal = item.GetBlock())
            {
                literal->ResetReadPosition();
                int value = 0;
                if (literal->ReadValue(value))
                {
                    record.enumItems[value] = literal->GetName();
                }
            }
        }
    }
    if (CBlock_func* list = block.FindBlock(L"SubElements"))
    {
        for (const CBlock_item item : list->Items())
        {
            TypeRecord element;
            if (item.IsBlock() && ReadRecord(*item.GetBlock(), element))
            {
                record.subElements.push_back(element);
            }
        }
    }
    if (!block.GetNamedValue(L"IsUnconstrained", record.isUnconstrained))
    {
        block.GetNamedValue(L"InUnconstrained", record.isUnconstrained);
    }
    block.GetNamedValue(L"IsBusPort", record.isBusPort);
    return true;
}

bool SameRecord(const TypeRecord& a, const TypeRecord& b)
{
    if (a.name != b.name || a.type != b.type || a.typeName != b.typeName ||
        a.phyTypes != b.phyTypes || a.enumItems != b.enumItems ||
        a.isUnconstrained != b.isUnconstrained || a.isBusPort != b.isBusPort ||
        a.subElements.size() != b.subElements.size())
    {
        return false;
    }
    for (std::size_t i = 0; i < a.subElements.size(); ++i)
    {
        if (!SameRecord(a.subElements[i], b.subElements[i]))
        {
            return false;
        }
    }
    return true;
}

TEST(Block, RecordWritesAndReadsBackThroughPositionsAndQueries)
{
    TypeRecord element;
    element.name = L"bit";
    element.type = 9;
    element.enumItems = {{0, L"'0'"}, {1, L"'1'"}};
    TypeRecord record;
    record.name = L"bus";
    record.type = 8;
    record.typeName = L"t_bus";
    record.phyTypes = {L"voltage", L"current"};
    record.subElements = {element, element};
    record.isBusPort = true;

    CBlock_func root(L"Info");
    WriteRecord(root, record);
    TypeRecord back;
    ASSERT_TRUE(ReadRecord(root, back));
    EXPECT_TRUE(SameRecord(record, back));
    EXPECT_EQ(root.GetValueCount(), 3u);
    EXPECT_EQ(root.GetItemCount(), 7u) << "3 values, 3 sub-blocks, 2 flags less the absent one";
}

TEST(Block, AbsentOptionalItemsLeaveFieldsUntouched)
{
    CBlock_func root(L"Info");
    root.AddValue(L"x");
    root.AddValue(0);
    root.AddValue(L"");
    root.AddNamedValue(L"InUnconstrained", true); // the older misspelt key
    TypeRecord record;
    record.isBusPort = true; // a reader leaves a field whose key is absent as it was
    ASSERT_TRUE(ReadRecord(root, record));
    EXPECT_TRUE(record.isUnconstrained);
    EXPECT_TRUE(record.isBusPort);
    EXPECT_TRUE(record.phyTypes.empty());
}

TEST(Block, FailedReadKeepsTargetAndPosition)
{
    CBlock_func block(L"Terminal");
    block.AddValue(L"IN");
    block.AddValue(true);
    block.AddValue(-3);

    int number = 42;
    EXPECT_FALSE(block.ReadValue(number)) << "a text is not an int";
    EXPECT_EQ(number, 42);
    EXPECT_EQ(block.GetReadPosition(), 0u);
    AString text;
    ASSERT_TRUE(block.ReadValue(text));
    EXPECT_EQ(text, L"IN");
    unsigned count = 7;
    bool flag = false;
    ASSERT_TRUE(block.ReadValue(flag));
    EXPECT_FALSE(block.ReadValue(count)) << "-3 does not fit an unsigned";
    EXPECT_EQ(count, 7u);
    ASSERT_TRUE(block.ReadValue(number));
    EXPECT_EQ(number, -3);
    EXPECT_FALSE(block.ReadValue(number)) << "nothing left";
    EXPECT_FALSE(block.SkipValue());
    EXPECT_FALSE(block.PeekValue().has_value());

    block.ResetReadPosition();
    ASSERT_TRUE(block.PeekValue().has_value());
    EXPECT_EQ(*block.PeekValue(), CBlock_value(L"IN")) << "peeking does not move on";
    EXPECT_TRUE(block.SkipValue());
    CBlock_value value;
    ASSERT_TRUE(block.ReadValue(value));
    EXPECT_TRUE(value.IsBool());
}

TEST(Block, PositionalReadingStepsOverNamedValuesBlocksAndClassWord)
{
    CBlock_func block(L"Prop");
    block.AddBlock(L"Info").AddValue(L"inner");
    block.AddValue(L"In");
    block.AddNamedValue(L"Flag", true);
    block.SetClassWord(L"GenericProp");
    block.AddValue(L"BeforeAnalogSolver");
    block.AddBlock(L"Attrs");
    block.AddValue(false);

    EXPECT_TRUE(block.GetItem(0).IsBlock()) << "the first item may be a sub-block";
    std::vector<CBlock_value> values;
    CBlock_value value;
    while (block.ReadValue(value))
    {
        values.push_back(value);
    }
    ASSERT_EQ(values.size(), 3u);
    EXPECT_EQ(values[0], CBlock_value(L"In"));
    EXPECT_EQ(values[1], CBlock_value(L"BeforeAnalogSolver"));
    EXPECT_EQ(values[2], CBlock_value(false));
    EXPECT_EQ(block.GetValueCount(), 3u);
    EXPECT_EQ(block.GetItemCount(), 6u) << "the class word is not an item";
    EXPECT_EQ(block.GetClassWord(), L"GenericProp");
}

TEST(Block, ItemsIterateInOrderWithTheirKinds)
{
    CBlock_func list(L"Terminals");
    list.AddBlock(L"Terminal").AddValue(L"a");
    list.AddNamedValue(L"Terminal", 5); // same name, not a block
    list.AddValue(L"Terminal");         // a value whose text is the name, not a name
    list.AddBlock(L"Other");
    list.AddBlock(L"Terminal").AddValue(L"b");

    struct Seen
    {
        bool value;
        bool named;
        bool block;
        std::wstring name;
    };
    const Seen expected[] = {{false, false, true, L"Terminal"},
                             {false, true, false, L"Terminal"},
                             {true, false, false, L""},
                             {false, false, true, L"Other"},
                             {false, false, true, L"Terminal"}};
    std::size_t index = 0;
    for (const CBlock_item item : list.Items())
    {
        ASSERT_LT(index, std::size(expected));
        SCOPED_TRACE(index);
        EXPECT_EQ(item.IsValue(), expected[index].value);
        EXPECT_EQ(item.IsNamedValue(), expected[index].named);
        EXPECT_EQ(item.IsBlock(), expected[index].block);
        EXPECT_EQ(item.GetName(), expected[index].name);
        EXPECT_EQ(item.GetBlock() != nullptr, expected[index].block);
        ++index;
    }
    EXPECT_EQ(index, 5u);

    std::vector<AString> terminals;
    std::size_t notBlocks = 0;
    for (const CBlock_item item : list.Items())
    {
        if (!item.HasName(L"Terminal"))
        {
            continue;
        }
        if (CBlock_func* terminal = item.GetBlock())
        {
            AString pin;
            terminal->ResetReadPosition();
            ASSERT_TRUE(terminal->ReadValue(pin));
            terminals.push_back(pin);
        }
        else
        {
            ++notBlocks;
        }
    }
    EXPECT_EQ(terminals, (std::vector<AString>{L"a", L"b"}));
    EXPECT_EQ(notBlocks, 1u);
    EXPECT_FALSE(list.GetItem(5).IsValid());
    EXPECT_FALSE(list.GetItem(5).IsValue());
    EXPECT_EQ(list.GetItem(5).GetBlock(), nullptr);
}

TEST(Block, LookupsFindTheFirstItemOfTheRightKind)
{
    CBlock_func block(L"B");
    block.AddNamedValue(L"Attrs", 1); // a named value does not count as a block
    CBlock_func& first = block.AddBlock(L"Attrs");
    first.AddValue(1);
    block.AddBlock(L"Attrs").AddValue(2);
    block.AddNamedValue(L"Key", L"first");
    block.AddNamedValue(L"Key", L"second");

    EXPECT_EQ(block.FindBlock(L"Attrs"), &first);
    EXPECT_EQ(block.FindBlock("Attrs"), &first);
    EXPECT_EQ(block.FindBlock(L"attrs"), nullptr) << "names compare exactly";
    EXPECT_EQ(block.FindBlock(L"Key"), nullptr);
    EXPECT_EQ(block.FindBlock(L"Missing"), nullptr);
    ASSERT_TRUE(block.FindNamedValue(L"Key").has_value());
    EXPECT_EQ(*block.FindNamedValue(L"Key"), CBlock_value(L"first"));
    EXPECT_EQ(*block.FindNamedValue(L"Attrs"), CBlock_value(1));
    EXPECT_FALSE(block.FindNamedValue(L"Missing").has_value());

    AString text = L"kept";
    EXPECT_TRUE(block.GetNamedValue(L"Key", text));
    EXPECT_EQ(text, L"first");
    int number = 9;
    EXPECT_FALSE(block.GetNamedValue(L"Key", number)) << "present but not an int";
    EXPECT_EQ(number, 9);
    EXPECT_FALSE(block.GetNamedValue("Missing", number));
    EXPECT_EQ(number, 9);
}

TEST(Block, EmptyAndUnusualNamesAreNames)
{
    CBlock_func block(L"B");
    block.AddNamedValue(L"", 1);
    block.AddBlock(L"'0'").AddValue(0);
    block.AddBlock(L"");
    block.AddValue(2);

    EXPECT_TRUE(block.GetItem(0).IsNamedValue()) << "an empty key is still a key";
    EXPECT_EQ(block.GetValueCount(), 1u);
    int number = 0;
    EXPECT_TRUE(block.GetNamedValue(L"", number));
    EXPECT_EQ(number, 1);
    ASSERT_NE(block.FindBlock(L"'0'"), nullptr);
    EXPECT_EQ(block.FindBlock(L"'0'")->GetName(), L"'0'");
    EXPECT_EQ(block.FindBlock(L""), block.GetItem(2).GetBlock());
    EXPECT_TRUE(block.GetItem(2).HasName(L""));
    EXPECT_FALSE(block.GetItem(3).HasName(L"")) << "an unnamed value has no name at all";
}

TEST(Block, ConstBlockHandsOutSubBlocksForReading)
{
    CBlock_func root(L"R");
    root.AddBlock(L"Info").AddValue(3);
    const CBlock& view = root;
    CBlock_func* info = view.FindBlock(L"Info");
    ASSERT_NE(info, nullptr);
    int value = 0;
    info->ResetReadPosition();
    EXPECT_TRUE(info->ReadValue(value));
    EXPECT_EQ(value, 3);
    // Reading a const block moves its own position too.
    view.ResetReadPosition();
    EXPECT_FALSE(view.ReadValue(value));
}

TEST(Block, WideAndUtf8NamesMeetInOneTree)
{
    CBlock_func root("R\xC3\xA9");
    EXPECT_EQ(root.GetName(), L"R\u00E9");
    root.AddBlock("N\xC3\xA4me").AddValue("\xE2\x82\xAC");
    CBlock_func* block = root.FindBlock(L"N\u00E4me");
    ASSERT_NE(block, nullptr);
    AString euro;
    ASSERT_TRUE(block->ReadValue(euro));
    EXPECT_EQ(euro, L"\u20AC");
    EXPECT_TRUE(root.GetItem(0).HasName(L"N\u00E4me"));
    EXPECT_TRUE(root.GetItem(0).HasName("N\xC3\xA4me"));
}

TEST(Block, InvalidUtf8InputIsReplacedNotDropped)
{
    CBlock_func root(L"R");
    root.AddValue(std::string_view("a\xFF"
                                   "b\xC3",
                                   4));
    root.AddNamedValue(std::string_view("k\x80"), 1);
    AString text;
    ASSERT_TRUE(root.ReadValue(text));
    EXPECT_EQ(text, L"a\uFFFDb\uFFFD");
    EXPECT_EQ(root.GetItem(1).GetName(), L"k\uFFFD");
    EXPECT_FALSE(root.HasError());
}

TEST(Block, ClassWordIsSetReplacedAndRemoved)
{
    CBlock_func block(L"P");
    EXPECT_FALSE(block.HasClassWord());
    block.SetClassWord(L"ValuePropNU");
    block.SetClassWord(L"GenericValueProp");
    EXPECT_EQ(block.GetClassWord(), L"GenericValueProp");
    EXPECT_EQ(block.GetClassWordUtf8(), "GenericValueProp");
    block.SetClassWord(L"");
    EXPECT_FALSE(block.HasClassWord());
    EXPECT_TRUE(block.IsEmpty());
}

TEST(Block, RefusedItemsSetTheTreeErrorOnce)
{
    CBlock_func root(L"R");
    CBlock_func& child = root.AddBlock(L"C");
    child.AddValue(std::numeric_limits<unsigned long long>::max());
    EXPECT_EQ(child.GetItemCount(), 0u);
    EXPECT_TRUE(root.HasError()) << "the error belongs to the whole tree";
    EXPECT_TRUE(child.HasError());
    EXPECT_EQ(root.GetError(), L"the integer 18446744073709551615 is beyond the signed 64-bit "
                               L"range");
    child.AddNamedValue(std::string(io::kMaxBlockNameBytes + 1, 'n'), 1);
    EXPECT_EQ(child.GetItemCount(), 0u);
    EXPECT_NE(root.GetError().find(L"integer"), AString::npos) << "the first error stays";
    root.ClearError();
    EXPECT_FALSE(child.HasError());
    child.AddValue(1);
    EXPECT_FALSE(root.HasError());
    EXPECT_EQ(child.GetItemCount(), 1u);
}

TEST(Block, NameAtTheLimitIsTakenOneByteMoreIsNot)
{
    CBlock_func root(L"R");
    const std::string longest(io::kMaxBlockNameBytes, 'x');
    root.AddBlock(longest);
    EXPECT_FALSE(root.HasError());
    CBlock_func& refused = root.AddBlock(longest + "x");
    EXPECT_TRUE(root.HasError());
    EXPECT_EQ(root.GetItemCount(), 1u);
    refused.AddValue(1); // the detached block swallows it
    EXPECT_EQ(refused.GetItemCount(), 0u);
    EXPECT_EQ(root.FindBlock(longest)->GetNameUtf8().size(), io::kMaxBlockNameBytes);
}

TEST(Block, TextOverTheLimitIsRefused)
{
    CBlock_func root(L"R");
    root.AddValue(std::string(io::kMaxBlockTextBytes + 1, 'a'));
    EXPECT_TRUE(root.HasError());
    EXPECT_EQ(root.GetItemCount(), 0u);
    EXPECT_NE(root.GetError().find(L"longer than the limit"), AString::npos);
}

TEST(Block, NestingStopsAtTheDepthLimit)
{
    CBlock_func root(L"R");
    CBlock_func* block = &root;
    for (std::size_t level = 2; level <= io::kMaxBlockDepth; ++level)
    {
        block = &block->AddBlock(L"L");
        ASSERT_EQ(block->GetDepth(), level);
    }
    EXPECT_FALSE(root.HasError());
    CBlock_func& tooDeep = block->AddBlock(L"L");
    EXPECT_TRUE(root.HasError());
    EXPECT_EQ(block->GetItemCount(), 0u);
    EXPECT_EQ(&tooDeep.AddBlock(L"M"), &tooDeep) << "a refused block stays detached";
    EXPECT_EQ(root.GetError(), L"blocks nest deeper than 256 levels");

    // A copy that would end deeper than the limit is refused as a whole.
    root.ClearError();
    CBlock_func pair(L"P");
    pair.AddBlock(L"Q");
    CBlock_func* parent = root.FindBlock(L"L");
    while (parent->GetDepth() < io::kMaxBlockDepth - 1)
    {
        parent = parent->FindBlock(L"L");
    }
    parent->AddBlockCopy(pair); // lands on the last level with its child: one too deep
    EXPECT_TRUE(root.HasError());
    EXPECT_EQ(parent->FindBlock(L"P"), nullptr);
}

TEST(Block, CopiesAreDeepAndIndependent)
{
    CBlock_func original(L"R");
    original.SetClassWord(L"W");
    original.AddValue(L"a long text that does not fit inside an item");
    original.AddBlock(L"Sub").AddNamedValue(L"K", 2.5);

    CBlock_func copy(original);
    EXPECT_EQ(copy, original);
    EXPECT_TRUE(copy.IsRoot());
    copy.FindBlock(L"Sub")->AddValue(1);
    EXPECT_NE(copy, original);
    EXPECT_EQ(original.FindBlock(L"Sub")->GetItemCount(), 1u);

    CBlock_func fromSub(*original.FindBlock(L"Sub"));
    EXPECT_EQ(fromSub.GetName(), L"Sub");
    EXPECT_TRUE(fromSub.IsRoot());
    original = CBlock_func(L"Gone");
    EXPECT_EQ(fromSub.GetItemCount(), 1u) << "the copy outlives its source tree";
    EXPECT_EQ(*fromSub.FindNamedValue(L"K"), CBlock_value(2.5));
}

TEST(Block, BlockCopiesItselfAndItsAncestor)
{
    CBlock_func root(L"R");
    CBlock_func& sub = root.AddBlock(L"S");
    sub.AddValue(1);
    sub.AddBlockCopy(sub);
    ASSERT_EQ(sub.GetItemCount(), 2u);
    EXPECT_EQ(sub.GetItem(1).GetBlock()->GetItemCount(), 1u) << "copied as it was before";

    const CBlock_func before(root);
    CBlock_func& inner = *sub.GetItem(1).GetBlock();
    inner.AddBlockCopy(root);
    EXPECT_EQ(*inner.FindBlock(L"R"), before);
    EXPECT_FALSE(root.HasError());
}

TEST(Block, AssigningToSubBlockKeepsItsName)
{
    CBlock_func root(L"R");
    CBlock_func& sub = root.AddBlock(L"Attrs");
    sub.AddValue(1);
    CBlock_func source(L"Other");
    source.SetClassWord(L"Word");
    source.AddValue(L"x");
    source.AddBlock(L"Deep").AddValue(2);
    sub = source;
    EXPECT_EQ(sub.GetName(), L"Attrs");
    EXPECT_EQ(root.GetItem(0).GetName(), L"Attrs");
    EXPECT_EQ(sub.GetClassWord(), L"Word");
    ASSERT_EQ(sub.GetItemCount(), 2u);
    EXPECT_EQ(sub.FindBlock(L"Deep")->GetDepth(), 3u);
    sub = CBlock_func(L"Empty"); // moving a root into a sub-block copies it
    EXPECT_TRUE(sub.IsEmpty());
    EXPECT_EQ(sub.GetName(), L"Attrs");
}

TEST(Block, RootAssignedFromItsOwnSubBlock)
{
    CBlock_func root(L"R");
    CBlock_func& sub = root.AddBlock(L"S");
    sub.AddValue(L"kept text that is long enough to live outside the item");
    root = sub;
    EXPECT_EQ(root.GetName(), L"S");
    AString text;
    ASSERT_TRUE(root.ReadValue(text));
    EXPECT_EQ(text, L"kept text that is long enough to live outside the item");
}

TEST(Block, MovingARootTakesItsTree)
{
    CBlock_func root(L"R");
    CBlock_func& sub = root.AddBlock(L"S");
    CBlock_func moved(std::move(root));
    EXPECT_EQ(moved.GetName(), L"R");
    EXPECT_EQ(moved.FindBlock(L"S"), &sub) << "sub-blocks stay where they are";
    EXPECT_TRUE(root.IsEmpty());
    root.AddValue(1);
    EXPECT_EQ(root.GetItemCount(), 1u);
    std::vector<CBlock_func> blocks;
    blocks.push_back(std::move(moved));
    blocks.emplace_back(L"Second");
    EXPECT_EQ(blocks[0].FindBlock(L"S"), &sub);
}

TEST(Block, SubBlocksSurviveGrowthOfTheirParent)
{
    CBlock_func root(L"R");
    CBlock_func& first = root.AddBlock(L"First");
    first.AddValue(L"stays");
    for (int i = 0; i < 1000; ++i)
    {
        root.AddValue(i);
    }
    AString text;
    ASSERT_TRUE(first.ReadValue(text));
    EXPECT_EQ(text, L"stays");
    EXPECT_EQ(root.GetItemCount(), 1001u);
    int last = 0;
    EXPECT_TRUE(root.GetItem(1000).GetValue().Get(last));
    EXPECT_EQ(last, 999);
}

TEST(Block, ClearEmptiesButKeepsTheName)
{
    CBlock_func root(L"R");
    root.SetClassWord(L"W");
    root.AddValue(1);
    root.AddValue(2);
    int first = 0;
    ASSERT_TRUE(root.ReadValue(first));
    root.Clear();
    EXPECT_TRUE(root.IsEmpty());
    EXPECT_FALSE(root.HasClassWord());
    EXPECT_EQ(root.GetName(), L"R");
    EXPECT_EQ(root.GetReadPosition(), 0u);
    root.AddValue(3);
    int value = 0;
    EXPECT_TRUE(root.ReadValue(value));
    EXPECT_EQ(value, 3);
}

// Pairs of trees that differ in exactly one respect.
TEST(Block, EqualityNoticesEveryDifference)
{
    auto make = [](int variant)
    {
        CBlock_func block(variant == 1 ? L"Other" : L"R");
        if (variant != 2)
        {
            block.SetClassWord(L"W");
        }
        block.AddValue(variant == 3 ? CBlock_value(1.0) : CBlock_value(1));
        if (variant == 4)
        {
            block.AddNamedValue(L"x", L"t");
        }
        else
        {
            block.AddValue(L"t");
        }
        CBlock_func& sub = block.AddBlock(variant == 5 ? L"T" : L"S");
        sub.AddValue(variant == 6 ? L"long text number two, outside"
                                  : L"long text number one, outside");
        return block;
    };
    const CBlock_func base = make(0);
    EXPECT_EQ(base, make(0));
    for (int variant = 1; variant <= 6; ++variant)
    {
        SCOPED_TRACE(variant);
        EXPECT_NE(base, make(variant));
    }
}

TEST(Block, RepeatedNamesAreStoredOnce)
{
    auto build = [](std::wstring_view name)
    {
        CBlock_func root(L"R");
        for (int i = 0; i < 10000; ++i)
        {
            root.AddBlock(name).AddNamedValue(name, i);
        }
        return root.GetTreeMemoryBytes();
    };
    const std::size_t shortNames = build(L"T");
    const std::size_t longNames = build(L"AVeryLongTerminalNameThatWouldCostALotIfCopied");
    EXPECT_LT(longNames, shortNames + 1000) << "a name must not be copied per item";
    EXPECT_LT(shortNames, 10000u * 256u);
}
} // namespace
