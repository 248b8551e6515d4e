// Which nets the buses of a design carry. Private.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <readers/kicad/design/BusNames.h>
#include <readers/kicad/nets/Nets.h>

#include "NameSpaces.h"

namespace fighost::kicad {

/// One place of a bus: the net there, and the name that it gives to that net.
struct BusSlot {
    Node net = NO_NODE;
    std::string name;  ///< with the path of the naming sheet
    unsigned depth = 0;
};

/// A bus through all sheets.
struct BusGroup {
    Node root = NO_NODE;
    std::string name;  ///< of its strongest label, with path
    std::vector<BusSlot> slots;
};

/// Finds out what each bus carries. Two steps, since the second needs the sheets' own buses as they
/// are before sheet pins join them.
class BusResolver {
public:
    BusResolver(Hierarchy const& design, Limits const& bounds, UnionFind& disjoint,
                NameSpaces& spaces)
        : hierarchy(design), limits(bounds), sets(disjoint), names(spaces) {}

    /// Collects the names of all buses and decides which unlabelled ones take a sheet pin's name.
    /// To be called when each sheet is joined in itself. False: too many members.
    bool CollectNames(std::vector<SheetGraph> const& sheets);
    /// Joins the members of buses that are one. To be called when sheet pins are joined.
    std::vector<BusGroup> JoinMembers();

private:
    struct Driver {
        Node node;
        std::uint32_t sheet;
        NameClass nameClass;
        std::string text;
        std::string fullName;
        BusName const* bus;
        bool inNameSpace;
    };

    BusName const& Parse(std::string const& raw);
    void AddLabels(SheetGraph const& sheet);
    void AddSheetPins(SheetGraph const& sheet);
    void DecideSheetPins(SheetGraph const& sheet, std::size_t first);
    bool AddDriver(SheetGraph const& sheet, Node node, GivenName const& given, NameClass strength,
                   bool inNameSpace);
    bool IsStronger(Driver const& a, Driver const& b) const;
    BusGroup JoinGroup(std::vector<Driver const*> const& drivers);

    Hierarchy const& hierarchy;
    Limits const& limits;
    UnionFind& sets;
    NameSpaces& names;
    std::vector<Driver> all;
    std::map<std::string, BusName> parsed;
    std::size_t members = 0;
    bool exceeded = false;
};

}  // namespace fighost::kicad
