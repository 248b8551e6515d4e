// Nets of the embedded kernel, their pieces on sheets and the nodes of those.
#pragma once

#include <vector>

#include <figk/ConnectorInstanceNode.h>
#include <figk/HighwayNode.h>
#include <figk/Net.h>
#include <figk/NetSegment.h>
#include <figk/SubNet.h>

#include "HighwayRecords.h"
#include "ItemRecords.h"
#include "RecordBase.h"

namespace figkernel {

class NetRecord;
class PortRecord;
class SubNetRecord;

class NetSegmentRecord : public Record<figk::NetSegment> {
public:
    NetSegmentRecord(SubNetRecord* owner, dg::DPoint2D const& from, dg::DPoint2D const& to);

    figk::SmartPtr<figk::SubNet> GetSubNet() const override;
    figk::SmartPtr<figk::Design> GetDesign() const override;
    void GetEnds(dg::DPoint2D& first, dg::DPoint2D& last) const override {
        first = start;
        last = end;
    }
    figk::SmartPtr<figk::Group> GetTextLabelContainerGroup() const override { return labels; }

    void SetLabels(du::SmartPtr<figk::Group> const& group) { labels = group; }
    /// The sub-net is going.
    void Forget() { subNet = nullptr; }

private:
    SubNetRecord* subNet;
    dg::DPoint2D start;
    dg::DPoint2D end;
    du::SmartPtr<figk::Group> labels;
};

class ConnectorNodeRecord : public figk::ConnectorInstanceNode {
public:
    explicit ConnectorNodeRecord(du::SmartPtr<ConnectorRecord> const& target)
        : ConnectorInstanceNode(nullptr, nullptr), connector(target) {}

    figk::SmartPtr<figk::ConnectorInstance> GetConnectorInstance() const override {
        return connector;
    }

private:
    du::SmartPtr<ConnectorRecord> connector;
};

/// Where a net comes onto a highway, or leaves it. The tree that holds it keeps its net node.
class HighwayNodeRecord : public figk::HighwayNode {
public:
    explicit HighwayNodeRecord(du::SmartPtr<HighwaySegmentRecord> const& place)
        : HighwayNode(nullptr, nullptr), segment(place) {}

    figk::SmartPtr<figk::HighwaySegment> GetHighwaySegment() const override { return segment; }
    figk::SmartPtr<figk::SubHighway> GetSubHighway() const override {
        return segment->GetSubHighway();
    }
    figk::SmartPtr<figk::ConnectionNode> GetNetConnectionNode() const override { return netNode; }

    void SetNetConnectionNode(du::SmartPtr<figk::ConnectionNode> const& node) { netNode = node; }

private:
    du::SmartPtr<HighwaySegmentRecord> segment;
    du::SmartPtr<figk::ConnectionNode> netNode;
};

class SubNetRecord : public Record<figk::SubNet> {
public:
    SubNetRecord(du::SmartPtr<SheetLink> const& sheet, NetRecord* owner)
        : link(sheet), net(owner) {}
    ~SubNetRecord() override;

    figk::SmartPtr<figk::Net> GetNet() const override;
    /// That of the net.
    std::string const& GetName() const override;
    figk::SmartPtr<figk::Sheet> GetSheet() const override { return link->Get(); }
    figk::SmartPtr<figk::Design> GetDesign() const override { return link->GetDesign(); }
    figk::SmartPtr<figk::ConnectionNode> GetHead() const override { return head; }
    figk::SmartPtr<figk::NetSegment> GetStartSegment() const override { return startSegment; }

    void SetHead(du::SmartPtr<figk::ConnectionNode> const& node) { head = node; }
    void SetStartSegment(du::SmartPtr<figk::NetSegment> const& segment) { startSegment = segment; }
    /// The net is going.
    void Forget() { net = nullptr; }

private:
    du::SmartPtr<SheetLink> link;
    NetRecord* net;
    du::SmartPtr<figk::ConnectionNode> head;
    du::SmartPtr<figk::NetSegment> startSegment;
};

class NetRecord : public NamedRecord<figk::Net> {
public:
    explicit NetRecord(du::SmartPtr<DesignLink> const& design) : link(design) {}
    ~NetRecord() override;

    figk::SmartPtr<figk::Design> GetDesign() const override { return link->Get(); }
    std::vector<figk::SmartPtr<figk::SubNet>> GetSubNets() const override {
        return {subNets.begin(), subNets.end()};
    }
    std::vector<figk::SmartPtr<figk::Port>> GetPorts() const override;
    std::vector<figk::SmartPtr<figk::ConnectorInstance>> GetConnectorInstances() const override {
        return {connectors.begin(), connectors.end()};
    }

    void Add(du::SmartPtr<SubNetRecord> const& piece) { subNets.push_back(piece); }
    void Add(du::SmartPtr<PortRecord> const& port);
    void Add(du::SmartPtr<ConnectorRecord> const& connector) { connectors.push_back(connector); }

private:
    du::SmartPtr<DesignLink> link;
    std::vector<du::SmartPtr<SubNetRecord>> subNets;
    std::vector<du::SmartPtr<PortRecord>> ports;
    std::vector<du::SmartPtr<ConnectorRecord>> connectors;
};

}  // namespace figkernel
