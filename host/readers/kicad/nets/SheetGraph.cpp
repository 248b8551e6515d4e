#include <readers/kicad/nets/SheetGraph.h>

#include <algorithm>
#include <map>

#include <readers/kicad/design/Texts.h>
#include <readers/kicad/design/Variables.h>
#include <readers/kicad/file/LineIndex.h>

namespace fighost::kicad {

namespace {

/// What a node is at one of its connection points.
enum PointKind : std::uint8_t {
    WIRE_END,
    PIN,
    NET_SHEET_PIN,
    NET_LABEL,
    BUS_END,
    BUS_SHEET_PIN,
    BUS_LABEL,
    FLAG,
    LONELY_PIN,  // of the type that never connects
    ENTRY_END,
    JUNCTION,
    NO_CONNECT,
};

struct PointItem {
    Point at;
    Node node;
    PointKind kind;
};

bool IsNetKind(PointKind kind) {
    return kind <= NET_LABEL;
}
bool IsBusKind(PointKind kind) {
    return kind >= BUS_END && kind <= BUS_LABEL;
}
bool IsLabelKind(PointKind kind) {
    return kind == NET_LABEL || kind == BUS_LABEL || kind == FLAG;
}
/// Kinds that take a label at the same point away from a wire that only passes.
bool DrawsLabels(PointKind kind) {
    return kind == PIN || kind == LONELY_PIN || kind == NET_SHEET_PIN || kind == BUS_SHEET_PIN ||
           kind == NO_CONNECT || IsLabelKind(kind);
}

GivenName MakeName(Hierarchy const& hierarchy, std::uint32_t sheet, std::string const& text) {
    GivenName given;
    given.raw = ExpandOnSheet(hierarchy, sheet, text);
    given.name = Unescape(given.raw);
    given.bus = IsBusName(given.raw);
    return given;
}

class Builder {
public:
    Builder(Hierarchy const& design, SheetGraph& result, UnionFind& disjoint, Findings& list)
        : hierarchy(design),
          graph(result),
          file(result.File()),
          sets(disjoint),
          findings(list),
          wires(file.wires),
          buses(file.buses) {}

    void Run() {
        NumberNodes();
        CollectPoints();
        SortPoints();
        FindEntryEnds();
        SortPoints();
        graph.junctions.resize(file.junctions.size());
        graph.noConnectNodes.assign(file.noConnects.size(), NO_NODE);
        for (std::size_t begin = 0; begin < points.size();) {
            std::size_t end = begin;
            while (end < points.size() && points[end].at == points[begin].at)
                ++end;
            JoinPointGroup(begin, end);
            begin = end;
        }
        JoinJumpers();
    }

private:
    void NumberNodes() {
        graph.firstWire = sets.Add(file.wires.size());
        graph.firstBus = sets.Add(file.buses.size());
        graph.firstEntry = sets.Add(file.entries.size());
        std::uint32_t pins = 0;
        for (ResolvedSymbol const& symbol : graph.symbols) {
            graph.firstPinOfSymbol.push_back(pins);
            pins += static_cast<std::uint32_t>(symbol.pins.size());
        }
        graph.firstPin = sets.Add(pins);
        for (std::uint32_t i = 0; i < file.sheets.size(); ++i) {
            for (std::uint32_t k = 0; k < file.sheets[i].pins.size(); ++k) {
                graph.sheetPins.push_back({i, k});
                graph.sheetPinNames.push_back(
                    MakeName(hierarchy, graph.index, file.sheets[i].pins[k].name));
            }
        }
        graph.firstSheetPin = sets.Add(graph.sheetPins.size());
        for (Label const& label : file.labels) {
            bool const flag = label.kind == Label::FLAG;
            graph.labelNames.push_back(flag ? GivenName()
                                            : MakeName(hierarchy, graph.index, label.text));
            graph.labelOnBus.push_back(graph.labelNames.back().bus);
        }
        graph.firstLabel = sets.Add(file.labels.size());
    }

    void Add(Point at, std::size_t node, PointKind kind) {
        points.push_back({at, static_cast<Node>(node), kind});
    }

    void AddLines(std::vector<Line> const& list, Node first, PointKind kind) {
        for (std::size_t i = 0; i < list.size(); ++i) {
            Add(list[i].from, first + i, kind);
            if (list[i].to != list[i].from) Add(list[i].to, first + i, kind);
        }
    }

