#include "BlockStats.h"

#include <algorithm>

namespace io
{
namespace
{
void Collect(const CBlock& block, std::size_t level, BlockStats& stats,
             std::map<std::string_view, std::size_t>& names)
{
    ++stats.blocks;
    stats.depth = std::max(stats.depth, level);
    for (const CBlock_item item : block.Items())
    {
        if (item.IsValue())
        {
            ++stats.values;
            continue;
        }
        ++names[item.GetNameUtf8()];
        if (const CBlock_func* child = item.GetBlock())
        {
            Collect(*child, level + 1, stats, names);
        }
        else
        {
            ++stats.namedValues;
        }
    }
}

std::size_t MemoryOf(const CBlock& block)
{
    if (const auto* func = dynamic_cast<const CBlock_func*>(&block))
    {
        return func->GetTreeMemoryBytes();
    }
    return 0;
}
} // namespace

BlockStats GetBlockStats(const CBlock& block)
{
    BlockStats stats;
    // Counted by UTF-8 view first: converting each name once is far cheaper than per item.
    std::map<std::string_view, std::size_t> names;
    Collect(block, 1, stats, names);
    for (const auto& [name, count] : names)
    {
        stats.names[AString::FromUTF8(name)] += count;
    }
    stats.memoryBytes = MemoryOf(block);
    return stats;
}

} // namespace io
