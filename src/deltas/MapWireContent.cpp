#include <figrep/MapWireContent.h>

#include <figk/HighwayNode.h>
#include <figk/SubHighway.h>
#include <figrep/AbstractKernelToFigureFactory.h>
#include <figrep/ConnectionNode.h>
#include <figrep/HighwayNode.h>
#include <figrep/SubHighway.h>

#include "deltas/KernelMaps.h"

namespace figrep {

MapWireContent::MapWireContent() = default;
MapWireContent::MapWireContent(MapWireContent const&) = default;
MapWireContent& MapWireContent::operator=(MapWireContent const&) = default;
MapWireContent::~MapWireContent() = default;

SmartPtr<HighwayNode> MapWireContent::CreateHighwayNode(SmartPtr<figk::HighwayNode> const& record,
                                                        SmartPtr<SubHighway> const& subHighway,
                                                        SmartPtr<ConnectionNode> const& netNode) {
    return GetFactory()->CreateHighwayNode(record, subHighway, netNode);
}

void MapWireContent::StartTree() {
    Renew(highwayEntryMap_);
    ForgetTree();
}

void MapWireContent::ForgetTree() {
    Renew(nodeMap_);
}

void MapWireContent::MapNodes(SmartPtr<figk::ConnectionNode> const& kernelNode,
                              SmartPtr<ConnectionNode> const& figureNode) {
    nodeMap_.emplace(kernelNode, figureNode);
}

SmartPtr<ConnectionNode> MapWireContent::GetFigureNode(
    SmartPtr<figk::ConnectionNode> const& node) const {
    return LookUp(nodeMap_, node);
}

SmartPtr<HighwayNode> MapWireContent::GetHighwayEntryNode(
    SmartPtr<figk::SubHighway> const& record) const {
    return LookUp(highwayEntryMap_, record);
}

// A node behind a highway has no predecessor in the net's own tree: the highway leads there.
void MapWireContent::Connect(SmartPtr<figk::ConnectionNode> const& kernelNode,
                             SmartPtr<ConnectionNode> const& figureNode) {
    auto const exit = du::DynamicCast<figk::HighwayNode>(kernelNode->GetPredecessor());
    if (exit) {
        HandleHighwayExitNode(exit, figureNode);
    } else {
        ConnectToPredecessor(kernelNode, figureNode);
    }
}

void MapWireContent::EnterHighway(SmartPtr<figk::HighwayNode> const& record) {
    auto const kernelSubHighway = record->GetSubHighway();
    if (GetHighwayEntryNode(kernelSubHighway)) return;
    auto const netNode = GetFigureNode(record->GetNetConnectionNode());
    if (!netNode) return;
    auto const node = CreateHighwayNode(record, GetFigureSubHighway(kernelSubHighway), netNode);
    if (node) highwayEntryMap_.emplace(kernelSubHighway, node);
}

// The sub-net keeps the new highway node; nobody here has further use for it.
void MapWireContent::HandleHighwayExitNode(SmartPtr<figk::HighwayNode> const& kernelNode,
                                           SmartPtr<ConnectionNode> const& figureNode) {
    CreateHighwayNode(kernelNode, GetFigureSubHighway(kernelNode->GetSubHighway()), figureNode);
}

}  // namespace figrep
