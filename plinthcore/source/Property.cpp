#include "Property.h"

#include "IMerrowCommand.h"
#include "IScriptArgInfo.h"

#include <cstdint>
#include <utility>

Property::Property(AString name, const PropFlags& flags) : mName(std::move(name)), mFlags(flags) {}

Property::Property(const Property& other) : mName(other.mName), mFlags(other.mFlags) {}

Property& Property::operator=(const Property& other)
{
    mName = other.mName;
    mFlags = other.mFlags;
    return *this; // the owner stays
}

Property::~Property() = default;

bool Property::SetPropertyName(const AString& name)
{
    if (name.empty())
    {
        return false;
    }
    mName = name;
    return true;
}

bool Property::MatchPropType(int type) const
{
    return type == GetPropType();
}

bool Property::ChangeValue(const double& value)
{
    return ChangeValue(Units::FloatToText(value, Units::kNoUnit));
}

bool Property::ChangeValue(const AComplex<double>& value)
{
    return value.imag() == 0.0 && ChangeValue(value.real());
}

bool Property::ChangeValue(const Property& other)
{
    return ChangeValue(other.PropertyValue());
}

double Property::GetValue() const
{
    return 0.0;
}

ValueBase* Property::GetValueBase() const
{
    return nullptr;
}

bool Property::HasUnits() const
{
    return false;
}

Units::UnitType Property::GetUnitType() const
{
    return Units::kDimensionless;
}

Property* Property::CopyToInstance() const
{
    return CloneProp();
}

PropMatch Property::MatchProp(const Property& other) const
{
    if (!MatchPropType(other.GetPropType()))
    {
        return kPropNoMatch;
    }
    if (mName.CompareNoCase(other.mName) != 0)
    {
        return kPropTypeMatch;
    }
    if (PropertyValue() != other.PropertyValue())
    {
        return kPropNameMatch;
    }
    return mFlags == other.mFlags ? kPropExactMatch : kPropValueMatch;
}

void Property::CopyProp(const Property& other)
{
    if (&other == this)
    {
        return;
    }
    mName = other.mName;
    mFlags = other.mFlags;
}

bool Property::ChangeProp(const Property& other, const PropFlags& flags)
{
    if (&other != this && !ChangeValue(other))
    {
        return false;
    }
    mFlags = flags;
    return true;
}

void Property::GetScriptArguments(IScriptArgInfo& args, const PropChange& change) const
{
    if (change.HasAny({PropChange::kName, PropChange::kAll}))
    {
        args.SetString(L"Name", mName);
    }
    if (change.HasAny({PropChange::kFlags, PropChange::kAll}))
    {
        args.SetInt(L"Flags", static_cast<int>(mFlags.ToBits()));
    }
}

bool Property::AssignFromScriptArguments(const IScriptArgInfo& args, PropChange& change)
{
    bool ok = true;
    AString name;
    if (args.GetString(L"Name", name))
    {
        if (name != mName)
        {
            if (SetPropertyName(name))
            {
                change.Add(PropChange::kName);
            }
            else
            {
                ok = false;
            }
        }
    }
    else if (args.HasArgument(L"Name"))
    {
        ok = false;
    }
    int bits = 0;
    if (args.GetInt(L"Flags", bits))
    {
        const PropFlags flags = PropFlags::FromBits(static_cast<unsigned>(bits));
        if (flags != mFlags)
        {
            mFlags = flags;
            change.Add(PropChange::kFlags);
        }
    }
    else if (args.HasArgument(L"Flags"))
    {
        ok = false;
    }
    return ok;
}

void Property::NotifyUpdate(IMerrowCommand* command, const IPropServer* server,
                            const PropFlags& flags) const
{
    if (command != nullptr)
    {
        command->PropertyUpdated(*this, server, flags);
    }
}

bool Property::InternalWriteProp(io::CBlock_func& block) const
{
    block.AddValue(mName);
    block.AddValue(static_cast<std::int64_t>(mFlags.ToBits()));
    return true;
}

