#include <figrep/FigureItemsVisitor.h>
#include <figrep/FigureMoveDelta.h>
#include <figrep/FitContentOperationStep.h>
#include <figrep/MirrorAction.h>
#include <figrep/RotateAction.h>
#include <figrep/ScaleAction.h>
#include <operations/OperationTestSupport.h>

#include <cmath>
#include <limits>

namespace figrep::testing {
namespace {

class FitContent : public FigureOfAll {
protected:
    void SetUp() override {
        FigureItemsVisitor visitor(items);
        visitor.SetCollectSubItems(false);
        figure->Accept(visitor);
    }
    SmartPtr<FitContentOperationStep> Step(FitContentOperationStep::Transforms const& transforms,
                                           DPoint2D const& offset) const {
        return new FitContentOperationStep(figure, items, transforms, offset);
    }
    DPoint2D StartOfA() const {
        DPoint2D start;
        DPoint2D end;
        NodesOf<Segment>(NetOf(figure, "A")).at(0)->GetEnds(start, end);
        return start.x < end.x ? start : end;
    }
    static void ExpectNear(DPoint2D const& point, double x, double y) {
        EXPECT_NEAR(point.x, x, 1e-9);
        EXPECT_NEAR(point.y, y, 1e-9);
    }

    Items items;
    DPoint2D const about{10, 20};
};

TEST_F(FitContent, ActsWhenItIsMadeAndTellsNoTypeOfItsOwn) {
    auto const before = figure->GetDeltas().size();
    auto const step = Step({}, DPoint2D(3, 4));
    ExpectNear(StartOfA(), 3, 4);
    EXPECT_EQ(figure->GetDeltas().size(), before + 1);
    EXPECT_TRUE(du::DynamicCast<FigureMoveDelta>(figure->GetDeltas().back()));
    EXPECT_EQ(step->Type(), Symbol::EMPTY);
    EXPECT_TRUE(step->Recordable());
    EXPECT_TRUE(step->HasUndo());
}

TEST_F(FitContent, UndoLeavesTheDeltaListAsItWasBefore) {
    auto const before = figure->GetDeltas();
    auto const step = Step({new ScaleAction(about, 2)}, DPoint2D(3, 4));
    step->Undo();
    EXPECT_EQ(figure->GetDeltas(), before);
    ExpectNear(StartOfA(), 0, 0);
}

TEST_F(FitContent, RedoMakesANewForwardDeltaAndTheNextUndoANewInverse) {
    auto const step = Step({}, DPoint2D(3, 4));
    auto const first = figure->GetDeltas().back();
    step->Undo();
    step->Redo();
    auto const second = figure->GetDeltas().back();
    EXPECT_NE(second, first);
    auto const again = du::DynamicCast<FigureMoveDelta>(second);
    ASSERT_TRUE(again);
    EXPECT_EQ(again->GetOffset(), DPoint2D(3, 4));
    EXPECT_EQ(again->GetItems(), items);
    ExpectNear(StartOfA(), 3, 4);
    step->Undo();
    ExpectNear(StartOfA(), 0, 0);
    step->Redo();
    step->Undo();
    ExpectNear(StartOfA(), 0, 0);
}

TEST_F(FitContent, UndoTakesTransformsBackInReverseOrder) {
    auto const step =
        Step({new RotateAction(about, 0.7), new ScaleAction(DPoint2D(-5, 3), 2.5),
              new MirrorAction(DPoint2D(1, 1), true), new RotateAction(DPoint2D(0, 0), -0.2)},
             DPoint2D(11, -7));
    EXPECT_GT(std::abs(StartOfA().x) + std::abs(StartOfA().y), 1.0);
    step->Undo();
    ExpectNear(StartOfA(), 0, 0);
}

TEST_F(FitContent, TransformsComeBeforeTheOffset) {
    Step({new ScaleAction(DPoint2D(0, 0), 2)}, DPoint2D(3, 4));
    DPoint2D start;
    DPoint2D end;
    NodesOf<Segment>(NetOf(figure, "A")).at(0)->GetEnds(start, end);
    EXPECT_NEAR(std::max(start.x, end.x), 83, 1e-9);
}

TEST_F(FitContent, FactorsThatScaleNothingComeBackAsNothing) {
    double const notANumber = std::numeric_limits<double>::quiet_NaN();
    double const infinite = std::numeric_limits<double>::infinity();
    for (double const factor : {0.0, notANumber, infinite}) {
        auto const before = DumpOf(figure);
        auto const step = Step({new ScaleAction(about, factor)}, DPoint2D());
        EXPECT_EQ(DumpOf(figure), before) << factor;
        step->Undo();
        EXPECT_EQ(DumpOf(figure), before) << factor;
    }
}

TEST_F(FitContent, EventsTellOfChangedContent) {
    SmartPtr<Recorder> const recorder = new Recorder();
    items = {Item("U1")};
    figure->RegisterObserver(recorder);
    auto const step = Step({}, DPoint2D(1, 1));
    EXPECT_EQ(recorder->Take(), (Lines{"content", "content"}));
    step->Undo();
    EXPECT_EQ(recorder->Take(), (Lines{"content", "content"}));
    step->Redo();
    EXPECT_EQ(recorder->Take(), (Lines{"content", "content"}));
}

TEST_F(FitContent, NullTransformsItemsAndFigureDoNothing) {
    FitContentOperationStep nowhere({}, {Item("U1")}, {}, DPoint2D(1, 1));
    nowhere.Undo();
    nowhere.Redo();
    FitContentOperationStep step(figure, {nullptr}, {nullptr}, DPoint2D(1, 1));
    step.Undo();
    step.Redo();
    ExpectNear(StartOfA(), 0, 0);
}

}  // namespace
}  // namespace figrep::testing
