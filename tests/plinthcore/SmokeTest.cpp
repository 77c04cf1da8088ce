#include "AString.h"
#include "Assert.h"
#include <gtest/gtest.h>
TEST(Smoke, Builds) { AString a(L"x"); EXPECT_EQ(a.CompareNoCase(L"X"), 0); AssertCapture c; PLINTH_ASSERT(!"hi"); EXPECT_EQ(c.Texts().at(0), "hi"); }
