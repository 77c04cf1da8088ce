#include "Block.h"

#include "BlockStore.h"
#include "BlockUnicode.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <new>
#include <utility>

namespace io
{
namespace detail
{

// Arena ---------------------------------------------------------------------------------

namespace
{
constexpr std::size_t kMaxChunkBytes = std::size_t{1} << 20;
constexpr std::size_t kChunkHeader = 16; // keeps chunk data 16-byte aligned
} // namespace

Arena::~Arena()
{
    Release();
}

void Arena::Release() noexcept
{
    while (mChunks != nullptr)
    {
        Chunk* next = mChunks->next;
        ::operator delete(static_cast<void*>(mChunks));
        mChunks = next;
    }
    mCursor = nullptr;
    mEnd = nullptr;
    mReserved = 0;
    mNextChunkBytes = 1024;
}

void* Arena::AllocateSlow(std::size_t bytes, std::size_t alignment)
{
    const std::size_t needed = kChunkHeader + bytes + alignment;
    if (bytes > mNextChunkBytes / 4)
    {
        // A large piece gets a chunk of its own, behind the current one, so that the space
        // left in the current chunk is not abandoned.
        auto* chunk = static_cast<Chunk*>(::operator new(needed));
        chunk->size = needed;
        if (mChunks != nullptr)
        {
            chunk->next = mChunks->next;
            mChunks->next = chunk;
        }
        else
        {
            chunk->next = nullptr;
            mChunks = chunk;
        }
        mReserved += needed;
        const auto start = reinterpret_cast<std::uintptr_t>(chunk) + kChunkHeader;
        return reinterpret_cast<void*>((start + alignment - 1) & ~(alignment - 1));
    }
    const std::size_t size = std::max(mNextChunkBytes, needed);
    auto* chunk = static_cast<Chunk*>(::operator new(size));
    chunk->size = size;
    chunk->next = mChunks;
    mChunks = chunk;
    mReserved += size;
    mNextChunkBytes = std::min(mNextChunkBytes * 2, kMaxChunkBytes);
    mCursor = reinterpret_cast<char*>(chunk) + kChunkHeader;
    mEnd = reinterpret_cast<char*>(chunk) + size;
    return Allocate(bytes, alignment);
}

// BlockStore ----------------------------------------------------------------------------

std::size_t BlockStore::Hash::operator()(std::string_view text) const noexcept
{
    // FNV-1a: names are short, and this is cheaper than a general-purpose hash for them.
    std::uint64_t hash = 14695981039346656037ull;
    for (const char c : text)
    {
        hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ull;
    }
    return static_cast<std::size_t>(hash);
}

std::uint32_t BlockStore::Intern(std::string_view name)
{
    if (mLastId != kNoName && mNames[mLastId] == name)
    {
        return mLastId;
    }
    if (const auto found = mIds.find(name); found != mIds.end())
    {
        mLastId = found->second;
        return mLastId;
    }
    char* copy = static_cast<char*>(mArena.Allocate(name.size() + 1, 1));
    std::copy(name.begin(), name.end(), copy);
    const std::string_view key(copy, name.size());
    const auto id = static_cast<std::uint32_t>(mNames.size());
    mNames.push_back(key);
    mIds.emplace(key, id);
    mLastId = id;
    return id;
}

std::uint32_t BlockStore::FindName(std::string_view name) const noexcept
{
    if (mLastId != kNoName && mNames[mLastId] == name)
    {
        return mLastId;
    }
    const auto found = mIds.find(name);
    return found == mIds.end() ? kNoName : found->second;
}

CBlock_func* BlockStore::NewBlock(std::uint32_t name, std::uint16_t depth)
{
    void* memory = mArena.Allocate(sizeof(CBlock_func), alignof(CBlock_func));
    return BlockAccess::Construct(memory, this, name, depth);
}

CBlock_func& BlockStore::Detached()
{
    if (mDetached == nullptr)
    {
        mDetached = NewBlock(kNoName, static_cast<std::uint16_t>(kMaxBlockDepth));
        BlockAccess::MarkDetached(*mDetached);
    }
    return *mDetached;
}

Slot* BlockStore::AllocateSlots(std::size_t count)
{
    if (count >= 4 && (count & (count - 1)) == 0)
    {
        const auto list = static_cast<std::size_t>(std::countr_zero(count));
        if (list < kFreeLists && mFreeSlots[list] != nullptr)
        {
            FreeSlots* reused = mFreeSlots[list];
            mFreeSlots[list] = reused->next;
            return reinterpret_cast<Slot*>(reused);
        }
    }
    return static_cast<Slot*>(mArena.Allocate(count * sizeof(Slot), alignof(Slot)));
}

void BlockStore::FreeSlotArray(Slot* slots, std::size_t count) noexcept
{
    if (slots == nullptr || count < 4 || (count & (count - 1)) != 0)
    {
        return;
    }
    const auto list = static_cast<std::size_t>(std::countr_zero(count));
    if (list < kFreeLists)
    {
        auto* freed = reinterpret_cast<FreeSlots*>(slots);
        freed->next = mFreeSlots[list];
        mFreeSlots[list] = freed;
    }
}

void BlockStore::SetText(Slot& slot, std::string_view text)
{
    slot.tag = Slot::Tag(SlotKind::kText, static_cast<std::uint32_t>(text.size()));
    if (text.size() <= kInlineTextBytes)
    {
        slot.integer = 0;
        std::copy(text.begin(), text.end(), slot.inlineText);
        return;
    }
    char* copy = static_cast<char*>(mArena.Allocate(text.size(), 1));
    std::copy(text.begin(), text.end(), copy);
    slot.text = copy;
}

void BlockStore::SetError(std::string reason)
{
    if (!mHasError)
    {
        mHasError = true;
        mError = std::move(reason);
    }
}

std::size_t BlockStore::MemoryBytes() const noexcept
{
    // The arena holds blocks, item arrays, texts and names; the name table adds its index.
    constexpr std::size_t kHashNodeBytes = 40;
    return sizeof(*this) + mArena.ReservedBytes() + mNames.capacity() * sizeof(std::string_view) +
           mIds.bucket_count() * sizeof(void*) + mIds.size() * kHashNodeBytes + mError.capacity();
}

// Copying between (or within) trees ----------------------------------------------------

namespace
{
// The number of block levels of `block`, itself included.
std::size_t Height(const CBlock& block)
{
    std::size_t below = 0;
    for (const CBlock_item item : block.Items())
    {
        if (const CBlock_func* child = item.GetBlock())
        {
            below = std::max(below, Height(*child));
        }
    }
    return below + 1;
}

class Copier
{
public:
    Copier(const BlockStore* from, BlockStore& to) : mFrom(from), mTo(to) {}

