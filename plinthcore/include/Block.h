// The framework's hierarchical blocks: the in-memory form of project files.
//
// A block has a name, an optional class word and an ordered list of items. An item is an
// unnamed value, a named value (key = value) or a named sub-block; names repeat freely (a
// terminal list holds many "Terminal" blocks). Values are typed (CBlock_value): text, signed
// 64-bit integer, real (double) or bool. The class word is recorded on the block itself, not
// as an item, so it never disturbs positional reading of the values.
//
// io::CBlock is the interface every block offers; io::CBlock_func is the block object itself
// (a tree's root is one the caller owns, its sub-blocks belong to the tree). Records write
// themselves by appending to a block:
//   io::CBlock_func& term = parent.AddBlock(L"Terminal");
//   term.AddValue(schPin); term.AddValue(layPin); term.AddValue(gate); term.AddValue(shared);
//   info.AddNamedValue(L"IsUnconstrained", dti.mIsUnconstrained);
//   block.SetClassWord(L"GenericProp");
// and read themselves back positionally, with presence queries for the optional parts:
//   block.ResetReadPosition();
//   if (!block.ReadValue(dti.mName) || !block.ReadValue(dti.mType)) return false;
//   if (io::CBlock_func* types = block.FindBlock(L"PhyTypes")) ...
//   found = block.GetNamedValue(L"IsUnconstrained", dti.mIsUnconstrained); // untouched if absent
//   for (io::CBlock_item item : block.Items())
//       if (item.HasName(L"Terminal") && !item.IsBlock()) ...
//
// Lookups and reads report failure by result, never by throwing. Writing never throws either:
// an item the tree refuses (a text or name over its size limit, an unsigned integer beyond
// the signed 64-bit range, too many items, blocks nested too deep) is dropped and sets the
// tree's error state, which HasError reports on every block of the tree until ClearError, as
// a stream's fail state does.
//
// Sub-blocks are separate objects that a block refers to: like a pointer, a const block hands
// out its sub-blocks as modifiable blocks, so that a reader given a const block can pass a
// sub-block on to readers that reset its read position. A sub-block stays valid as long as
// its tree (removing items is not offered, so nothing detaches it); item views (CBlock_item,
// CBlock_value) stay valid until the block they came from changes.
//
// Not thread-safe: even reading moves the block's read position.
#pragma once

#include "AString.h"
#include "BlockValue.h"
#include "PlinthExport.h"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string_view>
#include <type_traits>

namespace io
{

// Result of a record's Read.
enum ReadError : int
{
    kNoError = 0,
    kReadFailed = -1,  // the block did not hold what the record needs
    kDeleteObject = -2 // the record read refuses to exist; the caller deletes the object
};

// Limits of every tree. Reading may set lower ones (BlockReadLimits).
inline constexpr std::size_t kMaxBlockDepth = 256; // levels, the root included
inline constexpr std::size_t kMaxBlockTextBytes = std::size_t{64} << 20; // one text value, UTF-8
inline constexpr std::size_t kMaxBlockNameBytes = std::size_t{64} << 10; // one name or class word
inline constexpr std::size_t kMaxBlockItems = std::size_t{1} << 26;      // items of one block

class CBlock;
class CBlock_func;

namespace detail
{
struct Slot;
class BlockStore;
struct BlockAccess;
} // namespace detail

// A view of one item of a block. A default-made view (or one past the end) is not valid: it
// is neither a value nor a block.
class PLINTH_API CBlock_item
{
public:
    CBlock_item() noexcept = default;

    bool IsValid() const noexcept { return mSlot != nullptr; }
    // An unnamed value.
    bool IsValue() const noexcept;
    bool IsNamedValue() const noexcept;
    bool IsBlock() const noexcept;

    // The key of a named value or the name of a sub-block; empty for an unnamed value.
    AString GetName() const;
    std::string_view GetNameUtf8() const noexcept;
    // Exact (case-sensitive) comparison with the name.
    bool HasName(std::wstring_view name) const;
    bool HasName(std::string_view utf8Name) const noexcept;

    // The value of a value or named value; the empty text for a block or an invalid view.
    CBlock_value GetValue() const noexcept;
    // The sub-block, or null when the item is not a block.
    CBlock_func* GetBlock() const noexcept;

private:
    friend class CBlock;
    friend struct detail::BlockAccess;
    CBlock_item(const detail::Slot* slot, const detail::BlockStore* store) noexcept
        : mSlot(slot), mStore(store)
    {
    }

