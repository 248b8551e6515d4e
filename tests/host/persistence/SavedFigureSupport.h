// Figures that are saved and made again.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include <figrep/FigureSheetDeltaGenerator.h>
#include <persistence/ApplySaved.h>
#include <persistence/SavedFigures.h>
#include <session/frame/SheetFrame.h>

#include "../../deltas/DeltaTestSupport.h"

namespace fighost::testing {

using figrep::Figure;
using figrep::SmartPtr;

inline std::string Save(SmartPtr<Figure> const& figure, SavedFigure const* saved = nullptr,
                        KnownNames const& names = {}) {
    return WriteSavedFigures({{figure, saved}}, names);
}

inline ReadFigures::File Read(std::string const& bytes) {
    auto read = ReadSavedFigures(bytes, "test.figrep");
    EXPECT_FALSE(read.error) << read.error->ToString();
    return read.file ? *read.file : ReadFigures::File{{SavedFigure()}, {}, nullptr};
}

/// A figure that has the sheet's frame and nothing else yet.
inline SmartPtr<Figure> FramedFigure(SmartPtr<figk::Sheet> const& sheet) {
    SmartPtr<Figure> figure = new Figure();
    AddSheetFrame(sheet, figure);
    return figure;
}

/// A figure of one sheet with its frame, loaded.
inline SmartPtr<Figure> LoadedWithFrame(SmartPtr<figk::Sheet> const& sheet) {
    SmartPtr<Figure> figure = FramedFigure(sheet);
    SmartPtr<figrep::FigureSheetDeltaGenerator> const generator =
        new figrep::FigureSheetDeltaGenerator(sheet);
    figure->GenerateDeltas(*generator);
    figure->ApplyDeltas(false);
    return figure;
}

/// The first lines in which two figures differ; empty when they are the same.
inline std::string Difference(SmartPtr<Figure> const& a, SmartPtr<Figure> const& b) {
    auto const left = figrep::test::DumpOf(a);
    auto const right = figrep::test::DumpOf(b);
    auto const [l, r] = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
    if (l == left.end() && r == right.end()) return {};
    return "line " + std::to_string(l - left.begin()) + ": " + (l == left.end() ? "nothing" : *l) +
           " | " + (r == right.end() ? "nothing" : *r);
}

/// A figure made again from a file.
struct Loaded {
    explicit Loaded(std::string const& bytes, SmartPtr<Figure> const& fresh = new Figure())
        : Loaded(Read(bytes), fresh) {}
    Loaded(ReadFigures::File read, SmartPtr<Figure> const& fresh)
        : file(std::move(read)), figure(fresh) {
        reports = ApplySavedFigure(figure, file.figures.at(0), DeltaTypes(), file.names);
    }
    std::string SaveAgain() const {
        return WriteSavedFigures({{figure, &file.figures[0]}}, file.names, file.content.get());
    }
    bool AllApplied() const {
        return std::all_of(reports.begin(), reports.end(), [](DeltaReport const& report) {
            return report.outcome == DeltaReport::APPLIED;
        });
    }
    std::string Report(std::size_t index) const { return reports.at(index).ToString(); }
    std::string Reports() const {
        std::string text;
        for (auto const& report : reports)
            text += report.ToString() + "\n";
        return text;
    }

    ReadFigures::File file;
    SmartPtr<Figure> figure;
    std::vector<DeltaReport> reports;
};

}  // namespace fighost::testing
