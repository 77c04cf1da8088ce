#include "BlockReader.h"

#include "BlockStore.h"
#include "BlockUnicode.h"
#include "ControlEscapes.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace io
{
namespace
{
using detail::BlockAccess;
using detail::BlockStore;
using detail::kNoName;
using detail::Slot;
using detail::SlotKind;

bool IsIdentifierStart(unsigned char c) noexcept
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

bool IsIdentifierChar(unsigned char c) noexcept
{
    return IsIdentifierStart(c) || (c >= '0' && c <= '9');
}

bool IsDigit(unsigned char c) noexcept
{
    return c >= '0' && c <= '9';
}

// Whether any of 8 bytes of text needs a closer look: a control character, a quote, a back
// slash, DEL or a byte of a multi-byte character. Lets plain text be skipped 8 bytes a time.
bool NeedsLook(std::uint64_t bytes) noexcept
{
    constexpr std::uint64_t kOnes = 0x0101010101010101ull;
    constexpr std::uint64_t kHigh = 0x8080808080808080ull;
    auto hasZero = [](std::uint64_t v) { return (v - kOnes) & ~v & kHigh; };
    const std::uint64_t below = (bytes - kOnes * 0x20) & ~bytes & kHigh;  // < 0x20
    const std::uint64_t above = ((bytes + kOnes * 0x01) | bytes) & kHigh; // >= 0x7F
    return (below | above | hasZero(bytes ^ (kOnes * '"')) | hasZero(bytes ^ (kOnes * '\\'))) != 0;
}

// Blanks as the reader skips them: space, tab, CR, LF.
constexpr bool IsBlank(unsigned char c) noexcept
{
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

// A short, printable rendering of a name or token for messages.
std::string Shown(std::string_view text)
{
    constexpr std::size_t kMaxShown = 40;
    std::string shown;
    for (const char c : text.substr(0, kMaxShown))
    {
        const auto byte = static_cast<unsigned char>(c);
        shown.push_back(byte < 0x20 || byte == 0x7F ? '?' : c);
    }
    if (text.size() > kMaxShown)
    {
        shown += "...";
    }
    return "'" + shown + "'";
}

std::string Hex(char32_t c)
{
    char digits[16];
    const auto result =
        std::to_chars(digits, digits + sizeof(digits), static_cast<unsigned>(c), 16);
    std::string text(digits, result.ptr);
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char d) { return static_cast<char>(d >= 'a' && d <= 'f' ? d - 32 : d); });
    return "U+" + std::string(text.size() < 4 ? 4 - text.size() : 0, '0') + text;
}

class Parser
{
public:
    Parser(std::string_view text, const BlockReadLimits& limits, BlockStore& store)
        : mBegin(text.data()), mPos(text.data()), mEnd(text.data() + text.size()), mStore(store),
          mMaxDepth(std::clamp<std::size_t>(limits.maxDepth, 1, kMaxBlockDepth)),
          mMaxText(std::min(limits.maxTextBytes, kMaxBlockTextBytes))
    {
        // Room for the items of a flat file without growing on the way.
        mScratch.reserve(std::min<std::size_t>(text.size() / 32 + 16, std::size_t{1} << 20));
    }

    // The outermost block, or null on failure.
    CBlock_func* Parse();

    std::size_t ErrorOffset() const noexcept { return mErrorOffset; }
    const std::string& Reason() const noexcept { return mReason; }

private:
    struct Frame
    {
        CBlock_func* block;
        std::size_t first; // index of the block's first item in mScratch
        const char* open;  // where the block's name starts
    };

    bool Fail(const char* at, std::string reason)
    {
        mErrorOffset = static_cast<std::size_t>(at - mBegin);
        mReason = std::move(reason);
        return false;
    }

    bool SkipBlanks();
    bool ParseItem();
    bool ParseText(std::string_view& text, bool isName = false);
    bool ParseName(std::string_view& name, const char* what);
    bool ParseNumber(Slot& slot);
    bool ParseValue(Slot& slot, const char* afterWhat);
    bool OpenBlock(std::string_view name, const char* at);
    // The value of `name = value` with mPos at the "=".
    bool NamedValue(std::string_view name, const char* at);
    // Fails when `name` is longer than a name may be.
    bool CheckNameLength(std::string_view name, const char* at);
    bool CloseBlock();
    Slot* NewSlot(const char* at);
    bool DecodeEscape(std::string& out);

    const char* mBegin;
    const char* mPos;
    const char* mEnd;
    BlockStore& mStore;
    std::size_t mMaxDepth;
    std::size_t mMaxText;
    std::vector<Slot> mScratch;
    std::vector<Frame> mFrames;
    std::string mDecoded;
    CBlock_func* mTop = nullptr;
    std::size_t mErrorOffset = 0;
    std::string mReason;
};

// Skips white space and comments; fails on a stray control character.
bool Parser::SkipBlanks()
{
    while (mPos < mEnd)
    {
        const auto c = static_cast<unsigned char>(*mPos);
        if (c > ' ' && c != '#' && c != 0x7F)
        {
            break; // the common case: the next token starts here
        }
        if (IsBlank(c))
        {
            ++mPos;
        }
        else if (c == '#')
        {
            const void* lineEnd = std::memchr(mPos, '\n', static_cast<std::size_t>(mEnd - mPos));
            mPos = lineEnd != nullptr ? static_cast<const char*>(lineEnd) + 1 : mEnd;
        }
        else if (c < 0x20 || c == 0x7F)
        {
            return Fail(mPos, "unexpected control character " + Hex(c));
        }
        else
        {
            break;
        }
    }
    return true;
}

CBlock_func* Parser::Parse()
{
    if (mEnd - mPos >= 3 && std::memcmp(mPos, "\xEF\xBB\xBF", 3) == 0)
    {
        mPos += 3;
    }
    if (!SkipBlanks())
    {
        return nullptr;
    }
    if (mPos == mEnd)
    {
        Fail(mPos, "the text holds no block");
        return nullptr;
    }
    const char* start = mPos;
    std::string_view name;
    if (!ParseName(name, "the text must start with the name of its block") ||
        !OpenBlock(name, start))
    {
        return nullptr;
    }
    while (!mFrames.empty())
    {
        if (!ParseItem())
        {
            return nullptr;
        }
    }
    if (!SkipBlanks())
    {
        return nullptr;
    }
    if (mPos != mEnd)
    {
        Fail(mPos, "unexpected text after the end of the block " + Shown(mTop->GetNameUtf8()));
        return nullptr;
    }
    return mTop;
}

bool Parser::ParseItem()
{
    if (!SkipBlanks())
    {
        return false;
    }
    if (mPos == mEnd)
    {
        const Frame& frame = mFrames.back();
        const auto line = 1 + std::count(mBegin, frame.open, '\n');
        return Fail(mPos, "the text ends inside the block " + Shown(frame.block->GetNameUtf8()) +
                              " opened on line " + std::to_string(line) + "; a '}' is missing");
    }
    const char* start = mPos;
    const auto c = static_cast<unsigned char>(*mPos);
    if (c == '}')
    {
        ++mPos;
        return CloseBlock();
    }
    if (c == '"')
    {
        std::string_view text;
        if (!ParseText(text, true))
        {
            return false;
        }
        // A text is a name when '=', ':' or '{' follows.
        if (!SkipBlanks())
        {
            return false;
        }
        if (mPos < mEnd && (*mPos == '=' || *mPos == '{' || *mPos == ':'))
        {
            if (!CheckNameLength(text, start))
            {
                return false;
            }
            if (*mPos != '=')
            {
                return OpenBlock(text, start);
            }
            return NamedValue(text, start);
        }
        if (text.size() > mMaxText)
        {
            return Fail(start, "a text of " + std::to_string(text.size()) +
                                   " bytes is longer than the limit of " +
                                   std::to_string(mMaxText) + " bytes");
        }
        Slot* slot = NewSlot(start);
        if (slot == nullptr)
        {
            return false;
        }
        slot->name = kNoName;
        mStore.SetText(*slot, text);
        return true;
    }
    if (c == '-' || IsDigit(c))
    {
        Slot* slot = NewSlot(start);
        if (slot == nullptr)
        {
            return false;
        }
        slot->name = kNoName;
        return ParseNumber(*slot);
    }
    if (IsIdentifierStart(c))
    {
        const char* end = mPos + 1;
        while (end < mEnd && IsIdentifierChar(static_cast<unsigned char>(*end)))
        {
            ++end;
        }
        const std::string_view word(mPos, static_cast<std::size_t>(end - mPos));
        if (word == "true" || word == "false" || word == "inf" || word == "nan")
        {
            Slot* slot = NewSlot(start);
            if (slot == nullptr)
            {
                return false;
            }
            slot->name = kNoName;
            if (!ParseValue(*slot, nullptr) || !SkipBlanks())
            {
                return false;
            }
            if (mPos < mEnd && (*mPos == '=' || *mPos == '{' || *mPos == ':'))
            {
                return Fail(start, Shown(word) + " is a value; as a name it is written in quotes");
            }
            return true;
        }
        if (!CheckNameLength(word, start))
        {
            return false;
        }
        mPos = end;
        if (!SkipBlanks())
        {
            return false;
        }
        if (mPos < mEnd && (*mPos == '{' || *mPos == ':'))
        {
            return OpenBlock(word, start);
        }
        if (mPos < mEnd && *mPos == '=')
        {
            return NamedValue(word, start);
        }
        return Fail(mPos, "expected '=' or '{' after the name " + Shown(word));
    }
    if (c == '{')
    {
        return Fail(mPos, "a block needs a name before '{'");
    }
    if (c == '=')
    {
        return Fail(mPos, "a named value needs a name before '='");
    }
    if (c >= 0x80)
    {
        return Fail(mPos, "unexpected character; a name that is not a plain identifier is "
                          "written in double quotes");
    }
    return Fail(mPos, std::string("unexpected character '") + static_cast<char>(c) + "'");
}

// A value at the current position (after blanks); `afterWhat` names what came before it for
// the message when there is no value.
bool Parser::ParseValue(Slot& slot, const char* afterWhat)
{
    if (!SkipBlanks())
    {
        return false;
    }
    const char* start = mPos;
    if (mPos < mEnd)
    {
        const auto c = static_cast<unsigned char>(*mPos);
        if (c == '"')
        {
            std::string_view text;
            if (!ParseText(text))
            {
                return false;
            }
            mStore.SetText(slot, text);
            return true;
        }
        if (c == '-' || IsDigit(c))
        {
            return ParseNumber(slot);
        }
        if (IsIdentifierStart(c))
        {
            const char* end = mPos + 1;
            while (end < mEnd && IsIdentifierChar(static_cast<unsigned char>(*end)))
            {
                ++end;
            }
            const std::string_view word(mPos, static_cast<std::size_t>(end - mPos));
            if (word == "true" || word == "false")
            {
                slot.tag = Slot::Tag(SlotKind::kBool);
                slot.integer = 0;
                slot.boolean = word == "true";
                mPos = end;
                return true;
            }
            if (word == "inf" || word == "nan")
            {
                slot.tag = Slot::Tag(SlotKind::kReal);
                slot.real = word == "inf" ? std::numeric_limits<double>::infinity()
                                          : std::numeric_limits<double>::quiet_NaN();
                mPos = end;
                return true;
            }
            return Fail(start, Shown(word) + " is not a value; texts are written in double quotes");
        }
    }
    return Fail(start,
                std::string("expected a value after '") + (afterWhat ? afterWhat : "") + "'");
}

bool Parser::ParseNumber(Slot& slot)
{
    const char* start = mPos;
    const char* end = mPos + 1;
    while (end < mEnd)
    {
        const auto c = static_cast<unsigned char>(*end);
        if (!(IsIdentifierChar(c) || c == '.' ||
              ((c == '+' || c == '-') && (end[-1] == 'e' || end[-1] == 'E'))))
        {
            break;
        }
        ++end;
    }
    const std::string_view token(start, static_cast<std::size_t>(end - start));
    if (token == "-inf")
    {
        slot.tag = Slot::Tag(SlotKind::kReal);
        slot.real = -std::numeric_limits<double>::infinity();
        mPos = end;
        return true;
    }
    // Shape check: -?digits(.digits)?([eE][+-]?digits)?
    const char* p = start + (*start == '-' ? 1 : 0);
    const char* digits = p;
    while (p < end && IsDigit(static_cast<unsigned char>(*p)))
    {
        ++p;
    }
    bool shaped = p > digits;
    bool isReal = false;
    if (shaped && p < end && *p == '.')
    {
        isReal = true;
        const char* fraction = ++p;
        while (p < end && IsDigit(static_cast<unsigned char>(*p)))
        {
            ++p;
        }
        shaped = p > fraction;
    }
    if (shaped && p < end && (*p == 'e' || *p == 'E'))
    {
        isReal = true;
        ++p;
        if (p < end && (*p == '+' || *p == '-'))
        {
            ++p;
        }
        const char* exponent = p;
        while (p < end && IsDigit(static_cast<unsigned char>(*p)))
        {
            ++p;
        }
        shaped = p > exponent;
    }
    if (!shaped || p != end)
    {
        return Fail(start, Shown(token) + " is not a number");
    }
    if (!isReal)
    {
        std::int64_t value = 0;
        const auto result = std::from_chars(start, end, value);
        if (result.ec != std::errc() || result.ptr != end)
        {
            return Fail(start,
                        "the integer " + Shown(token) + " is beyond the signed 64-bit range");
        }
        slot.tag = Slot::Tag(SlotKind::kInteger);
        slot.integer = value;
    }
    else
    {
        double value = 0;
        const auto result = std::from_chars(start, end, value);
        if (result.ec != std::errc() || result.ptr != end)
        {
            return Fail(start,
                        "the real number " + Shown(token) + " is beyond the range of a double");
        }
        slot.tag = Slot::Tag(SlotKind::kReal);
        slot.real = value;
    }
    mPos = end;
    return true;
}

// A quoted text at mPos. The view points into the input when the text has no escapes, else
// into mDecoded (valid until the next text).
bool Parser::ParseText(std::string_view& text, bool isName)
{
    const char* open = mPos;
    const char* p = ++mPos;
    // Fast path: plain ASCII up to the closing quote, 8 bytes a time while possible.
    while (mEnd - p >= 8)
    {
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, p, sizeof(bytes));
        if (NeedsLook(bytes))
        {
            break;
        }
        p += 8;
    }
    while (p < mEnd)
    {
        const auto c = static_cast<unsigned char>(*p);
        if (c >= 0x20 && c < 0x7F && c != '"' && c != '\\')
        {
            ++p;
            continue;
        }
        break;
    }
    bool escaped = false;
    while (true)
    {
        if (p >= mEnd)
        {
            return Fail(open, "the text has no closing quote");
        }
        const auto c = static_cast<unsigned char>(*p);
        if (c == '"')
        {
            break;
        }
        if (c == '\\')
        {
            if (!escaped)
            {
                mDecoded.assign(mPos, p);
                escaped = true;
            }
            mPos = p;
            if (!DecodeEscape(mDecoded))
            {
                return false;
            }
            p = mPos;
            continue;
        }
        std::size_t length = 1;
        if (c >= 0x80)
        {
            char32_t codePoint = 0;
            length = detail::DecodeUtf8(reinterpret_cast<const unsigned char*>(p),
                                        reinterpret_cast<const unsigned char*>(mEnd), codePoint);
            if (length == 0)
            {
                return Fail(p, "the text is not valid UTF-8");
            }
        }
        else if (c == '\n' || c == '\r')
        {
            return Fail(open, "the text has no closing quote on its line");
        }
        else if (c < 0x20 || c == 0x7F)
        {
            return Fail(p, "the control character " + Hex(c) +
                               " must be written as an escape in a text");
        }
        if (escaped)
        {
            mDecoded.append(p, length);
        }
        p += length;
    }
    text = escaped ? std::string_view(mDecoded)
                   : std::string_view(mPos, static_cast<std::size_t>(p - mPos));
    mPos = p + 1;
    if (!isName && text.size() > mMaxText)
    {
        return Fail(open, "a text of " + std::to_string(text.size()) +
                              " bytes is longer than the limit of " + std::to_string(mMaxText) +
                              " bytes");
    }
    return true;
}

