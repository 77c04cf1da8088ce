#include "PinNameSet.h"

#include "PinNameIndex.h"

namespace qln::connectivity
{
std::size_t PinNameSet::Find(std::wstring_view name, std::uint32_t hash) const
{
    const std::size_t mask = mSlots.size() - 1;
    std::size_t i = hash & mask;
    while (mSlots[i].name != kFree &&
           (mSlots[i].hash != hash || !AString::EqualNoCase(TextOf(mNames[mSlots[i].name]), name)))
    {
        i = (i + 1) & mask;
    }
    return i;
}

void PinNameSet::Rebuild(std::size_t capacity)
{
    std::vector<Name> names;
    std::vector<wchar_t> text;
    names.reserve(mNames.capacity());
    text.reserve(mText.size());
    mSlots.assign(capacity, Slot());
    for (const Name& name : mNames)
    {
        if (name.count == 0)
        {
            continue; // names no longer in use go
        }
        const std::wstring_view value = TextOf(name);
        const std::uint32_t hash = PinNameIndex::FoldedHash(value);
        std::size_t i = hash & (capacity - 1);
        while (mSlots[i].name != kFree)
        {
            i = (i + 1) & (capacity - 1);
        }
        mSlots[i] = {hash, static_cast<std::uint32_t>(names.size())};
        names.push_back({text.size(), name.size, name.count});
        text.insert(text.end(), value.begin(), value.end());
    }
    mNames.swap(names);
    mText.swap(text);
}

void PinNameSet::Insert(std::wstring_view name)
{
    if (name.empty())
    {
        return;
    }
    if (2 * (mNames.size() + 1) > mSlots.size())
    {
        std::size_t capacity = mSlots.empty() ? 16 : mSlots.size();
        while (capacity < 4 * (mInUse + 1))
        {
            capacity *= 2;
        }
        Rebuild(capacity);
    }
    const std::uint32_t hash = PinNameIndex::FoldedHash(name);
    Slot& slot = mSlots[Find(name, hash)];
    if (slot.name == kFree)
    {
        slot = {hash, static_cast<std::uint32_t>(mNames.size())};
        mNames.push_back({mText.size(), static_cast<std::uint32_t>(name.size()), 0});
        mText.insert(mText.end(), name.begin(), name.end());
    }
    if (mNames[slot.name].count++ == 0)
    {
        ++mInUse;
    }
}

void PinNameSet::Erase(std::wstring_view name)
{
    if (name.empty() || mSlots.empty())
    {
        return;
    }
    const Slot& slot = mSlots[Find(name, PinNameIndex::FoldedHash(name))];
    if (slot.name != kFree && mNames[slot.name].count != 0 && --mNames[slot.name].count == 0)
    {
        --mInUse;
    }
}

std::size_t PinNameSet::CountOf(std::wstring_view name) const
{
    if (name.empty() || mSlots.empty())
    {
        return 0;
    }
    const Slot& slot = mSlots[Find(name, PinNameIndex::FoldedHash(name))];
    return slot.name != kFree ? mNames[slot.name].count : 0;
}

void PinNameSet::Reserve(std::size_t count)
{
    std::size_t capacity = mSlots.empty() ? 16 : mSlots.size();
    while (capacity < 2 * (mNames.size() + count) + 2)
    {
        capacity *= 2;
    }
    mNames.reserve(mNames.size() + count);
    if (capacity != mSlots.size())
    {
        Rebuild(capacity);
    }
}

void PinNameSet::Clear()
{
    mSlots.clear();
    mNames.clear();
    mText.clear();
    mInUse = 0;
}
} // namespace qln::connectivity