bool Property::InternalWriteNeutralProp(io::CBlock_func& block) const
{
    block.AddValue(mName);
    block.AddValue(GetPropType());
    block.AddValue(static_cast<std::int64_t>(mFlags.ToBits()));
    return true;
}

io::ReadError Property::ReadPropHeader(const io::CBlock_func& block, AString& name,
                                       PropFlags& flags)
{
    block.ResetReadPosition();
    AString readName;
    std::uint64_t bits = 0;
    if (!block.ReadValue(readName) || !block.ReadValue(bits))
    {
        return io::kReadFailed;
    }
    name = std::move(readName);
    flags = PropFlags::FromBits(bits);
    return io::kNoError;
}

io::ReadError Property::ReadNeutralPropHeader(const io::CBlock_func& block, AString& name,
                                              int& type, PropFlags& flags, AString& value)
{
    block.ResetReadPosition();
    AString readName;
    int readType = 0;
    std::uint64_t bits = 0;
    AString readValue;
    if (!block.ReadValue(readName) || !block.ReadValue(readType) || !block.ReadValue(bits) ||
        !block.ReadValue(readValue))
    {
        return io::kReadFailed;
    }
    name = std::move(readName);
    type = readType;
    flags = PropFlags::FromBits(bits);
    value = std::move(readValue);
    return io::kNoError;
}

io::ReadError Property::InternalReadProp(const io::CBlock_func& block)
{
    AString name;
    PropFlags flags;
    const io::ReadError error = ReadPropHeader(block, name, flags);
    if (error == io::kNoError)
    {
        SetReadHeader(std::move(name), flags);
    }
    return error;
}

void Property::SetReadHeader(AString name, const PropFlags& flags)
{
    mName = std::move(name);
    mFlags = flags;
}

bool Property::Write(io::CBlock_func& block) const
{
    InternalWriteProp(block);
    block.AddValue(PropertyValue());
    return true;
}

io::ReadError Property::Read(const io::CBlock_func& block, IPropClientFactory* /*factory*/)
{
    AString name;
    PropFlags flags;
    AString text;
    if (ReadPropHeader(block, name, flags) != io::kNoError || !block.ReadValue(text) ||
        !ChangeValue(text))
    {
        return io::kReadFailed;
    }
    SetReadHeader(std::move(name), flags);
    return io::kNoError;
}

bool Property::WriteNeutral(io::CBlock_func& block) const
{
    InternalWriteNeutralProp(block);
    block.AddValue(PropertyValue());
    return true;
}

io::ReadError Property::ReadNeutral(const io::CBlock_func& block)
{
    AString name;
    int type = 0;
    PropFlags flags;
    AString text;
    if (ReadNeutralPropHeader(block, name, type, flags, text) != io::kNoError || !ChangeValue(text))
    {
        return io::kReadFailed;
    }
    SetReadHeader(std::move(name), flags);
    return io::kNoError;
}

void Property::PutValueArgument(IScriptArgInfo& args, const PropChange& change,
                                const AString& value)
{
    if (change.HasValue())
    {
        args.SetString(L"Value", value);
    }
}

bool Property::AssignValueArgument(const IScriptArgInfo& args, PropChange& change)
{
    AString text;
    double number = 0.0;
    bool ok = true;
    bool changed = false;
    if (args.GetString(L"Value", text))
    {
        changed = text != PropertyValue() && ChangeValue(text);
        ok = changed || text == PropertyValue();
    }
    else if (args.GetDouble(L"Value", number))
    {
        changed = ChangeValue(number);
        ok = changed;
    }
    else if (args.HasArgument(L"Value"))
    {
        ok = false;
    }
    if (changed)
    {
        change.Add(PropChange::kValue);
    }
    return ok;
}

bool Property::AssignTextArgument(const IScriptArgInfo& args, AString& text, PropChange& change)
{
    AString given;
    if (args.GetString(L"Value", given))
    {
        if (given != text)
        {
            text = std::move(given);
            change.Add(PropChange::kValue);
        }
        return true;
    }
    return !args.HasArgument(L"Value");
}
