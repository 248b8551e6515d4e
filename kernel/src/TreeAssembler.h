// Makes records of planned trees.
#pragma once

#include <string>
#include <vector>

#include "BuildContext.h"
#include "ItemBuilder.h"
#include "TreePlan.h"

namespace figkernel {

/// A segment of a tree with its place, for finding what passes a point.
template <class RecordType>
struct PlacedSegment {
    PlanKind kind;
    GridPoint a;
    GridPoint b;
    RecordType* record;
};

using PlacedNetSegments = std::vector<PlacedSegment<NetSegmentRecord>>;
using PlacedHighwaySegments = std::vector<PlacedSegment<HighwaySegmentRecord>>;

/// Works on one sheet: first all highways, then the nets.
class TreeAssembler {
public:
    TreeAssembler(BuildContext& buildContext, IdMaker& idMaker, SheetRecord& sheetRecord,
                  SheetSource const& sheetSource, std::vector<SheetPin> const& sheetPins)
        : context(buildContext),
          ids(idMaker),
          sheet(sheetRecord),
          source(sheetSource),
          pins(sheetPins),
          portNodes(sheetSource.portNodes.size()) {}

    /// Adds the sub-highway of a plan to the sheet and to its highway. Plans come in their order.
    void AddSubHighway(SubHighwayPlan const& plan, PlacedHighwaySegments& placed);

    /// Adds a sub-net to the sheet and to its net.
    void AddSubNet(SubNetPlan const& plan, NetPlan const& net, PlacedNetSegments& placed);

private:
    using NodePtr = du::SmartPtr<figk::ConnectionNode>;

    NodePtr MakeHighwayNode(PlanNode const& node, SubHighwayPlan const& plan,
                            SubHighwayRecord& owner, PlacedHighwaySegments& placed);
    NodePtr MakeNetNode(std::size_t index, SubNetPlan const& plan, NetPlan const& net,
                        SubNetRecord& owner, PlacedNetSegments& placed);
    NodePtr MakeSegment(std::size_t index, SubNetPlan const& plan, NetPlan const& net,
                        SubNetRecord& owner, PlacedNetSegments& placed);
    NodePtr MakeConnectorNode(PlanNode const& node);
    NodePtr MakeRouteNode(PlanNode const& node);
    NodePtr MakeHighwayPoint(PlanNode const& node, SubNetRecord& owner);
    du::SmartPtr<PortNodeRecord> MakePortNode(std::uint32_t index);
    void TieHighwayNodes(SubNetPlan const& plan, std::vector<NodePtr> const& nodes);

    std::string WireId(std::uint32_t wire) const;
    std::string BusId(std::uint32_t bus) const;
    std::string TapId(std::uint32_t tap) const;
    std::string PortNodeId(std::uint32_t portNode) const;
    void IdentifySegment(NetSegmentRecord& record, std::size_t index, SubNetPlan const& plan,
                         NetPlan const& net);
    std::string SmallestId(SubNetPlan const& plan, NetPlan const& net) const;
    std::string SmallestId(SubHighwayPlan const& plan) const;

    BuildContext& context;
    IdMaker& ids;
    SheetRecord& sheet;
    SheetSource const& source;
    std::vector<SheetPin> const& pins;
    std::vector<du::SmartPtr<PortNodeRecord>> portNodes;
    /// By sub-highway and node of its plan; null for ports.
    std::vector<std::vector<du::SmartPtr<HighwaySegmentRecord>>> highwaySegments;
};

}  // namespace figkernel
