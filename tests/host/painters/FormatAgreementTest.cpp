// One figure painted in all formats: each picture against the calls that a painter gets.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <numbers>

#include <host/XmlChecker.h>
#include <host/painters/Raster.h>
#include <host/session/ExampleSession.h>
#include <painters/CairoPainter.h>
#include <painters/PaintFigure.h>
#include <painters/SvgPainter.h>
#include <support/Corpus.h>

namespace fighost::test {
namespace {

constexpr double PI = std::numbers::pi;
constexpr unsigned DOTS_PER_INCH = 150;
constexpr double PIXELS_PER_MM = DOTS_PER_INCH / 25.4;

struct Line {
    std::vector<dg::DPoint2D> points;
    bool closed = false;
    Paint paint;
};

struct Curve {
    dg::DPoint2D centre;
    double radius = 0, start = 0, end = 0;
    Paint paint;
};

/// What one painter is told, in the order of telling.
class Recorder : public Painter {
public:
    void BeginSheet(PaintedSheet const& sheet) override { box = sheet.box; }
    void EndSheet() override {}
    void BeginItem(PaintedItem const&) override {}
    void EndItem() override {}
    void Polyline(std::vector<dg::DPoint2D> const& points, bool closed,
                  Paint const& paint) override {
        lines.push_back({points, closed, paint});
    }
    void Arc(dg::DPoint2D const& centre, double radius, double start, double end,
             Paint const& paint) override {
        curves.push_back({centre, radius, start, end, paint});
    }
    void Text(PaintedText const& text) override {
        if (!text.layout.runs.empty()) texts.push_back(text);
    }
    void Picture(PaintedPicture const& picture) override { pictures.push_back(picture.matrix); }

    dg::DBox2D box;
    std::vector<Line> lines;
    std::vector<Curve> curves;
    std::vector<PaintedText> texts;
    std::vector<dg::DMat33> pictures;
};

template <class AnyPainter>
void PaintWith(SessionSheet const& sheet, AnyPainter& painter) {
    PaintFigure(sheet.figure, painter, PaintOptions());
}

Recorder Record(SessionSheet const& sheet) {
    Recorder recorder;
    PaintWith(sheet, recorder);
    return recorder;
}

// SVG.

/// The numbers of an attribute, whatever stands between them.
std::vector<double> NumbersIn(std::string const& text) {
    std::vector<double> numbers;
    for (char const* at = text.c_str(); *at != '\0';) {
        char* end = nullptr;
        double const number = std::strtod(at, &end);
        if (end != at) numbers.push_back(number);
        at = end != at ? end : at + 1;
    }
    return numbers;
}

/// The shapes of an SVG document, in order.
struct SvgShapes {
    std::vector<XmlElement> lines;
    std::vector<XmlElement> curves;
    std::vector<XmlElement> texts;  ///< the text, or the group that places it
    std::size_t pictures = 0;

