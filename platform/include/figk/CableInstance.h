// A cable: a bundle of nets that are drawn as one.
#pragma once

#include <figk/BaseBlockInstance.h>

namespace figk {

class CableInstance : public BaseBlockInstance {
public:
    ~CableInstance() override;

    virtual std::vector<SmartPtr<Net>> GetNets() const = 0;

    /// Shows the cable, then its graphics, labels and connectors.
    void Accept(AbstractVisitor& visitor) override;
    TypeDefinitions::KernelItemType GetKernelItemType() const override;
};

}  // namespace figk