    std::uint32_t Name(std::uint32_t id)
    {
        if (mFrom == &mTo || id == kNoName)
        {
            return id;
        }
        if (id >= mMap.size())
        {
            mMap.resize(id + 1, kNoName);
        }
        if (mMap[id] == kNoName)
        {
            mMap[id] = mTo.Intern(mFrom->Name(id));
        }
        return mMap[id];
    }

    // A new item array holding copies of `source`'s items at level `depth`.
    Slot* Items(const CBlock& source, std::uint16_t depth)
    {
        const std::size_t count = source.GetItemCount();
        if (count == 0)
        {
            return nullptr;
        }
        Slot* items = mTo.AllocateSlots(count);
        const Slot* from = BlockAccess::Items(source);
        for (std::size_t i = 0; i < count; ++i)
        {
            Slot slot = from[i];
            slot.name = Name(slot.name);
            if (slot.IsBlock())
            {
                slot.block = Block(*from[i].block, slot.name, depth + 1);
            }
            else if (slot.Kind() == SlotKind::kText && mFrom != &mTo)
            {
                // Within one tree texts are shared: the arena never frees them.
                mTo.SetText(slot, from[i].Text());
            }
            items[i] = slot;
        }
        return items;
    }

    CBlock_func* Block(const CBlock& source, std::uint32_t name, std::uint16_t depth)
    {
        CBlock_func* block = mTo.NewBlock(name, depth);
        BlockAccess::SetClassWordId(*block, Name(BlockAccess::ClassWordId(source)));
        BlockAccess::SetItems(*block, Items(source, depth),
                              static_cast<std::uint32_t>(source.GetItemCount()));
        return block;
    }

private:
    const BlockStore* mFrom;
    BlockStore& mTo;
    std::vector<std::uint32_t> mMap;
};

bool SameSlot(const Slot& a, const BlockStore* aStore, const Slot& b, const BlockStore* bStore)
{
    if (a.tag != b.tag || aStore->Name(a.name) != bStore->Name(b.name) ||
        (a.name == kNoName) != (b.name == kNoName))
    {
        return false;
    }
    switch (a.Kind())
    {
    case SlotKind::kText:
        return a.Text() == b.Text();
    case SlotKind::kInteger:
        return a.integer == b.integer;
    case SlotKind::kReal:
        if (std::isnan(a.real) || std::isnan(b.real))
        {
            return std::isnan(a.real) && std::isnan(b.real);
        }
        return std::bit_cast<std::uint64_t>(a.real) == std::bit_cast<std::uint64_t>(b.real);
    case SlotKind::kBool:
        return a.boolean == b.boolean;
    case SlotKind::kBlock:
        return *a.block == *b.block;
    }
    return false;
}

std::string TooLong(const char* what, std::size_t size, std::size_t limit)
{
    return std::string(what) + " of " + std::to_string(size) +
           " bytes is longer than the limit of " + std::to_string(limit) + " bytes";
}
} // namespace

void BlockAccess::Adopt(CBlock_func& target, BlockStore* store, const CBlock& top)
{
    if (!target.IsRoot())
    {
        target.CopyContentsFrom(top);
        delete store;
        return;
    }
    target.ReleaseStore();
    target.mStore = store;
    target.mOwnsStore = true;
    target.mName = top.mName;
    target.mClassWord = top.mClassWord;
    target.mItems = top.mItems;
    target.mCount = top.mCount;
    target.mCapacity = top.mCapacity;
    target.mDepth = 1;
    target.mReadPosition = 0;
}

} // namespace detail

using detail::BlockAccess;
using detail::BlockStore;
using detail::kNoName;
using detail::Slot;
using detail::SlotKind;

namespace
{
std::string ToUtf8(std::wstring_view text)
{
    std::string utf8;
    detail::AppendWideAsUtf8(utf8, text);
    return utf8;
}

AString ToWide(std::string_view utf8)
{
    AString text;
    detail::AppendUtf8AsWide(text, utf8);
    return text;
}
} // namespace

// CBlock_item ---------------------------------------------------------------------------

bool CBlock_item::IsValue() const noexcept
{
    return mSlot != nullptr && !mSlot->IsBlock() && mSlot->name == kNoName;
}

bool CBlock_item::IsNamedValue() const noexcept
{
    return mSlot != nullptr && !mSlot->IsBlock() && mSlot->name != kNoName;
}

bool CBlock_item::IsBlock() const noexcept
{
    return mSlot != nullptr && mSlot->IsBlock();
}

AString CBlock_item::GetName() const
{
    return ToWide(GetNameUtf8());
}

std::string_view CBlock_item::GetNameUtf8() const noexcept
{
    return mSlot != nullptr ? mStore->Name(mSlot->name) : std::string_view();
}

bool CBlock_item::HasName(std::wstring_view name) const
{
    return mSlot != nullptr && (mSlot->name != kNoName || mSlot->IsBlock()) &&
           detail::SameText(GetNameUtf8(), name);
}

bool CBlock_item::HasName(std::string_view utf8Name) const noexcept
{
    return mSlot != nullptr && (mSlot->name != kNoName || mSlot->IsBlock()) &&
           GetNameUtf8() == utf8Name;
}

CBlock_value CBlock_item::GetValue() const noexcept
{
    if (mSlot == nullptr)
    {
        return {};
    }
    switch (mSlot->Kind())
    {
    case SlotKind::kText:
        return CBlock_value(mSlot->Text());
    case SlotKind::kInteger:
        return CBlock_value(mSlot->integer);
    case SlotKind::kReal:
        return CBlock_value(mSlot->real);
    case SlotKind::kBool:
        return CBlock_value(mSlot->boolean);
    case SlotKind::kBlock:
        break;
    }
    return {};
}

CBlock_func* CBlock_item::GetBlock() const noexcept
{
    return IsBlock() ? mSlot->block : nullptr;
}

// CBlock ---------------------------------------------------------------------------------

CBlock::CBlock(BlockStore* store, std::uint32_t name, std::uint16_t depth, bool ownsStore) noexcept
    : mStore(store), mName(name), mDepth(depth), mOwnsStore(ownsStore)
{
}

CBlock::~CBlock()
{
    ReleaseStore();
}

void CBlock::ReleaseStore() noexcept
{
    if (mOwnsStore)
    {
        delete mStore;
    }
    mStore = nullptr;
    mOwnsStore = false;
    mItems = nullptr;
    mCount = 0;
    mCapacity = 0;
    mName = kNoName;
    mClassWord = kNoName;
    mReadPosition = 0;
}

BlockStore& CBlock::Store()
{
    if (mStore == nullptr)
    {
        mStore = new BlockStore;
        mOwnsStore = true;
    }
    return *mStore;
}

AString CBlock::GetName() const
{
    return ToWide(GetNameUtf8());
}

std::string_view CBlock::GetNameUtf8() const noexcept
{
    return mStore != nullptr ? mStore->Name(mName) : std::string_view();
}

void CBlock::SetClassWord(std::wstring_view word)
{
    SetClassWordUtf8(ToUtf8(word));
}

void CBlock::SetClassWordUtf8(std::string_view word)
{
    if (mDetached)
    {
        return;
    }
    if (word.empty())
    {
        mClassWord = kNoName;
        return;
    }
    BlockStore& store = Store();
    if (word.size() > kMaxBlockNameBytes)
    {
        store.SetError(detail::TooLong("a class word", word.size(), kMaxBlockNameBytes));
        return;
    }
    if (detail::IsValidUtf8(word))
    {
        mClassWord = store.Intern(word);
        return;
    }
    std::string clean;
    detail::AppendSanitizedUtf8(clean, word);
    mClassWord = store.Intern(clean);
}

AString CBlock::GetClassWord() const
{
    return ToWide(GetClassWordUtf8());
}

std::string_view CBlock::GetClassWordUtf8() const noexcept
{
    return mStore != nullptr ? mStore->Name(mClassWord) : std::string_view();
}

std::size_t CBlock::GetValueCount() const noexcept
{
    std::size_t count = 0;
    for (std::uint32_t i = 0; i < mCount; ++i)
    {
        count += (!mItems[i].IsBlock() && mItems[i].name == kNoName) ? 1 : 0;
    }
    return count;
}

CBlock_item CBlock::GetItem(std::size_t index) const noexcept
{
    return index < mCount ? CBlock_item(&mItems[index], mStore) : CBlock_item();
}

bool CBlock::FindNextValue(std::size_t& index) const noexcept
{
    for (std::uint32_t i = mReadPosition; i < mCount; ++i)
    {
        if (!mItems[i].IsBlock() && mItems[i].name == kNoName)
        {
            index = i;
            return true;
        }
    }
    return false;
}

std::optional<CBlock_value> CBlock::PeekValue() const noexcept
{
    std::size_t index = 0;
    if (!FindNextValue(index))
    {
        return std::nullopt;
    }
    return GetItem(index).GetValue();
}

bool CBlock::SkipValue() const noexcept
{
    std::size_t index = 0;
    if (!FindNextValue(index))
    {
        return false;
    }
    mReadPosition = static_cast<std::uint32_t>(index + 1);
    return true;
}

CBlock_func* CBlock::FindBlock(std::wstring_view name) const
{
    return FindBlock(std::string_view(ToUtf8(name)));
}

CBlock_func* CBlock::FindBlock(std::string_view utf8Name) const noexcept
{
    if (mStore == nullptr || mCount == 0)
    {
        return nullptr;
    }
    const std::uint32_t id = mStore->FindName(utf8Name);
    if (id == kNoName)
    {
        return nullptr;
    }
    for (std::uint32_t i = 0; i < mCount; ++i)
    {
        if (mItems[i].name == id && mItems[i].IsBlock())
        {
            return mItems[i].block;
        }
    }
    return nullptr;
}

std::optional<CBlock_value> CBlock::FindNamedValue(std::wstring_view name) const
{
    return FindNamedValue(std::string_view(ToUtf8(name)));
}

std::optional<CBlock_value> CBlock::FindNamedValue(std::string_view utf8Name) const noexcept
{
    if (mStore == nullptr || mCount == 0)
    {
        return std::nullopt;
    }
    const std::uint32_t id = mStore->FindName(utf8Name);
    if (id == kNoName)
    {
        return std::nullopt;
    }
    for (std::uint32_t i = 0; i < mCount; ++i)
    {
        if (mItems[i].name == id && !mItems[i].IsBlock())
        {
            return GetItem(i).GetValue();
        }
    }
    return std::nullopt;
}

void CBlock::AppendSlot(const Slot& slot)
{
    if (mCount == mCapacity)
    {
        BlockStore& store = Store();
        if (mCount >= kMaxBlockItems)
        {
            store.SetError("a block holds more than " + std::to_string(kMaxBlockItems) + " items");
            return;
        }
        // Capacities are powers of two so that outgrown arrays can be reused.
        const std::size_t capacity =
            std::max<std::size_t>(4, std::bit_ceil(mCount + std::size_t{1}));
        Slot* items = store.AllocateSlots(capacity);
        std::copy(mItems, mItems + mCount, items);
        store.FreeSlotArray(mItems, mCapacity);
        mItems = items;
        mCapacity = static_cast<std::uint32_t>(capacity);
    }
    mItems[mCount++] = slot;
}

namespace
{
// Fills the payload of `slot` from `value`; false (and the tree's error set) when refused.
bool FillSlot(BlockStore& store, Slot& slot, const CBlock_value& value)
{
    switch (value.GetKind())
    {
    case CBlock_value::Kind::kText:
    {
        std::string converted;
        std::string_view text = value.GetUtf8View();
        if (!value.HasUtf8Text())
        {
            detail::AppendWideAsUtf8(converted, value.GetWideView());
            text = converted;
        }
        else if (!detail::IsValidUtf8(text))
        {
            detail::AppendSanitizedUtf8(converted, text);
            text = converted;
        }
        if (text.size() > kMaxBlockTextBytes)
        {
            store.SetError(detail::TooLong("a text", text.size(), kMaxBlockTextBytes));
            return false;
        }
        store.SetText(slot, text);
        return true;
    }
    case CBlock_value::Kind::kInteger:
        if (!value.IsInRange())
        {
            store.SetError("the integer " +
                           std::to_string(static_cast<std::uint64_t>(value.GetInteger())) +
                           " is beyond the signed 64-bit range");
            return false;
        }
        slot.tag = Slot::Tag(SlotKind::kInteger);
        slot.integer = value.GetInteger();
        return true;
    case CBlock_value::Kind::kReal:
        slot.tag = Slot::Tag(SlotKind::kReal);
        slot.real = value.GetReal();
        return true;
    case CBlock_value::Kind::kBool:
        slot.tag = Slot::Tag(SlotKind::kBool);
        slot.integer = 0;
        slot.boolean = value.GetBool();
        return true;
    }
    return false;
}

// The id of an item name; kNoName (and the tree's error set) when refused.
std::uint32_t InternItemName(BlockStore& store, std::string_view utf8Name)
{
    if (utf8Name.size() > kMaxBlockNameBytes)
    {
        store.SetError(detail::TooLong("a name", utf8Name.size(), kMaxBlockNameBytes));
        return kNoName;
    }
    if (detail::IsValidUtf8(utf8Name))
    {
        return store.Intern(utf8Name);
    }
    std::string clean;
    detail::AppendSanitizedUtf8(clean, utf8Name);
    return store.Intern(clean);
}
} // namespace

void CBlock::AddValue(const CBlock_value& value)
{
    if (mDetached)
    {
        return;
    }
    Slot slot;
    slot.name = kNoName;
    if (FillSlot(Store(), slot, value))
    {
        AppendSlot(slot);
    }
}

void CBlock::AddNamedValue(std::wstring_view name, const CBlock_value& value)
{
    AddNamedValue(std::string_view(ToUtf8(name)), value);
}

void CBlock::AddNamedValue(std::string_view utf8Name, const CBlock_value& value)
{
    if (mDetached)
    {
        return;
    }
    BlockStore& store = Store();
    Slot slot;
    slot.name = InternItemName(store, utf8Name);
    if (slot.name != kNoName && FillSlot(store, slot, value))
    {
        AppendSlot(slot);
    }
}

CBlock_func& CBlock::AddBlock(std::wstring_view name)
{
    return AddBlock(std::string_view(ToUtf8(name)));
}

CBlock_func& CBlock::AddBlock(std::string_view utf8Name)
{
    BlockStore& store = Store();
    if (mDetached)
    {
        return store.Detached();
    }
    if (mDepth >= kMaxBlockDepth)
    {
        store.SetError("blocks nest deeper than " + std::to_string(kMaxBlockDepth) + " levels");
        return store.Detached();
    }
    const std::uint32_t name = InternItemName(store, utf8Name);
    if (name == kNoName)
    {
        return store.Detached();
    }
    const std::uint32_t before = mCount;
    Slot slot;
    slot.name = name;
    slot.tag = Slot::Tag(SlotKind::kBlock);
    slot.block = store.NewBlock(name, static_cast<std::uint16_t>(mDepth + 1));
    AppendSlot(slot);
    return mCount != before ? *slot.block : store.Detached();
}

CBlock_func& CBlock::AddBlockCopy(const CBlock& source)
{
    BlockStore& store = Store();
    if (mDetached)
    {
        return store.Detached();
    }
    if (mDepth + detail::Height(source) > kMaxBlockDepth)
    {
        store.SetError("blocks nest deeper than " + std::to_string(kMaxBlockDepth) + " levels");
        return store.Detached();
    }
    // The copy is complete before it is appended, so a block may copy itself or a block
    // above it: nothing of the source changes while it is read.
    detail::Copier copier(source.mStore, store);
    const std::uint32_t name =
        source.mName == kNoName ? store.Intern(std::string_view()) : copier.Name(source.mName);
    const std::uint32_t before = mCount;
    Slot slot;
    slot.name = name;
    slot.tag = Slot::Tag(SlotKind::kBlock);
    slot.block = copier.Block(source, name, static_cast<std::uint16_t>(mDepth + 1));
    AppendSlot(slot);
    return mCount != before ? *slot.block : store.Detached();
}

void CBlock::CopyContentsFrom(const CBlock& source)
{
    if (mDetached || &source == this)
    {
        return;
    }
    BlockStore& store = Store();
    if (mDepth - 1 + detail::Height(source) > kMaxBlockDepth)
    {
        store.SetError("blocks nest deeper than " + std::to_string(kMaxBlockDepth) + " levels");
        return;
    }
    detail::Copier copier(source.mStore, store);
    const std::uint32_t classWord = copier.Name(source.mClassWord);
    Slot* items = copier.Items(source, mDepth);
    store.FreeSlotArray(mItems, mCapacity);
    mClassWord = classWord;
    mItems = items;
    mCount = source.mCount;
    mCapacity = source.mCount;
    mReadPosition = 0;
}

void CBlock::Clear()
{
    mClassWord = kNoName;
    mCount = 0;
    mReadPosition = 0;
}

bool CBlock::HasError() const noexcept
{
    return mStore != nullptr && mStore->HasError();
}

AString CBlock::GetError() const
{
    return mStore != nullptr ? ToWide(mStore->Error()) : AString();
}

void CBlock::ClearError() noexcept
{
    if (mStore != nullptr)
    {
        mStore->ClearError();
    }
}

bool operator==(const CBlock& a, const CBlock& b)
{
    if (&a == &b)
    {
        return true;
    }
    if (a.mCount != b.mCount || a.GetNameUtf8() != b.GetNameUtf8() ||
        a.GetClassWordUtf8() != b.GetClassWordUtf8())
    {
        return false;
    }
    for (std::uint32_t i = 0; i < a.mCount; ++i)
    {
        if (!detail::SameSlot(a.mItems[i], a.mStore, b.mItems[i], b.mStore))
        {
            return false;
        }
    }
    return true;
}

// CBlock_func ----------------------------------------------------------------------------

CBlock_func::CBlock_func(std::wstring_view name) : CBlock_func(std::string_view(ToUtf8(name))) {}

CBlock_func::CBlock_func(std::string_view utf8Name) : CBlock(nullptr, kNoName, 1, false)
{
    if (!utf8Name.empty())
    {
        mName = InternItemName(Store(), utf8Name);
    }
}

CBlock_func::CBlock_func(BlockStore* store, std::uint32_t name, std::uint16_t depth) noexcept
    : CBlock(store, name, depth, false)
{
}

CBlock_func::CBlock_func(const CBlock& other) : CBlock(nullptr, kNoName, 1, false)
{
    if (!other.GetNameUtf8().empty())
    {
        mName = Store().Intern(other.GetNameUtf8());
    }
    if (other.GetItemCount() != 0 || other.HasClassWord())
    {
        CopyContentsFrom(other);
    }
}

CBlock_func::CBlock_func(const CBlock_func& other) : CBlock_func(static_cast<const CBlock&>(other))
{
}

CBlock_func::CBlock_func(CBlock_func&& other) noexcept : CBlock(nullptr, kNoName, 1, false)
{
    *this = std::move(other);
}

CBlock_func& CBlock_func::operator=(const CBlock& other)
{
    if (&other == this)
    {
        return *this;
    }
    if (!IsRoot())
    {
        CopyContentsFrom(other);
        return *this;
    }
    // Copy first: `other` may live in this very tree.
    CBlock_func copy(other);
    *this = std::move(copy);
    return *this;
}

CBlock_func& CBlock_func::operator=(const CBlock_func& other)
{
    return *this = static_cast<const CBlock&>(other);
}

CBlock_func& CBlock_func::operator=(CBlock_func&& other) noexcept
{
    if (&other == this)
    {
        return *this;
    }
    if (!IsRoot() || !other.IsRoot())
    {
        // Only roots own their trees; anything else is copied.
        if (IsRoot())
        {
            CBlock_func copy(static_cast<const CBlock&>(other));
            *this = std::move(copy);
        }
        else
        {
            CopyContentsFrom(other);
        }
        return *this;
    }
    ReleaseStore();
    mStore = std::exchange(other.mStore, nullptr);
    mOwnsStore = std::exchange(other.mOwnsStore, false);
    mItems = std::exchange(other.mItems, nullptr);
    mCount = std::exchange(other.mCount, 0);
    mCapacity = std::exchange(other.mCapacity, 0);
    mName = std::exchange(other.mName, kNoName);
    mClassWord = std::exchange(other.mClassWord, kNoName);
    mReadPosition = std::exchange(other.mReadPosition, 0);
    return *this;
}

CBlock_func::~CBlock_func() = default;

std::size_t CBlock_func::GetTreeMemoryBytes() const noexcept
{
    return sizeof(*this) + (mStore != nullptr ? mStore->MemoryBytes() : 0);
}

} // namespace io
