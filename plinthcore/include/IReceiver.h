// IReceiver: an object that messages (Msg) can reach. Messages travel from receiver to
// receiver: each one that receives a message may act on it and then hands it on to the
// receivers it leads to (a property to its value, an expression to the values it refers to).
#pragma once

#include "PlinthExport.h"

#include <vector>

class Msg;

class PLINTH_API IReceiver
{
public:
    virtual ~IReceiver() = default;

    // Handles `msg` (see SingleVisitReceiver for the usual steps). Never throws.
    virtual void ReceiveMsg(Msg& msg) = 0;
    // Appends the receivers a message goes on to after this one; none by default.
    virtual void GetMsgTargets(std::vector<IReceiver*>& targets) const;

protected:
    IReceiver() = default;
    IReceiver(const IReceiver&) = default;
    IReceiver& operator=(const IReceiver&) = default;
};
