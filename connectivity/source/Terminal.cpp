#include "Terminal.h"

#include "Assert.h"
#include "BusNameParsing.h"
#include "ICircuitDefinitionMgr.h"
#include "ICircuitMgr.h"
#include "IComponent.h"
#include "IComponentOwner.h"
#include "IDefinitionMgr.h"
#include "INatureMgr.h"

#include <array>

std::int32_t Terminal::mNextEquivNumber = 0;

namespace
{
constexpr std::array<const wchar_t*, 4> kUnconnectedActionLabels = {L"Flag as error", L"Unique net",
                                                                    L"Grounded", L"No net"};

// The circuit manager behind a component: its definition manager's circuit side.
ICircuitMgr* CircuitMgrOf(const IComponent* component)
{
    if (component == nullptr)
    {
        return nullptr;
    }
    auto* circuitDefinitionMgr =
        InterfaceQuery<ICircuitDefinitionMgr>(component->GetDefinitionMgr());
    return circuitDefinitionMgr != nullptr ? circuitDefinitionMgr->GetCircuitMgr() : nullptr;
}

// The first name of nature `id`, when the manager names it.
const AString* NatureName(const INatureMgr& natures, int id)
{
    const NatureRecord* record = natures.GetNature(id);
    return record != nullptr && !record->mNames.empty() ? &record->mNames.front() : nullptr;
}

// The next unnamed value of `block` converted to `target`.
template <typename T> bool Next(const io::CBlock& block, T& target)
{
    return block.ReadValue(target);
}
} // namespace

Terminal::Terminal(IComponent* parent, const AString& schPinName, const AString& layPinName,
                   const AString& gate)
    : mGate(gate), mSchPinName(schPinName), mLayPinName(layPinName), mParent(parent)
{
    Initialize();
}

Terminal::Terminal(IComponent* parent) : mGate(L"A"), mParent(parent)
{
    Initialize();
}

Terminal::Terminal(const Terminal& other)
    : mGate(other.mGate), mSchPinName(other.mSchPinName), mLayPinName(other.mLayPinName),
      mEquivNumber(other.mEquivNumber), mUnconnectedAction(other.mUnconnectedAction),
      mUnconnectedActionRToGround(other.mUnconnectedActionRToGround), mTermAttrs(other.mTermAttrs),
      mParent(other.mParent), mShared(other.mShared), mTerminalName(other.mTerminalName)
{
}

Terminal& Terminal::operator=(const Terminal& other)
{
    if (this != &other)
    {
        mGate = other.mGate;
        mSchPinName = other.mSchPinName;
        mLayPinName = other.mLayPinName;
        mEquivNumber = other.mEquivNumber;
        mUnconnectedAction = other.mUnconnectedAction;
        mUnconnectedActionRToGround = other.mUnconnectedActionRToGround;
        mTermAttrs = other.mTermAttrs;
        mParent = other.mParent;
        mShared = other.mShared;
        mTerminalName = other.mTerminalName;
        NamesEdited();
    }
    return *this;
}

void Terminal::Initialize()
{
    mUnconnectedActionRToGround = L"0";
    mEquivNumber = mNextEquivNumber++;
    const IComponentOwner* owner = mParent != nullptr ? mParent->GetOwner() : nullptr;
    if (owner != nullptr && owner->GetUnconnectedTerminalCheck() == 0)
    {
        mUnconnectedAction = kUniqueNet;
    }
}

void Terminal::SetSchPinName(const AString& name)
{
    mSchPinName = name;
    NamesEdited();
}

void Terminal::SetLayPinName(const AString& name)
{
    mLayPinName = name;
    NamesEdited();
}

void Terminal::SetTerminalName(const AString& name)
{
    mTerminalName = name;
    NamesEdited();
}

void Terminal::ResetEquivNumber()
{
    mNextEquivNumber = 0;
}

int Terminal::PinNameSchCompare(const AString& a, const AString& b)
{
    return PortNameCompare(a, b);
}

int Terminal::PinNameLayCompare(const AString& a, const AString& b)
{
    return PortNameCompare(a, b);
}

