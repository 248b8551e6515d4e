#include <session/TitleBlockLayout.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <attrs/FillAttr.h>
#include <attrs/TextAttr.h>
#include <du/Utf8.h>
#include <figk/SettingValue.h>
#include <figrep/Format.h>
#include <figrep/GenericGraphic.h>
#include <figrep/Setting.h>
#include <figrep/TextGraphic.h>
#include <figrep/TitleBlock.h>
#include <figrep/TitleBlockTextSection.h>
#include <painters/TextLayout.h>
#include <zv2d/Attributes.h>
#include <zv2d/Definition.h>
#include <zv2d/Instance.h>
#include <zv2d/LineAttributes.h>
#include <zv2d/TexPolyline.h>
#include <zv2d/Text.h>

namespace fighost {

namespace {

using figrep::SmartPtr;

using Section = figrep::TitleBlockTextSection;

struct Row {
    SmartPtr<Section> section;
    std::wstring text;
    double height = 0;
    double width = 0;
};

struct Layout {
    std::vector<Row> rows;
    dg::DBox2D box = dg::DBox2D::EMPTY;
};

std::wstring TextOf(Section& section) {
    std::vector<Section::TextSegment> segments;
    section.GetText(segments);
    std::string text;
    for (Section::TextSegment const& segment : segments)
        text += segment.text;
    return du::Utf8ToWideStr(text);
}

Row MakeRow(SmartPtr<Section> const& section) {
    Row row{section, TextOf(*section), 0, 0};
    TextStyle style;
    style.height = section->GetFontSize();
    style.bold = section->GetBold();
    row.width =
        LayOutText(row.text, true, HorizontalAlignment::LEFT, VerticalAlignment::TOP, style).width;
    auto const lineBreaks = std::count(row.text.begin(), row.text.end(), L'\n');
    double const lines = style.height * (1 + static_cast<double>(lineBreaks) * LINE_PITCH);
    row.height = lines + 2 * section->GetSpacing();
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

Layout LayOut(figrep::TitleBlock const& block) {
    Layout layout;
    SmartPtr<figrep::Format> const format = block.GetFormat();
    if (!format) return layout;
    double width = std::max(block.GetMinWidth(), block.GetWidthParam());
    double height = 0;
    for (SmartPtr<Section> const& section : block.GetTextSections()) {
        layout.rows.push_back(MakeRow(section));
        width = std::max(width, layout.rows.back().width + 2 * block.GetMargin());
        height += layout.rows.back().height;
    }
    if (layout.rows.empty()) return layout;
    height = std::max(height, block.GetMinHeight());
    layout.box = PlaceBox(block, *format, width, height);
    return layout;
}

SmartPtr<zv2d::Instance> InstanceOf(std::vector<du::ConstSmartPtr<zv2d::Entity>> const& entities) {
    SmartPtr<zv2d::Definition> const definition(new zv2d::Definition());
    for (auto const& entity : entities)
        definition->Add(entity);
    return new zv2d::Instance(definition);
}

figrep::ConstSmartPtr<figrep::Setting> ColorSetting(dg::Color const& color) {
    SmartPtr<figk::BaseSettingValue> const value(new figk::SettingValue<dg::Color>(color));
    return new figrep::Setting(figrep::Setting::COLOR, value, figk::Setting::LEVEL_BASE, true);
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
    entities.push_back(SmartPtr<zv2d::TexPolyline>(new zv2d::TexPolyline(
        {{box[0], box[1]}, {box[2], box[1]}, {box[2], box[3]}, {box[0], box[3]}},
        zv2d::Attributes::Get(zv2d::Attributes(line, fill)), true)));
    double y = box[3];
    for (std::size_t i = 0; i + 1 < layout.rows.size(); ++i) {
        y -= layout.rows[i].height;
        entities.push_back(SmartPtr<zv2d::TexPolyline>(new zv2d::TexPolyline(
            {{box[0], y}, {box[2], y}}, zv2d::Attributes::Get(zv2d::Attributes(line)))));
    }
    SmartPtr<figrep::GenericGraphic> const frame =
        figrep::GenericGraphic::Create(block->GetLock(), InstanceOf(entities), block);
    frame->AddSetting(ColorSetting(block->GetLineColor()), false);
}

void DrawRow(SmartPtr<figrep::TitleBlock> const& block, Row const& row, dg::DBox2D const& box,
             double top) {
    if (row.text.empty()) return;
    int const alignment = row.section->GetAlignment();
    double const inside = block->GetMargin();
    double const x = alignment == 0   ? box[0] + inside
                     : alignment == 1 ? (box[0] + box[2]) / 2
                                      : box[2] - inside;
    attrs::TextAttr const look(du::Symbol::EMPTY, static_cast<float>(row.section->GetFontSize()),
                               row.section->GetBold(), row.section->GetItalic());
    SmartPtr<zv2d::Text> const text(
        new zv2d::Text({x, top - row.section->GetSpacing()}, row.text, true,
                       static_cast<zv2d::Text::Alignment>(zv2d::Text::TOP_LEFT + alignment), true,
                       zv2d::Attributes::Get(zv2d::Attributes(look))));
    SmartPtr<figrep::TextGraphic> const graphic =
        figrep::TextGraphic::Create(block->GetLock(), InstanceOf({text}), block);
    graphic->AddSetting(ColorSetting(row.section->GetFontColor()), false);
}

}  // namespace

void TitleBlockLayout::GenerateGraphics(SmartPtr<figrep::TitleBlock> const& titleBlock) {
    if (!titleBlock) return;
    Layout const layout = LayOut(*titleBlock);
    if (layout.box.IsEmpty()) return;
    DrawFrame(titleBlock, layout);
    double top = layout.box[3];
    for (Row const& row : layout.rows) {
        DrawRow(titleBlock, row, layout.box, top);
        top -= row.height;
    }
}

void TitleBlockLayout::GenerateExtents(SmartPtr<figrep::TitleBlock> const& titleBlock) {
    if (titleBlock) titleBlock->SetExtents(LayOut(*titleBlock).box);
}

}  // namespace fighost
