// How a recorded move is taken back.
#pragma once

#include <figrep/FigureMoveDelta.h>
#include <figrep/RotateAction.h>
#include <figrep/ScaleAction.h>

namespace figrep::test {

/// The move that undoes another one on the same items: back by the offset first, then each
/// transform turned round, the last one first. A mirror undoes itself.
inline SmartPtr<FigureMoveDelta> InverseOf(FigureMoveDelta const& delta) {
    FigureMoveDelta::Transforms inverse;
    auto const& forward = delta.GetTransforms();
    for (auto action = forward.rbegin(); action != forward.rend(); ++action) {
        if (auto const rotation = du::DynamicCast<RotateAction>(*action)) {
            inverse.push_back(
                new RotateAction(rotation->GetAbout(), -1.0 * rotation->GetAngleInRadians()));
        } else if (auto const scaling = du::DynamicCast<ScaleAction>(*action)) {
            inverse.push_back(new ScaleAction(scaling->GetAbout(), 1.0 / scaling->GetScale()));
        } else {
            inverse.push_back(*action);
        }
    }
    auto const& offset = delta.GetOffset();
    return new FigureMoveDelta(delta.GetItems(), inverse, DPoint2D(-offset.x, -offset.y), true);
}

}  // namespace figrep::test
