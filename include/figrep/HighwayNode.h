// The place where a net leaves or joins a highway.
#pragma once

#include <figrep/ConnectionNode.h>

namespace figrep {

/// A tap of one sub-net on a sub-highway, tied to one node of the sub-net's own tree.
///
/// It is deactivated, hanging below its highway segment with the way to the net open, or
/// activated, with the net's tree spliced into the highway's. A node without a net node or
/// without a sub-net takes part in nothing.
class HighwayNode : public ConnectionNode {
public:
    /// A tap for a kernel record, still without a place on the highway; joins the list of the net
    /// node's sub-net.
    HighwayNode(SmartPtr<zvk::ReadWriteLock> const& lock,
                SmartPtr<figk::HighwayNode> const& kernelHighwayNode,
                SmartPtr<SubHighway> const& subHighway,
                SmartPtr<ConnectionNode> const& netConnectionNode);
    /// A tap below a highway segment, for `SetNetConnectionNode` to tie.
    HighwayNode(SmartPtr<zvk::ReadWriteLock> const& lock, SmartPtr<HighwaySegment> const& segment);
    /// A tap below a highway segment, tied to a net's node.
    HighwayNode(SmartPtr<zvk::ReadWriteLock> const& lock, SmartPtr<HighwaySegment> const& segment,
                SmartPtr<ConnectionNode> const& netConnectionNode);
    /// Copies what the node stands for, never its links.
    HighwayNode(HighwayNode const& other);
    HighwayNode& operator=(HighwayNode const& other);
    ~HighwayNode() override;

    ConnectionNodeType GetNodeType() const override;
    bool IsHighwayNode() const override;
    std::string ToString() const override;

    /// Splices the net's tree in: below this node when it hangs on the highway, else the node
    /// below the net. The flag suspends `PrePivot` of the net node, and stays on it.
    void Activate(bool suspendPrePivot);
    /// Opens the way to the net again. A highway that was headed by this node is turned back to
    /// its own head; without `turnHighwayBack` it stays as it is until `SubHighway::GetHead` or the
    /// next activation turns it. Cost: the way to the highway's head, where that is turned.
    void Deactivate(bool turnHighwayBack = true);

    /// Ties the tap to another node, whose sub-net takes it over. Null only unties.
    void SetNetConnectionNode(SmartPtr<ConnectionNode> const& node);
    SmartPtr<ConnectionNode> GetNetConnectionNode() const;

    /// Null for a node that the figure made.
    SmartPtr<figk::HighwayNode> GetKernelHighwayNode() const;
    SmartPtr<SubHighway> GetSubHighway() const;
    /// The segment beside it, at which the net enters; null while the node hangs elsewhere.
    SmartPtr<HighwaySegment> GetHighwaySegment() const;

    void Accept(AbstractFigureVisitor& visitor) override;
    SmartPtr<SubNet> GetSubNet() const override;
    void Remove(SmartPtr<SubNet> const& subNet) override;
    bool Visit(SmartPtr<SubNet> const& subNet) const override;
    SmartPtr<Figure> GetNodeFigure() const override;

    using ConnectionNode::Contacts;
    /// The node has no place of its own and asks the highway segment beside it.
    bool Contacts(DPoint2D const& point) const override;

protected:
    bool AcceptNode(AbstractFigureVisitor& visitor) override;

private:
    bool HeadsHighway() const;
    void StepBelowHighway();

    SmartPtr<SubHighway> subHighway_;
    SmartPtr<ConnectionNode> netConnectionNode_;
    SmartPtr<SubNet> subNet_;
    SmartPtr<figk::HighwayNode> kernelHighwayNode_;
};

}  // namespace figrep
