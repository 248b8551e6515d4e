// The nets of a KiCad design computed in the plainest way, to hold the reader's answer against.
#pragma once

#include <set>
#include <string>
#include <vector>

namespace oracle {

struct Net {
    std::string name;
    /// `REF:PIN` texts without references that start with '#'.
    std::set<std::string> pins;
    /// Human paths of the sheet instances that show the net, such as "/" or "/power/".
    std::set<std::string> sheets;
};

/// All nets of the design whose root sheet is `rootFile`, those without pins left out. The project
/// (text variables, newer bus aliases) is not read. Throws std::runtime_error on an unreadable
/// root.
std::vector<Net> ComputeNets(std::string const& rootFile);

}  // namespace oracle
