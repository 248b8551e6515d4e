// The texts that a reader of the printed sheets sees, as read from the files.
#pragma once

#include <string>
#include <vector>

#include "Sheets.h"

namespace oracle {

/// A text on a sheet. Variables in it stay as the file writes them.
struct VisibleText {
    std::string sheet;   ///< path
    std::string text;    ///< escapes replaced, mark-up left in
    bool placed = true;  ///< false: somewhere in the frame
    Place at;
    long reach = 0;  ///< how far from `at` the text may begin, in units of 100 nm
};

/// Texts, text boxes and tables, labels, sheet symbols with their pins, the shown fields of
/// symbols, the texts and pins of their bodies, and the fields of the title block.
std::vector<VisibleText> ReadVisibleTexts(std::string const& rootFile);

}  // namespace oracle
