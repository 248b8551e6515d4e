// Transforms of the plane.
#pragma once

#include <dg/Box.h>
#include <dg/Point.h>

#include <cmath>

namespace dg {

/// A homogeneous 3 by 3 matrix acting on columns: the last column is the translation.
class DMat33 {
public:
    /// The identity.
    constexpr DMat33() = default;

    /// A turn about the origin, counter-clockwise.
    static DMat33 RotationZ(double radians) {
        double const c = std::cos(radians);
        double const s = std::sin(radians);
        return Linear(c, -s, s, c);
    }
    static constexpr DMat33 Scale(double factor) { return Scale(factor, factor); }
    static constexpr DMat33 Scale(double sx, double sy) { return Linear(sx, 0.0, 0.0, sy); }
    static constexpr DMat33 Translation(DVec2 const& by) {
        DMat33 result;
        result.SetTranslation(DPoint2D(by.x, by.y));
        return result;
    }
    /// The matrix without translation whose rows are (a, b) and (c, d).
    static constexpr DMat33 Linear(double a, double b, double c, double d) {
        DMat33 result;
        result.cells_[0][0] = a;
        result.cells_[0][1] = b;
        result.cells_[1][0] = c;
        result.cells_[1][1] = d;
        return result;
    }
    /// `transform`, with `centre` as its fixed point in place of the origin.
    static constexpr DMat33 About(DPoint2D const& centre, DMat33 const& transform);

    constexpr double operator()(unsigned row, unsigned column) const { return cells_[row][column]; }
    constexpr double& operator()(unsigned row, unsigned column) { return cells_[row][column]; }

    constexpr void SetTranslation(DPoint2D const& to) {
        cells_[0][2] = to.x;
        cells_[1][2] = to.y;
    }
    constexpr DPoint2D GetTranslation() const { return {cells_[0][2], cells_[1][2]}; }

    /// Negative for transforms that mirror.
    constexpr double Determinant() const {
        return cells_[0][0] * cells_[1][1] - cells_[0][1] * cells_[1][0];
    }

    friend constexpr bool operator==(DMat33 const&, DMat33 const&) = default;

    friend constexpr DPoint2D operator*(DMat33 const& m, DPoint2D const& p) {
        return {m.cells_[0][0] * p.x + m.cells_[0][1] * p.y + m.cells_[0][2],
                m.cells_[1][0] * p.x + m.cells_[1][1] * p.y + m.cells_[1][2]};
    }
    /// Without the translation.
    friend constexpr DVec2 operator*(DMat33 const& m, DVec2 const& v) {
        return {m.cells_[0][0] * v.x + m.cells_[0][1] * v.y,
                m.cells_[1][0] * v.x + m.cells_[1][1] * v.y};
    }
    /// First `b`, then `a`.
    friend constexpr DMat33 operator*(DMat33 const& a, DMat33 const& b) {
        DMat33 result;
        for (unsigned row = 0; row < 3; ++row) {
            for (unsigned column = 0; column < 3; ++column) {
                double sum = 0.0;
                for (unsigned k = 0; k < 3; ++k)
                    sum += a.cells_[row][k] * b.cells_[k][column];
                result.cells_[row][column] = sum;
            }
        }
        return result;
    }

private:
    double cells_[3][3] = {{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}};
};

constexpr DMat33 DMat33::About(DPoint2D const& centre, DMat33 const& transform) {
    DVec2 const offset(centre);
    return Translation(offset) * transform * Translation(-offset);
}

/// The box of a transformed box; EMPTY stays EMPTY.
constexpr DBox2D operator*(DMat33 const& m, DBox2D const& box) {
    DBox2D result;
    if (box.IsEmpty()) return result;
    result.Enclose(m * DPoint2D(box[0], box[1]));
    result.Enclose(m * DPoint2D(box[2], box[1]));
    result.Enclose(m * DPoint2D(box[2], box[3]));
    result.Enclose(m * DPoint2D(box[0], box[3]));
    return result;
}

}  // namespace dg
