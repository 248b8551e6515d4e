// The place at which a net or a highway goes on elsewhere.
#pragma once

#include <figk/AbstractItem.h>

#include <vector>

namespace figk {

class Port : public AbstractItem {
public:
    ~Port() override;

    /// Whether the port belongs to a highway and not to a net.
    virtual bool OnHighwayNotNet() const = 0;
    /// Null for a port on a highway.
    virtual SmartPtr<Net> GetNet() const = 0;
    /// Null for a port on a net.
    virtual SmartPtr<Highway> GetHighway() const = 0;
    /// Where the port is drawn, over all sheets.
    virtual std::vector<SmartPtr<PortNode>> GetPortNodes() const = 0;

    /// Shows the port alone: its nodes are met in the trees.
    void Accept(AbstractVisitor& visitor) override;
    TypeDefinitions::KernelItemType GetKernelItemType() const override;
};

}  // namespace figk
