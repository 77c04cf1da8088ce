#include "PinNameIndex.h"

#include "BusNameParsing.h"
#include "ICircuitEnvironment.h"
#include "IMerrowApplication.h"

namespace qln::connectivity
{
namespace
{
constexpr std::uint64_t kOffset = 14695981039346656037ull;
constexpr std::uint64_t kPrime = 1099511628211ull;

// FNV-1a over the code points, followed by a final mix so that the low bits spread.
inline std::uint64_t Mix(std::uint64_t hash, char32_t c)
{
    return (hash ^ static_cast<std::uint64_t>(c)) * kPrime;
}

// The low half of the mixed hash: tables index with its low bits and store it whole.
inline std::uint32_t Finish(std::uint64_t hash)
{
    hash ^= hash >> 33;
    hash *= 0xff51afd7ed558ccdull;
    hash ^= hash >> 33;
    return static_cast<std::uint32_t>(hash);
}

std::uint64_t FoldInto(std::uint64_t hash, std::wstring_view text)
{
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        char32_t c = static_cast<char32_t>(text[i]);
        if constexpr (sizeof(wchar_t) == 2)
        {
            // A surrogate pair is one code point, as the case-insensitive comparison reads it.
            if (c >= 0xD800 && c <= 0xDBFF && i + 1 < text.size())
            {
                const char32_t low = static_cast<char32_t>(text[i + 1]);
                if (low >= 0xDC00 && low <= 0xDFFF)
                {
                    c = 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
                    ++i;
                }
            }
        }
        hash = Mix(hash, c < 0x80 ? (c >= U'A' && c <= U'Z' ? c + 32 : c) : AString::FoldCase(c));
    }
    return hash;
}
} // namespace

void PinNameIndex::Clear()
{
    mEntries.clear();
    mText.clear();
    mEmptyHead = -1;
    mEmptyTail = -1;
    mTexts = Table();
    mMembers = Table();
    mEnvironment = CurrentEnvironment();
}

void PinNameIndex::Reserve(std::size_t count)
{
    mEntries.reserve(2 * count);
    Grow(mTexts, count);
    Grow(mMembers, count);
}

void PinNameIndex::Grow(Table& table, std::size_t atLeast)
{
    std::size_t size = table.slots.empty() ? 16 : table.slots.size();
    while (size < 2 * atLeast)
    {
        size *= 2;
    }
    if (size == table.slots.size())
    {
        return;
    }
    std::vector<Slot> old(size);
    old.swap(table.slots);
    for (const Slot& slot : old)
    {
        if (slot.head < 0)
        {
            continue;
        }
        std::size_t i = slot.hash & (size - 1);
        while (table.slots[i].head >= 0)
        {
            i = (i + 1) & (size - 1);
        }
        table.slots[i] = slot;
    }
}

const PinNameIndex::Slot* PinNameIndex::Lookup(const Table& table, std::uint32_t hash)
{
    if (table.slots.empty())
    {
        return nullptr;
    }
    const std::size_t mask = table.slots.size() - 1;
    for (std::size_t i = hash & mask;; i = (i + 1) & mask)
    {
        const Slot& slot = table.slots[i];
        if (slot.head < 0)
        {
            return nullptr;
        }
        if (slot.hash == hash)
        {
            return &slot;
        }
    }
}

void PinNameIndex::Link(Table& table, std::uint32_t hash, int entry)
{
    if (2 * (table.used + 1) > table.slots.size())
    {
        Grow(table, table.used + 1);
    }
    const std::size_t mask = table.slots.size() - 1;
    std::size_t i = hash & mask;
    while (table.slots[i].head >= 0 && table.slots[i].hash != hash)
    {
        i = (i + 1) & mask;
    }
    Slot& slot = table.slots[i];
    if (slot.head < 0)
    {
        slot.hash = hash;
        slot.head = entry;
        ++table.used;
        return;
    }
    Entry& head = mEntries[static_cast<std::size_t>(slot.head)];
    mEntries[static_cast<std::size_t>(head.tail)].next = entry;
    head.tail = entry;
}

int PinNameIndex::AddEntry(std::size_t offset, std::size_t size, int position)
{
    const int entry = static_cast<int>(mEntries.size());
    mEntries.push_back({offset, static_cast<std::uint32_t>(size), position, -1, entry});
    return entry;
}

