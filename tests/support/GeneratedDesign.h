// Designs of any size and of any mess, made from a seed.
#pragma once

#include <cstddef>
#include <cstdint>

#include <figkernel/DesignSource.h>

namespace figrep::test {

struct GridOptions {
    std::uint64_t seed = 1;
    std::size_t segments = 1000;  ///< wires, taps and buses together; met to within one channel
    unsigned sheets = 1;
    unsigned pinsPerSide = 8;
    unsigned blocksPerRow = 16;
    bool highways = true;  ///< every fourth channel between blocks is a bus
    bool graphics = true;  ///< outlines and names of the blocks
    /// On each sheet also a frame with a title block, a table, a cable, a block inside a block, a
    /// miscellaneous item, and labels of a wire and of the sheet.
    bool oddments = false;
};

/// A design that looks like a schematic: rows of blocks, between neighbours a channel in which each
/// pin is wired to a pin of the next block with two bends, so that wires cross as they do in
/// practice; or a bus that all the channel's nets enter and leave, which goes on to the next sheet
/// through a port. The first pin of each row is on a net that a port joins over rows and sheets.
/// The same options always give the same design.
figkernel::DesignSource GenerateGrid(GridOptions const& options);

/// A small sheet on which everything goes wrong: wires at random, slanted, overlapping, in loops,
/// doubled; shared highways with loops, crossings and several pieces; taps beside their buses;
/// stacked pins, pins in the middle of wires, ports on top of each other.
figkernel::DesignSource GenerateTangle(std::uint64_t seed);

/// Makes one of three pins and ports on nets, at random, a place where flow starts.
void AddFlowStarts(figkernel::DesignSource& design, std::uint64_t seed);

}  // namespace figrep::test
