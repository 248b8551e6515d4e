// A handful of records with the least that they need, for tests of the contract itself.
#pragma once

#include <figk/BlockInstance.h>
#include <figk/CableInstance.h>
#include <figk/ConnectorInstance.h>
#include <figk/ConnectorInstanceNode.h>
#include <figk/Design.h>
#include <figk/Format.h>
#include <figk/GenericGraphic.h>
#include <figk/Highway.h>
#include <figk/HighwayNode.h>
#include <figk/HighwaySegment.h>
#include <figk/Miscellaneous.h>
#include <figk/Net.h>
#include <figk/NetSegment.h>
#include <figk/Port.h>
#include <figk/PortNode.h>
#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figk/SubHighway.h>
#include <figk/SubNet.h>
#include <figk/TableInstance.h>
#include <figk/TextGraphic.h>
#include <figk/TitleBlock.h>
#include <zvk/ReadWriteLock.h>

namespace figktest {

using du::SmartPtr;
using du::Symbol;

/// Gives a record an id, which is also its name, and a group of labels.
template <typename Record>
class Named : public Record {
public:
    template <typename... Arguments>
    explicit Named(char const* id, Arguments&&... arguments)
        : Record(std::forward<Arguments>(arguments)...), id_(id), name_(id) {}

    Symbol const& GetId() const override { return id_; }
    std::string const& GetName() const override { return name_; }

private:
    Symbol id_;
    std::string name_;
};

template <typename Record>
class Labelled : public Named<Record> {
public:
    using Named<Record>::Named;

    SmartPtr<figk::Group> GetTextLabelContainerGroup() const override { return labels; }

    SmartPtr<figk::Group> labels{new figk::Group()};
};

class TestGraphic : public Named<figk::GenericGraphic> {
public:
    using Named::Named;
};

class TestText : public Named<figk::TextGraphic> {
public:
    using Named::Named;
    Symbol GetText() const override { return GetId(); }
};

class TestConnector : public Labelled<figk::ConnectorInstance> {
public:
    using Labelled::Labelled;
    SmartPtr<figk::BaseBlockInstance> GetBlockInstance() const override { return nullptr; }
    dg::DPoint2D const& GetPosition() const override { return position; }
    bool GetHidden() const override { return false; }
    unsigned int GetNumConnections() const override { return 0; }

    dg::DPoint2D position;
};

template <typename Record>
class TestBlockLike : public Labelled<Record> {
public:
    using Labelled<Record>::Labelled;
    SmartPtr<figk::Sheet> GetSheet() const override { return nullptr; }
    std::vector<SmartPtr<figk::BaseBlockInstance>> GetChildren() const override { return {}; }
    bool IsChild() const override { return false; }
    bool IsParent() const override { return false; }
    std::vector<SmartPtr<figk::ConnectorInstance>> GetConnectorInstances() const override {
        return connectors;
    }

    std::vector<SmartPtr<figk::ConnectorInstance>> connectors;
};

class TestBlock : public TestBlockLike<figk::BlockInstance> {
public:
    using TestBlockLike::TestBlockLike;
};

class TestTable : public TestBlockLike<figk::TableInstance> {
public:
    using TestBlockLike::TestBlockLike;
};

class TestCable : public TestBlockLike<figk::CableInstance> {
public:
    using TestBlockLike::TestBlockLike;
    std::vector<SmartPtr<figk::Net>> GetNets() const override { return {}; }
};

class TestMiscellaneous : public Labelled<figk::Miscellaneous> {
public:
    using Labelled::Labelled;
};

class TestNetSegment : public Labelled<figk::NetSegment> {
public:
    TestNetSegment(char const* id, SmartPtr<figk::BaseConnectionNode> const& predecessor)
        : Labelled(id, SmartPtr<zvk::ReadWriteLock>(), predecessor) {}
    SmartPtr<figk::SubNet> GetSubNet() const override { return nullptr; }
    void GetEnds(dg::DPoint2D& start, dg::DPoint2D& end) const override {
        start = {3, 1};
        end = {0, 2};
    }
};

class TestHighwaySegment : public Labelled<figk::HighwaySegment> {
public:
    TestHighwaySegment(char const* id, SmartPtr<figk::BaseConnectionNode> const& predecessor)
        : Labelled(id, SmartPtr<zvk::ReadWriteLock>(), predecessor) {}
    SmartPtr<figk::SubHighway> GetSubHighway() const override { return nullptr; }
    void GetEnds(dg::DPoint2D&, dg::DPoint2D&) const override {}
};

class TestHighwayNode : public figk::HighwayNode {
public:
    explicit TestHighwayNode(SmartPtr<figk::BaseConnectionNode> const& predecessor)
        : HighwayNode(nullptr, predecessor) {}
    SmartPtr<figk::HighwaySegment> GetHighwaySegment() const override { return nullptr; }
    SmartPtr<figk::SubHighway> GetSubHighway() const override { return nullptr; }
    SmartPtr<figk::ConnectionNode> GetNetConnectionNode() const override { return nullptr; }
};

class TestConnectorNode : public figk::ConnectorInstanceNode {
public:
    explicit TestConnectorNode(SmartPtr<figk::BaseConnectionNode> const& predecessor)
        : ConnectorInstanceNode(nullptr, predecessor) {}
    SmartPtr<figk::ConnectorInstance> GetConnectorInstance() const override { return nullptr; }
};

class TestPortNode : public Labelled<figk::PortNode> {
public:
    TestPortNode(char const* id, SmartPtr<figk::BaseConnectionNode> const& predecessor)
        : Labelled(id, SmartPtr<zvk::ReadWriteLock>(), predecessor) {}
    SmartPtr<figk::Port> GetPort() const override { return nullptr; }
    dg::DPoint2D const& GetPosition() const override { return position; }
    SmartPtr<figk::Sheet> GetSheet() const override { return nullptr; }
    bool IsOnSubNet(SmartPtr<figk::SubNet> const&) const override { return false; }

