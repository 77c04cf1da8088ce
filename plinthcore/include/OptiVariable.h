// OptiVariable: a property over a design variable that can take part in experiments (sweeps,
// optimisation, tuning, statistics): it keeps the variable's experiment settings (OptiData),
// one attribute record per kind of experiment.
//   var.GetAttributes(id::kParametric)            => null until set up
//   var.GetOptiData().SetAttributes(id::kParametric, {true, 1, 10, 1});
//   var.GetAttributes(id::kParametric)->IsInclude() => true
#pragma once

#include "Id.h"
#include "OptiData.h"
#include "PlinthExport.h"
#include "Property.h"

class Variable;

class PLINTH_API OptiVariable : public Property
{
public:
    ~OptiVariable() override;

    // The variable the property stands for (not null for the framework's classes).
    virtual Variable* GetVariable() const = 0;

    OptiData& GetOptiData() { return mOptiData; }
    const OptiData& GetOptiData() const { return mOptiData; }
    // The attribute record of `kind`, or null when the variable is not set up for it.
    VariableAttributes* GetAttributes(id::Experiment kind) { return mOptiData.GetAttributes(kind); }
    const VariableAttributes* GetAttributes(id::Experiment kind) const
    {
        return mOptiData.GetAttributes(kind);
    }
    // Whether the variable can take part in an experiment at all: its value is a real number
    // or an expression (ValueBase::CanTakePartInExperiment); texts, choices, unresolved
    // references and missing values cannot.
    bool CanTakePartInExperiment() const;

protected:
    OptiVariable() = default;
    OptiVariable(AString name, const PropFlags& flags);
    OptiVariable(const OptiVariable& other) = default;
    OptiVariable& operator=(const OptiVariable& other) = default;

private:
    OptiData mOptiData;
};
