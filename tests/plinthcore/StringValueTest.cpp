#include "StringValue.h"

#include "FloatValue.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

TEST(StringValueTest, QuotedTextsReadWithDoubledQuotes)
{
    struct Case
    {
        const wchar_t* text;
        bool read;
        const wchar_t* content;
        std::size_t length;
    };
    const Case cases[] = {
        {L"\"a\"", true, L"a", 3},      {L"\"a\"\"b\" rest", true, L"a\"b", 6},
        {L"\"\"", true, L"", 2},        {L"\"\"\"\"", true, L"\"", 4},
        {L"\"open", false, nullptr, 0}, {L"\"a\"\"", false, nullptr, 0},
        {L"plain", false, nullptr, 0},  {L"", false, nullptr, 0},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(AString(c.text).ToUTF8());
        AString content = L"kept";
        std::size_t length = 99;
        EXPECT_EQ(StringValue::ReadQuoted(c.text, content, length), c.read);
        EXPECT_EQ(content, c.read ? AString(c.content) : AString(L"kept"));
        EXPECT_EQ(length, c.read ? c.length : 99u);
    }
    EXPECT_TRUE(StringValue::IsQuoted(L"  \"x\" "));
    EXPECT_FALSE(StringValue::IsQuoted(L"\"x\" y"));
}

TEST(StringValueTest, ParseTakesOneQuotedTextOrTheTextItself)
{
    struct Case
    {
        const wchar_t* text;
        const wchar_t* content;
    };
    const Case cases[] = {
        {L"\"High\"", L"High"},
        {L" \"High\" ", L"High"},
        {L"free text ", L"free text "},
        {L"\"a\" \"b\"", L"\"a\" \"b\""},
        {L"", L""},
    };
    for (const Case& c : cases)
    {
        std::unique_ptr<StringValue> value(StringValue::Parse(c.text));
        ASSERT_NE(value, nullptr);
        EXPECT_EQ(value->GetText(), c.content);
        std::unique_ptr<StringValue> again(StringValue::Parse(value->GetValueText()));
        EXPECT_EQ(again->GetText(), value->GetText()); // the quoted form reads back
        EXPECT_TRUE(again->IsEqual(*value));
    }
    EXPECT_FALSE(StringValue(L"a").IsEqual(StringValue(L"A")));
    EXPECT_FALSE(StringValue(L"1").IsEqual(FloatValue(1.0)));
    EXPECT_EQ(StringValue(L"10k").GetValue(), 10000.0);
    EXPECT_EQ(StringValue(L"ten").GetValue(), 0.0);
}

TEST(StringValueTest, NumbersKeepTheirTextOrSpellTheirUnit)
{
    FloatValue written(L" 4.7u ", Units::kFarad);
    EXPECT_TRUE(written.IsValid());
    EXPECT_EQ(written.GetValueText(), L"4.7u");
    FloatValue made(2.2e-9, Units::kFarad);
    EXPECT_EQ(made.GetValueText(), L"2.2nF");
    FloatValue bad(L"4.7q", Units::kNoUnit);
    EXPECT_FALSE(bad.IsValid());
    EXPECT_EQ(bad.GetValue(), 0.0);
    EXPECT_EQ(bad.GetValueText(), L"4.7q");
    EXPECT_TRUE(FloatValue(L"1k", Units::kOhm).IsEqual(FloatValue(1000.0, Units::kOhm)));
    EXPECT_FALSE(FloatValue(1000.0, Units::kOhm).IsEqual(FloatValue(1000.0)));
    EXPECT_TRUE(FloatValue(std::nan(""), Units::kNoUnit).IsEqual(FloatValue(std::nan(""))));
}
