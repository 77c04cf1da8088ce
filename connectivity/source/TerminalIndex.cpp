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
    mTerminalNames.clear();
    mPositions.clear();
    mPositions.reserve(terminals.size());
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
    mTerminalNames[terminal.GetTerminalName()].push_back(position);
    mPositions.emplace(&terminal, position);
}

const std::vector<int>* TerminalIndex::FindTerminalName(const AString& name) const
{
    const auto found = mTerminalNames.find(name);
    return found != mTerminalNames.end() ? &found->second : nullptr;
}

int TerminalIndex::FindPosition(const Terminal* terminal) const
{
    const auto found = mPositions.find(terminal);
    return found != mPositions.end() ? found->second : -1;
}
} // namespace qln::connectivity
