// Small nodes to build connection trees of, and texts that show how a tree is linked.
#pragma once

#include <figk/BaseConnectionNode.h>
#include <figk/ConnectionNode.h>
#include <zvk/ReadWriteLock.h>

#include <functional>
#include <string>
#include <vector>

namespace figktest {

using Base = figk::BaseConnectionNode;
using BasePtr = du::SmartPtr<Base>;

/// A junction of the tests' own family.
class TreeJunction : public Base {
public:
    TreeJunction(BasePtr const& predecessor, du::SmartPtr<zvk::ReadWriteLock> const& lock)
        : Base(lock, &TreeJunction::Create, predecessor) {}

    static BasePtr Create(BasePtr const& predecessor,
                          du::SmartPtr<zvk::ReadWriteLock> const& lock) {
        return BasePtr(new TreeJunction(predecessor, lock));
    }

    ConnectionNodeType GetNodeType() const override { return NODE_JUNCTION; }
    bool IsJunction() const override { return true; }
    std::string ToString() const override { return "J"; }
};

/// A node with a name and, where a test wants them, a visit check and an action before pivots.
class TreeNode : public Base {
public:
    explicit TreeNode(std::string name, BasePtr const& predecessor = nullptr,
                      ConnectionNodeType type = NODE_NET_SEGMENT)
        : Base(nullptr, &TreeJunction::Create, predecessor), name_(std::move(name)), type_(type) {}

    ConnectionNodeType GetNodeType() const override { return type_; }
    std::string ToString() const override { return name_; }
    void PrePivot() override {
        ++pivotsAnnounced;
        if (onPrePivot) onPrePivot();
    }
    du::SmartPtr<figk::BaseVisitCheck> GetVisitChecker() const override { return check; }

    int pivotsAnnounced = 0;
    std::function<void()> onPrePivot;
    du::SmartPtr<figk::BaseVisitCheck> check;

private:
    std::string name_;
    ConnectionNodeType type_;
};

using NodePtr = du::SmartPtr<TreeNode>;

inline NodePtr MakeNode(std::string const& name, BasePtr const& predecessor = nullptr) {
    return NodePtr(new TreeNode(name, predecessor));
}

inline NodePtr MakeHighway(std::string const& name, BasePtr const& predecessor = nullptr) {
    return NodePtr(new TreeNode(name, predecessor, Base::NODE_HIGHWAY_SEGMENT));
}

/// The names in the order of a walk, junctions left out: "a b c".
inline std::string WalkText(BasePtr const& start) {
    std::string text;
    for (auto it = start->Begin(); it != start->End(); ++it) {
        if ((*it)->IsJunction()) continue;
        if (!text.empty()) text += ' ';
        text += (*it)->ToString();
    }
    return text;
}

/// Every link below a node: "a(b,J(c,d))". Only for small trees: it recurses.
inline std::string LinkText(BasePtr const& node) {
    if (!node) return "-";
    std::string text = node->ToString();
    BasePtr const left = node->GetLeftSuccessor();
    BasePtr const right = node->GetRightSuccessor();
    if (!left && !right) return text;
    text += "(" + LinkText(left);
    if (right) text += "," + LinkText(right);
    return text + ")";
}

/// The links of the whole tree that holds a node.
inline std::string TreeText(BasePtr const& node) {
    return LinkText(node->GetHead());
}

/// Cuts whatever trees the nodes of a test stand in, when the test ends.
class Cutter {
public:
    explicit Cutter(std::vector<NodePtr> nodes) : nodes_(std::move(nodes)) {}
    ~Cutter() {
        for (NodePtr const& node : nodes_)
            node->CutTree();
    }

private:
    std::vector<NodePtr> nodes_;
};

/// A head `a` with successors b, c, ... of the given number.
struct Star {
    explicit Star(int branches) {
        hub = MakeNode("a");
        for (int i = 0; i < branches; ++i) {
            leaves.push_back(MakeNode(std::string(1, static_cast<char>('b' + i)), hub));
        }
    }
    ~Star() {
        hub->CutTree();
        for (NodePtr const& leaf : leaves)
            leaf->CutTree();
    }

    NodePtr hub;
    std::vector<NodePtr> leaves;
};

}  // namespace figktest
