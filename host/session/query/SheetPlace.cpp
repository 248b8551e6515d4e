#include <session/query/SheetPlace.h>

#include <figrep/Figure.h>
#include <figrep/Format.h>

namespace fighost {

namespace {

// The upper left corner of what the sheet is drawn in.
dg::DPoint2D CornerOf(SessionSheet const& sheet) {
    figrep::SmartPtr<figrep::Format> const format =
        sheet.figure ? sheet.figure->GetFormat() : nullptr;
    if (!format) return {};
    return format->GetPosition() + dg::DVec2(0, format->GetHeight());
}

}  // namespace

SheetPlace PlaceOf(SessionSheet const& sheet, dg::DPoint2D const& point) {
    SheetPlace place;
    place.sheet = sheet.path;
    dg::DPoint2D const corner = CornerOf(sheet);
    place.x = point.x - corner.x;
    place.y = corner.y - point.y;
    figrep::SmartPtr<figrep::Format> const format =
        sheet.figure ? sheet.figure->GetFormat() : nullptr;
    if (!format) return place;
    du::Symbol column, row;
    format->CalculateGridLocation(point, column, row);
    place.column = column.GetString();
    place.row = row.GetString();
    return place;
}

dg::DPoint2D FigurePoint(SessionSheet const& sheet, double x, double y) {
    dg::DPoint2D const corner = CornerOf(sheet);
    return {corner.x + x, corner.y - y};
}

}  // namespace fighost
