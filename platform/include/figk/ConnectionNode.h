// The kernel's own node of a net's or a highway's connection tree.
#pragma once

#include <figk/BaseConnectionNode.h>

namespace figk {

/// Base of the node records. Complete but for what a record says of itself: a kernel derives its
/// records from it and links them by the constructor's predecessor or by `AddSuccessor`.
class ConnectionNode : public BaseConnectionNode {
public:
    ~ConnectionNode() override;

    /// A new `JunctionNode`.
    static SmartPtr<BaseConnectionNode> CreateJunction(
        SmartPtr<BaseConnectionNode> const& predecessor, SmartPtr<zvk::ReadWriteLock> const& lock);

    /// Hands the visitor this node and what is below it: the node, its left tree, its right tree.
    /// Where `VisitNode` answers false the walk leaves out what is below that node. The depth of
    /// the tree doesn't matter.
    virtual void Accept(AbstractVisitor& visitor);

    /// A check that is true on the first sight of a node.
    SmartPtr<BaseVisitCheck> GetVisitChecker() const override;

    /// The direct neighbours; null where there is none or it is no kernel node.
    SmartPtr<ConnectionNode> GetPredecessor() const;
    SmartPtr<ConnectionNode> GetLeftSuccessor() const;
    SmartPtr<ConnectionNode> GetRightSuccessor() const;

protected:
    ConnectionNode(SmartPtr<zvk::ReadWriteLock> const& lock,
                   SmartPtr<BaseConnectionNode> const& predecessor);
    ConnectionNode(ConnectionNode const& other);

    /// Hands the visitor this one node, with its graphics and labels when the visitor wants them.
    /// Answers whether to go on to the successors.
    virtual bool VisitNode(AbstractVisitor& visitor) = 0;
};

}  // namespace figk
