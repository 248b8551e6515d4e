#include "Shapes.h"

#include <algorithm>

namespace zv2d::shapes {

namespace {

/// Whether all corners of the box lie strictly on one side of the line through `a` and `b`.
bool LineMisses(dg::DPoint2D const& a, dg::DPoint2D const& b, dg::DBox2D const& box) {
    dg::DVec2 const along = b - a;
    bool left = false;
    bool right = false;
    for (dg::DPoint2D const& corner :
         {dg::DPoint2D(box[0], box[1]), dg::DPoint2D(box[2], box[1]), dg::DPoint2D(box[2], box[3]),
          dg::DPoint2D(box[0], box[3])}) {
        double const side = dg::Cross(along, corner - a);
        if (!(side < 0.0)) left = true;
        if (!(side > 0.0)) right = true;
    }
    return !left || !right;
}

}  // namespace

bool SegmentOverlaps(dg::DPoint2D const& a, dg::DPoint2D const& b, dg::DBox2D const& box) {
    // Two convex shapes are apart when some line divides them; the sides of the box and the segment
    // itself are the only candidates.
    return box.Intersects(dg::DBox2D(a, b)) && !LineMisses(a, b, box);
}

bool PolygonHasInside(std::vector<dg::DPoint2D> const& corners, dg::DPoint2D const& point) {
    bool inside = false;
    for (size_t i = 0, last = corners.size() - 1; i < corners.size(); last = i++) {
        dg::DPoint2D const& a = corners[i];
        dg::DPoint2D const& b = corners[last];
        if ((a.y > point.y) == (b.y > point.y)) continue;
        if (point.x < a.x + (b.x - a.x) * (point.y - a.y) / (b.y - a.y)) inside = !inside;
    }
    return inside;
}

bool PolygonOverlaps(std::vector<dg::DPoint2D> const& corners, dg::DBox2D const& box, bool closed,
                     bool filled) {
    if (corners.empty() || box.IsEmpty()) return false;
    if (box.Contains(corners.front())) return true;
    for (size_t i = 1; i < corners.size(); ++i) {
        if (SegmentOverlaps(corners[i - 1], corners[i], box)) return true;
    }
    if ((closed || filled) && SegmentOverlaps(corners.back(), corners.front(), box)) return true;
    // No edge meets the box, so it lies wholly inside or wholly outside.
    return filled && PolygonHasInside(corners, box.Centre());
}

std::vector<dg::DPoint2D> Corners(dg::DBox2D const& box) {
    if (box.IsEmpty()) return {};
    return {{box[0], box[1]}, {box[2], box[1]}, {box[2], box[3]}, {box[0], box[3]}};
}

}  // namespace zv2d::shapes