    explicit SvgShapes(XmlDocument const& document) {
        std::size_t placedDepth = 0;  // of a text group whose content is passed over
        for (XmlElement const& element : document.elements) {
            if (placedDepth > 0 && element.depth > placedDepth) continue;
            placedDepth = 0;
            Sort(element);
            if (element.name == "g" && element.attributes.count("transform") > 0)
                placedDepth = element.depth;
        }
    }

private:
    void Sort(XmlElement const& element) {
        bool const group = element.name == "g" && element.attributes.count("transform") > 0;
        if (element.name == "circle") curves.push_back(element);
        if (element.name == "image") ++pictures;
        if (element.name == "text" || group) texts.push_back(element);
        if (element.name != "path") return;
        bool const arc = element.attributes.at("d").find('A') != std::string::npos;
        (arc ? curves : lines).push_back(element);
    }
};

/// A sheet's points as an SVG document has them.
class Flip {
public:
    explicit Flip(dg::DBox2D const& box) : box_(box) {}
    dg::DPoint2D operator()(dg::DPoint2D const& point) const {
        return {point.x - box_[0], box_[3] - point.y};
    }

private:
    dg::DBox2D box_;
};

void ExpectNumbers(std::vector<double> const& shown, std::vector<double> const& expected,
                   std::string const& what) {
    constexpr double ROUNDING = 0.0006;  // documents keep micrometres
    ASSERT_EQ(shown.size(), expected.size()) << what;
    for (std::size_t i = 0; i < shown.size(); ++i)
        ASSERT_NEAR(shown[i], expected[i], ROUNDING) << what << " number " << i;
}

void ExpectLine(XmlElement const& shown, Line const& line, Flip const& flip) {
    std::vector<double> expected;
    for (dg::DPoint2D const& point : line.points) {
        expected.push_back(flip(point).x);
        expected.push_back(flip(point).y);
    }
    std::string const& path = shown.attributes.at("d");
    ExpectNumbers(NumbersIn(path), expected, path);
    EXPECT_EQ(path.back() == 'Z', line.closed) << path;
}

dg::DPoint2D PointAt(Curve const& curve, double angle) {
    return curve.centre + dg::DVec2(std::cos(angle), std::sin(angle)) * curve.radius;
}

/// The middle of an arc as SVG defines it: by its ends, its radius and its two flags.
dg::DPoint2D MiddleOf(std::vector<double> const& n) {
    dg::DPoint2D const from(n[0], n[1]);
    dg::DPoint2D const to(n[7], n[8]);
    double const radius = n[2];
    bool const large = n[5] != 0;
    bool const clockwise = n[6] != 0;  // as seen with y down
    dg::DVec2 const chord = to - from;
    double const half = chord.Norm() / 2;
    double const height = std::sqrt(std::max(0.0, radius * radius - half * half));
    double const bulge = large ? radius + height : radius - height;
    dg::DVec2 const aside = dg::DVec2(chord.y, -chord.x) * ((clockwise ? 1 : -1) / (2 * half));
    return from + chord * 0.5 + aside * bulge;
}

void ExpectCurve(XmlElement const& shown, Curve const& curve, Flip const& flip) {
    dg::DPoint2D const centre = flip(curve.centre);
    if (shown.name == "circle") {
        auto const number = [&](char const* name) {
            return std::strtod(shown.attributes.at(name).c_str(), nullptr);
        };
        EXPECT_GE(std::abs(curve.end - curve.start), 2 * PI - 1e-6);
        return ExpectNumbers({number("cx"), number("cy"), number("r")},
                             {centre.x, centre.y, curve.radius}, "circle");
    }
    std::string const& path = shown.attributes.at("d");
    std::vector<double> const numbers = NumbersIn(path);
    ASSERT_EQ(numbers.size(), 9U) << path;
    dg::DPoint2D const from = flip(PointAt(curve, curve.start));
    dg::DPoint2D const to = flip(PointAt(curve, curve.end));
    ExpectNumbers({numbers[0], numbers[1], numbers[2], numbers[7], numbers[8]},
                  {from.x, from.y, curve.radius, to.x, to.y}, path);
    dg::DPoint2D const middle = flip(PointAt(curve, (curve.start + curve.end) / 2));
    EXPECT_LT((MiddleOf(numbers) - middle).Norm(), 0.02 * curve.radius + 0.02) << path;
}

/// The place at which a line of one piece is anchored.
dg::DPoint2D AnchorOf(PaintedText const& text, Flip const& flip) {
    TextRun const& run = text.layout.runs.front();
    double const share = text.layout.horizontal == HorizontalAlignment::LEFT     ? 0
                         : text.layout.horizontal == HorizontalAlignment::CENTRE ? 0.5
                                                                                 : 1;
    return flip(text.anchor + dg::DVec2(run.x + share * run.width, run.y));
}

void ExpectText(XmlElement const& shown, PaintedText const& text, Flip const& flip) {
    std::string const& words = text.layout.runs.front().text;
    if (shown.name == "g") {
        dg::DPoint2D const at = flip(text.anchor);
        std::vector<double> numbers = NumbersIn(shown.attributes.at("transform"));
        numbers.resize(3, 0.0);
        return ExpectNumbers(numbers, {at.x, at.y, -text.angle * 180 / PI}, words);
    }
    EXPECT_NEAR(text.angle, 0, 1e-5) << words;
    bool const placed = shown.attributes.count("x") > 0;  // else by its pieces
    if (!placed) return;
    dg::DPoint2D const at = AnchorOf(text, flip);
    ExpectNumbers({std::strtod(shown.attributes.at("x").c_str(), nullptr),
                   std::strtod(shown.attributes.at("y").c_str(), nullptr)},
                  {at.x, at.y}, words);
}

void ExpectSvgAgrees(SessionSheet const& sheet, Recorder const& calls) {
    SvgPainter painter;
    PaintWith(sheet, painter);
    XmlDocument const document = CheckXml(painter.TakeDocument());
    ASSERT_EQ(document.mistake, "");
    SvgShapes const shapes(document);
    Flip const flip(calls.box);
    ASSERT_EQ(shapes.lines.size(), calls.lines.size());
    ASSERT_EQ(shapes.curves.size(), calls.curves.size());
    ASSERT_EQ(shapes.texts.size(), calls.texts.size());
    EXPECT_EQ(shapes.pictures, calls.pictures.size());
    for (std::size_t i = 0; i < calls.lines.size(); ++i)
        ExpectLine(shapes.lines[i], calls.lines[i], flip);
    for (std::size_t i = 0; i < calls.curves.size(); ++i)
        ExpectCurve(shapes.curves[i], calls.curves[i], flip);
    for (std::size_t i = 0; i < calls.texts.size(); ++i)
        ExpectText(shapes.texts[i], calls.texts[i], flip);
}

// Pixels.

bool IsInk(dg::Color const& color) {
    return color.a > 0.5 && std::min({color.r, color.g, color.b}) < 0.8;
}

bool IsDrawn(Paint const& paint) {
    return paint.stroke.width > 0 && paint.stroke.dashes.empty() && IsInk(paint.stroke.color);
}

/// A picture, asked in the coordinates of the sheet.
class Pixels {
public:
    Pixels(Raster const& raster, dg::DBox2D const& box) : raster_(raster), flip_(box) {
        allowed_.resize(raster.pixels.size());
    }

