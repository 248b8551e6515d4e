// Arcs and circles of a picture.
#pragma once

#include <dg/CircularArc.h>
#include <zv2d/Entity.h>

namespace zv2d {

/// An arc; under a matrix that stretches, a piece of an ellipse.
class CircularArc : public Entity {
public:
    /// Which lines are drawn besides the arc.
    enum Style {
        OPEN = 0,   ///< none; a fill ends at the chord
        CHORD = 1,  ///< the chord between the ends
        SECTOR = 2  ///< the two radii
    };

    CircularArc(dg::CircularArc<double, 2> const& arc, int style,
                du::ConstSmartPtr<Attributes> const& attributes = nullptr);
    ~CircularArc() override;

    dg::CircularArc<double, 2> const& GetArc() const { return arc_; }
    int GetStyle() const { return style_; }

    using Entity::GetExtents;
    void Accept(EntityVisitor& visitor) const override;
    /// The box of the arc itself, not of its circle.
    dg::DBox2D GetExtents(dg::DMat33 const& matrix) const override;
    bool Overlaps(dg::DBox2D const& box, dg::DMat33 const& matrix) const override;

private:
    bool HasInside(dg::DPoint2D const& point, dg::DMat33 const& matrix) const;

    dg::CircularArc<double, 2> arc_;
    int style_;
};

}  // namespace zv2d
