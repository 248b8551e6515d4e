#include <figrep/TransformAction.h>

#include <figrep/MirrorAction.h>
#include <figrep/RotateAction.h>
#include <figrep/ScaleAction.h>

namespace figrep {

TransformAction::TransformAction(DPoint2D const& about) : about_(about) {}
TransformAction::TransformAction(TransformAction const&) = default;
TransformAction::~TransformAction() = default;

MirrorAction::MirrorAction(DPoint2D const& about, bool mirrorInXNotY)
    : TransformAction(about), mirrorInXNotY_(mirrorInXNotY) {}
MirrorAction::MirrorAction(MirrorAction const&) = default;
MirrorAction::~MirrorAction() = default;

bool MirrorAction::Merge(SmartPtr<TransformAction> const& other, bool& keep) {
    auto const* const mirror = Mergeable<MirrorAction>(other);
    if (!mirror || mirror->mirrorInXNotY_ != mirrorInXNotY_) return false;
    keep = false;
    return true;
}

RotateAction::RotateAction(DPoint2D const& about, double angle)
    : TransformAction(about), angle_(angle) {}
RotateAction::RotateAction(RotateAction const&) = default;
RotateAction::~RotateAction() = default;

bool RotateAction::Merge(SmartPtr<TransformAction> const& other, bool& keep) {
    auto const* const rotation = Mergeable<RotateAction>(other);
    if (!rotation) return false;
    angle_ += rotation->angle_;
    keep = true;
    return true;
}

ScaleAction::ScaleAction(DPoint2D const& about, double scale)
    : TransformAction(about), scale_(scale) {}
ScaleAction::ScaleAction(ScaleAction const&) = default;
ScaleAction::~ScaleAction() = default;

bool ScaleAction::Merge(SmartPtr<TransformAction> const& other, bool& keep) {
    auto const* const scaling = Mergeable<ScaleAction>(other);
    if (!scaling) return false;
    scale_ += scaling->scale_;
    keep = true;
    return true;
}

}  // namespace figrep
