// SingleVisitReceiver<T>: the usual way a class T receives messages. On ReceiveMsg it
//   1. does nothing when this receiver has seen the message already (else records it);
//   2. applies the message's visitor for T, when the message carries values visitors
//      (Msg::kVisitValuesType) and has one for T;
//   3. calls T's DoReceiveMsg when the message's delivery test says so;
//   4. hands the message on (Msg::Forward) to the receivers this one leads to.
// T derives from SingleVisitReceiver<T>; IReceiver is a virtual base, so one object that is
// reached through several bases is still one receiver.
#pragma once

#include "IReceiver.h"
#include "IVisitor.h"
#include "Msg.h"

template <class T> class SingleVisitReceiver : public virtual IReceiver
{
public:
    SingleVisitReceiver() = default;
    SingleVisitReceiver(const SingleVisitReceiver&) = default;
    SingleVisitReceiver& operator=(const SingleVisitReceiver&) = default;
    virtual ~SingleVisitReceiver() = default;

    void ReceiveMsg(Msg& msg) override
    {
        IReceiver* self = this;
        if (!msg.MarkVisited(self))
        {
            return;
        }
        if (msg.GetType() == Msg::kVisitValuesType)
        {
            if (IVisitor<T>* visitor = msg.template GetVisitor<T>())
            {
                visitor->Visit(static_cast<T&>(*this));
            }
        }
        if (msg.ShouldDeliver(*self))
        {
            DoReceiveMsg(msg);
        }
        msg.Forward(*self);
    }

protected:
    // What T does with a message delivered to it; nothing by default.
    virtual void DoReceiveMsg(Msg& /*msg*/) {}
};
