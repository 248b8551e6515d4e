#include "NetPlanner.h"

#include <algorithm>
#include <deque>
#include <map>
#include <numeric>
#include <tuple>

#include "PointGraph.h"
#include "RoutePlanner.h"

namespace figkernel {

namespace {

using PlacedList = std::vector<std::pair<GridPoint, std::uint32_t>>;

std::vector<GridPoint> StopsOf(NetDrawing const& drawing) {
    std::vector<GridPoint> stops(drawing.joins);
    for (NetTap const& tap : drawing.taps)
        stops.push_back(tap.netPoint);
    for (auto const& pin : drawing.pins)
        stops.push_back(pin.first);
    for (auto const& port : drawing.ports)
        stops.push_back(port.first);
    return stops;
}

std::vector<GridPoint> PointsOf(NetDrawing const& drawing, std::vector<Piece> const& pieces) {
    std::vector<GridPoint> points;
    points.reserve(2 * pieces.size() + drawing.pins.size() + drawing.ports.size());
    for (Piece const& piece : pieces) {
        points.push_back(piece.a);
        points.push_back(piece.b);
    }
    for (NetTap const& tap : drawing.taps)
        points.push_back(tap.netPoint);
    for (auto const& pin : drawing.pins)
        points.push_back(pin.first);
    for (auto const& port : drawing.ports)
        points.push_back(port.first);
    return points;
}

/// The places where the net's taps meet highways. They are no points of the net's wires: a wire
/// that happens to end on the bus there isn't on it.
class BusPoints {
public:
    explicit BusPoints(std::vector<NetTap> const& taps) {
        keys.reserve(taps.size());
        for (NetTap const& tap : taps)
            keys.push_back(KeyOf(tap));
        std::sort(keys.begin(), keys.end());
        keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
    }

    std::uint32_t Size() const { return static_cast<std::uint32_t>(keys.size()); }
    GridPoint const& operator[](std::uint32_t number) const { return keys[number].second; }

    std::uint32_t Find(NetTap const& tap) const {
        auto const at = std::lower_bound(keys.begin(), keys.end(), KeyOf(tap));
        return static_cast<std::uint32_t>(at - keys.begin());
    }

private:
    using Key = std::pair<SourceIndex, GridPoint>;
    static Key KeyOf(NetTap const& tap) { return {tap.highway, tap.busPoint}; }

    std::vector<Key> keys;
};

std::vector<GraphEdge> EdgesOf(NetDrawing const& drawing, std::vector<Piece> const& pieces,
                               PointTable const& table, BusPoints const& busPoints) {
    std::vector<GraphEdge> edges;
    edges.reserve(pieces.size() + drawing.taps.size());
    for (Piece const& piece : pieces)
        edges.push_back({table.Find(piece.a), table.Find(piece.b)});
    for (NetTap const& tap : drawing.taps) {
        edges.push_back({table.Find(tap.netPoint), table.Size() + busPoints.Find(tap)});
    }
    return edges;
}

std::vector<Buckets::Entry> EntriesOf(PlacedList const& placed, PointTable const& table) {
    std::vector<Buckets::Entry> entries;
    entries.reserve(placed.size());
    for (auto const& [point, value] : placed)
        entries.emplace_back(table.Find(point), value);
    return entries;
}

/// A connected piece of wires and the one vertex by which it comes onto a highway.
struct Link {
    std::uint32_t part;
    std::uint32_t vertex;
    HighwayPlace place;
};

class Planner {
public:
    Planner(NetDrawing const& source, std::vector<SubHighwayPlan> const& subHighways)
        : drawing(source),
          highways(subHighways),
          result{source.net, SplitLines(source.lines, StopsOf(source)), {}},
          table(PointsOf(source, result.pieces)),
          busPoints(source.taps),
          graph(table.Size() + busPoints.Size(), EdgesOf(source, result.pieces, table, busPoints)),
          pins(graph.VertexCount(), EntriesOf(source.pins, table)),
          ports(graph.VertexCount(), EntriesOf(source.ports, table)),
          parts(graph.Parts(partCount)),
          edgeUsed(graph.Edges().size()),
          portUsed(graph.VertexCount()),
          arrivals(graph.VertexCount(), NO_INDEX),
          partUsed(partCount) {}

