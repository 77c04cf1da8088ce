#include "BusNameParsing.h"

#include "Assert.h"
#include "ICircuitEnvironment.h"
#include "IMerrowApplication.h"
#include "Profiler.h"

#include <boost/regex.hpp>

#include <algorithm>
#include <charconv>
#include <regex>

namespace
{
constexpr wchar_t kSquareOpen = L'[';
constexpr wchar_t kSquareClose = L']';
constexpr wchar_t kAngleOpen = L'<';
constexpr wchar_t kAngleClose = L'>';

// The two wildcard shapes of a bus element, "*[*]" and "*<*>", split without allocating:
// the base is the text before the first opening bracket (the shortest first capture) and the
// index text runs from there to the final closing bracket. Same results as
// AString::Match(pattern, captures, true) on these two patterns.
struct BusParts
{
    std::wstring_view base;
    std::wstring_view index;
};

bool FitsShape(std::wstring_view text, wchar_t open, wchar_t close, BusParts* parts)
{
    if (text.size() < 2 || text.back() != close)
    {
        return false;
    }
    const std::size_t pos = text.find(open);
    if (pos == std::wstring_view::npos || pos + 1 >= text.size())
    {
        return false;
    }
    if (parts != nullptr)
    {
        parts->base = text.substr(0, pos);
        parts->index = text.substr(pos + 1, text.size() - pos - 2);
    }
    return true;
}

bool FitsSquare(std::wstring_view text, BusParts* parts = nullptr)
{
    return FitsShape(text, kSquareOpen, kSquareClose, parts);
}

bool FitsAngle(std::wstring_view text, BusParts* parts = nullptr)
{
    return FitsShape(text, kAngleOpen, kAngleClose, parts);
}

// "*[*]" first, then "*<*>".
bool FitsEither(std::wstring_view text, BusParts* parts = nullptr)
{
    return FitsSquare(text, parts) || FitsAngle(text, parts);
}

inline bool IsDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

inline bool IsIndexSeparator(wchar_t c)
{
    return c == L',' || c == L'-' || c == L':';
}

// One item of index text: `from`, and `to` when a range separator was seen. Numbers that do
// not fit an int are marked invalid, as a failed base-10 read would be.
struct IndexItem
{
    long long from = 0;
    long long to = 0;
    bool fromValid = false;
    bool toValid = false;
    bool fromDigits = false;
    bool toDigits = false;
};

inline void AddDigit(long long& value, bool& valid, bool& seen, wchar_t c)
{
    if (!seen)
    {
        valid = true;
        seen = true;
    }
    if (valid)
    {
        value = value * 10 + (c - L'0');
        if (value > std::numeric_limits<int>::max())
        {
            valid = false;
        }
    }
}

// Walks valid index text item by item. `emit(from, to)` is called for each item that
// outputs something, with to == from for a single integer. The reader keeps one range flag
// per item, so a second separator only joins more digits to the range end.
template <typename Emit> void ForEachIndexItem(std::wstring_view text, Emit&& emit)
{
    IndexItem item;
    bool inRange = false;
    auto flush = [&]()
    {
        if (item.fromDigits && item.fromValid)
        {
            const int from = static_cast<int>(item.from);
            const int to = (item.toDigits && item.toValid) ? static_cast<int>(item.to) : from;
            emit(from, to);
        }
        item = IndexItem{};
        inRange = false;
    };
    for (const wchar_t c : text)
    {
        if (c == L',')
        {
            flush();
        }
        else if (c == L'-' || c == L':')
        {
            inRange = true;
        }
        else if (inRange)
        {
            AddDigit(item.to, item.toValid, item.toDigits, c);
        }
        else
        {
            AddDigit(item.from, item.fromValid, item.fromDigits, c);
        }
    }
    flush();
}

// Number of members that valid index text stands for, or -1 beyond kMaxBusMembers.
long long CountIndexMembers(std::wstring_view text)
{
    long long total = 0;
    ForEachIndexItem(text,
                     [&](int from, int to)
                     {
                         if (total >= 0)
                         {
                             total += std::abs(static_cast<long long>(to) - from) + 1;
                             if (total > kMaxBusMembers)
                             {
                                 total = -1;
                             }
                         }
                     });
    return total;
}

bool IsUsableIndexList(std::wstring_view text)
{
    return IsIndexList(text) && CountIndexMembers(text) >= 0;
}

// Emits every integer of valid index text in written order.
template <typename Emit> void ForEachIndex(std::wstring_view text, Emit&& emit)
{
    ForEachIndexItem(text,
                     [&](int from, int to)
                     {
                         if (from <= to)
                         {
                             for (long long i = from; i <= to; ++i)
                             {
                                 emit(static_cast<int>(i));
                             }
                         }
                         else
                         {
                             for (long long i = from; i >= to; --i)
                             {
                                 emit(static_cast<int>(i));
                             }
                         }
                     });
}

inline void AppendInt(std::wstring& out, int value)
{
    char digits[16];
    const auto result = std::to_chars(digits, digits + sizeof digits, value);
    for (const char* c = digits; c != result.ptr; ++c)
    {
        out.push_back(static_cast<wchar_t>(*c));
    }
}

// base + open + index + close, built with one allocation.
AString MemberName(std::wstring_view base, wchar_t open, int index, wchar_t close)
{
    AString member;
    member.reserve(base.size() + 13);
    member.append(base);
    member.push_back(open);
    AppendInt(member, index);
    member.push_back(close);
    return member;
}

// The element scanner shared by expansion, de-duplication and counting. Calls
// `finish(element, open, close)` for each complete element, where open and close are the
// bracket characters last seen in the name so far; false on a structural error (nested or
// unbalanced brackets, an empty element), after the elements before it were finished, or when
// `finish` answers false (the name stands for too many members).
template <typename Finish> bool ScanElements(std::wstring_view name, Finish&& finish)
{
    std::size_t start = 0;
    bool insideBrackets = false;
    wchar_t open = kSquareOpen;
    wchar_t close = kSquareClose;
    for (std::size_t i = 0; i < name.size(); ++i)
    {
        const wchar_t c = name[i];
        if (c == kSquareOpen || c == kAngleOpen)
        {
            if (insideBrackets)
            {
                return false;
            }
            insideBrackets = true;
            open = c;
        }
        else if (c == kSquareClose || c == kAngleClose)
        {
            if (!insideBrackets)
            {
                return false;
            }
            insideBrackets = false;
            close = c;
        }
        else if (c == L',')
        {
            if (i == start)
            {
                return false;
            }
            if (!insideBrackets)
            {
                if (!finish(name.substr(start, i - start), open, close))
                {
                    return false;
                }
                start = i + 1;
            }
        }
    }
    if (insideBrackets || start == name.size())
    {
        return false;
    }
    return finish(name.substr(start), open, close);
}

int ExpandSignalList(const AString& name, std::vector<AString>& signals, bool canonical)
{
    if (!PLINTH_ASSERT(!name.empty()))
    {
        return 0;
    }
    if (IsSimpleWireName(name))
    {
        // A simple name answers 1, whatever the vector held before.
        signals.push_back(name);
        return 1;
    }
    long long total = 0;
    const bool ok = ScanElements(
        name,
        [&](std::wstring_view element, wchar_t open, wchar_t close)
        {
            BusParts parts;
            if (!FitsEither(element, &parts))
            {
                signals.emplace_back(element);
                return ++total <= kMaxBusMembers;
            }
            if (!IsIndexList(parts.index))
            {
                return true;
            }
            const long long count = CountIndexMembers(parts.index);
            if (count < 0)
            {
                return true;
            }
            total += count;
            if (total > kMaxBusMembers)
            {
                return false;
            }
            if (canonical)
            {
                open = kSquareOpen;
                close = kSquareClose;
            }
            signals.reserve(signals.size() + static_cast<std::size_t>(count));
            ForEachIndex(parts.index, [&](int index)
                         { signals.push_back(MemberName(parts.base, open, index, close)); });
            return true;
        });
    return ok ? static_cast<int>(signals.size()) : 0;
}

// The application's current circuit environment; kEnvNone when it offers none.
int CurrentEnvironmentValue()
{
    const ICircuitEnvironment* environment =
        InterfaceQuery<ICircuitEnvironment>(GetIMerrowApplication());
    return environment != nullptr ? environment->GetCircuitEnvironment() : kEnvNone;
}

const boost::regex& BusMemberExpression()
{
    static const boost::regex expression(R"(^.+\[\d+([\-\:\,]\d+)*\])", boost::regex::icase);
    return expression;
}

const boost::regex& SimpleWireNameExpression()
{
    static const boost::regex expression(R"([^.,:;&* <>\[\]-]*)", boost::regex::icase);
    return expression;
}

} // namespace

