// Exact geometry of schematic files: whole numbers of 100 nm, y down as in the file.
#pragma once

#include <algorithm>
#include <cmath>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>

#include <dg/Point.h>

namespace fighost::kicad {

/// 100 nm: what the file format resolves. Files reach a few metres, so products of two fit.
using Length = std::int64_t;

inline constexpr double LENGTHS_PER_MM = 10000.0;

inline double ToMm(Length length) {
    return static_cast<double>(length) / LENGTHS_PER_MM;
}
inline Length FromMm(double mm) {
    return std::llround(mm * LENGTHS_PER_MM);
}

struct Point {
    Length x = 0;
    Length y = 0;

    auto operator<=>(Point const&) const = default;
    Point operator+(Point p) const { return {x + p.x, y + p.y}; }
    Point operator-(Point p) const { return {x - p.x, y - p.y}; }
};

struct PointHash {
    std::size_t operator()(Point p) const {
        auto const x = static_cast<std::uint64_t>(p.x) * 0x9E3779B97F4A7C15u;
        auto const y = static_cast<std::uint64_t>(p.y) * 0xC2B2AE3D27D4EB4Fu;
        return static_cast<std::size_t>((x ^ (y >> 31) ^ y) * 0xFF51AFD7ED558CCDu >> 7);
    }
};

/// From the file's coordinates to millimetres with y up. On sheets, where the file counts y
/// downward from the paper's upper edge, the paper's lower left corner becomes the origin.
struct Frame {
    bool flips = false;  ///< sheets; symbols in libraries have y up already
    Length height = 0;   ///< of the paper

    dg::DPoint2D operator()(Point p) const { return {ToMm(p.x), ToMm(flips ? height - p.y : p.y)}; }
};

/// True when `p` lies on the line from `a` to `b`, ends included.
inline bool IsOnLine(Point p, Point a, Point b) {
    if (p.x < std::min(a.x, b.x) || p.x > std::max(a.x, b.x)) return false;
    if (p.y < std::min(a.y, b.y) || p.y > std::max(a.y, b.y)) return false;
    return (p.x - a.x) * (b.y - a.y) == (p.y - a.y) * (b.x - a.x);
}

/// An angle in degrees as a number of quarter turns, 0 to 3.
inline int QuarterTurns(double degrees) {
    return static_cast<int>(((std::lround(degrees / 90) % 4) + 4) % 4);
}

/// A turn by quarters and a mirroring, from a symbol's own coordinates (y up) to the sheet's (y
/// down): first turned, then mirrored, then flipped.
struct Orientation {
    // sheet x = xx * x + xy * y, sheet y = yx * x + yy * y
    int xx = 1, xy = 0, yx = 0, yy = -1;

    static Orientation Make(int quarterTurns, bool mirrorX, bool mirrorY) {
        static constexpr int COS[] = {1, 0, -1, 0};
        static constexpr int SIN[] = {0, 1, 0, -1};
        int const q = ((quarterTurns % 4) + 4) % 4;
        int const fx = mirrorY ? -1 : 1;
        int const fy = mirrorX ? -1 : 1;
        return {fx * COS[q], -fx * SIN[q], -fy * SIN[q], -fy * COS[q]};
    }
    Point Apply(Point p) const { return {xx * p.x + xy * p.y, yx * p.x + yy * p.y}; }
};

}  // namespace fighost::kicad
