// What an open design holds, as plain lists.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include <session/Session.h>

namespace fighost {

struct NetEntry {
    std::string name;
    std::vector<std::string> pins;     ///< "REFERENCE:PIN", each once, sorted
    std::vector<std::string> sheets;   ///< paths of the sheets with a pin or a piece of the net
    std::vector<std::string> subnets;  ///< ids of its pieces
};

struct ItemEntry {
    std::string id;
    std::string type;
    std::string name;
    std::string sheet;  ///< path
};

struct PortEntry {
    std::string id;
    std::string name;
    std::string carries;  ///< "net" or "highway"
    std::string target;   ///< the name of the net or highway
    std::vector<std::string> sheets;
};

/// All nets, sorted by name. Pins of references that begin with '#' (symbols
/// that stand for no part) are left out. Cost: linear in the design, plus the sorting.
std::vector<NetEntry> ListNets(Session const& session);

/// All items of all sheets in the order of the figures' walks, each once. The invisible helpers for
/// picking wires are left out.
std::vector<ItemEntry> ListItems(Session const& session);

/// Ports by id; a port that shows on several sheets is one entry.
std::vector<PortEntry> ListPorts(Session const& session);

/// The number of items of each type name.
std::map<std::string, std::size_t> CountItems(std::vector<ItemEntry> const& items);

/// The places where wires cross without connecting, whatever style marks them.
std::size_t CountCrossings(Session const& session);

}  // namespace fighost