    void CollectPoints() {
        AddLines(file.wires, graph.firstWire, WIRE_END);
        AddLines(file.buses, graph.firstBus, BUS_END);
        for (std::size_t i = 0; i < graph.symbols.size(); ++i) {
            for (std::size_t k = 0; k < graph.symbols[i].pins.size(); ++k) {
                ResolvedPin const& pin = graph.symbols[i].pins[k];
                Add(pin.at, graph.PinNode(i, k), pin.type == "no_connect" ? LONELY_PIN : PIN);
            }
        }
        for (std::size_t i = 0; i < graph.sheetPins.size(); ++i) {
            Add(graph.GetSheetPin(i).at, graph.firstSheetPin + i,
                graph.sheetPinNames[i].bus ? BUS_SHEET_PIN : NET_SHEET_PIN);
        }
        for (std::size_t i = 0; i < file.labels.size(); ++i) {
            bool const flag = file.labels[i].kind == Label::FLAG;
            bool const bus = graph.labelNames[i].bus;
            Add(file.labels[i].at, graph.firstLabel + i, flag ? FLAG : bus ? BUS_LABEL : NET_LABEL);
        }
        for (std::size_t i = 0; i < file.junctions.size(); ++i) {
            Add(file.junctions[i].at, i, JUNCTION);
        }
        for (std::size_t i = 0; i < file.noConnects.size(); ++i) {
            Add(file.noConnects[i].at, i, NO_CONNECT);
        }
    }

    void SortPoints() {
        std::sort(points.begin(), points.end(), [](PointItem const& a, PointItem const& b) {
            if (a.at != b.at) return a.at < b.at;
            return a.kind != b.kind ? a.kind < b.kind : a.node < b.node;
        });
    }

    bool HasNetItem(Point p) const {
        auto const first =
            std::lower_bound(points.begin(), points.end(), p,
                             [](PointItem const& item, Point at) { return item.at < at; });
        return first != points.end() && first->at == p && IsNetKind(first->kind);
    }

    /// The end on a bus is no connection point; when both lie on buses, the one where a wire or a
    /// pin waits is the other.
    void FindEntryEnds() {
        std::vector<PointItem> found;
        for (std::size_t i = 0; i < file.entries.size(); ++i) {
            BusEntry const& entry = file.entries[i];
            bool const first = buses.Touches(entry.at);
            bool const second = buses.Touches(entry.GetEnd());
            bool const firstIsBusEnd = first && (!second || !HasNetItem(entry.at));
            EntryEnds ends;
            ends.busEnd = firstIsBusEnd ? entry.at : entry.GetEnd();
            ends.wireEnd = firstIsBusEnd ? entry.GetEnd() : entry.at;
            if (first || second) {
                buses.Find(ends.busEnd, lines);
                ends.bus = graph.firstBus + lines.front();
            }
            graph.entries.push_back(ends);
            Node const node = graph.firstEntry + static_cast<Node>(i);
            found.push_back({ends.wireEnd, node, ENTRY_END});
            if (ends.bus == NO_NODE) found.push_back({ends.busEnd, node, ENTRY_END});
        }
        points.insert(points.end(), found.begin(), found.end());
    }

    void Attach(Node& anchor, Node node) {
        if (anchor == NO_NODE) {
            anchor = node;
        } else {
            sets.Join(anchor, node);
        }
    }

    /// All that happens at one point: `points` from `begin` to `end`.
    void JoinPointGroup(std::size_t begin, std::size_t end) {
        Node net = NO_NODE;
        Node bus = NO_NODE;
        bool dot = false;
        for (std::size_t i = begin; i < end; ++i) {
            PointItem const& item = points[i];
            if (IsNetKind(item.kind)) Attach(net, item.node);
            if (IsBusKind(item.kind)) Attach(bus, item.node);
            if (item.kind == JUNCTION) dot = true;
        }
        Point const at = points[begin].at;
        JoinFlags(begin, end, net, bus);
        if (dot) {
            JoinThrough(wires, graph.firstWire, at, net);
            JoinThrough(buses, graph.firstBus, at, bus);
            graph.joins.push_back({at, net, bus});
            KeepJunctions(begin, end, graph.joins.back());
        } else {
            JoinLabels(begin, end, net, bus);
        }
        JoinEntries(begin, end, net);
        Mark(begin, end, net);
    }

    void KeepJunctions(std::size_t begin, std::size_t end, JoinPoint const& join) {
        for (std::size_t i = begin; i < end; ++i) {
            if (points[i].kind == JUNCTION) graph.junctions[points[i].node] = join;
        }
    }

    /// An entry joins what meets its end, but not another entry.
    void JoinEntries(std::size_t begin, std::size_t end, Node net) {
        if (net == NO_NODE) return;
        for (std::size_t i = begin; i < end; ++i) {
            if (points[i].kind == ENTRY_END) sets.Join(net, points[i].node);
        }
    }

    void JoinFlags(std::size_t begin, std::size_t end, Node& net, Node& bus) {
        for (std::size_t i = begin; i < end; ++i) {
            if (points[i].kind != FLAG) continue;
            Point const at = points[i].at;
            bool const onBus =
                net == NO_NODE && !wires.Touches(at) && (bus != NO_NODE || buses.Touches(at));
            graph.labelOnBus[points[i].node - graph.firstLabel] = onBus;
            Attach(onBus ? bus : net, points[i].node);
        }
    }

