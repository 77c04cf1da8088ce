#include "VariableAttributes.h"

#include <cmath>

VariableAttributes::VariableAttributes(bool include, double lower, double upper, double step)
    : mInclude(include)
{
    SetRange(lower, upper);
    SetStep(step);
}

bool VariableAttributes::SetRange(double lower, double upper)
{
    if (!std::isfinite(lower) || !std::isfinite(upper) || lower > upper)
    {
        return false;
    }
    mLower = lower;
    mUpper = upper;
    return true;
}

bool VariableAttributes::SetStep(double step)
{
    if (!std::isfinite(step) || step < 0.0)
    {
        return false;
    }
    mStep = step;
    return true;
}
