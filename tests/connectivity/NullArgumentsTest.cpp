// Nothing public crashes on null arguments, null locks or content outside a figure.
#include <figrep/ArrowInfo.h>
#include <figrep/BlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/CrossingPoint.h>
#include <figrep/TextGraphic.h>
#include <figrep/TextLabelContainerGroup.h>
#include <gtest/gtest.h>

#include <sstream>

#include "../../src/connectivity/FixConnectivity.h"
#include "KernelFakes.h"
#include "Wiring.h"

namespace figrep::testing {
namespace {

void UseNode(SmartPtr<ConnectionNode> const& node) {
    DPoint2D at;
    node->Contacts(SmartPtr<ConnectionNode>(), at);
    node->Contacts(DPoint2D(9, 9));
    node->Remove(nullptr);
    node->Visit(nullptr);
    node->PrePivot();
    node->Pivot(nullptr);
    node->AddSuccessor(nullptr);
    node->Disconnect(nullptr);
    node->MakeLeafOnSubNet(nullptr);
    node->Move(1, 1);
    node->Rotate(DPoint2D(), 1);
    node->Scale(DPoint2D(), 2);
    node->Mirror(DPoint2D(), true);
    node->ToString();
    EXPECT_FALSE(node->GetNodeFigure());
    node->Disconnect();
}

TEST(NullArguments, SegmentsWithoutOwnerAndLock) {
    SmartPtr<NetSegment> const wire = new NetSegment(SmartPtr<SubNet>(), nullptr, DPoint2D(0, 0),
                                                     DPoint2D(1, 0), SmartPtr<ConnectionNode>());
    SmartPtr<HighwaySegment> const bus =
        new HighwaySegment(SmartPtr<SubHighway>(), nullptr, DPoint2D(0, 0), DPoint2D(1, 0),
                           SmartPtr<ConnectionNode>());
    SmartPtr<UnroutedConnection> const loose = new UnroutedConnection(
        nullptr, nullptr, DPoint2D(0, 0), DPoint2D(1, 0), SmartPtr<ConnectionNode>());
    for (SmartPtr<Segment> const& segment : std::vector<SmartPtr<Segment>>{wire, bus, loose}) {
        UseNode(segment);
        EXPECT_EQ(segment->GetId(), Symbol::EMPTY);
        EXPECT_EQ(segment->GetTextOwnerId(), Symbol::EMPTY);
        EXPECT_EQ(segment->GetNextTextLabelId(), 0u);
        EXPECT_EQ(segment->GetName(), "");
        segment->Add(SmartPtr<CrossingPoint>());
        segment->Add(SmartPtr<GraphicGroupMember>());
        segment->RemoveAllCrossingPoints();
        segment->RemoveAllArrows();
        segment->GetLineAttributes();
        segment->FineContentCheck(DBox2D(0, 0, 1, 1));
        segment->MarkCrossingPartners();
    }
    bus->Add(SmartPtr<SubNet>());
    EXPECT_TRUE(bus->GetSubNets().empty());
}

TEST(NullArguments, SegmentsOfNullRecordsStayAtTheOrigin) {
    SmartPtr<NetSegment> const wire =
        new NetSegment(SmartPtr<SubNet>(), nullptr, SmartPtr<figk::NetSegment>(), nullptr);
    SmartPtr<HighwaySegment> const bus = new HighwaySegment(
        SmartPtr<SubHighway>(), nullptr, SmartPtr<figk::HighwaySegment>(), nullptr);
    EXPECT_EQ(wire->GetExtents(), DBox2D(0, 0, 0, 0));
    EXPECT_EQ(bus->GetExtents(), DBox2D(0, 0, 0, 0));
}

TEST(NullArguments, SubNetsAndSubHighwaysOutsideAFigure) {
    SmartPtr<SubNet> const net = new SubNet(nullptr, nullptr, "N");
    SmartPtr<SubHighway> const bus = new SubHighway(nullptr, nullptr, "B");
    net->SetHead(nullptr);
    bus->SetHead(nullptr);
    bus->Add(nullptr);
    net->SetStartNode(nullptr);
    net->SetStartSegment(nullptr);
    EXPECT_FALSE(net->GetSingleTextLabel());
    EXPECT_FALSE(bus->GetSingleTextLabel());
    EXPECT_EQ(net->GetExtents(), DBox2D::EMPTY);
    net->DestroyConnectivity();
    bus->DestroyConnectivity();
    net->MarkCrossingPartners();
    bus->MarkCrossingPartners();
}

TEST(NullArguments, BlocksCablesAndConnectors) {
    SmartPtr<BlockInstance> const block = new BlockInstance(nullptr, "");
    SmartPtr<CableInstance> const cable = new CableInstance(nullptr, "W");
    block->Add(SmartPtr<BaseBlockInstance>());
    cable->Add(SmartPtr<SubNet>());
    EXPECT_TRUE(cable->GetSubNets().empty());
    SmartPtr<ConnectorInstance> const connector = new ConnectorInstance(
        SmartPtr<BaseBlockInstance>(), nullptr, SmartPtr<figk::ConnectorInstance>());
    connector->Attach(nullptr);
    connector->Add(SmartPtr<ConnectorInstanceNode>());
    connector->Disconnect(nullptr);
    EXPECT_FALSE(connector->GetHidden());
    EXPECT_EQ(connector->GetExtents(), DBox2D(0, 0, 0, 0));
    SmartPtr<ConnectorInstanceNode> const node =
        new ConnectorInstanceNode(nullptr, nullptr, nullptr, nullptr);
    UseNode(node);
    EXPECT_EQ(node->ToString(), "ConnectorInstanceNode");
}

TEST(NullArguments, FixingNothing) {
    FixConnectivity fix(nullptr, nullptr);
    fix.Fix(DPoint2D(1, 1));
    std::ostringstream out;
    FixConnectivity::Debug(nullptr, out);
    Wiring wiring;
    FixConnectivity empty(wiring.figure, nullptr);
    empty.Fix(DPoint2D());
}

}  // namespace
}  // namespace figrep::testing
