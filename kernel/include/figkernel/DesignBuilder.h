// Turns what a reader read into the records of a design.
#pragma once

#include <string>
#include <vector>

#include <figk/Design.h>
#include <figkernel/DesignSource.h>
#include <zvk/ReadWriteLock.h>

namespace figkernel {

/// Something in a source that couldn't be taken as it stood, and what was done instead.
struct BuildFinding {
    enum Kind {
        BAD_INDEX,     ///< an index that points nowhere; treated as NO_INDEX
        BAD_POINT,     ///< a coordinate that is not finite or too far out; the record is left out
        NO_LENGTH,     ///< a wire or bus whose ends are one point; left out
        COVERED,       ///< a wire or bus that lies wholly on others of its net; left out
        LOST_TAP,      ///< a tap beside its highway; its wire is drawn and ends there
        FOREIGN_NET,   ///< a tap of a net that its highway doesn't name; connected all the same
        DUPLICATE_ID,  ///< an id that another record of its kind has; a number was put behind
        BAD_NESTING,   ///< a block that would stand inside two others or itself; left outside
        DEEP_GROUP     ///< groups nested more than 100 deep; their content was moved outwards
    };
    Kind kind = BAD_INDEX;
    std::string sheet;  ///< the sheet's id in the source; empty for the design itself
    std::string id;     ///< the record's id in the source; may be empty
    std::string text;   ///< one plain sentence in English
};

struct BuildResult {
    du::SmartPtr<figk::Design> design;  ///< never null
    std::vector<BuildFinding> findings;
};

/// Makes the records of a design.
///
/// *What a figure may rely on*, whatever the source looks like:
/// - Highways are split at every tap, branch and port. A highway node names the segment of the
///   sub-highway whose far end, seen from the head, is the tap; that segment exists once. The head
///   of a highway is a segment with a free end, else one without length; ports are leaves.
/// - The head of a net is a net segment or a port on a net. Every segment touches its predecessor
///   with one end and all its successors with the other. Wires are split where others of their net
///   touch them. A loop is cut open; the segment that would close it stays as one more end.
/// - A net comes onto a sub-highway once (further taps are drawn, without a highway node); each
///   connected piece of its wires that the highway reaches hangs below an exit of its own, an exit
///   having exactly one successor. Between entry and exits stand the net's own copies of the
///   highway's segments. Exactly one node of a net has no mapped predecessor, apart from those
///   directly below exits.
/// - Connectors stand below the head or below leaves, one per leaf. Where a pin stands in the
///   middle, where several stand at one point or touch without a wire, segments without length
///   carry them. A lone pin without any wire makes no sub-net; its net names it all the same.
/// - A sub-net with exactly one start of flow has its head there, so that every segment leads from
///   its first end to its second away from the start, and names its start segment: the first one,
///   with its first end at the start. Other sub-nets name none.
/// - Pieces of a net on one sheet that only the name joins are sub-nets of their own.
/// - Ids of records: the design's id prefix; for what stands on a sheet the sheet's id; then the
///   record's own id. A net's id is its name; a sub-net's the net's name and the smallest id of its
///   wires. Parts of a split wire beyond the first add the point at which they begin. So an edit
///   elsewhere changes no id. Shapes and texts without an id of their own have none.
///
/// `lock` is given to the pictures, so that copies of them can be transformed under it; null is
/// allowed. Nodes of trees have no lock: they never change. Upward answers of records (sheet,
/// design, net, block) are null once the design is gone; whoever keeps records keeps their design.
///
/// Touches no lock and nothing shared but symbols, so designs may be built on several threads.
/// Cost: n log n in wires, pins and points, plus the nodes made.
BuildResult Build(DesignSource const& source, du::SmartPtr<zvk::ReadWriteLock> const& lock);

}  // namespace figkernel
