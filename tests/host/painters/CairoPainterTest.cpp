#include <painters/CairoPainter.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

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
