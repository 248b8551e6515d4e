// Carries the trees of a kernel sheet's wires over to a figure.
#pragma once

#include <figrep/MapGroupContent.h>

#include <unordered_map>

namespace figrep {

/// Keeps which figure node stands for which kernel node of one tree, links figure nodes as their
/// kernel nodes are linked, and makes the taps where a net enters and leaves highways. What
/// `FigureSheetDelta` and `FigureSubNetDelta` have in common.
class MapWireContent : public MapGroupContent {
public:
    MapWireContent();
    MapWireContent(MapWireContent const&);
    MapWireContent& operator=(MapWireContent const&);
    ~MapWireContent() override;

protected:
    /// The figure's sub-highway that stands for a kernel sub-highway, or null.
    virtual SmartPtr<SubHighway> GetFigureSubHighway(
        SmartPtr<figk::SubHighway> const& record) const = 0;
    /// Hangs the node below the figure node of its kernel predecessor, or makes it a tree's head.
    virtual void ConnectToPredecessor(SmartPtr<figk::ConnectionNode> const& kernelNode,
                                      SmartPtr<ConnectionNode> const& figureNode) = 0;
    /// A tap that the sub-net of `netNode` keeps; may be null.
    virtual SmartPtr<HighwayNode> CreateHighwayNode(SmartPtr<figk::HighwayNode> const& record,
                                                    SmartPtr<SubHighway> const& subHighway,
                                                    SmartPtr<ConnectionNode> const& netNode);

    /// Starts the tree of another sub-net or sub-highway.
    void StartTree();
    /// Forgets all nodes.
    void ForgetTree();
    /// Pairs two nodes unless the kernel node is paired already.
    void MapNodes(SmartPtr<figk::ConnectionNode> const& kernelNode,
                  SmartPtr<ConnectionNode> const& figureNode);
    /// The figure node that stands for a kernel node, or null.
    SmartPtr<ConnectionNode> GetFigureNode(SmartPtr<figk::ConnectionNode> const& node) const;
    /// The tap by which the current sub-net enters a highway, or null.
    SmartPtr<HighwayNode> GetHighwayEntryNode(SmartPtr<figk::SubHighway> const& record) const;

    /// Links a node that has been mapped: to its predecessor, or by a tap of its own to the highway
    /// out of which the net comes here.
    void Connect(SmartPtr<figk::ConnectionNode> const& kernelNode,
                 SmartPtr<ConnectionNode> const& figureNode);
    /// Makes the tap where the current sub-net enters a highway, the first time for each highway.
    void EnterHighway(SmartPtr<figk::HighwayNode> const& record);

private:
    void HandleHighwayExitNode(SmartPtr<figk::HighwayNode> const& kernelNode,
                               SmartPtr<ConnectionNode> const& figureNode);

    std::unordered_map<SmartPtr<figk::ConnectionNode>, SmartPtr<ConnectionNode>> nodeMap_;
    std::unordered_map<SmartPtr<figk::SubHighway>, SmartPtr<HighwayNode>> highwayEntryMap_;
};

}  // namespace figrep
