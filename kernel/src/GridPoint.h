// Points on the grid of 1e-6 mm on which the builder compares what touches.
#pragma once

#include <compare>
#include <cstdint>

#include <dg/Point.h>

namespace figkernel {

/// A point as whole millionths of a millimetre, so that equality is exact and transitive.
struct GridPoint {
    std::int64_t x = 0;
    std::int64_t y = 0;

    friend constexpr auto operator<=>(GridPoint const&, GridPoint const&) = default;
};

inline constexpr double GRID_STEPS_PER_MM = 1e6;

/// False for a coordinate that is not finite or lies more than 10 km out; `out` is then untouched.
bool ToGrid(dg::DPoint2D const& point, GridPoint& out);

/// The double nearest to the decimal that the grid point stands for: points that were equal on the
/// grid become equal doubles.
constexpr dg::DPoint2D FromGrid(GridPoint const& point) {
    return {static_cast<double>(point.x) / GRID_STEPS_PER_MM,
            static_cast<double>(point.y) / GRID_STEPS_PER_MM};
}

}  // namespace figkernel
