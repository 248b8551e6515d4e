#include <figk/AbstractVisitor.h>
#include <figk/ConnectionNode.h>
#include <figk/FirstVisitCheck.h>
#include <figk/JunctionNode.h>
#include <zvk/ReadWriteLock.h>

namespace figk {

ConnectionNode::ConnectionNode(SmartPtr<zvk::ReadWriteLock> const& lock,
                               SmartPtr<BaseConnectionNode> const& predecessor)
    : BaseConnectionNode(lock, &ConnectionNode::CreateJunction, predecessor) {}

ConnectionNode::ConnectionNode(ConnectionNode const& other)
    : du::RefCounted(other), BaseConnectionNode(other) {}

ConnectionNode::~ConnectionNode() = default;

SmartPtr<BaseConnectionNode> ConnectionNode::CreateJunction(
    SmartPtr<BaseConnectionNode> const& predecessor, SmartPtr<zvk::ReadWriteLock> const& lock) {
    return SmartPtr<BaseConnectionNode>(new JunctionNode(lock, predecessor));
}

void ConnectionNode::Accept(AbstractVisitor& visitor) {
    std::vector<SmartPtr<ConnectionNode>> open{SmartPtr<ConnectionNode>(this)};
    while (!open.empty()) {
        SmartPtr<ConnectionNode> const node = open.back();
        open.pop_back();
        if (!node->VisitNode(visitor)) continue;
        if (SmartPtr<ConnectionNode> right = node->GetRightSuccessor()) open.push_back(right);
        if (SmartPtr<ConnectionNode> left = node->GetLeftSuccessor()) open.push_back(left);
    }
}

SmartPtr<BaseVisitCheck> ConnectionNode::GetVisitChecker() const {
    return SmartPtr<BaseVisitCheck>(new FirstVisitCheck());
}

SmartPtr<ConnectionNode> ConnectionNode::GetPredecessor() const {
    return du::DynamicCast<ConnectionNode>(BaseConnectionNode::GetPredecessor());
}

SmartPtr<ConnectionNode> ConnectionNode::GetLeftSuccessor() const {
    return du::DynamicCast<ConnectionNode>(BaseConnectionNode::GetLeftSuccessor());
}

SmartPtr<ConnectionNode> ConnectionNode::GetRightSuccessor() const {
    return du::DynamicCast<ConnectionNode>(BaseConnectionNode::GetRightSuccessor());
}

JunctionNode::JunctionNode(SmartPtr<zvk::ReadWriteLock> const& lock,
                           SmartPtr<BaseConnectionNode> const& predecessor)
    : ConnectionNode(lock, predecessor) {}

JunctionNode::~JunctionNode() = default;

BaseConnectionNode::ConnectionNodeType JunctionNode::GetNodeType() const {
    return NODE_JUNCTION;
}

bool JunctionNode::IsJunction() const {
    return true;
}

std::string JunctionNode::ToString() const {
    return "Junction";
}

bool JunctionNode::VisitNode(AbstractVisitor& visitor) {
    return visitor.Visit(SmartPtr<JunctionNode>(this));
}

}  // namespace figk
