// Writes generated designs as files, so that reading is measured at any size.
#pragma once

#include <string>

#include <figkernel/DesignSource.h>

namespace figbench {

/// The first sheet of a design without highways as a schematic file: its blocks become symbols with
/// as many pins, its wires wires and its port nodes global labels. Blocks must all have the same
/// pins.
std::string WriteKicadSheet(figkernel::DesignSource const& design);

/// A generated sheet of about that many wires; the same answer for the same number.
std::string GenerateKicadSheet(std::size_t segments);

}  // namespace figbench
