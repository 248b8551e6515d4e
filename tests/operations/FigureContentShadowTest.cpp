#include <figrep/BlockInstance.h>
#include <figrep/ConnectorInstance.h>
#include <operations/ContentShadowTestSupport.h>
#include <support/LiveObjects.h>
#include <zvmk/Cursors.h>

#include <map>
#include <utility>

namespace zvmk {
namespace {

using namespace testing;  // NOLINT

// The box.

TEST_F(FigureContentShadowTest, BoxFitsTheFigure) {
    ASSERT_EQ(figure->GetExtents(), dg::DBox2D(10, 20, 110, 60));
    auto const shadow = Make(view);
    EXPECT_EQ(shadow->GetWidth(), 50.0F) << "half of the width, in spite of the name";
    EXPECT_EQ(shadow->GetHeight(), 20.0F);
    std::map<unsigned, DPoint3D> const places{
        {Shadow::TOP_LEFT, {10, 60, 0}},    {Shadow::TOP_RIGHT, {110, 60, 0}},
        {Shadow::BOTTOM_LEFT, {10, 20, 0}}, {Shadow::BOTTOM_RIGHT, {110, 20, 0}},
        {Shadow::TOP_MIDDLE, {60, 60, 0}},  {Shadow::BOTTOM_MIDDLE, {60, 20, 0}},
        {Shadow::LEFT_MIDDLE, {10, 40, 0}}, {Shadow::RIGHT_MIDDLE, {110, 40, 0}},
        {Shadow::CENTRE, {60, 40, 0}}};
    for (auto const& [number, place] : places)
        EXPECT_EQ(At(*shadow, number), place) << number;
    EXPECT_EQ(shadow->GetOutline()->GetPoints(),
              (std::vector<DPoint3D>{{10, 60, 0}, {110, 60, 0}, {110, 20, 0}, {10, 20, 0}}));
}

TEST_F(FigureContentShadowTest, ShowsTheCornersTheCentreAndTheOutlineBelowThem) {
    auto const shadow = Make(view);
    auto const container =
        du::DynamicCast<zvmu::ModelContainer>(shadow->GetContent()->GetModelBase());
    ASSERT_TRUE(container);
    std::vector<SmartPtr<zvmu::ModelBase>> expected;
    for (unsigned const number : {Shadow::CENTRE, Shadow::BOTTOM_LEFT, Shadow::BOTTOM_RIGHT,
                                  Shadow::TOP_RIGHT, Shadow::TOP_LEFT})
        expected.push_back(shadow->GetHandle(number));
    expected.push_back(shadow->GetOutline());
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), container->GetModels().begin(),
                           container->GetModels().end()));
    EXPECT_EQ(*shadow->GetOutline()->GetFillAttrs(),
              attrs::FillAttr(1, dg::Color(0.7F, 0.2F, 0.4F, 1.0F)));
    EXPECT_EQ(shadow->GetOutline()->GetRenderAttrsVector(), zvmu::RenderAttrs::GetMarkerXor());
    EXPECT_EQ(shadow->GetOutline()->GetFlags(), 0u);
}

TEST_F(FigureContentShadowTest, HandlesAreKnownByTheirNumbersAndCursors) {
    auto const shadow = Make(view);
    std::map<unsigned, Symbol> const cursors{{0, dragCursorSizeRightToLeft},
                                             {1, dragCursorSizeLeftToRight},
                                             {2, dragCursorSizeLeftToRight},
                                             {3, dragCursorSizeRightToLeft},
                                             {4, dragCursorTopBottom},
                                             {5, dragCursorTopBottom},
                                             {7, dragCursorLeftRight},
                                             {8, dragCursorLeftRight},
                                             {9, dragCursorMove}};
    for (auto const& [number, expected] : cursors) {
        EXPECT_EQ(shadow->IdentifyDragHandle(shadow->GetHandle(number)), number);
        Symbol cursor;
        EXPECT_TRUE(shadow->GetDragCursor(shadow->GetHandle(number), cursor));
        EXPECT_EQ(cursor, expected) << number;
    }
    Symbol cursor;
    for (SmartPtr<zvmu::ModelBase> const& other :
         {SmartPtr<zvmu::ModelBase>(shadow->GetOutline()), SmartPtr<zvmu::ModelBase>()}) {
        EXPECT_EQ(shadow->IdentifyDragHandle(other), 10u);
        EXPECT_TRUE(shadow->GetDragCursor(other, cursor));
        EXPECT_EQ(cursor, dragCursorMove);
    }
    EXPECT_FALSE(shadow->GetHandle(6));
    EXPECT_FALSE(shadow->GetHandle(10));
}

