// PinNameIndex: the positions of a list of names, searchable by PortNameCompare in constant
// expected time. A query q finds the names n with PortNameCompare(q, n) == 0: for an empty q
// the empty names; for a q that does not look like a bus ("*[*]" or "*<*>") the non-empty
// names equal to it ignoring case; for a bus-like q the non-empty names whose canonical member
// lists equal its own ignoring case. The index keeps a hash of each name both ways (folded
// text, folded member list) in flat tables and confirms every candidate with PortNameCompare
// itself, so hash collisions cost time, never correctness. It keeps its own copy of the names,
// side by side in one text, so that confirming a candidate reads one short run of memory. Member
// lists depend on the circuit environment (brackets that are not index lists are part of a simple
// name in environment 0), so an index remembers the environment it was built in.
#pragma once

#include "AString.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace qln::connectivity
{
class PinNameIndex
{
public:
    // Forgets every name and takes the current environment.
    void Clear();
    // Makes room for `count` names.
    void Reserve(std::size_t count);
    // Adds `name` at `position`; positions must be added in
    // ascending order. Without `members` the name can be found by FindFirstText only.
    void Add(const AString& name, int position, bool members = true);
    // What a query is looked for by: which table and which hash. Depends on the environment
    // when the query is bus-like.
    struct Key
    {
        std::uint32_t hash = 0;
        bool empty = false;
        bool busLike = false;
    };
    static Key MakeKey(const AString& query);
    // Starts loading the table slot of `key`, so that a look-up soon after finds it in cache;
    // a caller with other work to do first hides the memory latency behind it.
    void Prefetch(const Key& key) const;

    // Whether some name equals `query`.
    bool Contains(const AString& query) const
    {
        return FindFirst(query, [](int) { return true; }) >= 0;
    }
    // The first (smallest) position of a name that `query` equals for which `accept(position)`
    // holds, or -1. `key` is MakeKey(query).
    template <typename Accept>
    int FindFirst(const AString& query, const Key& key, Accept accept) const
    {
        for (int entry = Start(key); entry >= 0; entry = mEntries[entry].next)
        {
            const Entry& candidate = mEntries[entry];
            if (Confirm(query, key, entry) && accept(candidate.position))
            {
                return candidate.position;
            }
        }
        return -1;
    }
    template <typename Accept> int FindFirst(const AString& query, Accept accept) const
    {
        return FindFirst(query, MakeKey(query), accept);
    }
    // The first position of a name equal to `text` ignoring case (no member lists), or -1.
    int FindFirstText(const AString& text) const;
    // The environment the index was built in.
    int GetEnvironment() const { return mEnvironment; }

    // The circuit environment that name expansion uses now.
    static int CurrentEnvironment();
    // Whether `name` is compared member by member when it is the first argument.
    static bool IsBusLike(std::wstring_view name);
    // A hash equal for texts that are equal ignoring case (of their simply folded code points).
    static std::uint32_t FoldedHash(std::wstring_view text);

private:
    // One name of a chain; its characters are in mText.
    struct Entry
    {
        std::size_t offset;
        std::uint32_t size;
        int position;
        int next; // the next entry of the same hash, -1 at the end
        int tail; // the last entry of the chain, kept by its first entry
    };
    // One slot of a flat hash table: a hash and the first entry of its chain.
    struct Slot
    {
        std::uint32_t hash = 0;
        int head = -1;
    };
    struct Table
    {
        std::vector<Slot> slots; // a power of two in size, at most half full
        std::size_t used = 0;
    };

    int AddEntry(std::size_t offset, std::size_t size, int position);
    std::wstring_view TextOf(const Entry& entry) const
    {
        return {mText.data() + entry.offset, entry.size};
    }
    void Link(Table& table, std::uint32_t hash, int entry);
    static const Slot* Lookup(const Table& table, std::uint32_t hash);
    static void Grow(Table& table, std::size_t atLeast);
    // The first entry of the chain of `key`, or -1.
    int Start(const Key& key) const;
    bool Confirm(const AString& query, const Key& key, int entry) const;
    // The hash of the canonical member list of `name`.
    static std::uint32_t MembersHash(const AString& name);

    std::vector<Entry> mEntries;
    std::vector<wchar_t> mText;
    int mEmptyHead = -1;
    int mEmptyTail = -1;
    Table mTexts;
    Table mMembers;
    int mEnvironment = -1;
};
} // namespace qln::connectivity
