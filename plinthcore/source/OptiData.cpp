#include "OptiData.h"

#include "Assert.h"

VariableAttributes* OptiData::GetAttributes(id::Experiment kind)
{
    const auto found = mAttributes.find(kind);
    return found == mAttributes.end() ? nullptr : &found->second;
}

const VariableAttributes* OptiData::GetAttributes(id::Experiment kind) const
{
    const auto found = mAttributes.find(kind);
    return found == mAttributes.end() ? nullptr : &found->second;
}

bool OptiData::SetAttributes(id::Experiment kind, const VariableAttributes& attributes)
{
    if (!PLINTH_ASSERT(id::kNoExperiment < kind && kind < id::kExperimentCount))
    {
        return false;
    }
    mAttributes[kind] = attributes;
    return true;
}

bool OptiData::RemoveAttributes(id::Experiment kind)
{
    return mAttributes.erase(kind) != 0;
}

std::vector<id::Experiment> OptiData::GetExperiments() const
{
    std::vector<id::Experiment> kinds;
    for (const auto& [kind, attributes] : mAttributes)
    {
        kinds.push_back(kind);
    }
    return kinds;
}

bool OptiData::ChangeOptiData(const OptiData& other)
{
    if (*this == other)
    {
        return false;
    }
    mAttributes = other.mAttributes;
    return true;
}
