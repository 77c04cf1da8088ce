// Checks the wildcard matcher of AString against a plain recursive matcher. The input is
// the pattern, a line feed, then the text, both UTF-8; sizes are bounded so that the
// reference stays fast. Any difference in verdict or captures aborts.
#include "AString.h"

#include <unicode/uchar.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace
{
constexpr std::size_t kMaxPattern = 40;
constexpr std::size_t kMaxText = 200;

// Tries every length of each "*", shortest first, so the first success it finds is the one
// with the shortest captures in order. Remembering failed (pattern, text) positions keeps it
// polynomial without changing which success comes first.
class ReferenceMatcher
{
public:
    ReferenceMatcher(std::wstring_view pattern, std::wstring_view text, bool caseSensitive)
        : mPattern(pattern), mText(text), mCaseSensitive(caseSensitive),
          mFailed((pattern.size() + 1) * (text.size() + 1), false)
    {
    }

    bool Match(std::vector<std::wstring>& captures)
    {
        mCaptures.clear();
        const bool matched = From(0, 0);
        captures = mCaptures;
        return matched;
    }

private:
    bool Same(wchar_t a, wchar_t b) const
    {
        if (mCaseSensitive)
        {
            return a == b;
        }
        return u_foldCase(static_cast<UChar32>(a), U_FOLD_CASE_DEFAULT) ==
               u_foldCase(static_cast<UChar32>(b), U_FOLD_CASE_DEFAULT);
    }

    bool From(std::size_t p, std::size_t t)
    {
        const std::size_t key = p * (mText.size() + 1) + t;
        if (mFailed[key])
        {
            return false;
        }
        bool matched = false;
        if (p == mPattern.size())
        {
            matched = t == mText.size();
        }
        else if (mPattern[p] == L'*')
        {
            for (std::size_t end = t; end <= mText.size() && !matched; ++end)
            {
                mCaptures.emplace_back(mText.substr(t, end - t));
                matched = From(p + 1, end);
                if (!matched)
                {
                    mCaptures.pop_back();
                }
            }
        }
        else if (mPattern[p] == L'?')
        {
            matched = t < mText.size() && From(p + 1, t + 1);
        }
        else
        {
            const bool escaped = mPattern[p] == L'\\' && p + 1 < mPattern.size();
            const wchar_t literal = escaped ? mPattern[p + 1] : mPattern[p];
            matched =
                t < mText.size() && Same(literal, mText[t]) && From(p + (escaped ? 2 : 1), t + 1);
        }
        mFailed[key] = !matched;
        return matched;
    }

    std::wstring_view mPattern;
    std::wstring_view mText;
    bool mCaseSensitive;
    std::vector<bool> mFailed;
    std::vector<std::wstring> mCaptures;
};

[[noreturn]] void Fail(const char* what, const AString& pattern, const AString& text,
                       bool caseSensitive)
{
    std::fprintf(stderr, "%s (%s)\npattern: %s\ntext: %s\n", what,
                 caseSensitive ? "case-sensitive" : "ignoring case", pattern.ToUTF8().c_str(),
                 text.ToUTF8().c_str());
    std::abort();
}

void Check(const AString& pattern, const AString& text, bool caseSensitive)
{
    std::vector<std::wstring> expected;
    const bool matches = ReferenceMatcher(pattern, text, caseSensitive).Match(expected);

    const std::vector<AString> sentinel = {AString(L"\u0001sentinel")};
    std::vector<AString> captures = sentinel;
    if (text.Match(pattern, captures, caseSensitive) != matches)
    {
        Fail("verdict with captures differs", pattern, text, caseSensitive);
    }
    if (!matches && captures != sentinel)
    {
        Fail("captures changed by a failed match", pattern, text, caseSensitive);
    }
    if (matches && std::vector<std::wstring>(captures.begin(), captures.end()) != expected)
    {
        Fail("captures differ", pattern, text, caseSensitive);
    }
    const bool plain = caseSensitive ? text.Match(pattern) : text.MatchNoCase(pattern);
    if (plain != matches)
    {
        Fail("verdict without captures differs", pattern, text, caseSensitive);
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t split = input.find('\n');
    AString pattern = AString::FromUTF8(input.substr(0, split));
    AString text =
        split == std::string_view::npos ? AString() : AString::FromUTF8(input.substr(split + 1));
    pattern.resize(std::min(pattern.size(), kMaxPattern));
    text.resize(std::min(text.size(), kMaxText));
    Check(pattern, text, true);
    Check(pattern, text, false);
    return 0;
}