    NetPlan Plan() {
        FindLinks();
        std::vector<std::uint32_t> const roots = FindRoots();
        std::vector<std::uint32_t> const starts = FindStarts();
        for (std::uint32_t part = 0; part < partCount; ++part) {
            if (partUsed[part] || IsLonePin(roots[part])) continue;
            bool const hasStart = starts[part] != NO_INDEX;
            std::uint32_t const root = hasStart ? starts[part] : roots[part];
            plan = SubNetPlan{drawing.net, hasStart, {}};
            partUsed[parts[root]] = true;
            PlantHead(root);
            Grow();
            result.subNets.push_back(std::move(plan));
        }
        return std::move(result);
    }

private:
    bool IsBusPoint(std::uint32_t vertex) const { return vertex >= table.Size(); }
    GridPoint const& PointOf(std::uint32_t vertex) const {
        return IsBusPoint(vertex) ? busPoints[vertex - table.Size()] : table[vertex];
    }

    /// One link per piece and sub-highway: the first tap counts, the others are only drawn.
    void FindLinks() {
        std::map<std::pair<std::uint32_t, std::uint32_t>, bool> linked;
        for (NetTap const& tap : drawing.taps) {
            if (tap.place.node == NO_INDEX) continue;
            std::uint32_t const vertex = table.Size() + busPoints.Find(tap);
            bool& taken = linked[{parts[vertex], tap.place.subHighway}];
            if (taken) continue;
            taken = true;
            linkAt.emplace(vertex, tap.place);
            linksOf[tap.place.subHighway].push_back({parts[vertex], vertex, tap.place});
        }
    }

    bool IsFreeEnd(std::uint32_t vertex) const {
        return !IsBusPoint(vertex) && graph.At(vertex).size() == 1 && ports[vertex].empty() &&
               pins[vertex].size() <= 1;
    }

    /// Whether all that a piece has is one pin, which no wire needs to show.
    bool IsLonePin(std::uint32_t root) const {
        return graph.At(root).empty() && ports[root].empty() && pins[root].size() == 1;
    }

    /// Where the tree of each piece begins when it isn't entered from a highway: at the free end
    /// of the wire drawn first, else at the first port, else at the first point.
    std::vector<std::uint32_t> FindRoots() const {
        std::vector<std::uint32_t> roots(partCount, NO_INDEX);
        auto const take = [&](std::uint32_t vertex) {
            std::uint32_t& root = roots[parts[vertex]];
            if (root == NO_INDEX) root = vertex;
        };
        for (GraphEdge const& edge : graph.Edges()) {
            if (IsFreeEnd(edge.a)) take(edge.a);
            if (IsFreeEnd(edge.b)) take(edge.b);
        }
        for (auto const& port : drawing.ports)
            take(table.Find(port.first));
        for (std::uint32_t vertex = 0; vertex < table.Size(); ++vertex)
            take(vertex);
        return roots;
    }

    /// For each part one of all those that highways join to it, the same for all of them.
    std::vector<std::uint32_t> LeadersOfParts() const {
        std::vector<std::uint32_t> leaders(partCount);
        std::iota(leaders.begin(), leaders.end(), 0u);
        auto const find = [&](std::uint32_t part) {
            while (leaders[part] != part)
                part = leaders[part] = leaders[leaders[part]];
            return part;
        };
        for (auto const& [subHighway, links] : linksOf) {
            for (Link const& link : links)
                leaders[find(link.part)] = find(links.front().part);
        }
        for (std::uint32_t part = 0; part < partCount; ++part)
            leaders[part] = find(part);
        return leaders;
    }