TEST_F(FigureContentShadowTest, InAnImageViewTopAndBottomTradePlaces) {
    auto const shadow = Make(imageView);
    std::map<unsigned, unsigned> const seen{{0, 1}, {1, 0}, {2, 3}, {3, 2}, {4, 5},
                                            {5, 4}, {7, 7}, {8, 8}, {9, 9}};
    for (auto const& [number, as] : seen)
        EXPECT_EQ(shadow->IdentifyDragHandle(shadow->GetHandle(number)), as);
    EXPECT_EQ(shadow->IdentifyDragHandle(nullptr), 10u);
    Symbol cursor;
    shadow->GetDragCursor(shadow->GetHandle(Shadow::TOP_LEFT), cursor);
    EXPECT_EQ(cursor, dragCursorSizeLeftToRight) << "that of handle 1";
}

TEST_F(FigureContentShadowTest, IsShownAndHiddenAsAMarkupOfItsView) {
    SmartPtr<Shadow> const shadow = new Shadow(view, figure);
    EXPECT_FALSE(shadow->IsVisible());
    EXPECT_FALSE(view->PickAt(view->ToWindow({60, 40})).markup);
    shadow->Display(true);
    shadow->Display(true);
    EXPECT_TRUE(shadow->IsVisible());
    EXPECT_EQ(view->GetMarkups().size(), 1u);
    EXPECT_EQ(view->PickAt(view->ToWindow({60, 40})).on.model, shadow->GetHandle(Shadow::CENTRE));
    EXPECT_FALSE(view->PickAt(view->ToWindow({60, 60})).on.model ==
                 shadow->GetHandle(Shadow::TOP_MIDDLE))
        << "a pointer doesn't reach the handles of the sides";
    EXPECT_EQ(view->PickAt(view->ToWindow({60, 60})).on.model, shadow->GetOutline());
    EXPECT_FALSE(view->PickAt(view->ToWindow({40, 40})).markup) << "the content stays in reach";
    shadow->Display(false);
    EXPECT_FALSE(shadow->IsVisible());
    EXPECT_TRUE(view->GetMarkups().empty());
}

TEST_F(FigureContentShadowTest, StandsForNoOtherMarkupAndRemembersNoCentre) {
    auto const shadow = Make(view);
    EXPECT_FALSE(shadow->GetMarkup());
    DragHandle(*shadow, Shadow::CENTRE, {3, 4, 0});
    EXPECT_EQ(shadow->GetOldCenter(), DPoint3D());
}

// Drags.

TEST_F(FigureContentShadowTest, CentreDraggedMovesTheContentByOneOperation) {
    du::Localizer::SetCatalogue("zvecad:depecadStrings", {{"UndoRedoFitContent", "Einpassen"}});
    Make(view);
    view->PointerDown(view->ToWindow({60, 40}));
    EXPECT_EQ(window->GetCursor(), dragCursorMove);
    view->PointerUp(view->ToWindow({63, 44}));
    ExpectMoveBy({3, 4});
    EXPECT_TRUE(window->GetCursor().IsEmpty());
    EXPECT_EQ(figure->GetExtents(), dg::DBox2D(13, 24, 113, 64));
    EXPECT_EQ(recorded[0]->GetName(), Symbol("Einpassen"));
    EXPECT_EQ(recorded[0]->GetScene(), view->GetScene());
    EXPECT_TRUE(recorded[0]->ChangesContent());
}

TEST_F(FigureContentShadowTest, OnlyTheBoxChangesWhileADragGoesOn) {
    auto const shadow = Make(view);
    auto const before = DumpOf(figure);
    view->PointerDown(view->ToWindow({110, 60}));
    view->TakeRepaintNeeded();
    view->PointerMove(view->ToWindow({210, 100}));
    EXPECT_EQ(DumpOf(figure), before);
    EXPECT_TRUE(recorded.empty());
    EXPECT_NEAR(shadow->GetWidth(), 100.0F, 1e-4F);
    EXPECT_TRUE(view->TakeRepaintNeeded());
}

