// Transforms of the plane.
#pragma once

#include <dg/Box.h>
#include <dg/Point.h>

#include <cmath>

namespace dg {

/// A homogeneous 3 by 3 matrix acting on columns: the last column is the translation. The last row
/// is always (0, 0, 1) and isn't kept.
class DMat33 {
public:
    /// The identity.
    constexpr DMat33() = default;

    /// A turn about the origin, counter-clockwise. Quarter turns are exact: what is left of them by
    /// rounding pi is taken off.
    static DMat33 RotationZ(double radians) {
        double const c = WithoutRounding(std::cos(radians));
        double const s = WithoutRounding(std::sin(radians));
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
    /// False turns the sign of x, true that of y.
    static constexpr DMat33 Mirror(bool mirrorY) {
        return mirrorY ? Scale(1.0, -1.0) : Scale(-1.0, 1.0);
    }
    /// `transform`, with `centre` as its fixed point in place of the origin.
    static constexpr DMat33 About(DPoint2D const& centre, DMat33 const& transform);

    constexpr double operator()(unsigned row, unsigned column) const {
        if (row < 2) return cells_[row][column];
        return column == 2 ? 1.0 : 0.0;
    }

    constexpr void SetTranslation(DPoint2D const& to) {
        cells_[0][2] = to.x;
        cells_[1][2] = to.y;
    }
    constexpr DPoint2D GetTranslation() const { return {cells_[0][2], cells_[1][2]}; }

    /// Whether lines along the axes stay along the axes, so that boxes stay boxes.
    constexpr bool KeepsAxes() const {
        return (cells_[0][1] == 0.0 && cells_[1][0] == 0.0) ||
               (cells_[0][0] == 0.0 && cells_[1][1] == 0.0);
    }

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
        for (unsigned row = 0; row < 2; ++row) {
            for (unsigned column = 0; column < 3; ++column) {
                result.cells_[row][column] = a.cells_[row][0] * b(0, column) +
                                             a.cells_[row][1] * b(1, column) +
                                             a.cells_[row][2] * b(2, column);
            }
        }
        return result;
    }

private:
    static double WithoutRounding(double ratio) {
        constexpr double LEFT_BY_PI = 1e-15;
        return std::fabs(ratio) < LEFT_BY_PI ? 0.0 : ratio;
    }

    double cells_[2][3] = {{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}};
};

/// The transform that undoes `m`; the identity when `m` flattens the plane.
constexpr DMat33 Inverse(DMat33 const& m) {
    double const d = m.Determinant();
    if (d == 0.0 || d != d) return {};
    DMat33 result = DMat33::Linear(m(1, 1) / d, -m(0, 1) / d, -m(1, 0) / d, m(0, 0) / d);
    DVec2 const back = result * DVec2(m.GetTranslation());
    result.SetTranslation(DPoint2D(-back.x, -back.y));
    return result;
}

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
