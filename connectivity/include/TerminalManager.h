// TerminalManager: the terminals of one component definition. It owns them, keeps them in port
// order (a terminal's position is its port index), keeps the schematic and the layout pin
// names in use in two name sets so that additions never duplicate a name, stores and restores
// the list in project files, and reconciles it with the ports of a simulation model.
//
// Name-set invariant: every non-empty schematic (layout) pin name of a terminal in the list is
// in the schematic (layout) name set, and an addition never creates a duplicate there. The
// sets ignore case and count how many terminals use a name, so that removing one of two
// terminals that share a name (a list read from a file is not checked for duplicates) keeps the
// name in use. Renaming a terminal through its own setters bypasses the sets, as does
// SetLayPinNamesFromSymPinNames by design; SetTerminalData renames keeping them.
//
// Pin names are compared with PortNameCompare, the name looked for being the first argument:
// buses compare member by member ("d[0:1]" finds "D<0>,d<1>"), everything ignoring case.
// Look-ups by name take logarithmic time; adding, reading, writing and matching take time
// close to linear in the number of terminals and names.
#pragma once

#include "AString.h"
#include "Block.h"
#include "IComponent.h"
#include "ModelConflict.h"
#include "QuillonExport.h"
#include "RefPinOption.h"
#include "Terminal.h"
#include "TerminalAttributes.h"
#include "TerminalData.h"
#include "TerminalInfo.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>
#include <utility>
#include <vector>

namespace qln::connectivity
{
class PinNameSet;
class TerminalIndex;
} // namespace qln::connectivity

class QLN_API TerminalManager
{
public:
    // Which pin names GetPortNameVector lists.
    enum LibType : int
    {
        kSymbolLibType = 0,   // schematic (symbol) pin names
        kFootprintLibType = 1 // layout (footprint) pin names
    };

    TerminalManager();
    // clear(), then the name sets go.
    ~TerminalManager();
    // The terminals are owned: copy with DeepCopy.
    TerminalManager(const TerminalManager&) = delete;
    TerminalManager& operator=(const TerminalManager&) = delete;

    // Deletes every terminal and empties the list and both name sets.
    void clear();
    // Same number of terminals, equal position by position (Terminal::operator==).
    bool operator==(const TerminalManager& other) const;
    bool operator!=(const TerminalManager& other) const { return !(*this == other); }

    std::size_t GetTerminalCount() const { return mTerminals.size(); }
    // The terminal at `index` (its port index); null past the end.
    Terminal* GetTerminal(std::size_t index) const;

    // Look-ups; each gives the first terminal in port order, or null.
    // Schematic pin name equal by PinNameSchCompare and gate equal ignoring case.
    Terminal* GetTerminalFromSchPinName(const AString& pinName, const AString& gate) const;
    // Layout pin name equal by PinNameLayCompare.
    Terminal* GetTerminalFromLayPinName(const AString& pinName) const;
    // Terminal name equal ignoring case.
    Terminal* GetTerminalFromTerminalName(const AString& name) const;
    // -1 for null; the equivalence number of a terminal whose two pin names are empty;
    // otherwise its position, or -1 when it is not in the list.
    int GetTerminalIndex(const Terminal* term) const;
    // Inserts every terminal.
    void GetTerminals(std::set<Terminal*>& terminals) const;

    // clear(), then copies of the terminals of `other` (numbers kept) re-parented to `parent`,
    // in order, and the name sets of `other` as they are.
    void DeepCopy(const TerminalManager& other, IComponent* parent);
    // Takes over `terminals` (null entries dropped) as the new list and empties the vector.
    // Terminals of the old list that are not in the new one are deleted; the name sets are made
    // from the new list.
    void SetAndClear(std::vector<Terminal*>& terminals);

    // Adds `term`, parented to `comp`, at the end: kSymbolPinNameTaken (0) when its non-empty
    // schematic pin name is in use, kFootprintPinNameTaken (1) when its non-empty layout pin name
    // is, kTerminalAdded (3) when added. Null arguments raise "comp && term" and give
    // kTerminalNotAdded (2). A refused terminal stays the caller's.
    IComponent::AddTerminalReturn AddTerminal(IComponent* comp, Terminal* term);
    // Makes a terminal of `comp` with these names (gate "A" when `gate` is empty, raising
    // "!gate.empty()"), `shared` and `attrs`, and adds it. A terminal that is not conservative
    // is not added and the result is kTerminalAdded all the same (signal terminals do not
    // belong to the list). A refused terminal is deleted; `error`, when given, receives
    // "Symbol pin name '%s' already is a terminal for component %s" (schematic name, the
    // component's name), "Footprint pin name '%s' already is a terminal for component %s"
    // (layout name), or "Terminal error" (no component: raises "comp").
    IComponent::AddTerminalReturn AddTerminal(IComponent* comp, const AString& schPinName,
                                              const AString& layPinName, const AString& gate,
                                              bool shared, const TerminalAttributes& attrs,
                                              AString* error);

