#include <figrep/HighwayNode.h>

#include <figk/HighwayNode.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Figure.h>
#include <figrep/HighwaySegment.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <zvk/ReadWriteLock.h>

#include <vector>

namespace figrep {

namespace {

SmartPtr<SubNet> SubNetOf(SmartPtr<ConnectionNode> const& node) {
    return node ? node->GetSubNet() : nullptr;
}

SmartPtr<SubHighway> SubHighwayOf(SmartPtr<HighwaySegment> const& segment) {
    return segment ? segment->GetSubHighway() : nullptr;
}

}  // namespace

HighwayNode::HighwayNode(SmartPtr<zvk::ReadWriteLock> const& lock,
                         SmartPtr<figk::HighwayNode> const& kernelHighwayNode,
                         SmartPtr<SubHighway> const& subHighway,
                         SmartPtr<ConnectionNode> const& netConnectionNode)
    : ConnectionNode(lock, nullptr),
      subHighway_(subHighway),
      netConnectionNode_(netConnectionNode),
      subNet_(SubNetOf(netConnectionNode)),
      kernelHighwayNode_(kernelHighwayNode) {
    du::ConstructionGuard const guard(this);
    if (subNet_) subNet_->Add(SmartPtr<HighwayNode>(this));
}

HighwayNode::HighwayNode(SmartPtr<zvk::ReadWriteLock> const& lock,
                         SmartPtr<HighwaySegment> const& segment)
    : ConnectionNode(lock, segment), subHighway_(SubHighwayOf(segment)) {}

HighwayNode::HighwayNode(SmartPtr<zvk::ReadWriteLock> const& lock,
                         SmartPtr<HighwaySegment> const& segment,
                         SmartPtr<ConnectionNode> const& netConnectionNode)
    : ConnectionNode(lock, segment),
      subHighway_(SubHighwayOf(segment)),
      netConnectionNode_(netConnectionNode),
      subNet_(SubNetOf(netConnectionNode)) {
    du::ConstructionGuard const guard(this);
    if (subNet_) subNet_->Add(SmartPtr<HighwayNode>(this));
}

HighwayNode::HighwayNode(HighwayNode const& other) = default;

HighwayNode& HighwayNode::operator=(HighwayNode const& other) = default;

HighwayNode::~HighwayNode() = default;

HighwayNode::ConnectionNodeType HighwayNode::GetNodeType() const {
    return NODE_HIGHWAY;
}

bool HighwayNode::IsHighwayNode() const {
    return true;
}

std::string HighwayNode::ToString() const {
    return "HighwayNode";
}

void HighwayNode::Activate(bool suspendPrePivot) {
    zvk::WriteGuard const guard(GetTreeLock());
    SmartPtr<ConnectionNode> const node = netConnectionNode_;
    if (!node || !subNet_ || IsConnected(node)) return;
    if (HeadsHighway()) StepBelowHighway();
    if (figk::BaseConnectionNode::GetPredecessor()) {
        node->SuspendPrePivot(suspendPrePivot);
        node->Pivot(nullptr);
        AddSuccessor(node);
    } else {
        node->MakeLeafOnSubNet(subNet_);
        node->AddSuccessor(SmartPtr<figk::BaseConnectionNode>(this));
    }
}

void HighwayNode::Deactivate(bool turnHighwayBack) {
    SmartPtr<ConnectionNode> const self(this);
    zvk::WriteGuard const guard(GetTreeLock());
    if (!netConnectionNode_) return;
    if (IsConnected(netConnectionNode_)) Disconnect(netConnectionNode_);
    if (turnHighwayBack && subHighway_ && HeadsHighway()) subHighway_->TurnToHead();
}

bool HighwayNode::HeadsHighway() const {
    return IsHead() && !IsLeaf();
}

/// Hangs this node, the head of its highway, below its only neighbour there.
void HighwayNode::StepBelowHighway() {
    SmartPtr<ConnectionNode> const neighbour = GetLeftSuccessor();
    if (!neighbour) return;
    neighbour->SuspendPrePivot(true);
    neighbour->Pivot(nullptr);
    neighbour->SuspendPrePivot(false);
}

void HighwayNode::SetNetConnectionNode(SmartPtr<ConnectionNode> const& node) {
    SmartPtr<HighwayNode> const self(this);
    zvk::WriteGuard const guard(GetTreeLock());
    netConnectionNode_ = node;
    SmartPtr<SubNet> const subNet = SubNetOf(node);
    if (!subNet || subNet == subNet_) return;
    if (subNet_) subNet_->Remove(self);
    subNet->Add(self);
    subNet_ = subNet;
}

SmartPtr<ConnectionNode> HighwayNode::GetNetConnectionNode() const {
    zvk::ReadGuard const guard(GetTreeLock());
    return netConnectionNode_;
}

SmartPtr<figk::HighwayNode> HighwayNode::GetKernelHighwayNode() const {
    zvk::ReadGuard const guard(GetTreeLock());
    return kernelHighwayNode_;
}

SmartPtr<SubHighway> HighwayNode::GetSubHighway() const {
    zvk::ReadGuard const guard(GetTreeLock());
    return subHighway_;
}

void HighwayNode::Accept(AbstractFigureVisitor& visitor) {
    AcceptTree(visitor);
}

bool HighwayNode::AcceptNode(AbstractFigureVisitor& visitor) {
    return visitor.Visit(SmartPtr<HighwayNode>(this));
}

SmartPtr<SubNet> HighwayNode::GetSubNet() const {
    zvk::ReadGuard const guard(GetTreeLock());
    return subNet_;
}

void HighwayNode::Remove(SmartPtr<SubNet> const& subNet) {
    zvk::WriteGuard const guard(GetTreeLock());
    if (subNet_ == subNet) subNet_ = nullptr;
}

bool HighwayNode::Visit(SmartPtr<SubNet> const& subNet) const {
    zvk::ReadGuard const guard(GetTreeLock());
    return subNet_ == subNet;
}

SmartPtr<Figure> HighwayNode::GetNodeFigure() const {
    zvk::ReadGuard const guard(GetTreeLock());
    return subHighway_ ? subHighway_->GetFigure() : nullptr;
}

bool HighwayNode::Contacts(DPoint2D const& point) const {
    zvk::ReadGuard const guard(GetTreeLock());
    auto const segment = GetHighwaySegment();
    return segment && segment->Contacts(point);
}

SmartPtr<HighwaySegment> HighwayNode::GetHighwaySegment() const {
    zvk::ReadGuard const guard(GetTreeLock());
    if (auto const above = du::DynamicCast<HighwaySegment>(GetNonJunctionPredecessor())) {
        return above;
    }
    std::vector<SmartPtr<figk::BaseConnectionNode>> successors;
    GetNonJunctionSuccessors(successors);
    for (auto const& successor : successors) {
        if (auto const below = du::DynamicCast<HighwaySegment>(successor)) return below;
    }
    return nullptr;
}

}  // namespace figrep
