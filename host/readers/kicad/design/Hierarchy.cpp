#include <readers/kicad/design/Hierarchy.h>

#include <algorithm>
#include <utility>

#include <readers/kicad/design/Texts.h>
#include <readers/kicad/file/Characters.h>
#include <readers/kicad/file/SheetReader.h>

namespace fighost::kicad {

namespace {

std::string SentenceFor(FileSource::Status status) {
    switch (status) {
        case FileSource::Status::MISSING:
            return "There is no such file";
        case FileSource::Status::TOO_LARGE:
            return "The file is too large";
        default:
            return "The file can't be read";
    }
}

/// Paths of deep sheets repeat the names of all above, so a hostile name must not be long.
std::string Clip(std::string name) {
    constexpr std::size_t LONGEST_NAME = 1000;
    if (name.size() <= LONGEST_NAME) return name;
    name.resize(LONGEST_NAME);
    return ReplaceBadCharacters(name);
}

class Loader {
public:
    Loader(FileSource& files, Limits const& bounds, Findings& list, Hierarchy& result)
        : source(files), limits(bounds), findings(list), out(result) {}

    std::optional<Finding> Run(std::string const& rootPath) {
        out.project = ReadProject(source, rootPath, limits, findings);
        LoadDrawingSheet(rootPath);
        if (auto error = Load(rootPath)) return error;
        AddRoot();
        for (std::size_t i = 0; i < out.sheets.size(); ++i)
            out.sheets[i].children.clear();
        if (auto error = AddSubSheets()) return error;
        CollectAliases();
        for (SymbolInstance const& instance : out.Root().instanceTable) {
            out.instanceTable.emplace(instance.path, &instance);
        }
        return std::nullopt;
    }

private:
    /// Reads a file that was not asked for before; known files, good or bad, are remembered.
    std::optional<Finding> Load(std::string const& path) {
        if (loaded.find(path) != loaded.end()) return std::nullopt;
        auto file = std::make_unique<SheetFile>();
        auto const error = ReadInto(path, *file);
        if (error) {
            loaded[path] = {nullptr, *error};
            return error;
        }
        loaded[path] = {file.get(), {}};
        out.files.push_back(std::move(file));
        return std::nullopt;
    }

    std::optional<Finding> ReadInto(std::string const& path, SheetFile& file) {
        std::string bytes;
        auto const status = source.Read(path, limits.fileBytes, bytes);
        if (status != FileSource::Status::READ) {
            return Finding::InFile(path, SentenceFor(status));
        }
        return ReadSheetFile(path, std::move(bytes), limits, findings, file);
    }

    void LoadDrawingSheet(std::string const& rootPath) {
        constexpr std::string_view FOLDER = "${KIPRJMOD}/";
        constexpr std::size_t LARGEST = std::size_t(64) << 20;
        std::string name = out.project.drawingSheet;
        bool const isNamed = !name.empty();
        if (!isNamed) name = out.project.name + ".kicad_wks";
        if (name.compare(0, FOLDER.size(), FOLDER) == 0) name.erase(0, FOLDER.size());
        std::string const path = ResolveBeside(rootPath, Expand(name));
        std::string bytes;
        auto const status = source.Read(path, std::min(limits.fileBytes, LARGEST), bytes);
        if (status != FileSource::Status::READ) {
            if (isNamed) {
                findings.Warn(
                    "missing-drawing-sheet", {path, 0, 0},
                    "The drawing sheet of the project is not used: " + SentenceFor(status));
            }
            return;
        }
        DrawingSheet sheet;
        auto const error = ReadDrawingSheet(path, std::move(bytes), limits, findings, sheet);
        if (!error) {
            out.drawingSheet = std::move(sheet);
            return;
        }
        findings.Warn("unreadable-drawing-sheet", error->place,
                      "The drawing sheet is not used: " + error->sentence);
    }

    std::size_t CostOf(SheetFile const& file) const {
        return file.CountItems() + (out.drawingSheet ? out.drawingSheet->cost : 0);
    }

    void AddRoot() {
        SheetInstance root;
        root.file = out.files.front().get();
        root.id = "/" + root.file->uuid;
        root.name = FileStem(root.file->path);
        root.path = "/";
        root.page = "1";
        for (SheetPage const& page : root.file->pageTable) {
            if (page.path == "/" || page.path == root.id) root.page = page.page;
        }
        out.sheets.push_back(std::move(root));
    }

