#include <readers/kicad/DesignWriter.h>

#include <map>
#include <set>
#include <tuple>
#include <unordered_set>

#include <readers/FileSource.h>
#include <readers/kicad/design/Variables.h>
#include <readers/kicad/nets/FlowStarts.h>
#include <readers/kicad/pictures/LabelPictures.h>
#include <readers/kicad/pictures/SheetPictures.h>
#include <readers/kicad/pictures/SymbolPictures.h>

namespace fighost::kicad {

namespace {

using figkernel::NO_INDEX;
using figkernel::SourceIndex;

static_assert(NO_NET == NO_INDEX);

/// A variable of the project whose value names others can have one value per sheet.
bool IsSameOnAllSheets(std::string const& value) {
    return value.find("${") == std::string::npos;
}

/// The ports of a design: one for each name of each net or bus. Labels and pins of several sheets
/// that give one net one name share it, since figures tell ports by name and target alone.
class Ports {
public:
    explicit Ports(figkernel::DesignSource& source) : design(source) {}

    /// `id` is for a port that isn't there yet.
    SourceIndex Get(std::string id, GivenName const& name, SourceIndex target) {
        auto const [at, fresh] = known.emplace(std::tuple(name.bus, target, name.name),
                                               static_cast<SourceIndex>(design.ports.size()));
        if (!fresh) return at->second;
        figkernel::PortSource port;
        port.id = std::move(id);
        port.name = name.name;
        (name.bus ? port.highway : port.net) = target;
        design.ports.push_back(std::move(port));
        return at->second;
    }

private:
    figkernel::DesignSource& design;
    std::map<std::tuple<bool, SourceIndex, std::string>, SourceIndex> known;
};

class SheetWriter {
public:
    SheetWriter(Hierarchy const& design, DesignNets const& allNets, SheetGraph const& sheet,
                Looks& palette, SymbolPictures& symbolPictures, Ports& allPorts,
                figkernel::SheetSource& source, Findings& findings)
        : hierarchy(design),
          nets(allNets),
          graph(sheet),
          file(sheet.File()),
          frame{true, FromMm(sheet.File().paper.height)},
          looks(palette),
          symbols(symbolPictures),
          ports(allPorts),
          labels(palette, frame),
          pictures(design, sheet.index, palette, frame, findings),
          out(source) {}

    void Write() {
        SheetInstance const& instance = *graph.instance;
        out.id = instance.id;
        out.name = instance.name;
        out.path = instance.path;
        if (instance.parent != NO_SHEET) out.parent = instance.parent;
        WriteAttributes();
        pictures.DrawFrame(out);
        pictures.DrawContent(out.labels);
        WriteBlocks();
        WriteLines();
        WriteEntries();
        WriteLabels();
        WriteSheetPins();
        WriteMarks();
    }

private:
    /// What texts of the title block can name, beside what every sheet has.
    void WriteAttributes() {
        out.attributes = {{"PAGE", graph.instance->page}, {"FILE", FileName(file.path)}};
        std::vector<std::string> names = {"TITLE",   "ISSUE_DATE", "REVISION",
                                          "COMPANY", "PAPER",      "KICAD_VERSION"};
        for (int number = 1; number <= 9; ++number)
            names.push_back("COMMENT" + std::to_string(number));
        for (std::string const& name : names) {
            std::string text = ExpandOnSheet(hierarchy, graph.index, "${" + name + "}");
            if (!text.empty()) out.attributes.push_back({name, std::move(text)});
        }
        for (auto const& [name, value] : hierarchy.project.variables) {
            if (!IsSameOnAllSheets(value)) {
                out.attributes.push_back({name, ExpandOnSheet(hierarchy, graph.index, value)});
            }
        }
    }

    void WriteBlocks() {
        for (std::size_t i = 0; i < file.sheets.size(); ++i) {
            out.blocks.push_back(pictures.MakeSheetBlock(i));
        }
        for (std::size_t i = 0; i < graph.symbols.size(); ++i) {
            out.blocks.push_back(symbols.MakeBlock(graph, i, nets, frame));
        }
    }

