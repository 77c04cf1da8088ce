// TextProp: a property whose value is free text (a label, a description, a file name).
#pragma once

#include "AString.h"
#include "PlinthExport.h"
#include "Property.h"

class PLINTH_API TextProp : public Property
{
public:
    TextProp() = default;
    TextProp(const AString& name, const AString& text, const PropFlags& flags);
    TextProp(const TextProp& other) = default;
    TextProp& operator=(const TextProp& other) = default;
    ~TextProp() override;

    const AString& GetText() const { return mText; }
    void SetText(const AString& text) { mText = text; }

    int GetPropType() const override { return kTextPropType; }
    AString PropertyValue() const override { return mText; }
    using Property::ChangeValue;
    // Any text is taken as it is.
    bool ChangeValue(const AString& text) override;

    Property* CloneProp() const override;
    void Accept(PropVisitor& visitor) override;
    void Accept(ConstPropVisitor& visitor) const override;
    // Adds "Value" (the text) when `change` asks for the value.
    void GetScriptArguments(IScriptArgInfo& args, const PropChange& change) const override;
    bool AssignFromScriptArguments(const IScriptArgInfo& args, PropChange& change) override;

private:
    AString mText;
};
