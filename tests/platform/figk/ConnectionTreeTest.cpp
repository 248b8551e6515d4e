// How connection trees are linked, taken apart and turned.
#include <figk/BaseConnectionNode.h>
#include <figk/JunctionNode.h>
#include <gtest/gtest.h>
#include <platform/figk/TreeNode.h>

namespace figktest {
namespace {

std::string Names(std::vector<BasePtr> const& nodes) {
    std::string text;
    for (BasePtr const& node : nodes)
        text += node->ToString();
    return text;
}

TEST(ConnectionTree, ConstructionLinksToThePredecessor) {
    NodePtr a = MakeNode("a");
    NodePtr b = MakeNode("b", a);
    Cutter cutter({a});
    EXPECT_EQ(b->GetPredecessor(), a);
    EXPECT_EQ(a->GetLeftSuccessor(), b);
    EXPECT_TRUE(a->IsHead());
    EXPECT_TRUE(b->IsLeaf());
    EXPECT_EQ(b->GetRefCount(), 2u);
}

TEST(ConnectionTree, FirstSuccessorIsLeftAndSecondIsRight) {
    Star star(2);
    EXPECT_EQ(TreeText(star.hub), "a(b,c)");
}

TEST(ConnectionTree, SurplusSuccessorsArePackedInJunctions) {
    Star three(3);
    EXPECT_EQ(TreeText(three.hub), "a(b,J(c,d))");
    Star five(5);
    EXPECT_EQ(TreeText(five.hub), "a(b,J(J(J(c,d),e),f))");
}

TEST(ConnectionTree, ANullFactoryMakesTheKernelsJunctions) {
    class Bare : public Base {
    public:
        explicit Bare(BasePtr const& predecessor) : Base(nullptr, nullptr, predecessor) {}
        ConnectionNodeType GetNodeType() const override { return NODE_DELTA_VERTEX; }
        std::string ToString() const override { return "bare"; }
    };
    BasePtr head(new Bare(nullptr));
    for (int i = 0; i < 3; ++i)
        new Bare(head);
    EXPECT_TRUE(du::DynamicCast<figk::JunctionNode>(head->GetRightSuccessor()));
    head->CutTree();
}

TEST(ConnectionTree, AddingWhatHangsHereAlreadyChangesNothing) {
    Star star(4);
    std::string const before = TreeText(star.hub);
    for (NodePtr const& leaf : star.leaves)
        star.hub->AddSuccessor(leaf);
    EXPECT_EQ(TreeText(star.hub), before);
}

TEST(ConnectionTree, AddingNullOrItselfChangesNothing) {
    NodePtr a = MakeNode("a");
    a->AddSuccessor(nullptr);
    a->AddSuccessor(a);
    EXPECT_EQ(TreeText(a), "a");
}

TEST(ConnectionTree, AddingAnAncestorChangesNothing) {
    NodePtr a = MakeNode("a");
    NodePtr b = MakeNode("b", a);
    NodePtr c = MakeNode("c", b);
    Cutter cutter({a});
    c->AddSuccessor(a);
    c->AddSuccessor(b);
    EXPECT_EQ(TreeText(a), "a(b(c))");
}

TEST(ConnectionTree, AddingTakesTheNodeOffItsFormerPlace) {
    Star star(4);
    NodePtr x = MakeNode("x", star.leaves[0]);
    x->AddSuccessor(star.leaves[2]);
    EXPECT_EQ(TreeText(star.hub), "a(b(x(d)),J(c,e))");
}

TEST(ConnectionTree, AddedTreesKeepWhatIsBelowThem) {
    Star star(3);
    NodePtr x = MakeNode("x");
    x->AddSuccessor(star.hub);
    EXPECT_EQ(TreeText(star.hub), "x(a(b,J(c,d)))");
}

TEST(ConnectionTree, PivotMakesTheReceiverHeadAndAnswersIt) {
    NodePtr a = MakeNode("a");
    NodePtr b = MakeNode("b", a);
    NodePtr c = MakeNode("c", b);
    Cutter cutter({a});
    EXPECT_EQ(c->Pivot(nullptr), c);
    EXPECT_EQ(TreeText(a), "c(b(a))");
    EXPECT_EQ(a->GetHead(), c);
}

TEST(ConnectionTree, PivotOfAHeadStillAnnouncesItself) {
    NodePtr a = MakeNode("a");
    EXPECT_EQ(a->Pivot(nullptr), a);
    EXPECT_EQ(a->pivotsAnnounced, 1);
}

TEST(ConnectionTree, PivotAnnouncesItselfBeforeAnythingChanges) {
    NodePtr a = MakeNode("a");
    NodePtr b = MakeNode("b", a);
    Cutter cutter({a});
    std::string seen;
    b->onPrePivot = [&] { seen = TreeText(b); };
    b->Pivot(nullptr);
    EXPECT_EQ(seen, "a(b)");
    EXPECT_EQ(TreeText(b), "b(a)");
}

TEST(ConnectionTree, PivotWithAnArgumentIsTheSame) {
    NodePtr a = MakeNode("a");
    NodePtr b = MakeNode("b", a);
    Cutter cutter({a});
    EXPECT_EQ(b->Pivot(a), b);
    EXPECT_EQ(TreeText(a), "b(a)");
}

TEST(ConnectionTree, SuccessorsFollowThePredecessorRoundTheRing) {
    Star star(4);
    star.leaves[2]->Pivot(nullptr);
    EXPECT_EQ(TreeText(star.hub), "d(a(e,J(b,c)))");
}

TEST(ConnectionTree, AHeadStartsAtTheNeighbourLinkedFirst) {
    NodePtr p = MakeNode("p");
    NodePtr a = MakeNode("a", p);
    NodePtr b = MakeNode("b", a);
    MakeNode("c", a);
    Cutter cutter({p});
    a->Pivot(nullptr);
    EXPECT_EQ(TreeText(a), "a(p,J(b,c))");
    b->Pivot(nullptr);
    EXPECT_EQ(TreeText(a), "b(a(c,p))");
}

TEST(ConnectionTree, WhatIsAddedAfterAPivotStandsLastInTheRing) {
    Star star(3);
    star.leaves[1]->Pivot(nullptr);
    NodePtr x = MakeNode("x", star.hub);
    EXPECT_EQ(TreeText(star.hub), "c(a(d,J(x,b)))");
    star.hub->Pivot(nullptr);
    EXPECT_EQ(TreeText(star.hub), "a(b,J(J(c,d),x))");
}

TEST(ConnectionTree, PivotingThereAndBackRestoresEveryLink) {
    Star star(6);
    NodePtr deep = MakeNode("x", star.leaves[3]);
    MakeNode("y", star.leaves[3]);
    MakeNode("z", star.leaves[3]);
    std::string const before = TreeText(star.hub);
    deep->Pivot(nullptr);
    EXPECT_NE(TreeText(star.hub), before);
    star.hub->Pivot(nullptr);
    EXPECT_EQ(TreeText(star.hub), before);
}

TEST(ConnectionTree, SuccessorsAndConnectionsAreSeenThroughJunctions) {
    Star star(4);
    NodePtr below = MakeNode("x", star.leaves[2]);
    EXPECT_TRUE(star.hub->IsSuccessor(star.leaves[2]));
    EXPECT_FALSE(star.leaves[2]->IsSuccessor(star.hub));
    EXPECT_TRUE(star.leaves[2]->IsConnected(star.hub));
    EXPECT_FALSE(star.hub->IsConnected(below));
    EXPECT_FALSE(star.leaves[1]->IsConnected(star.leaves[2]));
    EXPECT_FALSE(star.hub->IsConnected(nullptr));
}

TEST(ConnectionTree, NeighboursAreListedThroughJunctions) {
    Star star(4);
    std::vector<BasePtr> successors;
    star.hub->GetNonJunctionSuccessors(successors);
    EXPECT_EQ(Names(successors), "bcde");
    EXPECT_EQ(star.leaves[3]->GetNonJunctionPredecessor(), star.hub);
    EXPECT_FALSE(star.hub->GetNonJunctionPredecessor());
    EXPECT_EQ(star.hub->GetFirstLeaf(), star.leaves[0]);
    EXPECT_EQ(star.leaves[0]->GetFirstLeaf(), star.leaves[0]);
}

TEST(ConnectionTree, DisconnectKeepsTheOrderOfTheOthers) {
    Star star(5);
    EXPECT_EQ(star.hub->Disconnect(star.leaves[1]), star.hub);
    EXPECT_EQ(TreeText(star.hub), "a(b,J(J(d,e),f))");
    EXPECT_EQ(TreeText(star.leaves[1]), "c");
}

TEST(ConnectionTree, DisconnectFromBelowTakesTheReceiverOff) {
    Star star(3);
    EXPECT_EQ(star.leaves[2]->Disconnect(star.hub), star.leaves[2]);
    EXPECT_EQ(TreeText(star.hub), "a(b,c)");
    EXPECT_TRUE(star.leaves[2]->IsHead());
}

TEST(ConnectionTree, DisconnectOfAStrangerChangesNothing) {
    Star star(3);
    NodePtr stranger = MakeNode("x");
    EXPECT_EQ(star.hub->Disconnect(stranger), star.hub);
    EXPECT_EQ(star.hub->Disconnect(nullptr), star.hub);
    EXPECT_EQ(star.leaves[0]->Disconnect(star.leaves[1]), star.leaves[0]);
    EXPECT_EQ(TreeText(star.hub), "a(b,J(c,d))");
}

TEST(ConnectionTree, TheFirstLinkedMayLeave) {
    NodePtr p = MakeNode("p");
    NodePtr a = MakeNode("a", p);
    NodePtr b = MakeNode("b", a);
    NodePtr c = MakeNode("c", a);
    NodePtr d = MakeNode("d", a);
    Cutter cutter({p, a});
    c->Pivot(nullptr);
    EXPECT_EQ(TreeText(a), "c(a(d,J(p,b)))");
    a->Disconnect(p);
    EXPECT_EQ(TreeText(a), "c(a(d,b))");
    a->Pivot(nullptr);
    EXPECT_EQ(TreeText(a), "a(b,J(c,d))");
}

TEST(ConnectionTree, ANodeTakenOffStartsAtItsFirstLinkedNeighbour) {
    Star star(4);
    star.leaves[2]->Pivot(nullptr);
    EXPECT_EQ(TreeText(star.hub), "d(a(e,J(b,c)))");
    star.leaves[2]->Disconnect(star.hub);
    EXPECT_EQ(TreeText(star.hub), "a(b,J(c,e))");
}

TEST(ConnectionTree, PlainDisconnectLeavesJunctionsBehind) {
    Star star(4);
    star.hub->Disconnect();
    EXPECT_TRUE(star.hub->IsLeaf());
    EXPECT_TRUE(star.leaves[0]->IsHead());
    EXPECT_EQ(TreeText(star.leaves[1]), "J(J(c,d),e)");
    star.leaves[3]->Disconnect();
    EXPECT_EQ(TreeText(star.leaves[1]), "J(J(c,d))");
    star.leaves[1]->CutTree();
}

TEST(ConnectionTree, PlainDisconnectOfAPackedNodeCollapsesNothing) {
    Star star(3);
    star.leaves[2]->Disconnect();
    EXPECT_EQ(TreeText(star.hub), "a(b,J(c))");
    EXPECT_TRUE(star.leaves[2]->IsHead());
}

TEST(ConnectionTree, CuttingFreesEveryNode) {
    auto const before = du::RefCounted::LiveCount();
    {
        Star star(9);
        MakeNode("x", star.leaves[4]);
        star.leaves[4]->Pivot(nullptr);
    }
    EXPECT_EQ(du::RefCounted::LiveCount(), before);
}

TEST(ConnectionTree, CopiesStandInNoTree) {
    Star star(2);
    NodePtr copy(new TreeNode(*star.hub));
    EXPECT_TRUE(copy->IsHead());
    EXPECT_TRUE(copy->IsLeaf());
    *copy = *star.hub;
    EXPECT_TRUE(copy->IsLeaf());
    EXPECT_EQ(TreeText(star.hub), "a(b,c)");
}

// Junctions as receivers.

struct JunctionTree {
    JunctionTree() {
        head = MakeNode("a");
        junction = TreeJunction::Create(head, nullptr);
        b = MakeNode("b", junction);
        c = MakeNode("c", junction);
    }
    ~JunctionTree() {
        for (BasePtr const& node : {BasePtr(head), junction, BasePtr(b), BasePtr(c)}) {
            node->CutTree();
        }
    }

