// Real designs of other people, where there are any: FIGREP_CORPUS names their folder.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <host/XmlChecker.h>
#include <host/cli/RunProgram.h>
#include <nlohmann/json.hpp>

namespace fighost::test {
namespace {

namespace fs = std::filesystem;

// The root sheets: files named as the project file beside them.
std::vector<std::string> Roots() {
    std::vector<std::string> roots;
    char const* corpus = std::getenv("FIGREP_CORPUS");
    if (!corpus || !fs::is_directory(corpus)) return roots;
    for (auto const& entry : fs::recursive_directory_iterator(corpus)) {
        fs::path root = entry.path();
        if (root.extension() != ".kicad_pro") continue;
        root.replace_extension(".kicad_sch");
        if (fs::exists(root)) roots.push_back(root.string());
    }
    std::sort(roots.begin(), roots.end());
    return roots;
}

std::size_t SheetCount(std::string const& root) {
    Outcome const outcome = RunProgram("figrep", {"list", "sheets", root, "--json", "--quiet"});
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    return outcome.code == 0 ? nlohmann::json::parse(outcome.out).size() : 0;
}

TEST(Corpus, EveryDesignBecomesWellFormedPicturesOfAllItsSheets) {
    std::vector<std::string> const roots = Roots();
    if (roots.empty()) GTEST_SKIP() << "FIGREP_CORPUS names no designs";
    for (std::string const& root : roots) {
        TemporaryFolder folder;
        Outcome const outcome =
            RunProgram("figrep", {"render", root, "-o", folder.Path("%s.svg"), "--quiet"});
        ASSERT_EQ(outcome.code, 0) << root << ": " << outcome.err;
        std::vector<std::string> const files = folder.Files();
        EXPECT_EQ(files.size(), SheetCount(root)) << root;
        for (std::string const& file : files) {
            XmlDocument const document = CheckXml(ReadFile(folder.Path(file)));
            ASSERT_EQ(document.mistake, "") << root << " " << file;
            EXPECT_TRUE(document.HasUniqueIds()) << root << " " << file;
        }
    }
}

}  // namespace
}  // namespace fighost::test
