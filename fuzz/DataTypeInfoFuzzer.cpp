// Fuzz target of the data type block form. Any block text that reads must give a record, never
// a crash; what the record writes must be a whole tree (unless the record is too deep for
// one) that reads again, also through its text, to an equal record with the same result, and
// its leaves must be as many as its structure says.
#include "Assert.h"
#include "Block.h"
#include "BlockReader.h"
#include "BlockWriter.h"
#include "QLNParvaneUtils.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

using merrowstruct::DataTypeInfo;

namespace
{
void Require(bool condition, const char* what)
{
    if (!condition)
    {
        std::fprintf(stderr, "data type property broken: %s\n", what);
        std::abort();
    }
}

constexpr std::uint64_t kLeafLimit = 100000;

std::uint64_t Saturated(std::uint64_t value)
{
    return std::min(value, kLeafLimit + 1);
}

// The number of leaves GetDataTypeInfoLeafNames gives, from the structure alone; anything
// above kLeafLimit counts as kLeafLimit + 1.
std::uint64_t CountLeaves(const DataTypeInfo& dti)
{
    if (dti.mType == merrowenum::kRecordType && !dti.mIsBusPort)
    {
        std::uint64_t count = 0;
        for (const DataTypeInfo& member : dti.mSubElements)
        {
            count = Saturated(count +
                              (member.mType == merrowenum::kRecordType ? CountLeaves(member) : 1));
        }
        return count;
    }
    if (parvaneutils::IsDataTypeInfoASchematicBus(dti))
    {
        const std::size_t paired = std::min(dti.mSubElements.size(), dti.mIndices.size());
        return static_cast<std::uint64_t>(
            std::count_if(dti.mSubElements.begin(),
                          dti.mSubElements.begin() + static_cast<std::ptrdiff_t>(paired),
                          [](const DataTypeInfo& member) { return member.mSubElements.empty(); }));
    }
    if (dti.mType == merrowenum::kSTRINGType || !parvaneutils::IsDataTypeInfoAnArray(dti))
    {
        return 1;
    }
    const DataTypeInfo none;
    const DataTypeInfo& element = dti.mSubElements.empty() ? none : dti.mSubElements.front();
    const bool compound =
        parvaneutils::IsDataTypeInfoAnArray(element) || element.mType == merrowenum::kRecordType;
    const std::uint64_t each = compound ? CountLeaves(element) : 1;
    return each == 0 ? 0 : Saturated(Saturated(dti.mIndices.size()) * each);
}
// Whether the block form of a record at member level `level` fits the depth of a tree: level
// k sits at depth 2k + 1, its lists one deeper and its enumeration literals two deeper. (An
// older array with no elements reads with a default element, one level deeper than the
// block held.)
bool Fits(const DataTypeInfo& dti, std::size_t level)
{
    const std::size_t depth = 2 * level + 1;
    if (depth > io::kMaxBlockDepth || (!dti.mEnumItems.empty() && depth + 2 > io::kMaxBlockDepth))
    {
        return false;
    }
    return std::all_of(dti.mSubElements.begin(), dti.mSubElements.end(),
                       [level](const DataTypeInfo& element) { return Fits(element, level + 1); });
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const bool quiet = []
    {
        SetLogAssertFailures(false);
        return true;
    }();
    (void)quiet;

    const std::string_view text(reinterpret_cast<const char*>(data), size);
    io::CBlock_func tree;
    if (!io::ReadBlockText(text, tree))
    {
        return 0;
    }
    DataTypeInfo first;
    const bool firstOk = ReadDataTypeInfo(tree, first);

    io::CBlock_func written(L"Info");
    Require(WriteDataTypeInfo(written, first), "writing succeeds");
    Require(written.HasError() == !Fits(first, 0), "a record is cut exactly when it is too deep");
    if (written.HasError())
    {
        return 0;
    }

    DataTypeInfo second;
    Require(ReadDataTypeInfo(written, second) == firstOk, "the same result on reading again");
    Require(second == first, "a written record reads back equal");

    io::CBlock_func reread;
    Require(io::ReadBlockText(io::WriteBlockText(written), reread), "written text reads");
    DataTypeInfo third;
    Require(ReadDataTypeInfo(reread, third) == firstOk, "the same result through the text");
    Require(third == first, "a written record reads back equal through the text");

    const std::uint64_t expected = CountLeaves(first);
    if (expected <= kLeafLimit)
    {
        std::vector<merrowstruct::DataTypeLeaf> leaves;
        parvaneutils::GetDataTypeInfoLeafNames(first, first.mName, leaves);
        Require(leaves.size() == expected, "as many leaves as the structure says");
        for (const merrowstruct::DataTypeLeaf& leaf : leaves)
        {
            (void)GetNodeDataType(leaf.second);
        }
    }
    return 0;
}
