// Terminal: one connection point of a circuit component: the pin its schematic symbol shows,
// the pin of the layout footprint it corresponds to, the gate (part) of a multi-part component
// it belongs to, its electrical attributes and what the netlister does when it is left
// unconnected. Terminals are owned by a TerminalManager on behalf of their component.
//
// Block forms ("Terminal" sub-blocks of unnamed values; item positions from 0):
//   neutral:  sch, lay, gate, shared                                          (4 items)
//   project:  sch, lay, gate, shared, equiv, action, then by what the component's nature
//             manager allows:
//     no nature manager                      ... rToGround                       (7 items)
//     nature without a name                  ... description, rToGround          (8 items)
//     nature with a name                     ... description, nature, rToGround  (9 items)
//     attributes the forms above cannot hold ... rToGround, domain, direction, nature
//                                                [, description when not empty]  (10/11)
//   Reading takes the first five items from any block of at least five, and the rest by the
//   layouts above (a 6-item or longer than 11-item block gives the first five only).
//
// Natures are stored by the first of their names, "discipline(library.nature)", and read back
// through the nature manager. The identifier -1 is the default "no nature" and, in hosts whose
// manager knows -1, also that nature (the electrical one): such a terminal is written with
// that name and reads back as -1 all the same. The attribute layouts are used when a nature
// manager exists and the terminal is not conservative, has a direction other than the default,
// or has a nature the manager cannot name; there the nature item is the name of a conservative
// terminal's named nature, and otherwise the identifier in decimal (a non-conservative
// terminal's "nature" is the data type code of its value). So with a nature manager every
// terminal reads back equal, attributes and unconnected action included.
#pragma once

#include "AString.h"
#include "Block.h"
#include "CircuitEnvironment.h"
#include "QuillonExport.h"
#include "TerminalAttributes.h"

#include <cstdint>
#include <vector>

class IComponent;
class INatureMgr;

class QLN_API Terminal
{
public:
    // The unconnected actions, indices of the label table.
    enum UnconnectedAction : int
    {
        kFlagAsError = 0, // "Flag as error"
        kUniqueNet = 1,   // "Unique net"
        kGrounded = 2,    // "Grounded", through mUnconnectedActionRToGround
        kNoNet = 3        // "No net" (offered in the system-simulation environment only)
    };

    // A terminal of `parent` (not owned) with the given names; it takes the next equivalence
    // number and the unconnected action that the parent's owner asks for (see below).
    Terminal(IComponent* parent, const AString& schPinName, const AString& layPinName,
             const AString& gate);
    // A terminal of gate "A" with empty pin names, numbered and set up as above.
    explicit Terminal(IComponent* parent);
    // Copies every field, the equivalence number included (none is drawn).
    Terminal(const Terminal& other);
    // Copies every field.
    Terminal& operator=(const Terminal& other);
    ~Terminal() = default;

    const AString& GetGate() const { return mGate; }
    void SetGate(const AString& gate) { mGate = gate; }
    const AString& GetSchPinName() const { return mSchPinName; }
    void SetSchPinName(const AString& name);
    const AString& GetLayPinName() const { return mLayPinName; }
    void SetLayPinName(const AString& name);
    // The schematic pin name.
    const AString& GetPinName() const { return mSchPinName; }
    void SetPinName(const AString& name) { SetSchPinName(name); }
    // The layout pin name.
    const AString& GetPinNumber() const { return mLayPinName; }
    void SetPinNumber(const AString& name) { SetLayPinName(name); }
    const AString& GetTerminalName() const { return mTerminalName; }
    void SetTerminalName(const AString& name);
    const AString& GetDescription() const { return mTermAttrs.mDescription; }
    void SetDescription(const AString& description) { mTermAttrs.mDescription = description; }
    int GetEquivNumber() const { return mEquivNumber; }
    // Overrides the number; the class-wide counter is not touched.
    void SetEquivNumber(int number) { mEquivNumber = number; }
    int GetUnconnectedAction() const { return mUnconnectedAction; }
    void SetUnconnectedAction(int action) { mUnconnectedAction = action; }
    const AString& GetUnconnectedActionRToGround() const { return mUnconnectedActionRToGround; }
    void SetUnconnectedActionRToGround(const AString& resistance)
    {
        mUnconnectedActionRToGround = resistance;
    }
    bool GetShared() const { return mShared; }
    void SetShared(bool shared) { mShared = shared; }
    IComponent* GetParent() const { return mParent; }
    void SetParent(IComponent* parent) { mParent = parent; }
    TerminalAttributes GetTerminalAttrs() const { return mTermAttrs; }
    void SetTerminalAttrs(const TerminalAttributes& attrs) { mTermAttrs = attrs; }

