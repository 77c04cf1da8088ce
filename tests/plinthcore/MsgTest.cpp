#include "Msg.h"

#include "FloatValue.h"
#include "IVisitor.h"
#include "SingleVisitReceiver.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
// A node of a receiver network: it records the messages delivered to it and leads on to its
// targets.
class Node : public SingleVisitReceiver<Node>
{
public:
    explicit Node(std::string name, std::vector<std::string>* log = nullptr)
        : mName(std::move(name)), mLog(log)
    {
    }
    void GetMsgTargets(std::vector<IReceiver*>& targets) const override
    {
        targets.insert(targets.end(), mTargets.begin(), mTargets.end());
    }

    std::string mName;
    std::vector<std::string>* mLog;
    std::vector<IReceiver*> mTargets;
    int mDelivered = 0;

protected:
    void DoReceiveMsg(Msg& /*msg*/) override
    {
        ++mDelivered;
        if (mLog != nullptr)
        {
            mLog->push_back(mName);
        }
    }
};

// A message for the receivers whose name begins with a given letter.
class InitialMsg : public Msg
{
public:
    explicit InitialMsg(char initial) : Msg(42), mInitial(initial) {}
    bool ShouldDeliver(const IReceiver& receiver) const override
    {
        const auto* node = dynamic_cast<const Node*>(&receiver);
        return node != nullptr && node->mName.front() == mInitial;
    }

private:
    char mInitial;
};

class NodeNamer : public IVisitor<Node>
{
public:
    void Visit(Node& node) override { mNames.push_back(node.mName); }
    std::vector<std::string> mNames;
};
} // namespace

TEST(MsgTest, EachReceiverHandlesAMessageOnceWhateverThePaths)
{
    // a -> b, a -> c, b -> d, c -> d, d -> a (a cycle, and two paths to d)
    std::vector<std::string> log;
    Node a("a", &log), b("b", &log), c("c", &log), d("d", &log);
    a.mTargets = {&b, &c};
    b.mTargets = {&d};
    c.mTargets = {&d};
    d.mTargets = {&a};
    Msg msg(7);
    msg.Send(&a);
    EXPECT_EQ(log, (std::vector<std::string>{"a", "b", "c", "d"}));
    EXPECT_EQ(msg.GetVisitedCount(), 4u);
    EXPECT_TRUE(msg.HasVisited(&d));
    msg.Send(&b); // seen already: nothing more
    EXPECT_EQ(b.mDelivered, 1);
    Msg again(7); // a new message reaches everyone again
    again.Send(&c);
    EXPECT_EQ(a.mDelivered, 2);
    EXPECT_EQ(d.mDelivered, 2);
    msg.Send(nullptr); // ignored
}

TEST(MsgTest, DeliveryTestChoosesWhoActsButForwardingReachesAll)
{
    Node alpha("alpha"), beta("beta"), also("also");
    alpha.mTargets = {&beta};
    beta.mTargets = {&also};
    InitialMsg msg('a');
    msg.Send(&alpha);
    EXPECT_EQ(alpha.mDelivered, 1);
    EXPECT_EQ(beta.mDelivered, 0);
    EXPECT_EQ(also.mDelivered, 1); // reached through beta
}

TEST(MsgTest, VisitorGoesOnlyToItsClassAndOnlyOnValuesVisitorMessages)
{
    Node a("a"), b("b");
    a.mTargets = {&b};
    NodeNamer namer;
    Msg visiting(Msg::kVisitValuesType);
    visiting.SetVisitor(&namer);
    EXPECT_EQ(visiting.GetVisitor<Node>(), &namer);
    EXPECT_EQ(visiting.GetVisitor<FloatValue>(), nullptr);
    visiting.Send(&a);
    EXPECT_EQ(namer.mNames, (std::vector<std::string>{"a", "b"}));

    Msg other(41); // carries the visitor but is another type: no visit
    other.SetVisitor(&namer);
    other.Send(&a);
    EXPECT_EQ(namer.mNames.size(), 2u);
    EXPECT_EQ(a.mDelivered, 2);
}

TEST(MsgTest, LongChainsAreForwardedWithoutDeepRecursion)
{
    std::vector<Node> chain;
    chain.reserve(200000);
    for (int i = 0; i < 200000; ++i)
    {
        chain.emplace_back("n");
    }
    for (std::size_t i = 0; i + 1 < chain.size(); ++i)
    {
        chain[i].mTargets = {&chain[i + 1]};
    }
    Msg msg(1);
    msg.Send(&chain.front());
    EXPECT_EQ(chain.back().mDelivered, 1);
    EXPECT_EQ(msg.GetVisitedCount(), chain.size());
}
