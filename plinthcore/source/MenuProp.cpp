#include "MenuProp.h"

#include "IScriptArgInfo.h"
#include "PropVisitor.h"
#include "StringValue.h"

#include <cmath>
#include <memory>

MenuProp::MenuProp(const AString& name, const PropFlags& flags) : Property(name, flags) {}

MenuProp::MenuProp(const AString& name, const PropFlags& flags, const AString& choices,
                   unsigned int current)
    : Property(name, flags), mChoices(SplitChoices(choices))
{
    SetCurrentIndex(current);
}

MenuProp::~MenuProp() = default;

std::vector<AString> MenuProp::SplitChoices(const AString& choices)
{
    std::vector<AString> pieces;
    choices.TokenizeString(pieces, L",", false);
    std::vector<AString> result;
    for (AString& piece : pieces)
    {
        piece.Trim();
        if (!piece.empty())
        {
            result.push_back(std::move(piece));
        }
    }
    return result;
}

AString MenuProp::JoinChoices(const std::vector<AString>& choices)
{
    AString joined;
    for (const AString& choice : choices)
    {
        if (!joined.empty())
        {
            joined += L",";
        }
        joined += choice;
    }
    return joined;
}

void MenuProp::SetChoices(const std::vector<AString>& choices)
{
    const AString current = GetCurrentChoice();
    mChoices = choices;
    const int index = FindChoice(current);
    mCurrent = index < 0 ? 0 : static_cast<unsigned int>(index);
}

bool MenuProp::SetCurrentIndex(unsigned int index)
{
    if (index >= mChoices.size())
    {
        return false;
    }
    mCurrent = index;
    return true;
}

AString MenuProp::GetCurrentChoice() const
{
    return mCurrent < mChoices.size() ? mChoices[mCurrent] : AString();
}

int MenuProp::FindChoice(const AString& text) const
{
    const auto find = [this](const AString& wanted)
    {
        for (std::size_t i = 0; i < mChoices.size(); ++i)
        {
            if (mChoices[i].CompareNoCase(wanted) == 0)
            {
                return static_cast<int>(i);
            }
        }
        return -1;
    };
    AString bare = text;
    bare.Trim();
    int index = find(bare);
    if (index < 0 && StringValue::IsQuoted(bare))
    {
        std::unique_ptr<StringValue> parsed(StringValue::Parse(bare));
        index = find(parsed->GetText());
    }
    return index;
}

bool MenuProp::ChangeValue(const AString& text)
{
    const int index = FindChoice(text);
    return index >= 0 && SetCurrentIndex(static_cast<unsigned int>(index));
}

bool MenuProp::ChangeValue(const double& value)
{
    if (!(value >= 0.0) || std::trunc(value) != value || value >= 4294967296.0)
    {
        return false;
    }
    return SetCurrentIndex(static_cast<unsigned int>(value));
}

Property* MenuProp::CloneProp() const
{
    return new MenuProp(*this);
}

void MenuProp::Accept(PropVisitor& visitor)
{
    visitor.VisitMenuProp(*this);
}

void MenuProp::Accept(ConstPropVisitor& visitor) const
{
    visitor.VisitMenuProp(*this);
}

void MenuProp::CopyProp(const Property& other)
{
    if (&other == this)
    {
        return;
    }
    Property::CopyProp(other);
    if (const auto* menu = dynamic_cast<const MenuProp*>(&other))
    {
        mChoices = menu->mChoices;
        mCurrent = menu->mCurrent;
    }
    else
    {
        ChangeValue(other.PropertyValue());
    }
}

bool MenuProp::Write(io::CBlock_func& block) const
{
    InternalWriteProp(block);
    block.AddValue(mCurrent);
    io::CBlock_func& choices = block.AddBlock(L"Choices");
    for (const AString& choice : mChoices)
    {
        choices.AddValue(choice);
    }
    return true;
}

io::ReadError MenuProp::Read(const io::CBlock_func& block, IPropClientFactory* /*factory*/)
{
    AString name;
    PropFlags flags;
    unsigned int current = 0;
    if (ReadPropHeader(block, name, flags) != io::kNoError || !block.ReadValue(current))
    {
        return io::kReadFailed;
    }
    const io::CBlock_func* list = block.FindBlock(L"Choices");
    if (list == nullptr)
    {
        return io::kReadFailed;
    }
    std::vector<AString> choices;
    list->ResetReadPosition();
    AString choice;
    while (list->ReadValue(choice))
    {
        choices.push_back(choice);
    }
    if (choices.size() != list->GetItemCount() || (current >= choices.size() && current != 0))
    {
        return io::kReadFailed;
    }
    SetReadHeader(std::move(name), flags);
    mChoices = std::move(choices);
    mCurrent = current;
    return io::kNoError;
}

bool MenuProp::WriteNeutral(io::CBlock_func& block) const
{
    Property::WriteNeutral(block);
    io::CBlock_func& choices = block.AddBlock(L"Choices");
    for (const AString& choice : mChoices)
    {
        choices.AddValue(choice);
    }
    return true;
}

io::ReadError MenuProp::ReadNeutral(const io::CBlock_func& block)
{
    AString name;
    int type = 0;
    PropFlags flags;
    AString text;
    if (ReadNeutralPropHeader(block, name, type, flags, text) != io::kNoError)
    {
        return io::kReadFailed;
    }
    MenuProp read(*this);
    if (const io::CBlock_func* list = block.FindBlock(L"Choices"))
    {
        std::vector<AString> choices;
        list->ResetReadPosition();
        AString choice;
        while (list->ReadValue(choice))
        {
            choices.push_back(choice);
        }
        if (choices.size() != list->GetItemCount())
        {
            return io::kReadFailed;
        }
        read.mChoices = std::move(choices);
        read.mCurrent = 0;
    }
    if (!(text.empty() && read.mChoices.empty()) && !read.ChangeValue(text))
    {
        return io::kReadFailed;
    }
    SetReadHeader(std::move(name), flags);
    mChoices = std::move(read.mChoices);
    mCurrent = read.mCurrent;
    return io::kNoError;
}

void MenuProp::GetScriptArguments(IScriptArgInfo& args, const PropChange& change) const
{
    Property::GetScriptArguments(args, change);
    PutValueArgument(args, change, GetCurrentChoice());
    if (change.HasAny({PropChange::kChoices, PropChange::kAll}))
    {
        args.SetString(L"Choices", JoinChoices(mChoices));
    }
}

bool MenuProp::AssignFromScriptArguments(const IScriptArgInfo& args, PropChange& change)
{
    bool ok = Property::AssignFromScriptArguments(args, change);
    AString text;
    if (args.GetString(L"Choices", text))
    {
        const std::vector<AString> choices = SplitChoices(text);
        if (choices != mChoices)
        {
            SetChoices(choices);
            change.Add(PropChange::kChoices);
        }
    }
    else if (args.HasArgument(L"Choices"))
    {
        ok = false;
    }
    const unsigned int before = mCurrent;
    double index = 0.0;
    if (args.GetString(L"Value", text))
    {
        ok = ChangeValue(text) && ok;
    }
    else if (args.GetDouble(L"Value", index))
    {
        ok = ChangeValue(index) && ok;
    }
    else if (args.HasArgument(L"Value"))
    {
        ok = false;
    }
    if (mCurrent != before)
    {
        change.Add(PropChange::kValue);
    }
    return ok;
}
