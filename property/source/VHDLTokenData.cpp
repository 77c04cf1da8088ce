#include "VHDLTokenData.h"

#include "Assert.h"

#include <algorithm>
#include <cwchar>
#include <utility>

namespace
{
constexpr wchar_t kBackslash = L'\\';

// A new null-terminated copy of the first `length` characters of `text`.
wchar_t* Duplicate(const wchar_t* text, std::size_t length)
{
    wchar_t* copy = new wchar_t[length + 1];
    std::copy(text, text + length, copy);
    copy[length] = L'\0';
    return copy;
}

wchar_t* Duplicate(const wchar_t* text)
{
    return Duplicate(text, std::wcslen(text));
}

bool IsVHDLIdentifierChar(wchar_t c)
{
    return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z') || (c >= L'0' && c <= L'9') ||
           c == L'_';
}

bool IsLegalOrdinaryToken(const wchar_t* token)
{
    for (; *token != L'\0'; ++token)
    {
        if (!IsVHDLIdentifierChar(*token))
        {
            return false;
        }
    }
    return true;
}

// An extended token: whatever precedes its opening backslash, then the identifier up to a
// closing backslash that ends the token. Inside, "\\" stands for one backslash.
bool IsLegalExtendedToken(const wchar_t* token)
{
    const std::size_t length = std::wcslen(token);
    const wchar_t* opening = std::wcschr(token, kBackslash);
    if (opening == nullptr)
    {
        return false;
    }
    const std::size_t first = static_cast<std::size_t>(opening - token);
    const std::size_t closing = length - 1;
    if (closing <= first || token[closing] != kBackslash)
    {
        return false;
    }
    for (std::size_t i = first + 1; i < closing; ++i)
    {
        if (token[i] != kBackslash)
        {
            continue;
        }
        if (i + 1 == closing)
        {
            return false; // lone backslash right before the closing one
        }
        if (token[i + 1] == kBackslash)
        {
            ++i; // escaped backslash
        }
    }
    return true;
}
} // namespace

VHDLTokenData::VHDLTokenData(const wchar_t* text, const wchar_t* delim, int collapse,
                             const std::map<wchar_t, wchar_t>* pairs)
    : mCollapse(collapse)
{
    std::size_t length = text == nullptr ? 0 : std::wcslen(text);
    if (!PLINTH_ASSERT(delim))
    {
        delim = L"";
    }
    if (length > 0 && text[length - 1] == L'\r' && std::wcschr(delim, L'\r') != nullptr)
    {
        --length;
    }
    mText = Duplicate(length > 0 ? text : L"", length);
    mDelimiters = Duplicate(delim);
    if (pairs != nullptr)
    {
        mPairs = *pairs;
    }
    mSize = ProcessString(nullptr, nullptr);
    if (mSize > 0)
    {
        mTokens = new wchar_t*[static_cast<std::size_t>(mSize)]();
        mExtended = new bool[static_cast<std::size_t>(mSize)]();
        ProcessString(mTokens, mExtended);
    }
}

VHDLTokenData::VHDLTokenData(const AString& text, const wchar_t* delim, int collapse,
                             const std::map<wchar_t, wchar_t>* pairs)
    : VHDLTokenData(text.c_str(), delim, collapse, pairs)
{
}

VHDLTokenData::VHDLTokenData(const VHDLTokenData& other)
    : mText(Duplicate(other.mText)), mDelimiters(Duplicate(other.mDelimiters)),
      mCollapse(other.mCollapse), mSize(other.mSize), mPairs(other.mPairs), mOkay(other.mOkay)
{
    if (mSize > 0)
    {
        const std::size_t size = static_cast<std::size_t>(mSize);
        mTokens = new wchar_t*[size];
        mExtended = new bool[size];
        for (std::size_t i = 0; i < size; ++i)
        {
            mTokens[i] = Duplicate(other.mTokens[i]);
            mExtended[i] = other.mExtended[i];
        }
    }
}

VHDLTokenData& VHDLTokenData::operator=(const VHDLTokenData& other)
{
    VHDLTokenData copy(other);
    Swap(copy);
    return *this;
}

VHDLTokenData::~VHDLTokenData()
{
    for (int i = 0; i < mSize; ++i)
    {
        delete[] mTokens[i];
    }
    delete[] mTokens;
    delete[] mExtended;
    delete[] mText;
    delete[] mDelimiters;
}

