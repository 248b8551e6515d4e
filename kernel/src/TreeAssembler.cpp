#include "TreeAssembler.h"

#include <charconv>

#include "GroupBuilder.h"

namespace figkernel {

namespace {

void AppendNumber(std::string& text, double number) {
    char digits[32];
    auto const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    text.append(digits, end);
}

/// "@12.7,3.81": tells records apart that have no id of their own, by where they stand.
std::string At(GridPoint const& point) {
    dg::DPoint2D const place = FromGrid(point);
    std::string text = "@";
    AppendNumber(text, place.x);
    text += ',';
    AppendNumber(text, place.y);
    return text;
}

std::string At(dg::DPoint2D const& point) {
    GridPoint place;
    return ToGrid(point, place) ? At(place) : std::string();
}

std::string IdOr(std::string const& id, char const* kind, dg::DPoint2D const& a,
                 dg::DPoint2D const& b) {
    return id.empty() ? kind + At(a) + At(b) : id;
}

/// Of a split line the first piece has the line's id, the others add where they begin.
std::string PieceId(Piece const& piece, std::string const& lineId) {
    return piece.isFirst ? lineId : lineId + At(piece.a);
}

void KeepSmaller(std::string& smallest, std::string const& id) {
    if (smallest.empty() || id < smallest) smallest = id;
}

/// Nobody drew a stub, but a run of wires may begin with one and is then drawn with its settings;
/// so it takes those of the nearest segment, that above it before those below.
template <class Record>
void GiveStubsLooks(std::vector<PlanNode> const& plan,
                    std::vector<du::SmartPtr<figk::ConnectionNode>> const& nodes) {
    auto const lend = [&](std::size_t from, std::size_t to) {
        if (plan[to].kind != PlanKind::STUB) return;
        PlanKind const kind = plan[from].kind;
        bool const drawn =
            kind == PlanKind::PIECE || kind == PlanKind::TAP || kind == PlanKind::STUB;
        if (!drawn) return;
        auto& stub = static_cast<Record&>(*nodes[to]);
        if (!stub.GetSettings()) {
            stub.SetSettings(static_cast<Record&>(*nodes[from]).GetSettings());
        }
    };
    auto const lendDown = [&] {
        for (std::size_t i = 1; i < plan.size(); ++i)
            lend(plan[i].parent, i);
    };
    lendDown();
    for (std::size_t i = plan.size(); i-- > 1;)
        lend(i, plan[i].parent);
    lendDown();
}

}  // namespace

std::string TreeAssembler::WireId(std::uint32_t wire) const {
    WireSource const& drawn = source.wires[wire];
    return IdOr(drawn.id, "wire", drawn.from, drawn.to);
}

std::string TreeAssembler::BusId(std::uint32_t bus) const {
    BusSource const& drawn = source.buses[bus];
    return IdOr(drawn.id, "bus", drawn.from, drawn.to);
}

std::string TreeAssembler::TapId(std::uint32_t tap) const {
    TapSource const& drawn = source.taps[tap];
    return IdOr(drawn.id, "tap", drawn.netPoint, drawn.busPoint);
}

std::string TreeAssembler::PortNodeId(std::uint32_t portNode) const {
    PortNodeSource const& drawn = source.portNodes[portNode];
    if (!drawn.id.empty()) return drawn.id;
    return "port/" + context.source.ports[drawn.port].name + At(drawn.position);
}

du::SmartPtr<PortNodeRecord> TreeAssembler::MakePortNode(std::uint32_t index) {
    PortNodeSource const& drawn = source.portNodes[index];
    PortRecord& port = *context.ports[drawn.port];
    GridPoint place;
    ToGrid(drawn.position, place);
    du::SmartPtr<PortNodeRecord> const node(
        new PortNodeRecord(sheet.GetLink(), &port, drawn, FromGrid(place)));
    std::string const id = PortNodeId(index);
    node->SetId(ids.Make(IdMaker::PORT_NODE, id));
    node->SetSettings(context.SettingsOf(drawn.settings, drawn.id));
    GroupBuilder(context, ids, sheet.GetLink()).Fill(*node, drawn.graphics, id);
    port.Add(node);
    return node;
}

// Highways

TreeAssembler::NodePtr TreeAssembler::MakeHighwayNode(PlanNode const& node,
                                                      SubHighwayPlan const& plan,
                                                      SubHighwayRecord& owner,
                                                      PlacedHighwaySegments& placed) {
    if (node.kind == PlanKind::PORT) {
        highwaySegments.back().push_back(nullptr);
        du::SmartPtr<PortNodeRecord> const port = MakePortNode(node.source);
        port->SetSubHighway(&owner);
        return port;
    }
    du::SmartPtr<HighwaySegmentRecord> const segment(
        new HighwaySegmentRecord(&owner, FromGrid(node.nearEnd), FromGrid(node.farEnd)));
    if (node.kind == PlanKind::PIECE) {
        Piece const& piece = plan.pieces[node.source];
        BusSource const& bus = source.buses[piece.source];
        segment->SetId(ids.Make(IdMaker::HIGHWAY_SEGMENT, PieceId(piece, BusId(piece.source))));
        segment->SetSettings(context.SettingsOf(bus.settings, bus.id));
    } else {
        std::string const stub =
            context.source.highways[plan.highway].id + "/stub" + At(node.nearEnd);
        segment->SetId(ids.Make(IdMaker::HIGHWAY_SEGMENT, {}, stub));
    }
    highwaySegments.back().push_back(segment);
    placed.push_back({node.kind, node.nearEnd, node.farEnd, segment.Get()});
    return segment;
}

std::string TreeAssembler::SmallestId(SubHighwayPlan const& plan) const {
    std::string smallest;
    for (Piece const& piece : plan.pieces)
        KeepSmaller(smallest, BusId(piece.source));
    if (!smallest.empty()) return smallest;
    for (PlanNode const& node : plan.nodes) {
        if (node.kind == PlanKind::PORT) KeepSmaller(smallest, PortNodeId(node.source));
    }
    return smallest;
}

void TreeAssembler::AddSubHighway(SubHighwayPlan const& plan, PlacedHighwaySegments& placed) {
    HighwayRecord& highway = *context.highways[plan.highway];
    HighwaySource const& highwaySource = context.source.highways[plan.highway];
    du::SmartPtr<SubHighwayRecord> const record(new SubHighwayRecord(sheet.GetLink(), &highway));
    record->SetId(ids.Make(IdMaker::SUB_HIGHWAY, {}, highwaySource.id + "/" + SmallestId(plan)));
    record->SetSettings(highway.GetSettingList());
    highwaySegments.emplace_back();
    std::vector<NodePtr> nodes;
    nodes.reserve(plan.nodes.size());
    for (PlanNode const& node : plan.nodes) {
        nodes.push_back(MakeHighwayNode(node, plan, *record, placed));
        if (node.parent != NO_INDEX) nodes[node.parent]->AddSuccessor(nodes.back());
    }
    GiveStubsLooks<HighwaySegmentRecord>(plan.nodes, nodes);
    if (!nodes.empty()) record->SetHead(nodes.front());
    highway.Add(record);
    sheet.subHighways.push_back(record);
}

// Nets

void TreeAssembler::IdentifySegment(NetSegmentRecord& record, std::size_t index,
                                    SubNetPlan const& plan, NetPlan const& net) {
    PlanNode const& node = plan.nodes[index];
    if (node.kind == PlanKind::PIECE) {
        Piece const& piece = net.pieces[node.source];
        WireSource const& wire = source.wires[piece.source];
        record.SetId(ids.Make(IdMaker::SEGMENT, PieceId(piece, WireId(piece.source))));
        record.SetSettings(context.SettingsOf(wire.settings, wire.id));
        return;
    }
    if (node.kind == PlanKind::TAP) {
        TapSource const& tap = source.taps[node.source];
        record.SetId(ids.Make(IdMaker::SEGMENT, TapId(node.source)));
        record.SetSettings(context.SettingsOf(tap.settings, tap.id));
        return;
    }
    std::string const stub = context.source.nets[plan.net].name + "/stub" + At(node.nearEnd);
    record.SetId(ids.Make(IdMaker::SEGMENT, {}, stub));
}

TreeAssembler::NodePtr TreeAssembler::MakeSegment(std::size_t index, SubNetPlan const& plan,
                                                  NetPlan const& net, SubNetRecord& owner,
                                                  PlacedNetSegments& placed) {
    PlanNode const& node = plan.nodes[index];
    du::SmartPtr<NetSegmentRecord> const segment(
        new NetSegmentRecord(&owner, FromGrid(node.nearEnd), FromGrid(node.farEnd)));
    IdentifySegment(*segment, index, plan, net);
    if (plan.hasStart && !owner.GetStartSegment()) owner.SetStartSegment(segment);
    placed.push_back({node.kind, node.nearEnd, node.farEnd, segment.Get()});
    return segment;
}

TreeAssembler::NodePtr TreeAssembler::MakeConnectorNode(PlanNode const& node) {
    du::SmartPtr<ConnectorRecord> const& connector = pins[node.source].connector;
    connector->CountConnection();
    return new ConnectorNodeRecord(connector);
}

TreeAssembler::NodePtr TreeAssembler::MakeRouteNode(PlanNode const& node) {
    du::SmartPtr<HighwaySegmentRecord> const& twin = highwaySegments[node.subHighway][node.source];
    dg::DPoint2D start;
    dg::DPoint2D end;
    twin->GetEnds(start, end);
    return new RouteSegmentRecord(twin, !(start == FromGrid(node.nearEnd)));
}

TreeAssembler::NodePtr TreeAssembler::MakeHighwayPoint(PlanNode const& node, SubNetRecord& owner) {
    sheet.subHighways[node.subHighway]->AddSubNet(&owner);
    return new HighwayNodeRecord(highwaySegments[node.subHighway][node.source]);
}

TreeAssembler::NodePtr TreeAssembler::MakeNetNode(std::size_t index, SubNetPlan const& plan,
                                                  NetPlan const& net, SubNetRecord& owner,
                                                  PlacedNetSegments& placed) {
    PlanNode const& node = plan.nodes[index];
    switch (node.kind) {
        case PlanKind::PIECE:
        case PlanKind::TAP:
        case PlanKind::STUB:
            return MakeSegment(index, plan, net, owner, placed);
        case PlanKind::CONNECTOR:
            return MakeConnectorNode(node);
        case PlanKind::ROUTE:
            return MakeRouteNode(node);
        case PlanKind::HIGHWAY_NODE:
            return MakeHighwayPoint(node, owner);
        case PlanKind::PORT:
            break;
    }
    du::SmartPtr<PortNodeRecord> const port = MakePortNode(node.source);
    port->SetSubNet(&owner);
    return port;
}

/// An entry is tied to the node above it, an exit to the one below.
void TreeAssembler::TieHighwayNodes(SubNetPlan const& plan, std::vector<NodePtr> const& nodes) {
    for (std::size_t i = 0; i < plan.nodes.size(); ++i) {
        PlanNode const& node = plan.nodes[i];
        if (node.parent == NO_INDEX) continue;
        PlanKind const above = plan.nodes[node.parent].kind;
        if (node.kind == PlanKind::HIGHWAY_NODE && above != PlanKind::ROUTE) {
            static_cast<HighwayNodeRecord&>(*nodes[i]).SetNetConnectionNode(nodes[node.parent]);
        } else if (above == PlanKind::HIGHWAY_NODE && node.kind != PlanKind::ROUTE) {
            static_cast<HighwayNodeRecord&>(*nodes[node.parent]).SetNetConnectionNode(nodes[i]);
        }
    }
}

std::string TreeAssembler::SmallestId(SubNetPlan const& plan, NetPlan const& net) const {
    std::string wire;
    std::string other;
    for (PlanNode const& node : plan.nodes) {
        if (node.kind == PlanKind::PIECE) {
            KeepSmaller(wire, WireId(net.pieces[node.source].source));
        } else if (!wire.empty()) {
            continue;
        } else if (node.kind == PlanKind::TAP) {
            KeepSmaller(other, TapId(node.source));
        } else if (node.kind == PlanKind::PORT) {
            KeepSmaller(other, PortNodeId(node.source));
        } else if (node.kind == PlanKind::CONNECTOR) {
            KeepSmaller(other, "pin" + At(node.nearEnd));
        }
    }
    return wire.empty() ? other : wire;
}

void TreeAssembler::AddSubNet(SubNetPlan const& plan, NetPlan const& net,
                              PlacedNetSegments& placed) {
    NetRecord& netRecord = *context.nets[plan.net];
    du::SmartPtr<SubNetRecord> const record(new SubNetRecord(sheet.GetLink(), &netRecord));
    std::string const& name = context.source.nets[plan.net].name;
    record->SetId(ids.Make(IdMaker::SUB_NET, {}, name + "/" + SmallestId(plan, net)));
    record->SetSettings(netRecord.GetSettingList());
    std::vector<NodePtr> nodes;
    nodes.reserve(plan.nodes.size());
    for (std::size_t i = 0; i < plan.nodes.size(); ++i) {
        nodes.push_back(MakeNetNode(i, plan, net, *record, placed));
        std::uint32_t const parent = plan.nodes[i].parent;
        if (parent != NO_INDEX) nodes[parent]->AddSuccessor(nodes.back());
    }
    TieHighwayNodes(plan, nodes);
    GiveStubsLooks<NetSegmentRecord>(plan.nodes, nodes);
    if (!nodes.empty()) record->SetHead(nodes.front());
    netRecord.Add(record);
    sheet.AddSubNet(record);
}

}  // namespace figkernel
