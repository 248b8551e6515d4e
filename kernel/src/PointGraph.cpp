#include "PointGraph.h"

#include <algorithm>

#include <figkernel/DesignSource.h>

namespace figkernel {

namespace {

std::vector<Buckets::Entry> EntriesOf(std::vector<GraphEdge> const& edges) {
    std::vector<Buckets::Entry> entries;
    entries.reserve(2 * edges.size());
    for (std::uint32_t i = 0; i < edges.size(); ++i) {
        entries.emplace_back(edges[i].a, i);
        entries.emplace_back(edges[i].b, i);
    }
    return entries;
}

}  // namespace

PointTable::PointTable(std::vector<GridPoint> points) : sorted(std::move(points)) {
    std::sort(sorted.begin(), sorted.end());
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
}

std::uint32_t PointTable::Find(GridPoint const& point) const {
    auto const at = std::lower_bound(sorted.begin(), sorted.end(), point);
    if (at == sorted.end() || *at != point) return NO_INDEX;
    return static_cast<std::uint32_t>(at - sorted.begin());
}

Buckets::Buckets(std::uint32_t keyCount, std::vector<Entry> const& entries)
    : starts(keyCount + 1), values(entries.size()) {
    for (Entry const& entry : entries)
        ++starts[entry.first + 1];
    for (std::uint32_t key = 0; key < keyCount; ++key)
        starts[key + 1] += starts[key];
    std::vector<std::uint32_t> next(starts.begin(), starts.end() - 1);
    for (Entry const& entry : entries)
        values[next[entry.first]++] = entry.second;
}

PointGraph::PointGraph(std::uint32_t vertices, std::vector<GraphEdge> edgeList)
    : vertexCount(vertices), edges(std::move(edgeList)), byVertex(vertices, EntriesOf(edges)) {}

std::vector<std::uint32_t> PointGraph::Parts(std::uint32_t& partCount) const {
    std::vector<std::uint32_t> parts(vertexCount, NO_INDEX);
    partCount = 0;
    for (GraphEdge const& edge : edges) {
        if (parts[edge.a] == NO_INDEX) Flood(edge.a, partCount++, parts);
    }
    for (std::uint32_t& part : parts) {
        if (part == NO_INDEX) part = partCount++;
    }
    return parts;
}

void PointGraph::Flood(std::uint32_t vertex, std::uint32_t part,
                       std::vector<std::uint32_t>& parts) const {
    std::vector<std::uint32_t> open{vertex};
    parts[vertex] = part;
    while (!open.empty()) {
        std::uint32_t const v = open.back();
        open.pop_back();
        for (std::uint32_t const e : At(v)) {
            std::uint32_t const other = edges[e].Other(v);
            if (parts[other] != NO_INDEX) continue;
            parts[other] = part;
            open.push_back(other);
        }
    }
}

}  // namespace figkernel
