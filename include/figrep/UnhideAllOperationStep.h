// Taking the deltas away that had hidden items, as one step of an operation.
#pragma once

#include <figrep/SettingOperationStep.h>

namespace figrep {

/// Made from the deltas that hid items and are on the figure's list: `Redo` takes them back,
/// `Undo` brings them in again. `Figure::UnhideAll` records a change of its own instead; this is
/// for hosts that keep such deltas.
class UnhideAllOperationStep : public SettingOperationStep {
public:
    /// "UnhideAllOperationStep". `Type` answers that of the base all the same.
    static Symbol const s_type;

    UnhideAllOperationStep(SmartPtr<Figure> const& figure, Deltas const& deltas);
    ~UnhideAllOperationStep() override;

    void Undo() override;
    void Redo() override;
};

}  // namespace figrep
