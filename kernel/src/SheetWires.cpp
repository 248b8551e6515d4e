#include "SheetWires.h"

#include <unordered_set>

namespace figkernel {

SheetWires::SheetWires(SheetSource const& source, std::vector<SheetPin> const& sheetPins,
                       BuildContext& buildContext)
    : sheet(source),
      pins(sheetPins),
      context(buildContext),
      wireEnds(source.wires.size()),
      busEnds(source.buses.size()),
      tapEnds(source.taps.size()),
      tapPlaces(source.taps.size()),
      portPlaces(source.portNodes.size()),
      joinPlaces(source.joins.size()),
      startPlaces(source.flowStarts.size()),
      anchors(source.decorations.size()),
      wireSeen(source.wires.size(), true),
      busSeen(source.buses.size(), true) {
    TakeWires();
    TakeBuses();
    TakeTaps();
    TakePorts();
    TakeJoins();
    TakeFlowStarts();
    TakeDecorations();
    for (std::uint32_t i = 0; i < pins.size(); ++i)
        netPins.Add(pins[i].net, i);
    Sort();
    CheckMembers();
}

void SheetWires::Sort() {
    for (KeyedList* list :
         {&netWires, &netTaps, &netPorts, &netPins, &netJoins, &netStarts, &netDecorations,
          &highwayBuses, &highwayTaps, &highwayPorts, &highwayJoins, &highwayDecorations}) {
        list->Sort();
    }
}

bool SheetWires::TakePoint(dg::DPoint2D const& point, GridPoint& out, std::string const& id) {
    if (ToGrid(point, out)) return true;
    context.Report(BuildFinding::BAD_POINT, id, "It has no usable position.");
    return false;
}

template <class Source>
bool SheetWires::TakeLine(Source const& line, Ends& ends) {
    if (!TakePoint(line.from, ends.from, line.id)) return false;
    if (!TakePoint(line.to, ends.to, line.id)) return false;
    if (ends.from != ends.to) return true;
    context.Report(BuildFinding::NO_LENGTH, line.id, "Its two ends are one point.");
    return false;
}

void SheetWires::TakeWires() {
    for (std::uint32_t i = 0; i < sheet.wires.size(); ++i) {
        WireSource const& wire = sheet.wires[i];
        if (!context.IsUsable(wire.net, context.nets.size(), "net", wire.id)) continue;
        if (!TakeLine(wire, wireEnds[i])) continue;
        netWires.Add(wire.net, i);
        wireSeen[i] = false;
    }
}

void SheetWires::TakeBuses() {
    for (std::uint32_t i = 0; i < sheet.buses.size(); ++i) {
        BusSource const& bus = sheet.buses[i];
        if (!context.IsUsable(bus.highway, context.highways.size(), "highway", bus.id)) continue;
        if (!TakeLine(bus, busEnds[i])) continue;
        highwayBuses.Add(bus.highway, i);
        busSeen[i] = false;
    }
}

void SheetWires::TakeTaps() {
    for (std::uint32_t i = 0; i < sheet.taps.size(); ++i) {
        TapSource const& tap = sheet.taps[i];
        if (!context.IsUsable(tap.net, context.nets.size(), "net", tap.id)) continue;
        if (!TakePoint(tap.netPoint, tapEnds[i].from, tap.id)) continue;
        if (!TakePoint(tap.busPoint, tapEnds[i].to, tap.id)) continue;
        netTaps.Add(tap.net, i);
        if (context.IsUsable(tap.highway, context.highways.size(), "highway", tap.id)) {
            highwayTaps.Add(tap.highway, i);
        }
    }
}

void SheetWires::TakePorts() {
    for (std::uint32_t i = 0; i < sheet.portNodes.size(); ++i) {
        PortNodeSource const& node = sheet.portNodes[i];
        if (!context.IsUsable(node.port, context.ports.size(), "port", node.id)) continue;
        if (!context.ports[node.port]) continue;
        if (!TakePoint(node.position, portPlaces[i], node.id)) continue;
        PortSource const& port = context.source.ports[node.port];
        if (context.ports[node.port]->OnHighwayNotNet()) {
            highwayPorts.Add(port.highway, i);
        } else {
            netPorts.Add(port.net, i);
        }
    }
}

void SheetWires::TakeJoins() {
    for (std::uint32_t i = 0; i < sheet.joins.size(); ++i) {
        JoinSource const& join = sheet.joins[i];
        if (!TakePoint(join.point, joinPlaces[i], {})) continue;
        if (context.IsUsable(join.net, context.nets.size(), "net", {})) netJoins.Add(join.net, i);
        if (context.IsUsable(join.highway, context.highways.size(), "highway", {})) {
            highwayJoins.Add(join.highway, i);
        }
    }
}

void SheetWires::TakeFlowStarts() {
    for (std::uint32_t i = 0; i < sheet.flowStarts.size(); ++i) {
        FlowStartSource const& start = sheet.flowStarts[i];
        if (!context.IsUsable(start.net, context.nets.size(), "net", {})) continue;
        if (TakePoint(start.point, startPlaces[i], {})) netStarts.Add(start.net, i);
    }
}

void SheetWires::TakeDecorations() {
    for (std::uint32_t i = 0; i < sheet.decorations.size(); ++i) {
        DecorationSource const& decoration = sheet.decorations[i];
        bool const hasNet = context.IsUsable(decoration.net, context.nets.size(), "net", {});
        bool const hasHighway =
            context.IsUsable(decoration.highway, context.highways.size(), "highway", {});
        if (!(hasNet || hasHighway) || !ToGrid(decoration.anchor, anchors[i])) {
            freeDecorations.push_back(i);
        } else if (hasNet) {
            netDecorations.Add(decoration.net, i);
        } else {
            highwayDecorations.Add(decoration.highway, i);
        }
    }
}

void SheetWires::CheckMembers() {
    for (SourceIndex const highway : AllKeys(highwayTaps)) {
        std::vector<SourceIndex> const& nets = context.source.highways[highway].nets;
        std::unordered_set<SourceIndex> const members(nets.begin(), nets.end());
        for (auto const& [key, tap] : highwayTaps.At(highway)) {
            if (members.count(sheet.taps[tap].net) != 0) continue;
            context.Report(BuildFinding::FOREIGN_NET, sheet.taps[tap].id,
                           "The highway doesn't name the net that taps it.");
        }
    }
}

std::vector<SourceIndex> SheetWires::Highways() const {
    return AllKeys(highwayBuses, highwayPorts, highwayTaps, highwayDecorations);
}

std::vector<SourceIndex> SheetWires::Nets() const {
    return AllKeys(netWires, netTaps, netPorts, netPins, netDecorations);
}

HighwayDrawing SheetWires::DrawingOfHighway(SourceIndex highway) const {
    HighwayDrawing drawing;
    drawing.highway = highway;
    for (auto const& [key, bus] : highwayBuses.At(highway)) {
        drawing.lines.push_back({busEnds[bus].from, busEnds[bus].to, bus});
    }
    for (auto const& [key, tap] : highwayTaps.At(highway))
        drawing.taps.push_back(tapEnds[tap].to);
    for (auto const& [key, join] : highwayJoins.At(highway)) {
        drawing.joins.push_back(joinPlaces[join]);
    }
    for (auto const& [key, port] : highwayPorts.At(highway)) {
        drawing.ports.emplace_back(portPlaces[port], port);
    }
    return drawing;
}

void SheetWires::SetPlaces(HighwayDrawing const& drawing, std::vector<HighwayPlace> const& places) {
    std::size_t next = 0;
    for (auto const& [key, tap] : highwayTaps.At(drawing.highway)) {
        tapPlaces[tap] = places[next++];
        if (tapPlaces[tap].node != NO_INDEX) continue;
        context.Report(BuildFinding::LOST_TAP, sheet.taps[tap].id,
                       "No bus of its highway passes where it ends.");
    }
}

NetDrawing SheetWires::DrawingOfNet(SourceIndex net) const {
    NetDrawing drawing;
    drawing.net = net;
    for (auto const& [key, wire] : netWires.At(net)) {
        drawing.lines.push_back({wireEnds[wire].from, wireEnds[wire].to, wire});
    }
    for (auto const& [key, tap] : netTaps.At(net)) {
        drawing.taps.push_back(
            {tap, sheet.taps[tap].highway, tapEnds[tap].from, tapEnds[tap].to, tapPlaces[tap]});
    }
    for (auto const& [key, join] : netJoins.At(net))
        drawing.joins.push_back(joinPlaces[join]);
    for (auto const& [key, start] : netStarts.At(net))
        drawing.starts.push_back(startPlaces[start]);
    for (auto const& [key, pin] : netPins.At(net))
        drawing.pins.emplace_back(pins[pin].place, pin);
    for (auto const& [key, port] : netPorts.At(net)) {
        drawing.ports.emplace_back(portPlaces[port], port);
    }
    return drawing;
}

void SheetWires::Mark(std::vector<Piece> const& pieces, std::vector<bool>& seen) {
    for (Piece const& piece : pieces)
        seen[piece.source] = true;
}

template <class Source>
void SheetWires::ReportCovered(std::vector<Source> const& lines, std::vector<bool> const& seen) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (seen[i]) continue;
        context.Report(BuildFinding::COVERED, lines[i].id, "It lies wholly on others.");
    }
}

void SheetWires::ReportCovered() {
    ReportCovered(sheet.wires, wireSeen);
    ReportCovered(sheet.buses, busSeen);
}

}  // namespace figkernel
