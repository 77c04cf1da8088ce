#include "Profiler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace
{
class ProfilerTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        Profiler::Reset();
        Profiler::Enable();
    }
    void TearDown() override
    {
        Profiler::Disable();
        Profiler::Reset();
    }
};

std::optional<ProfileRow> FindRow(const std::string& name)
{
    for (const ProfileRow& row : Profiler::GetRows())
    {
        if (row.name == name)
        {
            return row;
        }
    }
    return std::nullopt;
}

std::uint64_t CallsOf(const std::string& name)
{
    const std::optional<ProfileRow> row = FindRow(name);
    return row ? row->calls : 0;
}

void Leaf()
{
    PLINTH_PROFILE_SCOPE("ProfilerTest.Leaf");
}

void Branch()
{
    PLINTH_PROFILE_SCOPE("ProfilerTest.Branch");
    Leaf();
    Leaf();
}

// Two sites sharing one name.
void SharedNameFirstSite()
{
    PLINTH_PROFILE_SCOPE("ProfilerTest.Shared");
}
void SharedNameSecondSite()
{
    PLINTH_PROFILE_SCOPE("ProfilerTest.Shared");
}

void Sleeper()
{
    PLINTH_PROFILE_SCOPE("ProfilerTest.Sleeper");
    std::this_thread::sleep_for(std::chrono::milliseconds(3));
}
} // namespace

TEST_F(ProfilerTest, CountsCallsOfNestedScopesInclusively)
{
    for (int i = 0; i < 5; ++i)
    {
        Branch();
    }
    Leaf();
    const std::optional<ProfileRow> branch = FindRow("ProfilerTest.Branch");
    const std::optional<ProfileRow> leaf = FindRow("ProfilerTest.Leaf");
    ASSERT_TRUE(branch && leaf);
    EXPECT_EQ(branch->calls, 5u);
    EXPECT_EQ(leaf->calls, 11u);
}

TEST_F(ProfilerTest, OuterTimeContainsInnerTime)
{
    {
        PLINTH_PROFILE_SCOPE("ProfilerTest.Outer");
        Sleeper();
        Sleeper();
    }
    const std::optional<ProfileRow> outer = FindRow("ProfilerTest.Outer");
    const std::optional<ProfileRow> inner = FindRow("ProfilerTest.Sleeper");
    ASSERT_TRUE(outer && inner);
    EXPECT_EQ(inner->calls, 2u);
    EXPECT_GE(inner->total, std::chrono::milliseconds(6));
    EXPECT_GE(outer->total, inner->total);
}

TEST_F(ProfilerTest, SitesOfOneNameAddUpToOneRow)
{
    for (int i = 0; i < 3; ++i)
    {
        SharedNameFirstSite();
    }
    SharedNameSecondSite();
    const std::vector<ProfileRow> rows = Profiler::GetRows();
    EXPECT_EQ(std::count_if(rows.begin(), rows.end(),
                            [](const ProfileRow& r) { return r.name == "ProfilerTest.Shared"; }),
              1);
    EXPECT_EQ(CallsOf("ProfilerTest.Shared"), 4u);
}

TEST_F(ProfilerTest, NothingIsCountedWhileDisabled)
{
    Profiler::Disable();
    EXPECT_FALSE(Profiler::IsEnabled());
    Leaf();
    EXPECT_EQ(CallsOf("ProfilerTest.Leaf"), 0u);
    Profiler::Enable();
    EXPECT_TRUE(Profiler::IsEnabled());
    Leaf();
    EXPECT_EQ(CallsOf("ProfilerTest.Leaf"), 1u);
}

TEST_F(ProfilerTest, ScopeCountsByTheSwitchAtItsStart)
{
    {
        PLINTH_PROFILE_SCOPE("ProfilerTest.StartedOn");
        Profiler::Disable();
    }
    {
        PLINTH_PROFILE_SCOPE("ProfilerTest.StartedOff");
        Profiler::Enable();
    }
    EXPECT_EQ(CallsOf("ProfilerTest.StartedOn"), 1u);
    EXPECT_EQ(CallsOf("ProfilerTest.StartedOff"), 0u);
}

