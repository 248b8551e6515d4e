#include <painters/CairoCanvas.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string_view>

namespace fighost {

namespace {

constexpr char const* DEFAULT_FONT = "DejaVu Sans";

bool IsFinite(dg::DPoint2D const& point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

bool SameColor(dg::Color const& a, dg::Color const& b) {
    return a == b;
}

bool SamePaint(Paint const& a, Paint const& b) {
    return a.fill.filled == b.fill.filled &&
           (!a.fill.filled || SameColor(a.fill.color, b.fill.color)) &&
           a.stroke.width == b.stroke.width && a.stroke.dashes == b.stroke.dashes &&
           (a.stroke.width <= 0 || SameColor(a.stroke.color, b.stroke.color));
}

// What hides things that lie below keeps its place; ink of one style may be painted in one go.
bool KeepsItsPlace(Paint const& paint) {
    if (!paint.fill.filled) return false;
    bool const isInk = paint.stroke.width > 0 ? SameColor(paint.fill.color, paint.stroke.color)
                                              : paint.fill.color.a >= 1;
    return paint.fill.isArea || !isInk;
}

struct PngReader {
    std::string_view data;

    static cairo_status_t Read(void* closure, unsigned char* out, unsigned int length) {
        auto& reader = *static_cast<PngReader*>(closure);
        if (reader.data.size() < length) return CAIRO_STATUS_READ_ERROR;
        std::copy_n(reader.data.begin(), length, out);
        reader.data.remove_prefix(length);
        return CAIRO_STATUS_SUCCESS;
    }
};

cairo_matrix_t Matrix(dg::DMat33 const& matrix) {
    dg::DPoint2D const origin = matrix * dg::DPoint2D(0, 0);
    dg::DVec2 const right = matrix * dg::DVec2(1, 0);
    dg::DVec2 const up = matrix * dg::DVec2(0, 1);
    cairo_matrix_t result;
    cairo_matrix_init(&result, right.x, right.y, up.x, up.y, origin.x, origin.y);
    return result;
}

bool IsInvertible(cairo_matrix_t matrix) {
    return cairo_matrix_invert(&matrix) == CAIRO_STATUS_SUCCESS;
}

// Letters of an image would each be as wide as whole pixels, and small texts by a third too long or
// too short.
void KeepExactAdvances(cairo_t* cairo) {
    cairo_font_options_t* const options = cairo_font_options_create();
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_set_font_options(cairo, options);
    cairo_font_options_destroy(options);
}

// Names stand between single quotes in a tag's attributes.
std::string TagName(std::string_view name) {
    std::string result;
    for (char const c : name) {
        if (c == '\'' || c == '\\') result += '\\';
        result += c;
    }
    return result;
}

}  // namespace

CairoCanvas::CairoCanvas(cairo_surface_t* surface, PaintedSheet const& sheet,
                         double unitsPerMillimetre, double narrowestLine)
    : cairo_(cairo_create(surface)), narrowestLine_(narrowestLine) {
    cairo_scale(cairo_, unitsPerMillimetre, -unitsPerMillimetre);
    if (!sheet.box.IsEmpty()) cairo_translate(cairo_, -sheet.box[0], -sheet.box[3]);
    cairo_set_line_cap(cairo_, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(cairo_, CAIRO_LINE_JOIN_ROUND);
    KeepExactAdvances(cairo_);
    if (sheet.paintBackground) {
        SetColor(sheet.background);
        cairo_paint(cairo_);
    }
    // Behind the background: a page forgets all that it held before it is painted over.
    if (!sheet.anchor.empty()) MarkPage(sheet.anchor);
}

CairoCanvas::~CairoCanvas() {
    cairo_destroy(cairo_);
}

void CairoCanvas::MarkPage(std::string const& anchor) {
    cairo_save(cairo_);
    cairo_identity_matrix(cairo_);
    cairo_tag_begin(cairo_, CAIRO_TAG_DEST, ("name='" + TagName(anchor) + "' x=0 y=0").c_str());
    cairo_tag_end(cairo_, CAIRO_TAG_DEST);
    cairo_restore(cairo_);
}

void CairoCanvas::WritePng(cairo_write_func_t write, void* closure) {
    cairo_surface_write_to_png_stream(cairo_get_target(cairo_), write, closure);
}

std::string CairoCanvas::LinkTo(std::string const& anchor) {
    return "dest='" + TagName(anchor) + "'";
}

void CairoCanvas::SetColor(dg::Color const& color) {
    cairo_set_source_rgba(cairo_, color.r, color.g, color.b, color.a);
}

void CairoCanvas::SetLine(double width, std::vector<double> const& dashes) {
    cairo_set_line_width(cairo_, std::max(width, narrowestLine_));
    cairo_set_dash(cairo_, dashes.data(), static_cast<int>(dashes.size()), 0);
}

void CairoCanvas::BeginItem(PaintedItem const& item) {
    link_ = item.link;
}

void CairoCanvas::EndItem() {
    link_.clear();
}

void CairoCanvas::Polyline(std::vector<dg::DPoint2D> const& points, bool closed,
                           Paint const& paint) {
    if (points.size() < 2 || !std::all_of(points.begin(), points.end(), IsFinite)) return;
    Outline outline;
    outline.points = points;
    outline.closed = closed;
    Add(std::move(outline), paint);
}

void CairoCanvas::Arc(dg::DPoint2D const& centre, double radius, double start, double end,
                      Paint const& paint) {
    bool const drawable = IsFinite(centre) && std::isfinite(radius) && radius > 0 &&
                          std::isfinite(start) && std::isfinite(end);
    if (!drawable) return;
    Outline outline;
    outline.centre = centre;
    outline.radius = radius;
    outline.start = start;
    outline.end = end;
    Add(std::move(outline), paint);
}

void CairoCanvas::Add(Outline outline, Paint const& paint) {
    if (!paint.fill.filled && !(paint.stroke.width > 0)) return;
    if (KeepsItsPlace(paint)) {
        Batch batch{paint, {}};
        batch.outlines.push_back(std::move(outline));
        PaintBatch(batch);
        return;
    }
    auto const same = std::find_if(batches_.begin(), batches_.end(), [&](Batch const& batch) {
        return SamePaint(batch.paint, paint);
    });
    if (same != batches_.end()) {
        same->outlines.push_back(std::move(outline));
    } else {
        batches_.push_back({paint, {std::move(outline)}});
    }
}

void CairoCanvas::Trace(Outline const& outline) {
    cairo_new_sub_path(cairo_);
    if (outline.points.empty()) {
        cairo_arc(cairo_, outline.centre.x, outline.centre.y, outline.radius, outline.start,
                  outline.end);
        if (outline.end - outline.start >= 2 * std::numbers::pi - 1e-9) cairo_close_path(cairo_);
        return;
    }
    for (dg::DPoint2D const& point : outline.points)
        cairo_line_to(cairo_, point.x, point.y);
    if (outline.closed) cairo_close_path(cairo_);
}

void CairoCanvas::PaintBatch(Batch const& batch) {
    if (batch.paint.fill.filled) FillOutlines(batch);
    if (!(batch.paint.stroke.width > 0)) return;
    SetColor(batch.paint.stroke.color);
    SetLine(batch.paint.stroke.width, batch.paint.stroke.dashes);
    for (Outline const& outline : batch.outlines)
        Trace(outline);
    cairo_stroke(cairo_);
}

// Outlines that run in opposite directions cut holes into one another where they are filled
// together. All circles run in the same direction.
void CairoCanvas::FillOutlines(Batch const& batch) {
    SetColor(batch.paint.fill.color);
    for (Outline const& outline : batch.outlines) {
        if (outline.points.empty()) Trace(outline);
    }
    cairo_fill(cairo_);
    for (Outline const& outline : batch.outlines) {
        if (outline.points.empty()) continue;
        Trace(outline);
        cairo_fill(cairo_);
    }
}

void CairoCanvas::Picture(PaintedPicture const& picture) {
    if (picture.mimeType != "image/png") return;
    cairo_matrix_t const matrix = Matrix(picture.matrix);
    if (!IsInvertible(matrix)) return;
    PngReader reader{picture.data};
    cairo_surface_t* image = cairo_image_surface_create_from_png_stream(PngReader::Read, &reader);
    if (cairo_surface_status(image) == CAIRO_STATUS_SUCCESS) {
        double const width = cairo_image_surface_get_width(image);
        double const height = cairo_image_surface_get_height(image);
        cairo_save(cairo_);
        cairo_transform(cairo_, &matrix);
        cairo_translate(cairo_, 0, 1);
        cairo_scale(cairo_, 1 / width, -1 / height);
        cairo_set_source_surface(cairo_, image, 0, 0);
        cairo_paint(cairo_);
        cairo_restore(cairo_);
    }
    cairo_surface_destroy(image);
}

void CairoCanvas::Finish() {
    for (Batch const& batch : batches_)
        PaintBatch(batch);
    for (LinkedText const& linked : texts_) {
        PaintText(linked.text);
        LinkText(linked);
    }
    batches_.clear();
    texts_.clear();
}

void CairoCanvas::PaintText(PaintedText const& text) {
    bool const drawable = IsFinite(text.anchor) && std::isfinite(text.angle) &&
                          std::isfinite(text.style.height) && text.style.height > 0;
    if (!drawable) return;
    SetColor(text.color);
    cairo_select_font_face(cairo_, text.style.font.empty() ? DEFAULT_FONT : text.style.font.c_str(),
                           text.style.italic ? CAIRO_FONT_SLANT_ITALIC : CAIRO_FONT_SLANT_NORMAL,
                           text.style.bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_save(cairo_);
    cairo_translate(cairo_, text.anchor.x, text.anchor.y);
    cairo_rotate(cairo_, text.angle);
    for (TextRun const& run : text.layout.runs)
        PaintRun(run);
    for (Overbar const& bar : text.layout.overbars) {
        SetLine(bar.thickness, {});
        cairo_move_to(cairo_, bar.x1, bar.y);
        cairo_line_to(cairo_, bar.x2, bar.y);
        cairo_stroke(cairo_);
    }
    cairo_restore(cairo_);
}

// The layout rests on estimated widths, so the letters are spread or drawn together to fill them.
void CairoCanvas::PaintRun(TextRun const& run) {
    double const size = run.height / CAPITAL_HEIGHT;
    cairo_set_font_size(cairo_, size);
    cairo_text_extents_t extents;
    cairo_text_extents(cairo_, run.text.c_str(), &extents);
    double const stretch =
        extents.x_advance > 0 && run.width > 0 ? run.width / extents.x_advance : 1.0;
    cairo_matrix_t font;
    cairo_matrix_init_scale(&font, size * std::clamp(stretch, 0.5, 2.0), -size);
    cairo_set_font_matrix(cairo_, &font);
    cairo_move_to(cairo_, run.x, run.y);
    cairo_show_text(cairo_, run.text.c_str());
}

void CairoCanvas::LinkText(LinkedText const& linked) {
    if (linked.link.empty() || linked.text.layout.runs.empty()) return;
    // A link's rectangle lies along the page's axes, so that of the turned text's box is taken.
    double left = 0, right = 0, bottom = 0, top = 0;
    bool first = true;
    double const cosine = std::cos(linked.text.angle);
    double const sine = std::sin(linked.text.angle);
    for (TextRun const& run : linked.text.layout.runs) {
        for (auto const& [x, y] : {std::pair{run.x, run.y - run.height * 0.3},
                                   std::pair{run.x + run.width, run.y + run.height * 1.2}}) {
            double px = linked.text.anchor.x + x * cosine - y * sine;
            double py = linked.text.anchor.y + x * sine + y * cosine;
            cairo_user_to_device(cairo_, &px, &py);
            left = first ? px : std::min(left, px);
            right = first ? px : std::max(right, px);
            bottom = first ? py : std::min(bottom, py);
            top = first ? py : std::max(top, py);
            first = false;
        }
    }
    std::string const attributes = "rect=[" + std::to_string(left) + " " + std::to_string(bottom) +
                                   " " + std::to_string(right - left) + " " +
                                   std::to_string(top - bottom) + "] " + LinkTo(linked.link);
    cairo_save(cairo_);
    cairo_identity_matrix(cairo_);  // the rectangle is in the page's own units
    cairo_tag_begin(cairo_, CAIRO_TAG_LINK, attributes.c_str());
    cairo_tag_end(cairo_, CAIRO_TAG_LINK);
    cairo_restore(cairo_);
}

}  // namespace fighost
