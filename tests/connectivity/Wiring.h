// Figures wired by hand: nets, buses and taps in a line each.
#pragma once

#include <figk/HighwayNode.h>
#include <figk/HighwaySegment.h>
#include <figk/NetSegment.h>
#include <figk/PortNode.h>
#include <figk/SchematicKernel.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/ConnectorInstanceNode.h>
#include <figrep/Figure.h>
#include <figrep/HighwayNode.h>
#include <figrep/HighwaySegment.h>
#include <figrep/JunctionNode.h>
#include <figrep/NetSegment.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/UnroutedConnection.h>

#include <map>
#include <string>
#include <vector>

namespace figrep::testing {

using NodeList = std::vector<SmartPtr<ConnectionNode>>;

/// A figure without content, and short ways to put wires into it.
class Wiring {
public:
    SmartPtr<zvk::ReadWriteLock> const& Lock() const {
        return figk::SchematicKernel::GetKernelLock();
    }

    SmartPtr<SubNet> Net(std::string const& name = "N") { return new SubNet(figure, Lock(), name); }

    SmartPtr<SubHighway> Bus(std::string const& name = "B") {
        return new SubHighway(figure, Lock(), name);
    }

    /// A wire below `predecessor`; without one it becomes the sub-net's head.
    SmartPtr<NetSegment> Wire(SmartPtr<SubNet> const& net, DPoint2D const& from, DPoint2D const& to,
                              SmartPtr<ConnectionNode> const& predecessor = nullptr) {
        SmartPtr<NetSegment> const wire = FreeWire(net, from, to, predecessor);
        if (!predecessor) net->SetHead(wire);
        return wire;
    }

    /// A wire that becomes nobody's head.
    SmartPtr<NetSegment> FreeWire(SmartPtr<SubNet> const& net, DPoint2D const& from,
                                  DPoint2D const& to,
                                  SmartPtr<ConnectionNode> const& predecessor = nullptr) {
        return new NetSegment(net, Lock(), from, to, predecessor);
    }

    SmartPtr<HighwaySegment> BusWire(SmartPtr<SubHighway> const& bus, DPoint2D const& from,
                                     DPoint2D const& to,
                                     SmartPtr<ConnectionNode> const& predecessor = nullptr) {
        SmartPtr<HighwaySegment> const wire =
            new HighwaySegment(bus, Lock(), from, to, predecessor);
        if (!predecessor) bus->SetHead(wire);
        return wire;
    }

    /// A tap below a bus segment, tied to a wire of a net.
    SmartPtr<HighwayNode> Tap(SmartPtr<HighwaySegment> const& on,
                              SmartPtr<ConnectionNode> const& netNode) {
        on->GetSubHighway()->Add(netNode->GetSubNet());
        return new HighwayNode(Lock(), on, netNode);
    }

    SmartPtr<JunctionNode> Junction(SmartPtr<ConnectionNode> const& predecessor = nullptr) {
        return new JunctionNode(Lock(), predecessor);
    }

    SmartPtr<PortNode> NetPort(SmartPtr<Port> const& port, SmartPtr<SubNet> const& net,
                               DPoint2D const& at,
                               SmartPtr<ConnectionNode> const& predecessor = nullptr) {
        return new PortNode(port, net, Lock(), at, predecessor);
    }

    SmartPtr<PortNode> BusPort(SmartPtr<Port> const& port, SmartPtr<SubHighway> const& bus,
                               DPoint2D const& at,
                               SmartPtr<ConnectionNode> const& predecessor = nullptr) {
        return new PortNode(port, bus, Lock(), at, predecessor);
    }

    SmartPtr<Figure> figure = new Figure();
};

/// The sheet of a bus: a trunk of segments with a branch at each step, and on every pair of
/// neighbouring branches one net that comes in on the first and leaves on the second.
class BusWiring : public Wiring {
public:
    explicit BusWiring(unsigned netCount) {
        bus = Bus();
        SmartPtr<HighwaySegment> above = BusWire(bus, DPoint2D(0, 0), DPoint2D(0, 1));
        trunk.push_back(above);
        for (unsigned i = 0; i < netCount; ++i)
            above = AddNet(i, above);
    }

    SmartPtr<SubHighway> bus;
    std::vector<SmartPtr<HighwaySegment>> trunk;
    std::vector<SmartPtr<HighwaySegment>> branches;  ///< two for each net
    std::vector<SmartPtr<SubNet>> nets;
    std::vector<SmartPtr<NetSegment>>
        entries;  ///< the wire of each net on the first branch, its head
    std::vector<SmartPtr<NetSegment>> exits;  ///< the wire of each net on the second branch

private:
    SmartPtr<HighwaySegment> AddBranch(double y, SmartPtr<HighwaySegment> const& above) {
        auto const branch = BusWire(bus, DPoint2D(0, y), DPoint2D(1, y), above);
        branches.push_back(branch);
        return branch;
    }

    SmartPtr<HighwaySegment> AddNet(unsigned i, SmartPtr<HighwaySegment> const& above) {
        double const y = 2.0 * i + 1;
        auto const net = Net("N" + std::to_string(i));
        auto const first = AddBranch(y, above);
        auto const between = BusWire(bus, DPoint2D(0, y), DPoint2D(0, y + 1), above);
        auto const second = AddBranch(y + 1, between);
        auto const below = BusWire(bus, DPoint2D(0, y + 1), DPoint2D(0, y + 2), between);
        auto const entry = Wire(net, DPoint2D(1, y), DPoint2D(5, y));
        auto const exit = FreeWire(net, DPoint2D(1, y + 1), DPoint2D(5, y + 1));
        Tap(first, entry);
        Tap(second, exit);
        for (auto const& segment : {first, between, second})
            segment->Add(net);
        trunk.push_back(between);
        trunk.push_back(below);
        nets.push_back(net);
        entries.push_back(entry);
        exits.push_back(exit);
        return below;
    }
};

/// The nodes of a walk from `head`, junctions left out.
inline NodeList NodesOf(SmartPtr<ConnectionNode> const& head) {
    NodeList nodes;
    if (!head) return nodes;
    for (auto it = head->Begin(); it != head->End(); ++it) {
        auto const node = du::DynamicCast<ConnectionNode>(*it);
        if (node && !node->IsJunction()) nodes.push_back(node);
    }
    return nodes;
}

inline bool Holds(NodeList const& nodes, SmartPtr<ConnectionNode> const& node) {
    return std::find(nodes.begin(), nodes.end(), node) != nodes.end();
}

/// The links of a node that isn't packing: what must come back after pivoting there and back.
struct Links {
    ConnectionNode* predecessor = nullptr;
    std::vector<figk::BaseConnectionNode*> successors;

    bool operator==(Links const&) const = default;
};

/// The links of all nodes of a tree, whatever its visit check says. Junctions are looked through.
inline std::map<figk::BaseConnectionNode*, Links> LinksOf(SmartPtr<ConnectionNode> const& head) {
    std::map<figk::BaseConnectionNode*, Links> dump;
    std::vector<SmartPtr<figk::BaseConnectionNode>> pending{head};
    while (!pending.empty()) {
        auto const node = pending.back();
        pending.pop_back();
        Links links;
        links.predecessor = dynamic_cast<ConnectionNode*>(node->GetNonJunctionPredecessor().Get());
        std::vector<SmartPtr<figk::BaseConnectionNode>> successors;
        node->GetNonJunctionSuccessors(successors);
        for (auto const& successor : successors) {
            links.successors.push_back(successor.Get());
            pending.push_back(successor);
        }
        dump[node.Get()] = links;
    }
    return dump;
}

}  // namespace figrep::testing
