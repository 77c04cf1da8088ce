#include "TerminalManager.h"

#include "Assert.h"
#include "ICircuitDefinitionMgr.h"
#include "ICircuitMgr.h"
#include "IComponentOwner.h"
#include "IDefinitionMgr.h"
#include "IPropServer.h"
#include "Message.h"
#include "MessageManager.h"
#include "PinNameIndex.h"
#include "PinNameSet.h"
#include "Profiler.h"
#include "PropAttributes.h"
#include "PropList.h"
#include "Property.h"
#include "QLNParvaneUtils.h"
#include "TerminalIndex.h"

#include <algorithm>
#include <unordered_set>

using qln::connectivity::PinNameIndex;
using qln::connectivity::PinNameSet;
using qln::connectivity::TerminalIndex;

namespace
{
// Message 61544: a project item of the wrong kind, an error of the project-data group.
constexpr int kWrongItemKindMessage = 61544;
constexpr MessageRecord kWrongItemKindRecord = {MessageSeverity::kError, 1, 1012, 6};

// Posts `message` through the circuit manager of the component's definition, or straight to
// the framework's message manager when the component has none.
void PostForComponent(const IComponent& comp, const Message& message)
{
    auto* circuitDefinitionMgr = InterfaceQuery<ICircuitDefinitionMgr>(comp.GetDefinitionMgr());
    const ICircuitMgr* circuitMgr =
        circuitDefinitionMgr != nullptr ? circuitDefinitionMgr->GetCircuitMgr() : nullptr;
    if (circuitMgr != nullptr)
    {
        circuitMgr->PostUserMessage(message);
    }
    else
    {
        GetGlobalIMessageManager()->Post(message);
    }
}
} // namespace

TerminalManager::TerminalManager()
    : mSchPinNames(std::make_unique<PinNameSet>()), mLayPinNames(std::make_unique<PinNameSet>()),
      mIndex(std::make_unique<TerminalIndex>())
{
}

TerminalManager::~TerminalManager()
{
    clear();
}

void TerminalManager::Changed() const
{
    mIndex->Invalidate();
}

const TerminalIndex& TerminalManager::Index() const
{
    mIndex->Update(mTerminals, mNameEdits);
    return *mIndex;
}

void TerminalManager::Append(Terminal* term)
{
    term->SetNameEditCounter(&mNameEdits);
    mTerminals.push_back(term);
    mSchPinNames->Insert(term->GetSchPinName());
    mLayPinNames->Insert(term->GetLayPinName());
    mIndex->Append(mTerminals, mNameEdits);
}

void TerminalManager::Discard(Terminal* term)
{
    mSchPinNames->Erase(term->GetSchPinName());
    mLayPinNames->Erase(term->GetLayPinName());
    delete term;
}

void TerminalManager::clear()
{
    for (Terminal* term : mTerminals)
    {
        delete term;
    }
    mTerminals.clear();
    mSchPinNames->Clear();
    mLayPinNames->Clear();
    Changed();
}

bool TerminalManager::operator==(const TerminalManager& other) const
{
    if (mTerminals.size() != other.mTerminals.size())
    {
        return false;
    }
    for (std::size_t i = 0; i < mTerminals.size(); ++i)
    {
        if (!(*mTerminals[i] == *other.mTerminals[i]))
        {
            return false;
        }
    }
    return true;
}

Terminal* TerminalManager::GetTerminal(std::size_t index) const
{
    return index < mTerminals.size() ? mTerminals[index] : nullptr;
}

Terminal* TerminalManager::GetTerminalFromSchPinName(const AString& pinName,
                                                     const AString& gate) const
{
    // The slot is fetched before the index is checked for being current, so that the memory
    // access overlaps the check.
    const PinNameIndex::Key key = PinNameIndex::MakeKey(pinName);
    mIndex->SchPinNames().Prefetch(key);
    const int position = Index().SchPinNames().FindFirst(
        pinName, key,
        [&](int i)
        { return AString::EqualNoCase(mTerminals[static_cast<std::size_t>(i)]->GetGate(), gate); });
    return position >= 0 ? mTerminals[static_cast<std::size_t>(position)] : nullptr;
}

