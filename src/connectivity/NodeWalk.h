// Walks over the nodes of one tree.
#pragma once

#include <figrep/ConnectionNode.h>

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

}  // namespace figrep
