// Property: one named, typed setting of a design object (an instance parameter, a component
// attribute, a menu choice, a button), as editors show it, scripts exchange it and project
// files store it. A property has a name, flags (PropFlags), a type code (GetPropType), a value
// that reads and changes as text, and visitors (Accept). Property lists (PropList) own them.
// Derived classes that override one ChangeValue bring the others in with
// "using Property::ChangeValue;".
#pragma once

#include "AComplex.h"
#include "AString.h"
#include "Block.h"
#include "PlinthExport.h"
#include "PropChange.h"
#include "PropFlag.h"
#include "Units.h"

class ConstPropVisitor;
class IMerrowCommand;
class IPropClientFactory;
class IPropServer;
class IScriptArgInfo;
class PropList;
class PropVisitor;
class ValueBase;

// How closely two properties agree (Property::MatchProp), from none to all.
enum PropMatch : int
{
    kPropNoMatch = 0,    // properties of different types
    kPropTypeMatch = 1,  // same type, different names
    kPropNameMatch = 2,  // same type and name (ignoring case), different values
    kPropValueMatch = 3, // same type, name and value text, different flags
    kPropExactMatch = 4  // same type, name, value text and flags
};

// The type codes of the framework's property classes. The host's own classes use codes of
// their own (from 39500 on for circuit properties).
enum PropType : int
{
    kMenuPropType = 1,
    kValuePropType = 2,
    kVariablePropType = 3,
    kTextPropType = 4,
    kNumberPropType = 5,
    kButtonPropType = 12,
    kActionButtonPropType = 13 // a button whose client acts without a dialog; a ButtonProp
};

class PLINTH_API Property
{
public:
    virtual ~Property();

    // The name. Renaming refuses an empty name (false).
    const AString& PropertyName() const { return mName; }
    virtual bool SetPropertyName(const AString& name);

    PropFlags GetFlags() const { return mFlags; }
    void SetFlags(const PropFlags& flags) { mFlags = flags; }
    bool HasFlag(PropFlag flag) const { return mFlags.Contains(flag); }
    void SetFlag(PropFlag flag, bool set) { mFlags.Set(flag, set); }

    // The class's type code, and whether the property accepts to stand for `type` (its own
    // code by default; related classes accept each other's).
    virtual int GetPropType() const = 0;
    virtual bool MatchPropType(int type) const;

    // The value as text, as editors show it.
    virtual AString PropertyValue() const = 0;
    // Changes the value from text, as a user edit: false, value unchanged, when the property
    // refuses it.
    virtual bool ChangeValue(const AString& text) = 0;
    // From a number: the number's shortest text, unless the class knows better.
    virtual bool ChangeValue(const double& value);
    // From a complex number: its real part when the imaginary part is 0, else refused.
    virtual bool ChangeValue(const AComplex<double>& value);
    // From another property: its value text, unless the class knows better.
    virtual bool ChangeValue(const Property& other);

    // The numeric value: 0 unless the class holds a number (evaluated where it holds a value
    // object).
    virtual double GetValue() const;
    // The value object the property holds (ValueProp, VariableProp), or null.
    virtual ValueBase* GetValueBase() const;

    // Whether the value carries a physical unit, and the kind of that unit.
    virtual bool HasUnits() const;
    virtual Units::UnitType GetUnitType() const;

    // A new copy, owned by the caller, in no list.
    virtual Property* CloneProp() const = 0;
    // The property an instance of a component gets for this definition property (owned by
    // the caller); a copy unless the class knows better.
    virtual Property* CopyToInstance() const;

    // Calls the visitor's operation for the property's class.
    virtual void Accept(PropVisitor& visitor) = 0;
    virtual void Accept(ConstPropVisitor& visitor) const = 0;

    // How closely `other` agrees with this property (see PropMatch).
    virtual PropMatch MatchProp(const Property& other) const;
    // Makes this property a copy of `other`: name and flags, and the value state when `other`
    // is of a class this one can copy from (else its value text through ChangeValue).
    virtual void CopyProp(const Property& other);
    // A user edit that takes `other`'s value (checked through ChangeValue) and sets the flags
    // to `flags`; false, nothing changed, when the value is refused.
    virtual bool ChangeProp(const Property& other, const PropFlags& flags);

