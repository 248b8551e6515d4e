#include <figk/ConnectorInstance.h>
#include <figk/GenericGraphic.h>
#include <figk/Group.h>
#include <figrep/BlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/ConnectorInstanceNode.h>
#include <figrep/FigureSheetDelta.h>
#include <figrep/Format.h>
#include <figrep/GenericGraphic.h>
#include <figrep/HighwayNode.h>
#include <figrep/HighwaySegment.h>
#include <figrep/KernelToFigureFactory.h>
#include <figrep/Miscellaneous.h>
#include <figrep/NetSegment.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SchematicRepresentation.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TableInstance.h>
#include <figrep/TextGraphic.h>
#include <figrep/TextLabelContainerGroup.h>
#include <figrep/TitleBlock.h>
#include <figrep/TokenObserver.h>
#include <gtest/gtest.h>
#include <zv2d/Definition.h>
#include <zv2d/Instance.h>
#include <zv2d/TexPolyline.h>
#include <zvk/SerializedContentElement.h>

#include <cstdlib>

#include "Drawings.h"

namespace figrep::testing {
namespace {

constexpr auto COPY = figk::AbstractDelta::ACTION_COPY;
constexpr char const* IDENTIFY = "ZVIEW_SCHEMATIC_IDENTIFY";

std::size_t CountNodes(SmartPtr<SubNet> const& subNet) {
    auto const head = subNet->GetHead();
    std::size_t count = 0;
    if (!head) return 0;
    for (auto node = head->Begin(); node != head->End(); ++node)
        ++count;
    return count;
}

SmartPtr<zv2d::Instance> Line(DPoint2D const& a, DPoint2D const& b) {
    SmartPtr<zv2d::Definition> const definition = new zv2d::Definition();
    definition->Add(new zv2d::TexPolyline(std::vector<DPoint2D>{a, b}, nullptr));
    return new zv2d::Instance(definition, DMat33());
}

figkernel::GroupSource LineGroup(DPoint2D const& a, DPoint2D const& b) {
    figkernel::GraphicSource graphic;
    graphic.instances.push_back(Line(a, b));
    figkernel::GroupSource group;
    group.graphics.push_back(graphic);
    return group;
}

TEST(FigureSheetDelta, BringsInBlocksConnectorsAndWires) {
    InstalledDesign const drawing(TwoBlocksAndAWire());
    auto const figure = LoadedFigure(drawing.Sheet());
    auto const blocks = figure->GetBlockInstances();
    ASSERT_EQ(blocks.size(), 2u);
    EXPECT_EQ(blocks[0]->GetName(), "U1");
    EXPECT_EQ(blocks[0]->GetFigure(), figure);
    ASSERT_EQ(blocks[0]->GetNumConnectorInstances(), 1u);
    EXPECT_EQ(blocks[0]->GetConnectorInstances()[0]->GetName(), "1");
    ASSERT_EQ(figure->GetSubNets().size(), 1u);
    auto const subNet = figure->GetSubNets()[0];
    EXPECT_EQ(subNet->GetName(), "N");
    EXPECT_EQ(CountNodes(subNet), 4u);  // two wires, a connector at either end
    EXPECT_EQ(figure->GetSheets().size(), 1u);
    EXPECT_EQ(figure->GetDesigns(), std::vector<SmartPtr<figk::Design>>{drawing.design});
    EXPECT_FALSE(figure->HasDeltaFailures());
    EXPECT_TRUE(figure->GetLoaded());
    EXPECT_TRUE(figure->IsSbomItemInFigure(blocks[0]->GetKernelItem()));
}

TEST(FigureSheetDelta, TiesWiresToTheConnectorsThatTheyReach) {
    InstalledDesign const drawing(TwoBlocksAndAWire());
    auto const figure = LoadedFigure(drawing.Sheet());
    for (auto const& block : figure->GetBlockInstances()) {
        auto const connections = block->GetConnectorInstances()[0]->GetConnections();
        ASSERT_EQ(connections.size(), 1u);
        EXPECT_EQ(connections[0]->GetSubNet(), figure->GetSubNets()[0]);
    }
    EXPECT_EQ(figure->GetSubNets()[0]->GetHead()->GetNodeType(),
              ConnectionNode::NODE_CONNECTOR_INSTANCE);
}

TEST(FigureSheetDelta, NotesBlocksAndSubNetsAsChanged) {
    InstalledDesign const drawing(BusOf(2));
    SmartPtr<Figure> const figure = new Figure();
    SmartPtr<FigureSheetDelta> const delta = new FigureSheetDelta(drawing.Sheet(), COPY);
    EXPECT_TRUE(delta->IsPrimary());
    EXPECT_TRUE(delta->Apply(*figure));
    Figure::Items items;
    delta->TakeChangedItems(items);
    ASSERT_EQ(items.size(), 2u);  // sub-highways aren't noted
    EXPECT_EQ(items[0]->GetType(), AbstractFigureItem::ITEM_SUB_NET);
}

TEST(FigureSheetDelta, BoxOfWiresAndGraphicsBecomesTheFiguresExtents) {
    auto source = TwoBlocksAndAWire();
    source.sheets[0].labels = LineGroup(DPoint2D(-5, 1), DPoint2D(0, 30));
    InstalledDesign const drawing(source);
    auto const figure = LoadedFigure(drawing.Sheet());
    EXPECT_EQ(figure->GetExtents(), DBox2D(-5, 0, 20, 30));
}

TEST(FigureSheetDelta, SheetWithoutWiresAndGraphicsLeavesTheExtentsToTheVisitor) {
    auto source = NamedDesign("bare", 1);
    source.sheets[0].blocks = {BlockWith("U1", {})};
    InstalledDesign const drawing(source);
    auto const figure = LoadedFigure(drawing.Sheet());
    EXPECT_EQ(figure->GetExtents(), DBox2D::EMPTY);
    GenericGraphic::Create(figure->GetLock(), DBox2D(0, 0, 3, 4), figure->GetBlockInstances()[0]);
    EXPECT_EQ(figure->GetExtents(), DBox2D(0, 0, 3, 4));
}

TEST(FigureSheetDelta, MiscellaneousItemsComeInOnlyForTheExactMode) {
    auto source = NamedDesign("misc", 1);
    figkernel::MiscellaneousSource miscellaneous;
    miscellaneous.id = "m";
    source.sheets[0].miscellaneous.push_back(miscellaneous);
    InstalledDesign const drawing(source);
    auto const count = [&] { return LoadedFigure(drawing.Sheet())->GetMiscellaneous().size(); };
    unsetenv(IDENTIFY);
    EXPECT_EQ(count(), 0u);
    setenv(IDENTIFY, "0", 1);
    EXPECT_EQ(count(), 0u);
    setenv(IDENTIFY, "11", 1);
    EXPECT_EQ(count(), 0u);
    setenv(IDENTIFY, "1", 1);
    EXPECT_EQ(count(), 1u);
    unsetenv(IDENTIFY);
}

TEST(FigureSheetDelta, MadeFromIdsFindsItsSheetInTheKernel) {
    InstalledDesign const drawing(TwoBlocksAndAWire());
    SmartPtr<Figure> const figure = new Figure();
    figure->AddAndApplyDelta(
        new FigureSheetDelta(drawing.design->GetId(), drawing.Sheet()->GetId(), COPY), false,
        false);
    EXPECT_EQ(figure->GetBlockInstances().size(), 2u);
    EXPECT_FALSE(figure->HasDeltaFailures());
}

TEST(FigureSheetDelta, LostSheetFailsWithStatusOneAndLeavesTheFigureAsItWas) {
    InstalledDesign const drawing(TwoBlocksAndAWire());
    SmartPtr<Figure> const figure = new Figure();
    SmartPtr<FigureSheetDelta> const lost =
        new FigureSheetDelta(drawing.design->GetId(), Symbol("gone"), COPY);
    SmartPtr<FigureSheetDelta> const behind = new FigureSheetDelta(drawing.Sheet(), COPY);
    figure->AddAndApplyDeltas({lost, behind}, false);
    EXPECT_EQ(lost->GetStatus(), 1);
    EXPECT_TRUE(figure->GetSheets().empty());
    EXPECT_TRUE(figure->GetBlockInstances().empty());
    EXPECT_TRUE(figure->HasDeltaFailures());
    EXPECT_EQ(figure->GetDeltas().size(), 2u);
}

figkernel::DesignSource TwoSheetsAndAPort() {
    auto design = NamedDesign("ported", 2);
    AddNets(design, {"N"});
    figkernel::PortSource port;
    port.id = "p";
    port.name = "OUT";
    port.net = 0;
    design.ports.push_back(port);
    for (auto& sheet : design.sheets) {
        sheet.wires = {WireOf(0, DPoint2D(0, 0), DPoint2D(20, 0))};
        figkernel::PortNodeSource node;
        node.port = 0;
        node.position = DPoint2D(20, 0);
        sheet.portNodes.push_back(node);
    }
    return design;
}

TEST(FigureSheetDelta, TwoSheetsThatShareAPortYieldOne) {
    InstalledDesign const drawing(TwoSheetsAndAPort());
    SmartPtr<Figure> const figure = new Figure();
    for (std::size_t i = 0; i < 2; ++i) {
        SmartPtr<FigureSheetDeltaGenerator> const generator =
            new FigureSheetDeltaGenerator(drawing.Sheet(i));
        figure->GenerateDeltas(*generator);
    }
    figure->ApplyDeltas(false);
    ASSERT_EQ(figure->GetPorts().size(), 1u);
    EXPECT_EQ(figure->GetPorts()[0]->GetPortNodes().size(), 2u);
    EXPECT_EQ(figure->GetSubNets().size(), 2u);
}

/// Makes port nodes as long as it is told to.
class PortFactory : public KernelToFigureFactory {
public:
    using KernelToFigureFactory::CreatePortNode;
    SmartPtr<PortNode> CreatePortNode(SmartPtr<Port> const& port, SmartPtr<SubNet> const& subNet,
                                      SmartPtr<figk::PortNode> const& record,
                                      SmartPtr<ConnectionNode> const& predecessor) override {
        if (!makes) return {};
        return KernelToFigureFactory::CreatePortNode(port, subNet, record, predecessor);
    }
    bool makes = true;
};

TEST(FigureSheetDelta, SecondApplicationHandsTheFirstPortNodesOverAgain) {
    InstalledDesign const drawing(TwoSheetsAndAPort());
    SmartPtr<Figure> const figure = new Figure();
    SmartPtr<PortFactory> const factory = new PortFactory();
    SmartPtr<FigureSheetDelta> const delta = new FigureSheetDelta(drawing.Sheet(), COPY);
    delta->SetFactory(factory);
    auto const representation = SchematicRepresentation::GetSingleton();
    delta->Apply(*figure);  // the figure has no name yet, so its node isn't registered
    representation->AddActiveFigure(figure, Symbol("F"));
    auto const registered = [&] {
        std::vector<FigurePortNodeDetail> details;
        representation->GetFiguresForPortNode(
            LoadedFigure(drawing.Sheet(1))->GetPorts().at(0)->GetPortNodes().at(0), {}, details);
        return representation->GetFigureDetails(details, Symbol("F")).size();
    };
    EXPECT_EQ(registered(), 0u);
    factory->makes = false;
    delta->Apply(*figure);
    EXPECT_EQ(figure->GetPorts().at(0)->GetPortNodes().size(), 1u);
    EXPECT_EQ(registered(), 1u);
    representation->RemoveFigure(figure);
}

TEST(FigureSheetDelta, NetsOnAHighwayAreTiedToIt) {
    InstalledDesign const drawing(BusOf(8));
    auto const figure = LoadedFigure(drawing.Sheet());
    ASSERT_EQ(figure->GetSubHighways().size(), 1u);
    auto const subHighway = figure->GetSubHighways()[0];
    ASSERT_EQ(figure->GetSubNets().size(), 8u);
    std::vector<SmartPtr<SubNet>> onHighway;
    subHighway->GetSubNets(onHighway);
    EXPECT_EQ(onHighway.size(), 8u);
    figure->PrePivot({});  // takes out the net that was walked last
    for (auto const& subNet : figure->GetSubNets()) {
        auto const nodes = subNet->GetHighwayNodes();
        EXPECT_EQ(nodes.size(), 2u) << subNet->GetName();  // where it comes on, where it leaves
        for (auto const& node : nodes) {
            EXPECT_EQ(node->GetSubHighway(), subHighway);
            EXPECT_TRUE(node->GetNetConnectionNode());
            EXPECT_TRUE(du::DynamicCast<HighwaySegment>(node->GetNonJunctionPredecessor()));
        }
    }
}

TEST(FigureSheetDelta, FindsWhatItBroughtInById) {
    InstalledDesign const drawing(TwoBlocksAndAWire());
    auto const figure = LoadedFigure(drawing.Sheet());
    auto const block = figure->GetBlockInstances()[1];
    EXPECT_EQ(figure->Find(block->GetId()), block);
    auto const connector = block->GetConnectorInstances()[0];
    EXPECT_EQ(figure->Find(connector->GetId()), connector);
    auto const subNet = figure->GetSubNets()[0];
    EXPECT_EQ(figure->Find(subNet->GetId()), subNet);
}

TEST(FigureSheetDelta, NestedGroupsOfABlockComeInNested) {
    auto source = NamedDesign("nested", 1);
    auto block = BlockWith("U1", {});
    block.graphics = LineGroup(DPoint2D(0, 0), DPoint2D(1, 0));
    block.graphics.groups.push_back(LineGroup(DPoint2D(0, 0), DPoint2D(0, 7)));
    block.graphics.groups[0].groups.push_back(LineGroup(DPoint2D(0, 0), DPoint2D(9, 0)));
    source.sheets[0].blocks = {block};
    InstalledDesign const drawing(source);
    auto const figure = LoadedFigure(drawing.Sheet());
    auto const made = figure->GetBlockInstances()[0];
    EXPECT_EQ(made->GetMemberExtents(), DBox2D(0, 0, 9, 7));
    EXPECT_EQ(std::distance(made->BeginGroup(), made->EndGroup()), 2);
}

TEST(FigureSheetDelta, TablesConnectorsJoinNoOtherBlock) {
    auto source = TwoBlocksAndAWire();
    figkernel::TableSource table;
    table.id = "t";
    table.name = "t";
    source.sheets[0].tables.push_back(table);
    InstalledDesign const drawing(source);
    auto const figure = LoadedFigure(drawing.Sheet());
    EXPECT_EQ(figure->GetTableInstances().size(), 1u);
    for (auto const& block : figure->GetBlockInstances()) {
        EXPECT_EQ(block->GetNumConnectorInstances(), 1u);
    }
}

TEST(FigureSheetDelta, BringsInNeitherFormatNorTitleBlock) {
    auto source = NamedDesign("framed", 1);
    figkernel::FormatSource format;
    format.id = "f";
    format.width = 297;
    format.height = 210;
    source.sheets[0].format = format;
    source.sheets[0].titleBlock = figkernel::TitleBlockSource();
    InstalledDesign const drawing(source);
    EXPECT_FALSE(LoadedFigure(drawing.Sheet())->GetFormat());
}

TEST(FigureSheetDelta, WritesTypeAndIds) {
    InstalledDesign const drawing(TwoBlocksAndAWire());
    SmartPtr<FigureSheetDelta> const delta = new FigureSheetDelta(drawing.Sheet(), COPY);
    zvk::SerializedContentElement element{Symbol("component")};
    delta->Serialize(&element);
    auto const text = [&](Symbol const& key) {
        auto const* value = element.FindProperty(key);
        return value ? std::get<Symbol>(*value) : Symbol("missing");
    };
    EXPECT_EQ(text(FigureSheetDelta::s_delta_type), Symbol("sheet_delta"));
    EXPECT_EQ(text(FigureSheetDelta::s_delta_id), drawing.Sheet()->GetId());
    EXPECT_EQ(text(FigureSheetDelta::s_delta_sheet), drawing.Sheet()->GetId());
    EXPECT_EQ(text(FigureSheetDelta::s_delta_design_id), drawing.design->GetId());
    EXPECT_EQ(FigureSheetDelta::GetClassTypeValue(), Symbol("sheet_delta"));
}

TEST(FigureSheetDelta, WithoutASheetWritesTheActionAlone) {
    SmartPtr<FigureSheetDelta> const delta = new FigureSheetDelta(Symbol("d"), Symbol("s"), COPY);
    zvk::SerializedContentElement element{Symbol("component")};
    delta->Serialize(&element);
    EXPECT_TRUE(element.FindProperty(FigureSheetDelta::s_delta_action));
    EXPECT_FALSE(element.FindProperty(FigureSheetDelta::s_delta_type));
    delta->Serialize(nullptr);
}

TEST(FigureSheetDelta, OtherActionsCopyNothing) {
    InstalledDesign const drawing(TwoBlocksAndAWire());
    SmartPtr<Figure> const figure = new Figure();
    SmartPtr<FigureSheetDelta> const delta =
        new FigureSheetDelta(drawing.Sheet(), figk::AbstractDelta::ACTION_CHANGE);
    EXPECT_TRUE(delta->Apply(*figure));
    EXPECT_TRUE(figure->GetBlockInstances().empty());
    EXPECT_EQ(figure->GetSheets().size(), 1u);
}

class OtherReceiver : public figk::AbstractDeltaReceiver {};

TEST(FigureSheetDelta, BringsNothingIntoWhatIsNoFigure) {
    InstalledDesign const drawing(TwoBlocksAndAWire());
    OtherReceiver receiver;
    SmartPtr<FigureSheetDelta> const delta = new FigureSheetDelta(drawing.Sheet(), COPY);
    EXPECT_TRUE(delta->Apply(receiver));
    Figure::Items items;
    delta->TakeChangedItems(items);
    EXPECT_TRUE(items.empty());
}

TEST(FigureSheetDelta, SecondApplicationBringsEverythingInOnceMore) {
    InstalledDesign const drawing(BusOf(2));
    SmartPtr<Figure> const figure = new Figure();
    SmartPtr<FigureSheetDelta> const delta = new FigureSheetDelta(drawing.Sheet(), COPY);
    delta->Apply(*figure);
    delta->Apply(*figure);
    EXPECT_EQ(figure->GetSubNets().size(), 4u);
    EXPECT_EQ(figure->GetSubHighways().size(), 2u);
    EXPECT_EQ(figure->GetSheets().size(), 1u);
}

TEST(FigureSheetDelta, CopyAppliesAsItsSourceDoes) {
    InstalledDesign const drawing(TwoBlocksAndAWire());
    SmartPtr<FigureSheetDelta> const delta = new FigureSheetDelta(drawing.Sheet(), COPY);
    SmartPtr<FigureSheetDelta> const copy = new FigureSheetDelta(*delta);
    SmartPtr<Figure> const figure = new Figure();
    EXPECT_TRUE(copy->Apply(*figure));
    EXPECT_EQ(figure->GetBlockInstances().size(), 2u);
}

/// Counts the blocks that it makes.
class CountingFactory : public KernelToFigureFactory {
public:
    SmartPtr<BlockInstance> CreateBlockInstance(
        SmartPtr<figk::BlockInstance> const& record) override {
        ++blocks;
        return KernelToFigureFactory::CreateBlockInstance(record);
    }
    int blocks = 0;
};

TEST(FigureSheetDeltaGenerator, GivesItsFactoryToTheDeltas) {
    InstalledDesign const drawing(TwoBlocksAndAWire());
    SmartPtr<CountingFactory> const factory = new CountingFactory();
    SmartPtr<FigureSheetDeltaGenerator> const generator =
        new FigureSheetDeltaGenerator(drawing.Sheet());
    generator->SetFactory(factory);
    SmartPtr<Figure> const figure = new Figure();
    figure->GenerateDeltas(*generator);
    figure->ApplyDeltas(false);
    EXPECT_EQ(factory->blocks, 2);
}

TEST(FigureSheetDeltaGenerator, EveryCallAddsADelta) {
    InstalledDesign const drawing(TwoBlocksAndAWire());
    SmartPtr<FigureSheetDeltaGenerator> const generator =
        new FigureSheetDeltaGenerator(drawing.Sheet());
    generator->Generate();
    generator->Generate();
    Figure::Deltas deltas;
    generator->GetDeltas(deltas);
    EXPECT_EQ(deltas.size(), 2u);
}

TEST(FigureSheetDelta, DrawingAndDroppingLeavesNothingBehind) {
    LoadedFigure({});  // what is made once stays for good
    auto const before = du::RefCounted::LiveCount();
    {
        auto source = BusOf(6);
        source.sheets[0].labels = LineGroup(DPoint2D(-5, 1), DPoint2D(0, 30));
        source.sheets[0].blocks = {BlockWith("U1", {Pin("1", DPoint2D(20, 5), 0)})};
        InstalledDesign const drawing(source);
        auto const figure = LoadedFigure(drawing.Sheet());
        figure->UpdateContent();
        auto const again = LoadedFigure(drawing.Sheet());
        again->ClearContent();
    }
    EXPECT_LE(du::RefCounted::LiveCount() - before, 8);  // interned attributes
}

constexpr int LONG = 20000;

/// The step of a zigzag, which no builder can join into one straight piece.
std::pair<DPoint2D, DPoint2D> ZigzagStep(int i) {
    double const x = i;
    double const y = i % 2;
    return {DPoint2D(x, y), DPoint2D(x + 1, 1 - y)};
}

TEST(FigureSheetDelta, LongWireNeedsNoDeepStack) {
    auto design = NamedDesign("long", 1);
    AddNets(design, {"N"});
    for (int i = 0; i < LONG; ++i) {
        auto const [from, to] = ZigzagStep(i);
        design.sheets[0].wires.push_back(WireOf(0, from, to));
    }
    InstalledDesign const drawing(design);
    auto const figure = LoadedFigure(drawing.Sheet());
    ASSERT_EQ(figure->GetSubNets().size(), 1u);
    EXPECT_EQ(CountNodes(figure->GetSubNets()[0]), static_cast<std::size_t>(LONG));
    figure->UpdateContent();
}

TEST(FigureSheetDelta, LongWayAlongAHighwayNeedsNoDeepStack) {
    auto design = NamedDesign("far", 1);
    AddNets(design, {"N"});
    figkernel::HighwaySource highway;
    highway.id = "H";
    highway.nets = {0};
    design.highways.push_back(highway);
    auto& sheet = design.sheets[0];
    for (int i = 0; i < LONG; ++i) {
        auto const [from, to] = ZigzagStep(i);
        figkernel::BusSource bus;
        bus.highway = 0;
        bus.from = from;
        bus.to = to;
        sheet.buses.push_back(bus);
    }
    for (double const x : {2.0, LONG - 2.0}) {
        figkernel::TapSource tap;
        tap.highway = 0;
        tap.net = 0;
        tap.busPoint = DPoint2D(x, 0);
        tap.netPoint = DPoint2D(x, -2);
        sheet.taps.push_back(tap);
        sheet.wires.push_back(WireOf(0, tap.netPoint, DPoint2D(x, -9)));
    }
    InstalledDesign const drawing(design);
    auto const figure = LoadedFigure(drawing.Sheet());
    ASSERT_EQ(figure->GetSubNets().size(), 1u);
    EXPECT_EQ(figure->GetSubNets()[0]->GetHighwayNodes().size(), 2u);
    figure->UpdateContent();
}

/// Opens what deltas use to carry groups over.
class Groups : public MapGroupContent {
public:
    using MapGroupContent::ClearGroupMap;
    using MapGroupContent::CopyGenericGraphic;
    using MapGroupContent::GetFigureGroup;
    using MapGroupContent::MapGroups;
    using MapGroupContent::StartGroup;
};

class FakeGraphic : public figk::GenericGraphic {
public:
    Symbol const& GetId() const override { return Symbol::EMPTY; }
    std::string const& GetName() const override { return name_; }

private:
    std::string name_;
};

TEST(MapGroupContent, GraphicOfAnUnknownGroupIsDropped) {
    Groups groups;
    SmartPtr<figk::Group> const group = new figk::Group();
    SmartPtr<figk::GenericGraphic> const graphic = new FakeGraphic();
    EXPECT_FALSE(groups.CopyGenericGraphic(graphic));
    group->Insert(graphic);
    EXPECT_FALSE(groups.CopyGenericGraphic(graphic));
    EXPECT_FALSE(groups.CopyGenericGraphic({}));
    SmartPtr<GraphicGroup> const figureGroup = new GraphicGroup(SmartPtr<figk::Group>());
    groups.MapGroups(group, figureGroup);
    EXPECT_TRUE(groups.CopyGenericGraphic(graphic));
    EXPECT_FALSE(figureGroup->IsEmpty());
}

TEST(MapGroupContent, FirstPairOfAGroupStays) {
    Groups groups;
    SmartPtr<figk::Group> const group = new figk::Group();
    group->Insert(SmartPtr<figk::GenericGraphic>(new FakeGraphic()));
    SmartPtr<GraphicGroup> const first = new GraphicGroup(SmartPtr<figk::Group>());
    SmartPtr<GraphicGroup> const second = new GraphicGroup(SmartPtr<figk::Group>());
    groups.MapGroups(group, first);
    groups.MapGroups(group, second);
    EXPECT_EQ(groups.GetFigureGroup(group), first);
    groups.ClearGroupMap();
    EXPECT_FALSE(groups.GetFigureGroup(group));
    groups.MapGroups({}, first);
    groups.StartGroup({});
}

TEST(MapGroupContent, OnlySubGroupsOfKnownGroupsAreMade) {
    Groups groups;
    SmartPtr<figk::Group> const top = new figk::Group();
    SmartPtr<figk::GraphicGroup> const nested = new figk::GraphicGroup();
    nested->Insert(SmartPtr<figk::GenericGraphic>(new FakeGraphic()));
    top->Insert(nested);
    groups.StartGroup(nested);
    EXPECT_FALSE(groups.GetFigureGroup(nested));
    SmartPtr<GraphicGroup> const figureTop = new GraphicGroup(SmartPtr<figk::Group>());
    groups.MapGroups(top, figureTop);
    groups.StartGroup(nested);
    auto const made = groups.GetFigureGroup(nested);
    ASSERT_TRUE(made);
    EXPECT_EQ(made->GetOwner(), SmartPtr<figk::Group>(figureTop));
    groups.StartGroup(nested);
    EXPECT_EQ(groups.GetFigureGroup(nested), made);
}

}  // namespace
}  // namespace figrep::testing
