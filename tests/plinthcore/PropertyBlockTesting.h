// Helpers for the block-form tests of properties: text of a property's block, round trips,
// and damaged copies of a block (each item left out in turn, each value of another kind).
#pragma once

#include "Block.h"
#include "BlockReader.h"
#include "BlockWriter.h"
#include "Property.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace proptest
{

inline std::string BlockText(const Property& prop, bool neutral = false)
{
    io::CBlock_func block(L"Prop");
    EXPECT_TRUE(neutral ? prop.WriteNeutral(block) : prop.Write(block));
    return io::WriteBlockText(block);
}

inline io::CBlock_func ParseBlock(const std::string& text)
{
    io::CBlock_func block;
    io::BlockTextError error;
    EXPECT_TRUE(io::ReadBlockText(text, block, &error)) << error.reason.ToUTF8();
    return block;
}

// Writes `original`, reads the text into `fresh` and writes that again: the same bytes.
inline void ExpectRoundTrip(const Property& original, Property& fresh,
                            IPropClientFactory* clients = nullptr)
{
    const std::string first = BlockText(original);
    const io::CBlock_func block = ParseBlock(first);
    ASSERT_EQ(fresh.Read(block, clients), io::kNoError) << first;
    EXPECT_EQ(BlockText(fresh), first);
    EXPECT_EQ(fresh.PropertyName(), original.PropertyName());
    EXPECT_EQ(fresh.PropertyValue(), original.PropertyValue());
    EXPECT_TRUE(fresh.GetFlags() == original.GetFlags());
}

// The same for the neutral form.
inline void ExpectNeutralRoundTrip(const Property& original, Property& fresh)
{
    const std::string first = BlockText(original, true);
    const io::CBlock_func block = ParseBlock(first);
    ASSERT_EQ(fresh.ReadNeutral(block), io::kNoError) << first;
    EXPECT_EQ(BlockText(fresh, true), first);
}

inline void CopyItem(io::CBlock_func& target, const io::CBlock_item& item)
{
    if (item.IsBlock())
    {
        target.AddBlockCopy(*item.GetBlock());
    }
    else if (item.IsNamedValue())
    {
        target.AddNamedValue(item.GetName(), item.GetValue());
    }
    else
    {
        target.AddValue(item.GetValue());
    }
}

// Copies of `block`, at every level: each item left out, and each value replaced by one of
// another kind (texts by an integer, anything else by a text).
inline std::vector<io::CBlock_func> DamagedCopies(const io::CBlock& block)
{
    std::vector<io::CBlock_func> copies;
    const std::size_t count = block.GetItemCount();
    for (std::size_t damaged = 0; damaged < count; ++damaged)
    {
        for (int how = 0; how < 2; ++how)
        {
            const io::CBlock_item target = block.GetItem(damaged);
            if (how == 1 && target.IsBlock())
            {
                // Damage inside the sub-block instead.
                for (io::CBlock_func& inner : DamagedCopies(*target.GetBlock()))
                {
                    io::CBlock_func copy(block.GetName());
                    copy.SetClassWord(block.GetClassWord());
                    for (std::size_t i = 0; i < count; ++i)
                    {
                        if (i == damaged)
                        {
                            copy.AddBlockCopy(inner);
                        }
                        else
                        {
                            CopyItem(copy, block.GetItem(i));
                        }
                    }
                    copies.push_back(std::move(copy));
                }
                continue;
            }
            io::CBlock_func copy(block.GetName());
            copy.SetClassWord(block.GetClassWord());
            for (std::size_t i = 0; i < count; ++i)
            {
                const io::CBlock_item item = block.GetItem(i);
                if (i != damaged)
                {
                    CopyItem(copy, item);
                }
                else if (how == 1)
                {
                    const io::CBlock_value other =
                        item.GetValue().IsText() ? io::CBlock_value(7) : io::CBlock_value(L"x");
                    if (item.IsNamedValue())
                    {
                        copy.AddNamedValue(item.GetName(), other);
                    }
                    else
                    {
                        copy.AddValue(other);
                    }
                }
            }
            copies.push_back(std::move(copy));
        }
    }
    return copies;
}

// Reads every damaged copy of `source`'s block into `target`: a read either succeeds or
// answers io::kReadFailed and leaves `target` exactly as it was. Returns how many failed.
inline int ExpectDamageLeavesPropertyAlone(const Property& source, Property& target,
                                           IPropClientFactory* clients = nullptr)
{
    const io::CBlock_func block = ParseBlock(BlockText(source));
    int failures = 0;
    for (const io::CBlock_func& damaged : DamagedCopies(block))
    {
        const std::string before = BlockText(target);
        const io::ReadError error = target.Read(damaged, clients);
        if (error != io::kNoError)
        {
            ++failures;
            EXPECT_EQ(error, io::kReadFailed);
            EXPECT_EQ(BlockText(target), before) << io::WriteBlockText(damaged);
        }
    }
    return failures;
}

} // namespace proptest
