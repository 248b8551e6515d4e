// Places on sheets, as users read and type them.
#pragma once

#include <dg/Point.h>
#include <session/Session.h>

#include <string>

namespace fighost {

/// A place on a sheet.
struct SheetPlace {
    std::string sheet;   ///< path
    std::string column;  ///< of the grid cell; empty outside the grid
    std::string row;
    /// Millimetres from the upper left corner of the sheet's frame, y downward, as schematic
    /// editors count; without a frame from the figure's origin.
    double x = 0;
    double y = 0;

    /// "B4": row and column.
    std::string GetCell() const { return row + column; }
};

/// Where `point`, in figure coordinates, lies for a user.
SheetPlace PlaceOf(SessionSheet const& sheet, dg::DPoint2D const& point);

/// The figure's point at a user's coordinates.
dg::DPoint2D FigurePoint(SessionSheet const& sheet, double x, double y);

}  // namespace fighost
