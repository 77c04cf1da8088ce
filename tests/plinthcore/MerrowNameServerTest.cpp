#include "MerrowNameServer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

void PrintTo(const AString& text, std::ostream* os)
{
    *os << '"' << text.ToUTF8() << '"';
}

namespace
{
std::string Utf8(std::wstring_view text)
{
    return AString::ToUTF8(text);
}

TEST(MerrowNameServer, ComparesDigitRunsAsNumbersAndTheRestIgnoringCase)
{
    struct Case
    {
        std::wstring a;
        std::wstring b;
        int result;
    };
    const Case cases[] = {
        {L"U2", L"U10", -1},
        {L"U10", L"U9", 1},
        {L"R1", L"r2", -1},
        {L"r1", L"R2", -1},
        {L"a9", L"a10b", -1},
        {L"net", L"net1", -1},
        {L"", L"a", -1},
        {L"", L"", 0},
        {L"U1", L"U1", 0},
        {L"U01", L"U1", 1}, // equal numbers: fewer leading zeros first
        {L"U1", L"U01", -1},
        {L"U01a", L"U1b", -1},   // ...but only after the rest of the name
        {L"a01b1", L"a1b01", 1}, // the first run that differs decides
        {L"a01B", L"a1b", 1},    // zeros before case
        {L"A", L"a", -1},
        {L"a", L"A", 1},
        {L"abc", L"ABD", -1},
        {L"x-1", L"x1", -1},     // '-' sorts before digits
        {L"x_1", L"x1", 1},      // '_' after them
        {L"d[2]", L"d[10]", -1}, // unlike AString::CompareNoCase
        {L"d[2:0]", L"d[10:0]", -1},
        {L"a1b2", L"a1b10", -1},
        {L"1", L"a", -1},
        {L"Ä1", L"ä2", -1},
        {L"x" + std::wstring(30, L'9'), L"x1" + std::wstring(30, L'0'), -1}, // beyond 64 bits
        {L"x" + std::wstring(30, L'0') + L"5", L"x6", -1},
        {L"x00", L"x0", 1},
        {L"x0", L"x", 1},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Utf8(c.a) + " vs " + Utf8(c.b));
        EXPECT_EQ(MerrowNameServer::CompareNames(c.a, c.b), c.result);
        EXPECT_EQ(MerrowNameServer::CompareNames(c.b, c.a), -c.result);
    }
}

TEST(MerrowNameServer, SortsNamesNaturally)
{
    std::vector<AString> names = {L"U10", L"u2", L"U1",  L"R3",  L"r20",   L"U01",
                                  L"C1",  L"U2", L"net", L"Net", L"net10", L"net9"};
    std::sort(names.begin(), names.end(),
              [](const AString& a, const AString& b)
              { return MerrowNameServer::CompareNames(a, b) < 0; });
    const std::vector<AString> expected = {L"C1",  L"Net", L"net", L"net9", L"net10", L"R3",
                                           L"r20", L"U1",  L"U01", L"U2",   L"u2",    L"U10"};
    EXPECT_EQ(names, expected);
}

TEST(MerrowNameServer, IsAStrictTotalOrder)
{
    // Random names from an alphabet rich in case variants, digits and zeros; every triple is
    // checked, so a tie-break that disagrees with the main order shows up as a cycle.
    const std::wstring alphabet = L"aAbB0019_-[]Ää";
    std::mt19937 random(12345);
    std::vector<AString> names;
    for (int k = 0; k < 60; ++k)
    {
        AString name;
        const std::size_t length = random() % 5;
        for (std::size_t i = 0; i < length; ++i)
        {
            name.push_back(alphabet[random() % alphabet.size()]);
        }
        names.push_back(name);
    }
    auto cmp = [](const AString& a, const AString& b)
    { return MerrowNameServer::CompareNames(a, b); };
    for (const AString& a : names)
    {
        for (const AString& b : names)
        {
            SCOPED_TRACE(Utf8(a) + " / " + Utf8(b));
            ASSERT_EQ(cmp(a, b), -cmp(b, a));
            ASSERT_EQ(cmp(a, b) == 0, a == b);
            for (const AString& c : names)
            {
                if (cmp(a, b) < 0 && cmp(b, c) < 0)
                {
                    ASSERT_LT(cmp(a, c), 0) << Utf8(c);
                }
            }
        }
    }
}
} // namespace
