// Reading and writing a large generated project file in the block text format, side by
// side with two JSON libraries handling the same content (each record a JSON array of
// its seven values). Reports MB/s and records/s per case, then the ratios and what each
// tree costs in memory against the size of its text.
//
//   BlockBench [--benchmark_filter=...]     QLN_BENCH_RECORDS=N sets the record count
#include "Block.h"
#include "BlockReader.h"
#include "BlockWriter.h"

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>
#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include <malloc.h>

namespace
{
// One terminal-like record: pins, gate, flags, numbers and a description.
struct Record
{
    std::string schPin;
    std::string layPin;
    std::string gate;
    bool shared;
    long long equivNumber;
    long long action;
    std::string description;
};

std::size_t RecordCount()
{
    const char* text = std::getenv("QLN_BENCH_RECORDS");
    const long long count = text != nullptr ? std::atoll(text) : 0;
    return count > 0 ? static_cast<std::size_t>(count) : 200000;
}

struct Data
{
    std::vector<Record> records;
    io::CBlock_func tree{L"Terminals"};
    std::string blockText;
    std::string jsonText;

    Data()
    {
        std::mt19937 random(7);
        const char* kinds[] = {"IN", "OUT", "VDD", "GND", "CLK", "D", "Q", "EN"};
        const char* words[] = {"input", "output", "supply", "ground", "clock", "data", "enable"};
        for (std::size_t i = 0; i < RecordCount(); ++i)
        {
            const unsigned pick = random();
            Record record;
            record.schPin = std::string(kinds[pick % 8]) + "_" + std::to_string(i);
            record.layPin = std::to_string(i + 1);
            record.gate = std::string(1, static_cast<char>('A' + pick % 4));
            record.shared = pick % 5 == 0;
            record.equivNumber = static_cast<long long>(i);
            record.action = pick % 4;
            record.description = std::string(words[pick % 7]) + " pin " + std::to_string(i % 97);
            records.push_back(record);
        }
        for (const Record& record : records)
        {
            io::CBlock_func& block = tree.AddBlock("Terminal");
            block.AddValue(record.schPin);
            block.AddValue(record.layPin);
            block.AddValue(record.gate);
            block.AddValue(record.shared);
            block.AddValue(record.equivNumber);
            block.AddValue(record.action);
            block.AddValue(record.description);
        }
        blockText = io::WriteBlockText(tree);
        jsonText = ToNlohmann().dump();
    }

