// val::ParameterType: what kind of data a value object holds, as the host's parameter tables
// number them.
#pragma once

namespace val
{

enum ParameterType : int
{
    kParamReal = 0,        // a real number (numbers, expressions)
    kParamText = 1,        // a text
    kParamInteger = 2,     // a whole number
    kParamComplex = 3,     // a complex number
    kParamBoolean = 4,     // true or false
    kParamEnumeration = 5, // one of a list of choices
    kParamUnknown = 9      // not known (an unresolved reference)
};

} // namespace val
