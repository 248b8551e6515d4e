// A signal of a design, over all sheets.
#pragma once

#include <figk/AbstractItem.h>

#include <vector>

namespace figk {

class Net : public AbstractItem {
public:
    ~Net() override;

    /// The pieces of the net, in the order of sheets. A sheet may have several that are joined by
    /// name alone.
    virtual std::vector<SmartPtr<SubNet>> GetSubNets() const = 0;
    virtual std::vector<SmartPtr<Port>> GetPorts() const = 0;
    /// Connectors that belong to the net, drawn with it or not.
    virtual std::vector<SmartPtr<ConnectorInstance>> GetConnectorInstances() const = 0;

    /// Shows the net, then its sub-nets.
    void Accept(AbstractVisitor& visitor) override;
    TypeDefinitions::KernelItemType GetKernelItemType() const override;
};

}  // namespace figk
