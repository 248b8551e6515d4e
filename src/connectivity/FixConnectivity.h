// Ties the wires, highways, blocks and cables of a newly added sheet together.
#pragma once

#include <figrep/Fwd.h>
#include <figrep/KdTree.h>

#include <iosfwd>
#include <unordered_map>
#include <utility>
#include <vector>

#include "AddressMap.h"

namespace figrep {

/// Made before the items of a sheet, asked once when they stand. The items then know only their own
/// trees; `Fix` hangs taps below their highway segments, finds the segments that each net runs
/// along, hangs nets below connectors, tells cables their nets and nests blocks. Content of earlier
/// sheets and routing stay as they are.
///
/// Ownership: holds the figure while it stands, so it lives on a stack. Locking: the caller's.
class FixConnectivity {
public:
    /// `sheet` may be null: then cables take sub-nets, and blocks children, of every sheet.
    FixConnectivity(SmartPtr<Figure> const& figure, SmartPtr<figk::Sheet> const& sheet);
    virtual ~FixConnectivity();

    /// `offset` is where the origin of the sheet lies in the figure.
    void Fix(DPoint2D const& offset);

    /// Writes the nodes of a sub-net's tree with their successors.
    static void Debug(SmartPtr<SubNet> const& subNet, std::ostream& out);

private:
    using HighwayTree = KdTree<SmartPtr<HighwaySegment>>;
    using KernelToFigureConnectors = AddressMap<figk::ConnectorInstance, ConnectorInstance*>;
    using SubNetToSubNet = std::unordered_map<SmartPtr<figk::SubNet>, SmartPtr<SubNet>>;
    using Connection = std::pair<SmartPtr<ConnectorInstance>, SmartPtr<ConnectionNode>>;

    /// The segments of one sub-highway at which a sub-net stands.
    struct HighwayContacts {
        SmartPtr<SubHighway> subHighway;
        std::vector<SmartPtr<HighwaySegment>> segments;
    };

    /// A node at an end of a tree, as it stood before anything was attached.
    struct TreeEnd {
        SmartPtr<ConnectionNode> node;
        bool isHead;
        bool isLeaf;
    };

    void StoreInitialState();
    void GetAddedBlockInstances();
    void GetAddedCableInstances();
    void GetAddedSubHighways();
    void GetAddedSubNets();

    void PopulateHighwaySegmentSpatialTree(HighwayTree& tree);
    void ConnectSubNetsToSubHighways(HighwayTree& tree);
    void ConnectHighwayNodes(HighwayTree& tree, std::vector<SmartPtr<HighwayNode>> const& nodes,
                             std::vector<HighwayContacts>& highwayContacts);
    SmartPtr<HighwaySegment> FindHighwaySegment(SmartPtr<figk::HighwaySegment> const& kernelSegment,
                                                HighwayTree& tree) const;
    std::vector<SmartPtr<PortNode>> const& AcquireSubHighwayLeafPortNodes(
        SmartPtr<SubHighway> const& subHighway);
    bool PortNodeShouldBeOnSubNet(SmartPtr<PortNode> const& portNode,
                                  SmartPtr<SubNet> const& subNet) const;
    void AddLeafPortNodeContacts(SmartPtr<SubNet> const& subNet, HighwayContacts& contacts);
    void AddToSubNet(SmartPtr<SubNet> const& subNet, HighwayContacts const& contacts);
    void AddToSubNets(SmartPtr<SubNet> const& subNet,
                      std::vector<HighwayContacts> const& highwayContacts);

    void BuildKernelToFigureConnectorMap(KernelToFigureConnectors& connectors) const;
    void ConnectSubNetToBlocks(SmartPtr<SubNet> const& subNet,
                               KernelToFigureConnectors const& connectors) const;
    bool ConnectNode(TreeEnd const& end, KernelToFigureConnectors const& connectors,
                     Connection& connection) const;
    bool ConnectKernelNode(TreeEnd const& end, SmartPtr<figk::ConnectionNode> const& kernelNode,
                           KernelToFigureConnectors const& connectors,
                           Connection& connection) const;
    bool ConnectNonKernelNode(TreeEnd const& end, Connection& connection) const;

    void PopulateCables();
    void BuildSubNetToSubNetMap(SubNetToSubNet& map) const;
    void PopulateCable(CableInstance& cable, SubNetToSubNet const& map) const;
    void RebuildGroups();
    bool IsOtherSheet(SmartPtr<figk::Sheet> const& sheet) const;

    SmartPtr<Figure> figure_;
    DPoint2D offset_;
    std::size_t initialBlockInstanceCount_ = 0;
    std::size_t initialCableInstanceCount_ = 0;
    std::size_t initialSubHighwayCount_ = 0;
    std::size_t initialSubNetCount_ = 0;
    SmartPtr<figk::Sheet> sheet_;
    std::vector<SmartPtr<BaseBlockInstance>> addedBlockInstances_;
    std::vector<SmartPtr<CableInstance>> addedCableInstances_;
    std::vector<SmartPtr<SubHighway>> addedSubHighways_;
    std::vector<SmartPtr<SubNet>> addedSubNets_;
    bool hasHighwayPortNodes_ = false;
    std::unordered_map<SmartPtr<SubHighway>, std::vector<SmartPtr<PortNode>>>
        subHighwayLeafPortNodes_;
};

}  // namespace figrep
