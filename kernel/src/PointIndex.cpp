#include "PointIndex.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <tuple>

#include <dg/Close.h>

namespace figkernel {

namespace {

constexpr double TOLERANCE = dg::CONTACT_TOLERANCE * GRID_STEPS_PER_MM;
constexpr auto SLACK = static_cast<std::int64_t>(TOLERANCE) + 2;

bool LiesOn(GridPoint const& a, GridPoint const& b, GridPoint const& p) {
    long double const dx = static_cast<long double>(b.x - a.x);
    long double const dy = static_cast<long double>(b.y - a.y);
    long double const px = static_cast<long double>(p.x - a.x);
    long double const py = static_cast<long double>(p.y - a.y);
    long double const squared = dx * dx + dy * dy;
    long double const along = px * dx + py * dy;
    if (along < 0 || along > squared) return false;
    return std::fabs(px * dy - py * dx) <= TOLERANCE * std::sqrt(squared);
}

}  // namespace

PointIndex::PointIndex(std::vector<GridPoint> const& source)
    : points(source), byRow(source.size()), byColumn(source.size()) {
    std::iota(byRow.begin(), byRow.end(), 0u);
    std::sort(byRow.begin(), byRow.end(), [this](std::uint32_t i, std::uint32_t j) {
        return std::tie(points[i].y, points[i].x, i) < std::tie(points[j].y, points[j].x, j);
    });
    std::iota(byColumn.begin(), byColumn.end(), 0u);
    std::sort(byColumn.begin(), byColumn.end(), [this](std::uint32_t i, std::uint32_t j) {
        return std::tie(points[i], i) < std::tie(points[j], j);
    });
}

void PointIndex::FindOn(GridPoint const& a, GridPoint const& b, std::vector<std::uint32_t>& out) {
    if (a.y == b.y) return FindOnRow(a, b, out);
    if (a.x == b.x) return FindOnColumn(a, b, out);
    FindOnSlant(a, b, out);
}

void PointIndex::FindOnRow(GridPoint const& a, GridPoint const& b,
                           std::vector<std::uint32_t>& out) const {
    GridPoint const first{std::min(a.x, b.x), a.y};
    std::int64_t const last = std::max(a.x, b.x);
    auto at = std::lower_bound(byRow.begin(), byRow.end(), first,
                               [this](std::uint32_t i, GridPoint const& p) {
                                   return std::tie(points[i].y, points[i].x) < std::tie(p.y, p.x);
                               });
    for (; at != byRow.end() && points[*at].y == a.y && points[*at].x <= last; ++at) {
        out.push_back(*at);
    }
}

void PointIndex::FindOnColumn(GridPoint const& a, GridPoint const& b,
                              std::vector<std::uint32_t>& out) const {
    GridPoint const first{a.x, std::min(a.y, b.y)};
    std::int64_t const last = std::max(a.y, b.y);
    auto at =
        std::lower_bound(byColumn.begin(), byColumn.end(), first,
                         [this](std::uint32_t i, GridPoint const& p) { return points[i] < p; });
    for (; at != byColumn.end() && points[*at].x == a.x && points[*at].y <= last; ++at) {
        out.push_back(*at);
    }
}

std::int64_t PointIndex::Row(std::int64_t y) const {
    return (y - low.y) / cellHeight;
}
std::int64_t PointIndex::Column(std::int64_t x) const {
    return (x - low.x) / cellWidth;
}

void PointIndex::BuildCells() {
    low = high = points.front();
    for (GridPoint const& p : points) {
        low = {std::min(low.x, p.x), std::min(low.y, p.y)};
        high = {std::max(high.x, p.x), std::max(high.y, p.y)};
    }
    auto const perSide =
        static_cast<std::int64_t>(std::sqrt(static_cast<double>(points.size()))) + 1;
    cellWidth = (high.x - low.x) / perSide + 1;
    cellHeight = (high.y - low.y) / perSide + 1;
    cells.reserve(points.size());
    for (std::uint32_t i = 0; i < points.size(); ++i) {
        cells.push_back({Row(points[i].y), Column(points[i].x), i});
    }
    std::sort(cells.begin(), cells.end(), [](Cell const& a, Cell const& b) {
        return std::tie(a.row, a.column, a.point) < std::tie(b.row, b.column, b.point);
    });
}

bool PointIndex::FindInNarrowRange(GridPoint const& a, GridPoint const& b,
                                   std::vector<std::uint32_t>& out) const {
    auto const few = static_cast<std::ptrdiff_t>(std::sqrt(static_cast<double>(points.size())));
    auto const xBelow = [this](std::uint32_t i, std::int64_t x) { return points[i].x < x; };
    auto const yBelow = [this](std::uint32_t i, std::int64_t y) { return points[i].y < y; };
    auto first =
        std::lower_bound(byColumn.begin(), byColumn.end(), std::min(a.x, b.x) - SLACK, xBelow);
    auto last = std::lower_bound(first, byColumn.end(), std::max(a.x, b.x) + SLACK, xBelow);
    if (last - first > few) {
        first = std::lower_bound(byRow.begin(), byRow.end(), std::min(a.y, b.y) - SLACK, yBelow);
        last = std::lower_bound(first, byRow.end(), std::max(a.y, b.y) + SLACK, yBelow);
        if (last - first > few) return false;
    }
    for (; first != last; ++first) {
        if (LiesOn(a, b, points[*first])) out.push_back(*first);
    }
    return true;
}

void PointIndex::FindOnSlant(GridPoint const& a, GridPoint const& b,
                             std::vector<std::uint32_t>& out) {
    if (FindInNarrowRange(a, b, out)) return;
    if (cells.empty()) BuildCells();
    GridPoint const& lower = a.y < b.y ? a : b;
    GridPoint const& upper = a.y < b.y ? b : a;
    std::int64_t const yFirst = std::max(lower.y - SLACK, low.y);
    std::int64_t const yLast = std::min(upper.y + SLACK, high.y);
    if (yFirst > yLast) return;
    double const slope =
        static_cast<double>(upper.x - lower.x) / static_cast<double>(upper.y - lower.y);
    auto const xAt = [&](std::int64_t y) {
        double const inside = static_cast<double>(std::clamp(y, lower.y, upper.y) - lower.y);
        return lower.x + static_cast<std::int64_t>(std::llround(inside * slope));
    };
    for (std::int64_t row = Row(yFirst); row <= Row(yLast); ++row) {
        std::int64_t const x0 = xAt(low.y + row * cellHeight - SLACK);
        std::int64_t const x1 = xAt(low.y + (row + 1) * cellHeight + SLACK);
        std::int64_t const xFirst = std::max(std::min(x0, x1) - SLACK, low.x);
        std::int64_t const xLast = std::min(std::max(x0, x1) + SLACK, high.x);
        if (xFirst > xLast) continue;
        std::int64_t const lastColumn = Column(xLast);
        auto at = std::lower_bound(cells.begin(), cells.end(), std::pair(row, Column(xFirst)),
                                   [](Cell const& c, std::pair<std::int64_t, std::int64_t> key) {
                                       return std::pair(c.row, c.column) < key;
                                   });
        for (; at != cells.end() && at->row == row && at->column <= lastColumn; ++at) {
            if (LiesOn(a, b, points[at->point])) out.push_back(at->point);
        }
    }
}

}  // namespace figkernel
