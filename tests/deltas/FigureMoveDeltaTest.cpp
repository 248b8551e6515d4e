#include <figrep/FigureMoveDelta.h>

#include <figrep/ConnectorInstance.h>
#include <figrep/MirrorAction.h>
#include <figrep/NetSegment.h>
#include <figrep/RotateAction.h>
#include <figrep/ScaleAction.h>
#include <support/InverseMove.h>

#include <algorithm>

#include "DeltaTestSupport.h"

namespace figrep::testing {
namespace {

using Transforms = FigureMoveDelta::Transforms;

class FigureMoveDeltaTest : public ::testing::Test {
protected:
    InstalledDesign drawing{TwoBlocksAndAWire()};
    SmartPtr<Figure> figure = LoadedFigure(drawing.Sheet());

    SmartPtr<BlockInstance> Block() const { return BlockOf(figure, "U2"); }
    static DPoint2D PinOf(SmartPtr<BlockInstance> const& block) {
        return block->GetConnectorInstances().at(0)->GetPosition();
    }
    void Apply(SmartPtr<FigureMoveDelta> const& delta) const {
        figure->AddAndApplyDelta(delta, false, false);
    }
};

/// Notes what is done to items, besides doing it.
class RecordingFigure : public Figure {
public:
    Strings calls;

