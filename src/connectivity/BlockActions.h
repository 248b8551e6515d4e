// What is done alike to blocks, connectors and the sub-nets of cables: transforms and looks.
#pragma once

#include <figrep/AbstractFigureItem.h>
#include <figrep/GraphicGroupMember.h>
#include <figrep/TextLabelContainer.h>

namespace figrep {

class BaseBlockInstance;
class ConnectorInstance;
class SubNet;

/// One transform, as each part of a block takes it.
class BlockTransform {
public:
    virtual ~BlockTransform() = default;
    virtual void Apply(GraphicGroupMember& graphics) const = 0;
    virtual void Apply(TextLabelContainer& labels) const = 0;
    virtual void Apply(ConnectorInstance& connector, BaseBlockInstance& block) const = 0;
    /// The whole sub-net, as by `MoveItem` and its like.
    virtual void Apply(SubNet& subNet) const = 0;
};

/// One way to change the look of what a block holds, and the flag to set.
struct BlockLook {
    void (GraphicGroupMember::*setGraphics)(bool);
    void (TextLabelContainer::*setText)(bool);
    void (AbstractFigureItem::*setItem)(bool);
    bool on;
};

}  // namespace figrep
