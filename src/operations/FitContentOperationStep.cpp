#include <figrep/FitContentOperationStep.h>

#include <figrep/AbstractFigureItem.h>
#include <figrep/Figure.h>
#include <figrep/FigureContentShadow.h>
#include <figrep/FigureMoveDelta.h>
#include <figrep/MirrorAction.h>
#include <figrep/RotateAction.h>
#include <figrep/ScaleAction.h>

namespace figrep {

namespace {

/// What takes the action back. A mirror does that itself; actions never change, so it is shared.
SmartPtr<TransformAction> InverseOf(SmartPtr<TransformAction> const& action) {
    if (auto const rotation = du::DynamicCast<RotateAction>(action)) {
        return new RotateAction(rotation->GetAbout(), rotation->GetAngleInRadians() * -1.0);
    }
    if (auto const scaling = du::DynamicCast<ScaleAction>(action)) {
        return new ScaleAction(scaling->GetAbout(), 1.0 / scaling->GetScale());
    }
    return action;
}

}  // namespace

FitContentOperationStep::FitContentOperationStep(SmartPtr<Figure> const& figure, Items const& items,
                                                 Transforms const& transforms,
                                                 DPoint2D const& offset)
    : figure_(figure),
      items_(items),
      transforms_(transforms),
      offset_(offset),
      forwardDelta_(new FigureMoveDelta(items, transforms, offset, false)) {
    if (figure_) figure_->AddAndApplyDeltas({forwardDelta_}, false);
}

FitContentOperationStep::~FitContentOperationStep() = default;

SmartPtr<figk::AbstractDelta> FitContentOperationStep::MakeInverse() const {
    Transforms back;
    for (auto action = transforms_.rbegin(); action != transforms_.rend(); ++action)
        back.push_back(InverseOf(*action));
    return new FigureMoveDelta(items_, back, DPoint2D(offset_.x * -1.0, offset_.y * -1.0), true);
}

void FitContentOperationStep::Undo() {
    if (!figure_) return;
    if (!inverseDelta_) inverseDelta_ = MakeInverse();
    figure_->AddAndApplyDelta(inverseDelta_, false, true);
    figure_->RemoveDeltas({forwardDelta_, inverseDelta_});
    FitShadow();
}

void FitContentOperationStep::Redo() {
    if (!figure_) return;
    forwardDelta_ = new FigureMoveDelta(items_, transforms_, offset_, false);
    inverseDelta_.Reset();
    figure_->AddAndApplyDelta(forwardDelta_, false, true);
    FitShadow();
}

void FitContentOperationStep::FitShadow() const {
    if (auto const shadow = figure_->GetFigureShadow()) shadow->FigureExtentsChanged();
}

}  // namespace figrep
