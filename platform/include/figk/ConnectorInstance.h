// A pin of a block.
#pragma once

#include <dg/Point.h>
#include <figk/AbstractItem.h>
#include <figk/Group.h>
#include <figk/TextLabelContainer.h>

namespace figk {

/// `GetName` is the pin's number. The group holds its graphics.
class ConnectorInstance : public AbstractItem, public Group, public TextLabelContainer {
public:
    ~ConnectorInstance() override;

    virtual SmartPtr<BaseBlockInstance> GetBlockInstance() const = 0;
    /// Where wires connect, in figure units.
    virtual dg::DPoint2D const& GetPosition() const = 0;
    virtual bool GetHidden() const = 0;
    /// How many connector nodes of nets stand on this connector.
    virtual unsigned int GetNumConnections() const = 0;

    /// Shows the connector, then its graphics and labels.
    void Accept(AbstractVisitor& visitor) override;
    TypeDefinitions::KernelItemType GetKernelItemType() const override;
};

}  // namespace figk
