#include "ExpressionNode.h"

#include "Expression.h"
#include "ExpressionFunction.h"
#include "Variable.h"
#include "VariableScope.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace
{
// How many variables deep a value may refer to other variables.
constexpr std::size_t kMaxReferenceDepth = 256;

// The variables whose values are being evaluated, to find values that depend on themselves.
std::vector<const Variable*>& ActiveVariables()
{
    static std::vector<const Variable*> active;
    return active;
}

class ActiveVariable
{
public:
    explicit ActiveVariable(const Variable* variable) { ActiveVariables().push_back(variable); }
    ~ActiveVariable() { ActiveVariables().pop_back(); }
    ActiveVariable(const ActiveVariable&) = delete;
    ActiveVariable& operator=(const ActiveVariable&) = delete;
};

// What one evaluation (or unit inference) has learnt about the variables it met: each is
// worked out once however often it is named, so that variables built from variables cost
// time in proportion to their number, not to the number of paths through them.
struct Session
{
    int depth = 0;
    std::unordered_map<const Variable*, double> values;
    std::unordered_map<const Variable*, Units::FullUnitType> units;
};

Session& CurrentSession()
{
    static Session session;
    return session;
}

// Opens the session, or joins the one open; the outermost scope forgets what was learnt.
class SessionScope
{
public:
    SessionScope() { ++CurrentSession().depth; }
    ~SessionScope()
    {
        Session& session = CurrentSession();
        if (--session.depth == 0)
        {
            session.values.clear();
            session.units.clear();
        }
    }
    SessionScope(const SessionScope&) = delete;
    SessionScope& operator=(const SessionScope&) = delete;
};

bool IsActive(const Variable* variable)
{
    const auto& active = ActiveVariables();
    return std::find(active.begin(), active.end(), variable) != active.end();
}

AString OperatorText(wchar_t op)
{
    return AString(1, op);
}

// The unit of "a op b" from the units of a and b.
Units::FullUnitType CombineUnits(wchar_t op, Units::FullUnitType a, Units::FullUnitType b)
{
    const Units::FullUnitType none = Units::kNoUnit;
    switch (op)
    {
    case L'+':
    case L'-':
        return a == none ? b : (b == none || a == b ? a : none);
    case L'*':
        return a == none ? b : (b == none ? a : none);
    case L'/':
        return b == none ? a : none;
    default:
        return none;
    }
}

AString InstanceText(const ExpressionNode& node)
{
    return node.mText + L"." + node.mParameter;
}
} // namespace

bool EvaluateValueBase(const ValueBase& value, const AString& name, double& result,
                       ValueError& error)
{
    if (const auto* expression = dynamic_cast<const Expression*>(&value))
    {
        return expression->Evaluate(result, error);
    }
    if (value.GetParameterType() == val::kParamText)
    {
        error = ValueError(ValueError::kTextNotNumber, 0, name);
        return false;
    }
    result = value.GetValue();
    return true;
}

ExpressionNode::ExpressionNode(Kind kind, std::size_t position) : mKind(kind), mPosition(position)
{
}

ExpressionNode::~ExpressionNode() = default;

std::unique_ptr<ExpressionNode> ExpressionNode::Clone() const
{
    auto copy = std::make_unique<ExpressionNode>(mKind, mPosition);
    copy->mNumber = mNumber;
    copy->mUnit = mUnit;
    copy->mText = mText;
    copy->mParameter = mParameter;
    copy->mReference = mReference;
    copy->mSign = mSign;
    copy->mOperators = mOperators;
    copy->mFunction = mFunction;
    copy->mChildren.reserve(mChildren.size());
    for (const auto& child : mChildren)
    {
        copy->mChildren.push_back(child->Clone());
    }
    return copy;
}

bool ExpressionNode::Evaluate(double& value, ValueError& error) const
{
    SessionScope session;
    switch (mKind)
    {
    case Kind::kNumber:
        value = mNumber;
        return true;
    case Kind::kName:
        return EvaluateName(value, error);
    case Kind::kInstance:
        return EvaluateInstance(value, error);
    case Kind::kSign:
        if (!mChildren[0]->Evaluate(value, error))
        {
            return false;
        }
        value = mSign == L'-' ? -value : value;
        return true;
    case Kind::kGroup:
        return mChildren[0]->Evaluate(value, error);
    case Kind::kChain:
        return EvaluateChain(value, error);
    case Kind::kPower:
    {
        double base = 0.0;
        double exponent = 0.0;
        if (!mChildren[0]->Evaluate(base, error) || !mChildren[1]->Evaluate(exponent, error))
        {
            return false;
        }
        if (base == 0.0 && exponent < 0.0)
        {
            error = ValueError(ValueError::kDivisionByZero, mPosition);
            return false;
        }
        value = std::pow(base, exponent);
        if (std::isnan(value))
        {
            error = ValueError(ValueError::kDomain, mPosition, AString(L"^"));
            return false;
        }
        if (std::isinf(value))
        {
            error = ValueError(ValueError::kOverflow, mPosition, AString(L"^"));
            return false;
        }
        return true;
    }
    case Kind::kCall:
        return EvaluateCall(value, error);
    }
    return false;
}