TEST_F(FigureContentShadowTest, OutlineDraggedMovesTheContentAndTheBoxJumpsToThePointer) {
    auto const shadow = Make(view);
    view->PointerDown(view->ToWindow({60, 60}));
    view->PointerMove(view->ToWindow({67, 60}));
    EXPECT_EQ(At(*shadow, Shadow::CENTRE), DPoint3D(67, 60, 0));
    view->PointerUp(view->ToWindow({67, 60}));
    ExpectMoveBy({7, 0});
}

TEST_F(FigureContentShadowTest, CornerDraggedToTwiceTheWidthScalesByTwoAboutTheCentre) {
    for (auto const& where : {view, imageView}) {
        for (unsigned const number : CORNERS) {
            InstalledDesign const again(Bracket());
            figure = LoadedFigure(again.Sheet());
            recorded.clear();
            auto const shadow = Make(where);
            auto const corner = At(*shadow, number);
            auto const far = DPoint3D(120 - corner.x, 80 - corner.y, 0);
            auto const pointer = corner + (corner - far);
            EXPECT_TRUE(where->PointerDown(where->ToWindow({corner.x, corner.y})));
            where->PointerMove(where->ToWindow({pointer.x, pointer.y}));
            EXPECT_EQ(At(*shadow, Shadow::CENTRE), DPoint3D(60, 40, 0));
            EXPECT_NEAR(shadow->GetWidth(), 100.0F, 1e-4F);
            EXPECT_NEAR(shadow->GetHeight(), 40.0F, 1e-4F);
            where->PointerUp(where->ToWindow({pointer.x, pointer.y}));
            ExpectScaleBy(2.0, {60, 40});
            auto const box = figure->GetExtents();
            EXPECT_NEAR(box.XMin(), -40, 1e-9);
            EXPECT_NEAR(box.YMax(), 80, 1e-9);
        }
    }
}

TEST_F(FigureContentShadowTest, CornerStaysOnTheDiagonalWhereverThePointerGoes) {
    auto const shadow = Make(view);
    auto const corner = shadow->GetHandle(Shadow::TOP_RIGHT);
    shadow->SetPick(corner, corner->GetPosition());
    shadow->HandleDragStart();
    shadow->SetDragVector({-20, 50, 0});  // at right angles to the diagonal
    shadow->HandleDragStep();
    EXPECT_NEAR(shadow->GetWidth(), 50.0F, 1e-4F);
    EXPECT_NEAR(shadow->GetHeight(), 20.0F, 1e-4F);
}

TEST_F(FigureContentShadowTest, CornerLetGoWhereItWasMovesTheContentFromThereToTheCentre) {
    for (unsigned const number : CORNERS) {
        InstalledDesign const again(Bracket());
        figure = LoadedFigure(again.Sheet());
        recorded.clear();
        auto const shadow = Make(view);
        auto const corner = At(*shadow, number);
        view->PointerDown(view->ToWindow({corner.x, corner.y}));
        view->PointerUp(view->ToWindow({corner.x, corner.y}));
        ExpectMoveBy({60 - corner.x, 40 - corner.y});
    }
}

TEST_F(FigureContentShadowTest, CornerDraggedThroughTheOppositeOneScalesAndDoesNotMirror) {
    auto const shadow = Make(view);
    DragHandle(*shadow, Shadow::BOTTOM_LEFT, {300, 120, 0});
    ExpectScaleBy(2.0, {60, 40});
    EXPECT_EQ(BlockOf(figure, "U1")->GetConnectorInstances().at(0)->GetPosition().x, -40.0);
}

TEST_F(FigureContentShadowTest, CornerDraggedOntoTheOppositeOneScalesNothing) {
    auto const shadow = Make(view);
    auto const before = DumpOf(figure);
    DragHandle(*shadow, Shadow::TOP_RIGHT, {-100, -40, 0});
    ExpectScaleBy(0.0, {60, 40});
    EXPECT_EQ(DumpOf(figure), before);
    recorded[0]->Undo();
    EXPECT_EQ(DumpOf(figure), before);
    EXPECT_EQ(shadow->GetWidth(), 50.0F);
}

TEST_F(FigureContentShadowTest, SecondDragStartsFromWhereTheFirstEnded) {
    auto const shadow = Make(view);
    DragHandle(*shadow, Shadow::TOP_RIGHT, {100, 40, 0});
    recorded.clear();
    auto const corner = shadow->GetHandle(Shadow::TOP_RIGHT);
    EXPECT_NEAR(corner->GetPosition().x, 160, 1e-9);
    DragHandle(*shadow, Shadow::TOP_RIGHT, {-100, -40, 0});
    auto const move = du::DynamicCast<FigureMoveDelta>(figure->GetDeltas().back());
    EXPECT_NEAR(du::DynamicCast<ScaleAction>(move->GetTransforms().at(0))->GetScale(), 0.5, 1e-12);
    EXPECT_NEAR(figure->GetExtents().XMin(), 10, 1e-9);
}

