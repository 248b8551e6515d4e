// The place where a tree branches.
#pragma once

#include <figk/ConnectionNode.h>

namespace figk {

/// Made by the tree itself; complete.
class JunctionNode : public ConnectionNode {
public:
    JunctionNode(SmartPtr<zvk::ReadWriteLock> const& lock,
                 SmartPtr<BaseConnectionNode> const& predecessor);
    ~JunctionNode() override;

    ConnectionNodeType GetNodeType() const override;
    bool IsJunction() const override;
    std::string ToString() const override;

protected:
    bool VisitNode(AbstractVisitor& visitor) override;
};

}  // namespace figk
