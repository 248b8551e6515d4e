#include <figk/Setting.h>
#include <figk/SettingList.h>

#include <algorithm>
#include <sstream>

namespace figk {

BaseSettingValue::BaseSettingValue(Type type) : type_(type) {}
BaseSettingValue::BaseSettingValue(BaseSettingValue const& other)
    : du::RefCounted(other), type_(other.type_) {}
BaseSettingValue::~BaseSettingValue() = default;

bool BaseSettingValue::operator==(BaseSettingValue const& other) const {
    return type_ == other.type_;
}

std::string BaseSettingValue::ToString() const {
    return std::string();
}

SmartPtr<BaseSettingValue> BaseSettingValue::Clone() const {
    return SmartPtr<BaseSettingValue>(new BaseSettingValue(*this));
}

namespace {

template <typename T>
bool SameContent(ConstSmartPtr<T> const& a, ConstSmartPtr<T> const& b) {
    return a == b || (a && b && *a == *b);
}

template <typename... Parts>
std::string Join(Parts const&... parts) {
    std::ostringstream text;
    (text << ... << parts);
    return text.str();
}

std::string ColorText(dg::Color const& color) {
    return Join("(", color.r, ", ", color.g, ", ", color.b, ", ", color.a, ")");
}

}  // namespace

bool SettingValueTraits<bool>::Equal(bool const& a, bool const& b) {
    return a == b;
}
std::string SettingValueTraits<bool>::Text(bool const& value) {
    return value ? "true" : "false";
}

bool SettingValueTraits<dg::Color>::Equal(dg::Color const& a, dg::Color const& b) {
    return a == b;
}
std::string SettingValueTraits<dg::Color>::Text(dg::Color const& value) {
    return ColorText(value);
}

bool SettingValueTraits<float>::Equal(float const& a, float const& b) {
    return a == b;
}
std::string SettingValueTraits<float>::Text(float const& value) {
    return Join(value);
}

bool SettingValueTraits<CrossingPointStyle>::Equal(CrossingPointStyle const& a,
                                                   CrossingPointStyle const& b) {
    return a == b;
}
std::string SettingValueTraits<CrossingPointStyle>::Text(CrossingPointStyle const& value) {
    if (value == CROSSING_ARC) return "arc";
    return value == CROSSING_GAP ? "gap" : "none";
}

using LinePtr = ConstSmartPtr<zv2d::LineAttributes>;
bool SettingValueTraits<LinePtr>::Equal(LinePtr const& a, LinePtr const& b) {
    return SameContent(a, b);
}
std::string SettingValueTraits<LinePtr>::Text(LinePtr const& value) {
    if (!value) return "none";
    return Join("line ", value->GetWeight(), " of kind ", value->GetWeightKind(), ", ",
                value->GetLineStyle()->GetName().GetString(), ", ", ColorText(value->GetColor()));
}

using FillPtr = ConstSmartPtr<attrs::FillAttr>;
bool SettingValueTraits<FillPtr>::Equal(FillPtr const& a, FillPtr const& b) {
    return SameContent(a, b);
}
std::string SettingValueTraits<FillPtr>::Text(FillPtr const& value) {
    if (!value) return "none";
    return Join("fill of kind ", value->GetKind(), ", ", ColorText(value->GetColor()));
}

bool SettingValueTraits<ArrowStyle>::Equal(ArrowStyle const& a, ArrowStyle const& b) {
    return a == b;
}
std::string SettingValueTraits<ArrowStyle>::Text(ArrowStyle const& value) {
    return value.ToString();
}

bool SettingValueTraits<LineStyleAttr>::Equal(LineStyleAttr const& a, LineStyleAttr const& b) {
    return a == b;
}
std::string SettingValueTraits<LineStyleAttr>::Text(LineStyleAttr const& value) {
    return Join(value.style ? value.style->GetName().GetString() : "none", " of kind ", value.kind,
                " at ", value.scale);
}

bool SettingValueTraits<WeightAttr>::Equal(WeightAttr const& a, WeightAttr const& b) {
    return a == b;
}
std::string SettingValueTraits<WeightAttr>::Text(WeightAttr const& value) {
    return Join(value.weight, " of kind ", value.kind);
}

using TexturePtr = ConstSmartPtr<zv2d::Texture>;
bool SettingValueTraits<TexturePtr>::Equal(TexturePtr const& a, TexturePtr const& b) {
    return SameContent(a, b);
}
std::string SettingValueTraits<TexturePtr>::Text(TexturePtr const& value) {
    return value ? "texture " + value->GetName().GetString() : "none";
}

Setting::Setting(Key const& key, ConstSmartPtr<BaseSettingValue> const& value, Level const& level,
                 bool canBeInherited)
    : key_(key), value_(value), level_(level), canBeInherited_(canBeInherited) {}
Setting::Setting(Setting const& other)
    : du::RefCounted(other),
      key_(other.key_),
      value_(other.value_),
      level_(other.level_),
      canBeInherited_(other.canBeInherited_) {}
Setting::~Setting() = default;

std::string Setting::ToString() const {
    return Join("Key=<", static_cast<int>(key_), ">, Value=<", value_ ? value_->ToString() : "",
                ">, Level=<", static_cast<int>(level_), ">");
}

SmartPtr<Setting> Setting::Clone() const {
    ConstSmartPtr<BaseSettingValue> value;
    if (value_) value = value_->Clone();
    return SmartPtr<Setting>(new Setting(key_, value, level_, canBeInherited_));
}

SettingListVisitor::SettingListVisitor() = default;
SettingListVisitor::SettingListVisitor(SettingListVisitor const&) = default;
SettingListVisitor& SettingListVisitor::operator=(SettingListVisitor const&) = default;
SettingListVisitor::~SettingListVisitor() = default;

SettingList::SettingList() = default;
SettingList::SettingList(SettingList const& other)
    : du::RefCounted(other), settings_(other.settings_) {}
SettingList::~SettingList() = default;

namespace {

bool KeyBefore(ConstSmartPtr<Setting> const& setting, Setting::Key key) {
    return setting->GetKey() < key;
}

}  // namespace

ConstSmartPtr<Setting> SettingList::GetSetting(Setting::Key const& key, unsigned int& depth) const {
    auto const found = std::lower_bound(settings_.begin(), settings_.end(), key, KeyBefore);
    if (found == settings_.end() || (*found)->GetKey() != key) return nullptr;
    depth = 0;
    return *found;
}

bool SettingList::Empty() const {
    return settings_.empty();
}

bool SettingList::Visit(SettingListVisitor& visitor, Setting::Level level) const {
    for (ConstSmartPtr<Setting> const& setting : settings_) {
        if (level != Setting::LEVEL_ALL && setting->GetLevel() != level) continue;
        if (!visitor.Visit(setting)) return false;
    }
    return true;
}

void SettingList::Add(ConstSmartPtr<Setting> const& setting) {
    if (!setting) return;
    auto const found =
        std::lower_bound(settings_.begin(), settings_.end(), setting->GetKey(), KeyBefore);
    if (found != settings_.end() && (*found)->GetKey() == setting->GetKey()) {
        *found = setting;
    } else {
        settings_.insert(found, setting);
    }
}

}  // namespace figk
