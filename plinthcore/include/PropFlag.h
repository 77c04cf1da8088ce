// The flags of a property: how editors show it, whether the user may change it, and how the
// netlister and the results treat it. A property holds them as PropFlags, a
// base::EnumSet_T<PropFlag, 25>; codes 0 to 24 are the host's, and stored files keep them as
// bits.
#pragma once

#include "EnumSet.h"

enum PropFlag : int
{
    kPropFlagReadOnly = 0,       // the user may not change the value
    kPropFlagHidden = 1,         // editors do not list the property
    kPropFlagDisplayed = 2,      // the value is shown beside the symbol on the schematic
    kPropFlagNotNetlisted = 3,   // the netlister leaves the property out
    kPropFlagUserDefined = 4,    // added by the user, so the user may remove it
    kPropFlagRequired = 5,       // the value may not be left empty
    kPropFlagSaveWithOutput = 6, // an instance saves the quantity whenever it is output
    kPropFlagShowName = 7,       // a displayed property shows "name=value"
    kPropFlagTunable = 8,        // offered for interactive tuning
    kPropFlagOptimizable = 9,    // offered for optimisation
    kPropFlagInherited = 10,     // the value comes from the definition and was not overridden
    kPropFlagCount = 25
};

using PropFlags = base::EnumSet_T<PropFlag, 25>;
