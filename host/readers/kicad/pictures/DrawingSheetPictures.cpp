#include "DrawingSheetPictures.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include <readers/kicad/design/Texts.h>
#include <readers/kicad/design/Variables.h>

#include "SheetPictures.h"

namespace fighost::kicad {

namespace {

using Item = DrawingSheetItem;

constexpr double SLACK = 0.001;  // mm, by which a copy may stand beyond the margins
constexpr double LEAST_TEXT = 0.01;
constexpr double LARGEST_TEXT = 1000;

class DrawingSheetPainter {
public:
    DrawingSheetPainter(Hierarchy const& hierarchy, std::uint32_t sheet, Looks& looks,
                        figkernel::FormatSource& format, figkernel::TitleBlockSource& titleBlock,
                        Findings& findings)
        : hierarchy_(hierarchy),
          sheet_(sheet),
          drawing_(*hierarchy.drawingSheet),
          looks_(looks),
          format_(format),
          titleBlock_(titleBlock),
          findings_(findings) {}

    void Draw() {
        for (Item const& item : drawing_.items) {
            bool const isFirst = sheet_ == 0;
            if (item.pages == (isFirst ? Item::OTHER_PAGES : Item::FIRST_PAGE)) continue;
            if (item.kind == Item::TEXT) {
                DrawTexts(item);
            } else {
                DrawShapes(item);
            }
        }
    }

private:
    dg::DPoint2D At(CornerPoint const& point, Item const& item, unsigned copy) const {
        double const x = point.x + copy * item.stepX;
        double const y = point.y + copy * item.stepY;
        return {
            point.fromLeft ? drawing_.leftMargin + x : format_.width - drawing_.rightMargin - x,
            point.fromTop ? format_.height - drawing_.topMargin - y : drawing_.bottomMargin + y};
    }

    bool IsWithinMargins(dg::DPoint2D const& at) const {
        return at.x >= drawing_.leftMargin - SLACK &&
               at.x <= format_.width - drawing_.rightMargin + SLACK &&
               at.y >= drawing_.bottomMargin - SLACK &&
               at.y <= format_.height - drawing_.topMargin + SLACK;
    }

    /// The first is drawn wherever it stands. Copies that don't move would hide one another.
    unsigned CountCopies(Item const& item) const {
        if (item.stepX == 0 && item.stepY == 0) return 1;
        bool const hasEnd = item.kind == Item::LINE || item.kind == Item::RECTANGLE;
        unsigned count = 1;
        while (count < item.repeat && IsWithinMargins(At(item.start, item, count)) &&
               (!hasEnd || IsWithinMargins(At(item.end, item, count)))) {
            ++count;
        }
        return count;
    }

    void DrawShapes(Item const& item) {
        Stroke stroke;
        stroke.width = item.lineWidth > 0 ? item.lineWidth : drawing_.lineWidth;
        std::vector<EntityPtr> entities;
        unsigned const count = CountCopies(item);
        for (unsigned copy = 0; copy < count; ++copy) {
            dg::DPoint2D const start = At(item.start, item, copy);
            dg::DPoint2D const end = At(item.end, item, copy);
            switch (item.kind) {
                case Item::LINE:
                    entities.push_back(MakePolyline({start, end}, LineAttributesOf(stroke)));
                    break;
                case Item::RECTANGLE:
                    entities.push_back(
                        MakePolyline({start, {end.x, start.y}, end, {start.x, end.y}},
                                     LineAttributesOf(stroke), true));
                    break;
                case Item::POLYGON:
                    AppendPolygons(item, start, entities);
                    break;
                default:
                    entities.push_back(MakePicture(item, start));
            }
        }
        if (entities.empty()) return;
        figkernel::GraphicSource graphic;
        graphic.name = item.name.empty() ? "drawing sheet" : item.name;
        graphic.instances.push_back(MakeInstance(entities));
        graphic.settings = looks_.Colored(Role::FRAME);
        format_.graphics.graphics.push_back(std::move(graphic));
    }

    static void AppendPolygons(Item const& item, dg::DPoint2D const& at,
                               std::vector<EntityPtr>& entities) {
        Stroke stroke;
        stroke.width = item.lineWidth > 0 ? item.lineWidth : -1;
        Fill fill;
        fill.type = Fill::OUTLINE;
        double const turn = item.angle * std::numbers::pi / 180;
        for (auto const& outline : item.outlines) {
            if (outline.size() < 3) continue;
            std::vector<dg::DPoint2D> points;
            for (dg::DPoint2D const& point : outline) {
                double const up = -point.y;
                points.push_back({at.x + point.x * std::cos(turn) - up * std::sin(turn),
                                  at.y + point.x * std::sin(turn) + up * std::cos(turn)});
            }
            entities.push_back(
                MakePolyline(std::move(points), ShapeAttributesOf(stroke, fill), true));
        }
    }

    EntityPtr MakePicture(Item const& item, dg::DPoint2D const& at) {
        static auto const NOTHING = std::make_shared<std::string const>();
        auto const& bytes = item.bytes ? item.bytes : NOTHING;
        return MakeImage(bytes, item.scale, at, drawing_.path, findings_);
    }

