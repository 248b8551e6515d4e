#include <cli/Commands.h>
#include <cli/Json.h>
#include <session/Trace.h>

namespace fighost {

namespace {

Json PlaceJson(TracePlace const& place) {
    return {{"sheet", place.sheet}, {"column", place.x}, {"row", place.y}};
}

Json PortJson(TracePort const& port) {
    Json leadsTo = Json::array();
    for (TracePlace const& place : port.leadsTo)
        leadsTo.push_back(PlaceJson(place));
    return {{"id", port.id},
            {"name", port.name},
            {"column", port.place.x},
            {"row", port.place.y},
            {"leadsTo", leadsTo}};
}

Json TraceJson(NetTrace const& trace) {
    Json sheets = Json::array();
    for (TraceSheet const& sheet : trace.sheets) {
        Json ports = Json::array();
        for (TracePort const& port : sheet.ports)
            ports.push_back(PortJson(port));
        sheets.push_back({{"sheet", sheet.path},
                          {"reachedByPort", sheet.reachedByPort},
                          {"ports", ports},
                          {"pins", sheet.pins}});
    }
    return {{"net", trace.net}, {"sheets", sheets}};
}

std::string Location(TracePlace const& place) {
    return place.x.empty() && place.y.empty() ? std::string() : " " + place.y + place.x;
}

std::string TraceText(NetTrace const& trace) {
    std::string text = trace.net + "\n";
    for (TraceSheet const& sheet : trace.sheets) {
        bool const byName = !sheet.reachedByPort && &sheet != &trace.sheets.front();
        text += sheet.path + (byName ? "  (by name)\n" : "\n");
        for (TracePort const& port : sheet.ports) {
            text += "  port " + port.name + Location(port.place);
            for (TracePlace const& place : port.leadsTo) {
                text += (&place == &port.leadsTo.front() ? " -> " : ", ") + place.sheet +
                        Location(place);
            }
            text += '\n';
        }
        for (std::string const& pin : sheet.pins)
            text += "  pin " + pin + "\n";
    }
    return text;
}

}  // namespace

ExitCode Trace(TraceArguments const& arguments) {
    std::unique_ptr<Session> const session = OpenSession(arguments);
    if (!session) return EXIT_UNREADABLE_INPUT;
    std::optional<NetTrace> const trace = TraceNet(*session, arguments.net);
    if (!trace) {
        PrintMessage("trace: no net is called '" + arguments.net +
                     "'; 'figrep list nets' names them all");
        return EXIT_WRONG_USAGE;
    }
    return PrintData(arguments.json ? JsonText(TraceJson(*trace)) : TraceText(*trace));
}

}  // namespace fighost
