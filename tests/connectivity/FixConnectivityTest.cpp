#include "../../src/connectivity/FixConnectivity.h"

#include <figrep/BlockInstance.h>
#include <figrep/CableInstance.h>
#include <gtest/gtest.h>

#include <sstream>

#include "KernelFakes.h"
#include "Wiring.h"

namespace figrep::testing {
namespace {

/// A sheet that the test puts into a figure by hand, and then has fixed.
class FixConnectivityTest : public ::testing::Test {
protected:
    FixConnectivityTest() { kernelBus = new FakeSubHighway("bus"); }

    struct Bus {
        SmartPtr<FakeHighwaySegment> record;
        SmartPtr<HighwaySegment> segment;
    };

    SmartPtr<SubHighway> MakeBus(SmartPtr<FakeSubHighway> const& record) {
        SmartPtr<SubHighway> const made = new SubHighway(wiring.Lock(), record);
        wiring.figure->Receive(made);
        return made;
    }

    Bus BusWire(DPoint2D const& from, DPoint2D const& to,
                SmartPtr<ConnectionNode> const& above = nullptr) {
        if (!bus) bus = MakeBus(kernelBus);
        SmartPtr<FakeHighwaySegment> const record = new FakeHighwaySegment(kernelBus, from, to);
        SmartPtr<HighwaySegment> const segment =
            new HighwaySegment(bus, wiring.Lock(), SmartPtr<figk::HighwaySegment>(record), above);
        if (!above) bus->SetHead(segment);
        return {record, segment};
    }

    SmartPtr<SubNet> KernelNet(std::string const& id = "net") {
        SmartPtr<FakeSubNet> const record = new FakeSubNet(id);
        record->sheet = sheet;
        return FigureNet(record);
    }

    SmartPtr<SubNet> FigureNet(SmartPtr<FakeSubNet> const& record) {
        SmartPtr<SubNet> const net =
            new SubNet(wiring.figure, wiring.Lock(), SmartPtr<figk::SubNet>(record));
        wiring.figure->Receive(net);
        return net;
    }

    SmartPtr<NetSegment> KernelWire(SmartPtr<SubNet> const& net,
                                    SmartPtr<FakeNetSegment> const& record,
                                    SmartPtr<ConnectionNode> const& above = nullptr) {
        SmartPtr<NetSegment> const wire =
            new NetSegment(net, wiring.Lock(), SmartPtr<figk::NetSegment>(record), above);
        if (!above) net->SetHead(wire);
        return wire;
    }

    SmartPtr<HighwayNode> KernelTap(SmartPtr<figk::HighwaySegment> const& on,
                                    SmartPtr<ConnectionNode> const& netNode) {
        SmartPtr<figk::HighwayNode> const record = new FakeHighwayNode(on);
        return new HighwayNode(wiring.Lock(), record, bus, netNode);
    }

    SmartPtr<BlockInstance> KernelBlock(std::string const& id = "B") {
        SmartPtr<FakeBlock> const record = new FakeBlock(id);
        SmartPtr<BlockInstance> const block = new BlockInstance(wiring.Lock(), record);
        wiring.figure->Receive(block);
        return block;
    }

    SmartPtr<ConnectorInstance> Pin(SmartPtr<BlockInstance> const& block,
                                    SmartPtr<FakeConnector> const& record) {
        return new ConnectorInstance(block, wiring.Lock(),
                                     SmartPtr<figk::ConnectorInstance>(record));
    }

    void Fix(DPoint2D const& offset = {}) { fix.Fix(offset); }

    void ExpectNothingCounted() {
        for (auto const& node : NodesOf(bus->GetHead())) {
            auto const segment = du::DynamicCast<HighwaySegment>(node);
            if (segment) {
                EXPECT_EQ(segment->GetVisitCount(), 0u);
            }
        }
    }