    NodePtr head;
    BasePtr junction;
    NodePtr b;
    NodePtr c;
};

TEST(JunctionDisconnect, AJunctionThatLosesABranchHandsTheOtherToItsPredecessor) {
    JunctionTree tree;
    EXPECT_EQ(tree.junction->Disconnect(tree.b), tree.head);
    EXPECT_EQ(TreeText(tree.head), "a(c)");
    EXPECT_EQ(TreeText(tree.junction), "J");
    EXPECT_EQ(TreeText(tree.b), "b");
}

TEST(JunctionDisconnect, AHeadJunctionThatLosesABranchFreesTheOther) {
    JunctionTree tree;
    tree.junction->Disconnect(tree.head);
    EXPECT_EQ(TreeText(tree.b), "J(b,c)");
    EXPECT_FALSE(tree.junction->Disconnect(tree.b));
    EXPECT_TRUE(tree.c->IsHead());
    EXPECT_TRUE(tree.junction->IsLeaf());
}

TEST(JunctionDisconnect, AnEmptyJunctionTakesThoseAboveItWithIt) {
    NodePtr a = MakeNode("a");
    BasePtr upper = TreeJunction::Create(a, nullptr);
    NodePtr b = MakeNode("b", upper);
    BasePtr lower = TreeJunction::Create(upper, nullptr);
    NodePtr c = MakeNode("c", lower);
    Cutter cutter({a, b, c});
    EXPECT_EQ(TreeText(a), "a(J(b,J(c)))");
    EXPECT_EQ(lower->Disconnect(c), a);
    EXPECT_EQ(TreeText(a), "a(b)");
}

TEST(JunctionDisconnect, APackingJunctionAnswersTheNodeThatItPackedFor) {
    Star star(4);
    BasePtr const inner = star.hub->GetRightSuccessor()->GetLeftSuccessor();
    EXPECT_EQ(inner->Disconnect(star.leaves[1]), star.hub);
    EXPECT_EQ(TreeText(star.hub), "a(b,J(d,e))");
}

TEST(JunctionDisconnect, AJunctionDoesNotLookThroughOthers) {
    NodePtr a = MakeNode("a");
    BasePtr upper = TreeJunction::Create(a, nullptr);
    MakeNode("b", upper);
    BasePtr lower = TreeJunction::Create(upper, nullptr);
    NodePtr c = MakeNode("c", lower);
    MakeNode("d", lower);
    Cutter cutter({a});
    EXPECT_EQ(upper->Disconnect(c), upper);
    EXPECT_EQ(TreeText(a), "a(J(b,J(c,d)))");
}

TEST(JunctionDisconnect, RemovingOneBranchFromAboveCollapsesTheJunction) {
    JunctionTree tree;
    EXPECT_EQ(tree.head->Disconnect(tree.c), tree.head);
    EXPECT_EQ(TreeText(tree.head), "a(b)");
}

TEST(JunctionDisconnect, AJunctionWithOneBranchCanBeTidiedFromOutside) {
    NodePtr a = MakeNode("a");
    MakeNode("x", a);
    BasePtr junction = TreeJunction::Create(a, nullptr);
    NodePtr b = MakeNode("b", junction);
    Cutter cutter({a});
    BasePtr const upper = a->Disconnect(junction);
    EXPECT_EQ(upper, a);
    upper->AddSuccessor(b);
    EXPECT_EQ(TreeText(a), "a(x,b)");
    EXPECT_TRUE(junction->IsLeaf() && junction->IsHead());
}

TEST(JunctionDisconnect, APackingJunctionCanBeTakenOffWithWhatItHolds) {
    Star star(4);
    BasePtr const packing = star.hub->GetRightSuccessor();
    star.hub->Disconnect(packing);
    EXPECT_EQ(TreeText(star.hub), "a(b)");
    EXPECT_EQ(TreeText(packing), "J(J(c,d),e)");
    packing->CutTree();
}

TEST(PackingJunction, PivotedToItBecomesANodeOfItsOwn) {
    Star star(4);
    BasePtr const packing = star.hub->GetRightSuccessor();
    EXPECT_EQ(packing->Pivot(nullptr), packing);
    EXPECT_EQ(TreeText(star.hub), "J(a(b),J(J(c,d),e))");
}

TEST(PackingJunction, WhatIsAddedToItGoesToTheNodeThatItPacksFor) {
    Star star(3);
    star.hub->GetRightSuccessor()->AddSuccessor(MakeNode("x"));
    EXPECT_EQ(TreeText(star.hub), "a(b,J(J(c,d),x))");
    MakeNode("y", star.hub->GetRightSuccessor());
    EXPECT_EQ(TreeText(star.hub), "a(b,J(J(J(c,d),x),y))");
}

// Meeting points.

TEST(MeetingPoint, TheSecondSuccessorOfAHighwaySegmentMakesAJunctionInPlaceOfTheFirst) {
    NodePtr h = MakeHighway("h");
    Cutter cutter({h});
    MakeNode("a", h);
    EXPECT_EQ(TreeText(h), "h(a)");
    MakeNode("b", h);
    EXPECT_EQ(TreeText(h), "h(J(a,b))");
    MakeNode("c", h);
    EXPECT_EQ(TreeText(h), "h(J(a,J(b,c)))");
}

TEST(MeetingPoint, PivotsTurnItLikeAnyOtherNode) {
    NodePtr h = MakeHighway("h");
    NodePtr a = MakeHighway("a", h);
    NodePtr b = MakeHighway("b", h);
    MakeHighway("c", h);
    Cutter cutter({h});
    std::string const before = TreeText(h);
    BasePtr const junction = h->GetLeftSuccessor();
    b->Pivot(nullptr);
    EXPECT_EQ(TreeText(h), "b(J(c,J(h,a)))");
    EXPECT_EQ(b->GetLeftSuccessor(), junction);
    a->Pivot(nullptr);
    EXPECT_EQ(TreeText(h), "a(J(b,J(c,h)))");
    h->Pivot(nullptr);
    EXPECT_EQ(TreeText(h), before);
}

TEST(MeetingPoint, AddingWhatMeetsThereAlreadyChangesNothing) {
    NodePtr h = MakeHighway("h");
    NodePtr a = MakeNode("a", h);
    MakeNode("b", h);
    Cutter cutter({h});
    h->AddSuccessor(a);
    EXPECT_EQ(TreeText(h), "h(J(a,b))");
}

TEST(MeetingPoint, CollapsesWithTheSecondBranchAndComesBackWithTheNext) {
    NodePtr h = MakeHighway("h");
    NodePtr a = MakeNode("a", h);
    NodePtr b = MakeNode("b", h);
    Cutter cutter({h, b});
    h->Disconnect(b);
    EXPECT_EQ(TreeText(h), "h(a)");
    h->AddSuccessor(b);
    EXPECT_EQ(TreeText(h), "h(J(a,b))");
}

TEST(MeetingPoint, ABranchSplicedInForAWhileLeavesNoTrace) {
    NodePtr h = MakeHighway("h");
    NodePtr next = MakeHighway("i", h);
    NodePtr tap = MakeNode("t", h);
    NodePtr net = MakeNode("n");
    NodePtr far = MakeNode("f", net);
    Cutter cutter({h, net});
    std::string const highway = TreeText(h);
    net->Pivot(nullptr);
    tap->AddSuccessor(net);
    far->Pivot(nullptr);
    EXPECT_EQ(TreeText(h), "f(n(t(J(h,i))))");
    tap->Disconnect(net);
    h->Pivot(nullptr);
    EXPECT_EQ(TreeText(h), highway);
    net->Pivot(nullptr);
    EXPECT_EQ(TreeText(net), "n(f)");
}

}  // namespace
}  // namespace figktest
