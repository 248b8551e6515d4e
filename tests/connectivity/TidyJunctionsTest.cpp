#include <figrep/TidyJunctionsVisitor.h>
#include <gtest/gtest.h>
#include <support/Random.h>

#include <algorithm>
#include <set>

#include "Wiring.h"

namespace figrep::testing {
namespace {

class TidyJunctions : public ::testing::Test, protected Wiring {
protected:
    TidyJunctions() : net(Net()), top(Wire(net, DPoint2D(0, 0), DPoint2D(1, 0))) {}

    SmartPtr<NetSegment> Loose() { return FreeWire(net, DPoint2D(1, 0), DPoint2D(2, 0)); }
    void Tidy() {
        TidyJunctionsVisitor visitor;
        figure->Accept(visitor);
        visitor.Tidy();
    }

    SmartPtr<SubNet> net;
    SmartPtr<NetSegment> top;
};

/// Which nodes, junctions looked through, hang below which.
std::map<figk::BaseConnectionNode*, std::set<figk::BaseConnectionNode*>> Below(
    SmartPtr<ConnectionNode> const& head) {
    std::map<figk::BaseConnectionNode*, std::set<figk::BaseConnectionNode*>> below;
    for (auto const& [node, links] : LinksOf(head))
        below[node] = {links.successors.begin(), links.successors.end()};
    return below;
}

/// All junctions of a tree, whatever its visit check says.
std::vector<SmartPtr<ConnectionNode>> JunctionsOf(SmartPtr<ConnectionNode> const& head) {
    std::vector<SmartPtr<ConnectionNode>> junctions;
    std::vector<SmartPtr<ConnectionNode>> pending{head};
    while (!pending.empty()) {
        auto const node = pending.back();
        pending.pop_back();
        if (!node) continue;
        if (node->IsJunction()) junctions.push_back(node);
        pending.push_back(node->GetLeftSuccessor());
        pending.push_back(node->GetRightSuccessor());
    }
    return junctions;
}

TEST_F(TidyJunctions, WithoutADefectiveJunctionNothingChanges) {
    auto const junction = Junction(top);
    auto const left = Loose();
    auto const right = Loose();
    junction->AddSuccessor(left);
    junction->AddSuccessor(right);
    Tidy();
    EXPECT_EQ(top->GetLeftSuccessor(), junction);
    EXPECT_EQ(junction->GetLeftSuccessor(), left);
    EXPECT_EQ(junction->GetRightSuccessor(), right);
}

TEST_F(TidyJunctions, TheOneSuccessorEndsUpBelowThePredecessorAndTheJunctionIsGone) {
    auto const junction = Junction(top);
    auto const below = Loose();
    auto const end = Loose();
    below->AddSuccessor(end);
    junction->AddSuccessor(below);
    Tidy();
    EXPECT_EQ(below->GetPredecessor(), top);
    EXPECT_EQ(top->GetLeftSuccessor(), below);
    EXPECT_EQ(end->GetPredecessor(), below);
    EXPECT_FALSE(junction->GetPredecessor());
    EXPECT_FALSE(junction->GetLeftSuccessor());
    EXPECT_FALSE(junction->GetRightSuccessor());
}

TEST_F(TidyJunctions, AnEmptyJunctionGoesAndTheOneAboveItThatIsLeftWithOneBranchToo) {
    auto const above = Junction(top);
    auto const branch = Loose();
    above->AddSuccessor(branch);
    auto const empty = Junction(above);
    ASSERT_EQ(empty->GetPredecessor(), above);
    Tidy();
    EXPECT_FALSE(empty->GetPredecessor());
    EXPECT_FALSE(above->GetPredecessor());
    EXPECT_FALSE(above->GetLeftSuccessor());
    EXPECT_EQ(branch->GetPredecessor(), top);
    EXPECT_TRUE(top->IsConnected(branch));
}

TEST_F(TidyJunctions, SuccessorsOfAHeadJunctionBecomeHeadsOfTheirOwnTrees) {
    auto const junction = Junction();
    auto const right = Loose();
    junction->AddSuccessor(top);
    junction->AddSuccessor(right);
    net->SetHead(junction);
    Tidy();
    EXPECT_FALSE(top->GetPredecessor());
    EXPECT_FALSE(right->GetPredecessor());
    EXPECT_FALSE(junction->GetLeftSuccessor());
    EXPECT_FALSE(junction->GetRightSuccessor());
}

TEST_F(TidyJunctions, AHeadJunctionWithoutSuccessorsStaysAsItIs) {
    auto const junction = Junction();
    net->SetHead(junction);
    Tidy();
    EXPECT_FALSE(junction->GetPredecessor());
    EXPECT_FALSE(junction->GetLeftSuccessor());
    net->SetHead(top);
}

TEST_F(TidyJunctions, ChainsOfDefectiveJunctionsGoAtOnce) {
    SmartPtr<ConnectionNode> above = top;
    std::vector<SmartPtr<JunctionNode>> chain;
    for (int i = 0; i < 5; ++i) {
        chain.push_back(Junction());
        above->AddSuccessor(chain.back());
        above = chain.back();
    }
    auto const below = Loose();
    above->AddSuccessor(below);
    Tidy();
    EXPECT_EQ(below->GetPredecessor(), top);
    EXPECT_TRUE(JunctionsOf(top).empty());
}

TEST_F(TidyJunctions, HighwaysAreTidiedToo) {
    auto const bus = Bus();
    auto const trunk = BusWire(bus, DPoint2D(0, 0), DPoint2D(10, 0));
    auto const junction = Junction();
    trunk->AddSuccessor(junction);
    SmartPtr<HighwaySegment> const branch =
        new HighwaySegment(bus, Lock(), DPoint2D(10, 0), DPoint2D(20, 0), nullptr);
    junction->AddSuccessor(branch);
    Tidy();
    EXPECT_EQ(branch->GetPredecessor(), trunk);
}

TEST_F(TidyJunctions, NothingHappensBeforeTidyAndTheVisitorCanBeUsedAgain) {
    auto const junction = Junction(top);
    TidyJunctionsVisitor visitor;
    figure->Accept(visitor);
    EXPECT_EQ(junction->GetPredecessor(), top);
    visitor.Tidy();
    EXPECT_FALSE(junction->GetPredecessor());
    auto const next = Junction(top);
    figure->Accept(visitor);
    visitor.Tidy();
    EXPECT_FALSE(next->GetPredecessor());
    visitor.Tidy();
}

TEST_F(TidyJunctions, ACopyTidiesWhatWasFound) {
    auto const junction = Junction(top);
    TidyJunctionsVisitor visitor;
    figure->Accept(visitor);
    TidyJunctionsVisitor copy(visitor);
    TidyJunctionsVisitor assigned;
    assigned = copy;
    assigned.Tidy();
    EXPECT_FALSE(junction->GetPredecessor());
    copy.Tidy();
    visitor.Tidy();
}

TEST_F(TidyJunctions, VisitsAnswerThatTheWalkNeedNotGoOn) {
    auto const junction = Junction(top);
    TidyJunctionsVisitor visitor;
    EXPECT_FALSE(visitor.Visit(figure));
    EXPECT_FALSE(visitor.Visit(junction));
    EXPECT_TRUE(visitor.Visit(top));
}

TEST_F(TidyJunctions, NetThatBranchesVeryOftenTakesNoStack) {
    SmartPtr<ConnectionNode> above = top;
    for (int i = 0; i < 100'000; ++i) {
        auto const junction = Junction();
        above->AddSuccessor(junction);
        junction->AddSuccessor(Loose());
        above = junction;
    }
    Tidy();
    EXPECT_TRUE(JunctionsOf(top).size() < 100'000u);
}

/// A tree of wires and junctions with any number of branches below either.
class RandomTree : public Wiring {
public:
    explicit RandomTree(std::uint64_t seed) : random_(seed) {
        nodes_.push_back(Wire(net, DPoint2D(0, 0), DPoint2D(1, 0)));
        for (int i = 0; i < 60; ++i)
            Grow();
        // Whatever is plainly unlinked leaves junctions behind.
        for (int i = 0; i < 8; ++i) {
            auto const node = nodes_[1 + random_.Below(nodes_.size() - 1)];
            if (node->IsJunction()) node->Disconnect();
        }
    }
    /// What fell off is out of the figure's reach.
    ~RandomTree() {
        for (auto const& node : nodes_)
            node->CutTree();
    }
    SmartPtr<ConnectionNode> GetTop() const { return nodes_.front(); }

    SmartPtr<SubNet> net = Net();

private:
    void Grow() {
        SmartPtr<ConnectionNode> node;
        if (random_.OneIn(3)) {
            node = Junction();
        } else {
            node = FreeWire(net, DPoint2D(0, 0), DPoint2D(1, 0));
        }
        nodes_[random_.Below(nodes_.size())]->AddSuccessor(node);
        nodes_.push_back(node);
    }

    test::Random random_;
    NodeList nodes_;
};

TEST(TidyJunctionsProperty, LeavesOnlyBranchesAndEveryWireBelowTheWireItHungBelow) {
    for (std::uint64_t seed = 0; seed < 300; ++seed) {
        RandomTree tree(seed);
        auto const before = Below(tree.GetTop());
        TidyJunctionsVisitor visitor;
        tree.figure->Accept(visitor);
        visitor.Tidy();
        ASSERT_EQ(Below(tree.GetTop()), before) << seed;
        for (auto const& junction : JunctionsOf(tree.GetTop())) {
            ASSERT_TRUE(junction->GetPredecessor()) << seed;
            ASSERT_TRUE(junction->GetLeftSuccessor()) << seed;
            ASSERT_TRUE(junction->GetRightSuccessor()) << seed;
        }
    }
}

}  // namespace
}  // namespace figrep::testing
