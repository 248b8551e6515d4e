#include "SavedPictures.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <figrep/Figure.h>
#include <persistence/ApplySaved.h>
#include <persistence/SavedFigures.h>
#include <session/frame/SheetFrame.h>
#include <session/look/SheetLook.h>
#include <support/FigureDump.h>

namespace fighost::test {

using figrep::SmartPtr;

SmartPtr<figrep::Figure> Reload(std::string const& bytes, SessionSheet const& sheet) {
    auto read = ReadSavedFigures(bytes, "saved");
    EXPECT_FALSE(read.error) << read.error->ToString();
    if (!read.file) return {};
    SmartPtr<figrep::Figure> const figure = new figrep::Figure();
    AddSheetFrame(sheet.record, figure);
    ApplyLook(figure, SheetLook());
    auto& saved = read.file->figures[0];
    for (auto const& report : ApplySavedFigure(figure, saved, DeltaTypes(), read.file->names))
        EXPECT_EQ(report.outcome, DeltaReport::APPLIED) << report.ToString();
    return figure;
}

std::string FirstDifference(SmartPtr<figrep::Figure> const& a, SmartPtr<figrep::Figure> const& b) {
    auto const left = figrep::test::DumpOf(a);
    auto const right = figrep::test::DumpOf(b);
    auto const [l, r] = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
    if (l == left.end() && r == right.end()) return {};
    return (l == left.end() ? "nothing" : *l) + "\n" + (r == right.end() ? "nothing" : *r);
}

}  // namespace fighost::test
