// The trees of nets that the kernel's builder makes of small drawings.
#include <gtest/gtest.h>

#include <cmath>

#include <figk/ConnectorInstance.h>
#include <figk/Net.h>
#include <figk/NetSegment.h>
#include <figk/SubNet.h>
#include <support/Drawing.h>
#include <support/KernelDump.h>
#include <support/KernelGuarantees.h>

namespace figrep::test {
namespace {

/// Builds a drawing of one sheet, tests all guarantees and answers the trees of net "A".
std::string TreesOfA(Drawing& drawing) {
    auto const design = drawing.BuildDesign();
    EXPECT_EQ(JoinLines(FindBrokenTrees(*design)), "");
    EXPECT_EQ(JoinLines(FindFalseConnections(drawing.Source(), *design)), "");
    return DumpNet(*design->GetSheets().front(), "A");
}

TEST(NetTree, AWireBetweenTwoPinsIsOneSegmentWithBothConnectors) {
    Drawing drawing;
    drawing.Pin("A", "U1", "1", 0, 0).Pin("A", "U2", "3", 10, 0).Wire("A", 0, 0, 10, 0);
    EXPECT_EQ(TreesOfA(drawing), "wire(0,0 10,0)[pin U1:1 pin U2:3]");
}

TEST(NetTree, TheHeadIsASegmentWithAFreeEnd) {
    Drawing drawing;
    drawing.NetPort("P", "A", 0, 0).Wire("A", 0, 0, 10, 0).Wire("A", 10, 0, 10, 5);
    EXPECT_EQ(TreesOfA(drawing), "wire(10,5 10,0)[wire(10,0 0,0)[port P]]");
}

TEST(NetTree, APortIsHeadWhereNoWireHasAFreeEnd) {
    Drawing drawing;
    drawing.NetPort("P", "A", 0, 0).NetPort("Q", "A", 10, 0).Wire("A", 0, 0, 10, 0);
    EXPECT_EQ(TreesOfA(drawing), "port P[wire(0,0 10,0)[port Q]]");
}

TEST(NetTree, AStubIsHeadWhereNeitherExists) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 10, 0).Wire("A", 10, 0, 10, 10).Wire("A", 10, 10, 0, 0);
    EXPECT_EQ(TreesOfA(drawing), "wire(0,0)[wire(0,0 10,0)[wire(10,0 10,10)] wire(0,0 10,10)]");
}

TEST(NetTree, WiresAreSplitWhereOthersTouch) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 10, 0).Wire("A", 4, 0, 4, 6);
    EXPECT_EQ(TreesOfA(drawing), "wire(0,0 4,0)[wire(4,0 10,0) wire(4,0 4,6)]");
}

TEST(NetTree, CrossingWiresOfOneNetStayApartWithoutAJoin) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 10, 0).Wire("A", 5, -5, 5, 5);
    EXPECT_EQ(TreesOfA(drawing), "wire(0,0 10,0)\nwire(5,-5 5,5)");
    drawing.Join("A", 5, 0);
    EXPECT_EQ(TreesOfA(drawing), "wire(0,0 5,0)[wire(5,0 10,0) wire(5,0 5,-5) wire(5,0 5,5)]");
}

TEST(NetTree, ASlantedWireIsSplitToo) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 10, 10).Wire("A", 3, 3, 9, 3);
    EXPECT_EQ(TreesOfA(drawing), "wire(0,0 3,3)[wire(3,3 10,10) wire(3,3 9,3)]");
}

TEST(NetTree, AClosingSegmentOfALoopIsOneMoreEnd) {
    Drawing drawing;
    drawing.Wire("A", -5, 0, 0, 0).Wire("A", 0, 0, 10, 0).Wire("A", 0, 0, 10, 5);
    drawing.Wire("A", 10, 0, 10, 5);
    EXPECT_EQ(TreesOfA(drawing), "wire(-5,0 0,0)[wire(0,0 10,0)[wire(10,0 10,5)] wire(0,0 10,5)]");
}

TEST(NetTree, APinInTheMiddleOfABranchGetsASegmentWithoutLength) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 10, 0).Pin("A", "U1", "1", 4, 0);
    EXPECT_EQ(TreesOfA(drawing), "wire(0,0 4,0)[wire(4,0)[pin U1:1] wire(4,0 10,0)]");
}

TEST(NetTree, EachOfSeveralPinsAtOnePointGetsASegmentWithoutLength) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 10, 0).Pin("A", "U1", "1", 10, 0).Pin("A", "U2", "2", 10, 0);
    EXPECT_EQ(TreesOfA(drawing), "wire(0,0 10,0)[wire(10,0)[pin U1:1] wire(10,0)[pin U2:2]]");
}

