#include "deltas/BrokenConnections.h"

#include <dg/Close.h>
#include <figk/SettingValue.h>
#include <figrep/BrokenConnectionRecord.h>
#include <figrep/HighwayNode.h>
#include <figrep/SubNet.h>
#include <figrep/UnroutedConnection.h>

#include <algorithm>

#include "connectivity/NodeWalk.h"

namespace figrep {

namespace {

using Nodes = std::vector<SmartPtr<ConnectionNode>>;

SmartPtr<ConnectionNode> AboveOf(SmartPtr<ConnectionNode> const& node) {
    return du::DynamicCast<ConnectionNode>(node->GetNonJunctionPredecessor());
}

Nodes BelowOf(SmartPtr<ConnectionNode> const& node) {
    std::vector<SmartPtr<figk::BaseConnectionNode>> successors;
    node->GetNonJunctionSuccessors(successors);
    Nodes nodes;
    for (auto const& successor : successors) {
        if (auto const next = du::DynamicCast<ConnectionNode>(successor)) nodes.push_back(next);
    }
    return nodes;
}

Nodes NeighboursOf(SmartPtr<ConnectionNode> const& node) {
    Nodes nodes = BelowOf(node);
    if (auto const above = AboveOf(node)) nodes.insert(nodes.begin(), above);
    return nodes;
}

/// A tap that stands beside a node is tied to it.
void FixHighwayNode(SmartPtr<ConnectionNode> const& node) {
    for (auto const& neighbour : NeighboursOf(node)) {
        if (auto const tap = du::DynamicCast<HighwayNode>(neighbour)) {
            tap->SetNetConnectionNode(node);
        }
    }
}

void PaintRed(UnroutedConnection& connection) {
    ConstSmartPtr<figk::BaseSettingValue> const red =
        new figk::SettingValue<dg::Color>(dg::Color::RED);
    ConstSmartPtr<Setting> const setting =
        new Setting(Setting::COLOR, red, figk::Setting::LEVEL_FORCED, true);
    connection.AddSetting(setting, true);
}

}  // namespace

BrokenConnections::BrokenConnections(SmartPtr<SubNet> const& subNet) : subNet_(subNet) {
    WalkNodes(subNet_->GetHead(), [this](SmartPtr<ConnectionNode> const& node) {
        if (node->IsJunction()) return;
        if (auto const above = AboveOf(node)) pairs_.push_back({above, node});
        if (auto const connection = du::DynamicCast<UnroutedConnection>(node)) {
            connections_.push_back(connection);
        }
    });
}

BrokenConnections::~BrokenConnections() = default;

void BrokenConnections::Break(BrokenConnectionRecord const& record) {
    for (std::size_t i = 0; i < pairs_.size(); ++i) {
        Pair pair = pairs_[i];
        if (!BreakAt(pair, record)) continue;
        pairs_[i] = pair;
        return;
    }
}

bool BrokenConnections::BreakAt(Pair& pair, BrokenConnectionRecord const& record) {
    bool const upperStays = record.GetPredecessorNotSuccessor();
    auto const& staying = upperStays ? pair.upper : pair.lower;
    auto const& moving = upperStays ? pair.lower : pair.upper;
    if (!staying->Contacts(record.GetStaticPosition())) return false;
    if (!moving->Contacts(record.GetEndPosition())) return false;
    if (du::DynamicCast<UnroutedConnection>(moving)) return false;
    auto const connection = du::DynamicCast<UnroutedConnection>(staying);
    if (!connection) {
        Insert(pair, record);
    } else if (!connection->Contacts(record.GetEndPosition())) {
        connection->MoveEnd(record.GetStartPosition(), record.GetEndPosition());
    }
    return true;
}

void BrokenConnections::Insert(Pair& pair, BrokenConnectionRecord const& record) {
    pair.lower->Disconnect(pair.upper);
    SmartPtr<UnroutedConnection> const connection =
        new UnroutedConnection(subNet_, subNet_->GetLock(), record.GetStaticPosition(),
                               record.GetEndPosition(), pair.upper);
    connection->AddSuccessor(pair.lower);
    FixHighwayNode(connection);
    PaintRed(*connection);
    pairs_.push_back({connection, pair.lower});
    pair.lower = connection;
}

void BrokenConnections::Restore(BrokenConnectionRecord const& record) {
    auto const found = std::find_if(connections_.begin(), connections_.end(),
                                    [&](SmartPtr<UnroutedConnection> const& wire) {
                                        return wire->Contacts(record.GetStaticPosition()) &&
                                               wire->Contacts(record.GetEndPosition());
                                    });
    if (found == connections_.end()) return;
    SmartPtr<UnroutedConnection> const connection = *found;
    if (!dg::Close(record.GetStaticPosition(), record.GetStartPosition())) {
        connection->MoveEnd(record.GetEndPosition(), record.GetStartPosition());
        return;
    }
    connections_.erase(found);
    Remove(connection);
}

// Neighbour by neighbour, so that junctions beside the connection collapse.
void BrokenConnections::Remove(SmartPtr<UnroutedConnection> const& connection) {
    bool const wasHead = !AboveOf(connection);
    Nodes const neighbours = NeighboursOf(connection);
    for (auto const& neighbour : neighbours)
        connection->Disconnect(neighbour);
    Join(neighbours);
    if (wasHead) {
        subNet_->SetHead(neighbours.empty() ? SmartPtr<ConnectionNode>() : neighbours.front());
    }
    auto const netNode =
        std::find_if(neighbours.begin(), neighbours.end(),
                     [](auto const& neighbour) { return !neighbour->IsHighwayNode(); });
    TieHighwayNodes(connection,
                    netNode == neighbours.end() ? SmartPtr<ConnectionNode>() : *netNode);
}

// Behind a connection that headed the tree one neighbour takes the others along: they meet there,
// and apart from it the sub-net would lose them.
void BrokenConnections::Join(Nodes const& nodes) {
    for (std::size_t i = 1; i < nodes.size(); ++i)
        nodes.front()->AddSuccessor(nodes[i]);
}

void BrokenConnections::TieHighwayNodes(SmartPtr<ConnectionNode> const& from,
                                        SmartPtr<ConnectionNode> const& to) {
    for (auto const& tap : subNet_->GetHighwayNodes()) {
        if (tap->GetNetConnectionNode() == from) tap->SetNetConnectionNode(to);
    }
}

}  // namespace figrep
