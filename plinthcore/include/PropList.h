// PropList: an ordered list of properties that owns them. Names may repeat; look-ups by name
// ignore case and answer the first match. The list is also a variable scope (the variables of
// its variable properties, then its parent scope), so that a parameter's expression can use
// the other parameters of its component, and a receiver that hands messages on to its
// properties.
//   list.AddProp(new TextProp(L"Label", L"R1", {}));  list.FindProp(L"label") => that property
#pragma once

#include "AString.h"
#include "Block.h"
#include "IReceiver.h"
#include "PlinthExport.h"
#include "Property.h"
#include "VariableScope.h"

#include <cstddef>
#include <memory>
#include <vector>

class ConstPropVisitor;
class IPropClientFactory;
class IPropertyFactory;
class Msg;
class PropVisitor;

class PLINTH_API PropList : public IVariableScope, public IReceiver
{
public:
    PropList() = default;
    // Copies hold copies of the properties (CloneProp) and the same parent scope.
    PropList(const PropList& other);
    PropList& operator=(const PropList& other);
    ~PropList() override;

    std::size_t GetCount() const { return mProps.size(); }
    bool IsEmpty() const { return mProps.empty(); }
    // The property at `index`; null past the end.
    Property* GetProp(std::size_t index) const;
    // The properties in order.
    std::vector<Property*> GetProps() const;
    // The first property called `name`, ignoring case; null when none.
    Property* FindProp(const AString& name) const;
    // Its index, or -1.
    int FindPropIndex(const AString& name) const;

    // Takes `prop` over and appends it (inserts it before `index`; at the end past it).
    // False, the caller keeping `prop`, for a null property or one in a list already
    // (assertion "prop->GetPropList() == nullptr").
    bool AddProp(Property* prop);
    bool InsertProp(std::size_t index, Property* prop);
    // Deletes the property; false when it is not in this list.
    bool RemoveProp(Property* prop);
    // Deletes the first property called `name`; false when none.
    bool RemoveProp(const AString& name);
    // Hands `prop` back to the caller; null when it is not in this list.
    Property* DetachProp(Property* prop);
    void Clear();

    // Block form: one sub-block "Prop" per property, in order, holding its type code as the
    // named value "Type" and then what the property writes (Property::Write).
    //   Params { Prop { Type=2 "C" 0 "2.2n" 1002 } Prop { Type=4 "Label" 0 "C1" } }
    bool Write(io::CBlock_func& block) const;
    // Reads such a block: each property is made by `factory` from its type and reads itself
    // (clients through `clients`, may be null); a property whose read answers
    // io::kDeleteObject is left out. Any other failure (an item that is no "Prop" block, a
    // missing or unknown type, a property that cannot read its block) gives io::kReadFailed
    // and leaves the list as it was. On success the list holds exactly the properties read.
    io::ReadError Read(const io::CBlock_func& block, const IPropertyFactory& factory,
                       IPropClientFactory* clients);

    // Visits every property in order.
    void Accept(PropVisitor& visitor);
    void Accept(ConstPropVisitor& visitor) const;

    // The variable of the first variable property whose variable is called `name`, then the
    // parent scope's answer (parents are followed 64 levels deep at most).
    const Variable* FindVariable(std::wstring_view name) const override;
    void SetParentScope(const IVariableScope* parent) { mParent = parent; }
    const IVariableScope* GetParentScope() const { return mParent; }

    // Messages go on to the properties that receive messages.
    void ReceiveMsg(Msg& msg) override;
    void GetMsgTargets(std::vector<IReceiver*>& targets) const override;
    // Sends `msg` through the list and its properties.
    void SendMsg(Msg& msg);

private:
    std::vector<std::unique_ptr<Property>> mProps;
    const IVariableScope* mParent = nullptr;
};
