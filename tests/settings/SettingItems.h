// Lists of settings that stand below one another, and what they hold.
#pragma once

#include <figk/SettingList.h>
#include <figrep/SettingList.h>
#include <zv2d/LineAttributes.h>

namespace figrep::testing {

using dg::Color;
using Level = figk::Setting::Level;
using Found = du::ConstSmartPtr<figk::Setting>;

constexpr Level DEFAULT = figk::Setting::LEVEL_DEFAULT;
constexpr Level BASE = figk::Setting::LEVEL_BASE;
constexpr Level PROFILE = figk::Setting::LEVEL_PROFILE;
constexpr Level FORCED = figk::Setting::LEVEL_FORCED;
constexpr Level UPPER_A = figk::Setting::LEVEL_UPPER_A;
constexpr Level UPPER_B = figk::Setting::LEVEL_UPPER_B;
constexpr Level FIGURE = figk::Setting::LEVEL_FIGURE;
constexpr Level ALL = figk::Setting::LEVEL_ALL;

template <typename T>
du::ConstSmartPtr<Setting> Make(Setting::RepKey key, T const& value, Level level,
                                bool inheritable = true) {
    return new Setting(key, new figk::SettingValue<T>(value), level, inheritable);
}

inline du::ConstSmartPtr<Setting> Colour(Color const& color, Level level, bool inheritable = true) {
    return Make(Setting::COLOR, color, level, inheritable);
}

/// A list that stands below another one, as items do, and counts its changes.
class Item : public SettingList {
public:
    explicit Item(Item const* above = nullptr,
                  du::ConstSmartPtr<figk::SettingList> const& kernel = nullptr)
        : SettingList(new zvk::ReadWriteLock, kernel), parent(above) {}

    void ClearAll() { ClearSettingList(); }
    using SettingList::ClearSettingList;

    int changes = 0;

protected:
    Found GetInheritedSetting(Setting::RepKey key, unsigned int& depth,
                              bool /*inheritableOnly*/) const override {
        Found const found = parent ? parent->GetSetting(key, depth, true) : nullptr;
        if (parent) ++depth;
        return found;
    }
    void SettingsChanged() override { ++changes; }

private:
    Item const* parent;
};

inline Color ColourOf(SettingList const& list) {
    Color color = Color::WHITE;
    list.GetColorSetting(Setting::COLOR, color);
    return color;
}

inline du::ConstSmartPtr<figk::SettingList> Kernel(Color const& color, Level level = BASE) {
    du::SmartPtr<figk::SettingList> const list(new figk::SettingList);
    list->Add(new figk::Setting(figk::Setting::KEY_COLOR, new figk::SettingValue<Color>(color),
                                level, true));
    return list;
}

using LinePtr = du::ConstSmartPtr<zv2d::LineAttributes>;

inline LinePtr Line(float weight, Color const& color) {
    return new zv2d::LineAttributes(2, 1, zv2d::LineStyleList::Get(zv2d::LineStyleList::DASH),
                                    weight, 3, 0.5F, 4, color, Color::GREEN);
}

}  // namespace figrep::testing