TEST_F(ProfilerTest, ResetClearsEveryRowAndCountingGoesOn)
{
    Branch();
    ASSERT_FALSE(Profiler::GetRows().empty());
    Profiler::Reset();
    EXPECT_TRUE(Profiler::GetRows().empty());
    Leaf();
    EXPECT_EQ(CallsOf("ProfilerTest.Leaf"), 1u);
    EXPECT_EQ(CallsOf("ProfilerTest.Branch"), 0u);
}

TEST_F(ProfilerTest, RowsAreSortedByTotalTime)
{
    for (int i = 0; i < 50; ++i)
    {
        Leaf();
    }
    Sleeper();
    const std::vector<ProfileRow> rows = Profiler::GetRows();
    ASSERT_GE(rows.size(), 2u);
    EXPECT_EQ(rows.front().name, "ProfilerTest.Sleeper");
    EXPECT_GE(rows.front().total, std::chrono::milliseconds(3));
    EXPECT_TRUE(std::is_sorted(rows.begin(), rows.end(),
                               [](const ProfileRow& a, const ProfileRow& b)
                               { return a.total > b.total; }));
}

TEST_F(ProfilerTest, MeanIsTotalOverCalls)
{
    struct Case
    {
        std::uint64_t calls;
        long long total;
        long long mean;
    };
    const Case cases[] = {{0, 0, 0}, {0, 500, 0}, {1, 7, 7}, {10, 1000, 100}, {3, 10, 3}};
    for (const Case& c : cases)
    {
        SCOPED_TRACE(testing::Message() << c.calls << " calls, " << c.total << " ns");
        ProfileRow row{"r", c.calls, std::chrono::nanoseconds(c.total)};
        EXPECT_EQ(row.Mean().count(), c.mean);
    }
}

TEST_F(ProfilerTest, PrintsOneAlignedLinePerRow)
{
    Sleeper();
    Branch();
    std::ostringstream out;
    Profiler::Print(out);
    std::vector<std::string> lines;
    std::istringstream in(out.str());
    for (std::string line; std::getline(in, line);)
    {
        lines.push_back(line);
    }
    ASSERT_EQ(lines.size(), 4u); // header, sleeper, branch, leaf
    EXPECT_EQ(lines[0].rfind("name ", 0), 0u);
    EXPECT_NE(lines[0].find("calls"), std::string::npos);
    EXPECT_NE(lines[0].find("total ms"), std::string::npos);
    EXPECT_NE(lines[0].find("mean us"), std::string::npos);
    EXPECT_EQ(lines[1].rfind("ProfilerTest.Sleeper ", 0), 0u);
    // Columns line up: every line has the same length.
    for (const std::string& line : lines)
    {
        EXPECT_EQ(line.size(), lines[0].size()) << line;
    }
    // The calls column of the leaf row holds 2.
    std::istringstream leaf(lines[3]);
    std::string name;
    std::uint64_t calls = 0;
    leaf >> name >> calls;
    EXPECT_EQ(name, "ProfilerTest.Leaf");
    EXPECT_EQ(calls, 2u);
}

TEST_F(ProfilerTest, PrintsOnlyTheHeaderWhenNothingWasCounted)
{
    std::ostringstream out;
    Profiler::Print(out);
    const std::string text = out.str();
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1);
    EXPECT_EQ(text.rfind("name ", 0), 0u);
}

TEST_F(ProfilerTest, CountsFromSeveralThreadsExactly)
{
    constexpr int kThreads = 4;
    constexpr int kCalls = 20000;
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t)
    {
        threads.emplace_back(
            []
            {
                for (int i = 0; i < kCalls; ++i)
                {
                    Leaf();
                }
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    EXPECT_EQ(CallsOf("ProfilerTest.Leaf"), static_cast<std::uint64_t>(kThreads * kCalls));
}
