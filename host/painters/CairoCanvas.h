// A Cairo surface's context with the frame of a sheet: millimetres, y up.
#pragma once

#include <cairo.h>

#include <string>
#include <vector>

#include <painters/Painter.h>

namespace fighost {

/// Draws shapes of one sheet. Owns the context, not the surface.
class CairoCanvas {
public:
    /// `unitsPerMillimetre` of the surface; the sheet's box fills it. Lines narrower than
    /// `narrowestLine`, in mm, are drawn in that width.
    CairoCanvas(cairo_surface_t* surface, PaintedSheet const& sheet, double unitsPerMillimetre,
                double narrowestLine);
    CairoCanvas(CairoCanvas const&) = delete;
    CairoCanvas& operator=(CairoCanvas const&) = delete;
    ~CairoCanvas();

    void BeginItem(PaintedItem const& item);
    void EndItem();
    void Polyline(std::vector<dg::DPoint2D> const& points, bool closed, Paint const& paint);
    void Arc(dg::DPoint2D const& centre, double radius, double start, double end,
             Paint const& paint);
    void Text(PaintedText const& text) { texts_.push_back({text, link_}); }
    void Picture(PaintedPicture const& picture);

    /// Paints what was collected. Nothing may be drawn afterwards.
    void Finish();
    void ShowPage() { cairo_show_page(cairo_); }
    void WritePng(cairo_write_func_t write, void* closure);
    /// How a link to the anchor of a sheet is written.
    static std::string LinkTo(std::string const& anchor);

private:
    struct Outline {
        std::vector<dg::DPoint2D> points;  ///< of a polyline
        bool closed = false;
        dg::DPoint2D centre;  ///< of an arc, when `points` is empty
        double radius = 0, start = 0, end = 0;
    };
    struct Batch {
        Paint paint;
        std::vector<Outline> outlines;
    };
    struct LinkedText {
        PaintedText text;
        std::string link;
    };

    void MarkPage(std::string const& anchor);
    void Add(Outline outline, Paint const& paint);
    void Trace(Outline const& outline);
    void PaintBatch(Batch const& batch);
    void FillOutlines(Batch const& batch);
    void PaintText(PaintedText const& text);
    void PaintRun(TextRun const& run);
    void LinkText(LinkedText const& linked);
    void SetColor(dg::Color const& color);
    void SetLine(double width, std::vector<double> const& dashes);

    cairo_t* cairo_;
    double narrowestLine_;
    std::vector<Batch> batches_;
    std::vector<LinkedText> texts_;
    std::string link_;
};

}  // namespace fighost
