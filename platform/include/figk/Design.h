// A whole design: sheets, nets and highways.
#pragma once

#include <figk/AbstractItem.h>

#include <vector>

namespace figk {

class Design : public AbstractItem {
public:
    ~Design() override;

    /// What the ids of all that the design holds start with.
    virtual Symbol const& GetIdPrefix() const = 0;
    virtual std::vector<SmartPtr<Sheet>> GetSheets() const = 0;
    virtual std::vector<SmartPtr<Net>> GetNets() const = 0;
    virtual std::vector<SmartPtr<Highway>> GetHighways() const = 0;
    virtual std::vector<SmartPtr<Port>> GetPorts() const = 0;

    /// Shows the design, then its sheets; nets, highways and ports are met on the sheets.
    void Accept(AbstractVisitor& visitor) override;
    TypeDefinitions::KernelItemType GetKernelItemType() const override;
};

}  // namespace figk
