// Figures about a tree of blocks: how many blocks and values it holds, how deep it nests,
// which names it uses and how often, and what it costs in memory.
#pragma once

#include "AString.h"
#include "Block.h"
#include "PlinthExport.h"

#include <cstddef>
#include <map>

namespace io
{

struct BlockStats
{
    std::size_t blocks = 0; // the outermost block included
    std::size_t values = 0; // unnamed values
    std::size_t namedValues = 0;
    std::size_t depth = 0;       // levels of blocks
    std::size_t memoryBytes = 0; // what the whole tree holds
    // Each block name and value key with the number of items that carry it, in text order.
    std::map<AString, std::size_t> names;

    // Items of all blocks: every block but the outermost is an item of its parent.
    std::size_t Items() const noexcept
    {
        return blocks - (blocks != 0 ? 1 : 0) + values + namedValues;
    }
};

// The figures of `block` and everything below it.
//   Root { Terminal { "a" } Terminal { "b" X=1 } }  => blocks 3, values 2, namedValues 1,
//                                                       depth 2, names {Terminal: 2, X: 1}
PLINTH_API BlockStats GetBlockStats(const CBlock& block);

} // namespace io
