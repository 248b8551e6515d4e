#include <figrep/FigureItemDeleteDelta.h>

#include "DeltaTestSupport.h"

namespace figrep::testing {
namespace {

class FigureItemDeleteDeltaTest : public ::testing::Test {
protected:
    InstalledDesign drawing{TwoBlocksAndAWire()};
    SmartPtr<Figure> figure = LoadedFigure(drawing.Sheet());
    SmartPtr<BlockInstance> block = BlockOf(figure, "U1");
};

TEST_F(FigureItemDeleteDeltaTest, RemovesItsItemAndNotesIt) {
    SmartPtr<FigureItemDeleteDelta> const delta = new FigureItemDeleteDelta(block);
    EXPECT_FALSE(delta->IsPrimary());
    EXPECT_TRUE(delta->Apply(*figure));
    EXPECT_FALSE(BlockOf(figure, "U1"));
    Figure::Items changed;
    delta->TakeChangedItems(changed);
    EXPECT_EQ(changed, Figure::Items{block});
}

TEST_F(FigureItemDeleteDeltaTest, FindsItsItemById) {
    figure->AddAndApplyDelta(new FigureItemDeleteDelta(figure, block->GetId()), false, false);
    EXPECT_FALSE(figure->HasDeltaFailures());
    EXPECT_FALSE(BlockOf(figure, "U1"));
    EXPECT_TRUE(BlockOf(figure, "U2"));
}

TEST_F(FigureItemDeleteDeltaTest, LostItemFailsAndRemovesNothing) {
    ExpectLost(figure, new FigureItemDeleteDelta(figure, Symbol("gone")));
    ExpectLost(figure, new FigureItemDeleteDelta(figure, Symbol()));
    ExpectLost(figure, new FigureItemDeleteDelta(nullptr, block->GetId()));
    ExpectLost(figure, new FigureItemDeleteDelta(nullptr));
}

TEST_F(FigureItemDeleteDeltaTest, WritesTheActionAndTheIdOnly) {
    Strings const expected{"action=int 2", "id='" + block->GetId().GetString() + "'"};
    EXPECT_EQ(Written(SmartPtr<FigureItemDeleteDelta>(new FigureItemDeleteDelta(block))), expected);
    SmartPtr<FigureItemDeleteDelta> const byId = new FigureItemDeleteDelta(figure, block->GetId());
    EXPECT_EQ(Written(byId), (Strings{"action=int 2"}));
    EXPECT_TRUE(byId->Apply(*figure));
    EXPECT_EQ(Written(byId), expected);
}

TEST_F(FigureItemDeleteDeltaTest, HoldsNoFigure) {
    SmartPtr<FigureItemDeleteDelta> const delta = new FigureItemDeleteDelta(figure, block->GetId());
    auto const other = LoadedFigure(drawing.Sheet());
    figure = nullptr;
    ExpectLost(other, delta);
}

}  // namespace
}  // namespace figrep::testing
