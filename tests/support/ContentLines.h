// Stored content as text that can be compared.
#pragma once

#include <string>
#include <vector>

#include <zvk/SerializedContentElement.h>

namespace figrep::test {

/// One line for each property (`key=type value`) and for each start and end of a child.
std::vector<std::string> LinesOf(zvk::SerializedContentElement const& element);

}  // namespace figrep::test
