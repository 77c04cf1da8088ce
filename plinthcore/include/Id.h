// The framework's identifiers: the value that marks "no identifier" and the kinds of
// experiment a design variable can take part in.
#pragma once

namespace id
{

// Identifiers of nodes, faces, columns and other numbered things are signed 32-bit integers;
// this one stands for "none" or "not assigned".
inline constexpr int invalidID = -1;

// The kinds of experiment that vary a design variable. A variable carries one attribute
// record per kind it has been set up for (OptiVariable::GetAttributes).
enum Experiment : int
{
    kNoExperiment = 0,
    kSensitivity = 1,  // small changes around the nominal value
    kParametric = 2,   // a sweep over a range of values
    kOptimization = 3, // values chosen by an optimiser within bounds
    kTuning = 4,       // values changed interactively
    kDesignOfExperiments = 5,
    kStatistical = 6, // values drawn from a distribution
    kExperimentCount
};

} // namespace id
