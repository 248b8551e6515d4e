// What a user can undo beyond the library's own steps.
#pragma once

#include <cstddef>
#include <vector>

#include <figrep/Fwd.h>
#include <persistence/ColorDelta.h>
#include <zvk/OperationStep.h>

namespace fighost {

/// Colours something the moment it is made. Undone, the delta is off the figure's list and all has
/// the colour that it had. Ownership: keeps the figure.
class ColorStep : public zvk::OperationStep {
public:
    ColorStep(figrep::SmartPtr<figrep::Figure> const& figure,
              figrep::SmartPtr<ColorDelta> const& delta);
    ~ColorStep() override;

    void Undo() override;
    void Redo() override;

private:
    figrep::SmartPtr<figrep::Figure> figure_;
    figrep::SmartPtr<ColorDelta> delta_;
};

/// Deletes items the moment it is made, one delta each. Undone, the deltas are off the figure's
/// list and each item stands again where it stood among its like, so that the figure is walked and
/// painted as before.
///
/// Ownership: keeps the figure and the items. Cost of undoing: for each item, taking out and
/// putting back all items of its kind that stand behind it.
class DeleteStep : public zvk::OperationStep {
public:
    using Items = std::vector<figrep::SmartPtr<figrep::AbstractFigureItem>>;

    /// Items for which `CanBeDeleted` doesn't hold stay, and no delta is made for them.
    DeleteStep(figrep::SmartPtr<figrep::Figure> const& figure, Items const& items);
    ~DeleteStep() override;

    void Undo() override;
    void Redo() override;

private:
    struct Deleted {
        figrep::SmartPtr<figrep::FigureItemDeleteDelta> delta;
        std::size_t place = 0;  // among its like, before the deletion
    };

    figrep::SmartPtr<figrep::Figure> figure_;
    std::vector<Deleted> deleted_;
};

}  // namespace fighost
