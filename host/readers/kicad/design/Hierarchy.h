// The sheets of a design: every file once, every place where it is used.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <readers/FileSource.h>
#include <readers/Findings.h>
#include <readers/kicad/design/Project.h>
#include <readers/kicad/file/DrawingSheet.h>
#include <readers/kicad/file/Limits.h>
#include <readers/kicad/file/SheetFile.h>

namespace fighost::kicad {

inline constexpr std::uint32_t NO_SHEET = 0xFFFFFFFFu;

/// One place of a sheet file in the design.
struct SheetInstance {
    SheetFile const* file = nullptr;
    std::string id;       ///< "/<root uuid>/<uuid of the sheet's symbol>/..."
    std::string tableId;  ///< the same without the root's uuid: how version 6 names it
    std::string name;     ///< as a user calls it; of the root the file's base name
    std::string path;     ///< "/power/regulator/"; "/" for the root
    std::string page;
    unsigned depth = 0;
    std::uint32_t parent = NO_SHEET;
    std::uint32_t symbolInParent = 0;
    std::vector<std::uint32_t> children;  ///< per sheet symbol of the file; NO_SHEET: not shown
    std::vector<std::string> missing;     ///< per sheet symbol: why it isn't shown; else empty
};

struct Hierarchy {
    Project project;
    std::optional<DrawingSheet> drawingSheet;  ///< none: the frame is drawn our own way
    std::vector<std::unique_ptr<SheetFile>> files;
    std::vector<SheetInstance> sheets;  ///< parents before children, in the order of the files
    BusAliases aliases;                 ///< of all sheets and of the project
    std::map<std::string, SymbolInstance const*, std::less<>> instanceTable;  ///< by full path

    SheetFile const& Root() const { return *files.front(); }
};

/// Loads the root and all that it includes. Answers the error that keeps the root from being shown,
/// or a limit that was reached. A sub-sheet that is missing, broken or includes itself is a
/// warning, and so is a drawing sheet that can't be used. The drawing sheet is the one that the
/// project names, else the file beside the project with its base name.
std::optional<Finding> LoadHierarchy(FileSource& source, std::string const& rootPath,
                                     Limits const& limits, Findings& findings, Hierarchy& result);

}  // namespace fighost::kicad
