#include <session/look/SheetLook.h>

#include <map>
#include <tuple>

#include <attrs/FillAttr.h>
#include <figk/AbstractItem.h>
#include <figk/SettingValue.h>
#include <figk/Zv2dGraphics.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Figure.h>
#include <figrep/Format.h>
#include <figrep/GenericGraphic.h>
#include <figrep/HighwaySegment.h>
#include <figrep/NetSegment.h>
#include <figrep/Setting.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TextGraphic.h>
#include <session/look/Contrast.h>
#include <zv2d/Attributes.h>
#include <zv2d/Definition.h>
#include <zv2d/Entity.h>
#include <zv2d/Instance.h>
#include <zvk/ReadWriteLock.h>

namespace fighost {

namespace {

using figrep::AbstractFigureItem;
using figrep::ConstSmartPtr;
using figrep::Setting;
using figrep::SmartPtr;

constexpr figk::Setting::Level PROFILE = figk::Setting::LEVEL_PROFILE;
constexpr double ROUNDING = 0.05;  // of a contrast, for painters with 8 bits per channel

template <typename Value>
ConstSmartPtr<Setting> MakeSetting(Setting::RepKey key, Value const& value) {
    ConstSmartPtr<figk::BaseSettingValue> const held = new figk::SettingValue<Value>(value);
    return new Setting(key, held, PROFILE, true);
}

ConstSmartPtr<Setting> FillSetting(int kind, dg::Color const& color) {
    return MakeSetting(Setting::FILL_ATTRIBUTES,
                       ConstSmartPtr<attrs::FillAttr>(new attrs::FillAttr(kind, color)));
}

template <typename Value>
std::optional<Value> ValueOf(figk::SettingList const& settings, figk::Setting::Key key) {
    unsigned depth = 0;
    auto const setting = settings.GetSetting(key, depth);
    if (!setting) return std::nullopt;
    auto const value = du::DynamicCast<figk::SettingValue<Value> const>(setting->GetBaseValue());
    return value ? std::optional<Value>(value->value) : std::nullopt;
}

/// What a kernel record says about its colour.
struct RecordLook {
    Role role = Role::COUNT;
    std::optional<dg::Color> chosen;  ///< by the file
    bool hasColor = false;
};

RecordLook LookOf(AbstractFigureItem const& item) {
    RecordLook look;
    SmartPtr<figk::AbstractItem> const record = item.GetKernelItem();
    auto const settings = record ? record->GetSettings() : nullptr;
    if (!settings) return look;
    unsigned depth = 0;
    auto const setting = settings->GetSetting(figk::Setting::KEY_COLOR, depth);
    std::optional<dg::Color> const color = ValueOf<dg::Color>(*settings, figk::Setting::KEY_COLOR);
    look.hasColor = color.has_value();
    if (color && setting->GetLevel() >= figk::Setting::LEVEL_BASE) look.chosen = color;
    float const role = ValueOf<float>(*settings, KEY_ROLE).value_or(-1);
    bool const isRole = role >= 0 && role < static_cast<float>(Role::COUNT);
    if (isRole) look.role = static_cast<Role>(role);
    return look;
}

/// The first fill that the file chose for an area of the graphic; readers make graphics of areas
/// that are filled alike.
std::optional<dg::Color> ChosenFillOf(figrep::GenericGraphic const& graphic) {
    auto const graphics = graphic.GetZv2dGraphics();
    if (!graphics) return std::nullopt;
    for (auto const& instance : graphics->GetInstances()) {
        if (!instance || !instance->GetDefinition()) continue;
        for (auto const& entity : *instance->GetDefinition()) {
            auto const* attributes = entity->GetAttributes().Get();
            attrs::FillAttr const* fill = attributes ? attributes->GetFillAttr().Get() : nullptr;
            if (fill && fill->GetKind() == attrs::FillAttr::SOLID) return fill->GetColor();
        }
    }
    return std::nullopt;
}

// Walks a figure and gives its items the settings of a look.
class ItemLooks : public figrep::AbstractFigureVisitor {
public:
    /// The ground is opaque.
    ItemLooks(Theme theme, dg::Color const& ground) : theme_(theme), ground_(ground) {}

    std::optional<dg::Color> Ink(Role role) const {
        std::optional<dg::Color> const ink = InkOf(theme_, role);
        return ink && theme_ == Theme::DARK ? ReadableHere(*ink) : ink;
    }

    bool Visit(SmartPtr<figrep::SubNet> const& subNet) override {
        Set(*subNet, Setting::COLOR, Ink(Role::WIRE));
        return true;
    }
    bool Visit(SmartPtr<figrep::SubHighway> const& subHighway) override {
        Set(*subHighway, Setting::COLOR, Ink(Role::BUS));
        return true;
    }
    bool Visit(SmartPtr<figrep::Format> const& format) override {
        Set(*format, Setting::COLOR, Ink(Role::FRAME));
        return true;
    }
    bool Visit(SmartPtr<figrep::NetSegment> const& segment) override {
        SetChosen(*segment);
        return true;
    }
    bool Visit(SmartPtr<figrep::HighwaySegment> const& segment) override {
        SetChosen(*segment);
        return true;
    }
    bool Visit(SmartPtr<figrep::TextGraphic> const& text) override {
        SetByRole(*text);
        return true;
    }
    bool Visit(SmartPtr<figrep::GenericGraphic> const& graphic) override {
        SetByRole(*graphic);
        // Pictures of wires are made anew all the time; only records keep what is set here.
        if (graphic->GetKernelItem()) SetFill(*graphic);
        return true;
    }

private:
    dg::Color ReadableHere(dg::Color const& ink) const {
        return Readable(ink, ground_, INK_CONTRAST + ROUNDING);
    }

