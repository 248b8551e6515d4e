// How does finding crossings compare with sorting its events, and with the sweep as books have it?
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <set>
#include <vector>

#include <CrossingSweep.h>
#include <support/CpuTimer.h>
#include <support/Random.h>

namespace {

using figbench::Best;
using figbench::Measure;
using figrep::CrossInside;
using figrep::WireCrossing;
using figrep::WireRole;
using figrep::WireSpan;
using figrep::test::Random;

enum Shape { SHORT_WIRES, TALL_VERTICALS, LONG_WIRES, PARALLEL, CHANNELS };

/// Square of a side at which n short wires have a few crossings each.
class WireMaker {
public:
    WireMaker(Shape wireShape, std::size_t wireCount)
        : shape(wireShape),
          count(wireCount),
          side(std::max(1.0, std::sqrt(static_cast<double>(count)) * 2.54)),
          random(wireCount * 8 + wireShape) {}

    std::vector<WireSpan> Make() {
        std::vector<WireSpan> wires;
        for (std::size_t i = 0; i < count; ++i)
            wires.push_back(MakeWire(i));
        return wires;
    }

private:
    double Snap(double value) { return std::floor(value / 1.27) * 1.27; }
    double Anywhere() { return Snap(random.Unit() * side); }

    WireSpan MakeWire(std::size_t i) {
        bool const vertical = i % 2 == 0;
        double const x = Anywhere();
        double const y = Anywhere();
        double const length = Snap(LengthOf(i, vertical)) + 1.27;
        return vertical ? WireSpan{{x, y}, {x, y + length}} : WireSpan{{x, y}, {x + length, y}};
    }

    /// The few long wires are as long as the sheet.
    double LengthOf(std::size_t i, bool vertical) {
        double const few = random.Unit() * 10;
        switch (shape) {
            case SHORT_WIRES:
                return few;
            case TALL_VERTICALS:
                return vertical ? side : 1;
            case LONG_WIRES:
                return i % 100 < 2 ? side : few;
            case PARALLEL:
                return vertical ? 0 : side / 2;
            case CHANNELS:
                return vertical ? random.Unit() * 50 : few;
        }
        return few;
    }

    Shape shape;
    std::size_t count;
    double side;
    Random random;
};

struct PlainEvent {
    double y;
    int kind;  // 0 a vertical begins, 1 a horizontal asks, 2 a vertical ends
    std::uint32_t wire;

    bool operator<(PlainEvent const& other) const {
        return y != other.y ? y < other.y : kind < other.kind;
    }
};

/// Two events for each wire, as the sweep of the books needs them.
std::vector<PlainEvent> TwoEventsEach(std::vector<WireSpan> const& wires) {
    std::vector<PlainEvent> events;
    for (std::uint32_t i = 0; i < wires.size(); ++i) {
        auto const [low, high] = std::minmax(wires[i].start.y, wires[i].end.y);
        events.push_back({low, 0, i});
        events.push_back({high, 2, i});
    }
    return events;
}

/// The plain sweep: events sorted, verticals in a std::set by x.
std::vector<WireCrossing> PlainSweep(std::vector<WireSpan> const& wires) {
    std::vector<PlainEvent> events = TwoEventsEach(wires);
    for (PlainEvent& event : events)
        if (!WireRole(wires[event.wire]).vertical) event.kind = 1;
    std::sort(events.begin(), events.end());
    std::set<std::pair<double, std::uint32_t>> active;
    std::vector<WireCrossing> found;
    for (PlainEvent const& event : events) {
        WireSpan const& wire = wires[event.wire];
        if (event.kind == 0) {
            active.emplace(wire.start.x, event.wire);
        } else if (event.kind == 2) {
            active.erase({wire.start.x, event.wire});
        } else {
            // The second event of a horizontal finds what the first found.
            auto const [low, high] = std::minmax(wire.start.x, wire.end.x);
            for (auto it = active.lower_bound({low, 0}); it != active.end() && it->first < high;
                 ++it)
                if (CrossInside(wires[it->second], wire)) found.push_back({event.wire, it->second});
        }
    }
    return found;
}

void FindCrossings(benchmark::State& state) {
    auto const shape = static_cast<Shape>(state.range(0));
    std::vector<WireSpan> const wires =
        WireMaker(shape, static_cast<std::size_t>(state.range(1))).Make();
    std::vector<PlainEvent> const events = TwoEventsEach(wires);
    figrep::CrossingSweep sweep;
    std::vector<WireCrossing> found;
    Best ours, sort, plain;
    for (auto _ : state) {
        ours.Add(Measure([&] { sweep.Find(wires, found); }));
        auto copy = events;
        sort.Add(Measure([&] { std::sort(copy.begin(), copy.end()); }));
        plain.Add(Measure([&] { benchmark::DoNotOptimize(PlainSweep(wires)); }));
    }
    state.counters["crossings"] = static_cast<double>(found.size());
    state.counters["ns_per_wire"] = ours.Seconds() * 1e9 / static_cast<double>(wires.size());
    state.counters["to_sort"] = ours.Seconds() / sort.Seconds();
    state.counters["to_plain"] = ours.Seconds() / plain.Seconds();
}
BENCHMARK(FindCrossings)
    ->ArgNames({"shape", "wires"})
    ->ArgsProduct({{SHORT_WIRES, TALL_VERTICALS, LONG_WIRES, PARALLEL, CHANNELS},
                   {1'000, 10'000, 100'000}});

}  // namespace

BENCHMARK_MAIN();
