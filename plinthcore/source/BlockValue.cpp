#include "BlockValue.h"

#include "BlockUnicode.h"

#include <bit>
#include <cmath>

namespace io
{

bool CBlock_value::Get(AString& target) const
{
    if (mKind != Kind::kText)
    {
        return false;
    }
    target = GetText();
    return true;
}

bool CBlock_value::Get(std::string& utf8) const
{
    if (mKind != Kind::kText)
    {
        return false;
    }
    if (mEncoding == Encoding::kUtf8)
    {
        utf8.assign(mText.data, mText.size);
    }
    else
    {
        std::string converted;
        detail::AppendWideAsUtf8(converted, std::wstring_view(mWide.data, mWide.size));
        utf8 = std::move(converted);
    }
    return true;
}

bool CBlock_value::Get(double& target) const noexcept
{
    if (mKind == Kind::kReal)
    {
        target = mReal;
        return true;
    }
    if (mKind == Kind::kInteger && mInRange)
    {
        target = static_cast<double>(mInteger);
        return true;
    }
    return false;
}

bool CBlock_value::Get(bool& target) const noexcept
{
    if (mKind != Kind::kBool)
    {
        return false;
    }
    target = mBool;
    return true;
}

AString CBlock_value::GetText() const
{
    AString text;
    if (mKind == Kind::kText)
    {
        if (mEncoding == Encoding::kUtf8)
        {
            detail::AppendUtf8AsWide(text, std::string_view(mText.data, mText.size));
        }
        else
        {
            text.assign(mWide.data, mWide.size);
        }
    }
    return text;
}

bool operator==(const CBlock_value& a, const CBlock_value& b)
{
    if (a.mKind != b.mKind)
    {
        return false;
    }
    switch (a.mKind)
    {
    case CBlock_value::Kind::kText:
        if (a.mEncoding == b.mEncoding)
        {
            return a.mEncoding == CBlock_value::Encoding::kUtf8
                       ? a.GetUtf8View() == b.GetUtf8View()
                       : a.GetWideView() == b.GetWideView();
        }
        return a.mEncoding == CBlock_value::Encoding::kUtf8
                   ? detail::SameText(a.GetUtf8View(), b.GetWideView())
                   : detail::SameText(b.GetUtf8View(), a.GetWideView());
    case CBlock_value::Kind::kInteger:
        return a.mInteger == b.mInteger && a.mInRange == b.mInRange;
    case CBlock_value::Kind::kReal:
        if (std::isnan(a.mReal) || std::isnan(b.mReal))
        {
            return std::isnan(a.mReal) && std::isnan(b.mReal);
        }
        return std::bit_cast<std::uint64_t>(a.mReal) == std::bit_cast<std::uint64_t>(b.mReal);
    case CBlock_value::Kind::kBool:
        return a.mBool == b.mBool;
    }
    return false;
}

} // namespace io
