#include "EnumSet.h"

#include "PropChange.h"
#include "PropFlag.h"

#include <gtest/gtest.h>

TEST(EnumSetTest, HoldsTheRangeOnlyAndConvertsToBits)
{
    PropFlags flags{kPropFlagReadOnly, kPropFlagSaveWithOutput};
    EXPECT_TRUE(flags.Contains(kPropFlagSaveWithOutput));
    EXPECT_FALSE(flags.Add(static_cast<PropFlag>(25)));
    EXPECT_FALSE(flags.Add(static_cast<PropFlag>(-1)));
    EXPECT_TRUE(flags.Add(static_cast<PropFlag>(24)));
    EXPECT_FALSE(flags.Contains(static_cast<PropFlag>(25)));
    EXPECT_EQ(flags.Count(), 3u);
    EXPECT_EQ(flags.ToBits(), (1u << 0) | (1u << 6) | (1u << 24));
    EXPECT_EQ(PropFlags::FromBits(flags.ToBits() | (1ull << 30)), flags); // bit 30 dropped
    flags.Set(kPropFlagReadOnly, false);
    EXPECT_EQ(flags.GetValues(),
              (std::vector<PropFlag>{kPropFlagSaveWithOutput, static_cast<PropFlag>(24)}));
    PropFlags other{kPropFlagHidden};
    EXPECT_EQ((flags | other).Count(), 3u);
    EXPECT_TRUE((flags & other).IsEmpty());
    flags.Clear();
    EXPECT_TRUE(flags.IsEmpty());
}

TEST(EnumSetTest, ChangeKindsKeepTheHostCodes)
{
    PropChange change{PropChange::kAll};
    EXPECT_TRUE(change.HasValue());
    EXPECT_FALSE(change.Has(PropChange::kValue));
    change.Remove(PropChange::kAll);
    EXPECT_FALSE(change.HasValue());
    change |= PropChange{PropChange::kValue, PropChange::kName};
    EXPECT_TRUE(change.HasAny({PropChange::kFlags, PropChange::kName}));
    EXPECT_EQ(static_cast<int>(PropChange::kValue), 16);
    EXPECT_EQ(static_cast<int>(PropChange::kAll), 22);
}
