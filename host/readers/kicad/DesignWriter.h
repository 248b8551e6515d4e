// From the nets of a design to what the builder of kernel records takes.
#pragma once

#include <figkernel/DesignSource.h>
#include <readers/Findings.h>
#include <readers/kicad/nets/Nets.h>

namespace fighost::kicad {

/// The whole design as drawn: blocks, wires, buses, ports, texts, frames.
figkernel::DesignSource WriteDesign(Hierarchy const& hierarchy, DesignNets const& nets,
                                    Findings& findings);

}  // namespace fighost::kicad
