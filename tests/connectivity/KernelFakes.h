// Kernel records with just what ties wires together, free to be as odd as a test wants.
#pragma once

#include <figk/BlockInstance.h>
#include <figk/CableInstance.h>
#include <figk/ConnectorInstance.h>
#include <figk/ConnectorInstanceNode.h>
#include <figk/Format.h>
#include <figk/Highway.h>
#include <figk/HighwayNode.h>
#include <figk/HighwaySegment.h>
#include <figk/Miscellaneous.h>
#include <figk/Net.h>
#include <figk/NetSegment.h>
#include <figk/Port.h>
#include <figk/PortNode.h>
#include <figk/Sheet.h>
#include <figk/SubHighway.h>
#include <figk/SubNet.h>
#include <figk/TableInstance.h>
#include <figk/TitleBlock.h>
#include <figk/Zv2dGraphics.h>

#include <string>
#include <vector>

namespace figrep::testing {

using dg::DBox2D;
using dg::DPoint2D;
using du::SmartPtr;
using du::Symbol;

/// A record with an id, a name and perhaps a picture.
template <class Record>
class Named : public Record {
public:
    template <class... Args>
    explicit Named(std::string const& id, Args&&... args)
        : Record(std::forward<Args>(args)...), id_(id) {}

    Symbol const& GetId() const override { return id_; }
    std::string const& GetName() const override { return name; }
    SmartPtr<figk::Zv2dGraphics> GetZv2dGraphics() const override { return picture; }

