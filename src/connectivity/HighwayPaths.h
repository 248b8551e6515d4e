// Which part of a highway a net runs along.
#pragma once

#include <figrep/Fwd.h>

#include <vector>

namespace figrep {

/// The segments that join `contacts`, places on one sub-highway that stands headed by its head: the
/// union of the paths between them, without the one segment above which they all meet. With
/// `fromHead` the head joins in, and every segment on the way to it counts. In the order of
/// climbing from the contacts.
///
/// All contacts climb at once, a step at a time, until a single one is left or all are at the top,
/// so the cost is that of the paths and not of the highway. Uses the segments' visit counts, which
/// are 0 before and after.
std::vector<SmartPtr<HighwaySegment>> FindHighwayPaths(
    std::vector<SmartPtr<HighwaySegment>> const& contacts, bool fromHead);

}  // namespace figrep