// ---------------------------------------------------------------------------------------
// Building blocks

bool IsIndexList(std::wstring_view text)
{
    bool afterDigit = false;
    for (const wchar_t c : text)
    {
        if (IsDigit(c))
        {
            afterDigit = true;
        }
        else if (IsIndexSeparator(c) && afterDigit)
        {
            afterDigit = false;
        }
        else
        {
            return false;
        }
    }
    return afterDigit;
}

bool IsMultiIndexList(std::wstring_view text)
{
    bool afterDigit = false;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        const wchar_t c = text[i];
        if (IsDigit(c))
        {
            afterDigit = true;
            continue;
        }
        if (!afterDigit)
        {
            return false;
        }
        if (IsIndexSeparator(c))
        {
            afterDigit = false;
        }
        else if ((c == kSquareClose && i + 1 < text.size() && text[i + 1] == kSquareOpen) ||
                 (c == kAngleClose && i + 1 < text.size() && text[i + 1] == kAngleOpen))
        {
            afterDigit = false;
            ++i;
        }
        else
        {
            return false;
        }
    }
    return afterDigit;
}

bool ParseIndexList(std::wstring_view text, std::vector<int>& list)
{
    if (!IsUsableIndexList(text))
    {
        return false;
    }
    ForEachIndex(text, [&](int index) { list.push_back(index); });
    return true;
}

