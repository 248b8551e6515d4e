// A turn.
#pragma once

#include <figrep/TransformAction.h>

namespace figrep {

/// Turns about a point, counter-clockwise.
class RotateAction : public TransformAction {
public:
    RotateAction(DPoint2D const& about, double angle);
    RotateAction(RotateAction const&);
    ~RotateAction() override;

    ActionType GetType() const override { return TRANSFORM_ROTATE; }
    /// The angles add up, also to nothing; `keep` becomes true.
    bool Merge(SmartPtr<TransformAction> const& other, bool& keep) override;

    double GetAngleInRadians() const { return angle_; }

private:
    double angle_;
};

}  // namespace figrep
