#include <figk/AbstractDeltaGenerator.h>
#include <gtest/gtest.h>

#include "Fakes.h"

namespace figrep::testing {
namespace {

using Delta = figk::AbstractDelta;

/// A delta of another library, which a figure can't apply.
class ForeignDelta : public figk::AbstractDelta {
public:
    ForeignDelta() : figk::AbstractDelta(ACTION_COPY) {}
    bool applied = false;

protected:
    bool _Verify(figk::AbstractDeltaReceiver&) override { return true; }
    void _Apply(figk::AbstractDeltaReceiver&) override { applied = true; }
    void _Serialize(zvk::SerializedContentElement*) override {}
};

class ListGenerator : public figk::AbstractDeltaGenerator {
public:
    explicit ListGenerator(Figure::Deltas made) : made_(std::move(made)) {}
    void Generate() override { deltas.insert(deltas.end(), made_.begin(), made_.end()); }

private:
    Figure::Deltas made_;
};

class FigureDeltas : public ::testing::Test {
protected:
    FigureDeltas() { figure->RegisterObserver(recorder); }

    SmartPtr<AbstractFigureItem> Item(std::string const& id) {
        return new FakeItem(figure->GetLock(),
                            SmartPtr<figk::AbstractItem>(new FakeBlockRecord(id, id)));
    }
    SmartPtr<FakeDelta> Touching(std::string const& id, bool fits = true,
                                 Delta::Status failure = Delta::STATUS_OK) {
        SmartPtr<FakeDelta> const delta = new FakeDelta(fits, failure);
        delta->touches.push_back(Item(id));
        return delta;
    }
    void Record(Figure::Deltas const& deltas) {
        SmartPtr<ListGenerator> const made = new ListGenerator(deltas);
        figure->GenerateDeltas(*made);
    }
    Figure::Deltas Failures() {
        Figure::Deltas out;
        figure->TakeDeltaFailures(out);
        return out;
    }

