// Fuzz target of the block text reader. Any input must give a tree or a placed error,
// never a crash; a tree must write back to text that reads again to an equal tree and
// writes again to the same bytes (writing is a fixed point of reading).
#include "Block.h"
#include "BlockReader.h"
#include "BlockStats.h"
#include "BlockWriter.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace
{
void Require(bool condition, const char* what)
{
    if (!condition)
    {
        std::fprintf(stderr, "block reader property broken: %s\n", what);
        std::abort();
    }
}

// Reads every item through the typed getters, as record readers do.
void Walk(const io::CBlock& block)
{
    block.ResetReadPosition();
    io::CBlock_value value;
    std::size_t values = 0;
    while (block.ReadValue(value))
    {
        ++values;
    }
    Require(values == block.GetValueCount(), "positional reading visits every unnamed value");
    for (const io::CBlock_item item : block.Items())
    {
        if (const io::CBlock_func* child = item.GetBlock())
        {
            Require(child->GetDepth() == block.GetDepth() + 1, "depth of a sub-block");
            Walk(*child);
            continue;
        }
        const io::CBlock_value itemValue = item.GetValue();
        AString text;
        long long integer = 0;
        unsigned small = 0;
        double real = 0;
        bool flag = false;
        const int converted = static_cast<int>(itemValue.Get(text)) +
                              static_cast<int>(itemValue.Get(integer)) +
                              static_cast<int>(itemValue.Get(flag));
        Require(converted == (itemValue.IsReal() ? 0 : 1),
                "a value converts to the one kind it has (reals to none of these)");
        (void)itemValue.Get(small);
        (void)itemValue.Get(real);
        if (item.IsNamedValue())
        {
            Require(block.FindNamedValue(item.GetNameUtf8()).has_value(), "look-up by key");
        }
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    io::CBlock_func tree;
    io::BlockTextError error;
    if (!io::ReadBlockText(text, tree, &error))
    {
        Require(error.line >= 1 && error.column >= 1 && !error.reason.empty(),
                "a failed read says where and why");
        Require(tree.IsEmpty() && tree.GetName().empty(), "a failed read leaves the tree");
        return 0;
    }
    const std::string written = io::WriteBlockText(tree);
    io::CBlock_func again;
    Require(io::ReadBlockText(written, again, &error), "written text reads again");
    Require(again == tree, "the tree read again equals the first");
    Require(io::WriteBlockText(again) == written, "writing again gives the same bytes");
    const io::CBlock_func copy(tree);
    Require(copy == tree, "a copy equals its source");
    Walk(tree);
    (void)io::GetBlockStats(tree);
    return 0;
}
