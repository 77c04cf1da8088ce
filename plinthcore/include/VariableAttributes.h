// VariableAttributes: how a design variable takes part in one kind of experiment: whether it
// is included, and the range (lower and upper bound) and step it is varied over.
#pragma once

#include "PlinthExport.h"

class PLINTH_API VariableAttributes
{
public:
    VariableAttributes() = default;
    VariableAttributes(bool include, double lower, double upper, double step = 0.0);

    // Whether the variable is varied in the experiment.
    bool IsInclude() const { return mInclude; }
    void SetInclude(bool include) { mInclude = include; }
    double GetLower() const { return mLower; }
    double GetUpper() const { return mUpper; }
    // The step between values; 0 when the experiment chooses its own.
    double GetStep() const { return mStep; }
    // Sets the range; false, nothing changed, when lower > upper or a bound is not finite.
    bool SetRange(double lower, double upper);
    // Sets the step; false, nothing changed, for a negative or non-finite step.
    bool SetStep(double step);

    friend bool operator==(const VariableAttributes&, const VariableAttributes&) = default;

private:
    bool mInclude = false;
    double mLower = 0.0;
    double mUpper = 0.0;
    double mStep = 0.0;
};
