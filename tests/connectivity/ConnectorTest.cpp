#include <figrep/BlockInstance.h>
#include <figrep/GenericGraphic.h>
#include <gtest/gtest.h>

#include "KernelFakes.h"
#include "Wiring.h"

namespace figrep::testing {
namespace {

class ConnectorTest : public ::testing::Test {
protected:
    SmartPtr<ConnectorInstance> Connector(DPoint2D const& at) {
        return new ConnectorInstance(block, wiring.Lock(), "1", at);
    }
    SmartPtr<ConnectorInstance> KernelConnector(std::string const& number) {
        return new ConnectorInstance(block, wiring.Lock(),
                                     SmartPtr<figk::ConnectorInstance>(new FakeConnector(number)));
    }

    Wiring wiring;
    SmartPtr<FakeBlock> record = new FakeBlock("B1");
    SmartPtr<BlockInstance> block = new BlockInstance(wiring.Lock(), record);
    SmartPtr<SubNet> net = wiring.Net();
};

TEST_F(ConnectorTest, TwoEndsOfOneSubNetShareOneNode) {
    auto const connector = Connector(DPoint2D(0, 0));
    auto const a = wiring.FreeWire(net, DPoint2D(0, 0), DPoint2D(1, 0));
    auto const b = wiring.FreeWire(net, DPoint2D(0, 0), DPoint2D(0, 1));
    connector->Attach(a);
    connector->Attach(b);
    ASSERT_EQ(connector->GetConnections().size(), 1u);
    auto const node = connector->GetConnections()[0];
    EXPECT_TRUE(node->IsSuccessor(a));
    EXPECT_TRUE(node->IsSuccessor(b));
    EXPECT_EQ(net->GetHead(), node);
}

TEST_F(ConnectorTest, EndsOfTwoSubNetsGetANodeEach) {
    auto const connector = Connector(DPoint2D(0, 0));
    auto const other = wiring.Net();
    connector->Attach(wiring.FreeWire(net, DPoint2D(0, 0), DPoint2D(1, 0)));
    connector->Attach(wiring.FreeWire(other, DPoint2D(0, 0), DPoint2D(0, 1)));
    EXPECT_EQ(connector->GetConnections().size(), 2u);
    EXPECT_FALSE(net->GetHead() == other->GetHead());
}

TEST_F(ConnectorTest, ASecondAttachOfTheSameNodeOnlyPivots) {
    auto const connector = Connector(DPoint2D(0, 0));
    auto const wire = wiring.FreeWire(net, DPoint2D(0, 0), DPoint2D(1, 0));
    connector->Attach(wire);
    auto const node = connector->GetConnections()[0];
    auto const before = LinksOf(node);
    wire->Pivot(nullptr);
    ASSERT_FALSE(node->IsHead());
    connector->Attach(wire);
    EXPECT_EQ(connector->GetConnections().size(), 1u);
    EXPECT_EQ(LinksOf(node), before);
}

TEST_F(ConnectorTest, AttachOfNothingOrOfANodeWithoutSubNetDoesNothing) {
    auto const connector = Connector(DPoint2D(0, 0));
    connector->Attach(nullptr);
    connector->Attach(wiring.Junction());
    EXPECT_TRUE(connector->GetConnections().empty());
}

TEST_F(ConnectorTest, IsKnownByItsNumberOrByItsPlaceInTheBlock) {
    EXPECT_EQ(KernelConnector("A7")->GetId(), Symbol("B1/A7"));
    KernelConnector("");
    EXPECT_EQ(KernelConnector("")->GetId(), Symbol("B1/2"));
}

TEST_F(ConnectorTest, MadeFromANameAndAPositionHasNoId) {
    auto const connector = Connector(DPoint2D(4, 5));
    EXPECT_EQ(connector->GetId(), Symbol::EMPTY);
    EXPECT_EQ(connector->GetPosition(), DPoint2D(4, 5));
    EXPECT_EQ(connector->GetName(), "1");
    EXPECT_EQ(block->GetConnectorInstances(), std::vector{connector});
}

TEST_F(ConnectorTest, HiddenHasNoExtentsDespiteItsGraphics) {
    SmartPtr<FakeConnector> const pin = new FakeConnector("1", DPoint2D(1, 1));
    SmartPtr<ConnectorInstance> const connector = new ConnectorInstance(block, wiring.Lock(), pin);
    GenericGraphic::Create(wiring.Lock(), DBox2D(0, 0, 2, 2), SmartPtr<figk::Group>(connector));
    EXPECT_EQ(connector->GetExtents(), DBox2D(0, 0, 2, 2));
    pin->hidden = true;
    EXPECT_TRUE(connector->GetHidden());
    EXPECT_EQ(connector->GetExtents(), DBox2D::EMPTY);
}

TEST_F(ConnectorTest, WithoutGraphicsIsAPointThatMovesWithItsBlock) {
    auto const connector = Connector(DPoint2D(1, 2));
    EXPECT_EQ(connector->GetExtents(), DBox2D(1, 2, 1, 2));
    connector->MoveItem(5, 5);
    EXPECT_EQ(connector->GetPosition(), DPoint2D(1, 2));
    block->MoveItem(5, 5);
    EXPECT_EQ(connector->GetExtents(), DBox2D(6, 7, 6, 7));
    block->MirrorItem(DPoint2D(0, 0), true);
    EXPECT_EQ(connector->GetPosition(), DPoint2D(6, -7));
}

TEST_F(ConnectorTest, NodeTakenOutOfItsTreeLeavesItsConnector) {
    auto const connector = Connector(DPoint2D(0, 0));
    connector->Attach(wiring.FreeWire(net, DPoint2D(0, 0), DPoint2D(1, 0)));
    auto const node = connector->GetConnections()[0];
    EXPECT_TRUE(node->Contacts(DPoint2D(0, 0)));
    EXPECT_FALSE(node->Contacts(DPoint2D(1, 0)));
    net->DestroyConnectivity();
    EXPECT_TRUE(connector->GetConnections().empty());
    EXPECT_TRUE(node->IsLeaf());
}

TEST_F(ConnectorTest, WritesBlockNumberAndPlace) {
    record->name = "U1";
    auto const connector = Connector(DPoint2D(2, 3));
    EXPECT_EQ(connector->ToString(), "ConnectorInstance U1:1 at 2,3");
    connector->Attach(wiring.FreeWire(net, DPoint2D(2, 3), DPoint2D(4, 3)));
    EXPECT_EQ(connector->GetConnections()[0]->ToString(),
              "ConnectorInstanceNode on ConnectorInstance U1:1 at 2,3");
}

TEST_F(ConnectorTest, OutlivesItsBlockWithoutPointingAtIt) {
    auto const connector = Connector(DPoint2D(0, 0));
    block = nullptr;
    EXPECT_FALSE(connector->GetBlockInstance());
    EXPECT_FALSE(connector->GetFigure());
    Color color = Color::RED;
    EXPECT_FALSE(connector->GetColorSetting(Setting::COLOR, color));
    EXPECT_EQ(connector->ToString(), "ConnectorInstance :1 at 0,0");
}

TEST_F(ConnectorTest, OnANullBlockLivesThroughItsConstructor) {
    SmartPtr<ConnectorInstance> const connector =
        new ConnectorInstance(SmartPtr<BaseBlockInstance>(), wiring.Lock(), "1", DPoint2D(1, 1));
    EXPECT_EQ(connector->GetRefCount(), 1u);
    EXPECT_FALSE(connector->GetBlockInstance());
}

}  // namespace
}  // namespace figrep::testing
