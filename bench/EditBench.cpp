// What does a moved wire cost, against making all pictures anew?
#include <benchmark/benchmark.h>

#include <memory>

#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Figure.h>
#include <figrep/NetSegment.h>
#include <figrep/SubNet.h>
#include <support/CpuTimer.h>
#include <support/GeneratedDesign.h>
#include <support/LoadedDesign.h>
#include <support/Random.h>

namespace {

using figbench::Best;
using figbench::LoadedDesign;
using figbench::Measure;

void MoveOneWire(benchmark::State& state) {
    figrep::test::GridOptions options;
    options.segments = static_cast<std::size_t>(state.range(0));
    figkernel::DesignSource const source = figrep::test::GenerateGrid(options);
    Best whole;
    LoadedDesign loaded;
    for (int i = 0; i < 3; ++i) {
        loaded = figbench::LoadFigures(source);
        whole.Add(Measure([&] { loaded.UpdateContent(); }));
    }
    auto const& figure = loaded.figures.front();
    auto const subNets = figure->GetSubNets();
    figrep::test::Random random(1);
    // Many moves in one measurement: the average counts, since wires differ.
    constexpr int MOVES = 100;
    Best edit, move;
    for (auto _ : state) {
        double updates = 0;
        double moves = 0;
        for (int i = 0; i < MOVES; ++i) {
            auto const& wire = subNets[random.Below(subNets.size())];
            double const dx = i % 2 == 0 ? 1.27 : -1.27;
            moves += Measure([&] { figure->MoveItem(wire, dx, 0); });
            updates += Measure([&] { figure->UpdateContent(); });
        }
        edit.Add(updates / MOVES);
        move.Add(moves / MOVES);
    }
    state.counters["whole_to_update"] = whole.Seconds() / edit.Seconds();
    state.counters["us_move"] = move.Seconds() * 1e6;
    state.counters["us_update"] = edit.Seconds() * 1e6;
    state.counters["us_whole"] = whole.Seconds() * 1e6;
}
BENCHMARK(MoveOneWire)
    ->ArgName("segments")
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
