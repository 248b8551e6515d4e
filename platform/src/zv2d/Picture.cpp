#include <zv2d/Picture.h>

#include "Shapes.h"

#include <utility>

namespace zv2d {

Picture::Picture(dg::DBox2D const& box, std::string mimeType,
                 std::shared_ptr<std::string const> bytes,
                 du::ConstSmartPtr<Attributes> const& attributes)
    : Entity(attributes), box_(box), mimeType_(std::move(mimeType)), bytes_(std::move(bytes)) {}

Picture::~Picture() = default;

void Picture::Accept(EntityVisitor& visitor) const {
    visitor.Visit(*this);
}

dg::DBox2D Picture::GetExtents(dg::DMat33 const& matrix) const {
    return matrix * box_;
}

bool Picture::Overlaps(dg::DBox2D const& box, dg::DMat33 const& matrix) const {
    std::vector<dg::DPoint2D> corners = shapes::Corners(box_);
    for (dg::DPoint2D& corner : corners)
        corner = matrix * corner;
    return shapes::PolygonOverlaps(corners, box, true, true);
}

}  // namespace zv2d
