// The base of everything that a picture is made of.
#pragma once

#include <dg/Box.h>
#include <dg/Matrix.h>
#include <du/SmartPtr.h>
#include <zv2d/Attributes.h>

namespace zv2d {

class CircularArc;
class Picture;
class TexPolyline;
class Text;

/// Reads entities by their class; each operation does nothing by default.
class EntityVisitor {
public:
    virtual ~EntityVisitor() = default;

    virtual void Visit(TexPolyline const& polyline);
    virtual void Visit(CircularArc const& arc);
    virtual void Visit(Text const& text);
    virtual void Visit(Picture const& picture);
};

/// One shape of a picture, in the frame of its definition.
///
/// Shapes are as thin as their geometry: widths of lines don't count in boxes and tests. What is
/// filled has its inside counted in overlaps. Tests are exact for the shape under the matrix, which
/// need not keep angles or lengths.
class Entity : public virtual du::RefCounted {
public:
    ~Entity() override;

    virtual void Accept(EntityVisitor& visitor) const = 0;

    /// The smallest box of the shape under `matrix`; EMPTY for a shape without points.
    virtual dg::DBox2D GetExtents(dg::DMat33 const& matrix) const = 0;
    dg::DBox2D GetExtents() const { return GetExtents(dg::DMat33()); }

    /// Whether the shape under `matrix` and the box share a point.
    virtual bool Overlaps(dg::DBox2D const& box, dg::DMat33 const& matrix) const = 0;

    /// Whether the shape under `matrix` lies wholly in the box; false for one without points.
    bool ContainedIn(dg::DBox2D const& box, dg::DMat33 const& matrix) const {
        return box.Contains(GetExtents(matrix));
    }

    /// May be null.
    du::ConstSmartPtr<Attributes> const& GetAttributes() const { return attributes_; }

    bool IsFilled() const { return attributes_ && attributes_->IsFilled(); }

protected:
    explicit Entity(du::ConstSmartPtr<Attributes> const& attributes);
    Entity(Entity const&);

private:
    du::ConstSmartPtr<Attributes> attributes_;
};

}  // namespace zv2d
