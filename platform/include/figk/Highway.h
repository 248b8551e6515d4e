// A route that carries many nets, over all sheets.
#pragma once

#include <figk/AbstractItem.h>

#include <vector>

namespace figk {

class Highway : public AbstractItem {
public:
    ~Highway() override;

    /// The pieces of the highway, in the order of sheets.
    virtual std::vector<SmartPtr<SubHighway>> GetSubHighways() const = 0;
    virtual std::vector<SmartPtr<Port>> GetPorts() const = 0;

    /// Shows the highway, then its sub-highways.
    void Accept(AbstractVisitor& visitor) override;
    TypeDefinitions::KernelItemType GetKernelItemType() const override;
};

}  // namespace figk
