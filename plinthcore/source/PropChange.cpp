#include "PropChange.h"

PropChange::PropChange(std::initializer_list<Kind> kinds)
{
    for (Kind kind : kinds)
    {
        mKinds.Add(kind);
    }
}

bool PropChange::HasAny(std::initializer_list<Kind> kinds) const
{
    for (Kind kind : kinds)
    {
        if (mKinds.Contains(kind))
        {
            return true;
        }
    }
    return false;
}

PropChange& PropChange::operator|=(const PropChange& other)
{
    mKinds |= other.mKinds;
    return *this;
}
