#include <figrep/DeltaVertexNode.h>

#include <zvk/ReadWriteLock.h>

namespace figrep {

DeltaVertexNode::DeltaVertexNode(SmartPtr<zvk::ReadWriteLock> const& lock, DPoint2D const& position,
                                 SmartPtr<figk::BaseConnectionNode> const& predecessor)
    : figk::BaseConnectionNode(lock, nullptr, predecessor), position_(position) {}

DeltaVertexNode::~DeltaVertexNode() = default;

DeltaVertexNode::ConnectionNodeType DeltaVertexNode::GetNodeType() const {
    return NODE_DELTA_VERTEX;
}

std::string DeltaVertexNode::ToString() const {
    return "DeltaVertexNode";
}

void DeltaVertexNode::PrePivot() {}

SmartPtr<figk::BaseVisitCheck> DeltaVertexNode::GetVisitChecker() const {
    return {};
}

DPoint2D DeltaVertexNode::GetPosition() const {
    zvk::ReadGuard const guard(GetTreeLock());
    return position_;
}

}  // namespace figrep
