// The records of single graphics.
#pragma once

#include <figk/AbstractItem.h>
#include <figk/GraphicGroup.h>

namespace figk {

/// A graphic that stands in a group; `GetZv2dGraphics` is its picture.
class BaseGraphic : public AbstractItem, public GraphicGroupMember {
public:
    ~BaseGraphic() override;
};

}  // namespace figk
