// Showing or hiding items, as one step of an operation.
#pragma once

#include <figrep/Fwd.h>
#include <zvk/OperationStep.h>

#include <utility>
#include <vector>

namespace figrep {

/// Hides or shows items the moment it is made, by a `FigureSettingDelta` at the end of the figure's
/// list. Undone, the delta is off the list and each item says again of itself what it said before.
///
/// Observers hear of the items that were not known to look so already; where one of them is part of
/// a group that stands on the figure, of all that group's graphics, since they look alike. An item
/// that said nothing of itself counts as changed whatever it inherits. Items that are listed
/// without need still get the setting.
///
/// Ownership: keeps the figure and the items alive. Locking: that of the operations it calls.
class VisibilityOperationStep : public zvk::OperationStep {
public:
    using Items = std::vector<SmartPtr<AbstractFigureItem>>;

    static Symbol const s_type;  // "VisibilityOperationStep"

    /// Without a figure the step never does anything. Null items are left out.
    VisibilityOperationStep(SmartPtr<Figure> const& figure, Items const& items, bool visible);
    ~VisibilityOperationStep() override;

    Symbol Type() const override;
    void Undo() override;
    void Redo() override;

private:
    void RememberPreviousSettings();
    void ExpandFigureGraphicGroups();
    void Do();

    SmartPtr<FigureSettingDelta> delta_;
    SmartPtr<Setting> setting_;
    Items items_;
    Items changedItems_;
    bool visible_;
    std::vector<std::pair<SmartPtr<AbstractFigureItem>, ConstSmartPtr<figk::Setting>>>
        previousSettings_;
    SmartPtr<Figure> figure_;
};

}  // namespace figrep
