#include "VariableProp.h"

#include "Assert.h"
#include "FloatValue.h"
#include "IScriptArgInfo.h"
#include "PropList.h"
#include "PropVisitor.h"
#include "ValueBase.h"
#include "ValueError.h"
#include "ValueProp.h"
#include "Variable.h"

VariableProp::VariableProp() : mVariable(std::make_unique<Variable>()) {}

VariableProp::VariableProp(const AString& name, const PropFlags& flags, Units::FullUnitType unit)
    : OptiVariable(name, flags), mVariable(std::make_unique<Variable>(name)), mUnit(unit)
{
}

VariableProp::VariableProp(const AString& name, const Value& value, const PropFlags& flags)
    : OptiVariable(name, flags), mVariable(std::make_unique<Variable>(name, value))
{
}

VariableProp::VariableProp(Variable* variable, const PropFlags& flags)
    : OptiVariable(variable != nullptr ? variable->GetName() : AString(), flags),
      mVariable(variable)
{
    if (!PLINTH_ASSERT(variable))
    {
        mVariable = std::make_unique<Variable>();
    }
}

VariableProp::VariableProp(const VariableProp& other)
    : IReceiver(other), OptiVariable(other), SingleVisitReceiver<VariableProp>(other),
      mVariable(std::make_unique<Variable>(*other.mVariable)), mUnit(other.mUnit)
{
}

VariableProp& VariableProp::operator=(const VariableProp& other)
{
    if (this != &other)
    {
        OptiVariable::operator=(other);
        *mVariable = *other.mVariable;
        mUnit = other.mUnit;
    }
    return *this;
}

VariableProp::~VariableProp() = default;

bool VariableProp::SetPropertyName(const AString& name)
{
    if (!Variable::IsValidName(name) || !mVariable->ChangeName(name))
    {
        return false;
    }
    return OptiVariable::SetPropertyName(name);
}

AString VariableProp::PropertyValue() const
{
    return mVariable->GetValueText();
}

bool VariableProp::ChangeValue(const AString& text)
{
    ValueBase* value = Value::CreateValueBase(text, mUnit);
    if (value == nullptr)
    {
        return false;
    }
    if (!ValueProp::UnitsFit(mUnit, *value, text))
    {
        delete value;
        return false;
    }
    mVariable->SetValueBase(value);
    return true;
}

bool VariableProp::ChangeValue(const double& value)
{
    mVariable->SetValueBase(new FloatValue(value, mUnit));
    return true;
}

double VariableProp::GetValue() const
{
    VariableScopeGuard scope(GetPropList());
    return mVariable->GetValue();
}

ValueBase* VariableProp::GetValueBase() const
{
    return mVariable->GetValueObject().GetValueBase();
}

Units::FullUnitType VariableProp::GetUnits() const
{
    const Units::FullUnitType unit = mVariable->GetValueObject().GetUnits();
    return unit != Units::kNoUnit ? unit : mUnit;
}

Units::UnitType VariableProp::GetUnitType() const
{
    return Units::GetUnitDef(GetUnits()).GetUnitType();
}

Property* VariableProp::CloneProp() const
{
    return new VariableProp(*this);
}

Property* VariableProp::CopyToInstance() const
{
    return new ValueProp(*this, *mVariable);
}

Property* VariableProp::CreateEvaluatedProperty() const
{
    auto* copy = new VariableProp(*this);
    if (const ValueBase* value = mVariable->GetValueObject().GetValueBase())
    {
        VariableScopeGuard scope(GetPropList());
        copy->mVariable->SetValueBase(value->CreateEvaluatedValueBase());
    }
    return copy;
}

void VariableProp::Accept(PropVisitor& visitor)
{
    visitor.VisitVariableProp(*this);
}

void VariableProp::Accept(ConstPropVisitor& visitor) const
{
    visitor.VisitVariableProp(*this);
}

void VariableProp::CopyProp(const Property& other)
{
    if (&other == this)
    {
        return;
    }
    if (const auto* variableProp = dynamic_cast<const VariableProp*>(&other))
    {
        SetPropertyName(other.PropertyName());
        SetFlags(other.GetFlags());
        mVariable->SetValue(variableProp->mVariable->GetValueObject());
        mUnit = variableProp->mUnit;
        GetOptiData().ChangeOptiData(variableProp->GetOptiData());
    }
    else
    {
        SetPropertyName(other.PropertyName());
        SetFlags(other.GetFlags());
        ChangeValue(other.PropertyValue());
    }
}

