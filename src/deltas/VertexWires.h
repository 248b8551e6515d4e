// Wires along a tree of positions.
#pragma once

#include <figrep/Fwd.h>

namespace figrep {

/// Makes a net segment for each pair of a vertex below `root` and the vertex above it, junctions
/// looked through, linked as the vertices are. Answers the segment that heads the tree, below which
/// those of the root's other branches hang; null when there is no vertex below the root. No node is
/// passed twice, and the depth of the tree doesn't matter.
SmartPtr<NetSegment> CreateNetSegments(SmartPtr<SubNet> const& subNet,
                                       SmartPtr<DeltaVertexNode> const& root);

}  // namespace figrep
