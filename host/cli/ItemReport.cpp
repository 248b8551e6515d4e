#include <cli/ItemReport.h>

#include <cli/Lines.h>

namespace fighost {

namespace {

Json PairsJson(ItemStatus::Pairs const& pairs, char const* first, char const* second) {
    Json list = Json::array();
    for (auto const& [a, b] : pairs)
        list.push_back({{first, a}, {second, b}});
    return list;
}

// A name, blanks up to a common column, and a value; nothing without a value.
std::string Row(std::string const& name, std::string const& value) {
    constexpr std::size_t COLUMN = 24;
    if (value.empty()) return {};
    std::string row = "  " + OneLine(name);
    row.append(row.size() < COLUMN ? COLUMN - row.size() : 1, ' ');
    return row + OneLine(value) + "\n";
}

std::string Joined(std::vector<std::string> const& texts) {
    std::string joined;
    for (std::string const& text : texts)
        joined += (joined.empty() ? "" : " ") + text;
    return joined;
}

std::string SettingText(SettingStatus const& setting) {
    return setting.value + ", level " + std::to_string(setting.level) + " (" + setting.levelName +
           "), from " + setting.from;
}

}  // namespace

Json ToJson(ItemStatus const& status) {
    Json settings = Json::array();
    for (SettingStatus const& setting : status.settings) {
        settings.push_back({{"name", setting.name},
                            {"value", setting.value},
                            {"level", setting.level},
                            {"levelName", setting.levelName},
                            {"from", setting.from},
                            {"steps", setting.steps}});
    }
    Json json = {{"type", status.type}, {"id", status.id}, {"name", status.name}};
    json.update(PlaceJson(status.place));
    json["visible"] = status.isVisible;
    json["partOf"] = status.partOf;
    json["nets"] = status.nets;
    json["cables"] = status.cables;
    json["members"] = status.members;
    json["pins"] = PairsJson(status.pins, "pin", "net");
    json["attributes"] = PairsJson(status.attributes, "name", "value");
    json["settings"] = settings;
    return json;
}

std::string StatusText(ItemStatus const& status) {
    std::string const cell = status.place.GetCell();
    std::string text = OneLine(status.type + (status.name.empty() ? "" : " " + status.name)) + "\n";
    text += Row("id", status.id);
    text += Row("place", status.place.sheet + (cell.empty() ? "" : " " + cell));
    text += Row("part of", status.partOf);
    text += Row("shown", status.isVisible ? "yes" : "no");
    text += Row("nets", status.pins.empty() ? Joined(status.nets) : std::string());
    text += Row("cables", Joined(status.cables));
    text += Row("carries", Joined(status.members));
    for (auto const& [pin, net] : status.pins)
        text += Row("pin " + pin, net.empty() ? "not connected" : net);
    for (auto const& [name, value] : status.attributes)
        text += Row(name, value);
    for (SettingStatus const& setting : status.settings)
        text += Row(setting.name, SettingText(setting));
    return text;
}

}  // namespace fighost