Terminal* TerminalManager::GetTerminalFromLayPinName(const AString& pinName) const
{
    const PinNameIndex::Key key = PinNameIndex::MakeKey(pinName);
    mIndex->LayPinNames().Prefetch(key);
    const int position = Index().LayPinNames().FindFirst(pinName, key, [](int) { return true; });
    return position >= 0 ? mTerminals[static_cast<std::size_t>(position)] : nullptr;
}

Terminal* TerminalManager::GetTerminalFromTerminalName(const AString& name) const
{
    const int position = Index().FindTerminalName(name);
    return position >= 0 ? mTerminals[static_cast<std::size_t>(position)] : nullptr;
}

int TerminalManager::GetTerminalIndex(const Terminal* term) const
{
    if (term == nullptr)
    {
        return -1;
    }
    if (term->GetSchPinName().empty() && term->GetLayPinName().empty())
    {
        return term->GetEquivNumber();
    }
    return Index().FindPosition(term);
}

void TerminalManager::GetTerminals(std::set<Terminal*>& terminals) const
{
    terminals.insert(mTerminals.begin(), mTerminals.end());
}

void TerminalManager::DeepCopy(const TerminalManager& other, IComponent* parent)
{
    if (&other == this)
    {
        for (Terminal* term : mTerminals)
        {
            term->SetParent(parent);
        }
        return;
    }
    clear();
    mTerminals.reserve(other.mTerminals.size());
    for (const Terminal* source : other.mTerminals)
    {
        auto* copy = new Terminal(*source);
        copy->SetParent(parent);
        copy->SetNameEditCounter(&mNameEdits);
        mTerminals.push_back(copy);
    }
    *mSchPinNames = *other.mSchPinNames;
    *mLayPinNames = *other.mLayPinNames;
    Changed();
}

void TerminalManager::SetAndClear(std::vector<Terminal*>& terminals)
{
    const std::unordered_set<const Terminal*> kept(terminals.begin(), terminals.end());
    for (Terminal* term : mTerminals)
    {
        if (kept.count(term) == 0)
        {
            delete term;
        }
    }
    mTerminals.clear();
    mSchPinNames->Clear();
    mLayPinNames->Clear();
    Changed();
    std::unordered_set<const Terminal*> taken;
    for (Terminal* term : terminals)
    {
        if (term != nullptr && taken.insert(term).second)
        {
            Append(term);
        }
    }
    terminals.clear();
}

IComponent::AddTerminalReturn TerminalManager::AddTerminal(IComponent* comp, Terminal* term)
{
    PLINTH_PROFILE_SCOPE("TerminalManager_AddTerminal");
    if (!PLINTH_ASSERT(comp && term))
    {
        return IComponent::kTerminalNotAdded;
    }
    const AString& schPinName = term->GetSchPinName();
    if (!schPinName.empty() && mSchPinNames->Contains(schPinName))
    {
        return IComponent::kSymbolPinNameTaken;
    }
    const AString& layPinName = term->GetLayPinName();
    if (!layPinName.empty() && mLayPinNames->Contains(layPinName))
    {
        return IComponent::kFootprintPinNameTaken;
    }
    term->SetParent(comp);
    Append(term);
    return IComponent::kTerminalAdded;
}

