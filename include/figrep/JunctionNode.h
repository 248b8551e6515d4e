// The place where a connection tree branches.
#pragma once

#include <figrep/ConnectionNode.h>

namespace figrep {

/// A branch of a tree. It has no place, no picture, no sub-net and no figure, and every walk
/// enters it. The rules by which a junction with one branch left collapses are those of the base.
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

    void Accept(AbstractFigureVisitor& visitor) override;
    bool Visit(SmartPtr<SubNet> const& subNet) const override;
    SmartPtr<Figure> GetNodeFigure() const override;

protected:
    bool AcceptNode(AbstractFigureVisitor& visitor) override;
};

}  // namespace figrep
