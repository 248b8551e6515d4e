// Blocks, cables, tables, connectors and miscellaneous items of the embedded kernel.
#pragma once

#include <vector>

#include <figk/BlockInstance.h>
#include <figk/CableInstance.h>
#include <figk/ConnectorInstance.h>
#include <figk/Miscellaneous.h>
#include <figk/Net.h>
#include <figk/TableInstance.h>

#include "RecordBase.h"

namespace figkernel {

class ConnectorRecord : public SheetItemRecord<figk::ConnectorInstance> {
public:
    ConnectorRecord(du::SmartPtr<SheetLink> const& sheet, dg::DPoint2D const& place, bool isHidden)
        : SheetItemRecord(sheet), position(place), hidden(isHidden) {}

    figk::SmartPtr<figk::BaseBlockInstance> GetBlockInstance() const override {
        return du::Upward<figk::BaseBlockInstance>(block);
    }
    dg::DPoint2D const& GetPosition() const override { return position; }
    bool GetHidden() const override { return hidden; }
    unsigned int GetNumConnections() const override { return connections; }

    /// The block clears this in its destructor.
    void SetBlock(figk::BaseBlockInstance* owner) { block = owner; }
    void CountConnection() { ++connections; }

private:
    figk::BaseBlockInstance* block = nullptr;
    dg::DPoint2D position;
    unsigned int connections = 0;
    bool hidden;
};

/// What blocks, cables and tables have in common: connectors, and blocks that stand inside.
template <class Base>
class BlockRecordT : public SheetItemRecord<Base> {
public:
    ~BlockRecordT() override {
        for (auto const& connector : connectors)
            connector->SetBlock(nullptr);
    }

    figk::SmartPtr<figk::Sheet> GetSheet() const override { return this->GetLink()->Get(); }
    std::vector<figk::SmartPtr<figk::BaseBlockInstance>> GetChildren() const override {
        return children;
    }
    bool IsChild() const override { return isChild; }
    bool IsParent() const override { return !children.empty(); }
    std::vector<figk::SmartPtr<figk::ConnectorInstance>> GetConnectorInstances() const override {
        return {connectors.begin(), connectors.end()};
    }

    void AddConnector(du::SmartPtr<ConnectorRecord> const& connector) {
        connector->SetBlock(this);
        connectors.push_back(connector);
    }
    void AddChild(du::SmartPtr<figk::BaseBlockInstance> const& child) { children.push_back(child); }
    /// Before a sheet lets its blocks go, so that none holds another.
    void DropChildren() { children.clear(); }
    void SetIsChild() { isChild = true; }

protected:
    explicit BlockRecordT(du::SmartPtr<SheetLink> const& sheet) : SheetItemRecord<Base>(sheet) {}

private:
    std::vector<du::SmartPtr<ConnectorRecord>> connectors;
    std::vector<figk::SmartPtr<figk::BaseBlockInstance>> children;
    bool isChild = false;
};

class BlockRecord : public BlockRecordT<figk::BlockInstance> {
public:
    explicit BlockRecord(du::SmartPtr<SheetLink> const& sheet) : BlockRecordT(sheet) {}
};

class CableRecord : public BlockRecordT<figk::CableInstance> {
public:
    explicit CableRecord(du::SmartPtr<SheetLink> const& sheet) : BlockRecordT(sheet) {}

    std::vector<figk::SmartPtr<figk::Net>> GetNets() const override { return nets; }
    void AddNet(du::SmartPtr<figk::Net> const& net) { nets.push_back(net); }

private:
    std::vector<figk::SmartPtr<figk::Net>> nets;
};

class TableRecord : public BlockRecordT<figk::TableInstance> {
public:
    explicit TableRecord(du::SmartPtr<SheetLink> const& sheet) : BlockRecordT(sheet) {}
};

class MiscellaneousRecord : public SheetItemRecord<figk::Miscellaneous> {
public:
    explicit MiscellaneousRecord(du::SmartPtr<SheetLink> const& sheet) : SheetItemRecord(sheet) {}
};

}  // namespace figkernel
