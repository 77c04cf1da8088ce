#include "MerrowNameServer.h"

#include <string_view>

namespace
{
bool IsDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

// Compares the digit runs starting at a[i] and b[j] by value, without converting them (runs
// may be longer than any integer type), and moves both indices past their runs. `shorter`
// receives -1 when a's run is written with fewer digits than b's, 1 when with more, else 0.
int CompareNumbers(std::wstring_view a, std::size_t& i, std::wstring_view b, std::size_t& j,
                   int& shorter)
{
    const std::size_t runA = i;
    const std::size_t runB = j;
    while (i < a.size() && a[i] == L'0')
    {
        ++i;
    }
    while (j < b.size() && b[j] == L'0')
    {
        ++j;
    }
    const std::size_t startA = i;
    const std::size_t startB = j;
    while (i < a.size() && IsDigit(a[i]))
    {
        ++i;
    }
    while (j < b.size() && IsDigit(b[j]))
    {
        ++j;
    }
    // Without leading zeros, the longer run is the larger number; equal lengths compare
    // digit by digit.
    const std::size_t lengthA = i - startA;
    const std::size_t lengthB = j - startB;
    shorter = (i - runA > j - runB) - (i - runA < j - runB);
    if (lengthA != lengthB)
    {
        return lengthA < lengthB ? -1 : 1;
    }
    const int digits = a.substr(startA, lengthA).compare(b.substr(startB, lengthB));
    return (digits > 0) - (digits < 0);
}
} // namespace

int MerrowNameServer::CompareNames(const AString& a, const AString& b)
{
    std::size_t i = 0;
    std::size_t j = 0;
    int firstZeros = 0; // first difference in the written length of equal numbers
    while (i < a.size() && j < b.size())
    {
        if (IsDigit(a[i]) && IsDigit(b[j]))
        {
            int shorter = 0;
            if (const int order = CompareNumbers(a, i, b, j, shorter))
            {
                return order;
            }
            firstZeros = firstZeros != 0 ? firstZeros : shorter;
            continue;
        }
        // A digit against any other character compares as a character: all digits sit
        // together in code point order, so this agrees with every other digit of the run.
        const char32_t fa = AString::FoldCase(static_cast<char32_t>(a[i]));
        const char32_t fb = AString::FoldCase(static_cast<char32_t>(b[j]));
        if (fa != fb)
        {
            return fa < fb ? -1 : 1;
        }
        ++i;
        ++j;
    }
    if (i < a.size() || j < b.size())
    {
        return i < a.size() ? 1 : -1;
    }
    // Equal in natural order: the number written with fewer leading zeros first ("U1" before
    // "U01"), then exact code units ("A" before "a").
    if (firstZeros != 0)
    {
        return firstZeros;
    }
    const int exact = a.compare(b);
    return (exact > 0) - (exact < 0);
}
