#include "Profiler.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <mutex>
#include <ostream>

constinit std::atomic<bool> Profiler::mEnabled{false};

namespace
{
// Every site that has recorded a call, linked through ProfileSite::mNext. Sites are statics of
// the libraries that stay loaded for the life of the process.
constinit std::mutex gListMutex;
constinit ProfileSite* gFirstSite = nullptr;
} // namespace

std::uint64_t Profiler::Now() noexcept
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint64_t>(
        std::chrono::duration_cast<std::chrono::nanoseconds>(now).count());
}

void Profiler::Record(ProfileSite& site, std::uint64_t start) noexcept
{
    const std::uint64_t end = Now();
    site.mCalls.fetch_add(1, std::memory_order_relaxed);
    site.mNanoseconds.fetch_add(end >= start ? end - start : 0, std::memory_order_relaxed);
    if (!site.mListed.load(std::memory_order_acquire))
    {
        std::lock_guard lock(gListMutex);
        if (!site.mListed.load(std::memory_order_relaxed))
        {
            site.mNext = gFirstSite;
            gFirstSite = &site;
            site.mListed.store(true, std::memory_order_release);
        }
    }
}

void Profiler::Reset() noexcept
{
    std::lock_guard lock(gListMutex);
    for (ProfileSite* site = gFirstSite; site != nullptr; site = site->mNext)
    {
        site->mCalls.store(0, std::memory_order_relaxed);
        site->mNanoseconds.store(0, std::memory_order_relaxed);
    }
}

std::vector<ProfileRow> Profiler::GetRows()
{
    std::map<std::string, ProfileRow> byName;
    {
        std::lock_guard lock(gListMutex);
        for (const ProfileSite* site = gFirstSite; site != nullptr; site = site->mNext)
        {
            const std::uint64_t calls = site->mCalls.load(std::memory_order_relaxed);
            if (calls == 0)
            {
                continue;
            }
            const std::string name = site->mName != nullptr ? site->mName : "(unnamed)";
            ProfileRow& row = byName[name];
            row.name = name;
            row.calls += calls;
            row.total += std::chrono::nanoseconds(
                static_cast<long long>(site->mNanoseconds.load(std::memory_order_relaxed)));
        }
    }
    std::vector<ProfileRow> rows;
    rows.reserve(byName.size());
    for (auto& [name, row] : byName)
    {
        rows.push_back(std::move(row));
    }
    std::stable_sort(rows.begin(), rows.end(),
                     [](const ProfileRow& a, const ProfileRow& b) { return a.total > b.total; });
    return rows;
}

void Profiler::Print(std::ostream& out)
{
    const std::vector<ProfileRow> rows = GetRows();
    std::size_t width = 4; // "name"
    for (const ProfileRow& row : rows)
    {
        width = std::max(width, row.name.size());
    }
    auto writeName = [&](const std::string& name)
    { out << name << std::string(width - name.size(), ' '); };
    char numbers[128];
    writeName("name");
    std::snprintf(numbers, sizeof numbers, " %12s %14s %12s\n", "calls", "total ms", "mean us");
    out << numbers;
    for (const ProfileRow& row : rows)
    {
        writeName(row.name);
        std::snprintf(numbers, sizeof numbers, " %12llu %14.3f %12.3f\n",
                      static_cast<unsigned long long>(row.calls),
                      static_cast<double>(row.total.count()) / 1e6,
                      static_cast<double>(row.Mean().count()) / 1e3);
        out << numbers;
    }
}
