// One open design: its kernel records and a live figure for each of its sheets.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <figk/SettingValue.h>
#include <figrep/Fwd.h>
#include <readers/FileSource.h>
#include <readers/Findings.h>
#include <session/History.h>
#include <session/SavedState.h>
#include <session/look/SheetLook.h>

namespace figkernel {
struct DesignSource;
}

namespace fighost {

struct SessionOptions {
    /// What a wire shows where it crosses another one.
    figk::CrossingPointStyle crossings = figk::CROSSING_ARC;
    /// A file of saved figures that the design's figures are made from; empty for none.
    std::string saved;
    bool savedMayBeMissing = false;  ///< a missing file of them is one without figures
    SheetLook look;
    bool arrows = false;  ///< on wires, where they show which way a signal flows
};

/// A sheet of the open design.
struct SessionSheet {
    std::string id;
    std::string name;
    std::string path;    ///< as a user reads it, "/power/regulator/"; the root is "/"
    std::string parent;  ///< id of the sheet that shows this one as a block; empty for the root
    figrep::SmartPtr<figk::Sheet> record;
    figrep::SmartPtr<figrep::Figure> figure;  ///< loaded, pictures up to date
};

/// An open design. Several may be open at once; they share the process's kernel and its lock.
///
/// Ownership: the session holds the figures and has its design in the kernel; both go with it,
/// unless somebody else holds a figure. Errors are values and nothing is printed.
class Session {
public:
    struct Opened;

    /// Reads the design that begins with the file at `path` and builds all its figures.
    static Opened Open(FileSource& files, std::string const& path,
                       SessionOptions const& options = {});
    /// The same from the disk; "-" is standard input.
    static Opened Open(std::string const& path, SessionOptions const& options = {});

    ~Session();
    Session(Session const&) = delete;
    Session& operator=(Session const&) = delete;

    std::string const& GetFile() const { return file_; }
    std::string GetDesignName() const;
    figrep::SmartPtr<figk::Design> const& GetDesign() const { return design_; }
    /// In the order of the design, the root first.
    std::vector<SessionSheet> const& GetSheets() const { return sheets_; }
    /// The sheets with this name or path; a path names one sheet.
    std::vector<SessionSheet const*> FindSheets(std::string const& nameOrPath) const;
    /// What the reader and the builder passed over or mended.
    Findings const& GetFindings() const { return findings_; }
    /// What was done to the figures by operations on the history's scene, for undo and redo.
    History& GetHistory() { return history_; }
    History const& GetHistory() const { return history_; }
    /// What became of each saved change; empty without a file of saved figures.
    std::vector<SavedReport> GetSavedReports() const { return savedState_.GetReports(); }
    /// The bytes of a file with all figures that were saved or have been changed, as they stand.
    std::string SaveFigures() const;

private:
    Session() = default;
    bool Load(FileSource& files, SessionOptions const& options, std::optional<Finding>& error);
    bool AddSheets(std::vector<std::string> const& paths, SessionOptions const& options,
                   std::optional<Finding>& error);
    void AddSheet(figrep::SmartPtr<figk::Sheet> const& record, std::string const& path,
                  SessionOptions const& options);
    void KeepTree(figkernel::DesignSource const& source);

    std::string file_;
    figrep::SmartPtr<figk::Design> design_;
    std::vector<SessionSheet> sheets_;
    Findings findings_;
    History history_;
    SavedState savedState_;
};

/// Exactly one of the two is set.
struct Session::Opened {
    std::unique_ptr<Session> session;
    std::optional<Finding> error;
};

}  // namespace fighost
