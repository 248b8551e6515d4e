#include <session/query/SettingChain.h>

#include <figk/ConnectorInstance.h>
#include <figk/SchematicKernel.h>
#include <figk/SettingValue.h>
#include <figrep/BaseBlockInstance.h>
#include <figrep/BaseGraphic.h>
#include <figrep/CableInstance.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/Figure.h>
#include <figrep/Format.h>
#include <figrep/HighwaySegment.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/Setting.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/SubNetSegment.h>
#include <figrep/TitleBlock.h>
#include <session/items/ForEachItem.h>
#include <session/items/Graphics.h>
#include <session/items/Pins.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>

namespace fighost {

namespace {

using figrep::AbstractFigureItem;
using figrep::Setting;
using figrep::SettingList;
using figrep::SmartPtr;
using FoundSetting = figrep::ConstSmartPtr<figk::Setting>;

constexpr std::pair<Setting::RepKey, char const*> SETTINGS[] = {
    {Setting::ITEM_VISIBILITY, "visible"},
    {Setting::COLOR, "color"},
    {Setting::TEXT_COLOR, "text color"},
    {Setting::BACKGROUND_COLOR, "background color"},
    {Setting::LINE_COLOR, "line color"},
    {Setting::LINE_WEIGHT, "line weight"},
    {Setting::LINE_STYLE, "line style"},
    {Setting::FILL_ATTRIBUTES, "fill"},
    {Setting::TEXTURE, "texture"},
    {Setting::TRANSPARENCY, "transparency"},
    {Setting::DIM, "dim"},
    {Setting::CROSSING_POINT_STYLE, "crossings"},
    {Setting::TOP_SEGMENT_VERTICAL, "vertical wires on top"},
    {Setting::ARROW_STYLE, "arrows"},
    {Setting::SELECTION_HIGHLIGHT_COLOR, "selection color"},
    {Setting::PRESELECTION_HIGHLIGHT_COLOR, "preselection color"},
    {Setting::PRESELECTION_NONE, "no preselection"},
    {Setting::FORMAT_GRID_ON, "grid lines"},
};

char const* LevelName(int level) {
    static constexpr char const* NAMES[] = {"all",    "default", "base",    "profile",
                                            "forced", "upper A", "upper B", "figure"};
    return level >= 0 && level <= 7 ? NAMES[level] : "";
}

std::string ColorText(dg::Color const& color) {
    auto const byte = [](float channel) {
        return static_cast<unsigned>(std::lround(std::clamp(channel, 0.0F, 1.0F) * 255));
    };
    char text[10];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", byte(color.r), byte(color.g), byte(color.b));
    std::string result = text;
    if (color.a < 1) {
        std::snprintf(text, sizeof text, "%02x", byte(color.a));
        result += text;
    }
    return result;
}

std::string WeightText(float weight, int kind) {
    constexpr int COUNTS = 3;  // any other kind leaves the width to painters
    if (kind != COUNTS) return "default";
    char text[32];
    std::snprintf(text, sizeof text, "%g mm", static_cast<double>(weight));
    return text;
}

std::string StyleText(figrep::ConstSmartPtr<zv2d::LineStyle> const& style) {
    return style ? style->GetName().GetString() : "none";
}

template <typename T>
T const* As(figk::BaseSettingValue const& value) {
    auto const* typed = dynamic_cast<figk::SettingValue<T> const*>(&value);
    return typed ? &typed->value : nullptr;
}

// What line attributes as a whole say about one of their members.
std::string MemberText(zv2d::LineAttributes const& line, Setting::RepKey key) {
    if (key == Setting::LINE_COLOR) return ColorText(line.GetColor());
    if (key == Setting::LINE_WEIGHT) return WeightText(line.GetWeight(), line.GetWeightKind());
    return StyleText(line.GetLineStyle());
}

std::string ValueText(figk::BaseSettingValue const& value, Setting::RepKey key) {
    using LinePtr = figrep::ConstSmartPtr<zv2d::LineAttributes>;
    if (auto const* on = As<bool>(value)) return *on ? "yes" : "no";
    if (auto const* color = As<dg::Color>(value)) return ColorText(*color);
    if (auto const* line = As<LinePtr>(value)) return *line ? MemberText(**line, key) : "none";
    if (auto const* weight = As<figk::WeightAttr>(value)) {
        return WeightText(weight->weight, weight->kind);
    }
    if (auto const* style = As<figk::LineStyleAttr>(value)) return StyleText(style->style);
    if (auto const* crossing = As<figk::CrossingPointStyle>(value)) {
        if (*crossing == figk::CROSSING_ARC) return "arc";
        return *crossing == figk::CROSSING_GAP ? "gap" : "none";
    }
    return value.ToString();
}

Setting::RepKey KeyOf(figk::Setting const& setting) {
    auto const* own = dynamic_cast<Setting const*>(&setting);
    return own ? own->GetRepKey() : Setting::ConvertToRepKey(setting.GetKey());
}

class OwnSettingSearch : public figk::SettingListVisitor {
public:
    explicit OwnSettingSearch(FoundSetting const& wanted) : wanted_(wanted) {}
    bool Visit(figrep::ConstSmartPtr<figk::Setting> const& setting) override {
        found = found || setting.Get() == wanted_.Get();
        return !found;
    }
    bool found = false;

private:
    FoundSetting const& wanted_;
};

// Whether the list itself holds the setting, and not the record behind it.
bool IsOwn(SettingList const& list, FoundSetting const& setting) {
    // Visits leave these two levels out, and a record doesn't have them.
    int const level = setting->GetLevel();
    if (level == figk::Setting::LEVEL_UPPER_A || level == figk::Setting::LEVEL_UPPER_B) return true;
    OwnSettingSearch search(setting);
    list.Visit(search, false, figk::Setting::LEVEL_ALL);
    return search.found;
}

bool IsHeldBy(SettingList const& list, FoundSetting const& setting) {
    unsigned steps = 0;
    FoundSetting const here = list.GetSetting(KeyOf(*setting), steps, false);
    return here.Get() == setting.Get() && steps == 0;
}

std::string HolderOf(AbstractFigureItem const& item, FoundSetting const& setting) {
    if (IsHeldBy(item, setting)) return IsOwn(item, setting) ? "itself" : "its record";
    for (auto parent = ParentOf(item); parent; parent = ParentOf(*parent)) {
        if (IsHeldBy(*parent, setting)) return KindAndName(*parent);
    }
    SmartPtr<figrep::Figure> const figure = item.GetFigure();
    if (figure && IsHeldBy(*figure, setting)) return "figure";
    auto const kernel = figk::SchematicKernel::GetSchematicKernel();
    unsigned steps = 0;
    bool const isKernels =
        kernel && kernel->GetSetting(setting->GetKey(), steps, false).Get() == setting.Get();
    return isKernels ? "kernel" : "what it is grouped with";
}

}  // namespace

SmartPtr<AbstractFigureItem> ParentOf(AbstractFigureItem const& item) {
    if (auto const* graphic = dynamic_cast<figrep::BaseGraphic const*>(&item)) {
        return OwnerOf(*graphic);
    }
    if (auto const* pin = dynamic_cast<figrep::ConnectorInstance const*>(&item)) {
        return pin->GetBlockInstance();
    }
    if (auto const* block = dynamic_cast<figrep::BaseBlockInstance const*>(&item)) {
        return block->GetParent();
    }
    if (auto const* segment = dynamic_cast<figrep::SubNetSegment const*>(&item)) {
        return segment->GetSubNet();
    }
    if (auto const* segment = dynamic_cast<figrep::HighwaySegment const*>(&item)) {
        return segment->GetSubHighway();
    }
    if (auto const* subNet = dynamic_cast<figrep::SubNet const*>(&item)) return subNet->GetCable();
    if (auto const* node = dynamic_cast<figrep::PortNode const*>(&item)) return node->GetPort();
    if (auto const* block = dynamic_cast<figrep::TitleBlock const*>(&item)) {
        return block->GetFormat();
    }
    return {};
}

std::string KindAndName(AbstractFigureItem const& item) {
    auto const pin = du::DynamicCast<figk::ConnectorInstance>(item.GetKernelItem());
    std::string name = pin ? PinName(*pin) : std::string();
    if (name.empty()) name = DisplayNameOf(item);
    return name.empty() ? item.GetTypeName() : item.GetTypeName() + " " + name;
}

std::vector<SettingStatus> SettingsOf(AbstractFigureItem const& item) {
    std::vector<SettingStatus> settings;
    for (auto const& [key, name] : SETTINGS) {
        SettingStatus status;
        FoundSetting const found = item.SettingList::GetSetting(key, status.steps);
        if (!found || !found->GetBaseValue()) continue;
        status.name = name;
        status.value = ValueText(*found->GetBaseValue(), key);
        status.level = found->GetLevel();
        status.levelName = LevelName(status.level);
        status.from = HolderOf(item, found);
        settings.push_back(std::move(status));
    }
    return settings;
}

}  // namespace fighost
