// Plans the trees of one net on one sheet.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "TreePlan.h"

namespace figkernel {

/// A drawn way from a net's wires onto a highway.
struct NetTap {
    std::uint32_t tap = NO_INDEX;  ///< on the sheet
    SourceIndex highway = NO_INDEX;
    GridPoint netPoint;
    GridPoint busPoint;
    HighwayPlace place;  ///< empty when the bus point lies on no bus
};

/// What one net has on one sheet.
struct NetDrawing {
    SourceIndex net = NO_INDEX;
    std::vector<DrawnLine> lines;
    std::vector<NetTap> taps;
    std::vector<GridPoint> joins;
    std::vector<GridPoint> starts;                           ///< of flow
    std::vector<std::pair<GridPoint, std::uint32_t>> pins;   ///< place and pin of the sheet
    std::vector<std::pair<GridPoint, std::uint32_t>> ports;  ///< place and port node of the sheet
};

/// Plans one sub-net for everything that wires, points and highways join; what only the name joins
/// stays apart. A single pin that nothing touches makes none.
///
/// - The head stands where flow starts; where no place or several are named, at a free end of a
///   wire, else at a port. It is a segment with a free end (with one pin there at most), else a
///   port, else a stub.
/// - Connectors hang below the head or below leaves of their own.
/// - Each connected piece of wires comes onto each highway once. Where pieces and highways form a
///   loop, and where wires do, the closing part is drawn as a further end.
/// - The first highway node of a highway in walking order is the entry; the others are exits, each
///   with exactly one net node below it. Between them stand the highway's segments that lie on the
///   way, as nodes of the net's own.
NetPlan PlanNet(NetDrawing const& drawing, std::vector<SubHighwayPlan> const& highways);

}  // namespace figkernel
