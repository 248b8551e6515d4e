#include <readers/kicad/ReadDesign.h>

#include <string_view>

#include <readers/kicad/DesignWriter.h>
#include <readers/kicad/design/Hierarchy.h>
#include <readers/kicad/nets/Nets.h>

namespace fighost::kicad {

namespace {

/// Names of sub-sheets are compared as text, so the root's must be as plain as theirs.
std::string RootPath(std::string const& path) {
    if (path == "-") return path;
    std::string root = ResolveBeside("", path);
    constexpr std::string_view PROJECT = ".kicad_pro";
    if (root.size() > PROJECT.size() &&
        root.compare(root.size() - PROJECT.size(), PROJECT.size(), PROJECT) == 0) {
        root.replace(root.size() - PROJECT.size(), PROJECT.size(), ".kicad_sch");
    }
    return root;
}

}  // namespace

ReadResult ReadDesign(FileSource& files, std::string const& path, Limits const& limits) {
    ReadResult result;
    Hierarchy hierarchy;
    result.error = LoadHierarchy(files, RootPath(path), limits, result.findings, hierarchy);
    if (result.error) return result;
    DesignNets nets;
    result.error = FormNets(hierarchy, limits, result.findings, nets);
    if (result.error) return result;
    result.design = WriteDesign(hierarchy, nets, result.findings);
    return result;
}

ReadResult ReadDesign(std::string const& path, Limits const& limits) {
    DiskFiles files;
    return ReadDesign(files, path, limits);
}

ReadResult ReadDesignBytes(std::string bytes, Limits const& limits) {
    MemoryFiles files;
    files.Add("input.kicad_sch", std::move(bytes));
    return ReadDesign(files, "input.kicad_sch", limits);
}

}  // namespace fighost::kicad
