// What a picture is painted with: one interface for every output format.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <dg/Box.h>
#include <dg/Color.h>
#include <dg/Matrix.h>
#include <dg/Point.h>
#include <painters/TextLayout.h>

namespace fighost {

/// How an outline is drawn. `width` in millimetres; 0 draws no outline. `dashes` are the lengths
/// of strokes and gaps in turn, in millimetres; empty is a solid line.
struct Stroke {
    dg::Color color;
    double width = 0;
    std::vector<double> dashes;
};

struct Fill {
    bool filled = false;
    dg::Color color;
    /// An area on which other things stand, such as the body of a symbol; else ink, as lines are.
    bool isArea = false;
};

struct Paint {
    Stroke stroke;
    Fill fill;
};

/// The sheet as a whole. The box is what the picture shows.
struct PaintedSheet {
    dg::DBox2D box;
    dg::Color background = dg::Color::WHITE;
    bool paintBackground = true;
    std::string title;
    std::string anchor;     ///< what links to this sheet name; empty: nothing links here
    std::size_t depth = 0;  ///< in the tree of sheets, 0 for the root
};

/// The item that the shapes up to `EndItem` belong to. Items don't nest.
struct PaintedItem {
    std::string_view id;
    std::string_view type;  ///< as `AbstractFigureItem::GetTypeName` has it
    std::string_view name;
    std::string_view net;   ///< empty for what belongs to no net
    std::string_view link;  ///< anchor of the sheet where the item goes on; empty for most
    bool highlighted = false;
};

/// One text, placed and laid out.
struct PaintedText {
    dg::DPoint2D anchor;
    double angle = 0;  ///< of the reading direction
    TextStyle style;
    TextLayout layout;
    dg::Color color;
};

/// An image. The matrix takes the unit square, y up, to the place of the image.
struct PaintedPicture {
    dg::DMat33 matrix;
    std::string_view mimeType;
    std::string_view data;  ///< the bytes of the image file
};

/// Receives a sheet's shapes, from the back to the front.
///
/// Frame: that of the figure, millimetres with y up and angles counter-clockwise; a painter whose
/// format has y down flips at one place of its own. Numbers that aren't finite must not stop a
/// painter: it leaves such a shape out.
class Painter {
public:
    virtual ~Painter() = default;

    virtual void BeginSheet(PaintedSheet const& sheet) = 0;
    virtual void EndSheet() = 0;
    virtual void BeginItem(PaintedItem const& item) = 0;
    virtual void EndItem() = 0;

    /// Lines through the points; fewer than two draw nothing. `closed` joins the last to the first.
    virtual void Polyline(std::vector<dg::DPoint2D> const& points, bool closed,
                          Paint const& paint) = 0;
    /// The arc from `start` counter-clockwise to `end`; 2 pi or more is the whole circle.
    virtual void Arc(dg::DPoint2D const& centre, double radius, double start, double end,
                     Paint const& paint) = 0;
    virtual void Text(PaintedText const& text) = 0;
    virtual void Picture(PaintedPicture const& picture) = 0;
};

}  // namespace fighost
