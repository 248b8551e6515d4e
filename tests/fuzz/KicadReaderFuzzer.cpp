// Feeds bytes to the KiCad reader: a root sheet and, behind dividers, a sub-sheet, a project and a
// drawing sheet.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include <readers/FileSource.h>
#include <readers/kicad/ReadDesign.h>

namespace {

constexpr char DIVIDER = '\x1E';

fighost::kicad::Limits SmallLimits() {
    fighost::kicad::Limits limits;
    limits.fileBytes = 1 << 20;
    limits.tokenBytes = 1 << 18;
    limits.tokens = 200'000;
    limits.depth = 200;
    limits.sheets = 50;
    limits.sheetDepth = 10;
    limits.items = 50'000;
    limits.busMembers = 1000;
    limits.totalBusMembers = 20'000;
    return limits;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string const all(reinterpret_cast<char const*>(data), size);
    char const* const names[] = {"root.kicad_sch", "sub.kicad_sch", "root.kicad_pro",
                                 "root.kicad_wks"};
    fighost::MemoryFiles files;
    std::size_t begin = 0;
    for (char const* name : names) {
        std::size_t const end = std::min(all.find(DIVIDER, begin), all.size());
        if (begin <= all.size()) files.Add(name, all.substr(begin, end - begin));
        if (end == all.size()) break;
        begin = end + 1;
    }
    fighost::kicad::ReadDesign(files, "root.kicad_sch", SmallLimits());
    return 0;
}