bool ExpressionNode::EvaluateName(double& value, ValueError& error) const
{
    if (const Variable* variable = VariableScope::Find(mText))
    {
        if (IsActive(variable))
        {
            error = ValueError(ValueError::kCircularReference, mPosition, variable->GetName());
            return false;
        }
        const ValueBase* base = variable->GetValueObject().GetValueBase();
        if (base == nullptr)
        {
            error = ValueError(ValueError::kUnresolvedName, mPosition, mText);
            return false;
        }
        auto& known = CurrentSession().values;
        if (const auto found = known.find(variable); found != known.end())
        {
            value = found->second;
            return true;
        }
        if (ActiveVariables().size() >= kMaxReferenceDepth)
        {
            error = ValueError(ValueError::kReferencesTooDeep, mPosition, variable->GetName());
            return false;
        }
        ActiveVariable active(variable);
        if (!EvaluateValueBase(*base, variable->GetName(), value, error))
        {
            error = ValueError(error.GetKind(), mPosition, error.GetSubject());
            return false;
        }
        known[variable] = value;
        return true;
    }
    if (ExpressionFunctions::FindConstant(mText, value, nullptr))
    {
        return true;
    }
    error = ValueError(ValueError::kUnresolvedName, mPosition, mText);
    return false;
}

bool ExpressionNode::EvaluateInstance(double& value, ValueError& error) const
{
    if (mReference == nullptr)
    {
        error = ValueError(ValueError::kUnresolvedInstance, mPosition, InstanceText(*this));
        return false;
    }
    if (!EvaluateValueBase(*mReference, InstanceText(*this), value, error))
    {
        error = ValueError(error.GetKind(), mPosition, error.GetSubject());
        return false;
    }
    return true;
}

bool ExpressionNode::EvaluateChain(double& value, ValueError& error) const
{
    if (!mChildren[0]->Evaluate(value, error))
    {
        return false;
    }
    for (std::size_t i = 1; i < mChildren.size(); ++i)
    {
        double operand = 0.0;
        if (!mChildren[i]->Evaluate(operand, error))
        {
            return false;
        }
        const wchar_t op = mOperators[i - 1];
        switch (op)
        {
        case L'+':
            value += operand;
            break;
        case L'-':
            value -= operand;
            break;
        case L'*':
            value *= operand;
            break;
        default:
            if (operand == 0.0)
            {
                error = ValueError(ValueError::kDivisionByZero, mChildren[i]->GetPosition());
                return false;
            }
            value /= operand;
            break;
        }
        if (!std::isfinite(value))
        {
            error = ValueError(std::isnan(value) ? ValueError::kDomain : ValueError::kOverflow,
                               mChildren[i]->GetPosition(), OperatorText(op));
            return false;
        }
    }
    return true;
}

bool ExpressionNode::EvaluateCall(double& value, ValueError& error) const
{
    std::vector<double> arguments(mChildren.size());
    for (std::size_t i = 0; i < mChildren.size(); ++i)
    {
        if (!mChildren[i]->Evaluate(arguments[i], error))
        {
            return false;
        }
    }
    const AString name(mFunction->name);
    if (!mFunction->apply(arguments, value) || std::isnan(value))
    {
        error = ValueError(ValueError::kDomain, mPosition, name);
        return false;
    }
    if (std::isinf(value))
    {
        error = ValueError(ValueError::kOverflow, mPosition, name);
        return false;
    }
    return true;
}

