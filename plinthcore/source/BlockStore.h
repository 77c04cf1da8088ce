// Storage behind a tree of blocks: one store per tree holds every sub-block, item array,
// text and name in a bump arena, and interns names so that an item carries a 32-bit name
// id. An item is one 16-byte slot; texts of up to 8 bytes live inside the slot. Private to
// plinthcore.
#pragma once

#include "Block.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace io::detail
{

enum class SlotKind : std::uint32_t
{
    kText = 0,
    kInteger = 1,
    kReal = 2,
    kBool = 3,
    kBlock = 4
};

inline constexpr std::uint32_t kNoName = 0;
inline constexpr std::uint32_t kKindShift = 29;
inline constexpr std::uint32_t kLengthMask = (std::uint32_t{1} << kKindShift) - 1;
inline constexpr std::size_t kInlineTextBytes = 8;
static_assert(kMaxBlockTextBytes <= kLengthMask);

struct Slot
{
    std::uint32_t name; // kNoName for an unnamed value
    std::uint32_t tag;  // kind in the top 3 bits, text length below
    union
    {
        std::int64_t integer;
        double real;
        bool boolean;
        const char* text;
        char inlineText[kInlineTextBytes];
        CBlock_func* block;
    };

    SlotKind Kind() const noexcept { return static_cast<SlotKind>(tag >> kKindShift); }
    std::uint32_t Length() const noexcept { return tag & kLengthMask; }
    bool IsBlock() const noexcept { return Kind() == SlotKind::kBlock; }
    std::string_view Text() const noexcept
    {
        return Length() <= kInlineTextBytes ? std::string_view(inlineText, Length())
                                            : std::string_view(text, Length());
    }
    static std::uint32_t Tag(SlotKind kind, std::uint32_t length = 0) noexcept
    {
        return (static_cast<std::uint32_t>(kind) << kKindShift) | length;
    }
};
static_assert(sizeof(Slot) == 16);

// Bump allocator: memory is released only with the arena.
class Arena
{
public:
    Arena() = default;
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;
    ~Arena();

    void* Allocate(std::size_t bytes, std::size_t alignment)
    {
        auto address = reinterpret_cast<std::uintptr_t>(mCursor);
        const std::uintptr_t aligned = (address + alignment - 1) & ~(alignment - 1);
        if (mCursor != nullptr && aligned + bytes <= reinterpret_cast<std::uintptr_t>(mEnd))
        {
            mCursor = reinterpret_cast<char*>(aligned + bytes);
            return reinterpret_cast<void*>(aligned);
        }
        return AllocateSlow(bytes, alignment);
    }
    // Bytes obtained from the system.
    std::size_t ReservedBytes() const noexcept { return mReserved; }
    void Release() noexcept;

private:
    struct Chunk
    {
        Chunk* next;
        std::size_t size;
    };
    void* AllocateSlow(std::size_t bytes, std::size_t alignment);

    Chunk* mChunks = nullptr;
    char* mCursor = nullptr;
    char* mEnd = nullptr;
    std::size_t mNextChunkBytes = 1024;
    std::size_t mReserved = 0;
};

class BlockStore
{
public:
    BlockStore() = default;
    BlockStore(const BlockStore&) = delete;
    BlockStore& operator=(const BlockStore&) = delete;

    // The id of a name, adding it when new.
    std::uint32_t Intern(std::string_view name);
    // The id of a known name, or kNoName.
    std::uint32_t FindName(std::string_view name) const noexcept;
    std::string_view Name(std::uint32_t id) const noexcept { return mNames[id]; }

    // A new, empty sub-block.
    CBlock_func* NewBlock(std::uint32_t name, std::uint16_t depth);
    // The detached block that AddBlock hands out when the tree refuses a block.
    CBlock_func& Detached();
    // An array for `count` items; arrays of a power-of-two size that a block outgrew are
    // handed out again.
    Slot* AllocateSlots(std::size_t count);
    void FreeSlotArray(Slot* slots, std::size_t count) noexcept;
    // Fills `slot` with a text: inside the slot when short, else copied into the arena.
    void SetText(Slot& slot, std::string_view text);

    // The first error of the tree wins.
    void SetError(std::string reason);
    bool HasError() const noexcept { return mHasError; }
    const std::string& Error() const noexcept { return mError; }
    void ClearError() noexcept
    {
        mHasError = false;
        mError.clear();
    }

    std::size_t MemoryBytes() const noexcept;

private:
    struct Hash
    {
        std::size_t operator()(std::string_view text) const noexcept;
    };

    struct FreeSlots
    {
        FreeSlots* next;
    };
    static constexpr std::size_t kFreeLists = 32;

    Arena mArena;
    FreeSlots* mFreeSlots[kFreeLists] = {};
    std::vector<std::string_view> mNames{std::string_view()}; // id 0: no name
    std::unordered_map<std::string_view, std::uint32_t, Hash> mIds;
    std::uint32_t mLastId = kNoName; // most items repeat the name before them
    CBlock_func* mDetached = nullptr;
    bool mHasError = false;
    std::string mError;
};

// Internal access for the reader, the writer and the copy code.
struct BlockAccess
{
    static BlockStore* Store(const CBlock& block) noexcept { return block.mStore; }
    static BlockStore& EnsureStore(CBlock& block) { return block.Store(); }
    static const Slot* Items(const CBlock& block) noexcept { return block.mItems; }
    static std::uint32_t NameId(const CBlock& block) noexcept { return block.mName; }
    static std::uint32_t ClassWordId(const CBlock& block) noexcept { return block.mClassWord; }
    static void SetClassWordId(CBlock& block, std::uint32_t id) noexcept { block.mClassWord = id; }
    static void SetItems(CBlock& block, Slot* items, std::uint32_t count) noexcept
    {
        block.mItems = items;
        block.mCount = count;
        block.mCapacity = count;
        block.mReadPosition = 0;
    }
    static CBlock_func* Construct(void* memory, BlockStore* store, std::uint32_t name,
                                  std::uint16_t depth) noexcept
    {
        auto* block = new (memory) CBlock_func(store, name, depth);
        return block;
    }
    static void MarkDetached(CBlock& block) noexcept { block.mDetached = true; }
    // Hands `store`, which holds the parsed tree whose top block is `top`, to `target`: a
    // root takes the store over; a sub-block receives a copy of the items.
    static void Adopt(CBlock_func& target, BlockStore* store, const CBlock& top);
    static CBlock_item MakeItem(const Slot* slot, const BlockStore* store) noexcept
    {
        return CBlock_item(slot, store);
    }
};

} // namespace io::detail
