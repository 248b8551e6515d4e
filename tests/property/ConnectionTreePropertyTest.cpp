// Random histories of connection trees against a plain graph.
#include <gtest/gtest.h>
#include <platform/figk/TreeNode.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace figktest {
namespace {

using Ids = std::set<int>;

/// The neighbours of every node, and which of them leads to the head of its tree.
class Graph {
public:
    explicit Graph(int count) : neighbours_(static_cast<size_t>(count)) {
        for (int i = 0; i < count; ++i)
            predecessor_.push_back(-1);
    }

    void Add(int upper, int node) {
        if (upper == node || predecessor_[At(node)] == upper || IsAbove(node, upper)) return;
        if (predecessor_[At(node)] >= 0) Cut(predecessor_[At(node)], node);
        neighbours_[At(upper)].insert(node);
        neighbours_[At(node)].insert(upper);
        predecessor_[At(node)] = upper;
    }
    void Disconnect(int a, int b) {
        if (predecessor_[At(b)] == a)
            Cut(a, b);
        else if (predecessor_[At(a)] == b)
            Cut(b, a);
    }
    void Pivot(int node) {
        int below = -1;
        for (int at = node; at >= 0;) {
            int const above = predecessor_[At(at)];
            predecessor_[At(at)] = below;
            below = at;
            at = above;
        }
    }

    Ids const& Neighbours(int node) const { return neighbours_[At(node)]; }
    int Predecessor(int node) const { return predecessor_[At(node)]; }
    Ids Tree(int node) const {
        Ids tree{node};
        std::vector<int> open{node};
        while (!open.empty()) {
            int const at = open.back();
            open.pop_back();
            for (int next : neighbours_[At(at)]) {
                if (tree.insert(next).second) open.push_back(next);
            }
        }
        return tree;
    }

private:
    static size_t At(int node) { return static_cast<size_t>(node); }
    bool IsAbove(int upper, int node) const {
        while (node >= 0 && node != upper)
            node = predecessor_[At(node)];
        return node == upper;
    }
    void Cut(int upper, int node) {
        neighbours_[At(upper)].erase(node);
        neighbours_[At(node)].erase(upper);
        predecessor_[At(node)] = -1;
    }

    std::vector<Ids> neighbours_;
    std::vector<int> predecessor_;
};

/// The nodes under test, named by their numbers.
class Forest {
public:
    explicit Forest(int count, int highwayEvery = 0) {
        for (int i = 0; i < count; ++i) {
            bool const highway = highwayEvery > 0 && i % highwayEvery == 0;
            nodes_.push_back(highway ? MakeHighway(std::to_string(i))
                                     : MakeNode(std::to_string(i)));
        }
    }
    ~Forest() {
        for (NodePtr const& node : nodes_)
            node->CutTree();
    }

    NodePtr const& operator[](int node) const { return nodes_[static_cast<size_t>(node)]; }
    int Count() const { return static_cast<int>(nodes_.size()); }

