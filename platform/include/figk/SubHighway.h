// The piece of a highway on one sheet.
#pragma once

#include <figk/AbstractItem.h>

namespace figk {

class SubHighway : public AbstractItem {
public:
    ~SubHighway() override;

    virtual SmartPtr<Highway> GetHighway() const = 0;
    virtual SmartPtr<Sheet> GetSheet() const = 0;
    /// The head of the tree of highway segments; null without any.
    virtual SmartPtr<ConnectionNode> GetHead() const = 0;

    /// Shows the sub-highway, then the nodes of its tree.
    void Accept(AbstractVisitor& visitor) override;
    TypeDefinitions::KernelItemType GetKernelItemType() const override;
};

}  // namespace figk