void ExpressionNode::Regenerate(AString& text) const
{
    switch (mKind)
    {
    case Kind::kNumber:
        text += mText;
        break;
    case Kind::kName:
    {
        const wchar_t* spelling = nullptr;
        double constant = 0.0;
        if (const Variable* variable = VariableScope::Find(mText))
        {
            text += variable->GetName();
        }
        else if (ExpressionFunctions::FindConstant(mText, constant, &spelling))
        {
            text += spelling;
        }
        else
        {
            text += mText;
        }
        break;
    }
    case Kind::kInstance:
        text += mReference != nullptr ? mReference->GetValueText() : InstanceText(*this);
        break;
    case Kind::kSign:
        text.push_back(mSign);
        mChildren[0]->Regenerate(text);
        break;
    case Kind::kGroup:
        text.push_back(L'(');
        mChildren[0]->Regenerate(text);
        text.push_back(L')');
        break;
    case Kind::kChain:
        mChildren[0]->Regenerate(text);
        for (std::size_t i = 1; i < mChildren.size(); ++i)
        {
            text.push_back(mOperators[i - 1]);
            mChildren[i]->Regenerate(text);
        }
        break;
    case Kind::kPower:
        mChildren[0]->Regenerate(text);
        text.push_back(L'^');
        mChildren[1]->Regenerate(text);
        break;
    case Kind::kCall:
        text += mFunction->name;
        text.push_back(L'(');
        for (std::size_t i = 0; i < mChildren.size(); ++i)
        {
            if (i != 0)
            {
                text.push_back(L',');
            }
            mChildren[i]->Regenerate(text);
        }
        text.push_back(L')');
        break;
    }
}

Units::FullUnitType ExpressionNode::InferUnits() const
{
    SessionScope session;
    switch (mKind)
    {
    case Kind::kNumber:
        return mUnit;
    case Kind::kName:
    {
        const Variable* variable = VariableScope::Find(mText);
        if (variable == nullptr || IsActive(variable) ||
            ActiveVariables().size() >= kMaxReferenceDepth)
        {
            return Units::kNoUnit;
        }
        const ValueBase* base = variable->GetValueObject().GetValueBase();
        if (base == nullptr)
        {
            return Units::kNoUnit;
        }
        auto& known = CurrentSession().units;
        if (const auto found = known.find(variable); found != known.end())
        {
            return found->second;
        }
        ActiveVariable active(variable);
        const Units::FullUnitType unit = base->GetUnits();
        known[variable] = unit;
        return unit;
    }
    case Kind::kInstance:
        return mReference != nullptr ? mReference->GetUnits() : Units::kNoUnit;
    case Kind::kSign:
    case Kind::kGroup:
        return mChildren[0]->InferUnits();
    case Kind::kChain:
    {
        Units::FullUnitType unit = mChildren[0]->InferUnits();
        for (std::size_t i = 1; i < mChildren.size(); ++i)
        {
            unit = CombineUnits(mOperators[i - 1], unit, mChildren[i]->InferUnits());
        }
        return unit;
    }
    case Kind::kPower:
        return Units::kNoUnit;
    case Kind::kCall:
    {
        if (!mFunction->keepsUnit)
        {
            return Units::kNoUnit;
        }
        // if(c, a, b) carries the unit of its choices, the others that of all arguments.
        const std::size_t first = mFunction->minArguments == 3 ? 1 : 0;
        Units::FullUnitType unit = Units::kNoUnit;
        for (std::size_t i = first; i < mChildren.size(); ++i)
        {
            const Units::FullUnitType argument = mChildren[i]->InferUnits();
            unit = i == first ? argument : CombineUnits(L'+', unit, argument);
        }
        return unit;
    }
    }
    return Units::kNoUnit;
}

bool ExpressionNode::IsConstant() const
{
    if (mKind == Kind::kInstance)
    {
        return false;
    }
    if (mKind == Kind::kName)
    {
        double constant = 0.0;
        return VariableScope::Find(mText) == nullptr &&
               ExpressionFunctions::FindConstant(mText, constant, nullptr);
    }
    return std::all_of(mChildren.begin(), mChildren.end(),
                       [](const auto& child) { return child->IsConstant(); });
}

void ExpressionNode::CollectNames(std::vector<AString>& names) const
{
    double constant = 0.0;
    if (mKind == Kind::kName && (VariableScope::Find(mText) != nullptr ||
                                 !ExpressionFunctions::FindConstant(mText, constant, nullptr)))
    {
        names.push_back(mText);
    }
    for (const auto& child : mChildren)
    {
        child->CollectNames(names);
    }
}

void ExpressionNode::CollectInstances(std::vector<ExpressionNode*>& nodes)
{
    if (mKind == Kind::kInstance)
    {
        nodes.push_back(this);
    }
    for (const auto& child : mChildren)
    {
        child->CollectInstances(nodes);
    }
}

void ExpressionNode::CollectInstances(std::vector<const ExpressionNode*>& nodes) const
{
    if (mKind == Kind::kInstance)
    {
        nodes.push_back(this);
    }
    for (const auto& child : mChildren)
    {
        child->CollectInstances(nodes);
    }
}