    void DrawTexts(Item const& item) {
        bool const hasVariables = item.text.find("${") != std::string::npos;
        unsigned const count = CountCopies(item);
        for (unsigned copy = 0; copy < count; ++copy) {
            if (hasVariables) {
                AddSection(item, At(item.start, item, copy));
            } else {
                DrawPlainText(item, item.LabelOf(copy), At(item.start, item, copy));
            }
        }
        if (!hasVariables) TakeAsGrid(item, count);
    }

    void DrawPlainText(Item const& item, std::string const& text, dg::DPoint2D const& at) {
        if (text.empty()) return;
        TextStyle style = item.style;
        double const width = EstimateWidth(text, style.height);
        if (item.greatestWidth > 0 && width > item.greatestWidth) {
            style.height *= item.greatestWidth / width;
        }
        auto source = MakeText(text, {at, item.angle, style.horizontal, style.vertical}, style,
                               looks_.Colored(Role::FRAME, style.color));
        format_.graphics.texts.push_back(std::move(source));
    }

    void AddSection(Item const& item, dg::DPoint2D const& at) {
        figkernel::TitleBlockSectionSource section;
        section.id = static_cast<unsigned>(titleBlock_.sections.size() + 1);
        section.segments = MakeSegments(hierarchy_, sheet_, item.text);
        section.alignment = item.style.horizontal + 1;
        section.bold = item.style.bold;
        section.italic = item.style.italic;
        section.fontColor = item.style.color ? *item.style.color : ColorOf(Role::FRAME);
        section.fontSize = std::clamp(item.style.height, LEAST_TEXT, LARGEST_TEXT);
        figkernel::TextPlaceSource place;
        place.at = at;
        place.angle = item.angle * std::numbers::pi / 180;
        place.vertical = 1 - item.style.vertical;
        place.greatestWidth = std::max(item.greatestWidth, 0.0);
        place.greatestHeight = std::max(item.greatestHeight, 0.0);
        place.font = item.style.face;
        section.place = std::move(place);
        titleBlock_.sections.push_back(std::move(section));
    }

    static bool IsGridLabel(Item const& item) {
        if (item.repeat < 2 || item.labelStep == 0 || item.text.empty()) return false;
        bool const isNumber = std::all_of(item.text.begin(), item.text.end(),
                                          [](char c) { return c >= '0' && c <= '9'; });
        return isNumber || (item.text.size() == 1 && item.LabelOf(1) != item.text);
    }

    void TakeAsGrid(Item const& item, unsigned count) {
        bool const alongX = item.stepX != 0;
        if (!IsGridLabel(item) || alongX == (item.stepY != 0)) return;
        auto& cells = alongX ? format_.columnCells : format_.rowCells;
        if (!cells.empty()) return;  // the same labels stand at the opposite edge
        std::vector<std::pair<double, std::string>> labels;  // by distance from left or top
        for (unsigned copy = 0; copy < count; ++copy) {
            dg::DPoint2D const at = At(item.start, item, copy);
            labels.emplace_back(alongX ? at.x : format_.height - at.y, item.LabelOf(copy));
        }
        std::sort(labels.begin(), labels.end());
        for (std::size_t i = 0; i < labels.size(); ++i) {
            double const next = labels[std::min(i + 1, labels.size() - 1)].first;
            cells.push_back({labels[i].second, (labels[i].first + next) / 2});
        }
    }

    Hierarchy const& hierarchy_;
    std::uint32_t sheet_;
    DrawingSheet const& drawing_;
    Looks& looks_;
    figkernel::FormatSource& format_;
    figkernel::TitleBlockSource& titleBlock_;
    Findings& findings_;
};

}  // namespace

void DrawDrawingSheet(Hierarchy const& hierarchy, std::uint32_t sheet, Looks& looks,
                      figkernel::FormatSource& format, figkernel::TitleBlockSource& titleBlock,
                      Findings& findings) {
    if (!hierarchy.drawingSheet) return;
    DrawingSheetPainter(hierarchy, sheet, looks, format, titleBlock, findings).Draw();
}

std::vector<figkernel::TitleBlockSegmentSource> MakeSegments(Hierarchy const& hierarchy,
                                                             std::uint32_t sheet,
                                                             std::string_view text) {
    constexpr int PLAIN = 0;
    constexpr int TOKEN = 1;
    std::vector<figkernel::TitleBlockSegmentSource> segments;
    auto const addPlain = [&](std::string_view run) {
        if (!run.empty()) segments.push_back({PLAIN, "", true, std::string(run)});
    };
    for (;;) {
        std::size_t const begin = text.find("${");
        std::size_t const end = begin == std::string_view::npos ? begin : text.find('}', begin);
        if (end == std::string_view::npos) break;
        addPlain(text.substr(0, begin));
        std::string_view const variable = text.substr(begin, end + 1 - begin);
        segments.push_back({TOKEN, std::string(variable.substr(2, variable.size() - 3)), true,
                            ExpandOnSheet(hierarchy, sheet, variable)});
        text.remove_prefix(end + 1);
    }
    addPlain(text);
    return segments;
}

}  // namespace fighost::kicad
