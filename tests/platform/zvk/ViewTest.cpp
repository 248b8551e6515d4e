#include <zvk/ImageView.h>
#include <zvk/View2D.h>

#include <gtest/gtest.h>
#include <zvmu/ModelShadowPoint.h>

#include <cmath>
#include <limits>
#include <string>

namespace {

using du::SmartPtr;
using zvmu::ModelShadowPoint;

class Content : public zvk::MarkupContent {
public:
    explicit Content(SmartPtr<zvmu::ModelBase> const& shown) : model(shown) {}
    SmartPtr<zvmu::ModelBase> const& GetModelBase() const override { return model; }

    SmartPtr<zvmu::ModelBase> model;
};

/// A square of 4 by 4 around a point that writes down what happens to it.
class Mark : public zvk::Markup {
public:
    Mark(std::string* diary, double x, double y, bool canBeDragged = true)
        : Markup(nullptr), log(diary), draggable(canBeDragged) {
        SetContent(new Content(new ModelShadowPoint({x, y, 0}, 4, 4, false)), true);
    }

    bool BeginDrag(zvmu::PickedModel const& picked, bool together) override {
        *log += together ? "begin+ " : "begin ";
        start = picked.at;
        return draggable;
    }
    void ContinueDrag(dg::DVec3 const& fromStart) override {
        *log += "drag ";
        drag = fromStart;
    }
    void EndDrag() override { *log += "end "; }
    void AbandonDrag() override { *log += "abandon "; }
    void Enter(SmartPtr<zvmu::ModelBase> const&) override { *log += "enter "; }
    void Leave() override { *log += "leave "; }
    bool GetCursorOver(SmartPtr<zvmu::ModelBase> const&, du::Symbol& cursor) const override {
        cursor = du::Symbol("hand");
        return true;
    }

    std::string* log;
    bool draggable;
    dg::DPoint3D start;
    dg::DVec3 drag;
};

class ViewTest : public ::testing::Test {
protected:
    ViewTest() { view->SetPickTolerance(0); }

    SmartPtr<Mark> Add(double x, double y, bool draggable = true) {
        SmartPtr<Mark> const mark = new Mark(&log, x, y, draggable);
        view->AddMarkup(mark);
        return mark;
    }

