// A piece of wire, as a node of its sub-net's tree.
#pragma once

#include <figk/ConnectionNode.h>
#include <figk/Segment.h>

namespace figk {

class NetSegment : public Segment, public ConnectionNode {
public:
    ~NetSegment() override;

    virtual SmartPtr<SubNet> GetSubNet() const = 0;

    /// Shows this segment and what is below it in the tree.
    void Accept(AbstractVisitor& visitor) override;
    TypeDefinitions::KernelItemType GetKernelItemType() const override;
    ConnectionNodeType GetNodeType() const override;
    std::string ToString() const override;

protected:
    NetSegment(SmartPtr<zvk::ReadWriteLock> const& lock,
               SmartPtr<BaseConnectionNode> const& predecessor);

    bool VisitNode(AbstractVisitor& visitor) override;
};

}  // namespace figk
