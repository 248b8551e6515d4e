#include <gtest/gtest.h>

#include "KernelFakes.h"
#include "Wiring.h"

namespace figrep::testing {
namespace {

class PortTest : public ::testing::Test {
protected:
    SmartPtr<Port> KernelPort(bool onHighway) {
        SmartPtr<FakePort> const record = new FakePort("p");
        record->name = "DATA";
        if (onHighway) {
            record->highway = new FakeHighway("H1");
        } else {
            record->net = new FakeNet("N1");
        }
        return new Port(wiring.Lock(), record);
    }

    Wiring wiring;
    SmartPtr<SubNet> net = wiring.Net();
    SmartPtr<SubHighway> bus = wiring.Bus();
};

TEST_F(PortTest, NodesAreNumberedFromOne) {
    auto const port = KernelPort(false);
    EXPECT_EQ(port->GetId(), Symbol("N1/DATA"));
    auto const first = wiring.NetPort(port, net, DPoint2D(0, 0));
    auto const second = wiring.NetPort(port, net, DPoint2D(1, 0));
    EXPECT_EQ(first->GetId(), Symbol("N1/DATA/1"));
    EXPECT_EQ(second->GetId(), Symbol("N1/DATA/2"));
    EXPECT_EQ(port->GetPortNodes(), (std::vector{first, second}));
}

TEST_F(PortTest, OnAHighwayIsKnownBelowTheHighway) {
    auto const port = KernelPort(true);
    EXPECT_EQ(port->GetId(), Symbol("H1/DATA"));
    EXPECT_TRUE(port->OnHighwayNotNet());
}

TEST_F(PortTest, SlotOfADeadNodeGoesOnCounting) {
    auto const port = KernelPort(false);
    auto const first = wiring.NetPort(port, net, DPoint2D(0, 0));
    wiring.NetPort(port, net, DPoint2D(1, 0));  // dies at once
    EXPECT_EQ(port->GetPortNodes(), std::vector{first});
    EXPECT_EQ(wiring.NetPort(port, net, DPoint2D(2, 0))->GetId(), Symbol("N1/DATA/3"));
    port->SetHighlight(true);
    port->SetVisibility(false);
}

TEST_F(PortTest, NodeOnAHighwayLetsInANullSubNetAndListedOnes) {
    auto const port = KernelPort(true);
    auto const node = wiring.BusPort(port, bus, DPoint2D(0, 0));
    EXPECT_TRUE(node->Visit(nullptr));
    EXPECT_FALSE(node->Visit(net));
    node->Add(net);
    EXPECT_TRUE(node->Visit(net));
    EXPECT_FALSE(node->GetSubNet());
    EXPECT_EQ(node->GetFigure(), wiring.figure);
    EXPECT_EQ(node->GetTextOwnerId(), bus->GetId());
}

TEST_F(PortTest, NodeOnANetLetsInItsOwnSubNetOnly) {
    auto const node = wiring.NetPort(KernelPort(false), net, DPoint2D(0, 0));
    EXPECT_TRUE(node->Visit(net));
    EXPECT_FALSE(node->Visit(nullptr));
    EXPECT_FALSE(node->Visit(wiring.Net()));
    node->Remove(net);
    EXPECT_FALSE(node->GetSubNet());
}

TEST_F(PortTest, RemoveOnAHighwayNodeLeavesTheListOfSubNets) {
    auto const node = wiring.BusPort(KernelPort(true), bus, DPoint2D(0, 0));
    node->Add(net);
    node->Add(net);
    node->Remove(net);
    EXPECT_EQ(node->GetHighwaySubNets(), (std::vector{net, net}));
}

TEST_F(PortTest, MirrorWithFalseChangesXOnly) {
    auto const node = wiring.NetPort(KernelPort(false), net, DPoint2D(1, 2));
    node->MirrorItem(DPoint2D(5, 5), false);
    EXPECT_EQ(node->GetPosition(), DPoint2D(9, 2));
    node->MirrorItem(DPoint2D(5, 5), true);
    EXPECT_EQ(node->GetPosition(), DPoint2D(9, 8));
    node->ScaleItem(DPoint2D(0, 0), 2);
    EXPECT_EQ(node->GetPosition(), DPoint2D(9, 8));
    node->Scale(DPoint2D(0, 0), 2);
    EXPECT_EQ(node->GetPosition(), DPoint2D(18, 16));
}

TEST_F(PortTest, UserMadePortIsNotOnAHighwayAndHasNeitherNameNorId) {
    SmartPtr<Port> const port = new Port(wiring.figure, wiring.Lock(), "given");
    EXPECT_FALSE(port->OnHighwayNotNet());
    EXPECT_EQ(port->GetName(), "");
    EXPECT_EQ(port->GetId(), Symbol::EMPTY);
    EXPECT_EQ(wiring.figure->GetPorts(), std::vector{port});
    EXPECT_EQ(wiring.NetPort(port, net, DPoint2D())->GetId(), Symbol("/1"));
}

TEST_F(PortTest, ContactsWhereItStands) {
    auto const node = wiring.NetPort(KernelPort(false), net, DPoint2D(3, 0));
    auto const wire = wiring.Wire(net, DPoint2D(0, 0), DPoint2D(3, 0));
    DPoint2D at;
    EXPECT_TRUE(node->Contacts(SmartPtr<ConnectionNode>(wire), at));
    EXPECT_EQ(at, DPoint2D(3, 0));
    EXPECT_FALSE(node->Contacts(DPoint2D(3, 1)));
    EXPECT_EQ(node->ToString(), "PortNode on DATA at 3, 0");
}

TEST_F(PortTest, NodeWithoutPortOrOwnerAnswersNothing) {
    SmartPtr<PortNode> const node =
        new PortNode(nullptr, SmartPtr<SubNet>(), wiring.Lock(), DPoint2D(1, 1), nullptr);
    EXPECT_EQ(node->GetId(), Symbol::EMPTY);
    EXPECT_FALSE(node->GetFigure());
    EXPECT_EQ(node->GetTextOwnerId(), Symbol::EMPTY);
    node->MoveItem(1, 0);
    EXPECT_EQ(node->GetPosition(), DPoint2D(2, 1));
}

}  // namespace
}  // namespace figrep::testing
