// Another colour behind a figure, as one step of an operation.
#pragma once

#include <figrep/Fwd.h>
#include <figrep/Setting.h>
#include <zvk/OperationStep.h>

namespace figrep {

/// Swaps the figure's `BACKGROUND_COLOR` setting. Making the step applies nothing: `Redo` does it
/// for the first time too. No delta records it; a host saves the colour by itself.
///
/// The former colour is the one that counted when the step was made, also an inherited one; undone,
/// the figure has it as its own. Ownership: keeps the figure alive.
class BackgroundColorOperationStep : public zvk::OperationStep {
public:
    static Symbol const s_type;  // "BackgroundColorOperationStep"

    /// Without a figure the step never does anything; without a setting it takes the colour away.
    BackgroundColorOperationStep(SmartPtr<Figure> const& figure, SmartPtr<Setting> const& setting);
    ~BackgroundColorOperationStep() override;

    bool Recordable() const override;
    Symbol Type() const override;
    void Undo() override;
    void Redo() override;

private:
    unsigned depth_ = 0;  // of the former setting, in steps up from the figure
    SmartPtr<Figure> figure_;
    SmartPtr<Setting> setting_;
    ConstSmartPtr<figk::Setting> previousSetting_;
};

}  // namespace figrep
