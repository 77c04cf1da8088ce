// PinNameSet: the pin names in use by a list of terminals, ignoring case, with the number of
// terminals using each. A flat open-addressing table of name copies and counts; a name whose
// count drops to zero keeps its slot until the table is rebuilt, so look-ups stay short.
#pragma once

#include "AString.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace qln::connectivity
{
class PinNameSet
{
public:
    // Adds one use of `name`; the empty name is never in use.
    void Insert(const AString& name);
    // Takes one use of `name` away (nothing when it is not in use).
    void Erase(const AString& name);
    // Whether `name` is in use, ignoring case.
    bool Contains(const AString& name) const { return CountOf(name) != 0; }
    // The number of uses of `name`.
    std::size_t CountOf(const AString& name) const;
    // The number of distinct names in use.
    std::size_t GetSize() const { return mInUse; }
    void Clear();
    // Makes room for `count` distinct names.
    void Reserve(std::size_t count);
    // Calls `visit(name, count)` for each name in use.
    template <typename Visit> void ForEach(Visit visit) const
    {
        for (const Slot& slot : mSlots)
        {
            if (slot.count != 0)
            {
                visit(slot.name, slot.count);
            }
        }
    }

private:
    struct Slot
    {
        std::uint64_t hash = 0;
        AString name;
        std::size_t count = 0;
        bool taken = false; // holds a name, in use or not
    };

    // The slot of `name`, or the free slot where it would go.
    std::size_t Find(const AString& name, std::uint64_t hash) const;
    void Rebuild(std::size_t capacity);

    std::vector<Slot> mSlots; // a power of two in size, at most half taken
    std::size_t mTaken = 0;
    std::size_t mInUse = 0;
};
} // namespace qln::connectivity
