// Ports of the embedded kernel and the places where they are drawn.
#pragma once

#include <vector>

#include <figk/Port.h>
#include <figkernel/DesignSource.h>
#include <figkernel/SheetPortNode.h>

#include "RecordBase.h"

namespace figkernel {

class HighwayRecord;
class NetRecord;
class PortRecord;
class SubHighwayRecord;
class SubNetRecord;

/// Stands in the tree of a sub-net or of a sub-highway.
class PortNodeRecord : public Record<SheetPortNode> {
public:
    PortNodeRecord(du::SmartPtr<SheetLink> const& sheet, PortRecord* owner,
                   PortNodeSource const& source, dg::DPoint2D const& place);

    figk::SmartPtr<figk::Port> GetPort() const override;
    /// That of the port.
    std::string const& GetName() const override;
    dg::DPoint2D const& GetPosition() const override { return position; }
    figk::SmartPtr<figk::Sheet> GetSheet() const override { return link->Get(); }
    figk::SmartPtr<figk::Design> GetDesign() const override { return link->GetDesign(); }
    figk::SmartPtr<figk::Sheet> GetSheetInside() const override;
    bool IsOnSubNet(figk::SmartPtr<figk::SubNet> const& subNet) const override;
    figk::SmartPtr<figk::Group> GetTextLabelContainerGroup() const override { return nullptr; }

    void SetSubNet(SubNetRecord* owner) { subNet = owner; }
    void SetSubHighway(SubHighwayRecord* owner) { subHighway = owner; }
    /// The tree's owner is going.
    void Forget();
    /// The port is going.
    void ForgetPort() { port = nullptr; }

private:
    du::SmartPtr<SheetLink> link;
    PortRecord* port;
    SubNetRecord* subNet = nullptr;
    SubHighwayRecord* subHighway = nullptr;
    SourceIndex inside;  // in the design's sheets
    dg::DPoint2D position;
};

class PortRecord : public NamedRecord<figk::Port> {
public:
    PortRecord(du::SmartPtr<DesignLink> const& design, NetRecord* onNet, HighwayRecord* onHighway)
        : link(design), net(onNet), highway(onHighway), isOnHighway(onHighway != nullptr) {}
    ~PortRecord() override;

    figk::SmartPtr<figk::Design> GetDesign() const override { return link->Get(); }
    bool OnHighwayNotNet() const override { return isOnHighway; }
    figk::SmartPtr<figk::Net> GetNet() const override;
    figk::SmartPtr<figk::Highway> GetHighway() const override;
    std::vector<figk::SmartPtr<figk::PortNode>> GetPortNodes() const override {
        return {nodes.begin(), nodes.end()};
    }

    void Add(du::SmartPtr<PortNodeRecord> const& node) { nodes.push_back(node); }
    /// The net or highway is going.
    void Forget() {
        net = nullptr;
        highway = nullptr;
    }

private:
    du::SmartPtr<DesignLink> link;
    NetRecord* net;
    HighwayRecord* highway;
    bool isOnHighway;
    std::vector<du::SmartPtr<PortNodeRecord>> nodes;
};

}  // namespace figkernel
