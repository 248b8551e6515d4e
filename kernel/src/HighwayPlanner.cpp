#include "HighwayPlanner.h"

#include <deque>
#include <utility>

#include "PointGraph.h"

namespace figkernel {

namespace {

std::vector<GridPoint> StopsOf(HighwayDrawing const& drawing) {
    std::vector<GridPoint> stops(drawing.taps);
    stops.insert(stops.end(), drawing.joins.begin(), drawing.joins.end());
    for (auto const& port : drawing.ports)
        stops.push_back(port.first);
    return stops;
}

/// Points where the highway has something: a tap or a join beside its buses isn't one.
std::vector<GridPoint> PointsOf(HighwayDrawing const& drawing, std::vector<Piece> const& pieces) {
    std::vector<GridPoint> points;
    points.reserve(2 * pieces.size() + drawing.ports.size());
    for (Piece const& piece : pieces) {
        points.push_back(piece.a);
        points.push_back(piece.b);
    }
    for (auto const& port : drawing.ports)
        points.push_back(port.first);
    return points;
}

std::vector<GraphEdge> EdgesOf(std::vector<Piece> const& pieces, PointTable const& table) {
    std::vector<GraphEdge> edges;
    edges.reserve(pieces.size());
    for (Piece const& piece : pieces)
        edges.push_back({table.Find(piece.a), table.Find(piece.b)});
    return edges;
}

std::vector<Buckets::Entry> PortEntries(HighwayDrawing const& drawing, PointTable const& table) {
    std::vector<Buckets::Entry> entries;
    for (auto const& [point, node] : drawing.ports)
        entries.emplace_back(table.Find(point), node);
    return entries;
}

class Planner {
public:
    explicit Planner(HighwayDrawing const& source)
        : drawing(source),
          pieces(SplitLines(source.lines, StopsOf(source))),
          table(PointsOf(source, pieces)),
          graph(table.Size(), EdgesOf(pieces, table)),
          ports(table.Size(), PortEntries(source, table)),
          isTap(table.Size()),
          edgeUsed(pieces.size()),
          arrivals(table.Size()) {
        for (GridPoint const& tap : source.taps) {
            std::uint32_t const vertex = table.Find(tap);
            if (vertex != NO_INDEX) isTap[vertex] = true;
        }
    }

    void Plan(std::vector<SubHighwayPlan>& plans) {
        for (std::uint32_t const root : FindRoots()) {
            plan = SubHighwayPlan{};
            plan.highway = drawing.highway;
            number = static_cast<std::uint32_t>(plans.size());
            PlantHead(root);
            Grow();
            plans.push_back(std::move(plan));
        }
    }

    HighwayPlace PlaceOf(GridPoint const& tap) const {
        std::uint32_t const vertex = table.Find(tap);
        return vertex == NO_INDEX ? HighwayPlace{} : arrivals[vertex];
    }

private:
    bool IsFreeEnd(std::uint32_t vertex) const {
        return graph.At(vertex).size() == 1 && !isTap[vertex] && ports[vertex].empty();
    }

    /// The vertex at which each piece's tree begins: a free end where there is one, that of the
    /// bus drawn first; else the first vertex.
    std::vector<std::uint32_t> FindRoots() const {
        std::uint32_t partCount = 0;
        std::vector<std::uint32_t> const parts = graph.Parts(partCount);
        std::vector<std::uint32_t> roots(partCount, NO_INDEX);
        for (GraphEdge const& edge : graph.Edges()) {
            for (std::uint32_t const vertex : {edge.a, edge.b}) {
                std::uint32_t& root = roots[parts[vertex]];
                if (root == NO_INDEX && IsFreeEnd(vertex)) root = vertex;
            }
        }
        for (std::uint32_t vertex = 0; vertex < parts.size(); ++vertex) {
            std::uint32_t& root = roots[parts[vertex]];
            if (root == NO_INDEX) root = vertex;
        }
        return roots;
    }

    std::uint32_t AddNode(PlanNode const& node) {
        auto const index = static_cast<std::uint32_t>(plan.nodes.size());
        plan.nodes.push_back(node);
        plan.depths.push_back(node.parent == NO_INDEX ? 0 : plan.depths[node.parent] + 1);
        return index;
    }

    void PlantHead(std::uint32_t root) {
        if (IsFreeEnd(root)) return AddEdge(graph.At(root).front(), root, NO_INDEX);
        GridPoint const point = table[root];
        std::uint32_t const head =
            AddNode({PlanKind::STUB, NO_INDEX, NO_INDEX, NO_INDEX, point, point});
        Arrive(root, head);
    }

    void Arrive(std::uint32_t vertex, std::uint32_t node) {
        arrivals[vertex] = {number, node};
        open.push_back(vertex);
    }

    void AddEdge(std::uint32_t edge, std::uint32_t from, std::uint32_t parent) {
        edgeUsed[edge] = true;
        std::uint32_t const to = graph.Edges()[edge].Other(from);
        auto const piece = static_cast<std::uint32_t>(plan.pieces.size());
        plan.pieces.push_back(pieces[edge]);
        std::uint32_t const node =
            AddNode({PlanKind::PIECE, parent, piece, NO_INDEX, table[from], table[to]});
        if (arrivals[to].node == NO_INDEX) Arrive(to, node);
    }

    void Grow() {
        while (!open.empty()) {
            std::uint32_t const vertex = open.front();
            open.pop_front();
            std::uint32_t const parent = arrivals[vertex].node;
            for (std::uint32_t const port : ports[vertex]) {
                AddNode({PlanKind::PORT, parent, port, NO_INDEX, table[vertex], table[vertex]});
            }
            for (std::uint32_t const edge : graph.At(vertex)) {
                if (!edgeUsed[edge]) AddEdge(edge, vertex, parent);
            }
        }
    }

    HighwayDrawing const& drawing;
    std::vector<Piece> pieces;
    PointTable table;
    PointGraph graph;
    Buckets ports;
    std::vector<bool> isTap;
    std::vector<bool> edgeUsed;
    std::vector<HighwayPlace> arrivals;
    std::deque<std::uint32_t> open;
    SubHighwayPlan plan;
    std::uint32_t number = 0;
};

}  // namespace

void PlanHighway(HighwayDrawing const& drawing, std::vector<SubHighwayPlan>& plans,
                 std::vector<HighwayPlace>& places) {
    Planner planner(drawing);
    planner.Plan(plans);
    for (GridPoint const& tap : drawing.taps)
        places.push_back(planner.PlaceOf(tap));
}

}  // namespace figkernel
