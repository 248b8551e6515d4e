#include <cli/Commands.h>
#include <cli/Json.h>
#include <cli/Lines.h>
#include <cli/SavedFile.h>

namespace fighost {

namespace {

char const* OutcomeName(DeltaReport::Outcome outcome) {
    switch (outcome) {
        case DeltaReport::APPLIED:
            return "applied";
        case DeltaReport::PARTLY:
            return "partly";
        case DeltaReport::FAILED:
            return "failed";
        case DeltaReport::NOT_UNDERSTOOD:
            break;
    }
    return "not-understood";
}

Json ReportJson(SavedReport const& report) {
    return {{"figure", report.figure},
            {"sheet", report.sheet.empty() ? Json() : Json(report.sheet)},
            {"number", report.delta.number},
            {"change", report.delta.what},
            {"outcome", OutcomeName(report.delta.outcome)},
            {"why", report.delta.why}};
}

std::string ReportsText(std::vector<SavedReport> const& reports, bool json) {
    Json list = Json::array();
    std::string text;
    for (SavedReport const& report : reports) {
        if (json) {
            list.push_back(ReportJson(report));
            continue;
        }
        std::string const sheet = report.sheet.empty() ? "(no sheet)" : report.sheet;
        text += Line({sheet, report.delta.ToString()});
    }
    return json ? JsonText(list) : text;
}

}  // namespace

ExitCode Apply(ApplyArguments const& arguments) {
    if (arguments.output == "-") {
        PrintMessage("apply: standard output has the report; name a file for the figure");
        return EXIT_WRONG_USAGE;
    }
    bool const refused = RefuseSharedInput("apply", {arguments.file, arguments.saved}) ||
                         RefuseOverDesign("apply", arguments.file, arguments.output);
    if (refused) return EXIT_WRONG_USAGE;
    SessionOptions options;
    options.saved = arguments.saved;
    std::unique_ptr<Session> const session = OpenSession(arguments, options);
    if (!session) return EXIT_UNREADABLE_INPUT;
    std::vector<SavedReport> const reports = session->GetSavedReports();
    if (!arguments.output.empty()) {
        ExitCode const written = SaveFigures(*session, arguments.output, arguments.quiet);
        if (written != EXIT_DONE) return written;
    }
    ExitCode const printed = PrintData(ReportsText(reports, arguments.json));
    if (printed != EXIT_DONE) return printed;
    return arguments.strict && CountLost(reports) > 0 ? EXIT_FINDINGS : EXIT_DONE;
}

}  // namespace fighost
