// A setting with the keys that figures need beyond those of the kernel.
#pragma once

#include <du/SmartPtr.h>
#include <du/Symbol.h>
#include <figk/Setting.h>

#include <string>

namespace figrep {

/// A kernel setting whose key can also name one member of a composite value, or a property that
/// only figures have. Immutable once built.
///
/// A `RepKey` holds the kernel key above its low four bits; these choose a member of the composite.
/// A key is *plain* when they are 0, *complex* when they are not, and *figure-only* when there is
/// nothing above them. Keys are saved as numbers.
class Setting : public figk::Setting {
public:
    enum RepKey : int {
        TEXT_COLOR = 1,
        BACKGROUND_COLOR = 2,
        ARROW_STYLE = 16,
        COLOR = 32,
        CROSSING_POINT_STYLE = 48,
        FILL_ATTRIBUTES = 64,
        SELECTION_HIGHLIGHT_COLOR = 80,
        PRESELECTION_HIGHLIGHT_COLOR = 96,
        LINE_ATTRIBUTES = 112,
        LINE_COLOR = 113,
        LINE_WEIGHT = 114,
        LINE_STYLE = 115,
        TOP_SEGMENT_VERTICAL = 128,
        TEXTURE = 144,
        TRANSPARENCY = 160,
        SELECTION_USE_LOWLIGHT = 176,
        PRESELECTION_USE_LOWLIGHT = 192,
        PRESELECTION_NONE = 208,
        DIM = 224,
        FORMAT_GRID_ON = 256,
        ITEM_VISIBILITY = 272,
        UNKNOWN_REP_KEY = 288
    };

    /// A null value is allowed and answers no typed query.
    Setting(RepKey key, du::ConstSmartPtr<figk::BaseSettingValue> const& value,
            figk::Setting::Level level, bool canBeInherited);
    ~Setting() override;

    RepKey GetRepKey() const { return repKey_; }

    /// The plain key of a kernel key.
    static RepKey ConvertToRepKey(figk::Setting::Key key);
    /// The same; always true.
    static bool GetRepKey(figk::Setting::Key key, RepKey& out);
    /// The kernel key behind a key; 0 for a figure-only key.
    static figk::Setting::Key GetKernelKey(RepKey key);
    /// Whether there is a kernel key. Complex keys have one.
    static bool HasKernelKey(RepKey key);
    /// Whether the key names a member of a composite. Figure-only keys don't.
    static bool IsComplexKey(RepKey key);
    /// The key of the composite that a complex key names a member of; other plain keys stay.
    static RepKey GetCompositeKey(RepKey key);

    /// The same setting at another level, with a clone of the value.
    du::SmartPtr<Setting> Copy(figk::Setting::Level const& level) const;

    /// For debug dumps. Tells neither the composites nor all keys apart.
    std::string ToString() const override;

    /// The key's text in saved content. Only the background colour and the visibility of items have
    /// one; of all others it is empty.
    du::Symbol RepKeyToSymbol() const;
    /// The reverse; `UNKNOWN_REP_KEY` for any other text.
    static RepKey SymbolToRepKey(du::Symbol const& text);

private:
    std::string RepKeyToString() const;

    RepKey repKey_;
};

}  // namespace figrep
