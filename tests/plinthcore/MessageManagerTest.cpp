#include "MessageManager.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace
{
std::vector<std::wstring> Texts(const std::vector<Message>& messages)
{
    std::vector<std::wstring> texts;
    for (const Message& message : messages)
    {
        texts.push_back(message.GetText());
    }
    return texts;
}

std::vector<std::wstring> QueuedTexts(const IMessageManager& manager)
{
    return Texts(manager.GetMessages());
}

void PostText(IMessageManager& manager, const wchar_t* text)
{
    EXPECT_TRUE(manager.Post(Message(1, {}, L"%s", text)));
}

using Strings = std::vector<std::wstring>;
} // namespace

TEST(MessageManagerTest, PostingFixesTextFromTheCatalogue)
{
    MessageManager manager;
    ASSERT_TRUE(manager.RegisterMessageText(61544, L"Item '%s' of the project is not a block"));
    const MessageRecord record{MessageSeverity::kError, 1, 1012, 6};
    ASSERT_TRUE(manager.Post(Message(61544, record).AddParams(L"Terminal")));
    ASSERT_TRUE(manager.Post(Message(61545, record).AddParams(L"Terminal")));
    ASSERT_TRUE(manager.Post(Message(61544, {}, L"own format %s", L"wins")));

    // Catalogue changes after posting leave queued texts alone.
    manager.RegisterMessageText(61545, L"registered too late");
    const std::vector<Message> messages = manager.TakeMessages();
    EXPECT_EQ(Texts(messages), (Strings{L"Item 'Terminal' of the project is not a block",
                                        L"Message 61545: Terminal", L"own format wins"}));
    EXPECT_EQ(messages[0].GetRecord(), record);
    EXPECT_EQ(messages[0].GetNumber(), 61544);
    EXPECT_TRUE(messages[1].IsTextResolved());
}

TEST(MessageManagerTest, CatalogueRegistersReplacesAndForgets)
{
    MessageManager manager;
    AString format;
    EXPECT_FALSE(manager.FindMessageText(15, format));
    EXPECT_TRUE(manager.RegisterMessageText(15, L"first %d"));
    EXPECT_TRUE(manager.RegisterMessageText(15, L"second %d"));
    ASSERT_TRUE(manager.FindMessageText(15, format));
    EXPECT_EQ(format, L"second %d");
    manager.Post(Message(15).AddParams(2));
    EXPECT_TRUE(manager.UnregisterMessageText(15));
    EXPECT_FALSE(manager.UnregisterMessageText(15));
    manager.Post(Message(15).AddParams(2));
    EXPECT_EQ(QueuedTexts(manager), (Strings{L"second 2", L"Message 15: 2"}));
}

TEST(MessageManagerTest, QueueIsDrainedInPostingOrder)
{
    MessageManager manager;
    EXPECT_EQ(manager.GetMessageCount(), 0u);
    EXPECT_TRUE(manager.TakeMessages().empty());
    for (const wchar_t* text : {L"a", L"b", L"c"})
    {
        PostText(manager, text);
    }
    EXPECT_EQ(manager.GetMessageCount(), 3u);
    EXPECT_EQ(QueuedTexts(manager), (Strings{L"a", L"b", L"c"})); // a copy: still queued
    EXPECT_EQ(manager.GetMessageCount(), 3u);
    EXPECT_EQ(Texts(manager.TakeMessages()), (Strings{L"a", L"b", L"c"}));
    EXPECT_EQ(manager.GetMessageCount(), 0u);
    PostText(manager, L"d");
    manager.ClearMessages();
    EXPECT_EQ(manager.GetMessageCount(), 0u);
    PostText(manager, L"e");
    EXPECT_EQ(QueuedTexts(manager), Strings{L"e"});
}

TEST(MessageManagerTest, RestorerDropsWhatWasPostedMeanwhile)
{
    MessageManager manager;
    PostText(manager, L"earlier 1");
    PostText(manager, L"earlier 2");
    {
        MessageQueueRestorer restorer(&manager);
        EXPECT_EQ(manager.GetMessageCount(), 0u); // the earlier queue is held aside
        PostText(manager, L"trial 1");
        PostText(manager, L"trial 2");
        EXPECT_EQ(QueuedTexts(manager), (Strings{L"trial 1", L"trial 2"}));
    }
    EXPECT_EQ(QueuedTexts(manager), (Strings{L"earlier 1", L"earlier 2"}));
}

TEST(MessageManagerTest, RestorersNest)
{
    MessageManager manager;
    PostText(manager, L"outside");
    {
        MessageQueueRestorer outer(&manager);
        PostText(manager, L"outer trial");
        {
            MessageQueueRestorer inner(&manager);
            PostText(manager, L"inner trial");
            EXPECT_EQ(QueuedTexts(manager), Strings{L"inner trial"});
        }
        EXPECT_EQ(QueuedTexts(manager), Strings{L"outer trial"});
        {
            MessageQueueRestorer second(&manager);
            manager.ClearMessages(); // clearing inside touches only the trial queue
            EXPECT_EQ(manager.TakeMessages().size(), 0u);
        }
        EXPECT_EQ(QueuedTexts(manager), Strings{L"outer trial"});
    }
    EXPECT_EQ(QueuedTexts(manager), Strings{L"outside"});
}

TEST(MessageManagerTest, RestorerOfAnEmptyQueueLeavesItEmpty)
{
    MessageManager manager;
    {
        MessageQueueRestorer restorer(&manager);
        PostText(manager, L"dropped");
    }
    EXPECT_EQ(manager.GetMessageCount(), 0u);
    {
        MessageQueueRestorer none(nullptr); // does nothing, harmlessly
    }
}

TEST(MessageManagerTest, GlobalManagerIsOneAndWorksWithTheDefaultRestorer)
{
    IMessageManager* global = GetGlobalIMessageManager();
    ASSERT_NE(global, nullptr);
    EXPECT_EQ(global, GetGlobalIMessageManager());
    const std::vector<Message> before = global->TakeMessages();
    PostText(*global, L"kept");
    {
        MessageQueueRestorer restorer;
        PostText(*global, L"dropped");
    }
    EXPECT_EQ(QueuedTexts(*global), Strings{L"kept"});
    global->ClearMessages();
    global->ExchangeQueue(before);
}

TEST(MessageManagerTest, PostingFromSeveralThreadsLosesNothing)
{
    MessageManager manager;
    manager.RegisterMessageText(3, L"thread %d message %d");
    constexpr int kThreads = 4;
    constexpr int kMessages = 500;
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t)
    {
        threads.emplace_back(
            [&manager, t]
            {
                for (int i = 0; i < kMessages; ++i)
                {
                    manager.Post(Message(3).AddParams(t, i));
                }
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    const std::vector<Message> messages = manager.TakeMessages();
    ASSERT_EQ(messages.size(), static_cast<std::size_t>(kThreads * kMessages));
    int lastOfThread0 = -1;
    for (const Message& message : messages)
    {
        if (message.GetText().rfind(L"thread 0 ", 0) == 0)
        {
            int i = -1;
            ASSERT_TRUE(AString(message.GetText().substr(17)).IsNumber(i));
            EXPECT_EQ(i, lastOfThread0 + 1); // each thread's messages stay in order
            lastOfThread0 = i;
        }
    }
    EXPECT_EQ(lastOfThread0, kMessages - 1);
}