bool ParseIndexSet(std::wstring_view text, std::set<int>& set)
{
    if (!IsUsableIndexList(text))
    {
        return false;
    }
    ForEachIndexItem(text,
                     [&](int from, int to)
                     {
                         for (long long i = std::min(from, to); i <= std::max(from, to); ++i)
                         {
                             set.insert(static_cast<int>(i));
                         }
                     });
    return true;
}

AString FormatIndexList(const std::vector<int>& list)
{
    AString text;
    if (list.empty())
    {
        return text;
    }
    bool ascending = true;
    bool hasOutput = false;
    long long s = list.front();
    long long e = list.front();
    auto writeRun = [&]()
    {
        if (hasOutput)
        {
            text.push_back(L',');
        }
        AppendInt(text, static_cast<int>(s));
        if (s != e)
        {
            text.push_back(L':');
            AppendInt(text, static_cast<int>(e));
        }
        hasOutput = true;
    };
    for (std::size_t i = 1; i < list.size(); ++i)
    {
        const long long x = list[i];
        if (x == e + 1 && (ascending || e == s))
        {
            e = x;
        }
        else if (x == e - 1 && (!ascending || e == s))
        {
            ascending = false;
            e = x;
        }
        else
        {
            writeRun();
            s = e = x;
        }
    }
    writeRun();
    return text;
}

AString ComposeBusName(const AString& base, const std::vector<int>& list, bool square)
{
    AString name(base);
    name.push_back(square ? kSquareOpen : kAngleOpen);
    name.append(FormatIndexList(list));
    name.push_back(square ? kSquareClose : kAngleClose);
    return name;
}