    // Equivalence numbers: both non-copy constructors take the class-wide counter's value and
    // advance it, so terminals are numbered 0, 1, 2, ... in creation order until this resets
    // the counter to 0. Main thread only, like the rest of the class.
    static void ResetEquivNumber();
    // The number the next terminal will take.
    static int GetNextEquivNumber() { return mNextEquivNumber; }

    // The orderings of schematic and layout pin names: both are PortNameCompare (negative,
    // zero, positive; buses compare member by member, case is ignored).
    //   ("d[0:1]", "D<0>,d<1>") => 0
    static int PinNameSchCompare(const AString& a, const AString& b);
    static int PinNameLayCompare(const AString& a, const AString& b);

    // Equal: same shared flag, gates equal ignoring case, pin names equal by the orderings
    // above, same domain and nature, and, for a terminal that is not conservative, the same
    // direction. Names of terminals, numbers, actions, descriptions and parents do not count.
    bool operator==(const Terminal& other) const;
    bool operator!=(const Terminal& other) const { return !(*this == other); }
    // A deliberately weak ordering: false as soon as this terminal is shared and the other is
    // not, has a greater gate (case-sensitive), a greater schematic or layout pin name, or has
    // a parent; otherwise whether the other has a parent. So two terminals that both have a
    // parent are never less than one another.
    bool operator<(const Terminal& other) const;

    // Appends the neutral form (four values) to `parent`; true when the block has no error.
    bool WriteNeutral(io::CBlock& parent) const;
    // Appends the project form (see the top of this file) to `parent`. The nature manager is
    // reached through the parent component's definition manager and its circuit manager; when
    // there is no circuit manager the assertion "dsm" is raised and the 7-item form written.
    // True when the block has no error.
    bool Write(io::CBlock& parent) const;
    // Reads a "Terminal" block positionally; the number of its unnamed values selects the
    // layout. A failed conversion stops the read with io::kReadFailed (the fields read before it
    // keep their new values). Natures and attributes are read only when the terminal has a
    // parent whose nature manager exists (otherwise the assertion "dsm"); a nature text other
    // than "discipline(library.nature)" or an identifier raises "Nature readin problem for
    // terminal" and leaves the nature alone; a named nature on a terminal that is not
    // conservative raises "mTermAttrs.mDomain == merrowenum::kConservative" and is taken; a
    // domain code outside 0..3 raises "0" and leaves the domain alone.
    io::ReadError Read(io::CBlock_func& block);

    // The label of the unconnected action, "Grounded" followed by ", " and the resistance;
    // empty for an action outside 0..3.
    //   action 2, resistance "50" => "Grounded, 50"
    AString GetUnconnectedActionString() const;
    // Appends the labels in index order; "No net" only for the system-simulation environment
    // (kEnvParvane).
    static void GetUnconnectedActions(std::vector<AString>& labels, CircuitEnvironment env);
    // The label of action `id`: true for 0..3, else false and `label` untouched.
    static bool GetUnconnectedActionFromId(int id, AString& label);
    // The action of a label, ignoring case; a text with a "," is looked up by its first piece,
    // trimmed. False, and `id` untouched, when no label matches.
    //   "grounded, 10" => 2;  "Unique net" => 1;  "Unknown" => false
    static bool GetUnconnectedActionFromString(const AString& text, int& id);
    // The resistance of a "label, resistance" text: the second piece, trimmed; false with
    // fewer than two pieces.
    //   "Grounded, 50" => "50";  "Grounded" => false
    static bool GetUnconnectedActionRToGround(const AString& text, AString& rToGround);

    // For the manager that owns the terminal: a counter advanced whenever a pin or terminal
    // name of this terminal changes (null: none), so that its name indexes notice renames made
    // through the terminal itself. Not copied.
    void SetNameEditCounter(std::uint64_t* counter) { mNameEditCounter = counter; }

private:
    // Draws the equivalence number and asks the parent's owner for the initial action.
    void Initialize();
    void NamesEdited()
    {
        if (mNameEditCounter != nullptr)
        {
            ++*mNameEditCounter;
        }
    }
    // Reads one nature item into mTermAttrs.mNature through `natures`.
    void ReadNature(const AString& text, const INatureMgr& natures);

    AString mGate;
    AString mSchPinName;
    AString mLayPinName;
    std::int32_t mEquivNumber = 0;
    std::int32_t mUnconnectedAction = kFlagAsError;
    AString mUnconnectedActionRToGround;
    TerminalAttributes mTermAttrs;
    IComponent* mParent = nullptr;
    bool mShared = false;
    AString mTerminalName;
    std::uint64_t* mNameEditCounter = nullptr;

    static std::int32_t mNextEquivNumber;
};
