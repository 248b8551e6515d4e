#include "GraphicsTestSupport.h"

#include <figrep/CrossingPointsVisitor.h>

#include <algorithm>
#include <random>

namespace figrep {

using namespace testing;

namespace {

constexpr double HALF_PI = 1.5707963267948966;
constexpr double PI = 3.141592653589793;

/// A level and an upright wire that cross in the origin.
class CrossingPointTest : public ::testing::Test {
protected:
    void SetUp() override {
        level = drawing.LoneWire({-10, 0}, {10, 0});
        upright = drawing.LoneWire({0, -10}, {0, 10});
        crossing = new CrossingPoint(Lock(), level, upright, DPoint2D());
    }

    void SetStyle(figk::CrossingPointStyle style) const {
        Set(*drawing.figure, Setting::CROSSING_POINT_STYLE, style);
    }
    void PutUprightOnTop() const { Set(*drawing.figure, Setting::TOP_SEGMENT_VERTICAL, true); }
    void SetWidths(float width) const {
        SetWidth(*level, width);
        SetWidth(*upright, width);
    }

    /// Asks for the symbol on a wire.
    bool Ask(SmartPtr<NetSegment> const& wire) {
        definition = new zv2d::Definition;
        return crossing->AddGraphic(wire, definition, gapStart, gapEnd);
    }
    dg::CircularArc<double, 2> Arc() const {
        auto const arc = du::DynamicCast<zv2d::CircularArc>(definition->GetEntities().at(0));
        return arc->GetArc();
    }

