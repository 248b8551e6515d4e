// A piece of highway, as a node of its sub-highway's tree or of a net that runs along it.
#pragma once

#include <figk/ConnectionNode.h>
#include <figk/Segment.h>

namespace figk {

class HighwaySegment : public Segment, public ConnectionNode {
public:
    ~HighwaySegment() override;

    virtual SmartPtr<SubHighway> GetSubHighway() const = 0;

    /// Shows this segment and what is below it in the tree.
    void Accept(AbstractVisitor& visitor) override;
    TypeDefinitions::KernelItemType GetKernelItemType() const override;
    ConnectionNodeType GetNodeType() const override;
    std::string ToString() const override;

protected:
    HighwaySegment(SmartPtr<zvk::ReadWriteLock> const& lock,
                   SmartPtr<BaseConnectionNode> const& predecessor);

    bool VisitNode(AbstractVisitor& visitor) override;
};

}  // namespace figk
