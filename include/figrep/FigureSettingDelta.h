// One setting on several items.
#pragma once

#include <figrep/AbstractFigureDelta.h>
#include <figrep/Setting.h>

#include <vector>

namespace figrep {

/// Puts one setting, with a `bool` value, on items. It makes do with the items that are still there
/// and fails, with status 0, only when none is left.
class FigureSettingDelta : public AbstractFigureDelta {
public:
    using Items = std::vector<SmartPtr<AbstractFigureItem>>;

    FigureSettingDelta(SmartPtr<Setting> const& setting, Items const& items);
    /// For loaders: `settingKey` as `Setting::RepKeyToSymbol` writes it. The items are looked up
    /// when the delta is applied.
    FigureSettingDelta(std::vector<Symbol> const& ids, Symbol const& settingKey, bool value,
                       figk::Setting::Level level);
    ~FigureSettingDelta() override;

    /// "setting_delta_v2", the type under which the delta is saved.
    static Symbol GetClassTypeValue();
    static Symbol const s_delta_type_value;

    /// Marks a delta that nothing else is to be said of as refreshed.
    void Refresh() override;

    /// What the delta applies to, each item once; empty before a delta made from ids is verified.
    Items const& GetItems() const { return items_; }
    SmartPtr<Setting> const& GetSetting() const { return setting_; }

protected:
    void _Apply(figk::AbstractDeltaReceiver& receiver) override;
    bool _Verify(figk::AbstractDeltaReceiver& receiver) override;
    /// Names the items that it has, not the ids from which it was made.
    void _Serialize(zvk::SerializedContentElement* element) override;

private:
    void AddItemsOnce(Items const& items);

    SmartPtr<Setting> setting_;
    Items items_;
    std::vector<Symbol> ids_;
};

}  // namespace figrep
