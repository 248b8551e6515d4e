// Shapes and texts of the file as entities of pictures.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <figkernel/DesignSource.h>
#include <readers/kicad/file/Geometry.h>
#include <readers/kicad/file/SheetFile.h>
#include <readers/kicad/pictures/Looks.h>
#include <zv2d/Definition.h>
#include <zv2d/Instance.h>

namespace fighost::kicad {

using EntityPtr = du::ConstSmartPtr<zv2d::Entity>;

/// Appends what draws a shape; nothing for texts. Of a text box the frame. A filled arc is a sector
/// without outline below the arc.
void AppendShape(Shape const& shape, Frame const& frame, std::vector<EntityPtr>& entities);

EntityPtr MakePolyline(std::vector<dg::DPoint2D> points,
                       du::ConstSmartPtr<zv2d::Attributes> const& attributes, bool closed = false);
EntityPtr MakeCircle(dg::DPoint2D const& centre, double radius,
                     du::ConstSmartPtr<zv2d::Attributes> const& attributes);

/// An instance of a definition that holds these entities, in figure coordinates.
du::SmartPtr<zv2d::Instance> MakeInstance(std::vector<EntityPtr> const& entities);

/// How a text stands.
struct Stand {
    dg::DPoint2D at;
    double degrees = 0;  ///< counter-clockwise
    int horizontal = 0;  ///< which side of the text is at the point: -1 left, 0 centre, 1 right
    int vertical = 0;    ///< -1 top, 0 centre, 1 bottom
};

/// A text of the picture. `text` may hold mark-up; the source's text is without.
figkernel::TextSource MakeText(std::string const& text, Stand const& stand, TextStyle const& style,
                               figkernel::SourceIndex settings);

/// Nearly the width of the widest line, in mm, without knowing the font.
double EstimateWidth(std::string_view text, double height);
/// The text with line ends where it would be wider than `width`.
std::string WrapText(std::string_view text, double height, double width);

/// A text of the sheet or a symbol turned by `degrees`: readable from below or from the right.
double ReadableAngle(double degrees);

}  // namespace fighost::kicad