bool SplitBusName(const AString& name, AString& base, AString& indexText, bool& square)
{
    BusParts parts;
    square = FitsSquare(name);
    if (!FitsEither(name, &parts) || !IsIndexList(parts.index))
    {
        return false;
    }
    base.assign(parts.base);
    indexText.assign(parts.index);
    return true;
}

void MergeIndexLists(std::vector<int>& a, const std::vector<int>& b)
{
    if (a.size() < 2)
    {
        a.insert(a.end(), b.begin(), b.end());
        return;
    }
    const bool ascending = a[0] < a[1];
    std::set<int> all(a.begin(), a.end());
    all.insert(b.begin(), b.end());
    a.assign(all.begin(), all.end());
    if (!ascending)
    {
        std::reverse(a.begin(), a.end());
    }
}

// ---------------------------------------------------------------------------------------
// Expansion and counting

bool IsSimpleWireName(const AString& name)
{
    PLINTH_PROFILE_SCOPE("IsSimpleWireName");
    const wchar_t* c = name.data();
    const wchar_t* const end = c + name.size();
    while (c != end && *c != kSquareOpen && *c != kAngleOpen && *c != L',')
    {
        ++c;
    }
    if (c == end)
    {
        return true;
    }
    // The environment decides only here; asking has no other effect, so it waits until now.
    if (*c != kSquareOpen || CurrentEnvironmentValue() != 0)
    {
        return false;
    }
    try
    {
        const std::string narrow = name.ToNarrow(AString::OEM);
        return !boost::regex_match(narrow, BusMemberExpression());
    }
    catch (...)
    {
        return true;
    }
}

int GetAllSignals(const AString& name, std::vector<AString>& signals)
{
    return ExpandSignalList(name, signals, false);
}

int GetAllSignalsCanonical(const AString& name, std::vector<AString>& signals)
{
    return ExpandSignalList(name, signals, true);
}

int GetSignalCount(const AString& name)
{
    if (IsSimpleWireName(name))
    {
        return 1;
    }
    // Counts what GetAllSignals would append to an empty vector, without building names.
    long long count = 0;
    const bool ok = ScanElements(name,
                                 [&](std::wstring_view element, wchar_t, wchar_t)
                                 {
                                     BusParts parts;
                                     if (!FitsEither(element, &parts))
                                     {
                                         ++count;
                                     }
                                     else if (IsIndexList(parts.index))
                                     {
                                         const long long members = CountIndexMembers(parts.index);
                                         count += members > 0 ? members : 0;
                                     }
                                     return count <= kMaxBusMembers;
                                 });
    return ok ? static_cast<int>(std::min<long long>(count, std::numeric_limits<int>::max())) : 0;
}

int GetUniqueSignals(const AString& name, std::set<AString, AString::NoCaseLess>& signals)
{
    if (!PLINTH_ASSERT(!name.empty()))
    {
        return 0;
    }
    if (IsSimpleWireName(name))
    {
        signals.insert(name);
        return 1;
    }
    std::set<int> indices;
    long long total = 0;
    const bool ok = ScanElements(
        name,
        [&](std::wstring_view element, wchar_t, wchar_t)
        {
            BusParts parts;
            const bool square = FitsSquare(element, &parts);
            if (!square && !FitsAngle(element, &parts))
            {
                signals.insert(AString(element));
                return ++total <= kMaxBusMembers;
            }
            indices.clear();
            if (!ParseIndexSet(parts.index, indices))
            {
                return true;
            }
            total += static_cast<long long>(indices.size());
            if (total > kMaxBusMembers)
            {
                return false;
            }
            for (const int index : indices)
            {
                signals.insert(MemberName(parts.base, square ? kSquareOpen : kAngleOpen, index,
                                          square ? kSquareClose : kAngleClose));
            }
            return true;
        });
    return ok ? static_cast<int>(signals.size()) : 0;
}

