#include <figrep/AbstractFigureVisitor.h>
#include <figrep/VisitCheck.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "Wiring.h"

namespace figrep::testing {
namespace {

using Base = figk::BaseConnectionNode;

SmartPtr<NetSegment> Plain(Wiring& wiring, SmartPtr<SubNet> const& net,
                           SmartPtr<ConnectionNode> const& above = nullptr) {
    return wiring.FreeWire(net, DPoint2D(0, 0), DPoint2D(1, 0), above);
}

TEST(JunctionNode, ThatLosesOneOfTwoBranchesHandsTheOtherToItsPredecessorAndLeaves) {
    Wiring wiring;
    auto const net = wiring.Net();
    auto const top = wiring.Wire(net, DPoint2D(0, 0), DPoint2D(1, 0));
    auto const junction = wiring.Junction(top);
    auto const left = Plain(wiring, net, junction);
    auto const right = Plain(wiring, net, junction);

    EXPECT_EQ(junction->Disconnect(left).Get(), top.Get());

    EXPECT_EQ(right->GetPredecessor(), top);
    EXPECT_TRUE(top->IsSuccessor(right));
    EXPECT_FALSE(left->GetPredecessor());
    EXPECT_FALSE(junction->GetPredecessor());
    EXPECT_TRUE(junction->IsLeaf());
    left->CutTree();
    top->CutTree();
}

TEST(JunctionNode, AsHeadThatLosesABranchFreesTheOtherAndAnswersNull) {
    Wiring wiring;
    auto const net = wiring.Net();
    auto const junction = wiring.Junction();
    auto const left = Plain(wiring, net, junction);
    auto const right = Plain(wiring, net, junction);

    EXPECT_FALSE(junction->Disconnect(left));

    EXPECT_TRUE(left->IsHead());
    EXPECT_TRUE(right->IsHead());
    EXPECT_TRUE(junction->IsLeaf());
}

TEST(JunctionNode, HasNoSubNetNoFigureNoPlaceAndLetsEveryWalkIn) {
    Wiring wiring;
    auto const junction = wiring.Junction();
    EXPECT_EQ(junction->ToString(), "Junction");
    EXPECT_EQ(junction->GetNodeType(), Base::NODE_JUNCTION);
    EXPECT_FALSE(junction->GetSubNet());
    EXPECT_FALSE(junction->GetNodeFigure());
    EXPECT_FALSE(junction->Contacts(DPoint2D(0, 0)));
    EXPECT_TRUE(junction->Visit(nullptr));
    EXPECT_TRUE(junction->Visit(wiring.Net()));
}

TEST(HighwayNode, WithoutPredecessorHangsBelowItsNetNodeWhenActivated) {
    Wiring wiring;
    auto const net = wiring.Net();
    auto const bus = wiring.Bus();
    auto const wire = wiring.Wire(net, DPoint2D(0, 0), DPoint2D(1, 0));
    SmartPtr<HighwayNode> const tap = new HighwayNode(wiring.Lock(), nullptr, bus, wire);

    tap->Activate(false);

    EXPECT_EQ(tap->GetPredecessor(), wire);
    EXPECT_FALSE(wire->GetPredecessor());
}

TEST(HighwayNode, OnTheHighwayTakesTheNetBelowItselfWhenActivated) {
    BusWiring wiring(1);
    auto const taps = wiring.nets[0]->GetHighwayNodes();
    wiring.figure->PrePivot(wiring.nets[0]);
    EXPECT_TRUE(taps[0]->IsConnected(wiring.entries[0]));
    EXPECT_EQ(wiring.exits[0]->GetPredecessor(), taps[1]);
}

TEST(HighwayNode, ThatIsConnectedAlreadyIsLeftAloneByActivate) {
    BusWiring wiring(1);
    auto const head = wiring.nets[0]->GetHead();
    auto const before = LinksOf(head);
    wiring.nets[0]->Activate(false);
    EXPECT_EQ(LinksOf(head), before);
}

TEST(HighwayNode, DeactivatedLeavesTheHighwayHeadedByItsOwnHead) {
    BusWiring wiring(2);
    auto const untouched = LinksOf(wiring.bus->GetHead());
    wiring.nets[0]->GetHead();
    ASSERT_FALSE(wiring.trunk[0]->IsHead());

    wiring.figure->PrePivot(nullptr);

    EXPECT_TRUE(wiring.trunk[0]->IsHead());
    EXPECT_EQ(LinksOf(wiring.trunk[0]), untouched);
}

TEST(HighwayNode, WithoutNetNodeOrSubNetTakesPartInNothing) {
    Wiring wiring;
    auto const bus = wiring.Bus();
    auto const wire = wiring.BusWire(bus, DPoint2D(0, 0), DPoint2D(1, 0));
    SmartPtr<HighwayNode> const untied = new HighwayNode(wiring.Lock(), wire);
    SmartPtr<HighwayNode> const nothing =
        new HighwayNode(wiring.Lock(), nullptr, nullptr, SmartPtr<ConnectionNode>());
    for (auto const& node : {untied, nothing}) {
        node->Activate(false);
        node->Deactivate();
        node->SetNetConnectionNode(nullptr);
        EXPECT_FALSE(node->GetSubNet());
        EXPECT_TRUE(node->IsLeaf());
    }
    EXPECT_EQ(untied->GetPredecessor(), wire);
    EXPECT_EQ(untied->GetNodeFigure(), wiring.figure);
    EXPECT_FALSE(nothing->GetNodeFigure());
}

TEST(HighwayNode, TiedToANodeOfAnotherSubNetChangesLists) {
    Wiring wiring;
    auto const first = wiring.Net();
    auto const second = wiring.Net();
    auto const bus = wiring.Bus();
    auto const on = wiring.BusWire(bus, DPoint2D(0, 0), DPoint2D(1, 0));
    auto const tap = wiring.Tap(on, wiring.Wire(first, DPoint2D(1, 0), DPoint2D(2, 0)));
    auto const other = wiring.Wire(second, DPoint2D(1, 0), DPoint2D(2, 0));

    tap->SetNetConnectionNode(other);

    EXPECT_TRUE(first->GetHighwayNodes().empty());
    ASSERT_EQ(second->GetHighwayNodes().size(), 1u);
    EXPECT_EQ(tap->GetSubNet(), second);
    EXPECT_EQ(tap->GetNetConnectionNode(), other);
}

TEST(HighwayNode, ContactsWhereItsHighwaySegmentDoes) {
    Wiring wiring;
    auto const net = wiring.Net();
    auto const bus = wiring.Bus();
    auto const on = wiring.BusWire(bus, DPoint2D(0, 0), DPoint2D(4, 0));
    auto const tap = wiring.Tap(on, wiring.Wire(net, DPoint2D(4, 0), DPoint2D(5, 0)));
    EXPECT_TRUE(tap->Contacts(DPoint2D(4, 0)));
    EXPECT_FALSE(tap->Contacts(DPoint2D(5, 0)));

    tap->Pivot(nullptr);  // now the segment is its successor
    EXPECT_TRUE(tap->Contacts(DPoint2D(0, 0)));
}

TEST(HighwayNode, CopiesWhatItStandsForButNoLinks) {
    BusWiring wiring(1);
    auto const tap = wiring.nets[0]->GetHighwayNodes()[0];
    SmartPtr<HighwayNode> const copy = new HighwayNode(*tap);
    EXPECT_EQ(copy->GetSubNet(), tap->GetSubNet());
    EXPECT_EQ(copy->GetSubHighway(), tap->GetSubHighway());
    EXPECT_EQ(copy->GetNetConnectionNode(), tap->GetNetConnectionNode());
    EXPECT_FALSE(copy->GetPredecessor());
    EXPECT_TRUE(copy->IsLeaf());
}

TEST(PrePivot, OfTheActiveSubNetDoesNothingAndOfNullDeactivates) {
    BusWiring wiring(2);
    auto const taps = wiring.nets[0]->GetHighwayNodes();
    wiring.figure->PrePivot(wiring.nets[0]);
    ASSERT_TRUE(taps[0]->IsConnected(wiring.entries[0]));
    auto const head = du::DynamicCast<ConnectionNode>(wiring.entries[0]->Base::GetHead());
    auto const before = LinksOf(head);

    wiring.figure->PrePivot(wiring.nets[0]);
    EXPECT_EQ(LinksOf(head), before);

    wiring.figure->PrePivot(nullptr);
    EXPECT_FALSE(taps[0]->IsConnected(wiring.entries[0]));
    EXPECT_FALSE(taps[1]->IsConnected(wiring.exits[0]));
}

TEST(PrePivot, WhileSuspendedLeavesTheActiveSubNet) {
    BusWiring wiring(2);
    wiring.figure->PrePivot(wiring.nets[0]);
    wiring.entries[1]->SuspendPrePivot(true);
    wiring.entries[1]->Pivot(nullptr);
    EXPECT_TRUE(wiring.nets[0]->GetHighwayNodes()[0]->IsConnected(wiring.entries[0]));
    wiring.entries[1]->SuspendPrePivot(false);
    wiring.entries[1]->Pivot(nullptr);
    EXPECT_FALSE(wiring.nets[0]->GetHighwayNodes()[0]->IsConnected(wiring.entries[0]));
}

TEST(PrePivot, OfAHighwaySegmentLeavesNoSubNetActive) {
    BusWiring wiring(1);
    wiring.figure->PrePivot(wiring.nets[0]);
    wiring.branches[0]->Pivot(nullptr);
    EXPECT_FALSE(wiring.nets[0]->GetHighwayNodes()[0]->IsConnected(wiring.entries[0]));
    EXPECT_TRUE(wiring.branches[0]->IsHead());
}

TEST(Activation, SwitchesFromNetToNetOnABusWithOnlyOneSplicedAtATime) {
    BusWiring wiring(6);
    auto const spliced = [&](std::size_t i) {
        auto const taps = wiring.nets[i]->GetHighwayNodes();
        return taps[0]->IsConnected(wiring.entries[i]) && taps[1]->IsConnected(wiring.exits[i]);
    };
    for (std::size_t const active : {3u, 0u, 5u, 5u, 1u, 4u, 2u}) {
        auto const head = wiring.nets[active]->GetHead();
        EXPECT_EQ(head, wiring.entries[active]);
        EXPECT_TRUE(head->IsHead());
        for (std::size_t i = 0; i < 6; ++i)
            EXPECT_EQ(spliced(i), i == active) << i;
        auto const nodes = NodesOf(head);
        EXPECT_TRUE(Holds(nodes, wiring.exits[active]));
        for (std::size_t i = 0; i < 6; ++i) {
            EXPECT_EQ(Holds(nodes, wiring.entries[i]), i == active);
        }
    }
}

TEST(Activation, OfAllNetsInTurnLeavesTheHighwayAsItWas) {
    BusWiring wiring(5);
    auto const before = LinksOf(wiring.bus->GetHead());
    for (auto const& net : wiring.nets)
        net->GetHead();
    EXPECT_EQ(LinksOf(wiring.bus->GetHead()), before);
}

TEST(Activation, OfTheSameNetAgainAfterOneElsewhereFindsTheHighwayTurnedTowardsIt) {
    BusWiring wiring(3);
    auto const elsewhere = wiring.Net();
    wiring.Wire(elsewhere, DPoint2D(0, 0), DPoint2D(1, 0));
    auto const head = wiring.nets[1]->GetHead();
    auto const before = LinksOf(head);
    elsewhere->GetHead();
    ASSERT_FALSE(wiring.trunk[0]->IsHead());
    EXPECT_EQ(LinksOf(wiring.nets[1]->GetHead()), before);
    elsewhere->GetHead();
    wiring.bus->GetHead();
    EXPECT_TRUE(wiring.trunk[0]->IsHead());
    EXPECT_EQ(LinksOf(wiring.nets[1]->GetHead()), before);
}

TEST(Activation, ReachesPiecesBehindASecondHighway) {
    Wiring wiring;
    auto const net = wiring.Net();
    auto const near = wiring.Bus("near");
    auto const far = wiring.Bus("far");
    auto const onNear = wiring.BusWire(near, DPoint2D(0, 0), DPoint2D(0, 1));
    auto const nearIn = wiring.BusWire(near, DPoint2D(0, 1), DPoint2D(1, 1), onNear);
    auto const nearOut = wiring.BusWire(near, DPoint2D(0, 1), DPoint2D(0, 2), onNear);
    auto const onFar = wiring.BusWire(far, DPoint2D(9, 0), DPoint2D(9, 1));
    auto const farIn = wiring.BusWire(far, DPoint2D(9, 1), DPoint2D(8, 1), onFar);
    auto const farOut = wiring.BusWire(far, DPoint2D(9, 1), DPoint2D(9, 2), onFar);
    auto const a = wiring.Wire(net, DPoint2D(1, 1), DPoint2D(1, 5));
    auto const b = wiring.FreeWire(net, DPoint2D(0, 2), DPoint2D(8, 1));
    auto const c = wiring.FreeWire(net, DPoint2D(9, 2), DPoint2D(9, 5));
    wiring.Tap(nearIn, a);
    wiring.Tap(nearOut, b);
    wiring.Tap(farIn, b);
    wiring.Tap(farOut, c);
    for (auto const& segment : {nearIn, nearOut, farIn, farOut})
        segment->Add(net);

    auto const nodes = NodesOf(net->GetHead());
    for (auto const& wire : {a, b, c})
        EXPECT_TRUE(Holds(nodes, wire));

    near->GetHead();
    EXPECT_TRUE(onNear->IsHead());
    EXPECT_TRUE(onFar->IsHead());
    EXPECT_TRUE(c->IsHead());
    EXPECT_EQ(net->GetHead(), a);
    EXPECT_TRUE(Holds(NodesOf(net->GetHead()), c));
}

TEST(MakeLeafOnSubNet, DoesNothingForALeafOrANodeWithAPredecessor) {
    Wiring wiring;
    auto const net = wiring.Net();
    auto const top = wiring.Wire(net, DPoint2D(0, 0), DPoint2D(1, 0));
    auto const middle = wiring.FreeWire(net, DPoint2D(1, 0), DPoint2D(2, 0), top);
    auto const end = wiring.FreeWire(net, DPoint2D(2, 0), DPoint2D(3, 0), middle);
    auto const before = LinksOf(top);
    end->MakeLeafOnSubNet(net);
    middle->MakeLeafOnSubNet(net);
    EXPECT_EQ(LinksOf(top), before);
    top->MakeLeafOnSubNet(wiring.Net());  // not its own sub-net
    EXPECT_EQ(LinksOf(top), before);
}

TEST(MakeLeafOnSubNet, TurnsTheTreeToTheFirstLeafOfAWalk) {
    Wiring wiring;
    auto const net = wiring.Net();
    auto const top = wiring.Wire(net, DPoint2D(0, 0), DPoint2D(1, 0));
    auto const first = wiring.FreeWire(net, DPoint2D(1, 0), DPoint2D(2, 0), top);
    top->MakeLeafOnSubNet(net);
    EXPECT_TRUE(first->IsHead());
    EXPECT_TRUE(top->IsLeaf());
}

TEST(VisitCheck, FromAHighwaySegmentAcceptsHighwaySegmentsAndJunctions) {
    BusWiring wiring(1);
    SmartPtr<VisitCheck> const check = new VisitCheck(wiring.trunk[0]);
    for (auto const& segment : wiring.trunk)
        EXPECT_TRUE(check->Visit(segment));
    for (auto const& segment : wiring.branches)
        EXPECT_TRUE(check->Visit(segment));
    EXPECT_TRUE(check->Visit(wiring.Junction()));
    EXPECT_FALSE(check->Visit(wiring.entries[0]));
}

TEST(VisitCheck, FromAWireAcceptsItsSubNetAndTheHighwaySegmentsThatCarryIt) {
    BusWiring wiring(2);
    SmartPtr<VisitCheck> const check = new VisitCheck(wiring.entries[0]);
    EXPECT_TRUE(check->Visit(wiring.exits[0]));
    EXPECT_TRUE(check->Visit(wiring.branches[0]));
    EXPECT_FALSE(check->Visit(wiring.branches[2]));
    EXPECT_FALSE(check->Visit(wiring.entries[1]));
    EXPECT_TRUE(check->Visit(wiring.nets[0]->GetHighwayNodes()[0]));
    EXPECT_FALSE(check->Visit(wiring.nets[1]->GetHighwayNodes()[0]));
}

/// Writes down what it is shown, and goes nowhere below `stopAt`.
class WalkRecorder : public AbstractFigureVisitor {
public:
    using AbstractFigureVisitor::Visit;
    bool Visit(SmartPtr<NetSegment> const& segment) override { return See(segment); }
    bool Visit(SmartPtr<HighwaySegment> const& segment) override { return See(segment); }
    bool Visit(SmartPtr<HighwayNode> const& node) override { return See(node); }
    bool Visit(SmartPtr<JunctionNode> const& node) override {
        junctions.push_back(node);
        return true;
    }
    bool Visit(SmartPtr<SubNet> const&) override {
        ++subNets;
        return enter;
    }
    void VisitComplete(SmartPtr<SubNet> const&) override { completedAfter = seen.size(); }

