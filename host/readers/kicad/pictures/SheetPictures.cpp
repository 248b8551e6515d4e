#include "SheetPictures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

#include <readers/kicad/design/Texts.h>
#include <readers/kicad/design/Variables.h>
#include <zv2d/Picture.h>

#include "DrawingSheetPictures.h"

namespace fighost::kicad {

namespace {

constexpr double OUTER_MARGIN = 10;        // mm, from the paper's edge to the border
constexpr double INNER_MARGIN = 12;        // mm, to the inner line of the border
constexpr double GRID_STEP = 50;           // mm, wished size of the cells of the reference grid
constexpr double TEXT_SIZE = 1.5;          // mm, of grid references and title block
constexpr double UNKNOWN_IMAGE_SIZE = 20;  // mm
constexpr double BOX_MARGIN = 0.75;        // parts of the text's height

/// Without margins of its own a box keeps its text off the border by a part of the text's height.
std::array<double, 4> MarginsOf(Shape const& shape) {
    if (shape.margins) return *shape.margins;
    double const margin = shape.style.height * BOX_MARGIN + std::max(shape.stroke.width, 0.0) / 2;
    return {margin, margin, margin, margin};
}

figkernel::GraphicSource Graphic(std::string const& id, std::string const& name,
                                 std::vector<EntityPtr> const& entities,
                                 figkernel::SourceIndex settings) {
    figkernel::GraphicSource graphic;
    graphic.id = id;
    graphic.name = name;
    graphic.instances.push_back(MakeInstance(entities));
    graphic.settings = settings;
    return graphic;
}

EntityPtr Rectangle(double x1, double y1, double x2, double y2,
                    du::ConstSmartPtr<zv2d::Attributes> const& attributes) {
    return MakePolyline({{x1, y1}, {x2, y1}, {x2, y2}, {x1, y2}}, attributes, true);
}

}  // namespace

std::string SheetPictures::Expand(std::string_view text) const {
    return ExpandOnSheet(hierarchy, sheet, text);
}

void SheetPictures::DrawShape(Shape const& shape, Role role, figkernel::GroupSource& group) {
    std::vector<EntityPtr> entities;
    AppendShape(shape, frame, entities);
    group.graphics.push_back(
        Graphic(shape.uuid, "", entities, looks.Colored(role, shape.stroke.color)));
}

void SheetPictures::DrawText(Shape const& shape, figkernel::GroupSource& group) {
    std::string const text = Expand(shape.text);
    if (text.empty() || shape.style.hidden) return;
    Stand const stand{frame(shape.points[0]), ReadableAngle(shape.angle), shape.style.horizontal,
                      shape.style.vertical};
    auto source = MakeText(text, stand, shape.style, looks.Colored(Role::NOTE, shape.style.color));
    source.id = shape.uuid;
    group.texts.push_back(std::move(source));
}

/// The text of a box is broken into lines that fit and set to the side that its style names.
void SheetPictures::DrawBoxText(Shape const& shape, std::string const& id,
                                figkernel::GroupSource& group) {
    dg::DPoint2D const a = frame(shape.points[0]);
    dg::DPoint2D const b = frame(shape.points[1]);
    bool const upright = QuarterTurns(shape.angle) % 2 == 1;
    std::array<double, 4> const margins = MarginsOf(shape);
    double const left = std::min(a.x, b.x) + margins[0];
    double const right = std::max(a.x, b.x) - margins[2];
    double const top = std::max(a.y, b.y) - margins[1];
    double const bottom = std::min(a.y, b.y) + margins[3];
    std::string const text = WrapText(Expand(shape.text), shape.style.height,
                                      std::max(1.0, upright ? top - bottom : right - left));
    if (text.empty()) return;
    int const h = shape.style.horizontal;
    int const v = shape.style.vertical;
    auto const pick = [](int side, double low, double high) {
        return side < 0 ? low : side > 0 ? high : (low + high) / 2;
    };
    Stand stand;
    stand.horizontal = h;
    stand.vertical = v;
    stand.degrees = upright ? 90 : 0;
    stand.at = upright ? dg::DPoint2D(pick(v, left, right), pick(h, bottom, top))
                       : dg::DPoint2D(pick(h, left, right), pick(-v, bottom, top));
    auto source = MakeText(text, stand, shape.style, looks.Colored(Role::NOTE, shape.style.color));
    // The file has one id for a box and its text.
    if (!id.empty()) source.id = id + ".text";
    group.texts.push_back(std::move(source));
}

void SheetPictures::DrawTable(Table const& table, figkernel::GroupSource& group) {
    for (TableCell const& cell : table.cells) {
        if (cell.columnSpan < 1 || cell.rowSpan < 1) continue;  // covered by its neighbour
        Shape box = cell.box;
        bool const lines = table.rowLines || table.columnLines;
        box.stroke = table.lineStroke;
        if (!lines) box.stroke.width = -1;
        DrawShape(box, Role::NOTE, group);
        DrawBoxText(cell.box, cell.uuid, group);
    }
    if (table.cells.empty() || !table.outerBorder) return;
    Point low = table.cells.front().box.points[0];
    Point high = low;
    for (TableCell const& cell : table.cells) {
        for (Point const p : cell.box.points) {
            low = {std::min(low.x, p.x), std::min(low.y, p.y)};
            high = {std::max(high.x, p.x), std::max(high.y, p.y)};
        }
    }
    Shape border;
    border.kind = Shape::RECTANGLE;
    border.uuid = table.uuid;
    border.points = {low, high};
    border.stroke = table.borderStroke;
    DrawShape(border, Role::NOTE, group);
}

EntityPtr MakeImage(std::shared_ptr<std::string const> const& bytes, double scale,
                    dg::DPoint2D const& at, std::string const& file, Findings& findings,
                    ImageResolution resolution) {
    auto const size = ReadImageSize(*bytes, resolution);
    if (!size) {
        findings.Warn("unknown-image", {file, 0, 0},
                      "An image of a kind that can't be shown is drawn as a frame");
    }
    double const half = std::clamp(scale, 0.001, 1000.0) / 2;
    double const w = (size ? size->width : UNKNOWN_IMAGE_SIZE) * half;
    double const h = (size ? size->height : UNKNOWN_IMAGE_SIZE) * half;
    return EntityPtr(new zv2d::Picture(dg::DBox2D(at.x - w, at.y - h, at.x + w, at.y + h),
                                       size ? size->mimeType : std::string(),
                                       size ? bytes : nullptr));
}

void SheetPictures::DrawImage(Image const& image, figkernel::GroupSource& group) {
    bool const isOld = file.version < VERSION_IMAGE_RESOLUTION;
    EntityPtr const picture = MakeImage(
        std::make_shared<std::string const>(image.bytes), image.scale, frame(image.at), file.path,
        findings, isOld ? ImageResolution::DEFAULT : ImageResolution::OWN_OR_DEFAULT);
    group.graphics.push_back(Graphic(image.uuid, "image", {picture}, looks.Colored(Role::NOTE)));
}

void SheetPictures::DrawContent(figkernel::GroupSource& group) {
    for (Image const& image : file.images)
        DrawImage(image, group);
    for (Shape const& shape : file.ruleAreas)
        DrawShape(shape, Role::RULE_AREA, group);
    for (Shape const& shape : file.shapes) {
        if (shape.kind == Shape::TEXT) {
            DrawText(shape, group);
        } else {
            DrawShape(shape, Role::NOTE, group);
            if (shape.kind == Shape::TEXT_BOX) DrawBoxText(shape, shape.uuid, group);
        }
    }
    for (Table const& table : file.tables)
        DrawTable(table, group);
}

void SheetPictures::MarkMissing(SheetSymbol const& symbol, std::string const& reason,
                                figkernel::BlockSource& block) {
    dg::DPoint2D const a = frame(symbol.at);
    dg::DPoint2D const b = frame(symbol.at + symbol.size);
    Stroke stroke;
    stroke.type = Stroke::DASH;
    stroke.width = BUS_WIDTH;
    auto const attributes = LineAttributesOf(stroke);
    auto const settings = looks.Colored(Role::MISSING);
    block.graphics.graphics.push_back(
        Graphic("", "missing",
                {Rectangle(a.x, a.y, b.x, b.y, attributes), MakePolyline({a, b}, attributes),
                 MakePolyline({{a.x, b.y}, {b.x, a.y}}, attributes)},
                settings));
    Stand const stand{{(a.x + b.x) / 2, (a.y + b.y) / 2}, 0, 0, 0};
    block.graphics.texts.push_back(
        MakeText(symbol.GetFile().substr(0, 200) + "\n" + reason, stand, TextStyle(), settings));
    block.attributes.push_back({"MISSING", reason});
}

figkernel::BlockSource SheetPictures::MakeSheetBlock(std::size_t number) {
    SheetSymbol const& symbol = file.sheets[number];
    figkernel::BlockSource block;
    block.id = symbol.uuid;
    block.name = Unescape(Expand(symbol.GetName()));
    Shape box;
    box.kind = Shape::RECTANGLE;
    box.points = {symbol.at, symbol.at + symbol.size};
    box.stroke = symbol.stroke;
    box.fill = symbol.fill;
    std::vector<EntityPtr> outline;
    AppendShape(box, frame, outline);
    block.graphics.graphics.push_back(
        Graphic("", "sheet", outline, looks.Colored(Role::SHEET, symbol.stroke.color)));
    std::string const& reason = hierarchy.sheets[sheet].missing[number];
    if (!reason.empty()) MarkMissing(symbol, reason, block);
    for (Property const& property : symbol.properties) {
        bool const isName = property.name == "Sheet name" || property.name == "Sheetname";
        bool const isFile = property.name == "Sheet file" || property.name == "Sheetfile";
        std::string text = Unescape(Expand(property.value));
        block.attributes.push_back({property.name, text});
        if (text.empty() || property.style.hidden) continue;
        if (isFile) text = "File: " + text;
        Role const role = isName ? Role::SHEET_NAME : isFile ? Role::SHEET_FILE : Role::FIELD;
        Stand const stand{frame(property.at), ReadableAngle(property.angle),
                          property.style.horizontal, property.style.vertical};
        auto label =
            MakeText(text, stand, property.style, looks.Colored(role, property.style.color));
        label.id = symbol.uuid + "." + property.name;
        block.labels.texts.push_back(std::move(label));
    }
    return block;
}

void SheetPictures::DrawGrid(figkernel::FormatSource& format) {
    auto const settings = looks.Colored(Role::FRAME);
    Stroke stroke;
    stroke.width = FRAME_WIDTH;
    auto const attributes = LineAttributesOf(stroke);
    std::vector<EntityPtr> lines;
    double const w = format.width;
    double const h = format.height;
    for (double const m : {OUTER_MARGIN, INNER_MARGIN}) {
        lines.push_back(Rectangle(m, m, w - m, h - m, attributes));
    }
    TextStyle style;
    style.height = TEXT_SIZE;
    double const middle = (OUTER_MARGIN + INNER_MARGIN) / 2;
    auto const reference = [&](std::string const& name, double x, double y) {
        format.graphics.texts.push_back(MakeText(name, {{x, y}, 0, 0, 0}, style, settings));
    };
    for (unsigned i = 0; i < format.columns; ++i) {
        double const x = w * i / format.columns;
        double const centre = w * (i + 0.5) / format.columns;
        for (double const y : {middle, h - middle})
            reference(std::to_string(i + 1), centre, y);
        if (i == 0) continue;
        lines.push_back(MakePolyline({{x, OUTER_MARGIN}, {x, INNER_MARGIN}}, attributes));
        lines.push_back(MakePolyline({{x, h - OUTER_MARGIN}, {x, h - INNER_MARGIN}}, attributes));
    }
    for (unsigned i = 0; i < format.rows; ++i) {
        double const y = h - h * i / format.rows;
        double const centre = h - h * (i + 0.5) / format.rows;
        std::string const name(1, static_cast<char>('A' + i));
        for (double const x : {middle, w - middle})
            reference(name, x, centre);
        if (i == 0) continue;
        lines.push_back(MakePolyline({{OUTER_MARGIN, y}, {INNER_MARGIN, y}}, attributes));
        lines.push_back(MakePolyline({{w - OUTER_MARGIN, y}, {w - INNER_MARGIN, y}}, attributes));
    }
    format.graphics.graphics.push_back(Graphic("", "border", lines, settings));
}

figkernel::FormatSource SheetPictures::MakeFormat() const {
    constexpr double MOST_COLUMNS = 99;
    constexpr double MOST_ROWS = 26;
    figkernel::FormatSource format;
    format.id = "format";
    format.name = file.paper.name;
    format.width = file.paper.width;
    format.height = file.paper.height;
    bool const large = std::min(format.width, format.height) > 4 * INNER_MARGIN;
    if (!large) return format;
    format.columns =
        static_cast<unsigned>(std::clamp(std::round(format.width / GRID_STEP), 1.0, MOST_COLUMNS));
    format.rows =
        static_cast<unsigned>(std::clamp(std::round(format.height / GRID_STEP), 1.0, MOST_ROWS));
    return format;
}

void SheetPictures::DrawFrame(figkernel::SheetSource& out) {
    figkernel::FormatSource format = MakeFormat();
    bool const isLarge = format.columns > 0;
    if (!hierarchy.drawingSheet) {
        // On a sheet of the size of a stamp they would hide what it shows.
        if (isLarge) DrawGrid(format);
        if (isLarge) out.titleBlock = MakeTitleBlock();
    } else {
        figkernel::TitleBlockSource texts;
        texts.id = "title";
        DrawDrawingSheet(hierarchy, sheet, looks, format, texts, findings);
        if (!texts.sections.empty()) out.titleBlock = std::move(texts);
    }
    out.format = std::move(format);
}

/// Rows from the top: comments, company, where the sheet stands, title, and what tells the issue.
figkernel::TitleBlockSource SheetPictures::MakeTitleBlock() const {
    figkernel::TitleBlockSource block;
    block.id = "title";
    block.corner = 1;  // bottom right
    block.offsetX = block.offsetY = INNER_MARGIN;
    block.margin = 1.5;
    block.minWidth = 108;
    block.lineColor = ColorOf(Role::FRAME);
    block.lineWeight = FRAME_WIDTH;
    block.backgroundColor = dg::Color{1, 1, 1, 0};  // that of the sheet
    auto const add = [&](std::string const& text, bool bold = false) {
        figkernel::TitleBlockSectionSource section;
        section.id = static_cast<unsigned>(block.sections.size() + 1);
        section.segments = MakeSegments(hierarchy, sheet, text);
        section.bold = bold;
        section.fontColor = ColorOf(Role::FRAME);
        section.fontSize = bold ? 2 * TEXT_SIZE : TEXT_SIZE;
        section.spacing = 1;
        block.sections.push_back(std::move(section));
    };
    auto const has = [this](std::string const& variable) { return !Expand(variable).empty(); };
    for (int number = 9; number >= 1; --number) {
        std::string const comment = "${COMMENT" + std::to_string(number) + "}";
        if (has(comment)) add(comment);
    }
    if (has("${COMPANY}")) add("${COMPANY}");
    add("Sheet: ${SHEETPATH}");
    add("File: ${FILENAME}");
    if (has("${TITLE}")) add("${TITLE}", true);
    std::string last = "Size: ${PAPER}";
    if (has("${ISSUE_DATE}")) last += "\tDate: ${ISSUE_DATE}";
    if (has("${REVISION}")) last += "\tRev: ${REVISION}";
    add(last + "\tId: ${#}/${##}");
    return block;
}

}  // namespace fighost::kicad