bool Terminal::operator==(const Terminal& other) const
{
    return mShared == other.mShared && AString::EqualNoCase(mGate, other.mGate) &&
           PinNameSchCompare(mSchPinName, other.mSchPinName) == 0 &&
           PinNameLayCompare(mLayPinName, other.mLayPinName) == 0 &&
           mTermAttrs.mDomain == other.mTermAttrs.mDomain &&
           mTermAttrs.mNature == other.mTermAttrs.mNature &&
           (mTermAttrs.mDomain == merrowenum::kConservative ||
            mTermAttrs.mDirection == other.mTermAttrs.mDirection);
}

bool Terminal::operator<(const Terminal& other) const
{
    if (mShared && !other.mShared)
    {
        return false;
    }
    if (mGate.compare(other.mGate) > 0)
    {
        return false;
    }
    if (PinNameSchCompare(mSchPinName, other.mSchPinName) > 0)
    {
        return false;
    }
    if (PinNameLayCompare(mLayPinName, other.mLayPinName) > 0)
    {
        return false;
    }
    if (mParent != nullptr)
    {
        return false;
    }
    return other.mParent != nullptr;
}

bool Terminal::WriteNeutral(io::CBlock& parent) const
{
    io::CBlock_func& block = parent.AddBlock(L"Terminal");
    block.AddValue(mSchPinName);
    block.AddValue(mLayPinName);
    block.AddValue(mGate);
    block.AddValue(mShared);
    return !parent.HasError();
}

bool Terminal::Write(io::CBlock& parent) const
{
    const ICircuitMgr* dsm = CircuitMgrOf(mParent);
    PLINTH_ASSERT(dsm);
    const INatureMgr* natures = dsm != nullptr ? dsm->GetNatureMgr() : nullptr;

    io::CBlock_func& block = parent.AddBlock(L"Terminal");
    block.AddValue(mSchPinName);
    block.AddValue(mLayPinName);
    block.AddValue(mGate);
    block.AddValue(mShared);
    block.AddValue(mEquivNumber);
    block.AddValue(mUnconnectedAction);
    if (natures == nullptr)
    {
        block.AddValue(mUnconnectedActionRToGround);
        return !parent.HasError();
    }

    const bool conservative = mTermAttrs.mDomain == merrowenum::kConservative;
    const AString* natureName = NatureName(*natures, mTermAttrs.mNature);
    const bool shortForm =
        conservative && mTermAttrs.mDirection == TerminalAttributes::kDefaultDirection &&
        (natureName != nullptr || mTermAttrs.mNature == TerminalAttributes::kNoNature);
    if (shortForm)
    {
        block.AddValue(mTermAttrs.mDescription);
        if (natureName != nullptr)
        {
            block.AddValue(*natureName);
        }
        block.AddValue(mUnconnectedActionRToGround);
    }
    else
    {
        block.AddValue(mUnconnectedActionRToGround);
        block.AddValue(mTermAttrs.mDomain);
        block.AddValue(mTermAttrs.mDirection);
        if (conservative && natureName != nullptr)
        {
            block.AddValue(*natureName);
        }
        else
        {
            block.AddValue(AString::Formatted(L"%d", mTermAttrs.mNature));
        }
        if (!mTermAttrs.mDescription.empty())
        {
            block.AddValue(mTermAttrs.mDescription);
        }
    }
    return !parent.HasError();
}

void Terminal::ReadNature(const AString& text, const INatureMgr& natures)
{
    std::vector<AString> parts;
    int id = 0;
    if (text.Match(L"*(*.*)", parts, true) && parts.size() == 3)
    {
        PLINTH_ASSERT(mTermAttrs.mDomain == merrowenum::kConservative);
        natures.ResolveNature(parts[0], parts[1], parts[2], mTermAttrs.mNature);
    }
    else if (text.IsNumber(id))
    {
        mTermAttrs.mNature = id;
    }
    else
    {
        PLINTH_ASSERT(!"Nature readin problem for terminal");
    }
}

