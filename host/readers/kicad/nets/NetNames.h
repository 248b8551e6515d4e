// The names of nets. Private.
#pragma once

#include <string>
#include <vector>

#include <readers/kicad/nets/Nets.h>

#include "Buses.h"

namespace fighost::kicad {

/// Names all nets: `netOf` gives for each node the number of its net, or NO_NET. Names are unique:
/// of several nets of one name the later ones get a number behind.
std::vector<Net> NameNets(Hierarchy const& hierarchy, std::vector<SheetGraph> const& sheets,
                          std::vector<BusGroup> const& buses,
                          std::vector<std::uint32_t> const& netOf, std::size_t count);

}  // namespace fighost::kicad