IComponent::AddTerminalReturn
TerminalManager::AddTerminal(IComponent* comp, const AString& schPinName, const AString& layPinName,
                             const AString& gate, bool shared, const TerminalAttributes& attrs,
                             AString* error)
{
    PLINTH_ASSERT(comp);
    PLINTH_ASSERT(!gate.empty());
    if (attrs.mDomain != merrowenum::kConservative)
    {
        return IComponent::kTerminalAdded;
    }
    if (comp == nullptr)
    {
        if (error != nullptr)
        {
            *error = L"Terminal error";
        }
        return IComponent::kTerminalNotAdded;
    }
    auto* term = new Terminal(comp, schPinName, layPinName, gate.empty() ? AString(L"A") : gate);
    term->SetShared(shared);
    term->SetTerminalAttrs(attrs);
    const IComponentOwner* owner = comp->GetOwner();
    term->SetUnconnectedAction(owner != nullptr && owner->GetUnconnectedTerminalCheck() == 0
                                   ? Terminal::kUniqueNet
                                   : Terminal::kFlagAsError);
    const IComponent::AddTerminalReturn result = AddTerminal(comp, term);
    if (result == IComponent::kTerminalAdded)
    {
        return result;
    }
    if (error != nullptr)
    {
        switch (result)
        {
        case IComponent::kSymbolPinNameTaken:
            error->Format(L"Symbol pin name '%s' already is a terminal for component %s",
                          schPinName, comp->GetName());
            break;
        case IComponent::kFootprintPinNameTaken:
            error->Format(L"Footprint pin name '%s' already is a terminal for component %s",
                          layPinName, comp->GetName());
            break;
        default:
            *error = L"Terminal error";
            break;
        }
    }
    delete term;
    return result;
}

void TerminalManager::RemoveTerminal(unsigned int index)
{
    if (index >= mTerminals.size())
    {
        return;
    }
    Discard(mTerminals[index]);
    mTerminals.erase(mTerminals.begin() + index);
    Changed();
}

void TerminalManager::RemoveTerminal(Terminal* term)
{
    if (term == nullptr)
    {
        return;
    }
    const int position = Index().FindPosition(term);
    if (position >= 0)
    {
        RemoveTerminal(static_cast<unsigned int>(position));
    }
}

io::ReadError TerminalManager::Read(const io::CBlock& block, IComponent& comp)
{
    Terminal::ResetEquivNumber();
    clear();
    const auto items = block.Items();
    const std::size_t count = static_cast<std::size_t>(std::count_if(
        items.begin(), items.end(),
        [](const io::CBlock_item& item) { return item.HasName(std::string_view("Terminal")); }));
    mTerminals.reserve(count);
    mSchPinNames->Reserve(count);
    mLayPinNames->Reserve(count);
    io::ReadError ret = io::kNoError;
    for (const io::CBlock_item item : block.Items())
    {
        if (!item.HasName(std::string_view("Terminal")))
        {
            continue;
        }
        io::CBlock_func* termBlock = item.GetBlock();
        if (termBlock == nullptr)
        {
            PostForComponent(
                comp, Message(kWrongItemKindMessage, kWrongItemKindRecord).AddParams(L"Terminal"));
            PLINTH_ASSERT(0);
            return io::kReadFailed;
        }
        auto* term = new Terminal(&comp);
        ret = term->Read(*termBlock);
        if (ret != io::kNoError)
        {
            delete term;
            PLINTH_ASSERT(ret != io::kDeleteObject);
            return io::kReadFailed;
        }
        Append(term);
    }
    return ret;
}

bool TerminalManager::Write(io::CBlock& block) const
{
    for (const Terminal* term : mTerminals)
    {
        if (!term->Write(block))
        {
            return false;
        }
    }
    return true;
}

bool TerminalManager::WriteInNeutralFormat(io::CBlock& block) const
{
    for (const Terminal* term : mTerminals)
    {
        if (!term->WriteNeutral(block))
        {
            return false;
        }
    }
    return true;
}

void TerminalManager::SetNumberOfTerminals(int count, IComponent& comp)
{
    const long long current = static_cast<long long>(mTerminals.size());
    const long long diff = static_cast<long long>(count) - current;
    const long long rounds = diff < 0 ? -diff : diff;
    for (long long k = 0; k < rounds; ++k)
    {
        if (diff < 0)
        {
            const long long position = current - k - 1;
            Terminal* term = position >= 0 && position < static_cast<long long>(mTerminals.size())
                                 ? mTerminals[static_cast<std::size_t>(position)]
                                 : nullptr;
            if (PLINTH_ASSERT(term))
            {
                RemoveTerminal(static_cast<unsigned int>(position));
            }
        }
        else
        {
            AddTerminal(&comp, AString(), AString(), AString(L"A"), false, TerminalAttributes(),
                        nullptr);
            const long long position = current + k;
            Terminal* term = position < static_cast<long long>(mTerminals.size())
                                 ? mTerminals[static_cast<std::size_t>(position)]
                                 : nullptr;
            if (PLINTH_ASSERT(term))
            {
                term->SetEquivNumber(static_cast<int>(position));
            }
        }
    }
}

