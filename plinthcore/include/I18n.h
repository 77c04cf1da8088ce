// Text helpers for names and values as users type and read them: quoting, joining lists,
// numbering names, line ends for edit controls and case-insensitive prefixes. None of them
// depends on the process locale.
#pragma once

#include "AString.h"
#include "PlinthExport.h"

#include <cstddef>
#include <vector>

namespace i18n
{
// The opening character when the text (two characters at least) is wrapped in a matching
// pair: "" '' () [] {} <> or the typographic “” ‘’ «»; otherwise 0.
//   (a) => '(';   "x" => '"';   [] => '[';   (a] => 0;   " => 0;   a => 0
PLINTH_API wchar_t GetMatchingFirstAndLastChars(const AString& text);

// The text wrapped in double quotes, unless it already is.
//   abc => "abc";   "abc" => "abc";   (empty) => "";   "abc => ""abc"
PLINTH_API AString AddDoubleQuotes(const AString& text);
// The text without one enclosing pair of double quotes; unchanged when it has none.
//   "abc" => abc;   ""abc"" => "abc";   "abc => "abc;   " => "
PLINTH_API AString RemoveDoubleQuotes(const AString& text);
// The text wrapped in single quotes, unless it already is.
//   abc => 'abc';   'abc' => 'abc'
PLINTH_API AString AddSingleQuotes(const AString& text);
// The text without one enclosing pair of single quotes; unchanged when it has none.
//   'abc' => abc;   'abc => 'abc
PLINTH_API AString RemoveSingleQuotes(const AString& text);

// The items joined by commas. With `quoteItems` each item goes through AddDoubleQuotes;
// with `spaceAfterComma` the separator is ", " instead of ",".
//   {a, b}, false, false => a,b;   {a, "b"}, true, false => "a","b";   {a, b}, false, true =>
//   a, b;   {} => (empty)
PLINTH_API AString GetCommaDelimitedString(const std::vector<AString>& items, bool quoteItems,
                                           bool spaceAfterComma);
// The values joined by commas, each in the shortest decimal form that reads back exactly
// and followed by `units` (which may be empty); `spaceAfterComma` as above.
//   {1, 2.5, 1e-9}, "V", false => 1V,2.5V,1e-09V;   {-0.25}, "", false => -0.25
PLINTH_API AString GetCommaDelimitedString(const std::vector<double>& values, const AString& units,
                                           bool spaceAfterComma);

// The next name of a sequence: the number that ends the name plus one, keeping its width
// (leading zeros) unless the number needs another digit; a name that does not end in a
// digit gets "1" appended.
//   R9 => R10;   U007 => U008;   U099 => U100;   net => net1;   a1b => a1b1;   (empty) => 1
PLINTH_API AString IncrementName(const AString& name);

// Line ends for edit controls: every LF not already preceded by CR becomes CR LF.
//   a\nb => a\r\nb;   a\r\nb => a\r\nb;   a\rb => a\rb
PLINTH_API AString ConvertNLtoNLCR(const AString& text);

// Whether `c` is the underscore (U+005F only).
PLINTH_API bool ACharIsUnderscore(wchar_t c);

// Compares at most the first `n` characters of two null-terminated texts ignoring case
// (simple case folding, as AString::CompareNoCase), stopping at the end of either:
// -1, 0 or 1. A null pointer counts as the empty text.
//   (Hello, HELP, 3) => 0;   (abc, ABD, 3) => -1;   (ab, abc, 5) => -1;   (x, y, 0) => 0
PLINTH_API int ACharStrNICmp(const wchar_t* a, const wchar_t* b, std::size_t n);
} // namespace i18n
