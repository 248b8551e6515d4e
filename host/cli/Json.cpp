#include <cli/Json.h>

#include <cmath>

namespace fighost {

Json ToJson(NetEntry const& net) {
    return {
        {"name", net.name}, {"pins", net.pins}, {"sheets", net.sheets}, {"subnets", net.subnets}};
}

Json ToJson(ItemEntry const& item) {
    return {{"id", item.id}, {"type", item.type}, {"name", item.name}, {"sheet", item.sheet}};
}

Json ToJson(PortEntry const& port) {
    return {{"id", port.id},
            {"name", port.name},
            {"carries", port.carries},
            {"target", port.target},
            {"sheets", port.sheets}};
}

Json ToJson(SessionSheet const& sheet) {
    return {{"id", sheet.id}, {"name", sheet.name}, {"path", sheet.path}};
}

Json ToJson(WarningCount const& warning) {
    Place const& place = warning.first.place;
    return {{"kind", warning.kind}, {"count", warning.count}, {"file", place.file},
            {"line", place.line},   {"column", place.column}, {"message", warning.first.sentence}};
}

Json PlaceJson(SheetPlace const& place) {
    auto const rounded = [](double mm) { return std::round(mm * 1e4) / 1e4 + 0.0; };
    return {{"sheet", place.sheet},
            {"column", place.column},
            {"row", place.row},
            {"x", rounded(place.x)},
            {"y", rounded(place.y)}};
}

std::string JsonText(Json const& json) {
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace fighost
