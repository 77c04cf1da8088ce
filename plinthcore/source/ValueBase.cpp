#include "ValueBase.h"

ValueBase::~ValueBase() = default;

ValueBase* ValueBase::CreateEvaluatedValueBase() const
{
    return CloneValueBase();
}

bool ValueBase::IsConstant() const
{
    return true;
}

Units::FullUnitType ValueBase::GetUnits() const
{
    return Units::kNoUnit;
}

Units::FullUnitType ValueBase::GetExplicitUnits() const
{
    return Units::kNoUnit;
}

Units::FullUnitType ValueBase::GetNetlistUnits() const
{
    return GetUnits();
}

bool ValueBase::CanTakePartInExperiment() const
{
    return GetParameterType() == val::kParamReal;
}
