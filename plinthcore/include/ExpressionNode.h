// ExpressionNode: one node of an expression's parse tree (ExpressionParser builds the tree,
// Expression keeps it). Sums and products are chains of operands, so that long texts such as
// "1+1+...+1" give flat trees; nesting (parentheses, signs, powers, calls) is limited by the
// parser, so every walk of a tree stays shallow.
//   "2*(R1+10k)" => Chain{*}[ Number 2, Group[ Chain{+}[ Name R1, Number 10k ] ] ]
#pragma once

#include "AString.h"
#include "PlinthExport.h"
#include "Units.h"
#include "ValueError.h"

#include <cstddef>
#include <memory>
#include <vector>

class ValueBase;
struct ExpressionFunction;

class PLINTH_API ExpressionNode
{
public:
    enum class Kind
    {
        kNumber,   // a number as written, with its scale and unit: "10k", "1.5pF"
        kName,     // a variable or a constant: "R1", "$vdd", "pi"
        kInstance, // a parameter of a component instance: "R1.R"
        kSign,     // unary "-" or "+" before its operand
        kChain,    // operands joined by "+"/"-" or by "*"/"/", left to right
        kPower,    // base "^" exponent (right-associative)
        kGroup,    // "(" operand ")", kept so that the text re-spells as written
        kCall      // function "(" arguments ")"
    };

    explicit ExpressionNode(Kind kind, std::size_t position = 0);
    ~ExpressionNode();
    ExpressionNode(const ExpressionNode&) = delete;
    ExpressionNode& operator=(const ExpressionNode&) = delete;

    // A deep copy; instance nodes refer to the same value objects.
    std::unique_ptr<ExpressionNode> Clone() const;

    // Evaluates against the variables in scope (VariableScope). On failure returns false and
    // describes the first problem met in `error`.
    bool Evaluate(double& value, ValueError& error) const;
    // Appends the text re-spelled from the tree: no blanks, numbers as written, variables as
    // their definitions spell them, constants and functions as the function table does,
    // instance references as their value objects show them.
    void Regenerate(AString& text) const;
    // The unit the result carries, from the units of its operands: "+" and "-" keep a unit
    // that both sides share (or the one side has), "*" keeps the unit of a factor whose other
    // factors have none, "/" keeps the dividend's unit over a unitless divisor.
    Units::FullUnitType InferUnits() const;
    // Whether the result can never change: numbers, constants and functions only.
    bool IsConstant() const;
    // Appends the names of the variables referred to (constants not included), in order.
    void CollectNames(std::vector<AString>& names) const;
    // Appends the instance nodes, in order.
    void CollectInstances(std::vector<ExpressionNode*>& nodes);
    void CollectInstances(std::vector<const ExpressionNode*>& nodes) const;

    Kind GetKind() const { return mKind; }
    // Index of the node's first character in the text it was parsed from.
    std::size_t GetPosition() const { return mPosition; }

    // kNumber: the value, its text as written and its unit (kNoUnit when none is written).
    double mNumber = 0.0;
    Units::FullUnitType mUnit = Units::kNoUnit;
    // kNumber: the number as written; kName: the name as written; kCall: the function's name
    // as written; kInstance: the instance name.
    AString mText;
    // kInstance: the parameter name and the value object that stands for the reference (not
    // owned here: the Expression that holds the tree holds it), or null.
    AString mParameter;
    ValueBase* mReference = nullptr;
    // kSign: '-' or '+'; kChain: the operator before each operand after the first.
    wchar_t mSign = L'-';
    std::vector<wchar_t> mOperators;
    // kCall: the function.
    const ExpressionFunction* mFunction = nullptr;
    // Operands: kSign and kGroup one, kPower two, kChain two or more, kCall its arguments.
    std::vector<std::unique_ptr<ExpressionNode>> mChildren;

private:
    bool EvaluateName(double& value, ValueError& error) const;
    bool EvaluateInstance(double& value, ValueError& error) const;
    bool EvaluateChain(double& value, ValueError& error) const;
    bool EvaluateCall(double& value, ValueError& error) const;

    Kind mKind;
    std::size_t mPosition;
};

// Evaluates a value object quietly: expressions report their first problem in `error`,
// texts held where a number is needed are an error of kind kTextNotNumber about `name`.
PLINTH_API bool EvaluateValueBase(const ValueBase& value, const AString& name, double& result,
                                  ValueError& error);