    SmartPtr<Figure> figure = new Figure();
    SmartPtr<Recorder> recorder = new Recorder();
};

TEST_F(FigureDeltas, EmptyListPostsNothingAndLoads) {
    figure->ApplyDeltas(false);
    EXPECT_EQ(recorder->Take(), Lines{});
    EXPECT_TRUE(figure->GetLoaded());
    EXPECT_FALSE(figure->HasChanged());
}

/// Counts how often crossings and arrows are looked at.
class CountingFigure : public Figure {
public:
    void ProcessNewContent() override {
        ++processed;
        Figure::ProcessNewContent();
    }
    int processed = 0;
};

TEST_F(FigureDeltas, NewContentIsProcessedOnceForEachRun) {
    SmartPtr<CountingFigure> const counting = new CountingFigure();
    counting->ApplyDeltas(false);
    EXPECT_EQ(counting->processed, 1) << "an empty list is no exception";
    counting->AddAndApplyDelta(Touching("a"), false, false);
    EXPECT_EQ(counting->processed, 2);
    counting->AddAndApplyDeltas({Touching("b"), Touching("c")}, false);
    EXPECT_EQ(counting->processed, 3);
    auto const lost = Touching("lost", false, Delta::STATUS_TARGET_MISSING);
    counting->AddAndApplyDeltas({lost, Touching("d")}, false);
    EXPECT_EQ(counting->processed, 4) << "a run that was stopped is no exception";
    SmartPtr<FakeDelta> const look = new FakeDelta();
    look->appearanceOnly = true;
    counting->AddAndApplyDelta(look, false, true);
    EXPECT_EQ(counting->processed, 4);
}

TEST_F(FigureDeltas, GeneratingRecordsAndAppliesNothing) {
    auto const delta = Touching("a");
    Record({delta});
    EXPECT_EQ(figure->GetDeltas(), Figure::Deltas{delta});
    EXPECT_EQ(delta->calls, Lines{});
}

TEST_F(FigureDeltas, ApplyingRunsTheListInOrderAndPostsOneItemsEvent) {
    auto const a = Touching("a");
    auto const b = Touching("b");
    Record({a, b});
    figure->ApplyDeltas(false);
    EXPECT_EQ(recorder->Take(), Lines{"items off a b"});
    EXPECT_EQ(a->calls, (Lines{"verify", "apply"}));
    EXPECT_TRUE(figure->GetLoaded());
    EXPECT_FALSE(figure->HasChanged());
}

TEST_F(FigureDeltas, RefreshComesBeforeVerifying) {
    auto const a = Touching("a");
    Record({a});
    figure->ApplyDeltas(true);
    EXPECT_EQ(a->calls, (Lines{"refresh", "verify", "apply"}));
}

TEST_F(FigureDeltas, PlainFailureGivesUpItsItemsAndTheRunGoesOn) {
    auto const bad = Touching("bad", false, Delta::STATUS_REFRESHED);
    auto const good = Touching("good");
    Record({bad, good});
    figure->ApplyDeltas(false);
    EXPECT_EQ(recorder->Take(), Lines{"items off bad good"});
    EXPECT_EQ(Failures(), Figure::Deltas{bad});
    EXPECT_EQ(figure->GetDeltas().size(), 2u);
}

TEST_F(FigureDeltas, MissingTargetStopsTheRunWithoutItsItems) {
    auto const first = Touching("first");
    auto const lost = Touching("lost", false, Delta::STATUS_TARGET_MISSING);
    auto const behind = Touching("behind");
    Record({first, lost, behind});
    figure->ApplyDeltas(false);
    EXPECT_EQ(recorder->Take(), Lines{"items off first"});
    EXPECT_EQ(behind->calls, Lines{});
    EXPECT_TRUE(figure->GetLoaded());
    EXPECT_EQ(Failures(), Figure::Deltas{lost});
}

TEST_F(FigureDeltas, ForeignEntryIsSkipped) {
    SmartPtr<ForeignDelta> const foreign = new ForeignDelta();
    Record({foreign, SmartPtr<Delta>(), Touching("a")});
    figure->ApplyDeltas(false);
    EXPECT_FALSE(foreign->applied);
    EXPECT_EQ(recorder->Take(), Lines{"items off a"});
    EXPECT_FALSE(figure->HasDeltaFailures());
}

TEST_F(FigureDeltas, FailedDeltaStaysOnTheList) {
    auto const bad = Touching("bad", false);
    figure->AddAndApplyDelta(bad, false, false);
    EXPECT_TRUE(figure->HasDeltaFailures());
    EXPECT_EQ(figure->GetDeltas(), Figure::Deltas{bad});
}

TEST_F(FigureDeltas, FailuresAreTakenOnce) {
    figure->AddAndApplyDelta(Touching("bad", false), false, false);
    EXPECT_EQ(Failures().size(), 1u);
    EXPECT_EQ(Failures().size(), 0u);
    EXPECT_FALSE(figure->HasDeltaFailures());
}

TEST_F(FigureDeltas, AddingOneWithoutNoticePostsNothing) {
    figure->AddAndApplyDelta(Touching("a"), false, false);
    EXPECT_EQ(recorder->Take(), Lines{});
    EXPECT_TRUE(figure->HasChanged());
}

TEST_F(FigureDeltas, AddingOneWithNoticePostsItemsThenContent) {
    figure->AddAndApplyDelta(Touching("a"), true, true);
    EXPECT_EQ(recorder->Take(), (Lines{"items off a", "content"}));
}

TEST_F(FigureDeltas, AppearanceOnlyDeltaPostsAppearance) {
    SmartPtr<FakeDelta> const delta = new FakeDelta();
    delta->appearanceOnly = true;
    figure->AddAndApplyDelta(delta, false, true);
    EXPECT_EQ(recorder->Take(), Lines{"appearance"});
}

TEST_F(FigureDeltas, AddedDeltaThatFailsWithAMissingTargetStopsNothing) {
    auto const lost = Touching("lost", false, Delta::STATUS_TARGET_MISSING);
    figure->AddAndApplyDelta(lost, false, true);
    EXPECT_EQ(recorder->Take(), (Lines{"items off lost", "content"}));
}

TEST_F(FigureDeltas, AddingAnEmptyListMarksAndPostsAllTheSame) {
    figure->AddAndApplyDeltas({}, false);
    EXPECT_TRUE(figure->HasChanged());
    EXPECT_EQ(recorder->Take(), Lines{"content"});
}

TEST_F(FigureDeltas, DeltasBehindTheOneThatStoppedStayUnapplied) {
    auto const lost = Touching("lost", false, Delta::STATUS_TARGET_MISSING);
    auto const behind = Touching("behind");
    figure->AddAndApplyDeltas({Touching("a"), lost, behind}, false);
    EXPECT_EQ(recorder->Take(), (Lines{"items off a", "content"}));
    EXPECT_EQ(figure->GetDeltas().size(), 3u);
    EXPECT_EQ(behind->calls, Lines{});
}

TEST_F(FigureDeltas, PlainFailureAmongSeveralGivesUpItsItemsAndTheRestIsRun) {
    auto const bad = Touching("bad", false);
    auto const good = Touching("good");
    figure->AddAndApplyDeltas({bad, good}, true);
    EXPECT_EQ(recorder->Take(), (Lines{"items off bad good", "content"}));
    EXPECT_EQ(good->calls, (Lines{"refresh", "verify", "apply"}));
    EXPECT_EQ(Failures(), Figure::Deltas{bad});
}

TEST_F(FigureDeltas, NullsAreIgnored) {
    figure->AddAndApplyDelta({}, true, true);
    EXPECT_FALSE(figure->HasChanged());
    figure->AddAndApplyDeltas({SmartPtr<Delta>()}, true);
    EXPECT_TRUE(figure->GetDeltas().empty());
    figure->RemoveDelta({});
}

TEST_F(FigureDeltas, RemovingClosesTheGapAndResets) {
    auto const a = Touching("a");
    auto const lost = Touching("lost", false, Delta::STATUS_TARGET_MISSING);
    auto const c = Touching("c");
    figure->AddAndApplyDelta(a, false, false);
    figure->AddAndApplyDelta(lost, false, false);
    figure->AddAndApplyDelta(c, false, false);
    figure->RemoveDelta(lost);
    EXPECT_EQ(figure->GetDeltas(), (Figure::Deltas{a, c}));
    EXPECT_EQ(lost->GetStatus(), Delta::STATUS_OK);
}

TEST_F(FigureDeltas, RemovingADeltaThatIsNotThereKeepsItsStatus) {
    auto const lost = Touching("lost", false, Delta::STATUS_TARGET_MISSING);
    lost->Apply(*figure);
    figure->RemoveDelta(lost);
    EXPECT_EQ(lost->GetStatus(), Delta::STATUS_TARGET_MISSING);
}

TEST_F(FigureDeltas, RemovingTakesTheLastOccurrence) {
    auto const a = Touching("a");
    auto const b = Touching("b");
    Record({a, b, a});
    figure->RemoveDelta(a);
    EXPECT_EQ(figure->GetDeltas(), (Figure::Deltas{a, b}));
}

TEST_F(FigureDeltas, RemovingSeveralWalksTheListBackward) {
    auto const a = Touching("a");
    auto const b = Touching("b");
    auto const c = Touching("c");
    Record({a, b, c});
    figure->RemoveDeltas({a, c});
    EXPECT_EQ(figure->GetDeltas(), Figure::Deltas{b});
}

TEST_F(FigureDeltas, RemovingTheEndDropsTwoWhateverTheArguments) {
    auto const a = Touching("a");
    Record({a, Touching("b"), Touching("c")});
    figure->RemoveEndDeltas({}, {});
    EXPECT_EQ(figure->GetDeltas(), Figure::Deltas{a});
    figure->RemoveEndDeltas({}, {});
    EXPECT_EQ(figure->GetDeltas(), Figure::Deltas{a});
}

TEST_F(FigureDeltas, TakingChangedItemsAppendsAndForgets) {
    auto const delta = Touching("a");
    delta->Apply(*figure);
    Figure::Items items{Item("before")};
    delta->TakeChangedItems(items);
    EXPECT_EQ(items.size(), 2u);
    delta->TakeChangedItems(items);
    EXPECT_EQ(items.size(), 2u);
}

TEST_F(FigureDeltas, CopyKeepsWhatTheSourceHas) {
    auto const delta = Touching("a");
    delta->Apply(*figure);
    SmartPtr<FakeDelta> const copy = new FakeDelta(*delta);
    Figure::Items items;
    copy->TakeChangedItems(items);
    EXPECT_EQ(items.size(), 1u);
    EXPECT_FALSE(copy->IsPrimary());
    EXPECT_FALSE(copy->IsAppearanceOnly());
}

TEST_F(FigureDeltas, DeltaMayRecordAnotherWhileItIsApplied) {
    auto const inner = Touching("inner");
    SmartPtr<FakeDelta> const outer = new FakeDelta();
    outer->action = [&](figk::AbstractDeltaReceiver& receiver) {
        dynamic_cast<Figure&>(receiver).AddAndApplyDelta(inner, false, false);
    };
    Record({outer});
    figure->ApplyDeltas(false);
    EXPECT_EQ(inner->calls, (Lines{"verify", "apply"}));
    EXPECT_EQ(figure->GetDeltas().size(), 2u);
}

}  // namespace
}  // namespace figrep::testing
