// Finds where vertical and horizontal wires cross, on plain coordinates.
#pragma once

#include <dg/Close.h>
#include <dg/Point.h>

#include <cmath>
#include <cstdint>
#include <span>
#include <vector>

namespace figrep {

/// The two ends of a wire, as the segment stores them.
struct WireSpan {
    dg::DPoint2D start;
    dg::DPoint2D end;

    friend bool operator==(WireSpan const&, WireSpan const&) = default;
};

/// What a wire can be in a crossing. A wire slightly off its axis still counts as vertical or
/// horizontal and is then taken to lie where it starts; a very short one may be both, one whose
/// coordinates aren't finite is neither.
struct WireRole {
    bool vertical = false;
    bool horizontal = false;

    explicit WireRole(WireSpan const& wire) {
        if (!std::isfinite(wire.start.x) || !std::isfinite(wire.start.y) ||
            !std::isfinite(wire.end.x) || !std::isfinite(wire.end.y)) {
            return;
        }
        vertical = dg::CloseCoordinate(wire.start.x, wire.end.x);
        horizontal = dg::CloseCoordinate(wire.start.y, wire.end.y);
    }
};

/// Whether `value` lies strictly between `a` and `b`, in whichever order these are.
inline bool StrictlyBetween(double value, double a, double b) {
    return a < b ? a < value && value < b : b < value && value < a;
}

/// Whether a vertical wire crosses a horizontal one, both inside; ends that touch don't cross.
inline bool CrossInside(WireSpan const& vertical, WireSpan const& horizontal) {
    return StrictlyBetween(vertical.start.x, horizontal.start.x, horizontal.end.x) &&
           StrictlyBetween(horizontal.start.y, vertical.start.y, vertical.end.y);
}

/// Two crossing wires, by their places in the input.
struct WireCrossing {
    std::uint32_t horizontal;
    std::uint32_t vertical;

    friend bool operator==(WireCrossing const&, WireCrossing const&) = default;
    friend auto operator<=>(WireCrossing const&, WireCrossing const&) = default;
};

/// Whether the two wires cross, in whichever roles, and if so how. The one test that all ways of
/// finding crossings agree with.
bool FindCrossing(std::span<WireSpan const> wires, std::uint32_t a, std::uint32_t b,
                  WireCrossing& out);

/// Where a crossing is.
inline dg::DPoint2D CrossingPosition(std::span<WireSpan const> wires,
                                     WireCrossing const& crossing) {
    return {wires[crossing.vertical].start.x, wires[crossing.horizontal].start.y};
}

/// A sweep upward over all wires, with the verticals that reach the present height in a set
/// ordered by x, from which each horizontal takes those between its ends.
///
/// The set is a tree of bits over the ranks of the verticals' x, so that neither long wires nor
/// crowded places cost more than the crossings that they make. Coordinates are compared exactly.
/// Cost: n log n + crossings. An object keeps its memory for the next run.
class CrossingSweep {
public:
    /// Replaces `out` by every pair that crosses, each once. At most 2^30 wires.
    void Find(std::span<WireSpan const> wires, std::vector<WireCrossing>& out);

private:
    struct Vertical {
        std::uint64_t key;  // of its x
        double x;
        std::uint32_t wire;
    };
    struct Horizontal {
        std::uint32_t wire;
        std::uint32_t firstRank;  // of the verticals strictly between its ends,
        std::uint32_t endRank;    // the first one beyond
    };
    struct Event {
        std::uint64_t key;   // of its y
        std::uint32_t what;  // kind in the top two bits, rank or horizontal below
    };

    /// Ranks of the verticals in reach: the lowest level has a bit for each, the next a bit for
    /// each word of that, and so on.
    class RankSet {
    public:
        void Reset(std::uint32_t size);
        void Insert(std::uint32_t rank);
        void Erase(std::uint32_t rank);
        /// The first member at or behind `rank`, or at least `size` when there is none.
        std::uint32_t Next(std::uint32_t rank) const;

    private:
        std::vector<std::vector<std::uint64_t>> levels_;
        std::uint32_t size_ = 0;
    };

    void CollectVerticals(std::span<WireSpan const> wires);
    void CollectHorizontals(std::span<WireSpan const> wires);
    void CollectEvents(std::span<WireSpan const> wires);
    void Report(std::span<WireSpan const> wires, Horizontal const& horizontal,
                std::vector<WireCrossing>& out) const;

    std::vector<Vertical> verticals_;
    std::vector<Horizontal> horizontals_;
    std::vector<Event> events_;
    std::vector<Vertical> verticalScratch_;
    std::vector<Event> eventScratch_;
    RankSet active_;
};

}  // namespace figrep
