// The guarantees of the kernel's builder on drawings in which everything goes wrong.
#include <gtest/gtest.h>

#include <du/RefCounted.h>
#include <figk/SchematicKernel.h>
#include <figkernel/DesignBuilder.h>
#include <support/GeneratedDesign.h>
#include <support/KernelGuarantees.h>

namespace figrep::test {
namespace {

constexpr std::uint64_t TANGLES = 1000;

figkernel::BuildResult BuildOf(figkernel::DesignSource const& source) {
    return figkernel::Build(source, figk::SchematicKernel::GetKernelLock());
}

TEST(KernelTangle, TreesKeepAllGuarantees) {
    for (std::uint64_t seed = 1; seed <= TANGLES; ++seed) {
        auto const source = GenerateTangle(seed);
        auto const built = BuildOf(source);
        auto const problems = FindBrokenTrees(*built.design);
        ASSERT_TRUE(problems.empty()) << "seed " << seed << "\n" << JoinLines(problems);
    }
}

TEST(KernelTangle, ConnectsWhatTheDrawingConnects) {
    for (std::uint64_t seed = 1; seed <= TANGLES; ++seed) {
        auto const source = GenerateTangle(seed);
        auto const built = BuildOf(source);
        auto const problems = FindFalseConnections(source, *built.design);
        ASSERT_TRUE(problems.empty()) << "seed " << seed << "\n" << JoinLines(problems);
    }
}

TEST(KernelTangle, NothingIsLeftWhenADesignGoes) {
    auto const source = GenerateTangle(7);
    BuildOf(source);
    auto const before = du::RefCounted::LiveCount();
    for (std::uint64_t seed = 1; seed <= 200; ++seed)
        BuildOf(GenerateTangle(seed));
    EXPECT_EQ(du::RefCounted::LiveCount(), before);
}

TEST(KernelGrid, TreesKeepAllGuarantees) {
    GridOptions options;
    options.segments = 800;
    options.sheets = 2;
    options.blocksPerRow = 8;
    auto const source = GenerateGrid(options);
    auto const built = BuildOf(source);
    EXPECT_EQ(JoinLines(FindBrokenTrees(*built.design)), "");
    EXPECT_EQ(JoinLines(FindFalseConnections(source, *built.design)), "");
    EXPECT_TRUE(built.findings.empty());
}

}  // namespace
}  // namespace figrep::test