void TerminalManager::SetTerminalNames(const std::vector<AString>& names)
{
    PLINTH_ASSERT(names.size() == mTerminals.size());
    const std::size_t count = std::min(names.size(), mTerminals.size());
    for (std::size_t i = 0; i < count; ++i)
    {
        mTerminals[i]->SetTerminalName(names[i]);
    }
}

bool TerminalManager::GetTerminalNames(std::vector<AString>& names) const
{
    bool anyNamed = false;
    for (const Terminal* term : mTerminals)
    {
        names.push_back(term->GetTerminalName());
        anyNamed = anyNamed || !term->GetTerminalName().empty();
    }
    if (!anyNamed)
    {
        names.clear();
    }
    return anyNamed;
}

bool TerminalManager::GetTerminalAttributes(TerminalAttributes& attrs, const AString& pinName,
                                            const AString& gate) const
{
    if (mTerminals.empty())
    {
        return false;
    }
    const IComponent* comp = mTerminals.front()->GetParent();
    PLINTH_ASSERT(comp);
    if (const Terminal* term = GetTerminalFromSchPinName(pinName, gate))
    {
        attrs = term->GetTerminalAttrs();
        return true;
    }
    // No such terminal: the component's property of that name, when it has pin attributes.
    const auto* server = dynamic_cast<const IPropServer*>(comp);
    const PropList* props = server != nullptr ? server->GetServedPropList(0) : nullptr;
    const Property* prop = props != nullptr ? props->FindProp(pinName) : nullptr;
    const auto* propAttrs = dynamic_cast<const PropAttributes*>(prop);
    if (propAttrs == nullptr)
    {
        return false;
    }
    attrs.mDomain = propAttrs->GetDomain();
    attrs.mNature = propAttrs->GetTypeForTermAttrs();
    attrs.mDirection = propAttrs->GetDirection();
    attrs.mDescription = propAttrs->GetTextFromScriptArgInfo();
    return true;
}

bool TerminalManager::MatchSignalPins(const std::vector<AString>& pinNames, const AString& gate,
                                      bool failOnUnnamed) const
{
    PinNameIndex pins;
    pins.Clear();
    pins.Reserve(pinNames.size());
    for (std::size_t i = 0; i < pinNames.size(); ++i)
    {
        pins.Add(pinNames[i], static_cast<int>(i));
    }
    std::size_t named = 0;
    for (const Terminal* term : mTerminals)
    {
        if (!term->GetShared() && !AString::EqualNoCase(term->GetGate(), gate))
        {
            continue;
        }
        const AString& schPinName = term->GetSchPinName();
        if (schPinName.empty())
        {
            if (failOnUnnamed)
            {
                return false;
            }
            continue;
        }
        if (!pins.Contains(schPinName))
        {
            return false;
        }
        ++named;
    }
    return named == pinNames.size();
}

namespace
{
// The leaves of the model terminals, in order.
std::vector<merrowstruct::DataTypeLeaf>
ModelLeaves(const std::vector<merrowstruct::TerminalData>& modelTerminals)
{
    std::vector<merrowstruct::DataTypeLeaf> leaves;
    for (const merrowstruct::TerminalData& terminal : modelTerminals)
    {
        parvaneutils::GetDataTypeInfoLeafNames(terminal.mDataTypeInfo, terminal.mName, leaves);
    }
    return leaves;
}

merrowstruct::ModelConflict TerminalConflict(AString text, AString name)
{
    merrowstruct::ModelConflict conflict;
    conflict.mText = std::move(text);
    conflict.mSeverity = merrowstruct::ModelConflict::kError;
    conflict.mComponentType = merrowstruct::ModelConflict::kTerminalType;
    conflict.mModelType = merrowstruct::ModelConflict::kTerminalType;
    conflict.mName = std::move(name);
    return conflict;
}
} // namespace

