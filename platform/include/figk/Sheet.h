// One drawing of a design.
#pragma once

#include <figk/AbstractItem.h>
#include <figk/TextLabelContainer.h>

#include <vector>

namespace figk {

/// Free texts and graphics of the sheet stand in its group of labels.
class Sheet : public AbstractItem, public TextLabelContainer {
public:
    ~Sheet() override;

    // What stands on the sheet, each in the kernel's own stable order.
    virtual std::vector<SmartPtr<BlockInstance>> GetBlockInstances() const = 0;
    virtual std::vector<SmartPtr<CableInstance>> GetCableInstances() const = 0;
    virtual std::vector<SmartPtr<TableInstance>> GetTableInstances() const = 0;
    virtual std::vector<SmartPtr<Miscellaneous>> GetMiscellaneous() const = 0;
    virtual std::vector<SmartPtr<SubHighway>> GetSubHighways() const = 0;
    virtual std::vector<SmartPtr<SubNet>> GetSubNets() const = 0;
    /// Null for a sheet without a frame.
    virtual SmartPtr<Format> GetFormat() const = 0;
    virtual SmartPtr<TitleBlock> GetTitleBlock() const = 0;

    /// The sub-net of that id on this sheet, or null.
    virtual SmartPtr<SubNet> GetSubNetByID(Symbol const& id) const = 0;

    /// Shows the sheet, then its format, title block and labels, blocks, cables, tables,
    /// miscellaneous items, sub-highways and sub-nets, each with what it holds. So a sub-highway is
    /// shown before the sub-nets that run along it.
    void Accept(AbstractVisitor& visitor) override;
    TypeDefinitions::KernelItemType GetKernelItemType() const override;
};

}  // namespace figk
