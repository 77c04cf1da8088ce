#include "ValueCommands.h"

#include "Expression.h"
#include "ExpressionNode.h"
#include "FloatValue.h"
#include "MessageManager.h"
#include "RefApplication.h"
#include "RefDesign.h"
#include "RefProject.h"
#include "StringValue.h"
#include "TextInput.h"
#include "Value.h"
#include "ValueBase.h"
#include "ValueError.h"
#include "Variable.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <memory>
#include <string>
#include <vector>

namespace qln::tool
{

namespace
{

struct ValueOptions
{
    std::vector<std::string> texts;
    std::vector<std::string> variables; // NAME=TEXT
    std::string unit;
};

// The shortest text that reads back as the same double.
std::string NumberText(double value)
{
    char buffer[64];
    const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, value);
    return error == std::errc() ? std::string(buffer, end) : std::string("?");
}

const char* TypeName(val::ParameterType type)
{
    switch (type)
    {
    case val::kParamReal:
        return "real";
    case val::kParamText:
        return "text";
    case val::kParamInteger:
        return "integer";
    case val::kParamComplex:
        return "complex";
    case val::kParamBoolean:
        return "boolean";
    case val::kParamEnumeration:
        return "enumeration";
    case val::kParamUnknown:
        break;
    }
    return "unknown";
}

// What a valid text makes: a number, a quoted text, an expression, or the host's object for
// an instance parameter.
const char* ValueKind(const ValueBase& value)
{
    if (dynamic_cast<const FloatValue*>(&value) != nullptr)
    {
        return "number";
    }
    if (dynamic_cast<const StringValue*>(&value) != nullptr)
    {
        return "text";
    }
    if (dynamic_cast<const Expression*>(&value) != nullptr)
    {
        return value.IsConstant() ? "constant expression" : "expression";
    }
    return "instance parameter";
}

Units::FullUnitType ParseUnit(const std::string& text)
{
    if (text.empty())
    {
        return Units::kNoUnit;
    }
    const Units::FullUnitType unit = Units::GetFullUnitType(AString::FromUTF8(text));
    if (unit == Units::kNoUnit)
    {
        throw InputError("unknown unit '" + text + "'; see 'qln value units'");
    }
    return unit;
}

void AddValueFields(Json& item, std::string& line, const ValueBase& value, double number)
{
    const UnitDefinition& unit = Units::GetUnitDef(value.GetUnits());
    const std::string symbol = Utf8(unit.GetUnitString());
    item["value"] = number;
    item["unit"] = symbol;
    item["unitName"] = Utf8(unit.GetName());
    item["unitCode"] = static_cast<int>(unit.GetFullUnitType());
    item["type"] = TypeName(value.GetParameterType());
    item["typeCode"] = static_cast<int>(value.GetParameterType());
    line += NumberText(number);
    if (!symbol.empty())
    {
        line += ' ' + symbol;
    }
    line += std::string(", ") + TypeName(value.GetParameterType());
}

void RunCheck(const ValueOptions& options, CommandContext& context)
{
    TextInput input(context.Input());
    const std::vector<AString> texts = input.Many(options.texts);
    CommandResult result("value check");
    Json items = Json::array();
    bool allValid = true;
    for (const AString& text : texts)
    {
        ValueError error;
        Json item = {{"text", Utf8(text)}};
        std::string line = Quoted(Utf8(text)) + ": ";
        std::unique_ptr<ValueBase> value(Value::CreateValueBase(text, Units::kNoUnit, error));
        if (value != nullptr)
        {
            const char* kind = ValueKind(*value);
            item["valid"] = true;
            item["kind"] = kind;
            line += std::string("valid ") + kind;
        }
        else
        {
            allValid = false;
            item["valid"] = false;
            item["position"] = error.GetPosition() + 1;
            item["reason"] = Utf8(error.Describe());
            line += "invalid at character " + std::to_string(error.GetPosition() + 1) + ": " +
                    Utf8(error.Describe());
        }
        items.push_back(std::move(item));
        result.AddLine(std::move(line));
    }
    result.Data()["results"] = std::move(items);
    context.Emit(result);
    if (!allValid)
        context.Report(kExitProblem);
}

// A design of the reference host holding the command's variables, active while it lives; the
// previous active design comes back afterwards.
class VariableDesign
{
public:
    VariableDesign() : mHost(dynamic_cast<refhost::RefApplication*>(GetIMerrowApplication()))
    {
        if (mHost == nullptr)
        {
            throw InputError("no host to hold the variables");
        }
        mPrevious = mHost->GetActiveDesign();
        mProject = &mHost->AddProject(L"qln value", L"");
        mDesign = &mProject->AddDesign(L"main");
        mHost->SetActiveDesign(mDesign);
    }