bool TerminalManager::MatchModelTerminalAttributes(
    const std::vector<merrowstruct::TerminalData>& modelTerminals,
    std::vector<merrowstruct::ModelConflict>& conflicts, bool stopAtFirst) const
{
    const std::vector<merrowstruct::DataTypeLeaf> leaves = ModelLeaves(modelTerminals);
    const std::size_t before = conflicts.size();
    if (leaves.size() != mTerminals.size())
    {
        conflicts.push_back(TerminalConflict(AString(L"Number of terminals is not the same"), {}));
        if (stopAtFirst)
        {
            return true;
        }
    }
    for (std::size_t i = 0; i < mTerminals.size(); ++i)
    {
        const Terminal* term = mTerminals[i];
        if (term == nullptr || i >= leaves.size() ||
            term->GetTerminalAttrs().mNature == leaves[i].second.mType)
        {
            continue;
        }
        conflicts.push_back(
            TerminalConflict(AString::Formatted(L"Component terminal %s(%d) has different nature",
                                                term->GetPinName(), static_cast<int>(i)),
                             term->GetPinName()));
        if (stopAtFirst)
        {
            break;
        }
    }
    return conflicts.size() > before;
}

void TerminalManager::DeleteConservativePins(std::vector<merrowstruct::TerminalData>& data)
{
    PinNameIndex named;
    named.Clear();
    named.Reserve(data.size());
    for (std::size_t i = 0; i < data.size(); ++i)
    {
        named.Add(data[i].mName, static_cast<int>(i));
    }
    std::vector<Terminal*> kept;
    for (Terminal* term : mTerminals)
    {
        if (term->GetTerminalAttrs().mDomain == merrowenum::kConservative ||
            named.Contains(term->GetSchPinName()))
        {
            Discard(term);
        }
        else
        {
            kept.push_back(term);
        }
    }
    mTerminals.swap(kept);
    Changed();
}

void TerminalManager::AddTerminals(IComponent* comp,
                                   const std::vector<merrowstruct::TerminalData>& data,
                                   std::vector<AString>* added)
{
    if (!PLINTH_ASSERT(comp))
    {
        return;
    }
    PinNameSet used;
    for (const Terminal* term : mTerminals)
    {
        used.Insert(term->GetTerminalName());
    }
    for (const auto& [name, type] : ModelLeaves(data))
    {
        if (name.empty() || mSchPinNames->Contains(name))
        {
            continue;
        }
        AString terminalName = name;
        for (int k = 0; used.Contains(terminalName); ++k)
        {
            terminalName.Format(L"%s_%d", name, k);
        }
        TerminalAttributes attrs;
        attrs.mNature = type.mType;
        if (type.mType >= 0)
        {
            attrs.mDomain = merrowenum::kSignal;
        }
        auto* term = new Terminal(comp, name, mLayPinNames->Contains(name) ? AString() : name,
                                  AString(L"A"));
        term->SetTerminalAttrs(attrs);
        term->SetTerminalName(terminalName);
        if (AddTerminal(comp, term) != IComponent::kTerminalAdded)
        {
            delete term;
            continue;
        }
        used.Insert(terminalName);
        if (added != nullptr)
        {
            added->push_back(name);
        }
    }
}

