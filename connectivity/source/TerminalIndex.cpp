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
    mTerminalNames.Add(terminal.GetTerminalName(), position, false);
    mPositions.emplace(&terminal, position);
}

int TerminalIndex::FindTerminalName(const AString& name) const
{
    return mTerminalNames.FindFirstText(name);
}

int TerminalIndex::FindPosition(const Terminal* terminal) const
{
    const auto found = mPositions.find(terminal);
    return found != mPositions.end() ? found->second : -1;
}
} // namespace qln::connectivity
