// The piece of a net on one sheet.
#pragma once

#include <figk/AbstractItem.h>

namespace figk {

class SubNet : public AbstractItem {
public:
    ~SubNet() override;

    virtual SmartPtr<Net> GetNet() const = 0;
    virtual SmartPtr<Sheet> GetSheet() const = 0;
    /// The head of the connection tree: a net segment or a port on a net; null without any.
    virtual SmartPtr<ConnectionNode> GetHead() const = 0;
    /// The segment at which direction arrows start; may be null.
    virtual SmartPtr<NetSegment> GetStartSegment() const = 0;

    /// Shows the sub-net, then the nodes of its tree.
    void Accept(AbstractVisitor& visitor) override;
    TypeDefinitions::KernelItemType GetKernelItemType() const override;
};

}  // namespace figk
