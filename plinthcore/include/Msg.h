// Msg: a message sent through a network of receivers (IReceiver). It carries a type code,
// remembers every receiver it has reached (so that each handles it once, however many paths
// lead there), decides whether a receiver should act on it (the delivery test), hands itself
// on from one receiver to the next (forwarding), and may carry a visitor that receivers of a
// given class apply to themselves.
//   Msg msg(Msg::kVisitValuesType);  msg.SetVisitor(&visitor);  msg.Send(propList);
#pragma once

#include "IVisitor.h"
#include "PlinthExport.h"

#include <cstddef>
#include <deque>
#include <unordered_set>

class IReceiver;

class PLINTH_API Msg
{
public:
    // The type code of a message that carries a visitor of value objects.
    static constexpr int kVisitValuesType = 0x76616C6C;

    explicit Msg(int type);
    virtual ~Msg();
    Msg(const Msg&) = delete;
    Msg& operator=(const Msg&) = delete;

    int GetType() const { return mType; }

    // Sends the message to `receiver` (which hands it on); a null receiver is ignored.
    void Send(IReceiver* receiver);

    // Records that `receiver` has the message; false when it had it already.
    bool MarkVisited(const IReceiver* receiver);
    bool HasVisited(const IReceiver* receiver) const;
    std::size_t GetVisitedCount() const { return mVisited.size(); }

    // The delivery test: whether `receiver` should act on the message. True by default;
    // messages that only carry a visitor, or that aim at some receivers only, say otherwise.
    virtual bool ShouldDeliver(const IReceiver& receiver) const;
    // Hands the message on from `from` to every receiver that `from` leads to
    // (IReceiver::GetMsgTargets). Chains of any length are walked without deep recursion.
    virtual void Forward(IReceiver& from);

    // The visitor the message carries, if any (not owned).
    void SetVisitor(IVisitorBase* visitor) { mVisitor = visitor; }
    IVisitorBase* GetVisitorBase() const { return mVisitor; }
    // The visitor for objects of class T, when the message carries one; else null.
    template <class T> IVisitor<T>* GetVisitor() const
    {
        return dynamic_cast<IVisitor<T>*>(mVisitor);
    }

private:
    int mType;
    IVisitorBase* mVisitor = nullptr;
    std::unordered_set<const IReceiver*> mVisited;
    // Receivers still to be reached; the outermost Forward drains them in a loop.
    std::deque<IReceiver*> mPending;
    bool mDraining = false;
};
