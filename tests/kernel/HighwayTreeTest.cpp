// Highways, and nets that run along them, as the kernel's builder makes them of small drawings.
#include <gtest/gtest.h>

#include <figk/HighwayNode.h>
#include <figk/HighwaySegment.h>
#include <figk/Port.h>
#include <figk/PortNode.h>
#include <figk/SubHighway.h>
#include <figk/SubNet.h>
#include <support/Drawing.h>
#include <support/KernelDump.h>
#include <support/KernelGuarantees.h>

namespace figrep::test {
namespace {

struct Built {
    du::SmartPtr<figk::Design> design;
    du::SmartPtr<figk::Sheet> sheet;
    std::vector<figkernel::BuildFinding> findings;

    std::string Highway() const { return DumpHighway(*sheet, "H"); }
    std::string Net(std::string const& name) const { return DumpNet(*sheet, name); }
};

Built BuildAndCheck(Drawing& drawing) {
    figkernel::BuildResult result = drawing.Build();
    EXPECT_EQ(JoinLines(FindBrokenTrees(*result.design)), "");
    EXPECT_EQ(JoinLines(FindFalseConnections(drawing.Source(), *result.design)), "");
    return {result.design, result.design->GetSheets().front(), result.findings};
}

TEST(HighwayTree, IsSplitAtTapsBranchesAndPorts) {
    Drawing drawing;
    drawing.Bus("H", 0, 0, 30, 0).Bus("H", 20, 0, 20, 9).BusPort("P", "H", 30, 0);
    drawing.Tap("A", "H", 10, 0, 11, 1);
    EXPECT_EQ(BuildAndCheck(drawing).Highway(),
              "bus(0,0 10,0)[bus(10,0 20,0)[bus(20,0 30,0)[port P] bus(20,0 20,9)]]");
}

TEST(HighwayTree, BeginsAtAFreeEndWithoutTapAndPort) {
    Drawing drawing;
    drawing.Bus("H", 0, 0, 30, 0).Tap("A", "H", 0, 0, 1, 1);
    EXPECT_EQ(BuildAndCheck(drawing).Highway(), "bus(30,0 0,0)");
}

TEST(HighwayTree, BeginsWithASegmentWithoutLengthWhereNoEndIsFree) {
    Drawing drawing;
    drawing.Bus("H", 0, 0, 30, 0).Tap("A", "H", 0, 0, 1, 1).BusPort("P", "H", 30, 0);
    EXPECT_EQ(BuildAndCheck(drawing).Highway(), "bus(0,0)[bus(0,0 30,0)[port P]]");
}

TEST(HighwayTree, ALoopIsCutAndKeepsItsPicture) {
    Drawing drawing;
    drawing.Bus("H", -5, 0, 0, 0).Bus("H", 0, 0, 10, 0).Bus("H", 10, 0, 10, 5);
    drawing.Bus("H", 10, 5, 0, 5).Bus("H", 0, 5, 0, 0);
    EXPECT_EQ(BuildAndCheck(drawing).Highway(),
              "bus(-5,0 0,0)[bus(0,0 10,0)[bus(10,0 10,5)] bus(0,0 0,5)[bus(0,5 10,5)]]");
}

TEST(HighwayTree, CrossingBusesAreTwoPiecesUnlessJoined) {
    Drawing drawing;
    drawing.Bus("H", 0, 0, 10, 0).Bus("H", 5, -5, 5, 5);
    EXPECT_EQ(BuildAndCheck(drawing).sheet->GetSubHighways().size(), 2u);
    drawing.JoinBuses("H", 5, 0);
    EXPECT_EQ(BuildAndCheck(drawing).sheet->GetSubHighways().size(), 1u);
}

TEST(NetOnHighway, EntersAndLeavesWithItsOwnCopyOfTheRoute) {
    Drawing drawing;
    drawing.Bus("H", 0, 0, 30, 0);
    drawing.Wire("A", 11, 1, 11, 5).Tap("A", "H", 10, 0, 11, 1);
    drawing.Wire("A", 21, 1, 21, 5).Tap("A", "H", 20, 0, 21, 1);
    EXPECT_EQ(BuildAndCheck(drawing).Net("A"),
              "wire(11,5 11,1)[wire(11,1 10,0)[onto H[bus(10,0 20,0)[onto H[wire(20,0 21,1)["
              "wire(21,1 21,5)]]]]]]");
}

TEST(NetOnHighway, AHighwayNodeNamesTheSegmentThatEndsAtTheTap) {
    Drawing drawing;
    drawing.Bus("H", 0, 0, 30, 0).Wire("A", 11, 1, 11, 5).Tap("A", "H", 10, 0, 11, 1);
    Built const built = BuildAndCheck(drawing);
    auto const head = built.sheet->GetSubNets().front()->GetHead();
    auto const point = du::DynamicCast<figk::HighwayNode>(head->GetFirstLeaf());
    ASSERT_TRUE(point);
    auto const highwayHead = built.sheet->GetSubHighways().front()->GetHead();
    EXPECT_EQ(point->GetHighwaySegment(), du::DynamicCast<figk::HighwaySegment>(highwayHead));
    EXPECT_EQ(point->GetNetConnectionNode(), point->GetPredecessor());
}

TEST(NetOnHighway, RunsThroughTheBranchPointAndNotToTheHead) {
    Drawing drawing;
    drawing.Bus("H", 0, 0, 10, 0).Bus("H", 10, 0, 10, 10).Bus("H", 10, 0, 10, -10);
    drawing.Tap("A", "H", 10, 10, 11, 11).Tap("A", "H", 10, -10, 11, -11);
    EXPECT_EQ(BuildAndCheck(drawing).Net("A"),
              "wire(11,11 10,10)[onto H[bus(10,10 10,0)[bus(10,0 10,-10)[onto H["
              "wire(10,-10 11,-11)]]]]]");
}

TEST(NetOnHighway, ThreePiecesHaveOneEntryAndTwoExits) {
    Drawing drawing;
    drawing.Bus("H", 0, 0, 40, 0);
    for (int i = 1; i <= 3; ++i)
        drawing.Tap("A", "H", 10 * i, 0, 10 * i + 1, 1);
    EXPECT_EQ(BuildAndCheck(drawing).Net("A"),
              "wire(11,1 10,0)[onto H[bus(10,0 20,0)[onto H[wire(20,0 21,1)] bus(20,0 30,0)["
              "onto H[wire(30,0 31,1)]]]]]");
}

TEST(NetOnHighway, AFurtherTapOfOnePieceIsDrawnOnly) {
    Drawing drawing;
    drawing.Bus("H", 0, 0, 40, 0).Wire("A", 11, 1, 21, 1);
    drawing.Tap("A", "H", 10, 0, 11, 1).Tap("A", "H", 20, 0, 21, 1);
    std::string const tree = BuildAndCheck(drawing).Net("A");
    EXPECT_EQ(tree.find("onto H"), tree.rfind("onto H"));
    EXPECT_NE(tree.find("21,1 20,0"), std::string::npos);
    EXPECT_NE(tree.find("11,1 10,0"), std::string::npos);
}

TEST(NetOnHighway, TapsOfOneNetAtOnePointOfTheBusShareOneHighwayNode) {
    Drawing drawing;
    drawing.Bus("H", 0, 0, 40, 0);
    drawing.Tap("A", "H", 10, 0, 11, 1).Tap("A", "H", 10, 0, 11, -1);
    EXPECT_EQ(BuildAndCheck(drawing).Net("A"),
              "wire(11,1 10,0)[wire(10,0)[onto H] wire(10,0 11,-1)]");
}

TEST(NetOnHighway, TwoNetsRunAlongOneHighwayWithoutSharingNodes) {
    Drawing drawing;
    drawing.Bus("H", 0, 0, 40, 0);
    for (std::string const net : {"A", "B"}) {
        double const y = net == "A" ? 1 : -1;
        drawing.Tap(net, "H", 10, 0, 11, y).Tap(net, "H", 30, 0, 31, y);
    }
    Built const built = BuildAndCheck(drawing);
    EXPECT_EQ(built.Net("A"), "wire(11,1 10,0)[onto H[bus(10,0 30,0)[onto H[wire(30,0 31,1)]]]]");
    EXPECT_EQ(built.Net("B"), "wire(11,-1 10,0)[onto H[bus(10,0 30,0)[onto H[wire(30,0 31,-1)]]]]");
}

TEST(NetOnHighway, ATapBesideTheBusIsDrawnAndReported) {
    Drawing drawing;
    drawing.Bus("H", 0, 0, 40, 0).Wire("A", 11, 5, 11, 9).Tap("A", "H", 10, 4, 11, 5);
    Built const built = BuildAndCheck(drawing);
    EXPECT_EQ(built.Net("A"), "wire(11,9 11,5)[wire(11,5 10,4)]");
    ASSERT_EQ(built.findings.size(), 1u);
    EXPECT_EQ(built.findings[0].kind, figkernel::BuildFinding::LOST_TAP);
    EXPECT_EQ(built.findings[0].id, "t1");
}

TEST(NetOnHighway, ATapWithoutLengthIsASegmentToo) {
    Drawing drawing;
    drawing.Bus("H", 0, 0, 40, 0).Wire("A", 10, 0, 10, 9).Tap("A", "H", 10, 0, 10, 0);
    EXPECT_EQ(BuildAndCheck(drawing).Net("A"), "wire(10,9 10,0)[wire(10,0)[onto H]]");
}

TEST(NetOnHighway, PiecesOnTwoHighwaysFormNoLoop) {
    Drawing drawing;
    drawing.Bus("H", 0, 0, 40, 0).Bus("K", 0, 20, 40, 20);
    drawing.Wire("A", 11, 1, 11, 19).Wire("A", 21, 1, 21, 19);
    drawing.Tap("A", "H", 10, 0, 11, 1).Tap("A", "K", 10, 20, 11, 19);
    drawing.Tap("A", "H", 20, 0, 21, 1).Tap("A", "K", 20, 20, 21, 19);
    Built const built = BuildAndCheck(drawing);
    EXPECT_EQ(built.sheet->GetSubNets().size(), 1u);
}

TEST(NetOnHighway, APortOnAHighwayIsOnEverySubNetThatTheHighwayCarries) {
    Drawing drawing;
    drawing.Bus("H", 0, 0, 40, 0).BusPort("P", "H", 40, 0);
    drawing.Tap("A", "H", 10, 0, 11, 1).Wire("B", 0, 50, 9, 50);
    Built const built = BuildAndCheck(drawing);
    auto const node = built.design->GetPorts().front()->GetPortNodes().front();
    for (auto const& subNet : built.sheet->GetSubNets()) {
        EXPECT_EQ(node->IsOnSubNet(subNet), subNet->GetName() == "A");
    }
    EXPECT_FALSE(node->IsOnSubNet(nullptr));
}

TEST(NetOnHighway, ANetOfWhichTheHighwayKnowsNothingIsConnectedAndReported) {
    Drawing drawing;
    drawing.Bus("H", 0, 0, 40, 0).Tap("A", "H", 10, 0, 11, 1);
    drawing.Source().highways.front().nets.clear();
    Built const built = BuildAndCheck(drawing);
    EXPECT_EQ(built.Net("A"), "wire(11,1 10,0)[onto H]");
    ASSERT_EQ(built.findings.size(), 1u);
    EXPECT_EQ(built.findings[0].kind, figkernel::BuildFinding::FOREIGN_NET);
}

}  // namespace
}  // namespace figrep::test
