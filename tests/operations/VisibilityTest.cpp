#include <figk/Miscellaneous.h>
#include <figrep/BaseGraphic.h>
#include <figrep/FigureItemsVisitor.h>
#include <figrep/FigureSettingDelta.h>
#include <figrep/GenericGraphic.h>
#include <figrep/Miscellaneous.h>
#include <figrep/VisibilityOperationStep.h>
#include <operations/OperationTestSupport.h>

#include <optional>

namespace figrep::testing {
namespace {

class VisibilityTest : public FigureOfAll {
protected:
    void SetUp() override {
        figure->RegisterObserver(recorder);
        Events();
    }
    /// What observers were told since the last call, with the items by their labels.
    Lines Events() {
        Lines lines = recorder->Take();
        for (auto& line : lines) {
            for (auto at = line.find("S1/"); at != std::string::npos; at = line.find("S1/"))
                line.erase(at, 3);
        }
        return lines;
    }

    void Hide(Strings const& labels) { figure->HideItems(ItemList(labels), operation); }
    void Show(Strings const& labels) { figure->UnHideItems(ItemList(labels), operation); }
    void Isolate(Strings const& labels) { figure->IsolateItems(ItemList(labels), operation); }
    std::size_t Deltas() const { return figure->GetDeltas().size(); }

    SmartPtr<Recorder> recorder = new Recorder();
    SmartPtr<zvk::Operation> operation = NewOperation();
};

TEST_F(VisibilityTest, StepTellsItsType) {
    VisibilityOperationStep const step(figure, {}, true);
    EXPECT_EQ(step.Type(), Symbol("VisibilityOperationStep"));
    EXPECT_TRUE(step.Recordable());
    EXPECT_TRUE(step.HasUndo());
}

TEST_F(VisibilityTest, HidingActsAtOnceByADeltaAtFigureLevel) {
    auto const before = Deltas();
    Hide({"U1", "A"});
    EXPECT_EQ(HiddenOn(figure), (Strings{"A", "U1"}));
    ASSERT_EQ(Deltas(), before + 1);
    auto const delta = du::DynamicCast<FigureSettingDelta>(figure->GetDeltas().back());
    ASSERT_TRUE(delta);
    EXPECT_EQ(LabelsOf(delta->GetItems()), (Strings{"U1", "A"}));
    EXPECT_EQ(delta->GetSetting()->GetRepKey(), Setting::ITEM_VISIBILITY);
    EXPECT_EQ(delta->GetSetting()->GetLevel(), figk::Setting::LEVEL_FIGURE);
    EXPECT_TRUE(delta->GetSetting()->CanBeInherited());
    EXPECT_EQ(delta->GetStatus(), figk::AbstractDelta::STATUS_REFRESHED);
    EXPECT_EQ(operation->GetSteps().size(), 1u);
    EXPECT_EQ(Events(), Lines{"visibility off U1 A/w1"});
}

TEST_F(VisibilityTest, UndoTakesTheDeltaOffAndRedoAddsItAgain) {
    auto const deltas = figure->GetDeltas();
    Hide({"U1"});
    auto const done = figure->GetDeltas();
    operation->Undo();
    EXPECT_EQ(figure->GetDeltas(), deltas);
    EXPECT_EQ(HiddenOn(figure), Strings{});
    operation->Redo();
    EXPECT_EQ(figure->GetDeltas(), done);
    EXPECT_EQ(HiddenOn(figure), Strings{"U1"});
    EXPECT_EQ(Events(), (Lines{"visibility off U1", "visibility on U1", "visibility off U1"}));
}

TEST_F(VisibilityTest, RedoPutsTheDeltaAtTheEnd) {
    Hide({"U1"});
    auto const first = figure->GetDeltas().back();
    operation->Undo();
    figure->HideItems({Item("U2")}, nullptr);
    operation->Redo();
    EXPECT_EQ(figure->GetDeltas().back(), first);
}

TEST_F(VisibilityTest, HidingWhatIsHiddenByItsOwnSettingChangesNothingYetUndoPutsThatBack) {
    Hide({"U1"});
    auto const own = OwnVisibility(Item("U1"));
    auto const before = Deltas();
    Events();
    SmartPtr<zvk::Operation> const second = NewOperation();
    figure->HideItems({Item("U1")}, second);
    EXPECT_EQ(Deltas(), before + 1);
    EXPECT_EQ(Events(), Lines{"visibility off"});
    EXPECT_NE(OwnVisibility(Item("U1")), own);
    second->Undo();
    EXPECT_EQ(OwnVisibility(Item("U1")), own);
    EXPECT_EQ(HiddenOn(figure), Strings{"U1"});
}

TEST_F(VisibilityTest, InheritedVisibilityCountsAsChangedAndUndoLeavesNoOwnSetting) {
    Hide({"U2"});
    Events();
    ASSERT_FALSE(Item("U3")->IsVisible());
    SmartPtr<zvk::Operation> const second = NewOperation();
    figure->HideItems({Item("U3")}, second);
    EXPECT_EQ(Events(), Lines{"visibility off U3"});
    EXPECT_TRUE(OwnVisibility(Item("U3")));
    second->Undo();
    EXPECT_FALSE(OwnVisibility(Item("U3")));
    EXPECT_EQ(HiddenOn(figure), (Strings{"U2", "U3"}));
}

TEST_F(VisibilityTest, UndoBringsBackASettingOfAnotherLevel) {
    auto const profile = Visibility(false, figk::Setting::LEVEL_PROFILE);
    Item("U1")->AddSetting(profile, true);
    Show({"U1"});
    EXPECT_TRUE(Item("U1")->IsVisible());
    operation->Undo();
    EXPECT_EQ(OwnVisibility(Item("U1")), profile);
}

/// A figure whose block U1 is hidden by its record in the design.
class HiddenByRecord : public VisibilityTest {
protected:
    HiddenByRecord() {
        auto drawing = test::DrawingOfAll();
        constexpr int VISIBLE = Setting::ITEM_VISIBILITY >> 4;
        ConstSmartPtr<figk::BaseSettingValue> const no = new figk::SettingValue<bool>(false);
        drawing.Block("U1").settings =
            drawing.Source().AddSettings({{VISIBLE, figk::Setting::LEVEL_BASE, no}});
        hiding.emplace(drawing.Source());
        figure = test::FramedFigure(hiding->Sheet());
    }

