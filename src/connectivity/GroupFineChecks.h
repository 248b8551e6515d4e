// Exact tests of a group of graphics, for items without a kernel picture in place.
#pragma once

#include <figk/Zv2dGraphics.h>
#include <figrep/BaseGraphic.h>
#include <figrep/GraphicGroup.h>

#include <vector>

namespace figrep {

/// Calls `check` with the picture of each graphic of the group, nested groups included, until it
/// answers true. Answers whether it did.
template <class Check>
bool AnyGraphicInGroup(GraphicGroup const& group, Check const& check) {
    std::vector<GraphicGroup const*> pending{&group};
    while (!pending.empty()) {
        GraphicGroup const& current = *pending.back();
        pending.pop_back();
        for (SmartPtr<GraphicGroupMember> const& member : current) {
            if (auto const nested = du::DynamicCast<GraphicGroup>(member)) {
                pending.push_back(nested.Get());
            } else if (auto const graphic = du::DynamicCast<BaseGraphic>(member)) {
                auto const picture = graphic->GetZv2dGraphics();
                if (picture && check(*picture)) return true;
            }
        }
    }
    return false;
}

/// Whether something in the group touches a point or a box.
template <class Shape>
bool GroupOverlaps(GraphicGroup const& group, Shape const& shape) {
    return AnyGraphicInGroup(
        group, [&](figk::Zv2dGraphics const& picture) { return picture.InstanceOverlaps(shape); });
}

/// Whether the group shows something, and all of it lies in the box.
inline bool GroupContained(GraphicGroup const& group, dg::DBox2D const& box) {
    bool any = false;
    bool const outside = AnyGraphicInGroup(group, [&](figk::Zv2dGraphics const& picture) {
        any = true;
        return !picture.InstanceContained(box);
    });
    return any && !outside;
}

}  // namespace figrep
