// How long do the pictures of all wires take, and painting them as SVG?
#include <benchmark/benchmark.h>

#include <map>

#include <figrep/Figure.h>
#include <painters/PaintFigure.h>
#include <painters/SvgPainter.h>
#include <support/Corpus.h>
#include <support/CpuTimer.h>
#include <support/GeneratedDesign.h>
#include <support/LoadedDesign.h>

namespace {

using figbench::Best;
using figbench::LoadedDesign;
using figbench::Measure;

struct Costs {
    Best pictures, svg, teardown;
    double segments = 0;
    double bytes = 0;

    void Run(LoadedDesign& loaded) {
        segments += static_cast<double>(loaded.CountSegments());
        pictureSum += Measure([&] { loaded.UpdateContent(); });
        svgSum += Measure([&] {
            for (auto const& figure : loaded.figures) {
                fighost::SvgPainter painter;
                fighost::PaintFigure(figure, painter);
                bytes += static_cast<double>(painter.TakeDocument().size());
            }
        });
        teardownSum += Measure([&] { loaded = {}; });
    }

    void Begin() { segments = bytes = pictureSum = svgSum = teardownSum = 0; }
    void End() {
        pictures.Add(pictureSum);
        svg.Add(svgSum);
        teardown.Add(teardownSum);
    }

    void Report(benchmark::State& state) const {
        state.counters["segments"] = segments;
        state.counters["ns_pictures"] = pictures.Seconds() * 1e9 / segments;
        state.counters["ns_svg"] = svg.Seconds() * 1e9 / segments;
        state.counters["ns_teardown"] = teardown.Seconds() * 1e9 / segments;
        state.counters["svg_bytes"] = bytes / segments;
    }

private:
    double pictureSum = 0;
    double svgSum = 0;
    double teardownSum = 0;
};

void PicturesOfGenerated(benchmark::State& state) {
    static std::map<std::int64_t, Costs> measured;
    figrep::test::GridOptions options;
    options.segments = static_cast<std::size_t>(state.range(0));
    figkernel::DesignSource const source = figrep::test::GenerateGrid(options);
    Costs& costs = measured[state.range(0)];
    for (auto _ : state) {
        LoadedDesign loaded = figbench::LoadFigures(source);
        costs.Begin();
        costs.Run(loaded);
        costs.End();
    }
    costs.Report(state);
    auto const base = measured.find(10'000);
    if (base == measured.end() || state.range(0) <= base->first) return;
    Costs const& small = base->second;
    auto const exponent = [&](Best const& before, Best const& now) {
        return figbench::GrowthExponent(small.segments, before.Seconds(), costs.segments,
                                        now.Seconds());
    };
    state.counters["exponent_pictures"] = exponent(small.pictures, costs.pictures);
    state.counters["exponent_svg"] = exponent(small.svg, costs.svg);
}
BENCHMARK(PicturesOfGenerated)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(2);
BENCHMARK(PicturesOfGenerated)->Arg(1'000'000)->Unit(benchmark::kMillisecond)->Iterations(1);

void PicturesOfCorpus(benchmark::State& state) {
    std::vector<std::string> const roots = corpus::RootSheets();
    if (roots.empty()) {
        state.SkipWithError("FIGREP_CORPUS names no folder of designs");
        return;
    }
    fighost::DiskFiles files;
    Costs costs;
    for (auto _ : state) {
        costs.Begin();
        for (std::string const& root : roots) {
            LoadedDesign loaded = figbench::LoadFile(files, root);
            costs.Run(loaded);
        }
        costs.End();
    }
    costs.Report(state);
}
BENCHMARK(PicturesOfCorpus)->Unit(benchmark::kMillisecond)->MinTime(2);

}  // namespace

BENCHMARK_MAIN();
