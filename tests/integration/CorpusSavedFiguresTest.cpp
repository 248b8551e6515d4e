// Random changes of real designs, saved and applied to a fresh figure.
#include <gtest/gtest.h>

#include <string>

#include <figrep/Figure.h>
#include <integration/Corpus.h>
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

TEST(CorpusSavedFigures, AppliedAfreshTheyLookLikeTheLiveFigures) {
    SKIP_WITHOUT_CORPUS();
    SessionOptions options;
    options.crossings = figk::CROSSING_NONE;
    std::uint64_t seed = 0;
    for (std::string const& root : corpus::RootSheets()) {
        auto const opened = Session::Open(root, options);
        if (!opened.session) continue;
        SCOPED_TRACE(root);
        auto const& sheet = opened.session->GetSheets().at(0);
        figrep::test::RandomEdits edits(sheet.figure, ++seed);
        for (int i = 0; i < 20; ++i)
            edits.Edit();
        auto const fresh = Reload(WriteSavedFigures({{sheet.figure, nullptr}}, {}), sheet);
        ASSERT_TRUE(fresh);
        ASSERT_EQ(figrep::test::DumpOf(fresh), figrep::test::DumpOf(sheet.figure));
        ASSERT_TRUE(Picture(fresh) == Picture(sheet.figure)) << "the pictures differ";
    }
}

}  // namespace
}  // namespace fighost
