#include "FixConnectivity.h"

#include <dg/Close.h>
#include <figk/BaseBlockInstance.h>
#include <figk/CableInstance.h>
#include <figk/ConnectorInstance.h>
#include <figk/ConnectorInstanceNode.h>
#include <figk/HighwayNode.h>
#include <figk/HighwaySegment.h>
#include <figk/Net.h>
#include <figk/PortNode.h>
#include <figk/Sheet.h>
#include <figk/SubHighway.h>
#include <figk/SubNet.h>
#include <figrep/BlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/ConnectorInstanceNode.h>
#include <figrep/Figure.h>
#include <figrep/HighwayNode.h>
#include <figrep/HighwaySegment.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <zvk/ReadWriteLock.h>

#include <ostream>

#include "HighwayPaths.h"
#include "NodeWalk.h"

namespace figrep {

namespace {

/// Twins come from the same numbers, so no more than rounding is allowed between them.
constexpr double TWIN_TOLERANCE = 0x1p-50;

bool SameEnds(DPoint2D const& a, DPoint2D const& b, DPoint2D const& p, DPoint2D const& q) {
    return dg::Close(a, p, TWIN_TOLERANCE) && dg::Close(b, q, TWIN_TOLERANCE);
}

/// What stands behind the first `count` elements.
template <class Added, class Item>
void AppendAdded(std::vector<Added>& added, std::vector<Item> const& all, std::size_t count) {
    for (std::size_t i = count; i < all.size(); ++i)
        added.emplace_back(all[i]);
}

}  // namespace

FixConnectivity::FixConnectivity(SmartPtr<Figure> const& figure, SmartPtr<figk::Sheet> const& sheet)
    : figure_(figure), sheet_(sheet) {
    StoreInitialState();
}

FixConnectivity::~FixConnectivity() = default;

void FixConnectivity::StoreInitialState() {
    if (!figure_) return;
    initialBlockInstanceCount_ = figure_->GetBlockInstances().size();
    initialCableInstanceCount_ = figure_->GetCableInstances().size();
    initialSubHighwayCount_ = figure_->GetSubHighways().size();
    initialSubNetCount_ = figure_->GetSubNets().size();
}

void FixConnectivity::GetAddedBlockInstances() {
    AppendAdded(addedBlockInstances_, figure_->GetBlockInstances(), initialBlockInstanceCount_);
}

void FixConnectivity::GetAddedCableInstances() {
    AppendAdded(addedCableInstances_, figure_->GetCableInstances(), initialCableInstanceCount_);
}

void FixConnectivity::GetAddedSubHighways() {
    AppendAdded(addedSubHighways_, figure_->GetSubHighways(), initialSubHighwayCount_);
}

void FixConnectivity::GetAddedSubNets() {
    AppendAdded(addedSubNets_, figure_->GetSubNets(), initialSubNetCount_);
}

void FixConnectivity::Fix(DPoint2D const& offset) {
    if (!figure_) return;
    zvk::WriteGuard const guard(figure_->GetLock());
    figure_->PrePivot(nullptr);
    GetAddedBlockInstances();
    GetAddedCableInstances();
    GetAddedSubHighways();
    GetAddedSubNets();
    offset_ = offset;

    // Highways first: which segments a sub-net uses must be known before its head moves.
    HighwayTree tree;
    PopulateHighwaySegmentSpatialTree(tree);
    ConnectSubNetsToSubHighways(tree);
    KernelToFigureConnectors connectors;
    BuildKernelToFigureConnectorMap(connectors);
    for (auto const& subNet : addedSubNets_)
        ConnectSubNetToBlocks(subNet, connectors);
    PopulateCables();
    RebuildGroups();

    figure_->PrePivot(nullptr);
    addedBlockInstances_.clear();
    addedCableInstances_.clear();
    addedSubHighways_.clear();
    addedSubNets_.clear();
    subHighwayLeafPortNodes_.clear();
}

// Highways.

void FixConnectivity::PopulateHighwaySegmentSpatialTree(HighwayTree& tree) {
    tree.SetTolerance(dg::CONTACT_TOLERANCE);
    for (auto const& subHighway : addedSubHighways_) {
        WalkNodes(subHighway->GetHead(), [&](SmartPtr<ConnectionNode> const& node) {
            if (auto const segment = du::DynamicCast<HighwaySegment>(node)) {
                tree.Add(segment);
            } else if (node->GetNodeType() == ConnectionNode::NODE_PORT) {
                hasHighwayPortNodes_ = true;
            }
        });
    }
}

void FixConnectivity::ConnectSubNetsToSubHighways(HighwayTree& tree) {
    for (auto const& subNet : addedSubNets_) {
        std::vector<HighwayContacts> highwayContacts;
        ConnectHighwayNodes(tree, subNet->GetHighwayNodes(), highwayContacts);
        for (HighwayContacts& contacts : highwayContacts) {
            if (hasHighwayPortNodes_) AddLeafPortNodeContacts(subNet, contacts);
        }
        AddToSubNets(subNet, highwayContacts);
    }
}

void FixConnectivity::ConnectHighwayNodes(HighwayTree& tree,
                                          std::vector<SmartPtr<HighwayNode>> const& nodes,
                                          std::vector<HighwayContacts>& highwayContacts) {
    std::unordered_map<SmartPtr<SubHighway>, std::size_t> places;
    for (auto const& node : nodes) {
        auto const kernelNode = node->GetKernelHighwayNode();
        if (!kernelNode) continue;
        auto const segment = FindHighwaySegment(kernelNode->GetHighwaySegment(), tree);
        if (!segment) continue;
        node->Deactivate();
        segment->AddSuccessor(node);
        auto const subHighway = segment->GetSubHighway();
        auto const [place, isNew] = places.emplace(subHighway, highwayContacts.size());
        if (isNew) highwayContacts.push_back({subHighway, {}});
        highwayContacts[place->second].segments.push_back(segment);
        subHighway->Add(node->GetSubNet());
    }
}

SmartPtr<HighwaySegment> FixConnectivity::FindHighwaySegment(
    SmartPtr<figk::HighwaySegment> const& kernelSegment, HighwayTree& tree) const {
    if (!kernelSegment) return nullptr;
    DPoint2D a;
    DPoint2D b;
    kernelSegment->GetEnds(a, b);
    DVec2 const shift(offset_);
    a += shift;
    b += shift;
    DBox2D box = kernelSegment->GetExtents();
    box.Translate(shift);
    std::vector<SmartPtr<HighwaySegment>> candidates;
    tree.Query(box, candidates);
    for (auto const& candidate : candidates) {
        DPoint2D p;
        DPoint2D q;
        candidate->GetEnds(p, q);
        auto const subHighway = candidate->GetSubHighway();
        if ((SameEnds(a, b, p, q) || SameEnds(b, a, p, q)) && subHighway &&
            subHighway->GetKernelSubHighway() == kernelSegment->GetSubHighway()) {
            return candidate;
        }
    }
    return nullptr;
}

std::vector<SmartPtr<PortNode>> const& FixConnectivity::AcquireSubHighwayLeafPortNodes(
    SmartPtr<SubHighway> const& subHighway) {
    auto const [place, isNew] = subHighwayLeafPortNodes_.try_emplace(subHighway);
    auto& nodes = place->second;
    if (isNew) {
        WalkNodes(subHighway->GetHead(), [&](SmartPtr<ConnectionNode> const& node) {
            auto const portNode = du::DynamicCast<PortNode>(node);
            if (portNode && node->IsLeaf()) nodes.push_back(portNode);
        });
    }
    return nodes;
}

bool FixConnectivity::PortNodeShouldBeOnSubNet(SmartPtr<PortNode> const& portNode,
                                               SmartPtr<SubNet> const& subNet) const {
    auto const kernelPortNode = portNode->GetKernelPortNode();
    auto const kernelSubNet = subNet->GetKernelSubNet();
    return kernelPortNode && kernelSubNet && kernelPortNode->IsOnSubNet(kernelSubNet);
}

void FixConnectivity::AddLeafPortNodeContacts(SmartPtr<SubNet> const& subNet,
                                              HighwayContacts& contacts) {
    for (auto const& portNode : AcquireSubHighwayLeafPortNodes(contacts.subHighway)) {
        if (!PortNodeShouldBeOnSubNet(portNode, subNet)) continue;
        portNode->Add(subNet);
        auto const above = portNode->GetNonJunctionPredecessor();
        if (auto const segment = du::DynamicCast<HighwaySegment>(above)) {
            contacts.segments.push_back(segment);
        }
    }
}

void FixConnectivity::AddToSubNets(SmartPtr<SubNet> const& subNet,
                                   std::vector<HighwayContacts> const& highwayContacts) {
    for (HighwayContacts const& contacts : highwayContacts)
        AddToSubNet(subNet, contacts);
}

void FixConnectivity::AddToSubNet(SmartPtr<SubNet> const& subNet, HighwayContacts const& contacts) {
    auto const headPort = du::DynamicCast<PortNode>(contacts.subHighway->GetHead());
    bool const fromHead = headPort && PortNodeShouldBeOnSubNet(headPort, subNet);
    if (fromHead) headPort->Add(subNet);
    for (auto const& segment : FindHighwayPaths(contacts.segments, fromHead))
        segment->Add(subNet);
}

// Blocks.

void FixConnectivity::BuildKernelToFigureConnectorMap(KernelToFigureConnectors& connectors) const {
    for (auto const& block : addedBlockInstances_) {
        for (auto const& connector : block->GetConnectorInstances()) {
            auto const record = connector->GetKernelConnectorInstance();
            if (record && record->GetNumConnections() != 0)
                connectors.Put(record.Get(), connector.Get());
        }
    }
}

void FixConnectivity::ConnectSubNetToBlocks(SmartPtr<SubNet> const& subNet,
                                            KernelToFigureConnectors const& connectors) const {
    // What attaches turns the tree, so the ends are gathered before anything is attached.
    std::vector<TreeEnd> ends;
    WalkNodes(subNet->GetHead(), [&](SmartPtr<ConnectionNode> const& node) {
        TreeEnd const end{node, node->IsHead(), node->IsLeaf()};
        auto const kind = node->GetNodeType();
        bool const connects =
            kind == ConnectionNode::NODE_NET_SEGMENT || kind == ConnectionNode::NODE_PORT;
        if (connects && (end.isHead || end.isLeaf)) ends.push_back(end);
    });
    std::vector<Connection> pending;
    for (TreeEnd const& end : ends) {
        Connection connection;
        if (ConnectNode(end, connectors, connection)) pending.push_back(connection);
    }
    for (auto const& [connector, node] : pending) {
        node->Pivot(nullptr);
        connector->Attach(node);
    }
}

bool FixConnectivity::ConnectNode(TreeEnd const& end, KernelToFigureConnectors const& connectors,
                                  Connection& connection) const {
    auto const item = du::DynamicCast<AbstractFigureItem>(end.node);
    if (!item) return false;
    auto const kernelNode = du::DynamicCast<figk::ConnectionNode>(item->GetKernelItem());
    return kernelNode ? ConnectKernelNode(end, kernelNode, connectors, connection)
                      : ConnectNonKernelNode(end, connection);
}

bool FixConnectivity::ConnectKernelNode(TreeEnd const& end,
                                        SmartPtr<figk::ConnectionNode> const& kernelNode,
                                        KernelToFigureConnectors const& connectors,
                                        Connection& connection) const {
    std::vector<SmartPtr<figk::BaseConnectionNode>> neighbours;
    if (auto above = kernelNode->GetNonJunctionPredecessor()) neighbours.push_back(above);
    kernelNode->GetNonJunctionSuccessors(neighbours);
    bool found = false;
    for (auto const& neighbour : neighbours) {
        if (neighbour->GetNodeType() != ConnectionNode::NODE_CONNECTOR_INSTANCE) continue;
        auto const kernelConnection = du::DynamicCast<figk::ConnectorInstanceNode>(neighbour);
        if (!kernelConnection) continue;
        auto const* connector = connectors.Get(kernelConnection->GetConnectorInstance().Get());
        if (!connector) continue;
        if (end.isHead) {
            (*connector)->Attach(end.node);
        } else {
            connection = {*connector, end.node};
            found = true;
        }
    }
    return found;
}

bool FixConnectivity::ConnectNonKernelNode(TreeEnd const& end, Connection& connection) const {
    bool found = false;
    for (auto const& block : addedBlockInstances_) {
        for (auto const& connector : block->GetConnectorInstances()) {
            if (!end.node->Contacts(connector->GetPosition())) continue;
            if (end.isLeaf) {
                connection = {connector, end.node};
                found = true;
            } else {
                connector->Attach(end.node);
            }
        }
    }
    return found;
}

// Cables and nesting.

bool FixConnectivity::IsOtherSheet(SmartPtr<figk::Sheet> const& sheet) const {
    return sheet_ && !(sheet == sheet_);
}

void FixConnectivity::BuildSubNetToSubNetMap(SubNetToSubNet& map) const {
    for (auto const& subNet : addedSubNets_) {
        if (auto const record = subNet->GetKernelSubNet()) map[record] = subNet;
    }
}

void FixConnectivity::PopulateCables() {
    if (addedCableInstances_.empty()) return;
    SubNetToSubNet map;
    BuildSubNetToSubNetMap(map);
    for (auto const& cable : addedCableInstances_)
        PopulateCable(*cable, map);
}

void FixConnectivity::PopulateCable(CableInstance& cable, SubNetToSubNet const& map) const {
    auto const record = cable.GetKernelCableInstance();
    if (!record) return;
    for (auto const& net : record->GetNets()) {
        if (!net) continue;
        for (auto const& kernelSubNet : net->GetSubNets()) {
            if (!kernelSubNet || IsOtherSheet(kernelSubNet->GetSheet())) continue;
            auto const place = map.find(kernelSubNet);
            if (place != map.end()) cable.Add(place->second);
        }
    }
}

void FixConnectivity::RebuildGroups() {
    std::vector<SmartPtr<BaseBlockInstance>> blocks = addedBlockInstances_;
    blocks.insert(blocks.end(), addedCableInstances_.begin(), addedCableInstances_.end());
    std::unordered_map<SmartPtr<figk::BaseBlockInstance>, SmartPtr<BaseBlockInstance>> map;
    auto const recordOf = [](SmartPtr<BaseBlockInstance> const& block) {
        return du::DynamicCast<figk::BaseBlockInstance>(block->GetKernelItem());
    };
    for (auto const& block : blocks) {
        if (auto const record = recordOf(block)) map[record] = block;
    }
    for (auto const& block : blocks) {
        auto const record = recordOf(block);
        if (!record) continue;
        for (auto const& child : record->GetChildren()) {
            auto const place = map.find(child);
            if (!child || place == map.end() || IsOtherSheet(child->GetSheet())) continue;
            block->Add(place->second);
        }
    }
}

// Diagnosis.

void FixConnectivity::Debug(SmartPtr<SubNet> const& subNet, std::ostream& out) {
    auto const write = [&](char const* indent, SmartPtr<ConnectionNode> const& node) {
        if (!node) return;
        out << indent << node->ToString() << " (" << static_cast<void const*>(node.Get()) << ")\n";
    };
    out << "Start SubNet \n";
    if (subNet) {
        WalkNodes(subNet->GetHead(), [&](SmartPtr<ConnectionNode> const& node) {
            write("", node);
            write("    Left ", node->GetLeftSuccessor());
            write("    Right ", node->GetRightSuccessor());
            out.flush();
        });
    }
    out << "End SubNet \n" << std::string(40, '+') << '\n' << std::flush;
}

}  // namespace figrep
