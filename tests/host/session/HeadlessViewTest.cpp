#include <session/HeadlessView.h>

#include <cmath>
#include <limits>
#include <vector>

#include <figrep/Figure.h>
#include <figrep/FigureMoveDelta.h>
#include <gtest/gtest.h>
#include <host/session/ExampleSession.h>
#include <session/History.h>
#include <support/LiveObjects.h>
#include <zvk/ImageView.h>
#include <zvmk/Cursors.h>

namespace fighost {
namespace {

using figrep::SmartPtr;
using Shadow = zvmk::FigureContentShadow;

class HeadlessViewTest : public ::testing::TestWithParam<HeadlessView::Kind> {
protected:
    std::unique_ptr<Session> session = test::OpenExample();
    SmartPtr<figrep::Figure> figure = session->GetSheets().at(0).figure;
    HeadlessView view{figure, session->GetHistory().GetScene(), GetParam()};
};

TEST_P(HeadlessViewTest, WholeContentIsInTheWindow) {
    dg::DBox2D const box = figure->GetExtents();
    for (dg::DPoint2D const corner :
         {dg::DPoint2D(box.XMin(), box.YMin()), dg::DPoint2D(box.XMax(), box.YMax())}) {
        dg::DPoint2D const pixel = view.GetView()->ToWindow(corner);
        EXPECT_TRUE(pixel.x >= 0 && pixel.x <= 1024) << pixel.x;
        EXPECT_TRUE(pixel.y >= 0 && pixel.y <= 768) << pixel.y;
    }
    bool const isImage = GetParam() == HeadlessView::IMAGE;
    EXPECT_EQ(static_cast<bool>(du::DynamicCast<zvk::ImageView>(view.GetView())), isImage);
    EXPECT_EQ(view.GetView()->ToWindow({0, 1}).y > view.GetView()->ToWindow({0, 0}).y, isImage);
}

TEST_P(HeadlessViewTest, PositionsLoseNothingOnTheirWayThroughTheWindow) {
    for (double const x : {0.1, 17.78, 253.365}) {
        dg::DPoint2D const back = [&] {
            auto const point = view.GetView()->ToScene(view.GetView()->ToWindow({x, -x}));
            return dg::DPoint2D(point.x, point.y);
        }();
        EXPECT_NEAR(back.x, x, 1e-12);
        EXPECT_NEAR(back.y, -x, 1e-12);
    }
}

TEST_P(HeadlessViewTest, BoxesWithoutSizeKeepTheScale) {
    double const scale = view.GetView()->GetPixelsPerUnit();
    double const infinite = std::numeric_limits<double>::infinity();
    for (dg::DBox2D const& box :
         {dg::DBox2D::EMPTY, dg::DBox2D(5, 5, 5, 5), dg::DBox2D(0, 0, infinite, 1)})
        view.Show(box);
    EXPECT_EQ(view.GetView()->GetPixelsPerUnit(), scale);
    view.Show(dg::DBox2D(5, 0, 5, 384));
    EXPECT_EQ(view.GetView()->GetPixelsPerUnit(), 2.0) << "a line has a size";
}

TEST_P(HeadlessViewTest, ContentShadowComesAndGoesWithTheFigureKnowing) {
    EXPECT_FALSE(view.DragTo(figure->GetExtents().Centre(), {0, 0})) << "nothing to drag yet";
    view.ShowContentShadow();
    view.ShowContentShadow();
    EXPECT_EQ(figure->GetFigureShadow(), view.GetContentShadow());
    EXPECT_EQ(view.GetView()->GetMarkups().size(), 1u);
    view.HideContentShadow();
    view.HideContentShadow();
    EXPECT_FALSE(figure->GetFigureShadow());
    EXPECT_TRUE(view.GetView()->GetMarkups().empty());
}

TEST_P(HeadlessViewTest, DragIsRecordedUnderItsNameAndUndone) {
    InstallOperationNames();
    view.ShowContentShadow();
    dg::DPoint2D const centre = figure->GetExtents().Centre();
    EXPECT_TRUE(view.DragTo(centre, centre + dg::DVec2(16, 8)));
    EXPECT_EQ(session->GetHistory().GetUndoName(), "Fit Content");
    auto const move = du::DynamicCast<figrep::FigureMoveDelta>(figure->GetDeltas().back());
    ASSERT_TRUE(move);
    EXPECT_NEAR(move->GetOffset().x, 16, 1e-9);
    EXPECT_NEAR(move->GetOffset().y, 8, 1e-9);
    EXPECT_TRUE(session->GetHistory().Undo());
    EXPECT_EQ(figure->GetDeltas().size(), 1u);
}

TEST_P(HeadlessViewTest, AbandonedDragLeavesNoTrace) {
    view.ShowContentShadow();
    EXPECT_TRUE(view.Press(figure->GetExtents().Centre()));
    view.MoveTo({0, 0});
    EXPECT_EQ(view.GetCursor(), zvmk::dragCursorMove);
    view.Abandon();
    view.Release({0, 0});
    EXPECT_TRUE(view.GetCursor().IsEmpty());
    EXPECT_FALSE(session->GetHistory().CanUndo());
}

TEST_P(HeadlessViewTest, BoxOfAnAbandonedDragFitsAgainAndTheNextDragStartsFromThere) {
    view.ShowContentShadow();
    auto const& shadow = *view.GetContentShadow();
    auto const corner = shadow.GetHandle(Shadow::TOP_RIGHT)->GetPosition();
    auto const centre = shadow.GetHandle(Shadow::CENTRE)->GetPosition();
    EXPECT_TRUE(view.Press({corner.x, corner.y}));
    view.MoveTo({2 * corner.x - centre.x, 2 * corner.y - centre.y});
    EXPECT_FALSE(shadow.GetHandle(Shadow::TOP_RIGHT)->GetPosition() == corner);
    view.Abandon();
    EXPECT_EQ(shadow.GetHandle(Shadow::TOP_RIGHT)->GetPosition(), corner);
    EXPECT_TRUE(view.DragTo({centre.x, centre.y}, {centre.x + 16, centre.y + 8}));
    auto const move = du::DynamicCast<figrep::FigureMoveDelta>(figure->GetDeltas().back());
    ASSERT_TRUE(move);
    EXPECT_TRUE(move->GetTransforms().empty()) << "nothing is scaled";
}

TEST_P(HeadlessViewTest, SecondPressAbandonsTheDragThatGoesOn) {
    view.ShowContentShadow();
    auto const& shadow = *view.GetContentShadow();
    auto const corner = shadow.GetHandle(Shadow::BOTTOM_LEFT)->GetPosition();
    EXPECT_TRUE(view.Press({corner.x, corner.y}));
    view.MoveTo({corner.x - 40, corner.y - 40});
    EXPECT_TRUE(view.Press(figure->GetExtents().Centre()));
    EXPECT_EQ(shadow.GetPickedModel(), shadow.GetHandle(Shadow::CENTRE));
    EXPECT_EQ(shadow.GetHandle(Shadow::BOTTOM_LEFT)->GetPosition(), corner);
    EXPECT_FALSE(session->GetHistory().CanUndo());
}

TEST_P(HeadlessViewTest, AbandoningWithoutADragChangesNothing) {
    view.Abandon();
    view.ShowContentShadow();
    view.GetView()->TakeRepaintNeeded();
    view.Abandon();
    EXPECT_FALSE(view.GetView()->TakeRepaintNeeded());
}

TEST_P(HeadlessViewTest, PointerOverAHandleShowsWhatItWouldDo) {
    view.ShowContentShadow();
    auto const corner = view.GetContentShadow()->GetHandle(Shadow::TOP_LEFT)->GetPosition();
    view.MoveTo({corner.x, corner.y});
    EXPECT_EQ(view.GetCursor(), GetParam() == HeadlessView::IMAGE
                                    ? zvmk::dragCursorSizeLeftToRight
                                    : zvmk::dragCursorSizeRightToLeft);
    view.MoveTo(figure->GetExtents().Centre() + dg::DVec2(20, 20));
    EXPECT_TRUE(view.GetCursor().IsEmpty());
}

TEST_P(HeadlessViewTest, NothingIsLeftAliveBehindIt) {
    auto const drag = [&] {
        HeadlessView other(figure, nullptr, GetParam());
        other.ShowContentShadow();
        other.Press(figure->GetExtents().Centre());
    };
    EXPECT_EQ(figrep::test::ObjectsLeftBy(drag), 0);
    HeadlessView empty(nullptr);
    empty.ShowContentShadow();
    EXPECT_TRUE(empty.DragTo({0, 0}, {1, 1})) << "a box without size can be dragged";
}

INSTANTIATE_TEST_SUITE_P(Kinds, HeadlessViewTest,
                         ::testing::Values(HeadlessView::DRAWING, HeadlessView::IMAGE),
                         [](auto const& kind) {
                             return kind.param == HeadlessView::DRAWING ? "Drawing" : "Image";
                         });

}  // namespace
}  // namespace fighost
