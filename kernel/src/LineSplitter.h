// Cuts drawn lines into the pieces between the points where something touches them.
#pragma once

#include <cstdint>
#include <vector>

#include "GridPoint.h"

namespace figkernel {

/// A line as drawn: a wire of one net or a bus of one highway.
struct DrawnLine {
    GridPoint from;
    GridPoint to;
    std::uint32_t source = 0;  ///< what the caller knows it by
};

/// A part of a drawn line that nothing touches between its ends.
struct Piece {
    GridPoint a;  ///< the end towards the line's `from`
    GridPoint b;
    std::uint32_t source = 0;
    bool isFirst = false;  ///< begins where its line begins
};

/// Cuts every line at the ends of all others and at `points`. Where lines lie on top of each other
/// the part they share comes out once, as a piece of the first of them. Lines without length give
/// nothing. Pieces come in the order of the lines and along each line.
///
/// All lines must belong together (one net, one highway): any touch is a join. Cost: n log n in
/// lines and points, plus the pieces.
std::vector<Piece> SplitLines(std::vector<DrawnLine> const& lines,
                              std::vector<GridPoint> const& points);

}  // namespace figkernel
