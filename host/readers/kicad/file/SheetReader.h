// From the tree of a schematic file to its items.
#pragma once

#include <optional>
#include <string>

#include <readers/Findings.h>
#include <readers/kicad/file/Limits.h>
#include <readers/kicad/file/SheetFile.h>

namespace fighost::kicad {

class SExpression;

/// Fills `sheet` from the bytes of a schematic file. Answers the error when the file is none;
/// whatever else is wrong becomes warnings in `findings`, and the item is left out.
std::optional<Finding> ReadSheetFile(std::string const& path, std::string bytes,
                                     Limits const& limits, Findings& findings, SheetFile& sheet);

}  // namespace fighost::kicad
