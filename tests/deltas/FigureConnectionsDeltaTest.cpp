#include <figrep/FigureConnectionsDelta.h>

#include <figrep/BrokenConnectionRecord.h>
#include <figrep/HighwayNode.h>
#include <figrep/HighwaySegment.h>
#include <figrep/NetSegment.h>
#include <figrep/SubHighway.h>
#include <figrep/UnroutedConnection.h>
#include <support/LiveObjects.h>

#include <utility>

#include "DeltaTestSupport.h"

namespace figrep::testing {
namespace {

using Record = BrokenConnectionRecord;

constexpr auto APPLY = figk::AbstractDelta::ACTION_CREATE;
constexpr auto UNAPPLY = figk::AbstractDelta::ACTION_DELETE;

/// A net of three wires in a row, from (0,0) over (10,0) and (20,0) to (30,0), headed by the first,
/// without blocks. The last two wires have been taken 5 down.
class FigureConnectionsDeltaTest : public ::testing::Test {
protected:
    FigureConnectionsDeltaTest() { Draw(); }

    void Draw() {
        figure = new Figure();
        wires.clear();
        auto const lock = figure->GetLock();
        subNet = new SubNet(figure, lock, "N");
        wires.push_back(new NetSegment(subNet, lock, DPoint2D(0, 0), DPoint2D(10, 0), nullptr));
        wires.push_back(new NetSegment(subNet, lock, DPoint2D(10, 0), DPoint2D(20, 0), wires[0]));
        wires.push_back(new NetSegment(subNet, lock, DPoint2D(20, 0), DPoint2D(30, 0), wires[1]));
        subNet->SetHead(wires[0]);
        figure->SetLoaded();
    }

    void MoveTail(double dy) const {
        wires[1]->Move(0, dy);
        wires[2]->Move(0, dy);
    }
    SmartPtr<Record> Break(double fromY, double toY) const {
        return new Record(subNet, DPoint2D(10, 0), DPoint2D(10, fromY), DPoint2D(10, toY), true);
    }
    void Run(SmartPtr<Record> const& record, figk::AbstractDelta::Action action) const {
        figure->AddAndApplyDelta(new FigureConnectionsDelta({record}, action), false, false);
        EXPECT_FALSE(figure->HasDeltaFailures());
    }
    std::vector<SmartPtr<UnroutedConnection>> Temporary() const {
        return NodesOf<UnroutedConnection>(subNet);
    }

