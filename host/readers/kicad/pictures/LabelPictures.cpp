#include "LabelPictures.h"

#include <algorithm>
#include <cmath>

namespace fighost::kicad {

namespace {

constexpr double TEXT_GAP = 0.15;           // of the text's height, between wire and label
constexpr double FLAG_MARGIN = 0.375;       // of the text's height, between text and flag
constexpr double FLAG_SIGN_SIZE = 0.508;    // mm
constexpr double NO_CONNECT_SIZE = 0.6096;  // mm, half of the cross

using Outline = std::vector<std::pair<double, double>>;

/// The sign of a direction as seen from the wire, in halves of the text's height.
Outline SignOutline(std::string const& shape) {
    if (shape == "input") return {{0, 0}, {1, 1}, {2, 1}, {2, -1}, {1, -1}};
    if (shape == "output") return {{0, 1}, {1, 1}, {2, 0}, {1, -1}, {0, -1}};
    if (shape == "bidirectional" || shape == "tri_state") return {{0, 0}, {1, 1}, {2, 0}, {1, -1}};
    return {{0, 1}, {2, 1}, {2, -1}, {0, -1}};
}

/// What is an input for the sheet around is an output seen from inside its frame.
std::string Opposite(std::string const& type) {
    if (type == "input") return "output";
    return type == "output" ? "input" : type;
}

}  // namespace

LabelPictures::Axis LabelPictures::AxisOf(Point at, int quarterTurns) const {
    static constexpr double COS[] = {1, 0, -1, 0};
    static constexpr double SIN[] = {0, 1, 0, -1};
    Axis axis;
    axis.origin = frame(at);
    axis.along = {COS[quarterTurns], SIN[quarterTurns]};
    axis.across = {-SIN[quarterTurns], COS[quarterTurns]};
    return axis;
}

/// A text that begins `u` along the axis; it reads rightward or upward whichever way that runs.
Stand LabelPictures::StandAlong(Axis const& axis, double u, double v, int vertical) {
    bool const upright = axis.along.x == 0;
    dg::DVec2 const up = upright ? dg::DVec2{-1, 0} : dg::DVec2{0, 1};
    Stand stand;
    stand.at = axis.origin + axis.along * u + up * v;
    stand.degrees = upright ? 90 : 0;
    stand.horizontal = axis.along.x + axis.along.y > 0 ? -1 : 1;
    stand.vertical = vertical;
    return stand;
}

void LabelPictures::AddGraphic(std::string const& id, std::vector<EntityPtr> const& entities,
                               figkernel::SourceIndex settings, figkernel::GroupSource& group) {
    figkernel::GraphicSource graphic;
    graphic.id = id;
    graphic.instances.push_back(MakeInstance(entities));
    graphic.settings = settings;
    group.graphics.push_back(std::move(graphic));
}

void LabelPictures::AddText(std::string const& id, std::string const& text, Stand const& stand,
                            TextStyle const& style, Role role, figkernel::GroupSource& group) {
    if (text.empty() || style.hidden) return;
    auto source = MakeText(text, stand, style, looks.Colored(role, style.color));
    // The file has one id for a flag and its text.
    if (!id.empty()) source.id = id + ".text";
    group.texts.push_back(std::move(source));
}

void LabelPictures::DrawLocal(Label const& label, std::string const& text,
                              figkernel::GroupSource& group) {
    Axis const axis = AxisOf(label.at, label.quarterTurns);
    double const gap = label.style.height * TEXT_GAP + LINE_WIDTH;
    AddText(label.uuid, text, StandAlong(axis, 0, gap, 1), label.style, Role::LABEL, group);
}

void LabelPictures::DrawGlobal(Label const& label, std::string const& text,
                               figkernel::GroupSource& group) {
    Axis const axis = AxisOf(label.at, label.quarterTurns);
    double const height = label.style.height;
    double const half = height * (0.5 + FLAG_MARGIN);
    bool const both = label.shape == "bidirectional" || label.shape == "tri_state";
    double const nearTip = label.shape == "input" || both ? half : 0;
    double const farTip = label.shape == "output" || both ? half : 0;
    double const begin = nearTip + (nearTip > 0 ? 0 : height * FLAG_MARGIN);
    double const end =
        begin + EstimateWidth(text, height) + (farTip > 0 ? 0 : height * FLAG_MARGIN);
    std::vector<dg::DPoint2D> outline{axis.At(nearTip, half), axis.At(end, half)};
    if (farTip > 0) outline.push_back(axis.At(end + farTip, 0));
    outline.push_back(axis.At(end, -half));
    outline.push_back(axis.At(nearTip, -half));
    if (nearTip > 0) outline.push_back(axis.At(0, 0));
    auto const settings = looks.Colored(Role::GLOBAL_LABEL, label.style.color);
    AddGraphic(label.uuid, {MakePolyline(outline, LineAttributesOf(Stroke()), true)}, settings,
               group);
    AddText(label.uuid, text, StandAlong(axis, begin, 0, 0), label.style, Role::GLOBAL_LABEL,
            group);
}

void LabelPictures::DrawSign(std::string const& id, std::string const& shape, Axis const& axis,
                             double size, figkernel::SourceIndex settings,
                             figkernel::GroupSource& group) {
    std::vector<dg::DPoint2D> outline;
    for (auto const& [u, v] : SignOutline(shape))
        outline.push_back(axis.At(u * size, v * size));
    AddGraphic(id, {MakePolyline(outline, LineAttributesOf(Stroke()), true)}, settings, group);
}

void LabelPictures::DrawHierarchical(Label const& label, std::string const& text,
                                     figkernel::GroupSource& group) {
    Axis const axis = AxisOf(label.at, label.quarterTurns);
    double const height = label.style.height;
    DrawSign(label.uuid, label.shape, axis, height / 2,
             looks.Colored(Role::HIERARCHICAL_LABEL, label.style.color), group);
    AddText(label.uuid, text, StandAlong(axis, height * (1 + FLAG_MARGIN), 0, 0), label.style,
            Role::HIERARCHICAL_LABEL, group);
}

void LabelPictures::DrawSheetPin(SheetPin const& pin, std::string const& text,
                                 figkernel::GroupSource& group) {
    Axis const axis = AxisOf(pin.at, (pin.quarterTurns + 2) % 4);
    double const height = pin.style.height;
    DrawSign(pin.uuid, Opposite(pin.type), axis, height / 2,
             looks.Colored(Role::SHEET_PIN, pin.style.color), group);
    AddText(pin.uuid, text, StandAlong(axis, height * (1 + FLAG_MARGIN), 0, 0), pin.style,
            Role::SHEET_PIN, group);
}

void LabelPictures::DrawFlag(Label const& label, figkernel::GroupSource& group) {
    Axis const axis = AxisOf(label.at, (label.quarterTurns + 1) % 4);
    double const size = FLAG_SIGN_SIZE;
    double const stem = std::max(0.0, ToMm(label.length) - size);
    bool const dot = label.shape == "dot";
    Fill fill;
    fill.type = dot ? Fill::OUTLINE : Fill::NONE;
    auto const attributes = ShapeAttributesOf(Stroke(), fill);
    std::vector<EntityPtr> parts;
    parts.push_back(MakePolyline({axis.At(0, 0), axis.At(stem, 0)}, LineAttributesOf(Stroke())));
    if (label.shape == "diamond") {
        parts.push_back(MakePolyline({axis.At(stem, 0), axis.At(stem + size, size),
                                      axis.At(stem + 2 * size, 0), axis.At(stem + size, -size)},
                                     attributes, true));
    } else if (label.shape == "rectangle") {
        parts.push_back(MakePolyline({axis.At(stem, size), axis.At(stem + 2 * size, size),
                                      axis.At(stem + 2 * size, -size), axis.At(stem, -size)},
                                     attributes, true));
    } else {
        double const radius = dot ? size / 2 : size;
        parts.push_back(MakeCircle(axis.At(stem + radius, 0), radius, attributes));
    }
    AddGraphic(label.uuid, parts, looks.Colored(Role::FLAG, label.style.color), group);
    for (Property const& property : label.properties) {
        if (property.value.empty() || property.style.hidden) continue;
        Stand const stand{frame(property.at), ReadableAngle(property.angle),
                          property.style.horizontal, property.style.vertical};
        AddText(label.uuid + "." + property.name, property.value, stand, property.style,
                Role::FIELD, group);
    }
}

void LabelPictures::DrawJunction(Junction const& junction, bool onBus,
                                 figkernel::GroupSource& group) {
    double const diameter = junction.diameter > 0 ? junction.diameter : JUNCTION_SIZE;
    Stroke stroke;
    stroke.width = -1;
    Fill fill;
    fill.type = Fill::OUTLINE;
    AddGraphic(junction.uuid,
               {MakeCircle(frame(junction.at), diameter / 2, ShapeAttributesOf(stroke, fill))},
               looks.Colored(onBus ? Role::BUS : Role::WIRE, junction.color), group);
}

void LabelPictures::DrawNoConnect(NoConnect const& mark, figkernel::GroupSource& group) {
    dg::DPoint2D const at = frame(mark.at);
    double const s = NO_CONNECT_SIZE;
    auto const attributes = LineAttributesOf(Stroke());
    AddGraphic(mark.uuid,
               {MakePolyline({{at.x - s, at.y - s}, {at.x + s, at.y + s}}, attributes),
                MakePolyline({{at.x - s, at.y + s}, {at.x + s, at.y - s}}, attributes)},
               looks.Colored(Role::NO_CONNECT), group);
}

void LabelPictures::DrawEntry(BusEntry const& entry, figkernel::GroupSource& group) {
    AddGraphic(
        entry.uuid,
        {MakePolyline({frame(entry.at), frame(entry.GetEnd())}, LineAttributesOf(entry.stroke))},
        looks.Colored(Role::WIRE, entry.stroke.color), group);
}

}  // namespace fighost::kicad
