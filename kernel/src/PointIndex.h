// Finds the points that lie on a straight line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "GridPoint.h"

namespace figkernel {

/// A fixed set of points, asked for those on a line between two points, ends included.
///
/// Points on a horizontal or vertical line must lie on it exactly; a slanted line can't pass
/// through grid points everywhere, so it takes those nearer than the contact tolerance. Cost of a
/// query: log n + result for horizontal and vertical lines, sqrt(n) log n + result at worst for
/// slanted ones.
class PointIndex {
public:
    explicit PointIndex(std::vector<GridPoint> const& points);

    /// Appends the indices of the points between `a` and `b`, in no particular order.
    void FindOn(GridPoint const& a, GridPoint const& b, std::vector<std::uint32_t>& out);

private:
    void FindOnRow(GridPoint const& a, GridPoint const& b, std::vector<std::uint32_t>& out) const;
    void FindOnColumn(GridPoint const& a, GridPoint const& b,
                      std::vector<std::uint32_t>& out) const;
    /// Looks through the points beside, or above and below, the line when they are few; false when
    /// they aren't.
    bool FindInNarrowRange(GridPoint const& a, GridPoint const& b,
                           std::vector<std::uint32_t>& out) const;
    void FindOnSlant(GridPoint const& a, GridPoint const& b, std::vector<std::uint32_t>& out);
    void BuildCells();
    std::int64_t Row(std::int64_t y) const;
    std::int64_t Column(std::int64_t x) const;

    struct Cell {
        std::int64_t row;
        std::int64_t column;
        std::uint32_t point;
    };

    std::vector<GridPoint> const& points;
    std::vector<std::uint32_t> byRow;     ///< ordered by y, then x
    std::vector<std::uint32_t> byColumn;  ///< ordered by x, then y
    std::vector<Cell> cells;              ///< made by the first slanted query
    std::int64_t cellWidth = 0;
    std::int64_t cellHeight = 0;
    GridPoint low;
    GridPoint high;
};

}  // namespace figkernel