TEST(NetTree, PinsThatTouchWithoutAWireAreJoinedByStubs) {
    Drawing drawing;
    drawing.Pin("A", "U1", "1", 3, 0).Pin("A", "U2", "2", 3, 0);
    EXPECT_EQ(TreesOfA(drawing), "wire(3,0)[pin U1:1 wire(3,0)[pin U2:2]]");
}

TEST(NetTree, ALonePinMakesNoSubNetButIsKnownToItsNet) {
    Drawing drawing;
    drawing.Pin("A", "U1", "1", 3, 0);
    auto const design = drawing.BuildDesign();
    EXPECT_TRUE(design->GetSheets().front()->GetSubNets().empty());
    ASSERT_EQ(design->GetNets().size(), 1u);
    EXPECT_EQ(design->GetNets().front()->GetConnectorInstances().size(), 1u);
}

TEST(NetTree, WiresThatMeetOnlyAtAPinAreJoinedThroughTheWires) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 5, 0).Wire("A", 5, 0, 5, 5).Pin("A", "U1", "1", 5, 0);
    EXPECT_EQ(TreesOfA(drawing), "wire(0,0 5,0)[wire(5,0)[pin U1:1] wire(5,0 5,5)]");
}

TEST(NetTree, APinWithoutANetConnectsNowhere) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 5, 0).Pin("", "U1", "1", 5, 0);
    EXPECT_EQ(TreesOfA(drawing), "wire(0,0 5,0)");
}

TEST(NetTree, APortAtAPinIsHeadOfIt) {
    Drawing drawing;
    drawing.NetPort("P", "A", 5, 0).Pin("A", "U1", "1", 5, 0);
    EXPECT_EQ(TreesOfA(drawing), "port P[pin U1:1]");
}

TEST(NetTree, AnotherPortAtAHeadPortIsALeaf) {
    Drawing drawing;
    drawing.NetPort("P", "A", 5, 0).NetPort("Q", "A", 5, 0);
    EXPECT_EQ(TreesOfA(drawing), "port P[port Q]");
}

TEST(NetTree, PiecesJoinedByNameAloneAreSubNetsOfOneNet) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 5, 0).Wire("A", 0, 9, 5, 9);
    auto const design = drawing.BuildDesign();
    auto const subNets = design->GetSheets().front()->GetSubNets();
    ASSERT_EQ(subNets.size(), 2u);
    EXPECT_EQ(subNets[0]->GetNet(), subNets[1]->GetNet());
    EXPECT_EQ(design->GetNets().front()->GetSubNets().size(), 2u);
}

TEST(NetTree, OverlappingWiresAreDrawnOnce) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 6, 0).Wire("A", 4, 0, 10, 0);
    EXPECT_EQ(TreesOfA(drawing), "wire(0,0 4,0)[wire(4,0 6,0)[wire(6,0 10,0)]]");
}

TEST(NetTree, WiresOfOtherNetsDoNotTouch) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 10, 0).Wire("B", 5, 0, 5, 5).Pin("B", "U1", "1", 10, 0);
    EXPECT_EQ(TreesOfA(drawing), "wire(0,0 10,0)");
}

TEST(NetTree, PointsThatDifferByRoundingAloneAreOne) {
    Drawing drawing;
    drawing.Wire("A", 0.1 + 0.2, 0, 10, 0).Wire("A", 0.3, 0, 0.3, 5);
    EXPECT_EQ(TreesOfA(drawing), "wire(10,0 0.3,0)[wire(0.3,0 0.3,5)]");
}

/// Where the flow of the only sub-net starts: the first end of its start segment.
dg::DPoint2D StartOf(Drawing const& drawing) {
    auto const design = drawing.BuildDesign();
    auto const segment = design->GetSheets().front()->GetSubNets().front()->GetStartSegment();
    dg::DPoint2D first(-1, -1);
    dg::DPoint2D last;
    if (segment) segment->GetEnds(first, last);
    return first;
}

bool HasDirection(Drawing const& drawing) {
    auto const design = drawing.BuildDesign();
    return static_cast<bool>(design->GetSheets().front()->GetSubNets().front()->GetStartSegment());
}

