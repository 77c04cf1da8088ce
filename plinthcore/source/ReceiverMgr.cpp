#include "ReceiverMgr.h"

#include "Assert.h"
#include "IReceiver.h"
#include "Msg.h"

#include <vector>

void ReceiverMgr::AddReceiver(IReceiver* receiver)
{
    if (!PLINTH_ASSERT(receiver))
    {
        return;
    }
    ++mReceivers[receiver];
}

bool ReceiverMgr::RemoveReceiver(IReceiver* receiver)
{
    const auto found = mReceivers.find(receiver);
    if (found == mReceivers.end())
    {
        PLINTH_ASSERT(!"receiver is not registered");
    }
    else if (--found->second == 0)
    {
        mReceivers.erase(found);
    }
    return !mReceivers.empty();
}

bool ReceiverMgr::HasReceiver(const IReceiver* receiver) const
{
    return GetCount(receiver) > 0;
}

int ReceiverMgr::GetCount(const IReceiver* receiver) const
{
    const auto found = mReceivers.find(const_cast<IReceiver*>(receiver));
    return found == mReceivers.end() ? 0 : found->second;
}

int ReceiverMgr::GetTotalCount() const
{
    int total = 0;
    for (const auto& [receiver, count] : mReceivers)
    {
        total += count;
    }
    return total;
}

void ReceiverMgr::SendMsg(Msg& msg) const
{
    // A receiver may let go of the object while it handles the message: work on a copy.
    std::vector<IReceiver*> receivers;
    receivers.reserve(mReceivers.size());
    for (const auto& [receiver, count] : mReceivers)
    {
        receivers.push_back(receiver);
    }
    for (IReceiver* receiver : receivers)
    {
        msg.Send(receiver);
    }
}
