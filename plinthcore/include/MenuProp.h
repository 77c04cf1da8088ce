// MenuProp: a property whose value is one of a list of choices, as a drop-down menu shows it.
// The choices are given as one text, separated by commas (blanks around each are dropped,
// empty pieces too); the current choice is an index.
//   MenuProp m(L"Model", {}, L"Low, High", 0);  m.PropertyValue() => "Low"
//   m.ChangeValue(L"high") => true, "High";  m.ChangeValue(L"\"LOW\"") => true, "Low"
//   m.ChangeValue(L"Mid")  => false
#pragma once

#include "AString.h"
#include "PlinthExport.h"
#include "Property.h"

#include <vector>

class PLINTH_API MenuProp : public Property
{
public:
    MenuProp() = default;
    MenuProp(const AString& name, const PropFlags& flags);
    MenuProp(const AString& name, const PropFlags& flags, const AString& choices,
             unsigned int current);
    MenuProp(const MenuProp& other) = default;
    MenuProp& operator=(const MenuProp& other) = default;
    ~MenuProp() override;

    // Splits a comma-separated choice text: "a, b,,c" => {"a", "b", "c"}.
    static std::vector<AString> SplitChoices(const AString& choices);
    // Joins choices with commas.
    static AString JoinChoices(const std::vector<AString>& choices);

    const std::vector<AString>& GetChoices() const { return mChoices; }
    // Replaces the choices; the current choice stays when the new list has it (ignoring
    // case), else the first becomes current.
    void SetChoices(const std::vector<AString>& choices);
    // The index of the current choice (0 when there are no choices).
    unsigned int GetCurrentIndex() const { return mCurrent; }
    // Selects the choice at `index`; false, nothing changed, past the end.
    bool SetCurrentIndex(unsigned int index);
    // The current choice; "" when there are no choices.
    AString GetCurrentChoice() const;
    // The index of the choice equal to `text` ignoring case (blanks around it ignored), else
    // of the one equal to the content of a quoted `text`; -1 when none is.
    int FindChoice(const AString& text) const;

    int GetPropType() const override { return kMenuPropType; }
    AString PropertyValue() const override { return GetCurrentChoice(); }
    using Property::ChangeValue;
    // Selects the choice named by `text` (FindChoice); false, nothing changed, when none is.
    bool ChangeValue(const AString& text) override;
    // Selects the choice at a whole, non-negative index; false otherwise.
    bool ChangeValue(const double& value) override;

    Property* CloneProp() const override;
    void Accept(PropVisitor& visitor) override;
    void Accept(ConstPropVisitor& visitor) const override;
    // From another menu: its choices and current index.
    void CopyProp(const Property& other) override;
    // Adds "Value" (the current choice) when `change` asks for the value and "Choices" (the
    // joined choices) when it holds kChoices or kAll.
    void GetScriptArguments(IScriptArgInfo& args, const PropChange& change) const override;
    // Takes "Choices" first, then "Value" (a choice text or an index).
    bool AssignFromScriptArguments(const IScriptArgInfo& args, PropChange& change) override;

    // Block form: the framework's part, the current index, and the choices as the values of a
    // sub-block "Choices" (so that any choice text reads back exactly).
    //   Prop { "Model" 0 1 Choices { "Low" "High" } }
    bool Write(io::CBlock_func& block) const override;
    // A missing "Choices" block or an index past the choices fails the read.
    io::ReadError Read(const io::CBlock_func& block, IPropClientFactory* factory) override;
    // The neutral form, followed by the "Choices" sub-block, so that a menu reads it back;
    // other properties take the current choice as their text.
    bool WriteNeutral(io::CBlock_func& block) const override;
    // Takes the choices when the block has them, then selects the choice named by the text;
    // a text that names none fails the read.
    io::ReadError ReadNeutral(const io::CBlock_func& block) override;

private:
    std::vector<AString> mChoices;
    unsigned int mCurrent = 0;
};
