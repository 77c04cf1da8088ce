#include "Msg.h"

#include "IReceiver.h"

#include <vector>

Msg::Msg(int type) : mType(type) {}

Msg::~Msg() = default;

void Msg::Send(IReceiver* receiver)
{
    if (receiver != nullptr)
    {
        receiver->ReceiveMsg(*this);
    }
}

bool Msg::MarkVisited(const IReceiver* receiver)
{
    return mVisited.insert(receiver).second;
}

bool Msg::HasVisited(const IReceiver* receiver) const
{
    return mVisited.count(receiver) != 0;
}

bool Msg::ShouldDeliver(const IReceiver& /*receiver*/) const
{
    return true;
}

void Msg::Forward(IReceiver& from)
{
    std::vector<IReceiver*> targets;
    from.GetMsgTargets(targets);
    for (IReceiver* target : targets)
    {
        if (target != nullptr && !HasVisited(target))
        {
            mPending.push_back(target);
        }
    }
    if (mDraining)
    {
        return; // the outer Forward reaches them
    }
    struct Draining
    {
        bool& flag;
        explicit Draining(bool& draining) : flag(draining) { flag = true; }
        ~Draining() { flag = false; }
        Draining(const Draining&) = delete;
        Draining& operator=(const Draining&) = delete;
    } draining(mDraining);
    while (!mPending.empty())
    {
        IReceiver* next = mPending.front();
        mPending.pop_front();
        next->ReceiveMsg(*this);
    }
}