bool Parser::NamedValue(std::string_view name, const char* at)
{
    const std::uint32_t key = mStore.Intern(name);
    Slot* slot = NewSlot(at);
    if (slot == nullptr)
    {
        return false;
    }
    slot->name = key;
    ++mPos;
    return ParseValue(*slot, "=");
}

bool Parser::CheckNameLength(std::string_view name, const char* at)
{
    if (name.size() <= kMaxBlockNameBytes)
    {
        return true;
    }
    return Fail(at, "a name of " + std::to_string(name.size()) +
                        " bytes is longer than the limit of " + std::to_string(kMaxBlockNameBytes) +
                        " bytes");
}

// One escape at mPos (a back slash), appended decoded to `out`.
bool Parser::DecodeEscape(std::string& out)
{
    const char* start = mPos;
    if (mPos + 1 >= mEnd)
    {
        return Fail(start, "the text has no closing quote");
    }
    const char c = mPos[1];
    mPos += 2;
    if (const int control = plinth::detail::ControlOfEscape(c); control >= 0)
    {
        out.push_back(static_cast<char>(control));
        return true;
    }
    switch (c)
    {
    case '"':
    case '\\':
        out.push_back(c);
        return true;
    case '0':
        out.push_back('\0');
        return true;
    case 'u':
        break;
    default:
        return Fail(start, std::string("unknown escape '\\") +
                               (static_cast<unsigned char>(c) >= 0x20 &&
                                        static_cast<unsigned char>(c) < 0x7F
                                    ? std::string(1, c)
                                    : std::string("?")) +
                               "' in a text");
    }
    if (mPos >= mEnd || *mPos != '{')
    {
        return Fail(start, "'\\u' must be followed by a code point in braces, as \\u{1F}");
    }
    ++mPos;
    char32_t value = 0;
    std::size_t digits = 0;
    while (mPos < mEnd && *mPos != '}')
    {
        const auto h = static_cast<unsigned char>(*mPos);
        unsigned digit = 0;
        if (IsDigit(h))
        {
            digit = h - '0';
        }
        else if (h >= 'a' && h <= 'f')
        {
            digit = h - 'a' + 10;
        }
        else if (h >= 'A' && h <= 'F')
        {
            digit = h - 'A' + 10;
        }
        else
        {
            return Fail(start, "'\\u{...}' holds 1 to 6 hexadecimal digits");
        }
        if (++digits > 6)
        {
            return Fail(start, "'\\u{...}' holds 1 to 6 hexadecimal digits");
        }
        value = value * 16 + digit;
        ++mPos;
    }
    if (mPos >= mEnd || digits == 0)
    {
        return Fail(start, "'\\u{...}' holds 1 to 6 hexadecimal digits");
    }
    ++mPos;
    if (value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF))
    {
        return Fail(start, Hex(value) + " is not a Unicode character");
    }
    detail::AppendUtf8(out, value);
    return true;
}

