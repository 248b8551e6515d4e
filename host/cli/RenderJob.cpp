#include <cli/RenderJob.h>

#include <cli/Output.h>
#include <painters/CairoPainter.h>
#include <painters/PaintFigure.h>
#include <painters/SvgPainter.h>
#include <session/SheetFileName.h>
#include <session/nets/SheetLinks.h>
#include <utility>

namespace fighost {

namespace {

bool EndsWith(std::string const& text, std::string const& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

PaintOptions OptionsFor(RenderJob const& job, SessionSheet const& sheet) {
    PaintOptions options;
    options.title = job.session.GetDesignName() + " " + sheet.path;
    return options;
}

std::string PaintOne(RenderJob const& job, SessionSheet const& sheet) {
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

std::string PaintDocument(RenderJob const& job, std::vector<SessionSheet const*> const& sheets) {
    SheetLinks const links(sheets);
    PdfPainter painter;
    for (SessionSheet const* sheet : sheets) {
        PaintOptions options = OptionsFor(job, *sheet);
        options.title = sheet->name;
        options.anchor = sheet->id;
        options.depth = links.DepthOf(*sheet);
        options.linkOf = [&links](auto const& node) { return links.Next(node); };
        PaintFigure(sheet->figure, painter, options);
    }
    return painter.TakeDocument();
}

ExitCode Write(RenderJob const& job, std::string const& path, std::string const& picture) {
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

}  // namespace

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

std::string ProblemOf(RenderJob const& job) {
    if (job.sheets.empty()) {
        std::string message = "no sheet is called '" + job.arguments.sheet + "'; there are";
        for (SessionSheet const& sheet : job.session.GetSheets()) {
            message += " '" + sheet.name + "'";
        }
        return message;
    }
    bool const onePicture = job.arguments.output.find("%s") == std::string::npos;
    if (!onePicture || job.sheets.size() == 1 || job.format == PictureFormat::PDF) return {};
    std::string const name = job.format == PictureFormat::PNG ? "png" : "svg";
    return "a picture of this format holds one sheet, and there are " +
           std::to_string(job.sheets.size()) +
           "; write a PDF, use --sheet NAME, or %s in the name of the output, as in out-%s." + name;
}

ExitCode PaintAll(RenderJob const& job) {
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

}  // namespace fighost
