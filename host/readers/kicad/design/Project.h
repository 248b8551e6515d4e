// What the reader takes from a project file beside the root sheet.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include <readers/FileSource.h>
#include <readers/Findings.h>
#include <readers/kicad/design/BusNames.h>
#include <readers/kicad/file/Limits.h>

namespace fighost::kicad {

struct Project {
    std::string name;  ///< the base name of the project file
    std::map<std::string, std::string, std::less<>> variables;
    BusAliases aliases;
    std::string drawingSheet;  ///< the file that draws the frame, as the project names it
    int firstUnit = 'A';       ///< what the first unit of a symbol is called
    int unitSeparator = 0;     ///< between reference and unit; 0: nothing

    /// "U1" and 2 as "U1B".
    std::string UnitReference(std::string const& reference, int unit) const;
    /// 1 as "A", 27 as "AA"; as a number where the project wants numbers.
    std::string UnitName(int unit) const;
};

/// Reads the project of a root sheet: the file of the same base name, with the extension
/// `kicad_pro`. A missing file makes an empty project; a broken one is a warning.
Project ReadProject(FileSource& files, std::string const& rootSheet, Limits const& limits,
                    Findings& findings);

}  // namespace fighost::kicad