    Wiring wiring;
    SmartPtr<FakeSheet> sheet = new FakeSheet("sheet");
    FixConnectivity fix{wiring.figure, sheet};
    SmartPtr<FakeSubHighway> kernelBus;
    SmartPtr<SubHighway> bus;
};

TEST_F(FixConnectivityTest, SheetWithoutHighwaysLeavesTapsAlone) {
    auto const net = KernelNet();
    KernelWire(net, new FakeNetSegment(DPoint2D(0, 0), DPoint2D(1, 0)));
    Fix();
    EXPECT_TRUE(net->GetHighwayNodes().empty());
    EXPECT_EQ(NodesOf(net->GetHead()).size(), 1u);
}

TEST_F(FixConnectivityTest, OneContactWithoutAPortListsTheSubNetOnTheHighwayButOnNoSegment) {
    auto const on = BusWire(DPoint2D(0, 0), DPoint2D(0, 5));
    auto const net = KernelNet();
    auto const wire = KernelWire(net, new FakeNetSegment(DPoint2D(0, 5), DPoint2D(4, 5)));
    auto const tap = KernelTap(on.record, wire);
    Fix();
    EXPECT_TRUE(on.segment->GetSubNets().empty());
    std::vector<SmartPtr<SubNet>> nets;
    bus->GetSubNets(nets);
    EXPECT_EQ(nets, std::vector{net});
    EXPECT_EQ(tap->GetPredecessor(), on.segment);
    EXPECT_FALSE(tap->IsConnected(wire));
}

TEST_F(FixConnectivityTest, TwoContactsAddTheSegmentsBelowTheBranchPointButNotTheOneAtIt) {
    auto const trunk = BusWire(DPoint2D(0, 0), DPoint2D(0, 1));
    auto const a = BusWire(DPoint2D(0, 1), DPoint2D(1, 1), trunk.segment);
    auto const b = BusWire(DPoint2D(0, 1), DPoint2D(0, 2), trunk.segment);
    auto const other = BusWire(DPoint2D(0, 2), DPoint2D(0, 3), b.segment);
    auto const net = KernelNet();
    auto const entry = KernelWire(net, new FakeNetSegment(DPoint2D(1, 1), DPoint2D(9, 1)));
    auto const exit = wiring.FreeWire(net, DPoint2D(0, 2), DPoint2D(9, 2));
    KernelTap(a.record, entry);
    KernelTap(b.record, exit);
    Fix();
    EXPECT_TRUE(trunk.segment->GetSubNets().empty());
    EXPECT_EQ(a.segment->GetSubNets(), std::vector{net});
    EXPECT_EQ(b.segment->GetSubNets(), std::vector{net});
    EXPECT_TRUE(other.segment->GetSubNets().empty());
    EXPECT_TRUE(Holds(NodesOf(net->GetHead()), exit));
    ExpectNothingCounted();
}

TEST_F(FixConnectivityTest, HeadPortOfTheSubNetAddsEveryCountedSegment) {
    bus = MakeBus(kernelBus);
    SmartPtr<Port> const port = new Port(wiring.Lock(), SmartPtr<figk::Port>(new FakePort("p")));
    SmartPtr<FakePortNode> const record = new FakePortNode(DPoint2D(0, 0));
    SmartPtr<PortNode> const head =
        new PortNode(port, bus, wiring.Lock(), SmartPtr<figk::PortNode>(record), nullptr);
    bus->SetHead(head);
    auto const a = BusWire(DPoint2D(0, 0), DPoint2D(0, 1), head);
    auto const b = BusWire(DPoint2D(0, 1), DPoint2D(0, 2), a.segment);
    auto const beyond = BusWire(DPoint2D(0, 2), DPoint2D(0, 3), b.segment);
    auto const net = KernelNet();
    record->reachedBy = net->GetKernelSubNet();
    KernelTap(b.record, KernelWire(net, new FakeNetSegment(DPoint2D(0, 2), DPoint2D(9, 2))));
    Fix();
    EXPECT_EQ(head->GetHighwaySubNets(), std::vector{net});
    EXPECT_EQ(a.segment->GetSubNets(), std::vector{net});
    EXPECT_EQ(b.segment->GetSubNets(), std::vector{net});
    EXPECT_TRUE(beyond.segment->GetSubNets().empty());
    ExpectNothingCounted();
}

TEST_F(FixConnectivityTest, LeafPortThatTheSubNetReachesIsAContact) {
    auto const a = BusWire(DPoint2D(0, 0), DPoint2D(0, 1));
    auto const b = BusWire(DPoint2D(0, 1), DPoint2D(0, 2), a.segment);
    auto const c = BusWire(DPoint2D(0, 2), DPoint2D(0, 3), b.segment);
    SmartPtr<FakePort> const portRecord = new FakePort("p");
    portRecord->highway = new FakeHighway("H");
    SmartPtr<Port> const port = new Port(wiring.Lock(), SmartPtr<figk::Port>(portRecord));
    SmartPtr<FakePortNode> const record = new FakePortNode(DPoint2D(0, 3));
    SmartPtr<PortNode> const leaf =
        new PortNode(port, bus, wiring.Lock(), SmartPtr<figk::PortNode>(record), c.segment);
    SmartPtr<PortNode> const foreign =
        new PortNode(port, bus, wiring.Lock(),
                     SmartPtr<figk::PortNode>(new FakePortNode(DPoint2D(0, 2))), b.segment);
    auto const net = KernelNet();
    record->reachedBy = net->GetKernelSubNet();
    KernelTap(a.record, KernelWire(net, new FakeNetSegment(DPoint2D(0, 1), DPoint2D(9, 1))));
    Fix();
    EXPECT_EQ(leaf->GetHighwaySubNets(), std::vector{net});
    EXPECT_TRUE(foreign->GetHighwaySubNets().empty());
    EXPECT_EQ(b.segment->GetSubNets(), std::vector{net});
    EXPECT_EQ(c.segment->GetSubNets(), std::vector{net});
    EXPECT_TRUE(Holds(NodesOf(net->GetHead()), leaf));
}

TEST_F(FixConnectivityTest, LeavesAllTapsDeactivatedAlsoBesideAPortInTheMiddle) {
    auto const a = BusWire(DPoint2D(0, 0), DPoint2D(0, 1));
    SmartPtr<Port> const port = new Port(wiring.figure, wiring.Lock(), "");
    auto const middle = wiring.BusPort(port, bus, DPoint2D(0, 1), a.segment);
    auto const b = BusWire(DPoint2D(0, 1), DPoint2D(0, 2), middle);
    auto const net = KernelNet();
    auto const wire = KernelWire(net, new FakeNetSegment(DPoint2D(0, 2), DPoint2D(9, 2)));
    auto const exit = wiring.FreeWire(net, DPoint2D(0, 1), DPoint2D(9, 1));
    auto const first = KernelTap(b.record, wire);
    auto const second = KernelTap(a.record, exit);
    Fix();
    EXPECT_FALSE(first->IsConnected(wire));
    EXPECT_FALSE(second->IsConnected(exit));
    ExpectNothingCounted();
}

TEST_F(FixConnectivityTest, FindsASegmentWithItsEndsReversedAndAtAnOffset) {
    auto const on = BusWire(DPoint2D(10, 5), DPoint2D(10, 0));
    SmartPtr<FakeHighwaySegment> const twin =
        new FakeHighwaySegment(kernelBus, DPoint2D(0, 0), DPoint2D(0, 5));
    auto const net = KernelNet();
    auto const tap =
        KernelTap(twin, KernelWire(net, new FakeNetSegment(DPoint2D(10, 5), DPoint2D(14, 5))));
    Fix(DPoint2D(10, 0));
    EXPECT_EQ(tap->GetPredecessor(), on.segment);
}

TEST_F(FixConnectivityTest, DoesNotTakeASegmentOfAnotherSubHighwayWithTheSameEnds) {
    auto const on = BusWire(DPoint2D(0, 0), DPoint2D(0, 5));
    SmartPtr<FakeSubHighway> const foreign = new FakeSubHighway("other");
    SmartPtr<FakeHighwaySegment> const twin =
        new FakeHighwaySegment(foreign, DPoint2D(0, 0), DPoint2D(0, 5));
    auto const net = KernelNet();
    auto const tap =
        KernelTap(twin, KernelWire(net, new FakeNetSegment(DPoint2D(0, 5), DPoint2D(4, 5))));
    Fix();
    EXPECT_FALSE(on.segment->IsSuccessor(tap));
    std::vector<SmartPtr<SubNet>> nets;
    bus->GetSubNets(nets);
    EXPECT_TRUE(nets.empty());
}

TEST_F(FixConnectivityTest, TapWithoutSegmentOrTwinStaysAsItIs) {
    BusWire(DPoint2D(0, 0), DPoint2D(0, 5));
    auto const net = KernelNet();
    auto const wire = KernelWire(net, new FakeNetSegment(DPoint2D(0, 5), DPoint2D(4, 5)));
    auto const nowhere = KernelTap(nullptr, wire);
    SmartPtr<HighwayNode> const unmapped = new HighwayNode(wiring.Lock(), nullptr, bus, wire);
    Fix();
    EXPECT_FALSE(nowhere->IsConnected(wire));
    EXPECT_FALSE(nowhere->GetPredecessor());
    EXPECT_FALSE(unmapped->GetPredecessor());
    EXPECT_EQ(net->GetHead(), wire);
}

TEST_F(FixConnectivityTest, KernelHeadIsAttachedAtOnceAndAKernelLeafAfterTheWalk) {
    auto const block = KernelBlock();
    SmartPtr<FakeConnector> const first = new FakeConnector("1", DPoint2D(0, 0));
    SmartPtr<FakeConnector> const last = new FakeConnector("2", DPoint2D(2, 0));
    auto const a = Pin(block, first);
    auto const b = Pin(block, last);
    SmartPtr<FakeNetSegment> const top = new FakeNetSegment(DPoint2D(0, 0), DPoint2D(1, 0));
    SmartPtr<FakeNetSegment> const end = new FakeNetSegment(DPoint2D(1, 0), DPoint2D(2, 0), top);
    SmartPtr<FakeConnectorNode> const atTop = new FakeConnectorNode(first, top);
    SmartPtr<FakeConnectorNode> const atEnd = new FakeConnectorNode(last, end);
    auto const net = KernelNet();
    auto const topWire = KernelWire(net, top);
    auto const endWire = KernelWire(net, end, topWire);
    Fix();
    ASSERT_EQ(a->GetConnections().size(), 1u);
    ASSERT_EQ(b->GetConnections().size(), 1u);
    EXPECT_TRUE(a->GetConnections()[0]->IsConnected(topWire));
    EXPECT_EQ(net->GetHead(), b->GetConnections()[0]);  // the last to attach is the head
    EXPECT_TRUE(net->GetHead()->IsSuccessor(endWire));
    top->CutTree();
}

TEST_F(FixConnectivityTest, HeadThatReachesTwoConnectorsGetsBothALeafOnlyTheLast) {
    auto const block = KernelBlock();
    std::vector<SmartPtr<FakeConnector>> records;
    std::vector<SmartPtr<ConnectorInstance>> pins;
    for (int i = 0; i < 4; ++i) {
        records.emplace_back(new FakeConnector(std::to_string(i)));
        pins.push_back(Pin(block, records.back()));
    }
    SmartPtr<FakeNetSegment> const top = new FakeNetSegment(DPoint2D(0, 0), DPoint2D(1, 0));
    SmartPtr<FakeNetSegment> const end = new FakeNetSegment(DPoint2D(1, 0), DPoint2D(2, 0), top);
    std::vector<SmartPtr<FakeConnectorNode>> nodes;
    for (int i = 0; i < 4; ++i) {
        nodes.emplace_back(new FakeConnectorNode(records[i], i < 2 ? top : end));
    }
    auto const net = KernelNet();
    auto const topWire = KernelWire(net, top);
    KernelWire(net, end, topWire);
    Fix();
    EXPECT_EQ(pins[0]->GetConnections().size(), 1u);
    EXPECT_EQ(pins[1]->GetConnections().size(), 1u);
    EXPECT_TRUE(pins[2]->GetConnections().empty());
    EXPECT_EQ(pins[3]->GetConnections().size(), 1u);
    EXPECT_EQ(net->GetHead(), pins[3]->GetConnections()[0]);
    EXPECT_EQ(NodesOf(net->GetHead()).size(), 5u);
    top->CutTree();
}

TEST_F(FixConnectivityTest, ConnectorThatTheKernelConnectsNothingToIsLeftOut) {
    auto const block = KernelBlock();
    SmartPtr<FakeConnector> const record = new FakeConnector("1");
    record->connections = 0;
    auto const pin = Pin(block, record);
    SmartPtr<FakeNetSegment> const top = new FakeNetSegment(DPoint2D(0, 0), DPoint2D(1, 0));
    SmartPtr<FakeConnectorNode> const at = new FakeConnectorNode(record, top);
    auto const net = KernelNet();
    KernelWire(net, top);
    Fix();
    EXPECT_TRUE(pin->GetConnections().empty());
    top->CutTree();
}

TEST_F(FixConnectivityTest, UserMadeWireFindsConnectorsByPlace) {
    auto const block = KernelBlock();
    auto const near = Pin(block, new FakeConnector("1", DPoint2D(0, 0)));
    auto const far = Pin(block, new FakeConnector("2", DPoint2D(2, 0)));
    auto const net = KernelNet();
    auto const top = wiring.Wire(net, DPoint2D(0, 0), DPoint2D(1, 0));
    auto const end = wiring.FreeWire(net, DPoint2D(1, 0), DPoint2D(2, 0), top);
    Fix();
    EXPECT_EQ(near->GetConnections().size(), 1u);
    EXPECT_EQ(far->GetConnections().size(), 1u);
    EXPECT_TRUE(Holds(NodesOf(net->GetHead()), near->GetConnections()[0]));
    EXPECT_TRUE(far->GetConnections()[0]->IsSuccessor(end));
}

TEST_F(FixConnectivityTest, ContentOfEarlierSheetsIsNotTouched) {
    auto const early = wiring.Net();
    auto const wire = wiring.Wire(early, DPoint2D(0, 0), DPoint2D(1, 0));
    FixConnectivity later(wiring.figure, sheet);
    auto const block = KernelBlock();
    auto const pin = Pin(block, new FakeConnector("1", DPoint2D(0, 0)));
    later.Fix(DPoint2D());
    EXPECT_TRUE(pin->GetConnections().empty());
    EXPECT_EQ(early->GetHead(), wire);
}

class FixCablesTest : public FixConnectivityTest {
protected:
    FixCablesTest() {
        auto const other = SmartPtr<FakeSheet>(new FakeSheet("other"));
        for (auto const& on : {sheet, other}) {
            SmartPtr<FakeSubNet> const record = new FakeSubNet(on->GetId().GetString());
            record->sheet = on;
            kernelNet->subNets.push_back(record);
            nets.push_back(FigureNet(record));
        }
        SmartPtr<FakeCable> const record = new FakeCable("W");
        record->nets.push_back(kernelNet);
        cable = new CableInstance(wiring.Lock(), SmartPtr<figk::CableInstance>(record));
        wiring.figure->Receive(cable);
    }
    ~FixCablesTest() override { kernelNet->subNets.clear(); }

