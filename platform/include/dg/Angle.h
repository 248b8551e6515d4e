// Angles, in radians, counter-clockwise from the x axis.
#pragma once

#include <dg/Point.h>

#include <cmath>
#include <numbers>

namespace dg {

inline constexpr double TWO_PI = 2.0 * std::numbers::pi;

/// The same direction in [0, 2 pi). A value that is not finite gives 0.
inline double NormaliseAngle(double radians) {
    if (!std::isfinite(radians)) return 0.0;
    double const turned = std::fmod(radians, TWO_PI);
    double const result = turned < 0.0 ? turned + TWO_PI : turned;
    return result >= TWO_PI ? 0.0 : result;
}

/// The direction of `v` in [0, 2 pi); 0 for the zero vector.
inline double Angle(DVec2 const& v) {
    return NormaliseAngle(std::atan2(v.y, v.x));
}

}  // namespace dg
