// Colours that a user gave, as recorded changes.
#pragma once

#include <string>
#include <vector>

#include <dg/Color.h>
#include <figrep/AbstractFigureDelta.h>
#include <figrep/Setting.h>
#include <persistence/DeltaTypes.h>

namespace fighost {

/// Gives items, or the paper behind them, a colour at the level of a user's choices.
///
/// The library's own setting deltas record a yes or no only. This one is the host's: it makes do
/// with the items that are still there and fails, with status 0, only when none is left. It is
/// saved with the library's key for targets, so that programs that don't know it can still name
/// them. Ownership: holds the items and no figure.
class ColorDelta : public figrep::AbstractFigureDelta {
public:
    using Items = std::vector<figrep::SmartPtr<figrep::AbstractFigureItem>>;

    /// What takes the colour. The paper is the figure itself and needs no items.
    enum Part { LINES_AND_TEXTS, FILLS, PAPER };

    ColorDelta(Part part, dg::Color const& color, Items const& items);
    /// For loaders: the items are looked up when the delta is applied.
    ColorDelta(Part part, dg::Color const& color, std::vector<figrep::Symbol> const& ids);
    ~ColorDelta() override;

    /// "figrep_colour_delta", the type under which the delta is saved.
    static figrep::Symbol GetClassTypeValue();
    static void AddTo(DeltaTypes& types);
    /// "colour U1, U2 #ff0000", where `targets` names the items.
    static std::string Describe(zvk::SerializedContentElement const& element,
                                std::string const& targets);

    bool IsAppearanceOnly() const override { return true; }

    Items const& GetItems() const { return items_; }

    /// Takes the colour away again: what the targets had at this level before comes back. Nothing
    /// for a delta that isn't applied. The delta stays on the figure's list.
    void Undo(figrep::Figure& figure);

protected:
    void _Apply(figk::AbstractDeltaReceiver& receiver) override;
    bool _Verify(figk::AbstractDeltaReceiver& receiver) override;
    void _Serialize(zvk::SerializedContentElement* element) override;

private:
    using SettingPtr = figrep::ConstSmartPtr<figrep::Setting>;

    struct Previous {
        figrep::SmartPtr<figrep::AbstractFigureItem> item;  // null: the figure itself
        figrep::Setting::RepKey key;
        SettingPtr setting;  // null: none
    };

    void MakeSettings();
    void AddItemsOnce(Items const& items);
    void Give(figrep::SettingList& list, figrep::SmartPtr<figrep::AbstractFigureItem> const& item,
              SettingPtr const& setting);

    Part part_;
    dg::Color color_;
    Items items_;
    std::vector<figrep::Symbol> ids_;
    std::vector<SettingPtr> settings_;
    std::vector<Previous> previous_;  // filled while the delta is applied
};

}  // namespace fighost
