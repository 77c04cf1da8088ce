// UTF-8 helpers of the block text format: strict decoding, and conversion between the wide
// strings of the interface and the UTF-8 that blocks hold. Private to plinthcore.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace io::detail
{

// Decodes one UTF-8 sequence at `p` (p < end) strictly: no overlong forms, no surrogates,
// nothing above U+10FFFF. Returns its length in bytes and sets `codePoint`, or 0 when the
// bytes are not a valid sequence.
std::size_t DecodeUtf8(const unsigned char* p, const unsigned char* end, char32_t& codePoint);

// Appends the UTF-8 form of one code point (assumed a Unicode scalar value).
void AppendUtf8(std::string& out, char32_t codePoint);

// Whether `text` is valid UTF-8 throughout.
bool IsValidUtf8(std::string_view text) noexcept;

// Appends `text` with every invalid sequence replaced by U+FFFD.
void AppendSanitizedUtf8(std::string& out, std::string_view text);

// Appends the UTF-8 form of a wide text; code units that are no Unicode scalar value (lone
// surrogates, values above U+10FFFF) become U+FFFD, as AString::ToUTF8 does.
void AppendWideAsUtf8(std::string& out, std::wstring_view text);

// Appends the wide form of UTF-8 text; invalid sequences become U+FFFD.
void AppendUtf8AsWide(std::wstring& out, std::string_view utf8);

// Whether the two texts hold the same characters.
bool SameText(std::string_view utf8, std::wstring_view wide);

} // namespace io::detail
