#include <zvmk/MarkupShadow.h>

#include <gtest/gtest.h>
#include <zvk/View2D.h>
#include <zvmk/Cursors.h>
#include <zvmk/MarkupData.h>
#include <zvmu/ModelShadowPoint.h>

namespace {

using du::SmartPtr;
using zvmu::ModelShadowPoint;

/// A handle that counts what the view has it do.
class Shadow : public zvmk::MarkupShadow {
public:
    Shadow(SmartPtr<zvk::View> const& view, double x, bool draggable = true)
        : MarkupShadow(view, draggable), handle(new ModelShadowPoint({x, 0, 0}, 4, 4, false)) {
        SmartPtr<zvmk::MarkupData> const shown = new zvmk::MarkupData(this);
        shown->SetModelBase(handle);
        SetContent(shown, false);
        data = shown;
    }

    bool HandleDragStart() override {
        ++starts;
        return MarkupShadow::HandleDragStart() && !refuses;
    }
    bool HandleDragStep() override {
        ++steps;
        return MarkupShadow::HandleDragStep();
    }
    bool HandleDragStop() override {
        ++stops;
        pickedAtStop = GetPickedModel();
        return MarkupShadow::HandleDragStop();
    }

    SmartPtr<ModelShadowPoint> handle;
    SmartPtr<zvmk::MarkupData> data;
    SmartPtr<zvmu::ModelBase> pickedAtStop;
    bool refuses = false;
    int starts = 0;
    int steps = 0;
    int stops = 0;
};

class MarkupShadowTest : public ::testing::Test {
protected:
    SmartPtr<Shadow> Add(double x, bool draggable = true) {
        SmartPtr<Shadow> const shadow = new Shadow(view, x, draggable);
        view->AddMarkup(shadow);
        return shadow;
    }
    void DragBy(double from, double dx) {
        view->PointerDown({from, 0});
        view->PointerMove({from + dx / 2, 0});
        view->PointerUp({from + dx, 0});
    }

