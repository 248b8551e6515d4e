// Walks of connection trees, and trees of great size.
#include <figk/FirstVisitCheck.h>
#include <figk/JunctionNode.h>
#include <gtest/gtest.h>
#include <platform/figk/TreeNode.h>

#include <chrono>

namespace figktest {
namespace {

/// A check that refuses one node.
class Refuse : public figk::BaseVisitCheck {
public:
    explicit Refuse(std::string name) : name_(std::move(name)) {}
    bool Visit(du::ConstSmartPtr<Base> const& node) override { return node->ToString() != name_; }

private:
    std::string name_;
};

TEST(ConnectionTreeWalk, GoesNodeThenLeftTreeThenRightTree) {
    Star star(3);
    MakeNode("x", star.leaves[0]);
    MakeNode("y", star.leaves[1]);
    EXPECT_EQ(WalkText(star.hub), "a b x c y d");
    EXPECT_EQ(WalkText(star.leaves[1]), "c y");
}

TEST(ConnectionTreeWalk, ARefusedNodeEndsItsOwnBranchOnly) {
    Star star(3);
    MakeNode("x", star.leaves[0]);
    star.hub->check = new Refuse("b");
    EXPECT_EQ(WalkText(star.hub), "a c d");
}

TEST(ConnectionTreeWalk, ARefusedStartMakesAnEmptyWalk) {
    Star star(1);
    star.hub->check = new Refuse("a");
    auto it = star.hub->Begin();
    EXPECT_TRUE(it == star.hub->End());
    EXPECT_FALSE(*it);
    EXPECT_FALSE(*++it);
}

TEST(ConnectionTreeWalk, ACheckOfFirstSightSeesEveryNodeOnce) {
    figk::FirstVisitCheck check;
    NodePtr a = MakeNode("a");
    EXPECT_TRUE(check.Visit(a));
    EXPECT_FALSE(check.Visit(a));
    EXPECT_FALSE(check.Visit(nullptr));
}

TEST(ConnectionTreeWalk, CopiesOfAWalkGoOnAlone) {
    Star star(2);
    auto it = star.hub->Begin();
    auto other = it;
    ++other;
    EXPECT_EQ((*it)->ToString(), "a");
    EXPECT_EQ((*other)->ToString(), "b");
    it = other;
    EXPECT_TRUE(it == other);
}

TEST(ConnectionTreeWalk, AHeadMayBePivotedToUnderAWalk) {
    Star star(2);
    auto it = star.hub->Begin();
    star.hub->Pivot(nullptr);
    EXPECT_EQ((*++it)->ToString(), "b");
}

#ifndef NDEBUG
TEST(ConnectionTreeWalkDeathTest, TurningATreeUnderAWalkIsAsserted) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    Star star(2);
    auto it = star.hub->Begin();
    EXPECT_DEATH(star.leaves[0]->Pivot(nullptr), "running walk");
}
#endif

TEST(ConnectionTreeWalk, ATreeMayBeTurnedOnceTheWalkHasEnded) {
    Star star(2);
    auto it = star.hub->Begin();
    while (it != star.hub->End())
        ++it;
    star.leaves[0]->Pivot(nullptr);
    EXPECT_EQ(WalkText(star.leaves[0]), "b a c");
}

// Size.

TEST(ConnectionTreeSize, AChainOfAMillionIsBuiltTurnedWalkedAndCut) {
    constexpr int LENGTH = 1000000;
    auto const live = du::RefCounted::LiveCount();
    NodePtr head = MakeNode("");
    NodePtr last = head;
    for (int i = 1; i < LENGTH; ++i)
        last = MakeNode("", last);
    EXPECT_EQ(last->GetHead(), head);
    EXPECT_EQ(head->GetFirstLeaf(), last);
    last->Pivot(nullptr);
    EXPECT_EQ(head->GetHead(), last);
    int seen = 0;
    for (auto it = last->Begin(); it != last->End(); ++it)
        ++seen;
    EXPECT_EQ(seen, LENGTH);
    last->CutTree();
    last = nullptr;
    head = nullptr;
    EXPECT_EQ(du::RefCounted::LiveCount(), live);
}

TEST(ConnectionTreeSize, ChainsTakenApartNodeByNodeDieWithoutRecursion) {
    constexpr int LENGTH = 200000;
    auto const live = du::RefCounted::LiveCount();
    NodePtr head = MakeNode("");
    BasePtr last = head;
    for (int i = 1; i < LENGTH; ++i)
        last = MakeNode("", last);
    last = nullptr;
    BasePtr node = head;
    head = nullptr;
    while (node) {
        BasePtr next = node->GetLeftSuccessor();
        node->Disconnect();
        node = next;
    }
    EXPECT_EQ(du::RefCounted::LiveCount(), live);
}

TEST(ConnectionTreeSize, AWideHubIsTakenApartLeafByLeafInLinearTime) {
    // Packing anew for every leaf would take some 5 * 10^9 steps here.
    constexpr int LEAVES = 100000;
    NodePtr hub = MakeNode("hub");
    std::vector<NodePtr> leaves;
    for (int i = 0; i < LEAVES; ++i)
        leaves.push_back(MakeNode("", hub));
    auto const start = std::chrono::steady_clock::now();
    for (NodePtr const& leaf : leaves)
        leaf->Disconnect();
    auto const took = std::chrono::steady_clock::now() - start;
    EXPECT_LT(took, std::chrono::seconds(10));
    EXPECT_TRUE(leaves.back()->IsHead());
    hub->CutTree();
}

TEST(ConnectionTreeSize, ANodeIsLean) {
    EXPECT_LE(sizeof(figk::JunctionNode), 96u);
}

}  // namespace
}  // namespace figktest
