// SharedValueBase: the framework's value objects (numbers, texts, expressions) share this
// base: a receiver book counts their holders, and the object deletes itself when the last
// hold is released. Only objects made with new may be registered. Messages that reach such
// a value go on to the values it refers to (GetMsgTargets).
#pragma once

#include "PlinthExport.h"
#include "ReceiverMgr.h"
#include "SingleVisitReceiver.h"
#include "ValueBase.h"

class PLINTH_API SharedValueBase : public ValueBase, public SingleVisitReceiver<SharedValueBase>
{
public:
    ~SharedValueBase() override;

    void AddRef(IReceiver* receiver) override;
    // Deletes the object when the book has no registration left. A receiver that holds no
    // registration changes nothing (assertion "mReceivers.HasReceiver(receiver)").
    void Release(IReceiver* receiver) override;
    bool HasRef(IReceiver* receiver) const override;

    // The holders, for inspection.
    const ReceiverMgr& GetReceiverMgr() const { return mReceivers; }

protected:
    SharedValueBase() = default;
    // A copy starts without holders.
    SharedValueBase(const SharedValueBase& other);
    SharedValueBase& operator=(const SharedValueBase& other);

private:
    ReceiverMgr mReceivers;
};
