#include "RefButtonPropClient.h"

namespace refhost
{
bool RefButtonPropClient::ButtonPressed(ButtonProp& prop)
{
    ++mPressCount;
    return mAction ? mAction(prop) : false;
}
} // namespace refhost
