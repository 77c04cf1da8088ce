#include "TerminalIndex.h"

#include "Terminal.h"

namespace qln::connectivity
{
void TerminalIndex::Update(const std::vector<Terminal*>& terminals, std::uint64_t editCount)
{
    if (mValid && mEditCount == editCount &&
        mSchPinNames.GetEnvironment() == PinNameIndex::CurrentEnvironment())
    {
        return;
    }
    mSchPinNames.Clear();
    mLayPinNames.Clear();
    mTerminalNames.Clear();
    mSchPinNames.Reserve(terminals.size());
    mLayPinNames.Reserve(terminals.size());
    mTerminalNames.Reserve(terminals.size());
    mPositions.clear();
    mPositionCount = 0;
    ReservePositions(terminals.size());
    for (std::size_t i = 0; i < terminals.size(); ++i)
    {
        Add(*terminals[i], static_cast<int>(i));
    }
    mValid = true;
    mEditCount = editCount;
}

void TerminalIndex::Append(const std::vector<Terminal*>& terminals, std::uint64_t editCount)
{
    if (!mValid || mEditCount != editCount || terminals.empty())
    {
        mValid = false;
        return;
    }
    Add(*terminals.back(), static_cast<int>(terminals.size() - 1));
}

void TerminalIndex::Add(const Terminal& terminal, int position)
{
    mSchPinNames.Add(terminal.GetSchPinName(), position);
    mLayPinNames.Add(terminal.GetLayPinName(), position);
    mTerminalNames.Add(terminal.GetTerminalName(), position, false);
    ReservePositions(mPositionCount + 1);
    const std::size_t mask = mPositions.size() - 1;
    std::size_t i = HomeOf(&terminal, mask);
    while (mPositions[i].terminal != nullptr)
    {
        i = (i + 1) & mask;
    }
    mPositions[i] = {&terminal, position};
    ++mPositionCount;
}

void TerminalIndex::ReservePositions(std::size_t count)
{
    std::size_t size = mPositions.empty() ? 16 : mPositions.size();
    while (size < 2 * count)
    {
        size *= 2;
    }
    if (size == mPositions.size())
    {
        return;
    }
    std::vector<PositionSlot> old(size);
    old.swap(mPositions);
    for (const PositionSlot& slot : old)
    {
        if (slot.terminal != nullptr)
        {
            std::size_t i = HomeOf(slot.terminal, size - 1);
            while (mPositions[i].terminal != nullptr)
            {
                i = (i + 1) & (size - 1);
            }
            mPositions[i] = slot;
        }
    }
}

std::size_t TerminalIndex::HomeOf(const Terminal* terminal, std::size_t mask)
{
    // Addresses share their low bits (alignment) and often their high ones; a multiplicative
    // mix spreads the rest over the table.
    const auto address = reinterpret_cast<std::uintptr_t>(terminal);
    return static_cast<std::size_t>((static_cast<std::uint64_t>(address) * 0x9E3779B97F4A7C15ull) >>
                                    32) &
           mask;
}

int TerminalIndex::FindTerminalName(const AString& name) const
{
    return mTerminalNames.FindFirstText(name);
}

int TerminalIndex::FindPosition(const Terminal* terminal) const
{
    if (terminal == nullptr || mPositions.empty())
    {
        return -1;
    }
    const std::size_t mask = mPositions.size() - 1;
    for (std::size_t i = HomeOf(terminal, mask); mPositions[i].terminal != nullptr;
         i = (i + 1) & mask)
    {
        if (mPositions[i].terminal == terminal)
        {
            return mPositions[i].position;
        }
    }
    return -1;
}
} // namespace qln::connectivity
