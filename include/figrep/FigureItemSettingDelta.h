// One setting on one item, which can be taken back in place.
#pragma once

#include <figrep/AbstractFigureDelta.h>
#include <figrep/Setting.h>

#include <vector>

namespace figrep {

/// Shows or hides one item: puts a `bool` setting on it, remembers what the item held before, and,
/// where a port on a highway is hidden, takes the nets that end there off the highway.
///
/// Fails with status 0 when the item is gone. Ownership: knows its figure without holding it.
class FigureItemSettingDelta : public AbstractFigureDelta {
public:
    using Items = std::vector<SmartPtr<AbstractFigureItem>>;

    FigureItemSettingDelta(SmartPtr<Setting> const& setting,
                           SmartPtr<AbstractFigureItem> const& item);
    /// For loaders; the setting is at `LEVEL_FIGURE`. The item is looked up when the delta is
    /// applied.
    FigureItemSettingDelta(Symbol const& id, Symbol const& settingKey, bool value);
    ~FigureItemSettingDelta() override;

    /// Replaces `deltas` by one for each item that has to change to give all of `items`, and all
    /// blocks nested in them, the visibility of `setting`. They share the setting object. Nesting
    /// may be deep. Order: that of `items`, blocks after what they hold.
    static void CreateDeltas(Items const& items, std::vector<SmartPtr<figk::AbstractDelta>>& deltas,
                             SmartPtr<Setting> const& setting);

    /// "setting_delta", the type under which the delta is saved.
    static Symbol& GetClassTypeValue();

    /// Null until a delta made from an id is verified.
    SmartPtr<AbstractFigureItem> const& GetItem() const { return item_; }
    SmartPtr<Setting> const& GetSetting() const { return setting_; }
    bool IsSettingOfType(Setting::RepKey key) const;

    // All do nothing before the delta has been verified. The delta's place in the figure's list is
    // the caller's affair.

    /// Takes the visibility off the item and brings back the item's own former one, if that was
    /// another. Nets that were taken off a highway stay so.
    void Undo();
    void Redo();
    void RemoveSetting();

protected:
    void _Apply(figk::AbstractDeltaReceiver& receiver) override;
    bool _Verify(figk::AbstractDeltaReceiver& receiver) override;
    /// Nothing at all before the delta has been verified.
    void _Serialize(zvk::SerializedContentElement* element) override;

private:
    SmartPtr<Figure> GetFigure() const;
    void CapturePreviousSetting();
    void FixHighwaysForHiddenPortNodes();

    SmartPtr<Setting> setting_;
    SmartPtr<FigureLink> figure_;
    SmartPtr<AbstractFigureItem> item_;
    ConstSmartPtr<figk::Setting> previousSetting_;
    Symbol id_;
};

}  // namespace figrep
