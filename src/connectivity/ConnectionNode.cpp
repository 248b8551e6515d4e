#include <figrep/ConnectionNode.h>

#include <figrep/Figure.h>
#include <figrep/JunctionNode.h>
#include <figrep/SubNet.h>
#include <figrep/VisitCheck.h>
#include <zvk/ReadWriteLock.h>

#include <vector>

namespace figrep {

ConnectionNode::ConnectionNode(SmartPtr<zvk::ReadWriteLock> const& lock,
                               SmartPtr<figk::BaseConnectionNode> const& predecessor)
    : figk::BaseConnectionNode(lock, &ConnectionNode::CreateJunction, predecessor) {}

ConnectionNode::ConnectionNode(ConnectionNode const& other) = default;

ConnectionNode& ConnectionNode::operator=(ConnectionNode const& other) = default;

ConnectionNode::~ConnectionNode() = default;

SmartPtr<figk::BaseConnectionNode> ConnectionNode::CreateJunction(
    SmartPtr<figk::BaseConnectionNode> const& predecessor,
    SmartPtr<zvk::ReadWriteLock> const& lock) {
    return SmartPtr<figk::BaseConnectionNode>(new JunctionNode(lock, predecessor));
}

void ConnectionNode::PrePivot() {
    if (prePivotSuspended_) return;
    SmartPtr<SubNet> const subNet = GetSubNet();
    if (SmartPtr<Figure> const figure = GetNodeFigure()) figure->PrePivot(subNet);
}

SmartPtr<figk::BaseVisitCheck> ConnectionNode::GetVisitChecker() const {
    zvk::ReadGuard const guard(GetTreeLock());
    return SmartPtr<figk::BaseVisitCheck>(
        new VisitCheck(ConstSmartPtr<figk::BaseConnectionNode>(this)));
}

SmartPtr<SubNet> ConnectionNode::GetSubNet() const {
    return nullptr;
}

void ConnectionNode::Remove(SmartPtr<SubNet> const&) {}

bool ConnectionNode::Contacts(SmartPtr<ConnectionNode> const&, DPoint2D&) const {
    return false;
}

bool ConnectionNode::Contacts(DPoint2D const&) const {
    return false;
}

void ConnectionNode::Move(double, double) {}

void ConnectionNode::Rotate(DPoint2D const&, double) {}

void ConnectionNode::Scale(DPoint2D const&, double) {}

void ConnectionNode::Mirror(DPoint2D const&, bool) {}

SmartPtr<ConnectionNode> ConnectionNode::GetPredecessor() const {
    zvk::ReadGuard const guard(GetTreeLock());
    return du::DynamicCast<ConnectionNode>(figk::BaseConnectionNode::GetPredecessor());
}

SmartPtr<ConnectionNode> ConnectionNode::GetLeftSuccessor() const {
    zvk::ReadGuard const guard(GetTreeLock());
    return du::DynamicCast<ConnectionNode>(figk::BaseConnectionNode::GetLeftSuccessor());
}

SmartPtr<ConnectionNode> ConnectionNode::GetRightSuccessor() const {
    zvk::ReadGuard const guard(GetTreeLock());
    return du::DynamicCast<ConnectionNode>(figk::BaseConnectionNode::GetRightSuccessor());
}

void ConnectionNode::SuspendPrePivot(bool suspend) {
    zvk::WriteGuard const guard(GetTreeLock());
    prePivotSuspended_ = suspend;
}

SmartPtr<ConnectionNode> ConnectionNode::FindLeafForHead(SmartPtr<SubNet> const& subNet) {
    // The receiver's own sub-net decides, so the walk stops at its first leaf or finds nothing.
    if (!(GetSubNet() == subNet)) return nullptr;
    for (auto it = Begin(); it != End(); ++it) {
        SmartPtr<ConnectionNode> node = du::DynamicCast<ConnectionNode>(*it);
        if (node && node->IsLeaf()) return node;
    }
    return nullptr;
}

void ConnectionNode::MakeLeafOnSubNet(SmartPtr<SubNet> const& subNet) {
    zvk::WriteGuard const guard(GetTreeLock());
    if (IsLeaf() || GetPredecessor()) return;
    SmartPtr<ConnectionNode> const leaf = FindLeafForHead(subNet);
    if (!leaf) return;
    leaf->SuspendPrePivot(prePivotSuspended_);
    leaf->Pivot(nullptr);
}

void ConnectionNode::AcceptTree(AbstractFigureVisitor& visitor, figk::BaseVisitCheck* check) {
    zvk::ReadGuard const guard(GetTreeLock());
    std::vector<SmartPtr<ConnectionNode>> pending{SmartPtr<ConnectionNode>(this)};
    auto const enter = [&](SmartPtr<ConnectionNode> const& node) {
        if (node && (!check || check->Visit(ConstSmartPtr<figk::BaseConnectionNode>(node)))) {
            pending.push_back(node);
        }
    };
    while (!pending.empty()) {
        SmartPtr<ConnectionNode> const node = pending.back();
        pending.pop_back();
        if (!node->AcceptNode(visitor)) continue;
        enter(node->GetRightSuccessor());
        enter(node->GetLeftSuccessor());
    }
}

}  // namespace figrep
