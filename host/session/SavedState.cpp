#include <session/SavedState.h>

#include <algorithm>
#include <utility>

#include <figk/Design.h>
#include <figk/Sheet.h>
#include <figrep/Figure.h>
#include <persistence/ColorDelta.h>

namespace fighost {

namespace {

using figrep::SmartPtr;

bool WasMadeFrom(SavedFigure const& saved, SavedFigure::SheetId const& sheet) {
    auto const sheets = saved.GetSheets();
    return std::any_of(sheets.begin(), sheets.end(), [&](SavedFigure::SheetId const& own) {
        return own.design == sheet.design && own.sheet == sheet.sheet;
    });
}

SavedFigure::SheetId IdOf(figk::Sheet const& sheet) {
    auto const design = sheet.GetDesign();
    return {design ? design->GetId().GetString() : std::string(), sheet.GetId().GetString()};
}

// The first delta is the sheet itself. The grid is saved with the figure and is no delta.
bool IsChanged(SmartPtr<figrep::Figure> const& figure) {
    if (!figure) return false;
    if (figure->GetFormatGridOn()) return true;
    auto const deltas = figure->GetDeltas();
    return std::count_if(deltas.begin(), deltas.end(),
                         [](auto const& delta) { return IsWorthSaving(*delta); }) > 1;
}

}  // namespace

DeltaTypes HostDeltaTypes() {
    DeltaTypes types;
    ColorDelta::AddTo(types);
    return types;
}

std::optional<Finding> SavedState::Read(FileSource& files, std::string const& path,
                                        bool mayBeMissing) {
    entries_.clear();
    names_.clear();
    content_.reset();
    ReadFigures read = ReadSavedFigures(files, path);
    if (read.isMissing && mayBeMissing) return {};
    if (read.error) return std::move(read.error);
    names_ = std::move(read.file->names);
    content_ = std::move(read.file->content);
    for (SavedFigure& saved : read.file->figures)
        entries_.push_back({std::move(saved), {}, {}});
    return {};
}

bool SavedState::Apply(figk::Sheet const& sheet, std::string const& path,
                       SmartPtr<figrep::Figure> const& figure) {
    SavedFigure::SheetId const id = IdOf(sheet);
    for (Entry& entry : entries_) {
        if (entry.figure || !WasMadeFrom(entry.saved, id)) continue;
        entry.figure = figure;
        Run(entry, entry.saved, path, figure);
        return true;
    }
    return false;
}

void SavedState::Run(Entry& entry, SavedFigure& saved, std::string const& path,
                     SmartPtr<figrep::Figure> const& figure) {
    auto const number = static_cast<std::size_t>(&entry - entries_.data()) + 1;
    for (DeltaReport& report : ApplySavedFigure(figure, saved, HostDeltaTypes(), names_))
        entry.reports.push_back({number, path, std::move(report)});
}

// What is tried here is thrown away, so that such a figure is written back untouched.
void SavedState::ApplyLeftOvers() {
    for (Entry& entry : entries_) {
        if (entry.figure || !entry.reports.empty()) continue;
        auto const sheets = entry.saved.GetSheets();
        bool const isTwin = std::any_of(sheets.begin(), sheets.end(),
                                        [this](auto const& sheet) { return IsGivenOut(sheet); });
        if (isTwin) {
            ReportTwin(entry);
            continue;
        }
        SavedFigure copy = entry.saved;
        Run(entry, copy, {}, new figrep::Figure());
    }
}

bool SavedState::IsGivenOut(SavedFigure::SheetId const& sheet) const {
    return std::any_of(entries_.begin(), entries_.end(), [&](Entry const& entry) {
        return entry.figure && WasMadeFrom(entry.saved, sheet);
    });
}

void SavedState::ReportTwin(Entry& entry) {
    auto const number = static_cast<std::size_t>(&entry - entries_.data()) + 1;
    auto const lines = DescribeSavedFigure(entry.saved, names_);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        entry.reports.push_back({number,
                                 {},
                                 {i + 1, DeltaReport::FAILED, lines[i],
                                  "another figure of the file shows this sheet already"}});
    }
}

std::vector<SavedReport> SavedState::GetReports() const {
    std::vector<SavedReport> reports;
    for (Entry const& entry : entries_)
        reports.insert(reports.end(), entry.reports.begin(), entry.reports.end());
    return reports;
}

std::string SavedState::Write(std::vector<SmartPtr<figrep::Figure>> const& figures) const {
    std::vector<FigureToSave> parts;
    for (Entry const& entry : entries_)
        parts.push_back({entry.figure, &entry.saved});
    auto const isNew = [this](SmartPtr<figrep::Figure> const& figure) {
        return std::none_of(entries_.begin(), entries_.end(),
                            [&](Entry const& entry) { return entry.figure == figure; });
    };
    for (auto const& figure : figures) {
        if (IsChanged(figure) && isNew(figure)) parts.push_back({figure, nullptr});
    }
    if (parts.empty() && !figures.empty()) parts.push_back({figures.front(), nullptr});
    return WriteSavedFigures(parts, names_, content_.get());
}

}  // namespace fighost
