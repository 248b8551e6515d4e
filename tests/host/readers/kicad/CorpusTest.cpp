#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "SheetText.h"

namespace {

using namespace sheettext;
namespace fs = std::filesystem;

class Corpus : public ::testing::Test {
protected:
    void SetUp() override {
        char const* const path = std::getenv("FIGREP_CORPUS");
        if (!path || !fs::is_directory(path)) GTEST_SKIP() << "FIGREP_CORPUS names no folder";
        folder = path;
    }

    /// The root sheets: those with a project beside them, and files of folders without a project.
    std::vector<std::string> RootSheets() const {
        std::vector<std::string> roots;
        for (auto const& entry : fs::recursive_directory_iterator(folder)) {
            if (entry.path().extension() != ".kicad_pro") continue;
            fs::path root = entry.path();
            roots.push_back(root.replace_extension(".kicad_sch").string());
        }
        roots.push_back((folder / "thunderscope-loose-sheet" / "FE.kicad_sch").string());
        std::sort(roots.begin(), roots.end());
        return roots;
    }

    fs::path folder;
};

/// Whether every index of the design points somewhere.
void CheckIndices(figkernel::DesignSource const& design) {
    auto const isNet = [&](auto net) { return net < design.nets.size(); };
    for (auto const& sheet : design.sheets) {
        for (auto const& wire : sheet.wires)
            EXPECT_TRUE(isNet(wire.net));
        for (auto const& bus : sheet.buses)
            EXPECT_LT(bus.highway, design.highways.size());
        for (auto const& tap : sheet.taps) {
            EXPECT_TRUE(isNet(tap.net));
            EXPECT_LT(tap.highway, design.highways.size());
        }
        for (auto const& node : sheet.portNodes)
            EXPECT_LT(node.port, design.ports.size());
        for (auto const& block : sheet.blocks) {
            for (auto const& pin : block.pins)
                EXPECT_TRUE(isNet(pin.net));
        }
    }
    for (auto const& port : design.ports) {
        EXPECT_NE(port.net == figkernel::NO_INDEX, port.highway == figkernel::NO_INDEX);
    }
}

TEST_F(Corpus, EveryDesignIsReadWithoutUnknownWords) {
    auto const roots = RootSheets();
    EXPECT_GE(roots.size(), 21u);
    for (std::string const& root : roots) {
        auto const result = fighost::kicad::ReadDesign(root);
        ASSERT_TRUE(result.IsGood()) << result.error->ToString();
        EXPECT_EQ(Warnings(result, "unknown-token"), 0u) << root;
        EXPECT_EQ(Warnings(result, "bad-number"), 0u) << root;
        EXPECT_EQ(Warnings(result, "missing-symbol"), 0u) << root;
        EXPECT_EQ(Warnings(result, "unknown-image"), 0u) << root;
        EXPECT_FALSE(result.design.nets.empty()) << root;
        CheckIndices(result.design);
    }
}

TEST_F(Corpus, TheSameDesignInVersions6And8HasTheSameNets) {
    auto const six =
        fighost::kicad::ReadDesign((folder / "glasgow-revc-v6" / "glasgow.kicad_sch").string());
    auto const eight =
        fighost::kicad::ReadDesign((folder / "glasgow-revc-v8" / "glasgow.kicad_sch").string());
    ASSERT_TRUE(six.IsGood() && eight.IsGood());
    EXPECT_EQ(PinSets(six.design), PinSets(eight.design));
}

}  // namespace
