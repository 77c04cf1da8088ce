// The terminal manager at scale: adding terminals, looking them up by pin name, matching a
// gate's signal pins, and reading and writing the list, each at 1,000, 10,000 and 100,000
// terminals. The pins are those of a large package: plain names ("VCC_17"), bus members
// ("DQ[5]") in several gates, with layout pins of a ball grid ("AB12"). After the table comes
// the growth of each from 10,000 to 100,000 terminals: about 10 for linear work, 100 for
// pairwise work; the target is below 15.
//
//   TerminalManagerBench [--benchmark_filter=...] [--benchmark_repetitions=N]
#include "TerminalManager.h"

#include "Block.h"
#include "RefApplication.h"
#include "RefComponent.h"
#include "RefProject.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace
{
struct Pin
{
    AString sch;
    AString lay;
    AString gate;
};

// `count` pins of a package: every fourth a plain supply name, the others members of 64-bit
// buses spread over four gates.
std::vector<Pin> Pins(int count)
{
    std::vector<Pin> pins;
    pins.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
    {
        Pin pin;
        if (i % 4 == 0)
        {
            pin.sch = AString::Formatted(L"VCC_%d", i);
            pin.gate = L"A";
        }
        else
        {
            pin.sch = AString::Formatted(L"DQ%d[%d]", i / 64, i % 64);
            pin.gate = AString::Formatted(L"%c", L'A' + (i / 64) % 4);
        }
        pin.lay = AString::Formatted(L"%c%c%d", L'A' + (i / 26000) % 26, L'A' + (i / 1000) % 26,
                                     i % 1000);
        pins.push_back(std::move(pin));
    }
    return pins;
}

struct Host
{
    refhost::RefApplication application;
    refhost::RefProject& project =
        application.AddProject(AString(L"bench"), AString(L"/tmp/bench"));
    refhost::RefComponent* component = project.AddComponent(AString(L"BGA"));
};

Host& TheHost()
{
    static Host host;
    return host;
}

void Fill(TerminalManager& terms, const std::vector<Pin>& pins)
{
    for (const Pin& pin : pins)
    {
        terms.AddTerminal(TheHost().component, pin.sch, pin.lay, pin.gate, false,
                          TerminalAttributes(), nullptr);
    }
}

void SetRate(benchmark::State& state)
{
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * state.range(0));
}

void AddTerminal(benchmark::State& state)
{
    const std::vector<Pin> pins = Pins(static_cast<int>(state.range(0)));
    for (auto _ : state)
    {
        auto terms = std::make_unique<TerminalManager>();
        Fill(*terms, pins);
        benchmark::DoNotOptimize(terms->GetTerminalCount());
        // Taking the list down is not part of building it.
        state.PauseTiming();
        terms.reset();
        state.ResumeTiming();
    }
    SetRate(state);
}

void LookUpBySchPinName(benchmark::State& state)
{
    const std::vector<Pin> pins = Pins(static_cast<int>(state.range(0)));
    TerminalManager terms;
    Fill(terms, pins);
    for (auto _ : state)
    {
        std::size_t found = 0;
        for (const Pin& pin : pins)
        {
            found += terms.GetTerminalFromSchPinName(pin.sch, pin.gate) != nullptr;
        }
        if (found != pins.size())
        {
            state.SkipWithError("a pin was not found");
        }
    }
    SetRate(state);
}

void LookUpByLayPinName(benchmark::State& state)
{
    const std::vector<Pin> pins = Pins(static_cast<int>(state.range(0)));
    TerminalManager terms;
    Fill(terms, pins);
    for (auto _ : state)
    {
        std::size_t found = 0;
        for (const Pin& pin : pins)
        {
            found += terms.GetTerminalFromLayPinName(pin.lay) != nullptr;
        }
        benchmark::DoNotOptimize(found);
    }
    SetRate(state);
}

void MatchSignalPins(benchmark::State& state)
{
    const std::vector<Pin> pins = Pins(static_cast<int>(state.range(0)));
    TerminalManager terms;
    Fill(terms, pins);
    std::vector<AString> gateA;
    for (const Pin& pin : pins)
    {
        if (pin.gate == L"A")
        {
            gateA.push_back(pin.sch);
        }
    }
    for (auto _ : state)
    {
        if (!terms.MatchSignalPins(gateA, AString(L"A"), false))
        {
            state.SkipWithError("the pins of gate A do not match");
        }
    }
    SetRate(state);
}

void Read(benchmark::State& state)
{
    const std::vector<Pin> pins = Pins(static_cast<int>(state.range(0)));
    TerminalManager source;
    Fill(source, pins);
    io::CBlock_func block(L"Component");
    source.Write(block);
    for (auto _ : state)
    {
        auto terms = std::make_unique<TerminalManager>();
        if (terms->Read(block, *TheHost().component) != io::kNoError)
        {
            state.SkipWithError("the list does not read");
        }
        state.PauseTiming();
        terms.reset();
        state.ResumeTiming();
    }
    SetRate(state);
}

void Write(benchmark::State& state)
{
    const std::vector<Pin> pins = Pins(static_cast<int>(state.range(0)));
    TerminalManager terms;
    Fill(terms, pins);
    for (auto _ : state)
    {
        io::CBlock_func block(L"Component");
        terms.Write(block);
        benchmark::DoNotOptimize(block.GetItemCount());
    }
    SetRate(state);
}

// The console table, plus the time of each case at each size for the growth summary.
class GrowthReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs)
        {
            // One figure per case and size: the median when repetitions are aggregated.
            const bool median = run.run_type == Run::RT_Aggregate && run.aggregate_name == "median";
            if ((run.run_type == Run::RT_Aggregate && !median) || run.error_occurred)
            {
                continue;
            }
            const std::string name = run.run_name.function_name;
            const std::string size = run.run_name.args;
            auto& entry = mSeconds[name][size];
            if (median || entry == 0.0)
            {
                entry = run.GetAdjustedRealTime();
            }
        }
    }

    void PrintSummary() const
    {
        std::printf("\nGrowth of the time from 10,000 to 100,000 terminals (linear ~10, target "
                    "below 15, pairwise ~100):\n");
        for (const auto& [name, sizes] : mSeconds)
        {
            const auto small = sizes.find("10000");
            const auto large = sizes.find("100000");
            if (small == sizes.end() || large == sizes.end() || small->second <= 0.0)
            {
                continue;
            }
            const double growth = large->second / small->second;
            std::printf("  %-20s %6.2f  %s\n", name.c_str(), growth,
                        growth < 15.0 ? "ok" : "ABOVE TARGET");
        }
    }

private:
    std::map<std::string, std::map<std::string, double>> mSeconds;
};
} // namespace

BENCHMARK(AddTerminal)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(LookUpBySchPinName)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(LookUpByLayPinName)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(MatchSignalPins)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(Read)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(Write)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
    {
        return 1;
    }
    TheHost();
    GrowthReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintSummary();
    benchmark::Shutdown();
    return 0;
}
