#include <cli/Color.h>
#include <cli/Commands.h>
#include <cli/Output.h>
#include <painters/PaintFigure.h>
#include <painters/SvgPainter.h>
#include <session/SheetFileName.h>
#include <optional>
#include <vector>

namespace fighost {

namespace {

bool EndsWith(std::string const& text, std::string const& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

// Says what is wrong with the arguments; empty when nothing is.
std::string CheckFormat(RenderArguments const& arguments) {
    bool const standardOutput = arguments.output == "-";
    bool const svg =
        arguments.format == "svg" ||
        (arguments.format.empty() && (standardOutput || EndsWith(arguments.output, ".svg")));
    if (svg) return {};
    if (!arguments.format.empty()) return "unknown format '" + arguments.format + "'; svg is known";
    return "can't tell the format from '" + arguments.output + "'; end it in .svg or say --format";
}

std::string CheckSheets(RenderArguments const& arguments, Session const& session,
                        std::vector<SessionSheet const*> const& sheets) {
    if (sheets.empty()) {
        std::string message = "no sheet is called '" + arguments.sheet + "'; there are";
        for (SessionSheet const& sheet : session.GetSheets()) {
            message += " '" + sheet.name + "'";
        }
        return message;
    }
    bool const onePicture = arguments.output.find("%s") == std::string::npos;
    if (!onePicture || sheets.size() == 1) return {};
    return "an SVG picture holds one sheet, and there are " + std::to_string(sheets.size()) +
           "; use --sheet NAME, or %s in the name of the output, as in out-%s.svg";
}

figk::CrossingPointStyle CrossingStyle(std::string const& name) {
    if (name == "gap") return figk::CROSSING_GAP;
    return name == "none" ? figk::CROSSING_NONE : figk::CROSSING_ARC;
}

std::string PaintSvg(Session const& session, SessionSheet const& sheet,
                     BackgroundColor const& background) {
    PaintOptions options;
    options.paintBackground = !background.transparent;
    if (!background.transparent) options.background = background.color;
    options.title = session.GetDesignName() + " " + sheet.path;
    SvgPainter painter;
    PaintFigure(sheet.figure, painter, options);
    return painter.TakeDocument();
}

ExitCode Write(RenderArguments const& arguments, Session const& session,
               std::vector<SessionSheet const*> const& sheets, BackgroundColor const& background) {
    SheetFileNames names;
    for (SessionSheet const* sheet : sheets) {
        std::string const path = FillPattern(arguments.output, names.Next(sheet->name));
        std::string error;
        if (!WriteOutput(path, PaintSvg(session, *sheet, background), error)) {
            PrintMessage(error);
            return EXIT_CANNOT_WRITE;
        }
        if (path != "-" && !arguments.quiet) PrintMessage("wrote " + path);
    }
    return EXIT_DONE;
}

}  // namespace

ExitCode Render(RenderArguments const& arguments) {
    std::optional<BackgroundColor> const background = ParseBackground(arguments.background);
    std::string problem = CheckFormat(arguments);
    if (!background) problem = "unknown colour '" + arguments.background + "'";
    if (!problem.empty()) {
        PrintMessage("render: " + problem);
        return EXIT_WRONG_USAGE;
    }
    SessionOptions options;
    options.crossings = CrossingStyle(arguments.crossings);
    std::unique_ptr<Session> const session = OpenSession(arguments, options);
    if (!session) return EXIT_UNREADABLE_INPUT;
    std::vector<SessionSheet const*> sheets;
    if (arguments.sheet.empty()) {
        for (SessionSheet const& sheet : session->GetSheets())
            sheets.push_back(&sheet);
    } else {
        sheets = session->FindSheets(arguments.sheet);
    }
    problem = CheckSheets(arguments, *session, sheets);
    if (problem.empty()) return Write(arguments, *session, sheets, *background);
    PrintMessage("render: " + problem);
    return EXIT_WRONG_USAGE;
}

}  // namespace fighost
