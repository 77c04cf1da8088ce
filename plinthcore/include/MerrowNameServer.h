// The host's natural order of names, used wherever names are listed or sorted for users.
#pragma once

#include "AString.h"
#include "PlinthExport.h"

class PLINTH_API MerrowNameServer
{
public:
    // Natural name order: runs of ASCII digits compare as whole numbers, any other characters
    // one by one ignoring case (as AString::CompareNoCase); a name that is a prefix of
    // another sorts first. Names equal under that rule are told apart by the first number
    // written with fewer leading zeros, then by their exact code units, so the result is 0
    // only for identical names and "< 0" is a strict weak order. Returns -1, 0 or 1.
    //   U2 < U10;   R1 < r2;   a9 < a10b;   net < net1;   x-1 < x1;   U1 < U01;   A < a
    static int CompareNames(const AString& a, const AString& b);
};
