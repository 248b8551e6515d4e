// Boxes with sides along the axes.
#pragma once

#include <dg/Point.h>

#include <algorithm>
#include <limits>

namespace dg {

/// A box in the plane, sides included. A box may be a line or a point; `EMPTY` holds nothing.
///
/// `EMPTY` encloses and intersects nothing, adds nothing to a box that encloses it, stays itself
/// when moved, and has centre and size 0.
class DBox2D {
public:
    static DBox2D const EMPTY;

    /// The empty box.
    constexpr DBox2D() = default;
    constexpr DBox2D(double xmin, double ymin, double xmax, double ymax)
        : sides_{xmin, ymin, xmax, ymax} {}
    /// The box with these two corners, whatever their order.
    constexpr DBox2D(DPoint2D const& a, DPoint2D const& b)
        : sides_{std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)} {}

    /// 0 to 3: smallest x, smallest y, largest x, largest y.
    constexpr double operator[](unsigned side) const { return sides_[side & 3u]; }

    constexpr double XMin() const { return sides_[0]; }
    constexpr double YMin() const { return sides_[1]; }
    constexpr double XMax() const { return sides_[2]; }
    constexpr double YMax() const { return sides_[3]; }

    constexpr bool IsEmpty() const { return sides_[0] > sides_[2] || sides_[1] > sides_[3]; }
    constexpr DPoint2D Centre() const {
        if (IsEmpty()) return {};
        return {sides_[0] + (sides_[2] - sides_[0]) * 0.5,
                sides_[1] + (sides_[3] - sides_[1]) * 0.5};
    }
    /// Width and height.
    constexpr DVec2 Size() const {
        if (IsEmpty()) return {};
        return {sides_[2] - sides_[0], sides_[3] - sides_[1]};
    }

    /// Whether the boxes share a place, each grown by half of `tolerance`.
    constexpr bool Intersects(DBox2D const& other, double tolerance = 0.0) const {
        if (IsEmpty() || other.IsEmpty()) return false;
        return sides_[0] <= other.sides_[2] + tolerance &&
               other.sides_[0] <= sides_[2] + tolerance &&
               sides_[1] <= other.sides_[3] + tolerance && other.sides_[1] <= sides_[3] + tolerance;
    }
    /// Whether `other` lies wholly inside this box grown by `tolerance`.
    constexpr bool Contains(DBox2D const& other, double tolerance = 0.0) const {
        if (IsEmpty() || other.IsEmpty()) return false;
        return sides_[0] - tolerance <= other.sides_[0] &&
               other.sides_[2] <= sides_[2] + tolerance &&
               sides_[1] - tolerance <= other.sides_[1] && other.sides_[3] <= sides_[3] + tolerance;
    }
    constexpr bool Contains(DPoint2D const& p, double tolerance = 0.0) const {
        return Contains(DBox2D(p, p), tolerance);
    }

    /// Grows the box to hold the point. A point with a coordinate that is not a number is left out.
    constexpr void Enclose(DPoint2D const& p) {
        if (p.x != p.x || p.y != p.y) return;
        sides_[0] = std::min(sides_[0], p.x);
        sides_[1] = std::min(sides_[1], p.y);
        sides_[2] = std::max(sides_[2], p.x);
        sides_[3] = std::max(sides_[3], p.y);
    }
    constexpr void Enclose(DBox2D const& other) {
        if (other.IsEmpty()) return;
        Enclose(DPoint2D(other.sides_[0], other.sides_[1]));
        Enclose(DPoint2D(other.sides_[2], other.sides_[3]));
    }

    /// Moves the box.
    constexpr void Translate(DVec2 const& by) {
        if (IsEmpty()) return;
        sides_[0] += by.x;
        sides_[1] += by.y;
        sides_[2] += by.x;
        sides_[3] += by.y;
    }

    friend constexpr bool operator==(DBox2D const& a, DBox2D const& b) = default;

private:
    static constexpr double FAR = std::numeric_limits<double>::max();

    double sides_[4] = {FAR, FAR, -FAR, -FAR};
};

inline constexpr DBox2D DBox2D::EMPTY{};

}  // namespace dg
