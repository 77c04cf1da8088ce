// Net-name services over a generated design net list of one million nets: about 80% simple
// names ("net_1234"), 15% buses ("d[31:0]", "addr<15:0>") and 5% comma lists mixing both.
// Beside the library's functions run two baselines in the same process, so that ratios are
// read from one run: a bare scan for the three bus characters, and a minimal expander that
// only understands "base[a:b]" and "base<a:b>" lists.
#include "BusNameParsing.h"

#include "RefApplication.h"

#include <benchmark/benchmark.h>

#include <random>
#include <string>
#include <vector>

namespace
{
constexpr std::size_t kNetCount = 1000000;

struct NetList
{
    std::vector<AString> all;
    std::vector<AString> simple;
    std::vector<std::vector<AString>> expanded; // canonical members of each net
    std::size_t memberCount = 0;
};

AString BusName(std::mt19937& random)
{
    static const wchar_t* const kBases[] = {L"d", L"addr", L"data_bus", L"q", L"sel", L"din"};
    std::uniform_int_distribution<int> base(0, 5);
    std::uniform_int_distribution<int> width(1, 32);
    std::uniform_int_distribution<int> style(0, 3);
    const int msb = width(random) - 1;
    const bool angle = style(random) == 0;
    return AString::Formatted(angle ? L"%s<%d:0>" : L"%s[%d:0]", kBases[base(random)], msb);
}

const NetList& Nets()
{
    static const NetList nets = []
    {
        NetList list;
        std::mt19937 random(20261121);
        std::uniform_int_distribution<int> kind(0, 99);
        std::uniform_int_distribution<int> number(0, 99999);
        list.all.reserve(kNetCount);
        for (std::size_t i = 0; i < kNetCount; ++i)
        {
            const int k = kind(random);
            if (k < 80)
            {
                list.all.push_back(AString::Formatted(L"net_%d", number(random)));
            }
            else if (k < 95)
            {
                list.all.push_back(BusName(random));
            }
            else
            {
                list.all.push_back(BusName(random) + L"," +
                                   AString::Formatted(L"n%d", number(random)) + L"," +
                                   BusName(random));
            }
        }
        // The simple names again, allocated one after the other as a design's would be.
        for (const AString& name : list.all)
        {
            if (name.find_first_of(L"[<,") == AString::npos)
            {
                list.simple.push_back(name);
            }
        }
        list.expanded.resize(list.all.size());
        for (std::size_t i = 0; i < list.all.size(); ++i)
        {
            GetAllSignalsCanonical(list.all[i], list.expanded[i]);
            list.memberCount += list.expanded[i].size();
        }
        return list;
    }();
    return nets;
}

// The reference host answers the environment query of IsSimpleWireName.
refhost::RefApplication& Host(CircuitEnvironment environment)
{
    static refhost::RefApplication application;
    application.SetCircuitEnvironment(environment);
    return application;
}

void SetRates(benchmark::State& state, std::size_t names, std::size_t signals)
{
    const auto iterations = static_cast<double>(state.iterations());
    state.counters["names/s"] =
        benchmark::Counter(iterations * static_cast<double>(names), benchmark::Counter::kIsRate);
    if (signals > 0)
    {
        state.counters["signals/s"] = benchmark::Counter(iterations * static_cast<double>(signals),
                                                         benchmark::Counter::kIsRate);
    }
}

// Baseline: the bare scan of the same wide strings for "[", "<" or ",".
void BM_BareScanSimple(benchmark::State& state)
{
    const NetList& nets = Nets();
    for (auto _ : state)
    {
        std::size_t simple = 0;
        for (const AString& name : nets.simple)
        {
            const wchar_t* c = name.data();
            const wchar_t* const end = c + name.size();
            while (c != end && *c != L'[' && *c != L'<' && *c != L',')
            {
                ++c;
            }
            simple += c == end;
        }
        benchmark::DoNotOptimize(simple);
    }
    SetRates(state, nets.simple.size(), 0);
}
BENCHMARK(BM_BareScanSimple)->Unit(benchmark::kMillisecond);

void BM_IsSimpleWireNameSimple(benchmark::State& state)
{
    Host(static_cast<CircuitEnvironment>(state.range(0)));
    const NetList& nets = Nets();
    for (auto _ : state)
    {
        std::size_t simple = 0;
        for (const AString& name : nets.simple)
        {
            simple += IsSimpleWireName(name);
        }
        benchmark::DoNotOptimize(simple);
    }
    SetRates(state, nets.simple.size(), 0);
}
BENCHMARK(BM_IsSimpleWireNameSimple)
    ->Arg(kEnvBrennaCircuit)
    ->Arg(kEnvParvane)
    ->Unit(benchmark::kMillisecond);

void BM_IsSimpleWireNameMix(benchmark::State& state)
{
    Host(static_cast<CircuitEnvironment>(state.range(0)));
    const NetList& nets = Nets();
    for (auto _ : state)
    {
        std::size_t simple = 0;
        for (const AString& name : nets.all)
        {
            simple += IsSimpleWireName(name);
        }
        benchmark::DoNotOptimize(simple);
    }
    SetRates(state, nets.all.size(), 0);
}
BENCHMARK(BM_IsSimpleWireNameMix)
    ->Arg(kEnvBrennaCircuit)
    ->Arg(kEnvParvane)
    ->Unit(benchmark::kMillisecond);

// Baseline: a minimal expander of "base[a:b]" / "base<a:b>" lists into wide member names,
// with no checks beyond what the generated names need.
int ReadNumber(std::wstring_view text, std::size_t& pos)
{
    int value = 0;
    while (pos < text.size() && text[pos] >= L'0' && text[pos] <= L'9')
    {
        value = value * 10 + (text[pos++] - L'0');
    }
    return value;
}

void MinimalExpand(std::wstring_view name, std::vector<std::wstring>& out)
{
    std::size_t start = 0;
    while (start <= name.size())
    {
        // Commas inside brackets do not occur in the generated names.
        std::size_t end = name.find(L',', start);
        if (end == std::wstring_view::npos)
        {
            end = name.size();
        }
        const std::wstring_view element = name.substr(start, end - start);
        const std::size_t open = element.find_first_of(L"[<");
        if (open == std::wstring_view::npos)
        {
            out.emplace_back(element);
        }
        else
        {
            std::size_t pos = open + 1;
            const int from = ReadNumber(element, pos);
            ++pos;
            const int to = ReadNumber(element, pos);
            const int step = from <= to ? 1 : -1;
            for (int i = from;; i += step)
            {
                std::wstring& member = out.emplace_back();
                member.reserve(open + 13);
                member.append(element.substr(0, open));
                member.push_back(element[open]);
                wchar_t digits[12];
                int n = 0;
                int v = i;
                do
                {
                    digits[n++] = static_cast<wchar_t>(L'0' + v % 10);
                    v /= 10;
                } while (v != 0);
                while (n > 0)
                {
                    member.push_back(digits[--n]);
                }
                member.push_back(element.back());
                if (i == to)
                {
                    break;
                }
            }
        }
        start = end + 1;
    }
}

void BM_MinimalExpander(benchmark::State& state)
{
    const NetList& nets = Nets();
    std::vector<std::wstring> members;
    for (auto _ : state)
    {
        for (const AString& name : nets.all)
        {
            members.clear();
            MinimalExpand(name, members);
            benchmark::DoNotOptimize(members.data());
        }
    }
    SetRates(state, nets.all.size(), nets.memberCount);
}
BENCHMARK(BM_MinimalExpander)->Unit(benchmark::kMillisecond);

template <int (*Expand)(const AString&, std::vector<AString>&)>
void BM_Expand(benchmark::State& state)
{
    Host(kEnvParvane);
    const NetList& nets = Nets();
    std::vector<AString> members;
    for (auto _ : state)
    {
        for (const AString& name : nets.all)
        {
            members.clear();
            benchmark::DoNotOptimize(Expand(name, members));
        }
    }
    SetRates(state, nets.all.size(), nets.memberCount);
}
BENCHMARK_TEMPLATE(BM_Expand, GetAllSignals)
    ->Name("BM_GetAllSignals")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Expand, GetAllSignalsCanonical)
    ->Name("BM_GetAllSignalsCanonical")
    ->Unit(benchmark::kMillisecond);