    void JoinThrough(LineIndex const& index, Node first, Point at, Node& anchor) {
        index.Find(at, lines);
        for (std::uint32_t const line : lines)
            Attach(anchor, first + line);
    }

    void JoinLabels(std::size_t begin, std::size_t end, Node& net, Node& bus) {
        bool netLabel = false;
        bool busLabel = false;
        std::size_t things = 0;
        for (std::size_t i = begin; i < end; ++i) {
            PointItem const& item = points[i];
            if (DrawsLabels(item.kind)) ++things;
            if (!IsLabelKind(item.kind)) continue;
            (graph.labelOnBus[item.node - graph.firstLabel] ? busLabel : netLabel) = true;
        }
        if (netLabel) JoinLabelled(wires, graph.firstWire, begin, things, net, NO_NODE);
        if (busLabel) JoinLabelled(buses, graph.firstBus, begin, things, NO_NODE, bus);
    }

    /// A label joins all lines that pass, when there are several; a single one only when nothing
    /// else at the point draws the label.
    void JoinLabelled(LineIndex const& index, Node first, std::size_t begin, std::size_t things,
                      Node net, Node bus) {
        Point const at = points[begin].at;
        index.Find(at, lines);
        if (lines.empty() || (lines.size() == 1 && things > 1)) return;
        Node const anchor = net == NO_NODE ? bus : net;
        bool merges = false;
        for (std::uint32_t const line : lines) {
            merges = merges || sets.Find(first + line) != sets.Find(anchor);
            sets.Join(anchor, first + line);
        }
        if (lines.size() < 2) return;
        graph.joins.push_back({at, net, bus});
        if (merges && file.version < VERSION_8) WarnOfOlderVersions();
    }

    void WarnOfOlderVersions() {
        findings.Warn("label-joins-wires", {file.path, 0, 0},
                      "A label stands where several wires pass; KiCad 7 and before joined it to "
                      "one of them only, here they are one net");
    }

    /// Remembers what a no-connect mark marks.
    void Mark(std::size_t begin, std::size_t end, Node net) {
        bool marked = false;
        for (std::size_t i = begin; i < end; ++i)
            marked = marked || points[i].kind == NO_CONNECT;
        if (!marked) return;
        Node target = net;
        if (net != NO_NODE) graph.marked.push_back(net);
        for (std::size_t i = begin; i < end; ++i) {
            PointItem const& item = points[i];
            if (item.kind == LONELY_PIN) graph.marked.push_back(item.node);
            if (item.kind == LONELY_PIN && target == NO_NODE) target = item.node;
            if (item.kind == NO_CONNECT) graph.noConnectNodes[item.node] = target;
        }
    }

    void JoinJumpers() {
        for (std::size_t i = 0; i < graph.symbols.size(); ++i) {
            LibrarySymbol const* const shown = graph.symbols[i].shown;
            if (!shown || (shown->jumperGroups.empty() && !shown->duplicatesAreJumpers)) continue;
            JoinJumpersOf(i, *shown);
        }
    }

    void JoinJumpersOf(std::size_t number, LibrarySymbol const& shown) {
        std::map<std::string_view, std::vector<Node>> nodes;
        ResolvedSymbol const& symbol = graph.symbols[number];
        for (std::size_t k = 0; k < symbol.pins.size(); ++k) {
            if (symbol.pins[k].type == "no_connect") continue;
            for (std::string const& pin : symbol.pins[k].numbers) {
                nodes[pin].push_back(graph.PinNode(number, k));
            }
        }
        if (shown.duplicatesAreJumpers) {
            for (auto const& [pin, all] : nodes) {
                for (Node const node : all)
                    sets.Join(all.front(), node);
            }
        }
        for (auto const& group : shown.jumperGroups) {
            Node anchor = NO_NODE;
            for (std::string const& pin : group) {
                auto const found = nodes.find(pin);
                if (found == nodes.end()) continue;
                for (Node const node : found->second)
                    Attach(anchor, node);
            }
        }
    }

    Hierarchy const& hierarchy;
    SheetGraph& graph;
    SheetFile const& file;
    UnionFind& sets;
    Findings& findings;
    LineIndex wires;
    LineIndex buses;
    std::vector<PointItem> points;
    std::vector<std::uint32_t> lines;
};

}  // namespace

SheetGraph MakeSheetGraph(Hierarchy const& hierarchy, std::uint32_t sheet, UnionFind& sets,
                          Findings& findings) {
    SheetGraph graph;
    graph.index = sheet;
    graph.instance = &hierarchy.sheets[sheet];
    graph.symbols = ResolveSymbols(hierarchy, sheet, findings);
    Builder(hierarchy, graph, sets, findings).Run();
    return graph;
}

}  // namespace fighost::kicad
