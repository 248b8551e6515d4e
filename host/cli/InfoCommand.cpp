#include <cli/Commands.h>
#include <cli/ItemReport.h>
#include <cli/Json.h>

namespace fighost {

namespace {

struct Summary {
    std::map<std::string, std::size_t> items;
    std::size_t nets = 0;
    std::size_t crossings = 0;
    std::size_t warnings = 0;
};

Summary Summarise(Session const& session) {
    Summary summary;
    summary.items = CountItems(ListItems(session));
    summary.nets = ListNets(session).size();
    summary.crossings = CountCrossings(session);
    summary.warnings = session.GetFindings().GetWarningCount();
    return summary;
}

Json SummaryJson(Session const& session, Summary const& summary) {
    Json items = Json::object();
    for (auto const& [type, count] : summary.items)
        items[type] = count;
    Json json;
    json["file"] = session.GetFile();
    json["design"] = session.GetDesignName();
    json["sheets"] = ToJson(session.GetSheets());
    json["items"] = items;
    json["nets"] = summary.nets;
    json["crossings"] = summary.crossings;
    json["warnings"] = summary.warnings;
    json["warningKinds"] = ToJson(session.GetFindings().GetWarnings());
    return json;
}

std::string Row(std::string const& name, std::size_t count) {
    std::string row = "  " + name;
    constexpr std::size_t COLUMN = 24;
    row.append(row.size() < COLUMN ? COLUMN - row.size() : 1, ' ');
    return row + std::to_string(count) + "\n";
}

std::string SummaryText(Session const& session, Summary const& summary) {
    std::string text = session.GetDesignName() + " (" + session.GetFile() + ")\n";
    text += "sheets\n";
    for (SessionSheet const& sheet : session.GetSheets()) {
        text += "  " + sheet.path + "  " + sheet.name + "\n";
    }
    text += "items\n";
    for (auto const& [type, count] : summary.items)
        text += Row(type, count);
    text += "wiring\n" + Row("nets", summary.nets) + Row("crossings", summary.crossings);
    text += "reading\n" + Row("warnings", summary.warnings);
    return text;
}

ExitCode ItemInfo(Session const& session, InfoArguments const& arguments) {
    NamedItems const found = FindNamedItems(session, {arguments.item});
    if (auto const complaint = ComplaintAbout(found)) {
        PrintMessage("info: " + *complaint);
        return EXIT_WRONG_USAGE;
    }
    Json list = Json::array();
    std::string text;
    for (SheetItem const& item : found.items) {
        ItemStatus const status = StatusOf(item);
        list.push_back(ToJson(status));
        text += (text.empty() ? "" : "\n") + StatusText(status);
    }
    return PrintData(arguments.json ? JsonText(list) : text);
}

}  // namespace

ExitCode Info(InfoArguments const& arguments) {
    std::unique_ptr<Session> const session = OpenSession(arguments);
    if (!session) return EXIT_UNREADABLE_INPUT;
    if (!arguments.item.empty()) return ItemInfo(*session, arguments);
    Summary const summary = Summarise(*session);
    return PrintData(arguments.json ? JsonText(SummaryJson(*session, summary))
                                    : SummaryText(*session, summary));
}

}  // namespace fighost