io::ReadError Terminal::Read(io::CBlock_func& block)
{
    block.ResetReadPosition();
    const std::size_t items = block.GetValueCount();
    NamesEdited();
    if (!Next(block, mSchPinName) || !Next(block, mLayPinName) || !Next(block, mGate) ||
        !Next(block, mShared) || !Next(block, mEquivNumber))
    {
        return io::kReadFailed;
    }
    if (items < 7 || items > 11)
    {
        return io::kNoError;
    }
    if (!Next(block, mUnconnectedAction))
    {
        return io::kReadFailed;
    }

    // Natures and attributes need the parent's nature manager.
    const INatureMgr* dsm = nullptr;
    bool attributes = false;
    if (items >= 9 && mParent != nullptr)
    {
        const ICircuitMgr* circuitMgr = CircuitMgrOf(mParent);
        dsm = circuitMgr != nullptr ? circuitMgr->GetNatureMgr() : nullptr;
        attributes = PLINTH_ASSERT(dsm);
    }

    switch (items)
    {
    case 7:
        return Next(block, mUnconnectedActionRToGround) ? io::kNoError : io::kReadFailed;
    case 8:
        return Next(block, mTermAttrs.mDescription) && Next(block, mUnconnectedActionRToGround)
                   ? io::kNoError
                   : io::kReadFailed;
    case 9:
    {
        AString nature;
        if (!Next(block, mTermAttrs.mDescription) || !Next(block, nature))
        {
            return io::kReadFailed;
        }
        if (attributes)
        {
            ReadNature(nature, *dsm);
        }
        return Next(block, mUnconnectedActionRToGround) ? io::kNoError : io::kReadFailed;
    }
    default: // 10 and 11
    {
        if (!Next(block, mUnconnectedActionRToGround))
        {
            return io::kReadFailed;
        }
        if (!attributes)
        {
            return io::kNoError;
        }
        std::int32_t domain = 0;
        AString nature;
        if (!Next(block, domain))
        {
            return io::kReadFailed;
        }
        if (domain < merrowenum::kConservative || domain > merrowenum::kGeneric)
        {
            PLINTH_ASSERT(0);
        }
        else
        {
            mTermAttrs.mDomain = domain;
        }
        if (!Next(block, mTermAttrs.mDirection) || !Next(block, nature))
        {
            return io::kReadFailed;
        }
        ReadNature(nature, *dsm);
        if (items == 11 && !Next(block, mTermAttrs.mDescription))
        {
            return io::kReadFailed;
        }
        return io::kNoError;
    }
    }
}

AString Terminal::GetUnconnectedActionString() const
{
    AString label;
    if (!GetUnconnectedActionFromId(mUnconnectedAction, label))
    {
        return AString();
    }
    if (mUnconnectedAction == kGrounded)
    {
        label += L", ";
        label += mUnconnectedActionRToGround;
    }
    return label;
}

void Terminal::GetUnconnectedActions(std::vector<AString>& labels, CircuitEnvironment env)
{
    for (std::size_t i = 0; i < kUnconnectedActionLabels.size(); ++i)
    {
        if (i != kNoNet || env == kEnvParvane)
        {
            labels.emplace_back(kUnconnectedActionLabels[i]);
        }
    }
}

bool Terminal::GetUnconnectedActionFromId(int id, AString& label)
{
    if (id < 0 || id >= static_cast<int>(kUnconnectedActionLabels.size()))
    {
        return false;
    }
    label = kUnconnectedActionLabels[static_cast<std::size_t>(id)];
    return true;
}

bool Terminal::GetUnconnectedActionFromString(const AString& text, int& id)
{
    std::vector<AString> pieces;
    text.TokenizeString(pieces, L",", true);
    AString label = text;
    if (pieces.size() > 1)
    {
        label = pieces.front();
        label.Trim();
    }
    for (std::size_t i = 0; i < kUnconnectedActionLabels.size(); ++i)
    {
        if (AString::EqualNoCase(label, kUnconnectedActionLabels[i]))
        {
            id = static_cast<int>(i);
            return true;
        }
    }
    return false;
}

bool Terminal::GetUnconnectedActionRToGround(const AString& text, AString& rToGround)
{
    std::vector<AString> pieces;
    text.TokenizeString(pieces, L",", true);
    if (pieces.size() < 2)
    {
        return false;
    }
    rToGround = pieces[1];
    rToGround.Trim();
    return true;
}