    std::string name;
    SmartPtr<figk::Zv2dGraphics> picture;

private:
    Symbol id_;
};

/// The same for records that carry labels; there are none.
template <class Record>
class Unlabelled : public Named<Record> {
public:
    using Named<Record>::Named;
    SmartPtr<figk::Group> GetTextLabelContainerGroup() const override { return {}; }
};

class FakeSheet : public Unlabelled<figk::Sheet> {
public:
    using Unlabelled<figk::Sheet>::Unlabelled;
    std::vector<SmartPtr<figk::BlockInstance>> GetBlockInstances() const override { return {}; }
    std::vector<SmartPtr<figk::CableInstance>> GetCableInstances() const override { return {}; }
    std::vector<SmartPtr<figk::TableInstance>> GetTableInstances() const override { return {}; }
    std::vector<SmartPtr<figk::Miscellaneous>> GetMiscellaneous() const override { return {}; }
    std::vector<SmartPtr<figk::SubHighway>> GetSubHighways() const override { return {}; }
    std::vector<SmartPtr<figk::SubNet>> GetSubNets() const override { return {}; }
    SmartPtr<figk::Format> GetFormat() const override { return {}; }
    SmartPtr<figk::TitleBlock> GetTitleBlock() const override { return {}; }
    SmartPtr<figk::SubNet> GetSubNetByID(Symbol const&) const override { return {}; }
};

class FakeNet : public Named<figk::Net> {
public:
    using Named<figk::Net>::Named;
    std::vector<SmartPtr<figk::SubNet>> GetSubNets() const override { return subNets; }
    std::vector<SmartPtr<figk::Port>> GetPorts() const override { return {}; }
    std::vector<SmartPtr<figk::ConnectorInstance>> GetConnectorInstances() const override {
        return {};
    }
    std::vector<SmartPtr<figk::SubNet>> subNets;
};

class FakeSubNet : public Named<figk::SubNet> {
public:
    using Named<figk::SubNet>::Named;
    SmartPtr<figk::Net> GetNet() const override { return SmartPtr<figk::Net>(net); }
    SmartPtr<figk::Sheet> GetSheet() const override { return sheet; }
    SmartPtr<figk::ConnectionNode> GetHead() const override { return {}; }
    SmartPtr<figk::NetSegment> GetStartSegment() const override { return {}; }
    figk::Net* net = nullptr;
    SmartPtr<figk::Sheet> sheet;
};

class FakeHighway : public Named<figk::Highway> {
public:
    using Named<figk::Highway>::Named;
    std::vector<SmartPtr<figk::SubHighway>> GetSubHighways() const override { return {}; }
    std::vector<SmartPtr<figk::Port>> GetPorts() const override { return {}; }
};

class FakeSubHighway : public Named<figk::SubHighway> {
public:
    using Named<figk::SubHighway>::Named;
    SmartPtr<figk::Highway> GetHighway() const override { return {}; }
    SmartPtr<figk::Sheet> GetSheet() const override { return {}; }
    SmartPtr<figk::ConnectionNode> GetHead() const override { return {}; }
};

class FakeHighwaySegment : public Unlabelled<figk::HighwaySegment> {
public:
    FakeHighwaySegment(SmartPtr<figk::SubHighway> const& owner, DPoint2D const& from,
                       DPoint2D const& to)
        : Unlabelled("", nullptr, nullptr), subHighway(owner), start(from), end(to) {}
    void GetEnds(DPoint2D& from, DPoint2D& to) const override {
        from = start;
        to = end;
    }
    SmartPtr<figk::SubHighway> GetSubHighway() const override { return subHighway; }
    SmartPtr<figk::SubHighway> subHighway;
    DPoint2D start;
    DPoint2D end;
};

class FakeNetSegment : public Unlabelled<figk::NetSegment> {
public:
    FakeNetSegment(DPoint2D const& from, DPoint2D const& to,
                   SmartPtr<figk::BaseConnectionNode> const& predecessor = nullptr)
        : Unlabelled("", nullptr, predecessor), start(from), end(to) {}
    void GetEnds(DPoint2D& from, DPoint2D& to) const override {
        from = start;
        to = end;
    }
    SmartPtr<figk::SubNet> GetSubNet() const override { return {}; }
    DPoint2D start;
    DPoint2D end;
};

class FakeHighwayNode : public figk::HighwayNode {
public:
    explicit FakeHighwayNode(SmartPtr<figk::HighwaySegment> const& on)
        : figk::HighwayNode(nullptr, nullptr), segment(on) {}
    SmartPtr<figk::HighwaySegment> GetHighwaySegment() const override { return segment; }
    SmartPtr<figk::SubHighway> GetSubHighway() const override { return {}; }
    SmartPtr<figk::ConnectionNode> GetNetConnectionNode() const override { return {}; }
    SmartPtr<figk::HighwaySegment> segment;
};

class FakePort : public Named<figk::Port> {
public:
    using Named<figk::Port>::Named;
    bool OnHighwayNotNet() const override { return highway != nullptr; }
    SmartPtr<figk::Net> GetNet() const override { return net; }
    SmartPtr<figk::Highway> GetHighway() const override { return highway; }
    std::vector<SmartPtr<figk::PortNode>> GetPortNodes() const override { return {}; }
    SmartPtr<figk::Net> net;
    SmartPtr<figk::Highway> highway;
};

class FakePortNode : public Unlabelled<figk::PortNode> {
public:
    explicit FakePortNode(DPoint2D const& at) : Unlabelled("", nullptr, nullptr), position(at) {}
    SmartPtr<figk::Port> GetPort() const override { return {}; }
    DPoint2D const& GetPosition() const override { return position; }
    SmartPtr<figk::Sheet> GetSheet() const override { return {}; }
    bool IsOnSubNet(SmartPtr<figk::SubNet> const& subNet) const override {
        return subNet && subNet == reachedBy;
    }
    DPoint2D position;
    SmartPtr<figk::SubNet> reachedBy;
};

class FakeConnector : public Unlabelled<figk::ConnectorInstance> {
public:
    explicit FakeConnector(std::string const& number, DPoint2D const& at = {})
        : Unlabelled("pin" + number), position(at) {
        name = number;
    }
    SmartPtr<figk::BaseBlockInstance> GetBlockInstance() const override { return {}; }
    DPoint2D const& GetPosition() const override { return position; }
    bool GetHidden() const override { return hidden; }
    unsigned int GetNumConnections() const override { return connections; }
    DPoint2D position;
    bool hidden = false;
    unsigned int connections = 1;
};

class FakeConnectorNode : public figk::ConnectorInstanceNode {
public:
    FakeConnectorNode(SmartPtr<figk::ConnectorInstance> const& of,
                      SmartPtr<figk::BaseConnectionNode> const& predecessor)
        : figk::ConnectorInstanceNode(nullptr, predecessor), connector(of) {}
    SmartPtr<figk::ConnectorInstance> GetConnectorInstance() const override { return connector; }
    SmartPtr<figk::ConnectorInstance> connector;
};

/// A block, a cable or a table.
template <class Record>
class FakeBlockLike : public Unlabelled<Record> {
public:
    using Unlabelled<Record>::Unlabelled;
    SmartPtr<figk::Sheet> GetSheet() const override { return sheet; }
    std::vector<SmartPtr<figk::BaseBlockInstance>> GetChildren() const override { return children; }
    bool IsChild() const override { return false; }
    bool IsParent() const override { return !children.empty(); }
    std::vector<SmartPtr<figk::ConnectorInstance>> GetConnectorInstances() const override {
        return {};
    }
    SmartPtr<figk::Sheet> sheet;
    std::vector<SmartPtr<figk::BaseBlockInstance>> children;
};

using FakeBlock = FakeBlockLike<figk::BlockInstance>;
using FakeTable = FakeBlockLike<figk::TableInstance>;

class FakeCable : public FakeBlockLike<figk::CableInstance> {
public:
    using FakeBlockLike<figk::CableInstance>::FakeBlockLike;
    std::vector<SmartPtr<figk::Net>> GetNets() const override { return nets; }
    std::vector<SmartPtr<figk::Net>> nets;
};

class FakeMiscellaneous : public Unlabelled<figk::Miscellaneous> {
public:
    using Unlabelled<figk::Miscellaneous>::Unlabelled;
};

/// The picture of a box.
inline SmartPtr<figk::Zv2dGraphics> BoxPicture(DBox2D const& box) {
    return new figk::Zv2dGraphics(nullptr, figk::Zv2dGraphics::CreateBoxInstance(box));
}

}  // namespace figrep::testing