    SmartPtr<Figure> figure;
    SmartPtr<SubNet> subNet;
    std::vector<SmartPtr<NetSegment>> wires;
};

TEST_F(FigureConnectionsDeltaTest, PutsATemporaryConnectionInPlaceOfTheLostOne) {
    MoveTail(-5);
    Run(Break(0, -5), APPLY);
    EXPECT_EQ(WiresOf<Segment>(subNet),
              (Strings{"0,0 10,0", "10,0 10,-5", "10,-5 20,-5", "20,-5 30,-5"}));
    EXPECT_EQ(Temporary().at(0)->GetSubNet(), subNet);
}

TEST_F(FigureConnectionsDeltaTest, BrokenWirePaintsRedThroughItsForcedSetting) {
    MoveTail(-5);
    Run(Break(0, -5), APPLY);
    Color color;
    figk::Setting::Level level{};
    unsigned depth = 0;
    ASSERT_TRUE(Temporary().at(0)->GetColorSetting(Setting::COLOR, color, level, depth));
    EXPECT_EQ(color, Color::RED);
    EXPECT_EQ(level, figk::Setting::LEVEL_FORCED);
    EXPECT_EQ(depth, 0u);
}

TEST_F(FigureConnectionsDeltaTest, FindsThePairWhicheverOfTheTwoStays) {
    wires[0]->Move(0, 3);
    SmartPtr<Record> const record =
        new Record(subNet, DPoint2D(10, 0), DPoint2D(10, 0), DPoint2D(10, 3), false);
    Run(record, APPLY);
    EXPECT_EQ(WiresOf<Segment>(subNet),
              (Strings{"0,3 10,3", "10,0 10,3", "10,0 20,0", "20,0 30,0"}));
    Run(record, APPLY);
    EXPECT_EQ(Temporary().size(), 1u);
}

TEST_F(FigureConnectionsDeltaTest, AppliedTwiceMovesTheConnectionAndMakesNoSecond) {
    MoveTail(-5);
    auto const record = Break(0, -5);
    Run(record, APPLY);
    auto const first = Temporary().at(0);
    Run(record, APPLY);
    ASSERT_EQ(Temporary().size(), 1u);
    MoveTail(-2);
    Run(Break(-5, -7), APPLY);
    ASSERT_EQ(Temporary().size(), 1u);
    EXPECT_EQ(Temporary()[0], first);
    EXPECT_EQ(EndsOf(*first), "10,0 10,-7");
}

TEST_F(FigureConnectionsDeltaTest, SeveralRecordsOfOneSubNetAreAllHandled) {
    wires[1]->Move(0, 4);
    SmartPtr<Record> const left =
        new Record(subNet, DPoint2D(10, 0), DPoint2D(10, 0), DPoint2D(10, 4), true);
    SmartPtr<Record> const right =
        new Record(subNet, DPoint2D(20, 0), DPoint2D(20, 0), DPoint2D(20, 4), false);
    figure->AddAndApplyDelta(new FigureConnectionsDelta({left, right, left}, APPLY), false, false);
    EXPECT_EQ(WiresOf<Segment>(subNet),
              (Strings{"0,0 10,0", "10,0 10,4", "10,4 20,4", "20,0 20,4", "20,0 30,0"}));
    wires[1]->Move(0, -4);
    figure->AddAndApplyDelta(new FigureConnectionsDelta({right, left}, UNAPPLY), false, false);
    EXPECT_EQ(WiresOf<Segment>(subNet), (Strings{"0,0 10,0", "10,0 20,0", "20,0 30,0"}));
}

TEST_F(FigureConnectionsDeltaTest, UndoingWhereTheWireClosesRemovesTheConnection) {
    MoveTail(-5);
    Run(Break(0, -5), APPLY);
    MoveTail(5);
    Run(Break(0, -5), UNAPPLY);
    EXPECT_TRUE(Temporary().empty());
    EXPECT_EQ(WiresOf<Segment>(subNet), (Strings{"0,0 10,0", "10,0 20,0", "20,0 30,0"}));
    EXPECT_TRUE(subNet->GetGraphicalUpdateNeeded());
}

TEST_F(FigureConnectionsDeltaTest, UndoingRejoinsBothSuccessors) {
    SmartPtr<NetSegment> const branch =
        new NetSegment(subNet, figure->GetLock(), DPoint2D(10, 0), DPoint2D(10, 9), wires[0]);
    MoveTail(-5);
    branch->Move(0, -5);
    Run(Break(0, -5), APPLY);
    auto const temporary = Temporary().at(0);
    wires[0]->Disconnect(branch);
    temporary->AddSuccessor(branch);
    MoveTail(5);
    branch->Move(0, 5);
    Run(Break(0, -5), UNAPPLY);
    EXPECT_EQ(WiresOf<Segment>(subNet).size(), 4u);
    EXPECT_TRUE(wires[0]->IsSuccessor(wires[1]));
    EXPECT_TRUE(wires[0]->IsSuccessor(branch));
}

TEST_F(FigureConnectionsDeltaTest, UndoingFartherAwayOnlyMovesTheEndBack) {
    MoveTail(-5);
    Run(Break(0, -5), APPLY);
    MoveTail(-2);
    Run(Break(-5, -7), APPLY);
    MoveTail(2);
    Run(Break(-5, -7), UNAPPLY);
    ASSERT_EQ(Temporary().size(), 1u);
    EXPECT_EQ(EndsOf(*Temporary()[0]), "10,0 10,-5");
}

TEST_F(FigureConnectionsDeltaTest, WhetherTheWireClosesIsAskedWithATolerance) {
    for (double const gap : {0.0009, 0.0011}) {  // at 10 from the origin the tolerance is 0.001
        Draw();
        SmartPtr<Record> const record =
            new Record(subNet, DPoint2D(10, 0), DPoint2D(10, gap), DPoint2D(10, -5), true);
        MoveTail(-5);
        Run(record, APPLY);
        ASSERT_EQ(Temporary().size(), 1u);
        MoveTail(5 + gap);
        Run(record, UNAPPLY);
        EXPECT_EQ(Temporary().size(), gap < 0.001 ? 0u : 1u) << gap;
    }
}

TEST_F(FigureConnectionsDeltaTest, ConnectionThatHeadedTheSubNetLeavesASuccessorAsHead) {
    MoveTail(-5);
    Run(Break(0, -5), APPLY);
    subNet->SetHead(Temporary().at(0));
    MoveTail(5);
    Run(Break(0, -5), UNAPPLY);
    EXPECT_EQ(WiresOf<Segment>(subNet).size(), 3u);
    EXPECT_TRUE(Temporary().empty());
}

TEST_F(FigureConnectionsDeltaTest, RecordWithoutAPairDoesNothing) {
    Strings const before = DumpOf(figure);
    Run(new Record(subNet, DPoint2D(55, 5), DPoint2D(1, 1), DPoint2D(2, 2), true), APPLY);
    Run(new Record(subNet, DPoint2D(55, 5), DPoint2D(1, 1), DPoint2D(2, 2), true), UNAPPLY);
    EXPECT_EQ(DumpOf(figure), before);
}

TEST_F(FigureConnectionsDeltaTest, OtherActionsChangeNothing) {
    MoveTail(-5);
    Strings const before = DumpOf(figure);
    Run(Break(0, -5), figk::AbstractDelta::ACTION_COPY);
    Run(Break(0, -5), figk::AbstractDelta::ACTION_CHANGE);
    EXPECT_EQ(DumpOf(figure), before);
}

TEST_F(FigureConnectionsDeltaTest, FindsItsSubNetsById) {
    MoveTail(-5);
    SmartPtr<Record> const record =
        new Record(subNet->GetId(), DPoint2D(10, 0), DPoint2D(10, 0), DPoint2D(10, -5), true);
    Run(record, APPLY);
    EXPECT_EQ(record->GetSubNet(), subNet);
    EXPECT_EQ(Temporary().size(), 1u);
}

TEST_F(FigureConnectionsDeltaTest, RecordOfALostSubNetFailsAndChangesNothing) {
    MoveTail(-5);
    SmartPtr<Record> const lost =
        new Record(Symbol("gone"), DPoint2D(), DPoint2D(), DPoint2D(), true);
    SmartPtr<Record> const found =
        new Record(subNet->GetId(), DPoint2D(10, 0), DPoint2D(10, 0), DPoint2D(10, -5), true);
    ExpectLost(figure, new FigureConnectionsDelta({found, lost}, APPLY));
    EXPECT_EQ(found->GetSubNet(), subNet);
    EXPECT_TRUE(Temporary().empty());
    SmartPtr<Record> const nameless =
        new Record(Symbol(), DPoint2D(), DPoint2D(), DPoint2D(), true);
    ExpectLost(figure, new FigureConnectionsDelta({nameless}, APPLY));
}

TEST_F(FigureConnectionsDeltaTest, WritesItsRecordsInOrder) {
    SmartPtr<Record> const stored =
        new Record(Symbol("other"), DPoint2D(1, 2), DPoint2D(3, 4), DPoint2D(5, 6), false);
    SmartPtr<FigureConnectionsDelta> const delta =
        new FigureConnectionsDelta({Break(0, -5), nullptr, stored}, APPLY);
    EXPECT_EQ(
        Written(delta),
        (Strings{"action=int 1", "type='connections_delta'", "broken_connection {",
                 "sub_net_id='" + subNet->GetId().GetString() + "'", "static_pos=(10,0,0)",
                 "start_pos=(10,0,0)", "end_pos=(10,-5,0)", "predecessor_not_successor=true", "}",
                 "broken_connection {", "sub_net_id='other'", "static_pos=(1,2,0)",
                 "start_pos=(3,4,0)", "end_pos=(5,6,0)", "predecessor_not_successor=false", "}"}));
    EXPECT_EQ(delta->GetConnectionRecords().size(), 2u);
    EXPECT_FALSE(delta->IsPrimary());
    EXPECT_FALSE(delta->IsAppearanceOnly());
    EXPECT_EQ(FigureConnectionsDelta::GetClassTypeValue().GetString(), "connections_delta");
}

TEST_F(FigureConnectionsDeltaTest, AppliedAndDroppedLeavesNothingBehind) {
    auto const work = [this] {
        Draw();
        MoveTail(-5);
        Run(Break(0, -5), APPLY);
        figure->UpdateContent();
        wires.clear();
        subNet = nullptr;
        figure = nullptr;
    };
    EXPECT_EQ(test::ObjectsLeftBy(work), 0);
}

/// A net that comes off a bus at (50,5), where its tap is tied to its first wire.
TEST(FigureConnectionsDelta, TapBesideABreakIsTiedToTheConnectionAndBack) {
    InstalledDesign const drawing(BusOf(1));
    auto const figure = LoadedFigure(drawing.Sheet());
    auto const subNet = figure->GetSubNets().at(0);
    subNet->GetHead();
    SmartPtr<HighwayNode> tap;
    SmartPtr<NetSegment> wire;
    for (auto const& node : subNet->GetHighwayNodes()) {
        wire = du::DynamicCast<NetSegment>(node->GetNetConnectionNode());
        tap = node;
        if (wire && !wire->GetPredecessor()) continue;
        break;
    }
    ASSERT_TRUE(tap);
    ASSERT_TRUE(wire);
    DPoint2D start;
    DPoint2D end;
    wire->GetEnds(start, end);
    DPoint2D const at = tap->Contacts(start) ? start : end;
    ASSERT_TRUE(tap->Contacts(at));
    wire->Move(0, -2);
    bool const tapAbove = wire->GetNonJunctionPredecessor() == tap;
    SmartPtr<Record> const record = new Record(subNet, at, at, DPoint2D(at.x, at.y - 2), tapAbove);
    figure->AddAndApplyDelta(new FigureConnectionsDelta({record}, APPLY), false, false);
    auto const temporary = NodesOf<UnroutedConnection>(subNet);
    ASSERT_EQ(temporary.size(), 1u);
    EXPECT_EQ(tap->GetNetConnectionNode(), temporary[0]);
    wire->Move(0, 2);
    figure->AddAndApplyDelta(new FigureConnectionsDelta({record}, UNAPPLY), false, false);
    EXPECT_TRUE(NodesOf<UnroutedConnection>(subNet).empty());
    EXPECT_EQ(tap->GetNetConnectionNode(), wire);
}

TEST(BrokenConnectionRecord, IsCopiedAndMovedWithAllThatItSays) {
    Record const record(Symbol("net"), DPoint2D(1, 2), DPoint2D(3, 4), DPoint2D(5, 6), true);
    Record copy(record);
    Record const moved(std::move(copy));
    EXPECT_EQ(moved.GetSubNetId(), record.GetSubNetId());
    EXPECT_EQ(moved.GetStaticPosition(), DPoint2D(1, 2));
    EXPECT_EQ(moved.GetStartPosition(), DPoint2D(3, 4));
    EXPECT_EQ(moved.GetEndPosition(), DPoint2D(5, 6));
    EXPECT_TRUE(moved.GetPredecessorNotSuccessor());
    EXPECT_FALSE(moved.GetSubNet());
}

}  // namespace
}  // namespace figrep::testing