TEST_F(FigureContentShadowTest, DragOfTheTopOrBottomCountsAsAMove) {
    auto const shadow = Make(view);
    auto const top = shadow->GetHandle(Shadow::TOP_MIDDLE);
    shadow->SetPick(top, top->GetPosition());
    shadow->HandleDragStart();
    EXPECT_EQ(window->GetCursor(), dragCursorTopBottom);
    shadow->SetDragVector({9, 20, 0});
    shadow->HandleDragStep();
    EXPECT_EQ(At(*shadow, Shadow::CENTRE), DPoint3D(60, 50, 0));
    EXPECT_EQ(shadow->GetHeight(), 30.0F);
    EXPECT_EQ(shadow->GetWidth(), 50.0F);
    shadow->HandleDragStop();
    ExpectMoveBy({0, -10});
}

TEST_F(FigureContentShadowTest, DragOfTheBottomThroughTheTopTurnsTheBoxOver) {
    auto const shadow = Make(view);
    DragHandle(*shadow, Shadow::BOTTOM_MIDDLE, {0, 60, 0});
    EXPECT_EQ(At(*shadow, Shadow::CENTRE), DPoint3D(60, 70, 0));
    EXPECT_EQ(shadow->GetHeight(), 10.0F);
}

TEST_F(FigureContentShadowTest, DragOfASideScalesAboutTheNewCentre) {
    auto const shadow = Make(view);
    DragHandle(*shadow, Shadow::LEFT_MIDDLE, {50, 7, 0});
    EXPECT_EQ(At(*shadow, Shadow::CENTRE), DPoint3D(85, 40, 0));
    EXPECT_EQ(shadow->GetWidth(), 25.0F);
    EXPECT_EQ(shadow->GetHeight(), 20.0F);
    ExpectScaleBy(0.5, {85, 40});
}

TEST_F(FigureContentShadowTest, DragOfTheRightSideKeepsTheLeftOne) {
    auto const shadow = Make(view);
    DragHandle(*shadow, Shadow::RIGHT_MIDDLE, {100, 0, 0});
    EXPECT_EQ(At(*shadow, Shadow::LEFT_MIDDLE), DPoint3D(10, 40, 0));
    ExpectScaleBy(2.0, {110, 40});
}

/// A drag of a handle, and what it records: a factor about a point, or else an offset.
struct HandleDrag {
    unsigned number;
    dg::DVec2 by;
    double factor;
    DPoint2D aboutOrOffset;
};

TEST_F(FigureContentShadowTest, EachHandleRecordsTheSameInADrawingAndInAnImage) {
    HandleDrag const drags[] = {{Shadow::CENTRE, {3, 4}, 1, {3, 4}},
                                {Shadow::TOP_LEFT, {-100, 40}, 2, {60, 40}},
                                {Shadow::TOP_RIGHT, {-50, -20}, 0.5, {60, 40}},
                                {Shadow::BOTTOM_LEFT, {-50, -20}, 1.5, {60, 40}},
                                {Shadow::BOTTOM_RIGHT, {25, -10}, 1.25, {60, 40}},
                                {Shadow::TOP_MIDDLE, {9, 20}, 1, {0, -10}},
                                {Shadow::BOTTOM_MIDDLE, {9, 20}, 1, {0, 30}},
                                {Shadow::LEFT_MIDDLE, {50, 7}, 0.5, {85, 40}},
                                {Shadow::RIGHT_MIDDLE, {100, 0}, 2, {110, 40}}};
    for (auto const& where : {view, imageView}) {
        for (HandleDrag const& drag : drags) {
            SCOPED_TRACE(drag.number);
            InstalledDesign const again(Bracket());
            figure = LoadedFigure(again.Sheet());
            recorded.clear();
            DragHandle(*Make(where), drag.number, drag.by);
            if (drag.factor == 1) {
                ExpectMoveBy(drag.aboutOrOffset);
            } else {
                ExpectScaleBy(drag.factor, drag.aboutOrOffset);
            }
        }
    }
}

