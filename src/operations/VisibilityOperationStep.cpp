#include <figrep/VisibilityOperationStep.h>

#include <figrep/BaseGraphic.h>
#include <figrep/Figure.h>
#include <figrep/FigureSettingDelta.h>
#include <figrep/GraphicGroup.h>

#include <algorithm>
#include <iterator>
#include <unordered_set>

#include "deltas/BoolSetting.h"
#include "operations/GroupContent.h"

namespace figrep {

Symbol const VisibilityOperationStep::s_type("VisibilityOperationStep");

VisibilityOperationStep::VisibilityOperationStep(SmartPtr<Figure> const& figure, Items const& items,
                                                 bool visible)
    : setting_(MakeBoolSetting(Setting::ITEM_VISIBILITY, visible, figk::Setting::LEVEL_FIGURE)),
      visible_(visible),
      figure_(figure) {
    std::copy_if(items.begin(), items.end(), std::back_inserter(items_),
                 [](auto const& item) { return static_cast<bool>(item); });
    delta_ = new FigureSettingDelta(setting_, items_);
    if (!figure_) return;
    RememberPreviousSettings();
    ExpandFigureGraphicGroups();
    Do();
}

VisibilityOperationStep::~VisibilityOperationStep() = default;

Symbol VisibilityOperationStep::Type() const {
    return s_type;
}

void VisibilityOperationStep::RememberPreviousSettings() {
    for (auto const& item : items_) {
        unsigned depth = 0;
        auto const setting = item->SettingList::GetSetting(Setting::ITEM_VISIBILITY, depth);
        bool const own = setting && depth == 0;
        if (own) previousSettings_.emplace_back(item, setting);
        if (!own || BoolValue(setting.Get()) != visible_) changedItems_.push_back(item);
    }
}

void VisibilityOperationStep::ExpandFigureGraphicGroups() {
    Items expanded;
    std::unordered_set<SmartPtr<GraphicGroup>> known;
    for (auto const& item : changedItems_) {
        auto const group = GroupOnFigure(*figure_, item);
        if (!group) {
            expanded.push_back(item);
        } else if (known.insert(group).second) {
            AppendContent(*group, expanded);
        }
    }
    changedItems_.swap(expanded);
}

void VisibilityOperationStep::Do() {
    figure_->AddAndApplyDelta(delta_, true, false);
    figure_->PostVisibilityEvent(changedItems_, visible_);
}

void VisibilityOperationStep::Redo() {
    if (figure_) Do();
}

void VisibilityOperationStep::Undo() {
    if (!figure_) return;
    figure_->RemoveDelta(delta_);
    for (auto const& item : items_)
        item->RemoveSetting(setting_->GetRepKey(), setting_->GetLevel());
    for (auto const& [item, previous] : previousSettings_) {
        if (auto const setting = du::DynamicCast<Setting>(previous)) {
            item->AddSetting(setting, true);
        }
    }
    figure_->PostVisibilityEvent(changedItems_, !visible_);
}

}  // namespace figrep
