// The host's message manager: the queue of user-facing messages that the host drains and
// shows, and the catalogue of message texts keyed by message number. Posting never throws.
#pragma once

#include "AString.h"
#include "Message.h"
#include "PlinthExport.h"

#include <cstddef>
#include <map>
#include <mutex>
#include <string_view>
#include <vector>

class PLINTH_API IMessageManager
{
public:
    virtual ~IMessageManager() = default;

    // Queues `message` with its text fixed now (see Message::ResolveText; the catalogue gives
    // the format of a message that has none). False only when it could not be stored.
    virtual bool Post(const Message& message) noexcept = 0;

    // Draining: the queued messages in posting order, taken out of the queue or copied.
    virtual std::vector<Message> TakeMessages() noexcept = 0;
    virtual std::vector<Message> GetMessages() const = 0;
    virtual std::size_t GetMessageCount() const noexcept = 0;
    virtual void ClearMessages() noexcept = 0;

    // The catalogue. Registering a number again replaces its format.
    virtual bool RegisterMessageText(int number, std::wstring_view format) = 0;
    virtual bool UnregisterMessageText(int number) = 0;
    // The registered format of `number`, or false.
    virtual bool FindMessageText(int number, AString& format) const = 0;

    // Puts `queue` in place of the current queue and returns the current one (used by
    // MessageQueueRestorer; moves only, so it cannot fail).
    virtual std::vector<Message> ExchangeQueue(std::vector<Message> queue) noexcept = 0;
};

// The framework's implementation. Safe to use from several threads.
class PLINTH_API MessageManager final : public IMessageManager
{
public:
    MessageManager() = default;
    MessageManager(const MessageManager&) = delete;
    MessageManager& operator=(const MessageManager&) = delete;

    bool Post(const Message& message) noexcept override;
    std::vector<Message> TakeMessages() noexcept override;
    std::vector<Message> GetMessages() const override;
    std::size_t GetMessageCount() const noexcept override;
    void ClearMessages() noexcept override;
    bool RegisterMessageText(int number, std::wstring_view format) override;
    bool UnregisterMessageText(int number) override;
    bool FindMessageText(int number, AString& format) const override;
    std::vector<Message> ExchangeQueue(std::vector<Message> queue) noexcept override;

private:
    mutable std::mutex mMutex;
    std::vector<Message> mQueue;
    std::map<int, AString> mCatalogue;
};

// The process-wide message manager of the framework; never null.
PLINTH_API IMessageManager* GetGlobalIMessageManager();

// Holds the manager's queue aside while it lives: messages posted meanwhile go to a fresh
// queue that is dropped at the end, and the earlier queue comes back untouched. Restorers
// nest. Trial evaluations run under one so that their messages are not shown.
class PLINTH_API MessageQueueRestorer
{
public:
    // A null manager makes a restorer that does nothing.
    explicit MessageQueueRestorer(IMessageManager* manager = GetGlobalIMessageManager()) noexcept;
    ~MessageQueueRestorer();
    MessageQueueRestorer(const MessageQueueRestorer&) = delete;
    MessageQueueRestorer& operator=(const MessageQueueRestorer&) = delete;

private:
    IMessageManager* mManager;
    std::vector<Message> mHeld;
};