    const detail::Slot* mSlot = nullptr;
    const detail::BlockStore* mStore = nullptr;
};

class PLINTH_API CBlock
{
public:
    // Forward iteration over the items in order:  for (io::CBlock_item item : block.Items())
    class PLINTH_API ItemIterator
    {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = CBlock_item;
        using difference_type = std::ptrdiff_t;
        using pointer = void;
        using reference = CBlock_item;

        ItemIterator() noexcept = default;
        CBlock_item operator*() const noexcept { return mBlock->GetItem(mIndex); }
        ItemIterator& operator++() noexcept
        {
            ++mIndex;
            return *this;
        }
        ItemIterator operator++(int) noexcept
        {
            ItemIterator old = *this;
            ++mIndex;
            return old;
        }
        friend bool operator==(const ItemIterator& a, const ItemIterator& b) noexcept
        {
            return a.mIndex == b.mIndex;
        }

    private:
        friend class CBlock;
        ItemIterator(const CBlock* block, std::size_t index) noexcept : mBlock(block), mIndex(index)
        {
        }
        const CBlock* mBlock = nullptr;
        std::size_t mIndex = 0;
    };
    struct ItemRange
    {
        ItemIterator first;
        ItemIterator last;
        ItemIterator begin() const noexcept { return first; }
        ItemIterator end() const noexcept { return last; }
    };

    virtual ~CBlock();
    CBlock(const CBlock&) = delete;
    CBlock& operator=(const CBlock&) = delete;

    // Name and class word ------------------------------------------------------------------

    AString GetName() const;
    std::string_view GetNameUtf8() const noexcept;
    // Records the class word of the block (the empty word removes it). Virtual so that a
    // block that only collects or forwards can take it its own way.
    virtual void SetClassWord(std::wstring_view word);
    void SetClassWordUtf8(std::string_view word);
    AString GetClassWord() const;
    std::string_view GetClassWordUtf8() const noexcept;
    bool HasClassWord() const noexcept { return mClassWord != 0; }

    // Items ---------------------------------------------------------------------------------

    // All items: values, named values and sub-blocks.
    std::size_t GetItemCount() const noexcept { return mCount; }
    bool IsEmpty() const noexcept { return mCount == 0; }
    // The unnamed values only.
    std::size_t GetValueCount() const noexcept;
    // The item at `index`; an invalid view past the end.
    CBlock_item GetItem(std::size_t index) const noexcept;
    ItemRange Items() const noexcept { return {ItemIterator(this, 0), ItemIterator(this, mCount)}; }
    // Level of the block in its tree: 1 for a root.
    std::size_t GetDepth() const noexcept { return mDepth; }

    // Positional reading of the unnamed values -------------------------------------------
    // The read position starts at the first item; each successful read moves it past the
    // value read. Named values and sub-blocks in between are stepped over.
    //   block { "x" 5 Sub { } true }:  ReadValue(text) "x", ReadValue(n) 5, ReadValue(b) true

    void ResetReadPosition() const noexcept { mReadPosition = 0; }
    // Index of the item where the next value is looked for.
    std::size_t GetReadPosition() const noexcept { return mReadPosition; }
    // Reads the next unnamed value into `target` (a type that CBlock_value::Get takes, or
    // CBlock_value itself). When there is none, or it does not convert, returns false and
    // leaves both `target` and the read position as they were.
    template <typename T> bool ReadValue(T& target) const
    {
        std::size_t index = 0;
        if (!FindNextValue(index))
        {
            return false;
        }
        if constexpr (std::is_same_v<T, CBlock_value>)
        {
            target = GetItem(index).GetValue();
        }
        else if (!GetItem(index).GetValue().Get(target))
        {
            return false;
        }
        mReadPosition = static_cast<std::uint32_t>(index + 1);
        return true;
    }
    // The next unnamed value without moving on; nothing when there is none.
    std::optional<CBlock_value> PeekValue() const noexcept;
    // Moves past the next unnamed value; false when there is none.
    bool SkipValue() const noexcept;

    // Look-ups by name (exact, case-sensitive; the first match wins) ------------------------