    // Deletes the terminal at `index` (ignored past the end) and forgets its names; later
    // terminals move down one port index.
    void RemoveTerminal(unsigned int index);
    // The same for the terminal `term` (ignored when it is not in the list).
    void RemoveTerminal(Terminal* term);

    // Replaces the list by the "Terminal" blocks of `block`, in order, as terminals of `comp`.
    // The equivalence counter is reset first (so a file's terminals are drawn 0, 1, 2, ...).
    // Names are not checked for duplicates. A "Terminal" item that is not a block posts
    // message 61544 {error, 1, 1012, 6} with the argument "Terminal" through the circuit manager
    // of the component's definition (the framework's message manager when there is none),
    // raises "0" and fails; a terminal that fails to read is deleted and the read fails
    // (io::kReadFailed). Terminals read before a failure stay. An empty list reads as success.
    io::ReadError Read(const io::CBlock& block, IComponent& comp);
    // Appends every terminal by Terminal::Write (WriteNeutral), in port order; false at the
    // first failure.
    bool Write(io::CBlock& block) const;
    bool WriteInNeutralFormat(io::CBlock& block) const;

    // Grows or shrinks the list to `count`: removes from the end, or adds unnamed terminals
    // of gate "A" numbered by their positions.
    //   3 terminals, SetNumberOfTerminals(5) => two more, equivalence numbers 3 and 4
    void SetNumberOfTerminals(int count, IComponent& comp);

    // Names the terminals in order, as far as both lists go; raises
    // "names.size() == mTerminals.size()" when the sizes differ.
    void SetTerminalNames(const std::vector<AString>& names);
    // Appends every terminal's name; when all are empty, empties `names` and returns false.
    bool GetTerminalNames(std::vector<AString>& names) const;

    // The attributes of the terminal of that schematic pin name and gate, copied into `attrs`.
    // Without such a terminal, those of the component's property of that name when it carries
    // property attributes: its domain, its type for terminal attributes as nature, its
    // direction and its text as description. False when there is neither, or no terminal at all
    // (the component is the first terminal's parent, raising "comp" when there is none).
    bool GetTerminalAttributes(TerminalAttributes& attrs, const AString& pinName,
                               const AString& gate) const;

    // Whether the pins `pinNames` of `gate` are exactly the component's: every named terminal
    // of the gate or shared is found in `pinNames` by PortNameCompare, and there are as many
    // such terminals as names. An unnamed terminal of the gate is skipped, or makes the result
    // false with `failOnUnnamed`.
    bool MatchSignalPins(const std::vector<AString>& pinNames, const AString& gate,
                         bool failOnUnnamed) const;

    // Compares the terminals with the leaves of the model's terminals (their data types
    // expanded under their names), appending to `conflicts`: "Number of terminals is not the
    // same" when the counts differ, and "Component terminal <pin>(<index>) has different
    // nature" (with the pin's name) for each terminal whose nature is not the type code of the
    // leaf at its index. `stopAtFirst` stops at the first conflict. True when one was found.
    bool MatchModelTerminalAttributes(const std::vector<merrowstruct::TerminalData>& modelTerminals,
                                      std::vector<merrowstruct::ModelConflict>& conflicts,
                                      bool stopAtFirst) const;
    // Before a model update: removes every conservative terminal, and every other terminal whose
    // schematic pin name names an entry of `data` again (PortNameCompare); what stays are the
    // terminals of other domains that the new model does not name. `data` is not changed.
    void DeleteConservativePins(std::vector<merrowstruct::TerminalData>& data);
    // Adds a terminal for every leaf of the model terminals `data` whose name is no schematic
    // pin name in use yet (gate "A"; layout pin name the same unless that is in use; a leaf type
    // below 0 gives a conservative terminal of that nature, any other a signal terminal with the
    // type code as its nature). Each gets the leaf's name as terminal name, or, when that is
    // taken, "<name>_<k>" with the smallest k from 0 on that is free. The new terminals draw
    // their equivalence numbers as usual. `added`, when given, receives their pin names.
    void AddTerminals(IComponent* comp, const std::vector<merrowstruct::TerminalData>& data,
                      std::vector<AString>* added = nullptr);
    // Brings the list in line with a new model: DeleteConservativePins, AddTerminals, then the
    // terminals of the model's leaves in the model's order, each with its leaf's type as nature
    // (conservative below 0, otherwise kept or made a signal), followed by the other terminals
    // in their order. Afterwards MatchModelTerminalAttributes finds no conflict unless
    // terminals the model does not name remain.
    void AdjustTerminals(IComponent* comp, std::vector<merrowstruct::TerminalData>& data,
                         std::vector<AString>* added = nullptr);