TEST(NetTree, BeginsAtThePinWhereFlowStarts) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 10, 0).Pin("A", "U1", "1", 0, 0).Pin("A", "U2", "1", 10, 0);
    EXPECT_EQ(TreesOfA(drawing), "wire(0,0 10,0)[pin U1:1 pin U2:1]");
    EXPECT_FALSE(HasDirection(drawing));
    drawing.Start("A", 10, 0);
    EXPECT_EQ(TreesOfA(drawing), "wire(10,0 0,0)[pin U2:1 pin U1:1]");
    EXPECT_EQ(StartOf(drawing), dg::DPoint2D(10, 0));
}

TEST(NetTree, BeginsAtThePortWhereFlowStarts) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 10, 0).Pin("A", "U1", "1", 0, 0).NetPort("P", "A", 10, 0);
    drawing.Start("A", 10, 0);
    EXPECT_EQ(TreesOfA(drawing), "port P[wire(10,0 0,0)[pin U1:1]]");
    EXPECT_EQ(StartOf(drawing), dg::DPoint2D(10, 0));
}

TEST(NetTree, FlowThatStartsInTheMiddleRunsBothWays) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 10, 0).Pin("A", "U1", "1", 4, 0).Start("A", 4, 0);
    EXPECT_EQ(TreesOfA(drawing), "wire(4,0)[pin U1:1 wire(4,0 0,0) wire(4,0 10,0)]");
    EXPECT_EQ(StartOf(drawing), dg::DPoint2D(4, 0));
}

TEST(NetTree, FlowStartsBehindAHighwayToo) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 0, 5).Tap("A", "H", 5, 5, 0, 5).Bus("H", 5, 5, 15, 5);
    drawing.Tap("A", "H", 15, 5, 20, 5).Wire("A", 20, 5, 20, 0).Pin("A", "U1", "1", 20, 0);
    drawing.Start("A", 20, 0);
    EXPECT_EQ(TreesOfA(drawing).substr(0, 31), "wire(20,0 20,5)[pin U1:1 wire(2");
    EXPECT_EQ(StartOf(drawing), dg::DPoint2D(20, 0));
}

TEST(NetTree, SeveralStartsGiveNoDirection) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 10, 0).Pin("A", "U1", "1", 0, 0).Pin("A", "U2", "1", 10, 0);
    std::string const plain = TreesOfA(drawing);
    drawing.Start("A", 10, 0).Start("A", 0, 0).Start("A", 10, 0);
    EXPECT_EQ(TreesOfA(drawing), plain);
    EXPECT_FALSE(HasDirection(drawing));
}

TEST(NetTree, OneStartNamedTwiceIsOne) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 10, 0).Pin("A", "U1", "1", 10, 0);
    drawing.Start("A", 10, 0).Start("A", 10, 0);
    EXPECT_EQ(StartOf(drawing), dg::DPoint2D(10, 0));
}

TEST(NetTree, StartsBesideTheNetOrOfOthersCountForNothing) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 10, 0).Start("A", 5, 0).Start("A", 10, 1).Start("B", 10, 0);
    EXPECT_EQ(TreesOfA(drawing), "wire(0,0 10,0)");
    EXPECT_FALSE(HasDirection(drawing));
}

TEST(NetTree, PiecesJoinedByNameAloneHaveDirectionsOfTheirOwn) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 5, 0).Wire("A", 0, 9, 5, 9).Start("A", 5, 0).Start("A", 5, 9);
    EXPECT_EQ(TreesOfA(drawing), "wire(5,0 0,0)\nwire(5,9 0,9)");
    EXPECT_EQ(StartOf(drawing), dg::DPoint2D(5, 0));
}

TEST(NetTree, AStartWithoutAPlaceIsReported) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 5, 0).Start("A", std::nan(""), 0);
    auto const built = drawing.Build();
    ASSERT_EQ(built.findings.size(), 1u);
    EXPECT_EQ(built.findings.front().kind, figkernel::BuildFinding::BAD_POINT);
}

TEST(NetTree, AChainOfAHundredThousandWiresIsBuiltAndDroppedWithoutDepth) {
    Drawing drawing;
    for (int i = 0; i < 100000; ++i)
        drawing.Wire("A", i, i % 2, i + 1, (i + 1) % 2);
    auto const design = drawing.BuildDesign();
    auto const subNets = design->GetSheets().front()->GetSubNets();
    ASSERT_EQ(subNets.size(), 1u);
    std::size_t count = 0;
    for (auto at = subNets[0]->GetHead()->Begin(); !(at == subNets[0]->GetHead()->End()); ++at) {
        ++count;
    }
    EXPECT_EQ(count, 100000u);
}

}  // namespace
}  // namespace figrep::test
