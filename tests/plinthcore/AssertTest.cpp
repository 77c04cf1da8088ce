#include "Assert.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

namespace
{
// Puts the process-wide settings back after each test and collects the log in memory.
class AssertTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        mPreviousHandler = SetAssertHandler({});
        mPreviousSink = SetAssertLogSink([this](const std::string& line) { mLog.push_back(line); });
        mPreviousIgnoreAll = GetIgnoreAllAsserts();
        mPreviousLog = GetLogAssertFailures();
        SetIgnoreAllAsserts(false);
        SetLogAssertFailures(false);
    }
    void TearDown() override
    {
        SetAssertHandler(std::move(mPreviousHandler));
        SetAssertLogSink(std::move(mPreviousSink));
        SetIgnoreAllAsserts(mPreviousIgnoreAll);
        SetLogAssertFailures(mPreviousLog);
    }

    std::vector<std::string> mLog;

private:
    AssertHandler mPreviousHandler;
    AssertLogSink mPreviousSink;
    bool mPreviousIgnoreAll = false;
    bool mPreviousLog = true;
};
} // namespace

TEST_F(AssertTest, TextOfExpressionsAndMessages)
{
    struct Case
    {
        const char* expression;
        std::string expected;
    };
    const Case cases[] = {
        {"comp && term", "comp && term"},
        {R"(!"Need DesignMgr to get Project path")", "Need DesignMgr to get Project path"},
        {R"(! "blank after the bang")", "blank after the bang"},
        {R"(!"a" "b")", "ab"},
        {R"(!"say \"hi\"")", "say \"hi\""},
        {R"(!"back\\slash")", "back\\slash"},
        {R"(!"tab\there")", "tab\there"},
        {R"(!"\x41\102")", "AB"},
        {R"(!"")", ""},
        {R"(!"a" || x)", R"(!"a" || x)"},
        {R"(!"unterminated)", R"(!"unterminated)"},
        {R"(!"bad \q escape")", R"(!"bad \q escape")"},
        {R"("no bang")", R"("no bang")"},
        {"!ptr", "!ptr"},
        {"", ""},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.expression);
        EXPECT_EQ(AssertText(c.expression), c.expected);
    }
    EXPECT_EQ(AssertText(nullptr), "");
}

TEST_F(AssertTest, CaptureRecordsTextExpressionFileAndLine)
{
    AssertCapture capture;
    const int line = __LINE__ + 1;
    PLINTH_ASSERT(!"Need DesignMgr to get Project path");
    PLINTH_ASSERT(1 + 1 == 3);
    PLINTH_ASSERT(std::is_same_v<int, long>);
    ASSERT_EQ(capture.Count(), 3u);
    EXPECT_EQ(capture.Texts(),
              (std::vector<std::string>{"Need DesignMgr to get Project path", "1 + 1 == 3",
                                        "std::is_same_v<int, long>"}));
    EXPECT_EQ(capture.Entries()[0].expression, R"(!"Need DesignMgr to get Project path")");
    EXPECT_EQ(capture.Entries()[0].file, "AssertTest.cpp");
    EXPECT_EQ(capture.Entries()[0].line, line);
    EXPECT_EQ(capture.Entries()[1].line, line + 1);
    capture.Clear();
    EXPECT_EQ(capture.Count(), 0u);
}

TEST_F(AssertTest, MacroYieldsConditionAndEvaluatesItOnce)
{
    AssertCapture capture;
    int evaluations = 0;
    EXPECT_TRUE(PLINTH_ASSERT(++evaluations == 1));
    EXPECT_EQ(evaluations, 1);
    EXPECT_EQ(capture.Count(), 0u);
    EXPECT_FALSE(PLINTH_ASSERT(++evaluations == 0));
    EXPECT_EQ(evaluations, 2);
    EXPECT_EQ(capture.Texts(), std::vector<std::string>{"++evaluations == 0"});
}

TEST_F(AssertTest, HandlerIgnoringASiteSilencesOnlyThatSite)
{
    std::vector<int> askedLines;
    SetAssertHandler(
        [&](const AssertInfo& info)
        {
            askedLines.push_back(info.line);
            return AssertText(info.expression) == "first site" ? AssertAction::kIgnoreSite
                                                               : AssertAction::kContinue;
        });
    // Per-site flags live as long as the program: each test uses sites of its own (and
    // cannot be repeated within one run).
    auto firstSite = [] { return PLINTH_ASSERT(!"first site"); };
    auto secondSite = [] { return PLINTH_ASSERT(!"second site"); };
    for (int i = 0; i < 3; ++i)
    {
        EXPECT_FALSE(firstSite());
        EXPECT_FALSE(secondSite());
    }
    // The first site was asked once, the second every time.
    ASSERT_EQ(askedLines.size(), 4u);
    EXPECT_NE(askedLines[0], askedLines[1]);
    EXPECT_EQ(askedLines[1], askedLines[2]);
    EXPECT_EQ(askedLines[2], askedLines[3]);
    EXPECT_FALSE(GetIgnoreAllAsserts());
}