    /// The vertex where the flow of each part's sub-net starts; NO_INDEX where nothing tells it, or
    /// several places do.
    std::vector<std::uint32_t> FindStarts() const {
        std::vector<std::uint32_t> starts(partCount, NO_INDEX);
        if (drawing.starts.empty()) return starts;
        std::vector<std::uint32_t> const leaders = LeadersOfParts();
        std::vector<bool> severalAt(partCount);
        for (GridPoint const& place : drawing.starts) {
            std::uint32_t const vertex = table.Find(place);
            if (vertex == NO_INDEX) continue;
            std::uint32_t const leader = leaders[parts[vertex]];
            if (starts[leader] != NO_INDEX && starts[leader] != vertex) severalAt[leader] = true;
            starts[leader] = vertex;
        }
        for (std::uint32_t part = 0; part < partCount; ++part) {
            std::uint32_t const leader = leaders[part];
            starts[part] = severalAt[leader] ? NO_INDEX : starts[leader];
        }
        return starts;
    }

    std::uint32_t AddNode(PlanKind kind, std::uint32_t parent, std::uint32_t source,
                          GridPoint const& nearEnd, GridPoint const& farEnd) {
        plan.nodes.push_back({kind, parent, source, NO_INDEX, nearEnd, farEnd});
        return static_cast<std::uint32_t>(plan.nodes.size() - 1);
    }

    std::uint32_t AddAt(PlanKind kind, std::uint32_t parent, std::uint32_t source,
                        std::uint32_t vertex) {
        return AddNode(kind, parent, source, PointOf(vertex), PointOf(vertex));
    }

    void AddConnectorStub(std::uint32_t parent, std::uint32_t pin, std::uint32_t vertex) {
        std::uint32_t const stub = AddAt(PlanKind::STUB, parent, NO_INDEX, vertex);
        AddAt(PlanKind::CONNECTOR, stub, pin, vertex);
    }

    void Arrive(std::uint32_t vertex, std::uint32_t node) {
        arrivals[vertex] = node;
        open.push_back(vertex);
    }

    void AddEdge(std::uint32_t edge, std::uint32_t from, std::uint32_t parent) {
        edgeUsed[edge] = true;
        std::uint32_t const to = graph.Edges()[edge].Other(from);
        auto const pieceCount = static_cast<std::uint32_t>(result.pieces.size());
        bool const isTap = edge >= pieceCount;
        std::uint32_t const source = isTap ? drawing.taps[edge - pieceCount].tap : edge;
        std::uint32_t const node = AddNode(isTap ? PlanKind::TAP : PlanKind::PIECE, parent, source,
                                           PointOf(from), PointOf(to));
        if (arrivals[to] == NO_INDEX) Arrive(to, node);
    }

    void PlantHead(std::uint32_t root) {
        if (IsFreeEnd(root)) {
            AddEdge(graph.At(root).front(), root, NO_INDEX);
            if (!pins[root].empty()) AddAt(PlanKind::CONNECTOR, 0, pins[root].front(), root);
            return;
        }
        if (!ports[root].empty()) {
            portUsed[root] = true;
            Arrive(root, AddAt(PlanKind::PORT, NO_INDEX, ports[root].front(), root));
            return;
        }
        Arrive(root, AddAt(PlanKind::STUB, NO_INDEX, NO_INDEX, root));
    }

    void Grow() {
        while (!open.empty()) {
            std::uint32_t const vertex = open.front();
            open.pop_front();
            if (IsBusPoint(vertex)) {
                GrowAtBusPoint(vertex);
            } else {
                GrowAtPoint(vertex);
            }
        }
    }

    std::size_t OpenEdges(std::uint32_t vertex) const {
        auto const edges = graph.At(vertex);
        return static_cast<std::size_t>(std::count_if(
            edges.begin(), edges.end(), [this](std::uint32_t e) { return !edgeUsed[e]; }));
    }

    void AddEdges(std::uint32_t vertex, std::uint32_t parent) {
        for (std::uint32_t const edge : graph.At(vertex)) {
            if (!edgeUsed[edge]) AddEdge(edge, vertex, parent);
        }
    }

    void GrowAtPoint(std::uint32_t vertex) {
        std::uint32_t const parent = arrivals[vertex];
        auto const portsHere = ports[vertex].subspan(portUsed[vertex] ? 1 : 0);
        AddPins(vertex, parent, portsHere.empty() && OpenEdges(vertex) == 0);
        for (std::uint32_t const port : portsHere)
            AddAt(PlanKind::PORT, parent, port, vertex);
        AddEdges(vertex, parent);
    }

