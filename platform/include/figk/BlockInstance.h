// A block of a sheet: a component, or the symbol of a sub-sheet.
#pragma once

#include <figk/BaseBlockInstance.h>

namespace figk {

/// `GetName` is the reference that users know.
class BlockInstance : public BaseBlockInstance {
public:
    ~BlockInstance() override;

    /// Shows the block, then its graphics, labels and connectors.
    void Accept(AbstractVisitor& visitor) override;
    TypeDefinitions::KernelItemType GetKernelItemType() const override;
};

}  // namespace figk
