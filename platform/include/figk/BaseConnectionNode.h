// A node of a binary connection tree, and the rules by which such trees are linked and turned.
#pragma once

#include <du/RefCounted.h>
#include <figk/BaseVisitCheck.h>
#include <figk/Fwd.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace figk {

/// One node of a connection tree: at most one predecessor, a left and a right successor.
///
/// A node is in at most one tree, and every link stands on both of its ends. Links are strong in
/// both directions, so nothing that is linked dies: whoever drops a tree calls `CutTree` first.
///
/// *Neighbours.* Apart from the tree's present direction a node has neighbours, in a ring in the
/// order of linking. Its successors are those that follow its predecessor round the ring; a head
/// starts at the one linked first. The first successor is left, the second right; beyond two they
/// hang in junctions that are only packing, right = J(...J(second, third)..., last). Turning a tree
/// changes which neighbour is the predecessor and packs again, so neighbours (junctions looked
/// through) never change by pivoting, pivoting away and back restores every link, and the order of
/// a walk depends on the head alone.
///
/// *Meeting points.* Below a node whose `BranchesMeet` answers true the second successor already
/// makes a junction, in the place of the first. That junction is a node like any other: later
/// successors join it, every walk passes it, and a pivot turns it with the rest.
///
/// A packing junction that is itself pivoted to, disconnected or handed over stops being packing
/// and stays as a node of its own.
///
/// *Locking.* Changes take the tree's lock for writing, queries for reading; a null lock is
/// skipped. An iterator takes no lock: whoever walks holds it.
class BaseConnectionNode : public virtual du::RefCounted {
public:
    /// Persisted in no file, but shared by the kernel's nodes and by everybody's nodes built on it.
    enum ConnectionNodeType {
        NODE_CONNECTOR_INSTANCE = 0,
        NODE_DELTA_VERTEX = 1,
        NODE_JUNCTION = 2,
        NODE_HIGHWAY = 3,
        NODE_HIGHWAY_SEGMENT = 4,
        NODE_NET_SEGMENT = 5,
        NODE_PORT = 6,
        NODE_UNROUTED = 7
    };

    /// Makes a junction of the family of the node that needs it. The tree always passes a null
    /// predecessor and links the result itself.
    using JunctionFactory = SmartPtr<BaseConnectionNode> (*)(
        SmartPtr<BaseConnectionNode> const& predecessor, SmartPtr<zvk::ReadWriteLock> const& lock);

    class ConstIterator;

    ~BaseConnectionNode() override;

    virtual ConnectionNodeType GetNodeType() const = 0;
    /// False by default.
    virtual bool IsJunction() const;
    /// False by default.
    virtual bool IsHighwayNode() const;
    /// One word or two for debug dumps.
    virtual std::string ToString() const = 0;
    /// Called by every `Pivot`, with the lock held for writing, before anything changes. The base
    /// does nothing.
    virtual void PrePivot();
    /// Takes the link to one neighbour away, junctions between looked through: the lower of the two
    /// leaves what holds it, a junction left with one branch collapses, and the upper node's other
    /// successors keep their order. Answers the receiver, also where `other` is no neighbour.
    ///
    /// A junction as receiver doesn't look through other junctions. When one branch is left to it,
    /// it hands that branch to its predecessor, leaves the tree and answers the predecessor (when
    /// it was packing, the node that it packed for); with no branch left it is taken off its
    /// predecessor, and junctions above may follow; a junction without predecessor frees its one
    /// remaining branch and answers null.
    virtual SmartPtr<BaseConnectionNode> Disconnect(SmartPtr<BaseConnectionNode> const& other);
    /// Unlinks all neighbours plainly. No junction collapses: those next to this node stay behind
    /// as they are, with a branch less, unless nothing but junctions is left in their tree.
    virtual void Disconnect();
    /// A fresh check for a walk that starts here, or null for a walk of everything. The base
    /// answers null.
    virtual SmartPtr<BaseVisitCheck> GetVisitChecker() const;
    /// Whether several successors of this node meet in one point, so that they share a junction
    /// from the second on. The base answers true for `NODE_HIGHWAY_SEGMENT`.
    virtual bool BranchesMeet() const;

    /// The topmost node of this node's tree; this node when it has no predecessor.
    /// Cost: the depth of the node.
    SmartPtr<BaseConnectionNode> GetHead() const;
    /// The direct neighbours in the tree, junctions included; null where there is none.
    SmartPtr<BaseConnectionNode> GetPredecessor() const;
    SmartPtr<BaseConnectionNode> GetLeftSuccessor() const;
    SmartPtr<BaseConnectionNode> GetRightSuccessor() const;
    /// The first leaf of a walk from here; this node when it is a leaf itself.
    SmartPtr<BaseConnectionNode> GetFirstLeaf() const;
    /// The nearest predecessor that is no junction, or null.
    SmartPtr<BaseConnectionNode> GetNonJunctionPredecessor() const;
    /// Appends the nearest successors that are no junctions, in the order of a walk.
    void GetNonJunctionSuccessors(std::vector<SmartPtr<BaseConnectionNode>>& successors) const;

    bool IsHead() const;
    bool IsLeaf() const;
    /// Whether `other` hangs below this node with nothing but junctions between.
    bool IsSuccessor(SmartPtr<BaseConnectionNode> const& other) const;
    /// Whether one of the two is a successor of the other.
    bool IsConnected(SmartPtr<BaseConnectionNode> const& other) const;

