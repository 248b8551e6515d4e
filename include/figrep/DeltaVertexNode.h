// A bend or an end of a wire that a user draws.
#pragma once

#include <figk/BaseConnectionNode.h>
#include <figrep/Fwd.h>

#include <atomic>
#include <string>

namespace figrep {

/// A place in the tree of positions from which `FigureSubNetDelta` makes wires: one wire from each
/// vertex to each of its successors. The tree branches by junctions that have no place of their
/// own.
///
/// Ownership: links are strong both ways, so whoever drops a tree calls `CutTree`. The last of the
/// deltas that were given a tree does so when it goes.
class DeltaVertexNode : public figk::BaseConnectionNode {
public:
    /// `position` in figure units. `predecessor` may be null: the root of a tree. `lock` is the one
    /// that the whole tree shares; it may be null.
    DeltaVertexNode(SmartPtr<zvk::ReadWriteLock> const& lock, DPoint2D const& position,
                    SmartPtr<figk::BaseConnectionNode> const& predecessor);
    ~DeltaVertexNode() override;

    ConnectionNodeType GetNodeType() const override;
    std::string ToString() const override;
    void PrePivot() override;
    using figk::BaseConnectionNode::Disconnect;
    /// Null: a walk meets every vertex.
    SmartPtr<figk::BaseVisitCheck> GetVisitChecker() const override;

    DPoint2D GetPosition() const;

private:
    friend class FigureSubNetDelta;

    DPoint2D position_;
    std::atomic<unsigned> deltas_{0};  // that use the tree of which this is the root
};

}  // namespace figrep
