// Walks over the nodes of one tree.
#pragma once

#include <figrep/ConnectionNode.h>
#include <figrep/Segment.h>

#include <unordered_set>
#include <vector>

namespace figrep {

/// Calls `action` with each node of the walk from `head`, confined to the head's own sub-net,
/// until it answers false. A null head is an empty walk. The caller holds the lock for writing.
template <class Action>
void WalkNodesWhile(SmartPtr<ConnectionNode> const& head, Action const& action) {
    if (!head) return;
    for (auto it = head->Begin(); it != head->End(); ++it) {
        auto const node = du::DynamicCast<ConnectionNode>(*it);
        if (node && !action(node)) return;
    }
}

template <class Action>
void WalkNodes(SmartPtr<ConnectionNode> const& head, Action const& action) {
    WalkNodesWhile(head, [&](SmartPtr<ConnectionNode> const& node) {
        action(node);
        return true;
    });
}

/// Marks the owners of all wires that cross one of `subNet`'s, or for a null sub-net one of a
/// highway's, starting from `seeds`. Goes along the links in both directions, so that no tree is
/// turned: settings change also while a walk is under way.
inline void MarkCrossingPartnersFrom(std::vector<SmartPtr<ConnectionNode>> const& seeds,
                                     SmartPtr<SubNet> const& subNet) {
    std::unordered_set<ConnectionNode const*> seen;
    std::vector<SmartPtr<ConnectionNode>> pending;
    auto const enter = [&](SmartPtr<ConnectionNode> const& node) {
        if (!node || node->GetNodeType() == figk::BaseConnectionNode::NODE_HIGHWAY) return;
        if (node->Visit(subNet) && seen.insert(node.Get()).second) pending.push_back(node);
    };
    for (auto const& seed : seeds) enter(seed);
    while (!pending.empty()) {
        SmartPtr<ConnectionNode> const node = pending.back();
        pending.pop_back();
        if (auto const segment = du::DynamicCast<Segment>(node)) segment->MarkCrossingPartners();
        enter(node->GetPredecessor());
        enter(node->GetLeftSuccessor());
        enter(node->GetRightSuccessor());
    }
}

}  // namespace figrep
