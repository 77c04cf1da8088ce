// Small text services for names and netlist text: search and replace, joined lists, quoting,
// name increments, label checks and the conversions of a netlist entry's text between its
// stored form, the form shown in the text editor and the form written to the netlist.
// The quoting, list and increment functions forward to the framework's i18n helpers, so that
// callers of this library need only this library's names.
#pragma once

#include "AString.h"
#include "QuillonExport.h"

#include <vector>

// The opening character when the text is wrapped in a matching pair, otherwise 0
// (i18n::GetMatchingFirstAndLastChars).
//   (a) => '(';   "x" => '"';   (a] => 0
QLN_API wchar_t GetMatchingFirstAndLastChars(const AString& text);
// The text in double quotes unless it already is (i18n::AddDoubleQuotes).
//   abc => "abc";   "abc" => "abc"
QLN_API AString AddDoubleQuotes(const AString& text);
// The text without one enclosing pair of double quotes (i18n::RemoveDoubleQuotes).
//   "abc" => abc;   "abc => "abc
QLN_API AString RemoveDoubleQuotes(const AString& text);
// The text in single quotes unless it already is (i18n::AddSingleQuotes).
//   abc => 'abc';   'abc' => 'abc'
QLN_API AString AddSingleQuotes(const AString& text);
// The text without one enclosing pair of single quotes (i18n::RemoveSingleQuotes).
//   'abc' => abc;   'abc => 'abc
QLN_API AString RemoveSingleQuotes(const AString& text);
// The items joined by "," with no blanks; with `quoteItems` each item is double-quoted.
//   {a, b}, false => a,b;   {a, b}, true => "a","b"
QLN_API AString GetCommaDelimitedString(const std::vector<AString>& items, bool quoteItems);
// The values joined by ",", each in its shortest exact decimal form followed by `units`.
//   {1, 2.5}, V => 1V,2.5V
QLN_API AString GetCommaDelimitedString(const std::vector<double>& values, const AString& units);
// The next name of a numbered sequence (i18n::IncrementName).
//   R9 => R10;   U007 => U008;   net => net1
QLN_API AString IncrementName(const AString& name);

// A copy of `text` with every occurrence of `find` replaced, left to right. Inserted text is
// never searched again, so a replacement that contains `find` does not loop. `find` must not
// be empty: an empty one fails the assertion "!find.empty()" and gives `text` unchanged.
//   (aaa, a, aa) => aaaaaa;   (abc, x, y) => abc;   (a.b.c, ., ::) => a::b::c
QLN_API AString ReplaceAllText(const AString& text, const AString& find,
                               const AString& replacement);
// The items joined by `delimiter` with no blanks added; with `quote` each item first goes
// through AddDoubleQuotes. An empty list gives the empty text.
//   {a, b}, ';', false => a;b;   {a, b}, ';', true => "a";"b";   {} => (empty)
QLN_API AString GetDelimitedString(const std::vector<AString>& items, wchar_t delimiter,
                                   bool quote);
// Whether the text starts with "+", the prefix that marks a reference to a variable.
//   +x => true;   x+ => false;   (empty) => false
QLN_API bool BeginsWithVariablePrefix(const AString& text);

namespace qln
{
// A library type name adjusted for use: without its last character when `dropLastChar`,
// then lowered when `toLower`.
//   (AbC1, true, true) => abc;   (AbC1, false, true) => abc1;   ("", true, false) => ""
QLN_API AString ModifyLibraryTypeName(const AString& name, bool dropLastChar, bool toLower);
} // namespace qln

namespace merrowutility
{
// Whether `label` reads as a label that may carry brackets: a letter or "_" first (letters
// as the C library's iswalpha classifies them), then letters, digits, "_" and the brackets
// "[" "<" "]" ">", with as many opening as closing brackets. The order and kinds of the
// brackets are deliberately not checked.
//   _a[1] => true;   abc => true;   a]b[ => true;   a[b> => true;   1a => false;
//   a[1 => false;   a.b => false;   (empty) => false
QLN_API bool IsLabelWithBrackets(const AString& label);

// Netlist entry text is stored with LF for a real netlist line break and VT for a break that
// exists only in the editor. The editor shows a real break as backslash-n at the end of the
// line. The examples are in C string notation: "\\n" is the typed backslash-n.

// Stored form to editor form: CR dropped, a real break becomes \\n and a line break, an
// editor-only break a line break; every line break is CR LF.
//   "x\ny\vz" => "x\\n\r\ny\r\nz"
QLN_API AString ProcessNetlistStringBeforeEditing(const AString& text);
// Editor form back to stored form: CR dropped; \\n at the end of a line or alone becomes a
// real break, any other line break an editor-only break; a typed \\\\n (escaped escape)
// survives unchanged. A BEL character in the text also comes out as \\\\n.
//   "x\\n\r\ny\r\nz" => "x\ny\vz";   "a\\nb" => "a\nb";   "a\\\\nb" => "a\\\\nb"
QLN_API AString ProcessNetlistStringAfterEditing(const AString& text);
// Stored form to netlist form: CR dropped and editor-only breaks removed, joining their lines.
//   "x\ny\vz" => "x\nyz"
QLN_API AString ProcessNetlistStringBeforeNetlisting(const AString& text);
} // namespace merrowutility