TEST_F(FigureContentShadowTest, DragOfAnythingElseTakesTheWholeShadowAlong) {
    auto const shadow = Make(view);
    auto const container = shadow->GetContent()->GetModelBase();
    DragModel(*shadow, container, {1, 1, 0}, {5, 6, 0});
    EXPECT_EQ(shadow->GetReferencePosition(), DPoint3D(5, 6, 0));
    EXPECT_EQ(container->GetLocation().GetPos(), DPoint3D(5, 6, 0));
    EXPECT_EQ(At(*shadow, Shadow::CENTRE), DPoint3D(5, 6, 0));
    ExpectMoveBy({4, 5});
}

TEST_F(FigureContentShadowTest, OutsideAPlaneNothingIsDraggedAnywhere) {
    SmartPtr<zvk::View> const solid = new SolidView();
    auto const shadow = Make(solid);
    DragHandle(*shadow, Shadow::CENTRE, {3, 4, 0});
    EXPECT_EQ(At(*shadow, Shadow::CENTRE), DPoint3D(60, 40, 0));
    ExpectMoveBy({0, 0});
}

TEST_F(FigureContentShadowTest, AbandonedDragLeavesTheBoxAndRecordsNothing) {
    auto const shadow = Make(view);
    auto const before = DumpOf(figure);
    view->PointerDown(view->ToWindow({60, 40}));
    view->PointerMove(view->ToWindow({80, 40}));
    view->AbandonDrag();
    view->PointerUp(view->ToWindow({90, 40}));
    EXPECT_TRUE(recorded.empty());
    EXPECT_EQ(DumpOf(figure), before);
    EXPECT_TRUE(window->GetCursor().IsEmpty());
    EXPECT_EQ(At(*shadow, Shadow::CENTRE), DPoint3D(80, 40, 0));
    shadow->FigureExtentsChanged();
    EXPECT_EQ(At(*shadow, Shadow::CENTRE), DPoint3D(60, 40, 0));
}

TEST_F(FigureContentShadowTest, HiddenInTheMiddleOfADragItRecordsNothing) {
    auto const shadow = Make(view);
    view->PointerDown(view->ToWindow({60, 40}));
    shadow->Display(false);
    view->PointerUp(view->ToWindow({90, 40}));
    EXPECT_TRUE(recorded.empty());
}

// Undo.

TEST_F(FigureContentShadowTest, UndoAndRedoFitTheBoxAgain) {
    auto const shadow = Make(view);
    auto const before = DumpOf(figure);
    DragHandle(*shadow, Shadow::TOP_RIGHT, {100, 40, 0});
    figure->UpdateContent();
    auto const after = DumpOf(figure);
    recorded[0]->Undo();
    EXPECT_EQ(DumpOf(figure), before);
    EXPECT_EQ(figure->GetDeltas().size(), 1u);
    EXPECT_EQ(At(*shadow, Shadow::TOP_RIGHT), DPoint3D(110, 60, 0));
    EXPECT_EQ(shadow->GetWidth(), 50.0F);
    recorded[0]->Redo();
    EXPECT_EQ(DumpOf(figure), after);
    EXPECT_NEAR(At(*shadow, Shadow::TOP_RIGHT).x, 160, 1e-9);
    EXPECT_NEAR(shadow->GetHeight(), 40.0F, 1e-4F);
}

// Content without size.

class FigureContentShadowOfAnUprightWire : public FigureContentShadowTest {
protected:
    FigureContentShadowOfAnUprightWire() : FigureContentShadowTest(UprightWire()) {}
};

TEST_F(FigureContentShadowOfAnUprightWire, CornerDragMovesSinceThereIsNoWidthToScale) {
    auto const shadow = Make(view);
    EXPECT_EQ(shadow->GetWidth(), 0.0F);
    DragHandle(*shadow, Shadow::TOP_LEFT, {3, 10, 0});
    EXPECT_EQ(shadow->GetHeight(), 25.0F) << "the box grows, along its height alone";
    ExpectMoveBy({0, -20});
    EXPECT_EQ(figure->GetExtents(), dg::DBox2D(5, -20, 5, 20));
}

