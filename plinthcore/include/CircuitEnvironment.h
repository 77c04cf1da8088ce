// CircuitEnvironment: the host's product environments. The values are stored in project files
// and compared directly by other modules, so they are fixed.
#pragma once

#include <cstdint>

enum CircuitEnvironment : std::int32_t
{
    kEnvBrennaCircuit = 0,  // circuit simulation (the default)
    kEnvParvane = 1,        // system simulation
    kEnvHalvardCircuit = 2, // circuit side of the electromagnetic solver
    kEnvOrrin = 3,          // interference analysis
    kEnvReserved4 = 4,      // a further host environment without a label of its own
    kEnvCalder = 5,         // thermal network
    kEnvNone = 6            // unknown or not set
};