    /// Whether there is ink within a pixel of the point. Points off the sheet are passed over.
    bool Shows(dg::DPoint2D const& point) const {
        auto const [x, y] = PlaceOf(point);
        bool const inside = x >= 0 && y >= 0 && x < raster_.width && y < raster_.height;
        return !inside || raster_.HasInk(x, y, 1);
    }

    /// Ink may stand in the box of the points, `margin` millimetres around.
    void Allow(std::vector<dg::DPoint2D> const& points, double margin) {
        dg::DBox2D box = dg::DBox2D::EMPTY;
        for (dg::DPoint2D const& point : points)
            box.Enclose(point);
        auto const [left, top] = PlaceOf({box[0] - margin, box[3] + margin});
        auto const [right, bottom] = PlaceOf({box[2] + margin, box[1] - margin});
        for (int y = std::max(0, top - 2); y <= std::min(raster_.height - 1, bottom + 2); ++y) {
            for (int x = std::max(0, left - 2); x <= std::min(raster_.width - 1, right + 2); ++x)
                allowed_[static_cast<std::size_t>(y) * raster_.width + x] = true;
        }
    }

    /// The pixels with ink where none is allowed.
    std::size_t CountStray() const {
        std::size_t stray = 0;
        for (int y = 0; y < raster_.height; ++y) {
            for (int x = 0; x < raster_.width; ++x) {
                bool const allowed = allowed_[static_cast<std::size_t>(y) * raster_.width + x];
                if (!allowed && raster_.HasInk(x, y, 0)) ++stray;
            }
        }
        return stray;
    }

    std::size_t CountInk() const {
        std::size_t ink = 0;
        for (int y = 0; y < raster_.height; ++y) {
            for (int x = 0; x < raster_.width; ++x)
                ink += raster_.HasInk(x, y, 0);
        }
        return ink;
    }

private:
    std::pair<int, int> PlaceOf(dg::DPoint2D const& point) const {
        dg::DVec2 const at = dg::DVec2(flip_(point)) * PIXELS_PER_MM;
        return {static_cast<int>(std::floor(at.x)), static_cast<int>(std::floor(at.y))};
    }

