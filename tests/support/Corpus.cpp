#include <support/Corpus.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>

namespace corpus {

namespace fs = std::filesystem;

std::vector<std::string> RootSheets() {
    char const* folder = std::getenv("FIGREP_CORPUS");
    std::error_code error;
    if (!folder || !fs::is_directory(folder, error)) return {};
    std::vector<std::string> roots;
    std::map<fs::path, std::vector<fs::path>> sheetsWithoutProject;
    for (auto const& entry : fs::recursive_directory_iterator(folder)) {
        fs::path const path = entry.path();
        if (path.extension() == ".kicad_pro") {
            fs::path const root = fs::path(path).replace_extension(".kicad_sch");
            if (fs::exists(root)) roots.push_back(root.string());
        }
        if (path.extension() == ".kicad_sch")
            sheetsWithoutProject[path.parent_path()].push_back(path);
    }
    for (auto const& [parent, sheets] : sheetsWithoutProject)
        if (sheets.size() == 1 &&
            std::find(roots.begin(), roots.end(), sheets.front().string()) == roots.end())
            roots.push_back(sheets.front().string());
    std::sort(roots.begin(), roots.end());
    return roots;
}

}  // namespace corpus
