#include "Labels.h"

#include <figk/SettingValue.h>
#include <figrep/Setting.h>
#include <figrep/SettingList.h>

namespace figrep {

void TakeColorFromLabel(SettingList& item, SmartPtr<TextGraphic> const& text) {
    Color color(0.0F, 0.0F, 0.0F, 1.0F);
    if (!text || !text->GetColorFromText(color)) return;
    SmartPtr<figk::BaseSettingValue> const value(new figk::SettingValue<Color>(color));
    item.AddSetting(
        ConstSmartPtr<Setting>(new Setting(Setting::COLOR, value, Setting::LEVEL_FIGURE, true)),
        true);
}

}  // namespace figrep