TEST_F(FigureContentShadowTest, EmptyFigureIsABoxWithoutSizeThatIsDraggedAlongTheDiagonal) {
    SmartPtr<Figure> const empty = new Figure();
    SmartPtr<Shadow> const shadow = new Shadow(view, empty);
    EXPECT_EQ(shadow->GetWidth(), 0.0F);
    EXPECT_EQ(At(*shadow, Shadow::TOP_RIGHT), DPoint3D());
    DragHandle(*shadow, Shadow::TOP_RIGHT, {8, 0, 0});
    EXPECT_NEAR(shadow->GetWidth(), 2.0F, 1e-6F);
    EXPECT_NEAR(shadow->GetHeight(), 2.0F, 1e-6F);
    ASSERT_EQ(recorded.size(), 1u);
    auto const move = du::DynamicCast<FigureMoveDelta>(empty->GetDeltas().at(0));
    ASSERT_TRUE(move);
    EXPECT_TRUE(move->GetTransforms().empty());
    EXPECT_TRUE(move->GetItems().empty());
    recorded[0]->Undo();
    EXPECT_TRUE(empty->GetDeltas().empty());
}

// What is dragged.

TEST_F(FigureContentShadowTest, WhatMovesAlongWithSomethingElseIsNotCollected) {
    test::Drawing nested;
    nested.Pin("N", "U1", "1", 0, 0).Wire("N", 0, 0, 10, 0).Child("U1", "U1A");
    nested.Wire("C", 0, 5, 10, 5).Cable("W1", "C").Text("free", 3, 3).Format(100, 80);
    InstalledDesign const installed(nested.Source());
    auto const other = LoadedFigure(installed.Sheet());
    SmartPtr<Shadow> const shadow = new Shadow(nullptr, other);
    std::vector<SmartPtr<AbstractFigureItem>> items;
    shadow->CollectItemsForTransformation(items);
    std::map<AbstractFigureItem::FigureItemType, int> kinds;
    for (auto const& item : items)
        ++kinds[item->GetType()];
    EXPECT_EQ(kinds[AbstractFigureItem::ITEM_BLOCK_INSTANCE], 1) << "without the child";
    EXPECT_EQ(kinds[AbstractFigureItem::ITEM_CABLE_INSTANCE], 1);
    EXPECT_EQ(kinds[AbstractFigureItem::ITEM_SUB_NET], 1) << "without that of the cable";
    EXPECT_EQ(kinds[AbstractFigureItem::ITEM_FORMAT], 0);
}

// Life and death.

TEST_F(FigureContentShadowTest, FigureViewAndShadowLeaveNothingBehind) {
    auto const make = [&] {
        SmartPtr<zvk::View2D> const here = new zvk::View2D(nullptr, window);
        auto const mine = LoadedFigure(drawing.Sheet());
        SmartPtr<Shadow> const shadow = new Shadow(here, mine);
        shadow->Display(true);
        mine->SetFigureShadow(shadow);
        DragHandle(*shadow, Shadow::CENTRE, {1, 1, 0});
        recorded.clear();
    };
    EXPECT_EQ(test::ObjectsLeftBy(make), 0);
}

TEST_F(FigureContentShadowTest, OutlivesItsFigureAndItsViewAndDoesNothingThen) {
    auto const shadow = Make(view);
    figure.Reset();
    EXPECT_EQ(shadow->GetWidth(), 50.0F);
    DragHandle(*shadow, Shadow::CENTRE, {3, 4, 0});
    EXPECT_TRUE(recorded.empty()) << "there is nothing to take back";
    shadow->FigureExtentsChanged();
    EXPECT_EQ(shadow->GetWidth(), 0.0F);
    view.Reset();
    shadow->Display(false);
    shadow->Display(true);
    DragHandle(*shadow, Shadow::TOP_RIGHT, {3, 4, 0});
    std::vector<SmartPtr<AbstractFigureItem>> items;
    shadow->CollectItemsForTransformation(items);
    EXPECT_TRUE(items.empty());
}

TEST_F(FigureContentShadowTest, NullsAreABoxWithoutSizeShownNowhere) {
    SmartPtr<Shadow> const shadow = new Shadow(nullptr, nullptr);
    shadow->Display(true);
    EXPECT_TRUE(shadow->IsVisible());
    DragHandle(*shadow, Shadow::BOTTOM_LEFT, {3, 4, 0});
    shadow->FigureExtentsChanged();
    EXPECT_EQ(shadow->GetWidth(), 0.0F);
}

TEST_F(FigureContentShadowTest, FigureKeepsTheShadowItIsGiven) {
    EXPECT_FALSE(figure->GetFigureShadow());
    auto const shadow = Make(view);
    EXPECT_EQ(figure->GetFigureShadow(), shadow);
    figure->SetFigureShadow(nullptr);
    EXPECT_FALSE(figure->GetFigureShadow());
}

}  // namespace
}  // namespace zvmk