    NodeList seen;
    NodeList junctions;
    SmartPtr<ConnectionNode> stopAt;
    bool enter = true;
    unsigned subNets = 0;
    std::size_t completedAfter = 999;

private:
    bool See(SmartPtr<ConnectionNode> const& node) {
        seen.push_back(node);
        return !(node == stopAt);
    }
};

TEST(Accept, ShowsANodeThenItsLeftTreeThenItsRightTree) {
    Wiring wiring;
    auto const net = wiring.Net();
    auto const top = wiring.Wire(net, DPoint2D(0, 0), DPoint2D(1, 0));
    auto const left = Plain(wiring, net, top);
    auto const leftEnd = Plain(wiring, net, left);
    auto const right = Plain(wiring, net, top);
    WalkRecorder walk;
    top->Accept(walk);
    EXPECT_EQ(walk.seen, (NodeList{top, left, leftEnd, right}));
}

TEST(Accept, LeavesOutOnlyTheBranchThatTheVisitorRefuses) {
    Wiring wiring;
    auto const net = wiring.Net();
    auto const top = wiring.Wire(net, DPoint2D(0, 0), DPoint2D(1, 0));
    auto const left = Plain(wiring, net, top);
    Plain(wiring, net, left);
    auto const right = Plain(wiring, net, top);
    WalkRecorder walk;
    walk.stopAt = left;
    top->Accept(walk);
    EXPECT_EQ(walk.seen, (NodeList{top, left, right}));
}

TEST(Accept, OfASubNetEndsWithVisitCompleteAlsoWhenRefused) {
    Wiring wiring;
    auto const net = wiring.Net();
    wiring.Wire(net, DPoint2D(0, 0), DPoint2D(1, 0));
    WalkRecorder walk;
    net->Accept(walk);
    EXPECT_EQ(walk.completedAfter, 1u);
    WalkRecorder refusing;
    refusing.enter = false;
    net->Accept(refusing);
    EXPECT_TRUE(refusing.seen.empty());
    EXPECT_EQ(refusing.completedAfter, 0u);
}

TEST(Accept, OfASubNetEntersOnlyItsOwnStretchOfAHighway) {
    BusWiring wiring(20);
    WalkRecorder walk;
    wiring.nets[7]->Accept(walk);
    EXPECT_TRUE(Holds(walk.seen, wiring.entries[7]));
    EXPECT_TRUE(Holds(walk.seen, wiring.exits[7]));
    EXPECT_TRUE(Holds(walk.seen, wiring.branches[14]));
    EXPECT_EQ(walk.seen.size(), 7u);  // two wires, two taps, three segments
}

TEST(Accept, DoesNotRecurseByTheDepthOfTheTree) {
    Wiring wiring;
    auto const net = wiring.Net();
    SmartPtr<ConnectionNode> last = wiring.Wire(net, DPoint2D(0, 0), DPoint2D(1, 0));
    constexpr std::size_t DEPTH = 50'000;
    for (std::size_t i = 1; i < DEPTH; ++i)
        last = Plain(wiring, net, last);
    WalkRecorder walk;
    net->Accept(walk);
    EXPECT_EQ(walk.seen.size(), DEPTH);
    net->MoveItem(1, 0);
    EXPECT_EQ(net->GetExtents(), DBox2D(1, 0, 2, 0));
    walk.seen.clear();
    last = nullptr;
    wiring.figure = nullptr;  // takes the chain apart
}

}  // namespace
}  // namespace figrep::testing
