// Tab-separated lines.
#pragma once

#include <string>
#include <vector>

namespace fighost {

/// The text with blanks for control characters, so that it stays on its line and in its column.
std::string OneLine(std::string text);

/// The columns as one line, each made to stay in its column.
std::string Line(std::vector<std::string> const& columns);

}  // namespace fighost
