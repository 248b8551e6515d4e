// The frame of a sheet as its project's drawing sheet draws it. Private to the writer of designs.
#pragma once

#include <figkernel/DesignSource.h>
#include <readers/kicad/design/Hierarchy.h>
#include <readers/kicad/file/DrawingSheet.h>
#include <readers/kicad/pictures/Looks.h>

namespace fighost::kicad {

/// Draws lines, boxes, polygons, pictures and plain texts into the format. Texts with variables
/// become sections of the title block, each at its own place. A row of numbers or letters that the
/// drawing sheet repeats along an axis becomes the format's grid on that axis, with borders halfway
/// between neighbours; without one the format's even cells stay. The format knows the paper's size.
void DrawDrawingSheet(Hierarchy const& hierarchy, std::uint32_t sheet, Looks& looks,
                      figkernel::FormatSource& format, figkernel::TitleBlockSource& titleBlock,
                      Findings& findings);

/// The segments of a text with `${VARIABLES}`: tokens for these, plain runs between. Each token
/// comes with its value as the files have it, or as it is written where they have none.
std::vector<figkernel::TitleBlockSegmentSource> MakeSegments(Hierarchy const& hierarchy,
                                                             std::uint32_t sheet,
                                                             std::string_view text);

}  // namespace fighost::kicad
