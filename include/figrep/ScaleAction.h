// A change of size.
#pragma once

#include <figrep/TransformAction.h>

namespace figrep {

/// Scales about a point.
class ScaleAction : public TransformAction {
public:
    ScaleAction(DPoint2D const& about, double scale);
    ScaleAction(ScaleAction const&);
    ~ScaleAction() override;

    ActionType GetType() const override { return TRANSFORM_SCALE; }
    /// The factors are added and not multiplied: two scalings by 3 merge into one by 6. `keep`
    /// becomes true.
    bool Merge(SmartPtr<TransformAction> const& other, bool& keep) override;

    double GetScale() const { return scale_; }

private:
    double scale_;
};

}  // namespace figrep
