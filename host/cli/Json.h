// The JSON that the commands print.
#pragma once

#include <string>
#include <vector>

#include <session/query/Inventory.h>
#include <session/query/SheetPlace.h>
#include <nlohmann/json.hpp>

namespace fighost {

/// Keeps the order of keys, so that the output reads the same on every run.
using Json = nlohmann::ordered_json;

Json ToJson(NetEntry const& net);
Json ToJson(ItemEntry const& item);
Json ToJson(PortEntry const& port);
Json ToJson(SessionSheet const& sheet);
Json ToJson(WarningCount const& warning);

/// An object with sheet, column, row, x and y; the numbers to 100 nm, as files have them.
Json PlaceJson(SheetPlace const& place);

template <typename Entry>
Json ToJson(std::vector<Entry> const& entries) {
    Json list = Json::array();
    for (Entry const& entry : entries)
        list.push_back(ToJson(entry));
    return list;
}

/// Indented, with a newline at the end; bytes that aren't UTF-8 become U+FFFD.
std::string JsonText(Json const& json);

}  // namespace fighost
