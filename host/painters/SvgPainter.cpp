#include <painters/SvgPainter.h>

#include <painters/Base64.h>
#include <painters/HexColor.h>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <numbers>

namespace fighost {

namespace {

constexpr double FULL_TURN = 2 * std::numbers::pi;
constexpr double DEGREES = 180 / std::numbers::pi;
constexpr char const* DEFAULT_FONTS = "DejaVu Sans, Verdana, Helvetica, sans-serif";

bool IsFinite(dg::DPoint2D const& point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

bool IsNameCharacter(char c) {
    bool const letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    return letter || (c >= '0' && c <= '9') || c == '_' || c == '-' || c == '.';
}

bool NeedsPreservedSpace(std::string const& text) {
    return text.front() == ' ' || text.back() == ' ' || text.find("  ") != std::string::npos;
}

char const* AnchorName(HorizontalAlignment alignment) {
    if (alignment == HorizontalAlignment::LEFT) return "start";
    return alignment == HorizontalAlignment::CENTRE ? "middle" : "end";
}

// The x on which `AnchorName` of the same alignment acts.
double AnchorX(TextRun const& run, HorizontalAlignment alignment) {
    if (alignment == HorizontalAlignment::LEFT) return run.x;
    return run.x + run.width * (alignment == HorizontalAlignment::CENTRE ? 0.5 : 1);
}

void AppendPair(std::string& out, double x, double y) {
    XmlWriter::AppendNumber(out, x);
    out += ' ';
    XmlWriter::AppendNumber(out, y);
}

std::string NumberText(double value) {
    std::string text;
    XmlWriter::AppendNumber(text, value);
    return text;
}

std::size_t LineEnd(std::vector<TextRun> const& runs, std::size_t first) {
    std::size_t end = first;
    while (end < runs.size() && runs[end].line == runs[first].line)
        ++end;
    return end;
}

}  // namespace

void SvgPainter::BeginSheet(PaintedSheet const& sheet) {
    xml_ = XmlWriter();
    usedIds_.clear();
    box_ = sheet.box.IsEmpty() ? dg::DBox2D(0, 0, 0, 0) : sheet.box;
    WriteRoot(sheet);
    if (!sheet.title.empty()) {
        xml_.StartText("title");
        xml_.Text(sheet.title);
        xml_.End();
    }
    if (!sheet.paintBackground) return;
    xml_.Start("rect");
    xml_.Attribute("class", "background");
    xml_.Attribute("width", box_[2] - box_[0]);
    xml_.Attribute("height", box_[3] - box_[1]);
    WriteColor("fill", "fill-opacity", sheet.background);
    xml_.End();
}

void SvgPainter::WriteRoot(PaintedSheet const&) {
    double const width = box_[2] - box_[0];
    double const height = box_[3] - box_[1];
    xml_.Start("svg");
    xml_.Attribute("xmlns", "http://www.w3.org/2000/svg");
    xml_.Attribute("width", NumberText(width) + "mm");
    xml_.Attribute("height", NumberText(height) + "mm");
    xml_.Attribute("viewBox", "0 0 " + NumberText(width) + " " + NumberText(height));
    xml_.Attribute("fill", "none");
    xml_.Attribute("stroke-linecap", "round");
    xml_.Attribute("stroke-linejoin", "round");
    xml_.Attribute("font-family", DEFAULT_FONTS);
}

void SvgPainter::EndSheet() {
    xml_.End();
}

std::string SvgPainter::TakeDocument() {
    return xml_.Take();
}

void SvgPainter::BeginItem(PaintedItem const& item) {
    xml_.Start("g");
    xml_.Attribute("id", UniqueId(item.id));
    xml_.Attribute("data-item", item.id);
    xml_.Attribute("data-type", item.type);
    if (!item.name.empty()) xml_.Attribute("data-name", item.name);
    if (!item.net.empty()) xml_.Attribute("data-net", item.net);
    if (item.highlighted) xml_.Attribute("class", "highlight");
}

void SvgPainter::EndItem() {
    xml_.End();
}

std::string SvgPainter::UniqueId(std::string_view itemId) {
    std::string id = "item-";
    for (char c : itemId)
        id += IsNameCharacter(c) ? c : '_';
    // Numbers are separated by ':', which no id above contains, so they can't meet another id.
    unsigned const earlier = usedIds_[id]++;
    if (earlier > 0) id += ":" + std::to_string(earlier + 1);
    return id;
}

void SvgPainter::WriteColor(char const* attribute, char const* opacity, dg::Color const& color) {
    xml_.Attribute(attribute, HexColor(color));
    if (color.a < 1) xml_.Attribute(opacity, std::max(0.0f, color.a));
}

void SvgPainter::WritePaint(Paint const& paint) {
    if (paint.fill.filled) WriteColor("fill", "fill-opacity", paint.fill.color);
    Stroke const& stroke = paint.stroke;
    if (!(stroke.width > 0)) return;
    WriteColor("stroke", "stroke-opacity", stroke.color);
    xml_.Attribute("stroke-width", stroke.width);
    if (stroke.dashes.empty()) return;
    std::string dashes;
    for (double dash : stroke.dashes) {
        if (!dashes.empty()) dashes += ' ';
        XmlWriter::AppendNumber(dashes, dash);
    }
    xml_.Attribute("stroke-dasharray", dashes);
}

void SvgPainter::Polyline(std::vector<dg::DPoint2D> const& points, bool closed,
                          Paint const& paint) {
    if (points.size() < 2 || !std::all_of(points.begin(), points.end(), IsFinite)) return;
    std::string path;
    for (dg::DPoint2D const& point : points) {
        path += path.empty() ? "M" : "L";
        AppendPair(path, X(point.x), Y(point.y));
    }
    if (closed) path += 'Z';
    xml_.Start("path");
    xml_.Attribute("d", path);
    WritePaint(paint);
    xml_.End();
}

void SvgPainter::Arc(dg::DPoint2D const& centre, double radius, double start, double end,
                     Paint const& paint) {
    bool const drawable = IsFinite(centre) && std::isfinite(radius) && radius > 0 &&
                          std::isfinite(start) && std::isfinite(end);
    if (!drawable) return;
    double const sweep = end - start;
    if (std::abs(sweep) >= FULL_TURN - 1e-9) {
        xml_.Start("circle");
        xml_.Attribute("cx", X(centre.x));
        xml_.Attribute("cy", Y(centre.y));
        xml_.Attribute("r", radius);
        WritePaint(paint);
        xml_.End();
        return;
    }
    std::string path = "M";
    AppendPair(path, X(centre.x + radius * std::cos(start)),
               Y(centre.y + radius * std::sin(start)));
    path += 'A';
    AppendPair(path, radius, radius);
    // With y down a counter-clockwise arc runs in the direction that SVG calls negative.
    path += std::abs(sweep) > std::numbers::pi ? " 0 1 " : " 0 0 ";
    path += sweep > 0 ? "0 " : "1 ";
    AppendPair(path, X(centre.x + radius * std::cos(end)), Y(centre.y + radius * std::sin(end)));
    xml_.Start("path");
    xml_.Attribute("d", path);
    WritePaint(paint);
    xml_.End();
}

void SvgPainter::Text(PaintedText const& text) {
    std::vector<TextRun> const& runs = text.layout.runs;
    bool const drawable = !runs.empty() && IsFinite(text.anchor) && std::isfinite(text.angle) &&
                          std::isfinite(text.style.height) && text.style.height > 0;
    if (!drawable) return;
    bool const single = LineEnd(runs, 0) == runs.size() && text.layout.overbars.empty() &&
                        std::abs(text.angle) * DEGREES < 1e-4;
    if (single) return WriteLine(text, 0, runs.size(), false);
    xml_.Start("g");
    std::string transform = "translate(";
    AppendPair(transform, X(text.anchor.x), Y(text.anchor.y));
    transform += ')';
    std::string const degrees = NumberText(-text.angle * DEGREES);
    if (degrees != "0") transform += " rotate(" + degrees + ")";
    xml_.Attribute("transform", transform);
    for (std::size_t i = 0; i < runs.size(); i = LineEnd(runs, i)) {
        WriteLine(text, i, LineEnd(runs, i) - i, true);
    }
    WriteOverbars(text);
    xml_.End();
}

// A line of one run keeps its alignment, so that a viewer's own font can't shift it. Several runs,
// or a bar above, need the estimated widths, so the viewer is told to keep to them.
void SvgPainter::WriteLine(PaintedText const& text, std::size_t first, std::size_t count,
                           bool local) {
    double const x0 = local ? 0 : X(text.anchor.x);
    double const y0 = local ? 0 : Y(text.anchor.y);
    TextLayout const& layout = text.layout;
    TextRun const& run = layout.runs[first];
    bool const fixedWidths = count > 1 || !layout.overbars.empty();
    xml_.StartText("text");
    if (!fixedWidths) {
        xml_.Attribute("x", x0 + AnchorX(run, layout.horizontal));
        xml_.Attribute("y", y0 - run.y);
        if (layout.horizontal != HorizontalAlignment::LEFT) {
            xml_.Attribute("text-anchor", AnchorName(layout.horizontal));
        }
    }
    xml_.Attribute("font-size", text.style.height / CAPITAL_HEIGHT);
    if (!text.style.font.empty()) {
        xml_.Attribute("font-family", text.style.font + ", " + DEFAULT_FONTS);
    }
    if (text.style.bold) xml_.Attribute("font-weight", "bold");
    if (text.style.italic) xml_.Attribute("font-style", "italic");
    WriteColor("fill", "fill-opacity", text.color);
    bool preserve = false;
    for (std::size_t i = 0; i < count; ++i) {
        preserve = preserve || NeedsPreservedSpace(layout.runs[first + i].text);
    }
    if (preserve) xml_.Attribute("xml:space", "preserve");
    if (!fixedWidths) xml_.Text(run.text);
    for (std::size_t i = first; fixedWidths && i < first + count; ++i) {
        TextRun const& piece = layout.runs[i];
        xml_.Start("tspan");
        xml_.Attribute("x", x0 + piece.x);
        xml_.Attribute("y", y0 - piece.y);
        if (piece.height != text.style.height) {
            xml_.Attribute("font-size", piece.height / CAPITAL_HEIGHT);
        }
        xml_.Attribute("textLength", piece.width);
        xml_.Attribute("lengthAdjust", "spacingAndGlyphs");
        xml_.Text(piece.text);
        xml_.End();
    }
    xml_.End();
}

void SvgPainter::WriteOverbars(PaintedText const& text) {
    for (Overbar const& bar : text.layout.overbars) {
        std::string path = "M";
        AppendPair(path, bar.x1, -bar.y);
        path += 'H';
        XmlWriter::AppendNumber(path, bar.x2);
        xml_.Start("path");
        xml_.Attribute("class", "overbar");
        xml_.Attribute("d", path);
        Paint paint;
        paint.stroke = {text.color, bar.thickness, {}};
        WritePaint(paint);
        xml_.End();
    }
}

void SvgPainter::Picture(PaintedPicture const& picture) {
    dg::DPoint2D const origin = picture.matrix * dg::DPoint2D(0, 0);
    dg::DVec2 const right = picture.matrix * dg::DVec2(1, 0);
    dg::DVec2 const up = picture.matrix * dg::DVec2(0, 1);
    double const numbers[] = {right.x, -right.y,           -up.x,
                              up.y,    X(origin.x + up.x), Y(origin.y + up.y)};
    std::string transform = "matrix(";
    for (double number : numbers) {
        if (!std::isfinite(number)) return;
        if (transform.back() != '(') transform += ' ';
        XmlWriter::AppendNumber(transform, number);
    }
    xml_.Start("image");
    xml_.Attribute("width", 1.0);
    xml_.Attribute("height", 1.0);
    xml_.Attribute("preserveAspectRatio", "none");
    xml_.Attribute("transform", transform + ")");
    std::string href = "data:";
    href += picture.mimeType;
    xml_.Attribute("href", href + ";base64," + EncodeBase64(picture.data));
    xml_.End();
}

}  // namespace fighost
