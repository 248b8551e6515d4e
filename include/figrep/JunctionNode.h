// The place where a connection tree branches.
#pragma once

#include <figrep/ConnectionNode.h>

namespace figrep {

/// A branch of a tree. It has no place, no picture, no sub-net and no figure, and every walk
/// enters it.
class JunctionNode : public ConnectionNode {
public:
    JunctionNode(SmartPtr<zvk::ReadWriteLock> const& lock,
                 SmartPtr<figk::BaseConnectionNode> const& predecessor);
    JunctionNode(JunctionNode const&) = default;
    JunctionNode& operator=(JunctionNode const&) = default;
    ~JunctionNode() override;

    ConnectionNodeType GetNodeType() const override;
    bool IsJunction() const override;
    std::string ToString() const override;

    /// Takes a neighbour off, and the junction itself away once it has one branch left: the other
    /// branch then hangs below the predecessor. Answers what stands where the junction stood: the
    /// junction, its predecessor, or null for a junction that was head.
    SmartPtr<figk::BaseConnectionNode> Disconnect(
        SmartPtr<figk::BaseConnectionNode> const& other) override;
    using figk::BaseConnectionNode::Disconnect;

    void Accept(AbstractFigureVisitor& visitor) override;
    bool Visit(SmartPtr<SubNet> const& subNet) const override;
    SmartPtr<Figure> GetNodeFigure() const override;

protected:
    bool AcceptNode(AbstractFigureVisitor& visitor) override;
};

}  // namespace figrep
