#include <cli/Commands.h>
#include <cli/Json.h>
#include <cli/Output.h>
#include <cli/UnknownNet.h>
#include <session/nets/NetHighlight.h>
#include <session/nets/Trace.h>
#include <session/nets/TraceIndex.h>

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

namespace {

// The index of what was saved; nothing, with a message, when there is none.
std::optional<TraceIndex> LoadTraces(std::string const& path) {
    DiskFiles files;
    ReadTracesResult result = ReadTraces(files, path);
    if (result.error) PrintMessage(result.error->ToString());
    return std::move(result.index);
}

ExitCode SaveTraces(TraceIndex const& index, std::string const& path) {
    std::string error;
    if (WriteOutput(path, WriteTraces(index), error)) return EXIT_DONE;
    PrintMessage(error);
    return EXIT_CANNOT_WRITE;
}

ExitCode PrintTrace(NetTrace const& trace, bool json) {
    return PrintData(json ? JsonText(TraceJson(trace)) : TraceText(trace));
}

ExitCode Refuse(std::string const& problem) {
    PrintMessage("trace: " + problem);
    return EXIT_WRONG_USAGE;
}

ExitCode TraceSaved(TraceArguments const& arguments) {
    std::optional<TraceIndex> const index = LoadTraces(arguments.representation);
    if (!index) return EXIT_UNREADABLE_INPUT;
    std::optional<NetTrace> const trace = TraceNet(*index, arguments.net);
    if (trace) return PrintTrace(*trace, arguments.json);
    std::vector<std::string> names;
    for (auto const& [name, stops] : index->nets)
        names.push_back(name);
    return Refuse(UnknownNet(names, arguments.net));
}

}  // namespace

ExitCode Trace(TraceArguments const& arguments) {
    if (!arguments.representation.empty()) return TraceSaved(arguments);
    if (RefuseOverDesign("trace", arguments.file, arguments.save)) return EXIT_WRONG_USAGE;
    std::unique_ptr<Session> const session = OpenSession(arguments);
    if (!session) return EXIT_UNREADABLE_INPUT;
    if (!arguments.save.empty()) {
        ExitCode const saved = SaveTraces(IndexNets(*session), arguments.save);
        if (saved != EXIT_DONE || arguments.net.empty()) return saved;
    }
    std::optional<NetTrace> const trace = TraceNet(*session, arguments.net);
    return trace ? PrintTrace(*trace, arguments.json)
                 : Refuse(UnknownNetOfDesign(NetNames(*session), arguments.net));
}

}  // namespace fighost
