// Names like the one that somebody mistyped.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace fighost {

/// At most `most` of the names, the likeliest first: those that differ in the case of letters or in
/// mark-up only, those that are the same behind the last '/', those that contain what stands there
/// in the wanted name, then those that a few typing mistakes lead to. Equally near ones keep their
/// order. Cost: linear in the names, and quadratic in the length of a name.
std::vector<std::string> NearNames(std::vector<std::string> const& names, std::string_view wanted,
                                   std::size_t most = 5);

}  // namespace fighost
