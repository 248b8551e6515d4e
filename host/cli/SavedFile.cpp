#include <cli/Output.h>
#include <cli/SavedFile.h>

#include <algorithm>

namespace fighost {

std::size_t CountLost(std::vector<SavedReport> const& reports) {
    return static_cast<std::size_t>(std::count_if(
        reports.begin(), reports.end(),
        [](SavedReport const& report) { return report.delta.outcome != DeltaReport::APPLIED; }));
}

void TellLostChanges(CommonArguments const& arguments, std::string const& saved,
                     Session const& session) {
    std::vector<SavedReport> const reports = session.GetSavedReports();
    std::size_t const lost = CountLost(reports);
    if (lost == 0 || arguments.quiet) return;
    PrintMessage(saved + ": " + std::to_string(lost) + " of " + std::to_string(reports.size()) +
                 " saved changes don't fit this design; 'figrep apply' lists them");
}

bool RefuseSharedInput(std::string const& command, std::vector<std::string> const& files) {
    if (std::count(files.begin(), files.end(), "-") < 2) return false;
    PrintMessage(command + ": standard input can be read only once");
    return true;
}

ExitCode SaveFigures(Session const& session, std::string const& path, bool quiet) {
    std::string error;
    if (!WriteOutput(path, session.SaveFigures(), error)) {
        PrintMessage(error);
        return EXIT_CANNOT_WRITE;
    }
    if (!quiet && path != "-") PrintMessage("wrote " + path);
    return EXIT_DONE;
}

}  // namespace fighost
