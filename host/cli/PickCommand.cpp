#include <cli/Commands.h>
#include <cli/Json.h>
#include <cli/Lines.h>
#include <figrep/AbstractFigureItem.h>
#include <session/items/ForEachItem.h>
#include <session/query/ItemStatus.h>
#include <session/query/Picker.h>

#include <cmath>
#include <optional>
#include <sstream>
#include <vector>

namespace fighost {

namespace {

using figrep::SmartPtr;

// Two numbers for a point, four for a window; nothing for anything else.
std::optional<std::vector<double>> ParsePlace(std::string const& text) {
    std::vector<double> numbers;
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    do {
        double number = 0;
        if (!(stream >> number) || !std::isfinite(number)) return {};
        numbers.push_back(number);
    } while (stream.get() == ',');
    bool const isWhole = stream.eof() && (numbers.size() == 2 || numbers.size() == 4);
    return isWhole ? std::optional(numbers) : std::nullopt;
}

struct Picked {
    SmartPtr<figrep::AbstractFigureItem> item;
    std::optional<double> distance;  // of a point, from what is drawn
};

std::vector<Picked> PickAt(PickArguments const& arguments, SessionSheet const& sheet,
                           std::vector<double> const& place) {
    Picker picker(sheet.figure);
    dg::DPoint2D const first = FigurePoint(sheet, place[0], place[1]);
    std::vector<Picked> picked;
    if (place.size() == 2) {
        for (Picker::Hit const& hit : picker.At(first, arguments.tolerance)) {
            auto const distance = hit.isAround ? std::nullopt : std::optional(hit.distance);
            picked.push_back({hit.item, distance});
        }
        return picked;
    }
    dg::DBox2D const window(first, FigurePoint(sheet, place[2], place[3]));
    for (auto const& item : arguments.touching ? picker.Touching(window) : picker.Inside(window))
        picked.push_back({item, {}});
    return picked;
}

Json PickedJson(Picked const& picked) {
    Json json = {{"type", picked.item->GetTypeName()},
                 {"id", picked.item->GetId().GetString()},
                 {"name", DisplayNameOf(*picked.item)},
                 {"nets", NetsOf(*picked.item)}};
    if (picked.distance) json["distance"] = std::round(*picked.distance * 1e4) / 1e4;
    return json;
}

std::string PickedLine(Picked const& picked) {
    std::string nets;
    for (std::string const& net : NetsOf(*picked.item))
        nets += (nets.empty() ? "" : " ") + net;
    return Line({picked.item->GetTypeName(), DisplayNameOf(*picked.item), nets,
                 picked.item->GetId().GetString()});
}

}  // namespace

ExitCode Pick(PickArguments const& arguments) {
    auto const place = ParsePlace(arguments.place);
    if (!place) {
        PrintMessage("pick: '" + arguments.place +
                     "' is neither a point, as in 120.5,85, nor a window, as in 100,50,140,90");
        return EXIT_WRONG_USAGE;
    }
    std::unique_ptr<Session> const session = OpenSession(arguments);
    if (!session) return EXIT_UNREADABLE_INPUT;
    auto const sheets = session->FindSheets(arguments.sheet);
    if (sheets.empty()) return RefuseSheet("pick", arguments.sheet);
    if (sheets.size() > 1) {
        PrintMessage("pick: several sheets are called '" + arguments.sheet +
                     "'; name one by its path");
        return EXIT_WRONG_USAGE;
    }
    std::vector<Picked> const picked = PickAt(arguments, *sheets[0], *place);
    Json list = Json::array();
    std::string text;
    for (Picked const& each : picked) {
        if (arguments.json) {
            list.push_back(PickedJson(each));
        } else {
            text += PickedLine(each);
        }
    }
    if (picked.empty() && !arguments.quiet) PrintMessage("pick: nothing is there");
    return PrintData(arguments.json ? JsonText(list) : text);
}

}  // namespace fighost
