#include <painters/CairoPainter.h>

#include <cairo-pdf.h>
#include <painters/CairoCanvas.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace fighost {

namespace {

constexpr double MILLIMETRES_PER_INCH = 25.4;
constexpr double POINTS_PER_MILLIMETRE = 72 / MILLIMETRES_PER_INCH;
constexpr double LARGEST_SIDE = 30000;  // Cairo's images end at 32767 pixels
constexpr double NARROWEST_LINE = 0.6;  // in pixels: narrower ones fade away
// Documents must not tell when they were made: the same sheets give the same bytes.
constexpr char const* FIXED_DATE = "2000-01-01T00:00:00Z";

cairo_status_t Append(void* closure, unsigned char const* bytes, unsigned int length) {
    static_cast<std::string*>(closure)->append(reinterpret_cast<char const*>(bytes), length);
    return CAIRO_STATUS_SUCCESS;
}

double Side(double length) {
    return std::isfinite(length) && length > 0 ? length : 1.0;
}

}  // namespace

CairoPainter::CairoPainter() = default;
CairoPainter::~CairoPainter() = default;

void CairoPainter::EndSheet() {
    if (canvas_) canvas_->Finish();
}

void CairoPainter::BeginItem(PaintedItem const& item) {
    if (canvas_) canvas_->BeginItem(item);
}

void CairoPainter::EndItem() {
    if (canvas_) canvas_->EndItem();
}

void CairoPainter::Polyline(std::vector<dg::DPoint2D> const& points, bool closed,
                            Paint const& paint) {
    if (canvas_) canvas_->Polyline(points, closed, paint);
}

void CairoPainter::Arc(dg::DPoint2D const& centre, double radius, double start, double end,
                       Paint const& paint) {
    if (canvas_) canvas_->Arc(centre, radius, start, end, paint);
}

void CairoPainter::Text(PaintedText const& text) {
    if (canvas_) canvas_->Text(text);
}

void CairoPainter::Picture(PaintedPicture const& picture) {
    if (canvas_) canvas_->Picture(picture);
}

PngPainter::PngPainter(double dotsPerInch, unsigned widthInPixels)
    : dotsPerInch_(dotsPerInch), width_(widthInPixels) {}

void PngPainter::BeginSheet(PaintedSheet const& sheet) {
    double const width = Side(sheet.box.Size().x);
    double const height = Side(sheet.box.Size().y);
    double scale = width_ > 0 ? width_ / width : dotsPerInch_ / MILLIMETRES_PER_INCH;
    scale = std::min(Side(scale), LARGEST_SIDE / std::max(width, height));
    auto const pixels = [scale](double side) {
        return std::max(1, static_cast<int>(std::lround(side * scale)));
    };
    cairo_surface_t* surface =
        cairo_image_surface_create(CAIRO_FORMAT_ARGB32, pixels(width), pixels(height));
    canvas_ = std::make_unique<CairoCanvas>(surface, sheet, scale, NARROWEST_LINE / scale);
    cairo_surface_destroy(surface);  // the canvas's context holds it
}

void PngPainter::EndSheet() {
    if (!canvas_) return;
    CairoPainter::EndSheet();
    image_.clear();
    canvas_->WritePng(Append, &image_);
    canvas_.reset();
}

std::string PngPainter::TakeImage() {
    return std::move(image_);
}

struct PdfPainter::Document {
    std::string bytes;
    cairo_surface_t* surface = cairo_pdf_surface_create_for_stream(Append, &bytes, 1, 1);
    std::vector<int> outline;  // ids of the entries above the next one, by depth

    ~Document() { cairo_surface_destroy(surface); }
};

PdfPainter::PdfPainter() : document_(std::make_unique<Document>()) {
    cairo_pdf_surface_set_metadata(document_->surface, CAIRO_PDF_METADATA_CREATE_DATE, FIXED_DATE);
    cairo_pdf_surface_set_metadata(document_->surface, CAIRO_PDF_METADATA_MOD_DATE, FIXED_DATE);
}

PdfPainter::~PdfPainter() {
    canvas_.reset();  // its context draws to the document
}

void PdfPainter::BeginSheet(PaintedSheet const& sheet) {
    if (!document_) return;
    double const width = Side(sheet.box.Size().x) * POINTS_PER_MILLIMETRE;
    double const height = Side(sheet.box.Size().y) * POINTS_PER_MILLIMETRE;
    cairo_pdf_surface_set_size(document_->surface, width, height);
    canvas_ = std::make_unique<CairoCanvas>(document_->surface, sheet, POINTS_PER_MILLIMETRE, 0);
    if (sheet.anchor.empty()) return;
    auto& above = document_->outline;
    above.resize(std::min<std::size_t>(above.size(), sheet.depth));
    int const parent = above.empty() ? CAIRO_PDF_OUTLINE_ROOT : above.back();
    above.push_back(cairo_pdf_surface_add_outline(document_->surface, parent, sheet.title.c_str(),
                                                  canvas_->LinkTo(sheet.anchor).c_str(),
                                                  CAIRO_PDF_OUTLINE_FLAG_OPEN));
}

void PdfPainter::EndSheet() {
    if (!canvas_) return;
    CairoPainter::EndSheet();
    canvas_->ShowPage();
    canvas_.reset();
}

std::string PdfPainter::TakeDocument() {
    if (!document_) return {};
    canvas_.reset();
    cairo_surface_finish(document_->surface);
    std::string bytes = std::move(document_->bytes);
    document_.reset();
    return bytes;
}

}  // namespace fighost
