// Finds a sheet by the ids of its design and its own.
#pragma once

#include <figk/AbstractVisitor.h>

namespace figk {

/// Handed to `SchematicKernel::Accept`; afterwards `GetSheet` answers what it found.
class GetSheetVisitor : public AbstractVisitor {
public:
    GetSheetVisitor(Symbol const& designId, Symbol const& sheetId);
    ~GetSheetVisitor() override;

    /// Null when no design of that id has such a sheet, and for empty ids.
    SmartPtr<Sheet> const& GetSheet() const { return sheet_; }

    using AbstractVisitor::Visit;
    bool Visit(SmartPtr<Design> const& design) override;
    bool Visit(SmartPtr<Sheet> const& sheet) override;

private:
    Symbol designId_;
    Symbol sheetId_;
    SmartPtr<Sheet> sheet_;
};

}  // namespace figk
