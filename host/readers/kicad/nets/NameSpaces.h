// Joins what has equal names: on a sheet, over the design, through sheet pins. Private.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <readers/kicad/nets/SheetGraph.h>
#include <readers/kicad/nets/UnionFind.h>

namespace fighost::kicad {

/// The net that a power pin stands for.
struct PowerName {
    std::string name;  ///< empty: the pin is no power pin
    bool local = false;
};

PowerName PowerNameOf(ResolvedSymbol const& symbol, ResolvedPin const& pin, int rootVersion);

/// Names of nets and of buses, per sheet and over the design.
class NameSpaces {
public:
    NameSpaces(UnionFind& disjoint, std::size_t sheets)
        : sets(disjoint), nets(sheets), buses(sheets) {}

    void JoinNet(std::uint32_t sheet, std::string const& name, Node node) {
        Join(nets[sheet], name, node);
    }
    void JoinBus(std::uint32_t sheet, std::string const& name, Node node) {
        Join(buses[sheet], name, node);
    }
    void JoinGlobalNet(std::string const& name, Node node) { Join(globalNets, name, node); }
    void JoinGlobalBus(std::string const& name, Node node) { Join(globalBuses, name, node); }

    /// The node of that name on the sheet, made when there is none yet.
    Node NetOf(std::uint32_t sheet, std::string const& name);

private:
    using Names = std::unordered_map<std::string, Node>;

    void Join(Names& names, std::string const& name, Node node) {
        auto const [at, fresh] = names.emplace(name, node);
        if (!fresh) sets.Join(at->second, node);
    }

    UnionFind& sets;
    std::vector<Names> nets;
    std::vector<Names> buses;
    Names globalNets;
    Names globalBuses;
};

/// Labels, power pins: equal names on a sheet, and global ones over the design.
void JoinByNames(std::vector<SheetGraph> const& sheets, int rootVersion, NameSpaces& names);

/// Sheet pins with the hierarchical labels of equal text inside. Counts those without a partner, on
/// both sides.
void JoinThroughSheetPins(std::vector<SheetGraph> const& sheets, UnionFind& sets,
                          Findings& findings);

}  // namespace fighost::kicad