void VariableProp::GetScriptArguments(IScriptArgInfo& args, const PropChange& change) const
{
    OptiVariable::GetScriptArguments(args, change);
    PutValueArgument(args, change, PropertyValue());
}

bool VariableProp::AssignFromScriptArguments(const IScriptArgInfo& args, PropChange& change)
{
    const bool ok = OptiVariable::AssignFromScriptArguments(args, change);
    return AssignValueArgument(args, change) && ok;
}

bool VariableProp::Write(io::CBlock_func& block) const
{
    InternalWriteProp(block);
    block.AddValue(PropertyValue());
    block.AddValue(static_cast<int>(mUnit));
    const OptiData& data = GetOptiData();
    if (!data.IsEmpty())
    {
        io::CBlock_func& opti = block.AddBlock(L"Opti");
        for (id::Experiment kind : data.GetExperiments())
        {
            const VariableAttributes& attributes = *data.GetAttributes(kind);
            io::CBlock_func& experiment = opti.AddBlock(L"Experiment");
            experiment.AddValue(static_cast<int>(kind));
            experiment.AddValue(attributes.IsInclude());
            experiment.AddValue(attributes.GetLower());
            experiment.AddValue(attributes.GetUpper());
            experiment.AddValue(attributes.GetStep());
        }
    }
    return true;
}

namespace
{
// Reads the "Opti" sub-block, when there is one, into `data`.
bool ReadOptiData(const io::CBlock_func& block, OptiData& data)
{
    const io::CBlock_func* opti = block.FindBlock(L"Opti");
    if (opti == nullptr)
    {
        return true;
    }
    for (io::CBlock_item item : opti->Items())
    {
        if (!item.HasName(L"Experiment") || !item.IsBlock())
        {
            return false;
        }
        const io::CBlock_func& experiment = *item.GetBlock();
        experiment.ResetReadPosition();
        int kind = 0;
        bool include = false;
        double lower = 0.0;
        double upper = 0.0;
        double step = 0.0;
        if (!experiment.ReadValue(kind) || !experiment.ReadValue(include) ||
            !experiment.ReadValue(lower) || !experiment.ReadValue(upper) ||
            !experiment.ReadValue(step) || kind <= id::kNoExperiment ||
            kind >= id::kExperimentCount)
        {
            return false;
        }
        VariableAttributes attributes;
        attributes.SetInclude(include);
        if (!attributes.SetRange(lower, upper) || !attributes.SetStep(step))
        {
            return false;
        }
        data.SetAttributes(static_cast<id::Experiment>(kind), attributes);
    }
    return true;
}
} // namespace

io::ReadError VariableProp::Read(const io::CBlock_func& block, IPropClientFactory* /*factory*/)
{
    AString name;
    PropFlags flags;
    AString text;
    int unit = 0;
    OptiData data;
    if (ReadPropHeader(block, name, flags) != io::kNoError || !block.ReadValue(text) ||
        !block.ReadValue(unit) || !Units::IsKnownUnit(static_cast<Units::FullUnitType>(unit)) ||
        !ReadOptiData(block, data))
    {
        return io::kReadFailed;
    }
    ValueBase* value = nullptr;
    if (!text.empty())
    {
        ValueError error;
        value = Value::CreateValueBase(text, static_cast<Units::FullUnitType>(unit), error);
        if (value == nullptr)
        {
            return io::kReadFailed;
        }
    }
    mVariable->SetName(name);
    mVariable->SetValueBase(value);
    SetReadHeader(std::move(name), flags);
    mUnit = static_cast<Units::FullUnitType>(unit);
    GetOptiData().ChangeOptiData(data);
    return io::kNoError;
}

void VariableProp::GetMsgTargets(std::vector<IReceiver*>& targets) const
{
    if (ValueBase* value = mVariable->GetValueObject().GetValueBase())
    {
        targets.push_back(value);
    }
}
