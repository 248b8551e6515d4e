// The way of a net along a highway, from where it enters to all places where it leaves.
#pragma once

#include <cstdint>
#include <vector>

#include "TreePlan.h"

namespace figkernel {

/// Appends copies of the highway's segments that join `entry` with all `exits`, as a tree below the
/// node `parent` of the net, and one highway node per exit. Entry and exits are nodes of `highway`,
/// standing for their far ends, and all differ. Answers the node made for each exit.
///
/// Cost: the length of the way, times the logarithm of the number of exits.
std::vector<std::uint32_t> PlanRoute(SubHighwayPlan const& highway, std::uint32_t subHighway,
                                     std::uint32_t entry, std::vector<std::uint32_t> const& exits,
                                     std::uint32_t parent, std::vector<PlanNode>& nodes);

}  // namespace figkernel
