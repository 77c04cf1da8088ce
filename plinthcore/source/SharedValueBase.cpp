#include "SharedValueBase.h"

#include "Assert.h"

SharedValueBase::~SharedValueBase() = default;

SharedValueBase::SharedValueBase(const SharedValueBase& other)
    : IReceiver(other), ValueBase(other), SingleVisitReceiver<SharedValueBase>(other)
{
}

SharedValueBase& SharedValueBase::operator=(const SharedValueBase& other)
{
    ValueBase::operator=(other);
    return *this; // the holders stay this object's own
}

void SharedValueBase::AddRef(IReceiver* receiver)
{
    mReceivers.AddReceiver(receiver);
}

void SharedValueBase::Release(IReceiver* receiver)
{
    // A release without a hold must not end an object that someone else still owns.
    if (!PLINTH_ASSERT(mReceivers.HasReceiver(receiver)))
    {
        return;
    }
    if (!mReceivers.RemoveReceiver(receiver))
    {
        delete this;
    }
}

bool SharedValueBase::HasRef(IReceiver* receiver) const
{
    return mReceivers.HasReceiver(receiver);
}
