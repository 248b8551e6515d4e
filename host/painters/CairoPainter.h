// Paints sheets through Cairo: as a PNG image, or as the pages of a PDF document.
#pragma once

#include <memory>
#include <string>

#include <painters/Painter.h>

namespace fighost {

class CairoCanvas;

/// What PNG and PDF have in common. Bodies are painted at once; plain lines and dots are collected
/// by style and stroked in one go at the end of the sheet, since a vector surface's cost grows with
/// the square of the number of strokes; texts come last. So wires lie over bodies and texts over
/// wires, whatever the order of the items.
class CairoPainter : public Painter {
public:
    ~CairoPainter() override;

    void EndSheet() override;
    void BeginItem(PaintedItem const& item) override;
    void EndItem() override;
    void Polyline(std::vector<dg::DPoint2D> const& points, bool closed,
                  Paint const& paint) override;
    void Arc(dg::DPoint2D const& centre, double radius, double start, double end,
             Paint const& paint) override;
    void Text(PaintedText const& text) override;
    void Picture(PaintedPicture const& picture) override;

protected:
    CairoPainter();

    std::unique_ptr<CairoCanvas> canvas_;  // null outside a sheet
};

/// One sheet as a PNG image.
class PngPainter : public CairoPainter {
public:
    /// `dotsPerInch` sets the size; a positive `widthInPixels` overrides it. Images are kept below
    /// 30,000 pixels a side by painting coarser.
    explicit PngPainter(double dotsPerInch = 150, unsigned widthInPixels = 0);

    void BeginSheet(PaintedSheet const& sheet) override;
    void EndSheet() override;

    /// The image of the sheet painted last; empty when Cairo had no memory for it.
    std::string TakeImage();

private:
    double dotsPerInch_;
    unsigned width_;
    std::string image_;
};

/// A PDF document with a page for each sheet, in the order of painting. Text can be selected, items
/// with a link lead to the page of that anchor, and the outline names the pages.
class PdfPainter : public CairoPainter {
public:
    PdfPainter();
    ~PdfPainter() override;

    void BeginSheet(PaintedSheet const& sheet) override;
    void EndSheet() override;

    /// Ends the document and answers its bytes; further sheets are not painted.
    std::string TakeDocument();

private:
    struct Document;
    std::unique_ptr<Document> document_;
};

}  // namespace fighost