void PinNameIndex::Add(const AString& name, int position, bool members)
{
    const std::size_t offset = mText.size();
    mText.insert(mText.end(), name.begin(), name.end());
    const int entry = AddEntry(offset, name.size(), position);
    if (name.empty())
    {
        if (mEmptyTail >= 0)
        {
            mEntries[static_cast<std::size_t>(mEmptyTail)].next = entry;
        }
        else
        {
            mEmptyHead = entry;
        }
        mEmptyTail = entry;
        return;
    }
    // A name is looked for as a text by plain queries and as a member list by bus-like ones,
    // whatever it looks like itself; each entry sits in one chain, so it is entered twice.
    Link(mTexts, FoldedHash(name), entry);
    if (members)
    {
        Link(mMembers, MembersHash(name), AddEntry(offset, name.size(), position));
    }
}

PinNameIndex::Key PinNameIndex::MakeKey(const AString& query)
{
    Key key;
    key.empty = query.empty();
    if (!key.empty)
    {
        key.busLike = IsBusLike(query);
        key.hash = key.busLike ? MembersHash(query) : FoldedHash(query);
    }
    return key;
}

void PinNameIndex::Prefetch(const Key& key) const
{
    const Table& table = key.busLike ? mMembers : mTexts;
    if (!key.empty && !table.slots.empty())
    {
        __builtin_prefetch(&table.slots[key.hash & (table.slots.size() - 1)]);
    }
}

int PinNameIndex::Start(const Key& key) const
{
    if (key.empty)
    {
        return mEmptyHead;
    }
    const Slot* slot = Lookup(key.busLike ? mMembers : mTexts, key.hash);
    return slot != nullptr ? slot->head : -1;
}

bool PinNameIndex::Confirm(const AString& query, const Key& key, int entry) const
{
    if (key.empty)
    {
        return true;
    }
    const std::wstring_view name = TextOf(mEntries[static_cast<std::size_t>(entry)]);
    return key.busLike ? PortNameCompare(query, AString(name)) == 0
                       : AString::EqualNoCase(query, name);
}

std::uint32_t PinNameIndex::MembersHash(const AString& name)
{
    std::uint64_t hash = kOffset;
    // A name without "[", "<" and "," is one simple signal in every environment: itself.
    if (name.find_first_of(L"[<,") == AString::npos)
    {
        hash = Mix(hash, static_cast<char32_t>(name.size()));
        return Finish(FoldInto(hash, name));
    }
    std::vector<AString> members;
    GetAllSignalsCanonical(name, members);
    for (const AString& member : members)
    {
        // Each member is led by its length, so that lists do not run into one another.
        hash = FoldInto(Mix(hash, static_cast<char32_t>(member.size())), member);
    }
    return Finish(hash);
}

std::uint32_t PinNameIndex::FoldedHash(std::wstring_view text)
{
    return Finish(FoldInto(kOffset, text));
}

int PinNameIndex::FindFirstText(const AString& text) const
{
    int entry = mEmptyHead;
    if (!text.empty())
    {
        const Slot* slot = Lookup(mTexts, FoldedHash(text));
        entry = slot != nullptr ? slot->head : -1;
    }
    for (; entry >= 0; entry = mEntries[static_cast<std::size_t>(entry)].next)
    {
        const Entry& candidate = mEntries[static_cast<std::size_t>(entry)];
        if (AString::EqualNoCase(text, TextOf(candidate)))
        {
            return candidate.position;
        }
    }
    return -1;
}

int PinNameIndex::CurrentEnvironment()
{
    const ICircuitEnvironment* environment =
        InterfaceQuery<ICircuitEnvironment>(GetIMerrowApplication());
    return environment != nullptr ? environment->GetCircuitEnvironment() : kEnvNone;
}

bool PinNameIndex::IsBusLike(std::wstring_view name)
{
    // The whole-text patterns "*[*]" and "*<*>": a closing bracket at the end and the opening
    // one somewhere before it.
    const auto fits = [name](wchar_t open, wchar_t close)
    { return name.size() >= 2 && name.back() == close && name.find(open) < name.size() - 1; };
    return fits(L'[', L']') || fits(L'<', L'>');
}
} // namespace qln::connectivity
