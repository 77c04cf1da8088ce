#include "PropList.h"

#include "Assert.h"
#include "IPropertyFactory.h"
#include "Msg.h"
#include "OptiVariable.h"
#include "PropVisitor.h"
#include "Property.h"
#include "Variable.h"

#include <algorithm>

namespace
{
constexpr int kMaxScopeDepth = 64;
} // namespace

PropList::PropList(const PropList& other) : IVariableScope(other), IReceiver(other)
{
    *this = other;
}

PropList& PropList::operator=(const PropList& other)
{
    if (this == &other)
    {
        return *this;
    }
    std::vector<std::unique_ptr<Property>> copies;
    copies.reserve(other.mProps.size());
    for (const auto& prop : other.mProps)
    {
        copies.emplace_back(prop->CloneProp());
        copies.back()->mOwner = this;
    }
    Clear();
    mProps = std::move(copies);
    mParent = other.mParent;
    return *this;
}

PropList::~PropList()
{
    Clear();
}

Property* PropList::GetProp(std::size_t index) const
{
    return index < mProps.size() ? mProps[index].get() : nullptr;
}

std::vector<Property*> PropList::GetProps() const
{
    std::vector<Property*> props;
    props.reserve(mProps.size());
    for (const auto& prop : mProps)
    {
        props.push_back(prop.get());
    }
    return props;
}

Property* PropList::FindProp(const AString& name) const
{
    const int index = FindPropIndex(name);
    return index < 0 ? nullptr : mProps[static_cast<std::size_t>(index)].get();
}

int PropList::FindPropIndex(const AString& name) const
{
    for (std::size_t i = 0; i < mProps.size(); ++i)
    {
        if (mProps[i]->PropertyName().CompareNoCase(name) == 0)
        {
            return static_cast<int>(i);
        }
    }
    return -1;
}

bool PropList::AddProp(Property* prop)
{
    return InsertProp(mProps.size(), prop);
}

bool PropList::InsertProp(std::size_t index, Property* prop)
{
    if (prop == nullptr || !PLINTH_ASSERT(prop->GetPropList() == nullptr))
    {
        return false;
    }
    index = std::min(index, mProps.size());
    mProps.insert(mProps.begin() + static_cast<std::ptrdiff_t>(index),
                  std::unique_ptr<Property>(prop));
    prop->mOwner = this;
    return true;
}

bool PropList::RemoveProp(Property* prop)
{
    std::unique_ptr<Property> detached(DetachProp(prop));
    return detached != nullptr;
}

bool PropList::RemoveProp(const AString& name)
{
    return RemoveProp(FindProp(name));
}

Property* PropList::DetachProp(Property* prop)
{
    const auto found = std::find_if(mProps.begin(), mProps.end(),
                                    [prop](const auto& owned) { return owned.get() == prop; });
    if (prop == nullptr || found == mProps.end())
    {
        return nullptr;
    }
    Property* detached = found->release();
    mProps.erase(found);
    detached->mOwner = nullptr;
    return detached;
}

void PropList::Clear()
{
    // Take the properties out first: a property that ends may still look at its list.
    std::vector<std::unique_ptr<Property>> props = std::move(mProps);
    mProps.clear();
    for (auto& prop : props)
    {
        prop->mOwner = nullptr;
    }
}

bool PropList::Write(io::CBlock_func& block) const
{
    for (const auto& prop : mProps)
    {
        io::CBlock_func& sub = block.AddBlock(L"Prop");
        sub.AddNamedValue(L"Type", prop->GetPropType());
        if (!prop->Write(sub))
        {
            return false;
        }
    }
    return true;
}

io::ReadError PropList::Read(const io::CBlock_func& block, const IPropertyFactory& factory,
                             IPropClientFactory* clients)
{
    std::vector<std::unique_ptr<Property>> props;
    for (io::CBlock_item item : block.Items())
    {
        if (!item.HasName(L"Prop") || !item.IsBlock())
        {
            return io::kReadFailed;
        }
        const io::CBlock_func& sub = *item.GetBlock();
        int type = 0;
        if (!sub.GetNamedValue(L"Type", type))
        {
            return io::kReadFailed;
        }
        std::unique_ptr<Property> prop(factory.CreateProperty(type));
        if (prop == nullptr)
        {
            return io::kReadFailed;
        }
        const io::ReadError error = prop->Read(sub, clients);
        if (error == io::kDeleteObject)
        {
            continue;
        }
        if (error != io::kNoError)
        {
            return io::kReadFailed;
        }
        props.push_back(std::move(prop));
    }
    Clear();
    mProps = std::move(props);
    for (auto& prop : mProps)
    {
        prop->mOwner = this;
    }
    return io::kNoError;
}

void PropList::Accept(PropVisitor& visitor)
{
    for (Property* prop : GetProps())
    {
        prop->Accept(visitor);
    }
}

void PropList::Accept(ConstPropVisitor& visitor) const
{
    for (const Property* prop : GetProps())
    {
        prop->Accept(visitor);
    }
}

const Variable* PropList::FindVariable(std::wstring_view name) const
{
    for (const auto& prop : mProps)
    {
        if (const auto* optiVariable = dynamic_cast<const OptiVariable*>(prop.get()))
        {
            const Variable* variable = optiVariable->GetVariable();
            if (variable != nullptr && AString::EqualNoCase(variable->GetName(), name))
            {
                return variable;
            }
        }
    }
    // Parent chains that loop back end the search instead of the stack.
    static int depth = 0;
    if (mParent == nullptr || depth >= kMaxScopeDepth)
    {
        return nullptr;
    }
    ++depth;
    const Variable* found = mParent->FindVariable(name);
    --depth;
    return found;
}

void PropList::ReceiveMsg(Msg& msg)
{
    if (msg.MarkVisited(this))
    {
        msg.Forward(*this);
    }
}

void PropList::GetMsgTargets(std::vector<IReceiver*>& targets) const
{
    for (const auto& prop : mProps)
    {
        if (auto* receiver = dynamic_cast<IReceiver*>(prop.get()))
        {
            targets.push_back(receiver);
        }
    }
}

void PropList::SendMsg(Msg& msg)
{
    msg.Send(this);
}
