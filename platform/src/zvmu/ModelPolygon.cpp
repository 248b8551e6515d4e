#include <zvmu/ModelPolygon.h>

#include <algorithm>

namespace zvmu {

namespace {

// Expectations are only believed so far.
constexpr std::size_t MOST_EXPECTED = 1024;

dg::DVec2 InPlane(dg::DVec3 const& v) {
    return {v.x, v.y};
}

dg::DPoint3D NearestOnEdge(dg::DPoint3D const& start, dg::DPoint3D const& end,
                           dg::DPoint3D const& to) {
    dg::DVec3 const along = end - start;
    dg::DVec2 const edge = InPlane(along);
    double const square = Dot(edge, edge);
    if (!(square > 0.0)) return start;
    double const part = Dot(InPlane(to - start), edge) / square;
    return start + along * std::clamp(part, 0.0, 1.0);
}

}  // namespace

ModelPolygon::ModelPolygon(std::size_t expectedPoints) {
    points_.reserve(std::min(expectedPoints, MOST_EXPECTED));
    SetFlags(PICK_INTERIOR);
}

ModelPolygon::~ModelPolygon() = default;

void ModelPolygon::SetPoints(std::vector<dg::DPoint3D> const& points) {
    points_ = points;
}

PickedModel ModelPolygon::PickHere(PickPoint const& pointer) {
    PickedModel nearest;
    double reach = pointer.tolerance;
    for (std::size_t i = 0; i < points_.size(); ++i) {
        dg::DPoint3D const place =
            NearestOnEdge(points_[i], points_[(i + 1) % points_.size()], pointer.at);
        double const distance = InPlane(pointer.at - place).Norm();
        if (!(distance <= reach)) continue;
        reach = distance;
        nearest = {this, place};
    }
    if (!nearest.model && (GetFlags() & PICK_INTERIOR) && Encloses(pointer.at)) {
        nearest = {this, pointer.at};
    }
    return nearest;
}

// Counts the edges that a ray to the right crosses.
bool ModelPolygon::Encloses(dg::DPoint3D const& point) const {
    bool inside = false;
    for (std::size_t i = 0; i < points_.size(); ++i) {
        dg::DPoint3D const& a = points_[i];
        dg::DPoint3D const& b = points_[(i + 1) % points_.size()];
        if ((a.y > point.y) == (b.y > point.y)) continue;
        double const x = a.x + (b.x - a.x) * (point.y - a.y) / (b.y - a.y);
        if (point.x < x) inside = !inside;
    }
    return inside;
}

}  // namespace zvmu
