// Value texts as a schematic holds them: a generated list of 100000 parameter values, about
// 60% plain numbers with scale suffixes ("4.7k", "100n"), 15% numbers with units ("1.5pF",
// "10kOhm"), 20% expressions over design variables ("2*R1+10k", "max(W, 1u)/L") and 5% quoted
// texts. Rates are texts per second (items_per_second): the syntax check alone, making the
// value objects, and evaluating them against a scope of design variables.
#include "Expression.h"
#include "MessageManager.h"
#include "Value.h"
#include "ValueBase.h"
#include "Variable.h"
#include "VariableScope.h"

#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <random>
#include <vector>

namespace
{
constexpr std::size_t kTextCount = 100000;

class DesignScope : public IVariableScope
{
public:
    DesignScope()
    {
        for (const auto& [name, text] :
             {std::pair{L"R1", L"10k"}, std::pair{L"C1", L"1n"}, std::pair{L"W", L"2u"},
              std::pair{L"L", L"180n"}, std::pair{L"gain", L"R1/1k"}, std::pair{L"$vdd", L"3.3"}})
        {
            mVariables.emplace(AString(name), Variable(name, Value(AString(text), Units::kNoUnit)));
        }
    }
    const Variable* FindVariable(std::wstring_view name) const override
    {
        const auto found = mVariables.find(name);
        return found == mVariables.end() ? nullptr : &found->second;
    }

private:
    std::map<AString, Variable, AString::NoCaseLess> mVariables;
};

const std::vector<AString>& Texts()
{
    static const std::vector<AString> texts = []
    {
        static const wchar_t* const kSuffixes[] = {L"", L"k", L"meg", L"m", L"u", L"n", L"p"};
        static const wchar_t* const kUnits[] = {L"F", L"Ohm", L"H", L"V", L"Hz"};
        static const wchar_t* const kExpressions[] = {L"2*R1+%dk",     L"max(W, %du)/L",
                                                      L"$vdd*gain/%d", L"1/(2*pi*R1*C1*%d)",
                                                      L"sqrt(W*L)*%d", L"(R1+%d)*(1+0.01*gain)"};
        std::mt19937 random(20261121);
        std::uniform_int_distribution<int> kind(0, 99);
        std::uniform_int_distribution<int> number(1, 999);
        std::uniform_int_distribution<int> suffix(0, 6);
        std::uniform_int_distribution<int> unit(0, 4);
        std::uniform_int_distribution<int> expression(0, 5);
        std::vector<AString> list;
        list.reserve(kTextCount);
        for (std::size_t i = 0; i < kTextCount; ++i)
        {
            const int k = kind(random);
            const double value = number(random) / 10.0;
            if (k < 60)
            {
                list.push_back(AString::Formatted(L"%g%s", value, kSuffixes[suffix(random)]));
            }
            else if (k < 75)
            {
                list.push_back(AString::Formatted(L"%g%s%s", value, kSuffixes[suffix(random)],
                                                  kUnits[unit(random)]));
            }
            else if (k < 95)
            {
                list.push_back(
                    AString::Formatted(kExpressions[expression(random)], number(random)));
            }
            else
            {
                list.push_back(AString::Formatted(L"\"model_%d\"", number(random)));
            }
        }
        return list;
    }();
    return texts;
}

void BM_IsValidText(benchmark::State& state)
{
    const std::vector<AString>& texts = Texts();
    for (auto _ : state)
    {
        std::size_t valid = 0;
        for (const AString& text : texts)
        {
            valid += Value::IsValidText(text) ? 1 : 0;
        }
        benchmark::DoNotOptimize(valid);
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * texts.size()));
}

void BM_CreateValueBase(benchmark::State& state)
{
    const std::vector<AString>& texts = Texts();
    for (auto _ : state)
    {
        for (const AString& text : texts)
        {
            std::unique_ptr<ValueBase> value(Value::CreateValueBase(text, Units::kNoUnit));
            benchmark::DoNotOptimize(value.get());
        }
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * texts.size()));
}

void BM_Evaluate(benchmark::State& state)
{
    const std::vector<AString>& texts = Texts();
    std::vector<Value> values;
    values.reserve(texts.size());
    for (const AString& text : texts)
    {
        values.emplace_back(text, Units::kNoUnit);
    }
    DesignScope scope;
    VariableScopeGuard guard(&scope);
    MessageQueueRestorer quiet;
    for (auto _ : state)
    {
        double sum = 0.0;
        for (const Value& value : values)
        {
            sum += value.GetValue();
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * values.size()));
}

void BM_Regenerate(benchmark::State& state)
{
    std::vector<std::unique_ptr<Expression>> expressions;
    for (const AString& text : Texts())
    {
        if (Expression* expression = Expression::Create(text, Units::kNoUnit))
        {
            expressions.emplace_back(expression);
        }
    }
    DesignScope scope;
    VariableScopeGuard guard(&scope);
    for (auto _ : state)
    {
        std::size_t length = 0;
        for (const auto& expression : expressions)
        {
            length += expression->GetRegeneratedText().size();
        }
        benchmark::DoNotOptimize(length);
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * expressions.size()));
}
} // namespace

BENCHMARK(BM_IsValidText)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CreateValueBase)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Evaluate)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Regenerate)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