    Raster const& raster_;
    Flip flip_;
    std::vector<bool> allowed_;
};

dg::DPoint2D Middle(dg::DPoint2D const& a, dg::DPoint2D const& b) {
    return a + (b - a) * 0.5;
}

void ProbeLine(Line const& line, Pixels& pixels) {
    for (std::size_t i = 0; i + 1 < line.points.size(); ++i) {
        dg::DPoint2D const& from = line.points[i];
        dg::DPoint2D const& to = line.points[i + 1];
        pixels.Allow({from, to}, line.paint.stroke.width / 2);
        if (!IsDrawn(line.paint)) continue;
        EXPECT_TRUE(pixels.Shows(Middle(from, to)))
            << "line at " << Middle(from, to).x << " " << Middle(from, to).y;
    }
    bool const whole = line.closed || line.paint.fill.filled;
    if (whole) pixels.Allow(line.points, line.paint.stroke.width / 2);
}

void ProbeCurve(Curve const& curve, Pixels& pixels) {
    dg::DVec2 const reach(curve.radius, curve.radius);
    pixels.Allow({curve.centre - reach, curve.centre + reach}, curve.paint.stroke.width / 2);
    dg::DPoint2D const middle = PointAt(curve, (curve.start + curve.end) / 2);
    EXPECT_TRUE(!IsDrawn(curve.paint) || pixels.Shows(middle))
        << "arc at " << middle.x << " " << middle.y;
    bool const disc = curve.end - curve.start >= 2 * PI - 1e-6 && curve.paint.fill.filled &&
                      IsInk(curve.paint.fill.color);
    EXPECT_TRUE(!disc || pixels.Shows(curve.centre)) << "disc at " << curve.centre.x;
}

/// A point of a text's own frame on the sheet.
dg::DPoint2D OnSheet(PaintedText const& text, double x, double y) {
    double const cosine = std::cos(text.angle);
    double const sine = std::sin(text.angle);
    return text.anchor + dg::DVec2(x * cosine - y * sine, x * sine + y * cosine);
}

/// Somewhere along the middle of its letters a text must show.
void ProbeText(PaintedText const& text, Pixels& pixels) {
    bool shows = false;
    for (TextRun const& run : text.layout.runs) {
        double const margin = run.height;  // overbars, descenders, wide letters
        pixels.Allow({OnSheet(text, run.x, run.y), OnSheet(text, run.x + run.width, run.y),
                      OnSheet(text, run.x, run.y + run.height),
                      OnSheet(text, run.x + run.width, run.y + run.height)},
                     margin);
        for (double x = run.x; x <= run.x + run.width; x += run.height / 20) {
            for (double const share : {0.1, 0.5, 0.9})
                shows = shows || pixels.Shows(OnSheet(text, x, run.y + share * run.height));
        }
        shows = shows || run.text.find_first_not_of(' ') == std::string::npos;
    }
    EXPECT_TRUE(!IsInk(text.color) || shows)
        << "text " << text.layout.runs.front().text << " at " << text.anchor.x;
}

void ExpectPixelsAgree(Raster const& raster, Recorder const& calls, std::string const& format) {
    SCOPED_TRACE(format);
    dg::DVec2 const size = calls.box.Size();
    ASSERT_GT(raster.width, 0);
    EXPECT_NEAR(raster.width, size.x * PIXELS_PER_MM, 1.5);
    EXPECT_NEAR(raster.height, size.y * PIXELS_PER_MM, 1.5);
    Pixels pixels(raster, calls.box);
    for (Line const& line : calls.lines)
        ProbeLine(line, pixels);
    for (Curve const& curve : calls.curves)
        ProbeCurve(curve, pixels);
    for (PaintedText const& text : calls.texts)
        ProbeText(text, pixels);
    for (dg::DMat33 const& matrix : calls.pictures) {
        pixels.Allow({matrix * dg::DPoint2D(0, 0), matrix * dg::DPoint2D(1, 0),
                      matrix * dg::DPoint2D(0, 1), matrix * dg::DPoint2D(1, 1)},
                     0);
    }
    EXPECT_GT(pixels.CountInk(), 0U);
    EXPECT_EQ(pixels.CountStray(), 0U);
}

void ExpectAllFormatsAgree(SessionSheet const& sheet) {
    SCOPED_TRACE(sheet.path);
    Recorder const calls = Record(sheet);
    EXPECT_FALSE(calls.lines.empty());
    ExpectSvgAgrees(sheet, calls);
    PngPainter png(DOTS_PER_INCH);
    PaintWith(sheet, png);
    ExpectPixelsAgree(RasterOfPng(png.TakeImage()), calls, "PNG");
    PdfPainter pdf;
    PaintWith(sheet, pdf);
    ExpectPixelsAgree(RasterOfPdf(pdf.TakeDocument(), DOTS_PER_INCH), calls, "PDF");
}

TEST(FormatAgreement, EverySheetOfTheExampleHasOneGeometryInAllFormats) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    for (SessionSheet const& sheet : session->GetSheets())
        ExpectAllFormatsAgree(sheet);
}

/// Of all schematic files in the folder, which are those of the design.
std::uintmax_t BytesBeside(std::string const& root) {
    std::uintmax_t bytes = 0;
    for (auto const& entry :
         std::filesystem::recursive_directory_iterator(std::filesystem::path(root).parent_path())) {
        if (entry.path().extension() == ".kicad_sch") bytes += entry.file_size();
    }
    return bytes;
}

TEST(FormatAgreement, SmallRealDesignsHaveOneGeometryInAllFormats) {
    SKIP_WITHOUT_CORPUS();
    constexpr std::uintmax_t SMALL = 400'000;  // they show all kinds of shapes, and load at once
    for (std::string const& root : corpus::RootSheets()) {
        if (BytesBeside(root) > SMALL) continue;
        SCOPED_TRACE(root);
        auto const session = OpenDesign(root);
        ASSERT_TRUE(session);
        for (SessionSheet const& sheet : session->GetSheets())
            ExpectAllFormatsAgree(sheet);
    }
}

}  // namespace
}  // namespace fighost::test
