#include "NetNames.h"

#include <tuple>
#include <unordered_map>
#include <unordered_set>

#include <readers/kicad/design/Texts.h>

namespace fighost::kicad {

namespace {

struct Candidate {
    NameClass nameClass = NameClass::NOTHING;
    unsigned depth = 0;
    std::string name;

    /// Classes that hold over the whole design know no depth.
    auto Rank() const {
        bool const global = nameClass <= NameClass::POWER_PIN;
        return std::tuple(nameClass, global ? 0u : depth, std::string_view(name));
    }
};

/// What is known of the pins of a net before it is named after one of them.
struct PinState {
    unsigned pins = 0;
    bool marked = false;
};

class Namer {
public:
    Namer(Hierarchy const& design, std::vector<std::uint32_t> const& numbers, std::size_t count)
        : hierarchy(design), netOf(numbers), best(count), pins(count) {}

    void NameByBuses(std::vector<BusGroup> const& buses) {
        for (BusGroup const& bus : buses) {
            for (BusSlot const& slot : bus.slots) {
                if (slot.net == NO_NODE) continue;
                Offer(slot.net, {NameClass::BUS_MEMBER, slot.depth, slot.name});
            }
        }
    }

    void NameByLabels(SheetGraph const& sheet) {
        unsigned const depth = sheet.instance->depth;
        auto const& labels = sheet.File().labels;
        for (std::size_t i = 0; i < labels.size(); ++i) {
            GivenName const& given = sheet.labelNames[i];
            if (given.bus || given.name.empty()) continue;
            Node const node = sheet.firstLabel + static_cast<Node>(i);
            if (labels[i].kind == Label::GLOBAL) {
                Offer(node, {NameClass::GLOBAL_LABEL, depth, given.name});
            } else {
                bool const local = labels[i].kind == Label::LOCAL;
                Offer(node, {local ? NameClass::LOCAL_LABEL : NameClass::HIERARCHICAL_LABEL, depth,
                             sheet.instance->path + given.name});
            }
        }
    }

    void NameBySheetPins(SheetGraph const& sheet) {
        for (std::size_t i = 0; i < sheet.sheetPins.size(); ++i) {
            GivenName const& given = sheet.sheetPinNames[i];
            if (given.bus || given.name.empty()) continue;
            bool const output = sheet.GetSheetPin(i).type == "output";
            Offer(sheet.firstSheetPin + static_cast<Node>(i),
                  {output ? NameClass::SHEET_PIN_OUTPUT : NameClass::SHEET_PIN,
                   sheet.instance->depth, sheet.instance->path + given.name});
        }
    }

    void NameByPower(SheetGraph const& sheet) {
        int const version = hierarchy.Root().version;
        for (std::size_t i = 0; i < sheet.symbols.size(); ++i) {
            ResolvedSymbol const& symbol = sheet.symbols[i];
            for (std::size_t k = 0; k < symbol.pins.size(); ++k) {
                CountPin(sheet.PinNode(i, k));
                PowerName const power = PowerNameOf(symbol, symbol.pins[k], version);
                if (power.name.empty()) continue;
                Offer(sheet.PinNode(i, k),
                      {power.local ? NameClass::LOCAL_POWER : NameClass::POWER_PIN,
                       sheet.instance->depth,
                       power.local ? sheet.instance->path + power.name : power.name});
            }
        }
        for (Node const node : sheet.marked)
            pins[netOf[node]].marked = true;
    }

    /// To be called last: only nets that nothing else names take a pin's name.
    void NameByPins(SheetGraph const& sheet) {
        for (std::size_t i = 0; i < sheet.symbols.size(); ++i) {
            if (!sheet.symbols[i].IsVirtual()) NameByPinsOf(sheet, i);
        }
    }

    std::vector<Net> Take() {
        std::vector<Net> nets(best.size());
        std::unordered_set<std::string> taken;
        std::unordered_map<std::string, unsigned> numbers;
        for (std::size_t i = 0; i < best.size(); ++i) {
            nets[i].named = best[i].nameClass < NameClass::PIN;
            std::string const wanted = best[i].name.empty() ? "Net" : best[i].name;
            nets[i].name = wanted;
            while (!taken.insert(nets[i].name).second) {
                nets[i].name = wanted + "_" + std::to_string(++numbers[wanted]);
            }
        }
        return nets;
    }

private:
    void Offer(Node node, Candidate candidate) {
        std::uint32_t const net = netOf[node];
        if (net == NO_NET) return;
        if (candidate.Rank() < best[net].Rank()) best[net] = std::move(candidate);
    }

    void CountPin(Node node) { ++pins[netOf[node]].pins; }

    /// For each pin name of the symbol whether several numbers share it.
    static std::unordered_map<std::string_view, bool> FindSharedNames(
        ResolvedSymbol const& symbol) {
        std::unordered_map<std::string_view, std::string_view> numbers;
        std::unordered_map<std::string_view, bool> shared;
        for (ResolvedPin const& pin : symbol.pins) {
            auto const [at, fresh] = numbers.emplace(pin.library->name, pin.library->number);
            if (!fresh && at->second != pin.library->number) shared[pin.library->name] = true;
        }
        return shared;
    }

    void NameByPinsOf(SheetGraph const& sheet, std::size_t number) {
        ResolvedSymbol const& symbol = sheet.symbols[number];
        auto const shared = FindSharedNames(symbol);
        for (std::size_t k = 0; k < symbol.pins.size(); ++k) {
            std::uint32_t const net = netOf[sheet.PinNode(number, k)];
            if (best[net].nameClass < NameClass::PIN) continue;
            bool const hasShared = shared.count(symbol.pins[k].library->name) > 0;
            Offer(sheet.PinNode(number, k),
                  {NameClass::PIN, sheet.instance->depth,
                   PinNetName(symbol, symbol.pins[k], pins[net], hasShared)});
        }
    }

    std::string PinNetName(ResolvedSymbol const& symbol, ResolvedPin const& pin,
                           PinState const& state, bool shared) const {
        bool const old = hierarchy.Root().version <= VERSION_6;
        bool const unconnected = state.pins == 1 || state.marked;
        std::string const& pinName = pin.library->name;
        bool const nameless = old || pinName.empty() || pinName == "~";
        std::string name = unconnected ? "unconnected-(" : "Net-(";
        name += symbol.unitCount > 1 && !old
                    ? hierarchy.project.UnitReference(symbol.reference, symbol.unit)
                    : symbol.reference;
        if (!nameless) name += "-" + Unescape(pinName);
        if (nameless || shared || unconnected) name += "-Pad" + pin.numbers.front();
        return name + ")";
    }

    Hierarchy const& hierarchy;
    std::vector<std::uint32_t> const& netOf;
    std::vector<Candidate> best;
    std::vector<PinState> pins;
};

}  // namespace

std::vector<Net> NameNets(Hierarchy const& hierarchy, std::vector<SheetGraph> const& sheets,
                          std::vector<BusGroup> const& buses,
                          std::vector<std::uint32_t> const& netOf, std::size_t count) {
    Namer namer(hierarchy, netOf, count);
    namer.NameByBuses(buses);
    for (SheetGraph const& sheet : sheets) {
        namer.NameByLabels(sheet);
        namer.NameBySheetPins(sheet);
        namer.NameByPower(sheet);
    }
    for (SheetGraph const& sheet : sheets)
        namer.NameByPins(sheet);
    return namer.Take();
}

}  // namespace fighost::kicad
