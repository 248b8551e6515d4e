// How a point is transformed about another: the one place for what nodes and connectors share.
#pragma once

#include <dg/Matrix.h>
#include <dg/Point.h>

#include <cmath>

namespace figrep {

/// Whether a scaling by `factor` leaves something to see.
inline bool IsUsableFactor(double factor) {
    return std::isfinite(factor) && factor != 0.0;
}

/// The point, with `matrix` applied to its distance from `about`.
inline dg::DPoint2D TransformAbout(dg::DPoint2D const& point, dg::DPoint2D const& about,
                                   dg::DMat33 const& matrix) {
    return about + matrix * (point - about);
}

/// The point, with x (`mirrorY` false) or y (`mirrorY` true) on the other side of `about`.
inline dg::DPoint2D MirrorAbout(dg::DPoint2D point, dg::DPoint2D const& about, bool mirrorY) {
    point[mirrorY] = 2.0 * about[mirrorY] - point[mirrorY];
    return point;
}

}  // namespace figrep
