// Groups of graphics in the kernel.
#pragma once

#include <figk/Group.h>

namespace figk {

/// A member of a group of graphics.
class GraphicGroupMember : public virtual GroupMember {
public:
    GraphicGroupMember();
    GraphicGroupMember(GraphicGroupMember const& other);
    ~GraphicGroupMember() override;
};

/// A nested group of graphics.
class GraphicGroup : public Group, public GraphicGroupMember {
public:
    GraphicGroup();
    ~GraphicGroup() override;

    bool IsGroup() const override;
};

}  // namespace figk
