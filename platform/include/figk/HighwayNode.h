// The place where a net joins or leaves a highway, as a node of the net's tree.
#pragma once

#include <figk/ConnectionNode.h>

namespace figk {

class HighwayNode : public ConnectionNode {
public:
    ~HighwayNode() override;

    /// The segment of the sub-highway itself (not the net's own copy of it) whose far end is the
    /// tap; null when there is none.
    virtual SmartPtr<HighwaySegment> GetHighwaySegment() const = 0;
    virtual SmartPtr<SubHighway> GetSubHighway() const = 0;
    /// The node of the net that is tied to the highway here; may be null.
    virtual SmartPtr<ConnectionNode> GetNetConnectionNode() const = 0;

    ConnectionNodeType GetNodeType() const override;
    bool IsHighwayNode() const override;
    std::string ToString() const override;

protected:
    HighwayNode(SmartPtr<zvk::ReadWriteLock> const& lock,
                SmartPtr<BaseConnectionNode> const& predecessor);

    bool VisitNode(AbstractVisitor& visitor) override;
};

}  // namespace figk