    // Script exchange. The framework's arguments: "Name" (text) when `change` holds kName or
    // kAll, "Flags" (int, the flags as bits) when it holds kFlags or kAll; the property
    // classes add their value. Assigning takes the arguments present, adds the kinds of what
    // it changed to `change`, and answers false when a present argument was refused.
    virtual void GetScriptArguments(IScriptArgInfo& args, const PropChange& change) const;
    virtual bool AssignFromScriptArguments(const IScriptArgInfo& args, PropChange& change);

    // Block form. Write appends the property's values to `block`, the property's own block
    // (PropList::Write makes one "Prop" sub-block per property); Read takes them back from the
    // start of such a block, reconnecting clients through `factory` (may be null). Every class
    // reads back exactly what it wrote; a block that lacks an item or holds one of the wrong
    // kind gives io::kReadFailed and leaves the property as it was. The framework's part comes
    // first: the name (text) and the flags (integer, as bits); by default the value text
    // follows.
    //   Prop { "Label" 0 "R1" }
    virtual bool Write(io::CBlock_func& block) const;
    virtual io::ReadError Read(const io::CBlock_func& block, IPropClientFactory* factory);
    // The neutral form, which any property can read whatever its class: the name, the type
    // code, the flags, and then the value text. ReadNeutral takes the name, the flags and the
    // value text (through ChangeValue; a refusal fails the read); items after them are left.
    //   Prop { "C" 2 0 "2.2n" }
    virtual bool WriteNeutral(io::CBlock_func& block) const;
    virtual io::ReadError ReadNeutral(const io::CBlock_func& block);

    // Tells the property that an edit (`command`, may be null) updated it on `server`; by
    // default the property reports itself to the command.
    virtual void NotifyUpdate(IMerrowCommand* command, const IPropServer* server,
                              const PropFlags& flags) const;

    // The list that owns the property; null when it is in none.
    PropList* GetPropList() const { return mOwner; }

protected:
    // The framework's part of the block form: appends the name and the flags.
    bool InternalWriteProp(io::CBlock_func& block) const;
    // Appends the name, the type code and the flags.
    bool InternalWriteNeutralProp(io::CBlock_func& block) const;
    // Reads the framework's part from the start of `block` into the property (the read
    // position is left after it); io::kReadFailed, nothing changed, when an item is missing.
    io::ReadError InternalReadProp(const io::CBlock_func& block);
    // The same without changing the property: the name and the flags read into the outputs.
    static io::ReadError ReadPropHeader(const io::CBlock_func& block, AString& name,
                                        PropFlags& flags);
    // The neutral form's first four items: name, type code, flags and value text into the
    // outputs; io::kReadFailed, outputs unchanged, when one is missing.
    static io::ReadError ReadNeutralPropHeader(const io::CBlock_func& block, AString& name,
                                               int& type, PropFlags& flags, AString& value);
    // Sets name and flags as read (no checks).
    void SetReadHeader(AString name, const PropFlags& flags);
    // Takes a "Value" script argument: a string through ChangeValue(text) unless it equals the
    // value text, a number through ChangeValue(number); adds PropChange::kValue when the value
    // changed. False when the argument is refused or of another kind; true when absent.
    bool AssignValueArgument(const IScriptArgInfo& args, PropChange& change);
    // Gives `value` as the "Value" script argument when `change` includes the value.
    static void PutValueArgument(IScriptArgInfo& args, const PropChange& change,
                                 const AString& value);
    // Takes a string "Value" script argument into `text`, adding PropChange::kValue when it
    // differs. False when the argument is of another kind; true when absent.
    static bool AssignTextArgument(const IScriptArgInfo& args, AString& text, PropChange& change);

    Property() = default;
    Property(AString name, const PropFlags& flags);
    // Copies name and flags; the copy belongs to no list.
    Property(const Property& other);
    Property& operator=(const Property& other);

private:
    friend class PropList;

    AString mName;
    PropFlags mFlags;
    PropList* mOwner = nullptr;
};