    // The first sub-block of that name, or null.
    CBlock_func* FindBlock(std::wstring_view name) const;
    CBlock_func* FindBlock(std::string_view utf8Name) const noexcept;
    // The value of the first named value of that key.
    std::optional<CBlock_value> FindNamedValue(std::wstring_view name) const;
    std::optional<CBlock_value> FindNamedValue(std::string_view utf8Name) const noexcept;
    // Presence query: true and `target` set when the named value exists and converts;
    // otherwise false and `target` untouched.
    //   bool found = block.GetNamedValue(L"IsBusPort", dti.mIsBusPort);
    template <typename T> bool GetNamedValue(std::wstring_view name, T& target) const
    {
        const std::optional<CBlock_value> value = FindNamedValue(name);
        return value && value->Get(target);
    }
    template <typename T> bool GetNamedValue(std::string_view utf8Name, T& target) const
    {
        const std::optional<CBlock_value> value = FindNamedValue(utf8Name);
        return value && value->Get(target);
    }

    // Writing -------------------------------------------------------------------------------

    // Appends an unnamed value.
    void AddValue(const CBlock_value& value);
    // Appends a named value; the name may be any text, also empty.
    void AddNamedValue(std::wstring_view name, const CBlock_value& value);
    void AddNamedValue(std::string_view utf8Name, const CBlock_value& value);
    void AddNamedValue(const CBlock_named_value& item)
    {
        AddNamedValue(item.GetName(), item.GetValue());
    }
    // Appends an empty sub-block and returns it. When the tree refuses it (too deep, too
    // many items) the result is a detached block that ignores everything written to it.
    CBlock_func& AddBlock(std::wstring_view name);
    CBlock_func& AddBlock(std::string_view utf8Name);
    // Appends a copy of `source` (name, class word and all items, deeply); `source` may
    // belong to any tree, this one included.
    CBlock_func& AddBlockCopy(const CBlock& source);
    // Removes every item and the class word; the name stays.
    void Clear();

    // Error state of the whole tree --------------------------------------------------------

    bool HasError() const noexcept;
    // The first refusal in plain words, e.g. "blocks nest deeper than 256 levels".
    AString GetError() const;
    void ClearError() noexcept;

    // Same name, class word and items (values by CBlock_value equality, sub-blocks deeply).
    friend PLINTH_API bool operator==(const CBlock& a, const CBlock& b);

protected:
    CBlock(detail::BlockStore* store, std::uint32_t name, std::uint16_t depth,
           bool ownsStore) noexcept;

    bool FindNextValue(std::size_t& index) const noexcept;
    detail::BlockStore& Store();
    void AppendSlot(const detail::Slot& slot);
    void CopyContentsFrom(const CBlock& source);
    void ReleaseStore() noexcept;

    detail::BlockStore* mStore = nullptr;
    detail::Slot* mItems = nullptr;
    std::uint32_t mCount = 0;
    std::uint32_t mCapacity = 0;
    std::uint32_t mName = 0;
    std::uint32_t mClassWord = 0;
    mutable std::uint32_t mReadPosition = 0;
    std::uint16_t mDepth = 1;
    bool mOwnsStore = false;
    bool mDetached = false; // the refusal sink: ignores writes

private:
    friend class CBlock_item;
    friend struct detail::BlockAccess;
};

// The block object. Made by the caller it is the root of a new tree, which it owns; the
// sub-blocks of a tree are made by AddBlock (or by reading a file) and belong to the tree.
// Copying deep-copies; assigning to a sub-block replaces its class word and items but keeps
// its name, which belongs to the parent's item.
class PLINTH_API CBlock_func final : public CBlock
{
public:
    explicit CBlock_func(std::wstring_view name = {});
    explicit CBlock_func(std::string_view utf8Name);
    CBlock_func(const CBlock_func& other);
    CBlock_func(CBlock_func&& other) noexcept;
    // A new tree holding a copy of `other`.
    explicit CBlock_func(const CBlock& other);
    CBlock_func& operator=(const CBlock_func& other);
    CBlock_func& operator=(const CBlock& other);
    CBlock_func& operator=(CBlock_func&& other) noexcept;
    ~CBlock_func() override;

    // Whether this block is a tree's root (owns its tree).
    bool IsRoot() const noexcept { return mOwnsStore || mStore == nullptr; }
    // Bytes the whole tree holds (names, texts, items, blocks); for sizing and statistics.
    std::size_t GetTreeMemoryBytes() const noexcept;

private:
    friend struct detail::BlockAccess;
    // A sub-block inside a tree.
    CBlock_func(detail::BlockStore* store, std::uint32_t name, std::uint16_t depth) noexcept;
};

} // namespace io