    Drawing drawing;
    SmartPtr<NetSegment> level;
    SmartPtr<NetSegment> upright;
    SmartPtr<CrossingPoint> crossing;
    SmartPtr<zv2d::Definition> definition;
    DPoint2D gapStart;
    DPoint2D gapEnd;
};

}  // namespace

TEST_F(CrossingPointTest, AnArcOnTheUprightTopBulgesToTheLeftWithTheOthersWidthCleared) {
    SetStyle(figk::CROSSING_ARC);
    PutUprightOnTop();
    SetWidths(1.0F);
    ASSERT_TRUE(Ask(upright));
    EXPECT_EQ(Arc().GetRadius(), 1.5);
    EXPECT_EQ(Arc().GetStartAngle(), HALF_PI);
    EXPECT_EQ(Arc().GetEndAngle(), 4.71238898038469);
    EXPECT_EQ(Arc().GetCentre(), DPoint2D(0, 0));
    EXPECT_EQ(gapStart, DPoint2D(0, 1.5));
    EXPECT_EQ(gapEnd, DPoint2D(0, -1.5));
    EXPECT_FALSE(Ask(level));
    EXPECT_TRUE(definition->IsEmpty());
}

TEST_F(CrossingPointTest, MadeByHandGoesWithTheWireThatIsRemoved) {
    CrossingPointsVisitor visitor(drawing.figure.Get());
    visitor.Remove(upright->GetSubNet());
    EXPECT_FALSE(upright->HasCrossingPoints());
    EXPECT_FALSE(level->HasCrossingPoints());
}

TEST_F(CrossingPointTest, OutlivesItsWiresAndAnswersNothing) {
    SetStyle(figk::CROSSING_ARC);
    SmartPtr<NetSegment> const gone = upright;
    drawing.figure->ClearContent();
    drawing.figure.Reset();
    upright.Reset();
    level.Reset();
    EXPECT_FALSE(crossing->GetSegment1());
    EXPECT_EQ(crossing->GetSegment2(), gone);
    EXPECT_FALSE(crossing->GetOtherSegment(gone));
    EXPECT_FALSE(crossing->GetTopSegment());
    EXPECT_FALSE(Ask(gone));
    EXPECT_FALSE(CrossingPoint(*crossing).GetSegment1());
}

TEST_F(CrossingPointTest, AnArcOnALevelTopBulgesUpward) {
    SetStyle(figk::CROSSING_ARC);
    ASSERT_TRUE(Ask(level));
    EXPECT_EQ(Arc().GetRadius(), 1.0);
    EXPECT_EQ(Arc().GetStartAngle(), 0.0);
    EXPECT_EQ(Arc().GetEndAngle(), PI);
    EXPECT_FALSE(Ask(upright));
}

TEST_F(CrossingPointTest, AGapSplitsTheLevelWireUnderAnUprightTop) {
    SetStyle(figk::CROSSING_GAP);
    PutUprightOnTop();
    SetWidths(1.0F);
    ASSERT_TRUE(Ask(level));
    EXPECT_TRUE(definition->IsEmpty());
    EXPECT_EQ(gapStart, DPoint2D(-1.5, 0));
    EXPECT_EQ(gapEnd, DPoint2D(1.5, 0));
    EXPECT_FALSE(Ask(upright));
}

TEST_F(CrossingPointTest, AWideWiresArcMovesOutByHalfItsWidthAndGrowsByIt) {
    SetStyle(figk::CROSSING_ARC);
    SetWidth(*level, 3.0F);
    ASSERT_TRUE(Ask(level));
    EXPECT_EQ(Arc().GetCentre(), DPoint2D(0, -1.5));
    EXPECT_EQ(Arc().GetRadius(), 1.0 + 1.5);
    EXPECT_EQ(gapStart, DPoint2D(-1, 0));
    PutUprightOnTop();
    SetWidth(*upright, 3.0F);
    ASSERT_TRUE(Ask(upright));
    EXPECT_EQ(Arc().GetCentre(), DPoint2D(1.5, 0));
    EXPECT_EQ(Arc().GetRadius(), 2.5 + 1.5);
}

TEST_F(CrossingPointTest, OfTwoStylesTheHigherLevelApplies) {
    Set(*level, Setting::CROSSING_POINT_STYLE, figk::CROSSING_ARC, FIGURE_LEVEL);
    Set(*upright, Setting::CROSSING_POINT_STYLE, figk::CROSSING_GAP, figk::Setting::LEVEL_PROFILE);
    EXPECT_TRUE(Ask(level));
    EXPECT_FALSE(definition->IsEmpty());
    EXPECT_FALSE(Ask(upright));
}

TEST_F(CrossingPointTest, AStyleOfTheSecondWireAloneApplies) {
    Set(*upright, Setting::CROSSING_POINT_STYLE, figk::CROSSING_GAP);
    EXPECT_FALSE(Ask(level));
    EXPECT_TRUE(Ask(upright));
}

TEST_F(CrossingPointTest, AtOneLevelTheNearerStyleAppliesAndThenTheFirst) {
    Set(*level->GetSubNet(), Setting::CROSSING_POINT_STYLE, figk::CROSSING_GAP, 3);
    Set(*upright, Setting::CROSSING_POINT_STYLE, figk::CROSSING_ARC, 3);
    EXPECT_TRUE(Ask(level));
    EXPECT_FALSE(definition->IsEmpty());
    Set(*level, Setting::CROSSING_POINT_STYLE, figk::CROSSING_GAP, 3);
    EXPECT_TRUE(Ask(upright));
    EXPECT_TRUE(definition->IsEmpty());
}

TEST_F(CrossingPointTest, EqualVoicesThatDisagreePutTheUprightWireOnTop) {
    Set(*level, Setting::TOP_SEGMENT_VERTICAL, false);
    Set(*upright, Setting::TOP_SEGMENT_VERTICAL, true);
    EXPECT_EQ(crossing->GetTopSegment(), upright);
    Set(*level, Setting::TOP_SEGMENT_VERTICAL, true);
    Set(*upright, Setting::TOP_SEGMENT_VERTICAL, false);
    EXPECT_EQ(crossing->GetTopSegment(), upright);
}

TEST_F(CrossingPointTest, TheNearerVoiceOfOneLevelPutsTheLevelWireOnTop) {
    Set(*level->GetSubNet(), Setting::TOP_SEGMENT_VERTICAL, true, 3);
    Set(*upright, Setting::TOP_SEGMENT_VERTICAL, false, 3);
    EXPECT_EQ(crossing->GetTopSegment(), level);
}

TEST_F(CrossingPointTest, WithoutAStyleTheLinesRunThrough) {
    EXPECT_FALSE(Ask(level));
    EXPECT_FALSE(Ask(upright));
}

TEST_F(CrossingPointTest, KnowsTheOtherSegmentOfItsOwnOnly) {
    EXPECT_EQ(crossing->GetOtherSegment(level), upright);
    EXPECT_EQ(crossing->GetOtherSegment(upright), level);
    auto const stranger = drawing.LoneWire({0, 0}, {1, 0});
    EXPECT_FALSE(crossing->GetOtherSegment(stranger));
    EXPECT_FALSE(crossing->GetOtherSegment(nullptr));
    EXPECT_FALSE(Ask(stranger));
}

TEST_F(CrossingPointTest, BothSegmentsListsHoldIt) {
    EXPECT_EQ(CrossingsOf(*level).size(), 1U);
    level->RemoveAllCrossingPoints();
    EXPECT_FALSE(level->HasCrossingPoints());
    EXPECT_FALSE(upright->HasCrossingPoints());
}

TEST_F(CrossingPointTest, ACrossingThatBothSegmentsRefuseDoesNotDieInItsConstructor) {
    SmartPtr<CrossingPoint> const second(new CrossingPoint(Lock(), level, upright, DPoint2D()));
    EXPECT_EQ(CrossingsOf(*level).size(), 1U);
    EXPECT_EQ(second->GetOtherSegment(level), upright);
}

TEST_F(CrossingPointTest, WithoutSegmentsItDoesNothing) {
    SmartPtr<CrossingPoint> const none(new CrossingPoint(Lock(), nullptr, nullptr, DPoint2D()));
    EXPECT_FALSE(none->GetTopSegment());
    EXPECT_FALSE(none->AddGraphic(level, definition, gapStart, gapEnd));
}

// The engine.

namespace {

/// The crossings that a fresh search of all pairs puts on the segments, one per place.
std::vector<std::vector<DPoint2D>> Expected(std::vector<SmartPtr<NetSegment>> const& wires) {
    std::vector<std::vector<DPoint2D>> places(wires.size());
    for (std::size_t i = 0; i < wires.size(); ++i) {
        for (auto const& other : wires) {
            DPoint2D at;
            if (other != wires[i] && wires[i]->Crosses(other, at)) places[i].push_back(at);
        }
        auto& mine = places[i];
        std::sort(mine.begin(), mine.end(), [](DPoint2D const& a, DPoint2D const& b) {
            return a.x != b.x ? a.x < b.x : a.y > b.y;
        });
        mine.erase(std::unique(mine.begin(), mine.end()), mine.end());
    }
    return places;
}

std::vector<std::vector<DPoint2D>> Shown(std::vector<SmartPtr<NetSegment>> const& wires) {
    std::vector<std::vector<DPoint2D>> places;
    for (auto const& wire : wires) {
        places.emplace_back();
        for (auto const& crossing : CrossingsOf(*wire)) {
            places.back().push_back(crossing->GetPosition());
        }
    }
    return places;
}

}  // namespace

TEST(CrossingPointsVisitor, NetsCrossNetsAndHighwaysCrossHighwaysOnly) {
    Drawing const drawing;
    auto const level = drawing.LoneWire({-10, 0}, {10, 0});
    auto const upright = drawing.LoneWire({0, -10}, {0, 10});
    auto const bus = Drawing::Bus(drawing.Highway(), {-10, 5}, {10, 5});
    auto const otherBus = Drawing::Bus(drawing.Highway(), {5, -10}, {5, 10});
    drawing.Draw();
    EXPECT_EQ(CrossingsOf(*level).size(), 1U);
    EXPECT_EQ(CrossingsOf(*upright).size(), 1U);
    ASSERT_EQ(CrossingsOf(*bus).size(), 1U);
    EXPECT_EQ(CrossingsOf(*bus)[0]->GetOtherSegment(bus), otherBus);
}

TEST(CrossingPointsVisitor, AnUpdateWithNothingDirtyDoesNothing) {
    Drawing const drawing;
    auto const level = drawing.LoneWire({-10, 0}, {10, 0});
    drawing.LoneWire({0, -10}, {0, 10});
    drawing.Draw();
    auto const before = CrossingsOf(*level);
    drawing.figure->UpdateContent();
    EXPECT_EQ(CrossingsOf(*level), before);
    EXPECT_FALSE(level->GetSubNet()->GetGraphicalUpdateNeeded());
}

TEST(CrossingPointsVisitor, AMovedWireTakesItsCrossingAlongAndMarksOnlyItsPartners) {
    Drawing const drawing;
    auto const level = drawing.LoneWire({-10, 0}, {10, 0});
    auto const far = drawing.LoneWire({-10, 5}, {10, 5});
    auto const upright = drawing.LoneWire({0, -2}, {0, 2});
    drawing.LoneWire({7, -2}, {7, 7});
    drawing.Draw();
    auto const kept = CrossingsOf(*far);
    upright->MoveItem(3, 0);
    drawing.figure->UpdateContent();
    ASSERT_EQ(CrossingsOf(*upright).size(), 1U);
    EXPECT_EQ(CrossingsOf(*upright)[0]->GetPosition(), DPoint2D(3, 0));
    EXPECT_EQ(CrossingsOf(*far), kept);
    upright->MoveItem(0, 100);
    drawing.figure->UpdateContent();
    EXPECT_FALSE(upright->HasCrossingPoints());
    EXPECT_EQ(CrossingsOf(*level).size(), 1U);
}

TEST(CrossingPointsVisitor, AWireThatLeavesTakesItsCrossingsOffItsPartners) {
    Drawing const drawing;
    auto const level = drawing.LoneWire({-10, 0}, {10, 0});
    auto const upright = drawing.LoneWire({0, -10}, {0, 10});
    drawing.Draw();
    EXPECT_TRUE(drawing.figure->ItemHasCrossingPoints(level->GetSubNet()));
    drawing.figure->RemoveItem(upright->GetSubNet());
    EXPECT_FALSE(level->HasCrossingPoints());
    EXPECT_FALSE(upright->HasCrossingPoints());
    EXPECT_FALSE(drawing.figure->ItemHasCrossingPoints(level->GetSubNet()));
    EXPECT_FALSE(drawing.figure->ItemHasCrossingPoints(nullptr));
}

TEST(CrossingPointsVisitor, DuplicatesOfAWireEachShowTheirCrossing) {
    Drawing const drawing;
    auto const level = drawing.LoneWire({-10, 0}, {10, 0});
    auto const first = drawing.LoneWire({0, -10}, {0, 10});
    auto const second = drawing.LoneWire({0, -10}, {0, 10});
    drawing.Draw();
    EXPECT_EQ(CrossingsOf(*level).size(), 1U);
    EXPECT_EQ(CrossingsOf(*first).size(), 1U);
    EXPECT_EQ(CrossingsOf(*second).size(), 1U);
    first->MoveItem(2, 0);
    drawing.figure->UpdateContent();
    ASSERT_EQ(CrossingsOf(*level).size(), 2U);
    EXPECT_EQ(CrossingsOf(*level)[0]->GetOtherSegment(level), second);
    EXPECT_EQ(CrossingsOf(*level)[1]->GetOtherSegment(level), first);
}

TEST(CrossingPointsVisitor, WithoutAFigureItStillFindsCrossings) {
    Drawing const drawing;
    auto const level = drawing.LoneWire({-10, 0}, {10, 0});
    CrossingPointsVisitor visitor(nullptr);
    level->GetSubNet()->Accept(visitor);
    visitor.Update();
    EXPECT_FALSE(visitor.HasCrossingPoints(level->GetSubNet()));
    EXPECT_FALSE(visitor.HasCrossingPoints(nullptr));
    drawing.LoneWire({0, -10}, {0, 10})->GetSubNet()->Accept(visitor);
    visitor.Update();
    EXPECT_TRUE(visitor.HasCrossingPoints(level->GetSubNet()));
}

TEST(CrossingPointsVisitor, ResetTakesTheCrossingsOffAndTheNextPassBringsThemBack) {
    Drawing const drawing;
    auto const level = drawing.LoneWire({-10, 0}, {10, 0});
    auto const upright = drawing.LoneWire({0, -10}, {0, 10});
    CrossingPointsVisitor visitor(nullptr);
    auto const pass = [&] {
        level->GetSubNet()->Accept(visitor);
        upright->GetSubNet()->Accept(visitor);
        visitor.Update();
    };
    pass();
    EXPECT_TRUE(visitor.HasCrossingPoints(level->GetSubNet()));
    visitor.Reset();
    EXPECT_FALSE(level->HasCrossingPoints());
    pass();
    EXPECT_TRUE(upright->HasCrossingPoints());
    visitor.Remove(upright->GetSubNet());
    EXPECT_FALSE(level->HasCrossingPoints());
}

TEST(CrossingPointsVisitor, AfterAnyChangesTheSegmentsShowWhatAllPairsSay) {
    std::mt19937 random(11);
    auto const coordinate = [&] { return static_cast<double>(random() % 12); };
    for (int round = 0; round < 40; ++round) {
        Drawing const drawing;
        std::vector<SmartPtr<NetSegment>> wires;
        std::size_t const count = round % 4 == 0 ? 150 : 12;
        for (std::size_t i = 0; i < count; ++i) {
            DPoint2D const from(coordinate(), coordinate());
            bool const vertical = random() % 2 == 0;
            DPoint2D const to =
                vertical ? DPoint2D(from.x, coordinate()) : DPoint2D(coordinate(), from.y);
            wires.push_back(drawing.LoneWire(from, to));
        }
        drawing.Draw();
        ASSERT_EQ(Shown(wires), Expected(wires)) << "round " << round;
        for (int step = 0; step < 8; ++step) {
            std::size_t const changes = step % 4 == 3 ? wires.size() : 2;
            for (std::size_t i = 0; i < changes; ++i) {
                auto const& wire = wires[random() % wires.size()];
                wire->MoveItem(static_cast<double>(random() % 5) - 2.0,
                               static_cast<double>(random() % 5) - 2.0);
            }
            if (step == 5) {
                drawing.figure->RemoveItem(wires.back()->GetSubNet());
                wires.pop_back();
            }
            drawing.figure->UpdateContent();
            ASSERT_EQ(Shown(wires), Expected(wires)) << "round " << round << " step " << step;
        }
    }
}

}  // namespace figrep
