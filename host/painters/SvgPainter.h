// Paints a sheet as SVG.
#pragma once

#include <string>
#include <unordered_map>

#include <painters/Painter.h>
#include <painters/XmlWriter.h>

namespace fighost {

/// One SVG document for one sheet, in millimetres.
///
/// Every item is a `<g>` with a unique `id` and with `data-item` (the item's own id), `data-type`,
/// `data-name` and `data-net` where it has them, so that style sheets and scripts can address it;
/// texts stay texts. The document is well-formed whatever names and texts the design holds, and
/// the same calls give the same bytes.
class SvgPainter : public Painter {
public:
    void BeginSheet(PaintedSheet const& sheet) override;
    void EndSheet() override;
    void BeginItem(PaintedItem const& item) override;
    void EndItem() override;
    void Polyline(std::vector<dg::DPoint2D> const& points, bool closed,
                  Paint const& paint) override;
    void Arc(dg::DPoint2D const& centre, double radius, double start, double end,
             Paint const& paint) override;
    void Text(PaintedText const& text) override;
    void Picture(PaintedPicture const& picture) override;

    /// The document of the sheet painted last. May be called once, after `EndSheet`.
    std::string TakeDocument();

private:
    double X(double x) const { return x - box_[0]; }
    double Y(double y) const { return box_[3] - y; }
    void WriteRoot(PaintedSheet const& sheet);
    void WritePaint(Paint const& paint);
    void WriteColor(char const* attribute, char const* opacity, dg::Color const& color);
    void WriteLine(PaintedText const& text, std::size_t first, std::size_t count, bool local);
    void WriteOverbars(PaintedText const& text);
    std::string UniqueId(std::string_view itemId);

    XmlWriter xml_;
    dg::DBox2D box_ = dg::DBox2D::EMPTY;
    std::unordered_map<std::string, unsigned> usedIds_;  // how often each id was asked for
};

}  // namespace fighost
