#include <zv2d/TexPolyline.h>

#include "Shapes.h"

#include <utility>

namespace zv2d {

TexPolyline::TexPolyline(std::vector<dg::DPoint2D> vertices,
                         du::ConstSmartPtr<Attributes> const& attributes, bool closed)
    : Entity(attributes), vertices_(std::move(vertices)), closed_(closed) {}

TexPolyline::~TexPolyline() = default;

void TexPolyline::Accept(EntityVisitor& visitor) const {
    visitor.Visit(*this);
}

dg::DBox2D TexPolyline::GetExtents(dg::DMat33 const& matrix) const {
    dg::DBox2D box;
    for (dg::DPoint2D const& vertex : vertices_)
        box.Enclose(matrix * vertex);
    return box;
}

bool TexPolyline::Overlaps(dg::DBox2D const& box, dg::DMat33 const& matrix) const {
    std::vector<dg::DPoint2D> placed;
    placed.reserve(vertices_.size());
    for (dg::DPoint2D const& vertex : vertices_)
        placed.push_back(matrix * vertex);
    return shapes::PolygonOverlaps(placed, box, closed_, IsFilled());
}

}  // namespace zv2d
