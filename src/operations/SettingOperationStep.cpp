#include <figrep/SettingOperationStep.h>

#include <figrep/AbstractFigureItem.h>
#include <figrep/Figure.h>
#include <figrep/FigureItemSettingDelta.h>
#include <figrep/UnhideAllOperationStep.h>

namespace figrep {

Symbol const SettingOperationStep::s_type("SettingOperationStep");
Symbol const UnhideAllOperationStep::s_type("UnhideAllOperationStep");

SettingOperationStep::SettingOperationStep(SmartPtr<Figure> const& figure, Deltas const& deltas)
    : figure_(figure), deltas_(deltas) {}

SettingOperationStep::~SettingOperationStep() = default;

bool SettingOperationStep::Recordable() const {
    return false;
}

Symbol SettingOperationStep::Type() const {
    return s_type;
}

void SettingOperationStep::Undo() {
    if (!figure_) return;
    for (auto const& entry : deltas_) {
        if (auto const delta = du::DynamicCast<FigureItemSettingDelta>(entry)) delta->Undo();
    }
    figure_->RemoveDeltas(deltas_);
    figure_->PostChangedEvent();
}

void SettingOperationStep::Redo() {
    if (!figure_) return;
    for (auto const& entry : deltas_) {
        if (auto const delta = du::DynamicCast<FigureItemSettingDelta>(entry)) delta->Redo();
    }
    figure_->AddAndApplyDeltas(deltas_, false);
    figure_->PostChangedEvent();
}

UnhideAllOperationStep::UnhideAllOperationStep(SmartPtr<Figure> const& figure, Deltas const& deltas)
    : SettingOperationStep(figure, deltas) {}

UnhideAllOperationStep::~UnhideAllOperationStep() = default;

void UnhideAllOperationStep::Undo() {
    SettingOperationStep::Redo();
}

void UnhideAllOperationStep::Redo() {
    SettingOperationStep::Undo();
}

}  // namespace figrep
