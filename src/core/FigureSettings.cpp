// A figure's own settings, and changes of its items that observers hear of.
#include <figk/SchematicKernel.h>
#include <figk/SettingValue.h>
#include <figrep/AbstractFigureItem.h>
#include <figrep/Figure.h>
#include <figrep/Format.h>
#include <figrep/Setting.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TitleBlockGraphicsGenerator.h>
#include <zv2d/LineAttributes.h>
#include <zv2d/LineStyle.h>
#include <zvk/ReadWriteLock.h>

namespace figrep {

namespace {

template <typename Value>
ConstSmartPtr<Setting> MakeSetting(Setting::RepKey key, Value const& value,
                                   figk::Setting::Level level) {
    ConstSmartPtr<figk::BaseSettingValue> const held = new figk::SettingValue<Value>(value);
    return new Setting(key, held, level, true);
}

}  // namespace

void Figure::SetDefaultLineAttributes() {
    ConstSmartPtr<zv2d::LineAttributes> const attributes = new zv2d::LineAttributes(
        1, 2, zv2d::LineStyleList::GetDefault(), 0, 3, 0, 3, Color::BLACK, Color::BLACK, nullptr);
    SettingList::AddSetting(
        MakeSetting(Setting::LINE_ATTRIBUTES, attributes, figk::Setting::LEVEL_DEFAULT), true);
}

void Figure::AddSetting(ConstSmartPtr<Setting> const& setting, bool notify) {
    if (!setting) return;
    SettingList::AddSetting(setting, true);
    MarkChanged(notify);
}

bool Figure::ClearSettingList(figk::Setting::Level level, bool notify) {
    if (!SettingList::ClearSettingList(level, true)) return false;
    MarkChanged(notify);
    return true;
}

void Figure::RemoveSetting(Setting::RepKey key, figk::Setting::Level level, bool notify) {
    if (SettingList::RemoveSetting(key, level)) MarkChanged(notify);
}

void Figure::AddItemSetting(SmartPtr<AbstractFigureItem> const& item,
                            ConstSmartPtr<Setting> const& setting, bool notify) {
    if (!item || !setting) return;
    item->AddSetting(setting, true);
    MarkChanged(notify);
}

bool Figure::ClearItemSettingList(SmartPtr<AbstractFigureItem> const& item,
                                  figk::Setting::Level level, bool notify) {
    if (!item || !item->ClearSettingList(level, true)) return false;
    MarkChanged(notify);
    return true;
}

void Figure::RemoveItemSetting(SmartPtr<AbstractFigureItem> const& item, Setting::RepKey key,
                               figk::Setting::Level level, bool notify) {
    if (item && item->RemoveSetting(key, level)) MarkChanged(notify);
}

void Figure::MarkChanged(bool notify) {
    {
        zvk::WriteGuard guard(GetLock());
        hasChanged_ = true;
    }
    if (notify) PostEvent(APPEARANCE_CHANGED_EVENT);
}

ConstSmartPtr<figk::Setting> Figure::GetInheritedSetting(Setting::RepKey key, unsigned int& depth,
                                                         bool inheritableOnly) const {
    if (Setting::IsComplexKey(key)) return {};
    auto const kernel = figk::SchematicKernel::GetSchematicKernel();
    ConstSmartPtr<figk::Setting> setting;
    if (kernel) setting = kernel->GetSetting(Setting::GetKernelKey(key), depth, inheritableOnly);
    ++depth;
    return setting;
}

// All wires fall back on the figure.
void Figure::SettingsChanged() {
    zvk::WriteGuard guard(GetLock());
    for (auto const& subHighway : subHighways_)
        subHighway->SetGraphicalUpdateNeeded(true);
    for (auto const& subNet : subNets_)
        subNet->SetGraphicalUpdateNeeded(true);
}

bool Figure::GetFormatGridOn() const {
    bool on = false;
    zvk::ReadGuard guard(GetLock());
    GetBooleanSetting(Setting::FORMAT_GRID_ON, on);
    return on;
}

void Figure::SetFormatGridOn(bool on) {
    zvk::WriteGuard guard(GetLock());
    AddSetting(MakeSetting(Setting::FORMAT_GRID_ON, on, figk::Setting::LEVEL_FIGURE), false);
    if (format_) format_->SetShowGrid(on);
}

void Figure::MoveItem(SmartPtr<AbstractFigureItem> const& item, double dx, double dy) {
    if (!item) return;
    item->MoveItem(dx, dy);
    PostChangedEvent();
}

void Figure::RotateItem(SmartPtr<AbstractFigureItem> const& item, DPoint2D const& about,
                        double radians) {
    if (!item) return;
    item->RotateItem(about, radians);
    PostChangedEvent();
}

void Figure::ScaleItem(SmartPtr<AbstractFigureItem> const& item, DPoint2D const& about,
                       double factor) {
    if (!item) return;
    item->ScaleItem(about, factor);
    PostChangedEvent();
}

void Figure::MirrorItem(SmartPtr<AbstractFigureItem> const& item, DPoint2D const& about,
                        bool mirrorY) {
    if (!item) return;
    item->MirrorItem(about, mirrorY);
    PostChangedEvent();
}

void Figure::SetItemHighlight(SmartPtr<AbstractFigureItem> const& item, bool on) {
    if (!item) return;
    zvk::WriteGuard guard(GetLock());
    item->SetHighlight(on);
    PostEvent(ITEM_HIGHLIGHTED_EVENT);
}

void Figure::SetItemPreselectHighlight(SmartPtr<AbstractFigureItem> const& item, bool on) {
    if (!item) return;
    zvk::WriteGuard guard(GetLock());
    item->SetPreselectHighlight(on);
    PostEvent(ITEM_HIGHLIGHTED_EVENT);
}

void Figure::SetItemVisibility(SmartPtr<AbstractFigureItem> const& item, bool on) {
    if (!item) return;
    zvk::WriteGuard guard(GetLock());
    item->SetVisibility(on);
    PostChangedEvent();
}

void Figure::SetTitleBlockGraphicsGenerator(
    SmartPtr<TitleBlockGraphicsGenerator> const& generator) {
    zvk::WriteGuard guard(GetLock());
    titleBlockGraphicsGenerator_ = generator;
}

}  // namespace figrep
