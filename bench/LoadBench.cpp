// How long does it take from a file to loaded figures, and how does that grow?
#include <benchmark/benchmark.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>

#include <figk/Design.h>
#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figkernel/DesignBuilder.h>
#include <figrep/Figure.h>
#include <readers/kicad/ReadDesign.h>
#include <readers/kicad/file/SExpression.h>
#include <support/Corpus.h>
#include <support/CpuTimer.h>
#include <support/GeneratedDesign.h>
#include <support/KicadText.h>
#include <support/LoadedDesign.h>

namespace {

using figbench::Best;
using figbench::LoadedDesign;
using figbench::Measure;

constexpr char const* FILE_NAME = "generated.kicad_sch";

fighost::MemoryFiles& GeneratedFiles(std::size_t segments) {
    static std::map<std::size_t, fighost::MemoryFiles> files;
    auto [found, isNew] = files.try_emplace(segments);
    if (isNew) found->second.Add(FILE_NAME, figbench::GenerateKicadSheet(segments));
    return found->second;
}

/// Reads the bytes and makes the flat tree of tokens, which every reader needs at least.
double MeasureTokenising(fighost::FileSource& files, std::string const& path) {
    return Measure([&] {
        fighost::kicad::Limits const limits;
        fighost::Findings findings;
        fighost::kicad::SExpression tree;
        std::string bytes;
        files.Read(path, limits.fileBytes, bytes);
        tree.Parse(path, std::move(bytes), limits, findings);
        benchmark::DoNotOptimize(tree.GetNodeCount());
    });
}

struct Steps {
    Best tokens, read, build, figures, all;
    std::size_t segments = 0;

    void Run(fighost::FileSource& files, std::string const& path) {
        tokens.Add(MeasureTokenising(files, path));
        fighost::kicad::ReadResult result;
        double const readSeconds =
            Measure([&] { result = fighost::kicad::ReadDesign(files, path); });
        read.Add(readSeconds);
        if (!result.IsGood()) return;
        du::SmartPtr<figk::Design> design;
        double const buildSeconds = Measure([&] {
            design = figkernel::Build(result.design, figk::SchematicKernel::GetKernelLock()).design;
        });
        LoadedDesign loaded;
        double const figureSeconds = Measure([&] { loaded = figbench::LoadFigures(design); });
        build.Add(buildSeconds);
        figures.Add(figureSeconds);
        all.Add(readSeconds + buildSeconds + figureSeconds);
        segments = loaded.CountSegments();
    }
};

void Report(benchmark::State& state, Steps const& steps) {
    double const size = static_cast<double>(std::max<std::size_t>(steps.segments, 1));
    double const perSegment = 1e9 / size;
    state.counters["segments"] = size;
    state.counters["ns_tokens"] = steps.tokens.Seconds() * perSegment;
    state.counters["ns_read"] = steps.read.Seconds() * perSegment;
    state.counters["ns_build"] = steps.build.Seconds() * perSegment;
    state.counters["ns_figure"] = steps.figures.Seconds() * perSegment;
    state.counters["ns_all"] = steps.all.Seconds() * perSegment;
    state.counters["to_tokens"] = steps.all.Seconds() / steps.tokens.Seconds();
}

void LoadGeneratedFile(benchmark::State& state) {
    static std::map<std::int64_t, Steps> measured;
    fighost::MemoryFiles& files = GeneratedFiles(static_cast<std::size_t>(state.range(0)));
    Steps& steps = measured[state.range(0)];
    for (auto _ : state)
        steps.Run(files, FILE_NAME);
    Report(state, steps);
    auto const base = measured.find(10'000);
    if (base == measured.end() || state.range(0) <= base->first) return;
    state.counters["exponent"] = figbench::GrowthExponent(
        static_cast<double>(base->second.segments), base->second.all.Seconds(),
        static_cast<double>(steps.segments), steps.all.Seconds());
}
BENCHMARK(LoadGeneratedFile)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(2);
BENCHMARK(LoadGeneratedFile)->Arg(1'000'000)->Unit(benchmark::kMillisecond)->Iterations(1);

/// From source values to loaded figures, with buses and many sheets: what a reader of any format
/// pays behind itself.
void LoadGeneratedDesign(benchmark::State& state) {
    figrep::test::GridOptions options;
    options.segments = static_cast<std::size_t>(state.range(0));
    options.sheets = static_cast<unsigned>(state.range(1));
    figkernel::DesignSource const source = figrep::test::GenerateGrid(options);
    static std::map<std::int64_t, double> costs;
    Best best;
    std::size_t segments = 1;
    for (auto _ : state) {
        LoadedDesign loaded;
        best.Add(Measure([&] { loaded = figbench::LoadFigures(source); }));
        state.PauseTiming();
        segments = loaded.CountSegments();
        loaded = {};
        state.ResumeTiming();
    }
    double const perSegment = best.Seconds() * 1e9 / static_cast<double>(segments);
    state.counters["ns_all"] = perSegment;
    state.counters["segments"] = static_cast<double>(segments);
    if (options.segments == 10'000) costs[state.range(1)] = perSegment;
    auto const base = costs.find(state.range(1));
    if (base == costs.end() || options.segments <= 10'000) return;
    double const size = static_cast<double>(options.segments);
    state.counters["exponent"] = 1 + figbench::GrowthExponent(1e4, base->second, size, perSegment);
}
BENCHMARK(LoadGeneratedDesign)
    ->Args({10'000, 1})
    ->Args({100'000, 1})
    ->Args({1'000'000, 1})
    ->Args({10'000, 20})
    ->Args({100'000, 20})
    ->Args({1'000'000, 20})
    ->Unit(benchmark::kMillisecond);

/// Remembers what was read, to read it once more for comparison.
class RecordingFiles : public fighost::FileSource {
public:
    Status Read(std::string const& path, std::size_t limit, std::string& bytes) override {
        Status const status = disk_.Read(path, limit, bytes);
        if (status == Status::READ && path.ends_with(".kicad_sch")) schematics_.insert(path);
        return status;
    }
    double MeasureTokens() {
        double seconds = 0;
        for (std::string const& path : schematics_)
            seconds += MeasureTokenising(disk_, path);
        return seconds;
    }

private:
    fighost::DiskFiles disk_;
    std::set<std::string> schematics_;
};

/// All designs of the corpus, once each in an iteration.
void LoadCorpus(benchmark::State& state) {
    std::vector<std::string> const roots = corpus::RootSheets();
    if (roots.empty()) {
        state.SkipWithError("FIGREP_CORPUS names no folder of designs");
        return;
    }
    RecordingFiles files;
    Best best;
    Best tokens;
    std::size_t segments = 0;
    for (auto _ : state) {
        segments = 0;
        double seconds = 0;
        for (std::string const& root : roots) {
            LoadedDesign loaded;
            seconds += Measure([&] { loaded = figbench::LoadFile(files, root); });
            segments += loaded.CountSegments();
        }
        best.Add(seconds);
        tokens.Add(files.MeasureTokens());
    }
    state.counters["to_tokens"] = best.Seconds() / tokens.Seconds();
    state.counters["segments"] = static_cast<double>(segments);
    state.counters["ns_all"] = best.Seconds() * 1e9 / static_cast<double>(segments);
}
BENCHMARK(LoadCorpus)->Unit(benchmark::kMillisecond)->MinTime(2);

}  // namespace

BENCHMARK_MAIN();