    // Adds the variables NAME=TEXT; InputError for a bad one.
    void AddVariables(const std::vector<std::string>& definitions)
    {
        refhost::RefDesign& design = *mDesign;
        for (const std::string& definition : definitions)
        {
            const std::size_t equals = definition.find('=');
            if (equals == std::string::npos || equals == 0)
            {
                throw InputError("--var " + definition + ": write NAME=TEXT");
            }
            const AString name = AString::FromUTF8(definition.substr(0, equals));
            const AString text = AString::FromUTF8(definition.substr(equals + 1));
            ValueError error;
            if (!Value::CheckText(text, error))
            {
                throw InputError("--var " + definition + ": " + Utf8(error.Describe()) +
                                 " at character " + std::to_string(error.GetPosition() + 1));
            }
            MessageQueueRestorer quiet;
            const bool added = name.front() == Variable::kProjectPrefix
                                   ? mProject->AddVariable(name, text) != nullptr
                                   : design.AddVariable(name, text) != nullptr;
            if (!added)
            {
                throw InputError("--var " + definition + ": '" + Utf8(name) +
                                 "' is no variable name or is given twice");
            }
        }
    }
    ~VariableDesign()
    {
        mHost->CloseProject(mProject);
        mHost->SetActiveDesign(mPrevious);
    }
    VariableDesign(const VariableDesign&) = delete;
    VariableDesign& operator=(const VariableDesign&) = delete;

private:
    refhost::RefApplication* mHost;
    refhost::RefDesign* mPrevious = nullptr;
    refhost::RefProject* mProject = nullptr;
    refhost::RefDesign* mDesign = nullptr;
};

void RunEval(const ValueOptions& options, CommandContext& context)
{
    TextInput input(context.Input());
    const std::vector<AString> texts = input.Many(options.texts);
    const Units::FullUnitType unit = ParseUnit(options.unit);
    VariableDesign design;
    design.AddVariables(options.variables);

    CommandResult result("value eval");
    Json items = Json::array();
    bool allEvaluated = true;
    for (const AString& text : texts)
    {
        Json item = {{"text", Utf8(text)}};
        std::string line = Quoted(Utf8(text)) + ": ";
        ValueError error;
        std::unique_ptr<ValueBase> value(Value::CreateValueBase(text, unit, error));
        double number = 0.0;
        if (value == nullptr)
        {
            item["valid"] = false;
            item["position"] = error.GetPosition() + 1;
            item["reason"] = Utf8(error.Describe());
            line += "invalid at character " + std::to_string(error.GetPosition() + 1) + ": " +
                    Utf8(error.Describe());
            allEvaluated = false;
        }
        else if (value->GetParameterType() == val::kParamText)
        {
            const AString& content = static_cast<StringValue&>(*value).GetText();
            item["valid"] = true;
            item["textValue"] = Utf8(content);
            item["type"] = TypeName(val::kParamText);
            item["typeCode"] = static_cast<int>(val::kParamText);
            line += Quoted(Utf8(content)) + ", text";
        }
        else if (!EvaluateValueBase(*value, text, number, error))
        {
            item["valid"] = true;
            item["error"] = Utf8(error.Describe());
            line += "cannot evaluate: " + Utf8(error.Describe());
            allEvaluated = false;
        }
        else
        {
            item["valid"] = true;
            AddValueFields(item, line, *value, number);
        }
        items.push_back(std::move(item));
        result.AddLine(std::move(line));
    }
    result.Data()["results"] = std::move(items);
    context.Emit(result);
    if (!allEvaluated)
        context.Report(kExitProblem);
}

void RunUnits(CommandContext& context)
{
    CommandResult result("value units");
    Json units = Json::array();
    for (Units::FullUnitType code : Units::GetAllUnits())
    {
        const UnitDefinition& def = Units::GetUnitDef(code);
        Json aliases = Json::array();
        std::string aliasText;
        for (const AString& alias : def.GetAliases())
        {
            aliases.push_back(Utf8(alias));
            aliasText += (aliasText.empty() ? "" : ", ") + Utf8(alias);
        }
        const std::string kind = Utf8(Units::GetUnitTypeName(def.GetUnitType()));
        units.push_back({{"code", static_cast<int>(code)},
                         {"symbol", Utf8(def.GetUnitString())},
                         {"name", Utf8(def.GetName())},
                         {"kind", kind},
                         {"prefixes", def.TakesPrefixes()},
                         {"aliases", std::move(aliases)}});
        std::string line = std::to_string(static_cast<int>(code)) + " " +
                           Quoted(Utf8(def.GetUnitString())) + " " + Utf8(def.GetName()) + ", " +
                           kind + (def.TakesPrefixes() ? ", takes prefixes" : "");
        if (!aliasText.empty())
        {
            line += "; also " + aliasText;
        }
        result.AddLine(std::move(line));
    }
    Json prefixes = Json::array();
    std::string prefixLine = "prefixes:";
    for (const Units::Prefix& prefix : Units::GetPrefixes())
    {
        prefixes.push_back({{"symbol", Utf8(prefix.symbol)}, {"exponent", prefix.exponent}});
        prefixLine += " " + Utf8(prefix.symbol) + "=1e" + std::to_string(prefix.exponent);
    }
    result.AddLine(std::move(prefixLine));
    result.Data()["units"] = std::move(units);
    result.Data()["prefixes"] = std::move(prefixes);
    context.Emit(result);
}

} // namespace

