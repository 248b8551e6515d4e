// One named display property: a key, a value, a level, and whether it may be inherited.
#pragma once

#include <du/RefCounted.h>
#include <figk/Fwd.h>
#include <figk/SettingValue.h>

#include <string>

namespace figk {

/// Immutable once built.
class Setting : public virtual du::RefCounted {
public:
    /// The kernel's keys. Any other number is a key too, which the kernel just doesn't know.
    enum Key : int {
        KEY_NONE = 0,
        KEY_ARROW_STYLE = 1,
        KEY_COLOR = 2,
        KEY_CROSSING_POINT_STYLE = 3,
        KEY_FILL_ATTRIBUTES = 4,
        KEY_SELECTION_HIGHLIGHT_COLOR = 5,
        KEY_PRESELECTION_HIGHLIGHT_COLOR = 6,
        KEY_LINE_ATTRIBUTES = 7,
        KEY_TOP_SEGMENT_VERTICAL = 8,
        KEY_TEXTURE = 9,
        KEY_TRANSPARENCY = 10,
        KEY_SELECTION_USE_LOWLIGHT = 11,
        KEY_PRESELECTION_USE_LOWLIGHT = 12,
        KEY_PRESELECTION_NONE = 13,
        KEY_DIM = 14,
        KEY_FORMAT_GRID_ON = 16,
        KEY_ITEM_VISIBILITY = 17
    };

    /// Who set it; the higher one wins. Saved as a number.
    enum Level : int {
        LEVEL_ALL = 0,  ///< never stored: every level, where levels are chosen from
        LEVEL_DEFAULT = 1,
        LEVEL_BASE = 2,
        LEVEL_PROFILE = 3,
        LEVEL_FORCED = 4,
        LEVEL_UPPER_A = 5,
        LEVEL_UPPER_B = 6,
        LEVEL_FIGURE = 7
    };

    Setting(Key const& key, ConstSmartPtr<BaseSettingValue> const& value, Level const& level,
            bool canBeInherited);
    Setting(Setting const& other);
    ~Setting() override;

    Key GetKey() const { return key_; }
    Level GetLevel() const { return level_; }
    /// May be null when the setting was built so.
    ConstSmartPtr<BaseSettingValue> const& GetBaseValue() const { return value_; }
    bool CanBeInherited() const { return canBeInherited_; }

    /// "Key=<2>, Value=<...>, Level=<1>", for debug dumps.
    virtual std::string ToString() const;
    /// A new setting with a clone of the value.
    virtual SmartPtr<Setting> Clone() const;

private:
    Key key_;
    ConstSmartPtr<BaseSettingValue> value_;
    Level level_;
    bool canBeInherited_;
};

}  // namespace figk
