#include <session/frame/TitleBlockLayout.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include <attrs/FillAttr.h>
#include <figrep/Format.h>
#include <figrep/GenericGraphic.h>
#include <figrep/TitleBlock.h>
#include <figrep/TitleBlockTextSection.h>
#include <painters/TextLayout.h>
#include <session/frame/PlacedTitleBlock.h>
#include <session/frame/TitleBlockTexts.h>
#include <zv2d/Attributes.h>
#include <zv2d/LineAttributes.h>
#include <zv2d/TexPolyline.h>

namespace fighost {

namespace {

using figrep::SmartPtr;

using Section = figrep::TitleBlockTextSection;

struct Cell {
    std::wstring text;
    double width = 0;  // with the margins at both sides
};

struct Row {
    SmartPtr<Section> section;
    std::vector<Cell> cells;
    double textHeight = 0;
    double height = 0;

    double Width() const {
        double width = 0;
        for (Cell const& cell : cells)
            width += cell.width;
        return width;
    }
};

struct Layout {
    std::vector<Row> rows;
    dg::DBox2D box = dg::DBox2D::EMPTY;
};

std::vector<Cell> SplitAtTabs(std::wstring const& text) {
    std::vector<Cell> cells(1);
    for (wchar_t const c : text) {
        if (c == L'\t') {
            cells.emplace_back();
        } else {
            cells.back().text += c;
        }
    }
    return cells;
}

// Texts that would be wider than the sheet are written smaller.
Row MakeRow(SmartPtr<Section> const& section, double margin, double greatestWidth) {
    Row row;
    row.section = section;
    row.cells = SplitAtTabs(TitleBlockText(*section));
    row.textHeight = section->GetFontSize();
    TextStyle style;
    style.height = row.textHeight;
    style.bold = section->GetBold();
    std::ptrdiff_t lineEnds = 0;
    double textWidth = 0;
    for (Cell& cell : row.cells) {
        cell.width =
            LayOutText(cell.text, true, HorizontalAlignment::LEFT, VerticalAlignment::TOP, style)
                .width;
        textWidth += cell.width;
        lineEnds = std::max(lineEnds, std::count(cell.text.begin(), cell.text.end(), L'\n'));
    }
    double const room = greatestWidth - 2 * margin * static_cast<double>(row.cells.size());
    double const factor = textWidth > room && room > 0 ? room / textWidth : 1;
    row.textHeight *= factor;
    for (Cell& cell : row.cells)
        cell.width = cell.width * factor + 2 * margin;
    row.height = row.textHeight * (1 + static_cast<double>(lineEnds) * LINE_PITCH) +
                 2 * section->GetSpacing();
    return row;
}

dg::DBox2D PlaceBox(figrep::TitleBlock const& block, figrep::Format const& format, double width,
                    double height) {
    using Corner = figk::TitleBlock::Corner;
    Corner const corner = block.GetCorner();
    bool const left = corner == Corner::CORNER_BOTTOM_LEFT || corner == Corner::CORNER_TOP_LEFT;
    bool const bottom =
        corner == Corner::CORNER_BOTTOM_LEFT || corner == Corner::CORNER_BOTTOM_RIGHT;
    dg::DPoint2D const origin = format.GetPosition();
    double const x = left ? block.GetOffsetX() : format.GetWidth() - block.GetOffsetX() - width;
    double const y = bottom ? block.GetOffsetY() : format.GetHeight() - block.GetOffsetY() - height;
    return {origin.x + x, origin.y + y, origin.x + x + width, origin.y + y + height};
}

// What a row needs less than the block has is shared out among its cells.
void Widen(Row& row, double width) {
    double const share = (width - row.Width()) / static_cast<double>(row.cells.size());
    for (Cell& cell : row.cells)
        cell.width += share;
}

Layout LayOut(figrep::TitleBlock const& block) {
    Layout layout;
    SmartPtr<figrep::Format> const format = block.GetFormat();
    if (!format) return layout;
    double const room = format->GetWidth() - 2 * block.GetOffsetX();
    double width = std::max(block.GetMinWidth(), block.GetWidthParam());
    if (room > 0) width = std::min(width, room);
    double height = 0;
    for (SmartPtr<Section> const& section : block.GetTextSections()) {
        layout.rows.push_back(MakeRow(section, block.GetMargin(), room));
        width = std::max(width, layout.rows.back().Width());
        height += layout.rows.back().height;
    }
    if (layout.rows.empty()) return layout;
    for (Row& row : layout.rows)
        Widen(row, width);
    height = std::max(height, block.GetMinHeight());
    layout.box = PlaceBox(block, *format, width, height);
    return layout;
}

void DrawFrame(SmartPtr<figrep::TitleBlock> const& block, Layout const& layout) {
    dg::DBox2D const& box = layout.box;
    du::ConstSmartPtr<zv2d::LineAttributes> const line(new zv2d::LineAttributes(
        zv2d::LineAttributes::JOIN_ROUND, zv2d::LineAttributes::CAP_ROUND, nullptr,
        static_cast<float>(block->GetLineWeight()), zv2d::LineAttributes::KIND_DRAWING, 0,
        zv2d::LineAttributes::KIND_DRAWING, block->GetLineColor(), block->GetLineColor()));
    du::ConstSmartPtr<attrs::FillAttr> const fill(
        new attrs::FillAttr(attrs::FillAttr::BODY, block->GetBackgroundColor()));
    std::vector<du::ConstSmartPtr<zv2d::Entity>> entities;
    auto const draw = [&](dg::DPoint2D const& from, dg::DPoint2D const& to) {
        entities.push_back(SmartPtr<zv2d::TexPolyline>(
            new zv2d::TexPolyline({from, to}, zv2d::Attributes::Get(zv2d::Attributes(line)))));
    };
    entities.push_back(SmartPtr<zv2d::TexPolyline>(new zv2d::TexPolyline(
        {{box[0], box[1]}, {box[2], box[1]}, {box[2], box[3]}, {box[0], box[3]}},
        zv2d::Attributes::Get(zv2d::Attributes(line, fill)), true)));
    double top = box[3];
    for (Row const& row : layout.rows) {
        bool const isLast = &row == &layout.rows.back();
        double const bottom = isLast ? box[1] : top - row.height;
        if (!isLast) draw({box[0], bottom}, {box[2], bottom});
        double x = box[0];
        for (std::size_t i = 0; i + 1 < row.cells.size(); ++i) {
            x += row.cells[i].width;
            draw({x, top}, {x, bottom});
        }
        top = bottom;
    }
    SmartPtr<figrep::GenericGraphic> const frame =
        AddTitleBlockShapes(block, entities, block->GetLineColor());
    frame->SetFillBackground(!(block->GetBackgroundColor().a > 0));
}

void DrawRow(SmartPtr<figrep::TitleBlock> const& block, Row const& row, double left, double top) {
    int const alignment = row.section->GetAlignment();
    for (Cell const& cell : row.cells) {
        double const x = alignment == 0   ? left + block->GetMargin()
                         : alignment == 1 ? left + cell.width / 2
                                          : left + cell.width - block->GetMargin();
        left += cell.width;
        if (cell.text.empty()) continue;
        auto const text = MakeTitleBlockText(
            *row.section, cell.text, row.textHeight,
            static_cast<zv2d::Text::Alignment>(zv2d::Text::TOP_LEFT + alignment));
        AddTitleBlockText(block, *row.section, text,
                          dg::DMat33::Translation({x, top - row.section->GetSpacing()}));
    }
}

}  // namespace

void TitleBlockLayout::GenerateGraphics(SmartPtr<figrep::TitleBlock> const& titleBlock) {
    if (!titleBlock) return;
    if (IsPlacedTitleBlock(*titleBlock)) return GeneratePlacedTitleBlock(titleBlock);
    Layout const layout = LayOut(*titleBlock);
    if (layout.box.IsEmpty()) return;
    DrawFrame(titleBlock, layout);
    double top = layout.box[3];
    for (Row const& row : layout.rows) {
        DrawRow(titleBlock, row, layout.box[0], top);
        top -= row.height;
    }
}

void TitleBlockLayout::GenerateExtents(SmartPtr<figrep::TitleBlock> const& titleBlock) {
    if (!titleBlock) return;
    titleBlock->SetExtents(IsPlacedTitleBlock(*titleBlock) ? PlacedTitleBlockExtents(*titleBlock)
                                                           : LayOut(*titleBlock).box);
}

}  // namespace fighost