    nlohmann::json ToNlohmann() const
    {
        nlohmann::json list = nlohmann::json::array();
        for (const Record& r : records)
        {
            list.push_back(
                {r.schPin, r.layPin, r.gate, r.shared, r.equivNumber, r.action, r.description});
        }
        return nlohmann::json{{"Terminals", std::move(list)}};
    }
};

const Data& TheData()
{
    static const Data data;
    return data;
}

void Count(benchmark::State& state, std::size_t bytes)
{
    const auto iterations = static_cast<std::int64_t>(state.iterations());
    state.SetItemsProcessed(iterations * static_cast<std::int64_t>(TheData().records.size()));
    state.SetBytesProcessed(iterations * static_cast<std::int64_t>(bytes));
}

void BlockRead(benchmark::State& state)
{
    const Data& data = TheData();
    for (auto _ : state)
    {
        io::CBlock_func tree;
        if (!io::ReadBlockText(data.blockText, tree))
        {
            state.SkipWithError("the generated text does not read");
        }
        benchmark::DoNotOptimize(tree.GetItemCount());
    }
    Count(state, data.blockText.size());
}

// Reading, and then every field into the host's types (wide texts, ints, bools).
void BlockReadAndExtract(benchmark::State& state)
{
    const Data& data = TheData();
    for (auto _ : state)
    {
        io::CBlock_func tree;
        io::ReadBlockText(data.blockText, tree);
        std::size_t total = 0;
        for (const io::CBlock_item item : tree.Items())
        {
            io::CBlock_func& block = *item.GetBlock();
            AString schPin, layPin, gate, description;
            bool shared = false;
            int equiv = 0, action = 0;
            block.ReadValue(schPin) && block.ReadValue(layPin) && block.ReadValue(gate) &&
                block.ReadValue(shared) && block.ReadValue(equiv) && block.ReadValue(action) &&
                block.ReadValue(description);
            total += schPin.size() + description.size() + static_cast<std::size_t>(equiv);
        }
        benchmark::DoNotOptimize(total);
    }
    Count(state, data.blockText.size());
}

void BlockWrite(benchmark::State& state)
{
    const Data& data = TheData();
    for (auto _ : state)
    {
        std::string text = io::WriteBlockText(data.tree);
        benchmark::DoNotOptimize(text.data());
    }
    Count(state, data.blockText.size());
}

// Building the tree from the records (what saving a project does before writing).
void BlockBuild(benchmark::State& state)
{
    const Data& data = TheData();
    for (auto _ : state)
    {
        io::CBlock_func tree(L"Terminals");
        for (const Record& record : data.records)
        {
            io::CBlock_func& block = tree.AddBlock("Terminal");
            block.AddValue(record.schPin);
            block.AddValue(record.layPin);
            block.AddValue(record.gate);
            block.AddValue(record.shared);
            block.AddValue(record.equivNumber);
            block.AddValue(record.action);
            block.AddValue(record.description);
        }
        benchmark::DoNotOptimize(tree.GetItemCount());
    }
    Count(state, data.blockText.size());
}

void NlohmannRead(benchmark::State& state)
{
    const Data& data = TheData();
    for (auto _ : state)
    {
        nlohmann::json json = nlohmann::json::parse(data.jsonText);
        benchmark::DoNotOptimize(json.size());
    }
    Count(state, data.jsonText.size());
}

void NlohmannWrite(benchmark::State& state)
{
    const Data& data = TheData();
    const nlohmann::json json = nlohmann::json::parse(data.jsonText);
    for (auto _ : state)
    {
        std::string text = json.dump();
        benchmark::DoNotOptimize(text.data());
    }
    Count(state, data.jsonText.size());
}

void RapidJsonRead(benchmark::State& state)
{
    const Data& data = TheData();
    for (auto _ : state)
    {
        rapidjson::Document document;
        document.Parse(data.jsonText.c_str(), data.jsonText.size());
        if (document.HasParseError())
        {
            state.SkipWithError("the generated JSON does not parse");
        }
        benchmark::DoNotOptimize(document.MemberCount());
    }
    Count(state, data.jsonText.size());
}

void RapidJsonWrite(benchmark::State& state)
{
    const Data& data = TheData();
    rapidjson::Document document;
    document.Parse(data.jsonText.c_str(), data.jsonText.size());
    for (auto _ : state)
    {
        rapidjson::StringBuffer buffer;
        rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
        document.Accept(writer);
        benchmark::DoNotOptimize(buffer.GetString());
    }
    Count(state, data.jsonText.size());
}

BENCHMARK(BlockRead)->Unit(benchmark::kMillisecond);
BENCHMARK(BlockReadAndExtract)->Unit(benchmark::kMillisecond);
BENCHMARK(NlohmannRead)->Unit(benchmark::kMillisecond);
BENCHMARK(RapidJsonRead)->Unit(benchmark::kMillisecond);
BENCHMARK(BlockWrite)->Unit(benchmark::kMillisecond);
BENCHMARK(BlockBuild)->Unit(benchmark::kMillisecond);
BENCHMARK(NlohmannWrite)->Unit(benchmark::kMillisecond);
BENCHMARK(RapidJsonWrite)->Unit(benchmark::kMillisecond);

// Bytes the heap holds for what `make` builds and keeps alive while it runs.
template <typename Make> std::size_t HeapBytes(Make make)
{
    malloc_trim(0);
    const struct mallinfo2 before = mallinfo2();
    std::size_t held = 0;
    make(
        [&]
        {
            const struct mallinfo2 after = mallinfo2();
            held = (after.uordblks + after.hblkhd) - (before.uordblks + before.hblkhd);
        });
    return held;
}

// The console output, plus the records/s of each case for the summary.
class SummaryReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs)
        {
            // One figure per case: the median when repetitions are aggregated.
            const bool median = run.run_type == Run::RT_Aggregate && run.aggregate_name == "median";
            if (run.run_type == Run::RT_Aggregate && !median)
            {
                continue;
            }
            const auto found = run.counters.find("items_per_second");
            if (found != run.counters.end() &&
                (median || !mFromMedian.contains(run.run_name.function_name)))
            {
                mRate[run.run_name.function_name] = found->second.value;
                if (median)
                {
                    mFromMedian.insert(run.run_name.function_name);
                }
            }
        }
    }

    void PrintSummary() const
    {
        const Data& data = TheData();
        std::printf("\n%zu records; block text %.1f MB, JSON text %.1f MB\n", data.records.size(),
                    static_cast<double>(data.blockText.size()) / 1e6,
                    static_cast<double>(data.jsonText.size()) / 1e6);
        auto ratio = [&](const char* a, const char* b)
        {
            const auto x = mRate.find(a);
            const auto y = mRate.find(b);
            if (x != mRate.end() && y != mRate.end() && y->second > 0)
            {
                std::printf("  %-20s / %-15s %6.2fx  (%.2f vs %.2f million records/s)\n", a, b,
                            x->second / y->second, x->second / 1e6, y->second / 1e6);
            }
        };
        std::printf("Ratios of records/s:\n");
        ratio("BlockRead", "NlohmannRead");
        ratio("BlockRead", "RapidJsonRead");
        ratio("BlockReadAndExtract", "NlohmannRead");
        ratio("BlockWrite", "NlohmannWrite");
        ratio("BlockWrite", "RapidJsonWrite");

        const std::size_t blockBytes = HeapBytes(
            [&](auto measure)
            {
                io::CBlock_func tree;
                io::ReadBlockText(data.blockText, tree);
                measure();
            });
        const std::size_t nlohmannBytes = HeapBytes(
            [&](auto measure)
            {
                const nlohmann::json json = nlohmann::json::parse(data.jsonText);
                measure();
            });
        const std::size_t rapidBytes = HeapBytes(
            [&](auto measure)
            {
                rapidjson::Document document;
                document.Parse(data.jsonText.c_str(), data.jsonText.size());
                measure();
            });
        std::printf("Memory of the tree read, against its text:\n");
        std::printf("  block tree %8.1f MB  %.2fx the block text\n",
                    static_cast<double>(blockBytes) / 1e6,
                    static_cast<double>(blockBytes) / static_cast<double>(data.blockText.size()));
        std::printf("  nlohmann   %8.1f MB  %.2fx the JSON text\n",
                    static_cast<double>(nlohmannBytes) / 1e6,
                    static_cast<double>(nlohmannBytes) / static_cast<double>(data.jsonText.size()));
        std::printf("  rapidjson  %8.1f MB  %.2fx the JSON text\n",
                    static_cast<double>(rapidBytes) / 1e6,
                    static_cast<double>(rapidBytes) / static_cast<double>(data.jsonText.size()));
    }

private:
    std::map<std::string, double> mRate;
    std::set<std::string> mFromMedian;
};
} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
    {
        return 1;
    }
    TheData(); // generated before any timing
    SummaryReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintSummary();
    benchmark::Shutdown();
    return 0;
}
