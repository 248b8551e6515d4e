// The way of one net through the sheets of a design.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <session/Session.h>
#include <session/nets/TraceIndex.h>

namespace fighost {

/// A place on a sheet. The grid location is that of the sheet's frame; empty without a grid.
struct TracePlace {
    std::string sheet;  ///< path
    std::string x;      ///< column of the grid
    std::string y;      ///< row of the grid
    auto operator<=>(TracePlace const&) const = default;
};

/// A port by which the net leaves its sheet.
struct TracePort {
    std::string id;    ///< of the port
    std::string name;  ///< of the port
    TracePlace place;
    std::vector<TracePlace> leadsTo;  ///< where the port shows on other sheets, in their order
    bool operator==(TracePort const&) const = default;
};

struct TraceSheet {
    std::string path;
    /// Whether the way from a sheet before led here by a port. False on the first sheet, and where
    /// the net goes on by its name alone, as with power symbols.
    bool reachedByPort = false;
    std::vector<TracePort> ports;
    std::vector<std::string> pins;  ///< "REFERENCE:PIN", each once, sorted
    bool operator==(TraceSheet const&) const = default;
};

struct NetTrace {
    std::string net;
    /// In the order of the way: from the first sheet that shows the net wherever ports lead, then
    /// from the next one that no port led to.
    std::vector<TraceSheet> sheets;
    bool operator==(NetTrace const&) const = default;
};

/// Follows the net of this name; nothing when the index has none. The ways between sheets and the
/// grid locations are those of `figrep::SchematicRepresentation`, whether its details are live or
/// read back, so a saved index answers as the design does.
std::optional<NetTrace> TraceNet(TraceIndex const& index, std::string const& name);
/// The same in an open design. Cost: one walk of every figure that shows the net.
std::optional<NetTrace> TraceNet(Session const& session, std::string const& name);

}  // namespace fighost
