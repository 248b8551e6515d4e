// A mirror image.
#pragma once

#include <figrep/TransformAction.h>

namespace figrep {

/// Mirrors about a point, in the one or the other coordinate.
class MirrorAction : public TransformAction {
public:
    MirrorAction(DPoint2D const& about, bool mirrorInXNotY);
    MirrorAction(MirrorAction const&);
    ~MirrorAction() override;

    ActionType GetType() const override { return TRANSFORM_MIRROR; }
    /// Two mirrors in the same coordinate cancel each other: `keep` becomes false.
    bool Merge(SmartPtr<TransformAction> const& other, bool& keep) override;

    /// What the receiver's `MirrorItem` is given: false mirrors x, true mirrors y.
    bool GetMirrorInXNotY() const { return mirrorInXNotY_; }

private:
    bool mirrorInXNotY_;
};

}  // namespace figrep
