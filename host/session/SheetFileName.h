// File names made of sheet names.
#pragma once

#include <set>
#include <string>
#include <string_view>

namespace fighost {

/// Gives each sheet of a design a file name part that is safe on every system and used once.
/// Letters, digits and ".-_" stay, and so does what isn't ASCII; everything else becomes '_'. A
/// name used before, whatever the case, gets a number behind. The same sequence of names gives the
/// same answers.
class SheetFileNames {
public:
    std::string Next(std::string_view sheetName);

private:
    std::set<std::string> used_;  // in lower case
};

/// `pattern` with every "%s" replaced.
std::string FillPattern(std::string_view pattern, std::string_view sheetName);

}  // namespace fighost
