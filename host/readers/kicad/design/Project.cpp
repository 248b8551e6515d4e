#include <readers/kicad/design/Project.h>

#include <algorithm>

#include <nlohmann/json.hpp>

#include <readers/kicad/file/Characters.h>

namespace fighost::kicad {

namespace {

using Json = nlohmann::json;

constexpr std::size_t LARGEST_PROJECT = std::size_t(16) << 20;

Json const* Member(Json const* json, char const* key) {
    if (!json || !json->is_object()) return nullptr;
    auto const found = json->find(key);
    return found == json->end() ? nullptr : &*found;
}

int Integer(Json const* json, int otherwise) {
    return json && json->is_number_integer() ? static_cast<int>(json->get<std::int64_t>() & 0xFFFF)
                                             : otherwise;
}

void ReadVariables(Json const* json, Project& project) {
    if (!json || !json->is_object()) return;
    for (auto const& [name, value] : json->items()) {
        if (value.is_string()) project.variables[name] = value.get<std::string>();
    }
}

void ReadAliases(Json const* json, Project& project) {
    if (!json || !json->is_object()) return;
    for (auto const& [name, members] : json->items()) {
        if (!members.is_array()) continue;
        auto& list = project.aliases[name];
        for (Json const& member : members) {
            if (member.is_string()) list.push_back(member.get<std::string>());
        }
    }
}

std::string ProjectPath(std::string const& rootSheet) {
    std::size_t const slash = rootSheet.rfind('/');
    std::string const folder =
        slash == std::string::npos ? std::string() : rootSheet.substr(0, slash + 1);
    return folder + FileStem(rootSheet) + ".kicad_pro";
}

/// Objects and arrays within one another; a project nests a handful deep.
bool NestsTooDeep(std::string_view text) {
    constexpr int DEEPEST = 200;
    int depth = 0;
    for (char const c : text) {
        if (c == '{' || c == '[') ++depth;
        if (c == '}' || c == ']') --depth;
        if (depth > DEEPEST) return true;
    }
    return false;
}

}  // namespace

std::string Project::UnitName(int unit) const {
    if (firstUnit >= '0' && firstUnit <= '9') return std::to_string(firstUnit - '0' + unit - 1);
    std::string letters;
    for (int rest = unit; rest > 0; rest = (rest - 1) / 26) {
        letters.insert(letters.begin(), static_cast<char>(firstUnit + (rest - 1) % 26));
    }
    return letters;
}

std::string Project::UnitReference(std::string const& reference, int unit) const {
    std::string text = reference;
    if (unitSeparator > ' ' && unitSeparator < 0x7F) text += static_cast<char>(unitSeparator);
    return text + UnitName(unit);
}

Project ReadProject(FileSource& files, std::string const& rootSheet, Limits const& limits,
                    Findings& findings) {
    Project project;
    project.name = FileStem(rootSheet);
    std::string const path = ProjectPath(rootSheet);
    std::string bytes;
    auto const status = files.Read(path, std::min(limits.fileBytes, LARGEST_PROJECT), bytes);
    if (status == FileSource::Status::MISSING) return project;
    Json json;
    if (status == FileSource::Status::READ && !NestsTooDeep(bytes)) {
        json = Json::parse(ReplaceBadCharacters(bytes), nullptr, false);
    }
    if (!json.is_object()) {
        findings.Warn("unreadable-project", {path, 0, 0},
                      "The project file can't be read; its text variables are missing");
        return project;
    }
    ReadVariables(Member(&json, "text_variables"), project);
    Json const* const schematic = Member(&json, "schematic");
    ReadAliases(Member(schematic, "bus_aliases"), project);
    Json const* const drawingSheet = Member(schematic, "page_layout_descr_file");
    if (drawingSheet && drawingSheet->is_string()) {
        project.drawingSheet = drawingSheet->get<std::string>();
    }
    Json const* const roots = Member(schematic, "top_level_sheets");
    if (roots && roots->is_array() && roots->size() > 1) {
        findings.Warn("further-root-sheets", {path, 0, 0},
                      "The project has several root sheets; only one of them is read");
    }
    int const first = Integer(Member(schematic, "subpart_first_id"), 'A');
    if (first == 'a' || (first >= '0' && first <= '9')) project.firstUnit = first;
    project.unitSeparator = Integer(Member(schematic, "subpart_id_separator"), 0);
    return project;
}

}  // namespace fighost::kicad
