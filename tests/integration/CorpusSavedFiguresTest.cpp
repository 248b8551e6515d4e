// Random changes of real designs, saved and applied to a fresh figure.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include <figrep/Figure.h>
#include <support/Corpus.h>
#include <painters/PaintFigure.h>
#include <painters/SvgPainter.h>
#include <persistence/ApplySaved.h>
#include <persistence/SavedFigures.h>
#include <session/Session.h>
#include <session/SheetFrame.h>
#include <support/FigureDump.h>
#include <support/RandomEdits.h>

namespace fighost {
namespace {

using figrep::SmartPtr;

std::string Picture(SmartPtr<figrep::Figure> const& figure) {
    figure->UpdateContent();
    SvgPainter painter;
    PaintFigure(figure, painter, PaintOptions());
    return painter.TakeDocument();
}

/// A figure of the sheet made from what was saved of another one.
SmartPtr<figrep::Figure> Reload(std::string const& bytes, SessionSheet const& sheet) {
    auto read = ReadSavedFigures(bytes, "saved");
    EXPECT_FALSE(read.error) << read.error->ToString();
    if (!read.file) return {};
    SmartPtr<figrep::Figure> const figure = new figrep::Figure();
    AddSheetFrame(sheet.record, figure);
    auto& saved = read.file->figures[0];
    for (auto const& report : ApplySavedFigure(figure, saved, DeltaTypes(), read.file->names))
        EXPECT_EQ(report.outcome, DeltaReport::APPLIED) << report.ToString();
    return figure;
}

/// The first lines in which two dumps differ; empty when they are equal.
std::string FirstDifference(SmartPtr<figrep::Figure> const& a, SmartPtr<figrep::Figure> const& b) {
    auto const left = figrep::test::DumpOf(a);
    auto const right = figrep::test::DumpOf(b);
    auto const [l, r] = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
    if (l == left.end() && r == right.end()) return {};
    return (l == left.end() ? "nothing" : *l) + "\n" + (r == right.end() ? "nothing" : *r);
}

/// Random changes of one sheet, saved and applied to a fresh figure, look like the live figure.
void ExpectChangesComeBack(SessionSheet const& sheet, std::uint64_t seed) {
    SCOPED_TRACE(sheet.path);
    figrep::test::RandomEdits edits(sheet.figure, seed);
    for (int i = 0; i < 20; ++i)
        edits.Edit();
    auto const fresh = Reload(WriteSavedFigures({{sheet.figure, nullptr}}, {}), sheet);
    ASSERT_TRUE(fresh);
    // Pictures first: those of the wires are part of what is dumped.
    EXPECT_TRUE(Picture(fresh) == Picture(sheet.figure)) << "the pictures differ";
    EXPECT_EQ(FirstDifference(fresh, sheet.figure), "");
}

TEST(CorpusSavedFigures, AppliedAfreshTheyLookLikeTheLiveFigures) {
    SKIP_WITHOUT_CORPUS();
    constexpr std::size_t SHEETS = 2;  // of each design
    SessionOptions options;
    options.crossings = figk::CROSSING_NONE;
    std::uint64_t seed = 0;
    for (std::string const& root : corpus::RootSheets()) {
        auto const opened = Session::Open(root, options);
        if (!opened.session) continue;
        SCOPED_TRACE(root);
        auto const& sheets = opened.session->GetSheets();
        for (std::size_t i = 0; i < sheets.size() && i < SHEETS; ++i)
            ExpectChangesComeBack(sheets[i], ++seed);
    }
}

}  // namespace
}  // namespace fighost
