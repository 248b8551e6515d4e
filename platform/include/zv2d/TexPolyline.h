// Lines from point to point.
#pragma once

#include <dg/Point.h>
#include <zv2d/Entity.h>

#include <vector>

namespace zv2d {

/// A line through any number of vertices, or the polygon between them when it is closed.
class TexPolyline : public Entity {
public:
    /// `closed` adds the side from the last vertex to the first. A fill closes its area by itself.
    explicit TexPolyline(std::vector<dg::DPoint2D> vertices,
                         du::ConstSmartPtr<Attributes> const& attributes = nullptr,
                         bool closed = false);
    ~TexPolyline() override;

    std::vector<dg::DPoint2D> const& GetVertices() const { return vertices_; }
    bool IsClosed() const { return closed_; }

    using Entity::GetExtents;
    void Accept(EntityVisitor& visitor) const override;
    dg::DBox2D GetExtents(dg::DMat33 const& matrix) const override;
    bool Overlaps(dg::DBox2D const& box, dg::DMat33 const& matrix) const override;

private:
    std::vector<dg::DPoint2D> vertices_;
    bool closed_;
};

}  // namespace zv2d
