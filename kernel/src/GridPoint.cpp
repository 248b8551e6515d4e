#include "GridPoint.h"

#include <cmath>

namespace figkernel {

namespace {

constexpr double FARTHEST_MM = 1e7;

bool IsUsable(double mm) {
    return std::isfinite(mm) && std::fabs(mm) <= FARTHEST_MM;
}

}  // namespace

bool ToGrid(dg::DPoint2D const& point, GridPoint& out) {
    if (!IsUsable(point.x) || !IsUsable(point.y)) return false;
    out.x = std::llround(point.x * GRID_STEPS_PER_MM);
    out.y = std::llround(point.y * GRID_STEPS_PER_MM);
    return true;
}

}  // namespace figkernel
