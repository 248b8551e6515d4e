// One figure in several threads at once.
#include <figk/Design.h>
#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figkernel/DesignBuilder.h>
#include <figrep/AbstractFigureItem.h>
#include <figrep/Figure.h>
#include <figrep/SubNet.h>
#include <gtest/gtest.h>
#include <support/DrawingOfAll.h>
#include <support/FigureDump.h>
#include <support/GeneratedDesign.h>
#include <support/RandomEdits.h>
#include <zvk/ReadWriteLock.h>

#include <atomic>
#include <thread>

namespace figrep {

namespace {

constexpr int READERS = 3;
constexpr int EDITS = 60;

SmartPtr<figk::Design> Grid() {
    test::GridOptions options;
    options.segments = 150;
    options.oddments = true;
    return figkernel::Build(test::GenerateGrid(options), figk::SchematicKernel::GetKernelLock())
        .design;
}

void Edit(test::RandomEdits& edits, SmartPtr<Figure> const& figure) {
    zvk::WriteGuard const guard(figure->GetLock());
    edits.Edit();
    figure->UpdateContent();
}

/// Asks without a lock of its own, as a viewer does to answer a pointer that moves.
void AskEverything(SmartPtr<Figure> const& figure,
                   std::vector<SmartPtr<AbstractFigureItem>> const& items) {
    for (auto const& item : items) {
        item->GetExtents();
        item->IsVisible();
        Color color;
        item->GetColorSetting(Setting::COLOR, color);
        figure->Find(item->GetId());
    }
    for (auto const& subNet : figure->GetSubNets())
        figure->ItemHasCrossingPoints(subNet);
    figure->GetExtents();
    figure->GetDeltas();
}

}  // namespace

TEST(FigureThreads, MayAskWhileOneEditsAndOneWalksAndChangeNothingByIt) {
    auto const design = Grid();
    auto const sheet = design->GetSheets().at(0);
    auto const figure = test::FramedFigure(sheet);
    auto const undisturbed = test::FramedFigure(sheet);
    auto const items = test::ItemsThatShow(figure);
    ASSERT_FALSE(items.empty());

    std::atomic<bool> done = false;
    std::vector<std::thread> threads;
    for (int i = 0; i < READERS; ++i) {
        threads.emplace_back([&] {
            while (!done)
                AskEverything(figure, items);
        });
    }
    threads.emplace_back([&] {
        while (!done) {
            // Walks turn the trees of wires.
            zvk::WriteGuard const guard(figure->GetLock());
            test::DumpOf(figure);
        }
    });
    test::RandomEdits edits(figure, 7);
    for (int i = 0; i < EDITS; ++i)
        Edit(edits, figure);
    done = true;
    for (std::thread& thread : threads)
        thread.join();

    test::RandomEdits same(undisturbed, 7);
    for (int i = 0; i < EDITS; ++i)
        Edit(same, undisturbed);
    EXPECT_EQ(test::DumpOf(figure), test::DumpOf(undisturbed));
}

}  // namespace figrep
