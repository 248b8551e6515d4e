// The places of ports that lead into a sheet, as sheet pins and the labels inside do.
#pragma once

#include <figk/PortNode.h>

namespace figkernel {

/// What the port nodes of the embedded kernel know beyond the contract: hosts that want it ask for
/// this class.
class SheetPortNode : public figk::PortNode {
public:
    ~SheetPortNode() override;

    /// The sheet that lies behind the node, or its own for a node at that sheet's inner side. Null
    /// for a port that leads into no sheet of its own, and once the design is gone.
    virtual figk::SmartPtr<figk::Sheet> GetSheetInside() const = 0;

protected:
    using figk::PortNode::PortNode;
};

}  // namespace figkernel
