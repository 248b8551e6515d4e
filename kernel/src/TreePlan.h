// The trees of one sheet as plain arrays, before any record is made of them.
#pragma once

#include <cstdint>
#include <vector>

#include <figkernel/DesignSource.h>

#include "GridPoint.h"
#include "LineSplitter.h"

namespace figkernel {

/// What a planned node becomes, and what its `source` indexes.
enum class PlanKind : std::uint8_t {
    PIECE,         ///< a segment of a drawn wire or bus; `source` is a piece of the plan
    TAP,           ///< the drawn way onto a highway; `source` is a tap of the sheet
    STUB,          ///< a segment without length that the tree needs; no source
    PORT,          ///< a port node; `source` is a port node of the sheet
    CONNECTOR,     ///< a pin's node; `source` is a pin of the sheet's `PinTable`
    HIGHWAY_NODE,  ///< where the net enters or leaves a highway; `source` is the node of the
                   ///< sub-highway whose far end is that point
    ROUTE          ///< the net's own copy of a highway segment; `source` is that segment's node
};

/// A node of a tree. Nodes stand behind their parents and, below one parent, in walking order.
struct PlanNode {
    PlanKind kind = PlanKind::STUB;
    std::uint32_t parent = NO_INDEX;  ///< NO_INDEX for the head only
    std::uint32_t source = NO_INDEX;
    std::uint32_t subHighway = NO_INDEX;  ///< HIGHWAY_NODE and ROUTE: in the sheet's plan
    GridPoint nearEnd;                    ///< touches the parent
    GridPoint farEnd;                     ///< touches all children (a head's connectors aside)
};

struct SubHighwayPlan {
    SourceIndex highway = NO_INDEX;
    std::vector<Piece> pieces;
    std::vector<PlanNode> nodes;
    std::vector<std::uint32_t> depths;  ///< of each node below the head
};

struct SubNetPlan {
    SourceIndex net = NO_INDEX;
    bool hasStart = false;  ///< flow starts at the head
    std::vector<PlanNode> nodes;
};

/// All sub-nets of one net on a sheet, and the pieces that their nodes name.
struct NetPlan {
    SourceIndex net = NO_INDEX;
    std::vector<Piece> pieces;
    std::vector<SubNetPlan> subNets;
};

/// Where a point of a highway lies in the plan: the node whose far end it is.
struct HighwayPlace {
    std::uint32_t subHighway = NO_INDEX;
    std::uint32_t node = NO_INDEX;
};

}  // namespace figkernel