int GetUniqueSignalCount(const AString& name)
{
    if (IsSimpleWireName(name))
    {
        return 1;
    }
    std::set<AString, AString::NoCaseLess> signals;
    return GetUniqueSignals(name, signals);
}

int GetUniqueAdjacentBusSignals(const AString& basename, const AString& busName,
                                std::vector<AString>& signals)
{
    const AString& baseName = basename;
    if (!PLINTH_ASSERT(!basename.empty()))
    {
        return 0;
    }
    BusParts parts;
    if (!IsSimpleWireName(baseName) || !FitsEither(busName, &parts))
    {
        return 0;
    }
    std::set<int> indices;
    if (!ParseIndexSet(parts.index, indices) || indices.empty())
    {
        return 0;
    }
    const long long lo = *indices.begin() > 0 ? *indices.begin() - 1LL : *indices.begin();
    const long long hi = *indices.rbegin() + 1LL;
    // Gaps are filled, so two far-apart indices could stand for billions of members.
    if (hi > std::numeric_limits<int>::max() || hi - lo + 1 > kMaxBusMembers)
    {
        return 0;
    }
    signals.reserve(signals.size() + static_cast<std::size_t>(hi - lo + 1));
    for (long long i = lo; i <= hi; ++i)
    {
        signals.push_back(MemberName(baseName, kSquareOpen, static_cast<int>(i), kSquareClose));
    }
    return static_cast<int>(signals.size());
}

bool IsFirstSubsetOfSecond(const AString& first, const AString& second)
{
    std::set<AString, AString::NoCaseLess> firstSignals;
    std::set<AString, AString::NoCaseLess> secondSignals;
    const int count1 = GetUniqueSignals(first, firstSignals);
    const int count2 = GetUniqueSignals(second, secondSignals);
    if (count1 > count2)
    {
        return false;
    }
    if (count2 == 1 && first.CompareNoCase(second) != 0)
    {
        return false;
    }
    for (const AString& signal : firstSignals)
    {
        if (secondSignals.find(signal) == secondSignals.end())
        {
            return false;
        }
    }
    return count1 >= 1;
}

int GetSignalIndex(const AString& busName, const AString& signal)
{
    std::vector<AString> signals;
    if (GetAllSignals(busName, signals) == 0)
    {
        return -1;
    }
    for (std::size_t i = 0; i < signals.size(); ++i)
    {
        if (signals[i].CompareNoCase(signal) == 0)
        {
            return static_cast<int>(i);
        }
    }
    return -1;
}

// ---------------------------------------------------------------------------------------
// Composing

AString CreateNetName(const std::vector<AString>& signals)
{
    AString result;
    std::wstring_view base;
    std::vector<int> indices;
    bool pending = false;
    bool square = true;
    bool styleDecided = false;
    auto addPiece = [&](std::wstring_view piece)
    {
        if (!result.empty())
        {
            result.push_back(L',');
        }
        result.append(piece);
    };
    auto flush = [&]()
    {
        if (pending)
        {
            addPiece(ComposeBusName(AString(base), indices, square));
            base = {};
            indices.clear();
            pending = false;
        }
    };
    for (const AString& signal : signals)
    {
        BusParts parts;
        const bool fitsSquare = FitsSquare(signal, &parts);
        const bool fits = fitsSquare || FitsAngle(signal, &parts);
        if (fits && !styleDecided)
        {
            square = fitsSquare;
            styleDecided = true;
        }
        if (!fits)
        {
            flush();
            addPiece(signal);
            continue;
        }
        if (!IsIndexList(parts.index))
        {
            flush();
            addPiece(signal);
            continue;
        }
        if (!pending || AString::CompareNoCase(parts.base, base) != 0)
        {
            flush();
            base = parts.base;
            pending = true;
        }
        int index = 0;
        const AString indexText(parts.index);
        if (!indexText.IsNumber(index, 10))
        {
            index = 0;
        }
        indices.push_back(index);
    }
    flush();
    return result;
}

