#include "BlockStats.h"

#include <gtest/gtest.h>

#include <map>

namespace
{
using io::CBlock_func;

TEST(BlockStats, CountsEveryKindOfItemAndTheDeepestLevel)
{
    CBlock_func root(L"R");
    EXPECT_EQ(io::GetBlockStats(root).Items(), 0u);
    EXPECT_EQ(io::GetBlockStats(root).depth, 1u);
    root.AddValue(1);
    root.AddNamedValue(L"K", 2);
    CBlock_func& a = root.AddBlock(L"A");
    a.AddBlock(L"B").AddBlock(L"C").AddValue(L"x");
    a.AddNamedValue(L"K", 3);
    root.AddBlock(L"A");

    const io::BlockStats stats = io::GetBlockStats(root);
    EXPECT_EQ(stats.blocks, 5u);
    EXPECT_EQ(stats.values, 2u);
    EXPECT_EQ(stats.namedValues, 2u);
    EXPECT_EQ(stats.Items(), 8u);
    EXPECT_EQ(stats.depth, 4u);
    const std::map<AString, std::size_t> names = {{L"A", 2}, {L"B", 1}, {L"C", 1}, {L"K", 2}};
    EXPECT_EQ(stats.names, names);
    EXPECT_EQ(stats.memoryBytes, root.GetTreeMemoryBytes());

    const io::BlockStats sub = io::GetBlockStats(a);
    EXPECT_EQ(sub.blocks, 3u);
    EXPECT_EQ(sub.depth, 3u) << "levels counted from the block asked about";
}
} // namespace
