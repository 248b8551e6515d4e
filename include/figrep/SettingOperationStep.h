// Settings of single items, as one step of an operation.
#pragma once

#include <figrep/Fwd.h>
#include <zvk/OperationStep.h>

#include <vector>

namespace figrep {

/// Carries `FigureItemSettingDelta`s, one for each item. Making the step applies nothing: `Redo`
/// does it for the first time too.
///
/// Undone, each item has its former setting and none of the deltas is on the figure's list.
/// Ownership: keeps the figure and the deltas alive. Not worth storing: the deltas are stored.
class SettingOperationStep : public zvk::OperationStep {
public:
    using Deltas = std::vector<SmartPtr<figk::AbstractDelta>>;

    static Symbol const s_type;  // "SettingOperationStep"

    /// Without a figure the step never does anything. Deltas of other classes are recorded and
    /// taken off the list, but their effect is not undone.
    SettingOperationStep(SmartPtr<Figure> const& figure, Deltas const& deltas);
    ~SettingOperationStep() override;

    bool Recordable() const override;
    Symbol Type() const override;
    void Undo() override;
    void Redo() override;

private:
    SmartPtr<Figure> figure_;
    Deltas deltas_;
};

}  // namespace figrep
