#include "IReceiver.h"

void IReceiver::GetMsgTargets(std::vector<IReceiver*>& /*targets*/) const {}
