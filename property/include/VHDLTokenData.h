// VHDLTokenData splits one line of text into tokens at a set of delimiter characters, keeps
// bracketed or quoted stretches together as one token, recognises VHDL extended identifiers
// (names between backslashes) and tells whether every token is a legal VHDL identifier.
#pragma once

#include "AString.h"
#include "QuillonExport.h"

#include <map>

class QLN_API VHDLTokenData
{
public:
    // Scans `text` (up to its first null character; a null or empty text gives no tokens)
    // at the characters of `delim`. A last character CR is dropped first when CR is one of
    // the delimiters. A null `delim` fails the assertion "delim" and, like an empty one,
    // gives no tokens.
    // With `collapse` nonzero leading delimiters are skipped and a run of delimiters makes one
    // break; with 0 every delimiter breaks, so two in a row enclose an empty token.
    // `pairs` (may be null or empty) maps the opening character of a stretch that is kept
    // whole to its closing character; openings nest, delimiters inside do not break and
    // backslashes inside are taken as they are. Examples (text, delimiters, collapse, pairs):
    //   a, b      ", "  1           => a | b
    //   a, b      ", "  0           => a | (empty) | b
    //   f(a, b) c ", "  1  {( to )} => f(a, b) | c
    //   \bus\ x   " "   1           => \bus\ (extended) | x
    VHDLTokenData(const wchar_t* text, const wchar_t* delim, int collapse,
                  const std::map<wchar_t, wchar_t>* pairs);
    VHDLTokenData(const AString& text, const wchar_t* delim, int collapse,
                  const std::map<wchar_t, wchar_t>* pairs);
    VHDLTokenData(const VHDLTokenData& other);
    VHDLTokenData& operator=(const VHDLTokenData& other);
    ~VHDLTokenData();

    // The number of tokens.
    int Count() const { return mSize; }
    // Token `idx`; an index not below Count() fails the assertion
    // "idx < static_cast<unsigned>(mSize)" and gives null.
    const wchar_t* operator[](unsigned idx) const;
    // Whether token `idx` is an extended identifier (holds a backslash outside a kept
    // stretch); false for an index out of range.
    bool IsExtended(unsigned idx) const;
    // The stored text from the start of token `n` on, found by skipping delimiters and, per
    // token before `n`, its length plus one character and the delimiters after it. `n` <= 0
    // gives the whole text; `n` not below Count() the empty text. Valid while this lives.
    //   "a b  c", " ", 1: RestOfString(1) => "b  c";   RestOfString(3) => ""
    const wchar_t* RestOfString(int n) const;
    // Whether every token is a legal VHDL identifier and the scan found nothing illegal: an
    // ordinary token holds only A-Z, a-z, 0-9 and "_" (its first character is deliberately
    // not treated apart, so "9lives" passes); an extended token ends with a closing
    // backslash, and a lone backslash right before the closing one is illegal ("\\" inside
    // is one escaped backslash). Once false it stays false.
    //   "\bus\ x" => true;   "my-net" => false;   "a\b" => false (never closed)
    bool IsOkayVHDL();

private:
    void Init(const wchar_t* text, std::size_t length, const wchar_t* delim,
              const std::map<wchar_t, wchar_t>* pairs);
    // Counts the tokens, or with `tokens` and `extended` also fills them.
    int ProcessString(wchar_t** tokens, bool* extended);
    bool IsDelimiter(wchar_t c) const;
    void Swap(VHDLTokenData& other) noexcept;

    wchar_t* mText = nullptr;       // owned, null-terminated
    wchar_t* mDelimiters = nullptr; // owned, null-terminated
    int mCollapse = 0;
    int mSize = 0;
    wchar_t** mTokens = nullptr; // owned array of mSize owned tokens
    std::map<wchar_t, wchar_t> mPairs;
    bool* mExtended = nullptr; // owned array of mSize flags
    bool mOkay = true;
};