void TerminalManager::AdjustTerminals(IComponent* comp,
                                      std::vector<merrowstruct::TerminalData>& data,
                                      std::vector<AString>* added)
{
    DeleteConservativePins(data);
    AddTerminals(comp, data, added);
    // The model's terminals first, in the model's order and with its types, then the others.
    const std::vector<merrowstruct::DataTypeLeaf> leaves = ModelLeaves(data);
    const TerminalIndex& index = Index();
    std::vector<bool> placed(mTerminals.size(), false);
    std::vector<Terminal*> ordered;
    ordered.reserve(mTerminals.size());
    for (const auto& [name, type] : leaves)
    {
        const int position = index.SchPinNames().FindFirst(
            name, [&placed](int p) { return !placed[static_cast<std::size_t>(p)]; });
        if (position < 0)
        {
            continue;
        }
        placed[static_cast<std::size_t>(position)] = true;
        Terminal* term = mTerminals[static_cast<std::size_t>(position)];
        TerminalAttributes attrs = term->GetTerminalAttrs();
        attrs.mNature = type.mType;
        if (type.mType < 0)
        {
            attrs.mDomain = merrowenum::kConservative;
        }
        else if (attrs.mDomain == merrowenum::kConservative)
        {
            attrs.mDomain = merrowenum::kSignal;
        }
        term->SetTerminalAttrs(attrs);
        ordered.push_back(term);
    }
    for (std::size_t i = 0; i < mTerminals.size(); ++i)
    {
        if (!placed[i])
        {
            ordered.push_back(mTerminals[i]);
        }
    }
    mTerminals.swap(ordered);
    Changed();
}

void TerminalManager::SetPortsAndDirections(
    const std::vector<std::pair<AString, TerminalAttributes>>& ports, std::vector<AString>& added,
    IComponent* comp)
{
    for (const auto& [name, attrs] : ports)
    {
        if (attrs.mDomain != merrowenum::kConservative)
        {
            PLINTH_ASSERT(0);
            continue;
        }
        auto* term = new Terminal(comp, name, name, AString(L"A"));
        term->SetTerminalAttrs(attrs);
        if (AddTerminal(comp, term) != IComponent::kTerminalAdded)
        {
            // The list did not take it, so it is still ours.
            delete term;
        }
        added.push_back(name);
    }
}

void TerminalManager::SetLayPinNamesForMultipartComponent(
    std::vector<std::pair<AString, TerminalAttributes>>& ports)
{
    mLayPinNames->Clear();
    for (Terminal* term : mTerminals)
    {
        AString name = term->GetSchPinName();
        name += L'_';
        name += term->GetGate();
        term->SetLayPinName(name);
        mLayPinNames->Insert(name);
        ports.emplace_back(name, term->GetTerminalAttrs());
    }
}

void TerminalManager::SetLayPinNamesFromSymPinNames()
{
    for (Terminal* term : mTerminals)
    {
        if (term->GetLayPinName().empty())
        {
            term->SetLayPinName(term->GetSchPinName());
        }
    }
}

void TerminalManager::ClearAllLayPinNames()
{
    for (Terminal* term : mTerminals)
    {
        term->SetLayPinName(AString());
    }
    mLayPinNames->Clear();
}

void TerminalManager::AddRefTerminals(IComponent* comp, RefPinOption option)
{
    switch (option)
    {
    case kRefPinCommon:
        AddTerminal(comp, AString(L"ref"), AString(), AString(L"A"), false, TerminalAttributes(),
                    nullptr);
        break;
    case kRefPinPerPin:
    case kRefPinPerPinAlt:
        AddIndividualRefPins(comp);
        break;
    default:
        break;
    }
}

void TerminalManager::RemoveRefTerminals(RefPinOption option)
{
    switch (option)
    {
    case kRefPinCommon:
    {
        const Terminal* ref = mTerminals.empty() ? nullptr : mTerminals.back();
        if (PLINTH_ASSERT(ref))
        {
            RemoveTerminal(static_cast<unsigned int>(mTerminals.size() - 1));
        }
        break;
    }
    case kRefPinPerPin:
    case kRefPinPerPinAlt:
        RemoveIndividualRefPins();
        break;
    default:
        break;
    }
}

void TerminalManager::AddIndividualRefPins(IComponent* comp)
{
    // Inserting reference k at position 2k + 1 one by one puts each right behind its terminal;
    // building the new list in one pass gives the same list and numbering in linear time.
    const std::size_t count = mTerminals.size();
    std::vector<Terminal*> interleaved;
    interleaved.reserve(2 * count);
    std::vector<AString> names;
    names.reserve(count);
    for (const Terminal* term : mTerminals)
    {
        names.push_back(term->GetSchPinName() + L"_ref");
    }
    for (std::size_t k = 0; k < count; ++k)
    {
        auto* ref = new Terminal(comp, names[k], AString(), AString(L"A"));
        ref->SetNameEditCounter(&mNameEdits);
        interleaved.push_back(mTerminals[k]);
        interleaved.push_back(ref);
        mSchPinNames->Insert(names[k]);
    }
    mTerminals.swap(interleaved);
    Changed();
}

