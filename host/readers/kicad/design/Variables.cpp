#include <readers/kicad/design/Variables.h>

#include <readers/kicad/design/Symbols.h>
#include <readers/kicad/design/Texts.h>

namespace fighost::kicad {

namespace {

using Value = std::optional<std::string>;

Value FromProject(Hierarchy const& hierarchy, std::string_view name) {
    auto const found = hierarchy.project.variables.find(name);
    if (found != hierarchy.project.variables.end()) return found->second;
    if (name == "PROJECTNAME") return hierarchy.project.name;
    return std::nullopt;
}

bool IsTitleBlockField(std::string_view name) {
    return name == "TITLE" || name == "ISSUE_DATE" || name == "REVISION" || name == "COMPANY" ||
           (name.size() == 8 && name.substr(0, 7) == "COMMENT" && name[7] >= '1' && name[7] <= '9');
}

/// A field of the title block. Its own variables come from the project alone, since a title of
/// "${TITLE}" means the project's.
Value FromTitleBlock(Hierarchy const& hierarchy, SheetFile const& file, std::string_view name) {
    if (!file.titleBlock) return std::nullopt;
    TitleBlock const& block = *file.titleBlock;
    std::string const* text = nullptr;
    if (name == "TITLE") text = &block.title;
    if (name == "ISSUE_DATE") text = &block.date;
    if (name == "REVISION") text = &block.revision;
    if (name == "COMPANY") text = &block.company;
    if (!IsTitleBlockField(name)) return std::nullopt;
    if (!text) text = &block.comments[static_cast<std::size_t>(name[7] - '1')];
    return ExpandVariables(*text,
                           [&](std::string_view inner) { return FromProject(hierarchy, inner); });
}

/// The program that wrote the file. Before version 8 it told no more than the file's format.
std::string WriterOf(SheetFile const& file) {
    if (!file.writerVersion.empty()) return "KiCad " + file.writerVersion;
    return file.version < VERSION_7 ? "KiCad 6" : "KiCad 7";
}

Value FromSheet(Hierarchy const& hierarchy, std::uint32_t index, std::string_view name) {
    SheetInstance const& sheet = hierarchy.sheets[index];
    if (name == "SHEETNAME") return sheet.parent == NO_SHEET ? "Root" : sheet.name;
    if (name == "SHEETPATH") return sheet.path;
    if (name == "FILENAME") return FileName(sheet.file->path);
    if (name == "PAPER") return sheet.file->paper.name;
    if (name == "#") return sheet.page.empty() ? std::to_string(index + 1) : sheet.page;
    if (name == "##") return std::to_string(hierarchy.sheets.size());
    if (auto value = FromTitleBlock(hierarchy, *sheet.file, name)) return value;
    if (auto value = FromProject(hierarchy, name)) return value;
    if (name == "KICAD_VERSION") return WriterOf(*sheet.file);
    // A picture depends on no clock, and a schematic has no layers.
    bool const isEmpty = name == "CURRENT_DATE" || name == "LAYER" || IsTitleBlockField(name);
    return isEmpty ? Value("") : std::nullopt;
}

Value FieldOf(PlacedSymbol const& symbol, std::string const& reference, std::string_view name) {
    if (name == "REFERENCE" || name == "Reference") return reference;
    if (name == "LIBRARY") return symbol.libraryId.substr(0, symbol.libraryId.find(':'));
    if (name == "DNP") return symbol.dnp ? "DNP" : "";
    std::string_view wanted = name;
    if (name == "VALUE") wanted = "Value";
    if (name == "FOOTPRINT") wanted = "Footprint";
    if (name == "DATASHEET") wanted = "Datasheet";
    if (name == "DESCRIPTION") wanted = "Description";
    for (Property const& property : symbol.properties) {
        if (property.name == wanted) return property.value;
    }
    return std::nullopt;
}

/// "uuid:FIELD" of another symbol of the sheet.
Value FromOtherSymbol(Hierarchy const& hierarchy, std::uint32_t sheet, std::string_view name) {
    std::size_t const colon = name.find(':');
    if (colon == std::string_view::npos) return std::nullopt;
    for (PlacedSymbol const& symbol : hierarchy.sheets[sheet].file->symbols) {
        if (symbol.uuid != name.substr(0, colon)) continue;
        return FieldOf(symbol, ReferenceAt(hierarchy, sheet, symbol), name.substr(colon + 1));
    }
    return std::nullopt;
}

}  // namespace

std::string ExpandOnSheet(Hierarchy const& hierarchy, std::uint32_t sheet, std::string_view text) {
    return ExpandVariables(text, [&](std::string_view name) -> Value {
        if (auto value = FromSheet(hierarchy, sheet, name)) return value;
        return FromOtherSymbol(hierarchy, sheet, name);
    });
}

std::string ExpandInSymbol(Hierarchy const& hierarchy, std::uint32_t sheet,
                           ResolvedSymbol const& symbol, std::string_view text) {
    return ExpandVariables(text, [&](std::string_view name) -> Value {
        if (name == "UNIT") return hierarchy.project.UnitName(symbol.unit);
        if (auto value = FieldOf(*symbol.placed, symbol.reference, name)) return value;
        if (auto value = FromSheet(hierarchy, sheet, name)) return value;
        return FromOtherSymbol(hierarchy, sheet, name);
    });
}

}  // namespace fighost::kicad
