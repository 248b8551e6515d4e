#include <figk/SettingValue.h>
#include <figrep/CableInstance.h>
#include <figrep/GenericGraphic.h>
#include <figrep/Setting.h>
#include <figrep/TextGraphic.h>
#include <figrep/TextLabelContainerGroup.h>
#include <gtest/gtest.h>
#include <support/LiveObjects.h>
#include <malloc.h>

#include "KernelFakes.h"
#include "Wiring.h"

namespace figrep::testing {
namespace {

SmartPtr<TextGraphic> Label(Wiring& wiring, SmartPtr<Segment> const& wire,
                            std::string const& text) {
    auto const label =
        TextGraphic::Create(wiring.Lock(), Symbol(text), wire->GetTextLabelContainerGroup());
    wire->Add(SmartPtr<GraphicGroupMember>(label));
    return label;
}

TEST(SubNet, HeadAfterAPivotFromElsewhereIsTheSameNodeAndHeadAgain) {
    Wiring wiring;
    auto const net = wiring.Net();
    auto const top = wiring.Wire(net, DPoint2D(0, 0), DPoint2D(1, 0));
    auto const end = wiring.FreeWire(net, DPoint2D(1, 0), DPoint2D(2, 0), top);
    end->Pivot(nullptr);
    ASSERT_FALSE(top->IsHead());
    EXPECT_EQ(net->GetHead(), top);
    EXPECT_TRUE(top->IsHead());
}

TEST(SubNet, WithoutHeadHasNoExtents) {
    Wiring wiring;
    auto const net = wiring.Net();
    EXPECT_FALSE(net->GetHead());
    EXPECT_EQ(net->GetExtents(), DBox2D::EMPTY);
    net->MoveItem(1, 1);
    net->SetHighlight(true);
    EXPECT_FALSE(net->GetSingleTextLabel());
    net->DestroyConnectivity();
}

TEST(SubNet, MovesItsPortNodesOnNetsButNothingOnHighways) {
    BusWiring wiring(1);
    auto const net = wiring.nets[0];
    SmartPtr<FakeHighway> const highway = new FakeHighway("H");
    SmartPtr<FakePort> const record = new FakePort("P");
    record->highway = highway;
    SmartPtr<Port> const busPort = new Port(wiring.Lock(), record);
    SmartPtr<Port> const netPort = new Port(wiring.figure, wiring.Lock(), "");
    auto const onNet = wiring.NetPort(netPort, net, DPoint2D(5, 1), wiring.entries[0]);
    auto const onBus = wiring.BusPort(busPort, wiring.bus, DPoint2D(1, 1), wiring.branches[0]);
    onBus->Add(net);

    net->MoveItem(100, 0);

    EXPECT_EQ(onNet->GetPosition(), DPoint2D(105, 1));
    EXPECT_EQ(onBus->GetPosition(), DPoint2D(1, 1));
    EXPECT_EQ(wiring.branches[0]->GetExtents(), DBox2D(0, 1, 1, 1));
    EXPECT_EQ(wiring.entries[0]->GetExtents(), DBox2D(101, 1, 105, 1));
    EXPECT_EQ(wiring.exits[0]->GetExtents(), DBox2D(101, 2, 105, 2));
}

TEST(SubNet, TakenApartLeavesTheHighwayInPlaceAndOtherNetsWorking) {
    BusWiring wiring(3);
    auto const highway = NodesOf(wiring.bus->GetHead());
    auto const gone = wiring.nets[1];
    wiring.nets[1]->GetHead();

    gone->DestroyConnectivity();

    EXPECT_EQ(NodesOf(wiring.bus->GetHead()).size(), highway.size() + 2);  // two idle taps
    for (auto const& node : highway)
        EXPECT_TRUE(Holds(NodesOf(wiring.bus->GetHead()), node));
    for (std::size_t const i : {0u, 2u}) {
        EXPECT_TRUE(Holds(NodesOf(wiring.nets[i]->GetHead()), wiring.exits[i]));
    }
    for (auto const& segment : wiring.branches)
        EXPECT_FALSE(segment->Visit(gone));
    std::vector<SmartPtr<SubNet>> left;
    wiring.bus->GetSubNets(left);
    EXPECT_EQ(left, (std::vector{wiring.nets[0], wiring.nets[2]}));
    EXPECT_FALSE(gone->GetHead());
    EXPECT_TRUE(gone->GetHighwayNodes().empty());
    EXPECT_TRUE(wiring.exits[1]->IsHead());
}

TEST(SubNet, TakenApartFreesPiecesBehindATapThatFoundNoSegment) {
    Wiring wiring;
    auto const net = wiring.Net();
    auto const bus = wiring.Bus();
    auto const on = wiring.BusWire(bus, DPoint2D(0, 0), DPoint2D(1, 0));
    auto const near = wiring.Wire(net, DPoint2D(1, 0), DPoint2D(2, 0));
    auto const far = wiring.FreeWire(net, DPoint2D(8, 0), DPoint2D(9, 0));
    auto const farEnd = wiring.FreeWire(net, DPoint2D(9, 0), DPoint2D(9, 1), far);
    wiring.Tap(on, near);
    SmartPtr<HighwayNode> lost = new HighwayNode(wiring.Lock(), nullptr, bus, far);

    net->DestroyConnectivity();

    EXPECT_TRUE(far->IsHead());
    EXPECT_TRUE(far->IsLeaf());
    EXPECT_TRUE(farEnd->IsHead());
    EXPECT_TRUE(lost->IsHead());
    EXPECT_FALSE(lost->GetNetConnectionNode());
}

TEST(SubNet, TakenApartWithItsFigureLeavesNothingAlive) {
    auto const work = [] {
        BusWiring wiring(4);
        wiring.nets[2]->GetHead();
        SmartPtr<Port> const port = new Port(wiring.figure, wiring.Lock(), "");
        wiring.NetPort(port, wiring.nets[0], DPoint2D(5, 1), wiring.entries[0]);
        wiring.nets[1]->SetStartNode(wiring.entries[1]);
        Label(wiring, du::DynamicCast<Segment>(wiring.entries[1]), "red");
        wiring.nets[1]->GetSingleTextLabel();
    };
    EXPECT_EQ(figrep::test::ObjectsLeftBy(work), 0);
}

TEST(SubNet, RemovedFromItsFigureLeavesNothingAliveWhenTheFigureGoes) {
    auto const work = [] {
        BusWiring wiring(2);
        wiring.nets[0]->GetHead();
        wiring.figure->RemoveItem(wiring.nets[0]);
        EXPECT_TRUE(Holds(NodesOf(wiring.nets[1]->GetHead()), wiring.exits[1]));
    };
    EXPECT_EQ(figrep::test::ObjectsLeftBy(work), 0);
}

TEST(SubNet, LabelWithAColourOnAUserMadeSegmentColoursTheSubNet) {
    Wiring wiring;
    auto const net = wiring.Net();
    auto const wire = wiring.Wire(net, DPoint2D(0, 0), DPoint2D(10, 0));
    Color color = Color::BLACK;
    Label(wiring, wire, "plain");
    EXPECT_FALSE(net->GetColorSetting(Setting::COLOR, color));
    Label(wiring, wire, "net red");
    EXPECT_TRUE(net->GetColorSetting(Setting::COLOR, color));
    EXPECT_EQ(color, Color::RED);
}

TEST(SubNet, LabelWithAColourOnAKernelSubNetDoesNotColourIt) {
    Wiring wiring;
    SmartPtr<FakeSubNet> const record = new FakeSubNet("kernel");
    SmartPtr<SubNet> const net = new SubNet(wiring.figure, wiring.Lock(), record);
    wiring.figure->Receive(net);
    auto const wire = wiring.Wire(net, DPoint2D(0, 0), DPoint2D(10, 0));
    Label(wiring, wire, "red");
    Color color = Color::BLACK;
    EXPECT_FALSE(net->GetColorSetting(Setting::COLOR, color));
    EXPECT_EQ(net->GetId(), Symbol("kernel"));
}

TEST(SubNet, SetHeadDropsTheCachedLabelAndTheNextQuestionLooksAgain) {
    Wiring wiring;
    auto const net = wiring.Net();
    auto const first = wiring.Wire(net, DPoint2D(0, 0), DPoint2D(10, 0));
    auto const second = wiring.FreeWire(net, DPoint2D(10, 0), DPoint2D(20, 0), first);
    auto const near = Label(wiring, first, "near");
    auto const far = Label(wiring, second, "far");
    EXPECT_EQ(net->GetSingleTextLabel(), near);
    net->SetHead(second);
    EXPECT_EQ(net->GetSingleTextLabel(), far);
}

TEST(SubNet, IsNamedAsItsKernelNetAndElseAsItself) {
    Wiring wiring;
    SmartPtr<FakeNet> const kernelNet = new FakeNet("CLK");
    kernelNet->name = "CLK";
    SmartPtr<FakeSubNet> const record = new FakeSubNet("s");
    record->net = kernelNet.Get();
    SmartPtr<SubNet> const net = new SubNet(wiring.figure, wiring.Lock(), record);
    EXPECT_EQ(net->GetName(), "CLK");
    EXPECT_EQ(wiring.Net("own")->GetName(), "own");
}

TEST(SubNet, OfTheFiguresOwnGetsANumberedId) {
    Wiring wiring;
    EXPECT_EQ(wiring.Net()->GetId(), Symbol("subnet/0"));
    EXPECT_EQ(wiring.Net()->GetId(), Symbol("subnet/1"));
    EXPECT_EQ(wiring.Bus()->GetId(), Symbol("sub_highway/0"));
    EXPECT_EQ(wiring.figure->GetSubNets().size(), 2u);
    SmartPtr<SubHighway> const outside = new SubHighway(nullptr, wiring.Lock(), "alone");
    EXPECT_EQ(outside->GetId(), Symbol("alone"));
    EXPECT_EQ(outside->GetName(), "");
}

TEST(SubNet, BoxFollowsEveryTransformOfAMember) {
    Wiring wiring;
    auto const net = wiring.Net();
    auto const wire = wiring.Wire(net, DPoint2D(0, 0), DPoint2D(4, 0));
    EXPECT_EQ(net->GetExtents(), DBox2D(0, 0, 4, 0));
    wire->MoveItem(1, 1);
    EXPECT_EQ(net->GetExtents(), DBox2D(1, 1, 5, 1));
    wire->MirrorItem(DPoint2D(0, 0), true);
    EXPECT_EQ(net->GetExtents(), DBox2D(1, -1, 5, -1));
    net->ScaleItem(DPoint2D(0, 0), 2);
    EXPECT_EQ(net->GetExtents(), DBox2D(2, -2, 10, -2));
    net->ScaleItem(DPoint2D(0, 0), 0);
    EXPECT_EQ(net->GetExtents(), DBox2D(2, -2, 10, -2));
    wiring.FreeWire(net, DPoint2D(10, -2), DPoint2D(10, 7), wire);
    EXPECT_EQ(net->GetExtents(), DBox2D(2, -2, 10, 7));
}

TEST(SubNet, BoxHoldsItsStretchOfAHighwayAndFollowsIt) {
    BusWiring wiring(2);
    EXPECT_EQ(wiring.nets[0]->GetExtents(), DBox2D(0, 1, 5, 2));
    wiring.bus->MoveItem(-10, 0);
    EXPECT_EQ(wiring.nets[0]->GetExtents(), DBox2D(-10, 1, 5, 2));
    EXPECT_EQ(wiring.bus->GetExtents(), DBox2D(-10, 0, -9, 5));
}

TEST(SubNet, BoxFollowsWhichSegmentsOfAHighwayItRunsOn) {
    BusWiring wiring(2);
    auto const net = wiring.nets[0];
    EXPECT_EQ(net->GetExtents(), DBox2D(0, 1, 5, 2));
    wiring.trunk[0]->Add(net);
    EXPECT_EQ(net->GetExtents(), DBox2D(0, 0, 5, 2));
    wiring.trunk[0]->Remove(net);
    EXPECT_EQ(net->GetExtents(), DBox2D(0, 1, 5, 2));
}

TEST(SubNet, AnotherStartAsksForNewPictures) {
    Wiring wiring;
    auto const net = wiring.Net();
    auto const wire = wiring.Wire(net, DPoint2D(0, 0), DPoint2D(4, 0));
    net->SetGraphicalUpdateNeeded(false);
    net->SetStartSegment(wire);
    EXPECT_TRUE(net->GetGraphicalUpdateNeeded());
    net->SetGraphicalUpdateNeeded(false);
    net->SetStartNode(wire);
    EXPECT_TRUE(net->GetGraphicalUpdateNeeded());
    net->SetGraphicalUpdateNeeded(false);
    net->SetStartNode(wire);
    net->SetStartSegment(wire);
    EXPECT_FALSE(net->GetGraphicalUpdateNeeded());
}

TEST(SubNet, HighlightReachesItsWiresAndAsksForNewPicturesOfItsHighways) {
    BusWiring wiring(2);
    wiring.bus->SetGraphicalUpdateNeeded(false);
    wiring.nets[0]->SetHighlight(true);
    EXPECT_TRUE(du::DynamicCast<Segment>(wiring.exits[0])->GetHighlight());
    EXPECT_TRUE(wiring.branches[0]->GetHighlight());
    EXPECT_FALSE(wiring.branches[2]->GetHighlight());
    EXPECT_FALSE(du::DynamicCast<Segment>(wiring.entries[1])->GetHighlight());
    EXPECT_TRUE(wiring.bus->GetGraphicalUpdateNeeded());
}

SmartPtr<Setting> Colored(Color const& color) {
    SmartPtr<figk::BaseSettingValue> const value(new figk::SettingValue<Color>(color));
    return new Setting(Setting::COLOR, value, Setting::LEVEL_FORCED, true);
}

TEST(SubNet, ChangedSettingMarksTheNetsThatItCrossesAlsoBehindAHighway) {
    BusWiring wiring(1);
    auto const crossed = wiring.Net();
    wiring.Wire(crossed, DPoint2D(3, 1.5), DPoint2D(3, 9));
    wiring.figure->SetLoaded();
    wiring.figure->UpdateContent();
    ASSERT_TRUE(wiring.exits[0]->HasCrossingPoints());
    ASSERT_FALSE(wiring.entries[0]->HasCrossingPoints());
    wiring.figure->PrePivot(nullptr);  // the exit isn't linked to the head now
    crossed->SetGraphicalUpdateNeeded(false);
    wiring.nets[0]->SetGraphicalUpdateNeeded(false);
    wiring.nets[0]->AddSetting(Colored(Color::RED), false);
    EXPECT_TRUE(wiring.nets[0]->GetGraphicalUpdateNeeded());
    EXPECT_TRUE(crossed->GetGraphicalUpdateNeeded());
}

TEST(SubNet, InheritsFromItsCableBeforeItsFigure) {
    Wiring wiring;
    auto const net = wiring.Net();
    wiring.figure->AddSetting(Colored(Color::RED), false);
    Color color = Color::BLACK;
    figk::Setting::Level level = figk::Setting::LEVEL_ALL;
    unsigned depth = 0;
    ASSERT_TRUE(net->GetColorSetting(Setting::COLOR, color, level, depth));
    EXPECT_EQ(color, Color::RED);
    EXPECT_EQ(depth, 1u);
    SmartPtr<CableInstance> const cable = new CableInstance(wiring.figure, "W1");
    net->SetGraphicalUpdateNeeded(false);
    cable->Add(net);
    EXPECT_TRUE(net->GetGraphicalUpdateNeeded());
    net->SetGraphicalUpdateNeeded(false);
    cable->AddSetting(Colored(Color::GREEN), false);
    EXPECT_TRUE(net->GetGraphicalUpdateNeeded());
    ASSERT_TRUE(net->GetColorSetting(Setting::COLOR, color, level, depth));
    EXPECT_EQ(color, Color::GREEN);
    EXPECT_EQ(depth, 1u);
    cable->ClearSubNets();
    EXPECT_FALSE(net->GetCable());
}

TEST(SubNet, KnowsTheJunctionsThatBelongToAHighway) {
    BusWiring wiring(1);
    auto const head = wiring.bus->GetHead();
    auto const junction = head->GetLeftSuccessor();
    ASSERT_TRUE(junction && junction->IsJunction());
    EXPECT_TRUE(SubNet::NodeIsHighwayJunction(junction));
    EXPECT_FALSE(SubNet::NodeIsHighwayJunction(wiring.Junction(wiring.entries[0])));
    EXPECT_FALSE(SubNet::NodeIsHighwayJunction(head));
    EXPECT_FALSE(SubNet::NodeIsHighwayJunction(nullptr));
}

TEST(SubHighway, KeepsItsSubNetsOnceInTheOrderOfAdding) {
    Wiring wiring;
    auto const bus = wiring.Bus();
    auto const a = wiring.Net();
    auto const b = wiring.Net();
    for (auto const& net : {b, a, b})
        bus->Add(net);
    std::vector<SmartPtr<SubNet>> nets;
    bus->GetSubNets(nets);
    EXPECT_EQ(nets, (std::vector{b, a}));
}

TEST(SubHighway, TransformsAllItsNodesAndNoNet) {
    BusWiring wiring(1);
    wiring.nets[0]->GetHead();
    wiring.bus->MoveItem(0, 10);
    for (auto const& segment : wiring.trunk)
        EXPECT_GE(segment->GetExtents()[1], 10);
    EXPECT_EQ(wiring.entries[0]->GetExtents(), DBox2D(1, 1, 5, 1));
}

#ifndef __SANITIZE_ADDRESS__
TEST(NetSegment, CostsAtMostNineHundredBytesInAFigureWithoutPictures) {
    constexpr int COUNT = 4000;
    Wiring wiring;
    auto const net = wiring.Net();
    SmartPtr<ConnectionNode> last = wiring.Wire(net, DPoint2D(0, 0), DPoint2D(1, 0));
    std::size_t const before = mallinfo2().uordblks;
    for (int i = 1; i <= COUNT; ++i)
        last = wiring.FreeWire(net, DPoint2D(i, i % 3), DPoint2D(i + 1, i % 3), last);
    wiring.figure->ProcessNewContent();
    EXPECT_LE((mallinfo2().uordblks - before) / COUNT, 900u);
}
#endif

}  // namespace
}  // namespace figrep::testing
