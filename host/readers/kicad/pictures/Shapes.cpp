#include <readers/kicad/pictures/Shapes.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

#include <dg/CircularArc.h>
#include <du/Utf8.h>
#include <readers/kicad/design/Texts.h>
#include <zv2d/CircularArc.h>
#include <zv2d/TexPolyline.h>
#include <zv2d/Text.h>

namespace fighost::kicad {

namespace {

using Attributes = du::ConstSmartPtr<zv2d::Attributes>;

std::vector<dg::DPoint2D> Convert(std::vector<Point> const& points, Frame const& frame) {
    std::vector<dg::DPoint2D> result;
    result.reserve(points.size());
    for (Point const p : points)
        result.push_back(frame(p));
    return result;
}

EntityPtr MakeBox(Point a, Point b, Frame const& frame, Attributes const& attributes) {
    return MakePolyline(Convert({a, {b.x, a.y}, b, {a.x, b.y}}, frame), attributes, true);
}

std::optional<dg::CircularArc<double, 2>> ArcThrough(std::vector<dg::DPoint2D> const& p) {
    double const ax = p[1].x - p[0].x, ay = p[1].y - p[0].y;
    double const bx = p[2].x - p[0].x, by = p[2].y - p[0].y;
    double const cross = ax * by - ay * bx;
    if (std::abs(cross) < 1e-9) return std::nullopt;
    double const a2 = ax * ax + ay * ay, b2 = bx * bx + by * by;
    dg::DPoint2D const centre(p[0].x + (by * a2 - ay * b2) / (2 * cross),
                              p[0].y + (ax * b2 - bx * a2) / (2 * cross));
    double const radius = std::hypot(p[0].x - centre.x, p[0].y - centre.y);
    double from = std::atan2(p[0].y - centre.y, p[0].x - centre.x);
    double to = std::atan2(p[2].y - centre.y, p[2].x - centre.x);
    if (cross < 0) std::swap(from, to);  // the points run clockwise
    if (to <= from) to += 2 * std::numbers::pi;
    return dg::CircularArc<double, 2>(centre, radius, from, to);
}

/// The arc through three points; a straight line when they lie on one.
void AppendArc(Shape const& shape, Frame const& frame, std::vector<EntityPtr>& entities) {
    auto const points = Convert(shape.points, frame);
    auto const arc = ArcThrough(points);
    if (!arc) return entities.push_back(MakePolyline(points, LineAttributesOf(shape.stroke)));
    if (shape.fill.type != Fill::NONE) {
        Stroke none;
        none.width = -1;
        entities.emplace_back(new zv2d::CircularArc(*arc, zv2d::CircularArc::SECTOR,
                                                    ShapeAttributesOf(none, shape.fill)));
    }
    entities.emplace_back(
        new zv2d::CircularArc(*arc, zv2d::CircularArc::OPEN, LineAttributesOf(shape.stroke)));
}

EntityPtr MakeCurve(std::vector<Point> const& points, Frame const& frame,
                    Attributes const& attributes) {
    constexpr int PIECES = 32;
    auto const p = Convert(points, frame);
    std::vector<dg::DPoint2D> line;
    for (int i = 0; i <= PIECES; ++i) {
        double const t = static_cast<double>(i) / PIECES, s = 1 - t;
        double const w[] = {s * s * s, 3 * s * s * t, 3 * s * t * t, t * t * t};
        line.emplace_back(w[0] * p[0].x + w[1] * p[1].x + w[2] * p[2].x + w[3] * p[3].x,
                          w[0] * p[0].y + w[1] * p[1].y + w[2] * p[2].y + w[3] * p[3].y);
    }
    return MakePolyline(std::move(line), attributes);
}

/// Parts of the height of capitals; a little generous, since flags are drawn around texts.
double CharacterWidth(char c) {
    static constexpr std::string_view NARROW = "iIjl.,:;'|!()[]{} ";
    static constexpr std::string_view WIDE = "mwMW@%";
    if (NARROW.find(c) != std::string_view::npos) return 0.5;
    if (WIDE.find(c) != std::string_view::npos) return 1.3;
    return c >= 'A' && c <= 'Z' ? 0.97 : 0.9;
}

bool IsCharacterStart(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
}

}  // namespace

EntityPtr MakePolyline(std::vector<dg::DPoint2D> points, Attributes const& attributes,
                       bool closed) {
    return EntityPtr(new zv2d::TexPolyline(std::move(points), attributes, closed));
}

EntityPtr MakeCircle(dg::DPoint2D const& centre, double radius, Attributes const& attributes) {
    dg::CircularArc<double, 2> const arc(centre, radius, 0, 2 * std::numbers::pi);
    return EntityPtr(new zv2d::CircularArc(arc, zv2d::CircularArc::OPEN, attributes));
}

void AppendShape(Shape const& shape, Frame const& frame, std::vector<EntityPtr>& entities) {
    if (shape.kind == Shape::TEXT) return;
    if (shape.kind == Shape::ARC) return AppendArc(shape, frame, entities);
    Attributes const attributes = ShapeAttributesOf(shape.stroke, shape.fill);
    switch (shape.kind) {
        case Shape::RECTANGLE:
        case Shape::TEXT_BOX:
            return entities.push_back(MakeBox(shape.points[0], shape.points[1], frame, attributes));
        case Shape::CIRCLE:
            return entities.push_back(
                MakeCircle(frame(shape.points[0]), ToMm(shape.radius), attributes));
        case Shape::BEZIER:
            return entities.push_back(MakeCurve(shape.points, frame, attributes));
        default:
            entities.push_back(MakePolyline(Convert(shape.points, frame), attributes));
    }
}

du::SmartPtr<zv2d::Instance> MakeInstance(std::vector<EntityPtr> const& entities) {
    du::SmartPtr<zv2d::Definition> definition(new zv2d::Definition);
    for (EntityPtr const& entity : entities)
        definition->Add(entity);
    return du::SmartPtr<zv2d::Instance>(new zv2d::Instance(definition));
}

figkernel::TextSource MakeText(std::string const& text, Stand const& stand, TextStyle const& style,
                               figkernel::SourceIndex settings) {
    static constexpr int ROW_OF_VERTICAL[] = {6, 3, 0};  // top, middle, bottom
    auto const alignment = static_cast<zv2d::Text::Alignment>(ROW_OF_VERTICAL[stand.vertical + 1] +
                                                              stand.horizontal + 1);
    double const height = std::clamp(style.height, 0.01, 1000.0);
    attrs::TextAttr const font(du::Symbol(style.face), static_cast<float>(height), style.bold,
                               style.italic);
    EntityPtr const entity(new zv2d::Text(dg::DPoint2D(), du::Utf8ToWideStr(text), true, alignment,
                                          true, zv2d::Attributes::Get(zv2d::Attributes(font))));
    figkernel::TextSource source;
    source.text = WithoutMarkup(text);
    source.instance = MakeInstance({entity});
    dg::DMat33 matrix = dg::DMat33::RotationZ(stand.degrees * std::numbers::pi / 180);
    matrix.SetTranslation(stand.at);
    source.instance->SetMatrix(matrix);
    source.settings = settings;
    return source;
}

double EstimateWidth(std::string_view text, double height) {
    double widest = 0;
    double width = 0;
    for (char const c : WithoutMarkup(text)) {
        if (c == '\n') {
            widest = std::max(widest, width);
            width = 0;
        } else if (IsCharacterStart(c)) {
            width += CharacterWidth(c);
        }
    }
    return std::max(widest, width) * height;
}

std::string WrapText(std::string_view text, double height, double width) {
    std::string result;
    double used = 0;
    std::size_t at = 0;
    while (at < text.size()) {
        std::size_t const end = std::min(text.find_first_of(" \n", at), text.size());
        std::string_view const word = text.substr(at, end - at);
        double const wordWidth = EstimateWidth(word, height);
        if (used > 0 && used + wordWidth > width) {
            if (!result.empty() && result.back() == ' ') result.back() = '\n';
            used = 0;
        }
        result += word;
        used += wordWidth;
        if (end < text.size()) {
            result += text[end];
            used = text[end] == '\n' ? 0 : used + EstimateWidth(" ", height);
        }
        at = end + 1;
    }
    return result;
}

double ReadableAngle(double degrees) {
    double angle = std::fmod(degrees, 180);
    if (angle < -1e-6) angle += 180;
    return angle > 90 + 1e-6 ? angle - 180 : std::max(0.0, angle);
}

}  // namespace fighost::kicad
