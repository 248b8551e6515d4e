#include <dom/MessageReader.h>
#include <figk/SchematicKernel.h>
#include <figrep/FigureEvents.h>
#include <gtest/gtest.h>

#include "Fakes.h"

namespace figrep::testing {
namespace {

class FigureEvents : public ::testing::Test {
protected:
    SmartPtr<AbstractFigureItem> Item(std::string const& id) {
        return new FakeItem(figure->GetLock(),
                            SmartPtr<figk::AbstractItem>(new FakeBlockRecord(id, id)));
    }

    SmartPtr<Figure> figure = new Figure();
    SmartPtr<Recorder> recorder = new Recorder();
};

TEST_F(FigureEvents, WithoutAProxyReachNobody) {
    FigureChangedEvent(figure, 1).PostEvent({});
    FigureItemsChangedEvent(figure, {Item("a")}, 1, true).PostEvent({});
    EXPECT_EQ(recorder->Take(), Lines{});
}

TEST_F(FigureEvents, NullObserverIsRefused) {
    EXPECT_FALSE(figure->RegisterObserver({}));
    EXPECT_FALSE(figure->UnregisterObserver({}));
}

TEST_F(FigureEvents, ReachTheirHandlersInTheOrderOfPosting) {
    ASSERT_TRUE(figure->RegisterObserver(recorder));
    figure->PostChangedEvent();
    figure->PostAppearanceChangedEvent();
    figure->SetItemHighlight(Item("a"), true);
    figure->PostVisibilityEvent({Item("a"), Item("b")}, true);
    EXPECT_TRUE(recorder->lines.empty());
    EXPECT_EQ(recorder->Take(),
              (Lines{"content", "appearance", "highlighted", "visibility on a b"}));
}

TEST_F(FigureEvents, UnregisteredObserverHearsNothing) {
    figure->RegisterObserver(recorder);
    EXPECT_TRUE(figure->UnregisterObserver(recorder));
    figure->PostChangedEvent();
    EXPECT_EQ(recorder->Take(), Lines{});
}

TEST_F(FigureEvents, NumberAboveTheLastReachesNobody) {
    dom::MessageReader reader({});
    auto const base = Figure::GetBaseEventId();
    recorder->HandleEvent(static_cast<unsigned char>(base + 5), reader);
    EXPECT_EQ(recorder->lines, Lines{});
}

TEST_F(FigureEvents, NumberBelowTheFiguresGoesToTheBase) {
    figure->RegisterObserver(recorder);
    figure.Reset();
    EXPECT_EQ(recorder->Take(), Lines{"destroy"});
}

TEST_F(FigureEvents, EveryObserverGetsAReferenceToOneContainer) {
    SmartPtr<Recorder> const other = new Recorder();
    figure->RegisterObserver(recorder);
    figure->RegisterObserver(other);
    figure->PostVisibilityEvent({Item("a")}, false);
    dom::Dispatch();
    ASSERT_TRUE(recorder->last);
    EXPECT_EQ(recorder->last, other->last);
    EXPECT_EQ(recorder->last->GetRefCount(), 2u);
    EXPECT_EQ(recorder->last->size(), 1u);
    EXPECT_EQ(recorder->last->GetFigure(), figure);
}

TEST_F(FigureEvents, UnreadMessageGivesItsReferenceBack) {
    auto const before = du::RefCounted::LiveCount();
    {
        SmartPtr<Recorder> const listener = new Recorder();
        figure->RegisterObserver(listener);
        figure->PostVisibilityEvent({}, true);
        figure->UnregisterObserver(listener);
    }
    dom::Dispatch();
    EXPECT_EQ(du::RefCounted::LiveCount(), before);
}

TEST_F(FigureEvents, ContainerKeepsItemsAndFigureAlive) {
    SmartPtr<SchematicFigureItemsContainer> container =
        new SchematicFigureItemsContainer(figure, {Item("a"), Item("b")}, true);
    auto const* const kept = figure.Get();
    figure.Reset();
    EXPECT_EQ(container->GetFigure().Get(), kept);
    EXPECT_FALSE(container->empty());
    EXPECT_EQ((*container)[1]->GetId(), Symbol("b"));
    EXPECT_TRUE(container->GetFlag());
}

TEST_F(FigureEvents, ContainerMovesAndCopies) {
    SchematicFigureItemsContainer const source(figure, {Item("a")}, true);
    SchematicFigureItemsContainer copy(source);
    EXPECT_EQ(copy.size(), 1u);
    SchematicFigureItemsContainer moved(std::move(copy));
    EXPECT_EQ(moved.size(), 1u);
    EXPECT_TRUE(moved.GetFlag());
    SchematicFigureItemsContainer assigned(figure, {}, false);
    assigned = source;
    EXPECT_EQ(assigned.size(), 1u);
    assigned = SchematicFigureItemsContainer(figure, {}, false);
    EXPECT_TRUE(assigned.empty());
}

}  // namespace
}  // namespace figrep::testing