    static int IdOf(BasePtr const& node) { return std::stoi(node->ToString()); }

private:
    std::vector<NodePtr> nodes_;
};

/// Checks every link below `head` from both ends and answers the nodes reached, junctions left out.
Ids CheckedTree(BasePtr const& head) {
    Ids ids;
    std::set<Base*> seen;
    std::vector<BasePtr> open{head};
    while (!open.empty()) {
        BasePtr const node = open.back();
        open.pop_back();
        RC_ASSERT(seen.insert(node.Get()).second);
        if (!node->IsJunction()) ids.insert(Forest::IdOf(node));
        BasePtr const left = node->GetLeftSuccessor();
        BasePtr const right = node->GetRightSuccessor();
        RC_ASSERT(left || !right);
        for (BasePtr const& below : {left, right}) {
            if (!below) continue;
            RC_ASSERT(below->GetPredecessor() == node);
            open.push_back(below);
        }
    }
    return ids;
}

Ids LookedThrough(BasePtr const& node) {
    std::vector<BasePtr> around;
    node->GetNonJunctionSuccessors(around);
    if (BasePtr above = node->GetNonJunctionPredecessor()) around.push_back(above);
    Ids ids;
    for (BasePtr const& other : around)
        ids.insert(Forest::IdOf(other));
    RC_ASSERT(ids.size() == around.size());
    return ids;
}

void CheckAgainst(Graph const& graph, Forest const& forest) {
    for (int i = 0; i < forest.Count(); ++i) {
        NodePtr const& node = forest[i];
        BasePtr const head = node->GetHead();
        RC_ASSERT(head->IsHead());
        RC_ASSERT(CheckedTree(head) == graph.Tree(i));
        RC_ASSERT(LookedThrough(node) == graph.Neighbours(i));
        BasePtr const above = node->GetNonJunctionPredecessor();
        RC_ASSERT((above ? Forest::IdOf(above) : -1) == graph.Predecessor(i));
    }
}

struct Step {
    int kind;
    int a;
    int b;
};

std::ostream& operator<<(std::ostream& out, Step const& step) {
    return out << "(" << step.kind << " " << step.a << " " << step.b << ")";
}

/// Steps of kinds 0 (add, the likeliest) to `kinds` - 1 on `nodes` nodes.
std::vector<Step> SomeSteps(int kinds, int nodes) {
    auto step = rc::gen::apply(
        [](int kind, int a, int b) {
            return Step{std::max(kind, 0), a, b};
        },
        rc::gen::inRange(-kinds, kinds), rc::gen::inRange(0, nodes), rc::gen::inRange(0, nodes));
    return *rc::gen::container<std::vector<Step>>(step);
}

RC_GTEST_PROP(ConnectionTreeProperty, TreesAgreeWithAPlainGraph, ()) {
    constexpr int NODES = 14;
    Forest forest(NODES);
    Graph graph(NODES);
    for (Step const& step : SomeSteps(3, NODES)) {
        if (step.kind == 0) {
            forest[step.a]->AddSuccessor(forest[step.b]);
            graph.Add(step.a, step.b);
        } else if (step.kind == 1) {
            RC_ASSERT(forest[step.a]->Disconnect(forest[step.b]) == forest[step.a]);
            graph.Disconnect(step.a, step.b);
        } else {
            RC_ASSERT(forest[step.a]->Pivot(nullptr) == forest[step.a]);
            graph.Pivot(step.a);
        }
        CheckAgainst(graph, forest);
    }
}

/// Grows a forest by every kind of change, plain disconnects and highway segments included.
void Grow(Forest const& forest, int nodes) {
    for (Step const& step : SomeSteps(4, nodes)) {
        if (step.kind == 0) forest[step.a]->AddSuccessor(forest[step.b]);
        if (step.kind == 1) forest[step.a]->Disconnect(forest[step.b]);
        if (step.kind == 2) forest[step.a]->Pivot(nullptr);
        if (step.kind == 3) forest[step.a]->Disconnect();
    }
}

RC_GTEST_PROP(ConnectionTreeProperty, PivotingAwayAndBackRestoresEveryLink, ()) {
    constexpr int NODES = 16;
    Forest forest(NODES, *rc::gen::inRange(0, 4));
    Grow(forest, NODES);
    for (int i = 0; i < NODES; ++i) {
        BasePtr const head = forest[i]->GetHead();
        std::string const before = LinkText(head);
        forest[i]->Pivot(nullptr);
        CheckedTree(forest[i]);
        head->Pivot(nullptr);
        RC_ASSERT(LinkText(head) == before);
    }
}

RC_GTEST_PROP(ConnectionTreeProperty, TheOrderOfAWalkDependsOnTheHeadAlone, ()) {
    constexpr int NODES = 16;
    Forest forest(NODES, *rc::gen::inRange(0, 4));
    Grow(forest, NODES);
    std::map<int, std::string> walks;
    for (int i = 0; i < NODES; ++i) {
        forest[i]->Pivot(nullptr);
        walks[i] = WalkText(forest[i]);
    }
    auto const order = *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, NODES));
    for (int i : order) {
        forest[i]->Pivot(nullptr);
        RC_ASSERT(WalkText(forest[i]) == walks[i]);
    }
}

RC_GTEST_PROP(ConnectionTreeProperty, ChangesMoveExactlyTheNodesThatTheyName, ()) {
    constexpr int NODES = 14;
    Forest forest(NODES, *rc::gen::inRange(1, 4));
    Grow(forest, NODES);
    int const a = *rc::gen::inRange(0, NODES);
    int const b = *rc::gen::inRange(0, NODES);
    RC_PRE(a != b);
    Ids below;
    for (auto it = forest[b]->Begin(); it != forest[b]->End(); ++it) {
        if (!(*it)->IsJunction()) below.insert(Forest::IdOf(*it));
    }
    Ids const former = CheckedTree(forest[b]->GetHead());
    Ids expected = CheckedTree(forest[a]->GetHead());
    bool const cycle = below.count(a) != 0;
    expected.insert(below.begin(), below.end());
    forest[a]->AddSuccessor(forest[b]);
    RC_ASSERT(CheckedTree(forest[a]->GetHead()) == expected);
    RC_ASSERT(cycle || forest[a]->IsSuccessor(forest[b]));
    forest[a]->Disconnect(forest[b]);
    RC_ASSERT(cycle || CheckedTree(forest[b]) == below);
    for (int i : former)
        CheckedTree(forest[i]->GetHead());
}

RC_GTEST_PROP(ConnectionTreeProperty, WhateverHappenedCuttingFreesEverything, ()) {
    constexpr int NODES = 16;
    auto const live = du::RefCounted::LiveCount();
    {
        Forest forest(NODES, 3);
        Grow(forest, NODES);
    }
    RC_ASSERT(du::RefCounted::LiveCount() == live);
}

}  // namespace
}  // namespace figktest
