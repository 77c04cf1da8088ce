// Costs of the AString operations that name parsing calls for every net of a design:
// case-insensitive comparison, bus-name matching, formatting of members and number reads.
#include "AString.h"

#include <benchmark/benchmark.h>

#include <array>
#include <vector>

namespace
{
const std::array<AString, 4> kBusNames = {AString(L"d[31:0]"), AString(L"addr<15:0>"),
                                          AString(L"data_bus[7]"), AString(L"clk")};

void CompareNoCaseAscii(benchmark::State& state)
{
    const AString a(L"Bus_Data_Signal[31]");
    const AString b(L"bus_data_signal[31]");
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(AString::CompareNoCase(a, b));
    }
}
BENCHMARK(CompareNoCaseAscii);

void CompareNoCaseNonAscii(benchmark::State& state)
{
    const AString a(L"wärme_über_größe[3]");
    const AString b(L"WÄRME_ÜBER_GRÖßE[3]");
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(AString::CompareNoCase(a, b));
    }
}
BENCHMARK(CompareNoCaseNonAscii);

void MatchBusWithCaptures(benchmark::State& state)
{
    std::vector<AString> captures;
    std::size_t i = 0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(kBusNames[i++ % kBusNames.size()].Match(L"*[*]", captures, true));
    }
}
BENCHMARK(MatchBusWithCaptures);

void MatchBusWithoutCaptures(benchmark::State& state)
{
    std::size_t i = 0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(kBusNames[i++ % kBusNames.size()].Match(L"*[*]"));
    }
}
BENCHMARK(MatchBusWithoutCaptures);

void MatchLongBracketRun(benchmark::State& state)
{
    const AString text(static_cast<std::size_t>(state.range(0)), L'[');
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(text.Match(L"*[*]"));
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(MatchLongBracketRun)->Range(256, 16384)->Complexity();

void FormatBusMember(benchmark::State& state)
{
    const AString base(L"data_bus");
    AString member;
    int index = 0;
    for (auto _ : state)
    {
        member.Format(L"%s[%d]", base, index++ & 31);
        benchmark::DoNotOptimize(member.data());
    }
}
BENCHMARK(FormatBusMember);

void IsNumberInt(benchmark::State& state)
{
    const AString text(L"12345");
    int value = 0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(text.IsNumber(value, 10));
    }
}
BENCHMARK(IsNumberInt);

void IsNumberIntRejected(benchmark::State& state)
{
    const AString text(L"12x");
    int value = 0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(text.IsNumber(value, 10));
    }
}
BENCHMARK(IsNumberIntRejected);

void IsNumberDouble(benchmark::State& state)
{
    const AString text(L"-1.25e-3");
    double value = 0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(text.IsNumber(value));
    }
}
BENCHMARK(IsNumberDouble);
} // namespace

BENCHMARK_MAIN();
