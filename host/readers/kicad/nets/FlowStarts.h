// Where the signals of nets come from, sheet by sheet.
#pragma once

#include <cstdint>
#include <vector>

#include <readers/kicad/nets/Nets.h>

namespace fighost::kicad {

/// A place on a sheet where the signal of a net comes from.
struct FlowStart {
    Point at;
    std::uint32_t net = NO_NET;
};

/// The starts of flow on each sheet.
///
/// - The pin that drives a net, when the whole design has just one: an output or a power output, or
///   where there is none of these an open collector, an open emitter or a three-state output. Pins
///   at one point are one. The flags that only tell checks that a net is powered drive nothing.
/// - Where no such pin is among what touches: sheet pins of shape "output", by which the signal
///   comes out of the sheet behind, and global and hierarchical labels of shape "input", by which
///   it comes from elsewhere. A pin outranks them, since labels often keep the shape that they were
///   made with.
///
/// So there may be several for what is one on a sheet, which then has no direction.
std::vector<std::vector<FlowStart>> FindFlowStarts(DesignNets const& nets);

}  // namespace fighost::kicad
