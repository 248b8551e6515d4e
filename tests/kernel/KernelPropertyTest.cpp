// The guarantees of the kernel's builder on drawings in which everything goes wrong.
#include <gtest/gtest.h>

#include <algorithm>

#include <du/RefCounted.h>
#include <figk/NetSegment.h>
#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figk/SubNet.h>
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

TEST(KernelTangle, BeginsWhereFlowStartsAndKeepsAllGuarantees) {
    for (std::uint64_t seed = 1; seed <= TANGLES; ++seed) {
        auto source = GenerateTangle(seed);
        AddFlowStarts(source, seed);
        auto const built = BuildOf(source);
        auto problems = FindFalseStarts(source, *built.design);
        ASSERT_TRUE(problems.empty()) << "seed " << seed << "\n" << JoinLines(problems);
        problems = FindBrokenTrees(*built.design);
        ASSERT_TRUE(problems.empty()) << "seed " << seed << "\n" << JoinLines(problems);
        problems = FindFalseConnections(source, *built.design);
        ASSERT_TRUE(problems.empty()) << "seed " << seed << "\n" << JoinLines(problems);
    }
}

/// The ids of sub-nets and of what is drawn of them, sorted; stubs are drawn nowhere.
std::vector<std::string> IdsOfWires(figk::Design const& design) {
    std::vector<std::string> ids;
    for (auto const& subNet : design.GetSheets().front()->GetSubNets()) {
        ids.push_back(subNet->GetId().GetString());
        auto const head = subNet->GetHead();
        for (auto at = head->Begin(); !(at == head->End()); ++at) {
            auto const segment = du::DynamicCast<figk::NetSegment>(*at);
            if (!segment) continue;
            std::string const& id = segment->GetId().GetString();
            if (id.find("/stub") == std::string::npos) ids.push_back(id);
        }
    }
    std::sort(ids.begin(), ids.end());
    return ids;
}

TEST(KernelTangle, WhereFlowStartsChangesNoId) {
    for (std::uint64_t seed = 1; seed <= TANGLES; ++seed) {
        auto source = GenerateTangle(seed);
        auto const before = BuildOf(source);
        AddFlowStarts(source, seed);
        auto const after = BuildOf(source);
        ASSERT_EQ(IdsOfWires(*before.design), IdsOfWires(*after.design)) << "seed " << seed;
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

TEST(KernelGrid, BeginsWhereFlowStarts) {
    GridOptions options;
    options.segments = 800;
    options.sheets = 2;
    options.blocksPerRow = 8;
    auto source = GenerateGrid(options);
    AddFlowStarts(source, 1);
    auto const built = BuildOf(source);
    EXPECT_EQ(JoinLines(FindFalseStarts(source, *built.design)), "");
    EXPECT_EQ(JoinLines(FindBrokenTrees(*built.design)), "");
    EXPECT_TRUE(built.findings.empty());
}

}  // namespace
}  // namespace figrep::test
