// Settings whose value is a yes or no, which is what the setting deltas record.
#pragma once

#include <figk/SettingValue.h>
#include <figrep/Setting.h>

namespace figrep {

inline SmartPtr<Setting> MakeBoolSetting(Setting::RepKey key, bool value,
                                         figk::Setting::Level level) {
    ConstSmartPtr<figk::BaseSettingValue> const held = new figk::SettingValue<bool>(value);
    return new Setting(key, held, level, true);
}

/// The setting that a loader's key, as `Setting::RepKeyToSymbol` writes it, stands for.
inline SmartPtr<Setting> MakeBoolSetting(Symbol const& key, bool value,
                                         figk::Setting::Level level) {
    return MakeBoolSetting(Setting::SymbolToRepKey(key), value, level);
}

/// False for null and for a value of another kind.
inline bool BoolValue(figk::Setting const* setting) {
    auto const* const value =
        setting ? dynamic_cast<figk::SettingValue<bool> const*>(setting->GetBaseValue().Get())
                : nullptr;
    return value && value->value;
}

}  // namespace figrep
