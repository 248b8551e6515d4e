// A drawing sheet: the file that says how the frames and title blocks of a project look.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <dg/Point.h>
#include <readers/Findings.h>
#include <readers/kicad/file/Limits.h>
#include <readers/kicad/file/SheetFile.h>

namespace fighost::kicad {

/// A point counted from a corner of the area within the margins, inwards along both axes, in mm.
struct CornerPoint {
    bool fromLeft = false;
    bool fromTop = false;
    double x = 0;
    double y = 0;
};

struct DrawingSheetItem {
    enum Kind { LINE, RECTANGLE, POLYGON, TEXT, BITMAP };
    enum Pages { ALL_PAGES, FIRST_PAGE, OTHER_PAGES };

    Kind kind = LINE;
    std::string name;
    Pages pages = ALL_PAGES;
    CornerPoint start;  ///< of texts, polygons and pictures their place
    CornerPoint end;
    double lineWidth = 0;  ///< mm; 0: that of the sheet
    unsigned repeat = 1;   ///< how often it is drawn, as far as the copies stay within the margins
    double stepX = 0;      ///< from one copy to the next, inwards
    double stepY = 0;
    double angle = 0;  ///< degrees, counter-clockwise
    // Of texts.
    std::string text;
    TextStyle style;
    int labelStep = 1;  ///< by how much the number or letter grows from copy to copy
    double greatestWidth = 0;
    double greatestHeight = 0;
    /// Of polygons: outlines in mm from the place, y down.
    std::vector<std::vector<dg::DPoint2D>> outlines;
    // Of pictures; the place is the centre.
    double scale = 1;
    std::shared_ptr<std::string const> bytes;

    /// The text of a copy: "1" becomes "2", "Z" becomes "AA", other texts stay.
    std::string LabelOf(unsigned copy) const;
};

struct DrawingSheet {
    std::string path;
    double leftMargin = 10;  // mm
    double rightMargin = 10;
    double topMargin = 10;
    double bottomMargin = 10;
    double lineWidth = 0.15;
    std::vector<DrawingSheetItem> items;
    std::size_t cost = 0;  ///< no page is drawn with more items than this
};

/// Reads a drawing sheet of any version, also from the time when its variables were letters behind
/// a '%'; these come out as `${VARIABLES}`. Answers the error that keeps it from being used; what
/// can't be read of a single item is a warning.
std::optional<Finding> ReadDrawingSheet(std::string const& path, std::string bytes,
                                        Limits const& limits, Findings& findings,
                                        DrawingSheet& out);

}  // namespace fighost::kicad
