// StringValue: a text value, as written between double quotes in a value text. Inside the
// quotes a double quote is doubled.
//   StringValue::Parse(L"\"High\"")->GetText()   => High
//   StringValue::Parse(L"free text")->GetText()  => free text (not quoted: taken as it is)
//   StringValue(L"say \"hi\"").GetValueText()    => "say ""hi"""
#pragma once

#include "AString.h"
#include "PlinthExport.h"
#include "SharedValueBase.h"

#include <cstddef>
#include <string_view>

class PLINTH_API StringValue : public SharedValueBase
{
public:
    explicit StringValue(AString text = AString());
    StringValue(const StringValue& other);
    StringValue& operator=(const StringValue& other);
    ~StringValue() override;

    // A new text value, owned by the caller, never null: the content of `text` when it is
    // one quoted text (blanks around it allowed), else `text` itself.
    static StringValue* Parse(const AString& text);
    // Reads a quoted text that starts at text[0]: its content and the length it takes, quotes
    // included. False when text[0] is no double quote or the quote is not closed.
    //   "\"a\"\"b\" rest" => content a"b, length 7
    static bool ReadQuoted(std::wstring_view text, AString& content, std::size_t& length);
    // `text` between double quotes, inner quotes doubled.
    static AString Quote(std::wstring_view text);
    // Whether `text`, blanks around it ignored, is exactly one quoted text.
    static bool IsQuoted(std::wstring_view text);

    const AString& GetText() const { return mText; }

    // The number the text spells (Units::TextToFloat: "10k" gives 10000), else 0.
    double GetValue() const override;
    // The quoted form, which reads back as the same text.
    AString GetValueText() const override;
    ValueBase* CloneValueBase() const override;
    // Another text value with the same text (case counts).
    bool IsEqual(const ValueBase& other) const override;
    val::ParameterType GetParameterType() const override { return val::kParamText; }

private:
    AString mText;
};
