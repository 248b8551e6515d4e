#include <figrep/FigureItemSettingDelta.h>
#include <figrep/SettingOperationStep.h>
#include <figrep/UnhideAllOperationStep.h>
#include <operations/OperationTestSupport.h>

namespace figrep::testing {
namespace {

class SettingSteps : public FigureOfAll {
protected:
    Figure::Deltas HidingDeltas(Strings const& labels) const {
        Figure::Deltas deltas;
        FigureItemSettingDelta::CreateDeltas(ItemList(labels), deltas, Visibility(false));
        return deltas;
    }
};

TEST_F(SettingSteps, TellTheirTypesAndAreNotRecordable) {
    SettingOperationStep const step(figure, {});
    EXPECT_EQ(step.Type(), Symbol("SettingOperationStep"));
    EXPECT_FALSE(step.Recordable());
    EXPECT_TRUE(step.HasUndo());
}

TEST_F(SettingSteps, UnhideAllTellsTheTypeOfItsBase) {
    UnhideAllOperationStep const step(figure, {});
    EXPECT_EQ(step.Type(), Symbol("SettingOperationStep"));
    EXPECT_EQ(UnhideAllOperationStep::s_type, Symbol("UnhideAllOperationStep"));
    EXPECT_FALSE(step.Recordable());
}

TEST_F(SettingSteps, MakingOneAppliesNothing) {
    auto const before = figure->GetDeltas();
    SettingOperationStep const step(figure, HidingDeltas({"U1"}));
    UnhideAllOperationStep const other(figure, HidingDeltas({"U2"}));
    EXPECT_EQ(figure->GetDeltas(), before);
    EXPECT_EQ(HiddenOn(figure), Strings{});
}

TEST_F(SettingSteps, RedoAppliesUndoTakesBackAsOftenAsWanted) {
    auto const before = figure->GetDeltas();
    SettingOperationStep step(figure, HidingDeltas({"U1", "A", "K"}));
    for (int round = 0; round < 3; ++round) {
        step.Redo();
        EXPECT_EQ(HiddenOn(figure), (Strings{"A", "C1", "C2", "K", "U1"}));
        EXPECT_EQ(figure->GetDeltas().size(), before.size() + 3);
        step.Undo();
        EXPECT_EQ(HiddenOn(figure), Strings{});
        EXPECT_EQ(figure->GetDeltas(), before);
        EXPECT_FALSE(OwnVisibility(Item("U1")));
    }
}

TEST_F(SettingSteps, UndoBringsBackWhatTheItemsSaidBefore) {
    Item("U1")->AddSetting(Visibility(true), true);
    auto const own = OwnVisibility(Item("U1"));
    SettingOperationStep step(figure, HidingDeltas({"U1"}));
    step.Redo();
    EXPECT_FALSE(Item("U1")->IsVisible());
    step.Undo();
    EXPECT_EQ(OwnVisibility(Item("U1")), own);
    step.Redo();
    step.Undo();
    EXPECT_EQ(OwnVisibility(Item("U1")), own);
}

TEST_F(SettingSteps, WithoutDeltasPostChangedContentAndNothingElse) {
    SmartPtr<Recorder> const recorder = new Recorder();
    figure->RegisterObserver(recorder);
    auto const before = figure->GetDeltas();
    SettingOperationStep step(figure, {});
    step.Undo();
    EXPECT_EQ(recorder->Take(), Lines{"content"});
    step.Redo();
    EXPECT_EQ(recorder->Take(), (Lines{"content", "content"}));
    EXPECT_EQ(figure->GetDeltas(), before);
}

TEST_F(SettingSteps, EventsTellOfLooksAndThenOfContent) {
    SmartPtr<Recorder> const recorder = new Recorder();
    SettingOperationStep step(figure, HidingDeltas({"U1"}));
    figure->RegisterObserver(recorder);
    step.Redo();
    EXPECT_EQ(recorder->Take(), (Lines{"appearance", "content", "content"}));
    step.Undo();
    EXPECT_EQ(recorder->Take(), (Lines{"appearance", "content"}));
}

TEST_F(SettingSteps, UnhideAllTakesDeltasAwayWhenDoneAndBringsThemBackWhenUndone) {
    auto const before = figure->GetDeltas();
    auto const hiding = HidingDeltas({"U1", "T"});
    figure->AddAndApplyDeltas(hiding, false);
    auto const hidden = figure->GetDeltas();
    UnhideAllOperationStep step(figure, hiding);
    step.Redo();
    EXPECT_EQ(HiddenOn(figure), Strings{});
    EXPECT_EQ(figure->GetDeltas(), before);
    step.Undo();
    EXPECT_EQ(HiddenOn(figure), (Strings{"T", "U1"}));
    EXPECT_EQ(figure->GetDeltas(), hidden);
}

TEST_F(SettingSteps, WithoutAFigureDoNothing) {
    auto const deltas = HidingDeltas({"U1"});
    SettingOperationStep step({}, deltas);
    step.Redo();
    step.Undo();
    UnhideAllOperationStep other({}, deltas);
    other.Redo();
    other.Undo();
    EXPECT_EQ(HiddenOn(figure), Strings{});
}

TEST_F(SettingSteps, NullAndForeignDeltasDontCrash) {
    SettingOperationStep step(figure, {nullptr, new FakeDelta()});
    step.Redo();
    step.Undo();
    step.Redo();
}

}  // namespace
}  // namespace figrep::testing
