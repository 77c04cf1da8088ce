// Expression: a value given as an arithmetic expression. It keeps its parse tree and is
// evaluated whenever its value is asked for, against the variables in scope (VariableScope);
// instance parameters ("R1.R") are resolved once, when the expression is made, through the
// host's resolver (InstanceReference), and the value objects it answers are held.
//   Expression::Create(L"2*R1", Units::kNoUnit)  with R1 = 10k:  GetValue() 20000
//   with the variable spelled "R1", "2 * r1" and "2*R1" both re-spell to "2*R1"
#pragma once

#include "AString.h"
#include "ExpressionNode.h"
#include "PlinthExport.h"
#include "SharedValueBase.h"
#include "Units.h"
#include "ValueError.h"

#include <memory>
#include <vector>

class PLINTH_API Expression : public SharedValueBase
{
public:
    // A new expression of `text`, owned by the caller; null, with `error` set when given, when
    // the text is no expression (nothing is posted). `unit` is the unit of a result whose
    // operands name none.
    static Expression* Create(const AString& text, Units::FullUnitType unit,
                              ValueError* error = nullptr);
    // A new expression over a parsed tree of `text`: its instance nodes are resolved through
    // the host's resolver (InstanceReference) and their value objects held.
    static Expression* FromTree(std::unique_ptr<ExpressionNode> root, const AString& text,
                                Units::FullUnitType unit);
    // An expression over a tree whose instance nodes are resolved already (their value
    // objects, if any, are held from now on), with `text` as its text.
    Expression(std::unique_ptr<ExpressionNode> root, AString text, Units::FullUnitType unit);
    Expression(const Expression& other);
    Expression& operator=(const Expression&) = delete;
    ~Expression() override;

    // Evaluates quietly: false, with the first problem in `error`, when it cannot.
    bool Evaluate(double& value, ValueError& error) const;
    // The value; when it cannot be evaluated the problem is posted to the message manager
    // (ValueError::Post) and the result is 0.
    double GetValue() const override;
    // The text as typed (blanks around it removed), or as last re-spelled by RegenerateText.
    AString GetValueText() const override;
    // Re-spells the text from the tree (ExpressionNode::Regenerate: "2 * r1" => "2*R1" when
    // the variable is spelled R1), keeps it as the expression's text and returns it.
    const AString& RegenerateText();
    // The re-spelled text, without keeping it.
    AString GetRegeneratedText() const;
    ValueBase* CloneValueBase() const override;
    // A FloatValue with the value and unit of the expression now.
    ValueBase* CreateEvaluatedValueBase() const override;
    // Another expression that re-spells to the same text, ignoring case.
    bool IsEqual(const ValueBase& other) const override;
    // Numbers, constants and functions only: no variable, no instance parameter.
    bool IsConstant() const override;
    // The unit inferred from the operands (ExpressionNode::InferUnits), else the one given.
    Units::FullUnitType GetUnits() const override;
    Units::FullUnitType GetExplicitUnits() const override;
    val::ParameterType GetParameterType() const override { return val::kParamReal; }
    // Messages go on to the value objects of the instance parameters.
    void GetMsgTargets(std::vector<IReceiver*>& targets) const override;

    const ExpressionNode& GetRoot() const { return *mRoot; }
    // The names of the variables it refers to, in order of appearance (repeats kept).
    std::vector<AString> GetReferencedNames() const;
    // The value objects of its instance parameters (null where the host resolved none).
    std::vector<ValueBase*> GetInstanceReferences() const;

private:
    void HoldReferences();

    std::unique_ptr<ExpressionNode> mRoot;
    AString mText;
    Units::FullUnitType mUnit;
};
