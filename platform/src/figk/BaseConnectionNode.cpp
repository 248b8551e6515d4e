#include <figk/BaseConnectionNode.h>

#include <figk/ConnectionNode.h>
#include <zvk/ReadWriteLock.h>

namespace figk {

BaseConnectionNode::BaseConnectionNode(SmartPtr<zvk::ReadWriteLock> const& lock,
                                       JunctionFactory factory,
                                       SmartPtr<BaseConnectionNode> const& predecessor)
    : lock_(lock), factory_(factory) {
    if (!predecessor) return;
    NodePtr self(this);
    zvk::WriteGuard guard(lock_);
    Node* upper = predecessor->packing_ ? predecessor->LogicalPredecessor() : predecessor.Get();
    upper->Link(self);
}

BaseConnectionNode::BaseConnectionNode(BaseConnectionNode const& other)
    : du::RefCounted(other), lock_(other.lock_), factory_(other.factory_) {}

BaseConnectionNode& BaseConnectionNode::operator=(BaseConnectionNode const& other) {
    lock_ = other.lock_;
    factory_ = other.factory_;
    return *this;
}

BaseConnectionNode::~BaseConnectionNode() = default;

bool BaseConnectionNode::IsJunction() const {
    return false;
}

bool BaseConnectionNode::IsHighwayNode() const {
    return false;
}

void BaseConnectionNode::PrePivot() {}

SmartPtr<BaseVisitCheck> BaseConnectionNode::GetVisitChecker() const {
    return nullptr;
}

bool BaseConnectionNode::BranchesMeet() const {
    return GetNodeType() == NODE_HIGHWAY_SEGMENT;
}

SmartPtr<BaseConnectionNode> BaseConnectionNode::GetHead() const {
    zvk::ReadGuard guard(lock_);
    Node const* node = this;
    while (node->predecessor_)
        node = node->predecessor_.Get();
    return NodePtr(const_cast<Node*>(node));
}

SmartPtr<BaseConnectionNode> BaseConnectionNode::GetPredecessor() const {
    zvk::ReadGuard guard(lock_);
    return predecessor_;
}

SmartPtr<BaseConnectionNode> BaseConnectionNode::GetLeftSuccessor() const {
    zvk::ReadGuard guard(lock_);
    return left_;
}

SmartPtr<BaseConnectionNode> BaseConnectionNode::GetRightSuccessor() const {
    zvk::ReadGuard guard(lock_);
    return right_;
}

SmartPtr<BaseConnectionNode> BaseConnectionNode::GetFirstLeaf() const {
    zvk::ReadGuard guard(lock_);
    Node const* node = this;
    while (node->left_)
        node = node->left_.Get();
    return NodePtr(const_cast<Node*>(node));
}

SmartPtr<BaseConnectionNode> BaseConnectionNode::GetNonJunctionPredecessor() const {
    zvk::ReadGuard guard(lock_);
    Node const* node = predecessor_.Get();
    while (node && node->IsJunction())
        node = node->predecessor_.Get();
    return NodePtr(const_cast<Node*>(node));
}

void BaseConnectionNode::GetNonJunctionSuccessors(
    std::vector<SmartPtr<BaseConnectionNode>>& successors) const {
    zvk::ReadGuard guard(lock_);
    std::vector<Node const*> open{this};
    while (!open.empty()) {
        Node const* node = open.back();
        open.pop_back();
        if (node != this && !node->IsJunction()) {
            successors.push_back(NodePtr(const_cast<Node*>(node)));
            continue;
        }
        if (node->right_) open.push_back(node->right_.Get());
        if (node->left_) open.push_back(node->left_.Get());
    }
}

bool BaseConnectionNode::IsHead() const {
    zvk::ReadGuard guard(lock_);
    return !predecessor_;
}

bool BaseConnectionNode::IsLeaf() const {
    zvk::ReadGuard guard(lock_);
    return !left_ && !right_;
}

bool BaseConnectionNode::IsSuccessor(SmartPtr<BaseConnectionNode> const& other) const {
    if (!other) return false;
    zvk::ReadGuard guard(lock_);
    return other->IsBelow(*this);
}

bool BaseConnectionNode::IsConnected(SmartPtr<BaseConnectionNode> const& other) const {
    if (!other) return false;
    zvk::ReadGuard guard(lock_);
    return other->IsBelow(*this) || IsBelow(*other);
}

void BaseConnectionNode::AddSuccessor(SmartPtr<BaseConnectionNode> const& node) {
    if (!node || node.Get() == this) return;
    NodePtr const self(this);
    NodePtr const added(node);
    zvk::WriteGuard guard(lock_);
    if (packing_) {
        LogicalPredecessor()->AddSuccessor(added);
        return;
    }
    added->MakeReal();
    if (added->HangsDirectlyBelow(*this)) return;
    if (added->left_ && HasAbove(*added)) return;
    if (added->predecessor_) added->TakeOff(this);
    Link(added);
}

SmartPtr<BaseConnectionNode> BaseConnectionNode::Disconnect(
    SmartPtr<BaseConnectionNode> const& other) {
    NodePtr const self(this);
    if (!other || other.Get() == this) return self;
    NodePtr const partner(other);
    zvk::WriteGuard guard(lock_);
    if (IsJunction()) return DisconnectFromJunction(partner);
    partner->MakeReal();
    if (partner->IsBelow(*this)) {
        partner->TakeOff(nullptr);
    } else if (IsBelow(*partner)) {
        TakeOff(nullptr);
    }
    return self;
}

void BaseConnectionNode::Disconnect() {
    NodePtr const self(this);
    zvk::WriteGuard guard(lock_);
    MakeReal();
    // Junctions that pack for a neighbour become real ones too, instead of being packed anew for
    // every node that leaves: what takes a wide tree down node by node stays linear.
    if (Node* upper = LogicalPredecessor()) {
        upper->MakePackingReal();
        LeaveBehind(NodePtr(LogicalPredecessor()));
    }
    MakePackingReal();
    while (left_)
        LeaveBehind(left_);
}

SmartPtr<BaseConnectionNode> BaseConnectionNode::Pivot(SmartPtr<BaseConnectionNode> const&) {
    NodePtr self(this);
    zvk::WriteGuard guard(lock_);
    PrePivot();
    MakeReal();
    if (predecessor_) TurnRound();
    return self;
}

void BaseConnectionNode::CutTree() {
    NodePtr const self(this);
    zvk::WriteGuard guard(lock_);
    std::vector<NodePtr> nodes{GetHead()};
    for (size_t i = 0; i < nodes.size(); ++i) {
        NodePtr const node = nodes[i];
        if (node->left_) nodes.push_back(node->left_);
        if (node->right_) nodes.push_back(node->right_);
    }
    for (NodePtr const& node : nodes)
        node->ForgetAll();
}

BaseConnectionNode::ConstIterator BaseConnectionNode::Begin() {
    return ConstIterator(this);
}

BaseConnectionNode::ConstIterator BaseConnectionNode::End() const {
    return ConstIterator();
}

}  // namespace figk
