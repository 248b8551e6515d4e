#include <persistence/SavedFigures.h>

#include <algorithm>
#include <set>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figrep/AbstractFigureItem.h>
#include <figrep/Figure.h>
#include <figrep/FigureItemDeleteDelta.h>
#include <figrep/FigureSettingDelta.h>
#include <figrep/FigureSheetDelta.h>
#include <persistence/ContentFields.h>
#include <zvk/ReadWriteLock.h>
#include <zvk/SerializedContentVisitor.h>

namespace fighost {

namespace {

using figrep::Figure;
using figrep::SmartPtr;
using figrep::Symbol;
using zvk::SerializedContentElement;
using Content = std::shared_ptr<SerializedContentElement const>;
using Delta = figk::AbstractDelta;
using DeltaPtr = SmartPtr<figk::AbstractDelta>;

constexpr char const* ROOT = "figrep-figures";
constexpr std::size_t FILE_LIMIT = std::size_t(1) << 29;

Symbol const& FigureName() {
    static Symbol const name("figure");
    return name;
}

std::shared_ptr<SerializedContentElement> CopyOf(SerializedContentElement const& element) {
    auto copy = std::make_shared<SerializedContentElement>(element.GetName());
    CopyContent(element, *copy);
    return copy;
}

void AddCopy(SerializedContentElement& to, SerializedContentElement const& child) {
    CopyContent(child, *to.StartContent(child.GetName()));
    to.EndContent();
}

// Reading.

std::string ReadFigure(SerializedContentElement const& element, SavedFigure& figure) {
    ContentFields fields(element);
    int const version = fields.Whole(Figure::s_figure_content_version);
    figure.showGrid = fields.Flag(Figure::s_figure_show_grid);
    if (!fields.GetProblem().empty()) return "a saved figure can't be read: " + fields.GetProblem();
    if (version > Figure::s_write_content_version) {
        return "a saved figure was written by a newer program: its version is " +
               std::to_string(version);
    }
    if (version < 1) return "a saved figure has the unknown version " + std::to_string(version);
    for (auto const* design : element.FindChildren(Figure::s_figure_design))
        figure.designs.push_back(CopyOf(*design));
    for (auto const* component : element.FindChildren(Figure::s_figure_component))
        figure.components.push_back({CopyOf(*component), {}});
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

// Writing.

/// The components in the order in which they are to be saved.
std::vector<Content> MergeComponents(std::vector<Content> const& captured,
                                     std::vector<DeltaPtr> const& deltas,
                                     SavedFigure const* saved) {
    std::unordered_set<DeltaPtr> const present(deltas.begin(), deltas.end());
    std::unordered_set<DeltaPtr> loaded;
    std::vector<Content> merged;
    for (std::size_t i = 0; saved && i < saved->components.size(); ++i) {
        auto const& component = saved->components[i];
        if (component.delta && present.count(component.delta) == 0) continue;
        if (component.delta) loaded.insert(component.delta);
        merged.push_back(component.content);
    }
    for (std::size_t i = 0; i < captured.size(); ++i) {
        bool const listed = i < deltas.size();  // else the texts of the title block
        if (listed && (loaded.count(deltas[i]) != 0 || !IsWorthSaving(*deltas[i]))) continue;
        merged.push_back(captured[i]);
    }
    return merged;
}

std::string DesignKey(SerializedContentElement const& design) {
    ContentFields fields(design);
    return fields.Text(Figure::s_design_name).GetString() + '\n' +
           fields.Text(Figure::s_design_id_prefix).GetString();
}

std::vector<Content> Copies(std::vector<SerializedContentElement const*> const& elements) {
    std::vector<Content> copies;
    for (auto const* element : elements)
        copies.push_back(CopyOf(*element));
    return copies;
}

std::vector<Content> MergeDesigns(std::vector<Content> designs, SavedFigure const* saved) {
    std::set<std::string> known;
    for (auto const& design : designs)
        known.insert(DesignKey(*design));
    for (std::size_t i = 0; saved && i < saved->designs.size(); ++i) {
        if (known.insert(DesignKey(*saved->designs[i])).second) {
            designs.push_back(saved->designs[i]);
        }
    }
    return designs;
}

std::unique_ptr<SerializedContentElement> MakeFigure(bool showGrid,
                                                     std::vector<Content> const& designs,
                                                     std::vector<Content> const& components) {
    auto element = std::make_unique<SerializedContentElement>(FigureName());
    element->AddProperty(Figure::s_figure_content_version,
                         static_cast<int>(Figure::s_write_content_version));
    element->AddProperty(Figure::s_figure_show_grid, showGrid);
    for (auto const& design : designs)
        AddCopy(*element, *design);
    for (auto const& component : components)
        AddCopy(*element, *component);
    return element;
}

/// Looks up the names of all items that stored content mentions.
class NameCollector : public zvk::SerializedContentVisitor {
public:
    NameCollector(SmartPtr<Figure> const& figure, KnownNames& names)
        : figure_(figure), names_(names) {
        for (auto const& sheet : figure->GetSheets()) {
            sheets_.emplace(sheet->GetId(), sheet->GetName());
        }
    }

    using zvk::SerializedContentVisitor::Visit;
    void Visit(Symbol const& key, Symbol const& value) override {
        if (key == Delta::s_delta_sheet) Note(value, NameOfSheet(value));
        if (key == Delta::s_delta_id || key == Delta::s_delta_id_list_entry ||
            key == Delta::s_delta_sub_net_id) {
            auto const item = figure_->Find(value);
            Note(value, item ? item->GetName() : NameOfSheet(value));
        }
    }

private:
    std::string NameOfSheet(Symbol const& id) const {
        auto const sheet = sheets_.find(id);
        return sheet == sheets_.end() ? std::string() : sheet->second;
    }
    void Note(Symbol const& id, std::string const& name) {
        if (!name.empty() && name != id.GetString()) names_[id.GetString()] = name;
    }

    SmartPtr<Figure> figure_;
    KnownNames& names_;
    std::unordered_map<Symbol, std::string> sheets_;
};

// What has been deleted isn't in the figure any more to be asked.
void NoteDeletedNames(Figure const& figure, KnownNames& names) {
    for (auto const& delta : figure.GetDeltas()) {
        auto const deletion = du::DynamicCast<figrep::FigureItemDeleteDelta>(delta);
        auto const item = deletion ? deletion->GetItem() : SmartPtr<figrep::AbstractFigureItem>();
        if (item && !item->GetName().empty()) names[item->GetId().GetString()] = item->GetName();
    }
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
    ContentFromXml read = ContentOfXml(bytes, ROOT, path);
    if (!read.content) {
        result.error = std::move(read.error);
        return result;
    }
    ReadFigures::File file;
    file.names = std::move(read.names);
    for (auto const* element : read.content->FindChildren(FigureName())) {
        file.figures.emplace_back();
        std::string const problem = ReadFigure(*element, file.figures.back());
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

bool IsWorthSaving(figk::AbstractDelta const& delta) {
    auto const* const setting = dynamic_cast<figrep::FigureSettingDelta const*>(&delta);
    return !setting || !setting->GetItems().empty();
}

std::unique_ptr<SerializedContentElement> CaptureFigure(SmartPtr<Figure> const& figure,
                                                        SavedFigure const* saved) {
    if (!figure) {
        std::vector<Content> components;
        for (std::size_t i = 0; saved && i < saved->components.size(); ++i)
            components.push_back(saved->components[i].content);
        return MakeFigure(saved && saved->showGrid, MergeDesigns({}, saved), components);
    }
    zvk::WriteGuard const guard(figure->GetLock());
    SerializedContentElement live(FigureName());
    figure->CaptureContent(&live);
    auto const components = MergeComponents(Copies(live.FindChildren(Figure::s_figure_component)),
                                            figure->GetDeltas(), saved);
    return MakeFigure(figure->GetFormatGridOn(),
                      MergeDesigns(Copies(live.FindChildren(Figure::s_figure_design)), saved),
                      components);
}

std::string WriteSavedFigures(std::vector<FigureToSave> const& figures, KnownNames const& names) {
    KnownNames all = names;
    SerializedContentElement root{Symbol(ROOT)};
    for (auto const& entry : figures) {
        auto const element = CaptureFigure(entry.figure, entry.saved);
        if (entry.figure) {
            NameCollector collector(entry.figure, all);
            element->VisitAll(collector);
            NoteDeletedNames(*entry.figure, all);
        }
        AddCopy(root, *element);
    }
    return ContentToXml(root, ROOT, all);
}

}  // namespace fighost