    /// Depth first, in the order of the files, with a stack of its own.
    std::optional<Finding> AddSubSheets() {
        std::vector<std::uint32_t> stack{0};
        while (!stack.empty()) {
            std::uint32_t const at = stack.back();
            SheetFile const& file = *out.sheets[at].file;
            std::size_t const number = out.sheets[at].children.size();
            if (number == 0 && (items += CostOf(file)) > limits.items) {
                return Finding::InFile(out.Root().path, "The design has too many items");
            }
            if (number == file.sheets.size()) {
                stack.pop_back();
                continue;
            }
            out.sheets[at].children.push_back(NO_SHEET);
            out.sheets[at].missing.emplace_back();
            if (AddChild(at, number)) stack.push_back(out.sheets[at].children.back());
            if (out.sheets.size() > limits.sheets) {
                return Finding::InFile(out.Root().path, "The design has too many sheets");
            }
        }
        return std::nullopt;
    }

    bool AddChild(std::uint32_t parent, std::size_t number) {
        SheetSymbol const& symbol = out.sheets[parent].file->sheets[number];
        std::string const path =
            ResolveBeside(out.sheets[parent].file->path, Expand(symbol.GetFile()));
        std::string const problem = FindProblem(parent, path);
        if (!problem.empty()) {
            out.sheets[parent].missing[number] = problem;
            return false;
        }
        out.sheets[parent].children[number] = static_cast<std::uint32_t>(out.sheets.size());
        out.sheets.push_back(MakeChild(parent, number, *loaded[path].first));
        return true;
    }

    /// Why a sub-sheet can't be shown; empty when it can.
    std::string FindProblem(std::uint32_t parent, std::string const& path) {
        SheetSymbol const& symbol =
            out.sheets[parent].file->sheets[out.sheets[parent].children.size() - 1];
        if (symbol.GetFile().empty()) {
            findings.Warn("missing-sheet", symbol.place, "The sub-sheet names no file");
            return "no file";
        }
        for (std::uint32_t at = parent; at != NO_SHEET; at = out.sheets[at].parent) {
            if (out.sheets[at].file->path != path) continue;
            findings.Warn("recursive-sheet", symbol.place,
                          "The sub-sheet '" + path + "' includes itself and is left out");
            return "includes itself";
        }
        if (out.sheets[parent].depth + 1 >= limits.sheetDepth) {
            findings.Warn("deep-sheet", symbol.place, "Sub-sheets are nested too deep");
            return "nested too deep";
        }
        Load(path);
        auto const& [file, error] = loaded[path];
        if (file) return {};
        findings.Warn(error.place.line == 0 ? "missing-sheet" : "unreadable-sheet", symbol.place,
                      "The sub-sheet '" + path + "' is left out: " + error.ToString());
        return error.place.line == 0 ? "file is missing" : "file is broken";
    }

    SheetInstance MakeChild(std::uint32_t parent, std::size_t number, SheetFile const& file) const {
        SheetInstance const& above = out.sheets[parent];
        SheetSymbol const& symbol = above.file->sheets[number];
        SheetInstance sheet;
        sheet.file = &file;
        std::string const step =
            symbol.uuid.empty() ? "sheet" + std::to_string(number) : Clip(symbol.uuid);
        sheet.id = above.id + "/" + step;
        sheet.tableId = above.tableId + "/" + step;
        sheet.name = Clip(Unescape(Expand(symbol.GetName())));
        if (sheet.name.empty()) sheet.name = FileStem(file.path);
        sheet.path = above.path + sheet.name + "/";
        sheet.depth = above.depth + 1;
        sheet.parent = parent;
        sheet.symbolInParent = static_cast<std::uint32_t>(number);
        sheet.page = FindPage(symbol, sheet);
        return sheet;
    }

    std::string FindPage(SheetSymbol const& symbol, SheetInstance const& sheet) const {
        for (SheetPage const& page : symbol.pages) {
            bool const ours = page.project == out.project.name || page.project.empty();
            if (ours && page.path == out.sheets[sheet.parent].id) return page.page;
        }
        for (SheetPage const& page : out.Root().pageTable) {
            if (page.path == sheet.tableId || page.path == sheet.tableId + "/") return page.page;
        }
        return {};
    }

    void CollectAliases() {
        for (auto const& file : out.files) {
            for (BusAlias const& alias : file->aliases) {
                out.aliases.emplace(alias.name, alias.members);
            }
        }
        for (auto const& [name, members] : out.project.aliases)
            out.aliases[name] = members;
    }

    std::string Expand(std::string const& text) const {
        return ExpandVariables(text, [this](std::string_view name) -> std::optional<std::string> {
            auto const found = out.project.variables.find(name);
            if (found == out.project.variables.end()) return std::nullopt;
            return found->second;
        });
    }

    FileSource& source;
    Limits const& limits;
    Findings& findings;
    Hierarchy& out;
    std::map<std::string, std::pair<SheetFile const*, Finding>> loaded;
    std::size_t items = 0;
};

}  // namespace

std::optional<Finding> LoadHierarchy(FileSource& source, std::string const& rootPath,
                                     Limits const& limits, Findings& findings, Hierarchy& result) {
    return Loader(source, limits, findings, result).Run(rootPath);
}

}  // namespace fighost::kicad