// A name at mPos: an identifier that is not a keyword, or a quoted text.
bool Parser::ParseName(std::string_view& name, const char* what)
{
    const char* start = mPos;
    if (mPos < mEnd && *mPos == '"')
    {
        if (!ParseText(name, true))
        {
            return false;
        }
    }
    else if (mPos < mEnd && IsIdentifierStart(static_cast<unsigned char>(*mPos)))
    {
        const char* end = mPos + 1;
        while (end < mEnd && IsIdentifierChar(static_cast<unsigned char>(*end)))
        {
            ++end;
        }
        name = std::string_view(mPos, static_cast<std::size_t>(end - mPos));
        if (name == "true" || name == "false" || name == "inf" || name == "nan")
        {
            return Fail(start, Shown(name) + " is a value; as a name it is written in quotes");
        }
        mPos = end;
    }
    else
    {
        return Fail(start, what);
    }
    if (name.size() > kMaxBlockNameBytes)
    {
        return Fail(start, "a name of " + std::to_string(name.size()) +
                               " bytes is longer than the limit of " +
                               std::to_string(kMaxBlockNameBytes) + " bytes");
    }
    return true;
}

// After a block's name: an optional class word, then '{'.
bool Parser::OpenBlock(std::string_view name, const char* at)
{
    const std::uint32_t nameId = mStore.Intern(name);
    if (!SkipBlanks())
    {
        return false;
    }
    std::uint32_t classWord = kNoName;
    if (mPos < mEnd && *mPos == ':')
    {
        ++mPos;
        if (!SkipBlanks())
        {
            return false;
        }
        std::string_view word;
        if (!ParseName(word, "expected a class word after ':'"))
        {
            return false;
        }
        if (!word.empty())
        {
            classWord = mStore.Intern(word);
        }
        if (!SkipBlanks())
        {
            return false;
        }
    }
    if (mPos >= mEnd || *mPos != '{')
    {
        return Fail(mPos < mEnd ? mPos : at,
                    "expected '{' after the block name " + Shown(mStore.Name(nameId)));
    }
    if (mFrames.size() >= mMaxDepth)
    {
        return Fail(at, "blocks nest deeper than " + std::to_string(mMaxDepth) + " levels");
    }
    ++mPos;
    CBlock_func* block = mStore.NewBlock(nameId, static_cast<std::uint16_t>(mFrames.size() + 1));
    BlockAccess::SetClassWordId(*block, classWord);
    if (mFrames.empty())
    {
        mTop = block;
    }
    else
    {
        Slot* slot = NewSlot(at);
        if (slot == nullptr)
        {
            return false;
        }
        slot->name = nameId;
        slot->tag = Slot::Tag(SlotKind::kBlock);
        slot->block = block;
    }
    mFrames.push_back({block, mScratch.size(), at});
    return true;
}

