// A graph of points joined by edges, as compact arrays.
#pragma once

#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "GridPoint.h"

namespace figkernel {

/// The sorted distinct points of a drawing; a point's place in it is its number.
class PointTable {
public:
    explicit PointTable(std::vector<GridPoint> points);

    std::uint32_t Size() const { return static_cast<std::uint32_t>(sorted.size()); }
    GridPoint const& operator[](std::uint32_t number) const { return sorted[number]; }

    /// The number of a point; NO_INDEX for one that isn't in the table. Cost: log n.
    std::uint32_t Find(GridPoint const& point) const;

private:
    std::vector<GridPoint> sorted;
};

/// Lists of numbers by key, in one array: the edges at a vertex, the pins at a point.
class Buckets {
public:
    /// A key, below the key count, and a value. Values keep their order below one key.
    using Entry = std::pair<std::uint32_t, std::uint32_t>;

    Buckets(std::uint32_t keyCount, std::vector<Entry> const& entries);

    std::span<std::uint32_t const> operator[](std::uint32_t key) const {
        return {values.data() + starts[key], values.data() + starts[key + 1]};
    }

private:
    std::vector<std::uint32_t> starts;
    std::vector<std::uint32_t> values;
};

struct GraphEdge {
    std::uint32_t a = 0;
    std::uint32_t b = 0;

    std::uint32_t Other(std::uint32_t vertex) const { return vertex == a ? b : a; }
};

/// Edges by vertex; no edge joins a vertex to itself.
class PointGraph {
public:
    PointGraph(std::uint32_t vertexCount, std::vector<GraphEdge> edges);

    std::uint32_t VertexCount() const { return vertexCount; }
    std::vector<GraphEdge> const& Edges() const { return edges; }
    /// The edges at a vertex, lowest first.
    std::span<std::uint32_t const> At(std::uint32_t vertex) const { return byVertex[vertex]; }

    /// The number of the connected part of each vertex. Parts are numbered in the order of their
    /// lowest edges; vertices without an edge follow in their own order.
    std::vector<std::uint32_t> Parts(std::uint32_t& partCount) const;

private:
    void Flood(std::uint32_t vertex, std::uint32_t part, std::vector<std::uint32_t>& parts) const;

    std::uint32_t vertexCount;
    std::vector<GraphEdge> edges;
    Buckets byVertex;
};

}  // namespace figkernel
