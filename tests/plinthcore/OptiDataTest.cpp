#include "OptiData.h"

#include "Assert.h"

#include <gtest/gtest.h>

#include <limits>

TEST(OptiDataTest, AttributesRefuseBadRangesAndSteps)
{
    VariableAttributes attributes(true, 1, 10, 0.5);
    EXPECT_TRUE(attributes.IsInclude());
    EXPECT_FALSE(attributes.SetRange(5, 4));
    EXPECT_FALSE(attributes.SetRange(0, std::numeric_limits<double>::infinity()));
    EXPECT_FALSE(attributes.SetStep(-1));
    EXPECT_EQ(attributes, VariableAttributes(true, 1, 10, 0.5));
    EXPECT_TRUE(attributes.SetRange(-2, -2));
    EXPECT_EQ(attributes.GetLower(), -2);
    VariableAttributes reversed(true, 3, 1); // refused range stays empty
    EXPECT_EQ(reversed.GetUpper(), 0);
}

TEST(OptiDataTest, OneRecordPerKindOfExperiment)
{
    OptiData data;
    EXPECT_TRUE(data.IsEmpty());
    EXPECT_TRUE(data.SetAttributes(id::kStatistical, {true, 0, 1}));
    EXPECT_TRUE(data.SetAttributes(id::kParametric, {false, 0, 1}));
    EXPECT_TRUE(data.SetAttributes(id::kParametric, {true, 2, 3})); // replaces
    {
        AssertCapture capture;
        EXPECT_FALSE(data.SetAttributes(id::kNoExperiment, {}));
        EXPECT_FALSE(data.SetAttributes(static_cast<id::Experiment>(40), {}));
        EXPECT_EQ(capture.Count(), 2u);
    }
    EXPECT_EQ(data.GetExperiments(),
              (std::vector<id::Experiment>{id::kParametric, id::kStatistical}));
    EXPECT_EQ(data.GetAttributes(id::kParametric)->GetLower(), 2);
    EXPECT_EQ(data.GetAttributes(id::kTuning), nullptr);

    OptiData other;
    other.SetAttributes(id::kTuning, {true, 0, 1});
    EXPECT_TRUE(other.ChangeOptiData(data)); // takes every record, drops its own
    EXPECT_EQ(other.GetAttributes(id::kTuning), nullptr);
    EXPECT_TRUE(other == data);
    EXPECT_FALSE(other.ChangeOptiData(data));
    EXPECT_TRUE(other.RemoveAttributes(id::kParametric));
    EXPECT_FALSE(other.RemoveAttributes(id::kParametric));
}
