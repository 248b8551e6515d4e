#include <persistence/ColorDelta.h>

#include <unordered_set>

#include <figk/SettingValue.h>
#include <figrep/AbstractFigureItem.h>
#include <figrep/Figure.h>
#include <painters/HexColor.h>
#include <persistence/ContentFields.h>
#include <zvk/SerializedContentElement.h>

namespace fighost {

namespace {

using figrep::ConstSmartPtr;
using figrep::Setting;
using figrep::SmartPtr;
using figrep::Symbol;

struct PartName {
    ColorDelta::Part part;
    char const* name;
    char const* verb;
};
constexpr PartName PARTS[] = {{ColorDelta::LINES_AND_TEXTS, "lines_and_texts", "colour"},
                              {ColorDelta::FILLS, "fills", "fill"},
                              {ColorDelta::PAPER, "paper", "colour the paper"}};

Symbol const& TypeValue() {
    static Symbol const value("figrep_colour_delta");
    return value;
}
Symbol const& PartKey() {
    static Symbol const key("coloured_part");
    return key;
}

constexpr char const* CHANNELS[] = {"red", "green", "blue", "opacity"};

PartName const* FindPart(Symbol const& name) {
    for (PartName const& part : PARTS) {
        if (name.GetString() == part.name) return &part;
    }
    return nullptr;
}

template <typename Value>
ConstSmartPtr<Setting> UserSetting(Setting::RepKey key, Value const& value) {
    ConstSmartPtr<figk::BaseSettingValue> const held = new figk::SettingValue<Value>(value);
    return SmartPtr<Setting>(new Setting(key, held, figk::Setting::LEVEL_FIGURE, true));
}

// Draw states keep the fill that they were told last until they are told another one. This one
// leaves all as it is drawn, and any other setting counts more.
ConstSmartPtr<Setting> NoFill() {
    ConstSmartPtr<attrs::FillAttr> const none = SmartPtr<attrs::FillAttr>(new attrs::FillAttr());
    ConstSmartPtr<figk::BaseSettingValue> const held =
        new figk::SettingValue<ConstSmartPtr<attrs::FillAttr>>(none);
    return SmartPtr<Setting>(
        new Setting(Setting::FILL_ATTRIBUTES, held, figk::Setting::LEVEL_DEFAULT, true));
}

ConstSmartPtr<Setting> OwnUserSetting(figrep::SettingList const& list, Setting::RepKey key) {
    unsigned depth = 0;
    auto const found = list.GetSetting(key, depth, false);
    if (!found || depth != 0 || found->GetLevel() != figk::Setting::LEVEL_FIGURE) return {};
    return du::DynamicCast<Setting>(found);
}

dg::Color ReadColor(ContentFields& fields) {
    float channels[4] = {};
    for (int i = 0; i < 4; ++i) {
        double const value = fields.Real(Symbol(CHANNELS[i]));
        if (value < 0 || value > 1) {
            fields.Complain("its '" + std::string(CHANNELS[i]) + "' isn't between 0 and 1");
        }
        channels[i] = static_cast<float>(value);
    }
    return {channels[0], channels[1], channels[2], channels[3]};
}

LoadedDelta Load(zvk::SerializedContentElement const& element, SmartPtr<figrep::Figure> const&) {
    ContentFields fields(element);
    PartName const* part = FindPart(fields.Text(PartKey()));
    dg::Color const color = ReadColor(fields);
    auto const ids = fields.Texts(figk::AbstractDelta::s_delta_id_list_entry);
    if (!part) fields.Complain("it colours an unknown part");
    LoadedDelta loaded;
    loaded.problem = fields.GetProblem();
    if (loaded.problem.empty()) loaded.delta = new ColorDelta(part->part, color, ids);
    return loaded;
}

}  // namespace

ColorDelta::ColorDelta(Part part, dg::Color const& color, Items const& items)
    : AbstractFigureDelta(ACTION_CHANGE, false), part_(part), color_(color) {
    AddItemsOnce(items);
    MakeSettings();
}

ColorDelta::ColorDelta(Part part, dg::Color const& color, std::vector<Symbol> const& ids)
    : AbstractFigureDelta(ACTION_CHANGE, false), part_(part), color_(color), ids_(ids) {
    MakeSettings();
}

ColorDelta::~ColorDelta() = default;

void ColorDelta::MakeSettings() {
    switch (part_) {
        case LINES_AND_TEXTS:
            // A line colour counts for lines and a text colour for texts, before any other.
            for (auto const key : {Setting::COLOR, Setting::LINE_COLOR, Setting::TEXT_COLOR})
                settings_.push_back(UserSetting(key, color_));
            break;
        case FILLS: {
            ConstSmartPtr<attrs::FillAttr> const fill =
                SmartPtr<attrs::FillAttr>(new attrs::FillAttr(attrs::FillAttr::SOLID, color_));
            settings_.push_back(UserSetting(Setting::FILL_ATTRIBUTES, fill));
            break;
        }
        case PAPER:
            settings_.push_back(UserSetting(Setting::BACKGROUND_COLOR, color_));
            break;
    }
}

Symbol ColorDelta::GetClassTypeValue() {
    return TypeValue();
}

void ColorDelta::AddTo(DeltaTypes& types) {
    types.Add(TypeValue(), Load);
}

std::string ColorDelta::Describe(zvk::SerializedContentElement const& element,
                                 std::string const& targets) {
    ContentFields fields(element);
    PartName const* part = FindPart(fields.Text(PartKey()));
    std::string const color = HexColor(ReadColor(fields));
    if (!part) return "colour a part of " + targets;
    return std::string(part->verb) + " " + (part->part == PAPER ? "" : targets + " ") + color;
}

void ColorDelta::AddItemsOnce(Items const& items) {
    std::unordered_set<SmartPtr<figrep::AbstractFigureItem>> known(items_.begin(), items_.end());
    for (auto const& item : items) {
        if (item && known.insert(item).second) items_.push_back(item);
    }
}

bool ColorDelta::_Verify(figk::AbstractDeltaReceiver& receiver) {
    SmartPtr<figrep::Figure> const figure = dynamic_cast<figrep::Figure*>(&receiver);
    if (!figure) return false;
    Items found;
    for (Symbol const& id : ids_)
        found.push_back(figure->Find(id));
    AddItemsOnce(found);
    return part_ == PAPER || !items_.empty();
}

void ColorDelta::_Apply(figk::AbstractDeltaReceiver& receiver) {
    for (SettingPtr const& setting : settings_) {
        if (part_ == PAPER) {
            Give(dynamic_cast<figrep::Figure&>(receiver), nullptr, setting);
            continue;
        }
        for (auto const& item : items_)
            Give(*item, item, setting);
    }
    for (auto const& item : items_)
        NoteChangedItem(item);
}

// Applied again, the delta finds the setting that it has put there itself; what stood there before
// is what it remembers already.
void ColorDelta::Give(figrep::SettingList& list, SmartPtr<figrep::AbstractFigureItem> const& item,
                      SettingPtr const& setting) {
    SettingPtr const own = OwnUserSetting(list, setting->GetRepKey());
    if (own == setting) return;
    previous_.push_back({item, setting->GetRepKey(), own});
    list.AddSetting(setting, true);
}

void ColorDelta::Undo(figrep::Figure& figure) {
    for (Previous const& previous : previous_) {
        figrep::SettingList& list = previous.item
                                        ? static_cast<figrep::SettingList&>(*previous.item)
                                        : static_cast<figrep::SettingList&>(figure);
        list.RemoveSetting(previous.key, figk::Setting::LEVEL_FIGURE);
        if (previous.setting) list.AddSetting(previous.setting, true);
        if (!previous.setting && part_ == FILLS) list.AddSetting(NoFill(), true);
    }
    previous_.clear();
}

void ColorDelta::_Serialize(zvk::SerializedContentElement* element) {
    SerializeBase(element);
    element->AddProperty(s_delta_type, TypeValue());
    for (auto const& item : items_) {
        if (!item->GetId().IsEmpty()) element->AddProperty(s_delta_id_list_entry, item->GetId());
    }
    element->AddProperty(PartKey(), Symbol(PARTS[part_].name));
    float const channels[] = {color_.r, color_.g, color_.b, color_.a};
    for (int i = 0; i < 4; ++i)
        element->AddProperty(Symbol(CHANNELS[i]), static_cast<double>(channels[i]));
}

}  // namespace fighost
