// One drawn place of a port, as a node of a tree.
#pragma once

#include <dg/Point.h>
#include <figk/AbstractItem.h>
#include <figk/ConnectionNode.h>
#include <figk/Group.h>
#include <figk/TextLabelContainer.h>

namespace figk {

class PortNode : public AbstractItem,
                 public ConnectionNode,
                 public Group,
                 public TextLabelContainer {
public:
    ~PortNode() override;

    virtual SmartPtr<Port> GetPort() const = 0;
    virtual dg::DPoint2D const& GetPosition() const = 0;
    virtual SmartPtr<Sheet> GetSheet() const = 0;
    /// Whether the port stands on `subNet`: it belongs to it, or to a highway at a place that the
    /// sub-net reaches. False for null.
    virtual bool IsOnSubNet(SmartPtr<SubNet> const& subNet) const = 0;

    /// Shows this node and what is below it in the tree.
    void Accept(AbstractVisitor& visitor) override;
    TypeDefinitions::KernelItemType GetKernelItemType() const override;
    ConnectionNodeType GetNodeType() const override;
    std::string ToString() const override;

protected:
    PortNode(SmartPtr<zvk::ReadWriteLock> const& lock,
             SmartPtr<BaseConnectionNode> const& predecessor);

    bool VisitNode(AbstractVisitor& visitor) override;
};

}  // namespace figk
