// The nets and buses of a whole design.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <readers/Findings.h>
#include <readers/kicad/design/Hierarchy.h>
#include <readers/kicad/file/Limits.h>
#include <readers/kicad/nets/SheetGraph.h>
#include <readers/kicad/nets/UnionFind.h>

namespace fighost::kicad {

inline constexpr std::uint32_t NO_NET = 0xFFFFFFFFu;

/// What names a net, strongest first.
enum class NameClass : std::uint8_t {
    GLOBAL_LABEL,
    POWER_PIN,
    BUS_MEMBER,
    LOCAL_POWER,
    LOCAL_LABEL,
    HIERARCHICAL_LABEL,
    SHEET_PIN_OUTPUT,
    SHEET_PIN,
    PIN,
    NOTHING,
};

struct Net {
    std::string name;    ///< unique in the design
    bool named = false;  ///< by something else than a pin
};

/// All buses that are one through the hierarchy.
struct Bus {
    std::string id;    ///< unique and stable
    std::string name;  ///< of the strongest label; empty for a bus that nothing names
    std::vector<std::uint32_t> nets;  ///< that it carries, each once, in the order of its members
};

struct DesignNets {
    std::vector<SheetGraph> sheets;  ///< as in the hierarchy
    std::vector<Net> nets;           ///< by name
    std::vector<Bus> buses;
    std::vector<std::uint32_t> ofNode;  ///< net or bus of each node; NO_NET: of none
    std::vector<Node> pieces;  ///< for each drawn node one of all those that touching joins to it

    std::uint32_t Of(Node node) const { return node == NO_NODE ? NO_NET : ofNode[node]; }
};

/// Forms and names all nets. Answers the limit that was reached, if one was.
std::optional<Finding> FormNets(Hierarchy const& hierarchy, Limits const& limits,
                                Findings& findings, DesignNets& result);

}  // namespace fighost::kicad
