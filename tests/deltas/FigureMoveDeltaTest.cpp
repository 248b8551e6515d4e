#include <figrep/FigureMoveDelta.h>

#include <figrep/ConnectorInstance.h>
#include <figrep/MirrorAction.h>
#include <figrep/NetSegment.h>
#include <figrep/RotateAction.h>
#include <figrep/ScaleAction.h>
#include <support/Random.h>

#include <algorithm>
#include <cmath>

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

SmartPtr<FigureMoveDelta> InverseOf(FigureMoveDelta const& delta) {
    Transforms inverse;
    auto const& forward = delta.GetTransforms();
    for (auto action = forward.rbegin(); action != forward.rend(); ++action) {
        if (auto const rotation = du::DynamicCast<RotateAction>(*action)) {
            inverse.push_back(
                new RotateAction(rotation->GetAbout(), -1.0 * rotation->GetAngleInRadians()));
        } else if (auto const scaling = du::DynamicCast<ScaleAction>(*action)) {
            inverse.push_back(new ScaleAction(scaling->GetAbout(), 1.0 / scaling->GetScale()));
        } else {
            inverse.push_back(*action);
        }
    }
    auto const& offset = delta.GetOffset();
    return new FigureMoveDelta(delta.GetItems(), inverse, DPoint2D(-offset.x, -offset.y), true);
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
    Apply(InverseOf(*forward));
    EXPECT_EQ(DumpOf(figure), before);
}

TEST_F(FigureMoveDeltaTest, InverseOfAnyListOfTransformsIsExactWithinRounding) {
    test::Random random(5);
    for (int round = 0; round < 200; ++round) {
        Transforms transforms;
        for (std::size_t i = random.Below(6); i > 0; --i) {
            DPoint2D const about(random.Unit() * 100 - 50, random.Unit() * 100 - 50);
            switch (random.Below(3)) {
                case 0:
                    transforms.push_back(new MirrorAction(about, random.OneIn(2)));
                    break;
                case 1:
                    transforms.push_back(new RotateAction(about, random.Unit() * 7 - 3.5));
                    break;
                default:
                    transforms.push_back(new ScaleAction(about, random.Unit() * 3 + 0.25));
            }
        }
        SmartPtr<FigureMoveDelta> const forward = new FigureMoveDelta(
            {Block()}, transforms, DPoint2D(random.Unit() * 9, random.Unit() * 9), false);
        DPoint2D const before = PinOf(Block());
        EXPECT_TRUE(forward->Apply(*figure));
        double const reach = std::max(1.0, DVec2(PinOf(Block())).Norm());
        EXPECT_TRUE(InverseOf(*forward)->Apply(*figure));
        ASSERT_LE((PinOf(Block()) - before).Norm(), 1e-9 * reach * 200);
    }
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
