#include <cli/Commands.h>
#include <cli/Json.h>
#include <cli/Lines.h>
#include <persistence/DescribeDelta.h>
#include <persistence/SavedFigures.h>
#include <readers/FileSource.h>

namespace fighost {

namespace {

std::string NameOf(std::string const& id, KnownNames const& names) {
    auto const known = names.find(id);
    return known == names.end() ? id : known->second;
}

std::string SheetsOf(SavedFigure const& figure, KnownNames const& names) {
    std::string text;
    for (SavedFigure::SheetId const& sheet : figure.GetSheets())
        text += (text.empty() ? "" : ", ") + NameOf(sheet.sheet, names);
    return text.empty() ? "no sheet" : text;
}

Json ChangeJson(SavedFigure::Component const& component, KnownNames const& names) {
    Json targets = Json::array();
    for (auto const& id : TargetsOf(*component.content)) {
        targets.push_back({{"id", id.GetString()}, {"name", NameOf(id.GetString(), names)}});
    }
    return {{"change", DescribeDelta(*component.content, names)}, {"targets", targets}};
}

Json FigureJson(SavedFigure const& figure, KnownNames const& names) {
    Json sheets = Json::array();
    for (SavedFigure::SheetId const& sheet : figure.GetSheets()) {
        sheets.push_back(
            {{"design", sheet.design}, {"id", sheet.sheet}, {"name", NameOf(sheet.sheet, names)}});
    }
    Json changes = Json::array();
    for (SavedFigure::Component const& component : figure.components)
        changes.push_back(ChangeJson(component, names));
    return {{"sheets", sheets}, {"changes", changes}};
}

std::string LogJson(ReadFigures::File const& file) {
    Json list = Json::array();
    for (SavedFigure const& figure : file.figures)
        list.push_back(FigureJson(figure, file.names));
    return JsonText(list);
}

std::string LogText(ReadFigures::File const& file) {
    std::string text;
    for (SavedFigure const& figure : file.figures) {
        text += Line({SheetsOf(figure, file.names)});
        std::size_t number = 0;
        for (std::string const& line : DescribeSavedFigure(figure, file.names))
            text += Line({"  " + std::to_string(++number) + ": " + line});
    }
    return text;
}

}  // namespace

ExitCode Log(LogArguments const& arguments) {
    DiskFiles files;
    ReadFigures const read = ReadSavedFigures(files, arguments.figure);
    if (read.error) {
        PrintMessage(read.error->ToString());
        return EXIT_UNREADABLE_INPUT;
    }
    return PrintData(arguments.json ? LogJson(*read.file) : LogText(*read.file));
}

}  // namespace fighost