void BM_GetUniqueSignals(benchmark::State& state)
{
    Host(kEnvParvane);
    const NetList& nets = Nets();
    for (auto _ : state)
    {
        for (const AString& name : nets.all)
        {
            std::set<AString, AString::NoCaseLess> members;
            benchmark::DoNotOptimize(GetUniqueSignals(name, members));
        }
    }
    SetRates(state, nets.all.size(), nets.memberCount);
}
BENCHMARK(BM_GetUniqueSignals)->Unit(benchmark::kMillisecond);

void BM_GetSignalCount(benchmark::State& state)
{
    Host(kEnvParvane);
    const NetList& nets = Nets();
    for (auto _ : state)
    {
        for (const AString& name : nets.all)
        {
            benchmark::DoNotOptimize(GetSignalCount(name));
        }
    }
    SetRates(state, nets.all.size(), nets.memberCount);
}
BENCHMARK(BM_GetSignalCount)->Unit(benchmark::kMillisecond);

void BM_CreateNetName(benchmark::State& state)
{
    Host(kEnvParvane);
    const NetList& nets = Nets();
    for (auto _ : state)
    {
        for (const std::vector<AString>& members : nets.expanded)
        {
            benchmark::DoNotOptimize(CreateNetName(members));
        }
    }
    SetRates(state, nets.all.size(), nets.memberCount);
}
BENCHMARK(BM_CreateNetName)->Unit(benchmark::kMillisecond);

void BM_IsGoodWireName(benchmark::State& state)
{
    Host(kEnvParvane);
    const NetList& nets = Nets();
    for (auto _ : state)
    {
        for (const AString& name : nets.all)
        {
            benchmark::DoNotOptimize(IsGoodWireName(name));
        }
    }
    SetRates(state, nets.all.size(), 0);
}
BENCHMARK(BM_IsGoodWireName)->Unit(benchmark::kMillisecond);

void BM_NetNameCompare(benchmark::State& state)
{
    Host(kEnvParvane);
    const NetList& nets = Nets();
    for (auto _ : state)
    {
        for (std::size_t i = 1; i < nets.all.size(); ++i)
        {
            benchmark::DoNotOptimize(NetNameCompare(nets.all[i - 1], nets.all[i]));
        }
    }
    SetRates(state, nets.all.size() - 1, 0);
}
BENCHMARK(BM_NetNameCompare)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
