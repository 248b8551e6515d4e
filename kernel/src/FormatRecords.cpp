#include "FormatRecords.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace figkernel {

namespace {

/// A to Z, then AA, AB and so on.
std::string RowLetters(unsigned row) {
    std::string letters;
    for (unsigned rest = row + 1; rest > 0; rest = (rest - 1) / 26) {
        letters.insert(letters.begin(), static_cast<char>('A' + (rest - 1) % 26));
    }
    return letters;
}

unsigned CellOf(double distance, double size, unsigned count) {
    return std::min(static_cast<unsigned>(distance / size * count), count - 1);
}

std::string const& CellAt(std::vector<GridCellSource> const& cells, double distance) {
    auto const last = std::prev(cells.end());
    return std::find_if(cells.begin(), last, [&](auto const& cell) { return distance < cell.end; })
        ->name;
}

template <class Enum>
Enum Clamped(int number, Enum highest) {
    return static_cast<Enum>(std::clamp(number, 0, static_cast<int>(highest)));
}

}  // namespace

void FormatRecord::CalculateGridLocation(dg::DPoint2D const& point, figk::Symbol& x,
                                         figk::Symbol& y) const {
    x = y = figk::Symbol::EMPTY;
    bool const hasColumns = columns > 0 || !columnCells.empty();
    bool const hasRows = rows > 0 || !rowCells.empty();
    if (!hasColumns || !hasRows || !(width > 0) || !(height > 0)) return;
    bool const isInside = point.x >= 0 && point.x <= width && point.y >= 0 && point.y <= height;
    if (!isInside) return;
    double const down = height - point.y;
    x = figk::Symbol(columnCells.empty() ? std::to_string(CellOf(point.x, width, columns) + 1)
                                         : CellAt(columnCells, point.x));
    y = figk::Symbol(rowCells.empty() ? RowLetters(CellOf(down, height, rows))
                                      : CellAt(rowCells, down));
}

PlacedTextSection::~PlacedTextSection() = default;

TextSectionRecord::TextSectionRecord(TitleBlockSectionSource const& source)
    : id(source.id),
      alignment(Clamped(source.alignment, ALIGN_RIGHT)),
      bold(source.bold),
      italic(source.italic),
      underline(source.underline),
      strikeOut(source.strikeOut),
      fontColor(source.fontColor),
      fontSize(source.fontSize),
      spacing(source.spacing),
      place(source.place) {
    for (TitleBlockSegmentSource const& segment : source.segments) {
        segments.push_back({segment.type, segment.token, segment.original, segment.text});
    }
}

TitleBlockRecord::TitleBlockRecord(du::SmartPtr<SheetLink> const& sheet,
                                   TitleBlockSource const& source)
    : SheetItemRecord(sheet),
      corner(Clamped(source.corner, CORNER_TOP_RIGHT)),
      offsetX(source.offsetX),
      offsetY(source.offsetY),
      margin(source.margin),
      minWidth(source.minWidth),
      minHeight(source.minHeight),
      lineColor(source.lineColor),
      lineWeight(source.lineWeight),
      backgroundColor(source.backgroundColor) {
    for (TitleBlockSectionSource const& section : source.sections) {
        sections.push_back(new TextSectionRecord(section));
    }
}

figk::SmartPtr<figk::TitleBlockTextSection> TitleBlockRecord::GetTextSection(
    unsigned int id) const {
    for (auto const& section : sections) {
        if (section->GetId() == id) return section;
    }
    return nullptr;
}

}  // namespace figkernel
