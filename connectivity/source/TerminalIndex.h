// TerminalIndex: the look-up structures of one TerminalManager: its terminals by schematic,
// layout and terminal name, and their positions. The manager appends to it as it appends
// terminals and drops it on any other change; a dropped index, one built in another circuit
// environment, or one whose terminals were renamed since (the manager's name edit counter
// moved) is rebuilt on the next look-up.
#pragma once

#include "AString.h"
#include "PinNameIndex.h"

#include <cstdint>
#include <vector>

class Terminal;

namespace qln::connectivity
{
class TerminalIndex
{
public:
    // Makes the index current for `terminals` (whose names were last edited at `editCount`).
    void Update(const std::vector<Terminal*>& terminals, std::uint64_t editCount);
    // Adds the terminal at the end of `terminals`, when the index is current.
    void Append(const std::vector<Terminal*>& terminals, std::uint64_t editCount);
    // Forgets everything; the next Update rebuilds.
    void Invalidate() { mValid = false; }

    const PinNameIndex& SchPinNames() const { return mSchPinNames; }
    const PinNameIndex& LayPinNames() const { return mLayPinNames; }
    // The first position of a terminal of that terminal name (ignoring case), or -1.
    int FindTerminalName(const AString& name) const;
    // The position of `terminal`, or -1.
    int FindPosition(const Terminal* terminal) const;

private:
    // One slot of the flat table of positions by terminal address.
    struct PositionSlot
    {
        const Terminal* terminal = nullptr;
        int position = -1;
    };

    void Add(const Terminal& terminal, int position);
    // Makes the position table at least twice as large as `count` terminals.
    void ReservePositions(std::size_t count);
    static std::size_t HomeOf(const Terminal* terminal, std::size_t mask);

    bool mValid = false;
    std::uint64_t mEditCount = 0;
    PinNameIndex mSchPinNames;
    PinNameIndex mLayPinNames;
    PinNameIndex mTerminalNames;
    std::vector<PositionSlot> mPositions; // a power of two in size, at most half full
    std::size_t mPositionCount = 0;
};
} // namespace qln::connectivity