    void WriteLines() {
        for (std::size_t i = 0; i < file.wires.size(); ++i) {
            Line const& line = file.wires[i];
            out.wires.push_back({line.uuid, nets.Of(graph.firstWire + static_cast<Node>(i)),
                                 frame(line.from), frame(line.to),
                                 looks.Lined(Role::WIRE, line.stroke)});
        }
        for (std::size_t i = 0; i < file.buses.size(); ++i) {
            Line const& line = file.buses[i];
            out.buses.push_back({line.uuid, nets.Of(graph.firstBus + static_cast<Node>(i)),
                                 frame(line.from), frame(line.to),
                                 looks.Lined(Role::BUS, line.stroke)});
        }
        for (JoinPoint const& join : graph.joins) {
            if (join.net != NO_NODE) {
                out.joins.push_back({frame(join.at), nets.Of(join.net), NO_INDEX});
            }
            if (join.bus != NO_NODE) {
                out.joins.push_back({frame(join.at), NO_INDEX, nets.Of(join.bus)});
            }
        }
    }

    bool Carries(SourceIndex bus, SourceIndex net) {
        auto found = carried.find(bus);
        if (found == carried.end()) {
            auto const& list = nets.buses[bus].nets;
            found = carried.emplace(bus, std::unordered_set<SourceIndex>(list.begin(), list.end()))
                        .first;
        }
        return found->second.count(net) > 0;
    }

    /// An entry is a tap where its net is on the bus; else it is just a piece of wire, and one
    /// without any net is only drawn.
    void WriteEntries() {
        for (std::size_t i = 0; i < file.entries.size(); ++i) {
            BusEntry const& entry = file.entries[i];
            EntryEnds const& ends = graph.entries[i];
            SourceIndex const net = nets.Of(graph.firstEntry + static_cast<Node>(i));
            SourceIndex const bus = nets.Of(ends.bus);
            SourceIndex const settings = looks.Lined(Role::WIRE, entry.stroke);
            if (net == NO_INDEX) {
                figkernel::DecorationSource decoration;
                decoration.anchor = frame(ends.busEnd);
                decoration.highway = bus;
                labels.DrawEntry(entry, decoration.graphics);
                out.decorations.push_back(std::move(decoration));
            } else if (bus != NO_INDEX && Carries(bus, net)) {
                out.taps.push_back(
                    {entry.uuid, bus, net, frame(ends.busEnd), frame(ends.wireEnd), settings});
            } else {
                out.wires.push_back(
                    {entry.uuid, net, frame(ends.wireEnd), frame(ends.busEnd), settings});
            }
        }
    }

    /// A decoration at a wire or bus, to be drawn into.
    figkernel::GroupSource& Decorate(Point at, Node node, bool onBus) {
        figkernel::DecorationSource decoration;
        decoration.anchor = frame(at);
        (onBus ? decoration.highway : decoration.net) = nets.Of(node);
        out.decorations.push_back(std::move(decoration));
        return out.decorations.back().graphics;
    }

    void WriteLabels() {
        for (std::size_t i = 0; i < file.labels.size(); ++i) {
            Label const& label = file.labels[i];
            Node const node = graph.firstLabel + static_cast<Node>(i);
            std::string const& text = graph.labelNames[i].name;
            if (label.kind == Label::LOCAL) {
                labels.DrawLocal(label, text, Decorate(label.at, node, graph.labelOnBus[i]));
            } else if (label.kind == Label::FLAG) {
                labels.DrawFlag(label, Decorate(label.at, node, graph.labelOnBus[i]));
            } else {
                WritePortLabel(label, node, graph.labelNames[i]);
            }
        }
    }

    void WritePortLabel(Label const& label, Node node, GivenName const& name) {
        bool const global = label.kind == Label::GLOBAL;
        figkernel::PortNodeSource source;
        source.id = label.uuid;
        source.position = frame(label.at);
        source.port = ports.Get((global ? "global" : graph.instance->id) + ":" + name.name, name,
                                nets.Of(node));
        if (!global) source.inside = IndexOf(*graph.instance);
        source.settings = looks.Colored(global ? Role::GLOBAL_LABEL : Role::HIERARCHICAL_LABEL,
                                        label.style.color);
        if (global) {
            labels.DrawGlobal(label, name.name, source.graphics);
        } else {
            labels.DrawHierarchical(label, name.name, source.graphics);
        }
        out.portNodes.push_back(std::move(source));
    }

