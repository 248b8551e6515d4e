// How do the painters grow with the size of a sheet?
#include <benchmark/benchmark.h>

#include <map>
#include <string>

#include <figrep/Figure.h>
#include <painters/CairoPainter.h>
#include <painters/PaintFigure.h>
#include <painters/SvgPainter.h>
#include <support/CpuTimer.h>
#include <support/GeneratedDesign.h>
#include <support/LoadedDesign.h>

namespace {

using figbench::Best;
using figbench::LoadedDesign;
using figbench::Measure;

struct Svg {
    fighost::SvgPainter painter;
    std::string Take() { return painter.TakeDocument(); }
};
struct Pdf {
    fighost::PdfPainter painter;
    std::string Take() { return painter.TakeDocument(); }
};
struct Png {
    fighost::PngPainter painter{150, 4000};
    std::string Take() { return painter.TakeImage(); }
};

template <class Format>
void Paint(benchmark::State& state) {
    static std::map<std::int64_t, double> measured;
    figrep::test::GridOptions options;
    options.segments = static_cast<std::size_t>(state.range(0));
    LoadedDesign const loaded = figbench::LoadFigures(figrep::test::GenerateGrid(options));
    loaded.UpdateContent();
    Best best;
    std::size_t bytes = 0;
    for (auto _ : state) {
        best.Add(Measure([&] {
            Format format;
            fighost::PaintFigure(loaded.figures.front(), format.painter);
            bytes = format.Take().size();
        }));
    }
    double const size = static_cast<double>(state.range(0));
    state.counters["ns_per_segment"] = best.Seconds() * 1e9 / size;
    state.counters["bytes_per_segment"] = static_cast<double>(bytes) / size;
    measured[state.range(0)] = best.Seconds();
    auto const base = measured.find(10'000);
    if (base == measured.end() || state.range(0) <= base->first) return;
    state.counters["exponent"] = figbench::GrowthExponent(1e4, base->second, size, best.Seconds());
}
BENCHMARK(Paint<Svg>)->RangeMultiplier(10)->Range(1'000, 100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(Paint<Pdf>)->RangeMultiplier(10)->Range(1'000, 100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(Paint<Png>)->RangeMultiplier(10)->Range(1'000, 100'000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
