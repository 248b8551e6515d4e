// Turns 2D entities, seen through an instance, into calls of a painter.
#pragma once

#include <optional>
#include <vector>

#include <attrs/FillAttr.h>
#include <attrs/TextAttr.h>
#include <dg/Color.h>
#include <dg/Matrix.h>
#include <painters/Painter.h>
#include <zv2d/Entity.h>
#include <zv2d/Instance.h>
#include <zv2d/LineAttributes.h>

namespace fighost {

/// The line width where nothing says another, in millimetres.
inline constexpr double HAIRLINE = 0.1524;

/// What a graphic's draw state says about all of its entities.
struct GraphicLook {
    dg::Color color;                               ///< of lines and texts
    du::ConstSmartPtr<zv2d::LineAttributes> line;  ///< may be null
    /// What fills areas in place of their own colour; may be null, and of kind `NONE` it replaces
    /// nothing. Of kind `BODY` it fills bodies only. What is filled in the colour of its outline
    /// stays so: its fill is part of the drawing, as the dot on a junction.
    du::ConstSmartPtr<attrs::FillAttr> fill;
    std::optional<dg::Color> ground;  ///< fills bodies in place of everything else
    double halo = 0;                  ///< added to line widths
};

/// Which part of an entity is painted. Bodies are what looks like a background; an item with
/// several has them painted first, so that none covers the outline of another.
enum class PaintPass { ALL, BODIES, ALL_BUT_BODIES };

/// Whether an entity is filled as a body.
bool IsBody(zv2d::Entity const& entity);

/// Paints the instances of one graphic after the other.
///
/// Line widths and patterns: the entity's own where they count, else the instance's, else the
/// graphic's, else a hairline. A width of 0 is a hairline too, but a filled entity whose own width
/// is 0 has no outline. Filled is what has a fill of its own or of its instance, unless the fill's
/// colour can't be seen.
class EntityPainter : private zv2d::EntityVisitor {
public:
    explicit EntityPainter(Painter& painter) : painter_(painter) {}

    void Paint(zv2d::Instance const& instance, GraphicLook const& look,
               PaintPass pass = PaintPass::ALL);

private:
    void Visit(zv2d::TexPolyline const& polyline) override;
    void Visit(zv2d::CircularArc const& arc) override;
    void Visit(zv2d::Text const& text) override;
    void Visit(zv2d::Picture const& picture) override;

    fighost::Paint PaintOf(zv2d::Entity const& entity) const;
    fighost::Stroke StrokeOf(zv2d::Attributes const* own) const;
    fighost::Fill FillOf(zv2d::Attributes const* own) const;
    zv2d::LineAttributes const* LineOf(zv2d::Attributes const* own) const;
    void PaintArcAsPolyline(zv2d::CircularArc const& arc);

    Painter& painter_;
    dg::DMat33 matrix_;
    zv2d::Attributes const* instanceAttributes_ = nullptr;
    GraphicLook const* look_ = nullptr;
    PaintPass pass_ = PaintPass::ALL;
};

}  // namespace fighost
