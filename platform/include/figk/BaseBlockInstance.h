// What blocks, cables and tables have in common.
#pragma once

#include <figk/AbstractItem.h>
#include <figk/Group.h>
#include <figk/TextLabelContainer.h>

#include <vector>

namespace figk {

/// Something with a picture (the group), labels, connectors and perhaps children.
class BaseBlockInstance : public AbstractItem, public Group, public TextLabelContainer {
public:
    ~BaseBlockInstance() override;

    virtual SmartPtr<Sheet> GetSheet() const = 0;
    /// Blocks drawn as parts of this one, also those on other sheets.
    virtual std::vector<SmartPtr<BaseBlockInstance>> GetChildren() const = 0;
    virtual bool IsChild() const = 0;
    virtual bool IsParent() const = 0;
    virtual std::vector<SmartPtr<ConnectorInstance>> GetConnectorInstances() const = 0;

protected:
    /// Shows the visitor graphics, labels and connectors.
    void AcceptContent(AbstractVisitor& visitor);
};

}  // namespace figk