    /// A pin hangs directly below a leaf that it has for itself, and below a head; all others get
    /// stubs, so that each has a leaf of its own.
    void AddPins(std::uint32_t vertex, std::uint32_t parent, bool isLeaf) {
        auto pinsHere = pins[vertex];
        PlanNode const& node = plan.nodes[parent];
        bool const isHead = node.parent == NO_INDEX;
        bool const direct =
            isHead && node.kind == PlanKind::STUB
                ? !pinsHere.empty()
                : pinsHere.size() == 1 && (isLeaf || (isHead && node.kind == PlanKind::PORT));
        if (direct) {
            AddAt(PlanKind::CONNECTOR, parent, pinsHere.front(), vertex);
            pinsHere = pinsHere.subspan(1);
        }
        for (std::uint32_t const pin : pinsHere)
            AddConnectorStub(parent, pin, vertex);
    }

    void GrowAtBusPoint(std::uint32_t vertex) {
        std::uint32_t const parent = arrivals[vertex];
        auto const link = linkAt.find(vertex);
        if (link != linkAt.end() && linksOf.count(link->second.subHighway) != 0) {
            bool const shared = OpenEdges(vertex) != 0;
            EnterHighway(shared ? AddAt(PlanKind::STUB, parent, NO_INDEX, vertex) : parent, vertex,
                         link->second);
        }
        AddEdges(vertex, parent);
    }

    /// Puts the entry below `parent`, and the way to every piece that the highway reaches and that
    /// isn't in the tree yet.
    void EnterHighway(std::uint32_t parent, std::uint32_t vertex, HighwayPlace const& place) {
        auto const at = linksOf.find(place.subHighway);
        std::vector<Link> const links = std::move(at->second);
        linksOf.erase(at);
        std::uint32_t const entry = AddAt(PlanKind::HIGHWAY_NODE, parent, place.node, vertex);
        plan.nodes[entry].subHighway = place.subHighway;
        std::vector<std::uint32_t> vertices;
        std::vector<std::uint32_t> exits;
        for (Link const& link : links) {
            if (partUsed[link.part]) continue;
            partUsed[link.part] = true;
            vertices.push_back(link.vertex);
            exits.push_back(link.place.node);
        }
        std::vector<std::uint32_t> const made = PlanRoute(
            highways[place.subHighway], place.subHighway, place.node, exits, entry, plan.nodes);
        for (std::size_t i = 0; i < made.size(); ++i)
            LeaveHighway(made[i], vertices[i]);
    }

    /// An exit has exactly one net node below it.
    void LeaveHighway(std::uint32_t exit, std::uint32_t vertex) {
        if (graph.At(vertex).size() == 1) {
            arrivals[vertex] = exit;
            AddEdges(vertex, exit);
            return;
        }
        Arrive(vertex, AddAt(PlanKind::STUB, exit, NO_INDEX, vertex));
    }

    NetDrawing const& drawing;
    std::vector<SubHighwayPlan> const& highways;
    NetPlan result;
    PointTable table;
    BusPoints busPoints;
    PointGraph graph;
    Buckets pins;
    Buckets ports;
    std::uint32_t partCount = 0;
    std::vector<std::uint32_t> parts;
    std::vector<bool> edgeUsed;
    std::vector<bool> portUsed;  ///< the first port at a vertex is the head
    std::vector<std::uint32_t> arrivals;
    std::vector<bool> partUsed;
    std::map<std::uint32_t, HighwayPlace> linkAt;        ///< by vertex
    std::map<std::uint32_t, std::vector<Link>> linksOf;  ///< by sub-highway not entered yet
    std::deque<std::uint32_t> open;
    SubNetPlan plan;
};

}  // namespace

NetPlan PlanNet(NetDrawing const& drawing, std::vector<SubHighwayPlan> const& highways) {
    return Planner(drawing, highways).Plan();
}

}  // namespace figkernel
