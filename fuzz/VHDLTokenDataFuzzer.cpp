// Runs the VHDL token scanner on arbitrary text, delimiters and pairs, and cross-checks what
// can be checked from outside: every counted token can be read, tokens are stretches of the
// text in order, the text splits as the framework's tokenizer splits it when there are no
// pairs, the walk of RestOfString stays inside the text, and copies answer the same.
//
// Input: one option byte, then UTF-8 text split at U+0001 into the delimiters, the pairs
// (opening and closing characters in turn) and the text; with one part only it is the text,
// with two the delimiters and the text. Option bits: 0-1 collapse (0, 1, 2, -1), 2 pass the
// pairs (otherwise null), 3 pass null delimiters.
#include "Assert.h"
#include "VHDLTokenData.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace
{
constexpr std::size_t kMaxText = 2000;
constexpr std::size_t kMaxDelimiters = 32;
const std::string kBoundAssertion = "idx < static_cast<unsigned>(mSize)";

[[noreturn]] void Fail(const char* what, const AString& text, const std::wstring& delimiters)
{
    std::fprintf(stderr, "%s\ntext: %s\ndelimiters: %s\n", what, text.ToUTF8().c_str(),
                 AString::ToUTF8(delimiters).c_str());
    std::abort();
}

struct Input
{
    AString text;
    std::wstring delimiters = L" ,";
    std::map<wchar_t, wchar_t> pairs;
    int collapse = 0;
    bool passPairs = false;
    bool nullDelimiters = false;
};

Input Decode(const std::uint8_t* data, std::size_t size)
{
    Input input;
    if (size == 0)
    {
        return input;
    }
    const int collapseValues[] = {0, 1, 2, -1};
    input.collapse = collapseValues[data[0] & 3];
    input.passPairs = (data[0] & 4) != 0;
    input.nullDelimiters = (data[0] & 8) != 0;
    const AString all =
        AString::FromUTF8(std::string_view(reinterpret_cast<const char*>(data) + 1, size - 1));
    std::vector<std::wstring> parts;
    std::size_t start = 0;
    while (parts.size() < 2)
    {
        const std::size_t split = all.find(L'\x01', start);
        if (split == AString::npos)
        {
            break;
        }
        parts.push_back(all.substr(start, split - start));
        start = split + 1;
    }
    input.text = all.Mid(start);
    if (!parts.empty())
    {
        // Null characters would end the delimiter string early; they never delimit.
        std::erase(parts[0], L'\0');
        input.delimiters = parts[0].substr(0, kMaxDelimiters);
    }
    if (parts.size() == 2)
    {
        for (std::size_t i = 0; i + 1 < parts[1].size(); i += 2)
        {
            input.pairs.emplace(parts[1][i], parts[1][i + 1]);
        }
    }
    input.text.resize(std::min(input.text.size(), kMaxText));
    return input;
}

// The text as the scanner keeps it: up to the first null, without a last CR that delimits.
std::wstring StoredText(const Input& input)
{
    std::wstring text(input.text.c_str());
    if (!input.nullDelimiters && !text.empty() && text.back() == L'\r' &&
        input.delimiters.find(L'\r') != std::wstring::npos)
    {
        text.pop_back();
    }
    return text;
}

std::vector<std::wstring> Tokens(const VHDLTokenData& data)
{
    std::vector<std::wstring> tokens;
    for (int i = 0; i < data.Count(); ++i)
    {
        tokens.emplace_back(data[static_cast<unsigned>(i)]);
    }
    return tokens;
}

void CheckSame(const VHDLTokenData& a, VHDLTokenData& b, bool okay, const Input& input)
{
    if (a.Count() != b.Count() || Tokens(a) != Tokens(b))
    {
        Fail("copy has other tokens", input.text, input.delimiters);
    }
    for (int i = -1; i <= a.Count() + 1; ++i)
    {
        if (a.IsExtended(static_cast<unsigned>(i)) != b.IsExtended(static_cast<unsigned>(i)) ||
            std::wcscmp(a.RestOfString(i), b.RestOfString(i)) != 0)
        {
            Fail("copy answers otherwise", input.text, input.delimiters);
        }
    }
    if (b.IsOkayVHDL() != okay)
    {
        Fail("copy has another verdict", input.text, input.delimiters);
    }
}

void Check(const Input& input)
{
    const wchar_t* delim = input.nullDelimiters ? nullptr : input.delimiters.c_str();
    const std::map<wchar_t, wchar_t>* pairs = input.passPairs ? &input.pairs : nullptr;
    const bool noPairs = pairs == nullptr || pairs->empty();
    const std::wstring stored = StoredText(input);
    const std::wstring effectiveDelimiters = input.nullDelimiters ? L"" : input.delimiters;

    AssertCapture capture;
    VHDLTokenData data(input.text, delim, input.collapse, pairs);
    const std::vector<std::string> expectedAsserts =
        input.nullDelimiters ? std::vector<std::string>{"delim"} : std::vector<std::string>{};
    if (capture.Texts() != expectedAsserts)
    {
        Fail("unexpected assertions while scanning", input.text, input.delimiters);
    }
    capture.Clear();

    const int count = data.Count();
    const std::vector<std::wstring> tokens = Tokens(data);
    if (count < 0 || !capture.Texts().empty())
    {
        Fail("counted tokens cannot be read", input.text, input.delimiters);
    }
    if (data[static_cast<unsigned>(count)] != nullptr ||
        capture.Texts() != std::vector<std::string>{kBoundAssertion})
    {
        Fail("index past the end does not assert and give null", input.text, input.delimiters);
    }
    capture.Clear();
    if (stored != data.RestOfString(0))
    {
        Fail("RestOfString(0) is not the text", input.text, input.delimiters);
    }
    if (effectiveDelimiters.empty() && count != 0)
    {
        Fail("tokens without delimiters", input.text, input.delimiters);
    }

    // Tokens are stretches of the text, in order; without collapsing exactly one delimiter
    // separates two of them, with collapsing none is empty.
    std::size_t position = 0;
    std::size_t total = 0;
    for (const std::wstring& token : tokens)
    {
        const std::size_t found = stored.find(token, position);
        if (found == std::wstring::npos || (input.collapse != 0 && token.empty()))
        {
            Fail("token is not a stretch of the text", input.text, input.delimiters);
        }
        position = found + token.size();
        total += token.size();
    }
    if (input.collapse == 0 && count > 0 &&
        total + static_cast<std::size_t>(count) - 1 != stored.size())
    {
        Fail("tokens and single delimiters do not make up the text", input.text, input.delimiters);
    }

    if (noPairs && !effectiveDelimiters.empty())
    {
        std::vector<AString> expected;
        if (!stored.empty())
        {
            AString(stored).TokenizeString(expected, effectiveDelimiters, input.collapse == 0);
        }
        if (std::vector<std::wstring>(expected.begin(), expected.end()) != tokens)
        {
            Fail("splits otherwise than the tokenizer", input.text, input.delimiters);
        }
        for (int i = 0; i < count; ++i)
        {
            const bool hasBackslash = tokens[i].find(L'\\') != std::wstring::npos;
            if (data.IsExtended(static_cast<unsigned>(i)) != hasBackslash)
            {
                Fail("extended flag does not follow the backslash", input.text, input.delimiters);
            }
            if (input.collapse != 0 && i > 0 &&
                std::wstring_view(data.RestOfString(i)).substr(0, tokens[i].size()) != tokens[i])
            {
                Fail("RestOfString does not start at its token", input.text, input.delimiters);
            }
        }
    }

    const wchar_t* begin = data.RestOfString(0);
    for (int n = -1; n <= count + 1; ++n)
    {
        const wchar_t* rest = data.RestOfString(n);
        if (rest < begin || rest > begin + stored.size() || (n > 0 && n >= count && *rest != L'\0'))
        {
            Fail("RestOfString leaves the text", input.text, input.delimiters);
        }
    }

    const bool okay = data.IsOkayVHDL();
    if (data.IsOkayVHDL() != okay)
    {
        Fail("verdict changed on asking again", input.text, input.delimiters);
    }
    for (int i = 0; okay && i < count; ++i)
    {
        if (data.IsExtended(static_cast<unsigned>(i)))
        {
            continue;
        }
        for (const wchar_t c : tokens[i])
        {
            if (!((c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z') ||
                  (c >= L'0' && c <= L'9') || c == L'_'))
            {
                Fail("okay text with an illegal ordinary token", input.text, input.delimiters);
            }
        }
    }

    VHDLTokenData copy(data);
    VHDLTokenData copyOfCopy(copy);
    CheckSame(data, copy, okay, input);
    CheckSame(data, copyOfCopy, okay, input);
    VHDLTokenData assigned(L"x y", L" ", 1, nullptr);
    assigned = copyOfCopy;
    VHDLTokenData& self = assigned;
    assigned = self;
    CheckSame(data, assigned, okay, input);
    if (!capture.Texts().empty())
    {
        Fail("unexpected assertions", input.text, input.delimiters);
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Check(Decode(data, size));
    return 0;
}
