#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>
#include <cstdlib>
#include <filesystem>

#include <host/cli/RunProgram.h>
#include <session/edits/Edits.h>

namespace fighost::test {
namespace {

std::string const FOLDER = FIGREP_SOURCE_DIR "/examples/weather-station/";
std::string const EXAMPLE = FOLDER + "weather-station.kicad_sch";
std::string const REVISION = FOLDER + "rev-b/weather-station.kicad_sch";
std::string const REVIEW = FOLDER + "review.figrep";

class EditCommandTest : public ::testing::Test {
protected:
    Outcome Edit(std::vector<std::string> options, std::string const& input = {}) {
        options.insert(options.begin(), {"edit", EXAMPLE, "--saved", saved});
        return RunProgram("figrep", options, input);
    }
    std::string Log() { return RunProgram("figrep", {"log", saved}).out; }
    std::string Picture(std::string const& sheet) {
        return RunProgram("figrep",
                          {"render", EXAMPLE, "--saved", saved, "--sheet", sheet, "-o", "-"})
            .out;
    }

    TemporaryFolder folder;
    std::string saved = folder.Path("board.figrep");
};

TEST_F(EditCommandTest, MakesTheFileAndAddsToIt) {
    Outcome const first = Edit({"--hide", "R3"});
    EXPECT_EQ(first.code, 0) << first.err;
    EXPECT_EQ(first.out, "");
    EXPECT_EQ(first.err, "wrote " + saved + "\n");
    EXPECT_EQ(Edit({"--move", "U1=5,-2.5", "-q"}).err, "");
    EXPECT_EQ(Log(),
              "Power\n  1: show the sheet Power\n  2: hide R3\n  3: move U1\n"
              "  4: set the texts of the title block\n");
    EXPECT_EQ(folder.Files(), std::vector<std::string>{"board.figrep"});
}

TEST_F(EditCommandTest, OptionsAreDoneInTheOrderInWhichTheyStand) {
    ASSERT_EQ(Edit({"--hide", "R3", "--colour", "R3=#f00", "--hide", "R4", "--move", "R3=1,1",
                    "--hide", "R5"})
                  .code,
              0);
    EXPECT_EQ(Log(),
              "Power\n  1: show the sheet Power\n  2: hide R3\n  3: colour R3 #ff0000\n"
              "  4: hide R4\n  5: move R3\n  6: hide R5\n"
              "  7: set the texts of the title block\n");
}

TEST_F(EditCommandTest, EveryWordOfTheVocabularyIsAnOption) {
    std::string const help = RunProgram("figrep", {"edit", "--help"}).out;
    for (EditVerb const& verb : EditVerbs()) {
        std::string const option = "--" + std::string(verb.name);
        bool const listed = help.find(option + " ") != std::string::npos ||
                            help.find(option + ",") != std::string::npos;
        bool const isSheet = std::string(verb.name) == "sheet";
        EXPECT_EQ(listed, !verb.scriptOnly || isSheet) << verb.name;
    }
    Outcome const outcome =
        Edit({"--show-all", "--isolate", "U1", "--show", "U1", "--rotate", "U1=90@10,10", "--scale",
              "U1=2", "--mirror", "U1=x", "--color", "U1=#123456", "--fill", "U1=#fff", "--delete",
              "C1", "--background", "#fffff0"});
    EXPECT_EQ(outcome.code, 0) << outcome.err;
}

TEST_F(EditCommandTest, SheetLimitsAllOptions) {
    ASSERT_EQ(Edit({"--hide", "GND", "--sheet", "/Display/"}).code, 0);
    EXPECT_EQ(Log().substr(0, 8), "Display\n");
    EXPECT_EQ(Log().find("Power"), std::string::npos);
}

TEST_F(EditCommandTest, WrongUsageSavesNothing) {
    for (std::vector<std::string> const& options : {std::vector<std::string>{},
                                                    {"--hide"},
                                                    {"--hide", "NOSUCH"},
                                                    {"--hide", "R3", "--hide", "NOSUCH"},
                                                    {"--move", "U1"},
                                                    {"--move", "U1=far"},
                                                    {"--scale", "U1=0"},
                                                    {"--colour", "U1=blurple"},
                                                    {"--delete", "U1:3"},
                                                    {"--sheet", "none", "--hide", "R3"},
                                                    {"--script", "-", "--script", "-"},
                                                    {"--undo"}}) {
        Outcome const outcome = Edit(options);
        EXPECT_EQ(outcome.code, 1) << testing::PrintToString(options);
        EXPECT_EQ(outcome.out, "");
        EXPECT_NE(outcome.err, "");
        EXPECT_TRUE(folder.Files().empty());
    }
}

TEST_F(EditCommandTest, NamesMayHoldTheSignThatPartsThemFromTheirValue) {
    Outcome const outcome = Edit({"--move", "a=b=1,2"});
    EXPECT_NE(outcome.err.find("'a=b'"), std::string::npos) << outcome.err;
}

TEST_F(EditCommandTest, FileWithoutANameIsWrongUsage) {
    for (char const* command : {"edit", "apply", "render"}) {
        std::vector<std::string> arguments{command, EXAMPLE, "--saved", ""};
        if (std::string(command) == "edit") arguments.insert(arguments.end(), {"--hide", "R3"});
        if (std::string(command) == "render") {
            arguments.insert(arguments.end(), {"--sheet", "/", "-o", "-"});
        }
        Outcome const outcome = RunProgram("figrep", arguments);
        EXPECT_EQ(outcome.code, 1) << command;
        EXPECT_EQ(outcome.out, "");
        EXPECT_NE(outcome.err.find("--saved"), std::string::npos) << outcome.err;
    }
    EXPECT_EQ(RunProgram("figrep", {"log", ""}).code, 1);
}

// Scripts.

TEST_F(EditCommandTest, ScriptFromAFileAndFromStandardInputGiveTheSame) {
    std::string const script = "# what to look at\nhide R3\nmove U1 5,0\nundo\nredo\n";
    WriteFile(folder.Path("steps.txt"), script);
    ASSERT_EQ(Edit({"--script", folder.Path("steps.txt")}).code, 0);
    std::string const fromFile = ReadFile(saved);
    std::remove(saved.c_str());
    ASSERT_EQ(Edit({"--script", "-"}, script).code, 0);
    EXPECT_EQ(ReadFile(saved), fromFile);
    EXPECT_NE(Log().find("3: move U1"), std::string::npos);
}

TEST_F(EditCommandTest, MistakeInAScriptIsToldWithItsPlaceAndNothingIsSaved) {
    ASSERT_EQ(Edit({"--hide", "R3"}).code, 0);
    std::string const before = ReadFile(saved);
    std::string const path = folder.Path("steps.txt");
    WriteFile(path, "hide R4\n  vanish R5\n");
    Outcome const syntax = Edit({"--script", path});
    EXPECT_EQ(syntax.code, 3);
    EXPECT_EQ(syntax.err.find(path + ":2:3: "), 0u) << syntax.err;
    WriteFile(path, "hide R4\nhide NOSUCH\n");
    Outcome const unknown = Edit({"--script", path});
    EXPECT_EQ(unknown.code, 1);
    EXPECT_NE(unknown.err.find(path + ":2:1: "), std::string::npos) << unknown.err;
    WriteFile(path, "undo\n");
    EXPECT_EQ(Edit({"--script", path}).code, 1) << "changes of an earlier run aren't undone";
    EXPECT_EQ(ReadFile(saved), before);
    EXPECT_EQ(Edit({"--script", folder.Path("none.txt")}).code, 3);
}

// The file is either whole or untouched.

TEST_F(EditCommandTest, DamagedFileIsRefusedAndLeft) {
    WriteFile(saved, "<figrep-figures>");
    EXPECT_EQ(Edit({"--hide", "R3"}).code, 3);
    EXPECT_EQ(ReadFile(saved), "<figrep-figures>");
}

TEST_F(EditCommandTest, FolderThatCanNotBeWrittenLeavesTheOldFile) {
    if (::geteuid() == 0) GTEST_SKIP() << "nothing is forbidden to this user";
    ASSERT_EQ(Edit({"--hide", "R3"}).code, 0);
    std::string const before = ReadFile(saved);
    ::chmod(folder.Path("").c_str(), 0500);
    Outcome const outcome = Edit({"--hide", "R4"});
    ::chmod(folder.Path("").c_str(), 0700);
    EXPECT_EQ(outcome.code, 4);
    EXPECT_EQ(ReadFile(saved), before);
}

/// Runs an edit that may write only a few hundred bytes to a file. `before` is a shell command.
int EditWithLittleRoom(std::string const& before, std::string const& saved) {
    std::string const command =
        "ulimit -c 0; ulimit -f 1; " + before + " '" FIGREP_BINARY_DIR "/bin/figrep' edit '" +
        EXAMPLE + "' --saved '" + saved + "' --isolate U2 --isolate U1 --hide GND >/dev/null 2>&1";
    return std::system(("sh -c \"" + command + "\"").c_str());
}

TEST_F(EditCommandTest, DiskThatIsFullLeavesTheOldFileWhole) {
    ASSERT_EQ(Edit({"--hide", "R3"}).code, 0);
    std::string const before = ReadFile(saved);
    int const status = EditWithLittleRoom("trap '' XFSZ;", saved);
    EXPECT_EQ(WEXITSTATUS(status), 4);
    EXPECT_EQ(ReadFile(saved), before);
    EXPECT_EQ(folder.Files().size(), 1u) << "nothing half-written is left";
}

TEST_F(EditCommandTest, DeathInTheMiddleOfWritingLeavesTheOldFileWhole) {
    ASSERT_EQ(Edit({"--hide", "R3"}).code, 0);
    std::string const before = ReadFile(saved);
    EXPECT_NE(EditWithLittleRoom("", saved), 0);
    EXPECT_EQ(ReadFile(saved), before);
    EXPECT_EQ(Edit({"--hide", "R4"}).code, 0) << "and the next edit works";
}

// What the pictures show.

TEST_F(EditCommandTest, PaperAndColoursShowInThePicture) {
    ASSERT_EQ(Edit({"--background", "#fedcba", "--colour", "U1=#123456"}).code, 0);
    std::string const picture = Picture("Power");
    EXPECT_NE(picture.find("#fedcba"), std::string::npos);
    EXPECT_NE(picture.find("#123456"), std::string::npos);
}

TEST_F(EditCommandTest, ColoursHaveNames) {
    ASSERT_EQ(Edit({"--colour", "U1=magenta"}).code, 0);
    EXPECT_NE(Log().find("colour U1 #ff00ff"), std::string::npos) << Log();
    EXPECT_NE(Picture("Power").find("#ff00ff"), std::string::npos);
}

// The next revision of the example, in which C2 is gone, R14 has another name and a net another
// way.

TEST_F(EditCommandTest, ExampleFigureIsWhatItsScriptMakes) {
    ASSERT_EQ(Edit({"--script", FOLDER + "review.edits"}).code, 0);
    EXPECT_EQ(ReadFile(saved), ReadFile(REVIEW));
}

TEST(Revision, OnItsOwnRevisionEverythingApplies) {
    EXPECT_EQ(RunProgram("figrep", {"apply", EXAMPLE, "--saved", REVIEW, "--strict"}).code, 0);
}

TEST(Revision, ExactlyTheChangesThatLostTheirTargetsAreListed) {
    Outcome const outcome =
        RunProgram("figrep", {"apply", REVISION, "--saved", REVIEW, "--strict"});
    EXPECT_EQ(outcome.code, 5);
    std::string const lost =
        " (/657440fe-5f10-52b6-944b-475a1c455ba5/"
        "390b385e-b1c8-591d-b9f0-be0263235077/"
        "e94ef98b-d1d3-5745-b2ff-94e39270b8ed) is gone";
    EXPECT_EQ(outcome.out,
              "/Power/\t1: show the sheet Power: applied\n"
              "/Power/\t2: colour /Controller/~{PWR_GOOD} #d00000: applied\n"
              "/Power/\t3: move R14: applied\n"
              "/Power/\t4: fill U1 #ffd8a8: applied\n"
              "/Power/\t5: colour C2 #0000ff: not applied: C2" +
                  lost + "\n/Power/\t6: hide C2, D2: applied in part: C2" + lost +
                  "\n/Power/\t7: set the texts of the title block: applied\n");
}

TEST(Revision, WhatAppliesShowsInThePicture) {
    std::vector<std::string> arguments = {"render", REVISION, "--sheet", "Power", "-o", "-"};
    std::string const plain = RunProgram("figrep", arguments).out;
    arguments.insert(arguments.end(), {"--saved", REVIEW, "-q"});
    std::string const changed = RunProgram("figrep", arguments).out;
    auto const has = [](std::string const& text, char const* part) {
        return text.find(part) != std::string::npos;
    };
    EXPECT_FALSE(has(plain, "#d00000"));
    EXPECT_TRUE(has(changed, "#d00000"));
    EXPECT_TRUE(has(plain, ">D2<"));
    EXPECT_FALSE(has(changed, ">D2<"));
    EXPECT_TRUE(has(changed, ">R21<")) << "the present name";
    EXPECT_TRUE(has(changed, "Rev: 1.3")) << "the present title block";
}

}  // namespace
}  // namespace fighost::test
