#include <readers/kicad/nets/FlowStarts.h>

#include <algorithm>
#include <string_view>
#include <tuple>

namespace fighost::kicad {

namespace {

enum Strength : std::uint8_t { DRIVES, MAY_DRIVE, DRIVES_NOT };

Strength StrengthOf(std::string_view type) {
    if (type == "output" || type == "power_out") return DRIVES;
    bool const mayDrive = type == "open_collector" || type == "open_emitter" || type == "tri_state";
    return mayDrive ? MAY_DRIVE : DRIVES_NOT;
}

/// A pin that drives a net.
struct Driver {
    std::uint32_t net;
    Strength strength;
    std::uint32_t sheet;
    Point at;
    Node node;

    bool IsAtPlaceOf(Driver const& other) const { return sheet == other.sheet && at == other.at; }
    bool operator<(Driver const& other) const {
        return std::tie(net, strength, sheet, at, node) <
               std::tie(other.net, other.strength, other.sheet, other.at, other.node);
    }
};

class Finder {
public:
    explicit Finder(DesignNets const& designNets)
        : nets(designNets), isDriven(designNets.pieces.size()), starts(designNets.sheets.size()) {}

    std::vector<std::vector<FlowStart>> Run() {
        for (std::uint32_t sheet = 0; sheet < nets.sheets.size(); ++sheet)
            CollectDrivers(sheet);
        std::sort(drivers.begin(), drivers.end());
        for (auto first = drivers.cbegin(); first != drivers.cend();)
            first = TakeDriversOfNet(first);
        for (std::uint32_t sheet = 0; sheet < nets.sheets.size(); ++sheet)
            TakePorts(sheet);
        return std::move(starts);
    }

private:
    using DriverIterator = std::vector<Driver>::const_iterator;

    void CollectDrivers(std::uint32_t sheet) {
        SheetGraph const& graph = nets.sheets[sheet];
        for (std::size_t i = 0; i < graph.symbols.size(); ++i) {
            ResolvedSymbol const& symbol = graph.symbols[i];
            if (symbol.IsPower() || symbol.IsVirtual()) continue;
            for (std::size_t k = 0; k < symbol.pins.size(); ++k) {
                Node const node = graph.PinNode(i, k);
                Strength const strength = StrengthOf(symbol.pins[k].type);
                if (strength == DRIVES_NOT || nets.Of(node) == NO_NET) continue;
                drivers.push_back({nets.Of(node), strength, sheet, symbol.pins[k].at, node});
            }
        }
    }

    /// Answers where the next net's drivers begin.
    DriverIterator TakeDriversOfNet(DriverIterator first) {
        auto const next = std::find_if(first, drivers.cend(),
                                       [&](Driver const& d) { return d.net != first->net; });
        auto const weaker = std::find_if(
            first, next, [&](Driver const& d) { return d.strength != first->strength; });
        bool isOne = true;
        for (auto driver = first; driver != weaker; ++driver) {
            isDriven[nets.pieces[driver->node]] = true;
            isOne = isOne && driver->IsAtPlaceOf(*first);
        }
        if (isOne) starts[first->sheet].push_back({first->at, first->net});
        return next;
    }

    void TakePorts(std::uint32_t sheet) {
        SheetGraph const& graph = nets.sheets[sheet];
        for (std::size_t i = 0; i < graph.sheetPins.size(); ++i) {
            SheetPin const& pin = graph.GetSheetPin(i);
            bool const isBus = graph.sheetPinNames[i].bus;
            if (isBus || pin.type != "output") continue;
            TakePort(sheet, pin.at, graph.firstSheetPin + static_cast<Node>(i));
        }
        for (std::size_t i = 0; i < graph.File().labels.size(); ++i) {
            Label const& label = graph.File().labels[i];
            bool const isPort = label.kind == Label::GLOBAL || label.kind == Label::HIERARCHICAL;
            if (!isPort || graph.labelOnBus[i] || label.shape != "input") continue;
            TakePort(sheet, label.at, graph.firstLabel + static_cast<Node>(i));
        }
    }

    void TakePort(std::uint32_t sheet, Point at, Node node) {
        std::uint32_t const net = nets.Of(node);
        if (net != NO_NET && !isDriven[nets.pieces[node]]) starts[sheet].push_back({at, net});
    }

    DesignNets const& nets;
    std::vector<Driver> drivers;
    std::vector<bool> isDriven;  ///< by piece
    std::vector<std::vector<FlowStart>> starts;
};

}  // namespace

std::vector<std::vector<FlowStart>> FindFlowStarts(DesignNets const& nets) {
    return Finder(nets).Run();
}

}  // namespace fighost::kicad
