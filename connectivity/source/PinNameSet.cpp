#include "PinNameSet.h"

#include "PinNameIndex.h"

namespace qln::connectivity
{
std::size_t PinNameSet::Find(const AString& name, std::uint64_t hash) const
{
    const std::size_t mask = mSlots.size() - 1;
    std::size_t i = hash & mask;
    while (mSlots[i].taken &&
           (mSlots[i].hash != hash || !AString::EqualNoCase(mSlots[i].name, name)))
    {
        i = (i + 1) & mask;
    }
    return i;
}

void PinNameSet::Rebuild(std::size_t capacity)
{
    std::vector<Slot> old(capacity);
    old.swap(mSlots);
    mTaken = 0;
    for (Slot& slot : old)
    {
        if (slot.count == 0)
        {
            continue; // names no longer in use go
        }
        Slot& target = mSlots[Find(slot.name, slot.hash)];
        target = std::move(slot);
        ++mTaken;
    }
}

void PinNameSet::Insert(const AString& name)
{
    if (name.empty())
    {
        return;
    }
    if (2 * (mTaken + 1) > mSlots.size())
    {
        std::size_t capacity = mSlots.empty() ? 16 : mSlots.size();
        while (capacity < 4 * (mInUse + 1))
        {
            capacity *= 2;
        }
        Rebuild(capacity);
    }
    const std::uint64_t hash = PinNameIndex::FoldedHash(name);
    Slot& slot = mSlots[Find(name, hash)];
    if (!slot.taken)
    {
        slot.taken = true;
        slot.hash = hash;
        slot.name = name;
        ++mTaken;
    }
    if (slot.count++ == 0)
    {
        ++mInUse;
    }
}

void PinNameSet::Erase(const AString& name)
{
    if (name.empty() || mSlots.empty())
    {
        return;
    }
    Slot& slot = mSlots[Find(name, PinNameIndex::FoldedHash(name))];
    if (slot.count != 0 && --slot.count == 0)
    {
        --mInUse;
    }
}

std::size_t PinNameSet::CountOf(const AString& name) const
{
    if (name.empty() || mSlots.empty())
    {
        return 0;
    }
    return mSlots[Find(name, PinNameIndex::FoldedHash(name))].count;
}

void PinNameSet::Reserve(std::size_t count)
{
    std::size_t capacity = mSlots.empty() ? 16 : mSlots.size();
    while (capacity < 2 * (mTaken + count) + 2)
    {
        capacity *= 2;
    }
    if (capacity != mSlots.size())
    {
        Rebuild(capacity);
    }
}

void PinNameSet::Clear()
{
    mSlots.clear();
    mTaken = 0;
    mInUse = 0;
}
} // namespace qln::connectivity
