#include <figrep/FigureSubNetDelta.h>

#include <figk/BaseVisitCheck.h>
#include <figk/JunctionNode.h>
#include <figrep/ConnectorInstanceNode.h>
#include <figrep/DeltaVertexNode.h>
#include <figrep/HighwayNode.h>
#include <figrep/ItemAttrInfo.h>
#include <figrep/NetSegment.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SubHighway.h>
#include <figrep/TextGraphic.h>
#include <figrep/TextLabelContainerGroup.h>

#include "../connectivity/KernelFakes.h"
#include "DeltaTestSupport.h"

namespace figrep::testing {
namespace {

constexpr auto COPY = figk::AbstractDelta::ACTION_COPY;
constexpr auto CREATE = figk::AbstractDelta::ACTION_CREATE;

SmartPtr<DeltaVertexNode> Vertex(double x, double y,
                                 SmartPtr<figk::BaseConnectionNode> const& above = nullptr) {
    return new DeltaVertexNode(nullptr, DPoint2D(x, y), above);
}

SmartPtr<ItemAttrInfo> Label(std::string const& text) {
    SmartPtr<ItemAttrInfo> const info = new ItemAttrInfo();
    info->label = Symbol(text);
    return info;
}

/// A sheet with one net, already without its figure sub-net.
class FigureSubNetDeltaTest : public ::testing::Test {
protected:
    FigureSubNetDeltaTest() { figure->RemoveItem(figure->GetSubNets().at(0)); }

    InstalledDesign drawing{TwoBlocksAndAWire()};
    SmartPtr<Figure> figure = LoadedFigure(drawing.Sheet());
    SmartPtr<figk::SubNet> record = drawing.Sheet()->GetSubNets().at(0);

