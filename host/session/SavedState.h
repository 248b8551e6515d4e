// The saved figures that belong to an open design.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <figrep/Fwd.h>
#include <persistence/ApplySaved.h>
#include <persistence/DeltaTypes.h>
#include <persistence/SavedFigures.h>
#include <readers/FileSource.h>
#include <readers/Findings.h>

namespace fighost {

/// What became of one saved change, and where.
struct SavedReport {
    std::size_t figure = 0;  ///< counted from 1 in the file
    std::string sheet;       ///< path of the sheet; empty when no open sheet belongs to the figure
    DeltaReport delta;
};

/// The types of recorded changes that this host knows: the library's and its own.
DeltaTypes HostDeltaTypes();

/// The figures of one file, each given out to the open sheet from which it was made.
///
/// Those that belong to no open sheet are kept as they are and written back, and so is whatever
/// else stands in the file. Locking: the kernel's
/// lock, through the figures.
class SavedState {
public:
    /// One without figures: nothing has been saved yet.
    SavedState() = default;

    /// Replaces what it holds by the file at `path`. With `mayBeMissing` a file that isn't there is
    /// one without figures.
    std::optional<Finding> Read(FileSource& files, std::string const& path, bool mayBeMissing);

    /// Makes the fresh figure of a sheet what it was when it was saved: the first saved figure that
    /// was made from the sheet and isn't given out yet is applied to it. False without one; the
    /// figure is as it was then. `figure` has its frame already.
    bool Apply(figk::Sheet const& sheet, std::string const& path,
               figrep::SmartPtr<figrep::Figure> const& figure);
    /// Tries the figures that no sheet asked for, so that each of their changes is reported too.
    void ApplyLeftOvers();

    /// In the order of the file. Complete after `ApplyLeftOvers`.
    std::vector<SavedReport> GetReports() const;

    /// The bytes of a file with the figures read, as they stand now, and with those of `figures`
    /// that were changed since they were made. There is always one figure in it, the first if none
    /// was changed.
    std::string Write(std::vector<figrep::SmartPtr<figrep::Figure>> const& figures) const;

private:
    struct Entry {
        SavedFigure saved;
        figrep::SmartPtr<figrep::Figure> figure;  // null until it is given out
        std::vector<SavedReport> reports;
    };

    void Run(Entry& entry, SavedFigure& saved, std::string const& path,
             figrep::SmartPtr<figrep::Figure> const& figure);
    void ReportTwin(Entry& entry);
    bool IsGivenOut(SavedFigure::SheetId const& sheet) const;

    std::vector<Entry> entries_;
    KnownNames names_;
    std::shared_ptr<zvk::SerializedContentElement const> content_;  // of the file; null for none
};

}  // namespace fighost
