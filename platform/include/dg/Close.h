// When two places count as one.
#pragma once

#include <dg/Point.h>

#include <algorithm>
#include <cmath>

namespace dg {

/// How near two places must be for what stands there to touch. Relative to the size of the
/// coordinates, and absolute below 1.
inline constexpr double CONTACT_TOLERANCE = 0.0001;

/// Whether the distance of the points is at most `tolerance` times the largest of 1 and their
/// distances from the origin. False when a coordinate is not finite.
inline bool Close(DPoint2D const& a, DPoint2D const& b, double tolerance = CONTACT_TOLERANCE) {
    double const scale = std::max({1.0, DVec2(a).Norm(), DVec2(b).Norm()});
    return std::isfinite(scale) && (a - b).Norm() <= tolerance * scale;
}

/// The same for one coordinate.
inline bool CloseCoordinate(double a, double b, double tolerance = CONTACT_TOLERANCE) {
    double const scale = std::max({1.0, std::fabs(a), std::fabs(b)});
    return std::isfinite(scale) && std::fabs(a - b) <= tolerance * scale;
}

}  // namespace dg
