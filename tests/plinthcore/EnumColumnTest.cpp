#include "EnumColumn.h"

#include <gtest/gtest.h>

TEST(EnumColumnTest, LiteralsPerColumnFallBackToThoseForEveryColumn)
{
    EnumColumn::UnregisterAll();
    EXPECT_TRUE(EnumColumn::RegisterEnumStringMappings(L"state", {{0, L"off"}, {1, L"on"}}, 7));
    EXPECT_TRUE(EnumColumn::RegisterEnumStringMappings(L"State", {{0, L"low"}, {1, L"high"}},
                                                       id::invalidID));
    EXPECT_FALSE(EnumColumn::RegisterEnumStringMappings(L"", {{0, L"x"}}, 7));
    AString literal;
    EXPECT_TRUE(EnumColumn::GetEnumString(L"STATE", 1, 7, literal));
    EXPECT_EQ(literal, L"on");
    EXPECT_TRUE(EnumColumn::GetEnumString(L"state", 1, 8, literal)); // other column: fallback
    EXPECT_EQ(literal, L"high");
    EXPECT_FALSE(EnumColumn::GetEnumString(L"state", 2, 7, literal));
    EXPECT_FALSE(EnumColumn::GetEnumString(L"mode", 0, 7, literal));
    int code = -1;
    EXPECT_TRUE(EnumColumn::GetEnumCode(L"state", L"ON", 7, code));
    EXPECT_EQ(code, 1);
    EXPECT_FALSE(EnumColumn::GetEnumCode(L"state", L"maybe", 7, code));
    EXPECT_EQ(code, 1);
    // Registering again replaces; unregistering uncovers the fallback.
    EnumColumn::RegisterEnumStringMappings(L"state", {{5, L"idle"}}, 7);
    EXPECT_EQ(EnumColumn::GetEnumStringMappings(L"state", 7)->size(), 1u);
    EXPECT_TRUE(EnumColumn::UnregisterEnumStringMappings(L"state", 7));
    EXPECT_FALSE(EnumColumn::UnregisterEnumStringMappings(L"state", 7));
    EXPECT_EQ(EnumColumn::GetEnumStringMappings(L"state", 7)->at(0), L"low");
    EnumColumn::UnregisterAll();
    EXPECT_EQ(EnumColumn::GetEnumStringMappings(L"state", id::invalidID), nullptr);
}
