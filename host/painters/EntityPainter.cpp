#include <painters/EntityPainter.h>

#include <zv2d/Attributes.h>
#include <zv2d/CircularArc.h>
#include <zv2d/Definition.h>
#include <zv2d/LineStyle.h>
#include <zv2d/Picture.h>
#include <zv2d/TexPolyline.h>
#include <zv2d/Text.h>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace fighost {

namespace {

constexpr double PI = std::numbers::pi;
constexpr double SIMILARITY_TOLERANCE = 1e-9;  // of lengths, relative
constexpr int STEPS_PER_TURN = 96;             // of an arc drawn as a polyline

struct Axes {
    dg::DVec2 x;
    dg::DVec2 y;
};

Axes AxesOf(dg::DMat33 const& matrix) {
    return {matrix * dg::DVec2(1, 0), matrix * dg::DVec2(0, 1)};
}

double Determinant(Axes const& axes) {
    return axes.x.x * axes.y.y - axes.x.y * axes.y.x;
}

double DirectionOf(dg::DVec2 const& vector) {
    return std::atan2(vector.y, vector.x);
}

// Whether lengths are scaled alike in all directions, so that a circle stays one.
bool IsSimilarity(Axes const& axes) {
    double const x = axes.x.Norm();
    double const y = axes.y.Norm();
    double const skew = axes.x.x * axes.y.x + axes.x.y * axes.y.y;
    return std::abs(x - y) <= SIMILARITY_TOLERANCE * x &&
           std::abs(skew) <= SIMILARITY_TOLERANCE * x * y;
}

// Text that reads from right to left or straight down is upside down.
bool ReadsUpsideDown(double angle) {
    constexpr double SLACK = 1e-6;
    return angle > PI / 2 + SLACK || angle <= -PI / 2 + SLACK;
}

bool Shows(Paint const& paint) {
    return paint.fill.filled || paint.stroke.width > 0;
}

bool Replaces(attrs::FillAttr const* chosen, attrs::FillAttr const& own) {
    if (!chosen || chosen->GetKind() == attrs::FillAttr::NONE) return false;
    return chosen->GetKind() != attrs::FillAttr::BODY || own.GetKind() == attrs::FillAttr::BODY;
}

dg::Color FillColor(attrs::FillAttr const& own, GraphicLook const& look) {
    if (own.GetKind() == attrs::FillAttr::OUTLINE) return look.color;
    if (look.ground && own.GetKind() == attrs::FillAttr::BODY) return *look.ground;
    attrs::FillAttr const& fill = Replaces(look.fill.Get(), own) ? *look.fill : own;
    return fill.GetKind() == attrs::FillAttr::OUTLINE ? look.color : fill.GetColor();
}

template <typename Alignment>
Alignment Opposite(Alignment alignment) {
    return static_cast<Alignment>(2 - static_cast<int>(alignment));
}

}  // namespace

bool IsBody(zv2d::Entity const& entity) {
    zv2d::Attributes const* attributes = entity.GetAttributes().Get();
    return attributes && attributes->GetFillAttr() &&
           attributes->GetFillAttr()->GetKind() == attrs::FillAttr::BODY;
}

void EntityPainter::Paint(zv2d::Instance const& instance, GraphicLook const& look, PaintPass pass) {
    if (!instance.GetDefinition()) return;
    pass_ = pass;
    matrix_ = instance.GetMatrix();
    instanceAttributes_ = instance.GetAttributes().Get();
    look_ = &look;
    for (auto const& entity : *instance.GetDefinition()) {
        if (pass != PaintPass::BODIES || IsBody(*entity)) entity->Accept(*this);
    }
}

zv2d::LineAttributes const* EntityPainter::LineOf(zv2d::Attributes const* own) const {
    auto counts = [](zv2d::LineAttributes const* line) {
        return line && line->GetWeightKind() == zv2d::LineAttributes::KIND_DRAWING;
    };
    zv2d::LineAttributes const* const candidates[] = {
        own ? own->GetLineAttributes().Get() : nullptr,
        instanceAttributes_ ? instanceAttributes_->GetLineAttributes().Get() : nullptr,
        look_->line.Get()};
    for (zv2d::LineAttributes const* line : candidates) {
        if (counts(line)) return line;
    }
    return nullptr;
}

fighost::Stroke EntityPainter::StrokeOf(zv2d::Attributes const* own) const {
    Stroke stroke;
    stroke.color = look_->color;
    stroke.width = HAIRLINE;
    zv2d::LineAttributes const* line = LineOf(own);
    if (line) {
        if (std::isfinite(line->GetWeight()) && line->GetWeight() > 0) {
            stroke.width = static_cast<double>(line->GetWeight());
        }
        for (double length : line->GetLineStyle()->GetPattern()) {
            stroke.dashes.push_back(length * stroke.width);
        }
    }
    stroke.width += look_->halo;
    return stroke;
}

fighost::Fill EntityPainter::FillOf(zv2d::Attributes const* own) const {
    attrs::FillAttr const* fill = nullptr;
    if (own && own->GetFillAttr())
        fill = own->GetFillAttr().Get();
    else if (instanceAttributes_)
        fill = instanceAttributes_->GetFillAttr().Get();
    if (!fill || fill->GetKind() == attrs::FillAttr::NONE) return {};
    dg::Color const color = FillColor(*fill, *look_);
    return {color.a > 0, color, fill->GetKind() != attrs::FillAttr::OUTLINE};
}

