// The typed queries of a setting list.
#include <figrep/SettingList.h>

#include <figk/ArrowStyle.h>
#include <figk/SettingValue.h>
#include <zv2d/LineAttributes.h>

#include <algorithm>
#include <optional>

namespace figrep {

namespace {

using FoundSetting = du::ConstSmartPtr<figk::Setting>;
using LineAttributesPtr = du::ConstSmartPtr<zv2d::LineAttributes>;

/// The value of a setting when it is a `T`, else null. Valid as long as the setting.
template <typename T>
T const* ValueOf(FoundSetting const& setting) {
    if (!setting || !setting->GetBaseValue()) return nullptr;
    figk::BaseSettingValue const& value = *setting->GetBaseValue();
    if (value.GetType() != figk::SettingValueTraits<T>::TYPE) return nullptr;
    auto const* typed = dynamic_cast<figk::SettingValue<T> const*>(&value);
    return typed ? &typed->value : nullptr;
}

/// What a composite says about one of its members.
void TakeMember(zv2d::LineAttributes const& line, dg::Color& out) {
    out = line.GetColor();
}

void TakeMember(zv2d::LineAttributes const& line, figk::WeightAttr& out) {
    out = {line.GetWeight(), line.GetWeightKind()};
}

void TakeMember(zv2d::LineAttributes const& line, figk::LineStyleAttr& out) {
    out = {line.GetLineStyle(), line.GetPatternScaleKind(), line.GetPatternScale()};
}

template <typename T>
bool Take(FoundSetting const& setting, T& out) {
    T const* value = ValueOf<T>(setting);
    if (value) out = *value;
    return value != nullptr;
}

/// From the member's own value, or from line attributes as a whole.
template <typename T>
bool TakeFromWholeOrMember(FoundSetting const& setting, T& out) {
    if (Take(setting, out)) return true;
    LineAttributesPtr const* whole = ValueOf<LineAttributesPtr>(setting);
    if (!whole || !*whole) return false;
    TakeMember(**whole, out);
    return true;
}

/// Reads a plain setting, with its level and depth where it was found.
template <typename T>
bool Query(SettingList const& list, Setting::RepKey key, T& out, figk::Setting::Level& level,
           unsigned int& depth) {
    unsigned int foundDepth = 0;
    FoundSetting const found = list.GetSetting(key, foundDepth, false);
    if (!Take(found, out)) return false;
    level = found->GetLevel();
    depth = foundDepth;
    return true;
}

/// The same for what may also be a member of line attributes.
template <typename T>
bool QueryMember(SettingList const& list, Setting::RepKey key, T& out, figk::Setting::Level& level,
                 unsigned int& depth) {
    if (!Setting::IsComplexKey(key)) return Query(list, key, out, level, depth);
    unsigned int foundDepth = 0;
    FoundSetting const found = list.GetSetting(key, foundDepth);
    if (!TakeFromWholeOrMember(found, out)) return false;
    level = found->GetLevel();
    depth = foundDepth;
    return true;
}

/// What stands for the whole where only members are set.
LineAttributesPtr const& DefaultLineAttributes() {
    static LineAttributesPtr const& attributes = *new LineAttributesPtr(new zv2d::LineAttributes);
    return attributes;
}

/// One part of line attributes, with where it came from.
template <typename T>
struct LinePart {
    std::optional<T> value;
    figk::Setting::Level level = figk::Setting::LEVEL_ALL;
    unsigned int depth = 0;

    void Find(SettingList const& list, Setting::RepKey key) {
        FoundSetting const found = list.GetSetting(key, depth, false);
        T const* held = ValueOf<T>(found);
        if (!held) return;
        value = *held;
        level = found->GetLevel();
    }

    template <typename U>
    bool IsBeatenBy(LinePart<U> const& base) const {
        if (!base.value) return false;
        return level < base.level || (level == base.level && depth > base.depth);
    }

    void Raise(figk::Setting::Level& highest, unsigned int& deepest) const {
        if (!value) return;
        highest = std::max(highest, level);
        deepest = std::max(deepest, depth);
    }
};

}  // namespace

/// Line attributes as a whole, and the members that the whole doesn't beat.
struct SettingList::LineParts {
    LinePart<LineAttributesPtr> base;
    LinePart<figk::LineStyleAttr> style;
    LinePart<figk::WeightAttr> weight;
    LinePart<dg::Color> color;

    bool HasAnyMember() const { return style.value || weight.value || color.value; }
    bool HasAllMembers() const { return style.value && weight.value && color.value; }

    void DropBeatenMembers() {
        if (style.IsBeatenBy(base)) style.value.reset();
        if (weight.IsBeatenBy(base)) weight.value.reset();
        if (color.IsBeatenBy(base)) color.value.reset();
    }

