// The frame and the title block of a sheet in the embedded kernel.
#pragma once

#include <figk/Format.h>
#include <figk/TitleBlock.h>
#include <figkernel/DesignSource.h>
#include <figkernel/PlacedTextSection.h>

#include "RecordBase.h"

namespace figkernel {

class FormatRecord : public SheetItemRecord<figk::Format> {
public:
    FormatRecord(du::SmartPtr<SheetLink> const& sheet, FormatSource const& source)
        : SheetItemRecord(sheet),
          width(source.width),
          height(source.height),
          columns(source.columns),
          rows(source.rows),
          columnCells(source.columnCells),
          rowCells(source.rowCells) {}

    double GetWidth() const override { return width; }
    double GetHeight() const override { return height; }
    /// Columns are numbered from the left, rows lettered from the top: "4" and "B"; cells with
    /// names of their own go by these.
    void CalculateGridLocation(dg::DPoint2D const& point, figk::Symbol& x,
                               figk::Symbol& y) const override;

private:
    double width;
    double height;
    unsigned columns;
    unsigned rows;
    std::vector<GridCellSource> columnCells;
    std::vector<GridCellSource> rowCells;
};

class TextSectionRecord : public PlacedTextSection {
public:
    explicit TextSectionRecord(TitleBlockSectionSource const& source);

    unsigned int GetId() const override { return id; }
    void GetText(std::vector<TextSegment_s>& out) const override {
        out.insert(out.end(), segments.begin(), segments.end());
    }
    Alignment GetAlignment() const override { return alignment; }
    bool GetBold() const override { return bold; }
    bool GetItalic() const override { return italic; }
    bool GetUnderline() const override { return underline; }
    bool GetStrikeOut() const override { return strikeOut; }
    dg::Color GetFontColor() const override { return fontColor; }
    double GetFontSize() const override { return fontSize; }
    double GetSpacing() const override { return spacing; }
    std::optional<TextPlaceSource> const& GetPlace() const override { return place; }

private:
    unsigned id;
    std::vector<TextSegment_s> segments;
    Alignment alignment;
    bool bold;
    bool italic;
    bool underline;
    bool strikeOut;
    dg::Color fontColor;
    double fontSize;
    double spacing;
    std::optional<TextPlaceSource> place;
};

class TitleBlockRecord : public SheetItemRecord<figk::TitleBlock> {
public:
    TitleBlockRecord(du::SmartPtr<SheetLink> const& sheet, TitleBlockSource const& source);

    Corner GetCorner() const override { return corner; }
    double GetOffsetX() const override { return offsetX; }
    double GetOffsetY() const override { return offsetY; }
    double GetMargin() const override { return margin; }
    double GetMinWidth() const override { return minWidth; }
    double GetMinHeight() const override { return minHeight; }
    dg::Color GetLineColor() const override { return lineColor; }
    double GetLineWeight() const override { return lineWeight; }
    dg::Color GetBackgroundColor() const override { return backgroundColor; }
    void GetTextSections(
        std::vector<figk::SmartPtr<figk::TitleBlockTextSection>>& out) const override {
        out.insert(out.end(), sections.begin(), sections.end());
    }
    figk::SmartPtr<figk::TitleBlockTextSection> GetTextSection(unsigned int id) const override;

private:
    Corner corner;
    double offsetX;
    double offsetY;
    double margin;
    double minWidth;
    double minHeight;
    dg::Color lineColor;
    double lineWeight;
    dg::Color backgroundColor;
    std::vector<figk::SmartPtr<figk::TitleBlockTextSection>> sections;
};

}  // namespace figkernel