    std::optional<dg::Color> Chosen(dg::Color const& color) const {
        if (theme_ == Theme::LIGHT) return std::nullopt;
        return theme_ == Theme::DARK ? ReadableHere(color) : color;
    }

    // A wire without a colour of its own has that of its net.
    void SetChosen(AbstractFigureItem& item) {
        std::optional<dg::Color> const chosen = LookOf(item).chosen;
        Set(item, Setting::COLOR, chosen ? Chosen(*chosen) : std::nullopt);
    }

    void SetByRole(AbstractFigureItem& item) {
        RecordLook const look = LookOf(item);
        if (!look.hasColor) return;
        Set(item, Setting::COLOR, look.chosen ? Chosen(*look.chosen) : Ink(look.role));
    }

    void SetFill(figrep::GenericGraphic& graphic) {
        std::optional<dg::Color> const fill =
            theme_ == Theme::DARK ? ChosenFillOf(graphic) : std::nullopt;
        if (!fill) {
            graphic.RemoveSetting(Setting::FILL_ATTRIBUTES, PROFILE);
            return;
        }
        graphic.AddSetting(
            FillSetting(attrs::FillAttr::SOLID, Subdued(*fill, ground_, FILL_CONTRAST - ROUNDING)),
            false);
    }

    void Set(AbstractFigureItem& item, Setting::RepKey key, std::optional<dg::Color> const& color) {
        if (!color) {
            item.RemoveSetting(key, PROFILE);
            return;
        }
        item.AddSetting(ColorSetting(key, *color), false);
    }

    // Most items share a few colours.
    ConstSmartPtr<Setting> ColorSetting(Setting::RepKey key, dg::Color const& color) {
        ConstSmartPtr<Setting>& setting = settings_[{key, color.r, color.g, color.b, color.a}];
        if (!setting) setting = MakeSetting(key, color);
        return setting;
    }

    Theme theme_;
    dg::Color ground_;
    std::map<std::tuple<int, float, float, float, float>, ConstSmartPtr<Setting>> settings_;
};

dg::Color Opaque(dg::Color color) {
    color.a = 1;
    return color;
}

ConstSmartPtr<Setting> BodyFill(Theme theme, dg::Color const& ground) {
    // Without a fill of its own the theme replaces none, but that must be said: draw states keep a
    // fill until they find another.
    std::optional<dg::Color> const fill = BodyFillOf(theme, ground);
    if (!fill) return FillSetting(attrs::FillAttr::NONE, dg::Color());
    bool const isDark = theme == Theme::DARK;
    return FillSetting(attrs::FillAttr::BODY,
                       isDark ? Subdued(*fill, Opaque(ground), FILL_CONTRAST - ROUNDING) : *fill);
}

/// The settings of the figure itself; the last one tells observers.
void SetFigureLook(figrep::Figure& figure, Theme theme, dg::Color const& ground) {
    if (std::optional<dg::Color> const ink = ItemLooks(theme, Opaque(ground)).Ink(Role::COUNT)) {
        figure.AddSetting(MakeSetting(Setting::COLOR, *ink), false);
    }
    figure.AddSetting(BodyFill(theme, ground), false);
    dg::Color const highlight = HighlightOf(theme, 0);
    figure.AddSetting(MakeSetting(Setting::SELECTION_HIGHLIGHT_COLOR, highlight), false);
    figure.AddSetting(MakeSetting(Setting::PRESELECTION_HIGHLIGHT_COLOR, highlight), true);
}

void SetFrameVisibility(figrep::Figure& figure, bool isVisible) {
    SmartPtr<figrep::Format> const format = figure.GetFormat();
    if (!format) return;
    if (isVisible) {
        format->RemoveSetting(Setting::ITEM_VISIBILITY, PROFILE);
    } else {
        format->AddSetting(MakeSetting(Setting::ITEM_VISIBILITY, false), false);
    }
}

dg::Color WantedGround(SheetLook const& look) {
    dg::Color ground = look.ground.value_or(GroundOf(look.theme));
    if (ground.a > 0) return ground;
    ground = GroundOf(look.theme);
    ground.a = 0;
    return ground;
}

}  // namespace

void ApplyLook(SmartPtr<figrep::Figure> const& figure, SheetLook const& look) {
    if (!figure) return;
    zvk::WriteGuard const guard(figure->GetLock());
    bool const hadChanged = figure->HasChanged();
    bool const hadInk =
        static_cast<bool>(figure->figrep::SettingList::RemoveSetting(Setting::COLOR, PROFILE));
    figure->AddSetting(MakeSetting(Setting::BACKGROUND_COLOR, WantedGround(look)), false);
    // A user's ground wins over that of the look, and the colours must suit it.
    dg::Color ground;
    figure->GetColorSetting(Setting::BACKGROUND_COLOR, ground);
    SetFrameVisibility(*figure, look.frame);
    if (hadInk || look.theme != Theme::LIGHT) {
        ItemLooks items(look.theme, Opaque(ground));
        figure->Accept(items);
    }
    SetFigureLook(*figure, look.theme, ground);
    if (!hadChanged) figure->ResetHasChanged();
}

}  // namespace fighost
