// ReceiverMgr: the reference book of a shared object: which receivers hold it and how many
// times each. Objects that live while they are held (value objects) register a holder on
// AddRef and remove one registration on Release; when the book answers that no registration
// is left, the object deletes itself.
//   book.AddReceiver(a); book.AddReceiver(a); book.RemoveReceiver(a) => true (one left)
//   book.RemoveReceiver(a) => false (none left)
#pragma once

#include "PlinthExport.h"

#include <cstddef>
#include <map>

class IReceiver;
class Msg;

class PLINTH_API ReceiverMgr
{
public:
    ReceiverMgr() = default;
    // A book belongs to one object: copies of the object start with an empty book.
    ReceiverMgr(const ReceiverMgr&) = delete;
    ReceiverMgr& operator=(const ReceiverMgr&) = delete;

    // Adds one registration of `receiver`; a null receiver is refused (assertion "receiver").
    void AddReceiver(IReceiver* receiver);
    // Removes one registration of `receiver` and answers whether any registration (of any
    // receiver) is left. Removing a receiver that is not registered changes nothing (assertion
    // "!\"receiver is not registered\"").
    bool RemoveReceiver(IReceiver* receiver);
    // Whether `receiver` holds at least one registration.
    bool HasReceiver(const IReceiver* receiver) const;
    // The registrations of `receiver` (0 when none).
    int GetCount(const IReceiver* receiver) const;
    // Every registered receiver with its number of registrations.
    const std::map<IReceiver*, int>& GetReceivers() const { return mReceivers; }
    // The registrations of all receivers together.
    int GetTotalCount() const;
    bool IsEmpty() const { return mReceivers.empty(); }

    // Sends `msg` to every registered receiver, in address order.
    void SendMsg(Msg& msg) const;

private:
    std::map<IReceiver*, int> mReceivers;
};
