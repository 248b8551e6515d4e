// A painter that keeps what it was given, with geometry and colours apart.
#pragma once

#include <string>
#include <vector>

#include <dg/Color.h>
#include <figrep/Fwd.h>
#include <painters/Painter.h>

namespace fighost::test {

struct RecordedShape {
    std::string item;  ///< "Type id"
    std::string net;
    bool highlighted = false;
    std::string geometry;          ///< kind, points, widths, words: all but the colours
    std::vector<dg::Color> inks;   ///< of outline and text, where there are any
    std::vector<dg::Color> fills;  ///< of the area
};

class ShapeRecorder : public Painter {
public:
    void BeginSheet(PaintedSheet const& painted) override { sheet = painted; }
    void EndSheet() override {}
    void BeginItem(PaintedItem const& item) override;
    void EndItem() override {}
    void Polyline(std::vector<dg::DPoint2D> const& points, bool closed,
                  Paint const& paint) override;
    void Arc(dg::DPoint2D const& centre, double radius, double start, double end,
             Paint const& paint) override;
    void Text(PaintedText const& text) override;
    void Picture(PaintedPicture const& picture) override;

    PaintedSheet sheet;
    std::vector<RecordedShape> shapes;

private:
    void Add(std::string geometry, Paint const& paint);

    RecordedShape current_;
};

/// What is painted of a figure.
ShapeRecorder Record(figrep::SmartPtr<figrep::Figure> const& figure);

/// Item and geometry of each shape, in the order of painting.
std::vector<std::string> Geometry(std::vector<RecordedShape> const& shapes);

}  // namespace fighost::test
