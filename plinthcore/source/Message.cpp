#include "Message.h"

#include <cstdint>

MessageParam::MessageParam(const FormatArg& arg) : mKind(arg.GetKind()), mBytes(arg.GetBytes())
{
    switch (mKind)
    {
    case FormatArg::Kind::kSigned:
        mSigned = arg.GetSigned();
        break;
    case FormatArg::Kind::kUnsigned:
    case FormatArg::Kind::kPointer:
        mUnsigned = arg.GetUnsigned();
        break;
    case FormatArg::Kind::kDouble:
        mDouble = arg.GetDouble();
        break;
    case FormatArg::Kind::kChar:
        mChar = arg.GetChar();
        break;
    case FormatArg::Kind::kWideText:
    case FormatArg::Kind::kNarrowText:
        mNullText = arg.IsNullText();
        if (!mNullText)
        {
            mText = mKind == FormatArg::Kind::kWideText ? AString(arg.GetWide())
                                                        : AString::FromUTF8(arg.GetNarrow());
        }
        mKind = FormatArg::Kind::kWideText;
        break;
    }
}

FormatArg MessageParam::ToFormatArg() const
{
    switch (mKind)
    {
    case FormatArg::Kind::kSigned:
        // The width matters: "%u" of a negative int shows its 32-bit form.
        switch (mBytes)
        {
        case 1:
            return FormatArg(static_cast<std::int8_t>(mSigned));
        case 2:
            return FormatArg(static_cast<std::int16_t>(mSigned));
        case 4:
            return FormatArg(static_cast<std::int32_t>(mSigned));
        default:
            return FormatArg(static_cast<std::int64_t>(mSigned));
        }
    case FormatArg::Kind::kUnsigned:
        switch (mBytes)
        {
        case 1:
            return FormatArg(static_cast<std::uint8_t>(mUnsigned));
        case 2:
            return FormatArg(static_cast<std::uint16_t>(mUnsigned));
        case 4:
            return FormatArg(static_cast<std::uint32_t>(mUnsigned));
        default:
            return FormatArg(static_cast<std::uint64_t>(mUnsigned));
        }
    case FormatArg::Kind::kDouble:
        return FormatArg(mDouble);
    case FormatArg::Kind::kChar:
        return FormatArg(mChar);
    case FormatArg::Kind::kPointer:
        return FormatArg(reinterpret_cast<const void*>(static_cast<std::uintptr_t>(mUnsigned)));
    case FormatArg::Kind::kWideText:
    case FormatArg::Kind::kNarrowText:
        break;
    }
    return mNullText ? FormatArg(static_cast<const wchar_t*>(nullptr)) : FormatArg(mText);
}

AString MessageParam::ToText() const
{
    const FormatArg arg = ToFormatArg();
    switch (mKind)
    {
    case FormatArg::Kind::kSigned:
        return AString::Formatted(L"%lld", arg);
    case FormatArg::Kind::kUnsigned:
        return AString::Formatted(L"%llu", arg);
    case FormatArg::Kind::kDouble:
        return AString::Formatted(L"%g", arg);
    case FormatArg::Kind::kChar:
        return AString::Formatted(L"%c", arg);
    case FormatArg::Kind::kPointer:
        return AString::Formatted(L"%p", arg);
    case FormatArg::Kind::kWideText:
    case FormatArg::Kind::kNarrowText:
        break;
    }
    return mNullText ? AString(L"(null)") : mText;
}

Message::Message(int number, MessageRecord record) : mNumber(number), mRecord(record) {}

Message& Message::AddParam(const FormatArg& arg)
{
    mParams.emplace_back(arg);
    return *this;
}

Message& Message::SetFormat(std::wstring_view format)
{
    mFormat.assign(format);
    return *this;
}

AString Message::Fill(std::wstring_view format) const
{
    std::vector<FormatArg> args;
    args.reserve(mParams.size());
    for (const MessageParam& param : mParams)
    {
        args.push_back(param.ToFormatArg());
    }
    const AString terminated(format); // FormatList wants a terminated text
    AString text;
    text.FormatList(terminated.c_str(), args);
    return text;
}

AString Message::Fallback() const
{
    AString text = AString::Formatted(L"Message %d", mNumber);
    for (std::size_t i = 0; i < mParams.size(); ++i)
    {
        text += i == 0 ? L": " : L", ";
        text += mParams[i].ToText();
    }
    return text;
}

AString Message::GetText() const
{
    if (mResolved)
    {
        return mText;
    }
    return mFormat.empty() ? Fallback() : Fill(mFormat);
}

void Message::ResolveText(const AString* catalogueFormat)
{
    if (!mFormat.empty())
    {
        mText = Fill(mFormat);
    }
    else if (catalogueFormat != nullptr)
    {
        mText = Fill(*catalogueFormat);
    }
    else
    {
        mText = Fallback();
    }
    mResolved = true;
}
