#include <host/ShapeRecorder.h>

#include <painters/PaintFigure.h>

#include <cstdio>

namespace fighost::test {

namespace {

std::string Number(double value) {
    char text[40];
    std::snprintf(text, sizeof(text), " %.6f", value);
    return text;
}

}  // namespace

void ShapeRecorder::BeginItem(PaintedItem const& item) {
    current_ = {};
    current_.item = std::string(item.type) + " " + std::string(item.id);
    current_.net = item.net;
    current_.highlighted = item.highlighted;
}

void ShapeRecorder::Add(std::string geometry, Paint const& paint) {
    RecordedShape shape = current_;
    geometry += Number(paint.stroke.width);
    for (double dash : paint.stroke.dashes)
        geometry += Number(dash);
    shape.geometry = geometry + (paint.fill.filled ? " filled" : "");
    if (paint.stroke.width > 0) shape.inks.push_back(paint.stroke.color);
    if (paint.fill.filled) shape.fills.push_back(paint.fill.color);
    shapes.push_back(shape);
}

void ShapeRecorder::Polyline(std::vector<dg::DPoint2D> const& points, bool closed,
                             Paint const& paint) {
    std::string geometry = closed ? "area" : "line";
    for (dg::DPoint2D const& point : points)
        geometry += Number(point.x) + Number(point.y);
    Add(geometry, paint);
}

void ShapeRecorder::Arc(dg::DPoint2D const& centre, double radius, double start, double end,
                        Paint const& paint) {
    Add("arc" + Number(centre.x) + Number(centre.y) + Number(radius) + Number(start) + Number(end),
        paint);
}

void ShapeRecorder::Text(PaintedText const& text) {
    RecordedShape shape = current_;
    shape.geometry = "text" + Number(text.anchor.x) + Number(text.anchor.y) + Number(text.angle) +
                     Number(text.style.height);
    for (TextRun const& run : text.layout.runs)
        shape.geometry += " " + run.text;
    shape.inks.push_back(text.color);
    shapes.push_back(shape);
}

void ShapeRecorder::Picture(PaintedPicture const& picture) {
    RecordedShape shape = current_;
    shape.geometry = "picture " + std::to_string(picture.data.size());
    shapes.push_back(shape);
}

ShapeRecorder Record(figrep::SmartPtr<figrep::Figure> const& figure) {
    ShapeRecorder recorder;
    PaintFigure(figure, recorder);
    return recorder;
}

std::vector<std::string> Geometry(std::vector<RecordedShape> const& shapes) {
    std::vector<std::string> lines;
    for (RecordedShape const& shape : shapes)
        lines.push_back(shape.item + ": " + shape.geometry);
    return lines;
}

}  // namespace fighost::test