    void WriteSheetPins() {
        for (std::size_t i = 0; i < graph.sheetPins.size(); ++i) {
            SheetPin const& pin = graph.GetSheetPin(i);
            SheetSymbol const& symbol = file.sheets[graph.sheetPins[i].sheet];
            GivenName const& name = graph.sheetPinNames[i];
            std::uint32_t const child = graph.instance->children[graph.sheetPins[i].sheet];
            std::string const owner = child == NO_SHEET ? graph.instance->id + "/" + symbol.uuid
                                                        : hierarchy.sheets[child].id;
            figkernel::PortNodeSource source;
            source.id = pin.uuid;
            source.position = frame(pin.at);
            source.port = ports.Get(owner + ":" + name.name, name,
                                    nets.Of(graph.firstSheetPin + static_cast<Node>(i)));
            if (child != NO_SHEET) source.inside = child;
            source.settings = looks.Colored(Role::SHEET_PIN, pin.style.color);
            labels.DrawSheetPin(pin, name.name, source.graphics);
            out.portNodes.push_back(std::move(source));
        }
    }

    /// Sheets of the design stand in the order of the hierarchy.
    SourceIndex IndexOf(SheetInstance const& instance) const {
        return static_cast<SourceIndex>(&instance - hierarchy.sheets.data());
    }

    void WriteMarks() {
        for (std::size_t i = 0; i < file.junctions.size(); ++i) {
            JoinPoint const& join = graph.junctions[i];
            bool const onBus = join.net == NO_NODE && join.bus != NO_NODE;
            Node const node = onBus ? join.bus : join.net;
            labels.DrawJunction(file.junctions[i], onBus,
                                Decorate(file.junctions[i].at, node, onBus));
        }
        for (std::size_t i = 0; i < file.noConnects.size(); ++i) {
            labels.DrawNoConnect(file.noConnects[i],
                                 Decorate(file.noConnects[i].at, graph.noConnectNodes[i], false));
        }
    }

    Hierarchy const& hierarchy;
    DesignNets const& nets;
    SheetGraph const& graph;
    SheetFile const& file;
    Frame frame;
    Looks& looks;
    SymbolPictures& symbols;
    Ports& ports;
    LabelPictures labels;
    SheetPictures pictures;
    figkernel::SheetSource& out;
    std::map<SourceIndex, std::unordered_set<SourceIndex>> carried;
};

void WriteNets(DesignNets const& nets, figkernel::DesignSource& design) {
    for (Net const& net : nets.nets)
        design.nets.push_back({net.name, {}, NO_INDEX});
    for (Bus const& bus : nets.buses) {
        figkernel::HighwaySource highway;
        highway.id = bus.id;
        highway.name = bus.name.empty() ? bus.id : bus.name;
        highway.nets = bus.nets;
        design.highways.push_back(std::move(highway));
    }
}

void WriteFlowStarts(DesignNets const& nets, figkernel::DesignSource& design) {
    std::vector<std::vector<FlowStart>> const starts = FindFlowStarts(nets);
    for (std::size_t i = 0; i < starts.size(); ++i) {
        Frame const frame{true, FromMm(nets.sheets[i].File().paper.height)};
        for (FlowStart const& start : starts[i])
            design.sheets[i].flowStarts.push_back({frame(start.at), start.net});
    }
}

/// Sheet symbols that bear the same id twice in one file would make one sheet of two.
void MakeIdsUnique(figkernel::DesignSource& design) {
    std::set<std::string> taken;
    for (figkernel::SheetSource& sheet : design.sheets) {
        std::string const wanted = sheet.id;
        for (unsigned number = 2; !taken.insert(sheet.id).second; ++number) {
            sheet.id = wanted + "#" + std::to_string(number);
        }
    }
}

}  // namespace

figkernel::DesignSource WriteDesign(Hierarchy const& hierarchy, DesignNets const& nets,
                                    Findings& findings) {
    figkernel::DesignSource design;
    design.id = hierarchy.Root().uuid.empty() ? hierarchy.project.name : hierarchy.Root().uuid;
    design.name = hierarchy.project.name;
    design.fileName = hierarchy.Root().path;
    for (auto const& [name, value] : hierarchy.project.variables) {
        if (IsSameOnAllSheets(value)) design.attributes.push_back({name, value});
    }
    WriteNets(nets, design);
    Looks looks(design);
    SymbolPictures symbols(hierarchy, looks);
    Ports ports(design);
    design.sheets.resize(nets.sheets.size());
    for (std::size_t i = 0; i < nets.sheets.size(); ++i) {
        SheetWriter(hierarchy, nets, nets.sheets[i], looks, symbols, ports, design.sheets[i],
                    findings)
            .Write();
    }
    WriteFlowStarts(nets, design);
    MakeIdsUnique(design);
    return design;
}

}  // namespace fighost::kicad
