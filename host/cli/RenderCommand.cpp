#include <cli/Commands.h>
#include <cli/RenderHighlights.h>
#include <cli/RenderJob.h>
#include <cli/SavedFile.h>
#include <session/edits/ShowHide.h>
#include <session/look/Contrast.h>
#include <session/look/ParseColor.h>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace fighost {

namespace {

figk::CrossingPointStyle CrossingStyle(std::string const& name) {
    if (name == "gap") return figk::CROSSING_GAP;
    return name == "none" ? figk::CROSSING_NONE : figk::CROSSING_ARC;
}

std::vector<SessionSheet const*> SheetsFor(RenderArguments const& arguments,
                                           Session const& session) {
    if (!arguments.sheet.empty()) return session.FindSheets(arguments.sheet);
    std::vector<SessionSheet const*> sheets;
    for (SessionSheet const& sheet : session.GetSheets())
        sheets.push_back(&sheet);
    return sheets;
}

Theme ThemeOf(std::string const& name, std::optional<dg::Color> const& ground) {
    if (name == "print") return Theme::PRINT;
    if (name == "dark") return Theme::DARK;
    bool const isDark = name.empty() && ground && ground->a > 0 && IsDark(*ground);
    return isDark ? Theme::DARK : Theme::LIGHT;
}

ExitCode Refuse(std::string const& problem) {
    PrintMessage("render: " + problem);
    return EXIT_WRONG_USAGE;
}

}  // namespace

ExitCode Render(RenderArguments const& arguments) {
    PictureFormat const format = FormatOf(arguments);
    if (format == PictureFormat::UNKNOWN) {
        return Refuse("can't tell the format from '" + arguments.output +
                      "'; end it in .svg, .png or .pdf, or say --format");
    }
    std::optional<dg::Color> const ground = ParseBackground(arguments.background);
    if (!ground && !arguments.background.empty()) {
        return Refuse("unknown colour '" + arguments.background + "'; write none, " + COLOR_FORMS);
    }
    bool const refused = RefuseSharedInput("render", {arguments.file, arguments.saved}) ||
                         RefuseOverDesign("render", arguments.file, arguments.output);
    if (refused) return EXIT_WRONG_USAGE;
    SessionOptions options;
    options.look = {ThemeOf(arguments.theme, ground), ground, !arguments.noFrame};
    options.crossings = CrossingStyle(arguments.crossings);
    options.arrows = arguments.arrows;
    options.saved = arguments.saved;
    std::unique_ptr<Session> const session = OpenSession(arguments, options);
    if (!session) return EXIT_UNREADABLE_INPUT;
    TellLostChanges(arguments, arguments.saved, *session);
    RenderJob const job{arguments, *session, SheetsFor(arguments, *session), format};
    std::string const problem = ProblemOf(job);
    if (!problem.empty()) return Refuse(problem);
    auto unknown = ShowOnly(*session, {arguments.isolate, arguments.hide});
    if (!unknown) unknown = Highlight(*session, arguments.highlights, options.look.theme);
    return unknown ? Refuse(*unknown) : PaintAll(job);
}

}  // namespace fighost
