#include <cli/Commands.h>
#include <cli/Output.h>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

namespace fighost {

namespace {

std::string WarningText(WarningCount const& warning) {
    Finding finding = warning.first;
    finding.sentence = "warning: " + finding.sentence;
    if (warning.count > 1) {
        finding.sentence += " (and " + std::to_string(warning.count - 1) + " more like this)";
    }
    return finding.ToString();
}

}  // namespace

void PrintMessage(std::string const& message) {
    std::fprintf(stderr, "%s\n", message.c_str());
}

std::unique_ptr<Session> OpenSession(CommonArguments const& arguments,
                                     SessionOptions const& options) {
    Session::Opened opened = Session::Open(arguments.file, options);
    if (opened.error) PrintMessage(opened.error->ToString());
    if (opened.session && !arguments.quiet) {
        for (WarningCount const& warning : opened.session->GetFindings().GetWarnings()) {
            PrintMessage(WarningText(warning));
        }
    }
    return std::move(opened.session);
}

ExitCode RefuseSheet(std::string const& command, std::string const& sheet) {
    PrintMessage(command + ": no sheet is called '" + sheet +
                 "'; 'figrep list sheets' names them all");
    return EXIT_WRONG_USAGE;
}

bool RefuseOverDesign(std::string const& command, std::string const& design,
                      std::string const& output) {
    std::error_code failure;
    bool const isDesign =
        std::filesystem::equivalent(design, output, failure) ||
        std::filesystem::path(output).extension().string().rfind(".kicad_", 0) == 0;
    if (isDesign) PrintMessage(command + ": " + output + " is a file of a design; name another");
    return isDesign;
}

ExitCode PrintData(std::string const& data) {
    std::string error;
    if (WriteOutput("-", data, error)) return EXIT_DONE;
    PrintMessage(error);
    return EXIT_CANNOT_WRITE;
}

}  // namespace fighost