fighost::Paint EntityPainter::PaintOf(zv2d::Entity const& entity) const {
    zv2d::Attributes const* own = entity.GetAttributes().Get();
    fighost::Paint paint{StrokeOf(own), FillOf(own)};
    zv2d::LineAttributes const* line = own ? own->GetLineAttributes().Get() : nullptr;
    bool const withoutWidth = line && line->GetWeightKind() == zv2d::LineAttributes::KIND_DRAWING &&
                              !(line->GetWeight() > 0);
    if (paint.fill.filled && withoutWidth) paint.stroke.width = 0;
    if (pass_ == PaintPass::BODIES) paint.stroke.width = 0;
    if (pass_ == PaintPass::ALL_BUT_BODIES && IsBody(entity)) paint.fill.filled = false;
    return paint;
}

void EntityPainter::Visit(zv2d::TexPolyline const& polyline) {
    std::vector<dg::DPoint2D> points;
    points.reserve(polyline.GetVertices().size());
    for (dg::DPoint2D const& vertex : polyline.GetVertices()) {
        dg::DPoint2D const point = matrix_ * vertex;
        if (points.empty() || !(points.back() == point)) points.push_back(point);
    }
    // Wires without length hold connectivity together and show nothing.
    fighost::Paint const paint = PaintOf(polyline);
    if (points.size() >= 2 && Shows(paint)) painter_.Polyline(points, polyline.IsClosed(), paint);
}

void EntityPainter::Visit(zv2d::CircularArc const& entity) {
    Axes const axes = AxesOf(matrix_);
    if (!IsSimilarity(axes) || entity.GetStyle() != zv2d::CircularArc::OPEN) {
        return PaintArcAsPolyline(entity);
    }
    dg::CircularArc<double, 2> const& arc = entity.GetArc();
    double const sweep = arc.GetSweep();
    double const turn = DirectionOf(axes.x);
    bool const mirrored = Determinant(axes) < 0;
    // Mirrored, the arc runs the other way round, so that its end becomes its start.
    double const start = mirrored ? turn - arc.GetStartAngle() - sweep : turn + arc.GetStartAngle();
    fighost::Paint const paint = PaintOf(entity);
    if (!Shows(paint)) return;
    painter_.Arc(matrix_ * arc.GetCentre(), arc.GetRadius() * axes.x.Norm(), start, start + sweep,
                 paint);
}

void EntityPainter::PaintArcAsPolyline(zv2d::CircularArc const& entity) {
    dg::CircularArc<double, 2> const& arc = entity.GetArc();
    double const sweep = arc.GetSweep();
    if (!std::isfinite(sweep)) return;
    bool const whole = sweep >= 2 * PI - 1e-9;
    int const steps = std::max(4, static_cast<int>(std::ceil(STEPS_PER_TURN * sweep / (2 * PI))));
    std::vector<dg::DPoint2D> points;
    for (int i = 0; i <= steps - (whole ? 1 : 0); ++i) {
        double const angle = arc.GetStartAngle() + sweep * i / steps;
        dg::DVec2 const spoke(std::cos(angle) * arc.GetRadius(), std::sin(angle) * arc.GetRadius());
        points.push_back(matrix_ * (arc.GetCentre() + spoke));
    }
    bool const sector = entity.GetStyle() == zv2d::CircularArc::SECTOR && !whole;
    if (sector) points.push_back(matrix_ * arc.GetCentre());
    bool const closed = whole || entity.GetStyle() != zv2d::CircularArc::OPEN;
    fighost::Paint const paint = PaintOf(entity);
    if (Shows(paint)) painter_.Polyline(points, closed, paint);
}

// A mirrored text is not drawn mirrored: it keeps the place that the matrix gives it, so above
// becomes below, and an upside-down one is turned, which swaps both alignments.
void EntityPainter::Visit(zv2d::Text const& text) {
    attrs::TextAttr const& attr = text.GetTextAttr();
    Axes const axes = AxesOf(matrix_);
    PaintedText painted;
    painted.anchor = matrix_ * text.GetPosition();
    painted.angle = DirectionOf(axes.x);
    painted.color = look_->color;
    painted.style = {attr.GetFont().GetString(),
                     static_cast<double>(attr.GetHeight()) * axes.y.Norm(), attr.IsBold(),
                     attr.IsItalic()};
    auto horizontal = static_cast<HorizontalAlignment>(text.GetAlignment() % 3);
    auto vertical = static_cast<VerticalAlignment>(text.GetAlignment() / 3);
    if (Determinant(axes) < 0) vertical = Opposite(vertical);
    if (text.IsUpright() && ReadsUpsideDown(painted.angle)) {
        painted.angle += painted.angle > 0 ? -PI : PI;
        horizontal = Opposite(horizontal);
        vertical = Opposite(vertical);
    }
    painted.layout =
        LayOutText(text.GetText(), text.HasMarkup(), horizontal, vertical, painted.style);
    painter_.Text(painted);
}

void EntityPainter::Visit(zv2d::Picture const& picture) {
    dg::DBox2D const& box = picture.GetBox();
    bool const shown = picture.GetBytes() && !picture.GetBytes()->empty();
    if (!shown) {
        std::vector<dg::DPoint2D> const frame = {
            matrix_ * dg::DPoint2D(box[0], box[1]), matrix_ * dg::DPoint2D(box[2], box[1]),
            matrix_ * dg::DPoint2D(box[2], box[3]), matrix_ * dg::DPoint2D(box[0], box[3])};
        return painter_.Polyline(frame, true, PaintOf(picture));
    }
    dg::DMat33 place = dg::DMat33::Scale(box[2] - box[0], box[3] - box[1]);
    place.SetTranslation(dg::DPoint2D(box[0], box[1]));
    painter_.Picture({matrix_ * place, picture.GetMimeType(), *picture.GetBytes()});
}

}  // namespace fighost
