// RefPinOption: how a component's reference terminals are laid out.
#pragma once

enum RefPinOption : int
{
    kRefPinPerPin = 0,   // one reference terminal per pin, "<pin>_ref", right behind its pin
    kRefPinCommon = 1,   // one common reference terminal "ref" at the end
    kRefPinNone = 2,     // no reference terminals
    kRefPinPerPinAlt = 3 // one per pin as kRefPinPerPin (a second host choice of that layout)
};
