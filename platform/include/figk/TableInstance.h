// A table on a sheet.
#pragma once

#include <figk/BaseBlockInstance.h>

namespace figk {

class TableInstance : public BaseBlockInstance {
public:
    ~TableInstance() override;

    /// Shows the table, then its graphics, labels and connectors.
    void Accept(AbstractVisitor& visitor) override;
    TypeDefinitions::KernelItemType GetKernelItemType() const override;
};

}  // namespace figk
