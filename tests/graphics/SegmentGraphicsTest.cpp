#include "GraphicsTestSupport.h"

#include <attrs/FillAttr.h>
#include <figrep/ArrowInfo.h>
#include <figrep/SegmentGraphicsGenerator.h>
#include <figrep/UnroutedConnection.h>

namespace figrep {

using namespace testing;

namespace {

using Polylines = std::vector<Points>;

/// Three wires in a row to the right: (0, 0), (10, 0), (20, 0), (30, 0).
class RunTest : public ::testing::Test {
protected:
    void SetUp() override {
        net = drawing.Net();
        first = Drawing::Wire(net, {0, 0}, {10, 0});
        second = Drawing::Wire(net, {10, 0}, {20, 0}, first);
        third = Drawing::Wire(net, {20, 0}, {30, 0}, second);
    }

    std::size_t Proxies() const {
        std::size_t count = 0;
        for (auto const& wire : {first, second, third}) {
            count += MembersOf<PickGraphicProxy>(*wire).size();
        }
        return count;
    }

    Drawing drawing;
    SmartPtr<SubNet> net;
    SmartPtr<NetSegment> first;
    SmartPtr<NetSegment> second;
    SmartPtr<NetSegment> third;
};

void SetTransparency(SettingList& list, float transparency) {
    Set(list, Setting::TRANSPARENCY, transparency);
}

}  // namespace

TEST_F(RunTest, AStraightRunIsOnePolylineOfItsHeadAndAProxyForEachWire) {
    drawing.Draw();
    EXPECT_EQ(PolylinesOf(*first), (Polylines{{{0, 0}, {10, 0}, {20, 0}, {30, 0}}}));
    EXPECT_EQ(MembersOf<GenericGraphic>(*first).size(), 1U);
    EXPECT_TRUE(MembersOf<GenericGraphic>(*second).empty());
    EXPECT_TRUE(MembersOf<GenericGraphic>(*third).empty());
    EXPECT_EQ(Proxies(), 3U);
}

TEST_F(RunTest, EndsAreOrderedAwayFromTheHeadWhicheverWayAWireWasDrawn) {
    auto const other = drawing.Net();
    auto const head = Drawing::Wire(other, {10, 5}, {0, 5});
    Drawing::Wire(other, {20, 5}, {10, 5}, head);
    drawing.Draw();
    EXPECT_EQ(PolylinesOf(*head), (Polylines{{{0, 5}, {10, 5}, {20, 5}}}));
}

TEST_F(RunTest, TheBranchesOfATHeadRunsOfTheirOwn) {
    auto const branch = Drawing::Wire(net, {10, 0}, {10, 10}, first);
    drawing.Draw();
    EXPECT_EQ(PolylinesOf(*first), (Polylines{{{0, 0}, {10, 0}}}));
    EXPECT_EQ(PolylinesOf(*second), (Polylines{{{10, 0}, {20, 0}, {30, 0}}}));
    EXPECT_EQ(PolylinesOf(*branch), (Polylines{{{10, 0}, {10, 10}}}));
}

TEST_F(RunTest, ATransparentWireCutsItsRunInTwoAndCanStillBePicked) {
    SetTransparency(*second, 1.0F);
    drawing.Draw();
    EXPECT_EQ(PolylinesOf(*first), (Polylines{{{0, 0}, {10, 0}}}));
    EXPECT_TRUE(PolylinesOf(*second).empty());
    EXPECT_EQ(PolylinesOf(*third), (Polylines{{{20, 0}, {30, 0}}}));
    EXPECT_EQ(Proxies(), 3U);
}

TEST_F(RunTest, OnlyFullTransparencyCounts) {
    SetTransparency(*second, 0.99F);
    drawing.Draw();
    EXPECT_EQ(PolylinesOf(*first).size(), 1U);
    EXPECT_TRUE(PolylinesOf(*third).empty());
}

TEST_F(RunTest, WhileGenerationIsSuspendedEveryGroupStaysAsItWas) {
    drawing.Draw();
    auto const before = MembersOf<GenericGraphic>(*first);
    drawing.figure->SetGraphicRegenerationSuspended(true);
    SegmentGraphicsGenerator generator;
    EXPECT_FALSE(generator.Visit(drawing.figure));
    first->MoveItem(0, 1);
    drawing.figure->UpdateContent();
    EXPECT_EQ(MembersOf<GenericGraphic>(*first), before);
    EXPECT_TRUE(net->GetGraphicalUpdateNeeded());
    drawing.figure->SetGraphicRegenerationSuspended(false);
    drawing.figure->UpdateContent();
    EXPECT_NE(MembersOf<GenericGraphic>(*first), before);
    EXPECT_FALSE(net->GetGraphicalUpdateNeeded());
}

TEST_F(RunTest, AWireThatIsNotMarkedKeepsItsPicture) {
    drawing.Draw();
    auto const before = MembersOf<GenericGraphic>(*first);
    drawing.figure->UpdateContent();
    EXPECT_EQ(MembersOf<GenericGraphic>(*first), before);
}

TEST_F(RunTest, ThePictureTakesTheHighlightOfItsWire) {
    first->SetHighlight(true);
    drawing.Draw();
    EXPECT_TRUE(MembersOf<GenericGraphic>(*first).at(0)->GetHighlight());
}

TEST_F(RunTest, ThePolylineCarriesTheLineAttributesOfItsHead) {
    SetWidth(*net, 0.5F);
    drawing.Draw();
    auto const graphic = MembersOf<GenericGraphic>(*first).at(0);
    auto const instance = graphic->GetZv2dGraphics()->GetInstances().at(0);
    auto const& attributes = instance->GetDefinition()->GetEntities().at(0)->GetAttributes();
    ASSERT_TRUE(attributes);
    EXPECT_EQ(attributes->GetLineAttributes()->GetWeight(), 0.5F);
}

TEST_F(RunTest, AWireWithoutArrowsGetsNoArrowGraphic) {
    drawing.Draw();
    EXPECT_EQ(MembersOf<GenericGraphic>(*first).size(), 1U);
    EXPECT_TRUE(MembersOf<GenericGraphic>(*first).at(0)->Empty());
}

TEST_F(RunTest, TheArrowsOfAWireAreOneGraphicFilledAsTheFirst) {
    ConstSmartPtr<attrs::FillAttr> const fill(new attrs::FillAttr(1, Color::RED));
    ConstSmartPtr<zv2d::Attributes> const looks(new zv2d::Attributes(fill));
    auto const shape = Line({-1, 0}, {1, 0})->GetDefinition();
    first->Add(ArrowInfo(shape, {5, 0}, 0.0, looks, false));
    first->Add(ArrowInfo(shape, {8, 0}, 1.5707963267948966, nullptr, false));
    drawing.Draw();
    auto const graphics = MembersOf<GenericGraphic>(*first);
    ASSERT_EQ(graphics.size(), 2U);
    auto const& arrows = graphics[0];
    auto const instances = arrows->GetZv2dGraphics()->GetInstances();
    ASSERT_EQ(instances.size(), 2U);
    EXPECT_EQ(instances[0]->GetMatrix().GetTranslation(), DPoint2D(5, 0));
    EXPECT_EQ(instances[0]->GetAttributes(), looks);
    EXPECT_NEAR(instances[1]->GetMatrix()(1, 0), 1.0, 1e-15);
    ConstSmartPtr<attrs::FillAttr> found;
    EXPECT_TRUE(arrows->GetZv2dFillAttributesSetting(figk::Setting::KEY_FILL_ATTRIBUTES, found));
    EXPECT_EQ(found, fill);
}

TEST_F(RunTest, AnUnroutedConnectionIsAStraightLineAndNoPartOfARun) {
    SmartPtr<UnroutedConnection> const band(
        new UnroutedConnection(net, Lock(), {30, 0}, {40, 7}, third));
    auto const beyond = Drawing::Wire(net, {40, 7}, {50, 7}, band);
    drawing.Draw();
    EXPECT_EQ(PolylinesOf(*band), (Polylines{{{30, 0}, {40, 7}}}));
    EXPECT_EQ(PolylinesOf(*beyond), (Polylines{{{40, 7}, {50, 7}}}));
    EXPECT_EQ(PolylinesOf(*first).at(0).size(), 4U);
}

TEST(SegmentGraphics, ACrossingWithAGapSplitsThePolyline) {
    Drawing const drawing;
    Set(*drawing.figure, Setting::CROSSING_POINT_STYLE, figk::CROSSING_GAP);
    Set(*drawing.figure, Setting::TOP_SEGMENT_VERTICAL, true);
    auto const level = drawing.LoneWire({-10, 0}, {10, 0});
    auto const upright = drawing.LoneWire({0, -10}, {0, 10});
    drawing.Draw();
    EXPECT_EQ(PolylinesOf(*level), (Polylines{{{-10, 0}, {-1, 0}}, {{1, 0}, {10, 0}}}));
    EXPECT_EQ(PolylinesOf(*upright), (Polylines{{{0, -10}, {0, 10}}}));
    EXPECT_EQ(MembersOf<GenericGraphic>(*level).size(), 3U);
}

TEST(SegmentGraphics, AWireDrawnFromRightToLeftMeetsItsGapsInThatOrder) {
    Drawing const drawing;
    Set(*drawing.figure, Setting::CROSSING_POINT_STYLE, figk::CROSSING_GAP);
    Set(*drawing.figure, Setting::TOP_SEGMENT_VERTICAL, true);
    auto const level = drawing.LoneWire({10, 0}, {-10, 0});
    drawing.LoneWire({0, -10}, {0, 10});
    drawing.LoneWire({5, -10}, {5, 10});
    drawing.Draw();
    EXPECT_EQ(PolylinesOf(*level),
              (Polylines{{{10, 0}, {6, 0}}, {{4, 0}, {1, 0}}, {{-1, 0}, {-10, 0}}}));
}

TEST(SegmentGraphics, ACrossingWithAnArcPutsTheArcOnTheTopWire) {
    Drawing const drawing;
    Set(*drawing.figure, Setting::CROSSING_POINT_STYLE, figk::CROSSING_ARC);
    auto const level = drawing.LoneWire({-10, 0}, {10, 0});
    auto const upright = drawing.LoneWire({0, -10}, {0, 10});
    drawing.Draw();
    EXPECT_EQ(PolylinesOf(*level), (Polylines{{{-10, 0}, {-1, 0}}, {{1, 0}, {10, 0}}}));
    auto const arc = MembersOf<GenericGraphic>(*level).at(0);
    EXPECT_EQ(arc->GetExtents(), DBox2D(-1, 0, 1, 1));
    EXPECT_EQ(MembersOf<GenericGraphic>(*upright).size(), 1U);
}

TEST(SegmentGraphics, AGapThatBeginsBeforeTheLastVertexPullsThatVertexBack) {
    Drawing const drawing;
    Set(*drawing.figure, Setting::CROSSING_POINT_STYLE, figk::CROSSING_GAP);
    Set(*drawing.figure, Setting::TOP_SEGMENT_VERTICAL, true);
    auto const net = drawing.Net();
    auto const head = Drawing::Wire(net, {0, 0}, {10, 0});
    Drawing::Wire(net, {10, 0}, {20, 0}, head);
    drawing.LoneWire({10.5, -10}, {10.5, 10});
    drawing.Draw();
    auto const second = du::DynamicCast<NetSegment>(head->GetLeftSuccessor());
    EXPECT_EQ(PolylinesOf(*second), (Polylines{{{0, 0}, {9.5, 0}}}));
    EXPECT_EQ(PolylinesOf(*head), (Polylines{{{11.5, 0}, {20, 0}}}));
}

TEST(SegmentGraphics, AWireWhoseCrossingsAllReportFalseStaysOnePolyline) {
    Drawing const drawing;
    auto const level = drawing.LoneWire({-10, 0}, {10, 0});
    auto const upright = drawing.LoneWire({0, -10}, {0, 10});
    drawing.Draw();
    EXPECT_TRUE(level->HasCrossingPoints());
    EXPECT_EQ(PolylinesOf(*level).size(), 1U);
    EXPECT_EQ(PolylinesOf(*upright).size(), 1U);
}

TEST(SegmentGraphics, HighwaysGetNoSymbols) {
    Drawing const drawing;
    Set(*drawing.figure, Setting::CROSSING_POINT_STYLE, figk::CROSSING_GAP);
    auto const bus = Drawing::Bus(drawing.Highway(), {-10, 0}, {10, 0});
    auto const other = Drawing::Bus(drawing.Highway(), {0, -10}, {0, 10});
    drawing.Draw();
    EXPECT_TRUE(bus->HasCrossingPoints());
    EXPECT_EQ(PolylinesOf(*bus), (Polylines{{{-10, 0}, {10, 0}}}));
    EXPECT_EQ(PolylinesOf(*other), (Polylines{{{0, -10}, {0, 10}}}));
}

TEST(SegmentGraphics, ChangedWidthsReachTheWiresThatCross) {
    Drawing const drawing;
    Set(*drawing.figure, Setting::CROSSING_POINT_STYLE, figk::CROSSING_GAP);
    Set(*drawing.figure, Setting::TOP_SEGMENT_VERTICAL, true);
    auto const level = drawing.LoneWire({-10, 0}, {10, 0});
    auto const upright = drawing.LoneWire({0, -10}, {0, 10});
    drawing.Draw();
    SetWidth(*upright, 2.0F);
    drawing.figure->UpdateContent();
    EXPECT_EQ(PolylinesOf(*level), (Polylines{{{-10, 0}, {-2, 0}}, {{2, 0}, {10, 0}}}));
}

}  // namespace figrep
