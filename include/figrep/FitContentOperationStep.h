// Moving, scaling or turning items, as one step of an operation.
#pragma once

#include <figrep/Fwd.h>
#include <zvk/OperationStep.h>

#include <vector>

namespace figrep {

/// Transforms items the moment it is made, by a `FigureMoveDelta` at the end of the figure's list:
/// each item goes through the transforms in order and is then moved by the offset.
///
/// Undone, the items have gone the way back and neither way is on the list. Positions come back to
/// within rounding. What has no inverse, as a scale by 0, hasn't moved anything either.
/// Ownership: keeps the figure, the items and the transforms alive.
class FitContentOperationStep : public zvk::OperationStep {
public:
    using Items = std::vector<SmartPtr<AbstractFigureItem>>;
    using Transforms = std::vector<SmartPtr<TransformAction>>;

    /// `offset` in figure units. Without a figure the step never does anything.
    FitContentOperationStep(SmartPtr<Figure> const& figure, Items const& items,
                            Transforms const& transforms, DPoint2D const& offset);
    ~FitContentOperationStep() override;

    void Undo() override;
    void Redo() override;

private:
    SmartPtr<figk::AbstractDelta> MakeInverse() const;
    void FitShadow() const;

    SmartPtr<Figure> figure_;
    Items items_;
    Transforms transforms_;
    DPoint2D offset_;
    SmartPtr<figk::AbstractDelta> forwardDelta_;
    SmartPtr<figk::AbstractDelta> inverseDelta_;  // null until undone
};

}  // namespace figrep
