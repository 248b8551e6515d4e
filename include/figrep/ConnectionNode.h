// The node of a figure's connection tree.
#pragma once

#include <figk/BaseConnectionNode.h>

#include <figrep/Fwd.h>

namespace figrep {

/// A node of the tree of one sub-net or one sub-highway: a segment, a port node, a junction, a
/// highway node or the node by which a connector takes part in a net.
///
/// A node has one predecessor and two successors, so the trees of all nets on a highway can't hang
/// in the highway's tree at once. At most one sub-net of a figure is active: only its highway
/// nodes are spliced in, and `Figure::PrePivot` switches to another just before a pivot.
/// Units: figure units (millimetres), y upward, angles in radians counter-clockwise.
/// Ownership: links are strong both ways; `DestroyConnectivity` of the owner cuts them.
/// Locking: queries take the shared lock for reading, changes for writing.
class ConnectionNode : public figk::BaseConnectionNode {
public:
    /// Answers a new `JunctionNode` below `predecessor`; the tree calls it when it branches.
    static SmartPtr<figk::BaseConnectionNode> CreateJunction(
        SmartPtr<figk::BaseConnectionNode> const& predecessor,
        SmartPtr<zvk::ReadWriteLock> const& lock);

    /// Makes the node's sub-net the active one of its figure, unless this was suspended.
    void PrePivot() override;

    /// What confines a walk from this node to the node's own sub-net.
    SmartPtr<figk::BaseVisitCheck> GetVisitChecker() const override;

    /// Hands the tree from this node on to the visitor: the node, its left tree, its right tree. A
    /// node for which the visitor answers false ends its own branch only. Doesn't recurse by depth.
    virtual void Accept(AbstractFigureVisitor& visitor) = 0;

    /// The one sub-net that the node belongs to; null for nodes that are shared or have none.
    virtual SmartPtr<SubNet> GetSubNet() const;

    /// Has the node forget a sub-net that is being taken apart.
    virtual void Remove(SmartPtr<SubNet> const& subNet);

    /// Whether a walk of that sub-net enters this node. A null sub-net asks for a highway's walk.
    virtual bool Visit(SmartPtr<SubNet> const& subNet) const = 0;

    /// The figure in whose tree the node hangs; null for nodes that know none.
    virtual SmartPtr<Figure> GetNodeFigure() const = 0;

    /// Whether the other node has an end where this one has; `at` is set to the place if so.
    virtual bool Contacts(SmartPtr<ConnectionNode> const& other, DPoint2D& at) const;
    /// Whether the node has an end at that place.
    virtual bool Contacts(DPoint2D const& point) const;

    /// Move the node with what it shows. The items' `MoveItem` and its like are the entries for
    /// users; these do the work for the owner of the tree.
    virtual void Move(double dx, double dy);
    virtual void Rotate(DPoint2D const& about, double radians);
    virtual void Scale(DPoint2D const& about, double factor);
    /// Mirrors x (`mirrorY` false) or y (`mirrorY` true).
    virtual void Mirror(DPoint2D const& about, bool mirrorY);

    /// The neighbours; null where there is none, or one of another family of nodes.
    SmartPtr<ConnectionNode> GetPredecessor() const;
    SmartPtr<ConnectionNode> GetLeftSuccessor() const;
    SmartPtr<ConnectionNode> GetRightSuccessor() const;

    /// While suspended, a pivot to this node leaves the active sub-net as it is.
    void SuspendPrePivot(bool suspend);

    /// Makes this head of a tree, if it has successors, a leaf: turns the tree to the first leaf
    /// of a walk. Does nothing for a leaf, for a node with a predecessor, and when `subNet` isn't
    /// the node's own.
    void MakeLeafOnSubNet(SmartPtr<SubNet> const& subNet);

    /// The walk behind `Accept`. A non-null `check` keeps the walk out of the nodes that it
    /// refuses; the start itself isn't asked.
    void AcceptTree(AbstractFigureVisitor& visitor, figk::BaseVisitCheck* check = nullptr);

protected:
    /// A node below `predecessor`, which may be null.
    ConnectionNode(SmartPtr<zvk::ReadWriteLock> const& lock,
                   SmartPtr<figk::BaseConnectionNode> const& predecessor);
    ConnectionNode(ConnectionNode const& other);
    ConnectionNode& operator=(ConnectionNode const& other);
    ~ConnectionNode() override;

    /// Hands this one node, with what it holds but without its tree, to the visitor; answers
    /// whether the walk goes on into the successors.
    virtual bool AcceptNode(AbstractFigureVisitor& visitor) = 0;

private:
    SmartPtr<ConnectionNode> FindLeafForHead(SmartPtr<SubNet> const& subNet);

    bool prePivotSuspended_ = false;
};

}  // namespace figrep
