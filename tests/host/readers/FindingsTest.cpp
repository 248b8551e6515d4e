#include <gtest/gtest.h>

#include <readers/FileSource.h>
#include <readers/Findings.h>

namespace {

using namespace fighost;

TEST(Findings, AreCountedByKindWithTheFirstInFull) {
    Findings findings;
    EXPECT_TRUE(findings.IsNew("b"));
    findings.Warn("b", {"f", 3, 4}, "First.");
    findings.Warn("b", {"f", 9, 9}, "Second.");
    findings.Count("b");
    findings.Warn("a", {"f", 0, 0}, "Other.");
    auto const warnings = findings.GetWarnings();
    ASSERT_EQ(warnings.size(), 2u);
    EXPECT_EQ(warnings[0].kind, "a");
    EXPECT_EQ(warnings[1].count, 3u);
    EXPECT_EQ(warnings[1].first.ToString(), "f:3:4: First.");
    EXPECT_EQ(warnings[0].first.ToString(), "f: Other.");
    EXPECT_EQ(findings.GetWarningCount(), 4u);
}

TEST(FileNames, AreResolvedBesideAFile) {
    EXPECT_EQ(ResolveBeside("a/b/c.kicad_sch", "d.kicad_sch"), "a/b/d.kicad_sch");
    EXPECT_EQ(ResolveBeside("a/b/c.kicad_sch", "../../x/./d"), "x/d");
    EXPECT_EQ(ResolveBeside("/a/c", "../../../d"), "/d");
    EXPECT_EQ(ResolveBeside("c", "../d"), "../d");
    EXPECT_EQ(ResolveBeside("a/c", "sub\\d"), "a/sub/d");
    EXPECT_EQ(ResolveBeside("a/c", "/x/d"), "/x/d");
}

TEST(FileNames, StemsLoseTheLastExtension) {
    EXPECT_EQ(FileStem("a/b.c.kicad_sch"), "b.c");
    EXPECT_EQ(FileStem(".hidden"), ".hidden");
    EXPECT_EQ(FileName("a/b"), "b");
}

TEST(DiskFiles, TellMissingFilesFromFolders) {
    DiskFiles files;
    std::string bytes = "old";
    EXPECT_EQ(files.Read("/no/such/file", 100, bytes), FileSource::Status::MISSING);
    EXPECT_TRUE(bytes.empty());
    EXPECT_EQ(files.Read("/", 100, bytes), FileSource::Status::FAILED);
}

TEST(DiskFiles, StopAtTheLimit) {
    DiskFiles files;
    std::string bytes;
    std::string const source = FIGREP_SOURCE_DIR "/CMakeLists.txt";
    EXPECT_EQ(files.Read(source, 10, bytes), FileSource::Status::TOO_LARGE);
    EXPECT_TRUE(bytes.empty());
    EXPECT_EQ(files.Read(source, 1 << 20, bytes), FileSource::Status::READ);
    EXPECT_GT(bytes.size(), 10u);
}

}  // namespace
