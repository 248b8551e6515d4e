// Pieces of circles.
#pragma once

#include <dg/Angle.h>
#include <dg/Box.h>
#include <dg/Point.h>

#include <cmath>
#include <numbers>

namespace dg {

template <class Scalar, int Dimension>
class CircularArc;

/// The piece of a circle from one angle counter-clockwise to another.
///
/// Equal angles make an arc of one point; angles a full turn or more apart make the whole circle.
template <>
class CircularArc<double, 2> {
public:
    constexpr CircularArc() = default;
    constexpr CircularArc(DPoint2D const& arcCentre, double arcRadius, double arcStart,
                          double arcEnd)
        : centre_(arcCentre), radius_(arcRadius), start_(arcStart), end_(arcEnd) {}

    constexpr DPoint2D const& GetCentre() const { return centre_; }
    constexpr double GetRadius() const { return radius_; }
    constexpr double GetStartAngle() const { return start_; }
    constexpr double GetEndAngle() const { return end_; }

    constexpr bool IsFullCircle() const {
        return end_ - start_ >= TWO_PI || start_ - end_ >= TWO_PI;
    }

    /// The angle passed over, in [0, 2 pi].
    double GetSweep() const { return IsFullCircle() ? TWO_PI : NormaliseAngle(end_ - start_); }

    DPoint2D GetPoint(double angle) const {
        return centre_ + DVec2(std::cos(angle), std::sin(angle)) * radius_;
    }
    DPoint2D GetStartPoint() const { return GetPoint(start_); }
    DPoint2D GetEndPoint() const { return GetPoint(end_); }

    /// Whether the arc passes through this direction.
    bool HasAngle(double angle) const { return NormaliseAngle(angle - start_) <= GetSweep(); }

    /// The box of the arc itself, not of its circle.
    DBox2D GetExtents() const {
        DBox2D box;
        box.Enclose(GetStartPoint());
        box.Enclose(GetEndPoint());
        DVec2 const reach[4] = {{radius_, 0.0}, {0.0, radius_}, {-radius_, 0.0}, {0.0, -radius_}};
        for (int quarter = 0; quarter < 4; ++quarter) {
            if (HasAngle(quarter * (std::numbers::pi / 2.0))) box.Enclose(centre_ + reach[quarter]);
        }
        return box;
    }

private:
    DPoint2D centre_;
    double radius_ = 0.0;
    double start_ = 0.0;
    double end_ = 0.0;
};

}  // namespace dg
