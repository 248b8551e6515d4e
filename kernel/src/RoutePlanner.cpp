#include "RoutePlanner.h"

#include <algorithm>
#include <deque>
#include <queue>
#include <unordered_map>
#include <utility>

namespace figkernel {

namespace {

/// The segments on the union of the ways between `ends`: from each end up to where all have met.
std::vector<std::uint32_t> SegmentsBetween(SubHighwayPlan const& highway,
                                           std::vector<std::uint32_t> const& ends) {
    using Climber = std::pair<std::uint32_t, std::uint32_t>;  // depth, node; the deepest climbs
    std::priority_queue<Climber> climbers;
    for (std::uint32_t const end : ends)
        climbers.emplace(highway.depths[end], end);
    std::vector<std::uint32_t> segments;
    while (true) {
        std::uint32_t const node = climbers.top().second;
        while (!climbers.empty() && climbers.top().second == node)
            climbers.pop();
        if (climbers.empty()) return segments;
        segments.push_back(node);
        std::uint32_t const up = highway.nodes[node].parent;
        climbers.emplace(highway.depths[up], up);
    }
}

/// A step along the highway between the far ends of two of its nodes.
struct Step {
    std::uint32_t from;
    std::uint32_t to;
    std::uint32_t segment;
};

std::vector<Step> StepsOf(SubHighwayPlan const& highway,
                          std::vector<std::uint32_t> const& segments) {
    std::vector<Step> steps;
    steps.reserve(2 * segments.size());
    for (std::uint32_t const segment : segments) {
        std::uint32_t const up = highway.nodes[segment].parent;
        steps.push_back({up, segment, segment});
        steps.push_back({segment, up, segment});
    }
    std::sort(steps.begin(), steps.end(), [](Step const& a, Step const& b) {
        return std::pair(a.from, a.to) < std::pair(b.from, b.to);
    });
    return steps;
}

std::uint32_t AddNode(std::vector<PlanNode>& nodes, PlanNode const& node) {
    nodes.push_back(node);
    return static_cast<std::uint32_t>(nodes.size() - 1);
}

PlanNode RouteNode(PlanNode const& segment, Step const& step, std::uint32_t subHighway,
                   std::uint32_t parent) {
    PlanNode node{PlanKind::ROUTE, parent,          step.segment,
                  subHighway,      segment.nearEnd, segment.farEnd};
    if (step.from == step.segment) std::swap(node.nearEnd, node.farEnd);
    return node;
}

}  // namespace

std::vector<std::uint32_t> PlanRoute(SubHighwayPlan const& highway, std::uint32_t subHighway,
                                     std::uint32_t entry, std::vector<std::uint32_t> const& exits,
                                     std::uint32_t parent, std::vector<PlanNode>& nodes) {
    std::vector<std::uint32_t> made(exits.size(), NO_INDEX);
    if (exits.empty()) return made;
    std::unordered_map<std::uint32_t, std::size_t> exitAt;
    for (std::size_t i = 0; i < exits.size(); ++i)
        exitAt.emplace(exits[i], i);
    std::vector<std::uint32_t> ends(exits);
    ends.push_back(entry);
    std::vector<Step> const steps = StepsOf(highway, SegmentsBetween(highway, ends));
    struct Open {
        std::uint32_t place;
        std::uint32_t cameFrom;
        std::uint32_t node;
    };
    std::deque<Open> open{{entry, NO_INDEX, parent}};
    while (!open.empty()) {
        Open const at = open.front();
        open.pop_front();
        auto step = std::lower_bound(steps.begin(), steps.end(), at.place,
                                     [](Step const& s, std::uint32_t p) { return s.from < p; });
        for (; step != steps.end() && step->from == at.place; ++step) {
            if (step->to == at.cameFrom) continue;
            std::uint32_t const node =
                AddNode(nodes, RouteNode(highway.nodes[step->segment], *step, subHighway, at.node));
            open.push_back({step->to, at.place, node});
            auto const exit = exitAt.find(step->to);
            if (exit == exitAt.end()) continue;
            GridPoint const point = nodes[node].farEnd;
            made[exit->second] =
                AddNode(nodes, {PlanKind::HIGHWAY_NODE, node, step->to, subHighway, point, point});
        }
    }
    return made;
}

}  // namespace figkernel
