#include "TextProp.h"

#include "IScriptArgInfo.h"
#include "PropVisitor.h"

TextProp::TextProp(const AString& name, const AString& text, const PropFlags& flags)
    : Property(name, flags), mText(text)
{
}

TextProp::~TextProp() = default;

bool TextProp::ChangeValue(const AString& text)
{
    mText = text;
    return true;
}

Property* TextProp::CloneProp() const
{
    return new TextProp(*this);
}

void TextProp::Accept(PropVisitor& visitor)
{
    visitor.VisitTextProp(*this);
}

void TextProp::Accept(ConstPropVisitor& visitor) const
{
    visitor.VisitTextProp(*this);
}

void TextProp::GetScriptArguments(IScriptArgInfo& args, const PropChange& change) const
{
    Property::GetScriptArguments(args, change);
    PutValueArgument(args, change, mText);
}

bool TextProp::AssignFromScriptArguments(const IScriptArgInfo& args, PropChange& change)
{
    const bool ok = Property::AssignFromScriptArguments(args, change);
    return AssignTextArgument(args, mText, change) && ok;
}