    dg::DPoint2D position;
};

/// Owns its tree and cuts it.
class TestSubNet : public Named<figk::SubNet> {
public:
    using Named::Named;
    ~TestSubNet() override {
        if (head) head->CutTree();
    }
    SmartPtr<figk::Net> GetNet() const override { return nullptr; }
    SmartPtr<figk::Sheet> GetSheet() const override { return nullptr; }
    SmartPtr<figk::ConnectionNode> GetHead() const override { return head; }
    SmartPtr<figk::NetSegment> GetStartSegment() const override { return nullptr; }

    SmartPtr<figk::ConnectionNode> head;
};

class TestSubHighway : public Named<figk::SubHighway> {
public:
    using Named::Named;
    ~TestSubHighway() override {
        if (head) head->CutTree();
    }
    SmartPtr<figk::Highway> GetHighway() const override { return nullptr; }
    SmartPtr<figk::Sheet> GetSheet() const override { return nullptr; }
    SmartPtr<figk::ConnectionNode> GetHead() const override { return head; }

    SmartPtr<figk::ConnectionNode> head;
};

class TestFormat : public Labelled<figk::Format> {
public:
    using Labelled::Labelled;
    double GetWidth() const override { return 297; }
    double GetHeight() const override { return 210; }
    void CalculateGridLocation(dg::DPoint2D const&, Symbol&, Symbol&) const override {}
};

class TestSheet : public Labelled<figk::Sheet> {
public:
    using Labelled::Labelled;
    SmartPtr<figk::Design> GetDesign() const override { return SmartPtr<figk::Design>(design); }
    std::vector<SmartPtr<figk::BlockInstance>> GetBlockInstances() const override { return blocks; }
    std::vector<SmartPtr<figk::CableInstance>> GetCableInstances() const override { return cables; }
    std::vector<SmartPtr<figk::TableInstance>> GetTableInstances() const override { return tables; }
    std::vector<SmartPtr<figk::Miscellaneous>> GetMiscellaneous() const override { return others; }
    std::vector<SmartPtr<figk::SubHighway>> GetSubHighways() const override { return highways; }
    std::vector<SmartPtr<figk::SubNet>> GetSubNets() const override { return nets; }
    SmartPtr<figk::Format> GetFormat() const override { return format; }
    SmartPtr<figk::TitleBlock> GetTitleBlock() const override { return nullptr; }
    SmartPtr<figk::SubNet> GetSubNetByID(Symbol const&) const override { return nullptr; }

    figk::Design* design = nullptr;  // the design holds its sheets
    std::vector<SmartPtr<figk::BlockInstance>> blocks;
    std::vector<SmartPtr<figk::CableInstance>> cables;
    std::vector<SmartPtr<figk::TableInstance>> tables;
    std::vector<SmartPtr<figk::Miscellaneous>> others;
    std::vector<SmartPtr<figk::SubHighway>> highways;
    std::vector<SmartPtr<figk::SubNet>> nets;
    SmartPtr<figk::Format> format;
};

class TestDesign : public Named<figk::Design> {
public:
    using Named::Named;
    Symbol const& GetIdPrefix() const override { return GetId(); }
    std::vector<SmartPtr<figk::Sheet>> GetSheets() const override { return sheets; }
    std::vector<SmartPtr<figk::Net>> GetNets() const override { return {}; }
    std::vector<SmartPtr<figk::Highway>> GetHighways() const override { return {}; }
    std::vector<SmartPtr<figk::Port>> GetPorts() const override { return {}; }

    SmartPtr<TestSheet> Add(char const* id) {
        SmartPtr<TestSheet> sheet(new TestSheet(id));
        sheet->design = this;
        sheets.push_back(sheet);
        return sheet;
    }

    std::vector<SmartPtr<figk::Sheet>> sheets;
};

class TestKernel : public figk::SchematicKernel {
public:
    void Accept(figk::AbstractVisitor& visitor) override;

    std::vector<SmartPtr<TestDesign>> designs;
};

}  // namespace figktest
