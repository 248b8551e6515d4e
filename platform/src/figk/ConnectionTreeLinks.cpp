// How nodes of connection trees are linked, packed, taken apart and turned round.
#include <figk/BaseConnectionNode.h>
#include <figk/ConnectionNode.h>

#include <algorithm>
#include <cassert>

namespace figk {

BaseConnectionNode* BaseConnectionNode::LogicalPredecessor() const {
    Node* node = predecessor_.Get();
    while (node && node->packing_)
        node = node->predecessor_.Get();
    return node;
}

void BaseConnectionNode::AppendLogicalSuccessors(std::vector<NodePtr>& out) const {
    if (left_) out.push_back(left_);
    if (!right_) return;
    auto const firstPacked = static_cast<std::ptrdiff_t>(out.size());
    Node const* node = right_.Get();
    while (node->packing_) {
        out.push_back(node->right_);
        node = node->left_.Get();
    }
    out.push_back(NodePtr(const_cast<Node*>(node)));
    std::reverse(out.begin() + firstPacked, out.end());
}

/// All neighbours in the order of linking.
void BaseConnectionNode::AppendRing(std::vector<NodePtr>& out) const {
    auto const first = static_cast<std::ptrdiff_t>(out.size());
    if (predecessor_) out.push_back(NodePtr(LogicalPredecessor()));
    AppendLogicalSuccessors(out);
    std::rotate(out.begin() + first, out.begin() + first + firstLinked_, out.end());
}

/// Makes `newPredecessor` (null: none) the one of the ring that this node hangs from. The link to
/// it is set by its own turn.
void BaseConnectionNode::AdoptRing(std::span<NodePtr const> ring, Node const* newPredecessor) {
    if (!newPredecessor) {
        predecessor_.Reset();
        firstLinked_ = 0;
        SetSuccessors(ring);
        return;
    }
    size_t place = 0;
    while (ring[place].Get() != newPredecessor)
        ++place;
    if (place == 0) {
        SetSuccessors(ring.subspan(1));
    } else if (place + 1 == ring.size()) {
        SetSuccessors(ring.first(place));
    } else {
        std::vector<NodePtr> successors(ring.begin() + static_cast<std::ptrdiff_t>(place) + 1,
                                        ring.end());
        successors.insert(successors.end(), ring.begin(),
                          ring.begin() + static_cast<std::ptrdiff_t>(place));
        SetSuccessors(successors);
    }
    firstLinked_ = place == 0 ? 0 : static_cast<std::uint32_t>(ring.size() - place);
}

/// Hangs exactly these under this node, in this order. The caller holds what hung here before.
void BaseConnectionNode::SetSuccessors(std::span<NodePtr const> successors) {
    std::vector<NodePtr> pool = TakePacking();
    left_ = successors.empty() ? NodePtr() : successors[0];
    if (left_) left_->predecessor_ = NodePtr(this);
    if (successors.size() > 2) {
        PackRight(successors, pool);
    } else {
        right_ = successors.size() == 2 ? successors[1] : NodePtr();
        if (right_) right_->predecessor_ = NodePtr(this);
    }
}

/// Packs all but the first as J(...J(second, third)..., last), with the junctions of the pool as
/// far as they go, so that a tree turned there and back keeps its junctions.
void BaseConnectionNode::PackRight(std::span<NodePtr const> successors,
                                   std::vector<NodePtr>& pool) {
    NodePtr packed = successors[1];
    for (size_t i = 2; i < successors.size(); ++i) {
        NodePtr junction = i - 2 < pool.size() ? pool[i - 2] : NewJunction(true);
        junction->packing_ = true;
        junction->left_ = packed;
        packed->predecessor_ = junction;
        junction->right_ = successors[i];
        successors[i]->predecessor_ = junction;
        packed = junction;
    }
    packed->predecessor_ = NodePtr(this);
    right_ = packed;
}

/// Frees the junctions that pack for this node, innermost first.
std::vector<SmartPtr<BaseConnectionNode>> BaseConnectionNode::TakePacking() {
    std::vector<NodePtr> pool;
    for (NodePtr node = right_; node && node->packing_;) {
        NodePtr const inner = node->left_;
        node->ForgetAll();
        pool.push_back(node);
        node = inner;
    }
    if (!pool.empty()) right_.Reset();
    std::reverse(pool.begin(), pool.end());
    return pool;
}

SmartPtr<BaseConnectionNode> BaseConnectionNode::NewJunction(bool packing) {
    NodePtr junction = factory_ ? factory_(NodePtr(), lock_) : NodePtr();
    if (!junction) junction = ConnectionNode::CreateJunction(NodePtr(), lock_);
    junction->packing_ = packing;
    return junction;
}

/// Turns the junctions that pack for this node into nodes of their own. Its neighbours, junctions
/// looked through, stay the same.
void BaseConnectionNode::MakePackingReal() {
    Node* node = right_.Get();
    if (packing_ || !node || !node->packing_) return;
    for (; node->packing_; node = node->left_.Get())
        node->packing_ = false;
    // Of the places along the successors only left (1) and right (2) are left.
    firstLinked_ = std::min<std::uint32_t>(firstLinked_, 2);
}

/// Makes a packing junction a node of its own.
void BaseConnectionNode::MakeReal() {
    if (packing_) LogicalPredecessor()->MakePackingReal();
}

/// Hangs `node`, a head, under this node as the neighbour linked last.
void BaseConnectionNode::Link(NodePtr const& node) {
    if (!left_ || !BranchesMeet()) {
        AppendSuccessor(node);
        return;
    }
    if (!left_->IsJunction()) InsertMeetingPoint();
    left_->AppendSuccessor(node);
}

/// Puts a junction between this node and its first successor.
void BaseConnectionNode::InsertMeetingPoint() {
    NodePtr const junction = NewJunction(false);
    NodePtr const first = left_;
    junction->left_ = first;
    first->predecessor_ = junction;
    junction->predecessor_ = NodePtr(this);
    left_ = junction;
}

void BaseConnectionNode::AppendSuccessor(NodePtr const& node) {
    // The ring of a head starts at its first successor; now the predecessor comes before that one.
    std::uint32_t const firstOfNode = node->left_ ? 1 : 0;
    if (predecessor_ && firstLinked_ != 0) {
        InsertBeforeFirstLinked(node);
    } else {
        AppendLast(node);
    }
    node->firstLinked_ = firstOfNode;
}

void BaseConnectionNode::AppendLast(NodePtr const& node) {
    NodePtr holder(this);
    if (!left_) {
        left_ = node;
    } else if (!right_) {
        right_ = node;
    } else {
        holder = NewJunction(true);
        holder->left_ = right_;
        right_->predecessor_ = holder;
        holder->right_ = node;
        holder->predecessor_ = NodePtr(this);
        right_ = holder;
    }
    node->predecessor_ = holder;
}

/// The end of the ring is before the neighbour linked first, which a pivot may have put anywhere
/// among the successors.
void BaseConnectionNode::InsertBeforeFirstLinked(NodePtr const& node) {
    std::vector<NodePtr> successors;
    AppendLogicalSuccessors(successors);
    successors.insert(successors.begin() + firstLinked_ - 1, node);
    SetSuccessors(successors);
    ++firstLinked_;
}

bool BaseConnectionNode::HangsDirectlyBelow(Node const& upper) const {
    Node const* holder = LogicalPredecessor();
    if (!holder || holder == &upper) return holder != nullptr;
    return holder == upper.left_.Get() && holder->IsJunction() && upper.BranchesMeet();
}

/// Whether nothing but junctions stands between this node and `upper` above it.
bool BaseConnectionNode::IsBelow(Node const& upper) const {
    for (Node const* node = predecessor_.Get(); node; node = node->predecessor_.Get()) {
        if (node == &upper) return true;
        if (!node->packing_ && !node->IsJunction()) return false;
    }
    return false;
}

bool BaseConnectionNode::HasAbove(Node const& other) const {
    Node const* node = predecessor_.Get();
    while (node && node != &other)
        node = node->predecessor_.Get();
    return node != nullptr;
}

/// Takes the link between a node and its logical successor away, and nothing more.
void BaseConnectionNode::Unlink(Node& upper, Node& lower) {
    NodePtr const keepUpper(&upper);
    NodePtr const keepLower(&lower);
    upper.ForgetSuccessor(lower);
    lower.ForgetPredecessor();
}

void BaseConnectionNode::ForgetSuccessor(Node const& node) {
    std::vector<NodePtr> successors;
    AppendLogicalSuccessors(successors);
    auto const found = std::find(successors.begin(), successors.end(), &node);
    if (found == successors.end()) return;
    auto const place = static_cast<std::uint32_t>(found - successors.begin()) + 1;
    successors.erase(found);
    if (firstLinked_ > place) {
        --firstLinked_;
    } else if (firstLinked_ == place && place > successors.size()) {
        firstLinked_ = 0;
    }
    SetSuccessors(successors);
}

void BaseConnectionNode::ForgetPredecessor() {
    if (firstLinked_ > 1) {
        std::vector<NodePtr> successors;
        AppendLogicalSuccessors(successors);
        std::rotate(successors.begin(), successors.begin() + firstLinked_ - 1, successors.end());
        SetSuccessors(successors);
    }
    firstLinked_ = 0;
    predecessor_.Reset();
}

/// Drops this node's ends of all its links.
void BaseConnectionNode::ForgetAll() {
    predecessor_.Reset();
    left_.Reset();
    right_.Reset();
    firstLinked_ = 0;
    packing_ = false;
}

/// Takes this node off what holds it. A junction that held it and has one branch left goes, unless
/// it is `keep`.
void BaseConnectionNode::TakeOff(Node const* keep) {
    NodePtr const upper(LogicalPredecessor());
    Unlink(*upper, *this);
    if (!upper->IsJunction()) return;
    NodePtr const rest = upper->CollapseJunction(keep);
    if (rest && rest.Get() != keep) rest->CutJunctionsAmongThemselves();
}

SmartPtr<BaseConnectionNode> BaseConnectionNode::DisconnectFromJunction(NodePtr const& other) {
    if (packing_ && !other->packing_ && other->predecessor_.Get() == this) {
        NodePtr const owner(LogicalPredecessor());
        Unlink(*owner, *other);
        return owner;
    }
    MakeReal();
    other->MakeReal();
    if (other->LogicalPredecessor() == this) {
        Unlink(*this, *other);
    } else if (LogicalPredecessor() == other.Get()) {
        Unlink(*other, *this);
    } else {
        return NodePtr(this);
    }
    NodePtr const rest = CollapseJunction(nullptr);
    if (rest) rest->CutJunctionsAmongThemselves();
    return rest;
}

/// Takes a junction with fewer than two branches out of the tree, and those above it that it leaves
/// without any. Answers what its remaining branch hangs from now; null when it was a head.
SmartPtr<BaseConnectionNode> BaseConnectionNode::CollapseJunction(Node const* keep) {
    NodePtr junction(this);
    while (junction.Get() != keep) {
        if (!junction->predecessor_) {
            if (junction->left_ && !junction->right_) junction->LeaveBehind(junction->left_);
            return nullptr;
        }
        if (junction->right_) return junction;
        NodePtr const upper(junction->LogicalPredecessor());
        if (junction->left_) {
            junction->LeaveTo(junction->left_);
            return upper;
        }
        Unlink(*upper, *junction);
        if (!upper->IsJunction()) return upper;
        junction = upper;
    }
    return junction;
}

/// Unlinks one neighbour plainly.
void BaseConnectionNode::LeaveBehind(NodePtr const& neighbour) {
    NodePtr const left = neighbour;
    if (left->LogicalPredecessor() == this) {
        Unlink(*this, *left);
    } else {
        Unlink(*left, *this);
    }
    left->CutJunctionsAmongThemselves();
}

/// Cuts the tree of a junction when there is no other node in it: junctions that hold nothing but
/// one another would keep themselves alive for good. Cost: the junctions between this one and the
/// nearest other node.
void BaseConnectionNode::CutJunctionsAmongThemselves() {
    struct Place {
        Node* node;
        Node* from;
    };
    std::vector<Place> reached{{this, nullptr}};
    for (size_t i = 0; i < reached.size(); ++i) {
        auto const [node, from] = reached[i];
        if (!node->IsJunction()) return;
        for (NodePtr const* next : {&node->predecessor_, &node->left_, &node->right_}) {
            if (*next && next->Get() != from) reached.push_back({next->Get(), node});
        }
    }
    std::vector<NodePtr> junctions;
    for (Place const& place : reached)
        junctions.push_back(NodePtr(place.node));
    for (NodePtr const& junction : junctions)
        junction->ForgetAll();
}

/// Puts the only branch of this junction in its place, so that the order of those beside it stays.
void BaseConnectionNode::LeaveTo(NodePtr const& branch) {
    NodePtr const self(this);
    NodePtr const holder = predecessor_;
    NodePtr const rest = branch;
    (holder->left_.Get() == this ? holder->left_ : holder->right_) = rest;
    rest->predecessor_ = holder;
    ForgetAll();
}

/// Turns the path from the old head round, so that this node is the head.
void BaseConnectionNode::TurnRound() {
    struct Step {
        Node* node;
        size_t begin;
    };
    // All rings are read before any link changes; they also keep every node of the path alive.
    std::vector<Step> path;
    std::vector<NodePtr> rings;
    for (Node* node = this; node; node = node->LogicalPredecessor()) {
        assert(node->runningWalks_ == 0 && "a tree is turned under a running walk");
        path.push_back({node, rings.size()});
        node->AppendRing(rings);
    }
    std::span<NodePtr const> const all(rings);
    for (size_t i = 0; i < path.size(); ++i) {
        size_t const end = i + 1 < path.size() ? path[i + 1].begin : rings.size();
        path[i].node->AdoptRing(all.subspan(path[i].begin, end - path[i].begin),
                                i == 0 ? nullptr : path[i - 1].node);
    }
}

}  // namespace figk
