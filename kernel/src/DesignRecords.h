// Designs and sheets of the embedded kernel: the owners of all other records.
#pragma once

#include <cstdint>
#include <vector>

#include <figk/Design.h>
#include <figk/Sheet.h>

#include "FormatRecords.h"
#include "HighwayRecords.h"
#include "ItemRecords.h"
#include "NetRecords.h"
#include "PortRecords.h"
#include "RecordBase.h"

namespace figkernel {

class SheetRecord : public NamedRecord<figk::Sheet> {
public:
    explicit SheetRecord(du::SmartPtr<DesignLink> const& design);
    ~SheetRecord() override;

    figk::SmartPtr<figk::Design> GetDesign() const override { return link->GetDesign(); }
    figk::SmartPtr<figk::Group> GetTextLabelContainerGroup() const override { return labels; }
    std::vector<figk::SmartPtr<figk::BlockInstance>> GetBlockInstances() const override {
        return {blocks.begin(), blocks.end()};
    }
    std::vector<figk::SmartPtr<figk::CableInstance>> GetCableInstances() const override {
        return {cables.begin(), cables.end()};
    }
    std::vector<figk::SmartPtr<figk::TableInstance>> GetTableInstances() const override {
        return {tables.begin(), tables.end()};
    }
    std::vector<figk::SmartPtr<figk::Miscellaneous>> GetMiscellaneous() const override {
        return {miscellaneous.begin(), miscellaneous.end()};
    }
    std::vector<figk::SmartPtr<figk::SubHighway>> GetSubHighways() const override {
        return {subHighways.begin(), subHighways.end()};
    }
    std::vector<figk::SmartPtr<figk::SubNet>> GetSubNets() const override {
        return {subNets.begin(), subNets.end()};
    }
    figk::SmartPtr<figk::Format> GetFormat() const override { return format; }
    figk::SmartPtr<figk::TitleBlock> GetTitleBlock() const override { return titleBlock; }
    figk::SmartPtr<figk::SubNet> GetSubNetByID(figk::Symbol const& id) const override;

    du::SmartPtr<SheetLink> const& GetLink() const { return link; }
    void AddSubNet(du::SmartPtr<SubNetRecord> const& subNet) { subNets.push_back(subNet); }
    /// After the last sub-net, so that they are found by id.
    void IndexSubNets();

    // Filled by the builder, before anybody else sees the sheet.
    du::SmartPtr<figk::Group> labels;
    du::SmartPtr<FormatRecord> format;
    du::SmartPtr<TitleBlockRecord> titleBlock;
    std::vector<du::SmartPtr<BlockRecord>> blocks;
    std::vector<du::SmartPtr<CableRecord>> cables;
    std::vector<du::SmartPtr<TableRecord>> tables;
    std::vector<du::SmartPtr<MiscellaneousRecord>> miscellaneous;
    std::vector<du::SmartPtr<SubHighwayRecord>> subHighways;

private:
    du::SmartPtr<SheetLink> link;
    std::vector<du::SmartPtr<SubNetRecord>> subNets;
    std::vector<std::uint32_t> byId;  ///< places in `subNets`, by the order of their ids
};

class DesignRecord : public NamedRecord<figk::Design> {
public:
    DesignRecord() : link(new DesignLink(this)) {}
    ~DesignRecord() override { link->Clear(); }

    figk::SmartPtr<figk::Design> GetDesign() const override { return link->Get(); }
    figk::Symbol const& GetIdPrefix() const override { return idPrefix; }
    std::vector<figk::SmartPtr<figk::Sheet>> GetSheets() const override {
        return {sheets.begin(), sheets.end()};
    }
    std::vector<figk::SmartPtr<figk::Net>> GetNets() const override {
        return {nets.begin(), nets.end()};
    }
    std::vector<figk::SmartPtr<figk::Highway>> GetHighways() const override {
        return {highways.begin(), highways.end()};
    }
    std::vector<figk::SmartPtr<figk::Port>> GetPorts() const override {
        return {ports.begin(), ports.end()};
    }

    du::SmartPtr<DesignLink> const& GetLink() const { return link; }

    // Filled by the builder, before anybody else sees the design.
    figk::Symbol idPrefix;
    std::vector<du::SmartPtr<SheetRecord>> sheets;
    std::vector<du::SmartPtr<NetRecord>> nets;
    std::vector<du::SmartPtr<HighwayRecord>> highways;
    std::vector<du::SmartPtr<PortRecord>> ports;

private:
    du::SmartPtr<DesignLink> link;
};

}  // namespace figkernel
