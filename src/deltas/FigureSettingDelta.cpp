#include <figrep/FigureSettingDelta.h>

#include <figrep/AbstractFigureItem.h>
#include <figrep/Figure.h>
#include <zvk/SerializedContentElement.h>

#include <unordered_set>

#include "deltas/BoolSetting.h"

namespace figrep {

Symbol const FigureSettingDelta::s_delta_type_value("setting_delta_v2");

FigureSettingDelta::FigureSettingDelta(SmartPtr<Setting> const& setting, Items const& items)
    : AbstractFigureDelta(ACTION_CHANGE, false), setting_(setting) {
    AddItemsOnce(items);
}

FigureSettingDelta::FigureSettingDelta(std::vector<Symbol> const& ids, Symbol const& settingKey,
                                       bool value, figk::Setting::Level level)
    : AbstractFigureDelta(ACTION_CHANGE, false),
      setting_(MakeBoolSetting(settingKey, value, level)),
      ids_(ids) {}

FigureSettingDelta::~FigureSettingDelta() = default;

Symbol FigureSettingDelta::GetClassTypeValue() {
    return s_delta_type_value;
}

void FigureSettingDelta::Refresh() {
    if (GetStatus() == STATUS_OK) SetStatus(STATUS_REFRESHED);
}

void FigureSettingDelta::AddItemsOnce(Items const& items) {
    std::unordered_set<SmartPtr<AbstractFigureItem>> known(items_.begin(), items_.end());
    for (auto const& item : items) {
        if (item && known.insert(item).second) items_.push_back(item);
    }
}

bool FigureSettingDelta::_Verify(figk::AbstractDeltaReceiver& receiver) {
    if (SmartPtr<Figure> const figure = dynamic_cast<Figure*>(&receiver)) {
        Items found;
        for (auto const& id : ids_)
            found.push_back(figure->Find(id));
        AddItemsOnce(found);
    }
    return !items_.empty();
}

void FigureSettingDelta::_Apply(figk::AbstractDeltaReceiver&) {
    for (auto const& item : items_)
        item->AddSetting(setting_, true);
}

void FigureSettingDelta::_Serialize(zvk::SerializedContentElement* element) {
    SerializeBase(element);
    element->AddProperty(s_delta_type, s_delta_type_value);
    for (auto const& item : items_) {
        if (item->GetId().IsEmpty()) continue;
        element->AddProperty(s_delta_id_list_entry, item->GetId());
    }
    if (!setting_) return;
    element->AddProperty(s_setting_type, setting_->RepKeyToSymbol());
    element->AddProperty(s_setting_value, BoolValue(setting_.Get()));
    element->AddProperty(s_delta_setting_level, static_cast<int>(setting_->GetLevel()));
}

}  // namespace figrep