TEST_F(AssertTest, IgnoreAllStopsEveryHandlerCall)
{
    int asked = 0;
    SetAssertHandler(
        [&](const AssertInfo&)
        {
            ++asked;
            return AssertAction::kIgnoreAll;
        });
    PLINTH_ASSERT(false);
    EXPECT_TRUE(GetIgnoreAllAsserts());
    PLINTH_ASSERT(false);
    PLINTH_ASSERT(!"another site");
    EXPECT_EQ(asked, 1);

    SetIgnoreAllAsserts(false);
    PLINTH_ASSERT(!"asked again");
    EXPECT_EQ(asked, 2);
}

TEST_F(AssertTest, LoggingFollowsItsSwitchAndGoesOnForIgnoredSites)
{
    SetAssertHandler([](const AssertInfo&) { return AssertAction::kIgnoreSite; });
    const int line = __LINE__ + 4;
    for (bool log : {false, true, true, false})
    {
        SetLogAssertFailures(log);
        PLINTH_ASSERT(!"logged message");
    }
    EXPECT_EQ(mLog, std::vector<std::string>(2, "AssertTest.cpp:" + std::to_string(line) +
                                                    ": assertion failed: logged message"));
    mLog.clear();
    LogAssertFailure("x > 0", "/some/dir\\file.cpp", 7);
    LogAssertFailure(nullptr, nullptr, 0);
    EXPECT_EQ(mLog, (std::vector<std::string>{"file.cpp:7: assertion failed: x > 0",
                                              ":0: assertion failed: "}));
}

TEST_F(AssertTest, CaptureRecordsWhateverIsIgnoredAndRestoresSettings)
{
    int asked = 0;
    SetAssertHandler(
        [&](const AssertInfo&)
        {
            ++asked;
            return AssertAction::kIgnoreSite;
        });
    auto site = [] { return PLINTH_ASSERT(!"ignored site"); };
    site(); // now ignored for the handler
    site();
    EXPECT_EQ(asked, 1);
    SetIgnoreAllAsserts(true);
    SetLogAssertFailures(true);
    {
        AssertCapture capture;
        EXPECT_FALSE(GetIgnoreAllAsserts());
        EXPECT_FALSE(GetLogAssertFailures());
        site();
        PLINTH_ASSERT(!"while ignoring all");
        EXPECT_EQ(capture.Texts(),
                  (std::vector<std::string>{"ignored site", "while ignoring all"}));
    }
    EXPECT_EQ(asked, 1); // the handler was not asked while capturing
    EXPECT_TRUE(GetIgnoreAllAsserts());
    EXPECT_TRUE(GetLogAssertFailures());
    EXPECT_TRUE(mLog.empty());
}

TEST_F(AssertTest, NestedCapturesRecordInTheInnermostOnly)
{
    int asked = 0;
    SetAssertHandler(
        [&](const AssertInfo&)
        {
            ++asked;
            return AssertAction::kContinue;
        });
    AssertCapture outer;
    PLINTH_ASSERT(!"before");
    {
        AssertCapture inner;
        PLINTH_ASSERT(!"inside");
        {
            AssertCapture innermost;
            PLINTH_ASSERT(!"deepest");
            EXPECT_EQ(innermost.Texts(), std::vector<std::string>{"deepest"});
        }
        PLINTH_ASSERT(!"inside again");
        EXPECT_EQ(inner.Texts(), (std::vector<std::string>{"inside", "inside again"}));
    }
    PLINTH_ASSERT(!"after");
    EXPECT_EQ(outer.Texts(), (std::vector<std::string>{"before", "after"}));
    EXPECT_EQ(asked, 0);
}

TEST_F(AssertTest, SetHandlerReturnsThePreviousOne)
{
    int first = 0;
    SetAssertHandler(
        [&](const AssertInfo&)
        {
            ++first;
            return AssertAction::kContinue;
        });
    AssertHandler previous = SetAssertHandler({});
    PLINTH_ASSERT(false); // default handler: nothing happens
    EXPECT_EQ(first, 0);
    ASSERT_TRUE(previous);
    SetAssertHandler(std::move(previous));
    PLINTH_ASSERT(false);
    EXPECT_EQ(first, 1);
}

TEST_F(AssertTest, ThrowingHandlerCountsAsContinue)
{
    int asked = 0;
    SetAssertHandler(
        [&](const AssertInfo&) -> AssertAction
        {
            ++asked;
            throw std::runtime_error("handler failed");
        });
    for (int i = 0; i < 3; ++i)
    {
        EXPECT_FALSE(PLINTH_ASSERT(!"throwing"));
    }
    EXPECT_EQ(asked, 3);
}

TEST_F(AssertTest, FailuresInsideHandlerOrSinkDoNotRecurse)
{
    int asked = 0;
    SetAssertHandler(
        [&](const AssertInfo&)
        {
            ++asked;
            PLINTH_ASSERT(!"from the handler");
            return AssertAction::kContinue;
        });
    int sinkCalls = 0;
    SetAssertLogSink(
        [&](const std::string&)
        {
            ++sinkCalls;
            PLINTH_ASSERT(!"from the sink");
        });
    SetLogAssertFailures(true);
    PLINTH_ASSERT(!"outer");
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(sinkCalls, 1);
}
