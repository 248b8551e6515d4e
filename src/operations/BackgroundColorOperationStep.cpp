#include <figrep/BackgroundColorOperationStep.h>

#include <figrep/Figure.h>

namespace figrep {

Symbol const BackgroundColorOperationStep::s_type("BackgroundColorOperationStep");

BackgroundColorOperationStep::BackgroundColorOperationStep(SmartPtr<Figure> const& figure,
                                                           SmartPtr<Setting> const& setting)
    : figure_(figure), setting_(setting) {
    if (figure_) previousSetting_ = figure_->GetSetting(Setting::BACKGROUND_COLOR, depth_);
}

BackgroundColorOperationStep::~BackgroundColorOperationStep() = default;

bool BackgroundColorOperationStep::Recordable() const {
    return false;
}

Symbol BackgroundColorOperationStep::Type() const {
    return s_type;
}

void BackgroundColorOperationStep::Redo() {
    if (!figure_) return;
    if (previousSetting_) {
        figure_->RemoveSetting(Setting::BACKGROUND_COLOR, previousSetting_->GetLevel(), true);
    }
    figure_->AddSetting(setting_, true);
}

void BackgroundColorOperationStep::Undo() {
    if (!figure_) return;
    if (setting_) figure_->RemoveSetting(Setting::BACKGROUND_COLOR, setting_->GetLevel(), true);
    if (auto const previous = du::DynamicCast<Setting>(previousSetting_)) {
        figure_->AddSetting(previous, true);
    }
}

}  // namespace figrep
