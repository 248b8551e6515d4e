// Plans the trees of one highway on one sheet.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "TreePlan.h"

namespace figkernel {

/// What one highway has on one sheet.
struct HighwayDrawing {
    SourceIndex highway = NO_INDEX;
    std::vector<DrawnLine> lines;
    std::vector<GridPoint> taps;   ///< where nets come onto it; may repeat
    std::vector<GridPoint> joins;  ///< where crossing buses are one
    std::vector<std::pair<GridPoint, std::uint32_t>> ports;  ///< place and port node
};

/// Appends one plan for each connected piece of the highway, and to `places` the node of each tap
/// that lies on one of them, in the order of the taps (an empty place for those that lie on none).
///
/// Each tree's head is a segment whose free end has no tap and no port; where there is none it is
/// a stub. Segments end at taps, ports and branches; ports are leaves. A segment that would close a
/// loop is a leaf which keeps its place in the picture.
void PlanHighway(HighwayDrawing const& drawing, std::vector<SubHighwayPlan>& plans,
                 std::vector<HighwayPlace>& places);

}  // namespace figkernel
