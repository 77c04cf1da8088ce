#include "OptiVariable.h"

#include "Variable.h"

#include <utility>

OptiVariable::OptiVariable(AString name, const PropFlags& flags) : Property(std::move(name), flags)
{
}

OptiVariable::~OptiVariable() = default;

bool OptiVariable::CanTakePartInExperiment() const
{
    const Variable* variable = GetVariable();
    return variable != nullptr && variable->GetValueObject().CanTakePartInExperiment();
}