AString AddSliceToBusName(const AString& bus, const AString& slice)
{
    AString base;
    AString busIndex;
    AString sliceIndex;
    bool square = true;
    SplitBusName(bus, base, busIndex, square);
    SplitBusName(slice, base, sliceIndex, square);
    std::vector<int> busList;
    std::vector<int> sliceList;
    ParseIndexList(busIndex, busList);
    ParseIndexList(sliceIndex, sliceList);
    MergeIndexLists(busList, sliceList);
    return ComposeBusName(base, busList, square);
}

AString RemoveSliceFromBusName(const AString& bus, const AString& slice)
{
    std::set<AString, AString::NoCaseLess> busSignals;
    std::set<AString, AString::NoCaseLess> sliceSignals;
    GetUniqueSignals(bus, busSignals);
    GetUniqueSignals(slice, sliceSignals);
    std::vector<AString> remaining;
    for (const AString& signal : busSignals)
    {
        if (sliceSignals.find(signal) == sliceSignals.end())
        {
            remaining.push_back(signal);
        }
    }
    return CreateNetName(remaining);
}

bool MergeAnyBusNames(AString& first, AString& second)
{
    AString firstBase;
    AString secondBase;
    AString firstIndex;
    AString secondIndex;
    if (!IsBusMember(first, firstBase, firstIndex) ||
        !IsBusMember(second, secondBase, secondIndex) || firstBase.CompareNoCase(secondBase) != 0)
    {
        return false;
    }
    first = AddSliceToBusName(first, second);
    second.clear();
    return true;
}

// ---------------------------------------------------------------------------------------
// Predicates

namespace
{
bool SplitMember(const AString& name, AString& base, AString& indexPart,
                 bool (*isValidIndex)(std::wstring_view))
{
    BusParts parts;
    if (!FitsEither(name, &parts) || !isValidIndex(parts.index))
    {
        return false;
    }
    base.assign(parts.base);
    indexPart = name.Mid(base.size());
    return true;
}
} // namespace

bool IsBusMember(const AString& name, AString& base, AString& indexPart)
{
    return SplitMember(name, base, indexPart, &IsIndexList);
}

bool IsMultiBusMember(const AString& name, AString& base, AString& indexPart)
{
    return SplitMember(name, base, indexPart, &IsMultiIndexList);
}

// ---------------------------------------------------------------------------------------
// Checks

namespace
{
// The check of one element of a wire name.
int CheckBusSyntax(std::wstring_view element)
{
    if (element.empty())
    {
        return 21;
    }
    BusParts parts;
    if (FitsEither(element, &parts))
    {
        // The base, split at blanks, must be exactly one word.
        std::vector<AString> words;
        AString(parts.base).TokenizeString(words, L" ", false);
        return (IsIndexList(parts.index) && words.size() == 1) ? 0 : 16;
    }
    const bool holdsOpening = element.find_first_of(L"[<") != std::wstring_view::npos;
    const bool endsClosing = element.back() == kSquareClose || element.back() == kAngleClose;
    return (holdsOpening || endsClosing) ? 16 : 0;
}

bool MatchesSimpleWireName(const AString& name)
{
    try
    {
        return boost::regex_match(name.ToNarrow(AString::ANS_ANSI), SimpleWireNameExpression());
    }
    catch (...)
    {
        return false;
    }
}
} // namespace

int IsGoodWireName(const AString& name)
{
    if (name.empty())
    {
        return 21;
    }
    if (name.find_first_of(L" &*") != AString::npos)
    {
        return 15;
    }
    // Elements end at top-level commas; a bracket swallows everything up to its closing one.
    std::size_t start = 0;
    std::size_t i = 0;
    while (i < name.size())
    {
        const wchar_t c = name[i];
        if (c == kSquareOpen || c == kAngleOpen)
        {
            const std::size_t closing = name.find_first_of(L"]>", i + 1);
            i = closing == AString::npos ? name.size() : closing + 1;
            continue;
        }
        if (c == L',')
        {
            const int code = CheckBusSyntax(std::wstring_view(name).substr(start, i - start));
            if (code != 0)
            {
                return code;
            }
            start = i + 1;
        }
        ++i;
    }
    return CheckBusSyntax(std::wstring_view(name).substr(start));
}