void VHDLTokenData::Swap(VHDLTokenData& other) noexcept
{
    std::swap(mText, other.mText);
    std::swap(mDelimiters, other.mDelimiters);
    std::swap(mCollapse, other.mCollapse);
    std::swap(mSize, other.mSize);
    std::swap(mTokens, other.mTokens);
    mPairs.swap(other.mPairs);
    std::swap(mExtended, other.mExtended);
    std::swap(mOkay, other.mOkay);
}

const wchar_t* VHDLTokenData::operator[](unsigned idx) const
{
    if (!PLINTH_ASSERT(idx < static_cast<unsigned>(mSize)))
    {
        return nullptr;
    }
    return mTokens[idx];
}

bool VHDLTokenData::IsExtended(unsigned idx) const
{
    return idx < static_cast<unsigned>(mSize) && mExtended[idx];
}

bool VHDLTokenData::IsDelimiter(wchar_t c) const
{
    // wcschr finds the terminator when asked for L'\0', which is the end and no delimiter.
    return c != L'\0' && std::wcschr(mDelimiters, c) != nullptr;
}

const wchar_t* VHDLTokenData::RestOfString(int n) const
{
    if (n <= 0)
    {
        return mText;
    }
    const wchar_t* end = mText + std::wcslen(mText);
    if (n >= mSize)
    {
        return end;
    }
    const wchar_t* p = mText;
    while (IsDelimiter(*p))
    {
        ++p;
    }
    for (int i = 0; i < n; ++i)
    {
        // Without collapsing, empty tokens and the skipped delimiters can make this step run
        // past the end of the text; it stops there.
        const std::size_t step = std::wcslen(mTokens[i]) + 1;
        p += std::min(step, static_cast<std::size_t>(end - p));
        while (IsDelimiter(*p))
        {
            ++p;
        }
    }
    return p;
}

bool VHDLTokenData::IsOkayVHDL()
{
    if (!mOkay)
    {
        return false;
    }
    for (int i = 0; i < mSize; ++i)
    {
        const bool legal =
            mExtended[i] ? IsLegalExtendedToken(mTokens[i]) : IsLegalOrdinaryToken(mTokens[i]);
        if (!legal)
        {
            mOkay = false;
            return false;
        }
    }
    return true;
}

// Both passes run the same rules, so the count of the first is the number of slots the
// second fills. A token is always one contiguous stretch of the text: nothing inside it is
// dropped, only the delimiters between tokens.
int VHDLTokenData::ProcessString(wchar_t** tokens, bool* extended)
{
    if (mDelimiters[0] == L'\0')
    {
        return 0;
    }
    const wchar_t* p = mText;
    if (mCollapse != 0)
    {
        while (IsDelimiter(*p))
        {
            ++p;
        }
    }
    if (*p == L'\0')
    {
        return 0;
    }
    int count = 0;
    for (;;)
    {
        const wchar_t* start = p;
        int depth = 0;
        wchar_t opening = L'\0';
        wchar_t closing = L'\0';
        bool sawBackslash = false;
        bool extendedOpen = false;
        for (; *p != L'\0'; ++p)
        {
            const wchar_t c = *p;
            if (depth > 0)
            {
                // The closing character wins, so a quote that maps to itself closes.
                if (c == closing)
                {
                    --depth;
                }
                else if (c == opening)
                {
                    ++depth;
                }
                continue;
            }
            if (!mPairs.empty())
            {
                const auto pair = mPairs.find(c);
                if (pair != mPairs.end())
                {
                    depth = 1;
                    opening = c;
                    closing = pair->second;
                    continue;
                }
            }
            if (IsDelimiter(c))
            {
                break;
            }
            if (c != kBackslash)
            {
                continue;
            }
            const bool nextBreaks = p[1] == L'\0' || IsDelimiter(p[1]);
            if (!sawBackslash)
            {
                sawBackslash = true;
                extendedOpen = true;
            }
            else if (extendedOpen && nextBreaks)
            {
                extendedOpen = false;
            }
            else if (extendedOpen)
            {
                ++p; // an escaped character stays inside the identifier
            }
            else
            {
                mOkay = false;
            }
        }
        if (extendedOpen)
        {
            mOkay = false;
        }
        if (tokens != nullptr)
        {
            tokens[count] = Duplicate(start, static_cast<std::size_t>(p - start));
            extended[count] = sawBackslash;
        }
        ++count;
        if (*p == L'\0')
        {
            break;
        }
        ++p; // the delimiter that ended the token
        if (mCollapse != 0)
        {
            while (IsDelimiter(*p))
            {
                ++p;
            }
            if (*p == L'\0')
            {
                break;
            }
        }
    }
    return count;
}
