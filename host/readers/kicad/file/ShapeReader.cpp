#include <cmath>

#include "ItemReaders.h"

namespace fighost::kicad {

namespace {

using View = SExpression::View;

std::optional<Shape::Kind> KindOf(std::string_view key) {
    if (key == "polyline") return Shape::POLYLINE;
    if (key == "rectangle") return Shape::RECTANGLE;
    if (key == "circle") return Shape::CIRCLE;
    if (key == "arc") return Shape::ARC;
    if (key == "bezier") return Shape::BEZIER;
    if (key == "text") return Shape::TEXT;
    if (key == "text_box" || key == "table_cell") return Shape::TEXT_BOX;
    return std::nullopt;
}

bool IsIgnored(std::string_view key) {
    return key == "exclude_from_sim" || key == "span" || key == "locked" || key == "private" ||
           key == "radius" || key == "length" || key == "angles";
}

/// Versions before 7 could give an arc by its centre and radius beside its points.
void ReadArcRadius(NodeReader& reader, View list, Shape& shape) {
    View const at = list.Find("at");
    View const angles = list.Find("angles");
    if (!at || !angles || shape.points.size() >= 3) return;
    Point const centre = reader.GetPoint(at);
    double const radius = reader.Number(list.Find("length").At(1));
    double const from = reader.Number(angles.At(1));
    double const to = reader.Number(angles.At(2));
    shape.points.clear();
    for (double const degrees : {from, (from + to) / 2, to}) {
        double const radians = degrees * 3.14159265358979323846 / 180;
        shape.points.push_back(
            centre + Point{FromMm(radius * std::cos(radians)), FromMm(radius * std::sin(radians))});
    }
}

void ReadCorner(NodeReader& reader, View child, Shape& shape, std::string_view key) {
    std::size_t const place = key == "start" || key == "center" ? 0 : key == "mid" ? 1 : 2;
    if (shape.points.size() <= place) shape.points.resize(place + 1);
    shape.points[place] = reader.GetPoint(child);
}

void ReadMargins(NodeReader& reader, View child, Shape& shape) {
    View word = child.At(1);
    for (double& margin : shape.margins.emplace()) {
        if (!word) break;
        margin = reader.Number(word);
        word = word.Next();
    }
}

void ReadPart(NodeReader& reader, View child, Shape& shape) {
    std::string_view const key = NodeReader::KeywordOf(child);
    if (key == "pts") {
        shape.points = reader.GetPoints(child);
    } else if (key == "start" || key == "mid" || key == "end" || key == "center") {
        ReadCorner(reader, child, shape, key);
    } else if (key == "radius" && shape.kind == Shape::CIRCLE) {
        shape.radius = reader.GetLength(child.At(1));
    } else if (key == "at") {
        if (shape.points.empty()) shape.points.resize(1);
        shape.points[0] = reader.GetPoint(child);
        if (View const angle = child.At(3)) shape.angle = reader.Number(angle);
    } else if (key == "size") {
        if (shape.points.empty()) shape.points.resize(1);
        shape.points.resize(1);
        shape.points.push_back(shape.points[0] + reader.GetPoint(child));
    } else if (key == "stroke") {
        shape.stroke = reader.GetStroke(child);
    } else if (key == "fill") {
        shape.fill = reader.GetFill(child);
    } else if (key == "effects") {
        shape.style = reader.GetEffects(child);
    } else if (key == "margins") {
        ReadMargins(reader, child, shape);
    } else if (key == "uuid") {
        shape.uuid = NodeReader::Text(child);
    } else if (!IsIgnored(key)) {
        reader.WarnUnknown(child, "shape");
    }
}

/// True when all the points that the kind needs are there.
bool IsComplete(Shape const& shape) {
    switch (shape.kind) {
        case Shape::POLYLINE:
            return shape.points.size() >= 2;
        case Shape::RECTANGLE:
            return shape.points.size() == 2;
        case Shape::CIRCLE:
            return shape.points.size() == 1 && shape.radius > 0;
        case Shape::ARC:
            return shape.points.size() == 3;
        case Shape::BEZIER:
            return shape.points.size() == 4;
        case Shape::TEXT:
            return shape.points.size() == 1;
        case Shape::TEXT_BOX:
            return shape.points.size() == 2;
    }
    return false;
}

}  // namespace

std::optional<Shape> ReadShape(NodeReader& reader, View list) {
    auto const kind = KindOf(list.Keyword());
    if (!kind) return std::nullopt;
    Shape shape;
    shape.kind = *kind;
    View child = list.At(1);
    for (; child && !child.IsList(); child = child.Next()) {
        if (child.Raw() == "private" && !child.IsQuoted()) continue;
        if (shape.text.empty()) shape.text = child.Text();
    }
    bool const isArc = shape.kind == Shape::ARC;
    for (; child; child = child.Next()) {
        if (isArc && (child.Keyword() == "at" || child.Keyword() == "radius")) continue;
        ReadPart(reader, child, shape);
    }
    if (shape.kind == Shape::RECTANGLE && shape.points.size() == 3) {
        shape.points.erase(shape.points.begin() + 1);  // start and end, no middle
    }
    if (isArc) ReadArcRadius(reader, list.Find("radius"), shape);
    if (!IsComplete(shape)) {
        reader.Warn("incomplete-shape", list, "This shape lacks points and is left out");
        reader.TakeFailure();
        shape.points.assign(2, {});  // an invisible shape: nothing else refers to it
        shape.kind = Shape::POLYLINE;
    }
    return shape;
}

}  // namespace fighost::kicad
