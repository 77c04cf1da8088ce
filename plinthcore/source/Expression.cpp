#include "Expression.h"

#include "ExpressionParser.h"
#include "FloatValue.h"
#include "InstanceReference.h"

#include <utility>

Expression* Expression::Create(const AString& text, Units::FullUnitType unit, ValueError* error)
{
    ValueError problem;
    std::unique_ptr<ExpressionNode> root = ExpressionParser::Parse(text, problem);
    if (root == nullptr)
    {
        if (error != nullptr)
        {
            *error = problem;
        }
        return nullptr;
    }
    return FromTree(std::move(root), text, unit);
}

Expression* Expression::FromTree(std::unique_ptr<ExpressionNode> root, const AString& text,
                                 Units::FullUnitType unit)
{
    std::vector<ExpressionNode*> instances;
    root->CollectInstances(instances);
    for (ExpressionNode* node : instances)
    {
        node->mReference = InstanceReference::Resolve(node->mText, node->mParameter);
    }
    AString trimmed = text;
    trimmed.Trim();
    return new Expression(std::move(root), std::move(trimmed), unit);
}

Expression::Expression(std::unique_ptr<ExpressionNode> root, AString text, Units::FullUnitType unit)
    : mRoot(std::move(root)), mText(std::move(text)), mUnit(unit)
{
    HoldReferences();
}

Expression::Expression(const Expression& other)
    : IReceiver(other), SharedValueBase(other), mRoot(other.mRoot->Clone()), mText(other.mText),
      mUnit(other.mUnit)
{
    HoldReferences();
}

Expression::~Expression()
{
    // Letting go may end a reference object, which must not find this one half-destroyed:
    // take the pointers out of the tree first.
    std::vector<ExpressionNode*> instances;
    mRoot->CollectInstances(instances);
    std::vector<ValueBase*> held;
    for (ExpressionNode* node : instances)
    {
        if (node->mReference != nullptr)
        {
            held.push_back(node->mReference);
            node->mReference = nullptr;
        }
    }
    for (ValueBase* reference : held)
    {
        reference->Release(this);
    }
}

void Expression::HoldReferences()
{
    std::vector<ExpressionNode*> instances;
    mRoot->CollectInstances(instances);
    for (ExpressionNode* node : instances)
    {
        if (node->mReference != nullptr)
        {
            node->mReference->AddRef(this);
        }
    }
}

bool Expression::Evaluate(double& value, ValueError& error) const
{
    try
    {
        return mRoot->Evaluate(value, error);
    }
    catch (...)
    {
        error = ValueError(ValueError::kReferencesTooDeep, 0, mText);
        return false;
    }
}

double Expression::GetValue() const
{
    double value = 0.0;
    ValueError error;
    if (!Evaluate(value, error))
    {
        error.Post(mText);
        return 0.0;
    }
    return value;
}

AString Expression::GetValueText() const
{
    return mText;
}

const AString& Expression::RegenerateText()
{
    mText = GetRegeneratedText();
    return mText;
}

AString Expression::GetRegeneratedText() const
{
    AString text;
    mRoot->Regenerate(text);
    return text;
}

ValueBase* Expression::CloneValueBase() const
{
    return new Expression(*this);
}

ValueBase* Expression::CreateEvaluatedValueBase() const
{
    return new FloatValue(GetValue(), GetUnits());
}

bool Expression::IsEqual(const ValueBase& other) const
{
    const auto* expression = dynamic_cast<const Expression*>(&other);
    return expression != nullptr &&
           AString::EqualNoCase(expression->GetRegeneratedText(), GetRegeneratedText());
}

bool Expression::IsConstant() const
{
    return mRoot->IsConstant();
}

Units::FullUnitType Expression::GetUnits() const
{
    const Units::FullUnitType inferred = mRoot->InferUnits();
    return inferred != Units::kNoUnit ? inferred : mUnit;
}

Units::FullUnitType Expression::GetExplicitUnits() const
{
    return mRoot->InferUnits();
}

void Expression::GetMsgTargets(std::vector<IReceiver*>& targets) const
{
    for (ValueBase* reference : GetInstanceReferences())
    {
        if (reference != nullptr)
        {
            targets.push_back(reference);
        }
    }
}

std::vector<AString> Expression::GetReferencedNames() const
{
    std::vector<AString> names;
    mRoot->CollectNames(names);
    return names;
}

std::vector<ValueBase*> Expression::GetInstanceReferences() const
{
    std::vector<const ExpressionNode*> instances;
    mRoot->CollectInstances(instances);
    std::vector<ValueBase*> references;
    references.reserve(instances.size());
    for (const ExpressionNode* node : instances)
    {
        references.push_back(node->mReference);
    }
    return references;
}