void AddValueCommands(CLI::App& app, CommandContext& context)
{
    CLI::App* value = app.add_subcommand("value", "Value texts: check, evaluate, units");
    value->require_subcommand(1);
    value->footer("A value text is a number with an optional scale and unit (10k, 4.7u, 1meg, "
                  "100m is milli, 1.5pF, 3 ohm), a text in double quotes, or an expression "
                  "with + - * / ^, functions, pi and e, variables ($name: project variable) "
                  "and instance parameters (R1.R).");

    auto check = std::make_shared<ValueOptions>();
    CLI::App* checkCommand =
        value->add_subcommand("check", "Check value texts without evaluating them");
    checkCommand->footer("Prints the kind of each valid text, or where and why it is not one. "
                         "Exit 1 when some text is invalid.");
    checkCommand->add_option("TEXT", check->texts, "Value texts")->required()->allow_extra_args();
    checkCommand->callback([check, &context] { RunCheck(*check, context); });

    auto eval = std::make_shared<ValueOptions>();
    CLI::App* evalCommand = value->add_subcommand("eval", "Evaluate value texts");
    evalCommand->footer("Prints the value, its unit and its parameter type. Exit 1 when a "
                        "text is invalid or cannot be evaluated.");
    evalCommand->add_option("TEXT", eval->texts, "Value texts")->required()->allow_extra_args();
    evalCommand->add_option("--var", eval->variables,
                            "A variable NAME=TEXT for the expressions (repeatable; a name "
                            "beginning with $ is a project variable)");
    evalCommand->add_option("--unit", eval->unit, "Unit of numbers that name none, e.g. ohm or F");
    evalCommand->callback([eval, &context] { RunEval(*eval, context); });

    CLI::App* unitsCommand = value->add_subcommand("units", "List the units and scale prefixes");
    unitsCommand->callback([&context] { RunUnits(context); });
}

} // namespace qln::tool