    /// Hangs `node`, with all that is below it, under this node. A node that hangs directly here
    /// already stays; one that hangs elsewhere is taken off there first. Null, this node itself and
    /// a node whose tree holds this one below it change nothing, so no cycle can arise.
    /// Cost: constant for a node without successors of its own that hangs nowhere yet, else the
    /// depth of this node.
    void AddSuccessor(SmartPtr<BaseConnectionNode> const& node);
    /// Makes this node the head of its tree and answers it. `PrePivot` comes first, also when this
    /// node is head already. The argument makes no difference. No walk of the tree may be running.
    /// Cost: the path to the old head, with the branches on it.
    SmartPtr<BaseConnectionNode> Pivot(SmartPtr<BaseConnectionNode> const& predecessor);
    /// Unlinks every node of the tree that this node is in, upwards and downwards; no virtual of
    /// the nodes is called. What nobody else holds dies, one node at a time, whatever the depth.
    void CutTree();

    /// A walk of this node and what is below it: the node, its left tree, its right tree. Asks a
    /// fresh `GetVisitChecker()` about every node, the first included.
    ConstIterator Begin();
    ConstIterator End() const;

protected:
    /// A node with `lock` (may be null), hung under `predecessor` unless that is null. A null
    /// `factory` stands for the kernel's own junctions. Calls no virtual of this node.
    BaseConnectionNode(SmartPtr<zvk::ReadWriteLock> const& lock, JunctionFactory factory,
                       SmartPtr<BaseConnectionNode> const& predecessor);
    /// A copy has the lock and the factory of its source and stands in no tree.
    BaseConnectionNode(BaseConnectionNode const& other);
    /// Takes over the lock and the factory; both nodes keep their links.
    BaseConnectionNode& operator=(BaseConnectionNode const& other);

    SmartPtr<zvk::ReadWriteLock> const& GetTreeLock() const { return lock_; }

private:
    using Node = BaseConnectionNode;
    using NodePtr = SmartPtr<BaseConnectionNode>;

    // All below need the lock held. "Logical" means with packing junctions left out of sight.
    Node* LogicalPredecessor() const;
    void AppendLogicalSuccessors(std::vector<NodePtr>& out) const;
    void AppendRing(std::vector<NodePtr>& out) const;
    void AdoptRing(std::span<NodePtr const> ring, Node const* newPredecessor);
    void SetSuccessors(std::span<NodePtr const> successors);
    void PackRight(std::span<NodePtr const> successors, std::vector<NodePtr>& pool);
    std::vector<NodePtr> TakePacking();
    NodePtr NewJunction(bool packing);
    void MakePackingReal();
    void MakeReal();

    void Link(NodePtr const& node);
    void InsertMeetingPoint();
    void AppendSuccessor(NodePtr const& node);
    void AppendLast(NodePtr const& node);
    void InsertBeforeFirstLinked(NodePtr const& node);
    bool HangsDirectlyBelow(Node const& upper) const;
    bool IsBelow(Node const& upper) const;
    bool HasAbove(Node const& other) const;

    static void Unlink(Node& upper, Node& lower);
    void ForgetSuccessor(Node const& node);
    void ForgetPredecessor();
    void ForgetAll();
    void TakeOff(Node const* keep);
    NodePtr DisconnectFromJunction(NodePtr const& other);
    NodePtr CollapseJunction(Node const* keep);
    void LeaveBehind(NodePtr const& neighbour);
    void CutJunctionsAmongThemselves();
    void LeaveTo(NodePtr const& branch);
    void TurnRound();

    SmartPtr<zvk::ReadWriteLock> lock_;
    JunctionFactory factory_;
    NodePtr predecessor_;
    NodePtr left_;
    NodePtr right_;
    /// Where the neighbour linked first stands, counted from the predecessor (0) along the
    /// successors. Always 0 in a head, whose first successor it is.
    std::uint32_t firstLinked_ = 0;
    bool packing_ = false;
    /// Walks that started here and haven't ended; kept in debug builds only.
    mutable std::atomic<std::uint16_t> runningWalks_{0};
};

/// A walk from one node. Compares unequal to `End()` while it stands on a node. Copies walk on
/// independently but share their visit check.
class BaseConnectionNode::ConstIterator {
public:
    ConstIterator();
    ConstIterator(ConstIterator const& other);
    ConstIterator(ConstIterator&& other) noexcept;
    ConstIterator& operator=(ConstIterator const& other);
    ConstIterator& operator=(ConstIterator&& other) noexcept;
    ~ConstIterator();

    /// The node of this step; null at the end.
    SmartPtr<BaseConnectionNode> const& operator*() const;
    /// Goes on to the next node that the check accepts. Does nothing at the end.
    ConstIterator& operator++();
    bool operator==(ConstIterator const& other) const;

private:
    friend class BaseConnectionNode;
    explicit ConstIterator(SmartPtr<BaseConnectionNode> const& start);

    void Settle();
    void CountWalk(int change) const;

    SmartPtr<BaseConnectionNode> start_;
    SmartPtr<BaseVisitCheck> check_;
    /// The present node on top, below it what is still to come.
    std::vector<SmartPtr<BaseConnectionNode>> stack_;
};

}  // namespace figk
