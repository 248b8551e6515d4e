#include <cli/Color.h>
#include <cli/Commands.h>
#include <cli/Output.h>
#include <painters/CairoPainter.h>
#include <painters/PaintFigure.h>
#include <painters/SvgPainter.h>
#include <session/SheetFileName.h>
#include <session/SheetLinks.h>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace fighost {

namespace {

bool EndsWith(std::string const& text, std::string const& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

enum class PictureFormat { UNKNOWN, SVG, PNG, PDF };

PictureFormat FormatOf(RenderArguments const& arguments) {
    constexpr std::pair<char const*, PictureFormat> FORMATS[] = {
        {"svg", PictureFormat::SVG}, {"png", PictureFormat::PNG}, {"pdf", PictureFormat::PDF}};
    for (auto const& [name, format] : FORMATS) {
        if (arguments.format == name) return format;
        bool const byExtension =
            arguments.format.empty() && EndsWith(arguments.output, std::string(".") + name);
        if (byExtension) return format;
    }
    bool const open = arguments.format.empty() && arguments.output == "-";
    return open ? PictureFormat::SVG : PictureFormat::UNKNOWN;
}

std::string CheckSheets(RenderArguments const& arguments, Session const& session,
                        std::vector<SessionSheet const*> const& sheets, PictureFormat format) {
    if (sheets.empty()) {
        std::string message = "no sheet is called '" + arguments.sheet + "'; there are";
        for (SessionSheet const& sheet : session.GetSheets()) {
            message += " '" + sheet.name + "'";
        }
        return message;
    }
    bool const onePicture = arguments.output.find("%s") == std::string::npos;
    if (!onePicture || sheets.size() == 1 || format == PictureFormat::PDF) return {};
    std::string const name = format == PictureFormat::PNG ? "png" : "svg";
    return "a picture of this format holds one sheet, and there are " +
           std::to_string(sheets.size()) +
           "; write a PDF, use --sheet NAME, or %s in the name of " + "the output, as in out-%s." +
           name;
}

figk::CrossingPointStyle CrossingStyle(std::string const& name) {
    if (name == "gap") return figk::CROSSING_GAP;
    return name == "none" ? figk::CROSSING_NONE : figk::CROSSING_ARC;
}

// What one run of the command paints.
struct Job {
    RenderArguments const& arguments;
    Session const& session;
    std::vector<SessionSheet const*> sheets;
    BackgroundColor background;
    PictureFormat format;
};

PaintOptions OptionsFor(Job const& job, SessionSheet const& sheet) {
    PaintOptions options;
    options.paintBackground = !job.background.transparent;
    if (!job.background.transparent) options.background = job.background.color;
    options.title = job.session.GetDesignName() + " " + sheet.path;
    return options;
}

std::string PaintOne(Job const& job, SessionSheet const& sheet) {
    PaintOptions const options = OptionsFor(job, sheet);
    if (job.format == PictureFormat::PNG) {
        PngPainter painter(job.arguments.dpi, job.arguments.size);
        PaintFigure(sheet.figure, painter, options);
        return painter.TakeImage();
    }
    SvgPainter painter;
    PaintFigure(sheet.figure, painter, options);
    return painter.TakeDocument();
}

std::string PaintDocument(Job const& job, std::vector<SessionSheet const*> const& sheets) {
    SheetLinks const links(sheets);
    PdfPainter painter;
    for (SessionSheet const* sheet : sheets) {
        PaintOptions options = OptionsFor(job, *sheet);
        options.title = sheet->name;
        options.anchor = sheet->id;
        options.depth = SheetLinks::DepthOf(*sheet);
        options.linkOf = [&links](auto const& node) { return links.Next(node); };
        PaintFigure(sheet->figure, painter, options);
    }
    return painter.TakeDocument();
}

ExitCode Write(Job const& job, std::string const& path, std::string const& picture) {
    if (picture.empty()) {
        PrintMessage("render: " + path + ": there isn't enough memory for the picture");
        return EXIT_UNEXPECTED;
    }
    std::string error;
    if (!WriteOutput(path, picture, error)) {
        PrintMessage(error);
        return EXIT_CANNOT_WRITE;
    }
    if (path != "-" && !job.arguments.quiet) PrintMessage("wrote " + path);
    return EXIT_DONE;
}

ExitCode PaintAll(Job const& job) {
    std::string const& output = job.arguments.output;
    bool const perSheet = output.find("%s") != std::string::npos;
    bool const pdf = job.format == PictureFormat::PDF;
    if (pdf && !perSheet) return Write(job, output, PaintDocument(job, job.sheets));
    SheetFileNames names;
    for (SessionSheet const* sheet : job.sheets) {
        std::string const path = FillPattern(output, names.Next(sheet->name));
        ExitCode const code =
            Write(job, path, pdf ? PaintDocument(job, {sheet}) : PaintOne(job, *sheet));
        if (code != EXIT_DONE) return code;
    }
    return EXIT_DONE;
}

std::vector<SessionSheet const*> SheetsFor(RenderArguments const& arguments,
                                           Session const& session) {
    if (!arguments.sheet.empty()) return session.FindSheets(arguments.sheet);
    std::vector<SessionSheet const*> sheets;
    for (SessionSheet const& sheet : session.GetSheets())
        sheets.push_back(&sheet);
    return sheets;
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
    std::optional<BackgroundColor> const background = ParseBackground(arguments.background);
    if (!background) return Refuse("unknown colour '" + arguments.background + "'");
    SessionOptions options;
    options.crossings = CrossingStyle(arguments.crossings);
    std::unique_ptr<Session> const session = OpenSession(arguments, options);
    if (!session) return EXIT_UNREADABLE_INPUT;
    Job const job{arguments, *session, SheetsFor(arguments, *session), *background, format};
    std::string const problem = CheckSheets(arguments, *session, job.sheets, format);
    return problem.empty() ? PaintAll(job) : Refuse(problem);
}

}  // namespace fighost