bool Parser::CloseBlock()
{
    const Frame frame = mFrames.back();
    mFrames.pop_back();
    const std::size_t count = mScratch.size() - frame.first;
    Slot* items = nullptr;
    if (count != 0)
    {
        items = mStore.AllocateSlots(count);
        std::copy(mScratch.begin() + static_cast<std::ptrdiff_t>(frame.first), mScratch.end(),
                  items);
    }
    BlockAccess::SetItems(*frame.block, items, static_cast<std::uint32_t>(count));
    mScratch.resize(frame.first);
    return true;
}

// A new item of the innermost open block, filled in place by the caller (building it
// elsewhere and copying it costs a store-forwarding stall per item); null when the block is
// full.
Slot* Parser::NewSlot(const char* at)
{
    const Frame& frame = mFrames.back();
    if (mScratch.size() - frame.first >= kMaxBlockItems)
    {
        Fail(at, "the block " + Shown(frame.block->GetNameUtf8()) + " holds more than " +
                     std::to_string(kMaxBlockItems) + " items");
        return nullptr;
    }
    return &mScratch.emplace_back();
}

// Line and column (1-based, in characters) of a byte offset.
void Locate(std::string_view text, std::size_t offset, std::size_t& line, std::size_t& column)
{
    offset = std::min(offset, text.size());
    line = 1;
    std::size_t lineStart = 0;
    for (std::size_t i = 0; i < offset; ++i)
    {
        if (text[i] == '\n')
        {
            ++line;
            lineStart = i + 1;
        }
    }
    if (line == 1 && text.substr(0, 3) == "\xEF\xBB\xBF" && offset >= 3)
    {
        lineStart = 3;
    }
    column = 1;
    for (std::size_t i = lineStart; i < offset; ++i)
    {
        column += (static_cast<unsigned char>(text[i]) & 0xC0) != 0x80 ? 1 : 0;
    }
}
} // namespace

