#include "deltas/VertexWires.h"

#include <figrep/DeltaVertexNode.h>
#include <figrep/NetSegment.h>
#include <figrep/SubNet.h>

#include <deque>
#include <unordered_set>
#include <vector>

namespace figrep {

namespace {

using Node = figk::BaseConnectionNode;

/// A vertex that is still to be reached, with what was made on the way to it.
struct Step {
    SmartPtr<DeltaVertexNode> vertex;
    SmartPtr<DeltaVertexNode> above;
    SmartPtr<NetSegment> segmentAbove;
};

/// The vertices next below `node`, breadth first through its junctions.
std::vector<SmartPtr<DeltaVertexNode>> VerticesBelow(Node const& node) {
    std::vector<SmartPtr<DeltaVertexNode>> vertices;
    std::deque<SmartPtr<Node>> queue{node.GetLeftSuccessor(), node.GetRightSuccessor()};
    for (; !queue.empty(); queue.pop_front()) {
        SmartPtr<Node> const next = queue.front();
        if (!next) continue;
        if (next->IsJunction()) {
            queue.push_back(next->GetLeftSuccessor());
            queue.push_back(next->GetRightSuccessor());
        } else if (auto const vertex = du::DynamicCast<DeltaVertexNode>(next)) {
            vertices.push_back(vertex);
        }
    }
    return vertices;
}

/// Puts the vertices below a step on the stack, the first of them on top.
void PushBelow(std::vector<Step>& stack, SmartPtr<DeltaVertexNode> const& vertex,
               SmartPtr<NetSegment> const& segment) {
    auto const below = VerticesBelow(*vertex);
    for (auto next = below.rbegin(); next != below.rend(); ++next) {
        stack.push_back({*next, vertex, segment});
    }
}

}  // namespace

SmartPtr<NetSegment> CreateNetSegments(SmartPtr<SubNet> const& subNet,
                                       SmartPtr<DeltaVertexNode> const& root) {
    if (!subNet || !root) return {};
    std::vector<SmartPtr<NetSegment>> branches;
    std::unordered_set<Node const*> seen{root.Get()};
    std::vector<Step> stack;
    PushBelow(stack, root, {});
    while (!stack.empty()) {
        Step const step = stack.back();
        stack.pop_back();
        if (!seen.insert(step.vertex.Get()).second) continue;
        SmartPtr<NetSegment> const segment =
            new NetSegment(subNet, subNet->GetLock(), step.above->GetPosition(),
                           step.vertex->GetPosition(), step.segmentAbove);
        if (!step.segmentAbove) branches.push_back(segment);
        PushBelow(stack, step.vertex, segment);
    }
    if (branches.empty()) return {};
    // The other branches meet the head at the root; without a link to it they would be lost.
    SmartPtr<NetSegment> const head = branches.back();
    branches.pop_back();
    for (auto const& branch : branches)
        head->AddSuccessor(branch);
    return head;
}

}  // namespace figrep