    LineAttributesPtr Merge() const {
        zv2d::LineAttributes const& model = base.value ? **base.value : *DefaultLineAttributes();
        figk::LineStyleAttr newStyle;
        figk::WeightAttr newWeight;
        TakeMember(model, newStyle);
        TakeMember(model, newWeight);
        newStyle = style.value.value_or(newStyle);
        newWeight = weight.value.value_or(newWeight);
        return new zv2d::LineAttributes(model.GetLineJoin(), model.GetEndCap(), newStyle.style,
                                        newWeight.weight, newWeight.kind, newStyle.scale,
                                        newStyle.kind, color.value.value_or(model.GetColor()),
                                        model.GetSecondColor(), model.GetExtra());
    }
};

SettingList::LineParts SettingList::FindLineParts() const {
    LineParts parts;
    parts.base.Find(*this, Setting::LINE_ATTRIBUTES);
    if (parts.base.value && !*parts.base.value) parts.base = {};
    parts.style.Find(*this, Setting::LINE_STYLE);
    parts.weight.Find(*this, Setting::LINE_WEIGHT);
    parts.color.Find(*this, Setting::LINE_COLOR);
    parts.DropBeatenMembers();
    return parts;
}

bool SettingList::GetZv2dLineAttributesSetting(figk::Setting::Key key, LineAttributesPtr& out,
                                               figk::Setting::Level& level,
                                               unsigned int& depth) const {
    if (key != figk::Setting::KEY_LINE_ATTRIBUTES) return false;
    zvk::ReadGuard const guard(settingsLock_);
    LineParts const parts = FindLineParts();
    level = figk::Setting::LEVEL_ALL;
    depth = 0;
    if (!parts.HasAllMembers()) parts.base.Raise(level, depth);
    parts.style.Raise(level, depth);
    parts.weight.Raise(level, depth);
    parts.color.Raise(level, depth);
    if (parts.HasAnyMember()) {
        out = parts.Merge();
    } else {
        out = parts.base.value.value_or(LineAttributesPtr());
    }
    return out.Get() != nullptr;
}

bool SettingList::GetZv2dLineAttributesSetting(figk::Setting::Key key,
                                               LineAttributesPtr& out) const {
    figk::Setting::Level level{};
    unsigned int depth = 0;
    return GetZv2dLineAttributesSetting(key, out, level, depth);
}

bool SettingList::GetColorSetting(Setting::RepKey key, dg::Color& out, figk::Setting::Level& level,
                                  unsigned int& depth) const {
    return QueryMember(*this, key, out, level, depth);
}

bool SettingList::GetColorSetting(Setting::RepKey key, dg::Color& out) const {
    figk::Setting::Level level{};
    unsigned int depth = 0;
    return GetColorSetting(key, out, level, depth);
}

bool SettingList::GetBooleanSetting(Setting::RepKey key, bool& out, figk::Setting::Level& level,
                                    unsigned int& depth) const {
    return Query(*this, key, out, level, depth);
}

bool SettingList::GetBooleanSetting(Setting::RepKey key, bool& out) const {
    figk::Setting::Level level{};
    unsigned int depth = 0;
    return GetBooleanSetting(key, out, level, depth);
}

bool SettingList::GetFloatSetting(Setting::RepKey key, float& out, figk::Setting::Level& level,
                                  unsigned int& depth) const {
    return Query(*this, key, out, level, depth);
}

bool SettingList::GetFloatSetting(Setting::RepKey key, float& out) const {
    figk::Setting::Level level{};
    unsigned int depth = 0;
    return GetFloatSetting(key, out, level, depth);
}

bool SettingList::GetCrossingPointStyleSetting(Setting::RepKey key, figk::CrossingPointStyle& out,
                                               figk::Setting::Level& level,
                                               unsigned int& depth) const {
    return Query(*this, key, out, level, depth);
}

bool SettingList::GetCrossingPointStyleSetting(Setting::RepKey key,
                                               figk::CrossingPointStyle& out) const {
    figk::Setting::Level level{};
    unsigned int depth = 0;
    return GetCrossingPointStyleSetting(key, out, level, depth);
}

bool SettingList::GetArrowStyleSetting(Setting::RepKey key, figk::ArrowStyle& out,
                                       figk::Setting::Level& level, unsigned int& depth) const {
    return Query(*this, key, out, level, depth);
}

bool SettingList::GetArrowStyleSetting(Setting::RepKey key, figk::ArrowStyle& out) const {
    figk::Setting::Level level{};
    unsigned int depth = 0;
    return GetArrowStyleSetting(key, out, level, depth);
}

bool SettingList::GetWeightSetting(Setting::RepKey key, figk::WeightAttr& out,
                                   figk::Setting::Level& level, unsigned int& depth) const {
    return QueryMember(*this, key, out, level, depth);
}

bool SettingList::GetWeightSetting(Setting::RepKey key, figk::WeightAttr& out) const {
    figk::Setting::Level level{};
    unsigned int depth = 0;
    return GetWeightSetting(key, out, level, depth);
}

bool SettingList::GetLineStyleSetting(Setting::RepKey key, figk::LineStyleAttr& out,
                                      figk::Setting::Level& level, unsigned int& depth) const {
    return QueryMember(*this, key, out, level, depth);
}

bool SettingList::GetLineStyleSetting(Setting::RepKey key, figk::LineStyleAttr& out) const {
    figk::Setting::Level level{};
    unsigned int depth = 0;
    return GetLineStyleSetting(key, out, level, depth);
}

bool SettingList::GetZv2dTextureSetting(figk::Setting::Key key,
                                        du::ConstSmartPtr<zv2d::Texture>& out,
                                        figk::Setting::Level& level, unsigned int& depth) const {
    return Query(*this, Setting::ConvertToRepKey(key), out, level, depth);
}

bool SettingList::GetZv2dTextureSetting(figk::Setting::Key key,
                                        du::ConstSmartPtr<zv2d::Texture>& out) const {
    figk::Setting::Level level{};
    unsigned int depth = 0;
    return GetZv2dTextureSetting(key, out, level, depth);
}

bool SettingList::GetZv2dFillAttributesSetting(figk::Setting::Key key,
                                               du::ConstSmartPtr<attrs::FillAttr>& out,
                                               figk::Setting::Level& level,
                                               unsigned int& depth) const {
    return Query(*this, Setting::ConvertToRepKey(key), out, level, depth);
}

bool SettingList::GetZv2dFillAttributesSetting(figk::Setting::Key key,
                                               du::ConstSmartPtr<attrs::FillAttr>& out) const {
    figk::Setting::Level level{};
    unsigned int depth = 0;
    return GetZv2dFillAttributesSetting(key, out, level, depth);
}

}  // namespace figrep
