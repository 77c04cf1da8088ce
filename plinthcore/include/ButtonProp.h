// ButtonProp: a property shown as a button. Pressing it runs its client (IButtonPropClient),
// a host object found by its client identifier; the property keeps the identifier so that a
// host can reconnect the client after reading (IPropClientFactory). Its text is the label.
//   ButtonProp* b = ButtonProp::CreateButtonProp();
//   b->SetIButtonPropClient(factory->GetButtonPropClient(1));  b->SetButtonPropClientID(1);
#pragma once

#include "AString.h"
#include "Id.h"
#include "PlinthExport.h"
#include "Property.h"

class IButtonPropClient;
class IPropClientFactory;

class PLINTH_API ButtonProp : public Property
{
public:
    ButtonProp() = default;
    ButtonProp(const AString& name, const PropFlags& flags);
    ButtonProp(const ButtonProp& other) = default;
    ButtonProp& operator=(const ButtonProp& other) = default;
    ~ButtonProp() override;

    // A new button (owned by the caller): no name, no client, client id id::invalidID.
    static ButtonProp* CreateButtonProp();

    void SetButtonPropClientID(int clientID) { mClientID = clientID; }
    int GetButtonPropClientID() const { return mClientID; }
    // The client (not owned); null when none is connected.
    void SetIButtonPropClient(IButtonPropClient* client) { mClient = client; }
    IButtonPropClient* GetIButtonPropClient() const { return mClient; }
    // Connects the client of the property's client id from `factory`; false when the factory
    // is null or has no such client (the client is then null).
    bool ConnectClient(const IPropClientFactory* factory);
    // Runs the client; false without a client or when the client changed nothing.
    bool Press();

    const AString& GetLabel() const { return mLabel; }
    void SetLabel(const AString& label) { mLabel = label; }

    // kButtonPropType; a button also stands for kActionButtonPropType.
    int GetPropType() const override { return kButtonPropType; }
    bool MatchPropType(int type) const override;
    AString PropertyValue() const override { return mLabel; }
    using Property::ChangeValue;
    // Sets the label.
    bool ChangeValue(const AString& text) override;
    // A button takes no number.
    bool ChangeValue(const double& value) override;

    Property* CloneProp() const override;
    void Accept(PropVisitor& visitor) override;
    void Accept(ConstPropVisitor& visitor) const override;
    // Adds "Value" (the label) when `change` asks for the value.
    void GetScriptArguments(IScriptArgInfo& args, const PropChange& change) const override;
    bool AssignFromScriptArguments(const IScriptArgInfo& args, PropChange& change) override;

    // Block form: the framework's part, the label and the client identifier. Reading
    // reconnects the client through `factory` when one is given.
    //   Prop { "CompDlg" 0 "Edit..." 1 }
    bool Write(io::CBlock_func& block) const override;
    io::ReadError Read(const io::CBlock_func& block, IPropClientFactory* factory) override;

private:
    AString mLabel;
    int mClientID = id::invalidID;
    IButtonPropClient* mClient = nullptr;
};
