// What to say of a net that a design doesn't have.
#pragma once

#include <string>
#include <vector>

namespace fighost {

/// "no net is called 'X'" and, where some of the names are like it, a question whether one of those
/// is meant.
std::string UnknownNet(std::vector<std::string> const& names, std::string const& wanted);

/// The same of an open design, and where no name is like it, how to list them all.
std::string UnknownNetOfDesign(std::vector<std::string> const& names, std::string const& wanted);

}  // namespace fighost
