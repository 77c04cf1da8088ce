#include "ButtonProp.h"

#include "IButtonPropClient.h"
#include "IPropClientFactory.h"
#include "IScriptArgInfo.h"
#include "PropVisitor.h"

ButtonProp::ButtonProp(const AString& name, const PropFlags& flags) : Property(name, flags) {}

ButtonProp::~ButtonProp() = default;

ButtonProp* ButtonProp::CreateButtonProp()
{
    return new ButtonProp();
}

bool ButtonProp::ConnectClient(const IPropClientFactory* factory)
{
    mClient = factory != nullptr ? factory->GetButtonPropClient(mClientID) : nullptr;
    return mClient != nullptr;
}

bool ButtonProp::Press()
{
    return mClient != nullptr && mClient->ButtonPressed(*this);
}

bool ButtonProp::MatchPropType(int type) const
{
    return type == kButtonPropType || type == kActionButtonPropType;
}

bool ButtonProp::ChangeValue(const AString& text)
{
    mLabel = text;
    return true;
}

bool ButtonProp::ChangeValue(const double& /*value*/)
{
    return false;
}

Property* ButtonProp::CloneProp() const
{
    return new ButtonProp(*this);
}

void ButtonProp::Accept(PropVisitor& visitor)
{
    visitor.VisitButtonProp(*this);
}

void ButtonProp::Accept(ConstPropVisitor& visitor) const
{
    visitor.VisitButtonProp(*this);
}

bool ButtonProp::Write(io::CBlock_func& block) const
{
    InternalWriteProp(block);
    block.AddValue(mLabel);
    block.AddValue(mClientID);
    return true;
}

io::ReadError ButtonProp::Read(const io::CBlock_func& block, IPropClientFactory* factory)
{
    AString name;
    PropFlags flags;
    AString label;
    int clientID = 0;
    if (ReadPropHeader(block, name, flags) != io::kNoError || !block.ReadValue(label) ||
        !block.ReadValue(clientID))
    {
        return io::kReadFailed;
    }
    SetReadHeader(std::move(name), flags);
    mLabel = std::move(label);
    mClientID = clientID;
    if (factory != nullptr)
    {
        ConnectClient(factory);
    }
    return io::kNoError;
}

void ButtonProp::GetScriptArguments(IScriptArgInfo& args, const PropChange& change) const
{
    Property::GetScriptArguments(args, change);
    PutValueArgument(args, change, mLabel);
}

bool ButtonProp::AssignFromScriptArguments(const IScriptArgInfo& args, PropChange& change)
{
    const bool ok = Property::AssignFromScriptArguments(args, change);
    return AssignTextArgument(args, mLabel, change) && ok;
}
