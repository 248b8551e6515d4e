// The breaks in the wires of one sub-net.
#pragma once

#include <figrep/Fwd.h>

#include <vector>

namespace figrep {

/// Makes and takes back temporary connections in one sub-net, which it walks once, when made. Made
/// and used under the write lock, while nothing else changes the tree.
class BrokenConnections {
public:
    explicit BrokenConnections(SmartPtr<SubNet> const& subNet);
    ~BrokenConnections();

    /// Puts a temporary connection between the first two neighbours of which the one has an end at
    /// the static position and the other one at the end position, or takes the end of the one that
    /// is there already along.
    void Break(BrokenConnectionRecord const& record);
    /// Takes the first temporary connection between these two positions back: away when its wire
    /// closes again, else to the start position.
    void Restore(BrokenConnectionRecord const& record);

private:
    struct Pair {
        SmartPtr<ConnectionNode> upper;
        SmartPtr<ConnectionNode> lower;
    };

    bool BreakAt(Pair& pair, BrokenConnectionRecord const& record);
    void Insert(Pair& pair, BrokenConnectionRecord const& record);
    void Remove(SmartPtr<UnroutedConnection> const& connection);
    void Join(std::vector<SmartPtr<ConnectionNode>> const& nodes);
    void TieHighwayNodes(SmartPtr<ConnectionNode> const& from, SmartPtr<ConnectionNode> const& to);

    SmartPtr<SubNet> subNet_;
    /// Neighbours, junctions looked through, in the order of the walk.
    std::vector<Pair> pairs_;
    std::vector<SmartPtr<UnroutedConnection>> connections_;
};

}  // namespace figrep
