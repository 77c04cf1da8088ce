// OptiData: the experiment settings of a design variable: one VariableAttributes record per
// kind of experiment (id::Experiment) that the variable has been set up for.
//   data.SetAttributes(id::kOptimization, {true, 1, 10});
//   data.GetAttributes(id::kOptimization)->IsInclude() => true
//   data.GetAttributes(id::kTuning)                    => null (not set up)
#pragma once

#include "Id.h"
#include "PlinthExport.h"
#include "VariableAttributes.h"

#include <map>
#include <vector>

class PLINTH_API OptiData
{
public:
    // The record of `kind`, or null when the variable is not set up for it.
    VariableAttributes* GetAttributes(id::Experiment kind);
    const VariableAttributes* GetAttributes(id::Experiment kind) const;
    // Adds or replaces the record of `kind`; false (assertion "id::kNoExperiment < kind &&
    // kind < id::kExperimentCount") for a kind that is none.
    bool SetAttributes(id::Experiment kind, const VariableAttributes& attributes);
    // Removes the record of `kind`; false when there was none.
    bool RemoveAttributes(id::Experiment kind);
    // The kinds set up, in ascending order.
    std::vector<id::Experiment> GetExperiments() const;
    bool IsEmpty() const { return mAttributes.empty(); }

    // Takes over every record of `other` (records of kinds `other` lacks are removed); true
    // when something changed.
    bool ChangeOptiData(const OptiData& other);

    friend bool operator==(const OptiData&, const OptiData&) = default;

private:
    std::map<id::Experiment, VariableAttributes> mAttributes;
};