    void MoveItem(SmartPtr<AbstractFigureItem> const& item, double dx, double dy) override {
        Note("move", item, {dx, dy});
        Figure::MoveItem(item, dx, dy);
    }
    void RotateItem(SmartPtr<AbstractFigureItem> const& item, DPoint2D const& about,
                    double radians) override {
        Note("rotate", item, {about.x, about.y, radians});
        Figure::RotateItem(item, about, radians);
    }
    void ScaleItem(SmartPtr<AbstractFigureItem> const& item, DPoint2D const& about,
                   double factor) override {
        Note("scale", item, {about.x, about.y, factor});
        Figure::ScaleItem(item, about, factor);
    }
    void MirrorItem(SmartPtr<AbstractFigureItem> const& item, DPoint2D const& about,
                    bool mirrorY) override {
        Note(mirrorY ? "mirror y" : "mirror x", item, {about.x, about.y});
        Figure::MirrorItem(item, about, mirrorY);
    }

private:
    void Note(std::string text, SmartPtr<AbstractFigureItem> const& item,
              std::vector<double> const& numbers) {
        text += " " + item->GetName();
        for (double const number : numbers)
            text += " " + std::to_string(static_cast<int>(number));
        calls.push_back(text);
    }
};

/// What a delta does to a figure of two blocks.
Strings CallsOf(SmartPtr<figk::Sheet> const& sheet, std::vector<std::string> const& blocks,
                Transforms const& transforms, DPoint2D const& offset, bool moveBefore) {
    SmartPtr<RecordingFigure> const figure = new RecordingFigure();
    SmartPtr<FigureSheetDeltaGenerator> const generator = new FigureSheetDeltaGenerator(sheet);
    figure->GenerateDeltas(*generator);
    figure->ApplyDeltas(false);
    FigureMoveDelta::Items items;
    for (auto const& name : blocks)
        items.push_back(BlockOf(figure, name));
    figure->AddAndApplyDelta(new FigureMoveDelta(items, transforms, offset, moveBefore), false,
                             false);
    return figure->calls;
}

TEST_F(FigureMoveDeltaTest, TakesEachItemThroughAllActionsBeforeTheNext) {
    Transforms const transforms{
        new MirrorAction(DPoint2D(1, 2), true), new RotateAction(DPoint2D(3, 4), 5),
        new ScaleAction(DPoint2D(6, 7), 8), nullptr, new MirrorAction(DPoint2D(9, 0), false)};
    EXPECT_EQ(CallsOf(drawing.Sheet(), {"U2", "U1"}, transforms, DPoint2D(3, 4), false),
              (Strings{"mirror y U2 1 2", "rotate U2 3 4 5", "scale U2 6 7 8", "mirror x U2 9 0",
                       "move U2 3 4", "mirror y U1 1 2", "rotate U1 3 4 5", "scale U1 6 7 8",
                       "mirror x U1 9 0", "move U1 3 4"}));
}

TEST_F(FigureMoveDeltaTest, MoveByNothingIsCalledForAllTheSame) {
    Transforms const scale{new ScaleAction(DPoint2D(1, 2), 3)};
    EXPECT_EQ(CallsOf(drawing.Sheet(), {"U1"}, scale, DPoint2D(), false),
              (Strings{"scale U1 1 2 3", "move U1 0 0"}));
    EXPECT_EQ(CallsOf(drawing.Sheet(), {"U1"}, scale, DPoint2D(), true),
              (Strings{"move U1 0 0", "scale U1 1 2 3"}));
    EXPECT_EQ(CallsOf(drawing.Sheet(), {"U1"}, {}, DPoint2D(), false), (Strings{"move U1 0 0"}));
}

TEST_F(FigureMoveDeltaTest, MovesItsItemsByTheOffset) {
    SmartPtr<FigureMoveDelta> const delta =
        new FigureMoveDelta({Block()}, {}, DPoint2D(3, 4), false);
    EXPECT_FALSE(delta->IsPrimary());
    EXPECT_FALSE(delta->IsAppearanceOnly());
    Apply(delta);
    EXPECT_EQ(PinOf(Block()), DPoint2D(23, 14));
    EXPECT_EQ(PinOf(BlockOf(figure, "U1")), DPoint2D(0, 0));
}

TEST_F(FigureMoveDeltaTest, TransformsFirstAndMovesLast) {
    Transforms const transforms{new ScaleAction(DPoint2D(0, 0), 2.0)};
    Apply(new FigureMoveDelta({Block()}, transforms, DPoint2D(3, 4), false));
    EXPECT_EQ(PinOf(Block()), DPoint2D(43, 24));
}

TEST_F(FigureMoveDeltaTest, MovesFirstWhereAsked) {
    Transforms const transforms{new ScaleAction(DPoint2D(0, 0), 2.0)};
    Apply(new FigureMoveDelta({Block()}, transforms, DPoint2D(3, 4), true));
    EXPECT_EQ(PinOf(Block()), DPoint2D(46, 28));
}

TEST_F(FigureMoveDeltaTest, AppliesActionsInTheirOrder) {
    Transforms const transforms{new MirrorAction(DPoint2D(0, 0), false),
                                new ScaleAction(DPoint2D(10, 0), 2.0)};
    Apply(new FigureMoveDelta({Block()}, transforms, DPoint2D(), false));
    EXPECT_EQ(PinOf(Block()), DPoint2D(-50, 20));
}

TEST_F(FigureMoveDeltaTest, EmptyTransformListMovesOnceAndIsWrittenWithoutTransforms) {
    SmartPtr<FigureMoveDelta> const delta =
        new FigureMoveDelta({Block()}, {}, DPoint2D(3, 4), false);
    Apply(delta);
    EXPECT_EQ(PinOf(Block()), DPoint2D(23, 14));
    EXPECT_EQ(Written(delta), (Strings{"action=int 3", "type='move_delta'", "offset=(3,4,0)",
                                       "id_list_entry='" + Block()->GetId().GetString() + "'"}));
}

TEST_F(FigureMoveDeltaTest, WritesItsTransformsInOrder) {
    Transforms const transforms{new MirrorAction(DPoint2D(1, 2), true),
                                new RotateAction(DPoint2D(3, 4), 0.5),
                                new ScaleAction(DPoint2D(5, 6), 2.5)};
    SmartPtr<FigureMoveDelta> const delta =
        new FigureMoveDelta(std::vector<Symbol>{Symbol("a"), Symbol("b")}, transforms, DPoint2D());
    EXPECT_EQ(Written(delta), (Strings{"action=int 3",
                                       "type='move_delta'",
                                       "offset=(0,0,0)",
                                       "id_list_entry='a'",
                                       "id_list_entry='b'",
                                       "transform {",
                                       "transform_type='mirror'",
                                       "about=(1,2,0)",
                                       "mirror_in_x_not_y=true",
                                       "}",
                                       "transform {",
                                       "transform_type='rotate'",
                                       "about=(3,4,0)",
                                       "angle_in_radians=double 0.5",
                                       "}",
                                       "transform {",
                                       "transform_type='scale'",
                                       "about=(5,6,0)",
                                       "scale_factor=double 2.5",
                                       "}"}));
}

TEST_F(FigureMoveDeltaTest, WithoutItemsVerifiesAndOnlyResetsTheExtents) {
    figure->SetExtents(DBox2D(0, 0, 500, 500));
    Strings const before = DumpOf(figure);
    SmartPtr<FigureMoveDelta> const delta =
        new FigureMoveDelta(FigureMoveDelta::Items(), {}, DPoint2D(3, 4), false);
    EXPECT_TRUE(delta->Apply(*figure));
    EXPECT_EQ(DumpOf(figure), before);
    EXPECT_NE(figure->GetExtents(), DBox2D(0, 0, 500, 500));
}

TEST_F(FigureMoveDeltaTest, FindsItsItemsById) {
    SmartPtr<FigureMoveDelta> const delta =
        new FigureMoveDelta(std::vector<Symbol>{Block()->GetId()}, {}, DPoint2D(3, 4));
    Apply(delta);
    EXPECT_EQ(PinOf(Block()), DPoint2D(23, 14));
    EXPECT_EQ(delta->GetItems(), FigureMoveDelta::Items{Block()});
}

TEST_F(FigureMoveDeltaTest, OneLostItemFailsTheWholeDelta) {
    SmartPtr<FigureMoveDelta> const delta = new FigureMoveDelta(
        std::vector<Symbol>{Block()->GetId(), Symbol("gone")}, {}, DPoint2D(3, 4));
    ExpectLost(figure, delta);
    EXPECT_TRUE(delta->GetItems().empty());
    EXPECT_FALSE(delta->Apply(*figure));
    EXPECT_TRUE(delta->GetItems().empty());
}

TEST_F(FigureMoveDeltaTest, FailsOnWhatIsNoFigure) {
    OtherReceiver other;
    SmartPtr<FigureMoveDelta> const delta =
        new FigureMoveDelta({Block()}, {}, DPoint2D(3, 4), false);
    EXPECT_FALSE(delta->Apply(other));
}

TEST_F(FigureMoveDeltaTest, KeepsItsIdsWhenTheItemsLeaveTheFigure) {
    auto const block = Block();
    SmartPtr<FigureMoveDelta> const delta = new FigureMoveDelta({block}, {}, DPoint2D(1, 1), false);
    Strings const first = Written(delta);
    figure->RemoveItem(block);
    EXPECT_EQ(Written(delta), first);
}

TEST_F(FigureMoveDeltaTest, ForwardAndInverseReturnEveryPointToWhereItWas) {
    Transforms const transforms{new ScaleAction(DPoint2D(0, 0), 2.0)};
    SmartPtr<FigureMoveDelta> const forward =
        new FigureMoveDelta({Block()}, transforms, DPoint2D(3, 4), false);
    Strings const before = DumpOf(figure);
    Apply(forward);
    EXPECT_NE(DumpOf(figure), before);
    Apply(test::InverseOf(*forward));
    EXPECT_EQ(DumpOf(figure), before);
}

TEST_F(FigureMoveDeltaTest, ItemsWithoutAnIdAreNotWritten) {
    SmartPtr<SubNet> const drawn = figure->GetSubNets().at(0);
    auto const segment = NodesOf<NetSegment>(drawn).at(0);
    SmartPtr<ConnectorInstance> const free =
        new ConnectorInstance(nullptr, figure->GetLock(), "pin", DPoint2D());
    SmartPtr<FigureMoveDelta> const delta =
        new FigureMoveDelta({free, segment, nullptr}, {}, DPoint2D(), false);
    Strings const lines = Written(delta);
    EXPECT_EQ(std::count(lines.begin(), lines.end(),
                         "id_list_entry='" + segment->GetId().GetString() + "'"),
              1);
    EXPECT_EQ(lines.size(), 4u);
}

TEST_F(FigureMoveDeltaTest, HoldsNoFigure) {
    auto const alive = du::RefCounted::LiveCount();
    {
        auto const other = LoadedFigure(drawing.Sheet());
        other->AddAndApplyDelta(
            new FigureMoveDelta({BlockOf(other, "U1")}, {}, DPoint2D(1, 1), false), false, false);
    }
    EXPECT_EQ(du::RefCounted::LiveCount(), alive);
}

}  // namespace
}  // namespace figrep::testing