    SmartPtr<FigureSubNetDelta> Drawn(SmartPtr<DeltaVertexNode> const& head,
                                      SmartPtr<ItemAttrInfo> const& label = nullptr) const {
        return new FigureSubNetDelta(head, label, CREATE, record);
    }
    SmartPtr<SubNet> Apply(SmartPtr<FigureSubNetDelta> const& delta) const {
        figure->AddAndApplyDelta(delta, false, false);
        EXPECT_FALSE(figure->HasDeltaFailures());
        auto const subNets = figure->GetSubNets();
        return subNets.empty() ? SmartPtr<SubNet>() : subNets.back();
    }
    static Strings LabelsOf(SmartPtr<SubNet> const& subNet) {
        Strings labels;
        for (auto const& segment : NodesOf<NetSegment>(subNet)) {
            if (!segment->HasTextLabels()) continue;
            for (auto const& member : *segment->GetTextLabelContainerGroup()) {
                auto const text = du::DynamicCast<TextGraphic>(member);
                labels.push_back(EndsOf(*segment) + " " + text->GetText().GetString());
            }
        }
        return labels;
    }
};

TEST_F(FigureSubNetDeltaTest, CopyBringsInTheWiresOfTheKernelsSubNet) {
    SmartPtr<FigureSubNetDelta> const delta = new FigureSubNetDelta(record, COPY);
    EXPECT_FALSE(delta->IsPrimary());
    auto const subNet = Apply(delta);
    ASSERT_TRUE(subNet);
    EXPECT_EQ(subNet->GetId(), record->GetId());
    EXPECT_EQ(subNet->GetFigure(), figure);
    EXPECT_EQ(WiresOf<NetSegment>(subNet).size(), 2u);
}

TEST_F(FigureSubNetDeltaTest, CopyFindsItsSubNetById) {
    SmartPtr<FigureSubNetDelta> const delta = new FigureSubNetDelta(
        drawing.design->GetId(), drawing.Sheet()->GetId(), record->GetId(), COPY);
    EXPECT_EQ(WiresOf<NetSegment>(Apply(delta)).size(), 2u);
}

TEST_F(FigureSubNetDeltaTest, CopyMakesNoConnectorsAndNoPortNodes) {
    auto const subNet = Apply(new FigureSubNetDelta(record, COPY));
    EXPECT_TRUE(NodesOf<ConnectorInstanceNode>(subNet).empty());
    test::Drawing ported;
    ported.NetPort("P", "N", 0, 0).Wire("N", 0, 0, 10, 0);
    InstalledDesign const other(ported.Source());
    SmartPtr<Figure> const bare = new Figure();
    bare->AddAndApplyDelta(new FigureSubNetDelta(other.Sheet()->GetSubNets().at(0), COPY), false,
                           false);
    ASSERT_EQ(bare->GetSubNets().size(), 1u);
    EXPECT_TRUE(NodesOf<PortNode>(bare->GetSubNets()[0]).empty());
    EXPECT_TRUE(bare->GetPorts().empty());
}

TEST_F(FigureSubNetDeltaTest, CopyBringsLabelsOfWires) {
    test::Drawing labelled;
    labelled.Wire("N", 0, 0, 10, 0).Label("N", "clock", 5, 0);
    InstalledDesign const other(labelled.Source());
    SmartPtr<Figure> const bare = new Figure();
    bare->AddAndApplyDelta(new FigureSubNetDelta(other.Sheet()->GetSubNets().at(0), COPY), false,
                           false);
    EXPECT_EQ(LabelsOf(bare->GetSubNets().at(0)), (Strings{"0,0 10,0 clock"}));
}

TEST_F(FigureSubNetDeltaTest, AppliedAgainItBuildsEverythingAnew) {
    SmartPtr<FigureSubNetDelta> const delta = new FigureSubNetDelta(record, COPY);
    auto const first = Apply(delta);
    SmartPtr<Figure> const other = LoadedFigure(drawing.Sheet());
    other->RemoveItem(other->GetSubNets().at(0));
    EXPECT_TRUE(delta->Apply(*other));
    ASSERT_EQ(other->GetSubNets().size(), 1u);
    EXPECT_NE(other->GetSubNets()[0], first);
    EXPECT_EQ(WiresOf<NetSegment>(other->GetSubNets()[0]), WiresOf<NetSegment>(first));
    SmartPtr<FigureSubNetDelta> const copy = new FigureSubNetDelta(*delta);
    EXPECT_EQ(WiresOf<NetSegment>(Apply(copy)), WiresOf<NetSegment>(first));
}

TEST(FigureSubNetDelta, OneEntryAndOneExitPerHighway) {
    InstalledDesign const drawing(BusOf(2));
    auto const figure = LoadedFigure(drawing.Sheet());
    auto const record = NetOf(figure, "D1")->GetKernelSubNet();
    figure->RemoveItem(NetOf(figure, "D1"));
    SmartPtr<FigureSubNetDelta> const delta =
        new FigureSubNetDelta(record, figk::AbstractDelta::ACTION_COPY);
    figure->AddAndApplyDelta(delta, false, false);
    auto const subNet = NetOf(figure, "D1");
    ASSERT_TRUE(subNet);
    auto const taps = subNet->GetHighwayNodes();
    ASSERT_EQ(taps.size(), 2u);
    for (auto const& tap : taps) {
        EXPECT_EQ(tap->GetSubHighway(), figure->GetSubHighways().at(0));
        EXPECT_TRUE(tap->GetNetConnectionNode());
    }
    EXPECT_NE(taps[0]->GetNetConnectionNode(), taps[1]->GetNetConnectionNode());
}

TEST(FigureSubNetDelta, HighwayThatTheFigureLacksLeavesTheTapsWithoutOne) {
    InstalledDesign const drawing(BusOf(1));
    SmartPtr<Figure> const figure = new Figure();
    auto const record = drawing.Sheet()->GetSubNets().at(0);
    figure->AddAndApplyDelta(new FigureSubNetDelta(record, COPY), false, false);
    auto const taps = figure->GetSubNets().at(0)->GetHighwayNodes();
    ASSERT_EQ(taps.size(), 2u);
    for (auto const& tap : taps)
        EXPECT_FALSE(tap->GetSubHighway());
    EXPECT_FALSE(DumpOf(figure).empty());
}

/// Lets a walk nowhere but where it starts.
class Refusal : public figk::BaseVisitCheck {
public:
    bool Visit(ConstSmartPtr<figk::BaseConnectionNode> const&) override { return false; }
};

class GuardedSegment : public FakeNetSegment {
public:
    using FakeNetSegment::FakeNetSegment;
    SmartPtr<figk::BaseVisitCheck> GetVisitChecker() const override {
        return refuses ? SmartPtr<figk::BaseVisitCheck>(new Refusal())
                       : FakeNetSegment::GetVisitChecker();
    }
    bool refuses = false;
};

class SubNetWithHead : public FakeSubNet {
public:
    using FakeSubNet::FakeSubNet;
    ~SubNetWithHead() override { head->CutTree(); }
    SmartPtr<figk::ConnectionNode> GetHead() const override { return head; }
    SmartPtr<GuardedSegment> head = new GuardedSegment(DPoint2D(0, 0), DPoint2D(1, 0));
};

TEST(FigureSubNetDelta, RejectedHighwayNodeOrSegmentEndsTheWalkThere) {
    for (bool const throughTap : {true, false}) {
        for (bool const refuses : {false, true}) {
            SmartPtr<SubNetWithHead> const record = new SubNetWithHead("net");
            record->head->refuses = refuses;
            SmartPtr<figk::ConnectionNode> passage = new FakeHighwaySegment(nullptr, {}, {});
            if (throughTap) passage = new FakeHighwayNode(nullptr);
            record->head->AddSuccessor(passage);
            SmartPtr<FakeNetSegment> const behind =
                new FakeNetSegment(DPoint2D(5, 0), DPoint2D(6, 0), passage);
            SmartPtr<Figure> const figure = new Figure();
            EXPECT_TRUE(
                SmartPtr<FigureSubNetDelta>(new FigureSubNetDelta(record, COPY))->Apply(*figure));
            auto const subNet = figure->GetSubNets().at(0);
            unsigned const made = refuses ? 1u : 2u;
            EXPECT_EQ(subNet->GetId().GetString(), "net");
            SmartPtr<NetSegment> const next =
                new NetSegment(subNet, figure->GetLock(), DPoint2D(), DPoint2D(), nullptr);
            EXPECT_EQ(next->GetId().GetString().back(), static_cast<char>('0' + made));
        }
    }
}

/// A tap of a net's segment onto a sub-highway.
class FakeTap : public FakeHighwayNode {
public:
    FakeTap(SmartPtr<figk::SubHighway> const& onto, figk::ConnectionNode* of)
        : FakeHighwayNode(nullptr), subHighway_(onto), netNode_(of) {}
    SmartPtr<figk::SubHighway> GetSubHighway() const override { return subHighway_; }
    SmartPtr<figk::ConnectionNode> GetNetConnectionNode() const override {
        return SmartPtr<figk::ConnectionNode>(netNode_);
    }

private:
    SmartPtr<figk::SubHighway> subHighway_;
    figk::ConnectionNode* netNode_;
};

TEST(FigureSubNetDelta, SecondTapOntoOneHighwayMakesNoEntry) {
    for (bool const sameHighway : {true, false}) {
        SmartPtr<FakeSubHighway> const first = new FakeSubHighway("one");
        SmartPtr<FakeSubHighway> const second = new FakeSubHighway("two");
        SmartPtr<SubNetWithHead> const record = new SubNetWithHead("net");
        auto* const head = record->head.Get();
        head->AddSuccessor(SmartPtr<FakeTap>(new FakeTap(first, head)));
        head->AddSuccessor(SmartPtr<FakeTap>(new FakeTap(sameHighway ? first : second, head)));
        SmartPtr<Figure> const figure = new Figure();
        EXPECT_TRUE(
            SmartPtr<FigureSubNetDelta>(new FigureSubNetDelta(record, COPY))->Apply(*figure));
        EXPECT_EQ(figure->GetSubNets().at(0)->GetHighwayNodes().size(), sameHighway ? 1u : 2u);
    }
}

// A net's wires go on behind a tap that leads nowhere; behind two in a row they begin anew.
TEST(FigureSubNetDelta, OneTapBetweenWiresIsLookedThroughAndNoSecond) {
    for (std::size_t const taps : {1u, 2u}) {
        SmartPtr<SubNetWithHead> const record = new SubNetWithHead("net");
        SmartPtr<figk::BaseConnectionNode> last = record->head;
        for (std::size_t i = 0; i < taps; ++i) {
            SmartPtr<figk::BaseConnectionNode> const tap = new FakeHighwayNode(nullptr);
            last->AddSuccessor(tap);
            last = tap;
        }
        last = new figk::JunctionNode(nullptr, last);
        SmartPtr<FakeNetSegment>(new FakeNetSegment(DPoint2D(5, 0), DPoint2D(6, 0), last));
        SmartPtr<Figure> const figure = new Figure();
        EXPECT_TRUE(
            SmartPtr<FigureSubNetDelta>(new FigureSubNetDelta(record, COPY))->Apply(*figure));
        EXPECT_EQ(WiresOf<NetSegment>(figure->GetSubNets().at(0)),
                  taps == 1 ? (Strings{"0,0 1,0", "5,0 6,0"}) : (Strings{"5,0 6,0"}));
    }
}

TEST_F(FigureSubNetDeltaTest, TwoVerticesMakeOneSegmentWhichBecomesTheHead) {
    auto const root = Vertex(0, 0);
    Vertex(10, 0, root);
    auto const subNet = Apply(Drawn(root));
    ASSERT_TRUE(subNet);
    EXPECT_EQ(subNet->GetKernelSubNet(), record);
    EXPECT_EQ(WiresOf<NetSegment>(subNet), (Strings{"0,0 10,0"}));
    EXPECT_EQ(subNet->GetHead(), NodesOf<NetSegment>(subNet).at(0));
}

TEST_F(FigureSubNetDeltaTest, RootWithTwoSuccessorsIsHeadedByTheRightOne) {
    auto const root = Vertex(0, 0);
    Vertex(10, 0, root);
    Vertex(0, 7, root);
    auto const subNet = Apply(Drawn(root));
    EXPECT_EQ(WiresOf<NetSegment>(subNet), (Strings{"0,0 0,7", "0,0 10,0"}));
}

TEST_F(FigureSubNetDeltaTest, JunctionsBetweenVerticesMakeNoSegment) {
    auto const root = Vertex(0, 0);
    auto const bend = Vertex(10, 0, root);
    for (double const y : {1.0, 2.0, 3.0, 4.0})
        Vertex(20, y, bend);
    auto const subNet = Apply(Drawn(root));
    Strings wires = WiresOf<NetSegment>(subNet);
    ASSERT_EQ(wires.size(), 5u);
    EXPECT_EQ(wires[0], "0,0 10,0");
    std::sort(wires.begin(), wires.end());
    EXPECT_EQ(wires, (Strings{"0,0 10,0", "10,0 20,1", "10,0 20,2", "10,0 20,3", "10,0 20,4"}));
}

TEST_F(FigureSubNetDeltaTest, SegmentsRunFromTheLastRealVertex) {
    auto const root = Vertex(0, 0);
    SmartPtr<figk::BaseConnectionNode> const junction = new figk::JunctionNode(nullptr, root);
    Vertex(9, 9, junction);
    EXPECT_EQ(WiresOf<NetSegment>(Apply(Drawn(root))), (Strings{"0,0 9,9"}));
}

TEST_F(FigureSubNetDeltaTest, OneVertexMakesNothing) {
    EXPECT_FALSE(Apply(Drawn(Vertex(3, 3))));
    EXPECT_TRUE(figure->GetSubNets().empty());
}

TEST_F(FigureSubNetDeltaTest, LabelGoesToTheFirstOfTheLongestSegments) {
    auto const root = Vertex(0, 0);
    auto const first = Vertex(2, 0, root);
    auto const second = Vertex(12, 0, first);
    Vertex(12, 10, second);
    EXPECT_EQ(LabelsOf(Apply(Drawn(root, Label("data")))), (Strings{"2,0 12,0 data"}));
}

TEST_F(FigureSubNetDeltaTest, NoLabelForAnEmptyTextOrAWireWithoutLength) {
    auto const root = Vertex(0, 0);
    Vertex(10, 0, root);
    EXPECT_TRUE(LabelsOf(Apply(Drawn(root, Label("")))).empty());
    auto const dot = Vertex(5, 5);
    Vertex(5, 5, dot);
    EXPECT_TRUE(LabelsOf(Apply(Drawn(dot, Label("x")))).empty());
}

TEST_F(FigureSubNetDeltaTest, LostSheetOrSubNetFailsAndLeavesTheFigureUntouched) {
    Symbol const design = drawing.design->GetId();
    Symbol const sheet = drawing.Sheet()->GetId();
    ExpectLost(figure, new FigureSubNetDelta(design, Symbol("gone"), record->GetId(), COPY));
    ExpectLost(figure, new FigureSubNetDelta(design, sheet, Symbol("gone"), COPY));
    ExpectLost(figure, new FigureSubNetDelta(Symbol(), Symbol(), Symbol(), COPY));
}

TEST_F(FigureSubNetDeltaTest, DrawnWireWithoutAKernelSubNetFails) {
    auto const root = Vertex(0, 0);
    Vertex(10, 0, root);
    SmartPtr<FigureSubNetDelta> const delta = new FigureSubNetDelta(root, CREATE);
    ExpectLost(figure, delta);
    EXPECT_EQ(Written(delta),
              (Strings{"action=int 1", "head_vertex=(0,0,0)", "head_vertex=(10,0,0)"}));
}

TEST_F(FigureSubNetDeltaTest, OtherActionsVerifyAndChangeNothing) {
    Strings const before = DumpOf(figure);
    for (int const action : {2, 3, 17}) {
        SmartPtr<FigureSubNetDelta> const delta =
            new FigureSubNetDelta(record, static_cast<figk::AbstractDelta::Action>(action));
        EXPECT_TRUE(delta->Apply(*figure));
    }
    EXPECT_EQ(DumpOf(figure), before);
}

TEST_F(FigureSubNetDeltaTest, WritesIdsVerticesAndAttributesInOrder) {
    auto const info = Label("data");
    info->attributes.push_back(new figk::Attribute(Symbol("Class"), Symbol("fast")));
    auto const root = Vertex(0, 0);
    Vertex(10, 5, root);
    EXPECT_EQ(
        Written(Drawn(root, info)),
        (Strings{"action=int 1", "type='sub_net_delta'", "id='" + record->GetId().GetString() + "'",
                 "sheet='" + drawing.Sheet()->GetId().GetString() + "'",
                 "design_id='" + drawing.design->GetId().GetString() + "'", "head_vertex=(0,0,0)",
                 "head_vertex=(10,5,0)", "attributes {", "label='data'", "attribute {",
                 "attr_name='Class'", "attr_value='fast'", "}", "}"}));
}

TEST_F(FigureSubNetDeltaTest, UnverifiedCopyWritesTheActionAlone) {
    SmartPtr<FigureSubNetDelta> const delta =
        new FigureSubNetDelta(Symbol("d"), Symbol("s"), Symbol("n"), COPY);
    EXPECT_EQ(Written(delta), (Strings{"action=int 0"}));
}

TEST_F(FigureSubNetDeltaTest, DeltasShareATreeOfVerticesUntilTheLastOneGoes) {
    auto const alive = du::RefCounted::LiveCount();
    {
        auto const root = Vertex(0, 0);
        Vertex(10, 0, root);
        auto const second = Drawn(root);
        Drawn(root);
        SmartPtr<FigureSubNetDelta>(new FigureSubNetDelta(*second));
        EXPECT_EQ(Written(second).size(), 7u);
    }
    EXPECT_EQ(du::RefCounted::LiveCount(), alive);
}

TEST_F(FigureSubNetDeltaTest, AppliedAndDroppedLeavesNothingBehind) {
    InstalledDesign const bus(BusOf(3));
    auto const alive = du::RefCounted::LiveCount();
    {
        auto const other = LoadedFigure(bus.Sheet());
        auto const net = NetOf(other, "D1");
        other->AddAndApplyDelta(new FigureSubNetDelta(net->GetKernelSubNet(), COPY), false, false);
        other->UpdateContent();
    }
    EXPECT_EQ(du::RefCounted::LiveCount(), alive);
}

TEST_F(FigureSubNetDeltaTest, LongChainOfVerticesNeedsNoDeepStack) {
    auto const root = Vertex(0, 0);
    SmartPtr<DeltaVertexNode> last = root;
    for (int i = 1; i <= 100000; ++i)
        last = Vertex(i, i % 2, last);
    EXPECT_EQ(NodesOf<NetSegment>(Apply(Drawn(root))).size(), 100000u);
}

TEST(DeltaVertexNode, IsAVertexWithAPlace) {
    auto const vertex = Vertex(3, 4);
    EXPECT_EQ(vertex->GetNodeType(), 1);
    EXPECT_EQ(vertex->ToString(), "DeltaVertexNode");
    EXPECT_EQ(vertex->GetPosition(), DPoint2D(3, 4));
    EXPECT_FALSE(vertex->IsJunction());
    EXPECT_FALSE(vertex->IsHighwayNode());
    EXPECT_FALSE(vertex->GetVisitChecker());
}

}  // namespace
}  // namespace figrep::testing
