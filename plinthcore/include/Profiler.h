// Named profiling scopes for hot paths. PLINTH_PROFILE_SCOPE("IsSimpleWireName") at the top of
// a function counts its calls and the time spent in it while profiling is on. While it is off
// (the default) a scope costs one well-predicted test of a global flag: no clock read, no
// lookup, no allocation. Times are inclusive (nested scopes count within their callers) and
// sites of the same name, in any library, add up to one row.
#pragma once

#include "PlinthExport.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

// The counters of one profiling site, a static made constant-initialised by the macro, so it
// needs no start-up code and no lock on the hot path. It joins the profiler's list of sites the
// first time it records a call.
class ProfileSite
{
public:
    constexpr explicit ProfileSite(const char* name) noexcept : mName(name) {}
    ProfileSite(const ProfileSite&) = delete;
    ProfileSite& operator=(const ProfileSite&) = delete;

    const char* GetName() const noexcept { return mName; }

private:
    friend class Profiler;
    const char* mName;
    std::atomic<std::uint64_t> mCalls{0};
    std::atomic<std::uint64_t> mNanoseconds{0};
    std::atomic<bool> mListed{false};
    ProfileSite* mNext = nullptr; // the profiler's list, guarded by its lock
};

// One row of the profile: every site of one name taken together.
struct ProfileRow
{
    std::string name;
    std::uint64_t calls = 0;
    std::chrono::nanoseconds total{0};

    // Mean time per call; zero when there were no calls.
    std::chrono::nanoseconds Mean() const
    {
        return calls == 0 ? std::chrono::nanoseconds(0)
                          : std::chrono::nanoseconds(total.count() / static_cast<long long>(calls));
    }
};

// Process-wide switch and report of the profiling scopes.
class PLINTH_API Profiler
{
public:
    Profiler() = delete;

    static void Enable() noexcept { mEnabled.store(true, std::memory_order_relaxed); }
    static void Disable() noexcept { mEnabled.store(false, std::memory_order_relaxed); }
    static bool IsEnabled() noexcept { return mEnabled.load(std::memory_order_relaxed); }

    // Sets every count and total back to zero (scopes still open add their time when they end).
    static void Reset() noexcept;
    // The rows of every name with at least one call, the largest total time first; equal totals
    // by name.
    static std::vector<ProfileRow> GetRows();
    // Prints the rows as a table: name, calls, total (ms), mean (us).
    static void Print(std::ostream& out);

    // Used by ProfileScope: the clock in nanoseconds, and adding one finished call to a site.
    static std::uint64_t Now() noexcept;
    static void Record(ProfileSite& site, std::uint64_t start) noexcept;

    // The global flag; exported data so that the test inlines into every caller.
    static std::atomic<bool> mEnabled;
};

// Times its own lifetime into a site when profiling was on at its start.
class ProfileScope
{
public:
    explicit ProfileScope(ProfileSite& site) noexcept
    {
        if (Profiler::mEnabled.load(std::memory_order_relaxed)) [[unlikely]]
        {
            mSite = &site;
            mStart = Profiler::Now();
        }
    }
    ~ProfileScope()
    {
        if (mSite != nullptr) [[unlikely]]
        {
            Profiler::Record(*mSite, mStart);
        }
    }
    ProfileScope(const ProfileScope&) = delete;
    ProfileScope& operator=(const ProfileScope&) = delete;

private:
    ProfileSite* mSite = nullptr;
    std::uint64_t mStart = 0;
};

#define PLINTH_PROFILE_JOIN_INNER(a, b) a##b
#define PLINTH_PROFILE_JOIN(a, b) PLINTH_PROFILE_JOIN_INNER(a, b)
#define PLINTH_PROFILE_SCOPE_AT(name, id)                                                          \
    static constinit ::ProfileSite PLINTH_PROFILE_JOIN(plinthProfileSite, id){name};               \
    const ::ProfileScope PLINTH_PROFILE_JOIN(plinthProfileScope, id)                               \
    {                                                                                              \
        PLINTH_PROFILE_JOIN(plinthProfileSite, id)                                                 \
    }

// Profiles the rest of the enclosing block under `name`, a string literal.
#define PLINTH_PROFILE_SCOPE(name) PLINTH_PROFILE_SCOPE_AT(name, __COUNTER__)
