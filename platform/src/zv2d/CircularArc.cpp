#include <zv2d/CircularArc.h>

#include "Shapes.h"

#include <cmath>
#include <numbers>

namespace zv2d {

namespace {

/// An arc under a matrix: centre + across cos t + up sin t over the angles of the arc.
struct PlacedArc {
    dg::CircularArc<double, 2> const& arc;
    dg::DPoint2D centre;
    dg::DVec2 across;
    dg::DVec2 up;

    PlacedArc(dg::CircularArc<double, 2> const& placed, dg::DMat33 const& matrix)
        : arc(placed),
          centre(matrix * placed.GetCentre()),
          across(matrix * dg::DVec2(placed.GetRadius(), 0.0)),
          up(matrix * dg::DVec2(0.0, placed.GetRadius())) {}

    dg::DPoint2D At(double angle) const {
        return centre + across * std::cos(angle) + up * std::sin(angle);
    }
    dg::DPoint2D Start() const { return At(arc.GetStartAngle()); }
    dg::DPoint2D End() const { return At(arc.GetEndAngle()); }

    /// Whether the arc passes the line on which a coordinate is `place` within the box.
    bool PassesSide(unsigned axis, double place, dg::DBox2D const& box) const {
        double const reach = std::hypot(across[axis], up[axis]);
        double const ratio = reach > 0.0 ? (place - centre[axis]) / reach : 2.0;
        if (!(std::fabs(ratio) <= 1.0)) return false;
        double const middle = std::atan2(up[axis], across[axis]);
        unsigned const other = 1 - axis;
        for (double const turn : {std::acos(ratio), -std::acos(ratio)}) {
            double const angle = middle + turn;
            double const met = At(angle)[other];
            if (arc.HasAngle(angle) && box[other] <= met && met <= box[other + 2]) return true;
        }
        return false;
    }
};

}  // namespace

CircularArc::CircularArc(dg::CircularArc<double, 2> const& arc, int style,
                         du::ConstSmartPtr<Attributes> const& attributes)
    : Entity(attributes), arc_(arc), style_(style) {}

CircularArc::~CircularArc() = default;

void CircularArc::Accept(EntityVisitor& visitor) const {
    visitor.Visit(*this);
}

dg::DBox2D CircularArc::GetExtents(dg::DMat33 const& matrix) const {
    PlacedArc const placed(arc_, matrix);
    dg::DBox2D box;
    box.Enclose(placed.Start());
    box.Enclose(placed.End());
    for (unsigned axis = 0; axis < 2; ++axis) {
        double const most = std::atan2(placed.up[axis], placed.across[axis]);
        for (double const angle : {most, most + std::numbers::pi}) {
            if (arc_.HasAngle(angle)) box.Enclose(placed.At(angle));
        }
    }
    if (style_ == SECTOR && !arc_.IsFullCircle()) box.Enclose(placed.centre);
    return box;
}

bool CircularArc::Overlaps(dg::DBox2D const& box, dg::DMat33 const& matrix) const {
    if (box.IsEmpty()) return false;
    PlacedArc const placed(arc_, matrix);
    dg::DPoint2D const start = placed.Start();
    dg::DPoint2D const end = placed.End();
    if (box.Contains(start) || box.Contains(end)) return true;
    for (unsigned axis = 0; axis < 2; ++axis) {
        if (placed.PassesSide(axis, box[axis], box)) return true;
        if (placed.PassesSide(axis, box[axis + 2], box)) return true;
    }
    bool const whole = arc_.IsFullCircle();
    if (style_ == SECTOR && !whole) {
        if (shapes::SegmentOverlaps(placed.centre, start, box)) return true;
        if (shapes::SegmentOverlaps(placed.centre, end, box)) return true;
    } else if ((style_ == CHORD || IsFilled()) && !whole) {
        if (shapes::SegmentOverlaps(start, end, box)) return true;
    }
    // The outline doesn't meet the box, so the box is wholly inside it or wholly outside.
    return IsFilled() && HasInside(box.Centre(), matrix);
}

bool CircularArc::HasInside(dg::DPoint2D const& point, dg::DMat33 const& matrix) const {
    if (matrix.Determinant() == 0.0) return false;
    dg::DPoint2D const plain = Inverse(matrix) * point;
    dg::DVec2 const out = plain - arc_.GetCentre();
    if (out.Norm() > arc_.GetRadius()) return false;
    if (arc_.IsFullCircle()) return true;
    if (style_ == SECTOR) return arc_.HasAngle(dg::Angle(out));
    dg::DPoint2D const start = arc_.GetStartPoint();
    // The arc runs counter-clockwise from start to end, so its piece lies right of the chord.
    return dg::Cross(arc_.GetEndPoint() - start, plain - start) <= 0.0;
}

}  // namespace zv2d
