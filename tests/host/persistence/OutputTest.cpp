#include <persistence/Output.h>

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

namespace fighost {
namespace {

namespace fs = std::filesystem;

class OutputTest : public ::testing::Test {
protected:
    OutputTest() {
        std::string folderName = (fs::temp_directory_path() / "figrep-output-XXXXXX").string();
        folder = ::mkdtemp(folderName.data());
        path = (folder / "file").string();
    }
    ~OutputTest() override { fs::remove_all(folder); }

    static std::string Content(fs::path const& file) {
        std::ifstream stream(file);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    std::size_t FilesInFolder() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
    }

    fs::path folder;
    std::string path;
    std::string error;
};

TEST_F(OutputTest, ReplacesAFileWholeAndKeepsItsPermissions) {
    ASSERT_TRUE(WriteOutput(path, "long old content", error));
    ::chmod(path.c_str(), 0640);
    ASSERT_TRUE(WriteOutput(path, "new", error));
    EXPECT_EQ(Content(path), "new");
    EXPECT_EQ(fs::status(path).permissions(), static_cast<fs::perms>(0640));
    EXPECT_EQ(FilesInFolder(), 1u);
}

TEST_F(OutputTest, WritesWhatALinkLeadsTo) {
    ASSERT_TRUE(WriteOutput(path, "old", error));
    fs::path const link = folder / "link";
    fs::create_symlink(path, link);
    ASSERT_TRUE(WriteOutput(link.string(), "new", error));
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(Content(path), "new");
}

TEST_F(OutputTest, FailureLeavesNothingBehindAndSaysWhy) {
    EXPECT_FALSE(WriteOutput((folder / "none" / "file").string(), "x", error));
    EXPECT_NE(error.find("cannot write"), std::string::npos);
    EXPECT_FALSE(WriteOutput(folder.string(), "x", error));
    EXPECT_EQ(FilesInFolder(), 0u);
}

/// To the super-user no folder is closed, so nothing is done as that one while this stands.
class AsSomebody {
public:
    AsSomebody() : before_(::geteuid()) { works_ = before_ != 0 || ::seteuid(NOBODY) == 0; }
    ~AsSomebody() { works_ = ::seteuid(before_) == 0; }
    AsSomebody(AsSomebody const&) = delete;
    AsSomebody& operator=(AsSomebody const&) = delete;
    bool Works() const { return works_; }

private:
    static constexpr uid_t NOBODY = 65534;
    uid_t before_;
    bool works_;
};

TEST_F(OutputTest, FolderThatCanNotBeWrittenLeavesTheOldFile) {
    ASSERT_TRUE(WriteOutput(path, "old", error));
    ::chmod(folder.c_str(), 0555);
    bool written = true;
    bool works = false;
    {
        AsSomebody const somebody;
        works = somebody.Works();
        if (works) written = WriteOutput(path, "new", error);
    }
    ::chmod(folder.c_str(), 0700);
    if (!works) GTEST_SKIP() << "this user can be nobody else";
    EXPECT_FALSE(written);
    EXPECT_NE(error.find("Permission denied"), std::string::npos) << error;
    EXPECT_EQ(Content(path), "old");
    EXPECT_EQ(FilesInFolder(), 1u);
}

TEST_F(OutputTest, WhereNoFileCanBeMadeTheOldOneStaysWhole) {
    std::string const longest = (folder / std::string(252, 'n')).string();
    std::ofstream(longest) << "old";
    ASSERT_EQ(Content(longest), "old");
    EXPECT_FALSE(WriteOutput(longest, "new", error)) << "no room for the temporary file's name";
    EXPECT_NE(error.find(longest + ": cannot write"), std::string::npos);
    EXPECT_EQ(Content(longest), "old");
    EXPECT_EQ(FilesInFolder(), 1u);
}

TEST_F(OutputTest, FullDeviceIsAnError) {
    if (!fs::exists("/dev/full")) GTEST_SKIP() << "no /dev/full here";
    EXPECT_FALSE(WriteOutput("/dev/full", "x", error));
    EXPECT_FALSE(error.empty());
}

}  // namespace
}  // namespace fighost
