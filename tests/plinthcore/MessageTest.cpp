#include "Message.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

TEST(MessageTest, FillsItsOwnFormat)
{
    struct Case
    {
        Message message;
        std::wstring expected;
    };
    const Case cases[] = {
        {Message(1, {}, L"%s[%d]", L"d", 3), L"d[3]"},
        {Message(2, {}, L"Symbol pin name '%s' already is a terminal for component %s", L"IN",
                 std::string("X")),
         L"Symbol pin name 'IN' already is a terminal for component X"},
        {Message(3, {}, L"%u", -1), L"4294967295"},             // the int's own width
        {Message(4, {}, L"%u", -1LL), L"18446744073709551615"}, // and a long long's
        {Message(5, {}, L"%.2f|%c|%x", 2.5, L'z', 255u), L"2.50|z|ff"},
        {Message(6, {}, L"%s",
                 "Gr\xC3\xB6\xC3\x9F"
                 "e"),
         L"Gr\u00F6\u00DFe"},
        {Message(7, {}, L"%s", static_cast<const wchar_t*>(nullptr)), L"(null)"},
        {Message(8, {}, L"%s and %s", L"one"), L"one and "},
        {Message(9, {}, L"no parameters"), L"no parameters"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.message.GetNumber());
        EXPECT_EQ(c.message.GetText(), c.expected);
        EXPECT_FALSE(c.message.IsTextResolved());
    }
}

TEST(MessageTest, ParametersOutliveTheTextsTheyWereMadeFrom)
{
    std::unique_ptr<Message> message;
    {
        auto wide = std::make_unique<std::wstring>(L"Terminal");
        auto narrow = std::make_unique<std::string>("block");
        message =
            std::make_unique<Message>(61544, MessageRecord{}, L"%s is not a %s", *wide, *narrow);
        wide->assign(L"overwritten");
        narrow->assign("overwritten");
    }
    EXPECT_EQ(message->GetText(), L"Terminal is not a block");
    const Message copy = *message;
    message.reset();
    EXPECT_EQ(copy.GetText(), L"Terminal is not a block");
}

TEST(MessageTest, FallbackTextNamesNumberAndParameters)
{
    struct Case
    {
        Message message;
        std::wstring expected;
    };
    int value = 0;
    const Case cases[] = {
        {Message(7), L"Message 7"},
        {Message(61544).AddParams("Terminal"), L"Message 61544: Terminal"},
        {Message(61544).AddParams(L"Terminal", 3, -2LL, 7u, 1.5, 'c'),
         L"Message 61544: Terminal, 3, -2, 7, 1.5, c"},
        {Message(-1).AddParams(static_cast<const char*>(nullptr)), L"Message -1: (null)"},
        {Message(0).AddParams(static_cast<const void*>(nullptr)), L"Message 0: 0"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.message.GetNumber());
        EXPECT_EQ(c.message.GetText(), c.expected);
    }
    // A pointer keeps its address as a number.
    Message pointer(1);
    pointer.AddParams(static_cast<const void*>(&value));
    EXPECT_EQ(pointer.GetParams().at(0).GetKind(), FormatArg::Kind::kPointer);
    EXPECT_EQ(pointer.GetText(), Message(1, {}, L"Message 1: %p", &value).GetText());
}

TEST(MessageTest, KeepsNumberAndRecordValues)
{
    const MessageRecord record{MessageSeverity::kError, 1, 1012, 6};
    const Message message = Message(61544, record).AddParams("Terminal");
    EXPECT_EQ(message.GetNumber(), 61544);
    EXPECT_EQ(message.GetRecord(), record);
    EXPECT_EQ(message.GetSeverity(), MessageSeverity::kError);
    EXPECT_EQ(static_cast<int>(message.GetRecord().mSeverity), 1);
    EXPECT_EQ(message.GetRecord().mCategory, 1);
    EXPECT_EQ(message.GetRecord().mHelpTopic, 1012);
    EXPECT_EQ(message.GetRecord().mOrigin, 6);
    EXPECT_TRUE(message.GetFormat().empty());
    EXPECT_EQ(message.GetParams().size(), 1u);
}

TEST(MessageTest, ResolvingFixesTheTextFromOwnFormatCatalogueOrFallback)
{
    const AString catalogue(L"Item %s is not a block");
    struct Case
    {
        const wchar_t* name;
        Message message;
        const AString* catalogueFormat;
        std::wstring expected;
    };
    const Case cases[] = {
        {L"own format wins", Message(5, {}, L"own %s", L"x"), &catalogue, L"own x"},
        {L"catalogue", Message(5).AddParams(L"x"), &catalogue, L"Item x is not a block"},
        {L"fallback", Message(5).AddParams(L"x"), nullptr, L"Message 5: x"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.name);
        Message message = c.message;
        message.ResolveText(c.catalogueFormat);
        EXPECT_TRUE(message.IsTextResolved());
        EXPECT_EQ(message.GetText(), c.expected);
        // Later changes do not alter a resolved text.
        message.SetFormat(L"changed");
        message.AddParams(L"more");
        EXPECT_EQ(message.GetText(), c.expected);
    }
}

TEST(MessageTest, FillUsesAnyFormatWithTheParameters)
{
    const Message message = Message(1).AddParams(L"a", 2);
    EXPECT_EQ(message.Fill(L"%s-%d-%s"), L"a-2-");
    EXPECT_EQ(message.Fill(L""), L"");
    EXPECT_EQ(message.Fill(std::wstring_view(L"%s-%dXYZ", 5)), L"a-2");
}
