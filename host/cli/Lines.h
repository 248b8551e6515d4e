// Tab-separated lines.
#pragma once

#include <string>
#include <vector>

namespace fighost {

/// The columns as one line; control characters inside become blanks, so that a value stays on its
/// line and in its column.
std::string Line(std::vector<std::string> const& columns);

}  // namespace fighost