void TerminalManager::RemoveIndividualRefPins()
{
    // The terminals at positions 1, 3, 5, ... go, in one pass.
    std::vector<Terminal*> kept;
    kept.reserve(mTerminals.size() - mTerminals.size() / 2);
    for (std::size_t i = 0; i < mTerminals.size(); ++i)
    {
        if (i % 2 == 1)
        {
            Discard(mTerminals[i]);
        }
        else
        {
            kept.push_back(mTerminals[i]);
        }
    }
    mTerminals.swap(kept);
    Changed();
}

void TerminalManager::SetTerminalData(const std::vector<TerminalInfo>& terminalInfo)
{
    PLINTH_ASSERT(terminalInfo.size() == mTerminals.size());
    const std::size_t count = std::min(terminalInfo.size(), mTerminals.size());
    for (std::size_t i = 0; i < count; ++i)
    {
        Terminal* term = mTerminals[i];
        mSchPinNames->Erase(term->GetSchPinName());
        mSchPinNames->Insert(terminalInfo[i].mPinName);
        term->SetSchPinName(terminalInfo[i].mPinName);
    }
}

void TerminalManager::GetTerminalInformation(std::vector<TerminalInfo>& terminalInfo) const
{
    terminalInfo.reserve(terminalInfo.size() + mTerminals.size());
    for (const Terminal* term : mTerminals)
    {
        TerminalInfo info;
        info.mPinName = term->GetSchPinName();
        info.mLayPinName = term->GetLayPinName();
        info.mGate = term->GetGate();
        info.mTerminalName = term->GetTerminalName();
        info.mShared = term->GetShared();
        info.mEquivNumber = term->GetEquivNumber();
        info.mAttrs = term->GetTerminalAttrs();
        terminalInfo.push_back(std::move(info));
    }
}

void TerminalManager::GetTerminalLayPinNames(std::set<AString, AString::NoCaseLess>& names) const
{
    for (const Terminal* term : mTerminals)
    {
        names.insert(term->GetLayPinName());
    }
}

void TerminalManager::GetTerminalSchPinNames(std::set<AString, AString::NoCaseLess>& names) const
{
    for (const Terminal* term : mTerminals)
    {
        if (!term->GetSchPinName().empty())
        {
            names.insert(term->GetSchPinName());
        }
    }
}

void TerminalManager::GetTerminalSchPinNames(std::vector<AString>& names) const
{
    for (const Terminal* term : mTerminals)
    {
        if (!term->GetSchPinName().empty())
        {
            names.push_back(term->GetSchPinName());
        }
    }
}

void TerminalManager::GetPortNameVector(std::vector<AString>& names, int libType) const
{
    if (!PLINTH_ASSERT((libType == kSymbolLibType) || (libType == kFootprintLibType)))
    {
        return;
    }
    for (const Terminal* term : mTerminals)
    {
        names.push_back(libType == kSymbolLibType ? term->GetSchPinName() : term->GetLayPinName());
    }
}

bool TerminalManager::IsSchPinNameInUse(const AString& name) const
{
    return mSchPinNames->Contains(name);
}

bool TerminalManager::IsLayPinNameInUse(const AString& name) const
{
    return mLayPinNames->Contains(name);
}

bool TerminalManager::NameSetsHold() const
{
    PinNameSet sch;
    PinNameSet lay;
    for (const Terminal* term : mTerminals)
    {
        sch.Insert(term->GetSchPinName());
        lay.Insert(term->GetLayPinName());
    }
    bool hold = true;
    sch.ForEach([&](std::wstring_view name, std::size_t count)
                { hold = hold && mSchPinNames->CountOf(name) >= count; });
    lay.ForEach([&](std::wstring_view name, std::size_t count)
                { hold = hold && mLayPinNames->CountOf(name) >= count; });
    return hold;
}
