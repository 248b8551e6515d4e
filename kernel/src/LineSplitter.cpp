#include "LineSplitter.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <queue>
#include <tuple>

#include "PointIndex.h"

namespace figkernel {

namespace {

__extension__ using Wide = __int128;

/// The infinite line on which a drawn line lies: its reduced direction and its distance from the
/// origin in units of that direction. Equal keys mean exactly collinear.
struct Carrier {
    std::int64_t dx = 0;
    std::int64_t dy = 0;
    Wide offset = 0;

    auto Key() const { return std::tie(dx, dy, offset); }
};

/// A drawn line on its carrier, from the lower to the higher end.
struct Span {
    Carrier carrier;
    GridPoint low;
    GridPoint high;
    std::uint32_t line = 0;
};

bool MakeSpan(DrawnLine const& line, std::uint32_t index, Span& out) {
    if (line.from == line.to) return false;
    out.low = std::min(line.from, line.to);
    out.high = std::max(line.from, line.to);
    out.line = index;
    std::int64_t const dx = out.high.x - out.low.x;
    std::int64_t const dy = out.high.y - out.low.y;
    std::int64_t const divisor = std::gcd(dx, dy);
    Carrier& carrier = out.carrier;
    carrier.dx = dx / divisor;
    carrier.dy = dy / divisor;
    carrier.offset =
        static_cast<Wide>(carrier.dx) * out.low.y - static_cast<Wide>(carrier.dy) * out.low.x;
    return true;
}

class Splitter {
public:
    Splitter(std::vector<DrawnLine> const& drawn, std::vector<GridPoint> const& points)
        : lines(drawn), touches(CollectTouches(drawn, points)), index(touches) {}

    std::vector<Piece> Split() {
        std::vector<Span> spans;
        spans.reserve(lines.size());
        for (std::uint32_t i = 0; i < lines.size(); ++i) {
            Span span;
            if (MakeSpan(lines[i], i, span)) spans.push_back(span);
        }
        std::sort(spans.begin(), spans.end(), [](Span const& a, Span const& b) {
            if (a.carrier.Key() != b.carrier.Key()) return a.carrier.Key() < b.carrier.Key();
            return std::tie(a.low, a.line) < std::tie(b.low, b.line);
        });
        for (std::size_t first = 0; first < spans.size();)
            first = SplitRun(spans, first);
        return InDrawnOrder();
    }

private:
    struct Cut {
        Piece piece;
        std::uint32_t line;
        std::int64_t order;  ///< rises along the line as it was drawn
    };

    /// A touching point and how far along the stretch it lies.
    struct Stop {
        GridPoint point;
        long double along;
    };

    static std::vector<GridPoint> CollectTouches(std::vector<DrawnLine> const& lines,
                                                 std::vector<GridPoint> const& points) {
        std::vector<GridPoint> all(points);
        all.reserve(points.size() + 2 * lines.size());
        for (DrawnLine const& line : lines) {
            all.push_back(line.from);
            all.push_back(line.to);
        }
        std::sort(all.begin(), all.end());
        all.erase(std::unique(all.begin(), all.end()), all.end());
        return all;
    }

    /// Cuts the lines from `first` on that cover one stretch of a carrier without a gap, and
    /// answers where the next stretch begins.
    std::size_t SplitRun(std::vector<Span> const& spans, std::size_t first) {
        GridPoint high = spans[first].high;
        std::size_t last = first + 1;
        while (last < spans.size() && spans[last].carrier.Key() == spans[first].carrier.Key() &&
               spans[last].low < high) {
            high = std::max(high, spans[last].high);
            ++last;
        }
        FindStops(spans[first].low, high);
        SweepRun(spans, first, last);
        return last;
    }

    /// How far along the present stretch a point lies, in an arbitrary but fixed unit.
    long double Along(GridPoint const& p) const {
        return static_cast<long double>(p.x - runLow.x) * static_cast<long double>(runDx) +
               static_cast<long double>(p.y - runLow.y) * static_cast<long double>(runDy);
    }

    /// Fills `stops` with all touching points from `low` to `high`, rising.
    void FindStops(GridPoint const& low, GridPoint const& high) {
        runLow = low;
        runDx = high.x - low.x;
        runDy = high.y - low.y;
        hits.clear();
        index.FindOn(low, high, hits);
        stops.clear();
        for (std::uint32_t const hit : hits)
            stops.push_back({touches[hit], Along(touches[hit])});
        std::sort(stops.begin(), stops.end(), [](Stop const& a, Stop const& b) {
            return a.along != b.along ? a.along < b.along : a.point < b.point;
        });
    }

    /// Gives each part between two stops to the first drawn of the lines that cover it.
    void SweepRun(std::vector<Span> const& spans, std::size_t first, std::size_t last) {
        using Active = std::pair<std::uint32_t, long double>;  // line, how far along it ends
        std::priority_queue<Active, std::vector<Active>, std::greater<>> active;
        std::size_t next = first;
        for (std::size_t i = 0; i + 1 < stops.size(); ++i) {
            long double const here = stops[i].along;
            for (; next < last && Along(spans[next].low) <= here; ++next) {
                active.emplace(spans[next].line, Along(spans[next].high));
            }
            while (!active.empty() && active.top().second <= here)
                active.pop();
            if (!active.empty()) AddPiece(active.top().first, stops[i].point, stops[i + 1].point);
        }
    }

    void AddPiece(std::uint32_t line, GridPoint const& low, GridPoint const& high) {
        DrawnLine const& drawn = lines[line];
        auto const order = static_cast<std::int64_t>(cuts.size());
        if (drawn.from < drawn.to) {
            cuts.push_back({{low, high, drawn.source, low == drawn.from}, line, order});
        } else {
            cuts.push_back({{high, low, drawn.source, high == drawn.from}, line, -order});
        }
    }

    std::vector<Piece> InDrawnOrder() {
        std::sort(cuts.begin(), cuts.end(), [](Cut const& a, Cut const& b) {
            return std::tie(a.line, a.order) < std::tie(b.line, b.order);
        });
        std::vector<Piece> pieces;
        pieces.reserve(cuts.size());
        for (Cut const& cut : cuts)
            pieces.push_back(cut.piece);
        return pieces;
    }

    std::vector<DrawnLine> const& lines;
    std::vector<GridPoint> touches;
    PointIndex index;
    std::vector<std::uint32_t> hits;
    std::vector<Stop> stops;
    std::vector<Cut> cuts;
    GridPoint runLow;
    std::int64_t runDx = 0;
    std::int64_t runDy = 0;
};

}  // namespace

std::vector<Piece> SplitLines(std::vector<DrawnLine> const& lines,
                              std::vector<GridPoint> const& points) {
    return Splitter(lines, points).Split();
}

}  // namespace figkernel
