// A definition put in its place.
#pragma once

#include <dg/Box.h>
#include <dg/Matrix.h>
#include <du/SmartPtr.h>
#include <zv2d/Attributes.h>
#include <zv2d/Definition.h>

namespace zv2d {

/// A definition seen through a matrix, with attributes of its own if it has any.
///
/// A copy shares the definition and can be transformed alone.
class Instance : public virtual du::RefCounted {
public:
    /// A null definition has no shape.
    explicit Instance(du::ConstSmartPtr<Definition> const& definition,
                      dg::DMat33 const& matrix = dg::DMat33(),
                      du::ConstSmartPtr<Attributes> const& attributes = nullptr);
    Instance(Instance const&);
    Instance& operator=(Instance const&) = default;
    ~Instance() override;

    du::ConstSmartPtr<Definition> const& GetDefinition() const { return definition_; }
    dg::DMat33 const& GetMatrix() const { return matrix_; }
    void SetMatrix(dg::DMat33 const& matrix) { matrix_ = matrix; }
    /// Null when the entities' own attributes count.
    du::ConstSmartPtr<Attributes> const& GetAttributes() const { return attributes_; }
    void SetAttributes(du::ConstSmartPtr<Attributes> const& attributes) {
        attributes_ = attributes;
    }

    dg::DBox2D GetExtents() const;
    bool Overlaps(dg::DBox2D const& box) const;
    bool Overlaps(dg::DPoint2D const& point) const { return Overlaps(dg::DBox2D(point, point)); }
    bool ContainedIn(dg::DBox2D const& box) const;

    /// Applies a further transform after the present one.
    void Transform(dg::DMat33 const& transform) { matrix_ = transform * matrix_; }
    void Move(double dx, double dy);
    void Rotate(dg::DPoint2D const& about, double radians);
    void Scale(dg::DPoint2D const& about, double factor);
    /// False mirrors x, true mirrors y.
    void Mirror(dg::DPoint2D const& about, bool mirrorY);

private:
    du::ConstSmartPtr<Definition> definition_;
    dg::DMat33 matrix_;
    du::ConstSmartPtr<Attributes> attributes_;
};

}  // namespace zv2d