AString BlockTextError::Describe(std::wstring_view file) const
{
    AString text(file);
    if (line != 0)
    {
        text += AString::Formatted(L":%zu:%zu", line, column);
    }
    text += L": ";
    text += reason;
    return text;
}

bool ReadBlockText(std::string_view utf8, CBlock_func& root, BlockTextError* error,
                   const BlockReadLimits& limits)
{
    if (utf8.size() > std::min(limits.maxInputBytes, kMaxBlockInputBytes))
    {
        if (error != nullptr)
        {
            error->line = 0;
            error->column = 0;
            error->reason = AString::FromUTF8(
                "the text is " + std::to_string(utf8.size()) +
                " bytes long, more than the limit of " +
                std::to_string(std::min(limits.maxInputBytes, kMaxBlockInputBytes)) + " bytes");
        }
        return false;
    }
    auto store = std::make_unique<BlockStore>();
    Parser parser(utf8, limits, *store);
    CBlock_func* top = parser.Parse();
    if (top == nullptr)
    {
        if (error != nullptr)
        {
            Locate(utf8, parser.ErrorOffset(), error->line, error->column);
            error->reason = AString::FromUTF8(parser.Reason());
        }
        return false;
    }
    BlockAccess::Adopt(root, store.release(), *top);
    return true;
}

} // namespace io
