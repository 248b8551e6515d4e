// The records that are nodes of connection trees: what each says of itself, and what a visitor
// sees.
#include <figk/AbstractVisitor.h>
#include <figk/ConnectorInstanceNode.h>
#include <figk/HighwayNode.h>
#include <figk/HighwaySegment.h>
#include <figk/NetSegment.h>
#include <figk/PortNode.h>
#include <figk/SubHighway.h>
#include <zvk/ReadWriteLock.h>

namespace figk {

using Types = TypeDefinitions;
using NodeType = BaseConnectionNode::ConnectionNodeType;

namespace {

/// Shows one node that is a group and carries labels; answers whether to go on below it.
template <typename Record>
bool VisitPictured(Record& record, AbstractVisitor& visitor) {
    if (!visitor.Visit(SmartPtr<Record>(&record))) return false;
    record.AcceptGroup(visitor);
    record.AcceptLabels(visitor);
    return true;
}

}  // namespace

Segment::~Segment() = default;

dg::DBox2D Segment::GetExtents() const {
    dg::DPoint2D start;
    dg::DPoint2D end;
    GetEnds(start, end);
    return dg::DBox2D(start, end);
}

NetSegment::NetSegment(SmartPtr<zvk::ReadWriteLock> const& lock,
                       SmartPtr<BaseConnectionNode> const& predecessor)
    : ConnectionNode(lock, predecessor) {}
NetSegment::~NetSegment() = default;
void NetSegment::Accept(AbstractVisitor& visitor) {
    ConnectionNode::Accept(visitor);
}
Types::KernelItemType NetSegment::GetKernelItemType() const {
    return Types::ITEM_NET_SEGMENT;
}
NodeType NetSegment::GetNodeType() const {
    return NODE_NET_SEGMENT;
}
std::string NetSegment::ToString() const {
    return "NetSegment";
}
bool NetSegment::VisitNode(AbstractVisitor& visitor) {
    return VisitPictured(*this, visitor);
}

HighwaySegment::HighwaySegment(SmartPtr<zvk::ReadWriteLock> const& lock,
                               SmartPtr<BaseConnectionNode> const& predecessor)
    : ConnectionNode(lock, predecessor) {}
HighwaySegment::~HighwaySegment() = default;
void HighwaySegment::Accept(AbstractVisitor& visitor) {
    ConnectionNode::Accept(visitor);
}
Types::KernelItemType HighwaySegment::GetKernelItemType() const {
    return Types::ITEM_HIGHWAY_SEGMENT;
}
NodeType HighwaySegment::GetNodeType() const {
    return NODE_HIGHWAY_SEGMENT;
}
std::string HighwaySegment::ToString() const {
    return "HighwaySegment";
}
bool HighwaySegment::VisitNode(AbstractVisitor& visitor) {
    return VisitPictured(*this, visitor);
}

PortNode::PortNode(SmartPtr<zvk::ReadWriteLock> const& lock,
                   SmartPtr<BaseConnectionNode> const& predecessor)
    : ConnectionNode(lock, predecessor) {}
PortNode::~PortNode() = default;
void PortNode::Accept(AbstractVisitor& visitor) {
    ConnectionNode::Accept(visitor);
}
Types::KernelItemType PortNode::GetKernelItemType() const {
    return Types::ITEM_PORT_NODE;
}
NodeType PortNode::GetNodeType() const {
    return NODE_PORT;
}
std::string PortNode::ToString() const {
    return "PortNode";
}
bool PortNode::VisitNode(AbstractVisitor& visitor) {
    return VisitPictured(*this, visitor);
}

HighwayNode::HighwayNode(SmartPtr<zvk::ReadWriteLock> const& lock,
                         SmartPtr<BaseConnectionNode> const& predecessor)
    : ConnectionNode(lock, predecessor) {}
HighwayNode::~HighwayNode() = default;
NodeType HighwayNode::GetNodeType() const {
    return NODE_HIGHWAY;
}
bool HighwayNode::IsHighwayNode() const {
    return true;
}
std::string HighwayNode::ToString() const {
    return "HighwayNode";
}
bool HighwayNode::VisitNode(AbstractVisitor& visitor) {
    return visitor.Visit(SmartPtr<HighwayNode>(this));
}

ConnectorInstanceNode::ConnectorInstanceNode(SmartPtr<zvk::ReadWriteLock> const& lock,
                                             SmartPtr<BaseConnectionNode> const& predecessor)
    : ConnectionNode(lock, predecessor) {}
ConnectorInstanceNode::~ConnectorInstanceNode() = default;
NodeType ConnectorInstanceNode::GetNodeType() const {
    return NODE_CONNECTOR_INSTANCE;
}
std::string ConnectorInstanceNode::ToString() const {
    return "ConnectorInstanceNode";
}
bool ConnectorInstanceNode::VisitNode(AbstractVisitor& visitor) {
    return visitor.Visit(SmartPtr<ConnectorInstanceNode>(this));
}

}  // namespace figk