    SmartPtr<zvk::Window> window = new zvk::Window();
    SmartPtr<zvk::View2D> view = new zvk::View2D(nullptr, window);
};

TEST_F(MarkupShadowTest, KnowsWhatIsDraggedFromWhereAndHowFar) {
    auto const shadow = Add(10);
    view->PointerDown({11, 1});
    EXPECT_EQ(shadow->GetPickedModel(), shadow->handle);
    EXPECT_EQ(shadow->GetStartPoint(), dg::DPoint3D(10, 0, 0));
    EXPECT_EQ(shadow->GetDragVector(), dg::DVec3());
    EXPECT_EQ(window->GetCursor(), zvmk::dragCursorMove);
    view->PointerMove({14, 1});
    EXPECT_EQ(shadow->GetDragVector(), dg::DVec3(3, 0, 0));
    view->PointerUp({14, 1});
    EXPECT_EQ(shadow->pickedAtStop, shadow->handle);
    EXPECT_FALSE(shadow->GetPickedModel());
    EXPECT_TRUE(window->GetCursor().IsEmpty());
    EXPECT_EQ(shadow->starts * 100 + shadow->steps * 10 + shadow->stops, 111);
}

TEST_F(MarkupShadowTest, ByItselfMovesItsModelAndIsTouchedThere) {
    auto const shadow = Add(0);
    DragBy(0, 30);
    EXPECT_EQ(shadow->GetReferencePosition(), dg::DPoint3D(30, 0, 0));
    EXPECT_EQ(shadow->handle->GetLocation().GetPos(), dg::DPoint3D(30, 0, 0));
    EXPECT_FALSE(view->PickAt({0, 0}).markup);
    DragBy(30, -10);
    EXPECT_EQ(shadow->GetReferencePosition(), dg::DPoint3D(20, 0, 0));
}

TEST_F(MarkupShadowTest, TakesAlongTheChosenOnes) {
    auto const a = Add(0);
    auto const b = Add(20);
    auto const c = Add(40);
    view->PointerDown({0, 0});
    view->AbandonDrag();
    view->PointerDown({20, 0}, true);
    view->PointerUp({25, 0});
    EXPECT_TRUE(a->IsChosen() && b->IsChosen() && !c->IsChosen());
    EXPECT_EQ(a->GetReferencePosition().x, 5);
    EXPECT_EQ(b->GetReferencePosition().x, 5);
    EXPECT_EQ(c->GetReferencePosition().x, 0);
    DragBy(40, 7);
    EXPECT_FALSE(a->IsChosen());
    EXPECT_EQ(a->GetReferencePosition().x, 5);
    EXPECT_EQ(c->GetReferencePosition().x, 7);
}

TEST_F(MarkupShadowTest, AbandonedDragStopsWithoutEffect) {
    auto const shadow = Add(0);
    view->PointerDown({0, 0});
    view->AbandonDrag();
    EXPECT_EQ(shadow->stops, 0);
    EXPECT_FALSE(shadow->GetPickedModel());
    EXPECT_TRUE(window->GetCursor().IsEmpty());
    shadow->ContinueDrag({1, 1, 0});
    shadow->EndDrag();
    shadow->AbandonDrag();
    EXPECT_EQ(shadow->steps + shadow->stops, 0) << "nothing is dragged any more";
}

TEST_F(MarkupShadowTest, RefusalsAndShadowsForShowAreNotDragged) {
    auto const fixed = Add(0, false);
    EXPECT_FALSE(view->PointerDown({0, 0}));
    EXPECT_EQ(fixed->starts, 0);
    view->PointerMove({0, 0});
    EXPECT_TRUE(window->GetCursor().IsEmpty());
    auto const refusing = Add(20);
    refusing->refuses = true;
    EXPECT_FALSE(view->PointerDown({20, 0}));
    EXPECT_FALSE(refusing->GetPickedModel());
    view->PointerUp({30, 0});
    EXPECT_EQ(refusing->steps + refusing->stops, 0);
    EXPECT_FALSE(refusing->BeginDrag({}, false)) << "nothing was touched";
}

TEST_F(MarkupShadowTest, HighlightsWhatIsBelowThePointer) {
    auto const shadow = Add(0);
    view->TakeRepaintNeeded();
    view->PointerMove({0, 0});
    EXPECT_EQ(shadow->GetPreselected(), shadow->handle);
    EXPECT_TRUE(view->TakeRepaintNeeded());
    EXPECT_EQ(window->GetCursor(), zvmk::dragCursorMove);
    view->PointerMove({30, 0});
    EXPECT_FALSE(shadow->GetPreselected());
}

TEST_F(MarkupShadowTest, StandsForItself) {
    auto const shadow = Add(0);
    EXPECT_EQ(shadow->GetMarkup(), shadow);
}

TEST_F(MarkupShadowTest, NewModelAsksForARepaintOnceItIsTheContent) {
    auto const shadow = Add(0);
    view->TakeRepaintNeeded();
    SmartPtr<zvmk::MarkupData> const other = new zvmk::MarkupData(shadow.Get());
    other->SetModelBase(shadow->handle);
    EXPECT_FALSE(view->TakeRepaintNeeded());
    shadow->data->SetModelBase(nullptr);
    EXPECT_TRUE(view->TakeRepaintNeeded());
    EXPECT_FALSE(view->PickAt({0, 0}).markup);
    shadow->Translate({1, 0, 0});
}

TEST_F(MarkupShadowTest, DataOutlivesItsShadow) {
    SmartPtr<zvmk::MarkupData> const orphan = new zvmk::MarkupData(nullptr);
    orphan->SetModelBase(nullptr);
    SmartPtr<zvmk::MarkupData> data;
    {
        SmartPtr<Shadow> const shadow = new Shadow(view, 0);
        data = shadow->data;
    }
    data->SetModelBase(nullptr);
}

TEST_F(MarkupShadowTest, WorksWithoutAViewAndAfterItsViewHasGone) {
    auto const shadow = Add(0);
    view->PointerDown({0, 0});
    view.Reset();
    EXPECT_FALSE(shadow->GetView());
    EXPECT_FALSE(shadow->GetPickedModel()) << "the drag was abandoned";
    EXPECT_TRUE(window->GetCursor().IsEmpty());
    EXPECT_TRUE(shadow->BeginDrag({shadow->handle, {}}, false));
    shadow->ContinueDrag({2, 0, 0});
    shadow->EndDrag();
    EXPECT_EQ(shadow->GetReferencePosition(), dg::DPoint3D(2, 0, 0));
    SmartPtr<Shadow> const alone = new Shadow(nullptr, 0);
    EXPECT_FALSE(alone->GetView());
}

}  // namespace
