#include <figrep/Setting.h>

namespace figrep {

namespace {

constexpr int MEMBER_BITS = 4;
constexpr int MEMBER_MASK = (1 << MEMBER_BITS) - 1;

constexpr char const* BACKGROUND_COLOR_TEXT = "BACKGROUND_COLOR";
constexpr char const* ITEM_VISIBILITY_TEXT = "ITEM_VISIBILITY";

char const* KeyText(Setting::RepKey key) {
    switch (key) {
        case Setting::TEXT_COLOR:
            return "TEXT_COLOR";
        case Setting::BACKGROUND_COLOR:
            return BACKGROUND_COLOR_TEXT;
        case Setting::ARROW_STYLE:
            return "ARROW_STYLE";
        case Setting::COLOR:
            return "COLOR";
        case Setting::CROSSING_POINT_STYLE:
            return "CROSSING_POINT_STYLE";
        case Setting::FILL_ATTRIBUTES:
            return "FILL_ATTRIBUTES";
        case Setting::SELECTION_HIGHLIGHT_COLOR:
        case Setting::PRESELECTION_HIGHLIGHT_COLOR:  // dumps don't tell the two apart
            return "SELECTION_HIGHLIGHT_COLOR";
        case Setting::LINE_COLOR:
            return "LINE_COLOR";
        case Setting::LINE_WEIGHT:
            return "LINE_WEIGHT";
        case Setting::LINE_STYLE:
            return "LINE_STYLE";
        case Setting::TOP_SEGMENT_VERTICAL:
            return "TOP_SEGMENT_VERTICAL";
        case Setting::TEXTURE:
            return "TEXTURE";
        case Setting::TRANSPARENCY:
            return "TRANSPARENCY";
        case Setting::SELECTION_USE_LOWLIGHT:
            return "SELECTION_USE_LOWLIGHT";
        case Setting::PRESELECTION_USE_LOWLIGHT:
            return "PRESELECTION_USE_LOWLIGHT";
        case Setting::PRESELECTION_NONE:
            return "PRESELECTION_NONE";
        case Setting::DIM:
            return "DIM";
        default:
            return "Not translated";
    }
}

}  // namespace

Setting::Setting(RepKey key, du::ConstSmartPtr<figk::BaseSettingValue> const& value,
                 figk::Setting::Level level, bool canBeInherited)
    : figk::Setting(GetKernelKey(key), value, level, canBeInherited), repKey_(key) {}

Setting::~Setting() = default;

Setting::RepKey Setting::ConvertToRepKey(figk::Setting::Key key) {
    // Shifted without a sign, since bits that leave at the top are no error.
    return static_cast<RepKey>(static_cast<unsigned int>(key) << MEMBER_BITS);
}

bool Setting::GetRepKey(figk::Setting::Key key, RepKey& out) {
    out = ConvertToRepKey(key);
    return true;
}

figk::Setting::Key Setting::GetKernelKey(RepKey key) {
    return static_cast<figk::Setting::Key>(static_cast<int>(key) >> MEMBER_BITS);
}

bool Setting::HasKernelKey(RepKey key) {
    return (key & ~MEMBER_MASK) != 0;
}

bool Setting::IsComplexKey(RepKey key) {
    return (key & MEMBER_MASK) != 0 && HasKernelKey(key);
}

Setting::RepKey Setting::GetCompositeKey(RepKey key) {
    return static_cast<RepKey>(key & ~MEMBER_MASK);
}

du::SmartPtr<Setting> Setting::Copy(figk::Setting::Level const& level) const {
    auto const& value = GetBaseValue();
    du::ConstSmartPtr<figk::BaseSettingValue> clone;
    if (value) clone = value->Clone();
    return new Setting(repKey_, clone, level, CanBeInherited());
}

std::string Setting::ToString() const {
    return figk::Setting::ToString() + ", " + RepKeyToString();
}

std::string Setting::RepKeyToString() const {
    return std::string("RepKey=<") + KeyText(repKey_) + ">";
}

du::Symbol Setting::RepKeyToSymbol() const {
    if (repKey_ == BACKGROUND_COLOR) return du::Symbol(BACKGROUND_COLOR_TEXT);
    if (repKey_ == ITEM_VISIBILITY) return du::Symbol(ITEM_VISIBILITY_TEXT);
    return du::Symbol::EMPTY;
}

Setting::RepKey Setting::SymbolToRepKey(du::Symbol const& text) {
    if (text.GetString() == ITEM_VISIBILITY_TEXT) return ITEM_VISIBILITY;
    if (text.GetString() == BACKGROUND_COLOR_TEXT) return BACKGROUND_COLOR;
    return UNKNOWN_REP_KEY;
}

}  // namespace figrep
