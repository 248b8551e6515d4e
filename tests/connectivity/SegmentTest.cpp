#include <figk/SettingValue.h>
#include <figrep/ArrowInfo.h>
#include <figrep/CrossingPoint.h>
#include <figrep/Setting.h>
#include <figrep/TextGraphic.h>
#include <figrep/TextLabelContainerGroup.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "Wiring.h"

namespace figrep::testing {
namespace {

class SegmentTest : public ::testing::Test {
protected:
    SmartPtr<NetSegment> Wire(DPoint2D const& from, DPoint2D const& to) {
        return wiring.FreeWire(net, from, to);
    }
    std::pair<DPoint2D, DPoint2D> Ends(SmartPtr<NetSegment> const& wire) {
        DPoint2D start;
        DPoint2D end;
        wire->GetEnds(start, end);
        return {start, end};
    }
    SmartPtr<CrossingPoint> Cross(SmartPtr<NetSegment> const& a, SmartPtr<NetSegment> const& b,
                                  DPoint2D const& at) {
        return new CrossingPoint(wiring.Lock(), a, b, at);
    }

    Wiring wiring;
    SmartPtr<SubNet> net = wiring.Net();
};

TEST_F(SegmentTest, WithBothEndsAtOnePointIsVerticalHorizontalAndNormalAndHasNoLength) {
    auto const point = Wire(DPoint2D(3, 4), DPoint2D(3, 4));
    EXPECT_TRUE(point->IsVertical());
    EXPECT_TRUE(point->IsHorizontal());
    EXPECT_TRUE(point->IsNormal());
    EXPECT_FALSE(point->HasLength());
    auto const diagonal = Wire(DPoint2D(0, 0), DPoint2D(3, 4));
    EXPECT_FALSE(diagonal->IsNormal());
    EXPECT_TRUE(diagonal->HasLength());
    EXPECT_DOUBLE_EQ(diagonal->GetLength(), 5.0);
}

TEST_F(SegmentTest, EndFarFromTheOriginTouchesFromFurtherAway) {
    auto const wire = Wire(DPoint2D(0, 0), DPoint2D(10000, 0));
    EXPECT_TRUE(wire->Contacts(DPoint2D(10000, 0.99)));
    EXPECT_FALSE(wire->Contacts(DPoint2D(10000, 1.01)));
    EXPECT_TRUE(wire->Contacts(DPoint2D(0.00009, 0)));
    EXPECT_FALSE(wire->Contacts(DPoint2D(0.00011, 0)));
    EXPECT_FALSE(wire->Contacts(DPoint2D(5000, 0)));  // never in the middle
}

TEST_F(SegmentTest, ContactsAnotherNodeAtAnEndAndSaysWhere) {
    auto const a = Wire(DPoint2D(0, 0), DPoint2D(5, 0));
    auto const b = Wire(DPoint2D(5, 0), DPoint2D(5, 5));
    DPoint2D at(-1, -1);
    EXPECT_TRUE(a->Contacts(b, at));
    EXPECT_EQ(at, DPoint2D(5, 0));
    at = DPoint2D(-1, -1);
    EXPECT_FALSE(a->Contacts(SmartPtr<ConnectionNode>(Wire(DPoint2D(9, 9), DPoint2D(9, 8))), at));
    EXPECT_EQ(at, DPoint2D(-1, -1));
}

TEST_F(SegmentTest, SegmentsThatShareAnEndDontCrossAndADiagonalCrossesNothing) {
    DPoint2D at;
    auto const across = Wire(DPoint2D(0, 5), DPoint2D(10, 5));
    auto const up = Wire(DPoint2D(4, 0), DPoint2D(4, 10));
    EXPECT_TRUE(across->Crosses(up, at));
    EXPECT_EQ(at, DPoint2D(4, 5));
    EXPECT_TRUE(up->Crosses(across, at));
    EXPECT_FALSE(across->Crosses(Wire(DPoint2D(10, 5), DPoint2D(10, 9)), at));
    EXPECT_FALSE(across->Crosses(Wire(DPoint2D(4, 5), DPoint2D(4, 9)), at));
    EXPECT_FALSE(across->Crosses(Wire(DPoint2D(0, 0), DPoint2D(10, 10)), at));
    EXPECT_FALSE(across->Crosses(nullptr, at));
}

TEST_F(SegmentTest, EqualsItsReverse) {
    auto const a = Wire(DPoint2D(0, 0), DPoint2D(5, 0));
    auto const b = Wire(DPoint2D(5, 0), DPoint2D(0, 0));
    EXPECT_TRUE(*a == *b);
    EXPECT_FALSE(*a == *Wire(DPoint2D(5, 0), DPoint2D(0, 1e-9)));
}

TEST_F(SegmentTest, MirrorWithTrueChangesOnlyY) {
    auto const wire = Wire(DPoint2D(1, 2), DPoint2D(3, 2));
    wire->MirrorItem(DPoint2D(10, 10), true);
    EXPECT_EQ(Ends(wire), std::pair(DPoint2D(1, 18), DPoint2D(3, 18)));
    wire->MirrorItem(DPoint2D(10, 10), false);
    EXPECT_EQ(Ends(wire), std::pair(DPoint2D(19, 18), DPoint2D(17, 18)));
}

TEST_F(SegmentTest, MoveItemByNothingIsNoChangeWhileMoveByNothingAsksForPictures) {
    auto const wire = Wire(DPoint2D(1, 2), DPoint2D(3, 2));
    net->SetGraphicalUpdateNeeded(false);
    wire->MoveItem(0, 0);
    wire->RotateItem(DPoint2D(0, 0), 0);
    EXPECT_FALSE(net->GetGraphicalUpdateNeeded());
    wire->Move(0, 0);
    EXPECT_TRUE(net->GetGraphicalUpdateNeeded());
}

TEST_F(SegmentTest, ScaleItemHasNoEffect) {
    auto const wire = Wire(DPoint2D(1, 2), DPoint2D(3, 2));
    wire->ScaleItem(DPoint2D(0, 0), 2);
    EXPECT_EQ(Ends(wire), std::pair(DPoint2D(1, 2), DPoint2D(3, 2)));
    wire->Scale(DPoint2D(1, 0), 2);
    EXPECT_EQ(Ends(wire), std::pair(DPoint2D(1, 4), DPoint2D(5, 4)));
}

TEST_F(SegmentTest, RotatesAboutAPoint) {
    auto const wire = Wire(DPoint2D(5, 5), DPoint2D(7, 5));
    wire->RotateItem(DPoint2D(5, 5), std::numbers::pi / 2);
    auto const [start, end] = Ends(wire);
    EXPECT_EQ(start, DPoint2D(5, 5));
    EXPECT_NEAR(end.x, 5, 1e-12);
    EXPECT_NEAR(end.y, 7, 1e-12);
    EXPECT_NEAR(wire->GetExtents()[3], 7, 1e-12);
}

TEST_F(SegmentTest, WindowOverASegmentButNotItsWholeSubNetDoesNotContentPickIt) {
    auto const wire = wiring.Wire(net, DPoint2D(0, 0), DPoint2D(2, 0));
    wiring.FreeWire(net, DPoint2D(2, 0), DPoint2D(9, 0), wire);
    EXPECT_FALSE(wire->FineContentCheck(DBox2D(-1, -1, 3, 1)));
    EXPECT_TRUE(wire->FineContentCheck(DBox2D(-1, -1, 10, 1)));
}

TEST_F(SegmentTest, OtherEndIsTheStartForAPointAtNeither) {
    auto const wire = Wire(DPoint2D(0, 0), DPoint2D(5, 0));
    EXPECT_EQ(wire->GetOtherEnd(DPoint2D(0, 0)), DPoint2D(5, 0));
    EXPECT_EQ(wire->GetOtherEnd(DPoint2D(5, 0)), DPoint2D(0, 0));
    EXPECT_EQ(wire->GetOtherEnd(DPoint2D(2, 0)), DPoint2D(0, 0));
}

TEST_F(SegmentTest, MoveEndTriesTheStartFirstAndForgetsBoxes) {
    auto const wire = wiring.Wire(net, DPoint2D(0, 0), DPoint2D(5, 0));
    EXPECT_EQ(net->GetExtents(), DBox2D(0, 0, 5, 0));
    wire->MoveEnd(DPoint2D(5, 0), DPoint2D(8, 0));
    EXPECT_EQ(wire->GetExtents(), DBox2D(0, 0, 8, 0));
    EXPECT_EQ(net->GetExtents(), DBox2D(0, 0, 8, 0));
    wire->MoveEnd(DPoint2D(1, 1), DPoint2D(9, 9));
    EXPECT_EQ(Ends(wire), std::pair(DPoint2D(0, 0), DPoint2D(8, 0)));
    auto const point = Wire(DPoint2D(1, 1), DPoint2D(1, 1));
    point->MoveEnd(DPoint2D(1, 1), DPoint2D(2, 2));
    EXPECT_EQ(Ends(point), std::pair(DPoint2D(2, 2), DPoint2D(1, 1)));
}

TEST_F(SegmentTest, IdsCountTheSegmentsOfTheirOwnerFromZero) {
    EXPECT_EQ(Wire(DPoint2D(), DPoint2D())->GetId(), Symbol("subnet/0/segment/0"));
    EXPECT_EQ(Wire(DPoint2D(), DPoint2D())->GetId(), Symbol("subnet/0/segment/1"));
    auto const bus = wiring.Bus();
    EXPECT_EQ(wiring.BusWire(bus, DPoint2D(), DPoint2D())->GetId(),
              Symbol("sub_highway/0/segment/0"));
}

TEST_F(SegmentTest, WritesItsKindAndEnds) {
    EXPECT_EQ(Wire(DPoint2D(1, 2.5), DPoint2D(3, 4))->ToString(), "NetSegment(1,2.5) to (3,4)");
    auto const bus = wiring.Bus();
    EXPECT_EQ(wiring.BusWire(bus, DPoint2D(0, 0), DPoint2D(1, 0))->ToString(),
              "HighwaySegment(0,0) to (1,0)");
}

TEST_F(SegmentTest, WithoutANameOfItsOwnIsNamedAsItsSubNet) {
    auto const named = wiring.Net("CLK");
    EXPECT_EQ(wiring.FreeWire(named, DPoint2D(), DPoint2D())->GetName(), "CLK");
}

TEST_F(SegmentTest, VisibilityIsNotStoredAndHighlightsAre) {
    auto const wire = Wire(DPoint2D(0, 0), DPoint2D(1, 0));
    wire->SetVisibility(false);
    EXPECT_TRUE(wire->GetVisible());
    EXPECT_FALSE(wire->GetHighlight());
    wire->SetPreselectHighlight(true);
    EXPECT_TRUE(wire->GetHighlight());
    wire->SetPreselectHighlight(false);
    wire->SetHighlight(true);
    EXPECT_TRUE(wire->GetHighlight());
}

TEST_F(SegmentTest, KeepsCrossingsFromLeftToRightAndDownwardOnOneX) {
    auto const wire = Wire(DPoint2D(0, 0), DPoint2D(10, 0));
    auto const other = Wire(DPoint2D(5, -5), DPoint2D(5, 5));
    auto const right = Cross(wire, other, DPoint2D(7, 0));
    auto const low = Cross(wire, other, DPoint2D(3, 1));
    auto const high = Cross(wire, other, DPoint2D(3, 2));
    std::vector<SmartPtr<CrossingPoint>> crossings;
    wire->GetCrossingPoints(crossings);
    EXPECT_EQ(crossings, (std::vector{high, low, right}));
    wire->RemoveAllCrossingPoints();
}

TEST_F(SegmentTest, RefusesASecondCrossingAtTheSamePlace) {
    auto const wire = Wire(DPoint2D(0, 0), DPoint2D(10, 0));
    auto const other = Wire(DPoint2D(5, -5), DPoint2D(5, 5));
    auto const first = Cross(wire, other, DPoint2D(5, 0));
    auto const again = Cross(wire, other, DPoint2D(5.00001, 0));
    std::vector<SmartPtr<CrossingPoint>> crossings;
    wire->GetCrossingPoints(crossings);
    EXPECT_EQ(crossings, std::vector{first});
    wire->RemoveAllCrossingPoints();
}

TEST_F(SegmentTest, RemovingAllCrossingsTakesThemOffThePartnersToo) {
    auto const wire = Wire(DPoint2D(0, 0), DPoint2D(10, 0));
    auto const other = Wire(DPoint2D(5, -5), DPoint2D(5, 5));
    Cross(wire, other, DPoint2D(5, 0));
    EXPECT_TRUE(other->HasCrossingPoints());
    wire->RemoveAllCrossingPoints();
    EXPECT_FALSE(other->HasCrossingPoints());
    EXPECT_FALSE(wire->HasCrossingPoints());
}

TEST_F(SegmentTest, ThatDiesTakesItsCrossingsOffItsPartners) {
    auto const staying = Wire(DPoint2D(0, 0), DPoint2D(10, 0));
    auto const before = du::RefCounted::LiveCount();
    {
        auto const dying = Wire(DPoint2D(5, -5), DPoint2D(5, 5));
        Cross(staying, dying, DPoint2D(5, 0));
        EXPECT_TRUE(staying->HasCrossingPoints());
    }
    EXPECT_FALSE(staying->HasCrossingPoints());
    EXPECT_EQ(du::RefCounted::LiveCount(), before);
}

TEST_F(SegmentTest, ScaleTakesArrowsAlongAndMirrorLeavesThem) {
    auto const wire = Wire(DPoint2D(0, 0), DPoint2D(10, 0));
    wire->Add(ArrowInfo(nullptr, DPoint2D(4, 0), 0.0, nullptr, false));
    EXPECT_TRUE(wire->HasArrows());
    wire->Scale(DPoint2D(0, 0), 2);
    EXPECT_EQ(wire->GetArrows().at(0).GetPosition(), DPoint2D(8, 0));
    wire->Mirror(DPoint2D(0, 0), false);
    EXPECT_EQ(wire->GetArrows().at(0).GetPosition(), DPoint2D(8, 0));
    wire->RemoveAllArrows();
    EXPECT_TRUE(wire->GetArrows().empty());
}

SmartPtr<Setting> Red() {
    SmartPtr<figk::BaseSettingValue> const value(new figk::SettingValue<Color>(Color::RED));
    return new Setting(Setting::COLOR, value, Setting::LEVEL_FIGURE, true);
}

TEST_F(SegmentTest, ChangedSettingMarksItsSubNetAndTheWiresThatItCrosses) {
    auto const other = wiring.Net();
    auto const wire = wiring.Wire(net, DPoint2D(0, 0), DPoint2D(10, 0));
    wiring.Wire(other, DPoint2D(5, -5), DPoint2D(5, 5));
    wiring.figure->SetLoaded();
    wiring.figure->UpdateContent();
    ASSERT_TRUE(wire->HasCrossingPoints());
    net->SetGraphicalUpdateNeeded(false);
    other->SetGraphicalUpdateNeeded(false);
    wire->AddSetting(Red(), false);
    EXPECT_TRUE(net->GetGraphicalUpdateNeeded());
    EXPECT_TRUE(other->GetGraphicalUpdateNeeded());
}

TEST_F(SegmentTest, InheritsFromItsSubNetOneStepUp) {
    auto const wire = Wire(DPoint2D(0, 0), DPoint2D(10, 0));
    net->AddSetting(Red(), false);
    Color color = Color::BLACK;
    figk::Setting::Level level = figk::Setting::LEVEL_ALL;
    unsigned depth = 9;
    EXPECT_TRUE(wire->GetColorSetting(Setting::COLOR, color, level, depth));
    EXPECT_EQ(color, Color::RED);
    EXPECT_EQ(depth, 1u);
}

TEST_F(SegmentTest, HasNoWidthUnlessTheStoredOneCounts) {
    auto const wire = Wire(DPoint2D(0, 0), DPoint2D(10, 0));
    auto const attributes = [](float weight, int kind) {
        using Value = figk::SettingValue<ConstSmartPtr<zv2d::LineAttributes>>;
        ConstSmartPtr<zv2d::LineAttributes> const lines(new zv2d::LineAttributes(
            1, 2, nullptr, weight, kind, 0, 3, Color::BLACK, Color::BLACK));
        SmartPtr<figk::BaseSettingValue> const value(new Value(lines));
        return SmartPtr<Setting>(
            new Setting(Setting::LINE_ATTRIBUTES, value, Setting::LEVEL_FIGURE, true));
    };
    net->AddSetting(attributes(0.5F, 4), false);
    EXPECT_EQ(wire->GetWidth(), 0.0F);
    net->AddSetting(attributes(0.5F, 3), false);
    EXPECT_EQ(wire->GetWidth(), 0.5F);
    EXPECT_TRUE(wire->GetLineAttributes());
}

TEST_F(SegmentTest, UnroutedConnectionMovesWithItsSubNetOnlyAndHasNoId) {
    auto const wire = wiring.Wire(net, DPoint2D(0, 0), DPoint2D(10, 0));
    net->SetGraphicalUpdateNeeded(false);
    SmartPtr<UnroutedConnection> const loose =
        new UnroutedConnection(net, wiring.Lock(), DPoint2D(10, 0), DPoint2D(20, 0), wire);
    EXPECT_TRUE(net->GetGraphicalUpdateNeeded());
    EXPECT_EQ(loose->GetId(), Symbol::EMPTY);
    loose->MoveItem(1, 1);
    loose->RotateItem(DPoint2D(), 1);
    loose->MirrorItem(DPoint2D(), true);
    EXPECT_EQ(loose->GetExtents(), DBox2D(10, 0, 20, 0));
    net->SetGraphicalUpdateNeeded(false);
    net->MoveItem(1, 0);
    EXPECT_EQ(loose->GetExtents(), DBox2D(11, 0, 21, 0));
    EXPECT_TRUE(net->GetGraphicalUpdateNeeded());
    net->SetGraphicalUpdateNeeded(false);
    loose->Disconnect();
    EXPECT_TRUE(net->GetGraphicalUpdateNeeded());
    EXPECT_EQ(loose->ToString(), "UnroutedConnection(11,0) to (21,0)");
}

TEST_F(SegmentTest, LabelIsCarriedAlongByATransform) {
    auto const wire = wiring.Wire(net, DPoint2D(0, 0), DPoint2D(10, 0));
    EXPECT_FALSE(wire->HasTextLabels());
    auto const label =
        TextGraphic::Create(wiring.Lock(), Symbol("clock"), wire->GetTextLabelContainerGroup());
    wire->Add(SmartPtr<GraphicGroupMember>(label));
    EXPECT_TRUE(wire->HasTextLabels());
    EXPECT_EQ(wire->GetTextOwnerId(), net->GetId());
    DBox2D const before = label->GetMemberExtents();
    wire->MoveItem(100, 0);
    EXPECT_NEAR(label->GetMemberExtents()[0] - before[0], 100, 1e-9);
}

TEST(HighwaySegment, ListsSubNetsInTheOrderOfAddingWithDuplicates) {
    Wiring wiring;
    auto const bus = wiring.Bus();
    auto const segment = wiring.BusWire(bus, DPoint2D(0, 0), DPoint2D(1, 0));
    std::vector<SmartPtr<SubNet>> nets;
    for (int i = 0; i < 40; ++i)
        nets.push_back(wiring.Net());
    for (auto it = nets.rbegin(); it != nets.rend(); ++it)
        segment->Add(*it);
    segment->Add(nets[3]);
    EXPECT_EQ(segment->GetSubNets().size(), 41u);
    EXPECT_EQ(segment->GetSubNets().front(), nets.back());
    EXPECT_TRUE(segment->Visit(nullptr));
    EXPECT_TRUE(segment->Visit(nets[3]));
    segment->Remove(nets[3]);
    EXPECT_FALSE(segment->Visit(nets[3]));
    EXPECT_TRUE(segment->Visit(nets[4]));
    EXPECT_EQ(segment->GetSubNets().size(), 39u);
    for (auto const& net : nets)
        segment->Remove(net);
    EXPECT_TRUE(segment->GetSubNets().empty());
    segment->Add(nets[0]);
    EXPECT_TRUE(segment->Visit(nets[0]));
    EXPECT_FALSE(segment->Visit(nets[1]));
}

}  // namespace
}  // namespace figrep::testing
