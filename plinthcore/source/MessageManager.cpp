#include "MessageManager.h"

#include <utility>

bool MessageManager::Post(const Message& message) noexcept
{
    try
    {
        Message queued = message;
        if (!queued.IsTextResolved())
        {
            AString format;
            const bool catalogued = FindMessageText(queued.GetNumber(), format);
            queued.ResolveText(catalogued ? &format : nullptr);
        }
        std::lock_guard lock(mMutex);
        mQueue.push_back(std::move(queued));
        return true;
    }
    catch (...)
    {
        return false;
    }
}

std::vector<Message> MessageManager::TakeMessages() noexcept
{
    std::lock_guard lock(mMutex);
    return std::exchange(mQueue, std::vector<Message>());
}

std::vector<Message> MessageManager::GetMessages() const
{
    std::lock_guard lock(mMutex);
    return mQueue;
}

std::size_t MessageManager::GetMessageCount() const noexcept
{
    std::lock_guard lock(mMutex);
    return mQueue.size();
}

void MessageManager::ClearMessages() noexcept
{
    std::vector<Message> dropped;
    {
        std::lock_guard lock(mMutex);
        dropped.swap(mQueue);
    }
}

bool MessageManager::RegisterMessageText(int number, std::wstring_view format)
{
    try
    {
        AString text(format);
        std::lock_guard lock(mMutex);
        mCatalogue.insert_or_assign(number, std::move(text));
        return true;
    }
    catch (...)
    {
        return false;
    }
}

bool MessageManager::UnregisterMessageText(int number)
{
    std::lock_guard lock(mMutex);
    return mCatalogue.erase(number) != 0;
}

bool MessageManager::FindMessageText(int number, AString& format) const
{
    std::lock_guard lock(mMutex);
    const auto found = mCatalogue.find(number);
    if (found == mCatalogue.end())
    {
        return false;
    }
    format = found->second;
    return true;
}

std::vector<Message> MessageManager::ExchangeQueue(std::vector<Message> queue) noexcept
{
    std::lock_guard lock(mMutex);
    std::swap(queue, mQueue);
    return queue;
}

IMessageManager* GetGlobalIMessageManager()
{
    // Never destroyed, so that code running during static destruction can still post.
    static MessageManager* const manager = new MessageManager;
    return manager;
}

MessageQueueRestorer::MessageQueueRestorer(IMessageManager* manager) noexcept : mManager(manager)
{
    if (mManager != nullptr)
    {
        mHeld = mManager->ExchangeQueue(std::vector<Message>());
    }
}

MessageQueueRestorer::~MessageQueueRestorer()
{
    if (mManager != nullptr)
    {
        // What was posted meanwhile comes back and is dropped here.
        mManager->ExchangeQueue(std::move(mHeld));
    }
}
