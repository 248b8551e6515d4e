// A thing on a sheet that is of no other kind.
#pragma once

#include <figk/AbstractItem.h>
#include <figk/Group.h>
#include <figk/TextLabelContainer.h>

namespace figk {

class Miscellaneous : public AbstractItem, public Group, public TextLabelContainer {
public:
    ~Miscellaneous() override;

    /// Shows the item, then its graphics and labels.
    void Accept(AbstractVisitor& visitor) override;
    TypeDefinitions::KernelItemType GetKernelItemType() const override;
};

}  // namespace figk
