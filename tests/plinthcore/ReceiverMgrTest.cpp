#include "ReceiverMgr.h"

#include "Assert.h"
#include "FloatValue.h"
#include "Msg.h"
#include "SingleVisitReceiver.h"
#include "Value.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{
// A receiver that counts the messages it handled.
class Counter : public SingleVisitReceiver<Counter>
{
public:
    int mDelivered = 0;

protected:
    void DoReceiveMsg(Msg& /*msg*/) override { ++mDelivered; }
};

// A number that counts how many of its kind are alive.
class TrackedValue : public FloatValue
{
public:
    TrackedValue() : FloatValue(1.0) { ++sAlive; }
    ~TrackedValue() override { --sAlive; }
    static inline int sAlive = 0;
};
} // namespace

TEST(ReceiverMgrTest, CountsRegistrationsPerReceiverAndTellsWhenNoneIsLeft)
{
    ReceiverMgr book;
    Counter a;
    Counter b;
    EXPECT_TRUE(book.IsEmpty());
    book.AddReceiver(&a);
    book.AddReceiver(&a);
    book.AddReceiver(&b);
    EXPECT_EQ(book.GetCount(&a), 2);
    EXPECT_EQ(book.GetTotalCount(), 3);
    EXPECT_EQ(book.GetReceivers().size(), 2u);
    EXPECT_TRUE(book.RemoveReceiver(&a));
    EXPECT_TRUE(book.HasReceiver(&a));
    EXPECT_TRUE(book.RemoveReceiver(&a)); // b still holds
    EXPECT_FALSE(book.HasReceiver(&a));
    EXPECT_FALSE(book.RemoveReceiver(&b)); // the last one
    EXPECT_TRUE(book.IsEmpty());
}

TEST(ReceiverMgrTest, RefusesNullAndUnknownReceiversWithAssertions)
{
    ReceiverMgr book;
    Counter a;
    Counter stranger;
    book.AddReceiver(&a);
    AssertCapture capture;
    book.AddReceiver(nullptr);
    EXPECT_TRUE(book.RemoveReceiver(&stranger)); // a still holds: nothing changes
    EXPECT_EQ(capture.Texts(),
              (std::vector<std::string>{"receiver", "receiver is not registered"}));
    EXPECT_EQ(book.GetTotalCount(), 1);
}

TEST(ReceiverMgrTest, SharedValueDeletesItselfOnTheLastRelease)
{
    Counter a;
    Counter b;
    auto* value = new TrackedValue;
    ASSERT_EQ(TrackedValue::sAlive, 1);
    value->AddRef(&a);
    value->AddRef(&a);
    value->AddRef(&b);
    value->Release(&a);
    value->Release(&b);
    EXPECT_TRUE(value->HasRef(&a));
    EXPECT_FALSE(value->HasRef(&b));
    EXPECT_EQ(TrackedValue::sAlive, 1);
    {
        AssertCapture capture; // a release without a hold changes nothing
        value->Release(&b);
        EXPECT_EQ(capture.Count(), 1u);
    }
    EXPECT_EQ(TrackedValue::sAlive, 1);
    value->Release(&a);
    EXPECT_EQ(TrackedValue::sAlive, 0); // ASan reports any use after this
}

TEST(ReceiverMgrTest, ValueHoldersShareOneObjectUntilTheLastGoes)
{
    {
        Value first(new TrackedValue);
        ValueBase* shared = first.GetValueBase();
        Value second = first;
        Value third;
        third = second;
        const Value& same = third;
        third = same; // assigning a holder to itself keeps the hold
        EXPECT_EQ(third.GetValueBase(), shared);
        EXPECT_TRUE(shared->HasRef(&first));
        EXPECT_TRUE(shared->HasRef(&third));
        Value moved = std::move(second);
        EXPECT_TRUE(second.IsEmpty());
        EXPECT_FALSE(shared->HasRef(&second));
        EXPECT_TRUE(shared->HasRef(&moved));
        first.Clear();
        third.SetValueBase(new FloatValue(2.0));
        EXPECT_EQ(TrackedValue::sAlive, 1);
        moved = third; // the tracked value loses its last holder
        EXPECT_EQ(TrackedValue::sAlive, 0);
        EXPECT_EQ(moved.GetValue(), 2.0);
    }
    EXPECT_EQ(TrackedValue::sAlive, 0);
}
