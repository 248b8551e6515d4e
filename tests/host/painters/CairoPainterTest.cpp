#include <painters/CairoPainter.h>

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include <host/painters/Raster.h>

namespace fighost {
namespace {

PaintedSheet Sheet(double width, double height) {
    PaintedSheet sheet;
    sheet.box = dg::DBox2D(0, 0, width, height);
    sheet.background = dg::Color::WHITE;
    sheet.title = "sheet";
    return sheet;
}

Paint Line(double width) {
    Paint paint;
    paint.stroke = {dg::Color::RED, width, {}};
    return paint;
}

// Width and height stand behind the signature and the header's length and name, high byte first.
std::uint32_t Number(std::string const& png, std::size_t at) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
        value = value << 8 | static_cast<unsigned char>(png.at(at + i));
    return value;
}

std::string Png(PngPainter painter, PaintedSheet const& sheet) {
    painter.BeginSheet(sheet);
    painter.Polyline({{0, 0}, {10, 10}}, false, Line(1));
    painter.EndSheet();
    return painter.TakeImage();
}

TEST(PngPainter, SizeFollowsTheResolution) {
    std::string const png = Png(PngPainter(254), Sheet(10, 20));
    EXPECT_EQ(Number(png, 16), 100u);
    EXPECT_EQ(Number(png, 20), 200u);
}

TEST(PngPainter, AWidthInPixelsOverridesTheResolution) {
    std::string const png = Png(PngPainter(254, 50), Sheet(10, 20));
    EXPECT_EQ(Number(png, 16), 50u);
    EXPECT_EQ(Number(png, 20), 100u);
}

TEST(PngPainter, AHugeSheetIsPaintedCoarser) {
    std::string const png = Png(PngPainter(2540), Sheet(100000, 1));
    EXPECT_EQ(Number(png, 16), 30000u);
}

TEST(PngPainter, AnEmptySheetIsOnePixelAtLeast) {
    PaintedSheet sheet;
    EXPECT_GE(Number(Png(PngPainter(), sheet), 16), 1u);
}

// How far to the right there is ink, in pixels; 0 without any.
int RightEnd(test::Raster const& raster) {
    for (int x = raster.width; x > 0; --x) {
        for (int y = 0; y < raster.height; ++y) {
            if (raster.HasInk(x - 1, y, 0)) return x;
        }
    }
    return 0;
}

// Pieces in other sizes follow where a piece ends, and labels stand right of wires that end there.
TEST(PngPainter, ATextIsAsLongAsItsLayoutAtEveryResolution) {
    for (bool const bold : {false, true}) {
        for (double const dotsPerInch : {60., 72., 96., 100., 110., 150., 300.}) {
            PaintedText text;
            text.anchor = {2, 2};
            text.style.height = 1.5;
            text.style.bold = bold;
            text.layout =
                LayOutText(L"Still filling the little tin, till it is full: I", true,
                           HorizontalAlignment::LEFT, VerticalAlignment::BOTTOM, text.style);
            PngPainter painter(dotsPerInch);
            painter.BeginSheet(Sheet(80, 6));
            painter.Text(text);
            painter.EndSheet();
            double const end = (text.anchor.x + text.layout.width) * dotsPerInch / 25.4;
            double const beside =
                0.15 * text.style.height * dotsPerInch / 25.4;  // of the last letter
            EXPECT_NEAR(RightEnd(test::RasterOfPng(painter.TakeImage())), end - beside, 2)
                << dotsPerInch << (bold ? " bold" : "");
        }
    }
}

using Square = std::vector<dg::DPoint2D>;

// Squares that overlap from (4, 4) to (6, 6) and run in opposite directions.
Square const LOW_SQUARE = {{1, 1}, {6, 1}, {6, 6}, {1, 6}};
Square const HIGH_SQUARE = {{4, 4}, {4, 9}, {9, 9}, {9, 4}};

Paint Filled(dg::Color const& color, bool isArea) {
    Paint paint;
    paint.fill = {true, color, isArea};
    return paint;
}

// Ten pixels to the millimetre, of both formats.
template <class Use>
std::vector<test::Raster> RastersOf(Use const& use) {
    constexpr unsigned DOTS_PER_INCH = 254;
    PngPainter png(DOTS_PER_INCH);
    PdfPainter pdf;
    for (Painter* painter : {static_cast<Painter*>(&png), static_cast<Painter*>(&pdf)}) {
        painter->BeginSheet(Sheet(10, 10));
        use(*painter);
        painter->EndSheet();
    }
    return {test::RasterOfPng(png.TakeImage()),
            test::RasterOfPdf(pdf.TakeDocument(), DOTS_PER_INCH)};
}

std::array<unsigned char, 3> PixelAt(test::Raster const& raster, double x, double y) {
    auto const column = static_cast<std::size_t>(x * 10);
    auto const row = static_cast<std::size_t>(raster.height - y * 10);
    return raster.pixels.at(row * static_cast<std::size_t>(raster.width) + column);
}

using Pixel = std::array<unsigned char, 3>;
constexpr Pixel RED_PIXEL{255, 0, 0};
constexpr Pixel BLUE_PIXEL{0, 0, 255};

TEST(CairoPainters, FilledShapesThatOverlapCutNoHolesIntoOneAnother) {
    for (bool const isArea : {false, true}) {
        auto const rasters = RastersOf([&](Painter& painter) {
            for (Square const& square : {LOW_SQUARE, HIGH_SQUARE})
                painter.Polyline(square, true, Filled(dg::Color::RED, isArea));
            painter.Arc({5, 5}, 0.5, 0, 7, Filled(dg::Color::RED, isArea));
        });
        for (test::Raster const& raster : rasters) {
            for (double const at : {2., 4.25, 5., 5.75, 8.})
                EXPECT_EQ(PixelAt(raster, at, at), RED_PIXEL) << at << isArea;
            EXPECT_FALSE(raster.HasInk(20, 20, 0)) << "beside both";
        }
    }
}

// Lines of one style are painted in one go, whatever is painted between them.
TEST(CairoPainters, AnAreaHidesNoLineOfAStyleThatWasUsedBefore) {
    auto const rasters = RastersOf([](Painter& painter) {
        painter.Polyline({{1, 9}, {9, 9}}, false, Line(0.5));
        painter.Polyline(LOW_SQUARE, true, Filled(dg::Color::BLUE, true));
        painter.Polyline({{1, 3}, {9, 3}}, false, Line(0.5));
    });
    for (test::Raster const& raster : rasters) {
        EXPECT_EQ(PixelAt(raster, 3, 3), RED_PIXEL);
        EXPECT_EQ(PixelAt(raster, 3, 5), BLUE_PIXEL);
    }
}

TEST(CairoPainters, InkIsPaintedOverAreasThatComeLater) {
    auto const rasters = RastersOf([](Painter& painter) {
        painter.Arc({3, 3}, 1, 0, 7, Filled(dg::Color::RED, false));
        painter.Polyline(LOW_SQUARE, true, Filled(dg::Color::BLUE, true));
    });
    for (test::Raster const& raster : rasters)
        EXPECT_EQ(PixelAt(raster, 3, 3), RED_PIXEL);
}

// What a line leaves of the white of a column of pixels, 1 for a line of one pixel in black.
double Darkness(double width, double dotsPerInch) {
    Paint paint;
    paint.stroke = {dg::Color::BLACK, width, {}};
    PngPainter painter(dotsPerInch);
    painter.BeginSheet(Sheet(10, 10));
    painter.Polyline({{0, 5}, {10, 5}}, false, paint);
    painter.EndSheet();
    test::Raster const raster = test::RasterOfPng(painter.TakeImage());
    double darkness = 0;
    for (int y = 0; y < raster.height; ++y)
        darkness += 1 - raster.pixels.at(y * raster.width + raster.width / 2)[0] / 255.0;
    return darkness;
}

TEST(PngPainter, NarrowLinesDoNotFadeAway) {
    EXPECT_NEAR(Darkness(0.01, 150), 0.6, 0.05);
    EXPECT_NEAR(Darkness(0.01, 30), 0.6, 0.05);
    EXPECT_NEAR(Darkness(0.3, 254), 3, 0.05) << "wide ones are as wide as they are";
}

std::string Pdf(unsigned pages, bool linked) {
    PdfPainter painter;
    for (unsigned i = 0; i < pages; ++i) {
        PaintedSheet sheet = Sheet(100, 50);
        sheet.anchor = "page-" + std::to_string(i);
        sheet.depth = i > 0;
        painter.BeginSheet(sheet);
        PaintedItem item;
        if (linked) item.link = "page-0";
        painter.BeginItem(item);
        painter.Polyline({{0, 0}, {10, 10}}, false, Line(1));
        PaintedText text;
        text.anchor = {5, 5};
        text.layout = LayOutText(L"CLOCK", true, HorizontalAlignment::LEFT,
                                 VerticalAlignment::BOTTOM, text.style);
        painter.Text(text);
        painter.EndItem();
        painter.EndSheet();
    }
    return painter.TakeDocument();
}

std::size_t Count(std::string const& text, std::string const& part) {
    std::size_t count = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

TEST(PdfPainter, EverySheetIsAPage) {
    EXPECT_EQ(Count(Pdf(3, false), "/Type /Page "), 3u);
}

TEST(PdfPainter, AnItemWithALinkLeadsToItsSheet) {
    EXPECT_EQ(Count(Pdf(2, false), "/Subtype /Link"), 0u);
    EXPECT_EQ(Count(Pdf(2, true), "/Subtype /Link"), 2u);
}

// Also where the sheet is painted over: a background wipes what the page held before.
TEST(PdfPainter, EveryAnchorIsAPlaceInTheDocument) {
    std::string const document = Pdf(2, true);
    EXPECT_EQ(Count(document, "/XYZ"), 2u);
    EXPECT_EQ(Count(document, "(page-1)"), 2u) << "the outline's entry and the name itself";
}

TEST(PdfPainter, TheOutlineNamesEverySheet) {
    EXPECT_EQ(Count(Pdf(3, false), "/Title (sheet)"), 3u);
}

TEST(PdfPainter, TheSameSheetsGiveTheSameBytes) {
    EXPECT_EQ(Pdf(2, true), Pdf(2, true));
}

TEST(PdfPainter, NothingIsPaintedAfterTheDocumentIsTaken) {
    PdfPainter painter;
    EXPECT_FALSE(painter.TakeDocument().empty());
    painter.BeginSheet(Sheet(10, 10));
    painter.Polyline({{0, 0}, {10, 10}}, false, Line(1));
    painter.EndSheet();
    EXPECT_TRUE(painter.TakeDocument().empty());
}

}  // namespace
}  // namespace fighost
