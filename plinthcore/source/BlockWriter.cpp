#include "BlockWriter.h"

#include "BlockStore.h"
#include "BlockUnicode.h"
#include "ControlEscapes.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <string_view>

namespace io
{
namespace
{
using detail::BlockAccess;
using detail::kNoName;
using detail::Slot;
using detail::SlotKind;

constexpr std::size_t kIndent = 4;
constexpr std::size_t kInlineWidth = 80;

bool IsBareName(std::string_view name) noexcept
{
    if (name.empty())
    {
        return false;
    }
    for (std::size_t i = 0; i < name.size(); ++i)
    {
        const auto c = static_cast<unsigned char>(name[i]);
        const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
        if (!letter && (i == 0 || c < '0' || c > '9'))
        {
            return false;
        }
    }
    return name != "true" && name != "false" && name != "inf" && name != "nan";
}

// Characters that are written as \u{...} although they are printable in principle: C1
// controls, and marks that change how text around them shows without showing themselves.
bool IsHidden(char32_t c) noexcept
{
    return (c >= 0x80 && c <= 0x9F) || c == 0x061C || c == 0x200E || c == 0x200F ||
           (c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069) || c == 0xFEFF;
}

void AppendHexEscape(std::string& out, char32_t c)
{
    char digits[8];
    const auto result =
        std::to_chars(digits, digits + sizeof(digits), static_cast<unsigned>(c), 16);
    out += "\\u{";
    for (const char* d = digits; d != result.ptr; ++d)
    {
        out.push_back(*d >= 'a' && *d <= 'f' ? static_cast<char>(*d - 32) : *d);
    }
    out.push_back('}');
}

void AppendQuoted(std::string& out, std::string_view text)
{
    out.push_back('"');
    const auto* p = reinterpret_cast<const unsigned char*>(text.data());
    const auto* end = p + text.size();
    const auto* run = p; // start of the bytes not yet copied
    auto flush = [&](const unsigned char* upTo)
    { out.append(reinterpret_cast<const char*>(run), static_cast<std::size_t>(upTo - run)); };
    while (p < end)
    {
        const unsigned char c = *p;
        if (c >= 0x20 && c < 0x7F && c != '"' && c != '\\')
        {
            ++p;
            continue;
        }
        if (c >= 0x80)
        {
            char32_t codePoint = 0;
            const std::size_t length = detail::DecodeUtf8(p, end, codePoint);
            if (length != 0 && !IsHidden(codePoint))
            {
                p += length;
                continue;
            }
            flush(p);
            AppendHexEscape(out, length != 0 ? codePoint : 0xFFFD);
            p += length != 0 ? length : 1;
            run = p;
            continue;
        }
        flush(p);
        if (const char letter = plinth::detail::EscapeOfControl(c); letter != 0)
        {
            out.push_back('\\');
            out.push_back(letter);
        }
        else if (c == '"' || c == '\\')
        {
            out.push_back('\\');
            out.push_back(c);
        }
        else if (c == '\0')
        {
            out += "\\0";
        }
        else
        {
            AppendHexEscape(out, c);
        }
        ++p;
        run = p;
    }
    flush(p);
    out.push_back('"');
}

void AppendName(std::string& out, std::string_view name)
{
    if (IsBareName(name))
    {
        out.append(name);
    }
    else
    {
        AppendQuoted(out, name);
    }
}

void AppendReal(std::string& out, double value)
{
    if (std::isnan(value))
    {
        out += "nan";
        return;
    }
    if (std::isinf(value))
    {
        out += value < 0 ? "-inf" : "inf";
        return;
    }
    char digits[32];
    const auto result = std::to_chars(digits, digits + sizeof(digits), value);
    const std::string_view text(digits, static_cast<std::size_t>(result.ptr - digits));
    out.append(text);
    if (text.find_first_of(".e") == std::string_view::npos)
    {
        out += ".0";
    }
}

void AppendInteger(std::string& out, std::int64_t value)
{
    char digits[24];
    const auto result = std::to_chars(digits, digits + sizeof(digits), value);
    out.append(digits, result.ptr);
}

class Writer
{
public:
    explicit Writer(std::string& out) : mOut(out) {}

    void Block(const CBlock& block, std::size_t level)
    {
        const auto* store = BlockAccess::Store(block);
        Indent(level);
        AppendName(mOut, block.GetNameUtf8());
        if (block.HasClassWord())
        {
            mOut += " : ";
            AppendName(mOut, block.GetClassWordUtf8());
        }
        const Slot* items = BlockAccess::Items(block);
        const std::size_t count = block.GetItemCount();
        if (count == 0)
        {
            mOut += " {}\n";
            return;
        }
        bool hasBlocks = false;
        for (std::size_t i = 0; i < count && !hasBlocks; ++i)
        {
            hasBlocks = items[i].IsBlock();
        }
        if (!hasBlocks)
        {
            // One line when the items, joined by single spaces, take at most kInlineWidth
            // characters; otherwise the attempt is taken back. " {" and the space before
            // the first item come on top.
            const std::size_t start = mOut.size();
            const std::size_t limit = kInlineWidth + 3;
            mOut += " {";
            for (std::size_t i = 0; i < count; ++i)
            {
                mOut.push_back(' ');
                Item(items[i], store);
                if (mOut.size() - start > limit)
                {
                    break;
                }
            }
            if (mOut.size() - start <= limit)
            {
                mOut += " }\n";
                return;
            }
            mOut.resize(start);
        }
        mOut += " {\n";
        for (std::size_t i = 0; i < count; ++i)
        {
            if (items[i].IsBlock())
            {
                Block(*items[i].block, level + 1);
                continue;
            }
            Indent(level + 1);
            Item(items[i], store);
            mOut.push_back('\n');
        }
        Indent(level);
        mOut += "}\n";
    }

private:
    void Indent(std::size_t level) { mOut.append(level * kIndent, ' '); }

    // A value or a named value.
    void Item(const Slot& slot, const detail::BlockStore* store)
    {
        if (slot.name != kNoName)
        {
            AppendName(mOut, store->Name(slot.name));
            mOut.push_back('=');
        }
        switch (slot.Kind())
        {
        case SlotKind::kText:
            AppendQuoted(mOut, slot.Text());
            break;
        case SlotKind::kInteger:
            AppendInteger(mOut, slot.integer);
            break;
        case SlotKind::kReal:
            AppendReal(mOut, slot.real);
            break;
        case SlotKind::kBool:
            mOut += slot.boolean ? "true" : "false";
            break;
        case SlotKind::kBlock:
            break;
        }
    }

    std::string& mOut;
};
} // namespace

void AppendBlockText(std::string& out, const CBlock& block)
{
    Writer(out).Block(block, 0);
}

std::string WriteBlockText(const CBlock& block)
{
    std::string out;
    AppendBlockText(out, block);
    return out;
}

} // namespace io
