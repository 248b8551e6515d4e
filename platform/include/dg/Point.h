// Points and vectors of doubles, in the plane and in space.
#pragma once

#include <cmath>

namespace dg {

struct DVec2;

/// A place in the plane.
struct DPoint2D {
    double x = 0.0;
    double y = 0.0;

    constexpr DPoint2D() = default;
    constexpr DPoint2D(double px, double py) : x(px), y(py) {}

    /// 0 is x, anything else y.
    constexpr double operator[](unsigned axis) const { return axis ? y : x; }
    constexpr double& operator[](unsigned axis) { return axis ? y : x; }

    /// Exact.
    friend constexpr bool operator==(DPoint2D const&, DPoint2D const&) = default;

    constexpr DPoint2D& operator+=(DVec2 const& v);
    constexpr DPoint2D& operator-=(DVec2 const& v);
};

/// A displacement in the plane.
struct DVec2 {
    double x = 0.0;
    double y = 0.0;

    constexpr DVec2() = default;
    constexpr DVec2(double vx, double vy) : x(vx), y(vy) {}
    /// The displacement from the origin.
    constexpr explicit DVec2(DPoint2D const& p) : x(p.x), y(p.y) {}

    constexpr double operator[](unsigned axis) const { return axis ? y : x; }
    constexpr double& operator[](unsigned axis) { return axis ? y : x; }

    double Norm() const { return std::sqrt(x * x + y * y); }

    /// The vector of length 1 in the same direction; the zero vector stays as it is.
    DVec2 Normalise() const {
        double const length = Norm();
        return length > 0.0 ? DVec2(x / length, y / length) : *this;
    }

    friend constexpr bool operator==(DVec2 const&, DVec2 const&) = default;
    friend constexpr DVec2 operator+(DVec2 a, DVec2 b) { return {a.x + b.x, a.y + b.y}; }
    friend constexpr DVec2 operator-(DVec2 a, DVec2 b) { return {a.x - b.x, a.y - b.y}; }
    friend constexpr DVec2 operator-(DVec2 v) { return {-v.x, -v.y}; }
    friend constexpr DVec2 operator*(DVec2 v, double f) { return {v.x * f, v.y * f}; }
    friend constexpr DVec2 operator*(double f, DVec2 v) { return v * f; }
};

constexpr DVec2 operator-(DPoint2D const& a, DPoint2D const& b) {
    return {a.x - b.x, a.y - b.y};
}
constexpr DPoint2D operator+(DPoint2D const& p, DVec2 const& v) {
    return {p.x + v.x, p.y + v.y};
}
constexpr DPoint2D operator-(DPoint2D const& p, DVec2 const& v) {
    return {p.x - v.x, p.y - v.y};
}

constexpr DPoint2D& DPoint2D::operator+=(DVec2 const& v) {
    return *this = *this + v;
}
constexpr DPoint2D& DPoint2D::operator-=(DVec2 const& v) {
    return *this = *this - v;
}

inline double Norm(DVec2 const& v) {
    return v.Norm();
}
constexpr double Dot(DVec2 const& a, DVec2 const& b) {
    return a.x * b.x + a.y * b.y;
}
/// The z of the product in space: positive when `b` lies counter-clockwise of `a`.
constexpr double Cross(DVec2 const& a, DVec2 const& b) {
    return a.x * b.y - a.y * b.x;
}

/// A place in space; figures lie in the plane z = 0.
struct DPoint3D {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    constexpr DPoint3D() = default;
    constexpr DPoint3D(double px, double py, double pz) : x(px), y(py), z(pz) {}
    constexpr DPoint3D(DPoint2D const& p) : x(p.x), y(p.y) {}

    friend constexpr bool operator==(DPoint3D const&, DPoint3D const&) = default;
};

/// A displacement in space.
struct DVec3 {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    constexpr DVec3() = default;
    constexpr DVec3(double vx, double vy, double vz) : x(vx), y(vy), z(vz) {}
    constexpr DVec3(DVec2 const& v) : x(v.x), y(v.y) {}

    friend constexpr bool operator==(DVec3 const&, DVec3 const&) = default;
    friend constexpr DVec3 operator+(DVec3 const& a, DVec3 const& b) {
        return {a.x + b.x, a.y + b.y, a.z + b.z};
    }
    friend constexpr DVec3 operator*(DVec3 const& v, double f) {
        return {v.x * f, v.y * f, v.z * f};
    }
};

constexpr DPoint3D operator+(DPoint3D const& p, DVec3 const& v) {
    return {p.x + v.x, p.y + v.y, p.z + v.z};
}
constexpr DVec3 operator-(DPoint3D const& a, DPoint3D const& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

}  // namespace dg
