// Checks what a figure relies on in a kernel design, by other means than the builder's.
#pragma once

#include <string>
#include <vector>

#include <figk/Design.h>
#include <figkernel/DesignSource.h>

namespace figrep::test {

/// What is wrong with the trees of a design, one sentence each; empty when all guarantees hold.
///
/// Looks at records through the kernel's public operations alone: links on both ends, no node in
/// two trees, heads, ends that touch, connectors, entries and exits of highways, the highway
/// segments that nets name, ids, and the order in which a sheet shows its content.
std::vector<std::string> FindBrokenTrees(figk::Design const& design);

/// Where a design differs from its source, one sentence each: drawn length that got lost or was
/// drawn twice, pieces beside their wires, pins that are joined and shouldn't be, or the other way
/// round. Works from the drawing by comparing everything with everything, so only for small ones.
std::vector<std::string> FindFalseConnections(figkernel::DesignSource const& source,
                                              figk::Design const& design);

/// Sub-nets that don't begin where the flow of their net starts, or say that they do where nothing
/// or several places tell it, one sentence each. Starts must stand at pins or ports.
std::vector<std::string> FindFalseStarts(figkernel::DesignSource const& source,
                                         figk::Design const& design);

/// The lines as one text, for messages of tests.
std::string JoinLines(std::vector<std::string> const& lines);

}  // namespace figrep::test
