// Sets that grow together.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

namespace fighost::kicad {

/// Disjoint sets of numbered nodes. The root of a set is its smallest node, so that nothing depends
/// on the order of joining. Cost of a call: nearly constant.
class UnionFind {
public:
    using Node = std::uint32_t;

    Node Add(std::size_t count = 1) {
        Node const first = static_cast<Node>(parents.size());
        for (std::size_t i = 0; i < count; ++i) {
            parents.push_back(static_cast<Node>(parents.size()));
        }
        return first;
    }
    Node Find(Node node) {
        while (parents[node] != node) {
            parents[node] = parents[parents[node]];
            node = parents[node];
        }
        return node;
    }
    void Join(Node a, Node b) {
        a = Find(a);
        b = Find(b);
        if (a == b) return;
        if (b < a) std::swap(a, b);
        parents[b] = a;
    }
    std::size_t GetSize() const { return parents.size(); }

private:
    std::vector<Node> parents;
};

}  // namespace fighost::kicad
