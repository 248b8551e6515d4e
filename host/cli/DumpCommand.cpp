#include <cli/Commands.h>
#include <session/query/Dump.h>

namespace fighost {

ExitCode Dump(DumpArguments const& arguments) {
    if (!arguments.connectivity && !arguments.settings) {
        PrintMessage("dump: say what to write: --connectivity, --settings or both");
        return EXIT_WRONG_USAGE;
    }
    std::unique_ptr<Session> const session = OpenSession(arguments);
    if (!session) return EXIT_UNREADABLE_INPUT;
    std::vector<SessionSheet const*> sheets;
    for (SessionSheet const& sheet : session->GetSheets())
        sheets.push_back(&sheet);
    if (!arguments.sheet.empty()) sheets = session->FindSheets(arguments.sheet);
    if (sheets.empty()) return RefuseSheet("dump", arguments.sheet);
    std::string text;
    for (SessionSheet const* sheet : sheets) {
        if (arguments.connectivity) {
            text += "== connectivity of " + sheet->path + "\n\n" + DumpConnectivity(*sheet);
        }
        if (arguments.settings) {
            text += "== settings of " + sheet->path + "\n\n" + DumpSettings(*sheet);
        }
    }
    return PrintData(text);
}

}  // namespace fighost
