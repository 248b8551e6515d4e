#include <cli/Commands.h>
#include <cli/Json.h>
#include <cli/Lines.h>

namespace fighost {

namespace {

std::string Joined(std::vector<std::string> const& texts) {
    std::string joined;
    for (std::string const& text : texts) {
        if (!joined.empty()) joined += ' ';
        joined += text;
    }
    return joined;
}

std::string ToLine(NetEntry const& net) {
    return Line({net.name, Joined(net.pins), Joined(net.sheets)});
}

std::string ToLine(ItemEntry const& item) {
    return Line({item.sheet, item.type, item.id, item.name});
}

std::string ToLine(PortEntry const& port) {
    return Line({port.name, port.carries, port.target, Joined(port.sheets)});
}

std::string ToLine(SessionSheet const& sheet) {
    return Line({sheet.path, sheet.name});
}

template <typename Entry>
std::string Listing(std::vector<Entry> const& entries, bool json) {
    if (json) return JsonText(ToJson(entries));
    std::string text;
    for (Entry const& entry : entries)
        text += ToLine(entry);
    return text;
}

}  // namespace

ExitCode List(ListArguments const& arguments) {
    std::unique_ptr<Session> const session = OpenSession(arguments);
    if (!session) return EXIT_UNREADABLE_INPUT;
    bool const json = arguments.json;
    if (arguments.what == "nets") return PrintData(Listing(ListNets(*session), json));
    if (arguments.what == "items") return PrintData(Listing(ListItems(*session), json));
    if (arguments.what == "ports") return PrintData(Listing(ListPorts(*session), json));
    return PrintData(Listing(session->GetSheets(), json));
}

}  // namespace fighost