namespace
{
// The standard library's regular-expression matcher recurses once per character and runs out
// of stack on texts of some ten thousand characters. Longer names are decided by a scan with
// the same results as the two expressions: "." stops at a line feed or carriage return, so
// ".*[class].*" holds when no line break occurs and a class character does, or when exactly one
// line break occurs (it is white space itself); "^[0-9]+.*" when the name begins with a digit
// and holds no line break.
constexpr std::size_t kRegexSafeLength = 2000;

bool IsLineBreak(char c)
{
    return c == '\n' || c == '\r';
}

bool IsForbiddenInstanceCharacter(char c)
{
    static constexpr std::string_view kForbidden = " \t\n\v\f\r-+*/@!~#$%^&=`\"|<>.,?';:";
    return kForbidden.find(c) != std::string_view::npos;
}

bool HoldsForbiddenCharacter(std::string_view name)
{
    const std::size_t breaks =
        static_cast<std::size_t>(std::count_if(name.begin(), name.end(), IsLineBreak));
    if (breaks == 1)
    {
        return true;
    }
    return breaks == 0 && std::any_of(name.begin(), name.end(), IsForbiddenInstanceCharacter);
}

bool BeginsWithDigit(std::string_view name)
{
    return !name.empty() && name.front() >= '0' && name.front() <= '9' &&
           std::none_of(name.begin(), name.end(), IsLineBreak);
}
} // namespace

int IsGoodInstanceName(const AString& name)
{
    if (name.empty())
    {
        return 308;
    }
    // The hyphen is escaped inside the class: an unescaped one after "\s" would be read as a
    // range by the standard library's ECMAScript grammar and rejected.
    static const std::regex kForbidden(R"(.*[\s\-\+\*/@!~#\$%\^&=`"\|<>\.,?';:].*)",
                                       std::regex::ECMAScript | std::regex::icase);
    static const std::regex kLeadingDigit(R"(^[0-9]+.*)",
                                          std::regex::ECMAScript | std::regex::icase);
    const std::string narrow = name.ToNarrow(AString::ANS_ANSI);
    const bool shortName = narrow.size() <= kRegexSafeLength;
    if (shortName ? std::regex_match(narrow, kForbidden) : HoldsForbiddenCharacter(narrow))
    {
        return 309;
    }
    if (shortName ? std::regex_match(narrow, kLeadingDigit) : BeginsWithDigit(narrow))
    {
        return 310;
    }
    return 0;
}

bool IsGoodSimpleWireName(const AString& name)
{
    return MatchesSimpleWireName(name);
}

bool IsGoodBusBaseName(const AString& name)
{
    return MatchesSimpleWireName(name);
}

// ---------------------------------------------------------------------------------------
// Ordering

int NetNameCompare(const AString& a, const AString& b)
{
    if (a.empty() && b.empty())
    {
        return 0;
    }
    if (a.empty() || b.empty())
    {
        return 1;
    }
    if (!FitsEither(a))
    {
        return a.CompareNoCase(b);
    }
    std::vector<AString> first;
    std::vector<AString> second;
    GetAllSignalsCanonical(a, first);
    GetAllSignalsCanonical(b, second);
    if (first.size() != second.size())
    {
        return 1;
    }
    for (std::size_t i = 0; i < first.size(); ++i)
    {
        const int result = first[i].CompareNoCase(second[i]);
        if (result != 0)
        {
            return result;
        }
    }
    return 0;
}

int PortNameCompare(const AString& a, const AString& b)
{
    return NetNameCompare(a, b);
}

bool ConnNoCaseLess::operator()(const AString& a, const AString& b) const
{
    return NetNameCompare(a, b) < 0;
}
