#include <persistence/SavedFigures.h>

#include <utility>

#include <figk/AbstractDelta.h>
#include <figrep/Figure.h>
#include <figrep/FigureSheetDelta.h>
#include <persistence/ContentFields.h>
#include <persistence/SavedFigureNames.h>

namespace fighost {

namespace {

using figrep::Figure;
using zvk::SerializedContentElement;
using Content = std::shared_ptr<SerializedContentElement const>;
using Delta = figk::AbstractDelta;

constexpr std::size_t FILE_LIMIT = std::size_t(1) << 29;

// Stands as long as any part of the file is held.
Content PartOf(Content const& whole, SerializedContentElement const* part) {
    return {whole, part};
}

std::string ReadFigure(Content const& content, SavedFigure& figure) {
    ContentFields fields(*content);
    int const version = fields.Whole(Figure::s_figure_content_version);
    figure.showGrid = fields.Flag(Figure::s_figure_show_grid);
    if (!fields.GetProblem().empty()) return "a saved figure can't be read: " + fields.GetProblem();
    if (version > Figure::s_write_content_version) {
        return "a saved figure was written by a newer program: its version is " +
               std::to_string(version);
    }
    if (version < 1) return "a saved figure has the unknown version " + std::to_string(version);
    figure.content = content;
    for (auto const* component : content->FindChildren(Figure::s_figure_component))
        figure.components.push_back({PartOf(content, component), {}});
    return {};
}

ReadFigures ErrorAt(std::string const& path, std::string const& sentence) {
    Finding error;
    error.place.file = path;
    error.sentence = sentence;
    ReadFigures result;
    result.error = std::move(error);
    return result;
}

}  // namespace

std::vector<SavedFigure::SheetId> SavedFigure::GetSheets() const {
    std::vector<SheetId> sheets;
    for (auto const& component : components) {
        if (!(TypeOf(*component.content) == figrep::FigureSheetDelta::GetClassTypeValue()))
            continue;
        ContentFields fields(*component.content);
        sheets.push_back({fields.Text(Delta::s_delta_design_id).GetString(),
                          fields.Text(Delta::s_delta_sheet).GetString()});
    }
    return sheets;
}

ReadFigures ReadSavedFigures(std::string_view bytes, std::string const& path) {
    ReadFigures result;
    ContentFromXml read = ContentOfXml(bytes, SAVED_FIGURES, path);
    if (!read.content) {
        result.error = std::move(read.error);
        return result;
    }
    ReadFigures::File file;
    file.content = std::move(read.content);
    file.names = std::move(read.names);
    for (auto const* element : file.content->FindChildren(SavedFigureName())) {
        file.figures.emplace_back();
        std::string const problem = ReadFigure(PartOf(file.content, element), file.figures.back());
        if (!problem.empty()) return ErrorAt(path, problem);
    }
    if (file.figures.empty()) return ErrorAt(path, "there is no saved figure in it");
    result.file = std::move(file);
    return result;
}

ReadFigures ReadSavedFigures(FileSource& files, std::string const& path) {
    std::string bytes;
    ReadFigures missing;
    switch (files.Read(path, FILE_LIMIT, bytes)) {
        case FileSource::Status::READ:
            return ReadSavedFigures(bytes, path);
        case FileSource::Status::MISSING:
            missing = ErrorAt(path, "there is no such file");
            missing.isMissing = true;
            return missing;
        case FileSource::Status::TOO_LARGE:
            return ErrorAt(path, "the file is too large");
        case FileSource::Status::FAILED:
            break;
    }
    return ErrorAt(path, "the file can't be read");
}

}  // namespace fighost
