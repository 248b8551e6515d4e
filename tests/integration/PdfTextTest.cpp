// Texts of a PDF document as a reader finds them.
#include <gtest/gtest.h>

#include <numbers>

#include <host/cli/RunProgram.h>
#include <integration/PdfReading.h>
#include <painters/CairoPainter.h>

namespace fighost::test {
namespace {

PaintedText Words(std::wstring const& words, dg::DPoint2D const& at, double angle = 0) {
    PaintedText text;
    text.anchor = at;
    text.angle = angle;
    text.layout =
        LayOutText(words, true, HorizontalAlignment::LEFT, VerticalAlignment::BOTTOM, text.style);
    return text;
}

std::string TextOfPageWith(PaintedText const& text) {
    PdfPainter painter;
    PaintedSheet sheet;
    sheet.box = dg::DBox2D(0, 0, 200, 100);
    painter.BeginSheet(sheet);
    painter.Text(text);
    painter.EndSheet();
    TemporaryFolder folder;
    WriteFile(folder.Path("out.pdf"), painter.TakeDocument());
    PdfReading const reading = ReadPdf(folder.Path("out.pdf"));
    EXPECT_EQ(reading.problem, "");
    return reading.pages.empty() ? std::string() : WithoutSpaces(reading.pages[0].text);
}

TEST(PdfText, SignsOfTheTradeCanBeSelected) {
    EXPECT_EQ(TextOfPageWith(Words(L"10\u00B5F \u03A9 \u00B15% \u00B0C \u2192 \u2212", {10, 50})),
              "10\u00B5F\u03A9\u00B15%\u00B0C\u2192\u2212");
}

TEST(PdfText, TextWithABarAndSmallLettersIsInOnePiece) {
    EXPECT_EQ(TextOfPageWith(Words(L"~{RESET}_IN", {10, 50})), "RESET_IN");
    EXPECT_EQ(TextOfPageWith(Words(L"A~{B}C", {10, 50})), "ABC");
}

TEST(PdfText, TurnedTextIsFoundToo) {
    constexpr double QUARTER = std::numbers::pi / 2;
    EXPECT_EQ(TextOfPageWith(Words(L"UPWARD", {50, 20}, QUARTER)), "UPWARD");
    EXPECT_EQ(TextOfPageWith(Words(L"DOWNWARD", {50, 80}, -QUARTER)), "DOWNWARD");
    EXPECT_EQ(TextOfPageWith(Words(L"ASLANT", {50, 20}, 0.5)), "ASLANT");
}

TEST(PdfText, ALetterThatTheFontLacksIsKeptForTheReader) {
    EXPECT_EQ(TextOfPageWith(Words(L"A\u6F22\u5B57B", {10, 50})), "A\u6F22\u5B57B");
}

}  // namespace
}  // namespace fighost::test