    std::string log;
    SmartPtr<zvk::Window> window = new zvk::Window();
    SmartPtr<zvk::View2D> view = new zvk::View2D(new zvk::Scene(), window);
};

TEST_F(ViewTest, PositionsInTheWindowAndInTheSceneAreEachOthersReverse) {
    view->SetPlacement({-3, 50}, 4.0);
    EXPECT_EQ(view->ToScene({0, 0}), dg::DPoint3D(-3, 50, 0));
    EXPECT_EQ(view->ToScene({8, 4}), dg::DPoint3D(-1, 49, 0)) << "y grows upward in the scene";
    EXPECT_EQ(view->ToWindow({-1, 49}), dg::DPoint2D(8, 4));
    SmartPtr<zvk::ImageView> const image = new zvk::ImageView(nullptr, nullptr);
    image->SetPlacement({-3, 50}, 4.0);
    EXPECT_EQ(image->ToScene({8, 4}), dg::DPoint3D(-1, 51, 0)) << "and downward in an image";
    EXPECT_EQ(image->ToWindow({-1, 51}), dg::DPoint2D(8, 4));
}

TEST_F(ViewTest, PlacementThatMakesNoSenseChangesNothing) {
    double const infinite = std::numeric_limits<double>::infinity();
    for (double const scale : {0.0, -1.0, infinite, std::nan("")})
        view->SetPlacement({0, 0}, scale);
    view->SetPlacement({infinite, 0}, 2.0);
    EXPECT_EQ(view->GetPixelsPerUnit(), 1.0);
    view->SetPickTolerance(-1);
    view->SetPickTolerance(std::nan(""));
    EXPECT_EQ(view->GetPickTolerance(), 0.0);
}

TEST_F(ViewTest, PicksTheMarkupOnTopWithATolerance) {
    auto const below = Add(0, 0);
    auto const above = Add(1, 0);
    EXPECT_EQ(view->PickAt({0, 0}).markup, above);
    EXPECT_EQ(view->PickAt({-1.5, 0}).markup, below);
    EXPECT_FALSE(view->PickAt({-3, 0}).markup);
    view->SetPickTolerance(4);
    EXPECT_EQ(view->PickAt({-5.5, 0}).markup, below);
    view->SetPlacement({0, 0}, 2.0);
    EXPECT_FALSE(view->PickAt({-10, 0}).markup) << "the tolerance is in pixels";
}

TEST_F(ViewTest, TellsTheMarkupOfTheWholeDrag) {
    view->SetPlacement({0, 0}, 2.0);
    auto const mark = Add(10, 10);
    EXPECT_TRUE(view->PointerDown({21, -21}));
    EXPECT_TRUE(view->IsDragging());
    EXPECT_EQ(mark->start, dg::DPoint3D(10, 10, 0));
    view->PointerMove({25, -21});
    EXPECT_EQ(mark->drag, dg::DVec3(2, 0, 0));
    view->PointerMove({25, -31});
    EXPECT_EQ(mark->drag, dg::DVec3(2, 5, 0)) << "always counted from the start";
    view->PointerUp({25, -31});
    EXPECT_FALSE(view->IsDragging());
    view->PointerUp({0, 0});
    EXPECT_EQ(log, "begin drag drag end ");
}

TEST_F(ViewTest, ReleaseElsewhereIsALastStep) {
    auto const mark = Add(0, 0);
    view->PointerDown({0, 0}, true);
    view->PointerUp({7, 0});
    EXPECT_EQ(log, "begin+ drag end ");
    EXPECT_EQ(mark->drag, dg::DVec3(7, 0, 0));
}

TEST_F(ViewTest, PointerThatDoesNotMoveIsNoStep) {
    Add(0, 0);
    view->PointerDown({0, 0});
    view->PointerMove({0, 0});
    view->PointerMove({std::nan(""), 0});
    view->PointerUp({0, 0});
    EXPECT_EQ(log, "begin end ");
}

TEST_F(ViewTest, PressOnNothingOrOnWhatStaysIsTheHostsOwn) {
    Add(0, 0, false);
    EXPECT_FALSE(view->PointerDown({50, 50}));
    EXPECT_FALSE(view->PointerDown({std::numeric_limits<double>::infinity(), 0}));
    EXPECT_FALSE(view->PointerDown({0, 0}));
    EXPECT_FALSE(view->IsDragging());
    view->PointerUp({50, 50});
    EXPECT_EQ(log, "begin ");
}

TEST_F(ViewTest, DragsAreAbandonedOnDemandByASecondPressAndWithTheMarkup) {
    auto const mark = Add(0, 0);
    view->PointerDown({0, 0});
    view->AbandonDrag();
    view->AbandonDrag();
    EXPECT_EQ(log, "begin abandon ");
    log.clear();
    view->PointerDown({0, 0});
    view->PointerDown({50, 50});
    EXPECT_EQ(log, "begin abandon ");
    log.clear();
    view->PointerDown({0, 0});
    view->RemoveMarkup(mark);
    view->PointerUp({1, 1});
    EXPECT_EQ(log, "begin abandon ");
}

TEST_F(ViewTest, HoveringEntersAndLeavesAndShowsTheCursor) {
    auto const mark = Add(0, 0);
    EXPECT_TRUE(view->PointerMove({0, 0}));
    EXPECT_TRUE(view->PointerMove({1, 0}));
    EXPECT_EQ(window->GetCursor(), du::Symbol("hand"));
    EXPECT_FALSE(view->PointerMove({9, 0}));
    EXPECT_FALSE(view->PointerMove({9, 0}));
    EXPECT_TRUE(window->GetCursor().IsEmpty());
    view->PointerMove({0, 0});
    view->RemoveMarkup(mark);
    EXPECT_TRUE(window->GetCursor().IsEmpty());
    EXPECT_EQ(log, "enter leave enter leave ");
}

TEST_F(ViewTest, HoveringIsOverWhileADragGoesOnAndBeginsAgainAfterIt) {
    Add(0, 0);
    view->PointerMove({0, 0});
    view->PointerDown({0, 0});
    view->PointerMove({0, 0});
    view->PointerUp({0, 0});
    view->PointerMove({0, 0});
    EXPECT_EQ(log, "enter leave begin end enter ");
}

TEST_F(ViewTest, ChangesOfMarkupsAskForARepaintOnce) {
    EXPECT_FALSE(view->TakeRepaintNeeded());
    auto const mark = Add(0, 0);
    EXPECT_TRUE(view->TakeRepaintNeeded());
    EXPECT_FALSE(view->TakeRepaintNeeded());
    mark->NotifyContentChanged();
    EXPECT_TRUE(view->TakeRepaintNeeded());
    mark->SetContent(nullptr, false);
    EXPECT_FALSE(view->TakeRepaintNeeded());
    EXPECT_FALSE(view->PickAt({0, 0}).markup) << "without content there is nothing to touch";
    view->RemoveMarkup(mark);
    EXPECT_TRUE(view->TakeRepaintNeeded());
    mark->NotifyContentChanged();
    EXPECT_FALSE(view->TakeRepaintNeeded());
}

TEST_F(ViewTest, MarkupIsInOneViewAtMost) {
    auto const mark = Add(0, 0);
    view->AddMarkup(mark);
    view->AddMarkup(nullptr);
    view->RemoveMarkup(nullptr);
    EXPECT_EQ(view->GetMarkups().size(), 1u);
    SmartPtr<zvk::View2D> const other = new zvk::View2D(nullptr, nullptr);
    other->RemoveMarkup(mark);
    EXPECT_EQ(view->GetMarkups().size(), 1u);
    other->AddMarkup(mark);
    EXPECT_TRUE(view->GetMarkups().empty());
    EXPECT_EQ(other->GetMarkups().size(), 1u);
}

TEST_F(ViewTest, MarkupIsTakenOverByTheEntryOfTheOtherView) {
    auto const first = Add(0, 0);
    auto const second = Add(20, 0);
    SmartPtr<zvk::View2D> const other = new zvk::View2D(nullptr, nullptr);
    other->AddMarkup(view->GetMarkups().front());
    ASSERT_EQ(other->GetMarkups().size(), 1u);
    EXPECT_EQ(other->GetMarkups().front(), first);
    ASSERT_EQ(view->GetMarkups().size(), 1u);
    EXPECT_EQ(view->GetMarkups().front(), second);
    view->RemoveMarkup(view->GetMarkups().front());
    EXPECT_TRUE(view->GetMarkups().empty());
}

TEST_F(ViewTest, PlacesThatAreTooFarAwayToTellAreNoStep) {
    view->SetPlacement({0, 0}, 1e-310);
    view->SetPickTolerance(1);
    Add(0, 0);
    EXPECT_TRUE(view->PointerDown({0, 0}));
    view->PointerMove({1, 0});
    view->PointerUp({-1, 1});
    EXPECT_EQ(log, "begin end ");
}

TEST_F(ViewTest, GoesWithADragGoingOnAndLeavesItsMarkupsAlone) {
    auto const mark = Add(0, 0);
    view->PointerMove({0, 0});
    view->PointerDown({0, 0});
    auto const link = view->GetLink();
    view.Reset();
    EXPECT_FALSE(link->Get());
    EXPECT_EQ(log, "enter leave begin abandon ");
    EXPECT_TRUE(window->GetCursor().IsEmpty());
    mark->NotifyContentChanged();
}

TEST_F(ViewTest, NothingIsLeftAliveBehindIt) {
    log.clear();
    auto const before = du::RefCounted::LiveCount();
    {
        SmartPtr<zvk::View2D> const other = new zvk::View2D(new zvk::Scene(), window);
        other->AddMarkup(new Mark(&log, 0, 0));
        other->PointerDown({0, 0});
    }
    EXPECT_EQ(du::RefCounted::LiveCount(), before);
}

}  // namespace