    SmartPtr<FakeNet> kernelNet = new FakeNet("N");
    std::vector<SmartPtr<SubNet>> nets;
    SmartPtr<CableInstance> cable;
};

TEST_F(FixCablesTest, SubNetsOfAnotherSheetAreSkippedWhenTheSheetIsSet) {
    Fix();
    EXPECT_EQ(cable->GetSubNets(), std::vector{nets[0]});
    EXPECT_EQ(nets[0]->GetCable(), cable);
    EXPECT_FALSE(nets[1]->GetCable());
}

TEST(FixConnectivityWithoutSheet, CablesTakeSubNetsOfEverySheet) {
    Wiring wiring;
    FixConnectivity fix(wiring.figure, nullptr);
    SmartPtr<FakeNet> const kernelNet = new FakeNet("N");
    std::vector<SmartPtr<SubNet>> nets;
    for (auto const* id : {"a", "b"}) {
        SmartPtr<FakeSubNet> const record = new FakeSubNet(id);
        record->sheet = new FakeSheet(id);
        kernelNet->subNets.push_back(record);
        nets.emplace_back(new SubNet(wiring.figure, wiring.Lock(), SmartPtr<figk::SubNet>(record)));
        wiring.figure->Receive(nets.back());
    }
    SmartPtr<FakeCable> const record = new FakeCable("W");
    record->nets.push_back(kernelNet);
    SmartPtr<CableInstance> const cable =
        new CableInstance(wiring.Lock(), SmartPtr<figk::CableInstance>(record));
    wiring.figure->Receive(cable);
    fix.Fix(DPoint2D());
    EXPECT_EQ(cable->GetSubNets(), nets);
}

TEST_F(FixConnectivityTest, NestsBlocksAsTheKernelDoesOnThisSheet) {
    SmartPtr<FakeBlock> const outerRecord = new FakeBlock("outer");
    SmartPtr<FakeBlock> const innerRecord = new FakeBlock("inner");
    SmartPtr<FakeBlock> const elsewhere = new FakeBlock("elsewhere");
    innerRecord->sheet = sheet;
    elsewhere->sheet = new FakeSheet("other");
    outerRecord->children = {innerRecord, elsewhere};
    std::vector<SmartPtr<BlockInstance>> blocks;
    for (auto const& record : {outerRecord, innerRecord, elsewhere}) {
        blocks.emplace_back(
            new BlockInstance(wiring.Lock(), SmartPtr<figk::BlockInstance>(record)));
        wiring.figure->Receive(blocks.back());
    }
    Fix();
    EXPECT_EQ(blocks[0]->GetChildren(), std::vector<SmartPtr<BaseBlockInstance>>{blocks[1]});
    EXPECT_FALSE(blocks[2]->GetParent());
}

TEST_F(FixConnectivityTest, DebugWritesTheTreeOfASubNet) {
    auto const net = wiring.Net();
    auto const top = wiring.Wire(net, DPoint2D(0, 0), DPoint2D(1, 0));
    wiring.FreeWire(net, DPoint2D(1, 0), DPoint2D(2, 0), top);
    std::ostringstream out;
    FixConnectivity::Debug(net, out);
    EXPECT_NE(out.str().find("Start SubNet \nNetSegment(0,0) to (1,0) ("), std::string::npos);
    EXPECT_NE(out.str().find("    Left NetSegment(1,0) to (2,0)"), std::string::npos);
    EXPECT_NE(out.str().find("End SubNet \n" + std::string(40, '+') + "\n"), std::string::npos);
}

}  // namespace
}  // namespace figrep::testing
