#include <readers/kicad/nets/Nets.h>

#include <algorithm>
#include <numeric>
#include <set>

#include "Buses.h"
#include "NameSpaces.h"
#include "NetNames.h"

namespace fighost::kicad {

namespace {

class NetFormer {
public:
    NetFormer(Hierarchy const& design, Limits const& bounds, Findings& list, DesignNets& result)
        : hierarchy(design), limits(bounds), findings(list), out(result) {}

    std::optional<Finding> Run() {
        for (std::uint32_t i = 0; i < hierarchy.sheets.size(); ++i) {
            out.sheets.push_back(MakeSheetGraph(hierarchy, i, sets, findings));
        }
        drawn = sets.GetSize();
        KeepPieces();
        NameSpaces names(sets, out.sheets.size());
        JoinByNames(out.sheets, hierarchy.Root().version, names);
        BusResolver resolver(hierarchy, limits, sets, names);
        if (!resolver.CollectNames(out.sheets)) {
            return Finding::InFile(hierarchy.Root().path, "The buses have too many members");
        }
        JoinThroughSheetPins(out.sheets, sets, findings);
        std::vector<BusGroup> groups = resolver.JoinMembers();
        NumberBuses();
        NumberNets();
        out.nets = NameNets(hierarchy, out.sheets, groups, out.ofNode, netCount);
        SortNets();
        FillBuses(groups);
        return std::nullopt;
    }

private:
    /// Before names join what stands apart.
    void KeepPieces() {
        out.pieces.resize(drawn);
        for (Node node = 0; node < drawn; ++node)
            out.pieces[node] = sets.Find(node);
    }

    void MarkBusNodes() {
        isBus.assign(sets.GetSize(), false);
        for (SheetGraph const& sheet : out.sheets) {
            for (std::size_t i = 0; i < sheet.File().buses.size(); ++i) {
                isBus[sheet.firstBus + i] = true;
            }
            for (std::size_t i = 0; i < sheet.sheetPins.size(); ++i) {
                if (sheet.sheetPinNames[i].bus) isBus[sheet.firstSheetPin + i] = true;
            }
            for (std::size_t i = 0; i < sheet.labelOnBus.size(); ++i) {
                if (sheet.labelOnBus[i]) isBus[sheet.firstLabel + i] = true;
            }
        }
    }

    void NumberBuses() {
        MarkBusNodes();
        out.ofNode.assign(sets.GetSize(), NO_NET);
        for (Node node = 0; node < drawn; ++node) {
            if (!isBus[node]) continue;
            Node const root = sets.Find(node);
            if (root == node) {
                out.ofNode[node] = static_cast<std::uint32_t>(out.buses.size());
                out.buses.emplace_back();
            }
            out.ofNode[node] = out.ofNode[root];
        }
    }

    /// Sets without anything that connects, such as lone bus entries and member names that no wire
    /// bears, are no nets.
    void NumberNets() {
        std::vector<bool> counts(drawn, true);
        for (SheetGraph const& sheet : out.sheets) {
            for (std::size_t i = 0; i < sheet.entries.size(); ++i) {
                counts[sheet.firstEntry + i] = false;
            }
        }
        for (Node node = 0; node < drawn; ++node) {
            if (isBus[node] || !counts[node]) continue;
            std::uint32_t& number = out.ofNode[sets.Find(node)];
            if (number == NO_NET) number = static_cast<std::uint32_t>(netCount++);
        }
        for (Node node = 0; node < sets.GetSize(); ++node) {
            if (!isBus[node]) out.ofNode[node] = out.ofNode[sets.Find(node)];
        }
    }

    void SortNets() {
        std::vector<std::uint32_t> order(out.nets.size());
        std::iota(order.begin(), order.end(), 0u);
        std::sort(order.begin(), order.end(), [this](std::uint32_t a, std::uint32_t b) {
            return out.nets[a].name < out.nets[b].name;
        });
        std::vector<std::uint32_t> place(order.size());
        std::vector<Net> sorted;
        sorted.reserve(order.size());
        for (std::uint32_t i = 0; i < order.size(); ++i) {
            place[order[i]] = i;
            sorted.push_back(std::move(out.nets[order[i]]));
        }
        out.nets = std::move(sorted);
        for (Node node = 0; node < out.ofNode.size(); ++node) {
            if (!isBus[node] && out.ofNode[node] != NO_NET) {
                out.ofNode[node] = place[out.ofNode[node]];
            }
        }
    }

    void FillBuses(std::vector<BusGroup> const& groups) {
        for (BusGroup const& group : groups) {
            Bus& bus = out.buses[out.ofNode[group.root]];
            bus.name = group.name;
            std::set<std::uint32_t> known;
            for (BusSlot const& slot : group.slots) {
                std::uint32_t const net = out.Of(slot.net);
                if (net != NO_NET && known.insert(net).second) bus.nets.push_back(net);
            }
        }
        NameBusIds();
    }

    /// A named bus is known by its name, another by the smallest id of its lines.
    void NameBusIds() {
        for (SheetGraph const& sheet : out.sheets) {
            for (std::size_t i = 0; i < sheet.File().buses.size(); ++i) {
                Bus& bus = out.buses[out.ofNode[sheet.firstBus + i]];
                if (!bus.name.empty()) continue;
                std::string id = sheet.instance->id + "/" + sheet.File().buses[i].uuid;
                if (bus.id.empty() || id < bus.id) bus.id = std::move(id);
            }
        }
        std::set<std::string> taken;
        for (Bus& bus : out.buses) {
            std::string const wanted = bus.name.empty() ? "bus:" + bus.id : bus.name;
            bus.id = wanted;
            for (unsigned number = 1; !taken.insert(bus.id).second; ++number) {
                bus.id = wanted + "_" + std::to_string(number);
            }
        }
    }

    Hierarchy const& hierarchy;
    Limits const& limits;
    Findings& findings;
    DesignNets& out;
    UnionFind sets;
    std::size_t drawn = 0;
    std::size_t netCount = 0;
    std::vector<bool> isBus;
};

}  // namespace

std::optional<Finding> FormNets(Hierarchy const& hierarchy, Limits const& limits,
                                Findings& findings, DesignNets& result) {
    return NetFormer(hierarchy, limits, findings, result).Run();
}

}  // namespace fighost::kicad
