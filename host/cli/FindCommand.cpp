#include <cli/Commands.h>
#include <cli/Json.h>
#include <cli/Lines.h>
#include <session/query/Find.h>

namespace fighost {

namespace {

Json MatchJson(Match const& match) {
    Json json = PlaceJson(match.place);
    json["kind"] = NameOf(match.kind);
    json["type"] = match.type;
    json["id"] = match.id;
    json["text"] = match.text;
    json["of"] = match.of;
    return json;
}

std::string MatchLine(Match const& match) {
    return Line(
        {match.place.sheet, match.place.GetCell(), match.type, match.text, match.of, match.id});
}

std::string Listing(std::vector<Match> const& matches, bool json) {
    if (json) {
        Json list = Json::array();
        for (Match const& match : matches)
            list.push_back(MatchJson(match));
        return JsonText(list);
    }
    std::string text;
    for (Match const& match : matches)
        text += MatchLine(match);
    return text;
}

}  // namespace

ExitCode Find(FindArguments const& arguments) {
    std::unique_ptr<Session> const session = OpenSession(arguments);
    if (!session) return EXIT_UNREADABLE_INPUT;
    FindOptions options;
    options.ignoreCase = arguments.ignoreCase;
    if (!arguments.sheet.empty()) {
        options.sheets = session->FindSheets(arguments.sheet);
        if (options.sheets.empty()) return RefuseSheet("find", arguments.sheet);
    }
    std::vector<Match> const matches = FindMatches(*session, arguments.text, options);
    if (matches.empty() && !arguments.quiet) {
        PrintMessage("find: nothing matches '" + arguments.text + "'");
    }
    return PrintData(Listing(matches, arguments.json));
}

}  // namespace fighost
