// PinNameSet: the pin names in use by a list of terminals, ignoring case, with the number of
// terminals using each. The names are copied into one text arena and found through a flat
// open-addressing table of 8-byte slots, so a large list costs no allocation per name and a
// look-up touches few cache lines. A name whose count drops to zero keeps its place until the
// table is rebuilt, so look-ups stay short.
#pragma once

#include "AString.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace qln::connectivity
{
class PinNameSet
{
public:
    // Adds one use of `name`; the empty name is never in use.
    void Insert(std::wstring_view name);
    // Takes one use of `name` away (nothing when it is not in use).
    void Erase(std::wstring_view name);
    // Whether `name` is in use, ignoring case.
    bool Contains(std::wstring_view name) const { return CountOf(name) != 0; }
    // The number of uses of `name`.
    std::size_t CountOf(std::wstring_view name) const;
    // The number of distinct names in use.
    std::size_t GetSize() const { return mInUse; }
    void Clear();
    // Makes room for `count` distinct names.
    void Reserve(std::size_t count);
    // Calls `visit(name, count)` for each name in use.
    template <typename Visit> void ForEach(Visit visit) const
    {
        for (const Name& name : mNames)
        {
            if (name.count != 0)
            {
                visit(TextOf(name), static_cast<std::size_t>(name.count));
            }
        }
    }

private:
    static constexpr std::uint32_t kFree = 0xFFFFFFFFu;

    struct Name
    {
        std::size_t offset; // into mText
        std::uint32_t size;
        std::uint32_t count;
    };
    struct Slot
    {
        std::uint32_t hash = 0;
        std::uint32_t name = kFree; // into mNames
    };

    std::wstring_view TextOf(const Name& name) const
    {
        return {mText.data() + name.offset, name.size};
    }
    // The slot of `name`, or the free slot where it would go.
    std::size_t Find(std::wstring_view name, std::uint32_t hash) const;
    // Moves the names in use into a table of `capacity` slots and drops the others.
    void Rebuild(std::size_t capacity);

    std::vector<Slot> mSlots; // a power of two in size, at most half taken
    std::vector<Name> mNames; // every name that holds a slot, in order of arrival
    std::vector<wchar_t> mText;
    std::size_t mInUse = 0;
};
} // namespace qln::connectivity
