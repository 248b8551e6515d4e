// What does a segment cost in memory: as kernel records, in a figure, and with pictures?
#include <benchmark/benchmark.h>

#include <figk/Design.h>
#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figkernel/DesignBuilder.h>
#include <figrep/Figure.h>
#include <figrep/FigureSheetDeltaGenerator.h>
#include <figrep/KernelToFigureFactory.h>
#include <support/AllocationCount.h>
#include <support/GeneratedDesign.h>
#include <support/LoadedDesign.h>

namespace {

using du::SmartPtr;
using figbench::AllocatedBlocks;
using figbench::AllocatedBytes;

/// Bytes and blocks that stay allocated from the making of the object to `Stop`.
class Growth {
public:
    void Stop() {
        bytes = static_cast<double>(AllocatedBytes()) - bytes;
        blocks = static_cast<double>(AllocatedBlocks()) - blocks;
    }
    void Report(benchmark::State& state, std::string const& name, double segments) const {
        state.counters["bytes_" + name] = bytes / segments;
        state.counters["blocks_" + name] = blocks / segments;
    }

private:
    double bytes = static_cast<double>(AllocatedBytes());
    double blocks = static_cast<double>(AllocatedBlocks());
};

SmartPtr<figrep::Figure> MakeFigure(SmartPtr<figk::Sheet> const& sheet) {
    SmartPtr<figrep::Figure> const figure = figrep::KernelToFigureFactory().CreateFigure();
    figbench::ShowCrossingsAsArcs(figure);
    figrep::FigureSheetDeltaGenerator generator(sheet);
    figure->GenerateDeltas(generator);
    figure->ApplyDeltas(false);
    return figure;
}

/// `withBlocks` 0 measures wires alone: without pins, labels and buses.
void BytesPerSegment(benchmark::State& state) {
    figrep::test::GridOptions options;
    options.segments = static_cast<std::size_t>(state.range(0));
    bool const wiresAlone = state.range(1) == 0;
    options.highways = !wiresAlone;
    figkernel::DesignSource source = figrep::test::GenerateGrid(options);
    if (wiresAlone) {
        source.sheets.front().blocks.clear();
        source.sheets.front().portNodes.clear();
        source.ports.clear();
    }
    for (auto _ : state) {
        Growth kernel;
        SmartPtr<figk::Design> const design =
            figkernel::Build(source, figk::SchematicKernel::GetKernelLock()).design;
        kernel.Stop();
        Growth plain;
        SmartPtr<figrep::Figure> const figure = MakeFigure(design->GetSheets().front());
        plain.Stop();
        Growth pictures;
        figure->UpdateContent();
        pictures.Stop();
        double const segments =
            static_cast<double>(figbench::LoadedDesign{design, {figure}}.CountSegments());
        kernel.Report(state, "kernel", segments);
        plain.Report(state, "figure", segments);
        pictures.Report(state, "pictures", segments);
        state.counters["bytes_figure_with_pictures"] =
            state.counters["bytes_figure"].value + state.counters["bytes_pictures"].value;
        state.counters["segments"] = segments;
    }
}
BENCHMARK(BytesPerSegment)
    ->ArgNames({"segments", "withBlocks"})
    ->Args({1'000, 0})
    ->Args({1'000, 1})
    ->Args({10'000, 0})
    ->Args({10'000, 1})
    ->Args({100'000, 0})
    ->Args({100'000, 1})
    ->Args({1'000'000, 0})
    ->Args({1'000'000, 1})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);

}  // namespace

BENCHMARK_MAIN();