    std::optional<InstalledDesign> hiding;
};

TEST_F(HiddenByRecord, WhatTheRecordSaysCountsAsTheItemsOwnAndComesBackByItself) {
    ASSERT_EQ(HiddenOn(figure), Strings{"U1"});
    auto const own = OwnVisibility(Item("U1"));
    ASSERT_TRUE(own);
    Hide({"U1"});
    EXPECT_EQ(Events(), Lines{"visibility off"});
    operation->Undo();
    EXPECT_EQ(OwnVisibility(Item("U1")), own);
    operation = NewOperation();
    Events();
    figure->UnhideAll(operation);
    EXPECT_EQ(Events(), Lines{"visibility on U1"});
    EXPECT_EQ(HiddenOn(figure), Strings{});
    operation->Undo();
    EXPECT_EQ(OwnVisibility(Item("U1")), own);
    EXPECT_EQ(HiddenOn(figure), Strings{"U1"});
    operation->Redo();
    EXPECT_EQ(HiddenOn(figure), Strings{});
}

TEST_F(VisibilityTest, AGraphicInAGroupOnTheFigureIsReportedWithTheGroup) {
    Hide({"g1"});
    EXPECT_EQ(Events(), Lines{"visibility off gline g1 g2"});
    EXPECT_EQ(HiddenOn(figure), (Strings{"g1", "g2", "gline"}));
    auto const delta = du::DynamicCast<FigureSettingDelta>(figure->GetDeltas().back());
    EXPECT_EQ(LabelsOf(delta->GetItems()), Strings{"g1"});
}

TEST_F(VisibilityTest, AGroupIsReportedOnce) {
    Hide({"g1", "U1", "g2", "deep", "free"});
    EXPECT_EQ(Events(), Lines{"visibility off gline g1 g2 U1 deep free"});
}

TEST_F(VisibilityTest, NullOperationHidesAndRecordsADeltaWithoutUndo) {
    auto const before = Deltas();
    figure->HideItems({Item("U1")}, nullptr);
    EXPECT_EQ(HiddenOn(figure), Strings{"U1"});
    EXPECT_EQ(Deltas(), before + 1);
    EXPECT_TRUE(operation->GetSteps().empty());
}

TEST_F(VisibilityTest, HidingNothingMakesAStepWithAFailedDelta) {
    Hide({});
    EXPECT_EQ(operation->GetSteps().size(), 1u);
    EXPECT_EQ(Events(), Lines{"visibility off"});
    Figure::Deltas failures;
    figure->TakeDeltaFailures(failures);
    EXPECT_EQ(failures, Figure::Deltas{figure->GetDeltas().back()});
    auto const before = Deltas();
    operation->Undo();
    EXPECT_EQ(Deltas(), before - 1);
}

TEST_F(VisibilityTest, NullItemsAndANullFigureDoNothing) {
    figure->HideItems({nullptr, Item("U1")}, operation);
    figure->IsolateItems({nullptr, Item("U1")}, operation);
    VisibilityOperationStep step(nullptr, {Item("U2")}, false);
    step.Undo();
    step.Redo();
    EXPECT_TRUE(Item("U2")->IsVisible() || OwnVisibility(Item("U2")));
    operation->Undo();
    EXPECT_EQ(HiddenOn(figure), Strings{});
}

TEST_F(VisibilityTest, ShowHideNodesGoesEitherWay) {
    figure->ShowHideNodes(ItemList({"D/P/1", "H/HP/1"}), false, operation);
    EXPECT_EQ(HiddenOn(figure), (Strings{"D/P/1", "H/HP/1"}));
    figure->ShowHideNodes(ItemList({"D/P/1"}), true, operation);
    EXPECT_EQ(HiddenOn(figure), Strings{"H/HP/1"});
}

TEST_F(VisibilityTest, UnhideAllShowsAgainWhatWasHiddenAndWhatInheritedIt) {
    Hide({"U2", "K", "free", "format", "H"});
    figure->ShowHideNodes(ItemList({"D/P/1"}), false, operation);
    Events();
    figure->UnhideAll(operation);
    EXPECT_EQ(HiddenOn(figure), Strings{});
    EXPECT_EQ(operation->GetSteps().size(), 3u);
    operation->Undo();
    EXPECT_EQ(HiddenOn(figure), Strings{});
}

TEST_F(VisibilityTest, UnhideAllOnAFigureWithEverythingVisibleStillMakesItsStep) {
    figure->UnhideAll(operation);
    EXPECT_EQ(operation->GetSteps().size(), 1u);
}

// What stays visible when something is isolated. The format and the title block are never hidden.

TEST_F(VisibilityTest, IsolatingANothingHidesEverythingAndStillShowsNothing) {
    Isolate({});
    EXPECT_EQ(HiddenOn(figure), AllBut({"format", "title"}));
    ASSERT_EQ(operation->GetSteps().size(), 2u);
    Lines const events = Events();
    ASSERT_EQ(events.size(), 2u);
    EXPECT_EQ(events[1], "visibility on");
    operation->Undo();
    EXPECT_EQ(HiddenOn(figure), Strings{});
}

TEST_F(VisibilityTest, IsolatingANetHidesAllElse) {
    Isolate({"A"});
    EXPECT_EQ(HiddenOn(figure), AllBut({"format", "title", "A"}));
}

TEST_F(VisibilityTest, IsolatingABusHidesItsNetsAndItsPort) {
    Isolate({"H"});
    EXPECT_EQ(HiddenOn(figure), AllBut({"format", "title", "H"}));
}

TEST_F(VisibilityTest, IsolatingACableKeepsItsSubNets) {
    Isolate({"K"});
    EXPECT_EQ(HiddenOn(figure), AllBut({"format", "title", "K", "C1", "C2"}));
}

TEST_F(VisibilityTest, IsolatingASubNetOfACableHidesTheCable) {
    Isolate({"C1"});
    EXPECT_EQ(HiddenOn(figure), AllBut({"format", "title", "C1"}));
}

TEST_F(VisibilityTest, IsolatingABlockHidesItsChildren) {
    Isolate({"U2"});
    EXPECT_EQ(HiddenOn(figure), AllBut({"format", "title", "U2"}));
}

TEST_F(VisibilityTest, IsolatingAChildHidesItsParentAndShowsItByItself) {
    Isolate({"U3"});
    EXPECT_EQ(HiddenOn(figure), AllBut({"format", "title", "U3"}));
    EXPECT_TRUE(OwnVisibility(Item("U3")));
}

TEST_F(VisibilityTest, IsolatingAPortKeepsItsNodes) {
    Isolate({"D/P"});
    EXPECT_EQ(HiddenOn(figure), AllBut({"format", "title", "D/P", "D/P/1"}));
}

TEST_F(VisibilityTest, IsolatingATextInAGroupOnTheFigureKeepsTheWholeGroup) {
    Isolate({"g1"});
    EXPECT_EQ(HiddenOn(figure), AllBut({"format", "title", "gline", "g1", "g2"}));
}

TEST_F(VisibilityTest, IsolatingAFreeTextKeepsNothingElse) {
    Isolate({"free"});
    EXPECT_EQ(HiddenOn(figure), AllBut({"format", "title", "free"}));
}

TEST_F(VisibilityTest, IsolatingAnythingHidesMiscellaneousItems) {
    SmartPtr<Miscellaneous> const misc = new Miscellaneous(figure->GetLock(), nullptr);
    SmartPtr<Miscellaneous> const kept = new Miscellaneous(figure->GetLock(), nullptr);
    figure->Receive(misc);
    figure->Receive(kept);
    figure->IsolateItems({Item("A"), kept}, operation);
    EXPECT_FALSE(misc->IsVisible());
    EXPECT_TRUE(kept->IsVisible());
    operation->Undo();
    EXPECT_TRUE(misc->IsVisible());
}

TEST_F(VisibilityTest, IsolatingSeveralKeepsEachWithItsOwn) {
    Isolate({"K", "g2", "T", "A"});
    EXPECT_EQ(HiddenOn(figure),
              AllBut({"format", "title", "K", "C1", "C2", "gline", "g1", "g2", "T", "A"}));
}

TEST_F(VisibilityTest, IsolatingShowsWhatWasHiddenAndHidesAgainWhatWasHidden) {
    Hide({"A", "B"});
    auto const own = OwnVisibility(Item("B"));
    SmartPtr<zvk::Operation> const isolation = NewOperation();
    figure->IsolateItems({Item("A")}, isolation);
    EXPECT_EQ(HiddenOn(figure), AllBut({"format", "title", "A"}));
    EXPECT_EQ(isolation->GetSteps().size(), 2u);
    EXPECT_NE(OwnVisibility(Item("B")), own);
    isolation->Undo();
    EXPECT_EQ(HiddenOn(figure), (Strings{"A", "B"}));
    EXPECT_EQ(OwnVisibility(Item("B")), own);
}

TEST_F(VisibilityTest, IsolatingEverythingTakesOneStep) {
    Items all;
    FigureItemsVisitor visitor(all);
    visitor.SetCollectPorts(true);
    figure->Accept(visitor);
    figure->IsolateItems(all, operation);
    EXPECT_EQ(operation->GetSteps().size(), 1u);
    EXPECT_EQ(HiddenOn(figure), Strings{});
}

TEST_F(VisibilityTest, PickedGraphicsAreIsolatedAsTheItemsThatOwnThem) {
    struct Graphics : AbstractFigureVisitor {
        using AbstractFigureVisitor::Visit;
        bool Visit(SmartPtr<GenericGraphic> const& item) override {
            all.push_back(item);
            return true;
        }
        std::vector<SmartPtr<BaseGraphic>> all;
    };
    Graphics outline;
    Item("U1")->Accept(outline);
    ASSERT_FALSE(outline.all.empty());
    Items picked;
    figure->GetHigherLevelContent(outline.all, picked);
    figure->GetHigherLevelContent({du::DynamicCast<BaseGraphic>(Item("g1")), nullptr}, picked);
    EXPECT_EQ(LabelsOf(picked), (Strings{"U1", "g1"}));
    figure->IsolateItems(picked, operation);
    EXPECT_EQ(HiddenOn(figure), AllBut({"format", "title", "U1", "gline", "g1", "g2"}));
}

}  // namespace
}  // namespace figrep::testing