    // Adds a conservative terminal per port, the name as both pin names, gate "A"; `added`
    // receives the names. A port that is not conservative raises "0" and is skipped.
    void SetPortsAndDirections(const std::vector<std::pair<AString, TerminalAttributes>>& ports,
                               std::vector<AString>& added, IComponent* comp);
    // Gives every terminal the layout pin name "<schematic pin>_<gate>" ("1" of gate "B" =>
    // "1_B"), makes the layout name set of them, and appends (name, attributes) to `ports`.
    void
    SetLayPinNamesForMultipartComponent(std::vector<std::pair<AString, TerminalAttributes>>& ports);
    // Gives every terminal without a layout pin name its schematic pin name as one. The layout
    // name set is left as it is.
    void SetLayPinNamesFromSymPinNames();
    // Empties every terminal's layout pin name and the layout name set.
    void ClearAllLayPinNames();

    // Reference terminals. kRefPinCommon adds "ref" (gate "A") at the end by name and removes
    // the last terminal (raising "ref" when there is none); kRefPinPerPin and kRefPinPerPinAlt
    // put "<pin>_ref" behind every terminal (A, B => A, A_ref, B, B_ref; names not checked) and
    // remove the terminals at odd positions; kRefPinNone does nothing.
    void AddRefTerminals(IComponent* comp, RefPinOption option);
    void RemoveRefTerminals(RefPinOption option);

    // Gives terminal i the schematic pin name of entry i (mPinName), as far as both lists go;
    // raises "terminalInfo.size() == mTerminals.size()" when the sizes differ.
    void SetTerminalData(const std::vector<TerminalInfo>& terminalInfo);
    // Appends one entry per terminal, in port order.
    void GetTerminalInformation(std::vector<TerminalInfo>& terminalInfo) const;

    // Inserts every terminal's layout pin name (the empty one included).
    void GetTerminalLayPinNames(std::set<AString, AString::NoCaseLess>& names) const;
    // Inserts (appends) every non-empty schematic pin name, in port order.
    void GetTerminalSchPinNames(std::set<AString, AString::NoCaseLess>& names) const;
    void GetTerminalSchPinNames(std::vector<AString>& names) const;
    // Appends the schematic (kSymbolLibType) or layout (kFootprintLibType) pin name of every
    // terminal, in port order; any other `libType` raises
    // "(libType == kSymbolLibType) || (libType == kFootprintLibType)" and appends nothing.
    void GetPortNameVector(std::vector<AString>& names, int libType) const;

    // Whether a name is in the schematic (layout) name set, ignoring case.
    bool IsSchPinNameInUse(const AString& name) const;
    bool IsLayPinNameInUse(const AString& name) const;
    // Whether the name-set invariant holds now.
    bool NameSetsHold() const;

private:
    // Appends `term` (a terminal of the manager from now on) and enters its names.
    void Append(Terminal* term);
    // Forgets the names of `term` and deletes it (its slot is the caller's to remove).
    void Discard(Terminal* term);
    // Brings the look-up index up to date.
    const qln::connectivity::TerminalIndex& Index() const;
    // Marks the index stale after a change other than an append.
    void Changed() const;

    void AddIndividualRefPins(IComponent* comp);
    void RemoveIndividualRefPins();

    std::vector<Terminal*> mTerminals;
    std::unique_ptr<qln::connectivity::PinNameSet> mSchPinNames;
    std::unique_ptr<qln::connectivity::PinNameSet> mLayPinNames;
    // Advanced by the terminals whenever one of their names changes.
    std::uint64_t mNameEdits = 0;
    std::unique_ptr<qln::connectivity::TerminalIndex> mIndex;
};
