// Exact tests between shapes and boxes, shared by the entities.
#pragma once

#include <dg/Box.h>
#include <dg/Point.h>

#include <cstddef>
#include <vector>

namespace zv2d::shapes {

/// Whether the straight line between two points shares a point with the box.
bool SegmentOverlaps(dg::DPoint2D const& a, dg::DPoint2D const& b, dg::DBox2D const& box);

/// Whether the point lies inside the polygon, by the rule that counts crossings.
bool PolygonHasInside(std::vector<dg::DPoint2D> const& corners, dg::DPoint2D const& point);

/// Whether the polygon and the box share a point: on an edge, or anywhere inside when `filled`.
bool PolygonOverlaps(std::vector<dg::DPoint2D> const& corners, dg::DBox2D const& box, bool closed,
                     bool filled);

/// The four corners of a box in order round it.
std::vector<dg::DPoint2D> Corners(dg::DBox2D const& box);

}  // namespace zv2d::shapes
